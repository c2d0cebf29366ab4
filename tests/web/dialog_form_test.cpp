// What the page is told of a dialog: all that its resource declares, with what it holds now.
#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "hostapi/host/dialog_table.h"
#include "simhost/core/disk.h"
#include "simhost/ui/drawingarea.h"
#include "simhost/ui/list.h"
#include "simhost/ui/resource.h"
#include "simhost/ui/table.h"
#include "simhost/ui/textfield.h"
#include "simhost/web/dialog_form.h"
#include "tests/support/places.h"
#include "tests/web/web_ground.h"

namespace {

namespace fs = std::filesystem;
using web_tests::Json;

std::vector<fs::path> ShippedResources() {
    std::vector<fs::path> files;
    const fs::path folder = fs::path(workbench::kSourceFolder) / "text" / "resource";
    for (const auto& entry : fs::directory_iterator(folder)) {
        if (entry.path().extension() == ".res") files.push_back(entry.path());
    }
    return files;
}

simhost::Dialog DialogOf(const std::string& name, const std::string& text) {
    return {name, simhost::ParseResource(text, name)};
}

void CollectLaidOut(const simhost::Json& grid, std::multiset<std::string>* names) {
    if (grid.contains("component")) names->insert(grid["component"].get<std::string>());
    if (!grid.contains("children")) return;
    for (const simhost::Json& child : grid["children"]) CollectLaidOut(child, names);
}

TEST(FormOfADialog, HasEveryComponentOfEveryShippedResource) {
    const std::vector<fs::path> files = ShippedResources();
    ASSERT_GE(files.size(), 16u);
    for (const fs::path& file : files) {
        SCOPED_TRACE(file.filename().string());
        const auto dialog = DialogOf(file.stem().string(), simhost::ReadFile(file));
        const simhost::Json form = simhost::FormOf(dialog);
        EXPECT_EQ(form["title"], simhost::Utf8(dialog.title()));
        const auto& declared = dialog.resource().components;
        ASSERT_EQ(form["components"].size(), declared.size());
        for (std::size_t i = 0; i < declared.size(); ++i) {
            EXPECT_EQ(form["components"][i]["name"], declared[i].name) << "in their order";
            EXPECT_EQ(form["components"][i]["kind"], declared[i].kind);
        }
        std::multiset<std::string> laidOut;
        CollectLaidOut(form["layout"], &laidOut);
        for (const auto& [name, grid] : form["layouts"].items()) CollectLaidOut(grid, &laidOut);
        for (const auto& each : declared) {
            // The panel of which the cells of the table get copies has no place of its own.
            const std::size_t places = each.name == "name_input" ? 0 : 1;
            EXPECT_EQ(laidOut.count(each.name), places) << each.name;
        }
    }
}

TEST(FormOfADialog, HasTheGridsAsTheResourceNestsThem) {
    const auto dialog = DialogOf("Nested", R"((Dialog Nested
        (Components (Label Head) (Layout Group) (InputPanel Name) (PushButton OK))
        (Resources
            (Group.Layout (Grid (Rows 1) (Cols 1) Name))
            (OK.TopOffset 4)
            (.DefaultButton "OK")
            (.Layout (Grid (Rows 0 1) (Cols 0 2) Head (Grid (Rows 1) (Cols 1) Group) OK)))))");
    const simhost::Json form = simhost::FormOf(dialog);
    const simhost::Json layout = simhost::Json::parse(R"({"rows": [0, 1], "cols": [0, 2],
        "children": [{"component": "Head"},
                     {"rows": [1], "cols": [1], "children": [{"component": "Group"}]},
                     {"component": "OK"}]})");
    EXPECT_EQ(form["layout"], layout);
    EXPECT_EQ(form["layouts"]["Group"]["children"][0]["component"], "Name");
    EXPECT_EQ(form["defaultButton"], "OK");
    EXPECT_EQ(form["closes"], false) << "nothing would happen";
    EXPECT_EQ(form["components"][3]["offsets"], simhost::Json::parse(R"({"Top": 4})"));
    EXPECT_FALSE(form["components"][0].contains("offsets"));
}

