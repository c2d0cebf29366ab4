// The tree of components: only the rows that can be seen are elements, since an assembly may have
// many thousands. A click selects, with Ctrl one more; while a pick waits it answers that.
import { quoted, wordToToggle } from './connection.js';
import { make } from './parts.js';
import { say } from './words.js';

const rowHeight = 22;  // pixels, as in style.css

export class Tree {
  constructor(head, element, connection) {
    this.head = head;
    this.element = element;
    this.connection = connection;
    this.rows = [];
    this.shown = [];      // numbers of rows that are not folded away
    this.folded = new Set();
    this.foldedFor = '';  // the model for which it was decided what is folded
    this.selection = new Set();
    this.onChosen = () => {};  // told the path of the row that was clicked
    this.find = make('input', { class: 'find', placeholder: say('filterTree') });
    this.find.oninput = () => this.unfold();
    this.title = make('div', { class: 'title' });
    head.append(this.title, this.find);
    this.space = make('div', { class: 'space' });
    element.append(this.space);
    element.onscroll = () => this.draw();
    new ResizeObserver(() => this.draw()).observe(element);
    element.onkeydown = event => this.key(event);
  }

  async update(state) {
    this.state = state;
    this.selection = new Set(state.selection);
    const tree = await this.connection.get('/tree');
    if (!tree) return;
    this.rows = tree.rows;
    this.rows.forEach((row, at) => {
      row.level = row.path.split('/').length;
      row.name = row.path.slice(row.path.lastIndexOf('/') + 1);
      row.isParent = at + 1 < this.rows.length && this.rows[at + 1].path.startsWith(row.path + '/');
    });
    if (this.foldedFor !== tree.top) {
      this.foldedFor = tree.top;
      // A large assembly begins folded, so that its first level can be seen.
      const many = this.rows.length > 300;
      this.folded = new Set(this.rows.filter(row => many && row.isParent).map(row => row.path));
    }
    const representation = tree.representation ? ' [' + tree.representation + ']' : '';
    this.title.textContent = tree.top
      ? tree.top + (tree.title ? '  ' + tree.title : '') + representation : say('nothingOpen');
    this.find.hidden = !this.rows.length;
    this.unfold();
  }

  unfold() {
    const wanted = this.find.value.trim().toLowerCase();
    this.shown = [];
    let closed = null;
    this.rows.forEach((row, at) => {
      if (wanted) {
        if ((row.name + (row.title || '')).toLowerCase().includes(wanted)) this.shown.push(at);
        return;
      }
      if (closed !== null && row.path.startsWith(closed)) return;
      closed = this.folded.has(row.path) ? row.path + '/' : null;
      this.shown.push(at);
    });
    this.space.style.height = this.shown.length * rowHeight + 'px';
    this.draw();
  }

  draw() {
    const first = Math.max(0, Math.floor(this.element.scrollTop / rowHeight) - 5);
    const count = Math.ceil(this.element.clientHeight / rowHeight) + 10;
    const rows = this.shown.slice(first, first + count)
      .map((at, i) => this.row(this.rows[at], first + i));
    this.space.replaceChildren(...rows);
  }

  row(row, place) {
    const classes = ['row'];
    if (this.selection.has(row.path)) classes.push('selected');
    if (row.unseen) classes.push('unseen');
    const fold = make('span', { class: 'fold' }, row.isParent
      ? (this.folded.has(row.path) ? '▸' : '▾') : '');
    fold.onclick = event => {
      event.stopPropagation();
      this.folded.has(row.path) ? this.folded.delete(row.path) : this.folded.add(row.path);
      this.unfold();
    };
    const marks = [row.missing && say('missing'), row.hidden && say('hidden'),
      row.absent && say('absent')].filter(Boolean).join(', ');
    const dot = make('span', { class: row.colour ? 'dot' : 'dot none' });
    if (row.colour) dot.style.background = row.colour;
    const element = make('div', {
      class: classes.join(' '), role: 'treeitem', 'data-path': row.path, title: row.file,
      'aria-selected': String(this.selection.has(row.path)),
      onclick: event => this.choose(row, event),
      oncontextmenu: event => {
        event.preventDefault();
        this.popup(row);
      },
    }, fold, dot, make('span', { class: 'name' }, row.name),
      make('span', { class: 'title' }, row.title || ''),
      make('span', { class: 'marks' }, marks));
    element.style.top = place * rowHeight + 'px';
    element.style.paddingLeft = 4 + (row.level - 1) * 14 + 'px';
    return element;
  }

  // The lines of a click: see docs/workbench.md.
  choose(row, event) {
    this.onChosen(row.path);
    const wait = this.state.wait;
    if (wait && wait.kind === 'pick') return this.connection.step('@ pick ' + quoted(row.path));
    if (wait) return undefined;
    const word = event.ctrlKey || event.metaKey ? wordToToggle(this.selection.has(row.path)) : 'select';
    return this.connection.step(`@ ${word} ` + quoted(row.path));
  }

  async popup(row) {
    if (this.state.wait) return;
    const line = '@ select ' + quoted(row.path);
    if (!this.selection.has(row.path) && !await this.connection.step(line)) return;
    await this.connection.settled();
    this.connection.step('@ right-click');
  }

  key(event) {
    if (!['ArrowDown', 'ArrowUp'].includes(event.key) || !this.shown.length) return;
    event.preventDefault();
    const last = [...this.selection].pop();
    const now = this.shown.findIndex(at => this.rows[at].path === last);
    const next = Math.min(this.shown.length - 1, Math.max(0, now + (event.key === 'ArrowDown' ? 1 : -1)));
    this.element.scrollTop = Math.max(0, (next - 5) * rowHeight);
    this.choose(this.rows[this.shown[next]], {});
  }
}
