// Relations at the door.
#include "hostapi/host/relation.h"

#include "simhost/door/door.h"

using namespace simhost;

namespace {

Model& RequireOwnerOfRelations(const ProModelitem* item) {
    Need(item, "the owner of the relations");
    Model& model = TheHost().session.Require(item->owner);
    if (int(item->type) != int(model.type)) {
        Complain(PRO_TK_BAD_INPUTS, "an item that is no model has no relations here");
    }
    return model;
}

struct Set {
    Model& model;
    std::vector<WideText>& lines;
};
Set RequireSet(const ProRelset* set) {
    Need(set, "the relation set");
    Model& model = RequireOwnerOfRelations(&set->owner);
    if (set->afterRegeneration) return {model, model.relations.afterRegeneration};
    if (!model.relations.initial) Refuse(PRO_TK_E_NOT_FOUND);
    return {model, *model.relations.initial};
}

}  // namespace

ProError ProModelitemToRelset(ProModelitem* item, ProRelset* set) {
    return Op<"ProModelitemToRelset">.Call(
        [&] {
            const Model& model = RequireOwnerOfRelations(item);
            if (!model.relations.initial) Refuse(PRO_TK_E_NOT_FOUND);
            *set = {*item, 0};
        },
        ARG(item), OUT(set));
}

ProError ProRelsetPostregenerationInit(ProMdl model, ProRelset* set) {
    return Op<"ProRelsetPostregenerationInit">.Call(
        [&] {
            const Model& found = TheHost().session.RequireSolid(model);
            *set = {{ProType(found.type), -1, found.handle}, 1};
        },
        ARG(model), OUT(set));
}

ProError ProRelsetCreate(ProModelitem* item, ProRelset* set) {
    return Op<"ProRelsetCreate">.Call(
        [&] {
            Model& model = RequireOwnerOfRelations(item);
            if (model.relations.initial) Refuse(PRO_TK_E_FOUND);
            model.relations.initial.emplace();
            model.modified = true;
            *set = {*item, 0};
        },
        ARG(item), OUT(set));
}

ProError ProRelsetRelationsGet(ProRelset* set, WideChar*** lines) {
    return Op<"ProRelsetRelationsGet">.Call(
        [&] {
            const Set found = RequireSet(set);
            Host& host = TheHost();
            auto array = static_cast<ProArray>(*lines);
            for (const WideText& line : found.lines) {
                WideChar* text = host.lentTexts.emplace_back(line).data();
                host.arrays.Insert(&array, -1, 1, &text);
            }
            *lines = static_cast<WideChar**>(array);
        },
        GIVEN(set), OUT_ARRAY(lines));
}

ProError ProRelsetRelationsSet(ProRelset* set, WideChar** lines, int count) {
    return Op<"ProRelsetRelationsSet">.Call(
        [&] {
            const Set found = RequireSet(set);
            if (count < 0) Complain(PRO_TK_BAD_INPUTS, "a negative number of relations");
            if (count > 0 && TheHost().arrays.Size(lines) < count) {
                Complain(PRO_TK_BAD_INPUTS, "the array has fewer relations");
            }
            std::vector<WideText> texts;
            for (int i = 0; i < count; ++i) {
                Need(lines[i], "a relation");
                texts.emplace_back(lines[i]);
            }
            found.lines = std::move(texts);
            found.model.modified = true;
        },
        GIVEN(set), LIST(lines, count));
}
