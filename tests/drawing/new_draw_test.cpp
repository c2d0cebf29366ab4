// VxNewDrw, NewDraw and VxOpenDrw from outside: which model's drawing, from which template and with
// which format, in which window, and what is said when that cannot be.
#include <algorithm>

#include "tests/drawing/sheet_bench.h"

namespace {

using namespace simhost;
using workbench::SheetBench;
using Names = std::vector<std::string>;

constexpr const char* kCreate = "~ Activate `VxNewDrw` `VxCreateDrw`\n";
constexpr const char* kCloseDialog = "~ Close `VxNewDrw`\n";
constexpr const char* kOneOnly = "@ expect box \"当前模式只能选择1个元件\"\n";
constexpr const char* kOurs = "@ expect caption \"岚枢工具By墨川听雨,QQ:100200300\"\n";

class NewDrawings : public SheetBench {
protected:
    void SetUp() override {
        TextFolderSetting("RmbDisable", "0");
        SheetBench::SetUp();
    }
    // Presses VxOpenDrw, which is in popups only, and in none before the second one of a run.
    void OpenByPopup(const std::string& then = {}) {
        Play("@ right-click\n@ quit\n@ right-click\n@ choose 打开工程图(vx)\n" + then);
    }
    // The same without a popup, whatever is selected.
    Names CallsOfOpen(const std::string& select = {}) {
        Play("@ right-click\n@ quit\n@ right-click\n@ quit\n" + select);
        return CallsOf("@ mapped key VxOpenDrw");
    }
    // Presses VxNewDrw and the button of its dialog; what the button called.
    Names CallsOfTheButton(const std::string& then = {}) {
        const Names all =
            CallsOf(std::string("~ Command `VxNewDrw`\n") + kCreate + then + kCloseDialog);
        const auto from = std::find(all.begin(), all.end(), "ProUIDialogActivate");
        const auto to = std::find(from, all.end(), "ProUIDialogExit");
        return from == to ? Names{} : Names(from + 1, to);
    }
    void SetTemplate(const std::string& section, const std::string& path) {
        workbench::WriteIni("VxConfig.ini", section, "path", path);
    }
    // TOP with the saved box BOX in it, in a window.
    Model& OpenTop() {
        Model& box = SavedBox("BOX");
        Model& top = Assembly("TOP");
        Use(top, box);
        Open(top);
        return top;
    }
    // The model of each window, in the order of their opening.
    Names Windows() {
        Names names;
        for (const Window& window : host().session.windows()) {
            names.push_back(window.model ? window.model->FileName() : "none");
        }
        return names;
    }
    std::string Current() {
        const Model* current = host().session.CurrentModel();
        return current ? current->FileName() : "none";
    }
    void DrawingIsThere(const std::string& file) {
        WriteDrawing(file + ".1", "[sheets]\nsizes = [\"A3\"]\n");
    }
};

// --- VxNewDrw: which model, and a drawing that is there ---

TEST_F(NewDrawings, WithoutACurrentModelNothingIsDoneAndNothingSaid) {
    EXPECT_EQ(CallsOf("@ mapped key VxNewDrw"), Names{"ProMdlCurrentGet"});
    EXPECT_EQ(Boxes(), Names{});
}

TEST_F(NewDrawings, TheDialogOpensOnA3AndOnTheTypeOfTheModel) {
    OpenTop();
    CallsOf(std::string("~ Command `VxNewDrw`\n") + kCloseDialog);
    EXPECT_EQ(LinesOf("ProUIRadiogroupSelectednamesSet"),
              (Names{"ProUIRadiogroupSelectednamesSet(dialog=\"VxNewDrw\", "
                     "component=\"RadioType\", names=[\"asm\"]) = 0",
                     "ProUIRadiogroupSelectednamesSet(dialog=\"VxNewDrw\", "
                     "component=\"RadioSize\", names=[\"A3\"]) = 0"}));
}

TEST_F(NewDrawings, ASelectedPartChoosesTheTypeOfParts) {
    OpenTop();
    CallsOf(std::string("@ select BOX\n~ Command `VxNewDrw`\n") + kCloseDialog);
    EXPECT_EQ(LinesOf("ProUIRadiogroupSelectednamesSet").at(0),
              "ProUIRadiogroupSelectednamesSet(dialog=\"VxNewDrw\", component=\"RadioType\", "
              "names=[\"prt\"]) = 0");
}

TEST_F(NewDrawings, AManufacturingModelLeavesTheTypeAsTheResourceHasIt) {
    Model& top = OpenTop();
    Open(Manufacturing("MILL", top));
    CallsOf(std::string("~ Command `VxNewDrw`\n") + kCloseDialog);
    ASSERT_EQ(LinesOf("ProUIRadiogroupSelectednamesSet").size(), 1u);
    EXPECT_NE(LinesOf("ProUIRadiogroupSelectednamesSet")[0].find("RadioSize"), std::string::npos);
    // Its assembly's drawing is asked for.
    EXPECT_EQ(LinesOf("ProMdlRetrieve").at(0).substr(0, 26), "ProMdlRetrieve(name=\"TOP\",");
}

TEST_F(NewDrawings, AManufacturingModelWithoutItsAssemblyHasNoDrawing) {
    Model& top = OpenTop();
    Open(Manufacturing("MILL", top));
    Fail("ProMfgAssemGet");
    Play("~ Command `VxNewDrw`\n@ expect dialog none");
}

TEST_F(NewDrawings, TheDialogOpensOnA3WhateverWasChosenLast) {
    OpenTop();
    Play(std::string("~ Command `VxNewDrw`\n~ Select `VxNewDrw` `RadioSize` 1 `A0`\n") +
         kCloseDialog);
    SetTemplate("A3Asmpath", "C:\\Templates\\a3.drw");
    WriteTemplate(WIDE("C:\\Templates\\a3.drw"), "A3");
    Play(std::string("~ Command `VxNewDrw`\n") + kCreate + kCloseDialog);
    EXPECT_EQ(Drawn("TOP").drawingData.sheets.at(0).size, WIDE("A3"));
}

TEST_F(NewDrawings, TwoSelectedItemsAndAnEmptySelectionAreRefused) {
    Model& top = OpenTop();
    Use(top, BoxPart("LID", 1, 1, 1));
    Play(std::string("@ select BOX, LID\n~ Command `VxNewDrw`\n") + kOneOnly + kOurs +
         "@ ok\n@ expect dialog none");
    EXPECT_EQ(AllBoxes().back().flags, 0x40000u);
    Play(std::string("@ clear selection\n@ selection empty\n~ Command `VxNewDrw`\n") + kOneOnly +
         "@ ok\n@ expect dialog none");
}

TEST_F(NewDrawings, ASelectedSurfaceMeansThePartThatItIsOf) {
    OpenTop();
    DrawingIsThere("box.drw");
    Play("@ select BOX#11\n~ Command `VxNewDrw`");
    EXPECT_EQ(Current(), "box.drw");
}

TEST_F(NewDrawings, AnExistingDrawingComesInAWindowOfItsOwnWithoutTheDialog) {
    OpenTop();
    DrawingIsThere("top.drw");
    EXPECT_EQ(CallsOf("~ Command `VxNewDrw`"),
              (Names{"ProMdlCurrentGet", "ProSelbufferSelectionsGet", "ProMdlTypeGet",
                     "ProMdlNameGet", "ProMdlRetrieve", "ProObjectwindowCreate",
                     "ProWindowCurrentSet", "ProWindowActivate"}));
    EXPECT_EQ(Windows(), (Names{"top.asm", "top.drw"}));
    EXPECT_EQ(Current(), "top.drw");
}

TEST_F(NewDrawings, AWindowThatCannotBeMadeIsNotActivated) {
    OpenTop();
    DrawingIsThere("top.drw");
    Fail("ProObjectwindowCreate");
    const Names calls = CallsOf("~ Command `VxNewDrw`");
    EXPECT_EQ(calls.back(), "ProObjectwindowCreate");
    EXPECT_EQ(Current(), "top.asm");
}

// --- VxCreateDrw: the template, and the new drawing ---

TEST_F(NewDrawings, EachSizeAndTypeHasATemplateOfItsOwn) {
    OpenTop();
    for (const char* size : {"A0", "A1", "A2", "A3", "A4", "A4H"}) {
        for (const char* type : {"asm", "prt"}) {
            const std::string section =
                size + std::string(type == std::string("asm") ? "Asm" : "Prt");
            SetTemplate(section + "path", "C:\\T\\" + section + ".drw");
            WriteTemplate(WIDE("C:\\T\\") + Wide(section + ".drw"), section);
        }
    }
    for (const char* size : {"A0", "A1", "A2", "A3", "A4", "A4H"}) {
        for (const char* type : {"asm", "prt"}) {
            const std::string section =
                size + std::string(type == std::string("asm") ? "Asm" : "Prt");
            Play("~ Command `VxNewDrw`\n~ Select `VxNewDrw` `RadioSize` 1 `" + std::string(size) +
                 "`\n~ Select `VxNewDrw` `RadioType` 1 `" + type + "`\n" + kCreate + kCloseDialog);
            EXPECT_EQ(Drawn("TOP").drawingData.sheets.at(0).size, Wide(section));
            host().session.Erase(Drawn("TOP"));
            Play("@ window top.asm");
        }
    }
}

TEST_F(NewDrawings, ATemplateIsReadInItsFolderAndTheWorkingFolderStays) {
    SetTemplate("A3Asmpath", "C:\\My Templates\\a3 asm.drw.2");
    WriteTemplate(WIDE("C:\\My Templates\\a3 asm.drw.1"), "OLD");
    WriteTemplate(WIDE("C:\\My Templates\\a3 asm.drw.2"), "A3");
    Model& top = OpenTop();
    EXPECT_EQ(CallsOfTheButton(),
              (Names{"ProDirectoryCurrentGet", "ProUIRadiogroupSelectednamesGet",
                     "ProUIRadiogroupSelectednamesGet", "ProMdlCurrentGet", "ProMdlNameGet",
                     "ProDirectoryChange", "ProMdlRetrieve", "ProMdlDataGet",
                     "ProDrawingFromTmpltCreate", "ProDirectoryChange", "ProObjectwindowCreate",
                     "ProWindowCurrentSet", "ProWindowActivate"}));
    EXPECT_EQ(LinesOf("ProDirectoryChange"),
              (Names{"ProDirectoryChange(directory=\"C:\\My Templates\") = 0",
                     "ProDirectoryChange(directory=\"C:\\Work\\\") = 0"}));
    EXPECT_EQ(LinesOf("ProMdlRetrieve").at(1),
              "ProMdlRetrieve(name=\"a3 asm\", type=4, model=a3 asm.drw) = 0");
    const std::string created = LinesOf("ProDrawingFromTmpltCreate").at(0);
    EXPECT_NE(created.find("name=\"TOP\", template=\"a3 asm\", "), std::string::npos) << created;
    EXPECT_NE(created.find("options=1"), std::string::npos) << created;
    EXPECT_EQ(Drawn("TOP").drawingData.sheets.at(0).size, WIDE("A3"));
    EXPECT_EQ(ModelOf(*Views("TOP").at(0)), &top);
    EXPECT_EQ(Current(), "top.drw");
    EXPECT_EQ(host().session.workingDirectory, WIDE("C:\\Work"));
}

TEST_F(NewDrawings, ATemplateWithoutAFolderIsLookedForInTheWorkingFolder) {
    SetTemplate("A3Asmpath", "mine.drw");
    WriteTemplate(WIDE("C:\\Work\\mine.drw.1"));
    OpenTop();
    const Names calls = CallsOfTheButton();
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "ProDirectoryChange"), 0);
    EXPECT_EQ(Current(), "top.drw");
}

