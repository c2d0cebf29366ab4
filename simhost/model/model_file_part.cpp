// The shape of a part in its file, and how it looks: solids, and appearances of the whole part and
// of single surfaces.
#include <algorithm>
#include <array>
#include <climits>

#include "simhost/model/imported_body.h"
#include "simhost/model/model_file_sections.h"

namespace simhost {

using namespace model_text;

namespace {

using std::string_view;

// --- Appearances ---

void CheckShares(const toml::node& node, const char* key, const double* values, int count) {
    if (std::any_of(values, values + count, [](double v) { return v < 0 || v > 1; })) {
        Fail(node.source(), Quoted(key) + " must be between 0 and 1");
    }
}

// What a file does not say about an appearance is as on a new part.
template <double ProdbSurfaceProps::*Value>
constexpr Field<ProdbSurfaceProps> Share(const char* key) {
    return {
        key,
        [](const toml::node& node, const char* name, ProdbSurfaceProps* props) {
            props->*Value = NumberOf(node, name);
            CheckShares(node, name, &(props->*Value), 1);
        },
        [](const ProdbSurfaceProps& props) { return NumberText(props.*Value); },
        [](const ProdbSurfaceProps& props) { return props.*Value == DefaultAppearance().*Value; }};
}

template <double (ProdbSurfaceProps::*Value)[3]>
constexpr Field<ProdbSurfaceProps> Colour(const char* key) {
    return {key,
            [](const toml::node& node, const char* name, ProdbSurfaceProps* props) {
                Numbers(node, name, props->*Value, 3);
                CheckShares(node, name, props->*Value, 3);
            },
            [](const ProdbSurfaceProps& props) {
                const double* colour = props.*Value;
                return ListText({colour[0], colour[1], colour[2]});
            },
            [](const ProdbSurfaceProps& props) {
                const ProdbSurfaceProps usual = DefaultAppearance();
                return std::equal(props.*Value, props.*Value + 3, usual.*Value);
            }};
}

constexpr Field<ProdbSurfaceProps> kAppearanceFields[] = {
    Share<&ProdbSurfaceProps::ambient>("ambient"),
    Share<&ProdbSurfaceProps::diffuse>("diffuse"),
    Share<&ProdbSurfaceProps::highlight>("highlight"),
    Share<&ProdbSurfaceProps::shininess>("shininess"),
    Share<&ProdbSurfaceProps::reserved>("reserved"),
    Share<&ProdbSurfaceProps::transparency>("transparency"),
    Share<&ProdbSurfaceProps::reflection>("reflection"),
    Colour<&ProdbSurfaceProps::colour>("color"),
    Colour<&ProdbSurfaceProps::highlightColour>("highlight_color"),
};

void ReadAppearance(const toml::table& root, const char* key, Model* model) {
    const toml::table* table = Table(root, key);
    if (!table) return;
    model->appearance = DefaultAppearance();
    ReadRecord(*table, kAppearanceFields, &*model->appearance);
}

void AddAppearance(std::string* text, const char* key, const Model& model) {
    if (!model.appearance) return;
    *text += std::string("\n[") + key + "]\n";
    AddFields(text, kAppearanceFields, *model.appearance);
}

// --- Outlines ---

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

void ReadOutline(const toml::node& node, const char* key, Solid* solid) {
    if (!node.is_array()) Fail(node.source(), Quoted(key) + " must be a list of points [x, y]");
    for (const toml::node& one : *node.as_array()) {
        Point2 point{};
        Numbers(one, key, point.data(), point.size());
        solid->outline.push_back(point);
    }
    if (const char* wrong = WrongWith(solid->outline)) {
        Fail(node.source(), Quoted(key) + ' ' + wrong);
    }
}

std::string OutlineText(const Solid& solid) {
    std::string list;
    for (const Point2& p : solid.outline) {
        list += (list.empty() ? "[" : ", ") + ListText({p[0], p[1]});
    }
    return list + ']';
}

// --- Solids ---

// Fewer teeth leave no root circle; more are surely a slip.
constexpr int kFewestTeeth = 3;
constexpr int kMostTeeth = 10000;

void CheckLength(const toml::node& node, string_view key, double value) {
    if (!(value > 0)) Fail(node.source(), Quoted(key) + " must be more than 0");
}

void ReadBoxSize(const toml::node& node, const char* key, Solid* solid) {
    ReadValue(node, key, &solid->size);
    for (const double value : {solid->size.x, solid->size.y, solid->size.z}) {
        CheckLength(node, key, value);
    }
}

void ReadTeeth(const toml::node& node, const char* key, Solid* solid) {
    solid->teeth = Integer(node, key, kFewestTeeth);
    if (solid->teeth > kMostTeeth) Fail(node.source(), "too many \"teeth\"");
}

template <double Solid::*Value>
constexpr Field<Solid> Length(const char* key) {
    Field<Solid> field = Required(Of<Value>(key));
    field.read = [](const toml::node& node, const char* name, Solid* solid) {
        ReadValue(node, name, &(solid->*Value));
        CheckLength(node, name, solid->*Value);
    };
    return field;
}

// A length without which the shape still makes sense.
template <double Solid::*Value>
constexpr Field<Solid> LengthOrNone(const char* key) {
    Field<Solid> field = Of<Value>(key);
    field.read = [](const toml::node& node, const char* name, Solid* solid) {
        ReadValue(node, name, &(solid->*Value));
        if (!(solid->*Value >= 0)) {
            Fail(node.source(), Quoted(name) + " must not be less than 0");
        }
    };
    return field;
}

constexpr Field<Solid> With(Field<Solid> field,
                            void (*read)(const toml::node&, const char*, Solid*)) {
    field.read = read;
    return field;
}

void ReadShape(const toml::node& node, const char* key, Solid* solid) {
    const std::string shape = Text(node, key);
    if (ParseShape(shape, &solid->shape)) return;
    Fail(node.source(), "unknown shape " + Quoted(shape) + "; there are " + ShapeNames());
}

// What all solids have: first their kind, and after the sizes of that kind their place.
constexpr Field<Solid> kKindFields[] = {
    Required(Whole<1, &Solid::id>("id")),
    Required(With(Word<ShapeName, ParseShape, &Solid::shape>("shape"), ReadShape)),
};
constexpr Field<Solid> kSolidPlaceFields[] = {Of<&Solid::at>("at"), Of<&Solid::turn>("turn"),
                                              Whole<1, &Solid::feature>("feature")};

struct ShapeField {
    Shape shape;
    Field<Solid> field;
};
// --- Imported solids: long texts, each in lines of its own ---

std::string LongText(const std::string& text) {
    return "'''\n" + text + "'''";
}

void ReadImportedRecord(const toml::node& node, const char* key, Solid* solid) {
    auto body = std::make_shared<ImportedBody>();
    if (!ReadRecord(Text(node, key), body.get())) {
        Fail(node.source(), Quoted(key) + " is no record of an imported solid");
    }
    solid->body = std::move(body);
}
// It is read after the record.
void ReadExactShape(const toml::node& node, const char* key, Solid* solid) {
    auto body = std::make_shared<ImportedBody>(*solid->body);
    body->exact = Text(node, key);
    solid->body = std::move(body);
}

constexpr Field<Solid> kRecordField{
    "record", ReadImportedRecord,
    [](const Solid& solid) { return LongText(RecordText(*solid.body)); },
    [](const Solid&) { return false; }};
constexpr Field<Solid> kExactField{"exact", ReadExactShape,
                                   [](const Solid& solid) { return LongText(solid.body->exact); },
                                   [](const Solid& solid) { return solid.body->exact.empty(); }};

constexpr ShapeField kShapeFields[] = {
    {Shape::Box, Required(With(Of<&Solid::size>("size"), ReadBoxSize))},
    {Shape::Cylinder, Length<&Solid::diameter>("diameter")},
    {Shape::Cylinder, Length<&Solid::length>("length")},
    {Shape::Tube, Length<&Solid::outer>("outer")},
    {Shape::Tube, Length<&Solid::inner>("inner")},
    {Shape::Tube, Length<&Solid::length>("length")},
    {Shape::Cone, LengthOrNone<&Solid::diameter>("diameter")},
    {Shape::Cone, LengthOrNone<&Solid::top>("top")},
    {Shape::Cone, Length<&Solid::length>("length")},
    {Shape::Gear, Required(With(Of<&Solid::teeth>("teeth"), ReadTeeth))},
    {Shape::Gear, Length<&Solid::module>("module")},
    {Shape::Gear, Length<&Solid::width>("width")},
    {Shape::Gear, LengthOrNone<&Solid::bore>("bore")},
    {Shape::Prism, Required(Field<Solid>{"outline", ReadOutline, OutlineText,
                                         [](const Solid&) { return false; }})},
    {Shape::Prism, Length<&Solid::height>("height")},
    {Shape::Imported, Length<&Solid::scale>("scale")},
    {Shape::Imported, Required(kRecordField)},
    {Shape::Imported, kExactField},
};

std::vector<Field<Solid>> FieldsOf(Shape shape) {
    std::vector<Field<Solid>> fields;
    for (const ShapeField& row : kShapeFields) {
        if (row.shape == shape) fields.push_back(row.field);
    }
    return fields;
}

// Sizes that are good one by one may still not go together.
void CheckSizes(const toml::table& table, const Solid& solid) {
    if (solid.shape == Shape::Gear && solid.bore >= solid.module * (solid.teeth - 2.5)) {
        Fail(table.get("bore")->source(), "\"bore\" cuts the teeth off");
    }
    if (solid.shape == Shape::Tube && solid.inner >= solid.outer) {
        Fail(table.get("inner")->source(), "\"inner\" must be less than \"outer\"");
    }
    if (solid.shape == Shape::Cone && solid.diameter == 0 && solid.top == 0) {
        Fail(table.source(), "\"diameter\" and \"top\" must not both be 0");
    }
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

}  // namespace

Solid ReadSolid(const toml::table& table) {
    Solid solid;
    ReadFields(table, kKindFields, &solid);
    const std::vector<Field<Solid>> sizes = FieldsOf(solid.shape);
    Allow(table, KeysOf(kKindFields, sizes, kSolidPlaceFields));
    ReadFields(table, sizes, &solid);
    CheckSizes(table, solid);
    ReadFields(table, kSolidPlaceFields, &solid);
    return solid;
}

namespace {

void ReadSolids(const toml::table& root, const char* key, Model* model) {
    EachTable(root, key, [&](const toml::table& table) {
        Solid solid = ReadSolid(table);
        CheckSurfaces(model->partData.solids, solid, *table.get("id"));
        model->partData.solids.push_back(std::move(solid));
    });
}

void AddSolids(std::string* text, const char* key, const Model& model) {
    for (const Solid& solid : model.partData.solids) {
        *text += std::string("\n[[") + key + "]]\n";
        AddFields(text, kKindFields, solid);
        AddFields(text, FieldsOf(solid.shape), solid);
        AddFields(text, kSolidPlaceFields, solid);
    }
}

// --- Surfaces that look different from their part ---

struct SurfaceLook {
    int id = 0;
    ProdbSurfaceProps props = DefaultAppearance();
};
constexpr Field<SurfaceLook> kSurfaceId = Required(Whole<1, &SurfaceLook::id>("id"));

bool IsSurfaceOf(const std::vector<Solid>& solids, int id) {
    return std::any_of(solids.begin(), solids.end(), [id](const Solid& solid) {
        return id > solid.id && id <= solid.id + SurfaceCount(solid);
    });
}

void ReadSurface(const toml::table& table, PartData* part) {
    Keys keys = KeysOf(kAppearanceFields);
    keys.push_back(kSurfaceId.key);
    Allow(table, keys);
    SurfaceLook look;
    ReadField(table, kSurfaceId, &look);
    const auto fail = [&](const std::string& what) { Fail(table.get("id")->source(), what); };
    if (!IsSurfaceOf(part->solids, look.id)) {
        fail("no solid has a surface " + std::to_string(look.id));
    }
    ReadFields(table, kAppearanceFields, &look.props);
    if (!part->surfaceAppearances.emplace(look.id, look.props).second) {
        fail("the surface " + std::to_string(look.id) + " is there twice");
    }
}

void ReadSurfaces(const toml::table& root, const char* key, Model* model) {
    EachTable(root, key, [&](const toml::table& one) { ReadSurface(one, &model->partData); });
}

void AddSurfaces(std::string* text, const char* key, const Model& model) {
    for (const auto& [id, props] : model.partData.surfaceAppearances) {
        *text += std::string("\n[[") + key + "]]\n";
        AddField(text, kSurfaceId, SurfaceLook{id, props});
        AddFields(text, kAppearanceFields, props);
    }
}

}  // namespace

constinit const Section kAppearanceSection{"appearance", PRO_MDL_UNUSED, ReadAppearance,
                                           AddAppearance};
constinit const Section kSolidSection{"solid", PRO_MDL_PART, ReadSolids, AddSolids};
constinit const Section kSurfaceSection{"surface", PRO_MDL_PART, ReadSurfaces, AddSurfaces};

}  // namespace simhost
