// The 3-D view of the model that is open.
export class View {
  constructor(element, connection) {
    this.element = element;
    this.connection = connection;
  }

  update() {}
}
