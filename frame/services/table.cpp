// What the tables of dialogs hold.
#include "frame/services/table.h"

#include "frame/services/left_to_host.h"
#include "frame/services/text.h"

namespace {

using NamesGet = ProError (*)(char* dialog, char* table, int* count, char*** names);

// An array of names that the host has handed out, given back at the end.
class NameArray {
public:
    NameArray(NamesGet get, const char* dialog, const char* table) {
        if (get(HostText(dialog), HostText(table), &count_, &names_) != PRO_TK_NO_ERROR) {
            count_ = 0;
            names_ = nullptr;
        }
    }
    ~NameArray() {
        if (names_) ProStringarrayFree(names_, count_);
    }
    NameArray(const NameArray&) = delete;
    NameArray& operator=(const NameArray&) = delete;

    int count() const { return names_ ? count_ : 0; }
    char** names() const { return names_; }

private:
    int count_ = 0;
    char** names_ = nullptr;
};

// Names as the host takes them; good as long as the names stay where they are.
std::vector<char*> Pointers(std::vector<std::string>& names) {
    std::vector<char*> pointers;
    pointers.reserve(names.size());
    for (std::string& name : names) pointers.push_back(name.data());
    return pointers;
}

}  // namespace

void Table::OnActivate(ProUIAction action) const {
    ProUITableActivateActionSet(HostText(dialog_), HostText(name_), action, nullptr);
}

void Table::OnPick(ProUIAction action) const {
    ProUITableArmActionSet(HostText(dialog_), HostText(name_), action, nullptr);
}

void Table::SetSelectionPolicy(ProUISelectionpolicy policy) const {
    ProUITableSelectionpolicySet(HostText(dialog_), HostText(name_), policy);
}

void Table::SetColumnSelectionPolicy(ProUISelectionpolicy policy) const {
    ProUITableColumnselectionpolicySet(HostText(dialog_), HostText(name_), policy);
}

// --- Columns ---

std::vector<WideText> Table::ColumnLabels() const {
    int count = 0;
    WideChar** labels = nullptr;
    if (ProUITableColumnlabelsGet(HostText(dialog_), HostText(name_), &count, &labels) !=
            PRO_TK_NO_ERROR ||
        !labels) {
        return {};
    }
    std::vector<WideText> texts;
    texts.reserve(std::size_t(count));
    for (int i = 0; i < count; ++i) texts.emplace_back(labels[i] ? labels[i] : WIDE(""));
    LeaveLabels(labels, count);
    return texts;
}

std::vector<std::string> Table::ColumnNames() const {
    const NameArray array(ProUITableColumnnamesGet, dialog_, name_);
    return {array.names(), array.names() + array.count()};
}

bool Table::InsertColumns(const char* after, std::vector<std::string> names) const {
    std::vector<char*> pointers = Pointers(names);
    return ProUITableColumnsInsert(HostText(dialog_), HostText(name_), HostText(after),
                                   int(pointers.size()), pointers.data()) == PRO_TK_NO_ERROR;
}

void Table::DeleteColumns(std::vector<std::string> names) const {
    std::vector<char*> pointers = Pointers(names);
    ProUITableColumnsDelete(HostText(dialog_), HostText(name_), int(pointers.size()),
                            pointers.data());
}

void Table::SetColumnLabels(const std::vector<WideText>& labels) const {
    std::vector<WideChar*> texts;
    texts.reserve(labels.size());
    for (const WideText& label : labels) texts.push_back(HostText(label));
    ProUITableColumnlabelsSet(HostText(dialog_), HostText(name_), int(texts.size()), texts.data());
}

// --- Rows ---

int Table::RowCount() const {
    int count = 0;
    WideChar** labels = nullptr;
    const ProError status =
        ProUITableRowlabelsGet(HostText(dialog_), HostText(name_), &count, &labels);
    if (status != PRO_TK_NO_ERROR) return 0;
    LeaveLabels(labels, count);
    return count;
}

