// Sheets of drawings as pictures and as exchange files.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/model/annotations.h"
#include "simhost/model/view_items.h"
#include "simhost/picture/dxf.h"
#include "simhost/picture/sheet.h"
#include "simhost/picture/sheet_lines.h"

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
        part.partData.solids.push_back(box);
        sheet_ = &TheHost().session.Create(WIDE("箱体-12"), PRO_MDL_DRAWING);
        sheet_->drawingData.sheets = {WIDE("A3")};
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
    EXPECT_EQ(views[1].name, "俯视图");
    DrawingOf(*sheet_).rule = ProjectionRule::ThirdAngle;
    EXPECT_EQ(ViewsOnSheet(*sheet_, 1)[1].shows, "from below");
    EXPECT_EQ(ViewsOnSheet(*sheet_, 1)[1].name, "仰视图");
    EXPECT_TRUE(ViewsOnSheet(*sheet_, 2).empty());
}

TEST_F(SheetTest, ThePictureShowsRolesAndTheGapAsADimension) {
    const std::string svg = SheetSvg(*sheet_, 1, 800);
    EXPECT_EQ(Count(svg, ">主视图</text>"), 1);
    EXPECT_EQ(Count(svg, ">俯视图</text>"), 1);
    EXPECT_EQ(Count(svg, ">50.0</text>"), 1);
    EXPECT_EQ(Count(svg, "箱体-12"), 1);
    EXPECT_EQ(svg, SheetSvg(*sheet_, 1, 800));
}

