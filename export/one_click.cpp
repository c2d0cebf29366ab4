// VxExportDwg, VxExportPdf, VxExportStp: the current model at one click, in the place that the
// settings name.
#include <optional>

#include "export/commands.h"
#include "export/dwg_release.h"
#include "export/folder_prompt.h"
#include "export/host_path.h"
#include "export/pdf_option.h"
#include "export/step_file.h"
#include "frame/services.h"

namespace {

constexpr const WideChar* kDrawingTitle = WIDE("请选择DWG文件导出位置");

// Whether a destination of the settings is this one, in whatever letters.
bool IsDestination(const WideText& value, WideView wanted) {
    return FoldCase(value) == FoldCase(wanted);
}

// The folder that the user chooses; nothing if they leave the prompt.
std::optional<WideText> AskedFolder(const WideChar* title) {
    const FolderAnswer answer = AskFolder(title);
    if (answer.cancelled) return std::nullopt;
    return answer.folder;
}

// Where a drawing goes; nothing for a setting that is none of the two, and for a prompt that is
// left.
std::optional<WideText> DrawingFolder(const WideText& destination) {
    if (IsDestination(destination, WIDE("deskTop"))) return DesktopFolder();
    if (IsDestination(destination, WIDE("byUser"))) return AskedFolder(kDrawingTitle);
    return std::nullopt;
}

// Where a solid goes: whatever is not the desktop is asked for.
std::optional<WideText> SolidFolder(const WideText& destination) {
    if (IsDestination(destination, WIDE("deskTop"))) return DesktopFolder();
    return AskedFolder(WIDE("请选择STP文件导出位置"));
}

WideText PathIn(const WideText& folder, const WideText& name) {
    return folder + WIDE("\\") + name;
}

// A drawing that goes out at one click: where to, without an extension, and how many times.
struct DrawingOutput {
    ProMdl drawing;
    WideText basePath;
    int sheets;

    WideText PathOf(int sheet) const {
        return sheets < 2 ? basePath : basePath + WIDE("-") + Digits(sheet);
    }
};

// Nothing where the settings or the user want none. The model's type is the host's to refuse.
std::optional<DrawingOutput> FindOutput(ProMdl drawing, const WideText& setting) {
    const WideText destination = ConfigValue(setting, Place::BesideModule);
    const WideText name = ModelName(drawing);
    int sheets = 0;
    ProDrawingSheetsCount(static_cast<ProDrawing>(drawing), &sheets);
    const std::optional<WideText> folder = DrawingFolder(destination);
    if (!folder) return std::nullopt;
    return DrawingOutput{drawing, PathIn(*folder, name), sheets};
}

// Written in the working directory first, so that a file that is there is not replaced.
constexpr const WideChar* kTemporaryPdf = WIDE("temp.pdf");

// Black on white, fonts embedded, no viewer, whatever VxExport's check buttons say. Nothing frees
// them.
ProPDFOptions PdfOptions() {
    constexpr int kEmbeddedFonts = 0, kBlack = 2, kOption25 = 25;
    ProPDFOptions options = nullptr;
    ProPDFoptionsAlloc(&options);
    if (!options) return nullptr;
    ProPDFoptionsIntpropertySet(options, PRO_PDFOPT_FONT_STROKE, kEmbeddedFonts);
    ProPDFoptionsIntpropertySet(options, PRO_PDFOPT_COLOR_DEPTH, kBlack);
    ProPDFoptionsBoolpropertySet(options, PRO_PDFOPT_LAUNCH_VIEWER, PRO_B_FALSE);
    ProPDFoptionsBoolpropertySet(options, PdfOption(kOption25), PRO_B_TRUE);
    return options;
}

}  // namespace

// Each sheet has a file, and each file what the host exports of the drawing as it stands: no sheet
// is named to it.
void VxExportDwg() {
    ProMdl drawing = nullptr;
    if (ProMdlCurrentGet(&drawing) != PRO_TK_NO_ERROR) return;
    ChooseDwgRelease();
    const std::optional<DrawingOutput> output = FindOutput(drawing, WIDE("VxExportDwgDIr"));
    if (!output) return;
    for (int sheet = 1; sheet <= output->sheets; ++sheet) {
        const WideText path = output->PathOf(sheet);
        if (FitsHostPath(path)) Pro2dExport(PRO_DWG_FILE, HostText(path), output->drawing, nullptr);
    }
}

// Every file has all sheets, as the host exports them.
void VxExportPdf() {
    ProMdl drawing = nullptr;
    if (ProMdlCurrentGet(&drawing) != PRO_TK_NO_ERROR) return;
    const std::optional<DrawingOutput> output = FindOutput(drawing, WIDE("VxExportPdfDIr"));
    if (!output) return;
    const ProPDFOptions options = PdfOptions();
    for (int sheet = 1; sheet <= output->sheets; ++sheet) {
        if (options) ProPDFExport(output->drawing, HostText(kTemporaryPdf), options);
        MoveToPath(kTemporaryPdf, output->PathOf(sheet) + WIDE(".pdf"));
    }
}

// A drawing goes to the writer like any model: it is the host's to refuse.
void VxExportStp() {
    ProMdl model = nullptr;
    if (ProMdlCurrentGet(&model) != PRO_TK_NO_ERROR) return;
    model = TopModelOf({model, TypeOf(model)}).model;
    const WideText name = model ? ModelName(model) : WideText();
    const WideText destination = ConfigValue(WIDE("VxExportStpDir"), Place::BesideModule);
    const std::optional<WideText> folder = SolidFolder(destination);
    if (!folder) return;
    const WideText path = PathIn(*folder, name + WIDE(".stp"));
    if (model && FitsHostPath(path)) WriteStep(model, path);
    ShowMessage("STP model has exported");
}
