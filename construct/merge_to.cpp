// VxMergeTo: picked parts merged into the part that is active in an assembly.
#include "construct/commands.h"
#include "construct/merge_feature.h"
#include "frame/services.h"

namespace {

// "SHAFT.PRT", as the listing of components has it.
WideText ListedAs(ProMdl model) {
    ProMdldata about = {};
    ProMdlDataGet(model, &about);
    WideText key(ViewIn(about.name));
    key += WideChar{'.'};
    return key.append(ViewIn(about.type));
}

// The path of the first component in the listing that is this model. Parents come before their
// children, so the ids above a line's depth are those of its parents. False: there is none, or it
// is deeper than a path can tell.
bool FindFirst(WideView model, WideView listing, ProMdl top, ProAsmcomppath* path) {
    int ids[PRO_MAX_ASSEM_LEVEL + 1] = {};
    for (TreeLine line; TakeTreeLine(&listing, &line);) {
        if (line.depth >= PRO_MAX_ASSEM_LEVEL) continue;  // no path is so deep
        ids[line.depth] = line.id;
        if (line.model != model) continue;
        ids[line.depth + 1] = -1;
        return ProAsmcomppathInit(static_cast<ProSolid>(top), ids, line.depth + 1, path) ==
               PRO_TK_NO_ERROR;
    }
    return false;
}

// The active part by way of its first place in the current assembly; null and told without one.
ProMdl TargetInAssembly(ProMdl active) {
    const WideText key = ListedAs(active);
    ProMdl top = nullptr;
    ProMdlCurrentGet(&top);
    const auto listing = ListComponents(top);
    HostRecord<ProAsmcomppath> path;
    ProMdl target = nullptr;
    if (listing && FindFirst(key, *listing, top, path.Place())) {
        ProAsmcomppathMdlGet(path.Place(), &target);
    }
    if (!target) ShowNotice(WIDE("当前组件中找不到激活的零件，无法合并"));
    return target;
}

// Of what the merges were made from, only the last is freed.
void MergePicks(ProMdl target) {
    ProModelitem item = {};
    ProMdlToModelitem(target, &item);
    ShowMessage("Please select parts to be merged:");
    ProSelection* picks = nullptr;
    int count = 0;
    const ProError status =
        ProSelect(HostText("part"), -1, nullptr, nullptr, nullptr, nullptr, &picks, &count);
    if (status != PRO_TK_NO_ERROR) return;
    MergeFeature last;
    for (int i = 0; picks && i < count; ++i) {
        last = MergeInto(&item, WIDE("合并"), picks[i]);
        ProSolidRegenerate(static_cast<ProSolid>(target), 0);
    }
    last.Free();
}

void RefreshWindow() {
    int window = PRO_VALUE_UNUSED;
    ProWindowCurrentGet(&window);
    ProWindowActivate(window);
    ProWindowRepaint(window);
    ProWindowRefresh(window);
}

}  // namespace

void VxMergeTo() {
    ProMdl active = nullptr;
    ProMdlActiveGet(&active);
    if (TypeOf(active) != PRO_MDL_PART) {
        return ShowNotice(WIDE("当前激活的元件不是零件，无法合并"));
    }
    const ProMdl target = TargetInAssembly(active);
    if (!target) return;
    MergePicks(target);
    RefreshWindow();
}