// The component of this name holds at least these values.
void ExpectHolds(const simhost::Json& form, const std::string& name, const char* values) {
    SCOPED_TRACE(name);
    const simhost::Json wanted = simhost::Json::parse(values);
    for (const simhost::Json& each : form["components"]) {
        if (each["name"] != name) continue;
        for (const auto& [key, value] : wanted.items()) {
            EXPECT_EQ(each.value(key, simhost::Json("missing")), value) << key;
        }
        return;
    }
    ADD_FAILURE() << "no such component";
}

TEST(FormOfADialog, TellsWhatEachKindHolds) {
    const auto dialog = DialogOf("Kinds", R"((Dialog Kinds
        (Components (InputPanel Name) (TextArea Lines) (OptionMenu Type) (RadioGroup Scope)
                    (RadioGroup Side) (CheckButton Order) (DrawingArea Area) (Label Logo)
                    (Label Head) (PushButton OK))
        (Resources
            (Name.Value "M8") (Name.Columns 12) (Name.Label "名称")
            (Lines.Value "a=1") (Lines.Columns 30) (Lines.Rows 7)
            (Type.Names "int" "real") (Type.Labels "整数" "实数") (Type.Value "int")
            (Scope.Names "Part" "Asm") (Scope.Labels "零件" "组件") (Scope.SelectedNames "Asm")
            (Side.Names "Left" "Right") (Side.Orientation Horizontal)
            (Order.Set True) (Order.Sensitive False) (Order.Visible False)
            (Area.Width 70) (Area.Height 50)
            (Logo.Bitmap "Logo.png")
            (OK.TopOffset 1) (OK.BottomOffset 2) (OK.LeftOffset 3) (OK.RightOffset 4)
            (Head.TopOffset 5)
            (.Label "种类")
            (.Layout (Grid (Rows 1) (Cols 0 0 0 0 0 0 0 0 0 0)
                Name Lines Type Scope Side Order Area Logo Head OK)))
        ))");
    dynamic_cast<simhost::DrawingArea&>(*dialog.Find("Area")).drawn = {{"a.gif", 5, 6},
                                                                       {"b.gif", 7, 8}};
    const simhost::Json form = simhost::FormOf(dialog);
    EXPECT_EQ(form["name"], "Kinds");
    EXPECT_EQ(form["title"], "种类");
    EXPECT_EQ(form["defaultButton"], nullptr);
    ExpectHolds(form, "Name", R"({"kind": "InputPanel", "label": "名称", "enabled": true,
        "visible": true, "value": "M8", "columns": 12, "tellsFocus": "missing"})");
    ExpectHolds(form, "Lines", R"({"value": "a=1", "columns": 30, "rows": 7})");
    ExpectHolds(form, "Type", R"({"value": "int", "names": ["int", "real"],
        "labels": ["整数", "实数"]})");
    ExpectHolds(form, "Scope", R"({"names": ["Part", "Asm"], "labels": ["零件", "组件"],
        "horizontal": false, "selected": "Asm"})");
    ExpectHolds(form, "Side", R"({"horizontal": true, "selected": null})");
    ExpectHolds(form, "Order", R"({"set": true, "enabled": false, "visible": false})");
    ExpectHolds(form, "Area", R"({"width": 70, "height": 50,
        "drawn": [{"picture": "a.gif", "x": 5, "y": 6}, {"picture": "b.gif", "x": 7, "y": 8}]})");
    ExpectHolds(form, "Logo", R"({"picture": "Logo.png"})");
    ExpectHolds(form, "Head", R"({"picture": "missing", "offsets": {"Top": 5}})");
    ExpectHolds(form, "OK", R"({"offsets": {"Top": 1, "Bottom": 2, "Left": 3, "Right": 4}})");
}

