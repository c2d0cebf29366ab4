// Reading of dialog resources, and the sentences about what is wrong with one.
#include <gtest/gtest.h>

#include <string>

#include "simhost/core/disk.h"
#include "simhost/ui/resource.h"
#include "tests/support/places.h"

using namespace simhost;

namespace {

std::string Problem(const std::string& text) {
    try {
        ParseResource(text, "x.res");
    } catch (const ResourceError& error) {
        return error.what();
    }
    return "none";
}

// A dialog D with a button OK and these attributes.
std::string With(const std::string& attributes) {
    return "(Dialog D (Components (PushButton OK))\n(Resources " + attributes + "))";
}

DialogResource Settings() {
    bool found = false;
    const std::string text = ReadFile(
        std::string(workbench::kSourceFolder) + "/tests/simhost/data/Settings.res", &found);
    EXPECT_TRUE(found);
    return ParseResource(text, "Settings.res");
}

TEST(DialogResources, NameAndComponentsComeInTheirOrder) {
    const DialogResource dialog = Settings();
    EXPECT_EQ(dialog.name, "Settings");
    ASSERT_EQ(dialog.components.size(), 7u);
    EXPECT_EQ(dialog.components[0].kind, "Label");
    EXPECT_EQ(dialog.components[0].name, "Title");
    EXPECT_EQ(dialog.components[4].kind, "PushButton");
    EXPECT_EQ(dialog.components[4].name, "Apply");
    EXPECT_EQ(dialog.components[4].line, 8);
}

TEST(DialogResources, AttributesBelongToAComponentOrToTheDialog) {
    const DialogResource dialog = Settings();
    ASSERT_NE(dialog.Find("OK", "Label"), nullptr);
    EXPECT_EQ(dialog.Find("OK", "Label")->at(0), "确定");
    EXPECT_EQ(dialog.Find("", "DefaultButton")->at(0), "OK");
    EXPECT_EQ(dialog.Find("Help", "Sensitive")->at(0), "False");
    EXPECT_EQ(dialog.Find("OK", "Sensitive"), nullptr);
}

TEST(DialogResources, ATextMayHoldQuotationMarksLineEndsAndExclamationMarks) {
    const DialogResource dialog = Settings();
    EXPECT_EQ(dialog.Find("Title", "Label")->at(0), "设置 \"A\"\nsecond line");
    EXPECT_EQ(dialog.Find("", "Label")->at(0), "设置!");
}

TEST(DialogResources, ALayoutIsAGridOfComponentsAndGrids) {
    const DialogResource dialog = Settings();
    const Grid& grid = dialog.layouts.at("");
    EXPECT_EQ(grid.rows, (std::vector<int>{1, 0, 0}));
    EXPECT_EQ(grid.cols, (std::vector<int>{1}));
    ASSERT_EQ(grid.children.size(), 3u);
    EXPECT_TRUE(grid.children[0].component.empty());
    EXPECT_EQ(grid.children[0].children[1].component, "Name");
    EXPECT_EQ(grid.children[2].component, "Buttons");
    EXPECT_EQ(dialog.layouts.at("Buttons").children[2].component, "OK");
}

TEST(DialogResources, AByteOrderMarkIsNoPartOfTheText) {
    EXPECT_EQ(ParseResource("\xef\xbb\xbf(Dialog D)", "x.res").name, "D");
}

TEST(DialogResources, AnAttributeMayHaveSeveralValuesOrNone) {
    const DialogResource dialog = ParseResource(
        "(Dialog D (Components (RadioGroup R))(Resources (R.Names \"a\" b 3)(R.Labels)))", "x.res");
    EXPECT_EQ(*dialog.Find("R", "Names"), (std::vector<std::string>{"a", "b", "3"}));
    EXPECT_TRUE(dialog.Find("R", "Labels")->empty());
}

TEST(DialogResources, AnAttributeThatItsKindDoesNotHaveIsRefusedWithTheNearest) {
    EXPECT_EQ(Problem(With("(OK.Lable \"x\")")),
              "x.res:2: a PushButton has no attribute Lable; did you mean Label?");
    EXPECT_EQ(Problem(With("(OK.Columns 3)")), "x.res:2: a PushButton has no attribute Columns");
    EXPECT_EQ(Problem(With("(.Sensitive False)")), "x.res:2: a dialog has no attribute Sensitive");
    EXPECT_EQ(Problem(With("(OK.TopOffset 4)\n(OK.Visible False)")), "none");
    EXPECT_EQ(Problem("(Dialog D (Components (PushBotton OK)))"),
              "x.res:1: there is no kind of component PushBotton; did you mean PushButton?");
}

TEST(DialogResources, ADefaultButtonIsAPushButtonOfTheDialog) {
    EXPECT_EQ(Problem(With("(.DefaultButton \"OK\")")), "none");
    EXPECT_EQ(Problem(With("\n(.DefaultButton \"Ok\")")),
              "x.res:3: the default button Ok is no push-button; did you mean OK?");
    EXPECT_EQ(Problem("(Dialog D (Components (Label OK))(Resources (.DefaultButton \"OK\")))"),
              "x.res:1: the default button OK is no push-button");
    EXPECT_EQ(Problem(With("(.DefaultButton)")), "x.res:2: the default button  is no push-button");
}

TEST(DialogResources, ANameWithAFullStopIsCutAtTheLastOne) {
    const DialogResource dialog = ParseResource(
        "(Dialog D (Components (PushButton a.b))(Resources (a.b.Label \"x\")))", "x.res");
    EXPECT_EQ(dialog.Find("a.b", "Label")->at(0), "x");
}

TEST(DialogResources, WhatIsWrongIsToldWithFileAndLine) {
    EXPECT_EQ(Problem(""), "x.res:1: the file holds no dialog");
    EXPECT_EQ(Problem("! nothing\n\n"), "x.res:3: the file holds no dialog");
    EXPECT_EQ(Problem("(Window D)"), "x.res:1: a resource begins with (Dialog NAME");
    EXPECT_EQ(Problem("(Dialog D\n (Components\n (Label A)"),
              "x.res:2: the list that begins here is never closed");
    EXPECT_EQ(Problem("(Dialog D))"),
              "x.res:1: there is something after the dialog's last parenthesis");
    EXPECT_EQ(Problem("(Dialog D\n(Colours))"),
              "x.res:2: only Components and Resources belong here");
    EXPECT_EQ(Problem("(Dialog D (Components (Label A)\n(PushButton A)))"),
              "x.res:2: the component A is there twice");
    EXPECT_EQ(Problem("(Dialog D (Components (Label)))"), "x.res:1: a component is (Kind NAME)");
    EXPECT_EQ(Problem(With("(OK.Label \"x)")),
              "x.res:2: the text that begins here is never closed");
    EXPECT_EQ(Problem(With("(Title.Label \"x\")")),
              "x.res:2: no component Title is declared before its Label");
    EXPECT_EQ(Problem(With("(Label \"x\")")),
              "x.res:2: an attribute is (COMPONENT.Name value) or (.Name value)");
    EXPECT_EQ(Problem(With("(.Label \"x\")\n(.Label \"y\")")), "x.res:3: .Label is given twice");
    EXPECT_EQ(Problem(With("(.Label (x))")), "x.res:2: a value is no list");
}

TEST(DialogResources, ALayoutThatCannotBeIsToldWithItsLine) {
    EXPECT_EQ(Problem(With("(.Layout (Grid (Rows 1) (Cols 1)\n\nTitle))")),
              "x.res:4: no component Title is declared");
    EXPECT_EQ(Problem(With("(.Layout (Grid (Rows 1) (Cols 1) OK (Grid)))")),
              "x.res:2: 2 children in a grid of 1 rows and 1 columns");
    EXPECT_EQ(Problem(With("(.Layout (Grid (Cols 1 1) OK\nOK))")), "x.res:3: OK is laid out twice");
    EXPECT_EQ(Problem(With("(.Layout (Grid (Rows one)))")),
              "x.res:2: rows and columns are whole numbers");
    EXPECT_EQ(Problem(With("(.Layout OK)")), "x.res:2: a layout is one (Grid (Rows …) (Cols …) …)");
    EXPECT_EQ(Problem(With("(.Layout (Grid (Pos 1)))")),
              "x.res:2: a grid holds Rows, Cols, grids and components");
    EXPECT_EQ(Problem(With("(.Layout (Grid))(.Layout (Grid))")), "x.res:2: a second layout");
}

TEST(DialogResources, AFileThatOnlyOpensListsIsRefused) {
    EXPECT_NE(Problem(std::string(100000, '(')).find("nested too deeply"), std::string::npos);
}

}  // namespace
