// Drawings go out as DWG and DXF, a file for each sheet.
#include "export/dwg_release.h"
#include "export/export_formats.h"
#include "hostapi/windows.h"

WideText MakeFolder(const DrawingExport& each, const WideChar* name) {
    WideText folder = each.folder + name;
    CreateDirectoryW(folder.c_str(), nullptr);
    return folder;
}

namespace {

struct SheetFormat {
    Pro2dExportType code;
    const WideChar* folder;
    const WideChar* extension;
};
constexpr SheetFormat kDwg = {PRO_DWG_FILE, WIDE("DWG\\"), WIDE(".dwg")};
constexpr SheetFormat kDxf = {PRO_DXF_FILE, WIDE("DXF\\"), WIDE(".dxf")};

// The file is written under the drawing's name first, since the host may not take every name. The
// record of the export is the host's from then on.
void ExportSheet(const DrawingExport& each, const SheetFormat& format, const WideText& folder,
                 int sheet, const WideText& fileName) {
    const WideText written = folder + each.name + format.extension;
    Pro2dExportdata data = nullptr;
    Pro2dExportdataAlloc(&data);
    // Without the record the current sheet would go out under this one's name.
    if (!data || !FitsHostPath(written)) return;
    Pro2dExportdataSheetoptionSet(data, PRO2DEXPORT_SELECTED);
    Pro2dExportdataModelspacesheetSet(data, sheet);
    Pro2dExport(format.code, HostText(written), each.drawing, data);
    MoveToNarrowPath(written, folder + fileName + format.extension);
}

// The sheets one by one, named after what they show. The list of views is left to the host.
bool ExportNamedSheets(const DrawingExport& each, const SheetFormat& format,
                       const WideText& folder) {
    ProView* views = nullptr;
    if (ProDrawingViewsCollect(each.drawing, &views) != PRO_TK_NO_ERROR) return false;
    int count = 0;
    if (views) ProArraySizeGet(views, &count);
    ProSolid solid = each.firstSolid;
    for (int sheet = 1; sheet <= each.sheets; ++sheet) {
        ProDrawingCurrentSheetSet(each.drawing, sheet);
        solid = SolidOnSheet(each.drawing, views, count, sheet, solid);
        ExportSheet(each, format, folder, sheet,
                    BuildSheetName(each.pattern, each.drawing, sheet, solid));
    }
    return true;
}

bool ExportSheets(DrawingExport& each, const SheetFormat& format) {
    ChooseDwgRelease();
    const WideText folder = MakeFolder(each, format.folder);
    ProDrawingSheetsCount(each.drawing, &each.sheets);
    if (each.sheets > 1 && each.choices.multiSheet == 1) {
        return ExportNamedSheets(each, format, folder);
    }
    if (each.sheets == 1) ExportSheet(each, format, folder, 1, each.composedName);
    for (int sheet = 1; each.sheets > 1 && sheet <= each.sheets; ++sheet) {
        ExportSheet(each, format, folder, sheet, each.composedName + WIDE("-") + Digits(sheet));
    }
    return true;
}

}  // namespace

bool ExportDwg(DrawingExport& each) {
    return ExportSheets(each, kDwg);
}

bool ExportDxf(DrawingExport& each) {
    return ExportSheets(each, kDxf);
}
