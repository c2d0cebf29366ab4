// The components of a dialog by their kinds: each makes its element, takes over what the host says,
// and tells what the user does as a line of a trail.
import { marked } from './connection.js';
import { make } from './parts.js';
import { TablePart } from './table.js';

// A file of the resources, unless the form brings the picture along.
function picture(name) {
  return name.startsWith('data:') ? name : '/icons/' + encodeURIComponent(name);
}

// What is only there to be seen, and what all have in common.
class Part {
  constructor(form, data, element) {
    this.form = form;
    this.name = data.name;
    this.data = data;
    this.waiting = 0;  // lines on their way to the host
    this.element = element;
    element.dataset.vx = data.name;
    element.dataset.kind = data.kind;
    element.classList.add('vx-part');
    if (data.tellsFocus) element.dataset.tellsFocus = '';
    for (const [side, pixels] of Object.entries(data.offsets || {})) {
      element.style['margin' + side] = pixels + 'px';
    }
  }

  update(data) {
    this.data = data;
    this.element.classList.toggle('unseen', !data.visible);
    if (!this.waiting) this.take(data);
  }

  take() {}

  isUsable() {
    return this.data.enabled && this.data.visible && this.element.isConnected;
  }

  // Elements that take the focus.
  stops() {
    return [];
  }

  // False: what was typed cannot go to the host.
  flush() {
    return true;
  }

  // While its line is on the way the host's older state does not undo what the user sees.
  async act(verb, rest) {
    ++this.waiting;
    await this.form.act(() => (this.isUsable() ? this.form.line(verb, this.name, rest) : null));
    --this.waiting;
  }
}

class Caption extends Part {
  constructor(form, data) {
    super(form, data, data.picture ? make('img', { src: picture(data.picture), alt: data.label })
      : make('span', { class: 'vx-label' }));
    if (data.picture) this.element.onload = () => form.centre();
  }

  take(data) {
    if (!data.picture && this.element.textContent !== data.label) {
      this.element.textContent = data.label;
    }
  }
}

// Holds others; the form puts them in.
class Layout extends Part {
  constructor(form, data) {
    super(form, data, make(data.label ? 'fieldset' : 'div', { class: 'vx-layout' }));
    if (data.label) this.element.append(this.legend = make('legend'));
  }

  take(data) {
    if (this.legend) this.legend.textContent = data.label;
  }
}

class PushButton extends Part {
  constructor(form, data) {
    super(form, data, make('button', { type: 'button' }));
    this.element.classList.toggle('default', form.form.defaultButton === data.name);
    this.element.onclick = () => this.press();
  }

  take(data) {
    if (this.element.textContent !== data.label) this.element.textContent = data.label;
    this.element.disabled = !data.enabled;
  }

  // A second press waits for what the first one does.
  async press() {
    if (this.waiting) return;
    ++this.waiting;
    await this.form.press(this.name, () => this.isUsable());
    --this.waiting;
  }

  stops() {
    return [this.element];
  }
}

class CheckButton extends Part {
  constructor(form, data) {
    const box = make('input', { type: 'checkbox' });
    const text = make('span');
    super(form, data, make('label', { class: 'vx-mark' }, box, text));
    [this.box, this.text] = [box, text];
    box.onchange = () => this.act('Activate', box.checked ? '1' : '0');
  }

  take(data) {
    this.text.textContent = data.label;
    this.box.checked = data.set;
    this.box.disabled = !data.enabled;
  }

  stops() {
    return [this.box];
  }
}

class RadioGroup extends Part {
  constructor(form, data) {
    const radios = data.names.map(name => make('input', { type: 'radio', value: name,
      name: form.name + ' ' + data.name }));
    super(form, data, make('div', { class: data.horizontal ? 'vx-radios across' : 'vx-radios',
      role: 'radiogroup' }, ...radios.map((radio, at) =>
      make('label', { class: 'vx-mark' }, radio, make('span', {}, data.labels[at])))));
    this.radios = radios;
    for (const radio of radios) {
      radio.onchange = () => this.act('Select', '1 ' + marked(radio.value));
    }
  }

  take(data) {
    for (const radio of this.radios) {
      radio.checked = radio.value === data.selected;
      radio.disabled = !data.enabled;
    }
  }

  // One stop for all; arrows go on from there.
  stops() {
    return [this.radios.find(radio => radio.checked) || this.radios[0]].filter(Boolean);
  }
}

