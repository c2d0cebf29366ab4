// The 3-D view of the model that is open. It begins as the host's screen shows the model, and tells
// the host when the user has turned it, so that commands and boxes go by what is seen.
//
// Left or middle drag turns, right drag (or middle with Shift) moves, the wheel enlarges; a click
// selects, with Ctrl one more; Shift and left drag draws a rectangle. While a pick waits, all of
// that answers it.
import { quoted, wordToToggle } from './connection.js';
import { make } from './parts.js';
import { probeOf } from './probe.js';
import { Scene, decoded } from './scene.js';
import * as turn from './turn.js';
import { say } from './words.js';

const clickReach = 4;   // pixels: less is no drag
const wheelRest = 250;  // milliseconds after the last step of the wheel
const axisColours = ['#b03a2e', '#2e7d32', '#1f4e9c'];

const style = make('link', { rel: 'stylesheet', href: '/page/view.css' });
document.head.append(style);

function svg(tag, attributes, ...inside) {
  const element = document.createElementNS('http://www.w3.org/2000/svg', tag);
  for (const [name, value] of Object.entries(attributes)) element.setAttribute(name, value);
  element.append(...inside);
  return element;
}

export class View {
  constructor(element, connection) {
    this.element = element;
    this.connection = connection;
    this.scene = new Scene();
    this.view = { axes: turn.standard.isometric, scale: 1, place: [turn.width / 2, turn.height / 2] };
    this.state = null;
    this.seen = 0;         // the version that is painted
    this.isTold = true;    // the host has the view that is seen
    this.drag = null;
    this.under = null;     // what the pointer is on
    this.gathered = [];    // paths of a pick of several
    this.selected = new Map();
    this.lines = Promise.resolve();
    this.makeElements();
    // The page is of use before the library of the pictures has come.
    this.painting = import('./paint.js').then(({ Painter }) => {
      this.painter = new Painter(this.canvas);
      this.resize();
      new ResizeObserver(() => this.resize()).observe(element);
    }).catch(error => {
      element.append(make('div', { class: 'view-problem' }, say('no3d') + ' ' + error.message));
    });
    window.vxView = probeOf(this);
  }

  makeElements() {
    this.canvas = make('canvas', { tabindex: 0, 'aria-label': say('view3d') });
    this.axes = svg('svg', { class: 'axes', viewBox: '-42 -42 84 84' });
    this.name = make('div', { class: 'under' });
    this.rectangle = make('div', { class: 'rectangle', hidden: true });
    this.boxTool = make('button', { title: say('rectangleHelp'), 'aria-pressed': 'false',
      onclick: () => this.setBoxTool(!this.boxToolOn) }, say('rectangle'));
    const straight = name => make('button', { 'data-view': name,
      onclick: () => this.turnTo(turn.standard[name]) }, say(name + 'View'));
    this.element.append(this.canvas, this.axes, this.name, this.rectangle,
      make('div', { class: 'view-tools' }, this.boxTool,
        make('button', { 'data-view': 'fit', onclick: () => this.turnTo(this.view.axes) }, say('fit')),
        ...Object.keys(turn.standard).map(straight)));
    const on = (name, act, options) => this.canvas.addEventListener(name, act.bind(this), options);
    on('pointerdown', this.press);
    on('pointermove', this.move);
    on('pointerup', this.release);
    on('pointercancel', this.cancel);
    on('pointerleave', () => {
      cancelAnimationFrame(this.looking);
      this.looking = 0;
      this.setUnder(null);
    });
    on('contextmenu', event => event.preventDefault());
    on('wheel', this.wheel, { passive: false });
    on('keydown', this.key);
  }

  // --- What the host shows ---

  async update(state) {
    this.state = state;
    if (!state.wait || state.wait.kind !== 'pick') this.gathered = [];
    await this.painting;
    if (!this.painter) return;
    const version = this.connection.version;
    const answer = await this.connection.get(this.scene.address(), 'bytes');
    if (!answer || version !== this.connection.version) return;
    const { header, buffer, from } = decoded(answer);
    if (this.scene.take({ header, buffer, from })) {
      this.under = null;
      this.painter.show(this.scene);
    }
    const isOther = this.top !== this.scene.top;
    this.top = this.scene.top;
    if (isOther) this.isTold = true;
    if (header.screen && this.isTold && !this.drag) this.view = turn.viewOf(header.screen.matrix);
    this.arriving = version;
    this.markAll();
    this.repaint();
    if (!this.isTold && !this.drag) this.tell();
  }

