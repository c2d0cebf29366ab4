// NewPart, NewAsm, NewSmt: a new component from a template, in the active assembly.
#include "construct/commands.h"
#include "construct/default_assembly.h"
#include "construct/names.h"
#include "frame/services.h"

namespace {

// What the three differ in.
struct Kind {
    WideView option;  // names the template
    ProMdlType type;
    bool loadsFirst;  // the template, before the active model is looked at
    NumberedName name;
    WideView section;  // of the settings: whether it is constrained
    WideView noTemplate;
    WideView noCsys;
};

constexpr Kind kPart = {
    WIDE("template_solidpart"),
    PRO_MDL_PART,
    /*loadsFirst=*/false,
    WithDash,
    WIDE("PrtAssembly"),
    WIDE("\t零件模板加载失败，请确认template_solidpart选项是否配置正确\t"),
    WIDE("\t零件模板无坐标系,无法缺省装配新零件\t"),
};
constexpr Kind kAssembly = {
    WIDE("template_designasm"),
    PRO_MDL_ASSEMBLY,
    /*loadsFirst=*/true,
    WithTwoDigits,
    WIDE("AsmAssembly"),
    WIDE("\t组件模板加载失败，请确认template_designasm选项是否配置正确\t"),
    WIDE("\t组件模板无坐标系,无法缺省装配新零件\t"),
};
constexpr Kind kSheetMetal = {
    WIDE("template_sheetmetalpart"),
    PRO_MDL_PART,
    /*loadsFirst=*/false,
    WithDash,
    WIDE("SmtAssembly"),
    WIDE("\t钣金件模板加载失败，请确认template_sheetmetalpart选项是否配置正确\t"),
    WIDE("\t钣金件模板无坐标系,无法缺省装配新零件\t"),
};

bool Load(const Kind& kind, const WideText& path, ProMdl* model) {
    const ProError status = ProMdlLoad(HostText(path), kind.type, PRO_B_FALSE, model);
    if (status != PRO_TK_NO_ERROR) ShowNotice(WideText(kind.noTemplate));
    return status == PRO_TK_NO_ERROR;
}

// The assembly that is worked on, and the name that new models are named after: the manufacturing
// model's own where one is active.
struct WorkPlace {
    ProMdl assembly = nullptr;
    WideText name;
};

// Null and told where no assembly is active.
WorkPlace ActivePlace() {
    ProMdl active = nullptr;
    ProMdlActiveGet(&active);
    const ProMdlType type = TypeOf(active);
    WorkPlace place;
    place.name = ModelName(active);
    if (type == PRO_MDL_ASSEMBLY || type == PRO_MDL_MFG) {
        place.assembly = TopModelOf({active, type}).model;
    }
    if (!place.assembly) ShowNotice(WIDE("\t当前激活元件不是组件/制造,无法进行新建装配操作\t"));
    return place;
}

// The calls are made whatever the ones before have answered: a host that has refused one refuses
// the next.
void Create(const Kind& kind, ProMdl source, const WorkPlace& place, const WideText& name) {
    ProMdl model = nullptr;
    ProMdlCopy(source, HostText(name), &model);
    ProMdlSave(model);
    IdentityMatrix origin;
    ProAsmcomp component = {};
    ProAsmcompAssemble(static_cast<ProAssembly>(place.assembly), static_cast<ProSolid>(model),
                       origin.rows, &component);
    if (ConfigValue(WideText(kind.section), Place::BesideModule) != WIDE("1")) return;
    DefaultAssembleByCsys(place.assembly, model, &component, WideText(kNoCsysInAssembly),
                          WideText(kind.noCsys));
}

void NewComponent(const Kind& kind) {
    const std::optional<WideText> path = FirstOptionValue(kind.option.data());
    if (!path) return ShowNotice(WideText(kind.noTemplate));
    ProMdl source = nullptr;
    if (kind.loadsFirst && !Load(kind, *path, &source)) return;
    const WorkPlace place = ActivePlace();
    if (!place.assembly) return;
    if (!kind.loadsFirst && !Load(kind, *path, &source)) return;
    const auto name = FirstFreeName(BaseOf(place.name), kind.name, kind.type, PRO_NAME_SIZE);
    if (!name) return ShowNotice(WIDE("新建模型名称长度不能超过32位"));
    Create(kind, source, place, *name);
}

}  // namespace

void NewPart() {
    NewComponent(kPart);
}

void NewAsm() {
    NewComponent(kAssembly);
}

void NewSmt() {
    NewComponent(kSheetMetal);
}
