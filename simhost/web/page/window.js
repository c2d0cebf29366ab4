// A window over the page: it is moved by its title, keeps the Tab key inside, and stays in sight.
import { make } from './parts.js';

const margin = 8;  // pixels that stay free at the edges of the page
const besides = 32;  // pixels from the window below, as high as its title
const places = new Map();  // where the user has moved the windows of this session, by their names

// Tells how far the pointer has gone from where it was pressed on an element, until it is let go.
export function follow(element, pressed, tell) {
  pressed.preventDefault();  // the focus stays where it is
  const move = moved => tell(moved.clientX - pressed.clientX, moved.clientY - pressed.clientY);
  element.setPointerCapture(pressed.pointerId);
  element.addEventListener('pointermove', move);
  const end = () => element.removeEventListener('pointermove', move);
  element.addEventListener('pointerup', end, { once: true });
  element.addEventListener('pointercancel', end, { once: true });
}

export class FormWindow {
  // `close` is called by the button of the title; without it there is none.
  constructor(layer, { name, title, kind, close }) {
    this.name = name;
    this.title = make('span', { class: 'text' }, title);
    this.closer = make('button', { class: 'closer', tabindex: '-1', 'aria-label': '×' }, '×');
    this.closer.onclick = () => close();
    this.closer.hidden = !close;
    this.head = make('div', { class: 'form-title' }, this.title, this.closer);
    this.body = make('div', { class: 'form-body' });
    this.element = make('div', { class: 'form-window ' + kind, role: 'dialog', 'aria-modal': 'true',
      'aria-label': title, 'data-form': name }, this.head, this.body);
    this.element.addEventListener('keydown', event => this.key(event));
    this.head.addEventListener('pointerdown', event => this.drag(event));
    this.corner = null;  // where it is, as long as nothing moves it
    this.resized = () => this.centre();
    window.addEventListener('resize', this.resized);
    layer.append(this.element);
  }

  remove() {
    window.removeEventListener('resize', this.resized);
    this.element.remove();
  }

  // In the middle, unless the user has moved it.
  centre() {
    this.corner = null;
    this.place();
  }

  // A bit beside another window, which stays in sight then.
  placeBeside({ left, top }) {
    this.corner = { left: left + besides, top: top + besides };
    this.place();
  }

  // Where it was, as a whole on the page: what grows does not jump.
  place() {
    const { offsetWidth: width, offsetHeight: height } = this.element;
    const corner = places.get(this.name) || this.corner ||
      { left: (window.innerWidth - width) / 2, top: (window.innerHeight - height) * 0.4 };
    const within = (value, room) => Math.round(Math.max(margin, Math.min(value, room - margin)));
    this.corner = { left: within(corner.left, window.innerWidth - width),
      top: within(corner.top, window.innerHeight - height) };
    this.element.style.left = this.corner.left + 'px';
    this.element.style.top = this.corner.top + 'px';
  }

  drag(event) {
    if (event.button !== 0 || event.target === this.closer) return;
    const from = this.element.getBoundingClientRect();
    follow(this.head, event, (x, y) => {
      places.set(this.name, { left: from.left + x, top: from.top + y });
      this.place();
    });
  }

  // The elements that Tab goes through, in its order; those that cannot be used may be among them.
  stops() {
    return [...this.body.querySelectorAll('input, textarea, select, button, [tabindex="0"]')];
  }

  usable() {
    return this.stops().filter(each => !each.disabled && each.getClientRects().length &&
      getComputedStyle(each).visibility !== 'hidden');
  }

  key(event) {
    if (event.key !== 'Tab' || event.ctrlKey || event.altKey) return;
    event.preventDefault();
    const stops = this.usable();
    if (!stops.length) return;
    const active = document.activeElement;
    const at = stops.findIndex(each => each === active ||
      (each.type === 'radio' && active.type === 'radio' && each.name === active.name));
    const step = event.shiftKey ? -1 : 1;
    const next = at < 0 ? (event.shiftKey ? stops.length - 1 : 0)
      : (at + step + stops.length) % stops.length;
    stops[next].focus();
    if (stops[next].matches('input:not([type])')) stops[next].select();
  }

  hasFocus() {
    return this.body.contains(document.activeElement);
  }

  focusFirst() {
    const first = this.usable()[0];
    if (first) first.focus({ preventScroll: true });
  }
}
