// VxFrmReplace from outside: which drawings, which sheets, whose tables go, and what is saved.
#include "tests/drawing/sheet_bench.h"

namespace {

using namespace simhost;
using workbench::GeneralView;
using workbench::SheetBench;

class FormatReplacement : public SheetBench {
protected:
    void Replace(const std::string& answer = "@ answer a4_new.frm\n") {
        Play(
            "@ option pro_format_dir C:\\Formats\n~ Command `VxFrmReplace`\n"
            "~ Activate `VxFrmReplace` `VxFrmReplaceAct`\n" +
            answer +
            "@ expect box \"当前工作目录中工程图图框已批量替换完毕！\"\n@ ok\n"
            "~ Close `VxFrmReplace`");
    }
};

TEST_F(FormatReplacement, EverySheetOfEveryDrawingHasTheNewFormat) {
    SavedBox("BOX");
    WriteFormat("a4_new.frm.3", "A4");
    WriteDrawing("d.drw.1",
                 "[sheets]\nsizes = [\"A3\", \"A3\"]\n\n[drawing]\nprojection = "
                 "\"first-angle\"\n" +
                     GeneralView(1, "box.prt", 1));
    Replace();
    const Model saved = Saved("d.drw");
    ASSERT_EQ(saved.drawingData.sheets.size(), 2u);
    for (const Sheet& sheet : saved.drawingData.sheets) {
        EXPECT_EQ(sheet.format, "a4_new.frm");
        EXPECT_EQ(sheet.size, WIDE("A4"));
    }
    EXPECT_EQ(saved.drawingData.tables.size(), 2u);
}

}  // namespace
