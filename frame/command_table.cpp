// The commands as data. This is the one file that sees every room.
#include "frame/command_table.h"

#include "display/batch_color.h"
#include "display/clear_all_color.h"
#include "drawing/normal_view.h"
#include "drawing/twe_views.h"
#include "frame/access.h"
#include "frame/config.h"
#include "frame/not_built.h"
#include "frame/services/guard.h"
#include "modeldata/mdl_count.h"
#include "modeldata/params.h"
#include "modeldata/relations.h"
#include "tables/bom.h"

// clang-format off

// BatchColor alone has an icon and a help key that do not follow its name, and AboutVx an icon.
const std::array<CommandRow, 56> kCommandTable = {{
    {"VxOpenDir",             "VxOpenDir_Help",             "VxOpenDir.png",             NotBuilt<"VxOpenDir">,             AccessAlways,        true},
    {"VxBackup",              "VxBackup_Help",              "VxBackup.png",              NotBuilt<"VxBackup">,              AccessAssemblyOrMfg, true},
    {"NewPart",               "NewPart_Help",               "NewPart.png",               NotBuilt<"NewPart">,               AccessAssemblyOrMfg, true},
    {"NewAsm",                "NewAsm_Help",                "NewAsm.png",                NotBuilt<"NewAsm">,                AccessAssemblyOrMfg, true},
    {"NewSmt",                "NewSmt_Help",                "NewSmt.png",                NotBuilt<"NewSmt">,                AccessAssemblyOrMfg, true},
    {"BatchColor",            "Color_Help",                 "RandomColor.png",           Command<BatchColor>,               AccessSolidOrMfg,    true},
    {"VxClearAllColor",       "VxClearAllColor_Help",       "VxClearAllColor.png",       Command<VxClearAllColor>,          AccessSolidOrMfg,    true},
    {"VxBoxSelSur",           "VxBoxSelSur_Help",           "VxBoxSelSur.png",           NotBuilt<"VxBoxSelSur">,           AccessSolidOrMfg,    true},
    {"VxTransparent",         "VxTransparent_Help",         "VxTransparent.png",         NotBuilt<"VxTransparent">,         AccessSolidOrMfg,    true},
    {"SurfTransparent",       "SurfTransparent_Help",       "SurfTransparent.png",       NotBuilt<"SurfTransparent">,       AccessSolidOrMfg,    true},
    {"BoxSel",                "BoxSel_Help",                "BoxSel.png",                NotBuilt<"BoxSel">,                AccessAssemblyOrMfg, true},
    {"SetMat",                "SetMat_Help",                "SetMat.png",                NotBuilt<"SetMat">,                AccessSolid,         true},
    {"SetBendTable",          "SetBendTable_Help",          "SetBendTable.png",          NotBuilt<"SetBendTable">,          AccessSolid,         true},
    {"SameScale",             "SameScale_Help",             "SameScale.png",             NotBuilt<"SameScale">,             AccessDrawing,       true},
    {"VxIsolate",             "VxIsolate_Help",             "VxIsolate.png",             NotBuilt<"VxIsolate">,             AccessAssemblyOrMfg, true},
    {"VxHideReverse",         "VxHideReverse_Help",         "VxHideReverse.png",         NotBuilt<"VxHideReverse">,         AccessAssemblyOrMfg, true},
    {"VxShowAllComp",         "VxShowAllComp_Help",         "VxShowAllComp.png",         NotBuilt<"VxShowAllComp">,         AccessAssemblyOrMfg, true},
    {"VxNormalView",          "VxNormalView_Help",          "VxNormalView.png",          Command<VxNormalView>,             AccessAlways,        true},
    {"VxParams",              "VxParams_Help",              "VxParams.png",              Command<VxParams>,                 AccessAssemblyOrMfg, true},
    {"VxRelations",           "VxRelations_Help",           "VxRelations.png",           Command<VxRelations>,              AccessAssemblyOrMfg, true},
    {"SetUnit",               "SetUnit_Help",               "SetUnit.png",               NotBuilt<"SetUnit">,               AccessSolid,         true},
    {"CloneComp",             "CloneComp_Help",             "CloneComp.png",             NotBuilt<"CloneComp">,             AccessAssemblyOrMfg, true},
    {"CloneAndReplace",       "CloneAndReplace_Help",       "CloneAndReplace.png",       NotBuilt<"CloneAndReplace">,       AccessAssemblyOrMfg, true},
    {"VxMerge",               "VxMerge_Help",               "VxMerge.png",               NotBuilt<"VxMerge">,               AccessAssemblyOrMfg, true},
    {"VxMergeTo",             "VxMergeTo_Help",             "VxMergeTo.png",             NotBuilt<"VxMergeTo">,             AccessAssemblyOrMfg, true},
    {"TweViews",              "TweViews_Help",              "TweViews.png",              Command<TweViews>,                 AccessSolidOrMfg,    true},
    {"NewDraw",               "NewDraw_Help",               "NewDraw.png",               NotBuilt<"NewDraw">,               AccessSolidOrMfg,    true},
    {"VxExStp",               "VxExStp_Help",               "VxExStp.png",               NotBuilt<"VxExStp">,               AccessAssemblyOrMfg, true},
    {"VxExIgs",               "VxExIgs_Help",               "VxExIgs.png",               NotBuilt<"VxExIgs">,               AccessAssemblyOrMfg, true},
    {"VxExSat",               "VxExSat_Help",               "VxExSat.png",               NotBuilt<"VxExSat">,               AccessAssemblyOrMfg, true},
    {"VxBom",                 "VxBom_Help",                 "VxBom.png",                 Command<VxBom>,                    AccessAssemblyOrMfg, true},
    {"VxRename",              "VxRename_Help",              "VxRename.png",              NotBuilt<"VxRename">,              AccessAssemblyOrMfg, true},
    {"VxRemoveCons",          "VxRemoveCons_Help",          "VxRemoveCons.png",          NotBuilt<"VxRemoveCons">,          AccessAssemblyOrMfg, true},
    {"VxExport",              "VxExport_Help",              "VxExport.png",              NotBuilt<"VxExport">,              AccessAlways,        true},
    {"VxMdlCount",            "VxMdlCount_Help",            "VxMdlCount.png",            Command<VxMdlCount>,               AccessAssemblyOrMfg, true},
    {"VxNewDrw",              "VxNewDrw_Help",              "VxNewDrw.png",              NotBuilt<"VxNewDrw">,              AccessAssemblyOrMfg, true},
    {"VxDimModify",           "VxDimModify_Help",           "VxDimModify.png",           NotBuilt<"VxDimModify">,           AccessDrawing,       true},
    {"VxFrmReplace",          "VxFrmReplace_Help",          "VxFrmReplace.png",          NotBuilt<"VxFrmReplace">,          AccessAlways,        true},
    {"VxDrwScaleCheck",       "VxDrwScaleCheck_Help",       "VxDrwScaleCheck.png",       NotBuilt<"VxDrwScaleCheck">,       AccessAlways,        true},
    {"VxSimRep",              "VxSimRep_Help",              "VxSimRep.png",              NotBuilt<"VxSimRep">,              AccessAssemblyOrMfg, true},
    {"VxBox",                 "VxBox_Help",                 "VxBox.png",                 NotBuilt<"VxBox">,                 AccessAssemblyOrMfg, true},
    {"VxExportDwg",           "VxExportDwg_Help",           "VxExportDwg.png",           NotBuilt<"VxExportDwg">,           AccessDrawing,       true},
    {"VxExportPdf",           "VxExportPdf_Help",           "VxExportPdf.png",           NotBuilt<"VxExportPdf">,           AccessDrawing,       true},
    {"VxMdlNameCopy",         "VxMdlNameCopy_Help",         "VxMdlNameCopy.png",         NotBuilt<"VxMdlNameCopy">,         AccessAssemblyOrMfg, true},
    {"VxMdlRename",           "VxMdlRename_Help",           "VxMdlRename.png",           NotBuilt<"VxMdlRename">,           AccessAssemblyOrMfg, true},
    {"VxExportStp",           "VxExportStp_Help",           "VxExportStp.png",           NotBuilt<"VxExportStp">,           AccessSolidOrMfg,    true},
    {"VxUpdateSheetScale",    "VxUpdateSheetScale_Help",    "VxUpdateSheetScale.png",    NotBuilt<"VxUpdateSheetScale">,    AccessDrawing,       true},
    {"VxUpdateMainViewScale", "VxUpdateMainViewScale_Help", "VxUpdateMainViewScale.png", NotBuilt<"VxUpdateMainViewScale">, AccessDrawing,       true},
    {"VxSingleDim",           "VxSingleDim_Help",           "VxSingleDim.png",           NotBuilt<"VxSingleDim">,           AccessDrawing,       true},
    {"VxSetDirectory",        "VxSetDirectory_Help",        "VxSetDirectory.png",        NotBuilt<"VxSetDirectory">,        AccessAlways,        true},
    {"VxConfig",              "VxConfig_Help",              "VxConfig.png",              Command<VxConfig>,                 AccessAlways,        true},
    {"ForTest",               "ForTest_Help",               "ForTest.png",               NotBuilt<"ForTest">,               AccessAlways,        true},
    {"VxVipAbout",            "VxVipAbout_Help",            "VxVipAbout.png",            NotBuilt<"VxVipAbout">,            AccessAlways,        false},
    {"VxQQGroup",             "VxQQGroup_Help",             "VxQQGroup.png",             NotBuilt<"VxQQGroup">,             AccessAlways,        false},
    {"VxVersion",             "VxVersion_Help",             "VxVersion.png",             NotBuilt<"VxVersion">,             AccessAlways,        false},
    {"AboutVx",               "AboutVx_Help",               "AboutVorlatix.png",         NotBuilt<"AboutVx">,               AccessAlways,        false},
}};

