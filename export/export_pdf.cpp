// Drawings go out as PDF, in one file or in a file for each sheet.
#include "export/export_formats.h"
#include "export/pdf_option.h"
#include "hostapi/windows.h"

namespace {

constexpr const WideChar* kExtension = WIDE(".pdf");

// The profile that lies beside the settings, and by whose name the host finds its copy.
constexpr const WideChar* kProfile = WIDE("vxdop");
constexpr const WideChar* kProfileFile = WIDE("vxdop.dop");

// Options that have no names in our headers.
constexpr int kOption25 = 25, kSheets = 28;

// The options of one drawing; null where the host has none to give.
ProPDFOptions MakeOptions(const ExportChoices& choices) {
    ProPDFOptions options = nullptr;
    ProPDFoptionsAlloc(&options);
    if (!options) return nullptr;
    ProPDFoptionsIntpropertySet(options, PRO_PDFOPT_FONT_STROKE, choices.strokes == 0 ? 0 : 1);
    if (choices.black == 1) ProPDFoptionsIntpropertySet(options, PRO_PDFOPT_COLOR_DEPTH, 2);
    ProPDFoptionsBoolpropertySet(options, PRO_PDFOPT_LAUNCH_VIEWER, PRO_B_FALSE);
    ProPDFoptionsBoolpropertySet(options, PdfOption(kOption25), PRO_B_TRUE);
    return options;
}

// A window for the drawing, as its PDF files need one; PRO_VALUE_UNUSED where the host made none.
int OpenWindow(const WideText& drawing) {
    int window = PRO_VALUE_UNUSED;
    ProObjectwindowCreate(HostText(drawing), PRO_DRAWING, &window);
    return window;
}

void CloseWindow(int window) {
    if (window == PRO_VALUE_UNUSED) return;
    if (ProWindowDelete(window) == PRO_TK_BAD_CONTEXT) ProWindowCurrentClose();
}

// Brings the drawing into a window, which stays; what that shows is the drawing from then on.
void ShowInWindow(DrawingExport& each) {
    const int window = OpenWindow(each.name);
    if (window == PRO_VALUE_UNUSED) return;
    ProWindowCurrentSet(window);
    ProWindowActivate(window);
    ProMdl shown = nullptr;
    ProWindowMdlGet(window, &shown);
    if (shown) each.drawing = static_cast<ProDrawing>(shown);
}

// The host looks for profiles in the working directory; one that lies there is the user's.
void BringProfile(const WideText& workingDirectory) {
    const WideText source = ConfigPathFor(kProfileFile);
    const WideText target = workingDirectory + kProfileFile;
    if (PathFileExistsW(target.c_str())) return;
    CopyFileW(source.c_str(), target.c_str(), /*failIfExists=*/TRUE);
}

void ExportOneSheet(DrawingExport& each, const WideText& folder, int sheet,
                    const WideText& fileName) {
    const WideText written = folder + each.name + kExtension;
    ShowInWindow(each);
    ProDrawingCurrentSheetSet(each.drawing, sheet);
    BringProfile(each.folder);
    if (FitsHostPath(written)) {
        ProPDFWithProfileExport(each.drawing, HostText(written), HostText(kProfile));
    }
    MoveToNarrowPath(written, folder + fileName + kExtension);
}

bool ExportEachSheet(DrawingExport& each, const WideText& folder) {
    SheetViews views;
    if (!views.Collect(each.drawing) || views.count == 0) return false;
    ProSolid solid = each.firstSolid;
    for (int sheet = 1; sheet <= each.sheets; ++sheet) {
        ProDrawingCurrentSheetSet(each.drawing, sheet);
        solid = SolidOnSheet(each.drawing, views.list.data(), views.count, sheet, solid);
        ExportOneSheet(each, folder, sheet,
                       BuildSheetName(each.pattern, each.drawing, sheet, solid));
    }
    return true;
}

void ExportOneFile(const DrawingExport& each, const WideText& folder, ProPDFOptions options) {
    const WideText written = folder + each.name + kExtension;
    const int window = OpenWindow(each.name);
    if (options && FitsHostPath(written)) {
        ProPDFExport(each.drawing, HostText(written), options);
    }
    CloseWindow(window);
    MoveToNarrowPath(written, folder + each.composedName + kExtension);
}

}  // namespace

// A drawing that is left keeps its options.
bool ExportPdf(DrawingExport& each) {
    ProPDFOptions options = MakeOptions(each.choices);
    const WideText folder = MakeFolder(each, WIDE("PDF\\"));
    ProDrawingSheetsCount(each.drawing, &each.sheets);
    if (each.sheets > 1 && each.choices.multiSheet == 1) {
        if (options) ProPDFoptionsIntpropertySet(options, PdfOption(kSheets), 0);
        if (!ExportEachSheet(each, folder)) return false;
    } else {
        ExportOneFile(each, folder, options);
    }
    if (options) ProPDFoptionsFree(options);
    return true;
}
