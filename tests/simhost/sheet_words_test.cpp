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

TEST_F(SheetWords, WithoutADrawingThereIsNoSheet) {
    TheHost().session.Open(workbench::ModelNamed("a"));
    for (const char* line : {"@ sheet 1", "@ expect scale 1 1", "@ expect format 1 none"}) {
        EXPECT_EQ(Failure(line), "line 1: the current window shows no drawing") << line;
    }
}

}  // namespace
