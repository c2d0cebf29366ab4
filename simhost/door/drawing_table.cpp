// Tables of drawings at the door.
#include "hostapi/host/drawing_table.h"

#include <algorithm>

#include "simhost/door/door.h"

using namespace simhost;

namespace {

Model& DrawingOfTable(const ProDwgtable& table) {
    if (table.type != PRO_DRAW_TABLE) Refuse(PRO_TK_BAD_INPUTS);
    return TheHost().session.RequireDrawing(table.owner);
}

const SheetTable& RequireTable(const ProDwgtable& table) {
    const SheetTable* found = DrawingOfTable(table).drawingData.FindTable(table.id);
    if (!found) Complain(PRO_TK_BAD_INPUTS, "a table that is gone");
    return *found;
}

}  // namespace

ProError ProDrawingTablesCollect(ProDrawing drawing, ProDwgtable** tables) {
    Operation& op = Op<"ProDrawingTablesCollect">;
    return op.Call(
        [&] {
            Model& model = TheHost().session.RequireDrawing(drawing);
            std::vector<ProDwgtable> items;
            items.reserve(model.drawingData.tables.size());
            for (const SheetTable& table : model.drawingData.tables) {
                items.push_back({PRO_DRAW_TABLE, table.id, model.handle});
            }
            if (items.empty()) Refuse(PRO_TK_E_NOT_FOUND);
            *tables = TheHost().arrays.Make(items, op.name());
        },
        ARG(drawing), OUT_ARRAY(tables));
}

ProError ProDwgtableIsFromFormat(ProDwgtable* table, ProBoolean* fromFormat) {
    return Op<"ProDwgtableIsFromFormat">.Call(
        [&] { *fromFormat = RequireTable(*table).fromFormat ? PRO_B_TRUE : PRO_B_FALSE; },
        GIVEN(table), OUT(fromFormat));
}

ProError ProDwgtableSegSheetGet(ProDwgtable* table, int segment, int* sheet) {
    return Op<"ProDwgtableSegSheetGet">.Call(
        [&] {
            const SheetTable& found = RequireTable(*table);
            // Tables of several segments are not known here.
            if (segment != -1 && segment != 0) Refuse(PRO_TK_BAD_INPUTS);
            *sheet = found.sheet;
        },
        GIVEN(table), ARG(segment), OUT(sheet));
}

ProError ProDwgtableDelete(ProDwgtable* table, int repaint) {
    return Op<"ProDwgtableDelete">.Call(
        [&] {
            Model& model = DrawingOfTable(*table);
            RequireTable(*table);
            std::erase_if(model.drawingData.tables,
                          [&](const SheetTable& one) { return one.id == table->id; });
            model.modified = true;
        },
        GIVEN(table), ARG(repaint));
}