TEST(FormOfADialog, TellsWhoseFocusTheCommandWantsToKnow) {
    const auto dialog = DialogOf("Focus", R"((Dialog Focus
        (Components (InputPanel First) (InputPanel Second))
        (Resources (.Layout (Grid (Rows 1) (Cols 1 1) First Second)))))");
    auto& second = dynamic_cast<simhost::InputPanel&>(*dialog.Find("Second"));
    second.focusInAction.function = [](char*, char*, ProAppData) {};
    const simhost::Json form = simhost::FormOf(dialog);
    ExpectHolds(form, "First", R"({"tellsFocus": "missing"})");
    ExpectHolds(form, "Second", R"({"tellsFocus": true})");
}

TEST(FormOfADialog, TellsWhatAListHoldsAndWhichEntryIsChosen) {
    simhost::DialogResource resource;
    resource.components = {{simhost::List::kKind, "Names", 0}};
    const simhost::Dialog dialog("Files", resource);
    dynamic_cast<simhost::List&>(*dialog.Find("Names")).SetItems({"a.prt", "b.prt"});
    ExpectHolds(simhost::FormOf(dialog), "Names", R"({"items": ["a.prt", "b.prt"], "chosen": ""})");
    EXPECT_EQ(dialog.Find("Names")->Use(simhost::Verb::Select, {"b.prt"}), "");
    ExpectHolds(simhost::FormOf(dialog), "Names", R"({"chosen": "b.prt"})");
}

TEST(FormOfADialog, OfADialogThatHoldsNothingIsEmpty) {
    const simhost::Dialog dialog("Empty", simhost::DialogResource());
    const simhost::Json form = simhost::FormOf(dialog);
    EXPECT_EQ(form.value("layout", simhost::Json("missing")), nullptr);
    EXPECT_EQ(form.value("components", simhost::Json("missing")), simhost::Json::array());
}

TEST(FormOfADialog, TellsHowRowsOfATableAreSelected) {
    const auto dialog = DialogOf("Policy", R"((Dialog Policy
        (Components (Table List))
        (Resources (List.ColumnNames "num" "name") (List.ColumnLabels "序号" "名称")
                   (List.Columns 33) (List.VisibleRows 9)
                   (.Layout (Grid (Rows 1) (Cols 1) List)))))");
    auto& table = dynamic_cast<simhost::Table&>(*dialog.Find("List"));
    ExpectHolds(simhost::FormOf(dialog), "List", R"({"columns": 33, "visibleRows": 9,
        "tableColumns": [{"name": "num", "label": "序号"}, {"name": "name", "label": "名称"}],
        "activates": false, "arms": false, "selected": [],
        "first": {"count": 0, "from": 0, "rows": []}})");
    const char* const words[] = {"single", "browse", "multiple", "extended"};
    for (int policy = PROUISELPOLICY_SINGLE; policy <= PROUISELPOLICY_EXTENDED; ++policy) {
        table.rowPolicy = policy;
        EXPECT_EQ(simhost::FormOf(dialog)["components"][0]["policy"], words[policy]);
    }
}

