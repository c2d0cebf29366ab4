// VxBom: the bill of materials in its table, summed and level by level.
#include <gtest/gtest.h>

#include "simhost/system/windows.h"
#include "simhost/trail/robot.h"
#include "simhost/ui/textfield.h"
#include "tests/tables/bom_bench.h"

namespace {

using namespace simhost;
using workbench::BomBench;
using workbench::kCloseBom;
using workbench::LoadLevels;

constexpr const char* kOpenBom = "~ Command `VxBom`\n";

class Bom : public BomBench {
protected:
    void Check(const std::string& lines) { Play(kOpenBom + lines + kCloseBom); }
};

// --- The summed list ---

TEST_F(Bom, OpensWithEachModelOnceAndItsNumberInTheWholeAssembly) {
    // BOLT: three in TOP and one in each SUB; GEAR: two in each SUB.
    Check(
        "@ expect columns bom_list \"序号|模型名称|模型数量\"\n"
        "@ expect rows bom_list 4\n"
        "@ expect row bom_list 1 \"1|TOP|1\"\n"
        "@ expect row bom_list 2 \"2|BOLT|5\"\n"
        "@ expect row bom_list 3 \"3|SUB|2\"\n"
        "@ expect row bom_list 4 \"4|GEAR|4\"\n");
}

TEST_F(Bom, MarksTheCellsOfAssembliesAndNoOthers) {
    Check(
        "@ expect row colours bom_list 1 17 17 17\n"
        "@ expect row colours bom_list 2 - - -\n"
        "@ expect row colours bom_list 3 17 17 17\n");
}

TEST_F(Bom, OfAnAssemblyWithoutComponentsIsTheAssembly) {
    Open(Assembly("empty"));
    Check("@ expect rows bom_list 1\n@ expect row bom_list 1 \"1|EMPTY|1\"\n");
}

TEST_F(Bom, HasAPartAndAnAssemblyOfOneNameAsTwoRows) {
    Use(*top_, Part("sub"));
    Check(
        "@ expect rows bom_list 5\n"
        "@ expect row bom_list 3 \"3|SUB|2\"\n"
        "@ expect row bom_list 5 \"5|SUB|1\"\n"
        "@ expect row colours bom_list 5 - - -\n");
}

TEST_F(Bom, DoesNotMindTheCaseOfNames) {
    Model& other = Part("other");
    other.name = WIDE("bolt");
    Use(*top_, other);
    Check("@ expect rows bom_list 4\n@ expect row bom_list 2 \"2|BOLT|6\"\n");
    other.name = WIDE("OTHER");
}

TEST_F(Bom, LeavesOutAComponentWithoutItsModel) {
    UseMissing(*top_, "lost.prt");
    Check("@ expect rows bom_list 4\n");
}

TEST_F(Bom, LeavesAModelThatCannotBeFetchedOutOfTheCount) {
    // The walk asks for the models of its twelve components, then the list asks for each again:
    // first SKEL, then the first BOLT. Only the second round matters to the counts.
    Fail("ProAsmcompMdlGet", {.n = 12 + 2});
    Check("@ expect row bom_list 2 \"2|BOLT|4\"\n");
}

// --- Columns ---

TEST_F(Bom, WithoutSettingsHasOnlyItsNumbers) {
    Columns("");
    Check(
        "@ expect columns bom_list \"序号\"\n@ expect rows bom_list 4\n"
        "@ expect row bom_list 4 \"4\"\n@ expect row colours bom_list 3 17\n");
}

TEST_F(Bom, WithoutTheSettingsFileToo) {
    std::filesystem::remove(
        host().disk.Real(workbench::kModuleFolder + WIDE("\\VXconfig\\VxBom.ini")));
    Check("@ expect columns bom_list \"序号\"\n@ expect rows bom_list 4\n");
}

TEST_F(Bom, ReadsOnlyTheSettingsBesideTheModule) {
    Write(workbench::kTextFolder + WIDE("\\VXconfig\\VxBom.ini"),
          "[tableCols_sum]\r\ncontent=A,B,C\r\n");
    Check("@ expect columns bom_list \"序号|模型名称|模型数量\"\n");
}

TEST_F(Bom, ABlankInTheSettingsEndsTheColumns) {
    Columns("模型名称, 模型数量");
    Check(
        "@ expect columns bom_list \"序号|模型名称|\"\n"
        "@ expect row bom_list 2 \"2|BOLT|\"\n"
        "@ expect row colours bom_list 1 17 17 -\n");
}

TEST_F(Bom, ShowsParametersByTheirTypes) {
    Columns("模型名称，长度,材料,件数,外购,没有");
    bolt_->parameters.Set(RealParameter(WIDE("长度"), 1.5));
    bolt_->parameters.Set(TextParameter(WIDE("材料"), WIDE("Q235")));
    bolt_->parameters.Set(WholeParameter(WIDE("件数"), 12));
    bolt_->parameters.Set(FlagParameter(WIDE("外购"), true));
    gear_->parameters.Set(FlagParameter(WIDE("外购"), false));
    sub_->parameters.Set(TextParameter(WIDE("材料"), WIDE("")));
    Check(
        "@ expect row bom_list 2 \"2|BOLT|1.500|Q235|12|是|\"\n"
        "@ expect row bom_list 4 \"4|GEAR||||否|\"\n"
        // A text that is empty is a value, and marked; a parameter that is missing is neither.
        "@ expect row bom_list 3 \"3|SUB|||||\"\n"
        "@ expect row colours bom_list 3 17 17 - 17 - - -\n");
}

TEST_F(Bom, TakesTheLabelsOfLevelsForParametersInTheSummedList) {
    Columns("模型名称,层级1,层级2");
    bolt_->parameters.Set(TextParameter(WIDE("层级1"), WIDE("one")));
    Check("@ expect row bom_list 2 \"2|BOLT|one|\"\n");
}

TEST_F(Bom, ALabelLongerThanAnyParameterNameFindsNone) {
    const std::string name(31, 'L');
    bolt_->parameters.Set(TextParameter(Wide(name), WIDE("found")));
    Columns(name + "," + name + "L");
    Check("@ expect row bom_list 2 \"2|found|\"\n");
}

TEST_F(Bom, TheSameColumnTwiceIsFilledTwice) {
    Columns("模型名称,模型名称");
    Check("@ expect row bom_list 2 \"2|BOLT|BOLT\"\n");
}

TEST_F(Bom, UpdatingTheSettingsBuildsNewColumnsAndTakesTheRowsAway) {
    WithBom([&](Dialog& dialog) {
        // The user's editor has written the file.
        Columns("A,模型名称,B", "C");
        EXPECT_EQ(dialog.Find("bom_list")->State(), "4 rows of 3 columns");
        EXPECT_EQ(dialog.Press("VxUpdateBomIni"), "");
        EXPECT_EQ(dialog.Find("bom_list")->State(), "0 rows of 4 columns");
        EXPECT_FALSE(dialog.Find("LevelOption")->enabled);
        EXPECT_EQ(dialog.Press("VxLoadBom"), "");
        EXPECT_EQ(dialog.Find("bom_list")->State(), "4 rows of 4 columns");
    });
}

TEST_F(Bom, TheSettingsAreReadBeforeRowsAndThenColumnsAreDeleted) {
    const workbench::Names wanted = {
        "ProUIRadiogroupSelectednamesGet",
        "GetModuleHandleW",
        "GetModuleFileNameW",
        "GetPrivateProfileStringW",
        "ProUITableRownamesGet",
        "ProUITableRowsDelete",
        "ProStringarrayFree",
        "ProUITableColumnnamesGet",
        "ProStringarrayFree",
        "ProUITableColumnsDelete",
        "ProUITableColumnsInsert",
        "ProUITableColumnlabelsSet",
    };
    WithBom([&](Dialog& dialog) {
        Record();
        EXPECT_EQ(dialog.Press("VxUpdateBomIni"), "");
        EXPECT_EQ(Recorded(), wanted);
        EXPECT_EQ(dialog.Press("VxLoadBom"), "");
        Record();
        EXPECT_EQ(dialog.Use(Verb::Select, "BomRadio", {"LevelBom"}), "");
        workbench::Names calls = Recorded();
        // A change of the mode enables the depth first.
        ASSERT_EQ(calls.size(), wanted.size() + 1);
        EXPECT_EQ(calls[1], "ProUIOptionmenuEnable");
        calls.erase(calls.begin() + 1);
        EXPECT_EQ(calls, wanted);
    });
}

TEST_F(Bom, UpdatingTheSettingsReadsThoseOfTheModeThatIsSelected) {
    WithBom([&](Dialog& dialog) {
        EXPECT_EQ(dialog.Use(Verb::Select, "BomRadio", {"LevelBom"}), "");
        Columns("A,B,C", "层级2");
        EXPECT_EQ(dialog.Press("VxUpdateBomIni"), "");
        EXPECT_EQ(dialog.Find("bom_list")->State(), "0 rows of 2 columns");
        EXPECT_TRUE(dialog.Find("LevelOption")->enabled);
    });
}

TEST_F(Bom, OpensItsSettingsInTheEditor) {
    Check("~ Activate `VxBom` `VxOpenBomIni`\n@ expect rows bom_list 4\n");
    EXPECT_EQ(TheWindows().programs,
              std::vector<WideText>{WIDE("notepad.exe C:\\Plug-in\\VXconfig\\VxBom.ini")});
}

// --- The levelled list ---

TEST_F(Bom, TheDepthCanBeChosenForTheLevelledListOnly) {
    WithBom([&](Dialog& dialog) {
        EXPECT_EQ(dialog.Use(Verb::Select, "LevelOption", {"2"}),
                  "LevelOption is greyed in dialog VxBom");
        EXPECT_EQ(dialog.Use(Verb::Select, "BomRadio", {"LevelBom"}), "");
        EXPECT_EQ(dialog.Use(Verb::Select, "LevelOption", {"2"}), "");
        EXPECT_EQ(dialog.Use(Verb::Select, "BomRadio", {"SumBom"}), "");
        EXPECT_FALSE(dialog.Find("LevelOption")->enabled);
    });
}

TEST_F(Bom, ChangingTheModeChangesTheColumnsAndTakesTheRowsAway) {
    Check(
        "~ Select `VxBom` `BomRadio` 1 `LevelBom`\n"
        "@ expect columns bom_list \"序号|层级1|层级2|模型名称|模型数量\"\n"
        "@ expect rows bom_list 0\n"
        "~ Select `VxBom` `BomRadio` 1 `SumBom`\n"
        "@ expect columns bom_list \"序号|模型名称|模型数量\"\n"
        "@ expect rows bom_list 0\n"
        "~ Activate `VxBom` `VxLoadBom`\n"
        "@ expect rows bom_list 4\n");
}

TEST_F(Bom, FollowsTheTreeAndNumbersIt) {
    // The skeleton is place 1 of the tree: it has no row, but it has its number.
    Check(LoadLevels("99") +
          "@ expect rows bom_list 5\n"
          "@ expect row bom_list 1 \"1|0|0|TOP|1\"\n"
          "@ expect row bom_list 2 \"2|1|2|BOLT|3\"\n"
          "@ expect row bom_list 3 \"3|1|3|SUB|2\"\n"
          "@ expect row bom_list 4 \"4|2|3.1|GEAR|2\"\n"
          "@ expect row bom_list 5 \"5|2|3.2|BOLT|1\"\n"
          "@ expect row colours bom_list 1 17 17 17 17 17\n"
          "@ expect row colours bom_list 2 - - - - -\n"
          "@ expect row colours bom_list 3 17 17 17 17 17\n");
}

TEST_F(Bom, StopsAtTheDepthThatIsChosen) {
    Check(LoadLevels("1") + "@ expect rows bom_list 3\n" +
          "@ expect row bom_list 3 \"3|1|3|SUB|2\"\n");
}

TEST_F(Bom, ADepthThatIsNoNumberShowsTheAssemblyAlone) {
    for (const char* depth : {"全部", "", "0", "-1"}) {
        const std::string rows = depth == std::string("-1") ? "0" : "1";
        WithBom([&](Dialog& dialog) {
            dialog.Use(Verb::Select, "BomRadio", {"LevelBom"});
            dynamic_cast<OptionMenu*>(dialog.Find("LevelOption"))->value = Wide(depth);
            EXPECT_EQ(dialog.Press("VxLoadBom"), "");
            EXPECT_EQ(dialog.Find("bom_list")->State(), rows + " rows of 5 columns") << depth;
        });
    }
}

TEST_F(Bom, AnAssemblyAndAPartOfOneNameShareALevelledRow) {
    Use(*top_, Part("sub"));
    Check(LoadLevels("1") + "@ expect rows bom_list 3\n" +
          "@ expect row bom_list 3 \"3|1|3|SUB|3\"\n"
          "@ expect row colours bom_list 3 17 17 17 17 17\n");  // the first one's kind
}

TEST_F(Bom, LevelsHaveNoRowsOfFeaturesThatAreNoComponentsOrNoneToBeSeen) {
    // Datum features, and components that the host keeps for itself (flags 130).
    for (Model* assembly : {top_, sub_}) {
        Feature datum;
        datum.type = 923;
        datum.model = gear_;
        assembly->AddFeature(datum);
        Use(*assembly, *gear_).flags = 130;
    }
    Check(LoadLevels("99") + "@ expect rows bom_list 5\n" +
          "@ expect row bom_list 4 \"4|2|3.1|GEAR|2\"\n");
}

TEST_F(Bom, LettersBeyondAsciiAreNotFolded) {
    Model& capital = Part("e1");
    Model& small = Part("e2");
    capital.name = WIDE("É");
    small.name = WIDE("é");
    UseAll(*top_, {&capital, &small});
    Check(
        "@ expect rows bom_list 6\n@ expect row bom_list 5 \"5|É|1\"\n"
        "@ expect row bom_list 6 \"6|é|1\"\n");
}

TEST_F(Bom, ASkeletonWithComponentsIsPassedOverButNotWhatLiesBelow) {
    Model& frame = Assembly("frame");
    frame.partData.skeleton = true;
    Use(frame, *gear_);
    Use(*top_, frame);
    Check(LoadLevels("99") + "@ expect rows bom_list 6\n" +
          "@ expect row bom_list 6 \"6|2|4.1|GEAR|1\"\n");
}

// --- What fails ---

TEST_F(Bom, AModelThatCannotBeRetrievedHasTheParametersOfTheRowBefore) {
    Columns("模型名称,材料");
    bolt_->parameters.Set(TextParameter(WIDE("材料"), WIDE("Q235")));
    sub_->parameters.Set(TextParameter(WIDE("材料"), WIDE("none")));
    // Retrieved are TOP, SKEL, BOLT and then SUB.
    Fail("ProMdlRetrieve", {.n = 4, .status = PRO_TK_E_NOT_FOUND});
    Check("@ expect row bom_list 3 \"3|SUB|Q235\"\n");
}

TEST_F(Bom, AfterASkeletonAModelThatCannotBeRetrievedIsTakenForOne) {
    Fail("ProMdlRetrieve", {.n = 3, .status = PRO_TK_E_NOT_FOUND});
    Check("@ expect rows bom_list 3\n@ expect row bom_list 2 \"2|SUB|2\"\n");
}

TEST_F(Bom, AFirstModelThatCannotBeRetrievedHasNoParameters) {
    Columns("模型名称,材料");
    top_->parameters.Set(TextParameter(WIDE("材料"), WIDE("steel")));
    Fail("ProMdlRetrieve", {.status = PRO_TK_E_NOT_FOUND});
    Check("@ expect row bom_list 1 \"1|TOP|\"\n@ expect row bom_list 2 \"2|BOLT|\"\n");
}

TEST_F(Bom, WhatCannotBeToldFromASkeletonIsNone) {
    Fail("ProMdlIsSkeleton", {.forGood = true});
    Check("@ expect rows bom_list 5\n@ expect row bom_list 2 \"2|SKEL|1\"\n");
}

TEST_F(Bom, AParameterWhoseValueCannotBeReadIsAsGoodAsNone) {
    Columns("模型名称,材料");
    top_->parameters.Set(TextParameter(WIDE("材料"), WIDE("steel")));
    Fail("ProParameterValueGet");
    Check("@ expect row bom_list 1 \"1|TOP|\"\n@ expect row colours bom_list 1 17 17 -\n");
}

TEST_F(Bom, ForOtherModelsItSaysSoAndIsGone) {
    Fail("ProMdlTypeGet");
    Record();
    Play(kOpenBom + std::string("@ expect box \"此功能仅组件/制造环境可用！\"\n"
                                "@ expect caption none\n@ ok\n@ expect dialog none\n"));
    // The dialog was there already, with its columns.
    const auto calls = Recorded();
    const auto at = [&](const char* name) {
        return std::find(calls.begin(), calls.end(), name) - calls.begin();
    };
    EXPECT_LT(at("ProUITableColumnlabelsSet"), at("MessageBoxW"));
    EXPECT_LT(at("MessageBoxW"), at("ProUIDialogDestroy"));
    EXPECT_EQ(host().dialogs.Existing(), std::vector<std::string>{});
}

TEST_F(Bom, ADialogThatCannotBeMadeShownOrTakenAwaySaysSo) {
    for (const auto& [operation, text] :
         {std::pair{"ProUIDialogCreate", "UIDialog Create error!"},
          std::pair{"ProUIDialogActivate", "UIDialog Activate error!"}}) {
        host().dialogs.Clear();
        Fail(operation);
        Record();
        Play(kOpenBom + std::string("@ expect box \"") + text +
             "\"\n@ expect caption none\n@ ok\n");
        const auto calls = Recorded();
        EXPECT_EQ(std::count(calls.begin(), calls.end(), "ProMdlDisplay"), 0);
        EXPECT_EQ(std::count(calls.begin(), calls.end(), "ProUIDialogDestroy"), 0);
    }
    host().dialogs.Clear();
    Fail("ProUIDialogDestroy");
    Record();
    Play(kOpenBom + std::string(kCloseBom) + "@ expect box \"UIDialog Destroy error!\"\n@ ok\n");
    const auto calls = Recorded();
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "ProMdlDisplay"), 0);
}

