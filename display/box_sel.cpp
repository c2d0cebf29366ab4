// BoxSel, VxBoxSelSur: pick parts or surfaces, by a box too, for the command that comes next.
#include "display/commands.h"
#include "frame/services.h"

namespace {

// Whether something was picked, be it nothing at all; the selection buffer holds it then.
bool PickIntoBuffer(const char* filter) {
    ProSelection* selections = nullptr;
    int count = 0;
    if (!PickByBox(filter, &selections, &count)) return false;
    ProSelbufferClear();
    for (int i = 0; selections && i < count; ++i) ProSelbufferSelectionAdd(selections[i]);
    return true;
}

}  // namespace

int BoxSel() {
    return PickIntoBuffer("part") ? PRO_TK_NO_ERROR : PRO_TK_USER_ABORT;
}

void VxBoxSelSur() {
    PickIntoBuffer("surface");
}
