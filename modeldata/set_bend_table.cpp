// SetBendTable: a bend table from a file for many sheet metal parts.
#include "modeldata/commands.h"
#include "modeldata/file_for_parts.h"

namespace {

constexpr const WideChar* kBendTableFolder = WIDE("pro_sheet_met_dir");

constexpr WalkTexts kSheetMetal = {WIDE("未找到钣金件"), WIDE("当前模型中没有钣金件")};
constexpr WalkTexts kSheetMetalBelow = {WIDE("未找到子钣金件"), WIDE("当前模型中没有子钣金件")};

// From the folder that the option names.
void ApplyBendTable(ProMdl part, const WideText& table) {
    ProSmtPartBendtableApply(static_cast<ProPart>(part), HostText(table), PRO_B_TRUE);
}

void ApplyAndRegenerate(ProMdl part, const WideText& table) {
    ApplyBendTable(part, table);
    ProSolidRegenerate(static_cast<ProSolid>(part), 0);
}

void ApplyIfSheetMetal(ProMdl part, const WideText& table) {
    if (SubtypeOf(part) == PROMDLSTYPE_PART_SHEETMETAL) ApplyBendTable(part, table);
}

// To each use of a part below a picked assembly. False: the command has ended, and that was told.
bool ApplyBendTableToUses(ProMdl assembly, const WideText& table) {
    ComponentArray components;
    const int size = CollectOrTell(assembly, VisitSheetMetalComponents, kSheetMetal, &components);
    if (size == 0) return false;
    for (int i = 0; i < size; ++i) {
        ProMdl model = nullptr;
        ProAsmcompMdlGet(&components.data()[i], &model);
        if (model) ApplyAndRegenerate(model, table);
    }
    return true;
}

// To each part below an assembly once, and below what the walk counts as sheet metal without being
// a part. Whatever is told here ends no command, so that nobody asks how it went.
void ApplyBendTableBelow(ProMdl assembly, const WideText& table) {
    ComponentArray components;
    const int size =
        CollectOrTell(assembly, VisitSheetMetalComponents, kSheetMetalBelow, &components);
    for (const ProMdl model : ModelsOf(components, size)) {
        const ProMdlType type = TypeOf(model);
        const ProMdlsubtype subtype = SubtypeOf(model);
        if (type == PRO_MDL_PART && subtype == PROMDLSTYPE_PART_SHEETMETAL) {
            ApplyAndRegenerate(model, table);
        }
        if (type == PRO_MDL_ASSEMBLY) ApplyBendTableBelow(model, table);
    }
}

bool ApplyBendTableInAssembly(ProMdl top, const WideText& table) {
    ProSelection* array = nullptr;
    const ProError status = ProSelbufferSelectionsGet(&array);
    HostArray<ProSelection> selections;
    selections.Adopt(array);
    if (status != PRO_TK_NO_ERROR) {
        ApplyBendTableBelow(top, table);
        return true;
    }
    return ForEachPicked(
        selections, [&](ProMdl part) { ApplyIfSheetMetal(part, table); },
        [&](ProMdl assembly) { return ApplyBendTableToUses(assembly, table); });
}

void RegenerateCurrent() {
    ProMdl model = nullptr;
    ProMdlCurrentGet(&model);
    if (model) {
        ProSolidRegenerate(static_cast<ProSolid>(model), 0);
        ProTreetoolRefresh(model);
    }
    ProWindowRepaint(PRO_VALUE_UNUSED);
}

}  // namespace

void SetBendTable() {
    ShowMessage(kBendTableMessage);
    const WideText before = FirstValueOf(kBendTableFolder);
    const auto file = ChooseFile(WIDE("请选择折弯表"), WIDE("*.bnd"), before);
    if (!file) return;
    ProConfigoptSet(HostText(kBendTableFolder), HostText(file->folder));
    const TopModel current = CurrentModel();
    const ProMdlsubtype subtype = SubtypeOf(current.model);
    if (current.type == PRO_MDL_PART && subtype == PROMDLSTYPE_PART_SHEETMETAL) {
        ApplyBendTable(current.model, file->name);
    }
    // A walk below a picked assembly that finds nothing leaves the option at the file's folder.
    if (current.type == PRO_MDL_ASSEMBLY && !ApplyBendTableInAssembly(current.model, file->name)) {
        return;
    }
    RegenerateCurrent();
    ProConfigoptSet(HostText(kBendTableFolder), HostText(before));
    ShowCompletion(WIDE("\t钣金件批量折弯表设置完成"));
}
