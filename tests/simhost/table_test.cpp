// Tables and drawing areas of the simulated host's dialogs.
#include <gtest/gtest.h>

#include "simhost/core/text.h"
#include "simhost/trail/hooks.h"
#include "simhost/trail/interpreter.h"
#include "simhost/ui/drawingarea.h"
#include "simhost/ui/table.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using Names = std::vector<std::string>;

constexpr const char* kResource = R"((Dialog List
    (Components (Table list) (DrawingArea area) (PushButton Close))
    (Resources
        (list.ColumnNames  "num" "name")
        (list.ColumnLabels "No." "Name")
        (list.VisibleRows  2)
        (.Layout (Grid (Rows 1 1 1) (Cols 1) list area Close))))
)";

char dialog[] = "List", table[] = "list", area[] = "area";

class Tables : public workbench::Workbench {
protected:
    void SetUp() override {
        Write(workbench::kTextFolder + WIDE("\\text\\resource\\List.res"), kResource);
        ASSERT_EQ(ProUIDialogCreate(dialog, dialog), PRO_TK_NO_ERROR);
    }
    void TearDown() override {
        ProUIDialogDestroy(dialog);
        Workbench::TearDown();
    }

    static char* Text(const char* text) { return const_cast<char*>(text); }
    static ProError InsertRow(const char* after, const char* name) {
        char* names[] = {Text(name)};
        return ProUITableRowsInsert(dialog, table, Text(after), 1, names);
    }
    static ProError InsertColumn(const char* after, const char* name) {
        char* names[] = {Text(name)};
        return ProUITableColumnsInsert(dialog, table, Text(after), 1, names);
    }
    static ProError SetCell(const char* row, const char* column, const WideText& text) {
        return ProUITableCellLabelSet(dialog, table, Text(row), Text(column),
                                      const_cast<WideChar*>(text.c_str()));
    }
    static std::string Cell(const char* row, const char* column) {
        WideChar* text = nullptr;
        const ProError status =
            ProUITableCellLabelGet(dialog, table, Text(row), Text(column), &text);
        return status == PRO_TK_NO_ERROR ? Utf8(text) : std::to_string(status);
    }
    using NamesGet = ProError (*)(char*, char*, int*, char***);
    static Names Take(NamesGet get) {
        int count = -1;
        char** names = nullptr;
        EXPECT_EQ(get(dialog, table, &count, &names), PRO_TK_NO_ERROR);
        const Names taken(names, names + count);
        if (names) {
            EXPECT_EQ(ProStringarrayFree(names, count), PRO_TK_NO_ERROR);
        }
        return taken;
    }
};

