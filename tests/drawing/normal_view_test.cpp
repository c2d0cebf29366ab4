// VxNormalView from outside: where the view goes, and when it stays.
#include "simhost/model/screen_view.h"
#include "tests/drawing/drawing_bench.h"

namespace {

using namespace simhost;
using workbench::DrawingBench;

class NormalView : public DrawingBench {
protected:
    // Turns what a model shows, with a scale and a place as a zoomed screen has them.
    static void TurnScreen(Model& model, Vec3 turn) {
        SetMatrix(PlacementFrom({}, turn), 2.5, {500, 400, 0}, ScreenOf(model).matrix);
    }
};

TEST_F(NormalView, TheIsometricViewSnapsToTheNearestStraightOne) {
    Model& part = Part("BOX");
    Open(part);
    Press("VxNormalView");
    // x and y both lie nearest to "right"; in the tie the first, x, goes towards the viewer.
    EXPECT_EQ(ScreenText(part), "001 100 010");
    EXPECT_EQ(host().session.current->repaints, 1);
    EXPECT_TRUE(Boxes().empty());
}

TEST_F(NormalView, AStraightViewStaysAndOnlyLosesItsScale) {
    Model& part = Part("BOX");
    Open(part);
    TurnScreen(part, {90, 0, 0});
    Press("VxNormalView");
    EXPECT_EQ(ScreenText(part), "100 001 0-10");
    EXPECT_EQ(ScreenOf(part).matrix[0][0], 1.0);
    EXPECT_EQ(ScreenOf(part).matrix[3][0], 0.0);
}

TEST_F(NormalView, ATurnOf45DegreesMovesTheEarlierAxis) {
    Model& part = Part("BOX");
    Open(part);
    TurnScreen(part, {0, 0, 45});
    // x (h, h, 0) and y (-h, h, 0): both take "right", x moves up.
    Press("VxNormalView");
    EXPECT_EQ(ScreenText(part), "010 -100 001");
}

TEST_F(NormalView, OnlyTheCurrentModelIsTurned) {
    Model& top = Assembly("TOP");
    Model& part = Part("BOX");
    Use(top, part);
    Open(top);
    const std::string before = ScreenText(part);
    Press("VxNormalView");
    EXPECT_EQ(ScreenText(part), before);
    EXPECT_EQ(ScreenText(top), "001 100 010");
}

TEST_F(NormalView, WithoutAModelNothingHappens) {
    Press("VxNormalView");
    EXPECT_TRUE(Boxes().empty());
}

TEST_F(NormalView, AViewThatCannotBeReadStays) {
    Model& part = Part("BOX");
    Open(part);
    const std::string before = ScreenText(part);
    Fail("ProViewMatrixGet");
    Press("VxNormalView");
    EXPECT_EQ(ScreenText(part), before);
    EXPECT_EQ(host().session.current->repaints, 0);
}

}  // namespace
