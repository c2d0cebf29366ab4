// Items of models at the door.
#include "hostapi/host/modelitem.h"

#include "simhost/door/door.h"
#include "simhost/door/name_record.h"

using namespace simhost;

namespace {

// A released model can be hidden, too: nothing of it changes.
void SetHidden(ProModelitem* item, bool hidden) {
    TheHost().session.RequireFeature(item).hidden = hidden;
}

// Empty: it has none, or there is no such item.
WideText NameOf(Model& owner, const ProModelitem& item) {
    if (int(item.type) == int(owner.type)) return owner.name;
    const Feature* feature = nullptr;
    if (item.type == PRO_FEATURE) feature = owner.FindFeature(item.id);
    if (item.type == PRO_CSYS) feature = FindCsys(owner, item.id);
    return feature ? feature->name : WideText();
}

}  // namespace

ProError ProModelitemMdlGet(ProModelitem* item, ProMdl* model) {
    return Op<"ProModelitemMdlGet">.Call(
        [&] { *model = TheHost().session.Require(item->owner).handle; }, GIVEN(item), OUT(model));
}

ProError ProModelitemNameGet(ProModelitem* item, ProName name) {
    return Op<"ProModelitemNameGet">.Call(
        [&] {
            Model& owner = TheHost().session.Require(item->owner);
            const WideText found = NameOf(owner, *item);
            if (found.empty()) Refuse(PRO_TK_E_NOT_FOUND);
            PutName(found, name);
        },
        GIVEN(item), OUT_NAME(name));
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
