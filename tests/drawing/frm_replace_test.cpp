// VxFrmReplace from outside: which drawings and sheets, which tables go, what is copied where, and
// what is saved.
#include <algorithm>
#include <filesystem>

#include "tests/drawing/sheet_bench.h"

namespace {

using namespace simhost;
using workbench::GeneralView;
using workbench::SheetBench;
using Names = std::vector<std::string>;

constexpr const char* kDone = "@ expect box \"当前工作目录中工程图图框已批量替换完毕！\"\n@ ok\n";

class FormatReplacement : public SheetBench {
protected:
    static std::string Sheets(int count) {
        std::string text = "[sheets]\nsizes = [";
        for (int i = 0; i < count; ++i) text += i == 0 ? "\"A3\"" : ", \"A3\"";
        return text + "]\n\n[drawing]\nprojection = \"first-angle\"\n";
    }
    static std::string Table(int id, int sheet, bool fromFormat) {
        return "\n[[table]]\nid = " + std::to_string(id) + "\nsheet = " + std::to_string(sheet) +
               "\nat = [1, 2]\ncolumns = [10]\nheights = [8]\n" +
               (fromFormat ? "from_format = true\n" : "");
    }
    // Opens the dialog, presses its button, answers, and closes the dialog.
    Names Replace(const std::string& answer = "@ answer a4_new.frm\n",
                  const std::string& then = kDone) {
        return CallsOf("~ Command `VxFrmReplace`\n~ Activate `VxFrmReplace` `VxFrmReplaceAct`\n" +
                       answer + then + "~ Close `VxFrmReplace`");
    }
    void UseFormatFolder() {
        WriteFormat("a4_new.frm.3", "A4");
        Play("@ option pro_format_dir C:\\Formats");
    }
    bool IsThere(const WideText& path) { return std::filesystem::exists(host().disk.Real(path)); }
};

TEST_F(FormatReplacement, WithoutADrawingItSaysSoAndAsksForNothing) {
    Replace("@ expect box \"当前工作目录下无工程图\"\n@ expect caption none\n@ ok\n", "");
    EXPECT_EQ(LinesOf("ProFileOpen"), Names{});
    EXPECT_EQ(AllBoxes().back().flags, 0u);
}

TEST_F(FormatReplacement, EverySheetOfEveryDrawingHasTheNewFormat) {
    SavedBox("BOX");
    UseFormatFolder();
    WriteDrawing("d.drw.1", Sheets(2) + GeneralView(1, "box.prt", 1));
    WriteDrawing("e.drw.4", Sheets(1) + GeneralView(1, "box.prt", 1));
    Replace();
    EXPECT_EQ(AllBoxes().back().flags, 0x40000u);
    for (const char* file : {"d.drw", "e.drw"}) {
        const Model saved = Saved(file);
        for (const Sheet& sheet : saved.drawingData.sheets) {
            EXPECT_EQ(sheet.format, "a4_new.frm");
            EXPECT_EQ(sheet.size, WIDE("A4"));
            EXPECT_EQ(sheet.about, "box.prt");
        }
        EXPECT_EQ(saved.drawingData.tables.size(), saved.drawingData.sheets.size());
    }
    EXPECT_TRUE(IsThere(WIDE("C:\\Work\\d.drw.2")));
    EXPECT_TRUE(IsThere(WIDE("C:\\Work\\e.drw.5")));
}

TEST_F(FormatReplacement, AsksForEachSheetInThisOrder) {
    SavedBox("BOX");
    UseFormatFolder();
    WriteDrawing("d.drw.1", Sheets(1) + GeneralView(1, "box.prt", 1) + Table(1, 1, true));
    EXPECT_EQ(
        Replace(),
        (Names{"ProUIDialogCreate", "ProUIPushbuttonActivateActionSet", "ProUIDialogCloseActionSet",
               "ProUIDialogActivate", "ProFilesList", "ProArraySizeGet", "ProArrayFree",
               "ProArraySizeGet", "ProConfigoptArrayGet", "ProArraySizeGet", "ProArrayFree",
               "ProDirectoryCurrentGet", "ProFileOpen", "ProFilenameParse", "ProMdlRetrieve",
               "ProMdlRetrieve", "ProDrawingViewsCollect", "ProArraySizeGet",
               "ProDrawingSolidsCollect", "ProDrawingSheetsCount", "ProArraySizeGet",
               // The sheet.
               "ProDrawingCurrentSheetSet", "ProDrawingViewSheetGet", "ProDrawingViewSolidGet",
               "ProDrawingCurrentsolidSet", "ProDrawingTablesCollect", "ProArraySizeGet",
               "ProDwgtableIsFromFormat", "ProDwgtableSegSheetGet", "ProDwgtableDelete",
               "ProArrayFree", "ProDrawingFormatAdd",
               // The end of the drawing.
               "ProMdlSave", "ProArrayFree", "ProArrayFree", "ProArrayFree", "ProUIDialogExit",
               "ProUIDialogDestroy"}));
    EXPECT_EQ(LinesOf("ProFileOpen").at(0),
              "ProFileOpen(title=\"请选择需要替换的新图框\", filter=\"*.frm\", "
              "folder=\"C:\\Formats\", proposed=null, "
              "path=\"C:\\Formats\\a4_new.frm\") = 0");
    EXPECT_EQ(LinesOf("ProMdlRetrieve"),
              (Names{"ProMdlRetrieve(name=\"a4_new\", type=33, model=a4_new.frm) = 0",
                     "ProMdlRetrieve(name=\"d\", type=4, model=d.drw) = 0"}));
    EXPECT_NE(LinesOf("ProDwgtableSegSheetGet").at(0).find("segment=-1, sheet=1) = 0"),
              std::string::npos);
    EXPECT_NE(LinesOf("ProDwgtableDelete").at(0).find("repaint=1) = 0"), std::string::npos);
    EXPECT_EQ(LinesOf("ProDrawingFormatAdd"),
              Names{"ProDrawingFormatAdd(drawing=d.drw, sheet=1, solid=box.prt, "
                    "format=a4_new.frm, formatSheet=0) = 0"});
}

TEST_F(FormatReplacement, OnlyTheTablesOfTheOldFormatsGo) {
    SavedBox("BOX");
    UseFormatFolder();
    WriteDrawing("d.drw.1", Sheets(2) + GeneralView(1, "box.prt", 1) + Table(1, 1, true) +
                                Table(2, 1, false) + Table(3, 2, true) + Table(4, 2, true));
    Replace();
    Names left;
    for (const SheetTable& table : Saved("d.drw").drawingData.tables) {
        left.push_back(std::to_string(table.id) + " on " + std::to_string(table.sheet) +
                       (table.fromFormat ? " from the format" : ""));
    }
    // The new format brings one onto each sheet; a number is given again once it is free.
    EXPECT_EQ(left, (Names{"2 on 1", "5 on 1 from the format", "6 on 2 from the format"}));
    EXPECT_EQ(LinesOf("ProDwgtableDelete").size(), 3u);
}

TEST_F(FormatReplacement, ATableThatCannotBeAskedStays) {
    SavedBox("BOX");
    UseFormatFolder();
    const char* const failing[] = {"ProDwgtableIsFromFormat", "ProDwgtableSegSheetGet",
                                   "ProDrawingTablesCollect"};
    for (const char* operation : failing) {
        WriteDrawing("d.drw.1", Sheets(1) + GeneralView(1, "box.prt", 1) + Table(1, 1, true));
        Fail(operation);
        Replace();
        EXPECT_EQ(LinesOf("ProDwgtableDelete"), Names{}) << operation;
        host().session.Erase(Drawn("D"));
        std::filesystem::remove(host().disk.Real(WIDE("C:\\Work\\d.drw.2")));
    }
}

TEST_F(FormatReplacement, ASheetWithoutAViewTakesTheModelOfTheSheetBefore) {
    SavedBox("BOX");
    SavedBox("PIN");
    UseFormatFolder();
    WriteDrawing("d.drw.1", Sheets(3) + GeneralView(1, "box.prt", 1) +
                                GeneralView(2, "pin.prt", 2) + GeneralView(3, "box.prt", 2));
    Replace();
    const Model saved = Saved("d.drw");
    EXPECT_EQ(saved.drawingData.sheets.at(0).about, "box.prt");
    EXPECT_EQ(saved.drawingData.sheets.at(1).about, "pin.prt");  // of the first view on it
    EXPECT_EQ(saved.drawingData.sheets.at(2).about, "pin.prt");
    EXPECT_EQ(saved.drawingData.currentSolid, "pin.prt");
}

TEST_F(FormatReplacement, AFirstSheetWithoutAViewTakesTheDrawingsOwnFirstModel) {
    SavedBox("BOX");
    SavedBox("PIN");
    UseFormatFolder();
    WriteDrawing("a.drw.1", Sheets(1) + GeneralView(1, "box.prt", 1));
    WriteDrawing("b.drw.1", Sheets(2) + GeneralView(1, "pin.prt", 2));
    Replace();
    EXPECT_EQ(Saved("b.drw").drawingData.sheets.at(0).about, "pin.prt");
}

TEST_F(FormatReplacement, WithoutAnyModelTheFormatIsStillHandedOver) {
    SavedBox("BOX");
    UseFormatFolder();
    WriteDrawing("a.drw.1", Sheets(1) + GeneralView(1, "lost.prt", 1));
    Replace();
    EXPECT_EQ(LinesOf("ProDrawingCurrentsolidSet"), Names{});
    EXPECT_EQ(LinesOf("ProDrawingFormatAdd").at(0),
              "ProDrawingFormatAdd(drawing=a.drw, sheet=1, solid=null, format=a4_new.frm, "
              "formatSheet=0) = -2");
}

TEST_F(FormatReplacement, ADrawingWithoutViewsIsNeitherChangedNorSaved) {
    SavedBox("BOX");
    UseFormatFolder();
    WriteDrawing("a.drw.1", Sheets(1));
    Write(WIDE("C:\\Work\\b.drw.1"), "broken");
    WriteDrawing("c.drw.1", Sheets(1) + GeneralView(1, "box.prt", 1));
    Replace();
    EXPECT_FALSE(IsThere(WIDE("C:\\Work\\a.drw.2")));
    EXPECT_FALSE(IsThere(WIDE("C:\\Work\\b.drw.2")));
    EXPECT_TRUE(IsThere(WIDE("C:\\Work\\c.drw.2")));
    EXPECT_EQ(Read(WIDE("C:\\Work\\b.drw.1")), "broken");
}

TEST_F(FormatReplacement, LeavingTheFileDialogLeavesAllDrawingsUntouched) {
    SavedBox("BOX");
    UseFormatFolder();
    WriteDrawing("d.drw.1", Sheets(1) + GeneralView(1, "box.prt", 1));
    const Names calls = Replace("@ quit\n", "@ expect no box\n");
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "ProMdlRetrieve"), 0);
    EXPECT_FALSE(IsThere(WIDE("C:\\Work\\d.drw.2")));
}