class OptionMenu extends Part {
  constructor(form, data) {
    super(form, data, make('select'));
    this.element.style.minWidth = data.columns * 0.62 + 2 + 'em';
    this.element.onchange = () => {
      const at = this.data.labels.indexOf(this.element.value);
      this.act('Select', '1 ' + marked(this.data.names[at] || this.element.value));
    };
  }

  take(data) {
    const labels = data.labels.includes(data.value) ? data.labels : [data.value, ...data.labels];
    const shown = JSON.stringify(labels);
    if (shown !== this.shown) {
      this.shown = shown;
      this.element.replaceChildren(...labels.map(label => make('option', { value: label }, label)));
    }
    this.element.value = data.value;
    this.element.disabled = !data.enabled;
  }

  stops() {
    return [this.element];
  }
}

// Input panels and text areas. What is typed goes to the host as a whole, when the user is done.
class TextField extends Part {
  constructor(form, data) {
    const isArea = data.kind === 'TextArea';
    super(form, data, make(isArea ? 'textarea' : 'input', { autocomplete: 'off', spellcheck: 'false',
      rows: isArea ? data.rows : undefined, cols: isArea ? data.columns : undefined,
      size: isArea ? undefined : Math.max(1, data.columns) }));
    this.isArea = isArea;
    this.known = null;  // what the host has
    this.shown = '';    // that, as the element shows it
    this.element.onchange = () => this.flush();
  }

  take(data) {
    if (data.value !== this.known) {
      this.known = data.value;
      if (this.element.value !== data.value) this.element.value = data.value;
      this.shown = this.element.value;
    }
    this.element.disabled = !data.enabled;
  }

  flush() {
    const typed = this.element.value;
    if (typed === this.shown) return true;
    const cannotGo = typed.includes('`');
    this.element.classList.toggle('wrong', cannotGo);
    if (cannotGo) {
      this.form.refuseText();
      return false;
    }
    this.known = this.shown = typed;
    const escaped = this.isArea ? typed.replace(/\\/g, '\\\\').replace(/\n/g, '\\n')
      .replace(/\t/g, '\\t') : typed;
    this.act('Input', marked(escaped));
    return true;
  }

  stops() {
    return [this.element];
  }
}

class DrawingArea extends Part {
  constructor(form, data) {
    super(form, data, make('div', { class: 'vx-area' }));
    this.element.style.width = data.width + 'px';
    this.element.style.height = data.height + 'px';
  }

  take(data) {
    const drawn = JSON.stringify(data.drawn);
    if (drawn === this.drawn) return;
    this.drawn = drawn;
    this.element.replaceChildren(...data.drawn.map(one => {
      const image = make('img', { src: picture(one.picture), alt: '' });
      image.style.left = one.x + 'px';
      image.style.top = one.y + 'px';
      return image;
    }));
  }
}

// A list of the host's own dialogs; a double click is done with what is chosen.
class List extends Part {
  constructor(form, data) {
    super(form, data, make('select', { size: 12 }));
    this.element.onchange = () => this.act('Select', '1 ' + marked(this.element.value));
    this.element.ondblclick = () => this.activate();
    this.element.onkeydown = event => {
      if (event.key !== 'Enter') return;
      event.stopPropagation();
      this.activate();
    };
  }

  activate() {
    if (this.element.value) this.act('Activate', '1 ' + marked(this.element.value));
  }

  take(data) {
    const items = JSON.stringify(data.items);
    if (items !== this.items) {
      this.items = items;
      this.element.replaceChildren(...data.items.map(item => make('option', {}, item)));
    }
    this.element.value = data.chosen;
    this.element.disabled = !data.enabled;
  }

  stops() {
    return [this.element];
  }
}

class Separator extends Part {
  constructor(form, data) {
    super(form, data, make('hr'));
  }
}

class Table extends Part {
  constructor(form, data) {
    const table = new TablePart(form, data, cell => makeComponent(form, cell));
    super(form, data, table.element);
    this.table = table;
  }

  // Rows come and go, and each of their components knows itself what is on its way.
  update(data) {
    super.update(data);
    this.table.update(data);
  }

  stops() {
    return this.table.stops();
  }

  flush() {
    return this.table.flush();
  }
}

const kinds = {
  CheckButton, DrawingArea, InputPanel: TextField, Label: Caption, Layout, List, OptionMenu,
  PushButton, RadioGroup, Separator, Table, TextArea: TextField,
};

export function makeComponent(form, data) {
  return new (kinds[data.kind] || Caption)(form, data);
}