TEST_F(Bom, ColumnsThatCannotBeMadeLeaveTheNumbersAlone) {
    Fail("ProUITableColumnsInsert");
    Check("@ expect columns bom_list \"序号\"\n@ expect rows bom_list 4\n");
}

TEST_F(Bom, WithNoModeSelectedLoadingLeavesTheTableEmpty) {
    // Asked for at the opening and then at the press.
    Fail("ProUIRadiogroupSelectednamesGet", {.n = 2});
    Check("~ Activate `VxBom` `VxLoadBom`\n@ expect rows bom_list 0\n");
}

// --- Models on the screen ---

TEST_F(Bom, ADoubleClickShowsThePartAndTheEndTheFirstModelAgain) {
    WithBom([&](Dialog& dialog) {
        EXPECT_FALSE(dialog.aboveActiveWindow);
        EXPECT_EQ(dialog.Use(Verb::Activate, "bom_list", {"2", "num"}), "");
        EXPECT_EQ(host().session.CurrentModel(), bolt_);
        EXPECT_TRUE(dialog.aboveActiveWindow);
    });
    EXPECT_EQ(host().session.CurrentModel(), top_);
}

TEST_F(Bom, ADoubleClickOnAnAssemblyShowsTheAssembly) {
    Record();
    Check("~ Activate `VxBom` `bom_list` 2 `3` `param1`\n");
    Recorded();
    EXPECT_EQ(Lines("ProMdlDisplay"), (workbench::Names{"ProMdlDisplay(model=sub.asm) = 0",
                                                        "ProMdlDisplay(model=top.asm) = 0"}));
    EXPECT_EQ(Lines("ProUIDialogAboveactivewindowSet"),
              workbench::Names{"ProUIDialogAboveactivewindowSet(dialog=\"VxBom\", above=1) = 0"});
    EXPECT_EQ(host().session.CurrentModel(), top_);
}