TEST_F(FormatReplacement, AFormatFromElsewhereIsCopiedToTheFolderOfFormatsWithoutItsVersion) {
    SavedBox("BOX");
    UseFormatFolder();
    WriteFormat("other.frm.7", "A2", WIDE("C:\\Elsewhere"));
    WriteDrawing("d.drw.1", Sheets(1) + GeneralView(1, "box.prt", 1));
    Replace("@ answer C:\\Elsewhere\\other.frm.7\n");
    EXPECT_TRUE(IsThere(WIDE("C:\\Formats\\other.frm")));
    EXPECT_EQ(Read(WIDE("C:\\Formats\\other.frm")), Read(WIDE("C:\\Elsewhere\\other.frm.7")));
    EXPECT_EQ(Saved("d.drw").drawingData.sheets.at(0).size, WIDE("A2"));
}

TEST_F(FormatReplacement, WithoutAFolderOfFormatsItIsCopiedToTheWorkingFolder) {
    SavedBox("BOX");
    WriteFormat("other.frm.7", "A2", WIDE("C:\\Elsewhere"));
    WriteDrawing("d.drw.1", Sheets(1) + GeneralView(1, "box.prt", 1));
    Replace("@ answer C:\\Elsewhere\\other.frm.7\n");
    EXPECT_TRUE(IsThere(WIDE("C:\\Work\\other.frm")));
    EXPECT_EQ(LinesOf("ProFileOpen").at(0).find("folder=\"C:"), std::string::npos);
    // An option that is set to the empty text names no folder either.
    WriteFormat("third.frm.1", "A1", WIDE("C:\\Elsewhere"));
    Play("@ option pro_format_dir \"\"");
    Replace("@ answer C:\\Elsewhere\\third.frm.1\n");
    EXPECT_TRUE(IsThere(WIDE("C:\\Work\\third.frm")));
    EXPECT_EQ(Saved("d.drw").drawingData.sheets.at(0).size, WIDE("A1"));
}

