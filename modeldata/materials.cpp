// SetMat, SetBendTable: one file, of a material or of a bend table, for many parts.
#include <functional>
#include <optional>

#include "frame/services.h"
#include "modeldata/commands.h"

namespace {

constexpr const char* kMessage =
    "Wether change the bend table while assigning a material to a sheetmetal part";
constexpr const WideChar* kMaterialFolder = WIDE("pro_material_dir");
constexpr const WideChar* kBendTableFolder = WIDE("pro_sheet_met_dir");

// The first of an option's values; empty for an option that is not set. A copy, for what the host
// hands out is good until the next call about an option.
WideText FirstValueOf(const WideChar* option) {
    ProPath* values = nullptr;
    ProConfigoptArrayGet(HostText(option), &values);
    HostArray<ProPath> array;
    array.Adopt(values);
    return array.Size() > 0 ? TextIn(array.data()[0]) : WideText();
}

struct ChosenFile {
    WideText folder;
    WideText name;  // without extension
};

// Nothing: the user has left the dialog.
std::optional<ChosenFile> ChooseFile(const WideChar* title, const WideChar* filter,
                                     const WideText& start) {
    ProPath path = {};
    if (ProFileOpen(HostText(title), HostText(filter), nullptr, nullptr, HostText(start), nullptr,
                    path) != PRO_TK_NO_ERROR) {
        return std::nullopt;
    }
    ProPath folder = {};
    ProName name = {}, extension = {};
    int version = 0;
    ProFilenameParse(path, folder, name, extension, &version);
    return ChosenFile{TextIn(folder), TextIn(name)};
}

// What the user is told where a walk fails and where it finds nothing.
struct WalkTexts {
    const WideChar *failed, *empty;
};
constexpr WalkTexts kParts = {WIDE("未找到子零件"), WIDE("当前模型中没有零件")};
constexpr WalkTexts kSheetMetal = {WIDE("未找到钣金件"), WIDE("当前模型中没有钣金件")};
constexpr WalkTexts kSheetMetalBelow = {WIDE("未找到子钣金件"), WIDE("当前模型中没有子钣金件")};

// The components below an assembly, with their number; where there are none, that was told.
ProError CollectOrTell(ProMdl assembly, ProFeatureVisitAction visitor, const WalkTexts& texts,
                       ComponentArray* components, int* size) {
    const ProError allocated = components->Allocate();
    if (allocated != PRO_TK_NO_ERROR) {
        ShowPlainError(WIDE("ProArray Alloc error"));
        return allocated;
    }
    const ProError visited = ProSolidFeatVisit(static_cast<ProSolid>(assembly), visitor,
                                               ComponentFilter, components->Place());
    if (visited != PRO_TK_NO_ERROR) {
        ShowPlainError(texts.failed);
        return visited;
    }
    *size = components->Size();
    if (*size == 0) ShowPlainError(texts.empty);
    return PRO_TK_NO_ERROR;
}

// Does what is to be done with each picked part and assembly, in the order of picking. False as
// soon as an assembly ends the command.
bool ForEachPicked(const HostArray<ProSelection>& selections,
                   const std::function<void(ProMdl)>& part,
                   const std::function<bool(ProMdl)>& assembly) {
    const int count = selections.Size();
    for (int i = 0; i < count; ++i) {
        HostRecord<ProModelitem> item;
        ProSelectionModelitemGet(selections.data()[i], item.Place());
        const ProType type = item.Place()->type;
        if (type != PRO_PART && type != PRO_ASSEMBLY) continue;
        ProMdl model = nullptr;
        ProModelitemMdlGet(item.Place(), &model);
        if (!model) continue;
        if (type == PRO_PART) part(model);
        if (type == PRO_ASSEMBLY && !assembly(model)) return false;
    }
    return true;
}

// --- Materials ---------------------------------------------------------------------------------

// From the working folder, where the host looks for it.
void ApplyMaterial(ProMdl part, const WideText& name) {
    ProMaterial material = {};
    std::copy_n(name.begin(), std::min<std::size_t>(name.size(), PRO_NAME_SIZE),
                material.matl_name);
    material.part = static_cast<ProPart>(part);
    ProMaterialfileRead(material.part, HostText(name));
    ProMaterialCurrentSet(&material);
}

// A part that is used many times is read and set each time. False: the command has ended, and that
// was told.
bool ApplyMaterialBelow(ProMdl assembly, const WideText& name) {
    ComponentArray components;
    int size = 0;
    const ProError status =
        CollectOrTell(assembly, VisitPartComponents, kParts, &components, &size);
    if (status != PRO_TK_NO_ERROR || size == 0) return false;
    for (int i = 0; i < size; ++i) {
        ProMdl model = nullptr;
        ProAsmcompMdlGet(&components.data()[i], &model);
        if (model) ApplyMaterial(model, name);
    }
    return true;
}

bool ApplyMaterialInAssembly(ProMdl top, const WideText& name) {
    ProSelection* array = nullptr;
    const ProError status = ProSelbufferSelectionsGet(&array);
    HostArray<ProSelection> selections;
    selections.Adopt(array);
    if (status == PRO_TK_E_NOT_FOUND) return ApplyMaterialBelow(top, name);
    if (status != PRO_TK_NO_ERROR) return true;
    return ForEachPicked(
        selections, [&](ProMdl part) { ApplyMaterial(part, name); },
        [&](ProMdl assembly) { return ApplyMaterialBelow(assembly, name); });
}

// --- Bend tables -------------------------------------------------------------------------------

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
    int size = 0;
    const ProError status =
        CollectOrTell(assembly, VisitSheetMetalComponents, kSheetMetal, &components, &size);
    if (status != PRO_TK_NO_ERROR || size == 0) return false;
    for (int i = 0; i < size; ++i) {
        ProMdl model = nullptr;
        ProAsmcompMdlGet(&components.data()[i], &model);
        if (model) ApplyAndRegenerate(model, table);
    }
    return true;
}

