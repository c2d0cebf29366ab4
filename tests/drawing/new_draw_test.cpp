// VxNewDrw, NewDraw and VxOpenDrw from outside: which model's drawing, from which template and with
// which format, in which window, and what is said when that cannot be.
#include "tests/drawing/sheet_bench.h"

namespace {

using namespace simhost;
using workbench::SheetBench;

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
    void SetTemplate(const std::string& section, const std::string& path) {
        workbench::WriteIni("VxConfig.ini", section, "path", path);
    }
};

TEST_F(NewDrawings, VxNewDrwMakesTheDrawingFromTheTemplateOfTheSettings) {
    WriteTemplate(WIDE("C:\\Templates\\a3_asm.drw"));
    SetTemplate("A3Asmpath", "C:\\Templates\\a3_asm.drw");
    Model& top = Assembly("TOP");
    Use(top, BoxPart("BOX", 100, 60, 40));
    Open(top);
    Play("~ Command `VxNewDrw`\n~ Activate `VxNewDrw` `VxCreateDrw`\n~ Close `VxNewDrw`");
    Model& drawing = Drawn("TOP");
    EXPECT_EQ(host().session.CurrentModel(), &drawing);
    ASSERT_EQ(Views("TOP").size(), 1u);
    EXPECT_EQ(ModelOf(*Views("TOP")[0]), &top);
    EXPECT_EQ(host().session.workingDirectory, WIDE("C:\\Work"));
}

TEST_F(NewDrawings, NewDrawPutsTheChosenFormatOntoTheFirstSheet) {
    WriteFormat("a3_new.frm.3", "A3");
    Model& box = BoxPart("BOX", 100, 60, 40);
    Open(box);
    Play("@ option pro_format_dir C:\\Formats\n~ Command `NewDraw`\n@ answer a3_new.frm");
    const Sheet& sheet = Drawn("BOX").drawingData.sheets.at(0);
    EXPECT_EQ(sheet.format, "a3_new.frm");
    EXPECT_EQ(sheet.size, WIDE("A3"));
    EXPECT_EQ(sheet.about, "box.prt");
    EXPECT_EQ(host().session.CurrentModel(), FindDrawing("BOX"));
}

TEST_F(NewDrawings, VxOpenDrwOpensTheDrawingOfTheSelectedComponent) {
    SavedBox("BOX");
    WriteDrawing("box.drw.1", "[sheets]\nsizes = [\"A3\"]\n");
    Model& top = Assembly("TOP");
    Use(top, *host().session.FindByFile("box.prt"));
    Open(top);
    Play("@ select BOX");
    OpenByPopup();
    EXPECT_EQ(host().session.CurrentModel(), FindDrawing("BOX"));
}

}  // namespace
