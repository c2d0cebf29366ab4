// SameScale, VxUpdateSheetScale and VxUpdateMainViewScale from outside: which scale they read, and
// which scales of views and sheets they write.
#include <algorithm>

#include "tests/drawing/sheet_bench.h"

namespace {

using namespace simhost;
using workbench::GeneralView;
using workbench::ProjectedView;
using workbench::SheetBench;
using Names = std::vector<std::string>;

constexpr const char* kTwoSheets =
    "[[sheet]]\nsize = \"A3\"\nscale = 0.5\n\n[[sheet]]\nsize = \"A4\"\nscale = 0.2\n"
    "\n[drawing]\nprojection = \"first-angle\"\n";

class SheetScales : public SheetBench {
protected:
    double ViewScale(std::size_t view) { return Drawing::ScaleOf(*Views("D").at(view)); }
    double SheetScale(int sheet, const std::string& model = "box.prt") {
        return Drawn("D").drawingData.Find(sheet)->ScaleOf(model);
    }
    void OpenDrawing(const std::string& views) {
        SavedBox("BOX");
        WriteDrawing("d.drw.1", kTwoSheets + views);
        Play("@ open d.drw");
    }
    // With a view of its own scale, one of the sheet's, and a projection of the first.
    void OpenThreeViews() {
        OpenDrawing(GeneralView(1, "box.prt", 1, "0.25") + GeneralView(2, "box.prt", 1) +
                    ProjectedView(3, 1));
    }
    static int CountOf(const Names& calls, const std::string& name) {
        return int(std::count(calls.begin(), calls.end(), name));
    }
};

// --- SameScale ---

TEST_F(SheetScales, SameScaleGivesTheTypedOneToOwnScalesAndToTheFirstSheet) {
    OpenThreeViews();
    Play("~ Command `SameScale`\n@ expect message \"请输入比例（实数）： \"\n@ answer 2.5");
    EXPECT_EQ(Views("D")[0]->scale, 2.5);
    EXPECT_FALSE(Views("D")[1]->ownScale);
    EXPECT_EQ(ViewScale(1), 2.5);
    EXPECT_EQ(ViewScale(2), 2.5);
    EXPECT_EQ(SheetScale(1), 2.5);
    EXPECT_EQ(SheetScale(2), 0.2);
    EXPECT_EQ(Boxes(), Names{});
}

TEST_F(SheetScales, SameScaleAsksFirstAndWritesTheSheetOnceForEachView) {
    OpenThreeViews();
    EXPECT_EQ(
        CallsOf("~ Command `SameScale`\n@ answer 2.5"),
        (Names{"ProMessageDisplay", "ProMessageDoubleRead", "ProMdlCurrentGet",
               "ProDrawingViewsCollect", "ProArraySizeGet",
               // The one with its own scale, the one without, the projection.
               "ProDrawingViewScaleIsUserdefined", "ProDrawingViewScaleSet",
               "ProDrawingViewSolidGet", "ProDrawingScaleSet", "ProDrawingViewScaleIsUserdefined",
               "ProDrawingViewSolidGet", "ProDrawingScaleSet", "ProDrawingViewScaleIsUserdefined",
               "ProDrawingViewSolidGet", "ProDrawingScaleSet", "ProDwgSheetRegenerate",
               "ProArrayFree"}));
    EXPECT_EQ(LinesOf("ProMessageDoubleRead"),
              Names{"ProMessageDoubleRead(range=\"any\", value=2.5) = 0"});
    EXPECT_EQ(LinesOf("ProDrawingScaleSet").at(0),
              "ProDrawingScaleSet(drawing=d.drw, solid=box.prt, sheet=1, scale=2.5) = 0");
}

TEST_F(SheetScales, SameScaleWritesTheFirstSheetEvenWhileAnotherIsCurrent) {
    OpenDrawing(GeneralView(1, "box.prt", 2));
    DrawingOf(Drawn("D")).currentSheet = 2;
    CallsOf("~ Command `SameScale`\n@ answer 4");
    EXPECT_EQ(SheetScale(1), 4);
    EXPECT_EQ(SheetScale(2), 0.2);
    EXPECT_EQ(LinesOf("ProDwgSheetRegenerate"),
              Names{"ProDwgSheetRegenerate(drawing=d.drw, sheet=1) = 0"});
}

TEST_F(SheetScales, SameScaleChangesOnlyTheSheetWhereNoViewHasAScaleOfItsOwn) {
    OpenDrawing(GeneralView(1, "box.prt", 1));
    const Names calls = CallsOf("~ Command `SameScale`\n@ answer 2");
    EXPECT_EQ(CountOf(calls, "ProDrawingViewScaleSet"), 0);
    EXPECT_FALSE(Views("D")[0]->ownScale);
    EXPECT_EQ(SheetScale(1), 2);
}

TEST_F(SheetScales, SameScaleGivesEachModelOfTheSheetTheScale) {
    SavedBox("PIN");
    OpenDrawing(GeneralView(1, "box.prt", 1) + GeneralView(2, "pin.prt", 1));
    Play("~ Command `SameScale`\n@ answer 2");
    EXPECT_EQ(SheetScale(1, "box.prt"), 2);
    EXPECT_EQ(SheetScale(1, "pin.prt"), 2);
    // A model that the drawing gets later has the sheet's.
    EXPECT_EQ(SheetScale(1, "lid.prt"), 0.5);
}

TEST_F(SheetScales, TheViewsAreAsLargeAsTheirScaleSays) {
    OpenDrawing(GeneralView(1, "box.prt", 1));
    // 100 x 60 at 0.5 about (100, 100), and twice as large.
    EXPECT_EQ(OutlineText(*Views("D")[0]), "75 85 125 115");
    Play("~ Command `SameScale`\n@ answer 1");
    EXPECT_EQ(OutlineText(*Views("D")[0]), "50 70 150 130");
}

TEST_F(SheetScales, LeavingThePromptOrALineWithoutANumberChangesNothing) {
    OpenThreeViews();
    for (const char* answer : {"@ quit", "@ answer"}) {
        EXPECT_EQ(CallsOf(std::string("~ Command `SameScale`\n") + answer),
                  (Names{"ProMessageDisplay", "ProMessageDoubleRead"}));
    }
    EXPECT_EQ(SheetScale(1), 0.5);
}

TEST_F(SheetScales, WhatIsNoNumberIsAskedForAgain) {
    OpenThreeViews();
    Play("~ Command `SameScale`\n@ answer big\n@ answer 2,5\n@ answer  3 ");
    EXPECT_EQ(SheetScale(1), 3);
}

TEST_F(SheetScales, AScaleOfNothingOrLessIsRefusedByTheHostAndChangesNothing) {
    OpenThreeViews();
    for (const char* answer : {"0", "-1"}) {
        CallsOf(std::string("~ Command `SameScale`\n@ answer ") + answer);
        EXPECT_NE(LinesOf("ProDrawingViewScaleSet").at(0).find(" = -2"), std::string::npos);
        EXPECT_NE(LinesOf("ProDrawingScaleSet").at(0).find(" = -2"), std::string::npos);
    }
    EXPECT_EQ(SheetScale(1), 0.5);
    EXPECT_EQ(ViewScale(0), 0.25);
}

TEST_F(SheetScales, SameScaleSaysThatThereIsNoView) {
    OpenDrawing("");
    Play(
        "~ Command `SameScale`\n@ answer 2\n@ expect box \"\\t当前无视图\\t\"\n"
        "@ expect caption \"岚枢工具By墨川听雨,QQ:100200300\"\n@ ok");
    EXPECT_EQ(AllBoxes().back().flags, 0x40000u);
    EXPECT_EQ(SheetScale(1), 0.5);
}

TEST_F(SheetScales, SameScaleWithoutACurrentDrawingSaysTheSame) {
    OpenThreeViews();
    Fail("ProMdlCurrentGet");
    const Names calls =
        CallsOf("~ Command `SameScale`\n@ answer 2\n@ expect box \"\\t当前无视图\\t\"\n@ ok");
    EXPECT_EQ(CountOf(calls, "ProDrawingViewsCollect"), 0);
    EXPECT_EQ(SheetScale(1), 0.5);
}

TEST_F(SheetScales, AViewWhoseModelIsGoneKeepsTheOthersFromNothing) {
    OpenDrawing(GeneralView(1, "lost.prt", 1, "0.25") + GeneralView(2, "box.prt", 1, "0.25"));
    CallsOf("~ Command `SameScale`\n@ answer 2");
    EXPECT_EQ(LinesOf("ProDrawingScaleSet").size(), 1u);
    EXPECT_EQ(Views("D")[0]->scale, 2);
    EXPECT_EQ(Views("D")[1]->scale, 2);
}

TEST_F(SheetScales, AViewThatDoesNotTellWhoseItsScaleIsKeepsIt) {
    OpenDrawing(GeneralView(1, "box.prt", 1, "0.25") + GeneralView(2, "box.prt", 1, "0.25"));
    Fail("ProDrawingViewScaleIsUserdefined");
    CallsOf("~ Command `SameScale`\n@ answer 2");
    EXPECT_EQ(Views("D")[0]->scale, 0.25);
    EXPECT_EQ(Views("D")[1]->scale, 2);
    EXPECT_EQ(SheetScale(1), 2);
}

// --- VxUpdateSheetScale ---

TEST_F(SheetScales, VxUpdateSheetScaleTakesTheScaleOfTheCurrentSheet) {
    OpenThreeViews();
    DrawingOf(Drawn("D")).currentSheet = 2;
    Press("VxUpdateSheetScale");
    EXPECT_EQ(ViewScale(0), 0.2);
    EXPECT_EQ(ViewScale(1), 0.2);
    EXPECT_EQ(SheetScale(1), 0.2);
}

TEST_F(SheetScales, VxUpdateSheetScaleReadsTheSheetThenTheViewsThenTheFirstModelsScale) {
    OpenDrawing(GeneralView(1, "box.prt", 1, "0.25"));
    DrawingOf(Drawn("D")).currentSheet = 2;
    EXPECT_EQ(CallsOf("~ Command `VxUpdateSheetScale`"),
              (Names{"ProMdlCurrentGet", "ProDrawingCurrentSheetGet", "ProDrawingViewsCollect",
                     "ProArraySizeGet", "ProDrawingViewSolidGet", "ProDrawingScaleGet",
                     "ProDrawingViewScaleIsUserdefined", "ProDrawingViewScaleSet",
                     "ProDrawingViewSolidGet", "ProDrawingScaleSet", "ProDwgSheetRegenerate",
                     "ProArrayFree"}));
    EXPECT_EQ(LinesOf("ProDrawingScaleGet"),
              Names{"ProDrawingScaleGet(drawing=d.drw, solid=box.prt, sheet=2, scale=0.2) = 0"});
    EXPECT_EQ(LinesOf("ProDrawingScaleSet"),
              Names{"ProDrawingScaleSet(drawing=d.drw, solid=box.prt, sheet=1, scale=0.2) = 0"});
    EXPECT_EQ(LinesOf("ProDwgSheetRegenerate"),
              Names{"ProDwgSheetRegenerate(drawing=d.drw, sheet=2) = 0"});
}

TEST_F(SheetScales, VxUpdateSheetScaleTakesTheScaleThatTheFirstViewsModelHas) {
    SavedBox("PIN");
    OpenDrawing(GeneralView(1, "pin.prt", 1) + GeneralView(2, "box.prt", 1, "3"));
    Drawn("D").drawingData.Find(1)->SetScale("pin.prt", 5);
    Press("VxUpdateSheetScale");
    EXPECT_EQ(SheetScale(1, "box.prt"), 5);
    EXPECT_EQ(Views("D")[1]->scale, 5);
}

TEST_F(SheetScales, VxUpdateSheetScaleDoesNothingWhereTheScaleCannotBeRead) {
    OpenThreeViews();
    for (const char* operation :
         {"ProDrawingScaleGet", "ProDrawingViewSolidGet", "ProDrawingCurrentSheetGet"}) {
        Fail(operation);
        const Names calls = CallsOf("~ Command `VxUpdateSheetScale`");
        EXPECT_EQ(CountOf(calls, "ProDrawingScaleSet"), 0) << operation;
        EXPECT_EQ(CountOf(calls, "ProDrawingViewScaleSet"), 0) << operation;
        EXPECT_EQ(CountOf(calls, "ProDwgSheetRegenerate"), 0) << operation;
    }
    EXPECT_EQ(Boxes(), Names{});
}

TEST_F(SheetScales, TheTwoUpdatesEndWithoutAViewAndWithoutAModelInSilence) {
    OpenDrawing("");
    EXPECT_EQ(CallsOf("~ Command `VxUpdateSheetScale`"),
              (Names{"ProMdlCurrentGet", "ProDrawingCurrentSheetGet", "ProDrawingViewsCollect"}));
    EXPECT_EQ(CallsOf("~ Command `VxUpdateMainViewScale`"),
              (Names{"ProMdlCurrentGet", "ProDrawingCurrentSheetGet", "ProDrawingViewsCollect"}));
    for (const char* command : {"VxUpdateSheetScale", "VxUpdateMainViewScale"}) {
        Fail("ProMdlCurrentGet");
        EXPECT_EQ(CallsOf(std::string("~ Command `") + command + "`"), Names{"ProMdlCurrentGet"});
    }
    EXPECT_EQ(Boxes(), Names{});
}

// --- VxUpdateMainViewScale ---

TEST_F(SheetScales, TheMainViewIsTheFirstGeneralOneFromWhichOthersAreProjected) {
    OpenDrawing(GeneralView(1, "box.prt", 1, "0.25") + GeneralView(2, "box.prt", 1, "4") +
                ProjectedView(3, 2) + GeneralView(4, "box.prt", 1, "8") + ProjectedView(5, 4));
    Press("VxUpdateMainViewScale");
    EXPECT_EQ(Views("D")[0]->scale, 4);
    EXPECT_EQ(Views("D")[3]->scale, 4);
    EXPECT_EQ(SheetScale(1), 4);
}

TEST_F(SheetScales, VxUpdateMainViewScaleAsksEachGeneralViewForItsChildren) {
    OpenDrawing(GeneralView(1, "box.prt", 1, "0.25") + GeneralView(2, "box.prt", 2, "4") +
                ProjectedView(3, 2));
    DrawingOf(Drawn("D")).currentSheet = 2;
    const Names calls = CallsOf("~ Command `VxUpdateMainViewScale`");
    EXPECT_EQ(Names(calls.begin(), calls.begin() + 10),
              (Names{"ProMdlCurrentGet", "ProDrawingCurrentSheetGet", "ProDrawingViewsCollect",
                     "ProArraySizeGet", "ProDrawingViewTypeGet", "ProDrawingViewChildrenGet",
                     "ProDrawingViewTypeGet", "ProDrawingViewChildrenGet", "ProArrayFree",
                     "ProDrawingViewScaleGet"}));
    // The last view, which is a projection, and the end.
    EXPECT_EQ(Names(calls.end() - 5, calls.end()),
              (Names{"ProDrawingViewScaleIsUserdefined", "ProDrawingViewSolidGet",
                     "ProDrawingScaleSet", "ProDwgSheetRegenerate", "ProArrayFree"}));
    EXPECT_EQ(LinesOf("ProDrawingViewScaleGet").size(), 1u);
    EXPECT_EQ(LinesOf("ProDrawingScaleSet").at(0),
              "ProDrawingScaleSet(drawing=d.drw, solid=box.prt, sheet=1, scale=4) = 0");
    EXPECT_EQ(LinesOf("ProDwgSheetRegenerate"),
              Names{"ProDwgSheetRegenerate(drawing=d.drw, sheet=2) = 0"});
}

TEST_F(SheetScales, WithoutAMainViewTheFirstViewsScaleIsTaken) {
    OpenDrawing(GeneralView(1, "box.prt", 1, "0.25") + GeneralView(2, "box.prt", 1, "4"));
    Press("VxUpdateMainViewScale");
    EXPECT_EQ(SheetScale(1), 0.25);
    EXPECT_EQ(Views("D")[1]->scale, 0.25);
}

TEST_F(SheetScales, AProjectionIsNoMainViewThoughOthersHangOnIt) {
    OpenDrawing(GeneralView(1, "box.prt", 1, "0.25") + GeneralView(2, "box.prt", 1, "4") +
                ProjectedView(3, 2) + ProjectedView(4, 3));
    // The children of the second view cannot be read, so no view is the main one.
    Fail("ProDrawingViewChildrenGet", {.n = 2});
    const Names calls = CallsOf("~ Command `VxUpdateMainViewScale`");
    EXPECT_EQ(CountOf(calls, "ProDrawingViewChildrenGet"), 2);
    EXPECT_EQ(SheetScale(1), 0.25);
}

TEST_F(SheetScales, AViewWhoseTypeCannotBeReadIsNoMainView) {
    OpenDrawing(GeneralView(1, "box.prt", 1, "0.25") + GeneralView(2, "box.prt", 1, "4") +
                ProjectedView(3, 2));
    Fail("ProDrawingViewTypeGet", {.n = 2});
    Press("VxUpdateMainViewScale");
    EXPECT_EQ(SheetScale(1), 0.25);
}

TEST_F(SheetScales, WithoutACurrentSheetVxUpdateMainViewScaleRegeneratesNone) {
    OpenDrawing(GeneralView(1, "box.prt", 1, "4"));
    Fail("ProDrawingCurrentSheetGet");
    CallsOf("~ Command `VxUpdateMainViewScale`");
    EXPECT_EQ(SheetScale(1), 4) << "the scales are the main view's all the same";
    EXPECT_EQ(LinesOf("ProDwgSheetRegenerate"),
              Names{"ProDwgSheetRegenerate(drawing=d.drw, sheet=0) = -2"});
}

TEST_F(SheetScales, AMainViewWhoseScaleCannotBeReadLeavesItToTheFirstView) {
    OpenDrawing(GeneralView(1, "box.prt", 1, "0.25") + GeneralView(2, "box.prt", 1, "4") +
                ProjectedView(3, 2));
    Fail("ProDrawingViewScaleGet");
    Press("VxUpdateMainViewScale");
    EXPECT_EQ(SheetScale(1), 0.25);
}

}  // namespace