TEST_F(FormatReplacement, AFormatThatLiesThereIsNotOverwrittenAndTheRunGoesOn) {
    SavedBox("BOX");
    UseFormatFolder();
    WriteFormat("same.frm", "A1");
    WriteFormat("same.frm", "A2", WIDE("C:\\Elsewhere"));
    WriteDrawing("d.drw.1", Sheets(1) + GeneralView(1, "box.prt", 1));
    Replace("@ answer C:\\Elsewhere\\same.frm\n");
    EXPECT_EQ(Saved("d.drw").drawingData.sheets.at(0).size, WIDE("A1"));
}

TEST_F(FormatReplacement, ACopyOntoItselfFailsAndTheFormatIsUsed) {
    SavedBox("BOX");
    WriteFormat("a2.frm", "A2");
    Play("@ option pro_format_dir C:\\Formats");
    WriteDrawing("d.drw.1", Sheets(1) + GeneralView(1, "box.prt", 1));
    const std::string before = Read(WIDE("C:\\Formats\\a2.frm"));
    Replace("@ answer a2.frm\n");
    EXPECT_EQ(Read(WIDE("C:\\Formats\\a2.frm")), before);
    EXPECT_EQ(Saved("d.drw").drawingData.sheets.at(0).size, WIDE("A2"));
}

