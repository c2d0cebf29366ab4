// Units of models. Everything in a model is in the units of its principal system, also where its
// components are; what is measured or drawn across models is in millimetres.
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "hostapi/wide.h"
#include "simhost/model/geometry.h"

namespace simhost {

class Model;
struct BendTable;
struct SheetMetal;
struct Solid;

enum class Quantity { Length, Mass, Force, Time, Temperature };

struct UnitOfMeasure {
    WideText name;  // "mm"
    Quantity quantity;
    double factor;  // in mm, kg, N or s; 1 for a temperature, which is never converted
};
// By its name, whose case counts. Null: there is no such unit.
const UnitOfMeasure* FindUnit(WideView name);

// The units of a system, in the order in which a designer names them.
enum UnitPlace : std::size_t { kLengthPlace, kMassOrForcePlace, kTimePlace, kTemperaturePlace };
inline constexpr std::size_t kUnitPlaces = 4;
using SystemUnits = std::array<const UnitOfMeasure*, kUnitPlaces>;

struct UnitSystem {
    WideText name;
    SystemUnits units{};  // none null in a system that a model holds

    double LengthInMm() const { return units[kLengthPlace]->factor; }
};
// Whether each unit is of the quantity that its place is for. False also with a null one.
bool AreUnitsOfASystem(const SystemUnits& units, Quantity massOrForce);

// The systems that each new model holds; the third of them, millimetres, is in force there.
const std::vector<UnitSystem>& UsualSystems();
inline constexpr std::size_t kUsualPrincipal = 2;

// What a part, an assembly or a manufacturing model has. Each name is there once, in its very case.
struct ModelUnits {
    std::vector<UnitSystem> systems = UsualSystems();
    std::size_t principal = kUsualPrincipal;  // which of them is in force

    const UnitSystem& Principal() const { return systems[principal]; }
    // The one of this name, whose case counts; null: there is none.
    const UnitSystem* Find(WideView name) const;
};

bool HasUnits(const Model& model);  // drawings and formats have none
// The model's unit of length in mm; 1 for what has no units.
double LengthUnit(const Model& model);
WideText LengthUnitName(const Model& model);  // "mm"

// A number of units of `from` in units of `to` (both in mm). A result that is a short number but
// for rounding becomes that number; the same unit gives the very number back.
double Converted(double value, double from, double to);

enum class Conversion { SameDimensions, SameSize };
// Makes a system of the model's own its principal one. With the same dimensions its numbers stay
// and everything that it owns changes its size; with the same size its numbers change. Components
// keep their own units. The system in force already changes nothing at all.
void SetPrincipalSystem(Model& model, const UnitSystem& system, Conversion conversion,
                        bool withParameters);

// Every number of a solid, of sheet metal and its bend table, and of a model, that is a length in
// the model's unit, from one unit into another (in mm). Nothing else knows which numbers these are.
void ConvertLengths(Solid* solid, double from, double to);
void ConvertLengths(SheetMetal* sheet, double from, double to);
void ConvertLengths(BendTable* table, double from, double to);
void ConvertLengths(Model* model, double from, double to);

// --- Across models ---

// Where a component is in its assembly, with the origin in mm: such places are composed whatever
// the units of the models are.
Placement PlaceInMm(const Placement& place, const Model& assembly);
// Takes points of a model, in its unit, where `placeInMm` takes points in mm. Its axes are as long
// as that unit.
Placement ForPointsOf(const Model& model, Placement placeInMm);

}  // namespace simhost
