// Models as text that a designer can read, change and keep under version control. What is there
// must be of the right kind, and nothing else may be there: whoever mistypes something learns in
// which file and line, and what was expected. Only what is not as usual is written.
#include "simhost/model/model_file.h"

#include "simhost/model/model_file_sections.h"

namespace simhost {

using namespace model_text;

namespace {

// --- [model] ---

void ReadType(const toml::node& node, const char* key, Model* model) {
    const std::string word = Text(node, key);
    model->type = ModelTypeOfWord(word);
    if (model->type == PRO_MDL_UNUSED) Fail(node.source(), "unknown model type " + Quoted(word));
    model->subtype = model->type == PRO_MDL_PART ? PROMDLSTYPE_PART_SOLID : PROMDLSTYPE_NONE;
}

void ReadSubtype(const toml::node& node, const char* key, Model* model) {
    const std::string subtype = Text(node, key);
    if (subtype != "sheetmetal" && subtype != "solid") {
        Fail(node.source(), "unknown subtype " + Quoted(subtype));
    }
    if (subtype == "sheetmetal") model->subtype = PROMDLSTYPE_PART_SHEETMETAL;
}

constexpr Field<Model> kTypeField = Required(Field<Model>{
    "type", ReadType, [](const Model& model) { return TextText(WordOfModelType(model.type)); },
    [](const Model&) { return false; }});

constexpr Field<Model> kPartFields[] = {
    {"subtype", ReadSubtype, [](const Model&) { return TextText("sheetmetal"); },
     [](const Model& model) { return model.subtype != PROMDLSTYPE_PART_SHEETMETAL; }},
    Of<&Model::partData, &PartData::skeleton>("skeleton"),
};

constexpr Field<Model> kModelFields[] = {
    Of<&Model::title>("title"),
    Of<&Model::readOnly>("read_only"),
};

void ReadModel(const toml::table& table, Model* model) {
    Keys keys = KeysOf(kPartFields, kModelFields);
    keys.push_back(kTypeField.key);
    keys.insert(keys.end(), std::begin(kUnitsKeys), std::end(kUnitsKeys));
    Allow(table, keys);
    ReadField(table, kTypeField, model);
    for (const Field<Model>& row : kPartFields) {
        OnlyIn(*model, PRO_MDL_PART, table.get(row.key), row.key);
    }
    ReadFields(table, kPartFields, model);
    ReadFields(table, kModelFields, model);
}

void AddModel(std::string* text, const Model& model) {
    *text += "[model]\n";
    AddField(text, kTypeField, model);
    AddFields(text, kPartFields, model);
    AddFields(text, kModelFields, model);
    AddUnits(text, model);
}

// --- The sections after it, in the order in which they are read and written: a drawing's views
// need its sheets, a surface needs its solid, and a bend its sheet ---

constexpr Field<ManufacturingData> kManufacturingFields[] = {
    RequiredLink<&ManufacturingData::assemblyFile, &ManufacturingData::assembly>("assembly"),
};
constexpr Section kManufacturingSection =
    SectionOf<kManufacturingFields, &Model::manufacturingData>("manufacturing", PRO_MDL_MFG);

constexpr const Section* kSections[] = {
    &kUnitSystemSection, &kManufacturingSection, &kAppearanceSection, &kParameterSection,
    &kRelationsSection,  &kFamilySection,        &kSheetsSection,     &kSheetSection,
    &kTableSection,      &kDrawingSection,       &kViewSection,       &kDimensionSection,
    &kNoteSection,       &kSolidSection,         &kSurfaceSection,    &kMaterialSection,
    &kSheetMetalSection, &kBendTableSection,     &kBendSection,       &kFeatureSection,
    &kSimprepSection,
};

void ReadRoot(const toml::table& root, const std::string& fileName, Model* model) {
    Keys keys{"model"};
    for (const Section* section : kSections) keys.push_back(section->key);
    Allow(root, keys);
    const toml::table* about = Table(root, "model");
    if (!about) throw ModelFileError(fileName + ":1: the table [model] is missing");
    ReadModel(*about, model);
    for (const Section* section : kSections) {
        if (section->only == PRO_MDL_UNUSED) continue;
        OnlyIn(*model, section->only, root.get(section->key), section->key);
    }
    for (const Section* section : kSections) section->read(root, section->key, model);
}

}  // namespace

void ReadModelText(const std::string& text, const std::string& fileName, Model* model) {
    try {
        ReadRoot(toml::parse(std::string_view(text), std::string_view(fileName)), fileName, model);
    } catch (const toml::parse_error& error) {
        Fail(error.source(), std::string(error.description()));
    }
}

std::string ModelText(const Model& model) {
    std::string text;
    AddModel(&text, model);
    for (const Section* section : kSections) section->add(&text, section->key, model);
    return text;
}

}  // namespace simhost
