// Components and their constraints at the door.
#include "hostapi/host/assembly.h"

#include "simhost/door/door.h"
#include "simhost/model/constraints.h"
#include "simhost/model/frames.h"
#include "simhost/model/model_tree.h"
#include "simhost/ui/redefinition.h"

using namespace simhost;

namespace {

// A component, and the assembly that holds it.
struct Held {
    Model& assembly;
    Feature& component;
};

// A zeroed record, and a feature that is gone or is no component, are refused.
Held RequireComponent(ProAsmcomp* item) {
    Model& assembly = TheHost().session.Require(item->owner);
    Feature* found = item->type == PRO_FEATURE ? assembly.FindFeature(item->id) : nullptr;
    if (!found || found->type != PRO_FEAT_COMPONENT) Refuse(PRO_TK_BAD_INPUTS);
    return {assembly, *found};
}

Held RequireChangeable(ProAsmcomp* item) {
    const Held held = RequireComponent(item);
    if (held.assembly.readOnly) Refuse(PRO_TK_NO_PERMISSION);
    return held;
}

ConstraintDraft& RequireConstraint(ProAsmcompconstraint handle) {
    if (!handle) Refuse(PRO_TK_BAD_INPUTS);
    ConstraintDrafts& drafts = TheHost().session.constraints;
    ConstraintDraft* found = drafts.Find(handle);
    if (!found) {
        Complain(PRO_TK_BAD_INPUTS,
                 drafts.WasGiven(handle) ? "a constraint that has ended" : "not a constraint");
    }
    return *found;
}

ConstraintDraft::Reference RequireReference(ProSelection handle, ProDatumside side) {
    if (!handle) Refuse(PRO_TK_BAD_INPUTS);
    const Selection* found = TheHost().session.selections.Find(handle);
    if (!found) Complain(PRO_TK_BAD_INPUTS, "not a live selection");
    if (side < PRO_DATUM_SIDE_RED || side > PRO_DATUM_SIDE_YELLOW) Refuse(PRO_TK_BAD_INPUTS);
    return {*found, side};
}

Placement PlacementOf(ProMatrix matrix) {
    Placement place;
    for (std::size_t row = 0; row < 3; ++row) {
        place.axes[row] = {matrix[row][0], matrix[row][1], matrix[row][2]};
    }
    place.origin = {matrix[3][0], matrix[3][1], matrix[3][2]};
    const bool affine =
        matrix[0][3] == 0 && matrix[1][3] == 0 && matrix[2][3] == 0 && matrix[3][3] == 1;
    if (!affine || !IsRotation(place)) Refuse(PRO_TK_INVALID_MATRIX);
    return place;
}

}  // namespace

ProError ProAsmcompMdlGet(ProAsmcomp* component, ProMdl* model) {
    return Op<"ProAsmcompMdlGet">.Call(
        [&] {
            const Feature& feature = TheHost().session.RequireFeature(component);
            // Some features of an assembly are no components.
            if (feature.file.empty() && !feature.model) Refuse(PRO_TK_BAD_INPUTS);
            if (!feature.model) Refuse(PRO_TK_E_NOT_FOUND);
            *model = feature.model->handle;
        },
        ARG(component), OUT(model));
}

ProError ProAsmcompAssemble(ProAssembly assembly, ProSolid model, ProMatrix place,
                            ProAsmcomp* component) {
    return Op<"ProAsmcompAssemble">.Call(
        [&] {
            Session& session = TheHost().session;
            Model& owner = session.RequireSolid(assembly);
            Model& added = session.RequireSolid(model);
            if (owner.type != PRO_MDL_ASSEMBLY) Refuse(PRO_TK_BAD_INPUTS);
            if (Contains(added, owner)) Refuse(PRO_TK_BAD_INPUTS);
            if (owner.readOnly) Refuse(PRO_TK_NO_PERMISSION);
            Feature feature;
            feature.type = PRO_FEAT_COMPONENT;
            feature.placement = PlacementOf(place);
            feature.file = added.FileName();
            feature.model = &added;
            const int id = owner.AddFeature(std::move(feature)).id;
            owner.modified = true;
            *component = {PRO_FEATURE, id, owner.handle};
        },
        ARG(assembly), ARG(model), GIVEN(place), OUT(component));
}

// Only this component: others follow when the assembly is regenerated.
ProError ProAsmcompRegenerate(ProAsmcomp* component, ProBoolean updateSoft) {
    return Op<"ProAsmcompRegenerate">.Call(
        [&] {
            const Held held = RequireComponent(component);
            PlaceComponent(held.assembly, &held.component);
        },
        GIVEN(component), ARG(updateSoft));
}

