// VxDrwScaleCheck from outside: which sheets are listed, in which order, and that nothing of the
// drawings changes.
#include <filesystem>

#include "tests/drawing/sheet_bench.h"

namespace {

using namespace simhost;
using workbench::GeneralView;
using workbench::ProjectedView;
using workbench::SheetBench;
using Names = std::vector<std::string>;

constexpr const char* kHeader = "以下工程图中存在主视图比例与页面比例不符，请检查：";
constexpr const char* kAllWell =
    "当前工作目录中工程图已检查完毕，不存在主视图比例与页面比例不符情况。";

class ScaleCheck : public SheetBench {
protected:
    // Sheets of this scale, one after the other.
    static std::string Sheets(int count, const std::string& scale = "0.5") {
        std::string text;
        for (int i = 0; i < count; ++i) {
            text += "[[sheet]]\nsize = \"A3\"\nscale = " + scale + "\n";
        }
        return text + "\n[drawing]\nprojection = \"first-angle\"\n";
    }
    // Presses the command, and closes the box with this text.
    Names Check(const std::string& text) {
        std::string quoted;
        for (const char c : text) quoted += c == '\n' ? std::string("\\n") : std::string(1, c);
        return CallsOf("~ Command `VxDrwScaleCheck`\n@ expect box \"" + quoted +
                       "\"\n@ expect caption \"岚枢工具By墨川听雨,QQ:100200300\"\n@ ok");
    }
};

TEST_F(ScaleCheck, WithoutADrawingItSaysSoAndEnds) {
    const Names calls = CallsOf(
        "~ Command `VxDrwScaleCheck`\n@ expect box \"当前工作目录下无工程图\"\n"
        "@ expect caption none\n@ ok");
    EXPECT_EQ(calls, Names{"ProFilesList"});
    EXPECT_EQ(LinesOf("ProFilesList"),
              Names{"ProFilesList(folder=null, filter=\"*.drw\", versions=1) = -4"});
    EXPECT_EQ(AllBoxes().back().flags, 0u);
}

TEST_F(ScaleCheck, ListsTheSheetsWhoseGeneralViewsDisagree) {
    SavedBox("BOX");
    WriteDrawing("d.drw.1", Sheets(3) + GeneralView(1, "box.prt", 1, "0.25") +
                                GeneralView(2, "box.prt", 2) + GeneralView(3, "box.prt", 3, "0.5") +
                                GeneralView(4, "box.prt", 3, "1"));
    Check(kHeader + std::string("\n图纸'D' 第1页\n图纸'D' 第3页"));
    EXPECT_EQ(AllBoxes().back().flags, 0x40000u);
}

TEST_F(ScaleCheck, GoesThroughTheDrawingsInTheOrderOfTheirNames) {
    SavedBox("BOX");
    for (const char* name : {"c.drw.1", "A.drw.2", "b.drw.1"}) {
        WriteDrawing(name, Sheets(1) + GeneralView(1, "box.prt", 1, "1"));
    }
    // An older version is not looked at, and would have disagreed twice.
    WriteDrawing("a.drw.1", Sheets(2) + GeneralView(1, "box.prt", 2, "1"));
    Check(kHeader + std::string("\n图纸'A' 第1页\n图纸'B' 第1页\n图纸'C' 第1页"));
}

TEST_F(ScaleCheck, ASheetIsListedOnceAndItsOtherViewsAreNotAsked) {
    SavedBox("BOX");
    WriteDrawing("d.drw.1",
                 Sheets(1) + GeneralView(1, "box.prt", 1, "2") + GeneralView(2, "box.prt", 1, "3"));
    Check(kHeader + std::string("\n图纸'D' 第1页"));
    EXPECT_EQ(LinesOf("ProDrawingViewSheetGet").size(), 1u);
}

TEST_F(ScaleCheck, SaysThatAllIsWell) {
    SavedBox("BOX");
    WriteDrawing("d.drw.1", Sheets(2) + GeneralView(1, "box.prt", 1, "0.5") + ProjectedView(2, 1));
    Check(kAllWell);
    EXPECT_EQ(AllBoxes().back().flags, 0x40000u);
}

TEST_F(ScaleCheck, ASmallerDifferenceThan1e07IsNoneAndALargerIsOneInEitherDirection) {
    SavedBox("BOX");
    WriteDrawing("a.drw.1", Sheets(1, "1") + GeneralView(1, "box.prt", 1, "1.0000000999"));
    WriteDrawing("b.drw.1", Sheets(1, "1") + GeneralView(1, "box.prt", 1, "0.9999999001"));
    WriteDrawing("c.drw.1", Sheets(1, "1") + GeneralView(1, "box.prt", 1, "1.0000001001"));
    WriteDrawing("d.drw.1", Sheets(1, "1") + GeneralView(1, "box.prt", 1, "0.9999998999"));
    Check(kHeader + std::string("\n图纸'C' 第1页\n图纸'D' 第1页"));
}

TEST_F(ScaleCheck, ADifferenceOfExactly1e07IsNone) {
    SavedBox("BOX");
    // 2e-07 less 1e-07 is 1e-07 to the last bit.
    static_assert(2e-07 - 1e-07 == 1e-07);
    WriteDrawing("a.drw.1", Sheets(1, "1e-07") + GeneralView(1, "box.prt", 1, "2e-07"));
    WriteDrawing("b.drw.1", Sheets(1, "2e-07") + GeneralView(1, "box.prt", 1, "1e-07"));
    Check(kAllWell);
}

TEST_F(ScaleCheck, AProjectionWithAnotherScaleIsNotListed) {
    SavedBox("BOX");
    // The projection is on the second sheet, whose scale is not its parent's.
    WriteDrawing("d.drw.1", Sheets(2) + GeneralView(1, "box.prt", 1, "0.5") + ProjectedView(2, 1));
    Play("@ open d.drw");
    Views("D").at(1)->sheet = 2;
    Drawn("D").drawingData.Find(2)->scale = 7;
    Check(kAllWell);
    EXPECT_EQ(LinesOf("ProDrawingViewScaleGet").size(), 1u);
}

TEST_F(ScaleCheck, TheScaleOfTheSheetIsThatOfWhatTheViewShows) {
    SavedBox("BOX");
    SavedBox("PIN");
    WriteDrawing("d.drw.1",
                 "[[sheet]]\nsize = \"A3\"\n[[sheet.model_scale]]\nmodel = \"pin.prt\"\nscale = "
                 "5\n\n[drawing]\nprojection = \"first-angle\"\n" +
                     GeneralView(1, "box.prt", 1, "1") + GeneralView(2, "pin.prt", 1, "5"));
    Check(kAllWell);
}

TEST_F(ScaleCheck, DrawingsThatAreBrokenOrWithoutViewsAreSkippedInSilence) {
    SavedBox("BOX");
    Write(WIDE("C:\\Work\\a.drw.1"), "no drawing at all");
    WriteDrawing("b.drw.1", Sheets(1));
    WriteDrawing("c.drw.1", Sheets(1) + GeneralView(1, "box.prt", 1, "1"));
    Check(kHeader + std::string("\n图纸'C' 第1页"));
    EXPECT_EQ(LinesOf("ProDrawingSheetsCount").size(), 1u);
}

TEST_F(ScaleCheck, ADrawingWhoseSheetsCannotBeCountedIsNotWalked) {
    SavedBox("BOX");
    WriteDrawing("c.drw.1", Sheets(1) + GeneralView(1, "box.prt", 1, "1"));
    WriteDrawing("d.drw.1", Sheets(1) + GeneralView(1, "box.prt", 1, "1"));
    Fail("ProDrawingSheetsCount");
    Check(kHeader + std::string("\n图纸'D' 第1页"));
    EXPECT_EQ(LinesOf("ProDrawingCurrentSheetSet"),
              Names{"ProDrawingCurrentSheetSet(drawing=d.drw, sheet=1) = 0"});
}

TEST_F(ScaleCheck, AViewWhoseSheetCannotBeReadIsOnNone) {
    SavedBox("BOX");
    WriteDrawing("d.drw.1", Sheets(1) + GeneralView(1, "box.prt", 1, "1"));
    Fail("ProDrawingViewSheetGet");
    Check(kAllWell);
    EXPECT_EQ(LinesOf("ProDrawingViewSolidGet"), Names{});
}

TEST_F(ScaleCheck, EachRunBeginsANewText) {
    SavedBox("BOX");
    WriteDrawing("d.drw.1", Sheets(1) + GeneralView(1, "box.prt", 1, "1"));
    Check(kHeader + std::string("\n图纸'D' 第1页"));
    Check(kHeader + std::string("\n图纸'D' 第1页"));
}

TEST_F(ScaleCheck, AsksForEachSheetInThisOrder) {
    SavedBox("BOX");
    WriteDrawing("d.drw.1",
                 Sheets(2) + GeneralView(1, "box.prt", 1) + GeneralView(2, "box.prt", 2));
    EXPECT_EQ(
        Check(kAllWell),
        (Names{"ProFilesList", "ProArraySizeGet", "ProArrayFree", "ProArraySizeGet",
               "ProMdlRetrieve", "ProDrawingViewsCollect", "ProArraySizeGet", "ProMdlNameGet",
               "ProDrawingSheetsCount",
               // The first sheet, with its view and one of the other sheet.
               "ProDrawingCurrentSheetSet", "ProDrawingViewSheetGet", "ProDrawingViewSolidGet",
               "ProDrawingScaleGet", "ProDrawingViewTypeGet", "ProDrawingViewScaleGet",
               "ProDrawingViewSheetGet", "ProDrawingFormatAdd",
               // The second.
               "ProDrawingCurrentSheetSet", "ProDrawingViewSheetGet", "ProDrawingViewSheetGet",
               "ProDrawingViewSolidGet", "ProDrawingScaleGet", "ProDrawingViewTypeGet",
               "ProDrawingViewScaleGet", "ProDrawingFormatAdd", "ProArrayFree", "ProArrayFree"}));
}

TEST_F(ScaleCheck, TheLeftOverCallHasTheLastModelAndNoFormatAndChangesNothing) {
    SavedBox("BOX");
    const std::string rest = Sheets(3) + GeneralView(1, "box.prt", 2);
    WriteDrawing("d.drw.1", rest);
    WriteDrawing("e.drw.1", Sheets(1) + GeneralView(1, "lost.prt", 1));
    Check(kAllWell);
    // A sheet before any view was met has no model, and neither has another drawing's first one.
    EXPECT_EQ(LinesOf("ProDrawingFormatAdd"),
              (Names{"ProDrawingFormatAdd(drawing=d.drw, sheet=1, solid=null, format=null, "
                     "formatSheet=0) = -2",
                     "ProDrawingFormatAdd(drawing=d.drw, sheet=2, solid=box.prt, format=null, "
                     "formatSheet=0) = -2",
                     "ProDrawingFormatAdd(drawing=d.drw, sheet=3, solid=box.prt, format=null, "
                     "formatSheet=0) = -2",
                     "ProDrawingFormatAdd(drawing=e.drw, sheet=1, solid=null, format=null, "
                     "formatSheet=0) = -2"}));
    EXPECT_FALSE(Drawn("D").modified);
    EXPECT_FALSE(std::filesystem::exists(host().disk.Real(WIDE("C:\\Work\\d.drw.2"))));
}

TEST_F(ScaleCheck, AScaleThatCannotBeReadIsNoDisagreement) {
    SavedBox("BOX");
    WriteDrawing("d.drw.1", Sheets(1) + GeneralView(1, "box.prt", 1, "1"));
    for (const char* operation : {"ProDrawingScaleGet", "ProDrawingViewScaleGet",
                                  "ProDrawingViewSolidGet", "ProDrawingViewTypeGet"}) {
        Fail(operation);
        Check(kAllWell);
    }
}

TEST_F(ScaleCheck, AViewWhoseModelIsGoneIsNotMeasuredByTheModelBeforeIt) {
    SavedBox("BOX");
    WriteDrawing("d.drw.1",
                 Sheets(1) + GeneralView(1, "box.prt", 1) + GeneralView(2, "lost.prt", 1, "3"));
    Check(kAllWell);
    EXPECT_EQ(LinesOf("ProDrawingScaleGet").size(), 1u);
}

}  // namespace