// Memory runs out while a box is open, which is all that an outsider can bring about.
class UserWithoutMemory : public RobotUser {
public:
    int AnswerBox(const Box& box) override {
        if (boxes_++ == 0) throw std::bad_alloc();
        return RobotUser::AnswerBox(box);
    }

private:
    int boxes_ = 0;
};

TEST_F(Bom, IsGoneAgainWhenItCannotBePreparedForLackOfMemory) {
    UserWithoutMemory user;
    Fail("ProMdlTypeGet");
    host().user = &user;
    EXPECT_TRUE(host().commands.Press("VxBom"));
    host().user = nullptr;
    EXPECT_EQ(Boxes().back(), "操作未能完成：内存不足");
    EXPECT_EQ(host().dialogs.Existing(), std::vector<std::string>{});
    Check("@ expect rows bom_list 4\n");
}

TEST_F(Bom, AfterADoubleClickOnAPartThereIsNothingToLoad) {
    Check(
        "~ Activate `VxBom` `bom_list` 2 `2` `param1`\n"
        "~ Activate `VxBom` `VxLoadBom`\n"
        "@ expect box \"此功能仅组件/制造环境可用！\"\n@ expect caption none\n@ ok\n"
        "@ expect rows bom_list 0\n");
    EXPECT_EQ(host().session.CurrentModel(), top_);
}

