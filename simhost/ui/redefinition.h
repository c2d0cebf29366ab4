// The host's dialog in which a user redefines the constraints of a component.
#pragma once

namespace simhost {

class Dialogs;
class Model;

// Shows it and waits for its end. What the user has chosen takes effect by its OK: constraints
// added or taken away, or the component itself deleted. False: cancelled, and nothing has changed.
bool RedefineConstraints(Dialogs& dialogs, Model& assembly, int component);

}  // namespace simhost