TEST_F(NewDrawings, ATemplateAtTheTopOfTheDriveIsFoundThere) {
    SetTemplate("A3Asmpath", "C:\\top template.drw");
    WriteTemplate(WIDE("C:\\top template.drw"));
    OpenTop();
    CallsOfTheButton();
    EXPECT_EQ(LinesOf("ProDirectoryChange").at(0), "ProDirectoryChange(directory=\"C:\\\") = 0");
    EXPECT_EQ(Current(), "top.drw");
}

TEST_F(NewDrawings, ATemplateWithSlashesIsFoundToo) {
    SetTemplate("A3Asmpath", "C:/T/a3.drw");
    WriteTemplate(WIDE("C:\\T\\a3.drw"));
    OpenTop();
    Play(std::string("~ Command `VxNewDrw`\n") + kCreate + kCloseDialog);
    EXPECT_EQ(Current(), "top.drw");
}

TEST_F(NewDrawings, ATemplateThatIsNotSetIsToldAndTheDialogStays) {
    OpenTop();
    Play(std::string("~ Command `VxNewDrw`\n") + kCreate +
         "@ expect box \"当前所选模板未配置，请在 岚枢设置 功能中配置后再试。\"\n" + kOurs +
         "@ ok\n@ expect dialog VxNewDrw\n" + kCloseDialog);
    EXPECT_EQ(AllBoxes().back().flags, 0x40000u);
    EXPECT_EQ(FindDrawing("TOP"), nullptr);
}

