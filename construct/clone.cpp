// CloneComp, CloneAndReplace: a copy of the selected component beside it, or in its place.
#include <algorithm>

#include "construct/commands.h"
#include "construct/default_assembly.h"
#include "construct/names.h"
#include "frame/services.h"

namespace {

// What is copied, and where to.
struct Source {
    HostArray<ProSelection> selected;  // its one selection lives as long as the array
    ProModelitem item = {};
    ProMdl model = nullptr;
    ProMdl assembly = nullptr;  // the active one
};

// False: the command has ended, and that has been told.
bool TakeSource(Source* source) {
    ProSelection* list = nullptr;
    const ProError status = ProSelbufferSelectionsGet(&list);
    source->selected.Adopt(list);
    if (status != PRO_TK_NO_ERROR) {
        ShowNotice(WIDE("请先选择需要克隆的元件"));
        return false;
    }
    if (source->selected.Size() != 1) {
        ShowNotice(WIDE("当前模式只能选择1个元件"));
        return false;
    }
    ProSelectionModelitemGet(source->selected.data()[0], &source->item);
    if (source->item.type != PRO_ASSEMBLY && source->item.type != PRO_PART) {
        ShowNotice(WIDE("当前模式只能选择零件或组件"));
        return false;
    }
    TopModel active;
    ProMdlActiveGet(&active.model);
    active.type = TypeOf(active.model);
    if (active.type == PRO_MDL_ASSEMBLY || active.type == PRO_MDL_MFG) {
        source->assembly = TopModelOf(active).model;
    }
    if (!source->assembly) {
        ShowNotice(WIDE("当前被激活的模型不是组件/制造,无法克隆装配"));
        return false;
    }
    ProModelitemMdlGet(&source->item, &source->model);
    return true;
}

// --- The copy and its name; null: there is none ---

ProMdl SavedCopy(ProMdl model, const WideText& name) {
    ProMdl copy = nullptr;
    ProMdlCopy(model, HostText(name), &copy);
    if (copy) ProMdlSave(copy);
    return copy;
}

// A name after the source's; whether it is free is asked of parts only.
ProMdl CopyByComponent(const Source& source) {
    const WideText base = ModelName(source.model);
    return SavedCopy(source.model, *FirstFreeName(base, WithDash, PRO_MDL_PART));
}

ProMdl CopyByAssembly(const Source& source) {
    const WideText base = BaseOf(ModelName(source.assembly));
    const bool part = source.item.type == PRO_PART;
    const ProMdlType type = part ? PRO_MDL_PART : PRO_MDL_ASSEMBLY;
    return SavedCopy(source.model, *FirstFreeName(base, part ? WithDash : WithTwoDigits, type));
}

// How often the answer to the prompt is read: the last one counts.
enum class Reads { Once = 1, Twice = 2 };

ProMdl CopyByUser(const Source& source, Reads reads) {
    const WideText asked = ModelName(source.model);
    for (;;) {
        ShowMessage("USER Enter a new name:|||%0w", asked);
        NameForHost name = {};
        ProError answer = PRO_TK_NO_ERROR;
        for (int i = 0; i < int(reads); ++i) answer = ProMessageStringRead(PRO_NAME_SIZE, name);
        if (answer == PRO_TK_MSG_USER_QUIT) return nullptr;
        ProMdl copy = nullptr;
        if (ProMdlCopy(source.model, name, &copy) == PRO_TK_NO_ERROR) {
            ProMdlSave(copy);
            return copy;
        }
        ShowNotice(WIDE("名称已存在或输入非法，请重新输入"));
    }
}

// Any other value of the setting makes no copy.
ProMdl Copy(const Source& source, Reads reads) {
    const WideText mode = ConfigValue(WIDE("CompCopyAutoNum"), Place::BesideModule);
    if (mode == WIDE("byComp")) return CopyByComponent(source);
    if (mode == WIDE("byAsm")) return CopyByAssembly(source);
    return mode == WIDE("byUser") ? CopyByUser(source, reads) : nullptr;
}

// --- Replacing ---

// The replace dialog as the host's trail files record it, word for word: before the file's name and
// after it. Hosts up to the version 2.0 have another dialog than the later ones.
constexpr WideView kOlderMacro = WIDE(
    "~ Command `ProCmdReplace` ;~ Select `gen_repl_dlg` `ByCompPH.rpl_method_radio`1  "
    "`Unrelated Component`;~ Activate `gen_repl_dlg` `PB_NewComp`;~ Trail `UI Desktop` "
    "`DLG_PREVIEW_POST` `file_open`;`file_open:Ph_list.Filelist:<NULL>`;"
    "~ Activate `file_open` `Current Dir`;~ Activate `file_open` `Ph_list.Filelist`1  `");
constexpr WideView kNewerMacro = WIDE(
    "~`rmb_popup` `PopupMenu`;~ Command `ProCmdReplComp@PopupMenuGraphicWinStack` ;"
    "~ Select `gen_repl_dlg` `ByCompPH.rpl_method_radio` 1 `Unrelated Component`;"
    "~ Activate `gen_repl_dlg` `PB_NewComp`;~ Activate `file_open` `Current Dir`;"
    "~ Activate `file_open` `Ph_list.Filelist` 1 `");
constexpr WideView kMacroEnd = WIDE("`;~ Activate `gen_repl_dlg` `DoneBtn`;");

// The constraints of the selected component are asked for and not used; what is selected at the top
// is no component.
void ReadConstraints(ProSelection selection) {
    HostRecord<ProAsmcomppath> place;
    ProSelectionAsmcomppathGet(selection, place.Place());
    if (!place.IsFilled()) return;
    ProAsmcomppath path = *place.Place();
    if (path.table_num <= 0 || path.table_num > PRO_MAX_ASSEM_LEVEL) return;
    const int last = path.table_num - 1;
    ProAsmcomp component = {PRO_FEATURE, path.comp_id_tab[last], nullptr};
    path.comp_id_tab[last] = -1;
    path.table_num = last;
    ProAsmcomppathMdlGet(&path, &component.owner);
    if (!component.owner) return;
    ProAsmcompconstraint* list = nullptr;
    ProAsmcompConstraintsGet(&component, &list);
    HostArray<ProAsmcompconstraint> constraints;
    constraints.Adopt(list);
}

// "bolt-3.prt"; empty if the host does not tell what the model is.
WideText FileNameOf(ProMdl model) {
    WideText file = ModelName(model);
    const ProMdlType type = TypeOf(model);
    if (file.empty() || (type != PRO_MDL_ASSEMBLY && type != PRO_MDL_PART)) return {};
    file += type == PRO_MDL_ASSEMBLY ? WIDE(".asm") : WIDE(".prt");
    for (WideChar& c : file) {
        if (c >= WideChar{'A'} && c <= WideChar{'Z'}) c = WideChar(c - 'A' + 'a');
    }
    return file;
}

bool IsOlderHost() {
    constexpr WideView kOlder[] = {WIDE("5.0"), WIDE("Creo 1.0"), WIDE("Creo 2.0")};
    return std::find(std::begin(kOlder), std::end(kOlder), HostVersionText) != std::end(kOlder);
}

}  // namespace

void CloneComp() {
    Source source;
    if (!TakeSource(&source)) return;
    const ProMdl copy = Copy(source, Reads::Once);
    if (!copy) return;
    IdentityMatrix origin;
    HostRecord<ProAsmcomp> component;
    ProAsmcompAssemble(static_cast<ProAssembly>(source.assembly), static_cast<ProSolid>(copy),
                       origin.rows, component.Place());
    if (component.IsFilled()) ProAsmcompConstrRedefUI(component.Place());
}

void CloneAndReplace() {
    Source source;
    if (!TakeSource(&source)) return;
    const ProMdl copy = Copy(source, Reads::Twice);
    if (!copy) return;
    ReadConstraints(source.selected.data()[0]);
    const WideText file = FileNameOf(copy);
    if (file.empty()) return;
    WideText macro(IsOlderHost() ? kOlderMacro : kNewerMacro);
    macro.append(file).append(kMacroEnd);
    ProMacroLoad(HostText(macro));
}
