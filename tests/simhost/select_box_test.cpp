// Selecting by a box on the screen: which parts it takes, beside what, and what it refuses.
#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "simhost/host.h"
#include "tests/simhost/trail_ground.h"
#include "tests/support/models.h"

namespace {

using namespace simhost;
using trails::Failures;

// The screen is 1000 x 800 and shows everything. SHAFT in TOP itself lies at its lower right.
class SelectingByBox : public trails::ModelScripts {
protected:
    void SetUp() override {
        ModelScripts::SetUp();
        top_->FindFeature(2)->placement.origin = {1000, 0, 0};
    }
    std::size_t Count() { return host().session.selections.buffer().size(); }
};

TEST_F(SelectingByBox, TakesThePartsThatLieWhollyInItInTreeOrder) {
    EXPECT_EQ(Run("@ select 箱体\n@ rectangle 0 0 1000 800"), Failures{});
    EXPECT_TRUE(Told("3 in the box"));
    ASSERT_EQ(Count(), 3u);
    EXPECT_EQ(Picked(0), "shaft.prt 2 -1 at 1 1");
    EXPECT_EQ(Picked(1), "shaft.prt 2 -1 at 1 2");
    EXPECT_EQ(Picked(2), "shaft.prt 2 -1 at 2");
    // Between any two opposite corners.
    EXPECT_EQ(Run("@ rectangle 1000 0 500 800"), Failures{});
    ASSERT_EQ(Count(), 1u);
    EXPECT_EQ(Picked(0), "shaft.prt 2 -1 at 2");
}

TEST_F(SelectingByBox, MoreKeepsWhatIsSelectedAndTakesNothingTwice) {
    EXPECT_EQ(Run("@ select shaft, 箱体\n@ rectangle more 0 0 1000 800"), Failures{});
    ASSERT_EQ(Count(), 4u);
    EXPECT_EQ(Picked(0), "shaft.prt 2 -1 at 2");
    EXPECT_EQ(Picked(1), "箱体.asm 1 -1 at 1");
    EXPECT_EQ(Picked(2), "shaft.prt 2 -1 at 1 1");
    EXPECT_EQ(Picked(3), "shaft.prt 2 -1 at 1 2");
}

TEST_F(SelectingByBox, AnEmptyBoxLetsGoOfTheSelectionUnlessItIsForMore) {
    EXPECT_EQ(Run("@ select shaft\n@ rectangle more 3 3 3 3"), Failures{});
    EXPECT_EQ(Count(), 1u);
    EXPECT_EQ(Run("@ rectangle 3 3 3 3"), Failures{});
    EXPECT_EQ(Count(), 0u);
}

TEST_F(SelectingByBox, WhatIsNoBoxFailsAndTheSelectionStays) {
    EXPECT_EQ(Run("@ select shaft"), Failures{});
    for (const char* wrong : {"", "0 0 1000", "0 0 1000 x", "0 0 1000 inf"}) {
        EXPECT_EQ(Failure(std::string("@ rectangle ") + wrong),
                  "line 1: a box is two corners: X Y X Y")
            << wrong;
    }
    EXPECT_EQ(Failure("@ rectangle 0 0 1000 800 1"),
              "line 1: a box is two corners: X Y X Y, and nothing after them");
    EXPECT_EQ(Count(), 1u);
}

TEST_F(SelectingByBox, WaitsForTheAnswerToABoxAndNeedsAModelInTheWindow) {
    EXPECT_EQ(Run("~ Command `ShowsABox`\n@ rectangle 0 0 1000 800\n@ ok"),
              Failures{"line 2: nothing can be selected before the host has its answer"});
    EXPECT_EQ(Count(), 0u);
    host().session.Open(workbench::MakeModels("plate.drw: A3"));
    EXPECT_EQ(Failure("@ rectangle 0 0 1000 800"),
              "line 1: a box selects parts, and on a sheet there are none");
    RestartHost();
    EXPECT_EQ(Failure("@ rectangle 0 0 1000 800"), "line 1: no model is open");
}

}  // namespace
