// The @ words about the shape of models.
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <sstream>

#include "simhost/model/projection.h"
#include "simhost/trail/interpreter.h"
#include "simhost/trail/words.h"

namespace simhost {
namespace {

constexpr double kNear = 1e-6;

std::optional<std::array<double, 6>> SixNumbers(const std::string& text) {
    std::array<double, 6> numbers{};
    std::istringstream words(text);
    words.imbue(std::locale::classic());
    for (double& number : numbers) words >> number;
    std::string more;
    if (!words || words >> more) return std::nullopt;
    return numbers;
}

}  // namespace

void ExpectExtents(Trail& trail, const std::string& rest) {
    std::string left = rest;
    Model* model = InMemory(trail, TakeWord(&left));
    if (!model) return;
    const Extents box = ExtentsIn(*model, {}, Sight::Measures);
    const std::string expected = ParseText(left).text;
    if (expected == "none") {
        if (!box.empty) trail.Fail(fmt::format("{} has a shape", model->FileName()));
        return;
    }
    const auto wanted = SixNumbers(expected);
    if (!wanted) return trail.Fail("extents are MODEL and six numbers, or none");
    if (box.empty) return trail.Fail(fmt::format("{} has no shape", model->FileName()));
    const std::array<double, 6> found{box.low.x,  box.low.y,  box.low.z,
                                      box.high.x, box.high.y, box.high.z};
    const auto near = [](double a, double b) { return std::fabs(a - b) <= kNear; };
    if (std::equal(found.begin(), found.end(), wanted->begin(), near)) return;
    trail.Fail(fmt::format("{} reaches from {:.6g} {:.6g} {:.6g} to {:.6g} {:.6g} {:.6g}",
                           model->FileName(), found[0], found[1], found[2], found[3], found[4],
                           found[5]));
}

}  // namespace simhost