  // Which occurrences a path of the host's selection means.
  markAll() {
    const marks = new Map();
    const paths = (this.state ? this.state.selection : []).concat(this.gathered);
    const wholes = new Set();
    for (const path of paths) {
      const item = /^(?:(.*)\/)?([a-z ]*)#(\d+)$/.exec(path);
      const i = item ? this.scene.at.get(item[1] || '.') : undefined;
      if (!item) wholes.add(path);
      else if (i !== undefined && item[2] === 'surface') marks.set(i, [1, Number(item[3])]);
    }
    if (wholes.size) {
      this.scene.paths.forEach((path, i) => {
        if (wholes.has('.') || above(path).some(each => wholes.has(each))) marks.set(i, [1, -1]);
      });
    }
    this.selected = marks;
    this.markUnder();
  }

  markUnder() {
    if (!this.painter || !this.scene.count) return;
    const marks = new Map(this.selected);
    if (this.under) {
      const surface = this.picksSurfaces() ? this.under.surface : -1;
      marks.set(this.under.occurrence, [2, surface]);
    }
    this.painter.mark(marks);
  }

  // --- Painting ---

  resize() {
    const { clientWidth, clientHeight } = this.element;
    if (!this.painter || !clientWidth || !clientHeight) return;
    this.painter.resize(clientWidth, clientHeight, Math.min(2, window.devicePixelRatio || 1));
    this.paintNow();
  }

  repaint() {
    if (this.waiting) return;
    this.waiting = requestAnimationFrame(() => this.paintNow());
  }

  paintNow() {
    this.waiting = 0;
    if (!this.painter || !this.element.clientWidth) return;
    if (this.drag && this.drag.does) {
      this.painter.drawMoving(this.view, this.toPage());
    } else {
      this.painter.drawResting(this.view, this.toPage());
    }
    this.paintAxes();
    this.seen = this.arriving;
  }

  // The host's screen lies in the middle of the element, as large as it fits.
  toPage() {
    const { clientWidth, clientHeight } = this.element;
    const k = Math.min(clientWidth / turn.width, clientHeight / turn.height) || 1;
    return { k, width: clientWidth, height: clientHeight,
      x: clientWidth / 2 - k * turn.width / 2, y: clientHeight / 2 + k * turn.height / 2 };
  }

  // A point of the canvas on the host's screen.
  fromPage(x, y) {
    const page = this.toPage();
    return [(x - page.x) / page.k, (page.y - y) / page.k];
  }

  paintAxes() {
    const lines = this.view.axes.map((axis, i) => ({ axis, i })).sort((a, b) => a.axis[2] - b.axis[2]);
    this.axes.replaceChildren(...(this.scene.count ? lines : []).flatMap(({ axis, i }) => [
      svg('line', { x1: 0, y1: 0, x2: 26 * axis[0], y2: -26 * axis[1], stroke: axisColours[i],
        'stroke-width': 2 }),
      svg('text', { x: 34 * axis[0], y: -34 * axis[1], fill: axisColours[i] }, 'XYZ'[i]),
    ]));
  }

  // --- Turning ---

  change(view) {
    this.view = view;
    this.isTold = false;
    this.repaint();
  }

  turnTo(axes) {
    const box = this.scene.extents(axes);
    if (!box) return;
    this.change(turn.fitted(axes, box.low, box.high));
    this.tell();
  }

  // Tells the host how the model is turned now; what is seen becomes what was told.
  tell() {
    return this.send(() => {
      if (this.isTold || this.drag || !this.scene.count) return null;
      const { line, view } = turn.told(this.view);
      this.view = view;
      this.isTold = true;
      this.repaint();
      return line;
    });
  }

  // Lines follow each other: each waits until the one before has been carried out.
  send(...lines) {
    const sent = this.lines.then(async () => {
      for (const each of lines) {
        await this.connection.settled();
        const line = typeof each === 'function' ? await each() : each;
        if (line && !await this.connection.step(line)) return;
      }
    });
    this.lines = sent.catch(() => {});
    return sent;
  }

