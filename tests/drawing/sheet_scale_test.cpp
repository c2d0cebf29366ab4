// SameScale, VxUpdateSheetScale, VxUpdateMainViewScale and VxDrwScaleCheck from outside: which
// scales of sheets and views they read, which they write, and what they say.
#include "tests/drawing/sheet_bench.h"

namespace {

using namespace simhost;
using workbench::GeneralView;
using workbench::ProjectedView;
using workbench::SheetBench;

const std::string kTwoSheets =
    "[[sheet]]\nsize = \"A3\"\nscale = 0.5\n\n[[sheet]]\nsize = \"A4\"\nscale = 0.2\n"
    "\n[drawing]\nprojection = \"first-angle\"\n";

class SheetScales : public SheetBench {
protected:
    double ViewScale(const std::string& drawing, std::size_t view) {
        return Drawing::ScaleOf(*Views(drawing).at(view));
    }
    double SheetScale(const std::string& drawing, int sheet, const std::string& model) {
        return Drawn(drawing).drawingData.Find(sheet)->ScaleOf(model);
    }
    void OpenDrawing(const std::string& views, const std::string& sheets = kTwoSheets) {
        SavedBox("BOX");
        WriteDrawing("d.drw.1", sheets + views);
        Play("@ open d.drw");
    }
};

TEST_F(SheetScales, SameScaleGivesViewsWithAScaleOfTheirOwnAndTheFirstSheetTheTypedOne) {
    OpenDrawing(GeneralView(1, "box.prt", 1, "0.25") + GeneralView(2, "box.prt", 1));
    Play("~ Command `SameScale`\n@ answer 2.5");
    EXPECT_EQ(ViewScale("D", 0), 2.5);
    EXPECT_TRUE(Views("D")[0]->ownScale);
    EXPECT_EQ(ViewScale("D", 1), 2.5);
    EXPECT_FALSE(Views("D")[1]->ownScale);
    EXPECT_EQ(SheetScale("D", 1, "box.prt"), 2.5);
    EXPECT_EQ(SheetScale("D", 2, "box.prt"), 0.2);
}

TEST_F(SheetScales, VxUpdateSheetScaleTakesTheScaleOfTheCurrentSheet) {
    OpenDrawing(GeneralView(1, "box.prt", 1, "0.25"));
    DrawingOf(Drawn("D")).currentSheet = 2;
    Press("VxUpdateSheetScale");
    EXPECT_EQ(ViewScale("D", 0), 0.2);
    EXPECT_EQ(SheetScale("D", 1, "box.prt"), 0.2);
}

TEST_F(SheetScales, VxUpdateMainViewScaleTakesTheScaleOfTheFirstGeneralViewWithProjections) {
    OpenDrawing(GeneralView(1, "box.prt", 1, "0.25") + GeneralView(2, "box.prt", 1, "4") +
                ProjectedView(3, 2));
    Press("VxUpdateMainViewScale");
    EXPECT_EQ(ViewScale("D", 0), 4);
    EXPECT_EQ(SheetScale("D", 1, "box.prt"), 4);
}

TEST_F(SheetScales, VxDrwScaleCheckListsTheSheetsWhoseGeneralViewsDisagree) {
    SavedBox("BOX");
    WriteDrawing("d.drw.1",
                 kTwoSheets + GeneralView(1, "box.prt", 1, "0.25") + GeneralView(2, "box.prt", 2));
    Play(
        "~ Command `VxDrwScaleCheck`\n@ expect box "
        "\"以下工程图中存在主视图比例与页面比例不符，请检查：\\n图纸'D' 第1页\"\n@ ok");
}

}  // namespace
