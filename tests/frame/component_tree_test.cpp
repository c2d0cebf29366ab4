// The listing of components: which have a line, and what it says.
#include "frame/services/component_tree.h"
#include "simhost/core/text.h"
#include "tests/frame/walk_bench.h"

namespace {

using namespace simhost;
using workbench::WalkBench;

class ComponentTree : public WalkBench {
protected:
    std::string Listed() { return Utf8(ListComponents(top_.handle).value_or(WIDE("nothing"))); }
    static constexpr const char* kWhole =
        "PLATE.PRT:1:0\n"
        "SUB.ASM:2:0\n"
        "SHEET.PRT:1:1\n"
        "SUBSUB.ASM:2:1\n"
        "PIN.PRT:1:2\n"
        "PLATE.PRT:3:1\n"
        "PLATE.PRT:3:0\n";
};

TEST_F(ComponentTree, EachComponentHasALineOfItsModelItsIdAndItsDepthBelowTheLineOfItsParent) {
    EXPECT_EQ(Listed(), kWhole);
    EXPECT_EQ(Listed(), kWhole);  // nothing is left from before
    EXPECT_EQ(ComponentTreeDepth, 0);
    EXPECT_EQ(ComponentTreeText, WideText());
}

TEST_F(ComponentTree, WhatIsSuppressedOrInvisibleHasNoLineNorHasWhatLiesBelow) {
    FeatureOf(sub_, 2).status = PRO_FEAT_SUPPRESSED;
    FeatureOf(top_, 3).visible = false;
    EXPECT_EQ(Listed(),
              "PLATE.PRT:1:0\n"
              "SUB.ASM:2:0\n"
              "SHEET.PRT:1:1\n"
              "PLATE.PRT:3:1\n");
}

TEST_F(ComponentTree, AComponentWithoutItsModelHasNoLine) {
    FeatureOf(sub_, 1).model = nullptr;
    EXPECT_EQ(Listed(),
              "PLATE.PRT:1:0\n"
              "SUB.ASM:2:0\n"
              "SUBSUB.ASM:2:1\n"
              "PIN.PRT:1:2\n"
              "PLATE.PRT:3:1\n"
              "PLATE.PRT:3:0\n");
}

TEST_F(ComponentTree, AModelOfAnotherKindHasNoLineButIsInTheArray) {
    // Nothing can be told of the first model, so that its kind is the empty text.
    Fail("ProMdlDataGet");
    ComponentArray components;
    ASSERT_EQ(components.Allocate(), PRO_TK_NO_ERROR);
    ProSolidFeatVisit(static_cast<ProSolid>(subsub_.handle), ComponentTreeVisitor, ComponentFilter,
                      components.Place());
    EXPECT_EQ(ComponentTreeText, WideText());
    EXPECT_EQ(components.Size(), 1);
}

TEST_F(ComponentTree, WhatIsListedByHandStartsFromThePresentDepth) {
    ComponentArray components;
    ASSERT_EQ(components.Allocate(), PRO_TK_NO_ERROR);
    ProSolidFeatVisit(static_cast<ProSolid>(sub_.handle), ComponentTreeVisitor, ComponentFilter,
                      components.Place());
    EXPECT_EQ(Utf8(std::exchange(ComponentTreeText, {})),
              "SHEET.PRT:1:0\nSUBSUB.ASM:2:0\nPIN.PRT:1:1\nPLATE.PRT:3:0\n");
    EXPECT_EQ(components.Size(), 3);  // those of the first level alone
}

TEST_F(ComponentTree, WithoutAnArrayThereIsNoListing) {
    Fail("ProArrayAlloc");
    EXPECT_EQ(Listed(), "nothing");
}

}  // namespace
