// Units of models at the door.
#include "hostapi/host/units.h"

#include <algorithm>

#include "simhost/door/door.h"
#include "simhost/door/name_record.h"
#include "simhost/model/units.h"

using namespace simhost;

namespace {

Model& RequireWithUnits(ProMdl handle) {
    Model& model = TheHost().session.Require(handle);
    if (!HasUnits(model)) Refuse(PRO_TK_BAD_INPUTS);
    return model;
}

// What changes a model's numbers or its systems is refused for one that nobody may change.
Model& RequireToChange(ProMdl handle) {
    Model& model = RequireWithUnits(handle);
    if (model.readOnly) Refuse(PRO_TK_NO_PERMISSION);
    return model;
}

void Fill(ProUnitsystem* system, const Model& model, const UnitSystem& from) {
    system->owner = model.handle;
    PutName(from.name, system->name);
}

// Those of an array of records, each null where its record is none of this model's units.
SystemUnits UnitsIn(const ProUnititem* records, const Model& model) {
    if (TheHost().arrays.Size(const_cast<ProUnititem*>(records)) != int(kUnitPlaces)) {
        Complain(PRO_TK_BAD_INPUTS, "a system is made of four units");
    }
    SystemUnits units;
    for (std::size_t i = 0; i < units.size(); ++i) {
        const ProUnititem& record = records[i];
        units[i] = record.owner == model.handle ? FindUnit(NameIn(record.name)) : nullptr;
    }
    return units;
}

Quantity SecondOf(ProUnitsystemType type) {
    if (type != PRO_UNITSYSTEM_MLT && type != PRO_UNITSYSTEM_FLT) Refuse(PRO_TK_BAD_INPUTS);
    return type == PRO_UNITSYSTEM_MLT ? Quantity::Mass : Quantity::Force;
}

// The system of a record. One that was never filled is refused like a null handle.
const UnitSystem& RequireSystem(const Model& model, const ProUnitsystem& record) {
    if (record.owner != model.handle) Refuse(PRO_TK_BAD_INPUTS);
    const UnitSystem* found = model.units.Find(NameIn(record.name));
    if (!found) Complain(PRO_TK_BAD_INPUTS, "not a system of units of " + model.FileName());
    return *found;
}

Conversion ConversionOf(ProUnitConvertType type) {
    switch (type) {
        case PRO_UNITCONVERT_SAME_DIMS: return Conversion::SameDimensions;
        case PRO_UNITCONVERT_SAME_SIZE: return Conversion::SameSize;
    }
    Refuse(PRO_TK_BAD_INPUTS);
}

// What the fourth argument means: with 1 parameters keep their numbers and units, with 0 those that
// have a unit are converted.
bool ConvertsParameters(ProBoolean ignoreParameterUnits) {
    return ignoreParameterUnits == PRO_B_FALSE;
}

}  // namespace

ProError ProUnitInit(ProMdl model, ProName name, ProUnititem* unit) {
    return Op<"ProUnitInit">.Call(
        [&] {
            const Model& owner = RequireWithUnits(model);
            const UnitOfMeasure* found = FindUnit(NameIn(name));
            if (!found) Refuse(PRO_TK_E_NOT_FOUND);
            unit->owner = owner.handle;
            PutName(found->name, unit->name);
        },
        ARG(model), GIVEN(name), OUT(unit));
}

ProError ProMdlUnitsystemCreate(ProMdl model, ProUnitsystemType type, ProName name,
                                ProUnititem* units, ProUnitsystem* system) {
    return Op<"ProMdlUnitsystemCreate">.Call(
        [&] {
            Model& owner = RequireToChange(model);
            const UnitSystem made{NameIn(name), UnitsIn(units, owner)};
            if (made.name.empty()) Refuse(PRO_TK_INVALID_NAME);
            if (!AreUnitsOfASystem(made.units, SecondOf(type))) Refuse(PRO_TK_BAD_INPUTS);
            if (owner.units.Find(made.name)) Refuse(PRO_TK_E_FOUND);
            owner.units.systems.push_back(made);
            owner.modified = true;
            Fill(system, owner, made);
        },
        ARG(model), ARG(type), GIVEN(name), ARRAY(units), OUT(system));
}

ProError ProMdlUnitsystemsCollect(ProMdl model, ProUnitsystem** systems) {
    Operation& op = Op<"ProMdlUnitsystemsCollect">;
    return op.Call(
        [&] {
            const Model& owner = RequireWithUnits(model);
            std::vector<ProUnitsystem> records(owner.units.systems.size());
            for (std::size_t i = 0; i < records.size(); ++i) {
                Fill(&records[i], owner, owner.units.systems[i]);
            }
            *systems = TheHost().arrays.Make(records, op.name());
        },
        ARG(model), OUT_ARRAY(systems));
}

ProError ProMdlPrincipalunitsystemSet(ProMdl model, ProUnitsystem* system,
                                      ProUnitConvertType conversion,
                                      ProBoolean ignoreParameterUnits, int regeneration) {
    return Op<"ProMdlPrincipalunitsystemSet">.Call(
        [&] {
            Model& owner = RequireToChange(model);
            const UnitSystem& wanted = RequireSystem(owner, *system);
            SetPrincipalSystem(owner, wanted, ConversionOf(conversion),
                               ConvertsParameters(ignoreParameterUnits));
        },
        ARG(model), GIVEN(system), ARG(conversion), ARG(ignoreParameterUnits), ARG(regeneration));
}
