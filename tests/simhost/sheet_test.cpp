// Sheets of drawings as pictures and as exchange files.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "simhost/app/dxf.h"
#include "simhost/app/sheet_lines.h"
#include "simhost/app/sheet_picture.h"
#include "simhost/core/text.h"
#include "simhost/host.h"

namespace {

using namespace simhost;

class SheetTest : public ::testing::Test {
protected:
    void SetUp() override {
        RestartHost();
        Model& part = TheHost().session.Create(WIDE("箱体"), PRO_MDL_PART);
        Solid box;
        box.id = 10;
        box.shape = Shape::Box;
        box.size = {30, 20, 10};
        part.solids.push_back(box);
        sheet_ = &TheHost().session.Create(WIDE("箱体-12"), PRO_MDL_DRAWING);
        sheet_->sheets.sizes = {WIDE("A3")};
        Drawing& drawing = DrawingOf(*sheet_);
        main_ = &drawing.AddGeneral(part, 1, {100, 100, 0}, 1, Placement());
        main_->display.style = PRO_DISPSTYLE_NO_HIDDEN;
        below_ = drawing.AddProjected(*main_, {100, 35, 0});  // 80..90 and 30..40: a gap of 50
    }
    Model* sheet_ = nullptr;
    DrawingView* main_ = nullptr;
    DrawingView* below_ = nullptr;
};

int Count(const std::string& text, const std::string& piece) {
    int count = 0;
    for (std::size_t at = text.find(piece); at != std::string::npos;
         at = text.find(piece, at + piece.size())) {
        ++count;
    }
    return count;
}

TEST_F(SheetTest, RolesSayWhatAViewShows) {
    const auto views = ViewsOnSheet(*sheet_, 1);
    ASSERT_EQ(views.size(), 2u);
    EXPECT_EQ(views[0].role, "main");
    EXPECT_EQ(views[1].role, "below");
    EXPECT_EQ(views[1].shows, "from above");
    DrawingOf(*sheet_).rule = ProjectionRule::ThirdAngle;
    EXPECT_EQ(ViewsOnSheet(*sheet_, 1)[1].shows, "from below");
    EXPECT_TRUE(ViewsOnSheet(*sheet_, 2).empty());
}

TEST_F(SheetTest, ThePictureShowsRolesAndTheGapAsADimension) {
    const std::string svg = SheetSvg(*sheet_, 1, 800);
    EXPECT_EQ(Count(svg, ">main – from the front</text>"), 1);
    EXPECT_EQ(Count(svg, ">below – from above</text>"), 1);
    EXPECT_EQ(Count(svg, ">50.0</text>"), 1);
    EXPECT_EQ(Count(svg, "箱体-12"), 1);
    EXPECT_EQ(svg, SheetSvg(*sheet_, 1, 800));
}

TEST_F(SheetTest, TheExchangeTextHasEachEdgeOnItsLayer) {
    const std::string text = SheetDxf(*sheet_, 1);
    EXPECT_EQ(text.compare(0, 19, "  0\r\nSECTION\r\n  2\r\n"), 0);
    EXPECT_NE(text.find("  1\r\nAC1009\r\n"), std::string::npos);
    EXPECT_NE(text.find("  3\r\nANSI_936\r\n"), std::string::npos);
    EXPECT_NE(text.find("  1\r\n" + ToSystemCodePage(WIDE("箱体-12")) + "\r\n"), std::string::npos);
    EXPECT_EQ(text.substr(text.size() - 10), "  0\r\nEOF\r\n");
    // The frame has 4 lines, each view of the box 4 edges.
    EXPECT_EQ(Count(text, "LINE\r\n  8\r\nFRAME"), 4);
    EXPECT_EQ(Count(text, "LINE\r\n  8\r\nVISIBLE"), 8);
    EXPECT_EQ(Count(text, "LINE\r\n  8\r\nHIDDEN"), 0);
    main_->orientation = PlacementFrom({}, {35, 0, 0});
    main_->display.style = PRO_DISPSTYLE_HIDDEN_LINE;
    EXPECT_GT(Count(SheetDxf(*sheet_, 1), "LINE\r\n  8\r\nHIDDEN"), 0);
}

}  // namespace
