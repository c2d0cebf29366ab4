// NewDraw and VxOpenDrw from outside: which model's drawing, with which format, in which window,
// and what is said when that cannot be.
#include "tests/drawing/new_drawings.h"

namespace {

using namespace simhost;
using workbench::kOneOnly;
using workbench::kOurs;
using workbench::Names;
using workbench::NewDrawings;

// --- VxOpenDrw ---

TEST_F(NewDrawings, VxOpenDrwShowsTheDrawingOfTheSelectedComponent) {
    OpenTop();
    DrawingIsThere("box.drw");
    Play("@ select BOX");
    OpenByPopup();
    EXPECT_EQ(Current(), "box.drw");
}

TEST_F(NewDrawings, VxOpenDrwMakesAWindowShowsAndActivates) {
    OpenTop();
    DrawingIsThere("box.drw");
    EXPECT_EQ(
        CallsOfOpen("@ select BOX"),
        (Names{"ProSelbufferSelectionsGet", "ProArraySizeGet", "ProSelectionModelitemGet",
               "ProModelitemMdlGet", "ProMdlNameGet", "ProMdlRetrieve", "ProObjectwindowCreate",
               "ProMdlDisplay", "ProWindowActivate", "ProArrayFree"}));
    // The window of the assembly shows the drawing now, for no window was made the current one.
    EXPECT_EQ(Windows(), (Names{"box.drw", "box.drw"}));
}

TEST_F(NewDrawings, VxOpenDrwAsksForTheModelOfASelectedAssembly) {
    OpenTop();
    DrawingIsThere("top.drw");
    EXPECT_EQ(CallsOfOpen("@ select .").at(3), "ProModelitemMdlGet");
    EXPECT_EQ(Current(), "top.drw");
}

TEST_F(NewDrawings, VxOpenDrwDoesNothingWithoutExactlyOneItem) {
    Model& top = OpenTop();
    Use(top, BoxPart("LID", 1, 1, 1));
    DrawingIsThere("top.drw");
    DrawingIsThere("box.drw");
    EXPECT_EQ(CallsOfOpen(), Names{"ProSelbufferSelectionsGet"});
    EXPECT_EQ(CallsOfOpen("@ select BOX, LID"),
              (Names{"ProSelbufferSelectionsGet", "ProArraySizeGet", "ProArrayFree"}));
    EXPECT_EQ(CallsOfOpen("@ clear selection\n@ selection empty"),
              (Names{"ProSelbufferSelectionsGet", "ProArraySizeGet", "ProArrayFree"}));
    EXPECT_EQ(Boxes(), Names{});
    EXPECT_EQ(Current(), "top.asm");
}

TEST_F(NewDrawings, VxOpenDrwDoesNothingWhereTheHostDoesNotTellTheModel) {
    OpenTop();
    DrawingIsThere("box.drw");
    Fail("ProModelitemMdlGet");
    EXPECT_EQ(CallsOfOpen("@ select BOX"),
              (Names{"ProSelbufferSelectionsGet", "ProArraySizeGet", "ProSelectionModelitemGet",
                     "ProModelitemMdlGet", "ProArrayFree"}));
    EXPECT_EQ(Boxes(), Names{});
    EXPECT_EQ(Current(), "top.asm");
}

TEST_F(NewDrawings, VxOpenDrwTakesTheOwnerOfASurface) {
    OpenTop();
    DrawingIsThere("box.drw");
    const Names calls = CallsOfOpen("@ select BOX#11");
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "ProModelitemMdlGet"), 0);
    EXPECT_EQ(Current(), "box.drw");
}

TEST_F(NewDrawings, VxOpenDrwSaysThatThereIsNoDrawing) {
    OpenTop();
    Play("@ select BOX");
    OpenByPopup(
        std::string("@ expect box "
                    "\"同名工程图打开失败，请确认该模型工程图在当前工作目录是否存在。\"\n") +
        kOurs + "@ ok");
    EXPECT_EQ(AllBoxes().back().flags, 0x40000u);
    EXPECT_EQ(Windows(), Names{"top.asm"});
}

