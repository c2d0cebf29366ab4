// Selections at the door.
#include "hostapi/host/selection.h"

#include "simhost/door/door.h"

using namespace simhost;

ProError ProSelbufferSelectionsGet(ProSelection** selections) {
    Operation& op = Op<"ProSelbufferSelectionsGet">;
    return op.Call(
        [&] {
            Host& host = TheHost();
            if (host.session.buffer.empty()) Refuse(PRO_TK_E_NOT_FOUND);
            std::vector<ProSelection> handles;
            for (const Selection* one : host.session.buffer) handles.push_back(one->handle);
            *selections = host.arrays.Make(handles, op.name());
        },
        OUT_ARRAY(selections));
}

ProError ProSelectionModelitemGet(ProSelection selection, ProModelitem* item) {
    return Op<"ProSelectionModelitemGet">.Call(
        [&] {
            const Selection* found = TheHost().session.FindSelection(selection);
            if (!selection) Refuse(PRO_TK_BAD_INPUTS);
            if (!found) Complain(PRO_TK_BAD_INPUTS, "not a live selection");
            *item = found->item;
        },
        ARG(selection), OUT(item));
}
