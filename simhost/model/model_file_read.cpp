// Reading models from the text that a designer wrote or keeps under version control. What is there
// must be of the right kind, and nothing else may be there: whoever mistypes something learns in
// which file and line, and what was expected.
#include <algorithm>
#include <array>
#include <climits>
#include <cmath>
#include <string_view>
#include <unordered_set>

#include "simhost/core/text.h"
#include "simhost/model/model_file.h"
#include "simhost/model/model_file_data.h"
#include "simhost/model/model_file_drawing.h"
#include "simhost/model/model_file_keys.h"
#include "simhost/model/model_text.h"
#include "simhost/model/toml.h"

namespace simhost {

using namespace model_text;

namespace {

using std::string_view;

// --- Appearances and the model itself ---

// Values of an appearance, left as they are where the key is missing.
void Share(const toml::table& table, string_view key, double* values, std::size_t count) {
    const toml::node* node = table.get(key);
    if (!node) return;
    if (count == 1) {
        *values = NumberOf(*node, key);
    } else {
        Numbers(*node, key, values, count);
    }
    if (std::any_of(values, values + count, [](double v) { return v < 0 || v > 1; })) {
        Fail(node->source(), Quoted(key) + " must be between 0 and 1");
    }
}

void ReadModel(const toml::table& table, Model* model) {
    Allow(table, {"type", "subtype", "skeleton", "title", "read_only"});
    const toml::node& typeNode = Require(table, "type");
    const std::string word = Text(typeNode, "type");
    model->type = ModelTypeOfWord(word);
    if (model->type == PRO_MDL_UNUSED) {
        Fail(typeNode.source(), "unknown model type " + Quoted(word));
    }
    model->subtype = model->type == PRO_MDL_PART ? PROMDLSTYPE_PART_SOLID : PROMDLSTYPE_NONE;

    OnlyIn(*model, PRO_MDL_PART, table.get("subtype"), "subtype");
    OnlyIn(*model, PRO_MDL_PART, table.get("skeleton"), "skeleton");
    if (const toml::node* node = table.get("subtype")) {
        const std::string subtype = Text(*node, "subtype");
        if (subtype != "sheetmetal" && subtype != "solid") {
            Fail(node->source(), "unknown subtype " + Quoted(subtype));
        }
        if (subtype == "sheetmetal") model->subtype = PROMDLSTYPE_PART_SHEETMETAL;
    }
    model->skeleton = Flag(table, "skeleton", false);
    model->title = Text(table, "title");
    model->readOnly = Flag(table, "read_only", false);
}

Keys AppearanceKeys() {
    Keys keys{"color", "highlight_color"};
    for (const AppearanceKey& row : kAppearanceKeys) keys.push_back(row.key);
    return keys;
}

ProdbSurfaceProps ReadAppearance(const toml::table& table) {
    ProdbSurfaceProps props = DefaultAppearance();
    for (const AppearanceKey& row : kAppearanceKeys) {
        Share(table, row.key, &(props.*row.value), 1);
    }
    Share(table, "color", props.colour, 3);
    Share(table, "highlight_color", props.highlightColour, 3);
    return props;
}

// --- Outlines ---

using Point2 = std::array<double, 2>;

double Turn(Point2 a, Point2 b, Point2 c) {
    return (b[0] - a[0]) * (c[1] - a[1]) - (b[1] - a[1]) * (c[0] - a[0]);
}

// Whether two lines of the outline that are not neighbours meet.
bool Meet(Point2 a, Point2 b, Point2 c, Point2 d) {
    const auto apart = [](double p, double q) { return (p > 0 && q > 0) || (p < 0 && q < 0); };
    if (apart(Turn(a, b, c), Turn(a, b, d)) || apart(Turn(c, d, a), Turn(c, d, b))) return false;
    for (std::size_t i = 0; i < 2; ++i) {  // for lines on one straight line
        if (std::max(a[i], b[i]) < std::min(c[i], d[i])) return false;
        if (std::max(c[i], d[i]) < std::min(a[i], b[i])) return false;
    }
    return true;
}

const char* WrongWith(const std::vector<Point2>& outline) {
    const std::size_t n = outline.size();
    if (n < 3) return "needs three points or more";
    for (std::size_t i = 0; i < n; ++i) {
        if (outline[i] == outline[(i + 1) % n]) return "has the same point twice";
    }
    double area = 0;
    for (std::size_t i = 0; i < n; ++i) {
        const Point2 a = outline[i], b = outline[(i + 1) % n], c = outline[(i + 2) % n];
        area += a[0] * b[1] - a[1] * b[0];
        const double back = (a[0] - b[0]) * (c[0] - b[0]) + (a[1] - b[1]) * (c[1] - b[1]);
        if (Turn(a, b, c) == 0 && back > 0) return "runs back over itself";
        for (std::size_t j = i + 2; j < n; ++j) {
            if (i == 0 && j == n - 1) continue;
            if (Meet(a, b, outline[j], outline[(j + 1) % n])) return "crosses itself";
        }
    }
    if (area < 0) return "must be counter-clockwise";
    return area > 0 ? nullptr : "encloses nothing";
}

void ReadOutline(const toml::table& table, Solid* solid) {
    const toml::node& node = Require(table, "outline");
    if (!node.is_array()) Fail(node.source(), "\"outline\" must be a list of points [x, y]");
    for (const toml::node& one : *node.as_array()) {
        Point2 point{};
        Numbers(one, "outline", point.data(), point.size());
        solid->outline.push_back(point);
    }
    if (const char* wrong = WrongWith(solid->outline)) {
        Fail(node.source(), std::string("\"outline\" ") + wrong);
    }
}

// --- Solids, surfaces and features ---

// Fewer teeth leave no root circle; more are surely a slip.
constexpr int kFewestTeeth = 3;
constexpr int kMostTeeth = 10000;

bool IsSurfaceOf(const std::vector<Solid>& solids, int id) {
    return std::any_of(solids.begin(), solids.end(), [id](const Solid& solid) {
        return id > solid.id && id <= solid.id + SurfaceCount(solid);
    });
}

void ReadSizes(const toml::table& table, Solid* solid) {
    Keys keys{"id", "shape", "at", "turn"};
    if (solid->shape == Shape::Box) keys.push_back("size");
    if (solid->shape == Shape::Gear) keys.push_back("teeth");
    if (solid->shape == Shape::Prism) keys.push_back("outline");
    for (const SizeKey& row : kSizeKeys) {
        if (row.shape == solid->shape) keys.push_back(row.key);
    }
    Allow(table, keys);

    const auto check = [&](const toml::node& node, string_view key, double value, bool mayBeZero) {
        if (value > 0 || (value == 0 && mayBeZero)) return;
        Fail(node.source(),
             Quoted(key) + (mayBeZero ? " must not be less than 0" : " must be more than 0"));
    };
    for (const SizeKey& row : kSizeKeys) {
        const toml::node* node = row.shape == solid->shape ? table.get(row.key) : nullptr;
        if (row.shape != solid->shape || (!node && row.mayBeZero)) continue;
        const double value = Measure(Require(table, row.key), row.key);
        check(*node, row.key, value, row.mayBeZero);
        solid->*row.value = value;
    }
    if (solid->shape == Shape::Box) {
        const toml::node& node = Require(table, "size");
        std::array<double, 3> size{};
        Numbers(node, "size", size.data(), size.size());
        for (const double value : size) check(node, "size", value, false);
        solid->size = {size[0], size[1], size[2]};
    }
    if (solid->shape == Shape::Gear) {
        solid->teeth = Integer(Require(table, "teeth"), "teeth", kFewestTeeth);
        if (solid->teeth > kMostTeeth) Fail(table.get("teeth")->source(), "too many \"teeth\"");
        const double root = solid->module * (solid->teeth - 2.5);
        if (solid->bore >= root) Fail(table.get("bore")->source(), "\"bore\" cuts the teeth off");
    }
    if (solid->shape == Shape::Tube && solid->inner >= solid->outer) {
        Fail(table.get("inner")->source(), "\"inner\" must be less than \"outer\"");
    }
    if (solid->shape == Shape::Cone && solid->diameter == 0 && solid->top == 0) {
        Fail(table.source(), "\"diameter\" and \"top\" must not both be 0");
    }
    if (solid->shape == Shape::Prism) ReadOutline(table, solid);
}

// The surfaces of a solid are numbered on from its id; two solids must leave each other room.
void CheckSurfaces(const std::vector<Solid>& others, const Solid& solid, const toml::node& id) {
    const int count = SurfaceCount(solid);
    if (solid.id > INT_MAX - count) Fail(id.source(), "\"id\" is too large");
    for (const Solid& other : others) {
        const bool after = solid.id >= other.id + SurfaceCount(other);
        const bool before = other.id >= solid.id + count;
        if (after || before) continue;
        Fail(id.source(), "this solid has the surfaces " + std::to_string(solid.id + 1) + " to " +
                              std::to_string(solid.id + count) + ", and the solid " +
                              std::to_string(other.id) + " has some of them too");
    }
}

void ReadSolid(const toml::table& table, Model* model) {
    Solid solid;
    const toml::node& idNode = Require(table, "id");
    solid.id = Integer(idNode, "id", 1);
    const toml::node& shapeNode = Require(table, "shape");
    const std::string shape = Text(shapeNode, "shape");
    if (!ParseShape(shape, &solid.shape)) {
        Fail(shapeNode.source(), "unknown shape " + Quoted(shape));
    }
    ReadSizes(table, &solid);
    solid.at = Vector(table, "at");
    solid.turn = Vector(table, "turn");
    CheckSurfaces(model->solids, solid, idNode);
    model->solids.push_back(std::move(solid));
}

void ReadSurface(const toml::table& table, Model* model) {
    Keys keys = AppearanceKeys();
    keys.push_back("id");
    Allow(table, keys);
    const toml::node& node = Require(table, "id");
    const int id = Integer(node, "id", 1);
    if (!IsSurfaceOf(model->solids, id)) {
        Fail(node.source(), "no solid has a surface " + std::to_string(id));
    }
    if (!model->surfaceAppearances.emplace(id, ReadAppearance(table)).second) {
        Fail(node.source(), "the surface " + std::to_string(id) + " is there twice");
    }
}

void ReadFeature(const toml::table& table, std::unordered_set<int>* ids, Model* model) {
    Feature feature;
    feature.type = Integer(Require(table, "type"), "type", INT_MIN);
    if (feature.type == PRO_FEAT_COMPONENT) {
        Allow(table, {"id", "type", "name", "status", "flags", "visible", "hidden", "model", "at",
                      "turn"});
        const toml::node& file = Require(table, "model");
        feature.file = Text(file, "model");
        if (feature.file.empty()) Fail(file.source(), "\"model\" must not be empty");
        feature.placement = PlacementFrom(Vector(table, "at"), Vector(table, "turn"));
    } else {
        for (const char* key : {"model", "at", "turn"}) {
            const toml::node* node = table.get(key);
            if (node) Fail(node->source(), Quoted(key) + " is only for components (type 1000)");
        }
        Allow(table, {"id", "type", "name", "status", "flags", "visible", "hidden"});
    }
    const toml::node& idNode = Require(table, "id");
    feature.id = Integer(idNode, "id", 1);
    if (!ids->insert(feature.id).second) {
        Fail(idNode.source(), "the feature " + std::to_string(feature.id) + " is there twice");
    }
    feature.name = Wide(Text(table, "name"));
    if (const toml::node* node = table.get("status")) {
        const std::string word = Text(*node, "status");
        if (!ParseStatus(word, &feature.status)) {
            Fail(node->source(), "unknown status " + Quoted(word));
        }
    }
    if (const toml::node* flags = table.get("flags")) {
        feature.flags = Integer(*flags, "flags", INT_MIN);
    }
    feature.visible = Flag(table, "visible", true);
    feature.hidden = feature.hiddenInFile = Flag(table, "hidden", false);
    model->AddFeature(std::move(feature));
}

void ReadRoot(const toml::table& root, const std::string& fileName, Model* model) {
    Keys keys{"model", "appearance", "solid", "surface", "feature", "manufacturing"};
    for (const string_view key : ModelDataKeys()) keys.push_back(key);
    for (const string_view key : DrawingKeys()) keys.push_back(key);
    Allow(root, keys);
    const toml::table* about = Table(root, "model");
    if (!about) throw ModelFileError(fileName + ":1: the table [model] is missing");
    ReadModel(*about, model);

    OnlyIn(*model, PRO_MDL_PART, root.get("solid"), "solid");
    OnlyIn(*model, PRO_MDL_PART, root.get("surface"), "surface");
    OnlyIn(*model, PRO_MDL_MFG, root.get("manufacturing"), "manufacturing");
    if (const toml::table* look = Table(root, "appearance")) {
        Allow(*look, AppearanceKeys());
        model->appearance = ReadAppearance(*look);
    }
    EachTable(root, "solid", [&](const toml::table& table) { ReadSolid(table, model); });
    EachTable(root, "surface", [&](const toml::table& table) { ReadSurface(table, model); });
    std::unordered_set<int> ids;
    EachTable(root, "feature", [&](const toml::table& table) { ReadFeature(table, &ids, model); });
    if (const toml::table* work = Table(root, "manufacturing")) {
        Allow(*work, {"assembly"});
        const toml::node& file = Require(*work, "assembly");
        model->manufacturedFile = Text(file, "assembly");
        if (model->manufacturedFile.empty()) Fail(file.source(), "\"assembly\" must not be empty");
    }
    ReadModelData(root, model);
    ReadDrawing(root, model);
}

}  // namespace

void ReadModelText(const std::string& text, const std::string& fileName, Model* model) {
    try {
        ReadRoot(toml::parse(string_view(text), string_view(fileName)), fileName, model);
    } catch (const toml::parse_error& error) {
        Fail(error.source(), std::string(error.description()));
    }
}

}  // namespace simhost
