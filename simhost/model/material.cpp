// Materials: their units, and the masses of parts.
#include "simhost/model/material.h"

#include <algorithm>

#include "simhost/core/text.h"
#include "simhost/model/model.h"
#include "simhost/model/shape.h"

namespace simhost {

namespace {

// The international pound and inch.
constexpr double kKgPerLb = 0.45359237;
constexpr double kMmPerIn = 25.4;
constexpr double kNewtonPerLbf = kKgPerLb * 9.80665;

double KgPerM3Of(DensityUnit unit) {
    switch (unit) {
        case DensityUnit::KgPerM3: return 1;
        case DensityUnit::KgPerMm3: return 1e9;
        case DensityUnit::GPerCm3: return 1e3;
        case DensityUnit::TPerMm3: return 1e12;
        case DensityUnit::LbPerIn3: return kKgPerLb / (kMmPerIn * kMmPerIn * kMmPerIn) * 1e9;
    }
    return 1;
}

double MPaOf(StressUnit unit) {
    switch (unit) {
        case StressUnit::MPa: return 1;
        case StressUnit::Pa: return 1e-6;
        case StressUnit::GPa: return 1e3;
        case StressUnit::Psi: return kNewtonPerLbf / (kMmPerIn * kMmPerIn);
    }
    return 1;
}

}  // namespace

double Material::KgPerMm3() const {
    return density * KgPerM3Of(densityUnit) / 1e9;
}

Material Converted(Material material, DensityUnit density, StressUnit stress) {
    // A value in the wanted unit already keeps all of its digits.
    if (material.densityUnit != density) {
        material.density *= KgPerM3Of(material.densityUnit) / KgPerM3Of(density);
        material.densityUnit = density;
    }
    if (material.stressUnit != stress) {
        const double factor = MPaOf(material.stressUnit) / MPaOf(stress);
        material.young *= factor;
        material.yield *= factor;
        material.stressUnit = stress;
    }
    return material;
}

const Material* FindMaterial(const Model& part, WideView name) {
    for (const Material& each : part.partData.materials) {
        if (SameName(each.name, name)) return &each;
    }
    return nullptr;
}

const Material* MaterialOf(const Model& part) {
    return part.partData.material.empty() ? nullptr : FindMaterial(part, part.partData.material);
}

void PutMaterial(Model* part, Material material) {
    material = Converted(std::move(material), kDensityUnitOfParts, kStressUnitOfParts);
    std::vector<Material>& all = part->partData.materials;
    const auto known = std::find_if(all.begin(), all.end(), [&](const Material& each) {
        return SameName(each.name, material.name);
    });
    if (known == all.end()) {
        all.push_back(std::move(material));
    } else {
        *known = std::move(material);
    }
}

std::optional<double> MassOf(const Model& part) {
    const Material* material = MaterialOf(part);
    if (!material) return std::nullopt;
    const double unit = LengthUnit(part);
    return material->KgPerMm3() * part.shape().volume * unit * unit * unit;
}

}  // namespace simhost
