// What lies beside the view: the transcript, the files of the drive, the recording, faults, calls.
import { make } from './parts.js';
import { say } from './words.js';

const mostLines = 5000;

// A line's kind by how it begins, for its colour.
function kindOf(line) {
  const text = line.trim();
  if (text.startsWith('!!')) return 'fault';
  if (text.startsWith('message:')) return 'message';
  if (text.startsWith('changed:')) return 'changed';
  // Dialogs and boxes as a terminal shows them: the page has better ones.
  if (text.startsWith('+-') || text.startsWith('|')) return 'frame';
  return text.startsWith('~') || text.startsWith('@') ? 'step' : 'line';
}

export class Transcript {
  constructor(element) {
    this.element = element;
  }

  add(lines) {
    const atEnd = this.element.scrollTop + this.element.clientHeight >=
      this.element.scrollHeight - 40;
    this.element.append(...lines.map(line => make('div', { class: kindOf(line) }, line)));
    while (this.element.childElementCount > mostLines) this.element.firstElementChild.remove();
    if (atEnd) this.element.scrollTop = this.element.scrollHeight;
  }

  begin() {
    this.element.replaceChildren();
  }
}

function sizeText(bytes) {
  if (bytes < 1024) return bytes + ' B';
  return bytes < 1024 * 1024 ? (bytes / 1024).toFixed(1) + ' KB'
    : (bytes / 1024 / 1024).toFixed(1) + ' MB';
}

export class Files {
  constructor(element, connection) {
    this.element = element;
    this.connection = connection;
    this.all = make('input', { type: 'checkbox', id: 'all-files' });
    this.all.onchange = () => this.update();
    this.list = make('div');
    element.append(make('label', {}, this.all, ' ' + say('allFiles')), this.list);
  }

  async update() {
    const files = await this.connection.get(this.all.checked ? '/files?all=1' : '/files');
    if (!files) return;
    const rows = files.files.map(file => make('div', { class: 'file' },
      make('a', { href: '/file?path=' + encodeURIComponent(file.path), download: '' }, file.path),
      make('span', {}, sizeText(file.size))));
    this.list.replaceChildren(
      make('h3', {}, say('writtenFiles')),
      ...(rows.length ? rows : [make('p', {}, say('noFiles'))]),
      make('p', {}, files.temporary ? say('temporary') : say('kept') + ' ' + files.drive));
  }
}

export class Recording {
  constructor(element, connection, actions) {
    this.connection = connection;
    this.text = make('pre');
    element.append(
      make('a', { class: 'button', href: '/recording', download: 'recording.trail' },
        say('download')),
      make('button', { id: 'replay', onclick: actions.replay }, say('replay')),
      make('button', { id: 'anew', onclick: actions.anew }, say('newSession')), this.text);
  }

  async update() {
    const text = await this.connection.get('/recording', 'text');
    if (text !== null) this.text.textContent = text;
  }
}

function listOf(title, entries) {
  return entries.length ? [make('h3', {}, title), ...entries.map(each => make('div', {}, each))] : [];
}

export class Faults {
  constructor(element, connection) {
    this.element = element;
    this.connection = connection;
  }

  async update() {
    const faults = await this.connection.get('/faults');
    if (!faults) return;
    const all = [...listOf(say('complaints'), faults.complaints), ...listOf('!!', faults.failures),
      ...listOf(say('held'), faults.held)];
    this.element.replaceChildren(...(all.length ? all : [say('noFaults')]));
  }
}

// The calls through the door, for developers. They are written down while this is looked at.
export class Journal {
  constructor(element, connection) {
    this.connection = connection;
    this.filter = make('input', { class: 'find', placeholder: 'ProMdl…' });
    this.filter.oninput = () => this.draw();
    this.lines = [];
    this.running = false;
    this.toggle = make('button', { id: 'calls-toggle', onclick: () => this.switch() },
      say('startCalls'));
    this.list = make('pre');
    element.append(this.toggle, this.filter, this.list);
  }

  async switch() {
    this.running = !this.running;
    this.toggle.textContent = say(this.running ? 'stopCalls' : 'startCalls');
    if (this.running) return this.update();
    this.lines = [];
    await this.connection.get('/journal?on=0');
    return undefined;
  }

  async update() {
    if (!this.running) return;
    for (;;) {
      const calls = await this.connection.get('/journal?from=' + this.lines.length);
      if (!calls) return;
      this.lines.push(...calls.lines);
      if (this.lines.length >= calls.all || !calls.lines.length) break;
    }
    this.draw();
  }

  draw() {
    const wanted = this.filter.value.trim().toLowerCase();
    const fitting = this.lines.filter(line => line.toLowerCase().includes(wanted));
    this.list.textContent = fitting.slice(-2000).join('\n');
  }
}

// Parameters and relations of the component that was clicked last.
export class Facts {
  constructor(element, connection) {
    this.element = element;
    this.connection = connection;
    this.path = '';
  }

  choose(path) {
    this.path = path;
  }

  async update(state) {
    if (!state.current) return this.element.replaceChildren();
    const path = state.selection.includes(this.path) ? this.path : '';
    const facts = await this.connection.get('/model?path=' + encodeURIComponent(path));
    if (!facts) return undefined;
    const rows = facts.parameters.map(one => make('tr', {}, make('td', {}, one.name),
      make('td', {}, one.value + (one.unit ? ' ' + one.unit : ''))));
    const line = (word, value) => (value ? make('div', {}, say(word) + ' ' + value) : null);
    return this.element.replaceChildren(...[
      make('div', { class: 'title' }, facts.file + (facts.changed ? ' · ' + say('changed') : '')),
      line('size', facts.size), line('material', facts.material),
      rows.length ? make('table', {}, ...rows) : null,
      facts.relations.length ? make('h3', {}, say('relations')) : null,
      facts.relations.length ? make('pre', {}, facts.relations.join('\n')) : null,
    ].filter(Boolean));
  }
}
