// Family tables at the door.
#include "hostapi/host/family_table.h"

#include "simhost/core/text.h"
#include "simhost/door/describe.h"
#include "simhost/host.h"

using namespace simhost;

namespace {

// What a column can be about; the host has more kinds.
constexpr int kParameterColumn = 1;

}  // namespace

ProError ProFaminstanceGenericGet(ProMdl instance, ProBoolean immediate, ProMdl* generic) {
    static Operation op("ProFaminstanceGenericGet");
    return op.Call(
        [&] {
            Need(generic, "the place for the generic");
            const Model* found = TheHost().session.Require(instance).family.generic;
            if (!found) Refuse(PRO_TK_E_NOT_FOUND);
            while (!immediate && found->family.generic) found = found->family.generic;
            *generic = found->handle;
            return PRO_TK_NO_ERROR;
        },
        "instance", instance, "immediate", immediate, "generic", Out(generic));
}

ProError ProFamtableInit(ProMdl model, ProFamtable* table) {
    static Operation op("ProFamtableInit");
    return op.Call(
        [&] {
            Need(table, "the place for the table");
            const Model& found = TheHost().session.RequireSolid(model);
            *table = {ProType(found.type), -1, found.handle};
            return PRO_TK_NO_ERROR;
        },
        "model", model);
}

ProError ProParameterToFamtableItem(ProParameter* parameter, ProFamtableItem* item) {
    static Operation op("ProParameterToFamtableItem");
    return op.Call(
        [&] {
            Need(parameter, "the parameter");
            Need(item, "the place for the item");
            const Model& model = TheHost().session.Require(parameter->owner.owner);
            const Parameter* found = ShownParameter(model, parameter->id);
            if (!found) Refuse(PRO_TK_E_NOT_FOUND);
            *item = {};
            item->type = kParameterColumn;
            item->owner = parameter->owner;
            CopyCut(found->name, item->name, PRO_LINE_SIZE);
            return PRO_TK_NO_ERROR;
        },
        "parameter", parameter);
}

ProError ProFamtableItemAdd(ProFamtable* table, ProFamtableItem* item) {
    static Operation op("ProFamtableItemAdd");
    return op.Call(
        [&] {
            Need(table, "the table");
            Need(item, "the item");
            Model& generic = TheHost().session.RequireSolid(table->owner);
            if (item->type != kParameterColumn) {
                Complain(PRO_TK_BAD_INPUTS, "no item of a family table");
            }
            if (item->owner.owner != table->owner) Refuse(PRO_TK_BAD_INPUTS);
            if (generic.family.HasColumn(item->name)) Refuse(PRO_TK_E_FOUND);
            generic.family.columns.emplace_back(item->name);
            generic.modified = true;
            return PRO_TK_NO_ERROR;
        },
        "table", table, "item", item ? item->name : nullptr);
}
