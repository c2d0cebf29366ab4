// What parts are made of: materials with their values, and the mass that follows from them.
#pragma once

#include <optional>
#include <string>

#include "hostapi/wide.h"

namespace simhost {

class Model;

// The units in which a material's values may be written, and their words in files.
enum class DensityUnit { KgPerM3, KgPerMm3, GPerCm3, TPerMm3, LbPerIn3 };
inline constexpr const char* kDensityUnits[] = {"kg/m^3", "kg/mm^3", "g/cm^3", "t/mm^3", "lb/in^3"};
enum class StressUnit { MPa, Pa, GPa, Psi };
inline constexpr const char* kStressUnits[] = {"MPa", "Pa", "GPa", "psi"};

struct Material {
    WideText name;      // that of its file, without extension
    std::string title;  // the designer's words for it (UTF-8)
    double density = 0;
    DensityUnit densityUnit = DensityUnit::KgPerM3;
    double young = 0, yield = 0;  // modulus of elasticity, yield strength; 0: not known
    StressUnit stressUnit = StressUnit::MPa;
    double poisson = 0;  // 0: not known

    double KgPerMm3() const;
};

// The units in which a part keeps the values of its materials.
inline constexpr DensityUnit kDensityUnitOfParts = DensityUnit::KgPerM3;
inline constexpr StressUnit kStressUnitOfParts = StressUnit::MPa;

// The same material in other units.
Material Converted(Material material, DensityUnit density, StressUnit stress);

// A material from the text of its file, in the file's units and without a name. Throws
// ModelFileError.
Material ReadMaterialText(const std::string& text, const std::string& fileName);

// Null: the part has none of that name, whatever the case of its letters.
const Material* FindMaterial(const Model& part, WideView name);
// What the part is made of; null: of nothing that is known.
const Material* MaterialOf(const Model& part);
// Takes it in, in the part's units, in the place of one of that name.
void PutMaterial(Model* part, Material material);

// In kg, by the volume of the part's shape; nothing for a part of which it is not known what it is
// made of.
std::optional<double> MassOf(const Model& part);

}  // namespace simhost
