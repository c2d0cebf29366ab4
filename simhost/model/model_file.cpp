// Models as text that a designer can read, write by hand and keep under version control. Whoever
// mistypes something learns in which file and line, and what was expected.
#include "simhost/model/model_file.h"

#include <toml++/toml.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <climits>
#include <cmath>
#include <initializer_list>
#include <string_view>
#include <unordered_set>

#include "simhost/core/text.h"

namespace simhost {

namespace {

using std::string_view;

// --- The words and keys of the format, for reading and writing ---

struct TypeWord {
    const char* word;
    ProMdlType type;
};
constexpr TypeWord kTypes[] = {
    {"part", PRO_MDL_PART},       {"assembly", PRO_MDL_ASSEMBLY}, {"manufacturing", PRO_MDL_MFG},
    {"drawing", PRO_MDL_DRAWING}, {"format", PRO_MDL_DWGFORM},
};

// The numbers of an appearance; the two colours follow them.
struct AppearanceKey {
    const char* key;
    double ProdbSurfaceProps::*value;
};
constexpr AppearanceKey kAppearanceKeys[] = {
    {"ambient", &ProdbSurfaceProps::ambient},
    {"diffuse", &ProdbSurfaceProps::diffuse},
    {"highlight", &ProdbSurfaceProps::highlight},
    {"shininess", &ProdbSurfaceProps::shininess},
    {"reserved", &ProdbSurfaceProps::reserved},
    {"transparency", &ProdbSurfaceProps::transparency},
    {"reflection", &ProdbSurfaceProps::reflection},
};

// The plain sizes of each shape. `mayBeZero`: the shape still makes sense without it.
struct SizeKey {
    Shape shape;
    const char* key;
    double Solid::*value;
    bool mayBeZero;
};
constexpr SizeKey kSizeKeys[] = {
    {Shape::Cylinder, "diameter", &Solid::diameter, false},
    {Shape::Cylinder, "length", &Solid::length, false},
    {Shape::Tube, "outer", &Solid::outer, false},
    {Shape::Tube, "inner", &Solid::inner, false},
    {Shape::Tube, "length", &Solid::length, false},
    {Shape::Cone, "diameter", &Solid::diameter, true},
    {Shape::Cone, "top", &Solid::top, true},
    {Shape::Cone, "length", &Solid::length, false},
    {Shape::Gear, "module", &Solid::module, false},
    {Shape::Gear, "width", &Solid::width, false},
    {Shape::Gear, "bore", &Solid::bore, true},
    {Shape::Prism, "height", &Solid::height, false},
};

// Fewer teeth leave no root circle; more are surely a slip.
constexpr int kFewestTeeth = 3;
constexpr int kMostTeeth = 10000;

bool IsSurfaceOf(const std::vector<Solid>& solids, int id) {
    return std::any_of(solids.begin(), solids.end(), [id](const Solid& solid) {
        return id > solid.id && id <= solid.id + SurfaceCount(solid);
    });
}

// --- Reading: what is there must be of the right kind, and nothing else may be there ---

using Keys = std::vector<string_view>;

[[noreturn]] void Fail(const toml::source_region& where, const std::string& what) {
    const std::string file = where.path ? *where.path : std::string("model");
    throw ModelFileError(file + ':' + std::to_string(where.begin.line) + ": " + what);
}

std::string Quoted(string_view word) {
    return '"' + std::string(word) + '"';
}

void Allow(const toml::table& table, const Keys& keys) {
    for (const auto& [key, value] : table) {
        if (std::find(keys.begin(), keys.end(), key.str()) != keys.end()) continue;
        Fail(key.source(), "unknown key " + Quoted(key.str()));
    }
}

void OnlyIn(const Model& model, ProMdlType type, const toml::node* node, string_view key) {
    if (!node || model.type == type) return;
    for (const TypeWord& row : kTypes) {
        if (row.type != type) continue;
        Fail(node->source(), Quoted(key) + " belongs only in a model of type " + Quoted(row.word));
    }
}

const toml::node& Require(const toml::table& table, string_view key) {
    const toml::node* node = table.get(key);
    if (!node) Fail(table.source(), Quoted(key) + " is missing");
    return *node;
}

const toml::table* Table(const toml::table& table, string_view key) {
    const toml::node* node = table.get(key);
    if (!node) return nullptr;
    if (!node->is_table()) {
        Fail(node->source(), Quoted(key) + " must be a table: [" + std::string(key) + "]");
    }
    return node->as_table();
}

template <class Each>
void EachTable(const toml::table& root, string_view key, Each each) {
    const toml::node* node = root.get(key);
    if (!node) return;
    const std::string name(key);
    const std::string what = Quoted(key) + " must be a list of tables: [[" + name + "]]";
    if (!node->is_array()) Fail(node->source(), what);
    for (const toml::node& one : *node->as_array()) {
        if (!one.is_table()) Fail(one.source(), what);
        each(*one.as_table());
    }
}

double NumberOf(const toml::node& node, string_view key) {
    const auto number = node.is_number() ? node.value<double>() : std::nullopt;
    if (!number || !std::isfinite(*number)) {
        Fail(node.source(), Quoted(key) + " must be a number");
    }
    return *number;
}

int Integer(const toml::node& node, string_view key, int least) {
    const auto* whole = node.as_integer();
    if (!whole || whole->get() < least || whole->get() > INT_MAX) {
        Fail(node.source(), Quoted(key) + " must be a whole number" +
                                (least > INT_MIN ? ", at least " + std::to_string(least) : ""));
    }
    return int(whole->get());
}

bool Flag(const toml::table& table, string_view key, bool byDefault) {
    const toml::node* node = table.get(key);
    if (!node) return byDefault;
    if (!node->is_boolean()) Fail(node->source(), Quoted(key) + " must be true or false");
    return node->as_boolean()->get();
}

std::string Text(const toml::node& node, string_view key) {
    if (!node.is_string()) Fail(node.source(), Quoted(key) + " must be a text in quotes");
    return node.as_string()->get();
}

std::string Text(const toml::table& table, string_view key) {
    const toml::node* node = table.get(key);
    return node ? Text(*node, key) : std::string();
}

void Numbers(const toml::node& node, string_view key, double* values, std::size_t count) {
    const toml::array* list = node.as_array();
    if (!list || list->size() != count) {
        Fail(node.source(),
             Quoted(key) + " must be a list of " + std::to_string(count) + " numbers");
    }
    for (std::size_t i = 0; i < count; ++i) values[i] = NumberOf(*list->get(i), key);
}

Vec3 Vector(const toml::table& table, string_view key) {
    const toml::node* node = table.get(key);
    std::array<double, 3> v{};
    if (node) Numbers(*node, key, v.data(), v.size());
    return {v[0], v[1], v[2]};
}

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
    Allow(table, {"type", "subtype", "skeleton", "title"});
    const toml::node& typeNode = Require(table, "type");
    const std::string word = Text(typeNode, "type");
    const auto row = std::find_if(std::begin(kTypes), std::end(kTypes),
                                  [&](const TypeWord& one) { return one.word == word; });
    if (row == std::end(kTypes)) Fail(typeNode.source(), "unknown model type " + Quoted(word));
    model->type = row->type;
    model->subtype = row->type == PRO_MDL_PART ? PROMDLSTYPE_PART_SOLID : PROMDLSTYPE_NONE;

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
        const double value = NumberOf(Require(table, row.key), row.key);
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
    feature.hidden = Flag(table, "hidden", false);
    model->AddFeature(std::move(feature));
}

void ReadRoot(const toml::table& root, const std::string& fileName, Model* model) {
    Allow(root, {"model", "appearance", "solid", "surface", "feature", "manufacturing"});
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
}

// --- Writing: keys in the order that readers expect, and only what is not as usual ---

// The shortest text that reads back as the same number.
std::string NumberText(double value) {
    if (value == 0) return "0";
    char buffer[40];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
    std::string text(buffer, end);
    // Digits alone are a whole number in the format, and those end at 64 bits.
    if (std::fabs(value) >= 1e15 && text.find_first_of(".e") == std::string::npos) text += ".0";
    return text;
}

std::string ListText(std::initializer_list<double> values) {
    std::string text;
    for (const double value : values) text += (text.empty() ? "[" : ", ") + NumberText(value);
    return text + ']';
}

std::string ListText(const double* colour) {
    return ListText({colour[0], colour[1], colour[2]});
}

std::string TextText(string_view text) {
    std::string result = "\"";
    for (const char c : text) {
        const auto code = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            result += '\\';
            result += c;
        } else if (code < 0x20 || code == 0x7f) {
            constexpr char kDigits[] = "0123456789ABCDEF";
            result += "\\u00";
            result += kDigits[code >> 4];
            result += kDigits[code & 15];
        } else {
            result += c;
        }
    }
    return result + '"';
}

