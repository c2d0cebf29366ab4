// VxBox: a block around a part, or in a new part around the parts that the user picks, placed as a
// group.
#include "construct/commands.h"
#include "construct/csys.h"
#include "construct/default_assembly.h"
#include "construct/names.h"
#include "frame/services.h"
#include "hostapi/windows.h"

namespace {

constexpr WideView kGroupFile = WIDE("vxbox.gph");
constexpr const WideChar* kGroupFolderOption = WIDE("pro_group_dir");

// --- The group's file ---

// Where the option names a folder without the group, the shipped one is put there. Without an
// option the shipped folder becomes its value for this session.
void ProvideGroupFile() {
    const WideText folder = FirstOptionValue(kGroupFolderOption).value_or(WideText());
    if (folder.empty()) {
        const auto shipped = WritableFileBesideModule(WIDE("vxudf"));
        if (shipped) ProConfigoptSet(HostText(kGroupFolderOption), HostText(*shipped));
        return;
    }
    const WideText path = folder + WIDE("\\") + WideText(kGroupFile);
    if (PathFileExistsW(path.c_str())) return;
    const WideText shipped = FileBesideModule(WIDE("vxudf")) + WIDE("\\") + WideText(kGroupFile);
    CopyFileW(shipped.c_str(), path.c_str(), TRUE);
}

// --- The group ---

// A dimension of the group by its name; the host takes it over.
void AddDimension(ProUdfdata data, const WideChar* name, double value) {
    ProUdfvardim dimension = nullptr;
    ProUdfvardimAlloc(HostText(name), value, PROUDFVARTYPE_DIM, &dimension);
    if (dimension) ProUdfdataUdfvardimAdd(data, dimension);
}

// The coordinate system for the prompt of the group; its name is asked for and not used.
void AddCsys(ProUdfdata data, ProMdl part, ProCsys csys) {
    HostRecord<ProGeomitem> item;
    ProCsysToGeomitem(static_cast<ProSolid>(part), csys, item.Place());
    if (!item.IsFilled()) return;
    NameForHost ignored = {};
    ProModelitemNameGet(item.Place(), ignored);
    ProSelection selection = nullptr;
    ProSelectionAlloc(nullptr, item.Place(), &selection);
    if (!selection) return;
    ProUdfreference reference = nullptr;
    ProUdfreferenceAlloc(HostText(WIDE("csys")), selection, PRO_B_FALSE, &reference);
    if (reference) ProUdfdataReferenceAdd(data, reference);
    ProSelectionFree(&selection);
}

// The group is built for these names: x2 is half an extent, and yval and zval cross over.
void AddDimensions(ProUdfdata data, const Pro3dPnt low, const Pro3dPnt high) {
    AddDimension(data, WIDE("x"), (low[0] + high[0]) * 0.5);
    AddDimension(data, WIDE("y"), (low[1] + high[1]) * 0.5);
    AddDimension(data, WIDE("z"), (low[2] + high[2]) * 0.5);
    AddDimension(data, WIDE("x2"), (high[0] - low[0]) * 0.5);
    AddDimension(data, WIDE("yval"), high[2] - low[2]);
    AddDimension(data, WIDE("zval"), high[1] - low[1]);
}

void PlaceGroup(ProUdfdata data, ProMdl part, const SurfaceBoxes& around, CsysChoice choose) {
    ProUdfdataNameSet(data, HostText(WIDE("vxbox")), nullptr);
    CsysArray found;
    found.Allocate();
    CollectByFilter(part, &found);
    const ProCsys csys = Chosen(part, found, choose);
    if (!csys) return ShowPlainError(WIDE("当前所选模型无坐标系。"));
    AddCsys(data, part, csys);
    AddDimensions(data, around.low, around.high);
    HostRecord<ProGroup> group;
    ProUdfCreate(static_cast<ProSolid>(part), data, nullptr, 0, group.Place());
    ProSolidRegenerate(static_cast<ProSolid>(part), 0);
}

void MakeBlock(ProMdl part, const SurfaceBoxes& around, CsysChoice choose) {
    if (around.empty) return;
    ProUdfdata data = nullptr;
    ProUdfdataAlloc(&data);
    if (!data) return;
    PlaceGroup(data, part, around, choose);
    ProUdfdataFree(data);
}

// --- In a part ---

void BoxInPart(ProMdl part) {
    SurfaceArray surfaces;
    if (surfaces.Allocate() != PRO_TK_NO_ERROR) return;
    const ProError status = VisitSurfaces(part, &surfaces);
    if (status == PRO_TK_E_NOT_FOUND) return ShowNotice(WIDE("\t当前模型非实体模型。\t"));
    if (status != PRO_TK_NO_ERROR) return;
    SurfaceBoxes around;
    around.Add(surfaces, nullptr);
    MakeBlock(part, around, CsysChoice::WithoutParents);
}

// --- In an assembly ---

ProMdl LoadedTemplate() {
    const auto path = FirstOptionValue(WIDE("template_solidpart"));
    if (!path) {
        ShowNotice(WIDE("\t请先正确配置零件模板选项“template_solidpart”\t"));
        return nullptr;
    }
    ProMdl model = nullptr;
    const ProError status = ProMdlLoad(HostText(*path), PRO_MDL_PART, PRO_B_FALSE, &model);
    if (status == PRO_TK_NO_ERROR) return model;
    ShowNotice(WIDE("\t零件模板加载失败，请确认template_solidpart选项是否配置正确\t"));
    return nullptr;
}

// A part that is named after the assembly, in memory only; null if it cannot be made.
ProMdl NewPartFor(ProMdl assembly, ProMdl source) {
    const auto name = FirstFreeName(ModelName(assembly), WithDash, PRO_MDL_PART);
    ProMdl part = nullptr;
    ProMdlCopy(source, HostText(*name), &part);
    return part;
}

void AssembleAtOrigin(ProMdl assembly, ProMdl part) {
    IdentityMatrix origin;
    HostRecord<ProAsmcomp> component;
    ProAsmcompAssemble(static_cast<ProAssembly>(assembly), static_cast<ProSolid>(part), origin.rows,
                       component.Place());
    if (!component.IsFilled()) return;
    const WideText noneInPart = WIDE("零件") + ModelName(part) + WIDE("无坐标系,无法完成装配");
    AssembleByCsys(assembly, part, component.Place(),
                   {CollectByFilter, CsysChoice::WithoutParents, WideText(kNoCsysInAssembly),
                    noneInPart, ShowPlainError});
}

// The boxes of a picked part's surfaces, in the coordinates of the assembly.
void AddPick(ProSelection pick, SurfaceBoxes* around) {
    HostRecord<ProAsmcomppath> path;
    ProSelectionAsmcomppathGet(pick, path.Place());
    if (!path.IsFilled()) return;
    ProMdl model = nullptr;
    ProAsmcomppathMdlGet(path.Place(), &model);
    ProMatrix toAssembly = {};
    if (ProAsmcomppathTrfGet(path.Place(), PRO_B_TRUE, toAssembly) != PRO_TK_NO_ERROR) return;
    SurfaceArray surfaces;
    if (!model || surfaces.Allocate() != PRO_TK_NO_ERROR) return;
    VisitSurfaces(model, &surfaces);
    around->Add(surfaces, toAssembly);
}

void BoxInAssembly(ProMdl assembly) {
    ProSelection* picks = nullptr;
    int count = 0;
    if (!PickByBox("part", &picks, &count)) return;
    const ProMdl source = LoadedTemplate();
    if (!source) return;
    const ProMdl part = NewPartFor(assembly, source);
    if (!part) return;
    AssembleAtOrigin(assembly, part);
    SurfaceBoxes around;
    for (int i = 0; picks && i < count; ++i) AddPick(picks[i], &around);
    MakeBlock(part, around, CsysChoice::First);
}

}  // namespace

void VxBox() {
    ProvideGroupFile();
    TopModel current;
    if (ProMdlCurrentGet(&current.model) != PRO_TK_NO_ERROR) {
        return ShowNotice(WIDE("\t当前环境此功能不可用。\t"));
    }
    current.type = TypeOf(current.model);
    switch (current.type) {
        case PRO_MDL_PART: return BoxInPart(current.model);
        case PRO_MDL_ASSEMBLY:
        case PRO_MDL_MFG:
            if (const ProMdl assembly = TopModelOf(current).model) BoxInAssembly(assembly);
            return;
        default: ShowNotice(WIDE("\t当前模型不是零件/组件/制造,无法执行此操作\t"));
    }
}
