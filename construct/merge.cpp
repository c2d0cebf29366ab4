// VxMerge: the selected parts merged into a new part.
#include "construct/commands.h"
#include "construct/default_assembly.h"
#include "construct/merge_feature.h"
#include "frame/services.h"

namespace {

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
