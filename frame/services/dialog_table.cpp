// What the tables of dialogs hold.
#include "frame/services/dialog_table.h"

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

}  // namespace

std::vector<WideText> TableColumnLabels(const char* dialog, const char* table) {
    int count = 0;
    WideChar** labels = nullptr;
    if (ProUITableColumnlabelsGet(HostText(dialog), HostText(table), &count, &labels) !=
            PRO_TK_NO_ERROR ||
        !labels) {
        return {};
    }
    std::vector<WideText> texts;
    texts.reserve(std::size_t(count));
    for (int i = 0; i < count; ++i) texts.emplace_back(labels[i] ? labels[i] : WIDE(""));
    return texts;
}

std::vector<std::string> TableColumnNames(const char* dialog, const char* table) {
    const NameArray array(ProUITableColumnnamesGet, dialog, table);
    return {array.names(), array.names() + array.count()};
}

int TableRowCount(const char* dialog, const char* table) {
    int count = 0;
    WideChar** labels = nullptr;
    const ProError status =
        ProUITableRowlabelsGet(HostText(dialog), HostText(table), &count, &labels);
    return status == PRO_TK_NO_ERROR ? count : 0;
}

void DeleteAllTableRows(const char* dialog, const char* table) {
    const NameArray rows(ProUITableRownamesGet, dialog, table);
    if (rows.count() == 0) return;
    ProUITableRowsDelete(HostText(dialog), HostText(table), rows.count(), rows.names());
}

std::string FirstSelectedRow(const char* dialog, const char* table) {
    const NameArray rows(ProUITableSelectednamesGet, dialog, table);
    return rows.count() > 0 && rows.names()[0] ? rows.names()[0] : std::string();
}

WideText TableCellText(const char* dialog, const char* table, const std::string& row,
                       const std::string& column) {
    WideChar* text = nullptr;
    const ProError status = ProUITableCellLabelGet(
        HostText(dialog), HostText(table), HostText(row.c_str()), HostText(column.c_str()), &text);
    return status == PRO_TK_NO_ERROR && text ? text : WideText();
}

void SetTableCellText(const char* dialog, const char* table, const std::string& row,
                      const std::string& column, const WideText& text) {
    ProUITableCellLabelSet(HostText(dialog), HostText(table), HostText(row.c_str()),
                           HostText(column.c_str()), HostText(text));
}

ProUIColorType TableCellColour(const char* dialog, const char* table, const std::string& row,
                               const std::string& column) {
    ProUIColorType colour = {};
    ProUITableCellBackgroundColorGet(HostText(dialog), HostText(table), HostText(row.c_str()),
                                     HostText(column.c_str()), &colour);
    return colour;
}
