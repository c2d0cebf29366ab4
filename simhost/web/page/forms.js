// What waits for the user, over the page: the open dialogs, and above them what is asked last.
import { Acts } from './acts.js';
import { askBox, askFile, askPrompt, askQuestion, PopupMenu } from './asks.js';
import { DialogWindow } from './dialog.js';
import { make } from './parts.js';

// What is picked or clicked lies in the page itself, which stays free then.
const coversPage = new Set(['box', 'dialog', 'prompt', 'question']);

export class Forms {
  constructor(layer, connection) {
    this.layer = layer;
    this.connection = connection;
    this.shownVersion = -1;
    this.waiters = [];
    this.acts = new Acts(connection, () => this.shown());
    this.veil = make('div', { class: 'form-veil', hidden: true });
    this.dialogs = [];  // from the lowest up
    this.ask = null;
    this.popup = null;
    this.at = { x: 0, y: 0 };
    window.addEventListener('pointerdown', event => {
      this.at = { x: event.clientX, y: event.clientY };
    }, true);
    connection.on('session', () => this.clear());
  }

  // The one that the user works with; null: none is open.
  get dialog() {
    return this.dialogs[this.dialogs.length - 1] || null;
  }

  clear() {
    for (const each of [...this.dialogs, this.ask, this.popup]) if (each) each.remove();
    this.dialogs = [];
    this.ask = this.popup = null;
    this.layer.replaceChildren();
    this.shownVersion = -1;
  }

  // Resolves when what is seen is what the session waits for.
  async shown() {
    while (this.shownVersion !== this.connection.version) {
      await new Promise(resolve => this.waiters.push(resolve));
    }
  }

  async update(state) {
    const version = this.connection.version;
    if (version === this.shownVersion) return;
    try {
      // A box or a prompt may have come out of a dialog, which stays in sight below it.
      const form = state.wait ? await this.connection.get('/dialog') : {};
      // It has gone already: a newer state follows.
      if (!form || version !== this.connection.version) return;
      this.show(state, form);
      this.shownVersion = version;
      for (const resolve of this.waiters.splice(0)) resolve();
    } catch (error) {
      this.connection.tell('problem', String(error));
      throw error;
    }
  }

  show(state, form) {
    const kind = state.wait ? state.wait.kind : null;
    if (!this.veil.isConnected) this.layer.prepend(this.veil);
    this.veil.hidden = !coversPage.has(kind);
    this.showDialogs(form.name ? [...form.below, form] : [], kind === 'dialog');
    this.showAsk(state.wait);
    if (this.popup) this.popup.remove();
    this.popup = state.popup && !state.wait ? new PopupMenu(this, state.popup, this.at) : null;
  }

  // Those that stay keep what was typed into them, and their places.
  showDialogs(open, isOnTop) {
    const kept = this.dialogs.findIndex((dialog, at) => !open[at] || !dialog.shows(open[at]));
    for (const gone of kept < 0 ? [] : this.dialogs.splice(kept)) gone.remove();
    open.forEach((form, at) => {
      if (this.dialogs[at]) {
        this.dialogs[at].update(form);
      } else {
        this.dialogs.push(new DialogWindow(this, form));
        if (at > 0) this.dialogs[at].placeBeside(this.dialogs[at - 1].corner);
      }
      this.dialogs[at].setOnTop(isOnTop && at === open.length - 1);
    });
  }

  // Every version has its own: nobody answers a box that looks like the one before.
  showAsk(wait) {
    const before = this.ask;
    if (before) before.remove();
    this.ask = null;
    if (!wait) return;
    const question = JSON.stringify(wait);
    if (wait.kind === 'box') this.ask = askBox(this, wait);
    else if (wait.kind === 'question') this.ask = askQuestion(this, wait);
    else if (wait.kind === 'prompt' && !wait.file) this.ask = askPrompt(this, wait);
    else if (wait.kind === 'prompt') {
      const again = before && before.question === question && before.typed;
      this.ask = askFile(this, wait, again ? before.typed() : undefined);
    }
    if (this.ask) this.ask.question = question;
  }
}
