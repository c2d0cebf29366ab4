// VxIsolate: which uses of which parts stay on the screen.
#include <set>

#include "simhost/model/shown.h"
#include "tests/support/observed.h"

namespace {

using namespace simhost;
using workbench::MakeModels;
using workbench::ModelNamed;
using workbench::Names;
using workbench::ObservedBench;

constexpr const char* kNothingSelected =
    "@ expect box \"\\t请先选择需要独立显示的模型\\t\"\n"
    "@ expect caption 岚枢工具By墨川听雨,QQ:100200300\n@ ok";

class Isolate : public ObservedBench {
protected:
    // TOP holds BOLT (1, 2), SUB (3) with PLATE (1) and BOLT (2), and a second SUB (4).
    void SetUp() override {
        top_ = &MakeModels("top: bolt x2, sub(plate, bolt), sub");
        Open(*top_);
        Start();
    }
    void IsolateAfter(const std::string& picks) {
        Play("@ select " + picks + "\n~ Command `VxIsolate`");
    }
    // The hidden components, as "top.asm 1".
    std::set<std::string> Hidden() {
        std::set<std::string> hidden;
        for (const Model* model : host().session.All()) {
            for (const Feature& feature : model->features()) {
                if (!feature.hidden) continue;
                hidden.insert(model->FileName() + " " + std::to_string(feature.id));
            }
        }
        return hidden;
    }
    using Set = std::set<std::string>;
    const Set kAllParts = {"top.asm 1", "top.asm 2", "sub.asm 1", "sub.asm 2"};
    Set AllBut(const Set& shown) const {
        Set hidden = kAllParts;
        for (const std::string& each : shown) hidden.erase(each);
        return hidden;
    }
    Model* top_ = nullptr;
};

TEST_F(Isolate, WithNothingSelectedANoticeSaysSoAndNothingChanges) {
    Record();
    Play(std::string("~ Command `VxIsolate`\n") + kNothingSelected);
    EXPECT_EQ(Hidden(), Set{});
    EXPECT_EQ(Lines("ProSolidFeatVisit"), Names{});
    EXPECT_EQ(Lines("ProWindowRepaint"), Names{});
    EXPECT_EQ(AllBoxes().at(0).flags, 0x40000u);
}

TEST_F(Isolate, ThePickedUseOfAPartStaysAloneOthersOfThePartGo) {
    IsolateAfter("bolt:2");
    EXPECT_EQ(Hidden(), AllBut({"top.asm 2"}));
    EXPECT_EQ(host().session.current->repaints, 2);  // one repaint, one activation
}

TEST_F(Isolate, APartInASubAssemblyStaysInEachUseOfIt) {
    top_->FindFeature(3)->hidden = true;
    IsolateAfter("sub:2/plate");
    EXPECT_EQ(Hidden(), AllBut({"sub.asm 1"}));
    EXPECT_EQ(ShownParts(*top_, Sight::Screen).size(), 2u);
}

TEST_F(Isolate, ASubAssemblyShowsAllThatIsInIt) {
    IsolateAfter("sub");
    EXPECT_EQ(Hidden(), AllBut({"sub.asm 1", "sub.asm 2"}));
}

TEST_F(Isolate, TheTopAsPickedShowsEverything) {
    IsolateAfter(".");
    EXPECT_EQ(Hidden(), Set{});
}

TEST_F(Isolate, AnItemOfAPartStandsForItsPart) {
    IsolateAfter("sub/bolt#12");
    EXPECT_EQ(Hidden(), AllBut({"sub.asm 2"}));
}

TEST_F(Isolate, EachUseIsShownOnceInTheOrderInWhichItWasFirstMet) {
    Record();
    IsolateAfter("sub/bolt, sub, bolt, sub:2/bolt, bolt");
    Recorded();
    Names shown;
    for (const std::string& line : Lines("ProModelitemUnhide")) {
        shown.push_back(line.substr(line.find('=') + 1, line.find(" of") - line.find('=') - 1));
    }
    // Both uses of SUB at first, when all parts are hidden.
    EXPECT_EQ(shown, (Names{"top.asm item 3", "top.asm item 4", "sub.asm item 2", "sub.asm item 1",
                            "top.asm item 1"}));
    EXPECT_EQ(Hidden(), AllBut({"sub.asm 1", "sub.asm 2", "top.asm 1"}));
}

TEST_F(Isolate, AnEmptyBufferThatCanBeReadHidesAllParts) {
    Play("@ selection empty\n~ Command `VxIsolate`");
    EXPECT_EQ(Hidden(), kAllParts);
}

TEST_F(Isolate, AFailureToReadTheBufferRepaintsAndDoesNothingElse) {
    Fail("ProSelbufferSelectionsGet", {.status = PRO_TK_GENERAL_ERROR});
    IsolateAfter("bolt");
    EXPECT_EQ(Hidden(), Set{});
    EXPECT_EQ(host().session.current->repaints, 2);
}

TEST_F(Isolate, AnAssemblyWithoutComponentsIsAPlainError) {
    Open(MakeModels("empty:"));
    Play(
        "@ select .\n~ Command `VxIsolate`\n"
        "@ expect box \"当前模型中没有合适的子零/组件\"\n@ expect caption none\n@ ok");
    EXPECT_EQ(host().session.current->repaints, 0);
}

TEST_F(Isolate, InAManufacturingModelItsAssemblyIsMeant) {
    Open(Manufacturing("mill", *top_));
    IsolateAfter("sub/plate");
    EXPECT_EQ(Hidden(), AllBut({"sub.asm 1"}));
}

TEST_F(Isolate, WhatIsSuppressedInvisibleOrNotInMemoryStaysAsItIs) {
    Model& all = MakeModels("all: bolt!suppressed, plate!invisible, lost!missing, pin, nut");
    Open(all);
    IsolateAfter("nut");
    std::vector<bool> hidden;
    for (const Feature& feature : all.features()) hidden.push_back(feature.hidden);
    EXPECT_EQ(hidden, (std::vector<bool>{false, false, false, true, false}));
}

TEST_F(Isolate, ASelectionWhoseWayCannotBeHadIsPassedOver) {
    Fail("ProSelectionAsmcomppathGet");
    IsolateAfter("bolt, bolt:2");
    EXPECT_EQ(Hidden(), AllBut({"top.asm 2"}));
}

TEST_F(Isolate, APickWhoseItemOrModelCannotBeHadIsPassedOver) {
    for (const std::string call : {"ProSelectionModelitemGet", "ProModelitemMdlGet"}) {
        Fail(call);
        IsolateAfter("bolt, bolt:2");
        EXPECT_EQ(Hidden(), AllBut({"top.asm 2"})) << call;
    }
}

TEST_F(Isolate, APartWithoutAWayToItIsPassedOver) {
    Selections& selections = host().session.selections;
    selections.SetBuffer({{{PRO_PART, -1, ModelNamed("bolt").handle}, top_, {}}});
    Press("VxIsolate");
    EXPECT_EQ(Hidden(), kAllParts);
}

TEST_F(Isolate, APartAtTheLowestLevelOfAPathIsShown) {
    constexpr int kMost = 25;
    std::string models = "pin", path = "pin";
    for (int level = kMost - 1; level > 0; --level) {
        const std::string name = "level" + std::to_string(level);
        models = name + "(" + models + ")";
        path = name + "/" + path;
    }
    Open(MakeModels("deep: nut, " + models));
    IsolateAfter(path);
    EXPECT_EQ(Hidden(), Set{"deep.asm 1"});
}

TEST_F(Isolate, ASubAssemblyThatCannotBeWalkedThroughShowsNothing) {
    // From the top, through both uses of SUB, and through the one that is selected.
    Fail("ProSolidFeatVisit", {.n = 4});
    IsolateAfter("sub");
    EXPECT_EQ(Hidden(), kAllParts);
    EXPECT_EQ(host().session.current->repaints, 2);
}

TEST_F(Isolate, WithoutMemoryForASubAssemblyAPlainErrorEndsItWithoutARepaint) {
    Fail("ProArrayAlloc", {.n = 2});  // the first is the walk from the top
    Play(
        "@ select sub\n~ Command `VxIsolate`\n@ expect box \"ProArray Alloc error\"\n"
        "@ expect caption none\n@ ok");
    EXPECT_EQ(Hidden(), kAllParts);
    EXPECT_EQ(host().session.current->repaints, 0);
}

TEST_F(Isolate, NothingOfItIsAChangeThatIsSaved) {
    for (Model* model : host().session.All()) model->modified = false;
    IsolateAfter("bolt");
    for (const Model* model : host().session.All()) EXPECT_FALSE(model->modified);
    Play("@ save top.asm\n@ save sub.asm");
    EXPECT_EQ(Read(WIDE("C:\\Work\\top.asm.1")).find("hidden"), std::string::npos);
}

TEST_F(Isolate, ItsCallsComeInTheirOrder) {
    Open(MakeModels("pair: rod"));
    Play("@ select rod");
    Record();
    Play("~ Command `VxIsolate`");
    EXPECT_EQ(Recorded(), (Names{"ProModeCurrentGet",
                                 "ProWindowCurrentGet",
                                 "ProMdlCurrentGet",
                                 "ProMdlTypeGet",
                                 "ProSelbufferSelectionsGet",
                                 "ProArrayAlloc",
                                 "ProSolidFeatVisit",
                                 "ProFeatureStatusflagsGet",
                                 "ProFeatureTypeGet",
                                 "ProFeatureStatusGet",
                                 "ProFeatureVisibilityGet",
                                 "ProArrayObjectAdd",
                                 "ProAsmcompMdlGet",
                                 "ProMdlTypeGet",
                                 "ProArraySizeGet",
                                 "ProAsmcompMdlGet",
                                 "ProMdlTypeGet",
                                 "ProModelitemHide",
                                 "ProArrayFree",
                                 "ProArraySizeGet",
                                 "ProSelectionModelitemGet",
                                 "ProModelitemMdlGet",
                                 "ProMdlTypeGet",
                                 "ProSelectionAsmcomppathGet",
                                 "ProAsmcomppathMdlGet",
                                 "ProAsmcomppathInit",
                                 "ProAsmcomppathMdlGet",
                                 "ProMdlNameGet",
                                 "ProModelitemUnhide",
                                 "ProWindowRefresh",
                                 "ProWindowRepaint",
                                 "ProWindowActivate",
                                 "ProArrayFree"}));
    EXPECT_EQ(Lines("ProWindowRefresh"), Names{"ProWindowRefresh(window=-1) = 0"});
    EXPECT_EQ(
        Lines("ProWindowActivate"),
        Names{"ProWindowActivate(window=" + std::to_string(host().session.current->id) + ") = 0"});
}

TEST_F(Isolate, ItIsOnThePopupOfWhatIsSelected) {
    workplace_->StopPlugin();
    TextFolderSetting("RmbDisable", "0");
    Start();
    Play(
        "@ right-click\n@ quit\n@ select bolt\n@ right-click\n"
        "@ choose 独立显示(vx)");
    EXPECT_EQ(Hidden(), AllBut({"top.asm 1"}));
    Play("@ right-click\n@ choose 反转显示(vx)");
    EXPECT_EQ(Hidden(), Set{"top.asm 1"});
    Play("@ right-click\n@ choose 全部显示(vx)");
    EXPECT_EQ(Hidden(), Set{});
}

}  // namespace
