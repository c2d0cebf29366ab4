// The @ words about what an assembly is made of: the component that is worked on, places,
// constraints, regeneration, and the versions of model files.
#include <fmt/format.h>

#include <charconv>
#include <cmath>
#include <filesystem>
#include <optional>

#include "simhost/core/file_names.h"
#include "simhost/core/text.h"
#include "simhost/model/constraints.h"
#include "simhost/model/regeneration.h"
#include "simhost/trail/interpreter.h"
#include "simhost/trail/picks.h"
#include "simhost/trail/words.h"
#include "simhost/ui/text_frame.h"

namespace simhost {
namespace {

constexpr int kMostComponentLines = 500;

// A component that a path leads to, and the assembly that holds it; what is wrong has been told.
const Feature* ComponentAt(Trail& trail, const std::string& path) {
    std::string problem;
    const std::optional<Selection> picked = Pick(path, &problem);
    if (!picked || picked->path.empty()) {
        trail.Fail(picked ? "the path of a component belongs here" : problem);
        return nullptr;
    }
    std::vector<int> above = picked->path;
    above.pop_back();
    ProModelitem owner;
    if (!Session::Follow(*picked->top, above, &owner)) return nullptr;
    return TheHost().session.Find(owner.owner)->FindFeature(picked->path.back());
}

// "csys: csys#5 to csys#8; fix", "empty" after the last one was removed, "none" before the first.
std::string ConstraintsText(const Feature& component) {
    if (!component.constraints) return "none";
    if (component.constraints->empty()) return "empty";
    std::string text;
    for (const Constraint& each : *component.constraints) {
        text += (text.empty() ? "" : "; ") + ConstraintText(each);
    }
    return text;
}

std::optional<double> TakeLastNumber(std::string* text) {
    const std::size_t blank = text->find_last_of(" \t");
    const char* begin = text->data() + (blank == std::string::npos ? 0 : blank + 1);
    double number = 0;
    const auto [parsed, error] = std::from_chars(begin, text->data() + text->size(), number);
    if (error != std::errc() || parsed != text->data() + text->size()) return std::nullopt;
    *text = Trimmed(text->substr(0, blank == std::string::npos ? 0 : blank));
    return number;
}

std::optional<Vec3> TakeLastPoint(std::string* text) {
    const auto z = TakeLastNumber(text);
    const auto y = z ? TakeLastNumber(text) : std::nullopt;
    const auto x = y ? TakeLastNumber(text) : std::nullopt;
    if (!x) return std::nullopt;
    return Vec3{*x, *y, *z};
}

bool IsNear(Vec3 a, Vec3 b) {
    constexpr double kNear = 1e-6;
    return std::abs(a.x - b.x) <= kNear && std::abs(a.y - b.y) <= kNear &&
           std::abs(a.z - b.z) <= kNear;
}

std::string PlaceText(const Placement& place) {
    const Vec3 at = place.origin;
    const Vec3 turn = TurnOf(place);
    return fmt::format("at {:.6g} {:.6g} {:.6g} turn {:.6g} {:.6g} {:.6g}", at.x, at.y, at.z,
                       turn.x, turn.y, turn.z);
}

bool HasNewest(const std::string& name) {
    WideText path = Wide(name);
    if (path.find(WideChar{':'}) == WideText::npos) {
        path = TheHost().session.workingDirectory + WIDE("\\") + path;
    }
    std::error_code error;
    return std::filesystem::is_regular_file(TheHost().disk.Real(path), error);
}

// "housing.prt.3", or what is to be said in its place.
std::string NewestFileText(const Model& model) {
    const Host& host = TheHost();
    const std::filesystem::path file =
        NewestFileOf(host.disk.Real(host.session.workingDirectory), Wide(model.FileName()));
    if (file.empty()) return "not in the working folder";
    const auto name = file.filename().u8string();
    return std::string(name.begin(), name.end()) + (model.modified ? ", changed since" : "");
}

// One line a component below this model, in the order of the tree. Counts down what may be shown
// still.
void ShowComponentsBelow(Trail& trail, const Model& model, const std::string& path, int* left) {
    for (const auto& [step, feature] : ComponentSteps(model)) {
        if (--*left < 0) return;
        const std::string here = path.empty() ? step : path + "/" + step;
        trail.Say(fmt::format(
            "{} {} {}", Padded(here, 44),
            Padded(feature->model ? NewestFileText(*feature->model) : "not in memory", 36),
            feature->constraints ? ConstraintsText(*feature) : "-"));
        if (feature->model) ShowComponentsBelow(trail, *feature->model, here, left);
    }
}

}  // namespace

void ActivateComponent(Trail& trail, const std::string& rest) {
    Session& session = TheHost().session;
    std::string problem;
    const auto picked = Pick(ParseText(rest).text, &problem);
    if (!picked) return trail.Fail(problem);
    if (picked->item.id >= 0) return trail.Fail("only a component, or the top (.), can be active");
    session.current->activated = picked->path;
}

void RegenerateModel(Trail& trail, const std::string&) {
    Model* model = TheHost().session.CurrentModel();
    if (!model) return trail.Fail("no model is open");
    Regenerate(*model);
}

void ExpectConstraints(Trail& trail, const std::string& rest) {
    std::string left = rest;
    const std::string path = TakeWord(&left);
    if (left.empty())
        return trail.Fail("constraints are PATH TEXT, such as cover csys#2 to csys#8");
    const Feature* component = ComponentAt(trail, path);
    if (!component) return;
    const std::string text = ConstraintsText(*component);
    if (text != ParseText(left).text) {
        trail.Fail(fmt::format("the constraints of {} are {}", path, text));
    }
}

void ExpectPlace(Trail& trail, const std::string& rest) {
    std::string path(Trimmed(rest));
    std::optional<Vec3> at = TakeLastPoint(&path);
    Vec3 turn;
    constexpr std::string_view kTurn = " turn";
    const bool turned = at && path.size() > kTurn.size() &&
                        path.compare(path.size() - kTurn.size(), kTurn.size(), kTurn) == 0;
    if (turned) {
        turn = *at;
        path.resize(path.size() - kTurn.size());
        at = TakeLastPoint(&path);
    }
    if (!at || path.empty()) return trail.Fail("a place is PATH X Y Z, or PATH X Y Z turn A B C");
    const Feature* component = ComponentAt(trail, path);
    if (!component) return;
    const Placement wanted = PlacementFrom(*at, turn);
    const Placement& place = component->placement;
    const bool same = IsNear(place.origin, wanted.origin) &&
                      IsNear(place.axes[0], wanted.axes[0]) &&
                      IsNear(place.axes[1], wanted.axes[1]);
    if (!same) trail.Fail(fmt::format("{} is {}", path, PlaceText(place)));
}

void ExpectFile(Trail& trail, const std::string& rest) {
    const std::string name = ParseText(rest).text;
    if (name.empty()) return trail.Fail("a file's name belongs after expect file");
    if (!HasNewest(name)) trail.Fail(fmt::format("there is no file {}", name));
}

void ExpectNoFile(Trail& trail, const std::string& rest) {
    const std::string name = ParseText(rest).text;
    if (name.empty()) return trail.Fail("a file's name belongs after expect no file");
    if (HasNewest(name)) trail.Fail(fmt::format("the file {} is there", name));
}

void ShowComponents(Trail& trail) {
    const Model* model = ModelAt("");
    if (!model) return trail.Fail("no model is open");
    int left = kMostComponentLines;
    ShowComponentsBelow(trail, *model, "", &left);
    if (left < 0) trail.Say("… and more");
}

void ShowConstraints(Trail& trail) {
    int lines = 0;
    for (const Model* model : TheHost().session.All()) {
        for (const auto& [step, feature] : ComponentSteps(*model)) {
            if (!feature->constraints) continue;
            if (++lines > kMostComponentLines) return trail.Say("… and more");
            trail.Say(fmt::format("{} {} {}", Padded(model->FileName(), 28), Padded(step, 28),
                                  ConstraintsText(*feature)));
        }
    }
    trail.Say(fmt::format("{} components have constraints", lines));
}

}  // namespace simhost
