// What drawings show goes out as STEP and IGES.
#include "export/export_formats.h"

namespace {

struct SolidFormat {
    ProImportExportFile code;
    const WideChar* folder;
    const WideChar* extension;
};
constexpr SolidFormat kStp = {PRO_STEP_FILE, WIDE("STP\\"), WIDE(".stp")};
constexpr SolidFormat kIgs = {PRO_IGES_3D_FILE, WIDE("IGS\\"), WIDE(".igs")};

void WriteSolid(const SolidFormat& format, ProSolid solid, const WideText& path) {
    if (!FitsHostPath(path)) return;
    ProOutputFileWrite(solid, HostText(path), format.code, nullptr, nullptr, nullptr, nullptr);
}

// What each sheet shows, under the name of the model.
bool ExportSolidsOfSheets(const DrawingExport& each, const SolidFormat& format,
                          const WideText& folder) {
    SheetViews views;
    if (!views.Collect(each.drawing) || views.count == 0) return false;
    ProSolid solid = each.firstSolid;
    for (int sheet = 1; sheet <= each.sheets; ++sheet) {
        ProDrawingCurrentSheetSet(each.drawing, sheet);
        ProView view = FirstViewOn(each.drawing, views.list.data(), views.count, sheet);
        if (!view) continue;
        ProDrawingViewSolidGet(each.drawing, view, &solid);
        WriteSolid(format, solid, folder + ModelName(solid) + format.extension);
    }
    return true;
}

bool ExportSolids(const DrawingExport& each, const SolidFormat& format, bool bySheets) {
    const WideText folder = MakeFolder(each, format.folder);
    if (bySheets) return ExportSolidsOfSheets(each, format, folder);
    WriteSolid(format, each.firstSolid, folder + each.name + format.extension);
    return true;
}

}  // namespace

bool ExportStp(const DrawingExport& each) {
    return ExportSolids(each, kStp, each.choices.multiSheet == 1);
}

// Its way is chosen by the button of STEP; users' habits have grown around that.
bool ExportIgs(const DrawingExport& each) {
    return ExportSolids(each, kIgs, each.choices.stp != 1);
}
