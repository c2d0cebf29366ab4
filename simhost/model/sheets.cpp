// What sheets hold: scales for each model, formats and their tables.
#include "simhost/model/sheets.h"

#include <algorithm>
#include <numeric>

#include "simhost/model/model.h"

namespace simhost {

double Sheet::ScaleOf(const std::string& file) const {
    for (const SolidScale& one : scales) {
        if (one.file == file) return one.scale;
    }
    return scale;
}

void Sheet::SetScale(const std::string& file, double value) {
    for (SolidScale& one : scales) {
        if (one.file != file) continue;
        one.scale = value;
        return;
    }
    scales.push_back({file, value});
}

double SheetTable::Wide() const {
    return std::accumulate(columns.begin(), columns.end(), 0.0);
}

double SheetTable::High() const {
    return std::accumulate(heights.begin(), heights.end(), 0.0);
}

Sheet* SheetSet::Find(int sheet) {
    return sheet >= 1 && std::size_t(sheet) <= sheets.size() ? &sheets[std::size_t(sheet - 1)]
                                                             : nullptr;
}

const Sheet* SheetSet::Find(int sheet) const {
    return const_cast<SheetSet*>(this)->Find(sheet);
}

SheetTable& SheetSet::AddTable(SheetTable table) {
    table.id = 1;
    for (const SheetTable& other : tables) table.id = std::max(table.id, other.id + 1);
    tables.push_back(std::move(table));
    return tables.back();
}

SheetTable* SheetSet::FindTable(int id) {
    for (SheetTable& table : tables) {
        if (table.id == id) return &table;
    }
    return nullptr;
}

void SheetSet::AddSolid(const std::string& file) {
    if (!Shows(file)) solids.push_back(file);
}

bool SheetSet::Shows(const std::string& file) const {
    return std::find(solids.begin(), solids.end(), file) != solids.end();
}

void SheetSet::AddFormat(int sheet, const Model& format, int formatSheet,
                         const std::string& about) {
    Sheet* onto = Find(sheet);
    const SheetSet& from = format.drawingData;
    const Sheet* pattern = from.Find(formatSheet);
    if (!onto || !pattern) return;
    onto->size = pattern->size;
    onto->format = format.FileName();
    onto->formatSheet = formatSheet;
    onto->about = about;
    for (SheetTable table : from.tables) {
        if (table.sheet != formatSheet) continue;
        table.sheet = sheet;
        table.fromFormat = true;
        table.about = about;
        AddTable(std::move(table));
    }
}

}  // namespace simhost