TEST_F(Tables, RowsStandWhereTheyAreInserted) {
    EXPECT_EQ(InsertRow("", "1"), PRO_TK_NO_ERROR);
    EXPECT_EQ(InsertRow("1", "2"), PRO_TK_NO_ERROR);
    EXPECT_EQ(InsertRow("1", "between"), PRO_TK_NO_ERROR);
    EXPECT_EQ(InsertRow("", "first"), PRO_TK_NO_ERROR);
    EXPECT_EQ(Take(ProUITableRownamesGet), (Names{"first", "1", "between", "2"}));
    EXPECT_EQ(InsertRow("nobody", "3"), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(InsertRow("1", "2"), PRO_TK_E_FOUND);
}

TEST_F(Tables, RowsAreNamedAsTheyAreAtEachQuestion) {
    const auto names = [] { return Take(ProUITableRownamesGet); };
    EXPECT_EQ(names(), Names{});
    EXPECT_EQ(InsertRow("", "1"), PRO_TK_NO_ERROR);
    EXPECT_EQ(names(), Names{"1"});
    EXPECT_EQ(InsertRow("1", "2"), PRO_TK_NO_ERROR);
    EXPECT_EQ(InsertRow("2", "\xcd\xbc"), PRO_TK_NO_ERROR);  // 图 in code page 936
    EXPECT_EQ(names(), (Names{"1", "2", "\xcd\xbc"}));
    EXPECT_EQ(InsertRow("1", "between"), PRO_TK_NO_ERROR);
    EXPECT_EQ(names(), (Names{"1", "between", "2", "\xcd\xbc"}));
    EXPECT_EQ(InsertRow("2", "2"), PRO_TK_E_FOUND);
    EXPECT_EQ(names(), (Names{"1", "between", "2", "\xcd\xbc"}));
    char* gone[] = {Text("1")};
    EXPECT_EQ(ProUITableRowsDelete(dialog, table, 1, gone), PRO_TK_NO_ERROR);
    EXPECT_EQ(names(), (Names{"between", "2", "\xcd\xbc"}));
}

TEST_F(Tables, CellsKeepTheirTextsWhenRowsAndColumnsComeAndGo) {
    InsertRow("", "1");
    InsertRow("1", "2");
    SetCell("1", "name", WIDE("螺栓"));
    SetCell("2", "name", WIDE("gear"));
    EXPECT_EQ(InsertColumn("num", "param1"), PRO_TK_NO_ERROR);
    EXPECT_EQ(Take(ProUITableColumnnamesGet), (Names{"num", "param1", "name"}));
    EXPECT_EQ(Cell("1", "name"), "螺栓");
    EXPECT_EQ(Cell("1", "param1"), "");
    char* gone[] = {Text("num")};
    EXPECT_EQ(ProUITableColumnsDelete(dialog, table, 1, gone), PRO_TK_NO_ERROR);
    char* first[] = {Text("1")};
    EXPECT_EQ(ProUITableRowsDelete(dialog, table, 1, first), PRO_TK_NO_ERROR);
    EXPECT_EQ(Cell("2", "name"), "gear");
    EXPECT_EQ(Cell("1", "name"), "-4");
    EXPECT_EQ(Cell("2", "num"), "-4");
}

TEST_F(Tables, NothingIsDeletedIfOneNameIsUnknown) {
    InsertRow("", "1");
    char* names[] = {Text("1"), Text("2")};
    EXPECT_EQ(ProUITableRowsDelete(dialog, table, 2, names), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(Take(ProUITableRownamesGet), Names{"1"});
}

TEST_F(Tables, HaveALabelForEachColumnAndRow) {
    InsertColumn("name", "param1");
    WideText texts[] = {WIDE("序号"), WIDE("")};
    WideChar* labels[] = {texts[0].data(), texts[1].data()};
    EXPECT_EQ(ProUITableColumnlabelsSet(dialog, table, 2, labels), PRO_TK_NO_ERROR);
    int count = 0;
    WideChar** given = nullptr;
    EXPECT_EQ(ProUITableColumnlabelsGet(dialog, table, &count, &given), PRO_TK_NO_ERROR);
    ASSERT_EQ(count, 3);
    EXPECT_EQ(WideText(given[0]), WIDE("序号"));
    EXPECT_EQ(WideText(given[1]), WIDE(""));
    EXPECT_EQ(WideText(given[2]), WIDE("param1"));
    InsertRow("", "1");
    EXPECT_EQ(ProUITableRowlabelsGet(dialog, table, &count, &given), PRO_TK_NO_ERROR);
    EXPECT_EQ(count, 1);
}

TEST_F(Tables, ColoursAreThoseThatWereSet) {
    InsertRow("", "1");
    auto colour = ProUIColorType(-1);
    EXPECT_EQ(
        ProUITableCellBackgroundColorSet(dialog, table, Text("1"), Text("num"), ProUIColorType(17)),
        PRO_TK_NO_ERROR);
    EXPECT_EQ(ProUITableCellBackgroundColorGet(dialog, table, Text("1"), Text("num"), &colour),
              PRO_TK_NO_ERROR);
    EXPECT_EQ(colour, 17);
    EXPECT_EQ(ProUITableCellBackgroundColorGet(dialog, table, Text("1"), Text("name"), &colour),
              PRO_TK_NO_ERROR);
    EXPECT_NE(colour, 17);
}

TEST_F(Tables, RowsAreSelectedByThePlugInAndByTheUser) {
    for (const char* name : {"3", "2", "1"}) InsertRow("", name);
    EXPECT_EQ(Take(ProUITableSelectednamesGet), Names{});
    ProUITableRowCellsSelect(dialog, table, Text("3"));
    ProUITableRowCellsSelect(dialog, table, Text("1"));
    EXPECT_EQ(Take(ProUITableSelectednamesGet), (Names{"1", "3"}));
    ProUITableRowCellsDeselect(dialog, table, Text("1"));
    EXPECT_EQ(Take(ProUITableSelectednamesGet), Names{"3"});
    EXPECT_EQ(ProUITableSelectionpolicySet(dialog, table, PROUISELPOLICY_EXTENDED),
              PRO_TK_NO_ERROR);
    EXPECT_EQ(ProUITableColumnselectionpolicySet(dialog, table, PROUISELPOLICY_EXTENDED),
              PRO_TK_NO_ERROR);
    auto* found = dynamic_cast<Table*>(host().dialogs.Find("List")->Find("list"));
    EXPECT_EQ(found->rowPolicy, 3);
    EXPECT_EQ(found->columnPolicy, 3);
    EXPECT_EQ(found->Use(Verb::Select, {"2", "2", "name"}), "");
    EXPECT_EQ(Take(ProUITableSelectednamesGet), Names{"2"});
    EXPECT_EQ(found->Use(Verb::Select, {"9"}), "list has no row 9");
    EXPECT_EQ(found->Use(Verb::Select, {"2", "nmae"}),
              "list has no column nmae; did you mean name?");
}

TEST_F(Tables, ADoubleClickRunsTheActionWithTheCellSelected) {
    InsertRow("", "1");
    static int runs;
    runs = 0;
    ProUITableActivateActionSet(
        dialog, table, [](char*, char*, ProAppData) { ++runs; }, nullptr);
    auto* found = host().dialogs.Find("List")->Find("list");
    EXPECT_EQ(found->Use(Verb::Activate, {"2", "1", "num"}), "");
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(Take(ProUITableSelectednamesGet), Names{"1"});
}

TEST_F(Tables, AreDrawnAsText) {
    for (const char* name : {"3", "2", "1"}) InsertRow("", name);
    SetCell("1", "num", WIDE("1"));
    SetCell("1", "name", WIDE("齿轮"));
    SetCell("2", "name", WIDE("bolt"));
    ProUITableCellBackgroundColorSet(dialog, table, Text("2"), Text("num"), ProUIColorType(17));
    ProUITableRowCellsSelect(dialog, table, Text("1"));
    EXPECT_EQ(host().dialogs.Find("List")->Find("list")->Picture(),
              (Names{"  No. | Name", "------------", "> 1   | 齿轮", " *    | bolt",
                     "  ... 1 more rows"}));
}

TEST_F(Tables, NamesThatAreNotFreedOrFreedTwiceAreFoundOut) {
    int count = 0;
    char** names = nullptr;
    ProUITableColumnnamesGet(dialog, table, &count, &names);
    EXPECT_EQ(host().arrays.HeldByMistake().size(), 1u);
    EXPECT_EQ(ProStringarrayFree(names, count + 1), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ProStringarrayFree(names, count), PRO_TK_NO_ERROR);
    EXPECT_EQ(ProStringarrayFree(names, count), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints(), (Names{"ProStringarrayFree: 3 names are freed of 2",
                                   "ProStringarrayFree: not a live array of names"}));
}

TEST_F(Tables, MoreLabelsThanColumnsAreAComplaint) {
    WideText text = WIDE("x");
    WideChar* labels[] = {text.data(), text.data(), text.data()};
    EXPECT_EQ(ProUITableColumnlabelsSet(dialog, table, 3, labels), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints(), Names{"ProUITableColumnlabelsSet: 3 labels for the 2 columns of list"});
}

TEST_F(Tables, CanBeLookedAtInScripts) {
    InsertRow("", "1");
    SetCell("1", "name", WIDE("a|b"));
    ProUITableCellBackgroundColorSet(dialog, table, Text("1"), Text("num"), ProUIColorType(17));
    ProUIDialogCloseActionSet(
        dialog, [](char* name, char*, ProAppData) { ProUIDialogExit(name, 0); }, nullptr);
    int status = 0;
    PlayDuring([&] { ProUIDialogActivate(dialog, &status); },
               "@ expect rows list 1\n@ expect columns list \"No.|Name\"\n"
               "@ expect row list 1 \"|a|b\"\n@ expect row colours list 1 17 -\n"
               "@ show tables\n~ Close `List`\n");
    TheHooks().start = [&] {
        ProUIDialogActivate(dialog, &status);
        return std::string();
    };
    const Names failures = RunScript(
        "@ start\n@ expect rows list 2\n@ expect row list 9 \"x\"\n"
        "@ expect columns lits \"x\"\n~ Close `List`\n");
    TheHooks().start = {};
    EXPECT_EQ(failures.size(), 3u);
}

TEST_F(Tables, ADrawingAreaShowsThePicturesThatItKnows) {
    Write(workbench::kTextFolder + WIDE("\\text\\resource\\small.gif"), "GIF89a");
    char* known[] = {Text("small.gif")};
    char* unknown[] = {Text("none.gif")};
    ProUIPoint at = {2, 3};
    EXPECT_EQ(ProUIDrawingareaImagesDraw(dialog, area, 1, known, &at), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(ProUIDrawingareaImagesSet(dialog, area, 1, unknown), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(ProUIDrawingareaImagesSet(dialog, area, 1, known), PRO_TK_NO_ERROR);
    EXPECT_EQ(ProUIDrawingareaImagesDraw(dialog, area, 1, known, &at), PRO_TK_NO_ERROR);
    EXPECT_EQ(host().dialogs.Find("List")->Find("area")->State(), "small.gif at 2,3");
}

// Rows that go in one by one, each before all others, and come out likewise: with rows that moved
// each time this would take minutes.
TEST_F(Tables, TakeAsManyRowsOneByOneAsAtOnce) {
    constexpr int kRows = 30'000;
    auto& rows = *dynamic_cast<Table*>(host().dialogs.Find(dialog)->Find(table));
    rows.InsertRows("", {"last"});
    for (int i = 0; i < kRows; ++i) rows.InsertRows("", {std::to_string(i)});
    for (int i = 0; i < kRows; ++i) rows.InsertRows("0", {"x" + std::to_string(i)});
    EXPECT_EQ(rows.rows().size(), std::size_t(2 * kRows + 1));
    EXPECT_EQ(rows.rows().front().name, std::to_string(kRows - 1));
    EXPECT_EQ(rows.rows().back().name, "last");
    for (int i = 0; i < kRows; ++i) rows.DeleteRows({std::to_string(i)});
    EXPECT_EQ(rows.rows().front().name, "x" + std::to_string(kRows - 1));
}

}  // namespace
