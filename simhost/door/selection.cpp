// Selections at the door.
#include "hostapi/host/selection.h"

#include "simhost/door/describe.h"
#include "simhost/host.h"

using namespace simhost;

ProError ProSelbufferSelectionsGet(ProSelection** selections) {
    static Operation op("ProSelbufferSelectionsGet");
    return op.Call([&] {
        Need(selections, "the place for the selections");
        Host& host = TheHost();
        if (host.session.buffer.empty()) Refuse(PRO_TK_E_NOT_FOUND);
        std::vector<ProSelection> handles;
        for (const Selection* one : host.session.buffer) handles.push_back(one->handle);
        *selections = host.arrays.Make(handles, op.name());
        return PRO_TK_NO_ERROR;
    });
}

ProError ProSelectionModelitemGet(ProSelection selection, ProModelitem* item) {
    static Operation op("ProSelectionModelitemGet");
    return op.Call(
        [&] {
            Need(item, "the place for the item");
            const Selection* found = TheHost().session.FindSelection(selection);
            if (!found) Complain(PRO_TK_BAD_INPUTS, "not a live selection");
            *item = found->item;
            return PRO_TK_NO_ERROR;
        },
        "selection", selection, "item", Out(item));
}
