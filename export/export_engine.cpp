// The selected drawings go one after the other through the formats that are checked.
#include "export/export_engine.h"

#include <algorithm>
#include <vector>

#include "export/export_formats.h"
#include "export/export_table.h"

namespace {

// After the first drawing and every 30th the host's memory is cleared of what no window shows.
constexpr std::size_t kDrawingsInMemory = 30;

ExportChoices ReadChoices() {
    ExportChoices choices = {};
    choices.dwg = kExportDialog.CheckState("DWGCheck");
    choices.pdf = kExportDialog.CheckState("PDFCheck");
    choices.dxf = kExportDialog.CheckState("DXFCheck");
    choices.stp = kExportDialog.CheckState("STPCheck");
    choices.igs = kExportDialog.CheckState("IGSCheck");
    choices.strokes = kExportDialog.CheckState("PDFOptionCheck");
    choices.black = kExportDialog.CheckState("PDFBlackCheck");
    choices.multiSheet = kExportDialog.CheckState("MultiSheetCheck");
    return choices;
}

NamePattern ReadPanels() {
    const WideText items = kExportDialog.InputText(kNamePanel);
    const WideText separator = kExportDialog.InputText(kSeparatorPanel);
    return ReadNamePattern(items, separator);
}

// The drawings in these rows by their names, each once, in the order of their characters.
std::vector<WideText> DrawingsIn(const std::vector<std::string>& rows) {
    std::vector<WideText> names;
    names.reserve(rows.size());
    for (const std::string& row : rows) names.push_back(kExportTable.CellText(row, kDrawingColumn));
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
}

// The first of the models that a drawing has; null where the host names none.
ProSolid FirstSolidOf(ProDrawing drawing) {
    ProSolid* list = nullptr;
    if (ProDrawingSolidsCollect(drawing, &list) != PRO_TK_NO_ERROR) return nullptr;
    HostArray<ProSolid> solids;
    solids.Adopt(list);
    return solids.Size() > 0 ? solids.data()[0] : nullptr;
}

// False: the drawing was left on the way.
bool ExportFormats(DrawingExport& each) {
    const ExportChoices& choices = each.choices;
    return (choices.dwg != 1 || ExportDwg(each)) && (choices.dxf != 1 || ExportDxf(each)) &&
           (choices.pdf != 1 || ExportPdf(each)) && (choices.stp != 1 || ExportStp(each)) &&
           (choices.igs != 1 || ExportIgs(each));
}

// False: the drawing was passed over or left.
bool ExportDrawing(DrawingExport each) {
    ProMdl model = nullptr;
    if (ProMdlRetrieve(HostText(each.name), PRO_MDL_DRAWING, &model) != PRO_TK_NO_ERROR) {
        return false;
    }
    each.drawing = static_cast<ProDrawing>(model);
    each.firstSolid = FirstSolidOf(each.drawing);
    if (!each.firstSolid) return false;
    each.composedName = BuildExportName(each.pattern, each.drawing, each.name, each.firstSolid);
    return ExportFormats(each);
}

}  // namespace

void OnExport(char*, char*, ProAppData) {
    const ExportChoices choices = ReadChoices();
    const std::vector<std::string> rows = kExportTable.SelectedRows();
    if (rows.empty()) return ShowNotice(WIDE("\t\t请先选择需要导出的工程图\t\t"));
    const NamePattern pattern = ReadPanels();
    ProPath folder = {};
    ProDirectoryCurrentGet(folder);
    const WideText workingDirectory = TextIn(folder);
    const std::vector<WideText> names = DrawingsIn(rows);
    for (std::size_t i = 0; i < names.size(); ++i) {
        const bool done = ExportDrawing({choices, pattern, workingDirectory, names[i]});
        // No handle outlives this.
        if (done && i % kDrawingsInMemory == 0) ProMdlEraseNotDisplayed();
    }
    ShowCompletion(WIDE("\t工程图批量导出已完成"));
}