  wheel(event) {
    event.preventDefault();
    if (!this.scene.count) return;
    const steps = event.deltaMode === 1 ? event.deltaY / 3 : event.deltaY / 100;
    const at = this.fromPage(...this.placeOf(event));
    this.change(turn.zoomed(this.view, Math.pow(1.2, -Math.max(-5, Math.min(5, steps))), at));
    clearTimeout(this.wheelTimer);
    this.wheelTimer = setTimeout(() => this.tell(), wheelRest);
  }

  key(event) {
    const steps = { ArrowLeft: [-15, 0], ArrowRight: [15, 0], ArrowUp: [0, -15], ArrowDown: [0, 15] };
    const middle = [turn.width / 2, turn.height / 2];
    if (!this.scene.count) return;
    if (event.key === 'Escape' && this.drag) return this.cancel();
    if (event.key === 'Home') return this.turnTo(this.view.axes);
    if (steps[event.key]) this.change(turn.turned(this.view, ...steps[event.key], this.scene.middle));
    else if (event.key === '+' || event.key === '=') this.change(turn.zoomed(this.view, 1.2, middle));
    else if (event.key === '-') this.change(turn.zoomed(this.view, 1 / 1.2, middle));
    else return;
    event.preventDefault();
    clearTimeout(this.wheelTimer);
    this.wheelTimer = setTimeout(() => this.tell(), wheelRest);
  }

  // --- The pointer ---

  placeOf(event) {
    const box = this.canvas.getBoundingClientRect();
    return [event.clientX - box.left, event.clientY - box.top];
  }

  press(event) {
    if (this.drag || !this.scene.count) return;
    this.canvas.focus({ preventScroll: true });
    if (event.pointerId !== undefined && event.isTrusted) this.canvas.setPointerCapture(event.pointerId);
    const at = this.placeOf(event);
    this.drag = { button: event.button, from: at, last: at, view: this.view, does: null };
    if (event.button === 1) event.preventDefault();  // no scrolling by itself
  }

  // What a drag with this button does.
  meaning(event) {
    if (this.drag.button === 2) return 'move';
    if (this.drag.button === 1) return event.shiftKey ? 'move' : 'turn';
    return event.shiftKey || this.boxToolOn || this.picksBoxes() ? 'rectangle' : 'turn';
  }

  move(event) {
    const at = this.placeOf(event), { drag } = this;
    if (!drag) return this.lookUnder(at);
    const [dx, dy] = [at[0] - drag.last[0], at[1] - drag.last[1]];
    if (!drag.does) {
      if (Math.hypot(at[0] - drag.from[0], at[1] - drag.from[1]) < clickReach) return;
      drag.does = this.meaning(event);
      this.setUnder(null);
    }
    drag.last = at;
    if (drag.does === 'rectangle') return this.showRectangle(drag.from, at);
    const { k } = this.toPage();
    if (drag.does === 'move') {
      const { place } = this.view;
      this.change({ ...this.view, place: [place[0] + dx / k, place[1] - dy / k] });
    } else {
      this.change(turn.turned(this.view, dx * 0.4, dy * 0.4, this.scene.middle));
    }
  }

  release(event) {
    const { drag } = this;
    if (!drag || event.button !== drag.button) return;
    this.drag = null;
    this.rectangle.hidden = true;
    this.repaint();
    const at = this.placeOf(event);
    if (drag.does === 'rectangle') this.takeRectangle(drag.from, at, event);
    else if (drag.does) this.tell();
    else if (drag.button === 0) this.click(at, event.ctrlKey || event.metaKey);
    else if (drag.button === 1) this.endPick();
    else this.popup(at);
  }

  cancel() {
    if (!this.drag) return;
    this.change(this.drag.view);
    this.drag = null;
    this.rectangle.hidden = true;
    this.tell();
  }

  lookUnder(at) {
    if (this.looking) return;
    this.looking = requestAnimationFrame(() => {
      this.looking = 0;
      if (!this.drag) this.setUnder(this.scene.hit(this.view, this.fromPage(...at)));
    });
  }

  setUnder(hit) {
    const same = this.under && hit ? this.under.occurrence === hit.occurrence &&
      this.under.surface === hit.surface : this.under === hit;
    if (same) return;
    this.under = hit;
    this.name.textContent = hit ? this.pathOf(hit) : '';
    this.markUnder();
    this.repaint();
  }

