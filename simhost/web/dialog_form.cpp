// Dialogs in JSON, by the kinds of their components.
#include "simhost/web/dialog_form.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "simhost/host.h"
#include "simhost/ui/checkbutton.h"
#include "simhost/ui/drawingarea.h"
#include "simhost/ui/label.h"
#include "simhost/ui/list.h"
#include "simhost/ui/radiogroup.h"
#include "simhost/ui/textfield.h"
#include "simhost/web/answers.h"

namespace simhost {
namespace {

Json GridOf(const Grid& grid) {
    if (!grid.component.empty()) return {{"component", grid.component}};
    Json children = Json::array();
    for (const Grid& child : grid.children) children.push_back(GridOf(child));
    return {{"rows", grid.rows}, {"cols", grid.cols}, {"children", std::move(children)}};
}

// --- What each kind holds ---

void AddField(const TextField& field, Json* form) {
    (*form)["value"] = Text(field.value);
    (*form)["columns"] = field.columns();
    if (const auto* area = dynamic_cast<const TextArea*>(&field)) (*form)["rows"] = area->rows();
    if (const auto* menu = dynamic_cast<const OptionMenu*>(&field)) {
        (*form)["names"] = menu->names();
        (*form)["labels"] = menu->labels();
    }
    const auto* panel = dynamic_cast<const InputPanel*>(&field);
    if (panel && panel->focusInAction.function) (*form)["tellsFocus"] = true;
}

void AddGroup(const RadioGroup& group, Json* form) {
    (*form)["names"] = group.names();
    (*form)["labels"] = group.labels();
    (*form)["horizontal"] = group.horizontal();
    const auto selected = group.selected();
    (*form)["selected"] = selected ? Json(group.names()[*selected]) : Json(nullptr);
}

void AddArea(const DrawingArea& area, Json* form) {
    Json drawn = Json::array();
    for (const DrawingArea::Drawn& one : area.drawn) {
        drawn.push_back({{"picture", one.image}, {"x", one.x}, {"y", one.y}});
    }
    (*form)["width"] = area.width();
    (*form)["height"] = area.height();
    (*form)["drawn"] = std::move(drawn);
}

const char* PolicyWord(int policy) {
    switch (policy) {
        case PROUISELPOLICY_BROWSE: return "browse";
        case PROUISELPOLICY_MULTIPLE: return "multiple";
        case PROUISELPOLICY_EXTENDED: return "extended";
        default: return "single";
    }
}

void AddTable(const Table& table, Json* form) {
    Json columns = Json::array();
    for (const TableColumn& column : table.columns()) {
        columns.push_back({{"name", column.name}, {"label", Text(column.label)}});
    }
    Json selected = Json::array();
    for (const TableRow& row : table.rows()) {
        if (row.selected) selected.push_back(row.name);
    }
    (*form)["tableColumns"] = std::move(columns);
    (*form)["columns"] = table.widthInCharacters();
    (*form)["visibleRows"] = table.visibleRows();
    (*form)["policy"] = PolicyWord(table.rowPolicy);
    (*form)["activates"] = table.activateAction.function != nullptr;
    (*form)["arms"] = table.armAction.function != nullptr;
    (*form)["selected"] = std::move(selected);
    (*form)["first"] = RowsOf(table, 0, kRowsWithDialog);
}

Json ComponentOf(const Component& component) {
    Json form = {{"name", component.name()},
                 {"kind", component.kind()},
                 {"label", Text(component.label)},
                 {"enabled", component.enabled},
                 {"visible", component.visible}};
    if (const auto* field = dynamic_cast<const TextField*>(&component)) AddField(*field, &form);
    if (const auto* group = dynamic_cast<const RadioGroup*>(&component)) AddGroup(*group, &form);
    if (const auto* area = dynamic_cast<const DrawingArea*>(&component)) AddArea(*area, &form);
    if (const auto* table = dynamic_cast<const Table*>(&component)) AddTable(*table, &form);
    if (const auto* check = dynamic_cast<const CheckButton*>(&component)) form["set"] = check->set;
    if (const auto* label = dynamic_cast<const Label*>(&component)) {
        if (!label->picture().empty()) form["picture"] = label->picture();
    }
    if (const auto* list = dynamic_cast<const List*>(&component)) {
        form["items"] = list->items();
        form["chosen"] = list->chosen();
    }
    return form;
}

// Pixels that stay free around a component, as the resource wants it.
void AddOffsets(const DialogResource& resource, Json* form) {
    const std::string name = (*form)["name"];
    for (const char* side : {"Top", "Bottom", "Left", "Right"}) {
        const int pixels = resource.Whole(name, std::string(side).append("Offset"), 0);
        if (pixels != 0) (*form)["offsets"][side] = pixels;
    }
}

Json RowOf(const TableRow& row) {
    Json cells = Json::array();
    for (const TableCell& cell : row.cells) {
        Json one = Json::object();
        if (!cell.label.empty()) one["text"] = Text(cell.label);
        if (cell.colour) one["colour"] = *cell.colour;
        if (cell.component) one["component"] = ComponentOf(*cell.component);
        cells.push_back(std::move(one));
    }
    return {{"name", row.name}, {"cells", std::move(cells)}};
}

}  // namespace

Json FormOf(const Dialog& dialog) {
    const DialogResource& resource = dialog.resource();
    const auto* byEnter = resource.Find("", "DefaultButton");
    Json form = {
        {"name", dialog.name()},
        {"title", Text(dialog.title())},
        {"defaultButton", byEnter && !byEnter->empty() ? Json(byEnter->front()) : Json(nullptr)},
        {"closes", dialog.closeAction.function != nullptr},
        {"layout", nullptr},
        {"layouts", Json::object()},
        {"components", Json::array()}};
    for (const auto& [component, grid] : resource.layouts) {
        (component.empty() ? form["layout"] : form["layouts"][component]) = GridOf(grid);
    }
    for (const auto& component : dialog.components()) {
        Json one = ComponentOf(*component);
        AddOffsets(resource, &one);
        form["components"].push_back(std::move(one));
    }
    return form;
}

Json RowsOf(const Table& table, std::size_t from, std::size_t count) {
    const std::size_t all = table.rows().size();
    const std::size_t first = std::min(from, all);
    const std::size_t end = first + std::min({count, kMostRowsAtOnce, all - first});
    Json rows = Json::array();
    auto row = std::next(table.rows().begin(), std::ptrdiff_t(first));
    for (std::size_t i = first; i < end; ++i) rows.push_back(RowOf(*row++));
    return {{"count", all}, {"from", first}, {"rows", std::move(rows)}};
}

// An empty object where no dialog is open.
Reply DialogNow(const Seat&, const Query&) {
    Json form = Json::object();
    Json below = Json::array();
    for (const Dialog* dialog : TheHost().dialogs.OpenOnes()) {
        if (!form.empty()) below.push_back(std::move(form));
        form = FormOf(*dialog);
    }
    if (!form.empty()) form["below"] = std::move(below);
    return {200, Reply().type, Dump(form), {}};
}

Reply RowsNow(const Seat&, const Query& query) {
    const std::string component = query.Text("component"), name = query.Text("dialog");
    for (const Dialog* dialog : TheHost().dialogs.OpenOnes()) {
        if (dialog->name() != name) continue;
        const auto* table = dynamic_cast<const Table*>(dialog->Find(component));
        if (!table) break;
        const Json rows =
            RowsOf(*table, query.Number("from", 0), query.Number("count", kRowsWithDialog));
        return {200, Reply().type, Dump(rows), {}};
    }
    return Refused(404, "no such table is open");
}

}  // namespace simhost
