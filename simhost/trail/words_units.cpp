// The @ words about units and sizes of models.
#include <fmt/format.h>

#include "simhost/core/text.h"
#include "simhost/model/projection.h"
#include "simhost/trail/interpreter.h"
#include "simhost/trail/words.h"
#include "simhost/ui/near_name.h"
#include "simhost/ui/text_frame.h"

namespace simhost {
namespace {

// Numbers for the eye: what a conversion leaves in the last digits is of no interest.
std::string Brief(double number) {
    return fmt::format("{:.7g}", number + 0.0);
}

std::string InUnit(Vec3 mm, const Model& model, const char* between) {
    const double unit = LengthUnit(model);
    const auto number = [&](double one) { return Brief(Converted(one, 1, unit)); };
    return number(mm.x) + between + number(mm.y) + between + number(mm.z);
}

// The model of this file, or the current one without a name; a failure of the script and null if
// it is not there.
Model* NamedOrCurrent(Trail& trail, const std::string& file) {
    if (!file.empty()) return InMemory(trail, ParseText(file).text);
    Model* model = TheHost().session.CurrentModel();
    if (!model) trail.Fail("no model is open");
    return model;
}

std::string UnitsOf(const UnitSystem& system) {
    std::string text;
    for (const UnitOfMeasure* unit : system.units) {
        text += (text.empty() ? "" : " ") + Utf8(unit->name);
    }
    return text;
}

std::vector<std::string> SystemNames(const Model& model) {
    std::vector<std::string> names;
    for (const UnitSystem& system : model.units.systems) names.push_back(Utf8(system.name));
    return names;
}

}  // namespace

std::string SizeText(const Model& model) {
    const Extents box = ExtentsIn(model, Placement(), Sight::Measures);
    if (box.empty) return {};
    return InUnit(box.high - box.low, model, " x ") + ' ' + Utf8(LengthUnitName(model));
}

std::string FirstPlaceText(const Model& model) {
    for (const Feature& feature : model.features()) {
        if (feature.type != PRO_FEAT_COMPONENT) continue;
        const Vec3 at = feature.placement.origin;
        return fmt::format("({}, {}, {})", Brief(at.x), Brief(at.y), Brief(at.z));
    }
    return {};
}

void ShowUnits(Trail& trail, const std::string& rest) {
    if (rest.empty()) {
        for (const Model* model : TheHost().session.All()) {
            if (!HasUnits(*model)) continue;
            const UnitSystem& system = model->units.Principal();
            trail.Say(fmt::format("{} {} {}", Padded(model->FileName(), 28),
                                  Padded(UnitsOf(system), 14), Utf8(system.name)));
        }
        return;
    }
    const Model* model = NamedOrCurrent(trail, rest);
    if (!model) return;
    if (!HasUnits(*model)) return trail.Fail(model->FileName() + " has no units");
    for (const UnitSystem& system : model->units.systems) {
        const bool inForce = &system == &model->units.Principal();
        trail.Say(fmt::format("{} {} {}", inForce ? '*' : ' ', Padded(UnitsOf(system), 14),
                              Utf8(system.name)));
    }
}

void ShowOutline(Trail& trail, const std::string& rest) {
    const Model* model = NamedOrCurrent(trail, rest);
    if (!model) return;
    const std::string size = SizeText(*model);
    trail.Say(Padded(model->FileName(), 28) + ' ' + (size.empty() ? "no geometry" : size));
}

void ExpectUnit(Trail& trail, const std::string& rest) {
    std::string left = rest;
    const Model* model = InMemory(trail, TakeWord(&left));
    if (!model) return;
    const std::string wanted = ParseText(left).text;
    if (!HasUnits(*model)) return trail.Fail(model->FileName() + " has no units");
    const std::string found = Utf8(model->units.Principal().name);
    if (found == wanted) return;
    const bool held = model->units.Find(Wide(wanted)) != nullptr;
    trail.Fail(fmt::format("the units of {} are {}, not {}{}", model->FileName(), found, wanted,
                           held ? "" : DidYouMean(wanted, SystemNames(*model))));
}

}  // namespace simhost
