// Systems of units in a model's file. What stands where:
//
//     [model]
//     units = "inch Pound Second (IPS)"           # in force; left out: millimeter Newton Second
//     unit_systems = ["inch Pound Second (IPS)"]  # of the usual ones; left out: all
//
//     [[unit_system]]                             # the model's own
//     name = "mmgs"
//     units = ["mm", "g", "sec", "C"]             # length, mass or force, time, temperature
#include <algorithm>

#include "simhost/core/text.h"
#include "simhost/model/model_file_sections.h"

namespace simhost {

using namespace model_text;

constinit const char* const kUnitsKeys[2] = {"units", "unit_systems"};

namespace {

const UnitSystem* FindUsual(WideView name) {
    static const ModelUnits usual;
    return usual.Find(name);
}

bool IsUsual(const UnitSystem& system) {
    const UnitSystem* usual = FindUsual(system.name);
    return usual && usual->units == system.units;
}

void Add(const toml::node& node, const UnitSystem& system, ModelUnits* units) {
    if (units->Find(system.name)) {
        Fail(node.source(), "the system of units " + Quoted(Utf8(system.name)) + " is there twice");
    }
    units->systems.push_back(system);
}

void ReadHeld(const toml::node& node, const char* key, ModelUnits* units) {
    std::vector<WideText> names;
    ReadValue(node, key, &names);
    units->systems.clear();
    for (const WideText& name : names) {
        const UnitSystem* usual = FindUsual(name);
        if (!usual) Fail(node.source(), Quoted(Utf8(name)) + " is no usual system of units");
        Add(node, *usual, units);
    }
}

// --- Systems of its own ---

void ReadName(const toml::node& node, const char* key, UnitSystem* system) {
    ReadValue(node, key, &system->name);
    if (!system->name.empty() && system->name.size() <= PRO_NAME_SIZE) return;
    Fail(node.source(), Quoted(key) + " must have 1 to 32 characters");
}

void ReadUnitNames(const toml::node& node, const char* key, UnitSystem* system) {
    std::vector<WideText> names;
    ReadValue(node, key, &names);
    SystemUnits units{};
    for (std::size_t i = 0; i < names.size(); ++i) {
        const UnitOfMeasure* unit = FindUnit(names[i]);
        if (!unit) Fail(node.source(), "there is no unit " + Quoted(Utf8(names[i])));
        if (i < units.size()) units[i] = unit;
    }
    const bool fits = names.size() == units.size() && (AreUnitsOfASystem(units, Quantity::Mass) ||
                                                       AreUnitsOfASystem(units, Quantity::Force));
    if (!fits) {
        Fail(node.source(),
             Quoted(key) + " must be those of length, mass or force, time, and temperature");
    }
    system->units = units;
}

std::string UnitNames(const UnitSystem& system) {
    std::vector<WideText> names;
    for (const UnitOfMeasure* unit : system.units) names.push_back(unit->name);
    return TextOf(names);
}

constexpr Field<UnitSystem> kSystemFields[] = {
    Required(Field<UnitSystem>{"name", ReadName,
                               [](const UnitSystem& system) { return TextText(Utf8(system.name)); },
                               [](const UnitSystem&) { return false; }}),
    Required(Field<UnitSystem>{"units", ReadUnitNames, UnitNames,
                               [](const UnitSystem&) { return false; }}),
};

// --- Which is in force ---

std::string NamesOf(const std::vector<UnitSystem>& systems) {
    std::string names;
    for (const UnitSystem& each : systems) {
        names += (names.empty() ? "" : ", ") + Quoted(Utf8(each.name));
    }
    return names;
}

void FindPrincipal(const toml::table& about, const char* key, ModelUnits* units) {
    const toml::node* node = about.get(key);
    const WideText name = node ? Wide(Text(*node, key)) : UsualSystems()[kUsualPrincipal].name;
    const UnitSystem* found = units->Find(name);
    if (!found) {
        Fail((node ? *node : static_cast<const toml::node&>(about)).source(),
             "the model has no system of units " + Quoted(Utf8(name)) + "; it has " +
                 NamesOf(units->systems));
    }
    units->principal = std::size_t(found - units->systems.data());
}

void ReadUnitSystems(const toml::table& root, const char* key, Model* model) {
    const toml::table& about = *Table(root, "model");
    const toml::node* nodes[] = {root.get(key), about.get(kUnitsKeys[0]), about.get(kUnitsKeys[1])};
    for (const toml::node* node : nodes) {
        if (HasUnits(*model) || !node) continue;
        Fail(node->source(), "only a part, an assembly and a manufacturing model have units");
    }
    if (nodes[2]) ReadHeld(*nodes[2], kUnitsKeys[1], &model->units);
    EachTable(root, key, [&](const toml::table& table) {
        UnitSystem system;
        ReadRecord(table, kSystemFields, &system);
        Add(table, system, &model->units);
    });
    FindPrincipal(about, kUnitsKeys[0], &model->units);
}

void AddUnitSystems(std::string* text, const char* key, const Model& model) {
    for (const UnitSystem& system : model.units.systems) {
        if (IsUsual(system)) continue;
        *text += std::string("\n[[") + key + "]]\n";
        AddFields(text, kSystemFields, system);
    }
}

}  // namespace

void AddUnits(std::string* text, const Model& model) {
    if (!HasUnits(model)) return;
    const WideText& principal = model.units.Principal().name;
    if (principal != UsualSystems()[kUsualPrincipal].name) {
        Line(text, kUnitsKeys[0], TextText(Utf8(principal)));
    }
    std::vector<WideText> held;
    for (const UnitSystem& system : model.units.systems) {
        if (IsUsual(system)) held.push_back(system.name);
    }
    if (held.size() < UsualSystems().size()) Line(text, kUnitsKeys[1], TextOf(held));
}

constinit const Section kUnitSystemSection{"unit_system", PRO_MDL_UNUSED, ReadUnitSystems,
                                           AddUnitSystems};

}  // namespace simhost
