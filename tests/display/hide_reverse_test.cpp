// VxHideReverse and VxShowAllComp: what is hidden and what is shown afterwards.
#include "simhost/model/shown.h"
#include "tests/support/observed.h"

namespace {

using namespace simhost;
using workbench::MakeModels;
using workbench::ModelNamed;
using workbench::Names;
using workbench::ObservedBench;

class HiddenParts : public ObservedBench {
protected:
    // TOP holds BOLT (1, 2), SUB (3) with PLATE (1) and BOLT (2), and a second SUB (4).
    void SetUp() override {
        top_ = &MakeModels("top: bolt, bolt!hidden, sub(plate, bolt!hidden), sub!hidden");
        Open(*top_);
        Start();
    }
    // Of TOP, then of SUB: h for hidden.
    std::string States() {
        std::string states;
        for (const Model* model : {top_, &ModelNamed("sub.asm")}) {
            for (const Feature& feature : model->features()) states += feature.hidden ? 'h' : '-';
        }
        return states;
    }
    Model* top_ = nullptr;
};

using HideReverse = HiddenParts;
using ShowAllComp = HiddenParts;

// --- VxHideReverse

TEST_F(HideReverse, PartsChangeOverAndSubAssembliesAreShown) {
    ASSERT_EQ(States(), "-h-h-h");
    Press("VxHideReverse");
    EXPECT_EQ(States(), "h---h-");
    EXPECT_EQ(host().session.current->repaints, 1);
}

TEST_F(HideReverse, TwiceRestoresThePartsAndLeavesSubAssembliesShown) {
    Press("VxHideReverse");
    Press("VxHideReverse");
    EXPECT_EQ(States(), "-h---h");
}

TEST_F(HideReverse, APartOfASubAssemblyThatIsUsedTwiceChangesOverOnce) {
    Record();
    Press("VxHideReverse");
    EXPECT_EQ(Lines("ProModelitemIsHidden").size(), 4u);
    EXPECT_EQ(Lines("ProModelitemUnhide").size(), 4u);  // two parts, two uses of SUB
    EXPECT_EQ(Lines("ProModelitemHide").size(), 2u);
}

TEST_F(HideReverse, TheTreeOfTheModelThatWasFetchedLastIsRefreshed) {
    Press("VxHideReverse");
    EXPECT_EQ(ModelNamed("bolt").treeRefreshes, 1);
    EXPECT_EQ(top_->treeRefreshes, 0);
}

TEST_F(HideReverse, WhereNoModelCouldBeFetchedTheTreeOfTheTopIsRefreshed) {
    Model& lost = MakeModels("lost: gone!missing");
    Open(lost);
    Press("VxHideReverse");
    EXPECT_EQ(lost.treeRefreshes, 1);
}

TEST_F(HideReverse, WithoutComponentsItsOwnPlainErrorComes) {
    Open(MakeModels("empty:"));
    Play(
        "~ Command `VxHideReverse`\n@ expect box \"当前模型中没有合适的子零/ 组件\"\n"
        "@ expect caption none\n@ ok");
    EXPECT_EQ(host().session.current->repaints, 0);
}

// The rule greys it there; a host that shows a part since then gets the same error.
TEST_F(HideReverse, InAPartItIsGreyedAndWouldTellTheSameError) {
    Open(ModelNamed("bolt"));
    Play("@ expect greyed VxHideReverse");
}

TEST_F(HideReverse, InAManufacturingModelItsAssemblyIsMeant) {
    Open(Manufacturing("mill", *top_));
    Press("VxHideReverse");
    EXPECT_EQ(States(), "h---h-");
}

TEST_F(HideReverse, APartWhoseStateCannotBeReadStaysAsItIs) {
    Fail("ProModelitemIsHidden");
    Press("VxHideReverse");
    EXPECT_EQ(States(), "----h-");
}

TEST_F(HideReverse, ItsCallsComeInTheirOrder) {
    Open(MakeModels("pair: rod"));
    Record();
    Press("VxHideReverse");
    EXPECT_EQ(Recorded(),
              (Names{"ProModeCurrentGet", "ProMdlCurrentGet",     "ProMdlTypeGet",
                     "ProArrayAlloc",     "ProSolidFeatVisit",    "ProFeatureStatusflagsGet",
                     "ProFeatureTypeGet", "ProFeatureStatusGet",  "ProFeatureVisibilityGet",
                     "ProArrayObjectAdd", "ProAsmcompMdlGet",     "ProMdlTypeGet",
                     "ProArraySizeGet",   "ProAsmcompMdlGet",     "ProArrayFree",
                     "ProMdlTypeGet",     "ProModelitemIsHidden", "ProModelitemHide",
                     "ProWindowRepaint",  "ProTreetoolRefresh"}));
}

// --- VxShowAllComp

TEST_F(ShowAllComp, EverythingIsShownAtEveryLevel) {
    Press("VxShowAllComp");
    EXPECT_EQ(States(), "------");
    EXPECT_EQ(host().session.current->repaints, 1);
    EXPECT_EQ(top_->treeRefreshes, 1);
}

TEST_F(ShowAllComp, AfterAnIsolationEverythingIsSeenAgain) {
    Press("VxShowAllComp");
    const std::size_t before = ShownParts(*top_, Sight::Screen).size();
    Play("@ select sub/plate\n~ Command `VxIsolate`");
    EXPECT_LT(ShownParts(*top_, Sight::Screen).size(), before);
    Press("VxShowAllComp");
    EXPECT_EQ(ShownParts(*top_, Sight::Screen).size(), before);
}

TEST_F(ShowAllComp, TwoFurtherKindsOfFeaturesAreReachedAtTheTopLevelOnly) {
    const auto addHidden = [](Model& model, int type) {
        Feature feature;
        feature.type = type;
        feature.hidden = true;
        return model.AddFeature(feature).id;
    };
    Model& sub = ModelNamed("sub.asm");
    const int first = addHidden(*top_, 1104), second = addHidden(*top_, 1232);
    const int other = addHidden(*top_, 917), deep = addHidden(sub, 1104);
    Press("VxHideReverse");
    EXPECT_TRUE(top_->FindFeature(first)->hidden);
    Press("VxShowAllComp");
    EXPECT_FALSE(top_->FindFeature(first)->hidden);
    EXPECT_FALSE(top_->FindFeature(second)->hidden);
    EXPECT_TRUE(top_->FindFeature(other)->hidden);
    EXPECT_TRUE(sub.FindFeature(deep)->hidden);
}

TEST_F(ShowAllComp, AComponentWhoseModelIsNotInMemoryIsShownToo) {
    Model& lost = MakeModels("lost: gone!missing, bolt");
    lost.MutableFeatures()[0].hidden = true;
    Open(lost);
    Press("VxShowAllComp");
    EXPECT_FALSE(lost.features()[0].hidden);
}

TEST_F(ShowAllComp, WithoutComponentsAPlainErrorComes) {
    Open(MakeModels("empty:"));
    Play(
        "~ Command `VxShowAllComp`\n@ expect box \"当前模型中没有合适的子零/组件\"\n"
        "@ expect caption none\n@ ok");
    EXPECT_EQ(host().session.current->repaints, 0);
}

TEST_F(ShowAllComp, InAManufacturingModelItsAssemblyIsMeantAndItsTreeRefreshed) {
    Open(Manufacturing("mill", *top_));
    Press("VxShowAllComp");
    EXPECT_EQ(States(), "------");
    EXPECT_EQ(top_->treeRefreshes, 1);
}

TEST_F(ShowAllComp, ItsCallsComeInTheirOrder) {
    Open(MakeModels("pair: rod"));
    Record();
    Press("VxShowAllComp");
    EXPECT_EQ(Recorded(),
              (Names{"ProModeCurrentGet", "ProMdlCurrentGet", "ProMdlTypeGet", "ProArrayAlloc",
                     "ProSolidFeatVisit", "ProFeatureStatusflagsGet", "ProFeatureTypeGet",
                     "ProFeatureStatusGet", "ProFeatureVisibilityGet", "ProArrayObjectAdd",
                     "ProAsmcompMdlGet", "ProMdlTypeGet", "ProArraySizeGet", "ProModelitemUnhide",
                     "ProArrayFree", "ProWindowRepaint", "ProTreetoolRefresh"}));
}

TEST_F(ShowAllComp, WithoutAnAssemblyNothingIsSaid) {
    for (const std::string command : {"VxShowAllComp", "VxIsolate"}) {
        Fail("ProMdlTypeGet");
        Press(command);
    }
    EXPECT_EQ(States(), "-h-h-h");
    EXPECT_EQ(host().session.current->repaints, 0);
}

}  // namespace
