// VxRename: the dialog, its rows and its filter.
#include <gtest/gtest.h>

#include "simhost/model/solid_features.h"
#include "simhost/system/windows.h"
#include "simhost/ui/table.h"
#include "simhost/ui/textfield.h"
#include "tests/tables/rename_bench.h"

namespace {

using namespace simhost;
using workbench::Names;
using workbench::RenameBench;

constexpr const char* kWrongModel = "此功能仅组件/制造环境可用！";

class Renaming : public RenameBench {
protected:
    const Names kNoDialogs{};
    // The current model, by its file.
    std::string Current() {
        const Model* model = host().session.CurrentModel();
        return model ? model->FileName() : "none";
    }
};

// --- Opening ---

TEST_F(Renaming, OpensWithEachModelOnceInTheOrderInWhichItIsMet) {
    Check(
        "@ expect columns mdl_list \"序号|原名称|类型|新名称\"\n"
        "@ expect rows mdl_list 5\n"
        "@ expect row mdl_list 1 \"1|TOP|asm|\"\n"
        "@ expect row mdl_list 2 \"2|PLATE|prt|\"\n"
        "@ expect row mdl_list 3 \"3|SUB|asm|\"\n"
        "@ expect row mdl_list 4 \"4|BOLT|prt|\"\n"
        // A skeleton is a row here, other than in the bill of materials.
        "@ expect row mdl_list 5 \"5|SKEL|prt|\"\n");
    EXPECT_EQ(Boxes(), Names{});
    EXPECT_EQ(host().dialogs.Existing(), kNoDialogs);
}

TEST_F(Renaming, PutsAFieldWithTheOldNameIntoEachRow) {
    Check(
        "@ expect cell mdl_list 1 new_name TOP\n"
        "@ expect cell mdl_list 5 new_name SKEL\n"
        "~ Input `VxRename` `input5` `x`\n"
        "@ expect cell mdl_list 5 new_name x\n"
        "@ expect cell mdl_list 4 new_name BOLT\n");
}

TEST_F(Renaming, PreparesTheDialogAsAWholeBeforeTheModelIsLookedAt) {
    Open(Part("alone"));
    Record();
    Play("@ mapped key VxRename\n@ ok");
    Names calls = Recorded();
    std::erase(calls, "ProModeCurrentGet");
    EXPECT_EQ(calls,
              (Names{"ProMdlCurrentGet", "ProMdlTypeGet", "ProUIDialogCreate",
                     "ProUIPushbuttonActivateActionSet", "ProUIPushbuttonActivateActionSet",
                     "ProUIPushbuttonActivateActionSet", "ProUIPushbuttonActivateActionSet",
                     "ProUIPushbuttonActivateActionSet", "ProUIDialogCloseActionSet",
                     "ProUITableSelectionpolicySet", "ProUITableArmActionSet", "MessageBoxW"}));
    EXPECT_EQ(Lines("ProUITableSelectionpolicySet"),
              Names{"ProUITableSelectionpolicySet(dialog=\"VxRename\", table=\"mdl_list\", "
                    "policy=1) = 0"});
}

TEST_F(Renaming, InAPartSaysSoAndLeavesItsDialogWithTheHost) {
    Open(Part("alone"));
    Play("@ mapped key VxRename\n@ ok");
    EXPECT_EQ(Boxes(), Names{kWrongModel});
    EXPECT_FALSE(AllBoxes()[0].hasCaption);
    EXPECT_EQ(AllBoxes()[0].flags, 0u);
    EXPECT_EQ(host().dialogs.Existing(), Names{"VxRename"});
    // From then on it cannot be made.
    Open(*top_);
    Play("~ Command `VxRename`\n@ expect box \"UIDialog Create error!\"\n@ ok");
    EXPECT_EQ(host().dialogs.Existing(), Names{"VxRename"});
}

TEST_F(Renaming, WithoutACurrentModelEndsInSilence) {
    Fail("ProMdlCurrentGet");
    Record();
    Play("~ Command `VxRename`");
    EXPECT_EQ(Boxes(), Names{});
    Names calls = Recorded();
    std::erase(calls, "ProModeCurrentGet");
    EXPECT_EQ(calls, Names{"ProMdlCurrentGet"});
}

TEST_F(Renaming, OfAModelWhoseTypeIsNotToldIsAsOfAWrongOne) {
    // The access rule asks for the mode, not the type.
    Fail("ProMdlTypeGet");
    Play("~ Command `VxRename`\n@ ok");
    EXPECT_EQ(Boxes(), Names{kWrongModel});
}

TEST_F(Renaming, OfAManufacturingModelIsOfItsAssembly) {
    Open(Manufacturing("mill", *top_));
    Check("@ expect rows mdl_list 5\n@ expect row mdl_list 1 \"1|TOP|asm|\"\n");
    EXPECT_EQ(Current(), "mill.mfg");
}

TEST_F(Renaming, OfAManufacturingModelWithoutItsAssemblyEndsInSilence) {
    Open(Manufacturing("mill", *top_));
    Fail("ProMfgAssemGet");
    Play("~ Command `VxRename`");
    EXPECT_EQ(Boxes(), Names{});
    EXPECT_EQ(host().dialogs.Existing(), kNoDialogs);
}

TEST_F(Renaming, OfAnAssemblyWithoutComponentsEndsInSilence) {
    Open(Assembly("empty"));
    Record();
    Play("~ Command `VxRename`");
    EXPECT_EQ(Boxes(), Names{});
    EXPECT_EQ(host().dialogs.Existing(), kNoDialogs);
    // The filter had been read by then.
    Recorded();
    EXPECT_EQ(Lines("GetPrivateProfileStringW").size(), 1u);
    EXPECT_EQ(Lines("ProUIInputpanelValueSet").size(), 1u);
    EXPECT_EQ(Lines("ProUIDialogActivate").size(), 0u);
}

TEST_F(Renaming, ReadsAndShowsTheFilterBeforeItWalksTheAssembly) {
    Record();
    Check("");
    Names steps;
    for (const std::string& name : Recorded()) {
        for (const char* each :
             {"GetPrivateProfileStringW", "ProUIInputpanelValueSet", "ProSolidFeatVisit"}) {
            if (name == each && (steps.empty() || steps.back() != name)) steps.push_back(name);
        }
    }
    ASSERT_GE(steps.size(), 3u);
    EXPECT_EQ(Names(steps.begin(), steps.begin() + 3),
              (Names{"GetPrivateProfileStringW", "ProUIInputpanelValueSet", "ProSolidFeatVisit"}));
}

TEST_F(Renaming, OfAnAssemblyWhoseComponentsHaveNoModelsEndsInSilence) {
    Model& lost = Assembly("lost");
    UseMissing(lost, "gone.prt");
    Open(lost);
    Play("~ Command `VxRename`");
    EXPECT_EQ(Boxes(), Names{});
    EXPECT_EQ(host().dialogs.Existing(), kNoDialogs);
}

TEST_F(Renaming, LeavesOutAComponentWhoseModelCannotBeFetched) {
    // The walk asks six times, then the list asks again: for PLATE, PLATE, SUB and so on.
    Fail("ProAsmcompMdlGet", {.n = 6 + 3});
    Check("@ expect rows mdl_list 4\n@ expect row mdl_list 3 \"3|BOLT|prt|\"\n");
}

TEST_F(Renaming, LeavesOutWhatIsSuppressedOrInvisible) {
    Model& other = workbench::MakeModels("other: a, b!suppressed, c!invisible");
    Open(other);
    Check("@ expect rows mdl_list 2\n@ expect row mdl_list 2 \"2|A|prt|\"\n");
}

TEST_F(Renaming, KeepsAPartAndAnAssemblyOfOneName) {
    Use(*top_, Part("sub"));
    Check("@ expect rows mdl_list 6\n@ expect row mdl_list 6 \"6|SUB|prt|\"\n");
}

TEST_F(Renaming, TellsOfADialogThatCannotBeShown) {
    Fail("ProUIDialogActivate");
    Play("~ Command `VxRename`\n@ expect box \"UIDialog Activate error!\"\n@ ok");
    EXPECT_EQ(host().dialogs.Existing(), Names{"VxRename"});
    EXPECT_EQ(Lines("ProMdlDisplay"), Names{});
}

TEST_F(Renaming, TellsOfADialogThatCannotBeTakenAway) {
    Fail("ProUIDialogDestroy");
    Play(
        "~ Command `VxRename`\n~ Close `VxRename`\n@ expect box \"UIDialog Destroy error!\"\n@ ok");
}

// --- Picking a row ---

TEST_F(Renaming, StaysAboveTheWindowThatThePickShows) {
    Record();
    Check("~ Arm `VxRename` `mdl_list` 2 `3` `num`\n");
    Recorded();
    EXPECT_EQ(Lines("ProUIDialogAboveactivewindowSet"),
              Names{"ProUIDialogAboveactivewindowSet(dialog=\"VxRename\", above=1) = 0"});
    ASSERT_EQ(Lines("ProMdlDisplay").size(), 2u);
    EXPECT_EQ(Lines("ProMdlDisplay")[0], "ProMdlDisplay(model=sub.asm) = 0");
    EXPECT_EQ(Lines("ProMdlDisplay")[1], "ProMdlDisplay(model=top.asm) = 0");
}

TEST_F(Renaming, APickAsksForTheColumnsThenForTheRow) {
    Record();
    Check("~ Arm `VxRename` `mdl_list` 2 `2` `num`\n");
    Names order;
    for (const std::string& name : Recorded()) {
        const bool wanted = name == "ProUIDialogAboveactivewindowSet" ||
                            name == "ProUITableColumnnamesGet" ||
                            name == "ProUITableFocusCellGet" || name == "ProUITableCellLabelGet" ||
                            name == "ProMdlRetrieve" || name == "ProMdlDisplay";
        if (wanted) order.push_back(name);
    }
    EXPECT_EQ(order,
              (Names{"ProUIDialogAboveactivewindowSet", "ProUITableColumnnamesGet",
                     "ProUITableFocusCellGet", "ProUITableCellLabelGet", "ProUITableCellLabelGet",
                     "ProMdlRetrieve", "ProMdlDisplay", "ProMdlDisplay"}));
    EXPECT_NE(Lines("ProUITableCellLabelGet").at(0).find("old_name"), std::string::npos);
    EXPECT_NE(Lines("ProUITableCellLabelGet").at(1).find("type"), std::string::npos);
}

TEST_F(Renaming, APickShowsNothingWhereTheRowIsNotTold) {
    for (const char* operation :
         {"ProUITableFocusCellGet", "ProUITableColumnnamesGet", "ProMdlRetrieve"}) {
        Record();
        Fail(operation);
        Check("~ Arm `VxRename` `mdl_list` 2 `2` `num`\n");
        Recorded();
        EXPECT_EQ(Lines("ProMdlDisplay").size(), 1u) << operation;
    }
}

TEST_F(Renaming, APickShowsNothingWhereTheRowHasNoName) {
    Record();
    Fail("ProUITableFocusCellGet", {.status = PRO_TK_NO_ERROR});
    Check("~ Arm `VxRename` `mdl_list` 2 `2` `num`\n");
    Recorded();
    EXPECT_EQ(Lines("ProMdlDisplay").size(), 1u);
    EXPECT_EQ(Lines("ProMdlRetrieve"), Names{});
}

TEST_F(Renaming, APickOfARowWhoseTypeIsNotToldShowsAPart) {
    Record();
    Fail("ProUITableCellLabelGet", {.n = 2});
    Check("~ Arm `VxRename` `mdl_list` 2 `3` `num`\n");
    Recorded();
    // SUB is no part.
    EXPECT_EQ(Lines("ProMdlDisplay").size(), 1u);
}

// --- The filter ---

TEST_F(Renaming, LeavesOutWhatBeginsWithAnItemOfTheFilter) {
    Use(*top_, Part("螺栓_M8"));
    Use(*top_, Part("大螺栓"));
    Use(*top_, Part("12孔板"));
    Filter("螺栓，12");
    Check(
        "@ expect rows mdl_list 6\n"
        // The number does not advance.
        "@ expect row mdl_list 6 \"6|大螺栓|prt|\"\n");
}

TEST_F(Renaming, TheFilterKnowsNoLettersBecauseNamesAreInCapitals) {
    Filter("BOLT,bolt,Plate");
    Check("@ expect rows mdl_list 5\n");
    // A name that is not, as some hosts have it.
    bolt_->name = WIDE("bolt");
    Check("@ expect rows mdl_list 4\n@ expect row mdl_list 4 \"4|SKEL|prt|\"\n");
    bolt_->name = WIDE("BOLT");
}

TEST_F(Renaming, TheFilterMayHaveManyItems) {
    Model& other = workbench::MakeModels("1: 2, 3, 4, 5");
    Open(other);
    Filter("8,2,9,4,7");
    Check("@ expect rows mdl_list 3\n@ expect row mdl_list 2 \"2|3|prt|\"\n");
}

TEST_F(Renaming, FillsARowFromTheLeft) {
    Record();
    Check("");
    Names order;
    for (const std::string& name : Recorded()) {
        if (name == "ProMdlNameGet" || !order.empty()) order.push_back(name);
    }
    EXPECT_EQ(Names(order.begin(), order.begin() + 8),
              (Names{"ProMdlNameGet", "ProMdlTypeGet", "ProUITableRowsInsert",
                     "ProUITableCellLabelSet", "ProUITableCellLabelSet", "ProUITableCellLabelSet",
                     "ProUITableCellComponentCopy", "ProUIInputpanelValueSet"}));
    const Names cells = Lines("ProUITableCellLabelSet");
    for (std::size_t i = 0; i < 3; ++i) {
        const char* columns[] = {"column=\"num\"", "column=\"old_name\"", "column=\"type\""};
        EXPECT_NE(cells.at(i).find(columns[i]), std::string::npos) << cells.at(i);
    }
}

TEST_F(Renaming, TheFilterMakesLettersSmallAndNothingElse) {
    Use(*top_, Part("other")).model->name = WIDE("az@[`{");
    Filter("AZ@[`{");
    Check("@ expect rows mdl_list 5\n");
    Filter("AZ@{`[");
    Check("@ expect rows mdl_list 6\n");
    host().session.All().back()->name = WIDE("OTHER");
}

TEST_F(Renaming, TheFilterMayLeaveOutTheAssemblyAndEverything) {
    Model& other = workbench::MakeModels("1总成: 1板, 1轴");
    Open(other);
    Filter("1总");
    Check("@ expect rows mdl_list 2\n@ expect row mdl_list 1 \"1|1板|prt|\"\n");
    Filter("1");
    Check("@ expect rows mdl_list 0\n");
}

TEST_F(Renaming, ABlankEndsTheFilterAndWhatItIsPartOfHidesNothing) {
    Model& other = workbench::MakeModels("1: 2, 3, 4, 5");
    Open(other);
    // 2 hides; 3 and all after the blank are one item of their whole length.
    Filter("2,3 ,4,5");
    Check(
        "@ expect rows mdl_list 4\n@ expect row mdl_list 2 \"2|3|prt|\"\n"
        "@ expect row mdl_list 4 \"4|5|prt|\"\n");
}

TEST_F(Renaming, AnItemThatBeginsWithABlankHidesNothing) {
    Model& other = workbench::MakeModels("1: 2, 3");
    Open(other);
    Filter("2, 3");
    Check("@ expect rows mdl_list 2\n@ expect row mdl_list 2 \"2|3|prt|\"\n");
}

TEST_F(Renaming, CommasWithoutItemsHideNothing) {
    Filter(",,，");
    Check("@ expect rows mdl_list 5\n");
}

TEST_F(Renaming, ShowsTheFilterUpToItsBlank) {
    Record();
    Filter("螺栓，12 ,13");
    Check("");
    Recorded();
    EXPECT_EQ(Lines("ProUIInputpanelValueSet")[0],
              "ProUIInputpanelValueSet(dialog=\"VxRename\", component=\"RenameFilter\", "
              "value=\"螺栓,12\") = 0");
}

TEST_F(Renaming, WithoutTheSettingsFileLeavesOutNothing) {
    std::filesystem::remove(
        host().disk.Real(workbench::kModuleFolder + WIDE("\\VXconfig\\VxRename.ini")));
    Check("@ expect rows mdl_list 5\n");
}

TEST_F(Renaming, ReadsOnlyTheSettingsBesideTheModule) {
    Model& other = workbench::MakeModels("1: 2, 3");
    Open(other);
    Write(workbench::kTextFolder + WIDE("\\VXconfig\\VxRename.ini"),
          "[RenameFilter]\r\ncontent=2\r\n");
    Check("@ expect rows mdl_list 3\n");
}

// --- Reading the settings again ---

TEST_F(Renaming, UpdatingListsAgainWithoutFieldsForNewNames) {
    Check(
        "~ Activate `VxRename` `UpdateRenameIni`\n"
        "@ expect rows mdl_list 5\n"
        "@ expect row mdl_list 4 \"4|BOLT|prt|\"\n"
        "@ expect cell mdl_list 4 new_name \"\"\n");
    const Names before = Files();
    // None of them has a new name, so that nothing is renamed.
    Start("~ Activate `VxRename` `UpdateRenameIni`\n");
    EXPECT_EQ(Files(), before);
}

TEST_F(Renaming, UpdatingReadsWhatThePanelShowsSoThatABlankOnlyCuts) {
    Model& other = workbench::MakeModels("1: 2, 3, 4");
    Open(other);
    Filter("2,3 ,4");
    Check(
        "@ expect rows mdl_list 3\n"
        "~ Activate `VxRename` `UpdateRenameIni`\n"
        "@ expect rows mdl_list 2\n"
        "@ expect row mdl_list 1 \"1|1|asm|\"\n@ expect row mdl_list 2 \"2|4|prt|\"\n");
}

TEST_F(Renaming, UpdatingDoesNotTakeWhatWasTypedIntoTheFilter) {
    Model& other = workbench::MakeModels("1: 2, 3");
    Open(other);
    Check(
        "~ Input `VxRename` `RenameFilter` `2,3`\n"
        "~ Activate `VxRename` `UpdateRenameIni`\n@ expect rows mdl_list 3\n");
}

TEST_F(Renaming, UpdatingListsTheModelThatIsCurrentByThen) {
    Record();
    Check(
        "~ Arm `VxRename` `mdl_list` 2 `3` `num`\n"
        "~ Activate `VxRename` `UpdateRenameIni`\n"
        "@ expect rows mdl_list 3\n@ expect row mdl_list 1 \"1|SUB|asm|\"\n");
    EXPECT_EQ(Current(), "top.asm");
}

TEST_F(Renaming, UpdatingWhileAPartIsShownSaysSoAndKeepsTheRows) {
    Check(
        "~ Arm `VxRename` `mdl_list` 2 `2` `num`\n"
        "~ Activate `VxRename` `UpdateRenameIni`\n"
        "@ expect box \"此功能仅组件/制造环境可用！\"\n@ ok\n"
        "@ expect rows mdl_list 5\n@ expect cell mdl_list 5 new_name SKEL\n");
}

TEST_F(Renaming, UpdatingAnAssemblyWithoutComponentsListsItAlone) {
    Use(*top_, Assembly("hollow"));
    Check(
        "~ Arm `VxRename` `mdl_list` 2 `6` `num`\n"
        "~ Activate `VxRename` `UpdateRenameIni`\n"
        "@ expect dialog VxRename\n"
        "@ expect rows mdl_list 1\n@ expect row mdl_list 1 \"1|HOLLOW|asm|\"\n");
}

TEST_F(Renaming, UpdatingForgetsTheFieldsOfTheRowsBefore) {
    Play("~ Command `VxRename`\n~ Activate `VxRename` `UpdateRenameIni`\n~ Close `VxRename`");
    Record();
    Start("~ Activate `VxRename` `UpdateRenameIni`\n");
    Recorded();
    const Names reads = Lines("ProUIInputpanelValueGet");
    // RenameFilter; then two fields for each of five rows, in both passes, none of which is there.
    ASSERT_EQ(reads.size(), 1u + 5 * 2 * 2);
    EXPECT_EQ(reads[1],
              "ProUIInputpanelValueGet(dialog=\"VxRename\", component=\"inputImport1\") = -1");
    EXPECT_EQ(reads[2], "ProUIInputpanelValueGet(dialog=\"VxRename\", component=\"input1\") = -1");
}

TEST_F(Renaming, OpensItsSettingsInThePlainEditor) {
    Check("~ Activate `VxRename` `OpenRenameIni`\n");
    EXPECT_EQ(TheWindows().programs,
              std::vector<WideText>{WIDE("notepad.exe C:\\Plug-in\\VXconfig\\VxRename.ini")});
}

TEST_F(Renaming, WithoutRoomForARowGoesOnWithTheNext) {
    Fail("ProUITableRowsInsert", {.n = 2});
    Check("@ expect rows mdl_list 4\n@ expect row mdl_list 2 \"2|SUB|asm|\"\n");
}

}  // namespace
