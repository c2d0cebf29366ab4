// The menus of the plug-in: what can be pressed now, greyed and absent as its access rules say.
import { marked } from './connection.js';
import { DropDown, make } from './parts.js';
import { inChinese, say } from './words.js';

function labelOf(button) {
  return (inChinese() ? button.label : button.english) || button.name;
}

function helpOf(button) {
  return (inChinese() ? button.help : button.englishHelp) || '';
}

export class Menus {
  constructor(element, connection) {
    this.element = element;
    this.connection = connection;
    this.menus = [];
    this.shown = '';
  }

  update(state) {
    this.menus = state.menus.filter(menu => menu.onBar);
    const titles = JSON.stringify(this.menus.map(menu => menu.title));
    if (titles === this.shown) return;
    this.shown = titles;
    this.element.replaceChildren(...this.menus.map((menu, at) => {
      const title = make('button', { class: 'menu', 'data-menu': menu.name }, menu.title);
      new DropDown(title, (list, close) => this.fill(list, this.menus[at], close));
      return title;
    }));
  }

  fill(list, menu, close) {
    list.classList.add('commands');
    const find = make('input', { class: 'find', placeholder: say('search') });
    const buttons = make('div', { class: 'grid' });
    const show = () => {
      const wanted = find.value.trim().toLowerCase();
      const fitting = menu.buttons.filter(button => button.state !== 'absent' &&
        (labelOf(button) + button.name).toLowerCase().includes(wanted));
      buttons.replaceChildren(...fitting.map(button => this.button(button, close)));
      if (!fitting.length) buttons.append(say('noCommand'));
    };
    find.oninput = show;
    find.onkeydown = event => {
      if (event.key !== 'Enter') return;
      const first = buttons.querySelector('button:not([disabled])');
      if (first) first.click();
    };
    list.append(find, buttons);
    show();
    find.focus();
  }

  button(button, close) {
    const icon = make('img', { src: '/icons/' + encodeURIComponent(button.icon), alt: '' });
    icon.onerror = () => icon.replaceWith(make('span', { class: 'no-icon' }));
    return make('button', {
      class: 'command', 'data-command': button.command, title: helpOf(button),
      disabled: button.state !== 'available',
      onclick: () => {
        close();
        this.connection.step('~ Command ' + marked(button.command));
      },
    }, button.icon ? icon : '', make('span', {}, labelOf(button)));
  }
}