  // --- Selecting and picking ---

  wait() {
    return this.state ? this.state.wait : null;
  }

  picks() {
    const wait = this.wait();
    return wait && wait.kind === 'pick' ? wait : null;
  }

  picksBoxes() {
    return Boolean(this.picks() && this.picks().byBox);
  }

  picksSurfaces() {
    const { takes = [] } = this.picks() || {};
    return takes.includes('surface') && !takes.includes('part');
  }

  // The path of what was hit, as the host's question wants it.
  pathOf(hit) {
    const path = this.scene.paths[hit.occurrence];
    const { takes = [] } = this.picks() || {};
    if (this.picksSurfaces()) return `${path === '.' ? '' : path + '/'}surface#${hit.surface}`;
    if (takes.includes('assembly') && !takes.includes('part')) {
      return path.includes('/') ? path.slice(0, path.lastIndexOf('/')) : '.';
    }
    return path;
  }

  click(at, more) {
    const hit = this.scene.hit(this.view, this.fromPage(...at));
    const wait = this.wait(), pick = this.picks();
    if (wait && !pick && wait.kind !== 'dialog') return;
    const path = hit ? this.pathOf(hit) : null;
    if (pick) this.pick(path, more && pick.most !== 1);
    else if (more) this.toggle(path);
    else this.select(path);
  }

  // With Ctrl paths are gathered; the click without it, or the middle button, ends the pick.
  pick(path, more) {
    if (!path) return;
    if (!more) return this.endPick(path);
    this.gathered = toggled(this.gathered, path);
    this.markAll();
    this.repaint();
  }

  endPick(path) {
    if (!this.picks()) return;
    const paths = path ? this.gathered.filter(each => each !== path).concat(path) : this.gathered;
    this.gathered = [];
    this.send(paths.length ? '@ pick ' + quoted(paths.join(', ')) : '@ pick nothing');
  }

  // Only this; null: nothing.
  select(path) {
    const { selection } = this.state;
    if (path ? selection.length === 1 && selection[0] === path : !selection.length) return;
    this.send(path ? '@ select ' + quoted(path) : '@ clear selection');
  }

  toggle(path) {
    if (!path) return;
    this.send(async () => {
      await this.connection.stated();  // a second click finds what the first has done
      return `@ ${wordToToggle(this.connection.state.selection.includes(path))} ` + quoted(path);
    });
  }

  async popup(at) {
    if (this.wait()) return;
    const hit = this.scene.hit(this.view, this.fromPage(...at));
    if (!hit) return;
    const path = this.pathOf(hit);
    const lines = this.state.selection.includes(path) ? [] : ['@ select ' + quoted(path)];
    this.send(...lines, '@ right-click');
  }

  // --- Rectangles ---

  setBoxTool(on) {
    this.boxToolOn = on;
    this.boxTool.setAttribute('aria-pressed', String(on));
  }

  showRectangle(a, b) {
    const { style } = this.rectangle;
    this.rectangle.hidden = false;
    style.left = Math.min(a[0], b[0]) + 'px';
    style.top = Math.min(a[1], b[1]) + 'px';
    style.width = Math.abs(a[0] - b[0]) + 'px';
    style.height = Math.abs(a[1] - b[1]) + 'px';
  }

  takeRectangle(from, to, event) {
    this.setBoxTool(false);
    const [a, b] = [this.fromPage(...from), this.fromPage(...to)];
    const low = [0, 1].map(i => Math.min(a[i], b[i])), high = [0, 1].map(i => Math.max(a[i], b[i]));
    const corners = [...low, ...high].map(each => Number(each.toFixed(2))).join(' ');
    const wait = this.wait();
    if (wait && !this.picks() && wait.kind !== 'dialog') return;
    const more = event.ctrlKey || event.metaKey ? 'more ' : '';
    // The host finds what lies in it: a line with thousands of paths would be too long.
    this.tell();
    this.send((this.picks() ? '@ pick box ' : `@ rectangle ${more}`) + corners);
  }
}

// "a/b/c" as "a", "a/b", "a/b/c".
function above(path) {
  const steps = path.split('/');
  return steps.map((_, i) => steps.slice(0, i + 1).join('/'));
}

function toggled(paths, path) {
  return paths.includes(path) ? paths.filter(each => each !== path) : [...paths, path];
}
