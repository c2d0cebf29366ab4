// Tables of what models hold.
#include "simhost/trail/fact_table.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>

#include "simhost/core/text.h"
#include "simhost/picture/isometric.h"
#include "simhost/trail/words.h"
#include "simhost/ui/text_frame.h"

namespace simhost {

namespace {

// The fact as text; empty where the model has none.
std::string FactOf(const Model& model, const std::string& fact) {
    if (fact == "colour") {
        if (model.type != PRO_MDL_PART) return {};
        return ColourText(model.appearance.value_or(DefaultAppearance()));
    }
    if (fact == "relations") {
        const auto& lines = model.relations.initial;
        return lines ? std::to_string(lines->size()) : std::string();
    }
    const Material* material = MaterialOf(model);
    if (fact == "material") return material ? Utf8(material->name) : std::string();
    if (fact == "density") {
        if (!material) return {};
        return fmt::format("{:.6g} {}", material->density,
                           kDensityUnits[int(material->densityUnit)]);
    }
    if (fact == "mass") {
        const auto mass = MassOf(model);
        return mass ? fmt::format("{:.3f} kg", *mass) : std::string();
    }
    const SheetMetal& sheet = model.partData.sheetMetal;
    if (fact == "bend table") return Utf8(sheet.table.name);
    if (fact == "developed length") {
        if (sheet.flats.empty()) return {};
        return fmt::format("{:.3f} {}", sheet.developed, Utf8(LengthUnitName(model)));
    }
    if (fact == "units") return HasUnits(model) ? Utf8(model.units.Principal().name) : "";
    if (fact == "size") return SizeText(model);
    if (fact == "first component") return FirstPlaceText(model);
    const Parameter* found = ShownParameter(model, Wide(fact));
    return found ? ValueText(*found) : std::string();
}

}  // namespace

void FactTable::Take(const Session& session, const std::string& label,
                     const std::vector<std::string>& facts) {
    for (const std::string& fact : facts) {
        Column column{label, fact, {}};
        for (const Model* model : session.All()) {
            const std::string text = FactOf(*model, fact);
            if (!text.empty()) column.cells[model->FileName()] = text;
        }
        columns_.push_back(std::move(column));
    }
}

std::vector<std::string> FactTable::Lines() {
    std::set<std::string> models;
    for (const Column& column : columns_) {
        for (const auto& [model, text] : column.cells) models.insert(model);
    }
    std::vector<std::vector<std::string>> rows{{"model"}, {""}};
    for (const std::string& model : models) rows.push_back({model});
    for (const Column& column : columns_) {
        rows[0].push_back(column.label);
        rows[1].push_back(column.fact);
        std::size_t row = 2;
        for (const std::string& model : models) {
            const auto found = column.cells.find(model);
            rows[row++].push_back(found == column.cells.end() ? "-" : found->second);
        }
    }
    std::vector<std::size_t> widths(rows[0].size());
    for (const auto& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            widths[i] = std::max(widths[i], DisplayWidth(row[i]));
        }
    }
    std::vector<std::string> lines;
    for (const auto& row : rows) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i) line += Padded(row[i], widths[i] + 2);
        lines.push_back(line.substr(0, line.find_last_not_of(' ') + 1));
    }
    columns_.clear();
    return lines;
}

}  // namespace simhost
