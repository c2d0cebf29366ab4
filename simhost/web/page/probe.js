// What tests and the curious see of the 3-D view as window.vxView: docs/workbench.md tells how.
// Places are in pixels of the page; nothing here changes the session.
import * as turn from './turn.js';

export function probeOf(view) {
  const toClient = ([x, y]) => {
    const page = view.toPage(), box = view.canvas.getBoundingClientRect();
    return { x: box.left + page.x + page.k * x, y: box.top + page.y - page.k * y };
  };
  const numberOf = path => {
    const i = view.scene.at.get(path);
    if (i === undefined) throw new Error('nothing is shown at ' + path);
    return i;
  };
  return {
    // What is painted is what the session has, and the host knows how it is turned.
    get ready() {
      const { connection } = view;
      return Boolean(view.painter && !connection.busy && view.seen === connection.version &&
        view.isTold && !view.drag && !view.waiting);
    },
    // How many pictures were painted so far, and what one took while the model was turned (ms).
    get cost() { return view.painter ? view.painter.cost : 0; },
    get frames() { return view.painter ? view.painter.frames : 0; },
    get paths() { return [...view.scene.paths]; },
    // How the model is turned on the host's screen: see turn.js.
    get view() { return JSON.parse(JSON.stringify(view.view)); },
    // Where the centre of an occurrence's box is seen; it may be covered by something else.
    project: path => toClient(turn.onScreen(view.view, view.scene.centre(numberOf(path)))),
    // A place at which the occurrence is the foremost, or null.
    spot: path => {
      const at = view.scene.spot(numberOf(path), view.view);
      return at && toClient(at);
    },
    pathAt: (x, y) => {
      const box = view.canvas.getBoundingClientRect();
      const hit = view.scene.hit(view.view, view.fromPage(x - box.left, y - box.top));
      return hit && view.pathOf(hit);
    },
    // Red, green, blue and opacity, 0 to 255; where nothing is painted all are 0.
    colourAt: (x, y) => {
      const box = view.canvas.getBoundingClientRect();
      view.paintNow();
      return view.painter.colourAt(x - box.left, y - box.top);
    },
    // The same of the coarsest picture that is painted while the model is turned.
    colourWhileTurned: (x, y) => {
      const box = view.canvas.getBoundingClientRect();
      view.painter.setCoarse(2);
      view.painter.draw(view.view, view.toPage());
      const colour = view.painter.colourAt(x - box.left, y - box.top);
      view.paintNow();
      return colour;
    },
  };
}
