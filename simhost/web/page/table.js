// A table of a dialog. It may have many thousands of rows: only those that are seen are elements,
// and the page asks for them when they come into sight.
import { marked } from './connection.js';
import { make } from './parts.js';

const rowHeight = 24;    // pixels, as in forms.css
const rowsAtOnce = 100;  // that are asked for
const spare = 8;         // rows above and below what is seen

export class TablePart {
  // `makeCell` makes the component of a cell.
  constructor(form, data, makeCell) {
    this.form = form;
    this.name = data.name;
    this.makeCell = makeCell;
    this.rows = new Map();   // by number: {data, version}
    this.drawn = new Map();  // rows that are elements, by name: {element, cells}
    this.version = 0;
    this.count = 0;
    this.current = null;     // the name of the row that the arrow keys go on from
    this.head = make('tr');
    this.above = make('tr', { class: 'space', 'aria-hidden': 'true' });
    this.below = make('tr', { class: 'space', 'aria-hidden': 'true' });
    this.inside = make('tbody', {}, this.above, this.below);
    this.element = make('div', { class: 'vx-table', tabindex: '0', role: 'grid' },
      make('table', {}, make('thead', {}, this.head), this.inside));
    this.element.style.minWidth = `calc(${data.columns} * 0.62em + 20px)`;
    this.element.style.height = (data.visibleRows + 1) * rowHeight + 2 + 'px';
    this.element.onscroll = () => this.draw();
    new ResizeObserver(() => this.data && this.draw()).observe(this.element);
    this.element.onkeydown = event => this.key(event);
    this.inside.onclick = event => this.click(event);
    this.inside.ondblclick = event => this.doubleClick(event);
  }

  // --- What the host says ---

  update(data) {
    this.data = data;
    ++this.version;
    this.selected = new Set(data.selected);
    this.element.classList.toggle('greyed', !data.enabled);
    this.takeColumns(data.tableColumns);
    this.takeRows(data.first);
    for (const at of this.rows.keys()) if (at >= this.count) this.rows.delete(at);
    this.draw();
  }

  takeColumns(columns) {
    const shown = JSON.stringify(columns);
    if (shown === this.columns) return;
    this.columns = shown;
    this.head.replaceChildren(...columns.map(column =>
      make('th', { 'data-column': column.name, scope: 'col' }, column.label)));
    for (const name of [...this.drawn.keys()]) this.drop(name);
    this.rows.clear();
  }

  takeRows(part) {
    this.count = part.count;
    this.element.setAttribute('aria-rowcount', String(part.count));
    part.rows.forEach((row, at) => {
      this.rows.set(part.from + at, { data: row, version: this.version });
    });
  }

  // Rows from this number on, unless they are on their way.
  async ask(from) {
    const asked = this.version + ' ' + from;
    if (this.asked === asked) return;
    this.asked = asked;
    const version = this.version;
    const part = await this.form.forms.connection.get(
      `/rows?dialog=${encodeURIComponent(this.form.name)}&component=${encodeURIComponent(this.name)}` +
      `&from=${from}&count=${rowsAtOnce}`);
    this.asked = null;
    if (!part || version !== this.version) return;
    this.takeRows(part);
    this.draw();
  }

  // --- What is seen ---

  draw() {
    const first = Math.max(0, Math.floor(this.element.scrollTop / rowHeight) - spare);
    const fit = Math.ceil((this.element.clientHeight || 400) / rowHeight) + 2 * spare;
    const end = Math.min(this.count, first + fit);
    const seen = [];
    for (let at = first; at < end; ++at) {
      const row = this.rows.get(at);
      if (!row || row.version !== this.version) this.ask(Math.max(0, at - spare));
      seen.push(row ? this.drawRow(row.data, at) : make('tr', { class: 'coming' }));
    }
    const names = new Set(seen.map(row => row.dataset.row));
    for (const name of [...this.drawn.keys()]) if (!names.has(name)) this.drop(name);
    this.above.style.height = first * rowHeight + 'px';
    this.below.style.height = (this.count - end) * rowHeight + 'px';
    this.place(seen);
    this.keepWidths();
  }

  // Rows that are in their place already stay untouched, so that they keep the focus.
  place(seen) {
    for (const row of this.inside.querySelectorAll('.coming')) row.remove();
    let before = this.above;
    for (const row of seen) {
      if (before.nextSibling !== row) before.after(row);
      before = row;
    }
  }

  drawRow(data, at) {
    let row = this.drawn.get(data.name);
    if (!row) {
      row = { element: make('tr', { 'data-row': data.name, role: 'row' }), cells: [] };
      this.drawn.set(data.name, row);
    }
    const isSelected = this.selected.has(data.name);
    row.element.classList.toggle('selected', isSelected);
    row.element.classList.toggle('odd', at % 2 === 1);
    row.element.setAttribute('aria-selected', String(isSelected));
    row.element.dataset.at = at;
    data.cells.forEach((cell, column) => this.drawCell(row, column, cell));
    return row.element;
  }

  drawCell(row, column, data) {
    let cell = row.cells[column];
    if (!cell) {
      cell = row.cells[column] = { element: make('td', {
        'data-column': this.data.tableColumns[column].name, role: 'gridcell' }), part: null };
      row.element.append(cell.element);
    }
    if (data.colour === undefined) delete cell.element.dataset.colour;
    else cell.element.dataset.colour = data.colour;
    const component = data.component;
    if (component && (!cell.part || cell.part.name !== component.name)) {
      cell.part = this.makeCell(component);
      cell.element.replaceChildren(cell.part.element);
    }
    if (component) return cell.part.update(component);
    cell.part = null;
    const text = data.text || '';
    if (cell.element.textContent !== text || cell.element.firstElementChild) {
      cell.element.textContent = text;
    }
    return undefined;
  }