TEST_F(Bom, OfSeveralNameColumnsTheLastOneCounts) {
    Columns("模型名称,材料,模型名称");
    Record();
    Check("~ Activate `VxBom` `bom_list` 2 `4` `num`\n");
    Recorded();
    EXPECT_EQ(Lines("ProUITableCellLabelGet"),
              workbench::Names{"ProUITableCellLabelGet(dialog=\"VxBom\", table=\"bom_list\", "
                               "row=\"4\", column=\"param3\", label=\"GEAR\") = 0"});
    EXPECT_EQ(Lines("ProMdlDisplay").front(), "ProMdlDisplay(model=gear.prt) = 0");
}

TEST_F(Bom, WithoutANameColumnADoubleClickDoesNothing) {
    Columns("材料");
    Record();
    Check("~ Activate `VxBom` `bom_list` 2 `2` `num`\n");
    Recorded();
    EXPECT_EQ(Lines("ProUIDialogAboveactivewindowSet").size(), 1u);
    EXPECT_EQ(Lines("ProUITableCellLabelGet").size(), 0u);
    EXPECT_EQ(Lines("ProMdlDisplay"), workbench::Names{"ProMdlDisplay(model=top.asm) = 0"});
}

TEST_F(Bom, ADoubleClickWhoseModelIsGoneShowsNothing) {
    Fail("ProMdlRetrieve", {.n = 6, .status = PRO_TK_E_NOT_FOUND});  // the first five are the rows'
    Record();
    Check("~ Activate `VxBom` `bom_list` 2 `2` `num`\n");
    Recorded();
    EXPECT_EQ(Lines("ProMdlDisplay"), workbench::Names{"ProMdlDisplay(model=top.asm) = 0"});
}

