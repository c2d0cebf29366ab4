// The tables of a model's file: each is a section that knows how it is read and written.
#pragma once

#include <string>

#include "simhost/model/model_fields.h"

namespace simhost {

struct Section {
    const char* key;
    ProMdlType only;  // the models that may have it; PRO_MDL_UNUSED: all
    // Reads what is there into the model. Throws ModelFileError.
    void (*read)(const toml::table& root, const char* key, Model* model);
    // Writes what the model has, and nothing for what it has not.
    void (*add)(std::string* text, const char* key, const Model& model);
};

// A section [key] that is one record of the model, and is left out while all in it is as usual.
template <const auto& Rows, auto... Way>
constexpr Section SectionOf(const char* key, ProMdlType only = PRO_MDL_UNUSED) {
    return {key, only,
            [](const toml::table& root, const char* name, Model* model) {
                const toml::table* table = model_text::Table(root, name);
                if (table) model_text::ReadRecord(*table, Rows, &model_text::At<Way...>(*model));
            },
            [](std::string* text, const char* name, const Model& model) {
                const auto& record = model_text::At<Way...>(model);
                if (model_text::AllUsual(Rows, record)) return;
                *text += std::string("\n[") + name + "]\n";
                model_text::AddFields(text, Rows, record);
            }};
}

// A [[solid]] with its sizes checked. Throws ModelFileError.
Solid ReadSolid(const toml::table& table);

extern const Section kAppearanceSection;
extern const Section kParameterSection;
extern const Section kRelationsSection;
extern const Section kFamilySection;
extern const Section kSheetsSection;
extern const Section kSheetSection;
extern const Section kTableSection;
extern const Section kDrawingSection;
extern const Section kViewSection;
extern const Section kDimensionSection;
extern const Section kNoteSection;
extern const Section kSolidSection;
extern const Section kSurfaceSection;
extern const Section kMaterialSection;
extern const Section kSheetMetalSection;
extern const Section kBendTableSection;
extern const Section kBendSection;
extern const Section kFeatureSection;
extern const Section kSimprepSection;
extern const Section kUnitSystemSection;

// The keys of [model] that are read and written with the systems of units.
extern const char* const kUnitsKeys[2];
void AddUnits(std::string* text, const Model& model);

}  // namespace simhost