  // A row goes out of sight; what was typed in it does not get lost.
  drop(name) {
    const row = this.drawn.get(name);
    for (const cell of row.cells) if (cell.part) cell.part.flush();
    if (row.element.contains(document.activeElement)) this.element.focus({ preventScroll: true });
    row.element.remove();
    this.drawn.delete(name);
  }

  // Columns never get narrower while the user scrolls.
  keepWidths() {
    for (const head of this.head.children) {
      if (head.offsetWidth > parseFloat(head.style.minWidth || 0)) {
        head.style.minWidth = head.offsetWidth + 'px';
      }
    }
  }

  // --- What the user does ---

  parts() {
    return [...this.drawn.values()].flatMap(row => row.cells).map(cell => cell.part).filter(Boolean);
  }

  stops() {
    const rows = [...this.inside.querySelectorAll('tr[data-row]')];
    const parts = rows.flatMap(row => this.drawn.get(row.dataset.row).cells)
      .map(cell => cell.part).filter(Boolean);
    return [this.element, ...parts.flatMap(part => part.stops())];
  }

  flush() {
    return this.parts().every(part => part.flush());
  }

  // The cell that an event is about; null: one of its components takes it, or none is there.
  cellOf(event) {
    const cell = event.target.closest('td');
    if (!cell || !this.data.enabled || event.target.closest('[data-kind]') !== this.element) return null;
    const row = cell.closest('tr');
    return row.dataset.row === undefined ? null
      : { row: row.dataset.row, at: Number(row.dataset.at), column: cell.dataset.column };
  }

  line(verb, rows, column) {
    const names = rows.flatMap(row => [marked(row), marked(column)]).join(' ');
    return this.form.line(verb, this.name, `${2 * rows.length}${names && ' ' + names}`);
  }

  act(lineOf) {
    if (this.form.flush()) this.form.act(() => (this.data.enabled ? lineOf() : null));
  }

  select(rows, column) {
    const wanted = new Set(rows);
    if (rows.length === this.selected.size && rows.every(row => this.selected.has(row))) return;
    this.selected = wanted;
    this.draw();
    this.act(() => this.line('Select', rows, column));
  }

  // The second click of a double click has done its part already.
  async click(event) {
    const cell = this.cellOf(event);
    if (!cell || event.detail > 1) return;
    const { row, at, column } = cell;
    const isSeveral = ['multiple', 'extended'].includes(this.data.policy);
    const adds = this.data.policy === 'multiple' || event.ctrlKey || event.metaKey;
    if (this.data.policy === 'extended' && event.shiftKey && this.anchor !== undefined) {
      this.select(await this.between(this.anchor, at), column);
    } else if (isSeveral && adds) {
      const rows = new Set(this.selected);
      if (!rows.delete(row)) rows.add(row);
      this.anchor = at;
      this.select([...rows], column);
    } else {
      this.anchor = at;
      this.select([row], column);
    }
    this.current = row;
    if (this.data.arms) this.act(() => this.line('Arm', [row], column));
  }

  doubleClick(event) {
    const cell = this.cellOf(event);
    if (cell) this.activate(cell.row, cell.column);
  }

  activate(row, column) {
    if (this.data.activates) this.act(() => this.line('Activate', [row], column));
  }

  // The names of the rows from one number to another, in either direction.
  async between(one, other) {
    const [first, last] = [Math.min(one, other), Math.max(one, other)];
    for (let at = first; at <= last; ++at) if (!this.rows.has(at)) await this.ask(at);
    const names = [];
    for (let at = first; at <= last; ++at) if (this.rows.has(at)) names.push(this.rows.get(at).data.name);
    return names;
  }

  async key(event) {
    if (event.target !== this.element || !this.data.enabled || !this.count) return;
    const page = Math.max(1, Math.floor(this.element.clientHeight / rowHeight) - 2);
    const steps = { ArrowDown: 1, ArrowUp: -1, PageDown: page, PageUp: -page, Home: -this.count,
      End: this.count };
    const column = this.data.tableColumns[0].name;
    if (event.key === 'Enter' && this.data.activates && this.current) {
      event.preventDefault();
      event.stopPropagation();
      return this.activate(this.current, column);
    }
    if (event.key === 'a' && event.ctrlKey && this.data.policy === 'extended') {
      event.preventDefault();
      return this.select(await this.between(0, this.count - 1), column);
    }
    if (!(event.key in steps)) return undefined;
    event.preventDefault();
    const drawn = this.current && this.drawn.get(this.current);
    const from = drawn ? Number(drawn.element.dataset.at) : -Math.sign(steps[event.key]);
    const at = Math.max(0, Math.min(this.count - 1, from + steps[event.key]));
    const [row] = await this.between(at, at);
    if (row === undefined) return undefined;
    this.current = row;
    this.anchor = at;
    this.show(at);
    return this.select([row], column);
  }

  show(at) {
    const room = this.element.clientHeight - rowHeight;
    const top = at * rowHeight;
    if (top < this.element.scrollTop) this.element.scrollTop = top;
    else if (top + rowHeight > this.element.scrollTop + room) {
      this.element.scrollTop = top + rowHeight - room;
    }
  }
}