TEST_F(NewDrawings, VxOpenDrwShowsTheDrawingEvenWithoutAWindowOfItsOwn) {
    OpenTop();
    DrawingIsThere("box.drw");
    Fail("ProObjectwindowCreate");
    const Names calls = CallsOfOpen("@ select BOX");
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "ProWindowActivate"), 0);
    EXPECT_EQ(Windows(), Names{"box.drw"});
}

// --- NewDraw ---

TEST_F(NewDrawings, NewDrawPutsTheChosenFormatOntoTheFirstSheet) {
    WriteFormat("a3_new.frm.3", "A3");
    Open(BoxPart("BOX", 100, 60, 40));
    Play("@ option pro_format_dir C:\\Formats\n~ Command `NewDraw`\n@ answer a3_new.frm");
    const Sheet& sheet = Drawn("BOX").drawingData.sheets.at(0);
    EXPECT_EQ(sheet.format, "a3_new.frm");
    EXPECT_EQ(sheet.size, WIDE("A3"));
    EXPECT_EQ(sheet.about, "box.prt");
    EXPECT_EQ(Current(), "box.drw");
    EXPECT_EQ(host().session.workingDirectory, WIDE("C:\\Work"));
}

TEST_F(NewDrawings, NewDrawAsksForTheFormatBeforeItMakesTheDrawing) {
    WriteFormat("a3_new.frm", "A3");
    Open(BoxPart("BOX", 100, 60, 40));
    EXPECT_EQ(
        CallsOf("@ option pro_format_dir C:\\Formats\n~ Command `NewDraw`\n@ answer a3_new.frm"),
        (Names{"ProDirectoryCurrentGet", "ProSelbufferSelectionsGet",
               "ProMdlCurrentGet",       "ProMdlTypeGet",
               "ProMdlNameGet",          "ProMdlRetrieve",
               "ProConfigoptArrayGet",   "ProArraySizeGet",
               "ProArrayFree",           "ProFileOpen",
               "ProFilenameParse",       "ProMdlDataGet",
               "ProDirectoryChange",     "ProDrawingFromTmpltCreate",
               "ProDirectoryChange",     "ProObjectwindowCreate",
               "ProWindowCurrentSet",    "ProWindowActivate",
               "ProMdlRetrieve",         "ProDrawingFormatAdd"}));
    EXPECT_EQ(LinesOf("ProFileOpen").at(0),
              "ProFileOpen(title=\"请选择工程图模板\", filter=\"*.frm\", folder=\"C:\\Formats\", "
              "proposed=null, path=\"C:\\Formats\\a3_new.frm\") = 0");
    EXPECT_EQ(LinesOf("ProDirectoryChange"),
              (Names{"ProDirectoryChange(directory=\"C:\\Plug-in\\tp\") = 0",
                     "ProDirectoryChange(directory=\"C:\\Work\\\") = 0"}));
    const std::string created = LinesOf("ProDrawingFromTmpltCreate").at(0);
    EXPECT_NE(created.find("name=\"BOX\", template=\"vx.drw\", "), std::string::npos) << created;
    EXPECT_NE(created.find("options=1"), std::string::npos) << created;
    EXPECT_EQ(LinesOf("ProMdlRetrieve").at(1),
              "ProMdlRetrieve(name=\"a3_new\", type=33, model=a3_new.frm) = 0");
    EXPECT_EQ(LinesOf("ProDrawingFormatAdd").at(0),
              "ProDrawingFormatAdd(drawing=box.drw, sheet=1, solid=box.prt, format=a3_new.frm, "
              "formatSheet=0) = 0");
}

TEST_F(NewDrawings, NewDrawLeavesTheDialogWithoutADrawing) {
    Open(BoxPart("BOX", 100, 60, 40));
    const Names calls = CallsOf("~ Command `NewDraw`\n@ quit");
    EXPECT_EQ(calls.back(), "ProFileOpen");
    EXPECT_EQ(FindDrawing("BOX"), nullptr);
    EXPECT_EQ(Boxes(), Names{});
}

