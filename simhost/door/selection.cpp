// Selections and picks at the door.
#include "hostapi/host/selection.h"

#include <algorithm>
#include <utility>

#include "simhost/core/text.h"
#include "simhost/door/door.h"
#include "simhost/model/picking.h"
#include "simhost/model/view_items.h"

using namespace simhost;

namespace {

const Selection& RequireSelection(ProSelection handle) {
    const Selections& selections = TheHost().session.selections;
    const Selection* found = selections.Find(handle);
    if (found) return *found;
    if (!handle) Refuse(PRO_TK_BAD_INPUTS);
    Complain(PRO_TK_BAD_INPUTS, selections.WasGiven(handle) ? "a selection that has ended"
                                                            : "not a handle of a selection");
}

// Whether these options let the user draw a box.
bool AllowsBox(ProSelectionEnv environment) {
    if (!environment) return false;
    const SelectionEnvironment* found = TheHost().session.selections.FindEnvironment(environment);
    if (!found) Complain(PRO_TK_BAD_INPUTS, "not an environment of a pick");
    return found->box;
}

// What the last pick has lent ends.
void TakeBackPicked(Host& host) {
    host.session.selections.Picked({});
    if (host.picked) host.arrays.TakeBack(std::exchange(host.picked, nullptr));
}

// Null for a pick of nothing.
ProSelection* LendPicked(Host& host, const std::vector<Selection>& taken) {
    if (taken.empty()) return nullptr;
    const HolderScope holder(host.arrays, ArrayLedger::kTheHost);
    ProSelection* array = host.arrays.Make(host.session.selections.Picked(taken), "ProSelect");
    host.picked = array;
    return array;
}

void AskForPick(Picking* picking) {
    Host& host = TheHost();
    if (host.user) host.user->Pick(*picking);
    if (picking->answered()) return;
    host.Complain("nobody answers the pick: " + picking->Question());
    picking->Leave();
}

// A click with another button than those that are waited for is none: the user is asked again.
std::optional<Click> AskForClick(int buttons) {
    Host& host = TheHost();
    if (!host.user) {
        host.Complain("nobody answers the wait for a click");
        return std::nullopt;
    }
    for (;;) {
        const std::optional<Click> click = host.user->AnswerClick();
        if (!click || (click->button & buttons) != 0) return click;
        host.Tell("this button is not waited for; click with another one");
    }
}

}  // namespace

ProError ProSelbufferSelectionsGet(ProSelection** selections) {
    Operation& op = Op<"ProSelbufferSelectionsGet">;
    return op.Call(
        [&] {
            Host& host = TheHost();
            Selections& known = host.session.selections;
            if (!known.IsReadable()) Refuse(PRO_TK_E_NOT_FOUND);
            std::vector<ProSelection> handles = known.LendBuffer();
            *selections = host.arrays.Make(handles, op.name());
            known.KeptIn(*selections, std::move(handles));
        },
        OUT_ARRAY(selections));
}

ProError ProSelbufferClear() {
    return Op<"ProSelbufferClear">.Call([&] { TheHost().session.selections.ClearBuffer(); });
}

ProError ProSelbufferSelectionAdd(ProSelection selection) {
    return Op<"ProSelbufferSelectionAdd">.Call(
        [&] { TheHost().session.selections.AddToBuffer(RequireSelection(selection)); },
        ARG(selection));
}

ProError ProSelectionModelitemGet(ProSelection selection, ProModelitem* item) {
    return Op<"ProSelectionModelitemGet">.Call(
        [&] {
            const Selection& found = RequireSelection(selection);
            // What is seen of a round face is no item of its model.
            if (found.item.type == kSilhouette) Refuse(PRO_TK_GENERAL_ERROR);
            *item = found.item;
            if (item->type == kDatumPlane) item->type = PRO_SURFACE;
        },
        ARG(selection), OUT(item));
}

ProError ProSelectionAsmcomppathGet(ProSelection selection, ProAsmcomppath* path) {
    return Op<"ProSelectionAsmcomppathGet">.Call(
        [&] {
            const Selection& found = RequireSelection(selection);
            if (found.path.size() > PRO_MAX_ASSEM_LEVEL) Refuse(PRO_TK_BAD_INPUTS);
            *path = {};
            path->owner = static_cast<ProSolid>(found.top->handle);
            std::copy(found.path.begin(), found.path.end(), path->comp_id_tab);
            path->table_num = int(found.path.size());
        },
        ARG(selection), OUT(path));
}

