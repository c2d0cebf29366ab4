// Dialogs that are made larger by their lower right corner: what shows rows or text gets the room.
import { make } from './parts.js';
import { follow } from './window.js';

const growing = '.vx-table, textarea, select[size]';
const sizes = new Map();  // what the user has given the dialogs of this session, by their names

// `grids`: of each grid of the form its element, the weights of its rows, and how many columns it
// has; its cells are its children in row order.
export class Sizing {
  constructor(window, grids) {
    this.window = window;
    this.element = window.element;
    const grows = [...window.body.querySelectorAll(growing)];
    if (!grows.length) return;
    for (let each of grows) {
      for (; each !== window.body; each = each.parentElement) each.classList.add('grows');
    }
    this.grids = grids.filter(grid => grid.element.classList.contains('grows'));
    this.corner = make('div', { class: 'form-corner', 'aria-hidden': 'true' });
    this.corner.onpointerdown = event => this.drag(event);
    this.corner.ondblclick = () => this.set(null);
    this.element.append(this.corner);
    if (sizes.has(window.name)) this.set(sizes.get(window.name));
  }

  // Its size and those of its rows, as long as nobody has made it larger.
  measure() {
    this.natural = { width: this.element.offsetWidth, height: this.element.offsetHeight };
    for (const { element, weights, columns } of this.grids) {
      const rows = weights.map(() => ({ height: 0, grows: false }));
      [...element.children].forEach((cell, at) => {
        const row = rows[Math.floor(at / columns)];
        row.height = Math.max(row.height, cell.offsetHeight);
        row.grows = row.grows || cell.classList.contains('grows');
      });
      element.style.setProperty('--rows', rows.map(({ height, grows }, at) =>
        (grows ? `minmax(${height}px, ${Math.max(1, weights[at])}fr)` : 'max-content')).join(' '));
    }
  }

  // In pixels, but never smaller than it is by itself; null: as it is by itself.
  set(size) {
    const { element, window } = this;
    // Columns keep their widths while one scrolls, not here.
    for (const head of window.body.querySelectorAll('.vx-table th')) head.style.minWidth = '';
    if (!this.natural) this.measure();
    const { width, height } = this.natural;
    const isLarger = Boolean(size) && (size.width > width || size.height > height);
    element.classList.toggle('sized', isLarger);
    element.style.width = isLarger ? Math.max(width, size.width) + 'px' : '';
    element.style.height = isLarger ? Math.max(height, size.height) + 'px' : '';
    if (isLarger) sizes.set(window.name, size);
    else sizes.delete(window.name);
    if (!isLarger) this.natural = null;  // the host may change what it holds
    window.place();
  }

  drag(event) {
    if (event.button !== 0) return;
    const { width, height } = this.element.getBoundingClientRect();
    follow(this.corner, event, (x, y) => this.set({ width: width + x, height: height + y }));
  }
}
