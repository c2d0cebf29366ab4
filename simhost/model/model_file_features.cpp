// The features in the file of a part or an assembly, and with them an assembly's components.
#include <climits>
#include <unordered_set>

#include "simhost/model/csys.h"
#include "simhost/model/model_file_group.h"
#include "simhost/model/model_file_sections.h"

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

constexpr Field<Feature> kCsysFields[] = {
    Whole<1, &Feature::csysId>("csys"),
};

// Of components and coordinate systems.
constexpr Field<Feature> kPlaceFields[] = {
    Of<&Feature::placement, &Placement::origin>("at"),
    TurnField<&Feature::placement>("turn"),
};

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

Feature ReadFeature(const toml::table& table) {
    Feature feature;
    ReadField(table, kFeatureTypeField, &feature);
    const bool component = feature.type == PRO_FEAT_COMPONENT;
    const bool csys = feature.type == PRO_FEAT_CSYS;
    constexpr const char* kComponents = "components (type 1000)";
    if (!component) {
        RefuseAll(table, kComponentFields, kComponents);
        const toml::node* constraints = table.get(kConstraintKey);
        if (constraints) {
            Fail(constraints->source(), Quoted(kConstraintKey) + " is only for " + kComponents);
        }
    }
    if (!csys) RefuseAll(table, kCsysFields, "coordinate systems (type 979)");
    if (!component && !csys) {
        RefuseAll(table, kPlaceFields, "components (type 1000) and coordinate systems (type 979)");
    }
    Keys keys = KeysOf(kFeatureFields, kComponentFields, kCsysFields, kPlaceFields);
    keys.push_back(kConstraintKey);
    keys.insert(keys.end(), kSolidFeatureKeys.begin(), kSolidFeatureKeys.end());
    Allow(table, keys);
    ReadSolidFeature(table, &feature);
    ReadFields(table, kFeatureFields, &feature);
    if (component) ReadFields(table, kComponentFields, &feature);
    if (csys) ReadFields(table, kCsysFields, &feature);
    ReadFields(table, kPlaceFields, &feature);
    ReadConstraints(table, &feature);
    feature.hidden = feature.hiddenInFile;
    return feature;
}

void ReadFeatures(const toml::table& root, const char* key, Model* model) {
    std::unordered_set<int> ids, csyses;
    EachTable(root, key, [&](const toml::table& table) {
        Feature feature = ReadFeature(table);
        if (!ids.insert(feature.id).second) {
            Fail(table.get("id")->source(),
                 "the feature " + std::to_string(feature.id) + " is there twice");
        }
        if (feature.type == PRO_FEAT_CSYS && !csyses.insert(CsysIdOf(feature)).second) {
            Fail(table.source(),
                 "the coordinate system " + std::to_string(CsysIdOf(feature)) + " is there twice");
        }
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
        const bool csys = feature.type == PRO_FEAT_CSYS;
        if (component) AddFields(text, kComponentFields, feature);
        if (csys) AddFields(text, kCsysFields, feature);
        if (component || csys) AddFields(text, kPlaceFields, feature);
        AddConstraints(text, feature);
        AddSolidFeature(text, feature);
    }
}

}  // namespace

constinit const Section kFeatureSection{"feature", PRO_MDL_UNUSED, ReadFeatures, AddFeatures};

}  // namespace simhost