std::vector<std::string> Table::RowNames() const {
    const NameArray rows(ProUITableRownamesGet, dialog_, name_);
    return {rows.names(), rows.names() + rows.count()};
}

std::string Table::LastRow() const {
    const NameArray rows(ProUITableRownamesGet, dialog_, name_);
    return rows.count() > 0 ? rows.names()[rows.count() - 1] : std::string();
}

std::string Table::FocusedRow() const {
    char* row = nullptr;
    char* column = nullptr;
    if (ProUITableFocusCellGet(HostText(dialog_), HostText(name_), &row, &column) !=
        PRO_TK_NO_ERROR) {
        return {};
    }
    const std::string name = row ? row : "";
    LeaveFocusCell(row, column);
    return name;
}

std::string Table::FirstSelectedRow() const {
    const NameArray rows(ProUITableSelectednamesGet, dialog_, name_);
    return rows.count() > 0 && rows.names()[0] ? rows.names()[0] : std::string();
}

std::vector<std::string> Table::SelectedRows() const {
    const NameArray rows(ProUITableSelectednamesGet, dialog_, name_);
    return {rows.names(), rows.names() + rows.count()};
}

void Table::SelectRow(const std::string& row) const {
    ProUITableRowCellsSelect(HostText(dialog_), HostText(name_), HostText(row.c_str()));
}

void Table::DeselectRow(const std::string& row) const {
    ProUITableRowCellsDeselect(HostText(dialog_), HostText(name_), HostText(row.c_str()));
}

bool Table::InsertRow(const std::string& after, const std::string& name) const {
    char* names[] = {HostText(name.c_str())};
    return ProUITableRowsInsert(HostText(dialog_), HostText(name_), HostText(after.c_str()), 1,
                                names) == PRO_TK_NO_ERROR;
}

void Table::DeleteAllRows() const {
    const NameArray rows(ProUITableRownamesGet, dialog_, name_);
    if (rows.count() == 0) return;
    ProUITableRowsDelete(HostText(dialog_), HostText(name_), rows.count(), rows.names());
}

// --- Cells ---

WideText Table::CellText(const std::string& row, const std::string& column) const {
    WideChar* label = nullptr;
    if (ProUITableCellLabelGet(HostText(dialog_), HostText(name_), HostText(row.c_str()),
                               HostText(column.c_str()), &label) != PRO_TK_NO_ERROR) {
        return {};
    }
    const WideText text = label ? label : WideText();
    LeaveLabel(label);
    return text;
}

void Table::SetCellText(const std::string& row, const std::string& column,
                        const WideText& text) const {
    ProUITableCellLabelSet(HostText(dialog_), HostText(name_), HostText(row.c_str()),
                           HostText(column.c_str()), HostText(text));
}

void Table::CopyIntoCell(const std::string& row, const std::string& column, const char* component,
                         const std::string& copyName) const {
    ProUITableCellComponentCopy(HostText(dialog_), HostText(name_), HostText(row.c_str()),
                                HostText(column.c_str()), HostText(dialog_), HostText(component),
                                HostText(copyName.c_str()));
}

void Table::DeleteFromCell(const std::string& row, const std::string& column) const {
    ProUITableCellComponentDelete(HostText(dialog_), HostText(name_), HostText(row.c_str()),
                                  HostText(column.c_str()));
}

ProUIColorType Table::CellColour(const std::string& row, const std::string& column) const {
    ProUIColorType colour = {};
    ProUITableCellBackgroundColorGet(HostText(dialog_), HostText(name_), HostText(row.c_str()),
                                     HostText(column.c_str()), &colour);
    return colour;
}

void Table::SetCellColour(const std::string& row, const std::string& column,
                          ProUIColorType colour) const {
    ProUITableCellBackgroundColorSet(HostText(dialog_), HostText(name_), HostText(row.c_str()),
                                     HostText(column.c_str()), colour);
}
