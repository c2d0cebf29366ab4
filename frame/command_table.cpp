// The commands as data. This is the one file that sees every room.
#include "frame/command_table.h"

#include "commands/commands.h"
#include "construct/commands.h"
#include "display/commands.h"
#include "drawing/commands.h"
#include "export/commands.h"
#include "frame/access.h"
#include "frame/command_row.h"
#include "frame/config.h"
#include "modeldata/commands.h"
#include "tables/commands.h"

// clang-format off

// Help key and icon follow the name: BatchColor alone has others, and AboutVx another icon.
constexpr std::array<CommandRow, 56> kCommandTable = {{
    Row<"VxOpenDir">              (Command<VxOpenDir>,       AccessAlways),
    Row<"VxBackup">               (Command<VxBackup>,        AccessAssemblyOrMfg),
    Row<"NewPart">                (Command<NewPart>,         AccessAssemblyOrMfg),
    Row<"NewAsm">                 (Command<NewAsm>,          AccessAssemblyOrMfg),
    Row<"NewSmt">                 (Command<NewSmt>,          AccessAssemblyOrMfg),
    Row<"BatchColor">             (Command<BatchColor>,      AccessSolidOrMfg)
        .Help("Color_Help").Icon("RandomColor.png"),
    Row<"VxClearAllColor">        (Command<VxClearAllColor>, AccessSolidOrMfg),
    Row<"VxBoxSelSur">            (Command<VxBoxSelSur>,     AccessSolidOrMfg),
    Row<"VxTransparent">          (Command<VxTransparent>,   AccessSolidOrMfg),
    Row<"SurfTransparent">        (Command<SurfTransparent>, AccessSolidOrMfg),
    Row<"BoxSel">                 (Command<BoxSel>,          AccessAssemblyOrMfg),
    Row<"SetMat">                 (Command<SetMat>,          AccessSolid),
    Row<"SetBendTable">           (Command<SetBendTable>,   AccessSolid),
    Row<"SameScale">              (Command<SameScale>,       AccessDrawing),
    Row<"VxIsolate">              (Command<VxIsolate>,       AccessAssemblyOrMfg),
    Row<"VxHideReverse">          (Command<VxHideReverse>,   AccessAssemblyOrMfg),
    Row<"VxShowAllComp">          (Command<VxShowAllComp>,   AccessAssemblyOrMfg),
    Row<"VxNormalView">           (Command<VxNormalView>,    AccessAlways),
    Row<"VxParams">               (Command<VxParams>,        AccessAssemblyOrMfg),
    Row<"VxRelations">            (Command<VxRelations>,     AccessAssemblyOrMfg),
    Row<"SetUnit">                (Command<SetUnit>,         AccessSolid),
    Row<"CloneComp">              (Command<CloneComp>,       AccessAssemblyOrMfg),
    Row<"CloneAndReplace">        (Command<CloneAndReplace>, AccessAssemblyOrMfg),
    Row<"VxMerge">                (Command<VxMerge>,         AccessAssemblyOrMfg),
    Row<"VxMergeTo">              (Command<VxMergeTo>,       AccessAssemblyOrMfg),
    Row<"TweViews">               (Command<TweViews>,        AccessSolidOrMfg),
    Row<"NewDraw">                (Command<NewDraw>,         AccessSolidOrMfg),
    Row<"VxExStp">                (Command<VxExStp>,         AccessAssemblyOrMfg),
    Row<"VxExIgs">                (Command<VxExIgs>,         AccessAssemblyOrMfg),
    Row<"VxExSat">                (Command<VxExSat>,         AccessAssemblyOrMfg),
    Row<"VxBom">                  (Command<VxBom>,           AccessAssemblyOrMfg),
    Row<"VxRename">               (Command<VxRename>,        AccessAssemblyOrMfg),
    Row<"VxRemoveCons">           (Command<VxRemoveCons>,    AccessAssemblyOrMfg),
    Row<"VxExport">               (Command<VxExport>,        AccessAlways),
    Row<"VxMdlCount">             (Command<VxMdlCount>,      AccessAssemblyOrMfg),
    Row<"VxNewDrw">               (Command<VxNewDrw>,        AccessAssemblyOrMfg),
    Row<"VxDimModify">            (Command<VxDimModify>,     AccessDrawing),
    Row<"VxFrmReplace">           (Command<VxFrmReplace>,    AccessAlways),
    Row<"VxDrwScaleCheck">        (Command<VxDrwScaleCheck>, AccessAlways),
    Row<"VxSimRep">               (Command<VxSimRep>,        AccessAssemblyOrMfg),
    Row<"VxBox">                  (Command<VxBox>,           AccessAssemblyOrMfg),
    Row<"VxExportDwg">            (Command<VxExportDwg>,     AccessDrawing),
    Row<"VxExportPdf">            (Command<VxExportPdf>,     AccessDrawing),
    Row<"VxMdlNameCopy">          (Command<VxMdlNameCopy>,   AccessAssemblyOrMfg),
    Row<"VxMdlRename">            (Command<VxMdlRename>,     AccessAssemblyOrMfg),
    Row<"VxExportStp">            (Command<VxExportStp>,     AccessSolidOrMfg),
    Row<"VxUpdateSheetScale">     (Command<VxUpdateSheetScale>, AccessDrawing),
    Row<"VxUpdateMainViewScale">  (Command<VxUpdateMainViewScale>, AccessDrawing),
    Row<"VxSingleDim">            (Command<VxSingleDim>,     AccessDrawing),
    Row<"VxSetDirectory">         (Command<VxSetDirectory>,  AccessAlways),
    Row<"VxConfig">               (Command<VxConfig>,        AccessAlways),
    Row<"ForTest">                (Command<ForTest>,         AccessAlways),
    Row<"VxVipAbout">             (Command<VxVipAbout>,      AccessAlways).MenuOnly(),
    Row<"VxQQGroup">              (Command<VxQQGroup>,       AccessAlways).MenuOnly(),
    Row<"VxVersion">              (Command<VxVersion>,       AccessAlways).MenuOnly(),
    Row<"AboutVx">                (Command<AboutVx>,         AccessAlways)
        .MenuOnly().Icon("AboutVorlatix.png"),
}};