TEST(FormOfADialog, HasTheFirstRowsOfALongTableAndGivesTheOthersWhenAsked) {
    const auto dialog = DialogOf("Long", R"((Dialog Long
        (Components (Table List))
        (Resources (List.ColumnNames "num") (.Layout (Grid (Rows 1) (Cols 1) List)))))");
    auto& table = dynamic_cast<simhost::Table&>(*dialog.Find("List"));
    std::vector<std::string> names;
    for (int i = 0; i < 1200; ++i) names.push_back("row" + std::to_string(i));
    table.InsertRows("", names);
    table.RequireCell("row1199", "num").label = WIDE("末");

    const simhost::Json first = simhost::FormOf(dialog)["components"][0]["first"];
    EXPECT_EQ(first["count"], 1200);
    ASSERT_EQ(first["rows"].size(), simhost::kRowsWithDialog);
    EXPECT_EQ(first["rows"][99]["name"], "row99");

    const simhost::Json end = simhost::RowsOf(table, 1195, 100);
    ASSERT_EQ(end["rows"].size(), 5u) << "there are no more";
    EXPECT_EQ(end["from"], 1195);
    EXPECT_EQ(end["rows"][0]["name"], "row1195");
    EXPECT_EQ(end["rows"][4]["cells"][0]["text"], "末");
    EXPECT_EQ(simhost::RowsOf(table, 0, 1200)["rows"].size(), simhost::kMostRowsAtOnce);
    EXPECT_TRUE(simhost::RowsOf(table, 5000, 10)["rows"].empty());
    EXPECT_TRUE(simhost::RowsOf(table, SIZE_MAX, SIZE_MAX)["rows"].empty());
}

// --- The dialogs of commands, asked as the page asks ---

class WebDialog : public web_tests::WebBench {
protected:
    void Open(const std::string& command) {
        Start();
        Step("@ open gearbox.asm");
        Step("~ Command `" + command + "`");
    }
    Json Component(const std::string& name) {
        const Json form = Get("/dialog");
        for (const Json& each : form["components"]) {
            if (each["name"] == name) return each;
        }
        ADD_FAILURE() << "no component " << name;
        return {};
    }
    Json Cell(const std::string& table, std::size_t row, std::size_t column) {
        return Component(table)["first"]["rows"][row]["cells"][column];
    }
};

TEST_F(WebDialog, IsEmptyWhereNoneIsOpen) {
    Start();
    EXPECT_EQ(Get("/dialog"), Json::object());
    const auto answer = Client().Get("/rows?dialog=VxBom&component=bom_list", Token());
    EXPECT_EQ(answer->status, 404);
    EXPECT_EQ(Json::parse(answer->body), Json({{"problem", "no such table is open"}}));
}

TEST_F(WebDialog, ShowsWhatTheUserHasTypedAndChosen) {
    Open("VxRelations");
    EXPECT_EQ(Get("/dialog")["name"], "Relations");
    EXPECT_EQ(Get("/dialog")["closes"], true);
    EXPECT_EQ(Component("TypeRadio")["selected"], "AsmAndPart");
    Step("~ Select `Relations` `TypeRadio` 1 `Part`");
    Step("~ Input `Relations` `RelTxtarea` `a=1\\nb=\\\\2`");
    Step("~ Input `Relations` `InputKeyWords` `标准件`");
    EXPECT_EQ(Component("TypeRadio")["selected"], "Part");
    EXPECT_EQ(Component("RelTxtarea")["value"], "a=1\nb=\\2");
    EXPECT_EQ(Component("InputKeyWords")["value"], "标准件");
}

// The host's own dialogs for another component are one over the other.
TEST_F(WebDialog, ShowsThoseBelowIt) {
    Open("VxRelations");
    EXPECT_EQ(Get("/dialog")["below"], Json::array());
    Step("~ Close `Relations`");
    Step("@ ok");
    Step("@ select output_shaft");
    Step("~`rmb_popup` `PopupMenu`");
    Step("~ Command `ProCmdReplComp@PopupMenuGraphicWinStack`");
    Step("~ Select `gen_repl_dlg` `ByCompPH.rpl_method_radio` 1 `Unrelated Component`");
    const Json lower = Get("/dialog");
    EXPECT_EQ(lower["name"], "gen_repl_dlg");
    Step("~ Activate `gen_repl_dlg` `PB_NewComp`");
    const Json upper = Get("/dialog");
    EXPECT_EQ(upper["name"], "file_open");
    ASSERT_EQ(upper["below"].size(), 1u);
    EXPECT_EQ(upper["below"][0]["name"], "gen_repl_dlg");
    EXPECT_EQ(upper["below"][0]["components"], lower["components"]) << "as it was";
    EXPECT_FALSE(upper["below"][0].contains("below")) << "each is there once";
    Step("~ Activate `file_open` `Cancel`");
    EXPECT_EQ(Get("/dialog")["name"], "gen_repl_dlg");
    EXPECT_EQ(Get("/dialog")["below"], Json::array());
}

