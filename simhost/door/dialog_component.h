// The components of dialogs as the door's operations find them.
#pragma once

#include "simhost/door/door.h"

namespace simhost {

// The component of that name in that dialog. A dialog or component that is not there is refused; a
// component of another kind is a complaint.
template <class Kind>
Kind& Required(const char* dialog, const char* component) {
    Need(dialog, "the dialog's name");
    Need(component, "the component's name");
    const Dialog& owner = TheHost().dialogs.Require(dialog);
    return RequireKind<Kind>(owner.Require(component), owner.name());
}

}  // namespace simhost
