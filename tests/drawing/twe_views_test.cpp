// TweViews from outside: how the views of a drawing are placed, and what they look like.
//
// The box of most tests is 100 wide, 60 high and 40 deep. Its main view has its middle at
// (200, 600), so its outline is 150..250 by 570..630. The template's rule is first angle.
#include <fmt/format.h>

#include <string_view>

#include "simhost/model/screen_view.h"
#include "simhost/system/windows.h"
#include "tests/drawing/drawing_bench.h"

namespace {

using namespace simhost;
using workbench::DrawingBench;

class TwelveViews : public DrawingBench {
protected:
    void SetUp() override {
        DrawingBench::SetUp();
        box_ = &BoxPart("BOX", 100, 60, 40);
        Open(*box_);
    }

    std::vector<std::string> Outlines(const std::string& drawing) {
        std::vector<std::string> texts;
        for (DrawingView* view : Views(drawing)) texts.push_back(OutlineText(*view));
        return texts;
    }

    std::string Styles(const std::string& drawing) {
        std::string text;
        for (const DrawingView* view : Views(drawing)) {
            text += fmt::format("{}{}", text.empty() ? "" : " ", int(view->display.style));
        }
        return text;
    }

    Model* box_ = nullptr;
};

// below:  40 high, 50 under 570          520 .. 480
// above:  40 high, 50 over 630           680 .. 720
// left:   40 wide, 50 left of 150        60 .. 100
// right:  40 wide, 50 right of 250       300 .. 340
// rear:   100 wide, 50 right of 340      390 .. 490
// isometric, turned by -45 and 35 degrees: 140 * cos 45 = 98.995 wide and 60 * cos 35 + 140 *
// sin 45 * sin 35 = 105.930 high. Made around (250, 480), it reaches to 299.497 and 532.965; it is
// moved by (299.4975 - 150) / 2 + 50 = 124.7487 and -(532.9651 - 480) / 2 - 50 = -76.4826, which
// brings its middle to (374.7487, 403.5174).
const std::vector<std::string> kFirstSet = {"150 570 250 630",
                                            "150 480 250 520",
                                            "150 680 250 720",
                                            "60 570 100 630",
                                            "300 570 340 630",
                                            "390 570 490 630",
                                            "325.251 350.552 424.246 456.483"};

TEST_F(TwelveViews, SixViewsAndAnIsometricOneStandFiftyApart) {
    MakeViews({"main-h", "six-nohidden"});
    EXPECT_EQ(Outlines("BOX-12"), kFirstSet);
}

TEST_F(TwelveViews, EachProjectionHangsOnItsParentOnItsSide) {
    MakeViews({"main-h", "six-hidden"});
    const auto views = Views("BOX-12");
    ASSERT_EQ(views.size(), 7u);
    const Side sides[] = {Side::None,  Side::Below, Side::Above, Side::Left,
                          Side::Right, Side::Right, Side::None};
    const DrawingView* parents[] = {nullptr,  views[0], views[0], views[0],
                                    views[0], views[4], nullptr};
    for (std::size_t i = 0; i < 7; ++i) {
        EXPECT_EQ(views[i]->side, sides[i]) << i;
        EXPECT_EQ(views[i]->parent, parents[i]) << i;
        EXPECT_EQ(views[i]->sheet, 1) << i;
        EXPECT_EQ(ModelOf(*views[i]), box_) << i;
    }
    EXPECT_EQ(views[0]->scale, 1.0);
}

TEST_F(TwelveViews, ByFirstAngleEachSideShowsTheOppositeSide) {
    MakeViews({"main-h", "six-hidden"});
    const auto views = Views("BOX-12");
    ASSERT_EQ(views.size(), 7u);
    const Drawing& drawing = DrawingOf(*FindDrawing("BOX-12"));
    const auto axes = [&](std::size_t i) { return AxesText(drawing.OrientationOf(*views[i])); };
    // Rows: where x, y and z of the box point (right, up, towards the viewer).
    EXPECT_EQ(axes(0), "100 010 001");
    EXPECT_EQ(axes(1), "100 001 0-10");   // below: from above, y comes towards the viewer
    EXPECT_EQ(axes(2), "100 00-1 010");   // above: from below, z points up
    EXPECT_EQ(axes(3), "001 010 -100");   // left: from the right, x comes towards the viewer
    EXPECT_EQ(axes(4), "00-1 010 100");   // right: from the left
    EXPECT_EQ(axes(5), "-100 010 00-1");  // rear
}

TEST_F(TwelveViews, TheSecondSetStandsTwoHundredBeyondTheFirst) {
    MakeViews({"main-h", "twelve"});
    const auto outlines = Outlines("BOX-12");
    ASSERT_EQ(outlines.size(), 14u);
    EXPECT_EQ(std::vector<std::string>(outlines.begin(), outlines.begin() + 7), kFirstSet);
    // The rear view ends at 490, the isometric one at 424.246. The second main view is at
    // 50 + 490 + 40 + 200 = 780, so 580 to the right of the first, and all others with it.
    const std::vector<std::string> second = {"730 570 830 630",
                                             "730 480 830 520",
                                             "730 680 830 720",
                                             "640 570 680 630",
                                             "880 570 920 630",
                                             "970 570 1070 630",
                                             "905.251 350.552 1004.246 456.483"};
    EXPECT_EQ(std::vector<std::string>(outlines.begin() + 7, outlines.end()), second);
}

TEST_F(TwelveViews, TheSecondSetKeepsAwayFromAnIsometricViewThatReachesFurther) {
    // A bar 3000 x 20 x 10: main -1300..1700, the rear view ends at 1700 + 50 + 10 + 50 + 3000 =
    // 4810. The isometric view is 3010 * cos 45 = 2128.391 wide, made around 1700 and moved by
    // (1700 + 1064.196 + 1300) / 2 + 50 = 2082.098: it ends at 4846.294, further out.
    Open(BoxPart("BAR", 3000, 20, 10));
    MakeViews({"main-h", "twelve"});
    const auto views = Views("BAR-12");
    ASSERT_EQ(views.size(), 14u);
    Drawing& drawing = DrawingOf(*FindDrawing("BAR-12"));
    EXPECT_NEAR(drawing.OutlineOf(*views[5]).high.x, 4810, 1e-9);
    EXPECT_NEAR(drawing.OutlineOf(*views[6]).high.x, 4846.294, 1e-3);
    // Half a main view, that end, a left view of 10 and 200.
    EXPECT_NEAR(views[7]->at.x, 1500 + 4846.294 + 10 + 200, 1e-3);
    EXPECT_NEAR(views[7]->at.y, 600, 1e-9);
}

TEST_F(TwelveViews, HiddenLinesAreShownOrLeftOutAsChosen) {
    MakeViews({"main-h", "six-hidden"});
    EXPECT_EQ(Styles("BOX-12"), "2 2 2 2 2 2 2");
    Open(BoxPart("SECOND", 100, 60, 40));
    MakeViews({"main-h", "six-nohidden"});
    EXPECT_EQ(Styles("SECOND-12"), "3 3 3 3 3 3 3");
    Open(BoxPart("THIRD", 100, 60, 40));
    MakeViews({"main-h", "twelve"});
    EXPECT_EQ(Styles("THIRD-12"), "3 3 3 3 3 3 3 2 2 2 2 2 2 2");
    for (const DrawingView* view : Views("THIRD-12")) {
        EXPECT_EQ(view->display.tangent_edge_display, 15);
    }
}

TEST_F(TwelveViews, WithoutAChoiceOfViewsOnlyTheIsometricOneHasAStyle) {
    Fail("ProUIRadiogroupSelectednamesGet", {.forGood = true});
    MakeViews();
    EXPECT_EQ(Styles("BOX-12"), "0 0 0 0 0 0 3");
}

// --- The long side of the main view ---

TEST_F(TwelveViews, UprightTurnsALyingMainView) {
    MakeViews({"main-v", "six-hidden"});
    ASSERT_EQ(Views("BOX-12").size(), 7u);
    EXPECT_EQ(Outlines("BOX-12")[0], "170 550 230 650");
    // Turned to the left: x of the box points up.
    EXPECT_EQ(AxesText(Views("BOX-12")[0]->orientation), "010 -100 001");
    // The view below is as wide as the turned one: 60, and 40 high.
    EXPECT_EQ(Outlines("BOX-12")[1], "170 460 230 500");
}

TEST_F(TwelveViews, AcrossLeavesALyingMainViewAndTurnsAStandingOne) {
    MakeViews({"main-h", "six-hidden"});
    EXPECT_EQ(AxesText(Views("BOX-12")[0]->orientation), "100 010 001");
    // 10.1 and 10.9 count as equal, so the box is on its short side; across turns it.
    Open(BoxPart("NEARLY", 10.1, 10.9, 5));
    MakeViews({"main-h", "six-hidden"});
    EXPECT_EQ(AxesText(Views("NEARLY-12")[0]->orientation), "010 -100 001");
}

TEST_F(TwelveViews, ACubeIsTurnedForUprightOnly) {
    Open(BoxPart("CUBE", 50, 50, 50));
    MakeViews({"main-v", "six-hidden"});
    EXPECT_EQ(AxesText(Views("CUBE-12")[0]->orientation), "010 -100 001");
    Open(BoxPart("CUBE2", 50, 50, 50));
    MakeViews({"main-h", "six-hidden"});
    EXPECT_EQ(AxesText(Views("CUBE2-12")[0]->orientation), "100 010 001");
}

TEST_F(TwelveViews, ADifferenceBelowAThousandthIsNone) {
    Open(BoxPart("LOW", 50, 50.0005, 50));
    MakeViews({"main-h", "six-hidden"});
    EXPECT_EQ(AxesText(Views("LOW-12")[0]->orientation), "100 010 001");
    Open(BoxPart("HIGH", 50, 50.002, 50));
    MakeViews({"main-h", "six-hidden"});
    EXPECT_EQ(AxesText(Views("HIGH-12")[0]->orientation), "010 -100 001");
}

// --- Which side is the main view ---

TEST_F(TwelveViews, TheModelIsLaidFlatWithItsLongestSideAcross) {
    // Deep, high, wide: 100 must lie across, 60 up, 40 towards the viewer.
    const double sizes[][3] = {
        {100, 40, 60}, {40, 60, 100}, {60, 40, 100}, {40, 100, 60}, {60, 100, 40}};
    int number = 0;
    for (const auto& size : sizes) {
        const std::string name = fmt::format("LAID{}", ++number);
        Open(BoxPart(name, size[0], size[1], size[2]));
        MakeViews({"main-h", "six-nohidden"});
        EXPECT_EQ(Outlines(name + "-12"), kFirstSet) << name;
    }
}

TEST_F(TwelveViews, ExtentsThatDifferByLessThanOneUnitCountAsEqual) {
    Open(BoxPart("NEARLY", 10.1, 10.9, 5));
    MakeViews({"main-v", "six-hidden"});
    EXPECT_EQ(AxesText(Views("NEARLY-12")[0]->orientation), "100 010 001");
}

TEST_F(TwelveViews, TheScreenIsAsItWasAfterwards) {
    Open(BoxPart("DEEP", 40, 60, 100));
    Model& deep = *host().session.CurrentModel();
    ProMatrix before, after;
    std::copy(&ScreenOf(deep).matrix[0][0], &ScreenOf(deep).matrix[0][0] + 16, &before[0][0]);
    MakeViews({"main-h", "six-hidden"});
    std::copy(&ScreenOf(deep).matrix[0][0], &ScreenOf(deep).matrix[0][0] + 16, &after[0][0]);
    EXPECT_TRUE(std::equal(&before[0][0], &before[0][0] + 16, &after[0][0]));
}

TEST_F(TwelveViews, WithTheSettingTheScreenSaysHowTheMainViewIsTurned) {
    TextFolderSetting("TweViewsUseAutoMainView", " 1 ");
    // The isometric screen snaps to x towards the viewer, y to the right, z up: see SnapToAxes.
    MakeViews({"main-h", "six-hidden"});
    ASSERT_EQ(Views("BOX-12").size(), 7u);
    EXPECT_EQ(AxesText(Views("BOX-12")[0]->orientation), "001 100 010");
    EXPECT_EQ(OutlineText(*Views("BOX-12")[0]), "170 580 230 620");
    EXPECT_EQ(ScreenText(*box_), "001 100 010");
}

TEST_F(TwelveViews, TheSettingIsReadBelowTheTextFolderAndOnlyOneCounts) {
    Setting("TweViewsUseAutoMainView", "1");  // beside the module: not looked at
    int number = 0;
    for (const char* value : {"0", "", "11", "on"}) {
        TextFolderSetting("TweViewsUseAutoMainView", value);
        const std::string name = fmt::format("BOX{}", ++number);
        Open(BoxPart(name, 100, 60, 40));
        MakeViews({"main-h", "six-hidden"});
        EXPECT_EQ(AxesText(Views(name + "-12")[0]->orientation), "100 010 001") << value;
    }
}

// --- The order of the calls ---

TEST_F(TwelveViews, ViewsAreMadeMeasuredMovedAndRegeneratedInOrder) {
    host().journal.Start();
    MakeViews({"main-v", "six-hidden"});
    host().journal.Stop();
    std::vector<std::string> calls;
    for (const std::string& name : host().journal.Names()) {
        if (name.rfind("ProDrawing", 0) == 0) calls.push_back(name.substr(10));
    }
    std::vector<std::string> expected = {
        "FromTmpltCreate", "GeneralviewCreate", "ViewOutlineGet", "ViewOrientationFromAngleSet",
        "ViewRegenerate",  "ViewTransformGet",  "ViewOutlineGet"};
    for (const char* role : {"below", "above", "left", "right", "rear"}) {
        for (const char* name :
             {"ProjectedviewCreate", "ViewOutlineGet", "ViewMove", "ViewRegenerate"}) {
            expected.emplace_back(name);
        }
        // Nothing is measured from the view above.
        if (std::string_view(role) != "above") expected.emplace_back("ViewOutlineGet");
    }
    for (const char* name :
         {"GeneralviewCreate", "ViewOrientationFromAngleSet", "ViewRegenerate",
          "ViewOrientationFromAngleSet", "ViewRegenerate", "ViewOutlineGet", "ViewDisplaySet",
          "ViewMove", "ViewRegenerate", "ViewOutlineGet", "ViewsCollect"}) {
        expected.emplace_back(name);
    }
    expected.insert(expected.end(), 7, "ViewDisplaySet");
    EXPECT_EQ(calls, expected);
}

// --- After it ---

TEST_F(TwelveViews, TheDrawingIsShownAndTheWorkingFolderIsTheOldOne) {
    MakeViews({"main-h", "six-hidden"});
    EXPECT_EQ(host().session.CurrentModel(), FindDrawing("BOX-12"));
    EXPECT_EQ(host().session.workingDirectory, WIDE("C:\\Work"));
    EXPECT_TRUE(host().dialogs.Existing().empty());
}

TEST_F(TwelveViews, WithTheExportAFileLiesOnTheDesktop) {
    MakeViews({"main-h", "six-hidden", true},
              "@ expect box \"已导出到桌面\"\n"
              "@ expect caption \"岚枢工具By墨川听雨,QQ:100200300\"\n@ ok");
    EXPECT_EQ(AllBoxes().back().flags, 0x40000u);
    bool found = false;
    const std::string text = Read(TheWindows().Desktop() + WIDE("\\BOX-12.dwg"), &found);
    EXPECT_TRUE(found);
    EXPECT_NE(text.find("ANSI_936"), std::string::npos);
}

TEST_F(TwelveViews, TheBoxOfTheExportComesEvenIfItFailed) {
    Fail("Pro2dExport");
    MakeViews({"main-h", "six-hidden", true}, "@ expect box \"已导出到桌面\"\n@ ok");
    bool found = true;
    Read(TheWindows().Desktop() + WIDE("\\BOX-12.dwg"), &found);
    EXPECT_FALSE(found);
}

TEST_F(TwelveViews, WithoutTheExportNothingIsSaid) {
    MakeViews({"main-h", "six-hidden"});
    EXPECT_TRUE(Boxes().empty());
}

}  // namespace