TEST_F(WebDialog, ShowsWhatTheCommandGreys) {
    Open("VxBom");
    EXPECT_EQ(Component("LevelOption")["enabled"], false) << "a sum has no levels";
    Step("~ Select `VxBom` `BomRadio` 1 `LevelBom`");
    EXPECT_EQ(Component("LevelOption")["enabled"], true);
    Step("~ Select `VxBom` `LevelOption` 1 `2`");
    EXPECT_EQ(Component("LevelOption")["value"], "2");
    EXPECT_EQ(Component("DrawingArea")["drawn"][0]["picture"], "VxQQ2.gif");
}

TEST_F(WebDialog, ShowsTheColoursOfCells) {
    Open("VxBom");
    const Json table = Component("bom_list");
    EXPECT_EQ(table["tableColumns"][0]["label"], "序号");
    EXPECT_EQ(table["activates"], true);
    EXPECT_EQ(table["arms"], false);
    EXPECT_EQ(Cell("bom_list", 0, 0), Json::parse(R"({"text": "1", "colour": 17})"));
    EXPECT_FALSE(Cell("bom_list", 2, 0).contains("colour")) << "a part is none";
    const Json last = Get("/rows?dialog=VxBom&component=bom_list&from=2&count=1");
    EXPECT_EQ(last["rows"].size(), 1u);
    EXPECT_EQ(last["rows"][0], table["first"]["rows"][2]);
    EXPECT_EQ(Get("/rows?dialog=VxBom&component=bom_list"), table["first"])
        << "from the first row on";
    EXPECT_EQ(StatusOf("/rows?dialog=VxBom&component=LevelOption"), 404) << "it is no table";
    EXPECT_EQ(StatusOf("/rows?dialog=VxRename&component=bom_list"), 404) << "it is not open";
    EXPECT_EQ(StatusOf("/rows"), 404);
}

TEST_F(WebDialog, ShowsTheComponentsInCells) {
    Open("VxRename");
    Step("~ Input `VxRename` `input3` `frame`");
    const Json input = Cell("mdl_list", 2, 3)["component"];
    EXPECT_EQ(input["name"], "input3");
    EXPECT_EQ(input["kind"], "InputPanel");
    EXPECT_EQ(input["value"], "frame");
    EXPECT_EQ(Cell("mdl_list", 3, 3)["component"]["value"], "底板") << "as the model is called";
    EXPECT_EQ(Component("mdl_list")["policy"], "browse");
    EXPECT_EQ(Component("mdl_list")["arms"], true);
}

TEST_F(WebDialog, ShowsWhichRowsAreSelected) {
    Open("VxExport");
    EXPECT_EQ(Component("drw_list")["policy"], "extended");
    EXPECT_EQ(Component("drw_list")["selected"], Json::array());
    Step("~ Select `VxExport` `drw_list` 4 `2` `num` `4` `num`");
    EXPECT_EQ(Component("drw_list")["selected"], Json({"2", "4"}));
    Step("~ Select `VxExport` `drw_list` 0");
    EXPECT_EQ(Component("drw_list")["selected"], Json::array());
}

TEST_F(WebDialog, StaysWhileABoxWaitsAboveIt) {
    Open("VxRelations");
    Step("~ Activate `Relations` `AddRels`");
    EXPECT_EQ(Get("/state")["wait"]["kind"], "box");
    EXPECT_EQ(Get("/dialog")["name"], "Relations");
}

}  // namespace