void Line(std::string* text, const char* key, const std::string& value) {
    *text += key;
    *text += " = ";
    *text += value;
    *text += '\n';
}

void AddVector(std::string* text, const char* key, Vec3 v) {
    if (v.x == 0 && v.y == 0 && v.z == 0) return;
    Line(text, key, ListText({v.x, v.y, v.z}));
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
        Line(text, "color", ListText(props.colour));
    }
    if (!std::equal(props.highlightColour, props.highlightColour + 3, usual.highlightColour)) {
        Line(text, "highlight_color", ListText(props.highlightColour));
    }
}

void AddModel(std::string* text, const Model& model) {
    *text += "[model]\n";
    for (const TypeWord& row : kTypes) {
        if (row.type == model.type) Line(text, "type", TextText(row.word));
    }
    if (model.subtype == PROMDLSTYPE_PART_SHEETMETAL) Line(text, "subtype", "\"sheetmetal\"");
    if (model.skeleton) Line(text, "skeleton", "true");
    if (!model.title.empty()) Line(text, "title", TextText(model.title));
}

void AddSolid(std::string* text, const Solid& solid) {
    *text += "\n[[solid]]\n";
    Line(text, "id", std::to_string(solid.id));
    Line(text, "shape", TextText(ShapeName(solid.shape)));
    if (solid.shape == Shape::Box) AddVector(text, "size", solid.size);
    if (solid.shape == Shape::Gear) Line(text, "teeth", std::to_string(solid.teeth));
    if (solid.shape == Shape::Prism) {
        std::string list;
        for (const Point2& p : solid.outline) {
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
    if (feature.hidden) Line(text, "hidden", "true");
    if (feature.type != PRO_FEAT_COMPONENT) return;
    // A model in memory may have another name by now.
    Line(text, "model", TextText(feature.model ? feature.model->FileName() : feature.file));
    AddVector(text, "at", feature.placement.origin);
    const Vec3 turn = TurnOf(feature.placement);
    AddVector(text, "turn", {TidyAngle(turn.x), TidyAngle(turn.y), TidyAngle(turn.z)});
}

}  // namespace

void ReadModelText(const std::string& text, const std::string& fileName, Model* model) {
    try {
        ReadRoot(toml::parse(string_view(text), string_view(fileName)), fileName, model);
    } catch (const toml::parse_error& error) {
        Fail(error.source(), std::string(error.description()));
    }
}

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
