// VxBom: which of its calls comes before which, of the host, of Windows and of the spreadsheet
// application.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "simhost/ui/dialogs.h"
#include "tests/support/call_order.h"
#include "tests/tables/bom_bench.h"

namespace {

using namespace simhost;
using workbench::BomBench;
using workbench::CallOrder;
using workbench::kCloseBom;
using workbench::Names;

class BomCalls : public BomBench {
protected:
    // EMPTY, whose list is itself, and a column of the names.
    void SetUp() override {
        BomBench::SetUp();
        empty_ = &Assembly("empty");
        Open(*empty_);
        Columns("模型名称", "模型名称");
    }

    // The calls of these operations while one thing is done in the open dialog.
    Names Calls(const std::set<std::string>& operations, const std::function<void(Dialog&)>& before,
                const std::function<std::string(Dialog&)>& action) {
        WithBom([&](Dialog& dialog) {
            before(dialog);
            Record();
            EXPECT_EQ(action(dialog), "");
            Recorded();
        });
        return CallOrder(host().journal.lines(), operations);
    }
    static void Nothing(Dialog&) {}
    static void ChooseLevels(Dialog& dialog) { dialog.Use(Verb::Select, "BomRadio", {"LevelBom"}); }
    static std::string Load(Dialog& dialog) { return dialog.Press("VxLoadBom"); }
    static void LoadLevelsOnce(Dialog& dialog) {
        ChooseLevels(dialog);
        EXPECT_EQ(Load(dialog), "");
    }

