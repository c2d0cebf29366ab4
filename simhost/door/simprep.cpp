// Simplified representations at the door.
#include "hostapi/host/simprep.h"

#include <algorithm>
#include <utility>

#include "simhost/core/text.h"
#include "simhost/door/door.h"
#include "simhost/door/name_record.h"

using namespace simhost;

namespace {

bool IsGoodName(const WideText& name) {
    const auto isGood = [](WideChar c) {
        return c >= 0x80 || (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') ||
               (c >= 'A' && c <= 'Z') || c == '_' || c == '-';
    };
    return !name.empty() && std::all_of(name.begin(), name.end(), isGood);
}

Model& RequireAssembly(const void* handle) {
    Model& model = TheHost().session.RequireSolid(handle);
    if (model.type != PRO_MDL_ASSEMBLY) Refuse(PRO_TK_BAD_INPUTS);
    return model;
}

Simprep& RequireData(ProSimprepdata* data) {
    const SimprepDatas& datas = TheHost().session.simprepDatas;
    if (!data) Refuse(PRO_TK_BAD_INPUTS);
    Simprep* found = datas.Find(data);
    if (found) return *found;
    Complain(PRO_TK_BAD_INPUTS, datas.WasGiven(data) ? "data of a representation that was freed"
                                                     : "not data of a representation");
}

// The representation of a record, in the assembly that owns it.
Simprep& RequireSimprep(const ProSimprep& record, Model** owner) {
    *owner = &RequireAssembly(record.owner);
    for (Simprep& each : (*owner)->assemblyData.simpreps) {
        if (record.type == PRO_SIMP_REP && each.id == record.id) return each;
    }
    Complain(PRO_TK_BAD_INPUTS, "not a representation of " + (*owner)->FileName());
}

void Changed(Model& model) {
    model.modified = true;
    ++TheHost().session.contentsRevision;
}

ProSimprepActionType RequireAction(ProSimprepActionType type) {
    if (type != PRO_SIMPREP_INCLUDE && type != PRO_SIMPREP_EXCLUDE) Refuse(PRO_TK_BAD_INPUTS);
    return type;
}

}  // namespace

ProError ProAssemblySimprepRetrieve(WideChar* assembly, WideChar* representation,
                                    ProSimprepdata* data, ProAssembly* retrieved) {
    return Op<"ProAssemblySimprepRetrieve">.Call(
        [&] {
            Session& session = TheHost().session;
            const std::string file = Utf8(Lower(NameIn(assembly))) + ".asm";
            Model* model = session.RetrieveOrTell(file);
            if (!model || !model->FindSimprep(NameIn(representation))) Refuse(PRO_TK_E_NOT_FOUND);
            *retrieved = static_cast<ProAssembly>(model->handle);
        },
        GIVEN(assembly), GIVEN(representation), ARG(data), OUT(retrieved));
}

ProError ProSimprepdataAlloc(WideChar* name, ProBoolean temporary, ProSimprepActionType action,
                             ProSimprepdata** data) {
    return Op<"ProSimprepdataAlloc">.Call(
        [&] {
            Simprep made;
            made.name = NameIn(name);
            made.defaultAction = RequireAction(action);
            *data =
                static_cast<ProSimprepdata*>(TheHost().session.simprepDatas.Add(std::move(made)));
        },
        GIVEN(name), ARG(temporary), ARG(action), OUT(data));
}

ProError ProSimprepdataFree(ProSimprepdata** data) {
    return Op<"ProSimprepdataFree">.Call(
        [&] {
            RequireData(*data);
            TheHost().session.simprepDatas.Free(*data);
            *data = nullptr;
        },
        GIVEN(data));
}

ProError ProSimprepInit(WideChar* name, int id, ProSolid owner, ProSimprep* representation) {
    return Op<"ProSimprepInit">.Call(
        [&] {
            Model& assembly = RequireAssembly(owner);
            const WideText wanted = NameIn(name);
            for (const Simprep& each : assembly.assemblyData.simpreps) {
                if (id != -1 ? each.id != id : !SameName(each.name, wanted)) continue;
                *representation = {PRO_SIMP_REP, each.id, assembly.handle};
                return;
            }
            Refuse(PRO_TK_E_NOT_FOUND);
        },
        GIVEN(name), ARG(id), ARG(owner), OUT(representation));
}

ProError ProSimprepCreate(ProSolid assembly, ProSimprepdata* data, ProSimprep* representation) {
    return Op<"ProSimprepCreate">.Call(
        [&] {
            Model& model = RequireAssembly(assembly);
            Simprep made = RequireData(data);
            if (!IsGoodName(made.name)) Refuse(PRO_TK_BAD_INPUTS);
            if (model.FindSimprep(made.name)) Refuse(PRO_TK_E_FOUND);
            made.name = Upper(made.name);
            made.id = 1;
            for (const Simprep& each : model.assemblyData.simpreps) {
                made.id = std::max(made.id, each.id + 1);
            }
            *representation = {PRO_SIMP_REP, made.id, model.handle};
            model.assemblyData.simpreps.push_back(std::move(made));
            Changed(model);
        },
        ARG(assembly), ARG(data), OUT(representation));
}

ProError ProSimprepActionInit(ProSimprepActionType type, ProSimprepActionParam* parameter,
                              ProSimprepAction* action) {
    return Op<"ProSimprepActionInit">.Call(
        [&] {
            *action = {RequireAction(type), parameter};
        },
        ARG(type), ARG(parameter), OUT(action));
}

ProError ProSimprepitemInit(ProIdTable path, int count, int feature, ProSimprepAction* action,
                            ProSimprepitem* item) {
    return Op<"ProSimprepitemInit">.Call(
        [&] {
            if (count < 0 || count > PRO_MAX_ASSEM_LEVEL) {
                Complain(PRO_TK_BAD_INPUTS, "a path of an impossible length");
            }
            *item = {};
            std::copy_n(path, count, item->path);
            item->count = count;
            item->feature = feature;
            item->action = *action;
        },
        LIST(path, count), ARG(feature), GIVEN(action), OUT(item));
}

ProError ProSimprepdataitemAdd(ProSimprepdata* data, ProSimprepitem* item) {
    return Op<"ProSimprepdataitemAdd">.Call(
        [&] {
            Simprep& filled = RequireData(data);
            if (item->count < 0 || item->count > PRO_MAX_ASSEM_LEVEL) {
                Complain(PRO_TK_BAD_INPUTS, "a path of an impossible length");
            }
            filled.items.push_back(
                {{item->path, item->path + item->count}, RequireAction(item->action.type)});
        },
        ARG(data), GIVEN(item));
}

ProError ProSimprepdataSet(ProSimprep* representation, ProSimprepdata* data) {
    return Op<"ProSimprepdataSet">.Call(
        [&] {
            Model* owner = nullptr;
            Simprep& changed = RequireSimprep(*representation, &owner);
            const Simprep& from = RequireData(data);
            changed.defaultAction = from.defaultAction;
            changed.items = from.items;
            Changed(*owner);
        },
        GIVEN(representation), ARG(data));
}

ProError ProSimprepActivate(ProSolid assembly, ProSimprep* representation) {
    return Op<"ProSimprepActivate">.Call(
        [&] {
            Model& model = RequireAssembly(assembly);
            Model* owner = nullptr;
            const Simprep& found = RequireSimprep(*representation, &owner);
            if (owner != &model) Refuse(PRO_TK_BAD_INPUTS);
            model.assemblyData.activeSimprep = found.id;
            ++TheHost().session.contentsRevision;
        },
        ARG(assembly), GIVEN(representation));
}
