// Materials: in a file of their own, in the units that it names, and in the file of a part that has
// read them.
//
//     [material]
//     title = "45 钢"
//     density = 7850
//     density_unit = "kg/m^3"
//     young = 206000
//     yield = 355
//     stress_unit = "MPa"
//     poisson = 0.29
#include "simhost/core/text.h"
#include "simhost/model/model_file_error.h"
#include "simhost/model/model_file_sections.h"

namespace simhost {

using namespace model_text;

namespace {

void ReadDensity(const toml::node& node, const char* key, Material* material) {
    ReadValue(node, key, &material->density);
    if (material->density <= 0) Fail(node.source(), Quoted(key) + " must be more than 0");
}

template <double Material::*Value>
constexpr Field<Material> NotNegative(const char* key) {
    auto field = Of<Value>(key);
    field.read = [](const toml::node& node, const char* name, Material* material) {
        ReadValue(node, name, &(material->*Value));
        if (material->*Value < 0) Fail(node.source(), Quoted(name) + " must not be less than 0");
    };
    return field;
}

constexpr Field<Material> kMaterialFields[] = {
    Of<&Material::title>("title"),
    Required(Field<Material>{"density", ReadDensity,
                             [](const Material& one) { return NumberText(one.density); },
                             [](const Material&) { return false; }}),
    Required(OneOf<kDensityUnits, &Material::densityUnit>("density_unit")),
    NotNegative<&Material::young>("young"),
    NotNegative<&Material::yield>("yield"),
    OneOf<kStressUnits, &Material::stressUnit>("stress_unit"),
    NotNegative<&Material::poisson>("poisson"),
};

// --- In the file of a part ---

struct PartMaterial {
    Material material;
    bool current = false;
};
constexpr Field<PartMaterial> kNameField =
    Required(Of<&PartMaterial::material, &Material::name>("name"));
constexpr Field<PartMaterial> kCurrentField = Of<&PartMaterial::current>("current");

void ReadMaterials(const toml::table& root, const char* key, Model* model) {
    EachTable(root, key, [&](const toml::table& table) {
        Keys keys = KeysOf(kMaterialFields);
        keys.push_back(kNameField.key);
        keys.push_back(kCurrentField.key);
        Allow(table, keys);
        PartMaterial read;
        ReadField(table, kNameField, &read);
        ReadFields(table, kMaterialFields, &read.material);
        ReadField(table, kCurrentField, &read);
        const WideText& name = read.material.name;
        const auto fail = [&](const std::string& what) { Fail(table.source(), what); };
        if (name.empty() || name.size() > PRO_NAME_SIZE) fail("a name has 1 to 32 characters");
        if (FindMaterial(*model, name)) fail("the material " + Utf8(name) + " is there twice");
        if (read.current && MaterialOf(*model)) fail("a part is made of one material");
        if (read.current) model->partData.material = name;
        PutMaterial(model, std::move(read.material));
    });
}

void AddMaterials(std::string* text, const char* key, const Model& model) {
    for (const Material& material : model.partData.materials) {
        const PartMaterial written{material, &material == MaterialOf(model)};
        *text += std::string("\n[[") + key + "]]\n";
        AddField(text, kNameField, written);
        AddFields(text, kMaterialFields, material);
        AddField(text, kCurrentField, written);
    }
}

}  // namespace

Material ReadMaterialText(const std::string& text, const std::string& fileName) {
    Material material;
    ReadOnlyTable(text, fileName, "material",
                  [&](const toml::table& table) { ReadRecord(table, kMaterialFields, &material); });
    return material;
}

constinit const Section kMaterialSection{"material", PRO_MDL_PART, ReadMaterials, AddMaterials};

}  // namespace simhost
