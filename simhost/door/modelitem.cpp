// Items of models at the door.
#include "hostapi/host/modelitem.h"

#include "simhost/door/door.h"

using namespace simhost;

namespace {

// A released model can be hidden, too: nothing of it changes.
void SetHidden(ProModelitem* item, bool hidden) {
    TheHost().session.RequireFeature(item).hidden = hidden;
}

}  // namespace

ProError ProModelitemMdlGet(ProModelitem* item, ProMdl* model) {
    return Op<"ProModelitemMdlGet">.Call(
        [&] { *model = TheHost().session.Require(item->owner).handle; }, GIVEN(item), OUT(model));
}

ProError ProModelitemHide(ProModelitem* item) {
    return Op<"ProModelitemHide">.Call([&] { SetHidden(item, true); }, GIVEN(item));
}

ProError ProModelitemUnhide(ProModelitem* item) {
    return Op<"ProModelitemUnhide">.Call([&] { SetHidden(item, false); }, GIVEN(item));
}

ProError ProModelitemIsHidden(ProModelitem* item, ProBoolean* hidden) {
    return Op<"ProModelitemIsHidden">.Call(
        [&] {
            const bool is = TheHost().session.RequireFeature(item).hidden;
            *hidden = is ? PRO_B_TRUE : PRO_B_FALSE;
        },
        GIVEN(item), OUT(hidden));
}
