// The page: it tells each of its parts what is new, and decides which of them is seen.
import { Connection, marked, quoted } from './connection.js';
import { Forms } from './forms.js';
import { Menus } from './menus.js';
import { DropDown, by, make } from './parts.js';
import { Facts, Faults, Files, Journal, Recording, Transcript } from './panels.js';
import { Sheet } from './sheet.js';
import { Tree } from './tree.js';
import { View } from './view.js';
import { inChinese, say, switchLanguage } from './words.js';

const connection = new Connection();
document.documentElement.lang = inChinese() ? 'zh-CN' : 'en';

const tree = new Tree(by('tree-head'), by('tree'), connection);
const facts = new Facts(by('facts'), connection);
tree.onChosen = path => facts.choose(path);
const menus = new Menus(by('menus'), connection);
const view = new View(by('view'), connection);
const sheet = new Sheet(by('sheet'), connection);
const forms = new Forms(by('layer'), connection);
const transcript = new Transcript(by('transcript'));

function sure(question, act) {
  if (window.confirm(say(question))) act();
}

const panels = {
  transcript: null,
  files: new Files(by('files'), connection),
  recording: new Recording(by('recording'), connection, {
    replay: () => sure('reallyReplay', () => connection.restart(true)),
    anew: () => sure('reallyAnew', () => connection.restart(false)),
  }),
  faults: new Faults(by('faults'), connection),
  journal: new Journal(by('journal'), connection),
};
let panel = 'transcript';

function showPanel(name) {
  panel = name;
  for (const each of Object.keys(panels)) by(each).hidden = each !== name;
  for (const tab of by('tabs').children) {
    tab.setAttribute('aria-selected', String(tab.dataset.panel === name));
  }
  if (panels[name] && !connection.busy) panels[name].update();
}
by('tabs').append(...Object.keys(panels).map(name => make('button', {
  role: 'tab', 'data-panel': name, onclick: () => showPanel(name),
}, say(name))));
showPanel(panel);

// --- The host's own buttons ---

const openButton = make('button', { id: 'open' }, say('open'));
new DropDown(openButton, (list, close) => {
  const models = connection.state ? connection.state.openable : [];
  list.append(...models.map(file => make('button', {
    class: 'command', 'data-file': file,
    onclick: () => {
      close();
      connection.step('@ open ' + quoted(file));
    },
  }, file)));
});
const tool = (id, word, line) => make('button', { id, onclick: () => connection.step(line) }, say(word));
by('tools').append(openButton, tool('save', 'save', '@ save'), tool('save-all', 'saveAll', '@ save all'),
  make('button', { id: 'language', onclick: switchLanguage }, say('language')));

function showWindows(state) {
  by('windows').replaceChildren(...state.windows.map(window => make('span', {
    class: window.current ? 'window current' : 'window', role: 'tab',
    'aria-selected': String(window.current), title: window.title,
  }, make('button', { onclick: () => connection.step('@ window ' + quoted(window.file)) },
    window.file + (window.changed ? ' *' : '')),
  window.current ? make('button', { class: 'close', title: say('close'),
    onclick: () => connection.step('@ close') }, '×') : null)));
}

// --- What the host waits for ---

function showHint({ wait, message }) {
  const hint = by('hint');
  hint.hidden = !wait || !['pick', 'click'].includes(wait.kind);
  if (hint.hidden) return;
  const button = (word, line) => make('button', { onclick: () => connection.step(line) }, say(word));
  const isPick = wait.kind === 'pick';
  const what = isPick ? say('pickWaits') + wait.question : say('clickWaits');
  hint.replaceChildren(make('b', {}, message), make('span', { class: 'what', title: what }, what),
    ...(isPick ? [button('pickNone', '@ pick nothing')] : []), button('quitPick', '@ quit'));
}

function showWelcome(state) {
  const welcome = by('welcome');
  welcome.hidden = Boolean(state.current);
  if (!welcome.hidden) {
    welcome.replaceChildren(make('p', {}, say('welcome')), ...state.openable.map(file =>
      make('button', { class: 'command', onclick: () => connection.step('@ open ' + quoted(file)) },
        file)));
  }
}

connection.on('state', state => {
  const isDrawing = Boolean(state.current && /\.(drw|frm)$/.test(state.current.file));
  by('view').hidden = isDrawing;
  by('sheet').hidden = !isDrawing;
  showWindows(state);
  showHint(state);
  showWelcome(state);
  menus.update(state);
  tree.update(state);
  facts.update(state);
  if (isDrawing) sheet.update(state);
  else view.update(state);
  forms.update(state);
  if (panels[panel]) panels[panel].update();
  by('tabs').querySelector('[data-panel=faults]').classList.toggle('bad', state.complaints > 0);
  by('waiting').textContent = state.waitingFor;
  by('save').disabled = by('save-all').disabled = openButton.disabled = Boolean(state.wait);
});

// --- Work that takes its time ---

connection.on('news', news => {
  transcript.add(news.lines);
  const long = news.busy && news.seconds > 0.4;
  by('stop').hidden = !long;
  by('work').textContent = long
    ? `${say('working')} ${news.seconds.toFixed(1)} s · ${news.work || news.calls + ' ' + say('calls') +
      ' · ' + news.lastCall}` : '';
  document.body.classList.toggle('busy', news.busy);
  if (news.ended) notice(say('ended'));
});
connection.on('session', () => {
  transcript.begin();
  by('layer').replaceChildren();
});
by('stop').textContent = say('stop');
by('stop').onclick = () => connection.stop();

let noticeTimer = 0;
function notice(text) {
  const element = by('notice');
  element.textContent = say(text);
  element.hidden = false;
  clearTimeout(noticeTimer);
  noticeTimer = setTimeout(() => { element.hidden = connection.ended ? false : true; }, 5000);
}
connection.on('problem', notice);

// --- The line at the bottom: whatever can be typed at the prompt ---

const typed = [];
let atTyped = 0;
const line = by('line');
line.placeholder = say('typeHere');
line.onkeydown = event => {
  if (event.key === 'ArrowUp' || event.key === 'ArrowDown') {
    atTyped = Math.min(typed.length, Math.max(0, atTyped + (event.key === 'ArrowUp' ? -1 : 1)));
    line.value = typed[atTyped] || '';
    event.preventDefault();
  }
  if (event.key !== 'Enter' || !line.value.trim()) return;
  typed.push(line.value);
  atTyped = typed.length;
  connection.step(line.value);
  line.value = '';
};

// For tests: nothing here is used by the page itself.
window.vx = { connection, forms, marked };
connection.start();
