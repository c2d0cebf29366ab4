// Selecting more beside what is selected, and letting go of some of it.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "simhost/host.h"
#include "tests/simhost/trail_ground.h"

namespace {

using namespace simhost;
using trails::Failures;

class SelectingBeside : public trails::ModelScripts {
protected:
    std::vector<std::string> Selected() {
        std::vector<std::string> all;
        const std::size_t count = host().session.selections.buffer().size();
        for (std::size_t i = 0; i < count; ++i) all.push_back(Picked(i));
        return all;
    }
    const std::string unit_itself_ = "箱体.asm 1 -1 at 1";
    const std::string first_shaft_ = "shaft.prt 2 -1 at 1 1";
    const std::string last_shaft_ = "shaft.prt 2 -1 at 2";
};

TEST_F(SelectingBeside, AddsInTheOrderOfTheClicksAndTakesNothingTwice) {
    EXPECT_EQ(Run("@ also shaft\n@ also 箱体/shaft, shaft, 箱体"), Failures{});
    EXPECT_EQ(Selected(), (std::vector{last_shaft_, first_shaft_, unit_itself_}));
}

TEST_F(SelectingBeside, LetsGoOfSomeAndKeepsTheOrderOfTheRest) {
    EXPECT_EQ(Run("@ select shaft, 箱体/shaft, 箱体\n@ deselect 箱体/shaft"), Failures{});
    EXPECT_EQ(Selected(), (std::vector{last_shaft_, unit_itself_}));
    EXPECT_EQ(Run("@ deselect 箱体, shaft"), Failures{});
    EXPECT_EQ(Selected(), std::vector<std::string>{});
}

// Both are shafts, and both lie in the same model: what differs is the way to them, or the item.
TEST_F(SelectingBeside, TellsOccurrencesAndItemsApart) {
    EXPECT_EQ(Run("@ select 箱体/shaft\n@ also 箱体/shaft:2, 箱体/shaft/edge#4"), Failures{});
    ASSERT_EQ(Selected().size(), 3u);
    EXPECT_EQ(Run("@ deselect 箱体/shaft:2, 箱体/shaft"), Failures{});
    EXPECT_EQ(Selected(),
              std::vector<std::string>{fmt::format("shaft.prt {} 4 at 1 1", int(PRO_EDGE))});
}

TEST_F(SelectingBeside, ASlipLeavesTheSelectionAsItIs) {
    EXPECT_EQ(Run("@ select shaft"), Failures{});
    EXPECT_EQ(Failure("@ deselect shaft, 箱体"), "line 1: not all of shaft, 箱体 is selected");
    EXPECT_EQ(Failure("@ deselect"), "line 1: a path belongs after deselect, such as UNIT/GEAR:2");
    EXPECT_EQ(Failure("@ also"), "line 1: a path belongs after also, such as UNIT/GEAR:2");
    EXPECT_EQ(Failure("@ also 箱体, gear").substr(0, 39),
              "line 1: top.asm holds no component gear");
    EXPECT_EQ(Selected(), std::vector{last_shaft_});
}

TEST_F(SelectingBeside, WaitsForTheAnswerToABox) {
    EXPECT_EQ(Run("@ select shaft\n~ Command `ShowsABox`\n@ also 箱体\n@ deselect shaft\n@ ok"),
              (Failures{"line 3: nothing can be selected before the host has its answer",
                        "line 4: nothing can be selected before the host has its answer"}));
    EXPECT_EQ(Selected(), std::vector{last_shaft_});
}

}  // namespace
