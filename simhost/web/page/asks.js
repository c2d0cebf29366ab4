// What the host asks in windows of its own: boxes, prompts, file dialogs, the question of the main
// window, and popup menus.
import { marked, quoted } from './connection.js';
import { make } from './parts.js';
import { say } from './words.js';
import { FormWindow } from './window.js';

// A window with buttons in its last row; Enter presses the first of them, Escape the last.
class Ask extends FormWindow {
  constructor(forms, name, title, kind) {
    super(forms.layer, { name, title, kind, close: () => this.press(this.buttons.length - 1) });
    this.forms = forms;
    this.buttons = [];
    this.row = make('div', { class: 'form-buttons' });
    this.element.addEventListener('keydown', event => {
      if (event.isComposing) return;
      if (event.key === 'Escape') this.press(this.buttons.length - 1);
      else if (event.key === 'Enter' && event.target.tagName !== 'BUTTON') this.press(0);
      else return;
      event.preventDefault();
    });
  }

  addButton(word, lineOf) {
    const button = make('button', { 'data-button': word }, say(word));
    button.classList.toggle('default', !this.buttons.length);
    button.onclick = () => this.press(this.buttons.findIndex(each => each.button === button));
    this.buttons.push({ button, lineOf });
    this.row.append(button);
  }

  // Once only, and not if the question has gone when its turn comes.
  async press(number) {
    if (this.pressed) return;
    this.pressed = true;
    const line = this.buttons[number].lineOf();
    await this.forms.acts.add(() => (this.element.isConnected ? line : null));
    this.pressed = false;  // a line that was not taken can be tried again
  }

  show(focused) {
    this.body.append(this.row);
    this.place();
    focused.focus();
    if (focused.select) focused.select();
  }
}

function text(words) {
  return make('div', { class: 'form-text' }, words);
}

export function askBox(forms, wait) {
  const ask = new Ask(forms, 'box', wait.caption || '!', 'ask box');
  ask.body.append(text(wait.text));
  ask.addButton('ok', () => '@ ok');
  ask.show(ask.buttons[0].button);
  return ask;
}

export function askPrompt(forms, wait) {
  const ask = new Ask(forms, 'prompt', say('prompt'), 'ask prompt');
  const input = make('input', { autocomplete: 'off', spellcheck: 'false' });
  input.value = wait.byDefault;
  ask.body.append(text(wait.text), input);
  ask.addButton('ok', () => '@ answer ' + quoted(input.value));
  ask.addButton('cancel', () => '@ quit');
  ask.show(input);
  return ask;
}

// `typed`: what was in the name field when the host refused it.
export function askFile(forms, wait, typed) {
  const file = wait.file;
  const ask = new Ask(forms, 'file', file.title || say('openModel'), 'ask file');
  const input = make('input', { autocomplete: 'off', spellcheck: 'false' });
  input.value = typed === undefined ? file.proposed : typed;
  const list = make('select', { size: Math.min(14, Math.max(4, file.files.length)),
    'aria-label': say('files') }, ...file.files.map(name => make('option', {}, name)));
  list.onchange = () => { input.value = list.value; };
  list.ondblclick = () => { if (list.value) ask.press(0); };
  const field = (word, inside) => [make('span', {}, say(word)), inside];
  const filter = file.forFolder ? [] : field('fileFilter', make('span', {}, file.filter));
  ask.body.append(make('div', { class: 'form-fields' },
    ...field('folder', make('span', { class: 'folder' }, file.folder)),
    ...(file.files.length ? field(file.forFolder ? 'folders' : 'files', list) : []),
    ...field(file.forFolder ? 'folderName' : 'fileName', input), ...filter));
  if (file.forFolder) ask.body.append(text(say('emptyIsFolder')));
  ask.addButton('ok', () => '@ answer ' + quoted(input.value));
  ask.addButton('cancel', () => '@ quit');
  ask.typed = () => input.value;
  ask.show(input);
  return ask;
}

export function askQuestion(forms, wait) {
  const ask = new Ask(forms, 'question', say('question'), 'ask question');
  ask.body.append(text(say('clearAll')));
  for (const answer of ['yes', 'no']) {
    ask.addButton(answer, () => `~ Activate ${marked(wait.name)} ${marked(answer)}`);
  }
  ask.show(ask.buttons[0].button);
  return ask;
}

// The menu of a right click, where the mouse was. A click beside it leaves it.
export class PopupMenu {
  constructor(forms, entries, at) {
    this.forms = forms;
    const item = entry => make('button', {
      role: 'menuitem', title: entry.help, disabled: entry.state !== 'available',
      'data-entry': entry.label, onclick: () => this.leave('@ choose ' + quoted(entry.label)),
    }, entry.label);
    this.menu = make('div', { class: 'form-popup', role: 'menu' }, ...entries.map(item));
    this.element = make('div', { class: 'form-popup-ground' }, this.menu);
    this.element.onpointerdown = event => {
      if (event.target === this.element) this.leave('@ quit');
    };
    this.element.oncontextmenu = event => event.preventDefault();
    this.element.onkeydown = event => this.key(event);
    forms.layer.append(this.element);
    const within = (value, size, room) => Math.max(0, Math.min(value, room - size - 4)) + 'px';
    this.menu.style.left = within(at.x, this.menu.offsetWidth, window.innerWidth);
    this.menu.style.top = within(at.y, this.menu.offsetHeight, window.innerHeight);
    const first = this.menu.querySelector('button:not([disabled])');
    if (first) first.focus();
  }

  remove() {
    this.element.remove();
  }

  async leave(line) {
    if (this.left) return;
    this.left = true;
    await this.forms.acts.add(() => (this.element.isConnected ? line : null));
    this.left = false;
  }

  key(event) {
    if (event.key === 'Escape') return this.leave('@ quit');
    const step = { ArrowDown: 1, ArrowUp: -1, Tab: event.shiftKey ? -1 : 1 }[event.key];
    if (!step) return undefined;
    event.preventDefault();
    const usable = [...this.menu.querySelectorAll('button:not([disabled])')];
    const at = usable.indexOf(document.activeElement);
    if (usable.length) usable[(at + step + usable.length) % usable.length].focus();
    return undefined;
  }
}
