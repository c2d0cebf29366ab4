// The part of a drawing's file that says which models and views it has and where the views stand.
#include <climits>
#include <string>
#include <vector>

#include "simhost/core/text.h"
#include "simhost/model/drawing.h"
#include "simhost/model/model_file_sections.h"
#include "simhost/model/session.h"

namespace simhost {

using namespace model_text;

// What is there:
//
//     [drawing]
//     projection = "first-angle"          # or "third-angle"
//     models = ["housing.prt"]            # where it has others than its views say
//     current_model = "housing.prt"
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
//     room = [180, 120]                   # in a template, whose views have the model "": how
//                                         # large the view may become
//
//     [[view]]                            # a projection
//     id = 2
//     parent = 1
//     side = "below"
//     at = [200, 310]

namespace {

constexpr const char* kStyles[] = {"default", "wireframe", "hidden_line", "no_hidden"};
constexpr const char* kRules[] = {"first-angle", "third-angle"};

constexpr Field<Drawing> kDrawingFields[] = {
    Required(OneOf<kRules, &Drawing::rule>("projection")),
};

// The models in the order in which the views bring them.
std::vector<std::string> ModelsOfViews(const Model& drawing) {
    SheetSet brought;
    for (const auto& view : drawing.drawingData.views->views()) {
        if (!view->file.empty()) brought.AddSolid(view->file);
    }
    return brought.solids;
}

void ReadModels(const toml::node& node, const char* key, Model* drawing) {
    std::vector<WideText> files;
    ReadValue(node, key, &files);
    for (const WideText& file : files) drawing->drawingData.AddSolid(Lower(Utf8(file)));
}

std::string ModelsText(const Model& drawing) {
    std::vector<WideText> files;
    for (const std::string& file : drawing.drawingData.solids) files.push_back(Wide(file));
    return TextOf(files);
}

void ReadCurrentModel(const toml::node& node, const char* key, Model* drawing) {
    drawing->drawingData.currentSolid = Lower(Text(node, key));
}

constexpr Field<Model> kModelsFields[] = {
    {"models", ReadModels, ModelsText,
     [](const Model& drawing) { return ModelsOfViews(drawing) == drawing.drawingData.solids; }},
    {"current_model", ReadCurrentModel,
     [](const Model& drawing) { return TextText(drawing.drawingData.currentSolid); },
     [](const Model& drawing) { return drawing.drawingData.currentSolid.empty(); }},
};

// --- Views ---

void ReadShown(const toml::node& node, const char* key, DrawingView* view) {
    view->file = Lower(Text(node, key));
}

// The model in memory may have another name by now.
std::string ShownText(const DrawingView& view) {
    const Session* session = view.drawing->session;
    const Model* model = session ? session->Find(view.model) : nullptr;
    return TextText(model ? model->FileName() : view.file);
}

// A projection takes all but its place from its parent, which stands before it in the file.
void ReadParent(const toml::node& node, const char* key, DrawingView* view) {
    view->parent = DrawingOf(*view->drawing).FindView(Integer(node, key, 1));
    if (!view->parent) Fail(node.source(), "no view before this one has the id of \"parent\"");
    view->file = view->parent->file;
    view->sheet = view->parent->sheet;
    view->pivot = view->parent->pivot;
}

void ReadSide(const toml::node& node, const char* key, DrawingView* view) {
    if (ParseSide(Text(node, key), &view->side)) return;
    Fail(node.source(), Quoted(key) + " must be \"below\", \"above\", \"left\" or \"right\"");
}

void ReadPlace(const toml::node& node, const char* key, DrawingView* view) {
    double at[2] = {};
    Numbers(node, key, at, 2);
    view->at = {at[0], at[1], 0};
}

void ReadScale(const toml::node& node, const char* key, DrawingView* view) {
    ReadValue(node, key, &view->scale);
    view->ownScale = true;
    if (!(view->scale > 0)) Fail(node.source(), Quoted(key) + " must be more than 0");
}

void ReadRoom(const toml::node& node, const char* key, DrawingView* view) {
    double room[2] = {};
    Numbers(node, key, room, 2);
    view->room = {room[0], room[1], 0};
}

constexpr bool Never(const DrawingView&) {
    return false;
}

constexpr Field<DrawingView> kId = Required(Whole<1, &DrawingView::id>("id"));
constexpr Field<DrawingView> kPlace =
    Required(Field<DrawingView>{"at", ReadPlace,
                                [](const DrawingView& view) {
                                    return ListText({view.at.x, view.at.y});
                                },
                                Never});
constexpr Field<DrawingView> kStyle =
    OneOf<kStyles, &DrawingView::display, &ProDrawingViewDisplay::style>("style");
constexpr Field<DrawingView> kTangentEdges =
    Whole<0, &DrawingView::display, &ProDrawingViewDisplay::tangent_edge_display>("tangent_edges");

constexpr Field<DrawingView> kRoom{"room", ReadRoom,
                                   [](const DrawingView& view) {
                                       return ListText({view.room.x, view.room.y});
                                   },
                                   [](const DrawingView& view) { return view.room == Vec3{}; }};

constexpr Field<DrawingView> kGeneralFields[] = {
    kId,
    Required(Field<DrawingView>{"model", ReadShown, ShownText, Never}),
    Always(Whole<1, &DrawingView::sheet>("sheet")),
    kPlace,
    Of<&DrawingView::pivot>("pivot"),
    {"scale", ReadScale, [](const DrawingView& view) { return NumberText(view.scale); },
     [](const DrawingView& view) { return !view.ownScale; }},
    TurnField<&DrawingView::orientation>("turn"),
    Of<&DrawingView::exploded>("exploded"),
    kStyle,
    kTangentEdges,
    kRoom,
};

constexpr Field<DrawingView> kProjectedFields[] = {
    kId,
    Required(Field<DrawingView>{
        "parent", ReadParent,
        [](const DrawingView& view) { return std::to_string(view.parent->id); }, Never}),
    Required(Field<DrawingView>{
        "side", ReadSide, [](const DrawingView& view) { return TextText(SideName(view.side)); },
        Never}),
    kPlace,
    kStyle,
    kTangentEdges,
    kRoom,
};

void ReadView(const toml::table& table, Model* model) {
    DrawingView view;
    view.drawing = model;
    if (table.get("parent")) {
        ReadRecord(table, kProjectedFields, &view);
    } else {
        ReadRecord(table, kGeneralFields, &view);
        if (!model->drawingData.Find(view.sheet)) {
            Fail(table.source(), "there is no sheet " + std::to_string(view.sheet));
        }
    }
    Drawing& drawing = DrawingOf(*model);
    if (drawing.FindView(view.id)) Fail(table.get("id")->source(), "the id is there twice");
    drawing.Add(std::move(view));
}

void ReadViews(const toml::table& root, const char* key, Model* model) {
    EachTable(root, key, [&](const toml::table& table) { ReadView(table, model); });
}

void AddViews(std::string* text, const char* key, const Model& model) {
    if (!model.drawingData.views) return;
    for (const auto& view : model.drawingData.views->views()) {
        *text += std::string("\n[[") + key + "]]\n";
        if (view->parent) {
            AddFields(text, kProjectedFields, *view);
        } else {
            AddFields(text, kGeneralFields, *view);
        }
    }
}

void ReadDrawing(const toml::table& root, const char* key, Model* model) {
    if (const toml::table* table = Table(root, key)) {
        Allow(*table, KeysOf(kDrawingFields, kModelsFields));
        ReadFields(*table, kDrawingFields, &DrawingOf(*model));
        ReadFields(*table, kModelsFields, model);
    }
}

void AddDrawing(std::string* text, const char* key, const Model& model) {
    if (!model.drawingData.views) return;
    *text += std::string("\n[") + key + "]\n";
    AddFields(text, kDrawingFields, *model.drawingData.views);
    AddFields(text, kModelsFields, model);
}

}  // namespace

constinit const Section kDrawingSection{"drawing", PRO_MDL_DRAWING, ReadDrawing, AddDrawing};
constinit const Section kViewSection{"view", PRO_MDL_DRAWING, ReadViews, AddViews};

}  // namespace simhost