TEST_F(NewDrawings, ATemplateThatIsNotThereIsToldWithItsWholeValueAndTheFolderStays) {
    SetTemplate("A3Asmpath", "C:\\No Such\\a3.drw.7");
    OpenTop();
    Play(
        std::string("~ Command `VxNewDrw`\n") + kCreate +
        "@ expect box \"当前模板无法检索，请检查模板设置是否正确。\\nC:\\\\No Such\\\\a3.drw.7\"\n" +
        kOurs + "@ ok\n" + kCloseDialog);
    EXPECT_EQ(AllBoxes().back().flags, 0x40000u);
    EXPECT_EQ(host().session.workingDirectory, WIDE("C:\\Work"));
}

TEST_F(NewDrawings, WithoutAWayBackNoFolderIsEntered) {
    SetTemplate("A3Asmpath", "C:\\T\\a3.drw");
    WriteTemplate(WIDE("C:\\T\\a3.drw"));
    OpenTop();
    Fail("ProDirectoryCurrentGet");
    const Names calls = CallsOfTheButton(
        "@ expect box \"当前模板无法检索，请检查模板设置是否正确。\\nC:\\\\T\\\\a3.drw\"\n"
        "@ ok\n");
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "ProDirectoryChange"), 0);
}

TEST_F(NewDrawings, TheButtonDrawsTheCurrentModelNotTheSelectedOne) {
    SetTemplate("A3Prtpath", "C:\\T\\a3.drw");
    WriteTemplate(WIDE("C:\\T\\a3.drw"));
    OpenTop();
    Play(std::string("@ select BOX\n~ Command `VxNewDrw`\n") + kCreate + kCloseDialog);
    EXPECT_NE(FindDrawing("TOP"), nullptr);
    EXPECT_EQ(FindDrawing("BOX"), nullptr);
}

