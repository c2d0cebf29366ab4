// VxRelations: relation lines that the designer types once go into many models. Three buttons are
// three ways of joining them to what a model has: behind it, behind it as far as they are new, or
// in its place.
#include <unordered_set>
#include <utility>
#include <vector>

#include "frame/services.h"
#include "modeldata/batch_targets.h"
#include "modeldata/commands.h"
#include "modeldata/keyword_filter.h"

namespace {

constexpr Dialog kDialog = "Relations";

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

// The set that the designer has chosen. False: there is none, and `set` is empty.
bool TakeSet(const std::string& option, ProMdl model, ProModelitem* item, ProRelset* set) {
    *set = {};
    if (option == "init") return ProModelitemToRelset(item, set) == PRO_TK_NO_ERROR;
    if (option == "after") return ProRelsetPostregenerationInit(model, set) == PRO_TK_NO_ERROR;
    return false;
}

// Typed lines are compared with those that were there before, never with each other.
void AddLines(const LineList& typed, bool onlyNew, LineArray* lines) {
    std::unordered_set<WideView> present;
    const int count = onlyNew ? lines->Size() : 0;
    for (int i = 0; i < count; ++i) {
        if (const WideChar* line = lines->data()[i]) present.insert(line);
    }
    for (const WideText& line : typed) {
        if (present.count(line) > 0) continue;
        WideChar* text = HostText(line);
        AppendTo(lines->Place(), &text);
    }
}

void WriteLines(ProRelset* set, const LineArray& lines) {
    int count = 0;
    if (ProArraySizeGet(lines.data(), &count) != PRO_TK_NO_ERROR) return;
    ProRelsetRelationsSet(set, lines.data(), count);
}

// Behind the lines that are there. A model without a set gets its initial one, whichever was asked.
void AppendRelations(const Merge& merge, const std::string& option, const LineList& typed,
                     ProMdl model, ProModelitem* item) {
    LineArray lines;
    if (lines.Allocate() != PRO_TK_NO_ERROR) return;
    ProRelset set = {};
    if (TakeSet(option, model, item, &set)) {
        WideChar** present = lines.data();
        ProRelsetRelationsGet(&set, &present);
        lines.Adopt(present);  // may have moved
    } else if (ProRelsetCreate(item, &set) != PRO_TK_NO_ERROR) {
        return;
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
void CoverRelations(const std::string& option, const LineList& typed, ProMdl model,
                    ProModelitem* item) {
    ProRelset set = {};
    const bool taken = TakeSet(option, model, item, &set);
    LineArray lines;
    if (lines.Allocate() != PRO_TK_NO_ERROR || !taken) return;
    AddLines(typed, /*onlyNew=*/false, &lines);
    WriteLines(&set, lines);
}

void WriteRelations(const Merge& merge, const std::string& option, const LineList& typed,
                    ProMdl model) {
    if (option != "init" && option != "after") return;  // no set was chosen
    ProModelitem item = {PRO_TYPE_UNUSED, 0, nullptr};
    if (ProMdlToModelitem(model, &item) != PRO_TK_NO_ERROR) return;
    if (merge.keepPresent) {
        AppendRelations(merge, option, typed, model, &item);
    } else {
        CoverRelations(option, typed, model, &item);
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
