// Family tables at the door.
#include "hostapi/host/family_table.h"

#include "simhost/core/text.h"
#include "simhost/door/door.h"

using namespace simhost;

namespace {

// What a column can be about; the host has more kinds.
constexpr int kParameterColumn = 1;

}  // namespace

ProError ProFaminstanceGenericGet(ProMdl instance, ProBoolean immediate, ProMdl* generic) {
    return Op<"ProFaminstanceGenericGet">.Call(
        [&] {
            const Model* found = TheHost().session.Require(instance).family.generic;
            if (!found) Refuse(PRO_TK_E_NOT_FOUND);
            while (!immediate && found->family.generic) found = found->family.generic;
            *generic = found->handle;
        },
        ARG(instance), ARG(immediate), OUT(generic));
}

ProError ProFamtableInit(ProMdl model, ProFamtable* table) {
    return Op<"ProFamtableInit">.Call(
        [&] {
            const Model& found = TheHost().session.RequireSolid(model);
            *table = {ProType(found.type), -1, found.handle};
        },
        ARG(model), OUT(table));
}

ProError ProParameterToFamtableItem(ProParameter* parameter, ProFamtableItem* item) {
    return Op<"ProParameterToFamtableItem">.Call(
        [&] {
            const Model& model = TheHost().session.Require(parameter->owner.owner);
            const Parameter* found = ShownParameter(model, parameter->id);
            if (!found) Refuse(PRO_TK_E_NOT_FOUND);
            *item = {};
            item->type = kParameterColumn;
            item->owner = parameter->owner;
            CopyCut(found->name, item->name, PRO_LINE_SIZE);
        },
        GIVEN(parameter), OUT(item));
}

ProError ProFamtableItemAdd(ProFamtable* table, ProFamtableItem* item) {
    return Op<"ProFamtableItemAdd">.Call(
        [&] {
            Model& generic = TheHost().session.RequireSolid(table->owner);
            if (!item->owner.owner) Refuse(PRO_TK_BAD_INPUTS);
            if (item->type != kParameterColumn) {
                Complain(PRO_TK_BAD_INPUTS, "no item of a family table");
            }
            if (item->owner.owner != table->owner) Refuse(PRO_TK_BAD_INPUTS);
            if (generic.family.HasColumn(item->name)) Refuse(PRO_TK_E_FOUND);
            generic.family.columns.emplace_back(item->name);
            generic.modified = true;
        },
        GIVEN(table), GIVEN(item));
}
