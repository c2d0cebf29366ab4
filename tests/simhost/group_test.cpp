// Groups of their own files: expressions, what a file must have, and the solids that come of the
// dimensions; the group that is shipped.
#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <sstream>

#include "simhost/model/expression.h"
#include "simhost/model/group.h"
#include "simhost/model/model_file_error.h"
#include "simhost/model/shape.h"
#include "tests/support/places.h"

using namespace simhost;

namespace {

template <class Error>
std::string WhatOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const Error& error) {
        return error.what();
    }
    return "nothing was thrown";
}

double Value(const std::string& text) {
    return Evaluate(text, {{"x", 5}, {"x2", 3}, {"inf", 7}, {"long_name", 11}});
}

std::string Wrong(const std::string& text) {
    return WhatOf<ExpressionError>([&] { Value(text); });
}

TEST(Expressions, KnowNumbersNamesSignsAndParentheses) {
    EXPECT_EQ(Value("12.5"), 12.5);
    EXPECT_EQ(Value(".5"), 0.5);
    EXPECT_EQ(Value("1e2"), 100);
    EXPECT_EQ(Value(" x "), 5);
    EXPECT_EQ(Value("x2"), 3);
    EXPECT_EQ(Value("inf"), 7);
    EXPECT_EQ(Value("-long_name"), -11);
    EXPECT_EQ(Value("--x"), 5);
    EXPECT_EQ(Value("( x )"), 5);
}

TEST(Expressions, MultiplyBeforeTheyAddAndWorkFromTheLeft) {
    EXPECT_EQ(Value("2+3*4"), 14);
    EXPECT_EQ(Value("(2+3)*4"), 20);
    EXPECT_EQ(Value("10 - 4 - 3"), 3);
    EXPECT_EQ(Value("24 / 4 / 2"), 3);
    EXPECT_EQ(Value("24 / 4 * 2"), 12);
    EXPECT_EQ(Value("2 * -x"), -10);
    EXPECT_EQ(Value("x - x2 / 2"), 3.5);
}

TEST(Expressions, SayWhatIsWrong) {
    EXPECT_EQ(Wrong("x +"), "a number or a name is missing in \"x +\"");
    EXPECT_EQ(Wrong(""), "a number or a name is missing in \"\"");
    EXPECT_EQ(Wrong("y * 2"), "the unknown name y in \"y * 2\"");
    EXPECT_EQ(Wrong("(x"), "a \")\" is missing in \"(x\"");
    EXPECT_EQ(Wrong("x)"), "\")\" is too much in \"x)\"");
    EXPECT_EQ(Wrong("2 x"), "\"x\" is too much in \"2 x\"");
    EXPECT_EQ(Wrong("x / (x - 5)"), "a division by 0 in \"x / (x - 5)\"");
    EXPECT_EQ(Wrong("1e999"), "\"1e999\" is no number in \"1e999\"");
    EXPECT_EQ(Value(std::string(99, '(') + "x" + std::string(99, ')')), 5);
    EXPECT_EQ(Wrong(std::string(100, '(') + "x" + std::string(100, ')')).substr(0, 20),
              "too many parentheses");
}

// --- Files ---

const char* const kPeg = R"(
[group]
name = "peg"
[[reference]]
prompt = "where"
[[dimension]]
name = "d"
value = 8
[[dimension]]
name = "l"
value = 30
[[solid]]
shape = "cylinder"
diameter = "d"
length = "l - 2"
at = [0, 0, 1]
[[solid]]
shape = "prism"
outline = [[0, 0], ["d", 0], [0, "d / 2"]]
height = 1
turn = [0, 0, 90]
)";

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return text.replace(at, from.size(), to);
}

std::string WrongFile(const std::string& text) {
    return WhatOf<ModelFileError>([&] { ReadGroupText(text, "peg.gph"); });
}

TEST(GroupFile, SaysWhatTheGroupAsksForAndWhatItIsMadeOf) {
    const Group group = ReadGroupText(kPeg, "peg.gph");
    EXPECT_EQ(group.name, "peg");
    ASSERT_EQ(group.references.size(), 1u);
    EXPECT_EQ(group.references[0].prompt, "where");
    ASSERT_EQ(group.dimensions.size(), 2u);
    EXPECT_EQ(group.dimensions[1].name, "l");
    EXPECT_EQ(group.dimensions[1].value, 30);
    EXPECT_EQ(group.solids.size(), 2u);
}