TEST_F(NewDrawings, AManufacturingModelIsNoModelForATemplate) {
    SetTemplate("A3Asmpath", "C:\\T\\a3.drw");
    WriteTemplate(WIDE("C:\\T\\a3.drw"));
    Model& top = OpenTop();
    Open(Manufacturing("MILL", top));
    // The button takes the current model itself, whose assembly the command had taken.
    Play(std::string("~ Command `VxNewDrw`\n") + kCreate + "@ expect no box\n" + kCloseDialog);
    EXPECT_EQ(FindDrawing("TOP"), nullptr);
    EXPECT_EQ(FindDrawing("MILL"), nullptr);
}

TEST_F(NewDrawings, WithoutACurrentModelTheButtonDoesNothing) {
    SetTemplate("A3Asmpath", "C:\\T\\a3.drw");
    OpenTop();
    Fail("ProMdlCurrentGet", {.n = 2});
    EXPECT_EQ(CallsOfTheButton(),
              (Names{"ProDirectoryCurrentGet", "ProUIRadiogroupSelectednamesGet",
                     "ProUIRadiogroupSelectednamesGet", "ProMdlCurrentGet"}));
}

TEST_F(NewDrawings, EveryRefusalOfTheTemplateIsPassedOverInSilence) {
    SetTemplate("A3Asmpath", "C:\\T\\a3.drw");
    WriteTemplate(WIDE("C:\\T\\a3.drw"));
    OpenTop();
    for (const int status : {-1, -4, -5, -57, -59}) {
        Fail("ProDrawingFromTmpltCreate", {.status = status});
        const Names calls = CallsOfTheButton("@ expect no box\n");
        EXPECT_EQ(std::count(calls.begin(), calls.end(), "ProObjectwindowCreate"), 0) << status;
        EXPECT_EQ(host().session.workingDirectory, WIDE("C:\\Work"));
    }
}

TEST_F(NewDrawings, PressedTwiceTheButtonFindsItsOwnDrawingInTheWay) {
    SetTemplate("A3Asmpath", "C:\\T\\a3.drw");
    WriteTemplate(WIDE("C:\\T\\a3.drw"));
    OpenTop();
    CallsOfTheButton(std::string(kCreate) + "@ expect no box\n");
    const std::string second = LinesOf("ProDrawingFromTmpltCreate").at(1);
    EXPECT_EQ(second.substr(second.rfind(" = ")), " = -5");
    EXPECT_EQ(Views("TOP").size(), 1u);
}

TEST_F(NewDrawings, TheWindowClosesTheDialogWithStatus0) {
    OpenTop();
    CallsOf(std::string("~ Command `VxNewDrw`\n") + kCloseDialog);
    EXPECT_EQ(LinesOf("ProUIDialogExit"),
              Names{"ProUIDialogExit(dialog=\"VxNewDrw\", status=0) = 0"});
    EXPECT_EQ(LinesOf("ProUIDialogDestroy").size(), 1u);
}

TEST_F(NewDrawings, ADialogThatCannotBeMadeIsAPlainError) {
    OpenTop();
    Fail("ProUIDialogCreate");
    Play(
        "~ Command `VxNewDrw`\n@ expect box \"UIDialog Create error!\"\n@ expect caption none\n"
        "@ ok");
}

TEST_F(NewDrawings, ANameOf32LettersStaysWhole) {
    const std::string name = "ABCDEFGHIJKLMNOPQRSTUVWXYZ123456";
    SetTemplate("A3Asmpath", "C:\\T\\a3.drw");
    WriteTemplate(WIDE("C:\\T\\a3.drw"));
    Open(Assembly(name));
    Play(std::string("~ Command `VxNewDrw`\n") + kCreate + kCloseDialog);
    EXPECT_NE(FindDrawing(name), nullptr);
}

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
