// The @ words about the sheets of the drawing in the window.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "simhost/host.h"
#include "simhost/model/drawing.h"
#include "simhost/trail/interpreter.h"
#include "tests/support/models.h"

namespace {

using namespace simhost;
using Lines = std::vector<std::string>;

class SheetWords : public ::testing::Test {
protected:
    // An A3 sheet at 1:2 with a view of the part a, which has 2:1 there, and an A4 sheet with a
    // format and no view.
    void SetUp() override {
        RestartHost();
        workbench::MakeModels("top: a");
        Model& part = workbench::ModelNamed("a");
        drawing_ = &TheHost().session.Create(WIDE("sheets"), PRO_MDL_DRAWING);
        Sheet first(WIDE("A3"));
        first.scale = 0.5;
        first.SetScale("a.prt", 2);
        Sheet second(WIDE("A4"));
        second.format = "a4.frm";
        drawing_->drawingData.sheets = {first, second};
        DrawingOf(*drawing_).AddGeneral(part, 1, {100, 100, 0}, 2, {});
        TheHost().session.Open(*drawing_);
    }
    static std::string Failure(const std::string& line) {
        const auto failures = RunScript(line);
        return failures.empty() ? "" : failures[0];
    }
    Model* drawing_ = nullptr;
};

TEST_F(SheetWords, SheetTurnsToASheetThatIsThere) {
    EXPECT_EQ(Failure("@ sheet 2"), "");
    EXPECT_EQ(DrawingOf(*drawing_).currentSheet, 2);
    EXPECT_EQ(Failure("@ sheet 3"), "line 1: there is no sheet \"3\"");
    EXPECT_EQ(Failure("@ sheet 0"), "line 1: there is no sheet \"0\"");
    EXPECT_EQ(Failure("@ sheet two"), "line 1: there is no sheet \"two\"");
    EXPECT_EQ(Failure("@ sheet 1 2"), "line 1: sheet takes one number");
    EXPECT_EQ(DrawingOf(*drawing_).currentSheet, 2);
}

TEST_F(SheetWords, TheScaleIsThatOfWhatTheSheetShowsFirst) {
    EXPECT_EQ(Failure("@ expect scale 1 2"), "");
    EXPECT_EQ(Failure("@ expect scale 2 1"), "");
    EXPECT_EQ(Failure("@ expect scale 1 0.5"), "line 1: the scale is 2");
    EXPECT_EQ(Failure("@ expect scale 1"), "line 1: \"\" is no scale");
}

TEST_F(SheetWords, AFormatIsExpectedByItsFile) {
    EXPECT_EQ(Failure("@ expect format 1 none"), "");
    EXPECT_EQ(Failure("@ expect format 2 a4.frm"), "");
    EXPECT_EQ(Failure("@ expect format 2 none"), "line 1: the format is a4.frm");
    EXPECT_NE(Failure("@ expect format 2"), "");
}

TEST_F(SheetWords, ShowSheetsTellsSizeScaleFormatAndViews) {
    Lines said;
    EXPECT_EQ(RunScript("@ show sheets", [&](const std::string& one) { said.push_back(one); }),
              Lines{});
    ASSERT_EQ(said.size(), 3u);
    EXPECT_NE(said[1].find("1 A3    scale 2       none                1 views, the current one"),
              std::string::npos)
        << said[1];
    EXPECT_NE(said[2].find("2 A4    scale 1       a4.frm              0 views"), std::string::npos)
        << said[2];
}

// The part is a box of 20 by 10 by 5, which the sheet shows at 2:1. Turned by 90 degrees about y it
// shows its sides of 5 and 10; what lies to the right of a view shows those of 20 and 10.
TEST_F(SheetWords, AddViewPlacesAViewOfTheDrawingsModelAndItsProjection) {
    Model& part = workbench::ModelNamed("a");
    Solid solid;
    solid.id = 10;
    solid.shape = Shape::Box;
    solid.size = {20, 10, 5};
    part.partData.solids = {solid};
    drawing_->drawingData.AddSolid("a.prt");
    EXPECT_EQ(Failure("@ add view 200 150 turn 0 90 0\n@ add view 300 140 beside 2"), "");
    Drawing& drawing = DrawingOf(*drawing_);
    ASSERT_EQ(drawing.views().size(), 3u);
    const DrawingView& turned = *drawing.views()[1];
    EXPECT_FALSE(turned.ownScale);
    EXPECT_EQ(turned.file, "a.prt");
    const auto sizeOf = [&](std::size_t number) {
        const Extents& box = drawing.OutlineOf(*drawing.views()[number]);
        return box.high - box.low;
    };
    EXPECT_NEAR(sizeOf(1).x, 10, 1e-6);
    EXPECT_NEAR(sizeOf(1).y, 20, 1e-6);
    EXPECT_NEAR(sizeOf(2).x, 40, 1e-6);
    EXPECT_EQ(drawing.views()[2]->parent, &turned);
    EXPECT_EQ(drawing.views()[2]->side, Side::Right);
    EXPECT_EQ(drawing.views()[2]->at.y, 150);
    EXPECT_TRUE(drawing_->modified);
}

TEST_F(SheetWords, AddViewTellsWhatIsWrong) {
    drawing_->drawingData.solids.clear();
    EXPECT_EQ(Failure("@ add view 1 2"), "line 1: the drawing shows no model");
    drawing_->drawingData.solids = {"gone.prt"};
    EXPECT_EQ(Failure("@ add view 1 2"), "line 1: there is no gone.prt");
    EXPECT_EQ(Failure("@ add view 1 2 beside 7"), "line 1: the sheet has no view 7");
    EXPECT_EQ(Failure("@ add view 100 100 beside 1"),
              "line 1: the place is that of the other view");
    for (const char* rest : {"", "1", "1 2 3", "1 2 turn 90", "1 2 beside", "1 2 turn 0 0 0 0"}) {
        EXPECT_EQ(Failure(std::string("@ add view ") + rest),
                  "line 1: a view is X Y, X Y turn A B C, or X Y beside VIEW")
            << rest;
    }
    EXPECT_EQ(DrawingOf(*drawing_).views().size(), 1u);
    EXPECT_EQ(Failure("@ sheet 2\n@ add view 1 2 beside 1"), "line 2: the sheet has no view 1");
}

TEST_F(SheetWords, WithoutADrawingThereIsNoSheet) {
    TheHost().session.Open(workbench::ModelNamed("a"));
    for (const char* line :
         {"@ sheet 1", "@ expect scale 1 1", "@ expect format 1 none", "@ add view 1 2"}) {
        EXPECT_EQ(Failure(line), "line 1: the current window shows no drawing") << line;
    }
}

}  // namespace
