// How a model is turned, moved and enlarged on the host's screen, as plain numbers: `axes` are the
// model's three axes on the screen (x to the right, y up, z to the viewer), each of length 1;
// `scale` is points of the screen to a mm; `place` is where the model's origin lies.

export const width = 1000, height = 800;  // of the host's screen

const radians = Math.PI / 180;

// Exact at right angles, so that a straight view is straight.
function sineCosine(degrees) {
  const turn = degrees % 360;
  if (turn % 90 === 0) {
    const quarter = (turn / 90 + 4) % 4;
    return [[0, 1, 0, -1][quarter], [1, 0, -1, 0][quarter]];
  }
  return [Math.sin(turn * radians), Math.cos(turn * radians)];
}

// Turned about the screen's axes to the right, up and to the viewer, one after the other (degrees).
export function axesOf([a, b, c]) {
  const [sx, cx] = sineCosine(a), [sy, cy] = sineCosine(b), [sz, cz] = sineCosine(c);
  return [
    [cz * cy, sz * cy, -sy],
    [cz * sy * sx - sz * cx, sz * sy * sx + cz * cx, cy * sx],
    [cz * sy * cx + sz * sx, sz * sy * cx - cz * sx, cy * cx],
  ];
}

// The angles again. Seen along the axis of the second one, the third is 0.
export function anglesOf([x, y, z]) {
  const flat = Math.hypot(x[0], x[1]);
  const c = flat < 1e-9 ? 0 : Math.atan2(x[1], x[0]);
  const sine = Math.sin(c), cosine = Math.cos(c);
  const a = Math.atan2(sine * z[0] - cosine * z[1], cosine * y[1] - sine * y[0]);
  return [a / radians, Math.atan2(-x[2], flat) / radians, c / radians];
}

// The view of the host's matrix, whose first three rows are scaled.
export function viewOf(matrix) {
  const scale = Math.hypot(...matrix[0]);
  return { axes: matrix.slice(0, 3).map(row => row.map(each => each / scale)), scale,
    place: matrix[3].slice(0, 2) };
}

// A point or a direction of the model in mm on the screen; a point also needs its place.
export function along(view, [x, y, z]) {
  const { axes, scale } = view;
  return [0, 1, 2].map(i => scale * (x * axes[0][i] + y * axes[1][i] + z * axes[2][i]));
}
export function onScreen(view, point) {
  const [x, y, z] = along(view, point);
  return [x + view.place[0], y + view.place[1], z];
}

// Turned about the screen's axes up and to the right (degrees) around a point of the model, which
// stays where it is.
export function turned(view, aboutUp, aboutRight, point) {
  const turn = axesOf([aboutRight, aboutUp, 0]);
  const axes = view.axes.map(axis => [0, 1, 2].map(
    i => axis[0] * turn[0][i] + axis[1] * turn[1][i] + axis[2] * turn[2][i]));
  return keeping({ ...view, axes }, point, onScreen(view, point));
}

// Moved so that the point of the model lies there on the screen.
export function keeping(view, point, [x, y]) {
  const now = along(view, point);
  return { ...view, place: [x - now[0], y - now[1]] };
}

// Enlarged around a place of the screen, within reason.
export function zoomed(view, factor, [x, y]) {
  const scale = Math.min(1e5, Math.max(1e-5, view.scale * factor));
  const k = scale / view.scale;
  return { ...view, scale, place: [x + k * (view.place[0] - x), y + k * (view.place[1] - y)] };
}

// As large as the screen takes what lies between two corners, given along the screen's axes in mm.
export function fitted(axes, low, high) {
  const scale = Math.min(0.9 * width / Math.max(high[0] - low[0], 1e-6),
    0.9 * height / Math.max(high[1] - low[1], 1e-6));
  return { axes, scale, place: [width / 2 - scale * (low[0] + high[0]) / 2,
    height / 2 - scale * (low[1] + high[1]) / 2] };
}

// The line that tells the host, and the view that it has then: no finer than can be seen.
export function told(view) {
  const angles = anglesOf(view.axes).map(each => Number(each.toFixed(3)) + 0);
  const scale = Number(view.scale.toPrecision(6));
  const place = view.place.map(each => Number(each.toFixed(2)) + 0);
  return {
    line: `@ turn ${angles.join(' ')} scale ${scale} at ${place.join(' ')}`,
    view: { axes: axesOf(angles), scale, place },
  };
}

// --- The straight views, and the one from the right, the front and above ---

const [a, b, c] = [1 / Math.sqrt(2), 1 / Math.sqrt(6), 1 / Math.sqrt(3)];
export const standard = {
  isometric: [[a, -b, c], [a, b, -c], [0, 2 * b, c]],
  front: [[1, 0, 0], [0, 0, -1], [0, 1, 0]],
  top: [[1, 0, 0], [0, 1, 0], [0, 0, 1]],
  right: [[0, 0, 1], [1, 0, 0], [0, 1, 0]],
};
