// The sheet of a drawing: the picture that is plotted, what can be selected on it, and clicks in its
// millimetres.
import { quoted } from './connection.js';
import { make } from './parts.js';
import { say } from './words.js';

export class Sheet {
  constructor(element, connection) {
    this.element = element;
    this.connection = connection;
    this.head = make('div', { class: 'sheet-head' });
    this.paper = make('div', { class: 'paper' });
    element.append(this.head, this.paper);
    this.zoom = 1;
    this.paper.onclick = event => this.click(event, 1);
    this.paper.onauxclick = event => event.button === 1 && this.click(event, 2);
    element.addEventListener('wheel', event => {
      if (!event.ctrlKey) return;
      event.preventDefault();
      this.zoom = Math.min(8, Math.max(0.2, this.zoom * (event.deltaY < 0 ? 1.15 : 1 / 1.15)));
      this.fit();
    }, { passive: false });
    new ResizeObserver(() => this.fit()).observe(element);
  }

  async update(state) {
    this.state = state;
    const sheet = await this.connection.get('/sheet');
    if (!sheet) return;
    this.sheet = sheet;
    const svg = new DOMParser().parseFromString(sheet.svg, 'image/svg+xml').documentElement;
    svg.removeAttribute('width');
    svg.removeAttribute('height');
    this.svg = document.importNode(svg, true);
    this.paper.replaceChildren(this.svg, ...sheet.items.map(item => this.item(item)));
    const pages = [];
    for (let number = 1; number <= sheet.sheets; ++number) {
      pages.push(make('button', {
        class: number === sheet.sheet ? 'page current' : 'page',
        onclick: () => this.connection.step('@ sheet ' + number),
      }, say('sheetOf') + ' ' + number));
    }
    this.head.replaceChildren(...(sheet.sheets > 1 ? pages : []));
    this.fit();
  }

  fit() {
    if (!this.sheet || !this.element.clientWidth) return;
    const room = { width: this.element.clientWidth - 32, height: this.element.clientHeight - 48 };
    const scale = this.zoom *
      Math.min(room.width / this.sheet.width, room.height / this.sheet.height);
    this.paper.style.width = this.sheet.width * scale + 'px';
    this.paper.style.height = this.sheet.height * scale + 'px';
  }

  item(item) {
    const selected = this.state.selection.includes(item.path);
    const mark = make('button', {
      class: selected ? 'item selected' : 'item', 'data-path': item.path,
      title: item.path + (item.text ? ' ' + item.text : ''),
      onclick: event => {
        event.stopPropagation();
        this.choose(item.path, event);
      },
    });
    mark.style.left = 100 * item.x / this.sheet.width + '%';
    mark.style.top = 100 * (1 - item.y / this.sheet.height) + '%';
    return mark;
  }

  choose(path, event) {
    const wait = this.state.wait;
    if (wait && wait.kind === 'pick') return this.connection.step('@ pick ' + quoted(path));
    if (wait && wait.kind === 'click') return this.click(event, 1);
    if (wait) return undefined;
    const chosen = new Set(event.ctrlKey || event.metaKey ? this.state.selection : []);
    chosen.has(path) ? chosen.delete(path) : chosen.add(path);
    if (!chosen.size) return this.connection.step('@ clear selection');
    return this.connection.step('@ select ' + quoted([...chosen].join(', ')));
  }

  // In mm of the sheet, from its lower left corner, to a hundredth.
  place(event) {
    const box = this.paper.getBoundingClientRect();
    const x = (event.clientX - box.left) / box.width * this.sheet.width;
    const y = (1 - (event.clientY - box.top) / box.height) * this.sheet.height;
    return x.toFixed(2) + ' ' + y.toFixed(2);
  }

  click(event, button) {
    const wait = this.state && this.state.wait;
    if (wait && wait.kind === 'click') {
      const named = button === 2 ? ' middle' : '';
      return this.connection.step('@ click ' + this.place(event) + named);
    }
    if (wait && wait.kind === 'pick') return this.connection.step('@ pick at ' + this.place(event));
    if (!wait && this.state && this.state.selection.length) {
      return this.connection.step('@ clear selection');
    }
    return undefined;
  }
}
