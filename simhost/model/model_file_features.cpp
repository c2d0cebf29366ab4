// The features in the file of a part or an assembly, and with them an assembly's components.
#include <algorithm>
#include <climits>
#include <set>
#include <span>
#include <string>
#include <unordered_set>
#include <utility>

#include "simhost/model/datums.h"
#include "simhost/model/model_file_group.h"
#include "simhost/model/model_file_sections.h"
#include "simhost/model/shape.h"

namespace simhost {

using namespace model_text;

namespace {

constexpr Field<Feature> kFeatureTypeField = Required(Of<&Feature::type>("type"));

constexpr Field<Feature> kFeatureFields[] = {
    Required(Whole<1, &Feature::id>("id")),
    kFeatureTypeField,
    Of<&Feature::name>("name"),
    Word<StatusName, ParseStatus, &Feature::status>("status"),
    Of<&Feature::flags>("flags"),
    Of<&Feature::visible>("visible"),
    Of<&Feature::hiddenInFile>("hidden"),
    Of<&Feature::parents>("parents"),
};

constexpr Field<Feature> kComponentFields[] = {
    RequiredLink<&Feature::file, &Feature::model>("model"),
};

// Of datums; the key tells the kind.
Field<Feature> ItemIdField(const DatumKind& kind) {
    return Whole<1, &Feature::itemId>(kind.word);
}

// Of components and datums.
constexpr Field<Feature> kAtField = Of<&Feature::placement, &Placement::origin>("at");
constexpr Field<Feature> kTurnField = TurnField<&Feature::placement>("turn");
constexpr Field<Feature> kPlaceFields[] = {kAtField, kTurnField};
// Of those whose place need not be known.
constexpr Field<Feature> kKnownPlaceFields[] = {Always(kAtField), kTurnField};

constexpr const char* kConstraintKey = "constraint";

// --- Constraints: [[feature.constraint]] after the component that has them. One that once had some
// and has none says so by an empty list. ---

constexpr const char* kSideWords[] = {"red", "none", "yellow"};  // -1, 0, 1

ProDatumside ReadSide(const toml::table& table, const char* key) {
    const toml::node* node = table.get(key);
    return node ? ProDatumside(int(PlaceOfWord(*node, key, kSideWords)) - 1) : PRO_DATUM_SIDE_NONE;
}

std::optional<ConstraintReference> ReadReference(const toml::table& table, const char* key,
                                                 const char* sideKey) {
    const toml::node* node = table.get(key);
    if (!node) return std::nullopt;
    ConstraintReference reference;
    if (!ParseReference(Text(*node, key), &reference)) {
        Fail(node->source(),
             Quoted(key) + " must be an item such as \"csys#8\" or \"3/surface#12\"");
    }
    reference.side = ReadSide(table, sideKey);
    return reference;
}

Constraint ReadConstraint(const toml::table& table) {
    Allow(table, {"type", "component", "component_side", "assembly", "assembly_side"});
    const toml::node& type = Require(table, "type");
    Constraint constraint;
    const std::string word = Text(type, "type");
    if (!ParseConstraintType(word, &constraint.type)) {
        Fail(type.source(), "unknown type of constraint " + Quoted(word));
    }
    constraint.component = ReadReference(table, "component", "component_side");
    constraint.assembly = ReadReference(table, "assembly", "assembly_side");
    return constraint;
}

void ReadConstraints(const toml::table& table, Feature* feature) {
    if (!table.get(kConstraintKey)) return;
    feature->constraints.emplace();
    EachTable(table, kConstraintKey, [&](const toml::table& one) {
        feature->constraints->push_back(ReadConstraint(one));
    });
}

void AddReference(std::string* text, const std::string& key,
                  const std::optional<ConstraintReference>& reference) {
    if (!reference) return;
    Line(text, key.c_str(), TextText(ReferenceText(*reference)));
    if (reference->side == PRO_DATUM_SIDE_NONE) return;
    Line(text, (key + "_side").c_str(), TextText(kSideWords[int(reference->side) + 1]));
}

void AddConstraints(std::string* text, const Feature& feature) {
    if (!feature.constraints) return;
    if (feature.constraints->empty()) Line(text, kConstraintKey, "[]");
    for (const Constraint& constraint : *feature.constraints) {
        *text += "\n[[feature.constraint]]\n";
        Line(text, "type", TextText(ConstraintTypeName(constraint.type)));
        AddReference(text, "component", constraint.component);
        AddReference(text, "assembly", constraint.assembly);
    }
}

// --- Features ---

template <class Rows>
void RefuseAll(const toml::table& table, const Rows& rows, const char* where) {
    for (const Field<Feature>& row : rows) {
        const toml::node* node = table.get(row.key);
        if (node) Fail(node->source(), Quoted(row.key) + " is only for " + where);
    }
}

// "coordinate systems (type 979)".
std::string FeaturesOf(const DatumKind& kind) {
    return std::string(kind.names) + " (type " + std::to_string(kind.feature) + ")";
}

// Where a component or a datum is. Of a datum that is no coordinate system a file need not say it.
void ReadPlace(const toml::table& table, Feature* feature) {
    const bool component = feature->type == PRO_FEAT_COMPONENT;
    if (!component && !DatumKindOf(*feature)) {
        std::string where = "components (type 1000)";
        for (const DatumKind& kind : DatumKinds()) where += ", " + FeaturesOf(kind);
        RefuseAll(table, kPlaceFields, where.c_str());
    }
    ReadFields(table, kPlaceFields, feature);
    if (component || feature->type == PRO_FEAT_CSYS) return;
    feature->placed = table.get(kAtField.key) != nullptr;
    const toml::node* turn = table.get(kTurnField.key);
    if (turn && feature->type == kDatumPointFeature) {
        Fail(turn->source(), Quoted(kTurnField.key) + " is not for datum points (type 931)");
    }
    if (turn && !feature->placed) {
        Fail(turn->source(), Quoted(kTurnField.key) + " needs " + Quoted(kAtField.key));
    }
}

void ReadItemId(const toml::table& table, Feature* feature) {
    for (const DatumKind& kind : DatumKinds()) {
        const Field<Feature> field = ItemIdField(kind);
        if (kind.feature == feature->type) {
            ReadField(table, field, feature);
        } else {
            RefuseAll(table, std::span(&field, 1), FeaturesOf(kind).c_str());
        }
    }
}

Keys KeysOfFeatures() {
    Keys keys = KeysOf(kFeatureFields, kComponentFields, kPlaceFields);
    for (const DatumKind& kind : DatumKinds()) keys.push_back(kind.word);
    keys.push_back(kConstraintKey);
    keys.insert(keys.end(), kSolidFeatureKeys.begin(), kSolidFeatureKeys.end());
    return keys;
}

Feature ReadFeature(const toml::table& table) {
    Feature feature;
    ReadField(table, kFeatureTypeField, &feature);
    const bool component = feature.type == PRO_FEAT_COMPONENT;
    constexpr const char* kComponents = "components (type 1000)";
    if (!component) {
        RefuseAll(table, kComponentFields, kComponents);
        const toml::node* constraints = table.get(kConstraintKey);
        if (constraints) {
            Fail(constraints->source(), Quoted(kConstraintKey) + " is only for " + kComponents);
        }
    }
    ReadItemId(table, &feature);
    ReadPlace(table, &feature);
    Allow(table, KeysOfFeatures());
    ReadSolidFeature(table, &feature);
    ReadFields(table, kFeatureFields, &feature);
    if (component) ReadFields(table, kComponentFields, &feature);
    ReadConstraints(table, &feature);
    feature.hidden = feature.hiddenInFile;
    return feature;
}

// A datum's number is its own among those of its kind, and where the kind shares its numbers with
// faces (an axis, a plane), theirs too.
void CheckDatum(const toml::table& table, const Feature& feature, const Model& model,
                std::set<std::pair<ProType, int>>* datums) {
    const DatumKind* kind = DatumKindOf(feature);
    if (!kind) return;
    const int id = DatumIdOf(feature);
    if (!datums->insert({kind->item, id}).second) {
        Fail(table.source(),
             "the " + std::string(kind->name) + " " + std::to_string(id) + " is there twice");
    }
    if (!feature.placed) return;
    OnlyIn(model, PRO_MDL_PART, table.get(kAtField.key), kAtField.key);
    const auto& faces = model.shape().faces;
    const bool taken =
        std::any_of(faces.begin(), faces.end(), [id](const auto& face) { return face.id == id; });
    if (kind->feature == kDatumPointFeature || !taken) return;
    Fail(table.source(), "the part has a surface " + std::to_string(id) + "; give the " +
                             kind->name + " another number by " + Quoted(kind->word));
}

void ReadFeatures(const toml::table& root, const char* key, Model* model) {
    std::unordered_set<int> ids;
    std::set<std::pair<ProType, int>> datums;
    EachTable(root, key, [&](const toml::table& table) {
        Feature feature = ReadFeature(table);
        if (!ids.insert(feature.id).second) {
            Fail(table.get("id")->source(),
                 "the feature " + std::to_string(feature.id) + " is there twice");
        }
        CheckDatum(table, feature, *model, &datums);
        for (const int parent : feature.parents) {
            if (ids.count(parent) > 0 && parent != feature.id) continue;
            Fail(table.get("parents")->source(),
                 "no feature before it is its parent " + std::to_string(parent));
        }
        model->AddFeature(std::move(feature));
    });
}

void AddFeatures(std::string* text, const char* key, const Model& model) {
    for (const Feature& feature : model.features()) {
        *text += std::string("\n[[") + key + "]]\n";
        AddFields(text, kFeatureFields, feature);
        const bool component = feature.type == PRO_FEAT_COMPONENT;
        const DatumKind* kind = DatumKindOf(feature);
        if (component) AddFields(text, kComponentFields, feature);
        if (kind) AddField(text, ItemIdField(*kind), feature);
        if (component || feature.type == PRO_FEAT_CSYS) AddFields(text, kPlaceFields, feature);
        if (feature.placed) AddFields(text, kKnownPlaceFields, feature);
        AddConstraints(text, feature);
        AddSolidFeature(text, feature);
    }
}

}  // namespace

constinit const Section kFeatureSection{"feature", PRO_MDL_UNUSED, ReadFeatures, AddFeatures};

}  // namespace simhost