TEST_F(Bom, AManufacturingModelListsItsAssemblyAndIsShownAgainAtTheEnd) {
    Model& mill = Manufacturing("mill", *top_);
    Open(mill);
    Record();
    Check("@ expect row bom_list 1 \"1|TOP|1\"\n" + LoadLevels("1") +
          "@ expect rows bom_list 3\n@ expect row bom_list 1 \"1|0|0|TOP|1\"\n");
    Recorded();
    EXPECT_EQ(Lines("ProMdlDisplay"), workbench::Names{"ProMdlDisplay(model=mill.mfg) = 0"});
    EXPECT_EQ(host().session.CurrentModel(), &mill);
}

TEST_F(Bom, AManufacturingModelWithoutItsAssemblyHasNoRows) {
    Model& mill = Manufacturing("mill", *top_);
    mill.manufacturingData.assembly = nullptr;
    Open(mill);
    Check("@ expect rows bom_list 0\n" + LoadLevels("10") + "@ expect rows bom_list 0\n");
}

TEST_F(Bom, DrawsItsPictureAndLeavesTheListToTheHost) {
    Record();
    Check("@ show dialog\n");
    Recorded();
    EXPECT_EQ(
        Lines("ProUIDrawingareaImagesDraw"),
        workbench::Names{"ProUIDrawingareaImagesDraw(dialog=\"VxBom\", "
                         "area=\"DrawingArea\", images=[\"VxQQ2.gif\"], positions=[(2, 2)]) = "
                         "0"});
    EXPECT_EQ(host().arrays.Held(),
              std::vector<std::string>{"command VxBom, ProArrayAlloc: 1 objects of 8 bytes"});
}

