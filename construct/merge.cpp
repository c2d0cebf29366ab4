// VxMerge, VxMergeTo: the selected parts merged into a new part, and picked parts merged into the
// active one.
#include "construct/commands.h"
#include "construct/default_assembly.h"
#include "construct/merge_tree.h"
#include "frame/services.h"

namespace {

// One merge in the making.
struct Merge {
    ProElement tree = nullptr;
    ProSelection target = nullptr;

    void Free() {
        if (tree) ProElementFree(&tree);
        if (target) ProSelectionFree(&target);
    }
};

// Merges a selected part into the target, under a name that all merges of a command have.
Merge MergeInto(ProModelitem* target, WideView name, ProSelection part) {
    Merge merge;
    merge.tree = NewMergeTree(name, part);
    ProSelectionAlloc(nullptr, target, &merge.target);
    if (merge.tree && merge.target) {
        HostRecord<ProFeature> feature;
        ProFeatureCreate(merge.target, merge.tree, nullptr, 0, feature.Place(), nullptr);
    }
    return merge;
}

// --- VxMerge ---

ProMdl LoadedTemplate() {
    const auto path = FirstOptionValue(WIDE("template_solidpart"));
    ProMdl model = nullptr;
    if (path && ProMdlLoad(HostText(*path), PRO_MDL_PART, PRO_B_FALSE, &model) == PRO_TK_NO_ERROR) {
        return model;
    }
    ShowNotice(WIDE("零件模板加载失败，请确认template_solidpart选项是否配置正确"));
    return nullptr;
}

// A copy under a name that the user types; null: the user left the question.
ProMdl CopyByUser(ProMdl source) {
    for (;;) {
        ShowMessage("USER Enter a new name: ");
        NameForHost name = {};
        if (ProMessageStringRead(PRO_NAME_SIZE, name) == PRO_TK_MSG_USER_QUIT) return nullptr;
        ProMdl copy = nullptr;
        if (ProMdlCopy(source, name, &copy) == PRO_TK_NO_ERROR) return copy;
        ShowNotice(WIDE("名称已存在或输入非法，请重新输入"));
    }
}

// False: the part has nothing to be constrained by, and nothing is to be merged into it. An
// assembly without a coordinate system is told and goes on.
bool Assemble(ProMdl assembly, ProMdl part) {
    IdentityMatrix origin;
    HostRecord<ProAsmcomp> component;
    ProAsmcompAssemble(static_cast<ProAssembly>(assembly), static_cast<ProSolid>(part), origin.rows,
                       component.Place());
    const LacksCsys lacks = DefaultAssembleByCsys(assembly, part, component.Place(),
                                                  WIDE("当前组件无坐标系,无法缺省装配新零件"),
                                                  WIDE("零件模板无坐标系,无法缺省装配新零件"));
    return lacks != LacksCsys::Model;
}

// --- VxMergeTo ---

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
    Merge last;
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

void VxMerge() {
    const ProMdl source = LoadedTemplate();
    if (!source) return;
    ProSelection* list = nullptr;
    const ProError status = ProSelbufferSelectionsGet(&list);
    HostArray<ProSelection> selected;
    selected.Adopt(list);
    const int count = selected.Size();
    if (status != PRO_TK_NO_ERROR || count == 0) {
        return ShowNotice(WIDE("请先选择需要合并的零件(不支持组件)"));
    }
    ProMdl assembly = nullptr;
    ProMdlActiveGet(&assembly);
    const ProMdl part = CopyByUser(source);
    if (!part) return;
    ProMdlSave(part);
    ProModelitem target = {};
    ProMdlToModelitem(part, &target);
    if (!Assemble(assembly, part)) return;
    for (int i = 0; i < count; ++i) {
        ProModelitem item = {};
        ProSelectionModelitemGet(selected.data()[i], &item);
        if (item.type != PRO_PART) continue;
        MergeInto(&target, WIDE("合并1"), selected.data()[i]).Free();
        ProSolidRegenerate(static_cast<ProSolid>(part), 0);
    }
}

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
