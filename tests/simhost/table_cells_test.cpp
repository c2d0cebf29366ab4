// Components in the cells of tables: how they come, are used and go, and which cell has the focus.
#include <gtest/gtest.h>

#include "hostapi/host.h"
#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/ui/table.h"
#include "simhost/ui/textfield.h"
#include "tests/support/observed.h"

namespace {

using namespace simhost;
using workbench::Names;

char* N(const char* name) {
    return const_cast<char*>(name);
}

// A dialog with a table of two rows and two columns, a field, a button and a check button.
class TableCells : public workbench::ObservedBench {
protected:
    void SetUp() override {
        Start();
        Write(workbench::kTextFolder + WIDE("\\text\\resource\\Cells.res"), R"((Dialog Cells
    (Components (Table list) (InputPanel field) (PushButton button) (CheckButton mark))
    (Resources
        (list.ColumnNames "a" "b")
        (field.Value "M8")
        (field.Columns 6)
        (button.Label "Go")
        (mark.Label "Mark")
        (mark.Set True)
        (.Layout (Grid (Rows 1) (Cols 1) list)))))");
        ASSERT_EQ(ProUIDialogCreate(N("Cells"), N("Cells")), PRO_TK_NO_ERROR);
        char* rows[] = {N("1"), N("2")};
        ASSERT_EQ(ProUITableRowsInsert(N("Cells"), N("list"), N(""), 2, rows), PRO_TK_NO_ERROR);
        dialog_ = host().dialogs.Find("Cells");
        table_ = dynamic_cast<Table*>(dialog_->Find("list"));
    }
    void TearDown() override {
        ProUIDialogDestroy(N("Cells"));
        ObservedBench::TearDown();
    }
    ProError Copy(const char* row, const char* column, const char* from, const char* name) {
        return ProUITableCellComponentCopy(N("Cells"), N("list"), N(row), N(column), N("Cells"),
                                           N(from), N(name));
    }
    ProError Delete(const char* row, const char* column) {
        return ProUITableCellComponentDelete(N("Cells"), N("list"), N(row), N(column));
    }
    std::string Value(const char* field) {
        WideChar* text = nullptr;
        const ProError status = ProUIInputpanelValueGet(N("Cells"), N(field), &text);
        return status == PRO_TK_NO_ERROR ? Utf8(text) : std::to_string(int(status));
    }
    std::string Focus() {
        char *row = nullptr, *column = nullptr;
        const ProError status = ProUITableFocusCellGet(N("Cells"), N("list"), &row, &column);
        if (status != PRO_TK_NO_ERROR) return std::to_string(int(status));
        return std::string(row) + ' ' + column;
    }
    // What a user does in the dialog.
    void Use(const std::string& lines) {
        int status = 0;
        PlayDuring([&] { ProUIDialogActivate(N("Cells"), &status); }, lines + "\n~ Close `Cells`");
    }
    static void Close(char* dialog, char*, ProAppData) { ProUIDialogExit(dialog, 0); }
    static void Note(char*, char* component, ProAppData data) {
        static_cast<Names*>(data)->push_back(component);
    }

    Dialog* dialog_ = nullptr;
    Table* table_ = nullptr;
};

TEST_F(TableCells, HoldACopyOfAFieldThatHasItsTextAndANameOfItsOwn) {
    ASSERT_EQ(Copy("1", "b", "field", "one"), PRO_TK_NO_ERROR);
    EXPECT_EQ(Value("one"), "M8");
    ASSERT_EQ(ProUIInputpanelValueSet(N("Cells"), N("one"), const_cast<WideChar*>(WIDE("M10"))),
              PRO_TK_NO_ERROR);
    EXPECT_EQ(Value("one"), "M10");
    EXPECT_EQ(Value("field"), "M8");
    EXPECT_EQ(dialog_->Find("one")->place()->row, "1");
    // A copy of a copy.
    ASSERT_EQ(Copy("2", "b", "one", "two"), PRO_TK_NO_ERROR);
    EXPECT_EQ(Value("two"), "M10");
}

