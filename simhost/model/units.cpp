// Which units there are, the systems that are made of them, and what happens to a model that goes
// over to another one.
#include "simhost/model/units.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "simhost/model/drawing.h"
#include "simhost/model/group.h"
#include "simhost/model/model.h"
#include "simhost/model/screen_view.h"
#include "simhost/model/session.h"
#include "simhost/model/shape.h"
#include "simhost/model/solid_features.h"

namespace simhost {

namespace {

// clang-format off
const std::vector<UnitOfMeasure>& Units() {
    static const std::vector<UnitOfMeasure> units{
        {WIDE("micron"), Quantity::Length, 0.001},
        {WIDE("mm"),     Quantity::Length, 1},
        {WIDE("cm"),     Quantity::Length, 10},
        {WIDE("m"),      Quantity::Length, 1000},
        {WIDE("in"),     Quantity::Length, 25.4},
        {WIDE("ft"),     Quantity::Length, 304.8},
        {WIDE("g"),      Quantity::Mass, 0.001},
        {WIDE("kg"),     Quantity::Mass, 1},
        {WIDE("tonne"),  Quantity::Mass, 1000},
        {WIDE("lbm"),    Quantity::Mass, 0.45359237},
        {WIDE("N"),      Quantity::Force, 1},
        {WIDE("kN"),     Quantity::Force, 1000},
        {WIDE("lbf"),    Quantity::Force, 4.4482216152605},
        {WIDE("sec"),    Quantity::Time, 1},
        {WIDE("min"),    Quantity::Time, 60},
        {WIDE("hour"),   Quantity::Time, 3600},
        {WIDE("C"),      Quantity::Temperature, 1},
        {WIDE("K"),      Quantity::Temperature, 1},
        {WIDE("F"),      Quantity::Temperature, 1},
    };
    return units;
}
// clang-format on

UnitSystem System(WideView name, WideView length, WideView massOrForce, WideView temperature) {
    return {
        WideText(name),
        {FindUnit(length), FindUnit(massOrForce), FindUnit(WIDE("sec")), FindUnit(temperature)}};
}

// --- Which numbers are lengths ---

constexpr double Solid::*kLengths[] = {
    &Solid::diameter, &Solid::top,   &Solid::outer, &Solid::inner,  &Solid::length,
    &Solid::module,   &Solid::width, &Solid::bore,  &Solid::height, &Solid::scale};
constexpr Vec3 Solid::*kLengthsOfSolid[] = {&Solid::size, &Solid::at};

void Convert(std::vector<double>* numbers, double from, double to) {
    for (double& one : *numbers) one = Converted(one, from, to);
}

void Convert(Vec3* vector, double from, double to) {
    for (double* one : {&vector->x, &vector->y, &vector->z}) *one = Converted(*one, from, to);
}

// --- What else follows the numbers of a model ---

// The screen goes on showing what it shows: more or fewer units for each of its points.
void ConvertScreen(Model* model, double from, double to) {
    if (!model->screen) return;
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t i = 0; i < 3; ++i) model->screen->matrix[row][i] *= to / from;
    }
}

// A part that changes its size takes what was merged into it along, and both places are in mm.
void MoveMerges(Model* part, double factor) {
    for (Feature& feature : part->MutableFeatures()) {
        if (!feature.merge) continue;
        feature.merge->from.origin = factor * feature.merge->from.origin;
        feature.merge->to.origin = factor * feature.merge->to.origin;
    }
}

// Views of a model that changes its size keep its middle where it is on the sheet.
void MovePivots(const Model& model, double factor) {
    if (!model.session) return;
    for (const Model* drawing : model.session->All()) {
        if (!drawing->drawingData.views) continue;
        for (const auto& view : drawing->drawingData.views->views()) {
            if (view->model == model.handle) view->pivot = factor * view->pivot;
        }
    }
}

// What a unit becomes in another system; null for a temperature, whose scales differ by more than
// a factor, and for a quantity that the system has no unit of.
const UnitOfMeasure* UnitFor(const UnitOfMeasure& unit, const UnitSystem& system) {
    if (unit.quantity == Quantity::Temperature) return nullptr;
    const auto same = [&](const UnitOfMeasure* one) { return one->quantity == unit.quantity; };
    const auto found = std::find_if(system.units.begin(), system.units.end(), same);
    return found == system.units.end() ? nullptr : *found;
}

void ConvertParameters(Parameters* parameters, const UnitSystem& to, Conversion conversion) {
    for (const Parameter& one : parameters->all()) {
        const UnitOfMeasure* unit = FindUnit(one.unit);
        const UnitOfMeasure* next = unit ? UnitFor(*unit, to) : nullptr;
        if (!next) continue;
        Parameter changed = one;
        changed.unit = next->name;
        if (conversion == Conversion::SameSize) {
            changed.number = Converted(one.number, unit->factor, next->factor);
        }
        parameters->Set(std::move(changed));
    }
}

}  // namespace

const UnitOfMeasure* FindUnit(WideView name) {
    const auto& all = Units();
    const auto found = std::find_if(all.begin(), all.end(),
                                    [&](const UnitOfMeasure& one) { return one.name == name; });
    return found == all.end() ? nullptr : &*found;
}