ProError ProSelectionAlloc(ProAsmcomppath* path, ProModelitem* item, ProSelection* selection) {
    Operation& op = Op<"ProSelectionAlloc">;
    return op.Call(
        [&] {
            Host& host = TheHost();
            Selection made{*item, &host.session.Require(item->owner), {}};
            if (path) {
                made.top = &host.session.RequireSolid(path->owner);
                const int count = std::clamp(path->table_num, 0, PRO_MAX_ASSEM_LEVEL);
                made.path.assign(path->comp_id_tab, path->comp_id_tab + count);
            }
            ProModelitem end;
            const bool leads = Session::Follow(*made.top, made.path, &end);
            if (!leads || end.owner != item->owner) Refuse(PRO_TK_BAD_INPUTS);
            Model& owner = host.session.Require(item->owner);
            const bool whole = int(item->type) == int(owner.type);
            if (!whole && !HasItem(owner, item->type, item->id)) Refuse(PRO_TK_BAD_INPUTS);
            *selection = host.session.selections.Make(made);
            host.arrays.NoteHandle(*selection, op.name());
        },
        ARG(path), GIVEN(item), OUT(selection));
}

ProError ProSelectionFree(ProSelection* selection) {
    return Op<"ProSelectionFree">.Call(
        [&] {
            Host& host = TheHost();
            if (!*selection) Refuse(PRO_TK_BAD_INPUTS);
            if (!host.session.selections.Free(*selection)) {
                Complain(PRO_TK_BAD_INPUTS, "not a selection that the caller has to free");
            }
            host.arrays.ForgetHandle(*selection);
            *selection = nullptr;
        },
        GIVEN(selection));
}

ProError ProSelectionCopy(ProSelection from, ProSelection* copy) {
    Operation& op = Op<"ProSelectionCopy">;
    return op.Call(
        [&] {
            Host& host = TheHost();
            *copy = host.session.selections.Make(RequireSelection(from));
            host.arrays.NoteHandle(*copy, op.name());
        },
        ARG(from), OUT(copy));
}

ProError ProSelectionViewGet(ProSelection selection, ProView* view) {
    return Op<"ProSelectionViewGet">.Call(
        [&] {
            const Selection& found = RequireSelection(selection);
            if (!found.view) Refuse(PRO_TK_E_NOT_FOUND);
            *view = found.view;
        },
        ARG(selection), OUT(view));
}

ProError ProSelectionPoint3dGet(ProSelection selection, Pro3dPnt point) {
    return Op<"ProSelectionPoint3dGet">.Call(
        [&] {
            const Selection& found = RequireSelection(selection);
            if (!found.point) Refuse(PRO_TK_E_NOT_FOUND);
            const double values[] = {found.point->x, found.point->y, found.point->z};
            std::copy_n(values, 3, point);
        },
        ARG(selection), OUT_POINT(point));
}

ProError ProSelectionEnvAlloc(ProSelectionEnvOption* options, int count,
                              ProSelectionEnv* environment) {
    return Op<"ProSelectionEnvAlloc">.Call(
        [&] {
            bool box = false;
            for (int i = 0; i < count; ++i) {
                switch (options[i].attribute) {
                    case PRO_SELECT_DONE_REQUIRED:
                    case PRO_SELECT_BY_MENU_ALLOWED: break;
                    case PRO_SELECT_BY_BOX_ALLOWED: box = options[i].attribute_value == 1; break;
                    default: Refuse(PRO_TK_BAD_INPUTS);
                }
            }
            *environment =
                static_cast<ProSelectionEnv>(TheHost().session.selections.NewEnvironment(box));
        },
        LIST(options, count), OUT(environment));
}

ProError ProSelect(char* filter, int most, ProSelection* initial, ProSelFunctions* functions,
                   ProSelectionEnv environment, ProSelAppAction* reference,
                   ProSelection** selections, int* count) {
    Operation& op = Op<"ProSelect">;
    return op.Call(
        [&] {
            Host& host = TheHost();
            const std::string words = Utf8(FromSystemCodePage(filter));
            if (const std::string unknown = Picking::UnknownWord(words); !unknown.empty()) {
                Complain(PRO_TK_BAD_INPUTS, "the filter has a word that is none: " + unknown);
            }
            if (most == 0 || most < PRO_VALUE_UNUSED) Refuse(PRO_TK_BAD_INPUTS);
            if (!host.session.CurrentModel()) Refuse(PRO_TK_BAD_CONTEXT);
            Picking picking(host.session, words, most, AllowsBox(environment));
            TakeBackPicked(host);
            AskForPick(&picking);
            if (picking.left()) Refuse(PRO_TK_USER_ABORT);
            *count = int(picking.taken().size());
            *selections = LendPicked(host, picking.taken());
        },
        GIVEN(filter), ARG(most), ARG(initial), ARG(functions), ARG(environment), ARG(reference),
        OUT_LIST(selections, count), OUT(count));
}

ProError ProMousePickGet(ProMouseButton expected, ProMouseButton* pressed, Pro3dPnt position) {
    return Op<"ProMousePickGet">.Call(
        [&] {
            if ((int(expected) & int(PRO_ANY_BUTTON)) == 0) Refuse(PRO_TK_BAD_INPUTS);
            const std::optional<Click> click = AskForClick(int(expected));
            if (!click) Refuse(PRO_TK_USER_ABORT);
            *pressed = ProMouseButton(click->button);
            const double values[] = {click->x, click->y, 0};
            std::copy_n(values, 3, position);
        },
        ARG(expected), OUT(pressed), OUT_POINT(position));
}
