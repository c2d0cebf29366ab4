// The @ word that turns the model on the screen.
#include <charconv>
#include <cmath>
#include <string>

#include "simhost/host.h"
#include "simhost/model/screen_view.h"
#include "simhost/model/shown.h"
#include "simhost/trail/interpreter.h"
#include "simhost/trail/words.h"

namespace simhost {
namespace {

// Far beyond what anybody looks at, and far from where numbers end.
constexpr double kMost = 1e9, kLeastScale = 1e-9;

bool TakeFinite(std::string* rest, double* number) {
    const std::string word = TakeWord(rest);
    const char* end = word.data() + word.size();
    const auto [parsed, error] = std::from_chars(word.data(), end, *number);
    return error == std::errc() && parsed == end && std::fabs(*number) <= kMost;
}

// What is turned: the model in the window, or the assembly that it manufactures.
Model* TurnedModel(Trail& trail) {
    Model* current = TheHost().session.CurrentModel();
    if (!current) {
        trail.Fail("no model is open");
        return nullptr;
    }
    Model& shown = ContentsOf(*current);
    if (shown.type == PRO_MDL_PART || shown.type == PRO_MDL_ASSEMBLY) return &shown;
    trail.Fail("a drawing is not turned; sheet turns to one of its sheets");
    return nullptr;
}

}  // namespace

void TurnView(Trail& trail, const std::string& rest) {
    Model* model = TurnedModel(trail);
    if (!model) return;
    std::string words = rest;
    Vec3 turn;
    for (double* angle : {&turn.x, &turn.y, &turn.z}) {
        if (!TakeFinite(&words, angle)) {
            return trail.Fail("turn takes three angles in degrees, such as -90 0 0 for the front");
        }
    }
    const Placement frame = PlacementFrom({}, turn);
    if (words.empty()) return ShowAsLargeAsItFits(*model, frame);
    double scale = 0;
    Vec3 place;
    const bool understood = TakeWord(&words) == "scale" && TakeFinite(&words, &scale) &&
                            scale >= kLeastScale && TakeWord(&words) == "at" &&
                            TakeFinite(&words, &place.x) && TakeFinite(&words, &place.y) &&
                            words.empty();
    if (!understood) return trail.Fail("after the angles only scale S at X Y can follow");
    ShowAt(*model, frame, scale, place);
}

}  // namespace simhost
