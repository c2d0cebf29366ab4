// VxNewDrw from outside: which model's drawing, from which template, in which window, and what is
// said when that cannot be.
#include "tests/drawing/new_drawings.h"

namespace {

using namespace simhost;
using workbench::kCloseDialog;
using workbench::kCreate;
using workbench::kOneOnly;
using workbench::kOurs;
using workbench::Names;
using workbench::NewDrawings;

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

TEST_F(NewDrawings, ATildeInTheNameOfATemplateEndsNoFolder) {
    SetTemplate("A3Asmpath", "C:\\T\\a3~1.drw");
    WriteTemplate(WIDE("C:\\T\\a3~1.drw"));
    OpenTop();
    CallsOfTheButton();
    EXPECT_EQ(LinesOf("ProDirectoryChange").at(0), "ProDirectoryChange(directory=\"C:\\T\") = 0");
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
    Play(std::string("~ Command `VxNewDrw`\n") + kCreate +
         "@ expect box \"当前模板无法检索，请检查模板设置是否正确。\\n"
         "C:\\\\No Such\\\\a3.drw.7\"\n" +
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

}  // namespace
