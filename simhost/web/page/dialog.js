// An open dialog of the host as a form: laid out as its resource says, changed in place as the host
// changes it.
import { makeComponent } from './components.js';
import { marked } from './connection.js';
import { make } from './parts.js';
import { Sizing } from './sizing.js';
import { FormWindow } from './window.js';

// What a form is made of, without what its components hold.
function structureOf(form) {
  return JSON.stringify([form.name, form.layout, form.layouts,
    form.components.map(each => [each.kind, each.name])]);
}

export class DialogWindow extends FormWindow {
  constructor(forms, form) {
    super(forms.layer, { name: form.name, title: form.title, kind: 'dialog',
      close: form.closes ? () => this.close() : null });
    this.forms = forms;
    this.form = form;
    this.structure = structureOf(form);
    this.parts = new Map();  // by the names of components
    this.lastFocus = null;
    this.toldFocus = null;
    for (const data of form.components) this.parts.set(data.name, makeComponent(this, data));
    this.grids = [];
    this.body.append(this.layOut());
    this.element.addEventListener('keydown', event => this.keyInForm(event));
    this.element.addEventListener('focusin', event => this.focusCame(event));
    this.update(form);
    this.centre();
    this.sizing = new Sizing(this, this.grids);
  }

  shows(form) {
    return this.element.isConnected && Boolean(form.name) && structureOf(form) === this.structure;
  }

  update(form) {
    this.form = form;
    this.title.textContent = form.title;
    for (const data of form.components) this.parts.get(data.name).update(data);
    this.place();
  }

  // --- Layout ---

  layOut() {
    if (this.form.layout) return this.grid(this.form.layout);
    // Without a layout of its own the components are one below the other.
    const element = make('div', { class: 'form-grid' },
      ...this.form.components.map(data => this.parts.get(data.name).element));
    this.grids.push({ element, weights: this.form.components.map(() => 1), columns: 1 });
    return element;
  }

  grid(grid) {
    const element = make('div', { class: 'form-grid' });
    // Texts do not break, so min-content clips nothing; max-content would count the spare room that
    // the grids inside share among their columns as if they needed it.
    element.style.gridTemplateColumns = grid.cols
      .map(weight => (weight > 0 ? `minmax(min-content, ${weight}fr)` : 'max-content')).join(' ');
    grid.children.forEach((child, at) => {
      const cell = child.component ? this.component(child.component) : this.grid(child);
      cell.style.gridColumn = String(at % grid.cols.length + 1);
      cell.style.gridRow = String(Math.floor(at / grid.cols.length) + 1);
      element.append(cell);
    });
    this.grids.push({ element, weights: grid.rows, columns: grid.cols.length });
    return element;
  }

  component(name) {
    const part = this.parts.get(name);
    const inner = this.form.layouts[name];
    if (inner) part.element.append(this.grid(inner));
    return part.element;
  }

  // In the order in which the resource declares the components, as in the host.
  stops() {
    return [...this.parts.values()].flatMap(part => part.stops())
      .filter(each => each.isConnected);
  }

  // --- Focus ---

  setOnTop(isOnTop) {
    this.element.classList.toggle('waits', !isOnTop);
    this.body.inert = !isOnTop;
    this.closer.disabled = !isOnTop;
    if (isOnTop && !this.hasFocus()) this.takeFocus();
  }

  takeFocus() {
    this.isQuiet = true;
    const last = this.lastFocus;
    if (last && last.isConnected && !last.disabled) last.focus({ preventScroll: true });
    if (!this.hasFocus()) this.focusFirst();
    this.isQuiet = false;
  }

  // The host is told of what the user does only, and only where it makes a difference.
  focusCame(event) {
    this.lastFocus = event.target;
    const element = event.target.closest('[data-vx]');
    const name = element ? element.dataset.vx : null;
    const isNew = name !== this.toldFocus && !this.isQuiet;
    this.toldFocus = name;
    if (!isNew || !element || !element.hasAttribute('data-tells-focus')) return;
    this.act(() => this.line('FocusIn', name));
  }

  // --- What the user does ---

  line(verb, component, rest = '') {
    return `~ ${verb} ${marked(this.form.name)} ${marked(component)}${rest && ' ' + rest}`;
  }

  // Resolves when it is done, or cannot be done any more.
  act(lineOf) {
    return this.forms.acts.add(() =>
      (this.element.isConnected && this.forms.dialog === this && !this.body.inert ? lineOf() : null));
  }

  // Texts that are still in the page only go to the host first. False: one of them cannot go.
  flush() {
    return [...this.parts.values()].every(part => part.flush());
  }

  async press(name, isPressable) {
    if (this.flush()) await this.act(() => (isPressable() ? this.line('Activate', name) : null));
  }

  close() {
    if (this.flush()) this.act(() => (this.form.closes ? `~ Close ${marked(this.form.name)}` : null));
  }

  refuseText() {
    this.forms.connection.tell('problem', 'noBacktick');
  }

  keyInForm(event) {
    if (event.isComposing) return;
    if (event.key === 'Escape' && this.form.closes) this.close();
    else if (event.key === 'Enter' && !event.target.matches('button, textarea')) this.enter();
    else return;
    event.preventDefault();
  }

  enter() {
    if (!this.flush() || !this.form.defaultButton) return;
    this.act(() => (this.parts.get(this.form.defaultButton).isUsable() ? '@ enter' : null));
  }
}