// Two names differ on purpose between ActionMenu and popup: VxHideReverse is "反向隐藏" here and
// "反转显示(vx)" there.
const std::array<PopupRow, 5> kPopupTable = {{
    {"VxIsolate",     WIDE("独立显示"),         WIDE("独立显示(vx)"),     "VxIsolate_Help",     NotBuilt<"VxIsolate">,     AccessAssemblyOrMfg, PopupAccessComponent},
    {"VxHideReverse", WIDE("反向隐藏"),         WIDE("反转显示(vx)"),     "VxHideReverse_Help", NotBuilt<"VxHideReverse">, AccessAssemblyOrMfg, PopupAccessComponent},
    {"VxShowAllComp", WIDE("全部显示"),         WIDE("全部显示(vx)"),     "VxShowAllComp_Help", NotBuilt<"VxShowAllComp">, AccessAssemblyOrMfg, PopupAccessComponent},
    {"VxMdlNameCopy", WIDE("复制模型名称(vx)"), WIDE("复制模型名称(vx)"), "VxMdlNameCopy_Help", NotBuilt<"VxMdlNameCopy">, AccessSolid,         PopupAccessSingleItem},
    {"VxMdlRename",   WIDE("快速重命名(vx)"),   WIDE("快速重命名(vx)"),   "VxMdlRename_Help",   NotBuilt<"VxMdlRename">,   AccessSolid,         PopupAccessSingleItem},
}};

const CommandRow kOpenDrawingRow =
    {"VxOpenDrw", "VxOpenDrw_Help", nullptr, NotBuilt<"VxOpenDrw">, AccessSolid, false};
const ProPopupmenuAccessFn kOpenDrawingPopupAccess = PopupAccessSingleItem;

// clang-format on
