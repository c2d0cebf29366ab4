// Filling and reading of the table.
#include "tables/rename_table.h"

#include <algorithm>
#include <iterator>

namespace {

WideText TypeText(ProMdl model) {
    switch (TypeOf(model)) {
        case PRO_MDL_ASSEMBLY: return kAssemblyText;
        case PRO_MDL_PART: return kPartText;
        default: return {};
    }
}

void MakeSmall(WideText* text) {
    for (WideChar& c : *text) {
        if (c >= 'A' && c <= 'Z') c = WideChar(c + ('a' - 'A'));
    }
}

// By the item's whole length: one with a terminator in it begins no name.
bool IsLeftOut(const WideText& name, const std::vector<WideText>& filter) {
    return std::any_of(filter.begin(), filter.end(), [&](const WideText& item) {
        return name.compare(0, item.size(), item) == 0;
    });
}

}  // namespace

WideText StoredRenameFilter(const WideText& value) {
    WideText text = ReplaceAll(value, WIDE("，"), WIDE(","));
    std::replace(text.begin(), text.end(), WideChar{' '}, WideChar{});
    return text;
}

std::vector<WideText> SplitRenameFilter(WideView list) {
    const std::size_t end = std::min(list.find(WideChar{}), list.size());
    std::vector<WideText> items;
    std::size_t start = 0;
    // A comma after the terminator no longer separates anything.
    for (std::size_t comma = list.find(',', start); comma < end; comma = list.find(',', start)) {
        if (comma > start) items.emplace_back(list.substr(start, comma - start));
        start = comma + 1;
    }
    if (start < list.size()) items.emplace_back(list.substr(start));
    return items;
}

std::string OpenedPanel(const std::string& row) {
    return "input" + row;
}

std::string ImportedPanel(const std::string& row) {
    return "inputImport" + row;
}

void PutNewNamePanel(const std::string& row, const std::string& panel, const WideText& text) {
    kRenameTable.CopyIntoCell(row, kNewNameColumn, "name_input", panel);
    kRenameDialog.SetInputText(panel.c_str(), text.c_str());
}

void FillRenameTable(const std::vector<ProMdl>& models, std::vector<WideText> filter,
                     NewNames newNames) {
    for (WideText& item : filter) MakeSmall(&item);
    int rows = 0;
    for (const ProMdl model : models) {
        const WideText name = ModelName(model);
        const WideText type = TypeText(model);
        if (IsLeftOut(name, filter)) continue;
        const std::string last = rows > 0 ? std::to_string(rows) : std::string();
        const std::string row = std::to_string(rows + 1);
        if (!kRenameTable.InsertRow(last, row)) continue;
        ++rows;
        kRenameTable.SetCellText(row, kNumberColumn, Digits(rows));
        kRenameTable.SetCellText(row, kOldNameColumn, name);
        kRenameTable.SetCellText(row, kTypeColumn, type);
        if (newNames == NewNames::InPanels) PutNewNamePanel(row, OpenedPanel(row), name);
    }
}

ProError ReadNewName(const std::string& row, WideText* name) {
    ProError status = kRenameDialog.ReadInput(ImportedPanel(row).c_str(), name);
    if (status == PRO_TK_GENERAL_ERROR) {
        status = kRenameDialog.ReadInput(OpenedPanel(row).c_str(), name);
    }
    *name = DeleteBlanks(*name);
    return status;
}

// The current model is that one from now on.
void OnPickRow(char*, char*, ProAppData) {
    kRenameDialog.StayAboveWindow();
    const std::vector<std::string> columns = kRenameTable.ColumnNames();
    const std::string row = kRenameTable.FocusedRow();
    if (row.empty() || columns.size() < std::size(kRenameColumns)) return;
    const WideText name = kRenameTable.CellText(row, columns[1]);
    const bool isAssembly = FoldCase(kRenameTable.CellText(row, columns[2])) == WIDE("ASM");
    ProMdl model = nullptr;
    ProMdlRetrieve(HostText(name), isAssembly ? PRO_MDL_ASSEMBLY : PRO_MDL_PART, &model);
    if (model) ProMdlDisplay(model);
}
