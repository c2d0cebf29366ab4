// How a model is turned, moved and enlarged on the screen.
#pragma once

#include "hostapi/host/geometry.h"
#include "simhost/model/model.h"

namespace simhost {

// From the model, in its unit, to the screen: point * matrix; rows 0 to 2 are scaled, row 3 is the
// place.
// The screen is kScreenWidth wide and kScreenHeight high; y runs up.
inline constexpr double kScreenWidth = 1000, kScreenHeight = 800;
struct ScreenView {
    ProMatrix matrix;
};

// From the right, the front and above, as in the pictures: x runs to the lower right, y to the
// upper right, z up. Takes directions of the model into the view.
Placement IsometricView();

// The model's view; one that was never set is isometric, and as large as the screen takes it.
ScreenView& ScreenOf(Model& model);

// Turns the model on the screen: `frame` takes its directions into the view. As large as the screen
// takes it, in the middle; or with so many points of the screen to a mm and its origin at `place`.
void ShowAsLargeAsItFits(Model& model, const Placement& frame);
void ShowAt(Model& model, const Placement& frame, double scale, Vec3 place);

// The rows of a matrix as the axes of a frame, divided by their length. False unless they are of
// one length (more than 0), at right angles and right-handed.
bool FrameOf(const ProMatrix matrix, Placement* frame, double* scale);
void SetMatrix(const Placement& frame, double scale, Vec3 place, ProMatrix matrix);

// The frame turned about an axis of its parent: 0 right, 1 up, 2 towards the viewer (degrees,
// counter-clockwise against the axis). Its origin stays.
Placement Turned(const Placement& frame, int axis, double degrees);

}  // namespace simhost