ProError ProAsmcompconstraintAlloc(ProAsmcompconstraint* constraint) {
    Operation& op = Op<"ProAsmcompconstraintAlloc">;
    return op.Call(
        [&] {
            *constraint = TheHost().session.constraints.Add({});
            TheHost().arrays.NoteHandle(*constraint, op.name());
        },
        OUT(constraint));
}

ProError ProAsmcompconstraintFree(ProAsmcompconstraint constraint) {
    return Op<"ProAsmcompconstraintFree">.Call(
        [&] {
            RequireConstraint(constraint);
            TheHost().session.constraints.Free(constraint);
            TheHost().arrays.ForgetHandle(constraint);
        },
        ARG(constraint));
}

ProError ProAsmcompconstraintTypeSet(ProAsmcompconstraint constraint, ProAsmcompConstrType type) {
    return Op<"ProAsmcompconstraintTypeSet">.Call(
        [&] {
            ConstraintDraft& draft = RequireConstraint(constraint);
            if (!ConstraintTypeName(type)) Refuse(PRO_TK_BAD_INPUTS);
            draft.type = type;
        },
        ARG(constraint), ARG(type));
}

ProError ProAsmcompconstraintAsmreferenceSet(ProAsmcompconstraint constraint,
                                             ProSelection reference, ProDatumside side) {
    return Op<"ProAsmcompconstraintAsmreferenceSet">.Call(
        [&] { RequireConstraint(constraint).assembly = RequireReference(reference, side); },
        ARG(constraint), ARG(reference), ARG(side));
}

ProError ProAsmcompconstraintCompreferenceSet(ProAsmcompconstraint constraint,
                                              ProSelection reference, ProDatumside side) {
    return Op<"ProAsmcompconstraintCompreferenceSet">.Call(
        [&] { RequireConstraint(constraint).component = RequireReference(reference, side); },
        ARG(constraint), ARG(reference), ARG(side));
}

ProError ProAsmcompConstraintsGet(ProAsmcomp* component, ProAsmcompconstraint** constraints) {
    Operation& op = Op<"ProAsmcompConstraintsGet">;
    return op.Call(
        [&] {
            Host& host = TheHost();
            const Held held = RequireComponent(component);
            if (!held.component.constraints) Refuse(PRO_TK_E_NOT_FOUND);
            std::vector<ProAsmcompconstraint> copies;
            for (const Constraint& each : *held.component.constraints) {
                copies.push_back(
                    host.session.constraints.Add(DraftOf(each, held.assembly, held.component)));
            }
            *constraints = host.arrays.Make(copies, op.name());
            host.session.constraints.KeptIn(*constraints, std::move(copies));
        },
        GIVEN(component), OUT_ARRAY(constraints));
}

ProError ProAsmcompConstraintsSet(ProAsmcomppath* path, ProAsmcomp* component,
                                  ProAsmcompconstraint* constraints) {
    return Op<"ProAsmcompConstraintsSet">.Call(
        [&] {
            Host& host = TheHost();
            const Held held = RequireChangeable(component);
            if (!constraints) Refuse(PRO_TK_BAD_INPUTS);
            std::vector<Constraint> all;
            for (int i = 0; i < host.arrays.Size(constraints); ++i) {
                const auto made = ConstraintOf(host.session, RequireConstraint(constraints[i]),
                                               held.assembly, held.component);
                if (!made) Refuse(PRO_TK_BAD_INPUTS);
                all.push_back(*made);
            }
            held.component.constraints = std::move(all);
            held.assembly.modified = true;
            PlaceComponent(held.assembly, &held.component);
        },
        ARG(path), GIVEN(component), LIST(constraints, constraints ? SizeOfArray(constraints) : 0));
}

ProError ProAsmcompConstrRemove(ProAsmcomp* component, int index) {
    return Op<"ProAsmcompConstrRemove">.Call(
        [&] {
            const Held held = RequireChangeable(component);
            auto& list = held.component.constraints;
            const bool all = index == PRO_VALUE_UNUSED;
            if (!list || (!all && (index < 0 || index >= int(list->size())))) {
                Refuse(PRO_TK_BAD_INPUTS);
            }
            if (all) {
                list->clear();
            } else {
                list->erase(list->begin() + index);
            }
            held.assembly.modified = true;
        },
        GIVEN(component), ARG(index));
}

ProError ProAsmcompConstrRedefUI(ProAsmcomp* component) {
    return Op<"ProAsmcompConstrRedefUI">.Call(
        [&] {
            Host& host = TheHost();
            // A click that is on its way goes to what the host shows, and confirms the dialog with
            // nothing changed.
            const bool clicked = host.desk.TakeClick();
            const Held held = RequireChangeable(component);
            if (clicked) return;
            if (!RedefineConstraints(host.dialogs, held.assembly, held.component.id)) {
                Refuse(PRO_TK_USER_ABORT);
            }
        },
        GIVEN(component));
}
