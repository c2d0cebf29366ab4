// The way to the session: news come by one stream, lines go by one address, and every question
// carries the version that the page has seen.

// A text between the marks of a trail: they are doubled inside by nobody, so none may be there.
export function marked(text) {
  return '`' + String(text).replace(/`/g, "'") + '`';
}

// A text as an @ word takes it, whatever is in it.
export function quoted(text) {
  return '"' + String(text).replace(/\\/g, '\\\\').replace(/"/g, '\\"')
      .replace(/\n/g, '\\n').replace(/\t/g, '\\t') + '"';
}

// The word of a click with Ctrl: only the path of what was clicked goes to the host, however much is
// selected.
export function wordToToggle(isSelected) {
  return isSelected ? 'deselect' : 'also';
}

// The browser may find that the server has let go of a connection that was idle. Every question can
// be asked twice, and a line is taken only once, since it carries its version.
function ask(address, options) {
  return fetch(address, options).catch(() => fetch(address, options));
}

export class Connection {
  constructor() {
    this.version = 0;
    this.session = 0;
    this.busy = true;
    this.ended = false;
    this.state = null;
    this.stateVersion = 0;  // the version that `state` is of
    this.listeners = { news: [], state: [], session: [], problem: [] };
    this.nextLine = 0;
    this.waiters = [];
  }

  // news: an event; state: what the user can do now, once for each version; session: another one
  // has begun; problem: a sentence for the user.
  on(kind, listener) {
    this.listeners[kind].push(listener);
  }

  tell(kind, what) {
    for (const listener of this.listeners[kind]) listener(what);
  }

  start() {
    const stream = new EventSource('/events?from=' + this.nextLine);
    stream.onmessage = event => this.hear(JSON.parse(event.data));
    stream.onerror = () => {
      if (this.ended) return stream.close();
      // The browser tries again by itself unless it was refused.
      if (stream.readyState !== EventSource.CLOSED) return;
      this.tell('problem', 'unreachable');
      setTimeout(() => this.start(), 2000);
    };
  }

  hear(news) {
    if (news.session !== this.session) {
      this.session = news.session;
      this.tell('session', news);
    }
    // A stream that broke off begins again at the line that it was opened with.
    const seen = Math.max(0, news.lines.length - (news.next - this.nextLine));
    if (news.next >= this.nextLine) news.lines.splice(0, seen);
    this.nextLine = news.next;
    const isNew = news.v !== this.version || this.busy;
    this.busy = news.busy;
    this.ended = news.ended;
    this.version = news.v;
    this.tell('news', news);
    if (!news.busy) for (const resolve of this.waiters.splice(0)) resolve();
    if (!news.busy && !news.ended && isNew) this.askState();
  }

  // Resolves when the session waits for the next line.
  settled() {
    if (!this.busy) return Promise.resolve();
    return new Promise(resolve => this.waiters.push(resolve));
  }

  // Resolves when the session waits, and `state` tells what it waits with.
  async stated() {
    await this.settled();
    while (!this.ended && (this.busy || this.stateVersion !== this.version)) {
      await new Promise(resolve => this.waiters.push(resolve));
    }
  }

  // Resolves when the session waits again, after what was seen at this version.
  async beyond(version) {
    while (!this.ended && (this.busy || this.version <= version)) {
      await new Promise(resolve => this.waiters.push(resolve));
    }
  }

  async askState() {
    const version = this.version;
    const state = await this.get('/state');
    if (!state || version !== this.version) return;
    this.state = state;
    this.stateVersion = version;
    this.tell('state', state);
    for (const resolve of this.waiters.splice(0)) resolve();
  }

  // The answer as an object, or its bytes; null: what was asked about has gone meanwhile.
  async get(address, as = 'json') {
    const joined = address + (address.includes('?') ? '&' : '?') + 'v=' + this.version;
    const response = await ask(joined);
    if (response.ok) {
      return { bytes: () => response.arrayBuffer(), text: () => response.text(),
        json: () => response.json() }[as]();
    }
    if (response.status !== 409 && response.status !== 503 && response.status !== 410) {
      this.tell('problem', (await response.json().catch(() => ({}))).problem || response.status);
    }
    return null;
  }

  // One line of a trail. False: it was not taken, and the user has been told why.
  async step(line) {
    const before = this.busy;
    this.busy = true;  // until news come of its end, which may be before the answer
    const taken = await this.post('/step?v=' + this.version, line);
    if (!taken) this.busy = before;
    return taken;
  }

  async post(address, body = '') {
    const response = await ask(address, { method: 'POST', body });
    if (response.ok) return true;
    this.tell('problem', (await response.json().catch(() => ({}))).problem || response.status);
    return false;
  }

  restart(replay) {
    return this.post('/restart?v=' + this.version + (replay ? '&replay=1' : ''));
  }

  stop() {
    return this.post('/stop');
  }
}
