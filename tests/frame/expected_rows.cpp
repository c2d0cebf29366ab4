// The list of the 56 commands that the menu is compared with.
#include "tests/frame/expected_rows.h"

namespace expected {

namespace {

constexpr bool kOnRibbon = true, kMenuOnly = false;

struct Written {
    const char* name;
    Rule rule;
    bool onRibbon;
    const char* helpKey = nullptr;  // null: the name and _Help
    const char* icon = nullptr;     // null: the name and .png
};

// clang-format off
constexpr Written kWritten[] = {
    {"VxOpenDir",              kAlways,        kOnRibbon},
    {"VxBackup",               kAssemblyOrMfg, kOnRibbon},
    {"NewPart",                kAssemblyOrMfg, kOnRibbon},
    {"NewAsm",                 kAssemblyOrMfg, kOnRibbon},
    {"NewSmt",                 kAssemblyOrMfg, kOnRibbon},
    {"BatchColor",             kSolidOrMfg,    kOnRibbon, "Color_Help", "RandomColor.png"},
    {"VxClearAllColor",        kSolidOrMfg,    kOnRibbon},
    {"VxBoxSelSur",            kSolidOrMfg,    kOnRibbon},
    {"VxTransparent",          kSolidOrMfg,    kOnRibbon},
    {"SurfTransparent",        kSolidOrMfg,    kOnRibbon},
    {"BoxSel",                 kAssemblyOrMfg, kOnRibbon},
    {"SetMat",                 kSolid,         kOnRibbon},
    {"SetBendTable",           kSolid,         kOnRibbon},
    {"SameScale",              kDrawing,       kOnRibbon},
    {"VxIsolate",              kAssemblyOrMfg, kOnRibbon},
    {"VxHideReverse",          kAssemblyOrMfg, kOnRibbon},
    {"VxShowAllComp",          kAssemblyOrMfg, kOnRibbon},
    {"VxNormalView",           kAlways,        kOnRibbon},
    {"VxParams",               kAssemblyOrMfg, kOnRibbon},
    {"VxRelations",            kAssemblyOrMfg, kOnRibbon},
    {"SetUnit",                kSolid,         kOnRibbon},
    {"CloneComp",              kAssemblyOrMfg, kOnRibbon},
    {"CloneAndReplace",        kAssemblyOrMfg, kOnRibbon},
    {"VxMerge",                kAssemblyOrMfg, kOnRibbon},
    {"VxMergeTo",              kAssemblyOrMfg, kOnRibbon},
    {"TweViews",               kSolidOrMfg,    kOnRibbon},
    {"NewDraw",                kSolidOrMfg,    kOnRibbon},
    {"VxExStp",                kAssemblyOrMfg, kOnRibbon},
    {"VxExIgs",                kAssemblyOrMfg, kOnRibbon},
    {"VxExSat",                kAssemblyOrMfg, kOnRibbon},
    {"VxBom",                  kAssemblyOrMfg, kOnRibbon},
    {"VxRename",               kAssemblyOrMfg, kOnRibbon},
    {"VxRemoveCons",           kAssemblyOrMfg, kOnRibbon},
    {"VxExport",               kAlways,        kOnRibbon},
    {"VxMdlCount",             kAssemblyOrMfg, kOnRibbon},
    {"VxNewDrw",               kAssemblyOrMfg, kOnRibbon},
    {"VxDimModify",            kDrawing,       kOnRibbon},
    {"VxFrmReplace",           kAlways,        kOnRibbon},
    {"VxDrwScaleCheck",        kAlways,        kOnRibbon},
    {"VxSimRep",               kAssemblyOrMfg, kOnRibbon},
    {"VxBox",                  kAssemblyOrMfg, kOnRibbon},
    {"VxExportDwg",            kDrawing,       kOnRibbon},
    {"VxExportPdf",            kDrawing,       kOnRibbon},
    {"VxMdlNameCopy",          kAssemblyOrMfg, kOnRibbon},
    {"VxMdlRename",            kAssemblyOrMfg, kOnRibbon},
    {"VxExportStp",            kSolidOrMfg,    kOnRibbon},
    {"VxUpdateSheetScale",     kDrawing,       kOnRibbon},
    {"VxUpdateMainViewScale",  kDrawing,       kOnRibbon},
    {"VxSingleDim",            kDrawing,       kOnRibbon},
    {"VxSetDirectory",         kAlways,        kOnRibbon},
    {"VxConfig",               kAlways,        kOnRibbon},
    {"ForTest",                kAlways,        kOnRibbon},
    {"VxVipAbout",             kAlways,        kMenuOnly},
    {"VxQQGroup",              kAlways,        kMenuOnly},
    {"VxVersion",              kAlways,        kMenuOnly},
    {"AboutVx",                kAlways,        kMenuOnly, nullptr, "AboutVorlatix.png"},
};
// clang-format on

}  // namespace

const std::vector<Row>& Rows() {
    static const std::vector<Row> rows = [] {
        std::vector<Row> all;
        for (const Written& each : kWritten) {
            const std::string name = each.name;
            all.push_back({name, each.rule, each.onRibbon,
                           each.helpKey ? each.helpKey : name + "_Help",
                           each.icon ? each.icon : name + ".png"});
        }
        return all;
    }();
    return rows;
}

}  // namespace expected
