// How the lines of scripts are read: steps, arguments, comments, quoted texts.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "simhost/trail/lexer.h"

using namespace simhost;

namespace {

std::string Shape(const std::vector<Step>& steps) {
    std::string shape;
    for (const Step& step : steps) {
        shape += step.kind == Step::Kind::Trail ? step.verb : step.text;
        for (const std::string& argument : step.arguments) shape += "|" + argument;
        shape += ";";
    }
    return shape;
}

std::string LexProblem(const std::string& line) {
    try {
        LexLine(line);
    } catch (const LexError& error) {
        return error.what();
    }
    return "none";
}

TEST(TrailLines, AStepIsAVerbAndItsArguments) {
    EXPECT_EQ(Shape(LexLine("~ Activate `VxInit.res` `OK`")), "Activate|VxInit.res|OK;");
    EXPECT_EQ(Shape(LexLine("  ~ Input `D` `N` `two words; and ~`  12 ")),
              "Input|D|N|two words; and ~|12;");
    EXPECT_EQ(Shape(LexLine("~ Select `D`  ``")), "Select|D|;");
}

TEST(TrailLines, StepsAreSeparatedBySemicolonsWithOrWithoutBlanks) {
    EXPECT_EQ(Shape(LexLine("~ Command `A`; ~ Command `B`;~ Command `C`;")),
              "Command|A;Command|B;Command|C;");
    EXPECT_EQ(Shape(LexLine("~Command `A` ~ Command `B`")), "Command|A;Command|B;");
}

TEST(TrailLines, CommentsAndEmptyLinesAreNoSteps) {
    EXPECT_TRUE(LexLine("").empty());
    EXPECT_TRUE(LexLine("  \t\r").empty());
    EXPECT_TRUE(LexLine("! ~ Command `A`").empty());
    EXPECT_EQ(Shape(LexLine("~ Command `A`; ! a note")), "Command|A;");
}

TEST(TrailLines, AnAtLineIsKeptWhole) {
    const auto steps = LexLine(" @  expect box \"a;b~c\" ");
    ASSERT_EQ(steps.size(), 1u);
    EXPECT_EQ(steps[0].kind, Step::Kind::Word);
    EXPECT_EQ(steps[0].text, "expect box \"a;b~c\"");
}

TEST(TrailLines, WhatCannotBeReadIsToldInASentence) {
    EXPECT_EQ(LexProblem("~ Command `A"), "a name in `…` does not end");
    EXPECT_EQ(LexProblem("~"), "there is no verb after the ~");
    EXPECT_EQ(LexProblem("~ Command `A`; Command"), "a step begins with ~, not with \"Command\"");
}

TEST(TrailLines, ATextIsQuotedWithEscapesOrTakenAsItIs) {
    EXPECT_EQ(ParseText("  plain \\t text ").text, "plain \\t text");
    EXPECT_FALSE(ParseText("plain").quoted);
    EXPECT_EQ(ParseText("\"\\ttab\\n\\\"q\\\" \\\\ \"").text, "\ttab\n\"q\" \\ ");
    EXPECT_TRUE(ParseText("\"\"").quoted);
    EXPECT_THROW(ParseText("\"open"), LexError);
    EXPECT_THROW(ParseText("\"a\" b"), LexError);
    EXPECT_THROW(ParseText("\"\\q\""), LexError);
}

}  // namespace
