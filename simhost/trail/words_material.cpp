// The @ words about what parts are made of: materials, masses, and how long their sheets are.
#include <fmt/format.h>

#include <charconv>

#include "simhost/core/text.h"
#include "simhost/model/shape.h"
#include "simhost/model/shown.h"
#include "simhost/trail/interpreter.h"
#include "simhost/trail/words.h"
#include "simhost/ui/text_frame.h"

namespace simhost {
namespace {

// The parts that are there below a model, as far as it is known what they are made of.
struct Masses {
    double kg = 0;
    int known = 0, unknown = 0;
};

Masses MassesOf(const Model& top) {
    Masses masses;
    VisitShown(top, Sight::Measures, [&](const ShownPart& shown) {
        const auto mass = MassOf(*shown.part);
        masses.kg += mass.value_or(0);
        ++(mass ? masses.known : masses.unknown);
    });
    return masses;
}

// Compares a number with one as it is written, to as many places.
bool IsWritten(double number, const std::string& written) {
    double wanted = 0;
    const char* end = written.data() + written.size();
    const auto [parsed, error] = std::from_chars(written.data(), end, wanted);
    if (error != std::errc() || parsed != end) return false;
    const std::size_t point = written.find('.');
    const std::size_t places = point == std::string::npos ? 0 : written.size() - point - 1;
    return fmt::format("{:.{}f}", number, places) == fmt::format("{:.{}f}", wanted, places);
}

void ExpectText(Trail& trail, const std::string& what, const WideText& found,
                const std::string& written) {
    const TextArgument wanted = ParseText(written);
    const bool none = !wanted.quoted && wanted.text == "none";
    if (none ? found.empty() : SameName(found, Wide(wanted.text))) return;
    trail.Fail(
        fmt::format("{} is {}, not {}", what, found.empty() ? "none" : Utf8(found), wanted.text));
}

bool IsSheetMetal(const Model& model) {
    return model.type == PRO_MDL_PART && model.subtype == PROMDLSTYPE_PART_SHEETMETAL;
}

}  // namespace

void ExpectMaterial(Trail& trail, const std::string& rest) {
    std::string left = rest;
    if (const Model* model = InMemory(trail, TakeWord(&left))) {
        ExpectText(trail, "the material of " + model->FileName(), model->partData.material, left);
    }
}

void ExpectMass(Trail& trail, const std::string& rest) {
    std::string left = rest;
    const Model* model = InMemory(trail, TakeWord(&left));
    if (!model) return;
    const Masses masses = MassesOf(*model);
    if (masses.known == 0) {
        if (left != "none") trail.Fail("nothing is known of the mass of " + model->FileName());
    } else if (!IsWritten(masses.kg, left)) {
        trail.Fail(
            fmt::format("the mass of {} is {:.6g} kg, not {}", model->FileName(), masses.kg, left));
    }
}

void ExpectBendTable(Trail& trail, const std::string& rest) {
    std::string left = rest;
    if (const Model* model = InMemory(trail, TakeWord(&left))) {
        ExpectText(trail, "the bend table of " + model->FileName(),
                   model->partData.sheetMetal.table.name, left);
    }
}

void ExpectDevelopedLength(Trail& trail, const std::string& rest) {
    std::string left = rest;
    const Model* model = InMemory(trail, TakeWord(&left));
    if (!model) return;
    const double developed = model->partData.sheetMetal.developed;
    if (!IsWritten(developed, left)) {
        trail.Fail(fmt::format("the developed length of {} is {:.6g}, not {}", model->FileName(),
                               developed, left));
    }
}

void ShowMaterials(Trail& trail) {
    int made = 0;
    for (const Model* model : TheHost().session.All()) {
        const Material* current = MaterialOf(*model);
        if (current) ++made;
        for (const Material& each : model->partData.materials) {
            trail.Say(fmt::format(
                "{} {} {}{}", Padded(model->FileName(), 28), Padded(Utf8(each.name), 20),
                Padded(fmt::format("{:.6g} {}", each.density, kDensityUnits[int(each.densityUnit)]),
                       18),
                &each == current ? each.title : "(read, not in use)"));
        }
    }
    trail.Say(fmt::format("{} parts have a material", made));
}

void ShowMasses(Trail& trail) {
    for (const Model* model : TheHost().session.All()) {
        const auto mass = MassOf(*model);
        if (!mass) continue;
        trail.Say(fmt::format("{} {} {:>12.3f} cm3 {:>10.3f} kg", Padded(model->FileName(), 28),
                              Padded(Utf8(MaterialOf(*model)->name), 20),
                              model->shape().volume / 1000, *mass));
    }
    if (const Model* top = TheHost().session.CurrentModel()) {
        const Masses masses = MassesOf(*top);
        trail.Say(fmt::format("{}: {:.3f} kg in {} uses of parts; {} have no material",
                              top->FileName(), masses.kg, masses.known, masses.unknown));
    }
    trail.Say("where the solids of a part overlap, that counts twice");
}

void ShowBends(Trail& trail) {
    for (const Model* model : TheHost().session.All()) {
        if (!IsSheetMetal(*model)) continue;
        const SheetMetal& sheet = model->partData.sheetMetal;
        trail.Say(fmt::format("{} thickness {:g}, {} bends, table {}, developed length {:.3f}",
                              Padded(model->FileName(), 28), sheet.thickness, sheet.bends.size(),
                              sheet.table.name.empty() ? "none" : Utf8(sheet.table.name),
                              sheet.developed));
        for (const Bend& bend : sheet.bends) {
            trail.Say(fmt::format("    radius {:g}, {:g} degrees: {:.3f}", bend.radius, bend.angle,
                                  LengthOf(bend, sheet.thickness, sheet.table)));
        }
    }
}

}  // namespace simhost