// To each part below an assembly once, and below what the walk counts as sheet metal without being
// a part. Whatever is told here ends no command.
ProError ApplyBendTableBelow(ProMdl assembly, const WideText& table) {
    ComponentArray components;
    int size = 0;
    const ProError status =
        CollectOrTell(assembly, VisitSheetMetalComponents, kSheetMetalBelow, &components, &size);
    if (status != PRO_TK_NO_ERROR || size == 0) return status;
    for (const ProMdl model : ModelsOf(components, size)) {
        const ProMdlType type = TypeOf(model);
        const ProMdlsubtype subtype = SubtypeOf(model);
        if (type == PRO_MDL_PART && subtype == PROMDLSTYPE_PART_SHEETMETAL) {
            ApplyAndRegenerate(model, table);
        }
        if (type == PRO_MDL_ASSEMBLY) ApplyBendTableBelow(model, table);
    }
    return PRO_TK_NO_ERROR;
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

void SetMat() {
    ShowMessage(kMessage);
    const WideText start = FirstValueOf(kMaterialFolder);
    const auto file = ChooseFile(WIDE("请选择材料"), WIDE("*.mtl,*.mat"), start);
    if (!file) return;
    ProPath before = {};
    ProDirectoryCurrentGet(before);
    ProDirectoryChange(HostText(file->folder));
    const TopModel current = CurrentModel();
    if (current.type == PRO_MDL_PART) ApplyMaterial(current.model, file->name);
    // A walk that finds nothing leaves the host in the folder of the file.
    if (current.type == PRO_MDL_ASSEMBLY && !ApplyMaterialInAssembly(current.model, file->name)) {
        return;
    }
    ProDirectoryChange(before);
    int window = PRO_VALUE_UNUSED;
    ProWindowCurrentGet(&window);
    ProWindowActivate(window);
    ShowCompletion(WIDE("\t材料设置完成"));
}

void SetBendTable() {
    ShowMessage(kMessage);
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