TEST(GroupFile, ItsSolidsFollowTheDimensionsAndTheFrame) {
    Group group = ReadGroupText(kPeg, "peg.gph");
    group.dimensions[0].value = 10;
    // The frame's x is the part's y, its y the part's -x.
    const std::vector<Solid> solids = SolidsOf(group, PlacementFrom({100, 200, 300}, {0, 0, 90}));
    ASSERT_EQ(solids.size(), 2u);
    EXPECT_EQ(solids[0].shape, Shape::Cylinder);
    EXPECT_EQ(solids[0].diameter, 10);
    EXPECT_EQ(solids[0].length, 28);
    EXPECT_EQ(solids[0].at, (Vec3{100, 200, 301}));
    EXPECT_EQ(solids[0].turn, (Vec3{0, 0, 90}));
    EXPECT_EQ(solids[0].id, 0);
    ASSERT_EQ(solids[1].outline.size(), 3u);
    EXPECT_EQ(solids[1].outline[1][0], 10);
    EXPECT_EQ(solids[1].outline[2][1], 5);
    EXPECT_EQ(solids[1].turn, (Vec3{0, 0, 180}));
}

TEST(GroupFile, DimensionsThatAllowNoSolidAreRefused) {
    Group group = ReadGroupText(kPeg, "peg.gph");
    group.dimensions[1].value = 2;
    EXPECT_NE(WhatOf<ModelFileError>([&] { SolidsOf(group, {}); }).find("\"length\" must be more"),
              std::string::npos);
}

TEST(GroupFile, WhatIsWrongWithItIsTold) {
    EXPECT_NE(WrongFile("x = 1").find("unknown"), std::string::npos) << WrongFile("x = 1");
    EXPECT_NE(WrongFile("").find("the table [group] is missing"), std::string::npos);
    EXPECT_NE(WrongFile(Replaced(kPeg, "name = \"peg\"", "")).find("name"), std::string::npos);
    EXPECT_NE(WrongFile(Replaced(kPeg, "\"l - 2\"", "\"h - 2\"")).find("the unknown name h"),
              std::string::npos);
    EXPECT_NE(
        WrongFile(Replaced(kPeg, "\"l - 2\"", "true")).find("must be a number, an expression"),
        std::string::npos);
    EXPECT_NE(WrongFile(Replaced(kPeg, "name = \"l\"", "name = \"d\"")).find("is there twice"),
              std::string::npos);
    EXPECT_NE(WrongFile(Replaced(kPeg, "\"cylinder\"", "\"ball\"")).find("unknown shape"),
              std::string::npos);
    const std::string peg = kPeg;
    EXPECT_NE(WrongFile(peg.substr(0, peg.find("[[solid]]"))).find("at least one [[solid]]"),
              std::string::npos);
    EXPECT_NE(WrongFile(Replaced(kPeg, "[[reference]]\nprompt = \"where\"\n", ""))
                  .find("at least one [[reference]]"),
              std::string::npos);
    EXPECT_NE(WrongFile("[group").find("peg.gph"), std::string::npos);
}

// A cube from 0 to 10, 0 to 20 and 0 to 30: x2 is half, and yval and zval cross over.
TEST(ShippedGroup, TheBoxLiesWhereItsDimensionsSay) {
    std::ifstream file(std::string(workbench::kSourceFolder) + "/vxudf/vxbox.gph");
    std::stringstream text;
    text << file.rdbuf();
    Group group = ReadGroupText(text.str(), "vxbox.gph");
    EXPECT_EQ(group.name, "vxbox");
    ASSERT_EQ(group.references.size(), 1u);
    EXPECT_EQ(group.references[0].prompt, "csys");
    const std::pair<const char*, double> values[] = {{"x", 5},  {"y", 10},    {"z", 15},
                                                     {"x2", 5}, {"yval", 30}, {"zval", 20}};
    ASSERT_EQ(group.dimensions.size(), std::size(values));
    for (std::size_t i = 0; i < std::size(values); ++i) {
        EXPECT_EQ(group.dimensions[i].name, values[i].first);
        group.dimensions[i].value = values[i].second;
    }
    const Extents box = ExtentsIn(ShapeOf(SolidsOf(group, {})), {});
    EXPECT_EQ(box.low, (Vec3{0, 0, 0}));
    EXPECT_EQ(box.high, (Vec3{10, 20, 30}));
}

}  // namespace
