// VxRelations: relation lines that the designer types once go into many models. Three buttons are
// three ways of joining them to what a model has: after it, after it as far as they are new, or in
// its place.
#include <unordered_set>
#include <utility>
#include <vector>

#include "frame/services.h"
#include "modeldata/batch_targets.h"
#include "modeldata/commands.h"
#include "modeldata/keyword_filter.h"

namespace {

constexpr Dialog kDialog = "Relations";

// Which of a model's two sets is written.
constexpr const char* kInitial = "init";
constexpr const char* kAfter = "after";  // the one that is evaluated after the regeneration

using LineList = std::vector<WideText>;
using LineArray = HostArray<WideChar*>;

// One button of the dialog.
struct Merge {
    const char* button;
    bool keepPresent;  // present lines stay, and a model without relations gets a set
    bool onlyNew;      // lines that the model has are left out
    const WideChar* completion;
};
constexpr Merge kMerges[] = {
    {"AddRels", true, false, WIDE("\t批量关系创建操作已完成")},
    {"AddRelsAndNoRepeat", true, true, WIDE("\t批量关系追加操作已完成")},
    {"CoverRels", false, false, WIDE("\t批量关系覆盖操作已完成")},
};

using RelationSet = HostRecord<ProRelset>;

// A model to be written, and the host's item for it; empty where the host does not give it.
struct Target {
    ProMdl model;
    HostRecord<ProModelitem> item;
};

// The set that the designer has chosen. False: the host refuses; it may have filled the set all the
// same.
bool TakeSet(const std::string& option, Target* target, RelationSet* set) {
    if (option == kAfter) {
        return ProRelsetPostregenerationInit(target->model, set->Place()) == PRO_TK_NO_ERROR;
    }
    if (!target->item.IsFilled()) return false;
    return ProModelitemToRelset(target->item.Place(), set->Place()) == PRO_TK_NO_ERROR;
}

// Typed lines are compared with those that were there before, never with each other.
void AddLines(const LineList& typed, bool onlyNew, LineArray* lines) {
    std::unordered_set<WideView> present;
    const int count = onlyNew ? lines->Size() : 0;
    for (int i = 0; i < count; ++i) {
        if (const WideChar* line = lines->data()[i]) present.insert(line);
    }
    if (!*lines) return;
    for (const WideText& line : typed) {
        if (present.count(line) > 0) continue;
        WideChar* text = HostText(line);
        AppendTo(lines->Place(), &text);
    }
}

// Without an array, or without a set that the host has named, there is nothing to write.
void WriteLines(RelationSet* set, const LineArray& lines) {
    if (!lines || !set->IsFilled()) return;
    int count = 0;
    if (ProArraySizeGet(lines.data(), &count) != PRO_TK_NO_ERROR) return;
    ProRelsetRelationsSet(set->Place(), lines.data(), count);
}

// After the lines that are there. A model without a set gets its initial one, whichever was asked.
void AppendRelations(const Merge& merge, const std::string& option, const LineList& typed,
                     Target* target) {
    LineArray lines;
    RelationSet set;
    lines.Allocate();
    if (TakeSet(option, target, &set)) {
        WideChar** present = lines.data();
        if (lines) ProRelsetRelationsGet(set.Place(), &present);
        lines.Adopt(present);  // may have moved
    } else if (target->item.IsFilled()) {
        ProRelsetCreate(target->item.Place(), set.Place());
    }
    AddLines(typed, merge.onlyNew, &lines);
    WriteLines(&set, lines);
    lines.Free();
    if (!merge.onlyNew) return;
    // The host is asked a second time, for the typed lines, which are no array of its own; it
    // refuses, and they stay for the next model.
    ProArray noArray = nullptr;
    ProArrayFree(&noArray);
}

// In the place of the lines that are there. A model without a set stays without.
void CoverRelations(const std::string& option, const LineList& typed, Target* target) {
    RelationSet set;
    TakeSet(option, target, &set);
    LineArray lines;
    lines.Allocate();
    AddLines(typed, /*onlyNew=*/false, &lines);
    WriteLines(&set, lines);
}

void WriteRelations(const Merge& merge, const std::string& option, const LineList& typed,
                    ProMdl model) {
    if (option != kInitial && option != kAfter) return;  // no set was chosen
    Target target{model, {}};
    ProMdlToModelitem(model, target.item.Place());
    if (merge.keepPresent) {
        AppendRelations(merge, option, typed, &target);
    } else {
        CoverRelations(option, typed, &target);
    }
}

void RunMerge(const Merge& merge) {
    const TopModel top = CurrentTopModel();
    const std::string scope = kDialog.Selected("TypeRadio");
    const std::string option = kDialog.Selected("OptionRadio");
    ComponentArray components = CollectByScope(top, scope);
    // Nothing but the line feed separates: a carriage return stays part of its line.
    const LineList typed = SplitText(kDialog.AreaText("RelTxtarea"), '\n');
    const auto write = [&](ProMdl model, const WideText&) {
        WriteRelations(merge, option, typed, model);
    };
    if (!ForEachTarget(top, scope, std::move(components), kDialog, "InputKeyWords", write)) return;
    RefreshCurrentTree();
    ShowCompletion(merge.completion);
}

void OnMerge(char*, char*, ProAppData merge) {
    RunMerge(*static_cast<const Merge*>(merge));
}

void Prepare() {
    for (const Merge& merge : kMerges) kDialog.OnPress(merge.button, Guarded<OnMerge>, &merge);
    kDialog.OnPress("Close", EndDialogOnClose);
    kDialog.OnClose(EndDialogOnClose);
}

}  // namespace

void VxRelations() {
    RunModalDialog(kDialog, Prepare);
}
