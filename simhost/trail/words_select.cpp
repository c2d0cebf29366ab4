// The @ words about what is selected: by paths, by a box on the screen, and letting go of it.
#include <fmt/format.h>

#include <algorithm>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "simhost/host.h"
#include "simhost/model/picking.h"
#include "simhost/trail/interpreter.h"
#include "simhost/trail/lexer.h"
#include "simhost/trail/picks.h"
#include "simhost/trail/words.h"

namespace simhost {
namespace {

// Two selections of the same key are one.
using Key = std::tuple<const void*, int, int, std::vector<int>>;

Key KeyOf(const Selection& each) {
    return {each.item.owner, each.item.type, each.item.id, each.path};
}

// Selects `more` beside what is kept, without those that are there already.
void SelectBeside(std::vector<Selection> kept, const std::vector<Selection>& more) {
    std::set<Key> known;
    for (const Selection& each : kept) known.insert(KeyOf(each));
    for (const Selection& each : more) {
        if (known.insert(KeyOf(each)).second) kept.push_back(each);
    }
    TheHost().session.selections.SetBuffer(std::move(kept));
}

// What paths mean; none, and the trail has been told why: nothing may be selected, a path leads
// nowhere, or there is none.
std::vector<Selection> TakePicks(Trail& trail, const std::string& rest, const char* word) {
    if (!MaySelect(trail)) return {};
    std::string problem;
    std::vector<Selection> picked = PickAll(ParseText(rest).text, &problem);
    if (!problem.empty()) {
        trail.Fail(problem);
    } else if (picked.empty()) {
        trail.Fail(fmt::format("a path belongs after {}, such as UNIT/GEAR:2", word));
    }
    return picked;
}

// Selects what lies in a box, with `kept` before it.
void SelectInBox(Trail& trail, const std::string& rest, std::vector<Selection> kept) {
    if (!MaySelect(trail)) return;
    ScreenBox box;
    if (!TakeScreenBox(trail, rest, &box)) return;
    Session& session = TheHost().session;
    const Model* current = session.CurrentModel();
    if (!current) return trail.Fail("no model is open");
    if (current->type == PRO_MDL_DRAWING) {
        return trail.Fail("a box selects parts, and on a sheet there are none");
    }
    Picking picking(session, "part", /*most=*/-1, /*byBox=*/true);
    // A box that takes nothing is no slip: by hand it is the way to let go of a selection.
    picking.TakeBox(box);
    SelectBeside(std::move(kept), picking.taken());
    trail.Say(fmt::format("{} in the box", picking.taken().size()));
}

}  // namespace

// While a dialog is open the user can select, too: palettes stay open for that.
bool MaySelect(Trail& trail) {
    const Wait* wait = trail.waiting();
    if (!wait || wait->kind == Wait::Kind::Dialog) return true;
    trail.Fail("nothing can be selected before the host has its answer");
    return false;
}

void SelectItems(Trail& trail, const std::string& rest) {
    std::vector<Selection> picked = TakePicks(trail, rest, "select");
    if (!picked.empty()) TheHost().session.selections.SetBuffer(std::move(picked));
}

void SelectAlso(Trail& trail, const std::string& rest) {
    const std::vector<Selection> picked = TakePicks(trail, rest, "also");
    if (!picked.empty()) SelectBeside(TheHost().session.selections.buffer(), picked);
}

// All or none, so that a slip loses nothing.
void Deselect(Trail& trail, const std::string& rest) {
    std::set<Key> dropped;
    for (const Selection& each : TakePicks(trail, rest, "deselect")) dropped.insert(KeyOf(each));
    if (dropped.empty()) return;
    std::vector<Selection> kept = TheHost().session.selections.buffer();
    const std::size_t before = kept.size();
    std::erase_if(kept, [&](const Selection& each) { return dropped.contains(KeyOf(each)); });
    if (before - kept.size() < dropped.size()) {
        return trail.Fail(fmt::format("not all of {} is selected", rest));
    }
    TheHost().session.selections.SetBuffer(std::move(kept));
}

void SelectBox(Trail& trail, const std::string& rest) {
    SelectInBox(trail, rest, {});
}

void SelectMoreByBox(Trail& trail, const std::string& rest) {
    SelectInBox(trail, rest, TheHost().session.selections.buffer());
}

void ClearSelection(Trail& trail, const std::string&) {
    if (MaySelect(trail)) TheHost().session.selections.ClearBuffer();
}

void SelectNothing(Trail&, const std::string&) {
    Selections& selections = TheHost().session.selections;
    selections.ClearBuffer();
    selections.emptyBufferReads = true;
}

}  // namespace simhost
