// The part of a drawing's file that says which views it has and where they stand.
#include "simhost/model/model_file_drawing.h"

#include <climits>
#include <cmath>

#include "simhost/core/text.h"
#include "simhost/model/drawing.h"
#include "simhost/model/session.h"

namespace simhost {

using namespace model_text;

// What is there:
//
//     [drawing]
//     projection = "first-angle"          # or "third-angle"
//
//     [[view]]                            # a general view
//     id = 1
//     model = "housing.prt"
//     sheet = 1
//     at = [200, 600]                     # where the middle of the model stands
//     pivot = [20, 0, 55]                 # that middle, in the model
//     scale = 0.5
//     turn = [90, 0, 0]
//     style = "no_hidden"
//
//     [[view]]                            # a projection
//     id = 2
//     parent = 1
//     side = "below"
//     at = [200, 310]

namespace {

constexpr const char* kStyles[] = {"default", "wireframe", "hidden_line", "no_hidden"};
constexpr const char* kRules[] = {"first-angle", "third-angle"};

template <std::size_t Count>
std::size_t WordOf(const toml::node& node, const char* key, const char* const (&words)[Count]) {
    const std::string word = Text(node, key);
    std::string all;
    for (std::size_t i = 0; i < Count; ++i) {
        if (word == words[i]) return i;
        all += (all.empty() ? "" : ", ") + Quoted(words[i]);
    }
    Fail(node.source(), Quoted(key) + " must be one of " + all);
}

Vec3 PlaceOf(const toml::table& table) {
    double at[2] = {};
    Numbers(Require(table, "at"), "at", at, 2);
    return {at[0], at[1], 0};
}

void ReadDisplay(const toml::table& table, DrawingView* view) {
    if (const toml::node* style = table.get("style")) {
        view->display.style = ProDisplayStyle(WordOf(*style, "style", kStyles));
    }
    if (const toml::node* edges = table.get("tangent_edges")) {
        view->display.tangent_edge_display = ProTanedgeDisplay(Integer(*edges, "tangent_edges", 0));
    }
}

void ReadGeneral(const toml::table& table, const Model& model, DrawingView* view) {
    Allow(table, {"id", "model", "sheet", "at", "pivot", "scale", "turn", "exploded", "style",
                  "tangent_edges"});
    view->file = Lower(Text(Require(table, "model"), "model"));
    const toml::node* sheet = table.get("sheet");
    view->sheet = sheet ? Integer(*sheet, "sheet", 1) : 1;
    if (std::size_t(view->sheet) > model.sheets.sizes.size()) {
        Fail(table.source(), "there is no sheet " + std::to_string(view->sheet));
    }
    view->pivot = Vector(table, "pivot");
    if (const toml::node* scale = table.get("scale")) {
        view->scale = Measure(*scale, "scale");
        view->ownScale = true;
        if (!(view->scale > 0)) Fail(scale->source(), "\"scale\" must be more than 0");
    }
    view->orientation = PlacementFrom({}, Vector(table, "turn"));
    view->exploded = Flag(table, "exploded", false);
}

// A projection takes all but its place from its parent, which stands before it in the file.
void ReadProjected(const toml::table& table, const Drawing& drawing, DrawingView* view) {
    Allow(table, {"id", "parent", "side", "at", "style", "tangent_edges"});
    const toml::node& parent = Require(table, "parent");
    view->parent = drawing.FindView(Integer(parent, "parent", 1));
    if (!view->parent) Fail(parent.source(), "no view before this one has the id of \"parent\"");
    const toml::node& side = Require(table, "side");
    if (!ParseSide(Text(side, "side"), &view->side)) {
        Fail(side.source(), "\"side\" must be \"below\", \"above\", \"left\" or \"right\"");
    }
    view->file = view->parent->file;
    view->sheet = view->parent->sheet;
    view->pivot = view->parent->pivot;
}

void ReadView(const toml::table& table, Model* model) {
    Drawing& drawing = DrawingOf(*model);
    DrawingView view;
    const toml::node& id = Require(table, "id");
    view.id = Integer(id, "id", 1);
    if (drawing.FindView(view.id)) Fail(id.source(), "the id is there twice");
    if (table.get("parent")) {
        ReadProjected(table, drawing, &view);
    } else {
        ReadGeneral(table, *model, &view);
    }
    view.at = PlaceOf(table);
    ReadDisplay(table, &view);
    drawing.Add(std::move(view));
}

double Tidy(double value) {
    return std::round(value * 1e10) / 1e10;
}

void AddView(std::string* text, const DrawingView& view) {
    *text += "\n[[view]]\n";
    Line(text, "id", std::to_string(view.id));
    if (view.parent) {
        Line(text, "parent", std::to_string(view.parent->id));
        Line(text, "side", TextText(SideName(view.side)));
    } else {
        // The model in memory may have another name by now.
        const Session* session = view.drawing->session;
        const Model* model = session ? session->Find(view.model) : nullptr;
        Line(text, "model", TextText(model ? model->FileName() : view.file));
        Line(text, "sheet", std::to_string(view.sheet));
    }
    Line(text, "at", ListText({view.at.x, view.at.y}));
    if (!view.parent) {
        AddVector(text, "pivot", view.pivot);
        if (view.ownScale) Line(text, "scale", NumberText(view.scale));
        const Vec3 turn = TurnOf(view.orientation);
        AddVector(text, "turn", {Tidy(turn.x), Tidy(turn.y), Tidy(turn.z)});
        if (view.exploded) Line(text, "exploded", "true");
    }
    if (view.display.style != PRO_DISPSTYLE_DEFAULT) {
        Line(text, "style", TextText(kStyles[std::size_t(view.display.style)]));
    }
    if (view.display.tangent_edge_display != 0) {
        Line(text, "tangent_edges", std::to_string(int(view.display.tangent_edge_display)));
    }
}

}  // namespace

Keys DrawingKeys() {
    return {"drawing", "view"};
}

void ReadDrawing(const toml::table& root, Model* model) {
    for (const char* key : {"drawing", "view"}) OnlyIn(*model, PRO_MDL_DRAWING, root.get(key), key);
    if (const toml::table* table = Table(root, "drawing")) {
        Allow(*table, {"projection"});
        const toml::node& rule = Require(*table, "projection");
        DrawingOf(*model).rule = ProjectionRule(WordOf(rule, "projection", kRules));
    }
    EachTable(root, "view", [&](const toml::table& table) { ReadView(table, model); });
}

void AddDrawing(std::string* text, const Model& model) {
    if (!model.drawing) return;
    *text += "\n[drawing]\n";
    Line(text, "projection", TextText(kRules[std::size_t(model.drawing->rule)]));
    for (const auto& view : model.drawing->views()) AddView(text, *view);
}

}  // namespace simhost
