// What the user does to a form, one line after the other: a button that is pressed while a text is
// on its way waits for it.
export class Acts {
  // `shown` resolves when the page shows what the session waits for now.
  constructor(connection, shown) {
    this.connection = connection;
    this.shown = shown;
    this.last = Promise.resolve();
  }

  // `lineOf` says the line when its turn comes; null if what it was for has gone meanwhile.
  // Resolves when the line has been done.
  add(lineOf) {
    this.last = this.last.then(() => this.perform(lineOf)).catch(() => {
      this.connection.tell('problem', 'unreachable');
    });
    return this.last;
  }

  async perform(lineOf) {
    await this.connection.settled();
    await this.shown();
    const line = lineOf();
    if (!line) return;
    const before = this.connection.version;
    if (await this.connection.step(line)) await this.connection.beyond(before);
  }
}