TEST_F(NewDrawings, NewDrawDisplaysADrawingThatIsThere) {
    SavedBox("BOX");
    DrawingIsThere("box.drw");
    Open(*host().session.FindByFile("box.prt"));
    EXPECT_EQ(CallsOf("~ Command `NewDraw`"),
              (Names{"ProDirectoryCurrentGet", "ProSelbufferSelectionsGet", "ProMdlCurrentGet",
                     "ProMdlTypeGet", "ProMdlNameGet", "ProMdlRetrieve", "ProObjectwindowCreate",
                     "ProMdlDisplay", "ProWindowActivate"}));
    EXPECT_EQ(Windows(), (Names{"box.drw", "box.drw"}));
}

TEST_F(NewDrawings, NewDrawTakesTheOneSelectedComponentAndRefusesTwo) {
    Model& top = OpenTop();
    Use(top, BoxPart("LID", 1, 1, 1));
    Play(std::string("@ select BOX, LID\n~ Command `NewDraw`\n") + kOneOnly + kOurs + "@ ok");
    DrawingIsThere("box.drw");
    Play("@ clear selection\n@ select BOX\n~ Command `NewDraw`");
    EXPECT_EQ(Current(), "box.drw");
}

TEST_F(NewDrawings, NewDrawWithoutACurrentModelDoesNothing) {
    EXPECT_EQ(CallsOf("@ mapped key NewDraw"),
              (Names{"ProDirectoryCurrentGet", "ProSelbufferSelectionsGet", "ProMdlCurrentGet"}));
}

TEST_F(NewDrawings, NewDrawDrawsTheAssemblyOfAManufacturingModel) {
    WriteFormat("a3.frm", "A3", WIDE("C:\\Work"));
    Model& top = OpenTop();
    Open(Manufacturing("MILL", top));
    Play("~ Command `NewDraw`\n@ answer a3.frm");
    EXPECT_EQ(Drawn("TOP").drawingData.sheets.at(0).about, "top.asm");
}

TEST_F(NewDrawings, NewDrawNamesFourRefusalsInPlainBoxesAndPassesOverOthers) {
    WriteFormat("a3.frm", "A3", WIDE("C:\\Work"));
    Open(BoxPart("BOX", 100, 60, 40));
    struct Row {
        int status;
        const char* told;
    };
    for (const Row& row : {Row{-5, "PRO_TK_E_FOUND"}, Row{-4, "PRO_TK_E_NOT_FOUND"},
                           Row{-57, "PRO_TK_DWGCREATE_ERRORS"}, Row{-59, "PRO_TK_NO_PERMISSION"}}) {
        Fail("ProDrawingFromTmpltCreate", {.status = row.status});
        Play(std::string("~ Command `NewDraw`\n@ answer a3.frm\n@ expect box \"") + row.told +
             "\"\n@ expect caption none\n@ ok");
        EXPECT_EQ(AllBoxes().back().flags, 0u);
        EXPECT_EQ(host().session.workingDirectory, WIDE("C:\\Work"));
    }
    for (const int status : {-1, -2}) {
        Fail("ProDrawingFromTmpltCreate", {.status = status});
        Play("~ Command `NewDraw`\n@ answer a3.frm\n@ expect no box");
    }
    EXPECT_EQ(FindDrawing("BOX"), nullptr);
}

TEST_F(NewDrawings, NewDrawMakesTheDrawingEvenWhereTheHostHasNotTheFormat) {
    WriteFormat("a3.frm", "A3", WIDE("C:\\Elsewhere"));
    Open(BoxPart("BOX", 100, 60, 40));
    // Chosen by its full path in a folder in which the host does not look.
    CallsOf("~ Command `NewDraw`\n@ answer C:\\Elsewhere\\a3.frm");
    EXPECT_EQ(LinesOf("ProDrawingFormatAdd").at(0),
              "ProDrawingFormatAdd(drawing=box.drw, sheet=1, solid=box.prt, format=null, "
              "formatSheet=0) = -2");
    EXPECT_EQ(Drawn("BOX").drawingData.sheets.at(0).format, "");
    EXPECT_EQ(Current(), "box.drw");
}

}  // namespace