bool AreUnitsOfASystem(const SystemUnits& units, Quantity massOrForce) {
    const Quantity wanted[] = {Quantity::Length, massOrForce, Quantity::Time,
                               Quantity::Temperature};
    return std::equal(
        units.begin(), units.end(), std::begin(wanted),
        [](const UnitOfMeasure* unit, Quantity one) { return unit && unit->quantity == one; });
}

const std::vector<UnitSystem>& UsualSystems() {
    static const std::vector<UnitSystem> systems{
        System(WIDE("Millimeter Kilogram Sec (mmKs)"), WIDE("mm"), WIDE("kg"), WIDE("C")),
        System(WIDE("centimeter Gram Second (CGS)"), WIDE("cm"), WIDE("g"), WIDE("C")),
        System(WIDE("millimeter Newton Second (mmNs)"), WIDE("mm"), WIDE("N"), WIDE("C")),
        System(WIDE("meter Kilogram Second (MKS)"), WIDE("m"), WIDE("kg"), WIDE("C")),
        System(WIDE("inch Pound Second (IPS)"), WIDE("in"), WIDE("lbf"), WIDE("F")),
        System(WIDE("foot Pound Second (FPS)"), WIDE("ft"), WIDE("lbf"), WIDE("F")),
    };
    return systems;
}

const UnitSystem* ModelUnits::Find(WideView name) const {
    const auto found = std::find_if(systems.begin(), systems.end(),
                                    [&](const UnitSystem& one) { return one.name == name; });
    return found == systems.end() ? nullptr : &*found;
}

bool HasUnits(const Model& model) {
    return model.type == PRO_MDL_PART || model.type == PRO_MDL_ASSEMBLY ||
           model.type == PRO_MDL_MFG;
}

double LengthUnit(const Model& model) {
    return HasUnits(model) ? model.units.Principal().LengthInMm() : 1;
}

double VolumeInMm3(const Model& part) {
    const double unit = LengthUnit(part);
    return part.shape().volume * unit * unit * unit;
}

WideText LengthUnitName(const Model& model) {
    return HasUnits(model) ? model.units.Principal().units[kLengthPlace]->name
                           : WideText(WIDE("mm"));
}

double Converted(double value, double from, double to) {
    constexpr double kRounding = 1e-14;
    if (from == to) return value;
    const double exact = value * from / to;
    const double brief = std::strtod(fmt::format("{:.12g}", exact).c_str(), nullptr);
    return std::fabs(exact - brief) <= kRounding * std::fabs(exact) ? brief : exact;
}

void SetPrincipalSystem(Model& model, const UnitSystem& system, Conversion conversion,
                        bool withParameters) {
    ModelUnits& units = model.units;
    const UnitSystem& before = units.Principal();
    if (&before == &system) return;
    const double from = before.LengthInMm(), to = system.LengthInMm();
    if (withParameters) ConvertParameters(&model.parameters, system, conversion);
    if (conversion == Conversion::SameDimensions) {
        MovePivots(model, to / from);
        MoveMerges(&model, to / from);
    } else {
        ConvertLengths(&model, from, to);
        ConvertScreen(&model, from, to);
    }
    units.principal = std::size_t(&system - units.systems.data());
    model.modified = true;
}

void ConvertLengths(Solid* solid, double from, double to) {
    for (double Solid::*length : kLengths) solid->*length = Converted(solid->*length, from, to);
    for (Vec3 Solid::*place : kLengthsOfSolid) Convert(&(solid->*place), from, to);
    for (auto& corner : solid->outline) {
        for (double& one : corner) one = Converted(one, from, to);
    }
}

void ConvertLengths(BendTable* table, double from, double to) {
    Convert(&table->thickness, from, to);
    Convert(&table->radius, from, to);
    for (std::vector<double>& row : table->length) Convert(&row, from, to);
}

void ConvertLengths(SheetMetal* sheet, double from, double to) {
    sheet->thickness = Converted(sheet->thickness, from, to);
    sheet->developed = Converted(sheet->developed, from, to);
    Convert(&sheet->flats, from, to);
    for (Bend& bend : sheet->bends) bend.radius = Converted(bend.radius, from, to);
    ConvertLengths(&sheet->table, from, to);
}

void ConvertLengths(Model* model, double from, double to) {
    if (from == to) return;
    for (Solid& solid : model->partData.solids) ConvertLengths(&solid, from, to);
    for (Feature& feature : model->MutableFeatures()) {
        Convert(&feature.placement.origin, from, to);
        // Dimensions of groups are lengths, all of them.
        if (!feature.group) continue;
        for (GroupDimension& one : feature.group->dimensions) {
            one.value = Converted(one.value, from, to);
        }
    }
    ConvertLengths(&model->partData.sheetMetal, from, to);
    model->RemeasureSurfaces();
}

// --- Across models ---

Placement PlaceInMm(const Placement& place, const Model& assembly) {
    return {place.axes, LengthUnit(assembly) * place.origin};
}

Placement FromMm(Placement placeInMm, const Model& assembly) {
    Convert(&placeInMm.origin, 1, LengthUnit(assembly));
    return placeInMm;
}

Placement ForPointsOf(const Model& model, Placement placeInMm) {
    const double unit = LengthUnit(model);
    for (Vec3& axis : placeInMm.axes) axis = unit * axis;
    return placeInMm;
}

}  // namespace simhost