TEST_F(TableCells, ACellHoldsOneComponentAndANameIsTakenOnce) {
    ASSERT_EQ(Copy("1", "b", "field", "one"), PRO_TK_NO_ERROR);
    EXPECT_EQ(Copy("1", "b", "field", "two"), PRO_TK_E_FOUND);
    EXPECT_EQ(Copy("2", "b", "field", "one"), PRO_TK_E_FOUND);
    EXPECT_EQ(Copy("2", "b", "field", "button"), PRO_TK_E_FOUND);
    EXPECT_EQ(Value("two"), "-1");
}

TEST_F(TableCells, WhatIsNotThereIsRefusedQuietly) {
    EXPECT_EQ(Copy("3", "b", "field", "one"), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(Copy("1", "c", "field", "one"), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(Copy("1", "b", "nothing", "one"), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(Delete("1", "b"), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(Value("one"), "-1");
    EXPECT_EQ(Complaints(), Names{});
}

TEST_F(TableCells, ATableInACellIsAMistakeOfTheCaller) {
    EXPECT_EQ(Copy("1", "b", "list", "one"), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Copy("1", "b", "field", ""), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints(),
              (Names{"ProUITableCellComponentCopy: list is a Table, which no cell holds",
                     "ProUITableCellComponentCopy: a component without a name"}));
    EXPECT_EQ(Delete("1", "b"), PRO_TK_E_NOT_FOUND);
}

TEST_F(TableCells, GoWithTheirCellRowOrColumn) {
    Copy("1", "a", "field", "one");
    Copy("2", "a", "field", "two");
    Copy("2", "b", "field", "three");
    EXPECT_EQ(Delete("1", "a"), PRO_TK_NO_ERROR);
    EXPECT_EQ(Value("one"), "-1");
    char* column[] = {N("a")};
    ProUITableColumnsDelete(N("Cells"), N("list"), 1, column);
    EXPECT_EQ(Value("two"), "-1");
    EXPECT_EQ(Value("three"), "M8");
    char* row[] = {N("2")};
    ProUITableRowsDelete(N("Cells"), N("list"), 1, row);
    EXPECT_EQ(Value("three"), "-1");
    EXPECT_EQ(Copy("1", "b", "field", "three"), PRO_TK_NO_ERROR);
}

TEST_F(TableCells, StayInTheirCellWhenColumnsComeBeforeIt) {
    Copy("1", "b", "field", "one");
    char* columns[] = {N("x"), N("y")};
    ASSERT_EQ(ProUITableColumnsInsert(N("Cells"), N("list"), N("a"), 2, columns), PRO_TK_NO_ERROR);
    EXPECT_EQ(table_->FindCell("1", "b")->component.get(), dialog_->Find("one"));
    EXPECT_EQ(table_->FindCell("1", "x")->component, nullptr);
    EXPECT_EQ(table_->FindRow("1")->cells.size(), 4u);
}

TEST_F(TableCells, KeepTheirLabelBesideTheComponent) {
    ProUITableCellLabelSet(N("Cells"), N("list"), N("1"), N("b"),
                           const_cast<WideChar*>(WIDE("label")));
    Copy("1", "b", "field", "one");
    WideChar* label = nullptr;
    ProUITableCellLabelGet(N("Cells"), N("list"), N("1"), N("b"), &label);
    EXPECT_EQ(Utf8(label), "label");
    // The text is the caller's for as long as the dialog is there.
    char* row[] = {N("1")};
    ProUITableRowsDelete(N("Cells"), N("list"), 1, row);
    EXPECT_EQ(Utf8(label), "label");
}

TEST_F(TableCells, AreSeenInTheTable) {
    Copy("1", "b", "field", "one");
    Copy("2", "b", "button", "go");
    Copy("2", "a", "mark", "set");
    const std::vector<std::string> lines = table_->Lines(9);
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[2], "           | [M8____]");
    EXPECT_EQ(lines[3], "  [x] Mark | [ Go ]");
}

TEST_F(TableCells, AreUsedByTheirNamesAndHaveActionsOfTheirOwn) {
    Copy("1", "b", "button", "go");
    Copy("2", "b", "field", "one");
    Names used;
    ProUIDialogCloseActionSet(N("Cells"), Close, nullptr);
    ProUIPushbuttonActivateActionSet(N("Cells"), N("go"), Note, &used);
    ProUIInputpanelFocusinActionSet(N("Cells"), N("one"), Note, &used);
    Use("~ Activate `Cells` `go`\n~ FocusIn `Cells` `one`\n~ Input `Cells` `one` `M12`\n"
        "~ FocusOut `Cells` `one`");
    EXPECT_EQ(used, (Names{"go", "one"}));
    EXPECT_EQ(Value("one"), "M12");
    EXPECT_EQ(Focus(), "2 b");
}

TEST_F(TableCells, TheFocusGoesToAPickedCellAndLeavesWithItsRow) {
    Names picked;
    ProUIDialogCloseActionSet(N("Cells"), Close, nullptr);
    ProUITableArmActionSet(N("Cells"), N("list"), Note, &picked);
    EXPECT_EQ(Focus(), "-4");
    Use("~ Arm `Cells` `list` 2 `2` `a`\n@ expect focus list 2 a");
    EXPECT_EQ(picked, Names{"list"});
    EXPECT_EQ(Focus(), "2 a");
    char* row[] = {N("2")};
    ProUITableRowsDelete(N("Cells"), N("list"), 1, row);
    EXPECT_EQ(Focus(), "-4");
}

TEST_F(TableCells, TheFocusLeavesWithItsColumn) {
    ProUIDialogCloseActionSet(N("Cells"), Close, nullptr);
    Use("~ Arm `Cells` `list` `1` `a`");
    char* column[] = {N("a")};
    ProUITableColumnsDelete(N("Cells"), N("list"), 1, column);
    EXPECT_EQ(Focus(), "-4");
}

TEST_F(TableCells, AComponentTakesThePickOfItsCell) {
    Copy("1", "b", "field", "one");
    ProUIDialogCloseActionSet(N("Cells"), Close, nullptr);
    dialog_->Use(Verb::Arm, "list", {"1", "b"});
    Names problems;
    struct Hands : User {
        explicit Hands(Names* all) : problems(all) {}
        int AnswerBox(const Box&) override { return 1; }
        std::optional<WideText> AnswerPrompt(const WideText&, const WideText&) override {
            return std::nullopt;
        }
        void UseDialog(Dialog& dialog) override {
            problems->push_back(dialog.Use(Verb::Arm, "list", {"1", "b"}));
            problems->push_back(dialog.Use(Verb::Arm, "list", {"3", "b"}));
            problems->push_back(dialog.Use(Verb::Arm, "list", {"1", "c"}));
            problems->push_back(dialog.Use(Verb::Arm, "list", {"1"}));
            problems->push_back(dialog.Use(Verb::Select, "list", {"4", "1", "a", "2", "a"}));
            problems->push_back(dialog.Use(Verb::Select, "list", {"0"}));
            dialog.CloseWindow();
        }
        Names* problems;
    } hands(&problems);
    host().user = &hands;
    table_->rowPolicy = PROUISELPOLICY_BROWSE;
    int status = 0;
    ProUIDialogActivate(N("Cells"), &status);
    host().user = nullptr;
    EXPECT_EQ(problems,
              (Names{"the cell holds one, which takes the pick: ~ FocusIn", "list has no row 3",
                     "list has no column c", "a row and a column of list belong after Arm",
                     "only one row of list can be selected", "one row of list stays selected"}));
    EXPECT_EQ(Focus(), "-4");
}

TEST_F(TableCells, SeveralRowsAreSelectedWherePolicyAllowsAndNoneToo) {
    ProUIDialogCloseActionSet(N("Cells"), Close, nullptr);
    table_->rowPolicy = PROUISELPOLICY_EXTENDED;
    Use("~ Select `Cells` `list` 4 `1` `a` `2` `b`");
    EXPECT_EQ(table_->State(), "2 rows of 2 columns, selected 1, 2");
    Use("~ Select `Cells` `list` 2 `2` `a`");
    EXPECT_EQ(table_->State(), "2 rows of 2 columns, selected 2");
    Use("~ Select `Cells` `list` 0");
    EXPECT_EQ(table_->State(), "2 rows of 2 columns");
    table_->rowPolicy = PROUISELPOLICY_SINGLE;
    Use("~ Select `Cells` `list` `1` `a`\n~ Select `Cells` `list` 0");
    EXPECT_EQ(table_->State(), "2 rows of 2 columns");
}

}  // namespace
