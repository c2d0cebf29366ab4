// The @ word that turns the model on the screen: what commands, boxes and pictures go by.
#include <gtest/gtest.h>

#include <array>
#include <string>

#include "hostapi/host/view.h"
#include "simhost/host.h"
#include "simhost/model/screen_view.h"
#include "simhost/model/units.h"
#include "simhost/trail/interpreter.h"
#include "tests/support/models.h"

namespace {

using namespace simhost;

class ViewWords : public ::testing::Test {
protected:
    // A box of 10 x 20 x 30 with a corner at the origin.
    void SetUp() override {
        RestartHost();
        part_ = &workbench::MakeModels("plate");
        TheHost().session.Open(*part_);
    }
    static std::string Failure(const std::string& line) {
        const auto failures = RunScript(line);
        return failures.empty() ? "" : failures[0];
    }
    // Where a point of the model is on the screen.
    static std::array<double, 2> OnScreen(Model& model, Vec3 point) {
        const ProMatrix& m = ScreenOf(model).matrix;
        const auto along = [&](std::size_t i) {
            return point.x * m[0][i] + point.y * m[1][i] + point.z * m[2][i] + m[3][i];
        };
        return {along(0), along(1)};
    }
    using Place = std::array<double, 2>;
    Model* part_ = nullptr;
};

TEST_F(ViewWords, TurnShowsTheModelFromTheFrontAsLargeAsItFits) {
    EXPECT_EQ(Failure("@ turn -90 0 0"), "");
    // 30 mm high on nine tenths of 800: 24 to a mm, and 10 mm wide around the middle.
    EXPECT_EQ(OnScreen(*part_, {0, 0, 0}), (Place{500 - 5 * 24.0, 400 - 15 * 24.0}));
    EXPECT_EQ(OnScreen(*part_, {10, 0, 30}), (Place{500 + 5 * 24.0, 400 + 15 * 24.0}));
    EXPECT_EQ(OnScreen(*part_, {10, 20, 30}), OnScreen(*part_, {10, 0, 30}));
}

TEST_F(ViewWords, TurnsFollowEachOtherAboutTheScreensAxes) {
    EXPECT_EQ(Failure("@ turn 90 0 90 scale 2 at 100 50"), "");
    // About the axis to the right y comes to the viewer and z goes down; about the one to the
    // viewer x then goes up and what was down goes to the right.
    EXPECT_EQ(OnScreen(*part_, {0, 0, 0}), (Place{100, 50}));
    EXPECT_EQ(OnScreen(*part_, {10, 0, 0}), (Place{100, 70}));
    EXPECT_EQ(OnScreen(*part_, {0, 20, 0}), (Place{100, 50}));
    EXPECT_EQ(OnScreen(*part_, {0, 0, 30}), (Place{160, 50}));
}

TEST_F(ViewWords, TheScaleIsThatOfAMmWhateverTheModelsUnit) {
    constexpr std::size_t kInches = 4;
    part_->units.principal = kInches;
    ASSERT_EQ(LengthUnit(*part_), 25.4);
    EXPECT_EQ(Failure("@ turn 0 0 0 scale 2 at 0 0"), "");
    EXPECT_DOUBLE_EQ(OnScreen(*part_, {10, 0, 0})[0], 508);
}

TEST_F(ViewWords, CommandsSeeTheTurnedView) {
    EXPECT_EQ(Failure("@ turn 0 0 90 scale 3 at 7 8"), "");
    ProMatrix matrix = {};
    ASSERT_EQ(ProViewMatrixGet(nullptr, nullptr, matrix), PRO_TK_NO_ERROR);
    const double expected[4][4] = {{0, 3, 0, 0}, {-3, 0, 0, 0}, {0, 0, 3, 0}, {7, 8, 0, 1}};
    for (std::size_t row = 0; row < 4; ++row) {
        for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(matrix[row][i], expected[row][i]) << row;
    }
}

TEST_F(ViewWords, OfAManufacturingModelItsAssemblyIsTurned) {
    Model& mill = workbench::MakeModels("mill.mfg: top(plate)");
    TheHost().session.Open(mill);
    EXPECT_EQ(Failure("@ turn 0 0 0 scale 3 at 7 8"), "");
    EXPECT_EQ(OnScreen(workbench::ModelNamed("top.asm"), {0, 0, 0}), (Place{7, 8}));
    ProMatrix matrix = {};
    ASSERT_EQ(ProViewMatrixGet(nullptr, nullptr, matrix), PRO_TK_NO_ERROR);
    EXPECT_EQ(matrix[0][0], 3);
    matrix[3][0] = 20;
    ASSERT_EQ(ProViewMatrixSet(mill.handle, nullptr, matrix), PRO_TK_NO_ERROR);
    EXPECT_EQ(OnScreen(workbench::ModelNamed("top.asm"), {0, 0, 0}), (Place{20, 8}));
}

TEST_F(ViewWords, ATurnThatIsNoneFailsAndTheViewStays) {
    EXPECT_EQ(Failure("@ turn 0 0 0 scale 3 at 7 8"), "");
    const char* const angles =
        "line 1: turn takes three angles in degrees, such as -90 0 0 for the front";
    for (const char* line : {"@ turn", "@ turn 1 2", "@ turn 1 2 x", "@ turn 1 2 nan",
                             "@ turn 1 inf 3", "@ turn 1 2 3e300"}) {
        EXPECT_EQ(Failure(line), angles) << line;
    }
    const char* const after = "line 1: after the angles only scale S at X Y can follow";
    for (const char* line :
         {"@ turn 1 2 3 4", "@ turn 1 2 3 scale 0 at 1 2", "@ turn 1 2 3 scale -1 at 1 2",
          "@ turn 1 2 3 scale 2", "@ turn 1 2 3 scale 2 at 1", "@ turn 1 2 3 scale 2 at 1 2 3",
          "@ turn 1 2 3 scale 2 at 1 nan"}) {
        EXPECT_EQ(Failure(line), after) << line;
    }
    EXPECT_EQ(OnScreen(*part_, {10, 0, 0}), (Place{37, 8}));
}

TEST_F(ViewWords, WhereNothingIsTurnedTurnSaysSo) {
    TheHost().session.Open(workbench::MakeModels("plate.drw: A3"));
    EXPECT_EQ(Failure("@ turn 0 0 0"),
              "line 1: a drawing is not turned; sheet turns to one of its sheets");
    RestartHost();
    EXPECT_EQ(Failure("@ turn 0 0 0"), "line 1: no model is open");
}

}  // namespace