TEST_F(FormatReplacement, OldTablesGoAndTheNoticeComesEvenWithoutTheFormat) {
    SavedBox("BOX");
    UseFormatFolder();
    WriteDrawing("d.drw.1", Sheets(1) + GeneralView(1, "box.prt", 1) + Table(1, 1, true));
    Fail("ProMdlRetrieve");  // the format; the drawings come after it
    Replace();
    EXPECT_EQ(LinesOf("ProDrawingFormatAdd").at(0),
              "ProDrawingFormatAdd(drawing=d.drw, sheet=1, solid=box.prt, format=null, "
              "formatSheet=0) = -2");
    EXPECT_TRUE(Saved("d.drw").drawingData.tables.empty());
    EXPECT_EQ(Saved("d.drw").drawingData.sheets.at(0).format, "");
}

TEST_F(FormatReplacement, ADrawingThatCannotBeSavedDoesNotStopTheOthers) {
    SavedBox("BOX");
    UseFormatFolder();
    WriteDrawing("a.drw.1", Sheets(1) + GeneralView(1, "box.prt", 1));
    WriteDrawing("b.drw.1", Sheets(1) + GeneralView(1, "box.prt", 1));
    Fail("ProMdlSave");
    Replace();
    EXPECT_FALSE(IsThere(WIDE("C:\\Work\\a.drw.2")));
    EXPECT_TRUE(IsThere(WIDE("C:\\Work\\b.drw.2")));
}

TEST_F(FormatReplacement, ADrawingWhoseSheetsCannotBeCountedKeepsThemAndIsSaved) {
    SavedBox("BOX");
    UseFormatFolder();
    WriteDrawing("a.drw.1", Sheets(1) + GeneralView(1, "box.prt", 1) + Table(1, 1, true));
    WriteDrawing("b.drw.1", Sheets(1) + GeneralView(1, "box.prt", 1));
    Fail("ProDrawingSheetsCount");
    Replace();
    EXPECT_EQ(LinesOf("ProDwgtableDelete"), Names{});
    EXPECT_EQ(Saved("a.drw").drawingData.sheets.at(0).format, "");
    EXPECT_TRUE(IsThere(WIDE("C:\\Work\\a.drw.2")));
    EXPECT_EQ(Saved("b.drw").drawingData.sheets.at(0).format, "a4_new.frm");
}

TEST_F(FormatReplacement, TheNoticeComesOnceTheLastDrawingIsSaved) {
    SavedBox("BOX");
    UseFormatFolder();
    WriteDrawing("a.drw.1", Sheets(1) + GeneralView(1, "box.prt", 1));
    WriteDrawing("b.drw.1", Sheets(1) + GeneralView(1, "box.prt", 1));
    Replace();
    Names ends;
    for (const std::string& name : host().journal.Names()) {
        if (name == "ProMdlSave" || name == "MessageBoxW") ends.push_back(name);
    }
    EXPECT_EQ(ends, (Names{"ProMdlSave", "ProMdlSave", "MessageBoxW"}));
}

TEST_F(FormatReplacement, AFormatWhoseNameCannotBeParsedIsNone) {
    SavedBox("BOX");
    UseFormatFolder();
    WriteDrawing("d.drw.1", Sheets(1) + GeneralView(1, "box.prt", 1));
    Fail("ProFilenameParse");
    Replace();
    EXPECT_EQ(Saved("d.drw").drawingData.sheets.at(0).format, "");
}

TEST_F(FormatReplacement, TheButtonCanBePressedAgainAndTheWindowClosesWithStatus0) {
    SavedBox("BOX");
    UseFormatFolder();
    WriteDrawing("d.drw.1", Sheets(1) + GeneralView(1, "box.prt", 1));
    const std::string once = std::string("~ Activate `VxFrmReplace` `VxFrmReplaceAct`\n") +
                             "@ answer a4_new.frm\n" + kDone;
    CallsOf("~ Command `VxFrmReplace`\n" + once + once + "~ Close `VxFrmReplace`");
    EXPECT_TRUE(IsThere(WIDE("C:\\Work\\d.drw.3")));
    EXPECT_EQ(Saved("d.drw").drawingData.tables.size(), 1u);
    EXPECT_EQ(LinesOf("ProUIDialogExit"),
              Names{"ProUIDialogExit(dialog=\"VxFrmReplace\", status=0) = 0"});
}

}  // namespace
