// How a model is turned, moved and enlarged on the screen.
#include "simhost/model/screen_view.h"

#include <algorithm>
#include <cmath>

#include "simhost/model/projection.h"

namespace simhost {

Placement IsometricView() {
    const double a = 1 / std::sqrt(2.0), b = 1 / std::sqrt(6.0), c = 1 / std::sqrt(3.0);
    Placement frame;
    frame.axes = {Vec3{a, -b, c}, Vec3{a, b, -c}, Vec3{0, 2 * b, c}};
    return frame;
}

ScreenView& ScreenOf(Model& model) {
    if (!model.screen) ShowAsLargeAsItFits(model, IsometricView());
    return *model.screen;
}

void ShowAsLargeAsItFits(Model& model, const Placement& frame) {
    const Extents shown = ExtentsIn(model, frame, Sight::Measures);
    const Vec3 size = shown.high - shown.low;
    double scale = 1;  // screen points in a mm
    if (!shown.empty) {
        const double wide = 0.9 * kScreenWidth / std::max(size.x, 1e-6);
        scale = std::min(wide, 0.9 * kScreenHeight / std::max(size.y, 1e-6));
    }
    const Vec3 middle = 0.5 * (shown.low + shown.high);
    const Vec3 place = Vec3{kScreenWidth / 2, kScreenHeight / 2, 0} - scale * middle;
    ShowAt(model, frame, scale, place);
}

void ShowAt(Model& model, const Placement& frame, double scale, Vec3 place) {
    if (!model.screen) model.screen = std::make_shared<ScreenView>();
    SetMatrix(frame, scale * LengthUnit(model), place, model.screen->matrix);
}

bool FrameOf(const ProMatrix matrix, Placement* frame, double* scale) {
    constexpr double kExact = 1e-6;
    *scale = std::hypot(matrix[0][0], matrix[0][1], matrix[0][2]);
    if (!(*scale > 0) || !std::isfinite(*scale)) return false;
    for (std::size_t i = 0; i < 3; ++i) {
        frame->axes[i] = 1 / *scale * Vec3{matrix[i][0], matrix[i][1], matrix[i][2]};
    }
    const auto& axes = frame->axes;
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j <= i; ++j) {
            const double off = Dot(axes[i], axes[j]) - (i == j ? 1 : 0);
            if (!(std::fabs(off) < kExact)) return false;
        }
    }
    return Dot(Cross(axes[0], axes[1]), axes[2]) > 0;
}

void SetMatrix(const Placement& frame, double scale, Vec3 place, ProMatrix matrix) {
    for (std::size_t i = 0; i < 3; ++i) {
        const Vec3 row = scale * frame.axes[i];
        const double values[] = {row.x, row.y, row.z, 0};
        std::copy(std::begin(values), std::end(values), matrix[i]);
    }
    const double last[] = {place.x, place.y, place.z, 1};
    std::copy(std::begin(last), std::end(last), matrix[3]);
}

Placement Turned(const Placement& frame, int axis, double degrees) {
    Vec3 turn;
    (axis == 0 ? turn.x : axis == 1 ? turn.y : turn.z) = degrees;
    const Placement rotation = PlacementFrom({}, turn);
    Placement result = frame;
    for (Vec3& one : result.axes) one = rotation.Direction(one);
    return result;
}

}  // namespace simhost
