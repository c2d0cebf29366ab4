// Making elements, in few words.

// make('button', {class: 'big', onclick: f}, 'text', other): attributes, then what is inside.
export function make(tag, attributes = {}, ...inside) {
  const element = document.createElement(tag);
  for (const [name, value] of Object.entries(attributes)) {
    if (value === undefined || value === null || value === false) continue;
    if (typeof value === 'function') element[name] = value;
    else element.setAttribute(name, value === true ? '' : value);
  }
  element.append(...inside.filter(each => each !== null && each !== undefined));
  return element;
}

export function by(id) {
  return document.getElementById(id);
}

// A list that a click elsewhere or Escape closes.
export class DropDown {
  constructor(button, fill) {
    this.button = button;
    this.fill = fill;
    this.list = null;
    button.addEventListener('click', event => {
      event.stopPropagation();
      this.list ? this.close() : this.open();
    });
  }

  open() {
    if (DropDown.current) DropDown.current.close();
    DropDown.current = this;
    this.list = make('div', { class: 'dropdown' });
    document.body.append(this.list);
    const place = this.button.getBoundingClientRect();
    this.list.style.top = place.bottom + 'px';
    this.fill(this.list, () => this.close());
    const left = Math.min(place.left, window.innerWidth - this.list.offsetWidth - 8);
    this.list.style.left = Math.max(4, left) + 'px';
  }

  close() {
    if (this.list) this.list.remove();
    this.list = null;
    if (DropDown.current === this) DropDown.current = null;
  }
}
DropDown.current = null;
document.addEventListener('click', event => {
  const open = DropDown.current;
  if (open && open.list && !open.list.contains(event.target)) open.close();
});
document.addEventListener('keydown', event => {
  if (event.key === 'Escape' && DropDown.current) {
    DropDown.current.close();
    event.stopPropagation();
  }
}, true);