// Two names differ on purpose between ActionMenu and popup: VxHideReverse is "反向隐藏" here and
// "反转显示(vx)" there.
constexpr std::array<PopupRow, 5> kPopupTable = {{
    {RowOf(kCommandTable, "VxIsolate"), WIDE("独立显示"), WIDE("独立显示(vx)"),
     AccessAssemblyOrMfg, PopupAccessComponent},
    {RowOf(kCommandTable, "VxHideReverse"), WIDE("反向隐藏"), WIDE("反转显示(vx)"),
     AccessAssemblyOrMfg, PopupAccessComponent},
    {RowOf(kCommandTable, "VxShowAllComp"), WIDE("全部显示"), WIDE("全部显示(vx)"),
     AccessAssemblyOrMfg, PopupAccessComponent},
    {RowOf(kCommandTable, "VxMdlNameCopy"), WIDE("复制模型名称(vx)"), WIDE("复制模型名称(vx)"),
     AccessSolid, PopupAccessSingleItem},
    {RowOf(kCommandTable, "VxMdlRename"), WIDE("快速重命名(vx)"), WIDE("快速重命名(vx)"),
     AccessSolid, PopupAccessSingleItem},
}};

constexpr CommandRow kOpenDrawingRow =
    Row<"VxOpenDrw">(Command<VxOpenDrw>, AccessSolid).MenuOnly().NoIcon();
const ProPopupmenuAccessFn kOpenDrawingPopupAccess = PopupAccessSingleItem;

// clang-format on