TEST_F(SheetTest, TheExchangeTextHasEachEdgeOnItsLayer) {
    const std::string text = SheetDxf(*sheet_, 1);
    EXPECT_EQ(text.compare(0, 34, "999\r\nDrawing exchange text (DXF, r"), 0);
    EXPECT_NE(text.find("\r\n  0\r\nSECTION\r\n  2\r\nHEADER\r\n"), std::string::npos);
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

// The part twice in one place, in an assembly: each of the four edges of the main view is there
// twice, and under each visible one is that of the far side.
TEST_F(SheetTest, EachLineIsThereOnceAndNotAsAHiddenOneUnderAVisibleOne) {
    Session& session = TheHost().session;
    Model& top = session.Create(WIDE("TOP"), PRO_MDL_ASSEMBLY);
    Model* part = session.FindByName(WIDE("箱体"), PRO_MDL_PART);
    for (const int id : {1, 2}) {
        Feature use;
        use.id = id;
        use.type = PRO_FEAT_COMPONENT;
        use.model = part;
        top.AddFeature(use);
    }
    DrawingView& view = DrawingOf(*sheet_).AddGeneral(top, 2, {100, 100, 0}, 1, Placement());
    view.display.style = PRO_DISPSTYLE_HIDDEN_LINE;
    const auto views = ViewsOnSheet(*sheet_, 2);
    ASSERT_EQ(views.size(), 1u);
    EXPECT_EQ(views[0].lines.size(), 4u);
    for (const DrawnLine& line : views[0].lines) EXPECT_FALSE(line.hidden);
}

// A longer box in the same place: its level edges go over the part's, whose far end alone adds a
// line, seen on the longer one's front face. All of the other's edges are on them or under them.
TEST_F(SheetTest, LinesThatOverlapInPartAreDrawnAsOne) {
    Model* part = TheHost().session.FindByName(WIDE("箱体"), PRO_MDL_PART);
    Solid longer = part->partData.solids[0];
    longer.id = 20;
    longer.size.x = 50;
    part->partData.solids.push_back(longer);
    for (const int style : {PRO_DISPSTYLE_HIDDEN_LINE, PRO_DISPSTYLE_WIREFRAME}) {
        main_->display.style = ProDisplayStyle(style);
        const auto lines = ViewsOnSheet(*sheet_, 1)[0].lines;
        ASSERT_EQ(lines.size(), 5u);
        double length = 0;
        for (const DrawnLine& line : lines) {
            EXPECT_FALSE(line.hidden);
            length += std::hypot(line.x1 - line.x0, line.y1 - line.y0);
        }
        EXPECT_NEAR(length, 2 * 50 + 3 * 20, 1e-3);
    }
}

TEST_F(SheetTest, LettersThatTheCodePageLacksAreWrittenByTheirNumbers) {
    sheet_->name = WIDE("轴é");  // U+00E9 is in the code page, U+00E3 is not
    EXPECT_EQ(Count(SheetDxf(*sheet_, 1), "\\U+"), 0);
    sheet_->name = WIDE("轴ã");
    EXPECT_EQ(Count(SheetDxf(*sheet_, 1), ToSystemCodePage(WIDE("轴")) + "\\U+00E3\r\n"), 1);
}

// The rectangle of a text in a picture: its letters are at most as wide as they are high.
struct Words {
    double x, y, size, width;
    bool Meets(const Words& other) const {
        return x < other.x + other.width && other.x < x + width && y - size < other.y &&
               other.y - other.size < y;
    }
};

double NumberAfter(const std::string& tag, const std::string& name) {
    return std::stod(tag.substr(tag.find(' ' + name + "=\"") + name.size() + 3));
}

std::vector<Words> WordsOf(const std::string& svg) {
    std::vector<Words> all;
    for (std::size_t at = svg.find("<text "); at != std::string::npos;
         at = svg.find("<text ", at + 1)) {
        const std::string tag = svg.substr(at, svg.find("</text>", at) - at);
        const std::string text = tag.substr(tag.find('>') + 1);
        EXPECT_EQ(tag.find("text-anchor"), std::string::npos);
        const double size = NumberAfter(tag, "font-size");
        all.push_back({NumberAfter(tag, "x"), NumberAfter(tag, "y"), size,
                       0.5 * size * double(DisplayWidth(text))});
    }
    return all;
}

// The lines between arrows: each dimension's path begins with its line.
std::vector<Words> DimensionsOf(const std::string& svg) {
    std::vector<Words> all;
    const std::string begin = "stroke=\"#b3472f\"";
    for (std::size_t at = svg.find(begin); at != std::string::npos; at = svg.find(begin, at + 1)) {
        double x0 = 0, y0 = 0, x1 = 0, y1 = 0;
        const std::string way = svg.substr(svg.find(" d=\"", at) + 4, 80);
        if (std::sscanf(way.c_str(), "M%lf %lfL%lf %lfM", &x0, &y0, &x1, &y1) != 4) continue;
        all.push_back({std::min(x0, x1), std::max(y0, y1), std::fabs(y1 - y0), std::fabs(x1 - x0)});
    }
    return all;
}

// A small part, so that words are large beside it: the gaps' dimensions cross one another.
TEST_F(SheetTest, NoWordsAreOnADimension) {
    DrawingView* right = DrawingOf(*sheet_).AddProjected(*main_, {175, 100, 0});
    DrawingOf(*sheet_).AddProjected(*main_, {100, 165, 0});
    DrawingOf(*sheet_).AddProjected(*right, {250, 100, 0});
    const std::string svg = SheetSvg(*sheet_, 1, 800);
    const auto words = WordsOf(svg), dimensions = DimensionsOf(svg);
    EXPECT_GE(dimensions.size(), 4u);
    for (const Words& word : words) {
        for (const Words& dimension : dimensions) {
            EXPECT_FALSE(word.Meets(dimension)) << word.x << ' ' << word.y;
        }
    }
}

// The lower view is as narrow as its name is wide, and the gap's dimension is beside it.
TEST_F(SheetTest, NoWordsCoverOthers) {
    DrawingOf(*sheet_).AddProjected(*main_, {165, 100, 0});
    DrawingOf(*sheet_).AddProjected(*below_, {165, 35, 0});
    const auto words = WordsOf(SheetSvg(*sheet_, 1, 800));
    EXPECT_EQ(words.size(), 4u + 3u + 1u);  // names, gaps, caption
    for (std::size_t i = 0; i < words.size(); ++i) {
        for (std::size_t k = 0; k < i; ++k) EXPECT_FALSE(words[i].Meets(words[k])) << i << ' ' << k;
    }
}

// The place of a word of the picture, by what it says.
Words WordsSaying(const std::string& svg, const std::string& text) {
    const std::size_t end = svg.find('>' + text + "</text>");
    EXPECT_NE(end, std::string::npos) << text;
    const std::string tag = svg.substr(svg.rfind("<text ", end), end);
    const double size = NumberAfter(tag, "font-size");
    return {NumberAfter(tag, "x"), NumberAfter(tag, "y"), size,
            0.5 * size * double(DisplayWidth(text))};
}

// The main view is 20 high. Its name is below it, where a note or a dimension of its lower edge
// then is; so it goes to the other side.
TEST_F(SheetTest, NamesOfViewsGiveWayToNotesAndDimensions) {
    const Words usual = WordsSaying(SheetSvg(*sheet_, 1, 800), "主视图");
    SheetNote note;
    note.at = {95, 85, 0};
    note.text = {WIDE("NOTE")};
    Annotations& annotations = AnnotationsOf(*sheet_);
    const int id = annotations.Add(note).id;
    const std::string noted = SheetSvg(*sheet_, 1, 800);
    const Words beside = WordsSaying(noted, "主视图");
    EXPECT_FALSE(beside.Meets(WordsSaying(noted, "NOTE")));
    EXPECT_TRUE(usual.Meets(WordsSaying(noted, "NOTE")));

    annotations.Erase(id);
    EXPECT_EQ(WordsSaying(SheetSvg(*sheet_, 1, 800), "主视图").y, usual.y);
    Dimension length;
    for (const ItemWay& way : ItemsOfView(*main_, {PRO_EDGE})) {
        const SeenItem edge = *SeenIn(*main_, way);
        if (edge.from.y < 0 && edge.to.y < 0 && edge.from.x != edge.to.x) length.to = {{way}};
    }
    ASSERT_EQ(length.to.size(), 1u);
    length.view = main_->id;
    length.kind = DimensionKind::Horizontal;
    // Its text is well to the right: only the line of the dimension is in the name's way.
    length.at = {40, -14, 0};
    length.shown = true;
    annotations.Add(length);
    EXPECT_LT(WordsSaying(SheetSvg(*sheet_, 1, 800), "主视图").y, usual.y - 20);
}

// By the first-angle rule the sign's place is the lower right corner of the frame, 10 inside the
// sheet of 420 by 297; a view that lies there sends it to the lower left one.
TEST_F(SheetTest, TheProjectionSignHasCentreLinesAndKeepsOutOfTheWayOfViews) {
    const auto signAt = [&] {
        const std::string svg = SheetSvg(*sheet_, 1, 800);
        EXPECT_EQ(Count(svg, "<circle "), 2);
        EXPECT_EQ(Count(svg, "stroke=\"#16202a\" stroke-width=\".16\" stroke-dasharray"), 3);
        return NumberAfter(svg.substr(svg.find("<circle ")), "cx");
    };
    EXPECT_GT(signAt(), 400);
    main_->at = {390, 30, 0};
    DrawingOf(*sheet_).Regenerate(*main_);
    EXPECT_LT(signAt(), 100);
}

TEST_F(SheetTest, AViewIsAGroupOfItsOwn) {
    const std::string svg = SheetSvg(*sheet_, 1, 800);
    EXPECT_EQ(Count(svg, "<g id=\"view1\"><title>主视图</title>"), 1);
    EXPECT_EQ(Count(svg, "<g id=\"view2\"><title>俯视图</title>"), 1);
}

}  // namespace
