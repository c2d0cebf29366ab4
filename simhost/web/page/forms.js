// What waits for the user, over the page.
export class Forms {
  constructor(layer, connection) {
    this.layer = layer;
    this.connection = connection;
  }

  update() {}
}
