// SetUnit: one system of units for the current model and all that is below it.
#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

#include "frame/services.h"
#include "modeldata/commands.h"

namespace {

constexpr Dialog kDialog{"SetUnit"};

// The items of the radio group and the systems that models hold. Hosts differ in the case of these
// names, so they are compared without it.
struct SystemRow {
    const char* item;
    const WideChar* system;
};
// clang-format off
constexpr SystemRow kSystems[] = {
    {"mmKs", WIDE("millimeter Kilogram Sec (mmKs)")},
    {"CGS",  WIDE("Centimeter Gram Second (CGS)")},
    {"mmNs", WIDE("Millimeter Newton Second (mmNs)")},
    {"MKS",  WIDE("Meter Kilogram Second (MKS)")},
    {"IPS",  WIDE("Inch Pound Second (IPS)")},
    {"FPS",  WIDE("Foot Pound Second (FPS)")},
    {"mmgs", WIDE("mmgs")},
};
// clang-format on

// The one that no model has from the start, and what it is made of.
constexpr const WideChar* kMade = WIDE("mmgs");
constexpr const WideChar* kMadeOf[] = {WIDE("mm"), WIDE("g"), WIDE("sec"), WIDE("C")};

// What is set, and how models are brought there.
struct Target {
    WideText system;  // in capitals; empty: none was chosen, and no model has it
    ProUnitConvertType conversion;
};

bool IsSystem(WideView name, const Target& target) {
    return FoldCase(name) == target.system;
}

Target ChosenTarget() {
    const std::string item = kDialog.Selected("UnitRadio");
    const std::string option = kDialog.Selected("OptionRadio");
    const auto row = std::find_if(std::begin(kSystems), std::end(kSystems),
                                  [&](const SystemRow& each) { return item == each.item; });
    return {row == std::end(kSystems) ? WideText() : FoldCase(row->system),
            option == "SAME_SIZE" ? PRO_UNITCONVERT_SAME_SIZE : PRO_UNITCONVERT_SAME_DIMS};
}

void SetSystem(ProMdl model, ProUnitsystem* system, const Target& target) {
    ProMdlPrincipalunitsystemSet(model, system, target.conversion,
                                 /*ignoreParameterUnits=*/PRO_B_TRUE, /*regeneration=*/-1);
}

// A system that could not be made is set all the same: the host refuses an empty record.
void MakeAndSetSystem(ProMdl model, const Target& target) {
    ProArray array = nullptr;
    ProArrayAlloc(int(std::size(kMadeOf)), int(sizeof(ProUnititem)), 1, &array);
    HostArray<ProUnititem> units;
    units.Adopt(static_cast<ProUnititem*>(array));
    if (!units) return;
    for (std::size_t i = 0; i < std::size(kMadeOf); ++i) {
        units.data()[i] = {};
        ProUnitInit(model, HostText(kMadeOf[i]), &units.data()[i]);
    }
    ProUnitsystem made = {};
    ProMdlUnitsystemCreate(model, PRO_UNITSYSTEM_MLT, HostText(kMade), units.data(), &made);
    SetSystem(model, &made, target);
}

// All systems of that name: a model may have two that differ in case.
void SetHeldSystems(ProMdl model, const Target& target) {
    ProUnitsystem* held = nullptr;
    ProMdlUnitsystemsCollect(model, &held);
    HostArray<ProUnitsystem> systems;
    systems.Adopt(held);
    const int count = systems.Size();
    for (int i = 0; i < count; ++i) {
        ProUnitsystem* system = &systems.data()[i];
        if (IsSystem(ViewIn(system->name), target)) SetSystem(model, system, target);
    }
}

// The current model, and of an assembly every model below it. A manufacturing model is on its own.
ModelList TargetModels() {
    ProMdl current = nullptr;
    ProMdlCurrentGet(&current);
    if (!current) return {};
    if (TypeOf(current) != PRO_MDL_ASSEMBLY) return {current};
    ComponentArray components = ComponentCollector(current, VisitAllComponents);
    const int size = components.Size();
    return ReduceToModelList(std::move(components), size, {current});
}

void OnApply(char*, char*, ProAppData) {
    const Target target = ChosenTarget();
    const bool isMade = IsSystem(kMade, target);
    for (const ProMdl model : TargetModels()) {
        if (isMade) MakeAndSetSystem(model, target);
        SetHeldSystems(model, target);
    }
    ShowCompletion(WIDE("\t模型批量单位设置完成"));
}

void Prepare() {
    kDialog.OnPress("ApplyBt", Guarded<OnApply>);
    kDialog.OnPress("Close", EndDialogOnClose);
    kDialog.OnClose(EndDialogOnClose);
}

}  // namespace

void SetUnit() {
    RunModalDialog(kDialog, Prepare);
}
