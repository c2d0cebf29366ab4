// A dialog alone in a file, as `simhost dialogs` writes it: laid out as in the workbench, with what
// its resource says. Menus and tables can be looked into; nobody is there who would be told of it.
import { DialogWindow } from './dialog.js';
import { by } from './parts.js';

const nobody = {
  layer: document.body,
  connection: { tell() {}, get: async () => null },
  acts: { add: async () => {} },
};
const dialog = new DialogWindow(nobody, JSON.parse(by('form').textContent));

// What scripts and the guide call a component shows where it is pointed at.
for (const part of dialog.body.querySelectorAll('[data-vx]')) part.title = part.dataset.vx;

// Neither Tab nor Escape stay inside: the page around it goes on from here.
window.addEventListener('keydown', event => event.stopPropagation(), true);

// A page that shows this one learns how large the dialog is, again when its pictures have come.
function tellSize() {
  const { offsetWidth: width, offsetHeight: height } = document.body;
  window.parent.postMessage({ dialog: dialog.name, width, height }, '*');
}
if (window.parent !== window) {
  tellSize();  // a browser may let a frame rest that is not in sight yet
  new ResizeObserver(tellSize).observe(document.body);
}