TEST_F(Bom, OpensInThePrescribedOrder) {
    Open(Assembly("empty"));
    Columns("模型名称");
    host().journal.Start();
    Check("");
    std::vector<std::string> names;
    for (const std::string& call : Calls()) names.push_back(call.substr(0, call.find('(')));
    const workbench::Names attach(5, "ProUIPushbuttonActivateActionSet");
    EXPECT_EQ(names, workbench::Joined({{"ProModeCurrentGet", "ProMdlCurrentGet", "ProMdlTypeGet",
                                         "ProUIDialogCreate"},
                                        attach,
                                        {"ProUIRadiogroupSelectActionSet",
                                         "ProUITableActivateActionSet",
                                         "ProUIDialogCloseActionSet",
                                         "GetModuleHandleW",
                                         "GetModuleFileNameW",
                                         "GetPrivateProfileStringW",
                                         "ProUITableColumnsInsert",
                                         "ProUITableColumnlabelsSet",
                                         "ProUITableColumnlabelsGet",
                                         "ProMdlNameGet",
                                         "ProMdlTypeGet",
                                         "ProArrayAlloc",
                                         "ProSolidFeatVisit",
                                         "ProArraySizeGet",
                                         "ProArrayFree",
                                         "ProMdlTypeGet",
                                         "ProMdlNameGet",
                                         "ProMdlRetrieve",
                                         "ProMdlIsSkeleton",
                                         "ProUITableRowsInsert",
                                         "ProUITableCellLabelSet",
                                         "ProUITableCellBackgroundColorSet",
                                         "ProMdlToModelitem",
                                         "ProUITableCellLabelSet",
                                         "ProUITableCellBackgroundColorSet",
                                         "ProUIRadiogroupSelectednamesGet",
                                         "ProUIOptionmenuDisable",
                                         "ProUIDrawingareaPostmanagenotifyActionSet",
                                         "ProUIDialogActivate"},
                                        {"  ProArrayAlloc", "  ProUIDrawingareaImagesSet",
                                         "  ProUIDrawingareaImagesDraw", "  ProUIDialogExit"},
                                        {"ProUIDialogDestroy", "ProMdlDisplay"}}));
}

}  // namespace
