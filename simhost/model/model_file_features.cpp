// The features in the file of a part or an assembly, and with them an assembly's components.
#include <climits>
#include <unordered_set>

#include "simhost/model/model_file_sections.h"

namespace simhost {

using namespace model_text;

namespace {

constexpr Field<Feature> kTypeField = Required(Of<&Feature::type>("type"));

constexpr Field<Feature> kFeatureFields[] = {
    Required(Whole<1, &Feature::id>("id")),
    kTypeField,
    Of<&Feature::name>("name"),
    Word<StatusName, ParseStatus, &Feature::status>("status"),
    Of<&Feature::flags>("flags"),
    Of<&Feature::visible>("visible"),
    Of<&Feature::hiddenInFile>("hidden"),
};

constexpr Field<Feature> kComponentFields[] = {
    RequiredLink<&Feature::file, &Feature::model>("model"),
    Of<&Feature::placement, &Placement::origin>("at"),
    TurnField<&Feature::placement>("turn"),
};

Feature ReadFeature(const toml::table& table) {
    Feature feature;
    ReadField(table, kTypeField, &feature);
    if (feature.type == PRO_FEAT_COMPONENT) {
        Allow(table, KeysOf(kFeatureFields, kComponentFields));
        ReadFields(table, kComponentFields, &feature);
    } else {
        for (const Field<Feature>& row : kComponentFields) {
            const toml::node* node = table.get(row.key);
            if (node) Fail(node->source(), Quoted(row.key) + " is only for components (type 1000)");
        }
        Allow(table, KeysOf(kFeatureFields));
    }
    ReadFields(table, kFeatureFields, &feature);
    feature.hidden = feature.hiddenInFile;
    return feature;
}

void ReadFeatures(const toml::table& root, const char* key, Model* model) {
    std::unordered_set<int> ids;
    EachTable(root, key, [&](const toml::table& table) {
        Feature feature = ReadFeature(table);
        if (!ids.insert(feature.id).second) {
            Fail(table.get("id")->source(),
                 "the feature " + std::to_string(feature.id) + " is there twice");
        }
        model->AddFeature(std::move(feature));
    });
}

void AddFeatures(std::string* text, const char* key, const Model& model) {
    for (const Feature& feature : model.features()) {
        *text += std::string("\n[[") + key + "]]\n";
        AddFields(text, kFeatureFields, feature);
        if (feature.type == PRO_FEAT_COMPONENT) AddFields(text, kComponentFields, feature);
    }
}

}  // namespace

constinit const Section kFeatureSection{"feature", PRO_MDL_UNUSED, ReadFeatures, AddFeatures};

}  // namespace simhost