    Model* empty_ = nullptr;
};

TEST_F(BomCalls, LoadingReadsModeAndLabelsBeforeTheRowsGoAndTheDepthBeforeTheModel) {
    EXPECT_EQ(Calls({"ProUIRadiogroupSelectednamesGet", "ProUITableColumnlabelsGet",
                     "ProUITableRowsDelete", "ProUIOptionmenuValueGet", "ProMdlCurrentGet",
                     "ProUITableRowsInsert"},
                    LoadLevelsOnce, Load),
              (Names{"ProUIRadiogroupSelectednamesGet BomRadio", "ProUITableColumnlabelsGet",
                     "ProUITableRowsDelete", "ProUIOptionmenuValueGet LevelOption",
                     "ProMdlCurrentGet empty.asm", "ProUITableRowsInsert"}));
}

TEST_F(BomCalls, LoadingDoesNotReadTheSettingsAgain) {
    Record();
    WithBom([&](Dialog& dialog) {
        Columns("模型数量");
        EXPECT_EQ(Load(dialog), "");
        EXPECT_EQ(dialog.Find("bom_list")->State(), "1 rows of 2 columns");
    });
    Recorded();
    EXPECT_EQ(Lines("GetPrivateProfileStringW").size(), 1u);  // at the opening
    EXPECT_EQ(Lines("ProUITableColumnlabelsSet").size(), 1u);
}

TEST_F(BomCalls, AnotherModeSetsTheDepthThenTakesTheRowsAndThenTheColumns) {
    EXPECT_EQ(
        Calls({"ProUIRadiogroupSelectednamesGet", "ProUIOptionmenuEnable", "ProUITableRowsDelete",
               "ProUITableColumnnamesGet", "ProUITableColumnsDelete", "ProUITableColumnsInsert",
               "ProUITableColumnlabelsSet"},
              Nothing,
              [](Dialog& dialog) { return dialog.Use(Verb::Select, "BomRadio", {"LevelBom"}); }),
        (Names{"ProUIRadiogroupSelectednamesGet BomRadio", "ProUIOptionmenuEnable LevelOption",
               "ProUITableRowsDelete", "ProUITableColumnnamesGet", "ProUITableColumnsDelete",
               "ProUITableColumnsInsert", "ProUITableColumnlabelsSet"}));
}

TEST_F(BomCalls, WithoutColumnsBesideTheNumbersNoneIsTakenAway) {
    Columns("");
    EXPECT_EQ(Calls({"ProUITableRowsDelete", "ProUITableColumnsDelete", "ProUITableColumnsInsert",
                     "ProUITableColumnlabelsSet"},
                    Nothing, [](Dialog& dialog) { return dialog.Press("VxUpdateBomIni"); }),
              (Names{"ProUITableRowsDelete", "ProUITableColumnlabelsSet"}));
}

TEST_F(BomCalls, ADoubleClickKeepsTheDialogAboveBeforeItReadsAnything) {
    Record();
    Play(std::string("~ Command `VxBom`\n~ Activate `VxBom` `bom_list` 2 `1` `param1`\n") +
         kCloseBom);
    Recorded();
    const Names calls =
        CallOrder(host().journal.lines(),
                  {"ProUIDialogAboveactivewindowSet", "ProUITableColumnlabelsGet",
                   "ProUITableSelectednamesGet", "ProUITableCellLabelGet",
                   "ProUITableCellBackgroundColorGet", "ProMdlRetrieve", "ProMdlDisplay"});
    const auto click = std::find(calls.begin(), calls.end(), "ProUIDialogAboveactivewindowSet");
    // The last display is that of the end.
    EXPECT_EQ(Names(click, calls.end()),
              (Names{"ProUIDialogAboveactivewindowSet", "ProUITableColumnlabelsGet",
                     "ProUITableSelectednamesGet", "ProUITableCellLabelGet",
                     "ProUITableCellBackgroundColorGet", "ProMdlRetrieve empty.asm",
                     "ProMdlDisplay empty.asm", "ProMdlDisplay empty.asm"}));
}

TEST_F(BomCalls, EachRowIsInsertedBehindTheOneBefore) {
    UseAll(*empty_, {bolt_, gear_});
    Record();
    WithBom(Nothing);
    Recorded();
    Names behind;
    for (const std::string& line : Lines("ProUITableRowsInsert")) {
        const std::size_t at = line.find("after=");
        behind.push_back(line.substr(at, line.find(',', at) - at));
    }
    EXPECT_EQ(behind, (Names{"after=\"\"", "after=\"1\"", "after=\"2\""}));
}

TEST_F(BomCalls, ARowThatCannotBeInsertedIsNotFilledAndTakesNoNumber) {
    UseAll(*empty_, {bolt_});
    Fail("ProUITableRowsInsert");
    WithBom([&](Dialog& dialog) {
        EXPECT_EQ(dialog.Find("bom_list")->State(), "1 rows of 2 columns");
    });
    Record();
    Fail("ProUITableRowsInsert");
    WithBom(Nothing);
    Recorded();
    // The numbers and the name of BOLT.
    EXPECT_EQ(Lines("ProUITableCellLabelSet").size(), 2u);
}

// --- The tree ----------------------------------------------------------------------------------

TEST_F(BomCalls, TheTreeAsksForStatusVisibilityModelNameAndKindBeforeItGoesDown) {
    UseAll(*empty_, {gear_});
    const Names calls =
        Calls({"ProSolidFeatVisit", "ProFeatureStatusGet", "ProFeatureVisibilityGet",
               "ProAsmcompMdlGet", "ProMdlNameGet", "ProMdlTypeGet", "ProMdlCurrentGet"},
              ChooseLevels, Load);
    EXPECT_EQ(calls,
              (Names{"ProMdlCurrentGet empty.asm", "ProMdlTypeGet empty.asm",
                     "ProMdlNameGet empty.asm", "ProSolidFeatVisit", "ProFeatureStatusGet",
                     "ProFeatureVisibilityGet", "ProAsmcompMdlGet gear.prt",
                     "ProMdlNameGet gear.prt", "ProMdlTypeGet gear.prt", "ProSolidFeatVisit"}));
}

TEST_F(BomCalls, ARepeatedSubAssemblyIsWalkedEachTime) {
    UseAll(*empty_, {sub_, sub_});
    // EMPTY, and for each SUB itself, GEAR twice and BOLT.
    EXPECT_EQ(Calls({"ProSolidFeatVisit"}, ChooseLevels, Load).size(), 1u + 2u * 4u);
}

// --- The export --------------------------------------------------------------------------------

class BomExportCalls : public BomCalls {};

TEST_F(BomExportCalls, TheExportAsksForNameAndPathThenForTheTableAndThenForTheApplication) {
    Write(WIDE("C:\\Work\\list.xlsx"), "old");
    Record();
    Play(std::string("~ Command `VxBom`\n~ Activate `VxBom` `VxExportBom`\n"
                     "@ answer C:\\Work\\list.xlsx\n@ answer yes\n") +
         kCloseBom);
    Recorded();
    const Names calls = CallOrder(
        host().journal.lines(),
        {"ProMdlCurrentGet", "SHGetSpecialFolderPathW", "GetSaveFileNameW", "PathFileExistsW",
         "DeleteFileW", "CreateFileW", "ProUITableColumnlabelsGet", "ProUITableRowlabelsGet",
         "ExcelCreate", "ProUITableCellLabelGet", "ShellExecuteW"});
    const auto first = std::find(calls.begin(), calls.end(), "SHGetSpecialFolderPathW") - 1;
    EXPECT_EQ(Names(first, calls.end()),
              (Names{"ProMdlCurrentGet empty.asm", "SHGetSpecialFolderPathW", "GetSaveFileNameW",
                     "PathFileExistsW", "DeleteFileW", "CreateFileW", "ProUITableColumnlabelsGet",
                     "ProUITableRowlabelsGet", "ExcelCreate", "ProUITableCellLabelGet",
                     "ProUITableCellLabelGet", "ShellExecuteW"}));
}

TEST_F(BomExportCalls, ACellIsReadWithItsColourBeforeItIsWritten) {
    Columns("");
    Record();
    Play(std::string("~ Command `VxBom`\n~ Activate `VxBom` `VxExportBom`\n"
                     "@ answer C:\\Work\\list.xlsx\n") +
         kCloseBom);
    Recorded();
    const Names calls = CallOrder(
        host().journal.lines(),
        {"ProUITableCellLabelGet", "ProUITableCellBackgroundColorGet", "ExcelGet", "ExcelPut"});
    const auto cell = std::find(calls.begin(), calls.end(), "ProUITableCellLabelGet");
    ASSERT_GE(calls.end() - cell, 7);
    // Its range, its format and its text; it is marked: its interior and the colour of that.
    EXPECT_EQ(Names(cell, cell + 7),
              (Names{"ProUITableCellLabelGet", "ProUITableCellBackgroundColorGet", "ExcelGet",
                     "ExcelPut", "ExcelPut", "ExcelGet", "ExcelPut"}));
    // The title of one column goes from A1 to A1.
    int titles = 0;
    for (const std::string& line : Lines("ExcelCall")) {
        titles += line.find("object=Range A1, member=Merge") != std::string::npos ? 1 : 0;
    }
    EXPECT_EQ(titles, 1);
}

TEST_F(BomExportCalls, TheFileIsOpenedAsItIsAndTheEditorWhereItCanBeSeen) {
    Record();
    Play(std::string("~ Command `VxBom`\n~ Activate `VxBom` `VxOpenBomIni`\n"
                     "~ Activate `VxBom` `VxExportBom`\n@ answer C:\\Work\\list.xlsx\n") +
         kCloseBom);
    Recorded();
    ASSERT_EQ(Lines("ShellExecuteW").size(), 1u);
    EXPECT_NE(Lines("ShellExecuteW")[0].find("show=1"), std::string::npos);
    ASSERT_EQ(Lines("WinExec").size(), 1u);
    EXPECT_NE(Lines("WinExec")[0].find("show=5"), std::string::npos) << Lines("WinExec")[0];
}

}  // namespace
