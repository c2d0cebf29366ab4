// Writing models as text that a designer can read and keep under version control: keys in the order
// that readers expect, and only what is not as usual.
#include <algorithm>
#include <charconv>
#include <cmath>
#include <initializer_list>
#include <string_view>

#include "simhost/core/text.h"
#include "simhost/model/model_file.h"
#include "simhost/model/model_file_data.h"
#include "simhost/model/model_file_drawing.h"
#include "simhost/model/model_file_keys.h"
#include "simhost/model/model_text.h"

namespace simhost {

using namespace model_text;

namespace {

using std::string_view;

std::string ColourList(const double* colour) {
    return ListText({colour[0], colour[1], colour[2]});
}

// Angles come back from a placement with the last digits blurred: ten decimals say all.
double TidyAngle(double degrees) {
    return std::round(degrees * 1e10) / 1e10;
}

void AddAppearance(std::string* text, const ProdbSurfaceProps& props) {
    const ProdbSurfaceProps usual = DefaultAppearance();
    for (const AppearanceKey& row : kAppearanceKeys) {
        const double value = props.*row.value;
        if (value != usual.*row.value) Line(text, row.key, NumberText(value));
    }
    if (!std::equal(props.colour, props.colour + 3, usual.colour)) {
        Line(text, "color", ColourList(props.colour));
    }
    if (!std::equal(props.highlightColour, props.highlightColour + 3, usual.highlightColour)) {
        Line(text, "highlight_color", ColourList(props.highlightColour));
    }
}

void AddModel(std::string* text, const Model& model) {
    *text += "[model]\n";
    Line(text, "type", TextText(WordOfModelType(model.type)));
    if (model.subtype == PROMDLSTYPE_PART_SHEETMETAL) Line(text, "subtype", "\"sheetmetal\"");
    if (model.skeleton) Line(text, "skeleton", "true");
    if (!model.title.empty()) Line(text, "title", TextText(model.title));
    if (model.readOnly) Line(text, "read_only", "true");
}

void AddSolid(std::string* text, const Solid& solid) {
    *text += "\n[[solid]]\n";
    Line(text, "id", std::to_string(solid.id));
    Line(text, "shape", TextText(ShapeName(solid.shape)));
    if (solid.shape == Shape::Box) AddVector(text, "size", solid.size);
    if (solid.shape == Shape::Gear) Line(text, "teeth", std::to_string(solid.teeth));
    if (solid.shape == Shape::Prism) {
        std::string list;
        for (const auto& p : solid.outline) {
            list += (list.empty() ? "[" : ", ") + ListText({p[0], p[1]});
        }
        Line(text, "outline", list + ']');
    }
    for (const SizeKey& row : kSizeKeys) {
        if (row.shape != solid.shape || (row.mayBeZero && solid.*row.value == 0)) continue;
        Line(text, row.key, NumberText(solid.*row.value));
    }
    AddVector(text, "at", solid.at);
    AddVector(text, "turn", solid.turn);
}

void AddFeature(std::string* text, const Feature& feature) {
    *text += "\n[[feature]]\n";
    Line(text, "id", std::to_string(feature.id));
    Line(text, "type", std::to_string(feature.type));
    if (!feature.name.empty()) Line(text, "name", TextText(Utf8(feature.name)));
    if (feature.status != PRO_FEAT_ACTIVE) {
        Line(text, "status", TextText(StatusName(feature.status)));
    }
    if (feature.flags != 0) Line(text, "flags", std::to_string(feature.flags));
    if (!feature.visible) Line(text, "visible", "false");
    if (feature.hiddenInFile) Line(text, "hidden", "true");
    if (feature.type != PRO_FEAT_COMPONENT) return;
    // A model in memory may have another name by now.
    Line(text, "model", TextText(feature.model ? feature.model->FileName() : feature.file));
    AddVector(text, "at", feature.placement.origin);
    const Vec3 turn = TurnOf(feature.placement);
    AddVector(text, "turn", {TidyAngle(turn.x), TidyAngle(turn.y), TidyAngle(turn.z)});
}

}  // namespace

std::string ModelText(const Model& model) {
    std::string text;
    AddModel(&text, model);
    const Model* assembly = model.manufactured;
    const std::string work = assembly ? assembly->FileName() : model.manufacturedFile;
    if (!work.empty()) {
        text += "\n[manufacturing]\n";
        Line(&text, "assembly", TextText(work));
    }
    if (model.appearance) {
        text += "\n[appearance]\n";
        AddAppearance(&text, *model.appearance);
    }
    AddModelData(&text, model);
    AddDrawing(&text, model);
    for (const Solid& solid : model.solids) AddSolid(&text, solid);
    for (const auto& [id, props] : model.surfaceAppearances) {
        text += "\n[[surface]]\n";
        Line(&text, "id", std::to_string(id));
        AddAppearance(&text, props);
    }
    for (const Feature& feature : model.features()) AddFeature(&text, feature);
    return text;
}

}  // namespace simhost
