// The columns of the table of drawings, and the cells that two buttons fill.
#include "export/export_table.h"

#include <algorithm>
#include <string>
#include <unordered_map>

#include "export/drawing_facts.h"

namespace {

constexpr const char* kNumberColumn = "num";
constexpr std::size_t kBefore = 2, kAfter = 2;  // columns on either side of the parameters

std::string ParameterColumn(std::size_t number) {
    return "param" + std::to_string(number);
}

// The rows of the table; empty where the user was told that there are none.
std::vector<std::string> RowsToFill() {
    std::vector<std::string> rows = kExportTable.RowNames();
    if (rows.empty()) ShowNotice(WIDE("\t\t当前工作目录中无工程图\t\t"));
    return rows;
}

// --- Parameters ---

// A listed file, by what ProFilenameParse makes of its path.
struct ModelFile {
    WideText name;
    ProMdlType type = PRO_MDL_UNUSED;
};

ModelFile ParseModelFile(ProPath path) {
    ProPath folder = {};
    ProName name = {}, extension = {};
    int version = 0;
    ProFilenameParse(path, folder, name, extension, &version);
    const WideView ending = ViewIn(extension);
    if (ending == WIDE("prt")) return {TextIn(name), PRO_MDL_PART};
    if (ending == WIDE("asm")) return {TextIn(name), PRO_MDL_ASSEMBLY};
    return {TextIn(name), PRO_MDL_UNUSED};
}

// The listed files by their folded names. Those of one name stay in the order of the listing.
using ModelFiles = std::unordered_map<WideText, std::vector<ModelFile>>;

ModelFiles IndexOf(const FileList& list) {
    ModelFiles files;
    for (int i = 0; i < list.count; ++i) {
        ModelFile file = ParseModelFile(list.files.data()[i]);
        if (file.type != PRO_MDL_UNUSED) files[FoldCase(file.name)].push_back(std::move(file));
    }
    return files;
}

// Cells of parameters that the model has not keep what they hold.
void FillParameters(const std::string& row, const ModelFile& file,
                    const std::vector<WideText>& labels) {
    ProMdl model = nullptr;
    if (ProMdlRetrieve(HostText(file.name), file.type, &model) != PRO_TK_NO_ERROR) return;
    HostRecord<ProModelitem> item;
    ProMdlToModelitem(model, item.Place());
    if (!item.IsFilled()) return;
    for (std::size_t i = kBefore; i + kAfter < labels.size(); ++i) {
        const auto text = ReadParameterText(item.Place(), labels[i]);
        if (text) kExportTable.SetCellText(row, ParameterColumn(i - kBefore + 1), *text);
    }
}

// --- Drawings ---

void FillDrawingInfo(const std::string& row) {
    const WideText name = kExportTable.CellText(row, kDrawingColumn);
    ProMdl model = nullptr;
    if (ProMdlRetrieve(HostText(name), PRO_MDL_DRAWING, &model) != PRO_TK_NO_ERROR) return;
    auto* drawing = static_cast<ProDrawing>(model);
    int sheets = 0;
    ProDrawingSheetsCount(drawing, &sheets);
    kExportTable.SetCellText(row, kSheetsColumn, Digits(sheets));
    WideText sizes = SheetSizeName(drawing, 1);
    for (int sheet = 2; sheet <= sheets; ++sheet) {
        sizes.append(WIDE(",")).append(SheetSizeName(drawing, sheet));
    }
    kExportTable.SetCellText(row, kSizeColumn, sizes);
}

}  // namespace

void AddParameterColumns(const std::vector<WideText>& parameters) {
    std::vector<std::string> names;
    names.reserve(parameters.size());
    for (std::size_t i = 1; i <= parameters.size(); ++i) names.push_back(ParameterColumn(i));
    // A label without its column would move the labels after it.
    const bool inserted = !names.empty() && kExportTable.InsertColumns(kDrawingColumn, names);
    std::vector<WideText> labels = {WIDE("序号"), WIDE("图纸名称")};
    if (inserted) labels.insert(labels.end(), parameters.begin(), parameters.end());
    labels.insert(labels.end(), {WIDE("图幅大小"), WIDE("页数")});
    kExportTable.SetColumnLabels(labels);
}

void DeleteParameterColumns() {
    const std::vector<std::string> columns = kExportTable.ColumnNames();
    if (columns.size() <= kBefore + kAfter) return;
    kExportTable.DeleteColumns({columns.begin() + kBefore, columns.end() - kAfter});
}

void AddDrawingRow(int number, const WideText& drawing) {
    const std::string row = std::to_string(number);
    kExportTable.InsertRow(kExportTable.LastRow(), row);
    kExportTable.SetCellText(row, kNumberColumn, Digits(number));
    kExportTable.SetCellText(row, kDrawingColumn, drawing);
}

void AllowSelection() {
    kExportTable.SetSelectionPolicy(PROUISELPOLICY_EXTENDED);
    kExportTable.SetColumnSelectionPolicy(PROUISELPOLICY_EXTENDED);
}

void OnLoadParameters(char*, char*, ProAppData) {
    const std::vector<std::string> rows = RowsToFill();
    if (rows.empty()) return;
    const FileList list = ListFiles(WIDE("*.prt,*.asm"));
    if (list.count == 0) return;
    const std::vector<WideText> labels = kExportTable.ColumnLabels();
    const ModelFiles files = IndexOf(list);
    for (const std::string& row : rows) {
        const WideText drawing = kExportTable.CellText(row, kDrawingColumn);
        const auto found = files.find(FoldCase(drawing));
        if (found == files.end()) continue;
        // Of a part and an assembly of one name the later one has the last word.
        for (const ModelFile& file : found->second) FillParameters(row, file, labels);
    }
}

void OnLoadDrawingInfo(char*, char*, ProAppData) {
    for (const std::string& row : RowsToFill()) FillDrawingInfo(row);
}
