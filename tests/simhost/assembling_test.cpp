// Assembling, coordinate systems and constraints at the door: where components come to be, what is
// refused, and what an assembly's file keeps.
#include <optional>

#include "hostapi/host.h"
#include "simhost/model/frames.h"
#include "simhost/model/model_file.h"
#include "simhost/trail/interpreter.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using Ids = std::vector<int>;
using Lines = std::vector<std::string>;

constexpr ProMatrix kIdentity = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};

Feature CsysAt(Vec3 at, Vec3 turn, const char* name = "") {
    Feature csys;
    csys.type = PRO_FEAT_CSYS;
    csys.placement = PlacementFrom(at, turn);
    csys.name = Wide(std::string(name));
    return csys;
}

class Assembling : public workbench::Workbench {
protected:
    // A visit that keeps what it is shown.
    static ProError Keep(ProCsys csys, ProError, ProAppData data) {
        static_cast<std::vector<ProCsys>*>(data)->push_back(csys);
        return PRO_TK_NO_ERROR;
    }
    static ProSolid Solid(const Model& model) { return static_cast<ProSolid>(model.handle); }
    std::vector<ProCsys> CsysesOf(const Model& model) {
        std::vector<ProCsys> found;
        ProSolidCsysVisit(Solid(model), Keep, nullptr, &found);
        return found;
    }
    ProAsmcomp Assemble(Model& assembly, Model& model) {
        ProMatrix place;
        std::copy(&kIdentity[0][0], &kIdentity[0][0] + 16, &place[0][0]);
        ProAsmcomp component = {};
        EXPECT_EQ(ProAsmcompAssemble(Solid(assembly), Solid(model), place, &component),
                  PRO_TK_NO_ERROR);
        return component;
    }
    ProError AssembleAt(Model& assembly, Model& model, ProMatrix place) {
        ProAsmcomp component = {};
        return ProAsmcompAssemble(Solid(assembly), Solid(model), place, &component);
    }
    ProSelection Select(Model& owner, ProCsys csys, bool withPath) {
        ProGeomitem item = {};
        EXPECT_EQ(ProCsysToGeomitem(Solid(owner), csys, &item), PRO_TK_NO_ERROR);
        int none[] = {-1};
        ProAsmcomppath path = {};
        EXPECT_EQ(ProAsmcomppathInit(Solid(owner), none, 0, &path), PRO_TK_NO_ERROR);
        ProSelection selection = nullptr;
        EXPECT_EQ(ProSelectionAlloc(withPath ? &path : nullptr, &item, &selection),
                  PRO_TK_NO_ERROR);
        return selection;
    }
    // Gives the component one constraint of this type, with the first coordinate systems of both
    // sides where it is csys on csys.
    ProError Constrain(Model& assembly, ProAsmcomp* component, Model& model,
                       ProAsmcompConstrType type) {
        ProAsmcompconstraint constraint = nullptr;
        ProAsmcompconstraintAlloc(&constraint);
        ProAsmcompconstraintTypeSet(constraint, type);
        if (type == PRO_ASM_CSYS) {
            ProSelection above = Select(assembly, CsysesOf(assembly)[0], true);
            ProSelection below = Select(model, CsysesOf(model)[0], false);
            ProAsmcompconstraintAsmreferenceSet(constraint, above, PRO_DATUM_SIDE_YELLOW);
            ProAsmcompconstraintCompreferenceSet(constraint, below, PRO_DATUM_SIDE_YELLOW);
            ProSelectionFree(&above);
            ProSelectionFree(&below);
        }
        return Set(component, {constraint});
    }
    // Sets and frees them.
    ProError Set(ProAsmcomp* component, const std::vector<ProAsmcompconstraint>& list) {
        ProArray array = nullptr;
        ProArrayAlloc(0, int(sizeof(ProAsmcompconstraint)), 1, &array);
        for (ProAsmcompconstraint each : list) ProArrayObjectAdd(&array, -1, 1, &each);
        const ProError status =
            ProAsmcompConstraintsSet(nullptr, component, static_cast<ProAsmcompconstraint*>(array));
        for (const ProAsmcompconstraint each : list) ProAsmcompconstraintFree(each);
        ProArrayFree(&array);
        return status;
    }
    ProAsmcompconstraint Made(ProAsmcompConstrType type) {
        ProAsmcompconstraint constraint = nullptr;
        ProAsmcompconstraintAlloc(&constraint);
        ProAsmcompconstraintTypeSet(constraint, type);
        return constraint;
    }
    static Feature& At(Model& assembly, const ProAsmcomp& component) {
        return *assembly.FindFeature(component.id);
    }
    static std::vector<ProAsmcompConstrType> Types(const Feature& feature) {
        std::vector<ProAsmcompConstrType> types;
        for (const Constraint& each : *feature.constraints) types.push_back(each.type);
        return types;
    }
    // A component with constraints of three different types.
    ProAsmcomp WithThree(Model& assembly) {
        ProAsmcomp component = Assemble(assembly, Part("plate"));
        EXPECT_EQ(
            Set(&component, {Made(PRO_ASM_FIX), Made(PRO_ASM_DEF_PLACEMENT), Made(PRO_ASM_AUTO)}),
            PRO_TK_NO_ERROR);
        return component;
    }
};

// --- Coordinate systems ---

TEST_F(Assembling, CoordinateSystemsAreVisitedInTheOrderOfTheTree) {
    Model& part = Part("plate");
    Feature own = CsysAt({1, 0, 0}, {});
    own.id = 20;
    own.itemId = 99;
    part.AddFeature(own);
    Feature first = CsysAt({2, 0, 0}, {}, "CS_低");
    first.id = 5;
    part.AddFeature(first);
    const auto found = CsysesOf(part);
    ASSERT_EQ(found.size(), 2u);
    int id = 0;
    EXPECT_EQ(ProCsysIdGet(found[0], &id), PRO_TK_NO_ERROR);
    EXPECT_EQ(id, 99) << "a number of its own";
    EXPECT_EQ(ProCsysIdGet(found[1], &id), PRO_TK_NO_ERROR);
    EXPECT_EQ(id, 6) << "one more than its feature's";
    ProGeomitem item = {};
    EXPECT_EQ(ProCsysToGeomitem(Solid(part), found[1], &item), PRO_TK_NO_ERROR);
    EXPECT_EQ(item.type, PRO_CSYS);
    EXPECT_EQ(item.id, 6);
    ProName name = {};
    EXPECT_EQ(ProModelitemNameGet(&item, name), PRO_TK_NO_ERROR);
    EXPECT_EQ(WideText(name), WIDE("CS_低"));
    EXPECT_EQ(CsysesOf(part), found) << "handles stay";
}

TEST_F(Assembling, AVisitToCoordinateSystemsTellsThatNoneWasTaken) {
    Model& part = Part("plate");
    EXPECT_EQ(ProSolidCsysVisit(Solid(part), Keep, nullptr, nullptr), PRO_TK_E_NOT_FOUND);
    part.AddFeature(CsysAt({}, {}));
    const auto none = [](ProCsys, ProAppData) { return PRO_TK_CONTINUE; };
    EXPECT_EQ(ProSolidCsysVisit(Solid(part), nullptr, none, nullptr), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(Complaints(), Lines{});
    const auto all = [](ProCsys, ProAppData) { return PRO_TK_NO_ERROR; };
    ProSolidCsysVisit(Solid(part), nullptr, all, nullptr);
    EXPECT_EQ(Complaints().size(), 1u) << "an action that is needed is missing";
}

TEST_F(Assembling, AnotherModelsCoordinateSystemAndOneThatIsGoneAreComplaints) {
    Model& part = Part("plate");
    Model& other = Part("lid");
    part.AddFeature(CsysAt({}, {}));
    const ProCsys csys = CsysesOf(part).at(0);
    ProGeomitem item = {};
    EXPECT_EQ(ProCsysToGeomitem(Solid(other), csys, &item), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints().size(), 1u);
    part.RemoveFeature(part.features().back().id);
    int id = 0;
    EXPECT_EQ(ProCsysIdGet(csys, &id), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints().size(), 1u);
    EXPECT_EQ(ProCsysIdGet(nullptr, &id), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints(), Lines{});
}

TEST_F(Assembling, ParentsOfAFeature) {
    Model& part = Part("plate");
    part.AddFeature(CsysAt({}, {}));
    Feature second = CsysAt({}, {});
    second.parents = {part.features()[0].id};
    part.AddFeature(second);
    int* parents = nullptr;
    int count = -1;
    ProFeature feature = {};
    EXPECT_EQ(ProFeatureInit(Solid(part), 1, &feature), PRO_TK_NO_ERROR);
    EXPECT_EQ(ProFeatureParentsGet(&feature, &parents, &count), PRO_TK_NO_ERROR);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(parents, nullptr);
    EXPECT_EQ(ProFeatureInit(Solid(part), 2, &feature), PRO_TK_NO_ERROR);
    EXPECT_EQ(ProFeatureParentsGet(&feature, &parents, &count), PRO_TK_NO_ERROR);
    ASSERT_EQ(count, 1);
    EXPECT_EQ(parents[0], 1);
    ProArray array = parents;
    ProArrayFree(&array);
    EXPECT_EQ(ProFeatureInit(Solid(part), 77, &feature), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(feature.id, 2) << "the place stays as it was";
}

// --- Assembling ---

TEST_F(Assembling, AComponentStandsAtTheMatrixWithoutConstraints) {
    Model& top = Assembly("top");
    Model& plate = Part("plate");
    ProMatrix place = {{0, 1, 0, 0}, {-1, 0, 0, 0}, {0, 0, 1, 0}, {10, 20, 30, 1}};
    ProAsmcomp component = {};
    ASSERT_EQ(ProAsmcompAssemble(Solid(top), Solid(plate), place, &component), PRO_TK_NO_ERROR);
    const Feature& feature = At(top, component);
    EXPECT_EQ(feature.placement.origin, (Vec3{10, 20, 30}));
    EXPECT_EQ(feature.placement.axes[0], (Vec3{0, 1, 0}));
    EXPECT_EQ(feature.model, &plate);
    EXPECT_FALSE(feature.constraints);
    EXPECT_TRUE(top.modified);
    ProAsmcompconstraint* list = nullptr;
    EXPECT_EQ(ProAsmcompConstraintsGet(&component, &list), PRO_TK_E_NOT_FOUND);
}

TEST_F(Assembling, RefusesWhatWouldBeNoAssembly) {
    Model& top = workbench::MakeModels("top: sub(plate)");
    Model& sub = workbench::ModelNamed("sub");
    Model& plate = workbench::ModelNamed("plate");
    ProMatrix place;
    std::copy(&kIdentity[0][0], &kIdentity[0][0] + 16, &place[0][0]);
    EXPECT_EQ(AssembleAt(top, top, place), PRO_TK_BAD_INPUTS) << "itself";
    EXPECT_EQ(AssembleAt(sub, top, place), PRO_TK_BAD_INPUTS) << "what contains it";
    EXPECT_EQ(AssembleAt(plate, sub, place), PRO_TK_BAD_INPUTS) << "into a part";
    ProAsmcomp component = {};
    EXPECT_EQ(ProAsmcompAssemble(Solid(top), nullptr, place, &component), PRO_TK_BAD_INPUTS);
    place[0][0] = 2;
    EXPECT_EQ(AssembleAt(top, plate, place), PRO_TK_INVALID_MATRIX) << "a scale";
    place[0][0] = -1;
    EXPECT_EQ(AssembleAt(top, plate, place), PRO_TK_INVALID_MATRIX) << "a mirror";
    place[0][0] = 1;
    top.readOnly = true;
    EXPECT_EQ(AssembleAt(top, plate, place), PRO_TK_NO_PERMISSION);
    EXPECT_EQ(top.features().size(), 1u);
    EXPECT_EQ(sub.features().size(), 1u);
    EXPECT_EQ(Complaints(), Lines{});
}

// --- The effect of constraints ---

// Both frames are off their origins and turned: x of the plate's csys is y of the plate, and the
// assembly's csys is turned by a quarter about x.
TEST_F(Assembling, CsysOnCsysMakesBothFramesOne) {
    Model& top = Assembly("top");
    Model& plate = Part("plate");
    top.AddFeature(CsysAt({100, 0, 0}, {90, 0, 0}));
    plate.AddFeature(CsysAt({0, 0, 5}, {0, 0, 90}));
    ProAsmcomp component = Assemble(top, plate);
    ASSERT_EQ(Constrain(top, &component, plate, PRO_ASM_CSYS), PRO_TK_NO_ERROR);
    const Placement& place = At(top, component).placement;
    // The csys in the plate is at (0, 0, 5), in the assembly it must be at (100, 0, 0); the plate's
    // z is the assembly's -y there, so the plate's origin is 5 the other way.
    const Placement csys = Compose(place, plate.features()[0].placement);
    EXPECT_TRUE(IsSamePlace(csys, top.features()[0].placement));
    EXPECT_TRUE(IsSamePlace(place, PlacementFrom({100, 5, 0}, TurnOf(place))))
        << place.origin.x << ' ' << place.origin.y << ' ' << place.origin.z;
}

// The plate's csys is one inch up, the assembly's two inches along x, which it gives in inches.
TEST_F(Assembling, CsysOnCsysHoldsAcrossUnits) {
    Model& top = Assembly("top");
    Model& plate = Part("plate");
    top.AddFeature(CsysAt({2, 0, 0}, {}));
    plate.AddFeature(CsysAt({0, 0, 25.4}, {}));
    const WideText inches = WIDE("inch Pound Second (IPS)");
    SetPrincipalSystem(top, *top.units.Find(inches), Conversion::SameDimensions, false);
    ProAsmcomp component = Assemble(top, plate);
    ASSERT_EQ(Constrain(top, &component, plate, PRO_ASM_CSYS), PRO_TK_NO_ERROR);
    EXPECT_TRUE(IsSamePlace(At(top, component).placement, PlacementFrom({2, 0, -1}, {})));
}

TEST_F(Assembling, AMovedCsysTakesTheComponentAlongWithTheNextRegeneration) {
    Model& top = Assembly("top");
    Model& plate = Part("plate");
    top.AddFeature(CsysAt({100, 0, 0}, {}));
    plate.AddFeature(CsysAt({0, 0, 0}, {}));
    ProAsmcomp component = Assemble(top, plate);
    Constrain(top, &component, plate, PRO_ASM_CSYS);
    top.MutableFeatures()[0].placement.origin = {7, 0, 0};
    EXPECT_EQ(At(top, component).placement.origin, (Vec3{100, 0, 0}));
    Model& mill = Manufacturing("mill", top);
    EXPECT_EQ(ProSolidRegenerate(Solid(mill), 0), PRO_TK_NO_ERROR);
    EXPECT_EQ(At(top, component).placement.origin, (Vec3{7, 0, 0}));
    top.MutableFeatures()[0].placement.origin = {8, 0, 0};
    EXPECT_EQ(ProAsmcompRegenerate(&component, PRO_B_TRUE), PRO_TK_NO_ERROR);
    EXPECT_EQ(At(top, component).placement.origin, (Vec3{8, 0, 0}));
    EXPECT_EQ(ProSolidRegenerate(nullptr, 0), PRO_TK_BAD_INPUTS);
}

TEST_F(Assembling, AFixedComponentStaysWhereItIs) {
    Model& top = Assembly("top");
    Model& plate = Part("plate");
    top.AddFeature(CsysAt({100, 0, 0}, {}));
    plate.AddFeature(CsysAt({0, 0, 0}, {}));
    ProAsmcomp component = Assemble(top, plate);
    Constrain(top, &component, plate, PRO_ASM_CSYS);
    EXPECT_EQ(Constrain(top, &component, plate, PRO_ASM_FIX), PRO_TK_NO_ERROR);
    top.MutableFeatures()[0].placement.origin = {7, 0, 0};
    EXPECT_EQ(ProSolidRegenerate(Solid(top), 0), PRO_TK_NO_ERROR);
    EXPECT_EQ(At(top, component).placement.origin, (Vec3{100, 0, 0}));
    EXPECT_EQ(Types(At(top, component)), std::vector{PRO_ASM_FIX});
}

TEST_F(Assembling, AConstraintWithoutATypeOrAReferenceIsRefusedAndChangesNothing) {
    Model& top = Assembly("top");
    ProAsmcomp component = Assemble(top, Part("plate"));
    ProAsmcompconstraint bare = nullptr;
    ProAsmcompconstraintAlloc(&bare);
    EXPECT_EQ(Set(&component, {bare}), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Set(&component, {Made(PRO_ASM_CSYS)}), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ProAsmcompConstraintsSet(nullptr, &component, nullptr), PRO_TK_BAD_INPUTS);
    ProAsmcomp none = {};
    EXPECT_EQ(Set(&none, {Made(PRO_ASM_FIX)}), PRO_TK_BAD_INPUTS);
    top.readOnly = true;
    EXPECT_EQ(Set(&component, {Made(PRO_ASM_FIX)}), PRO_TK_NO_PERMISSION);
    EXPECT_FALSE(At(top, component).constraints);
    EXPECT_EQ(Complaints(), Lines{});
}

TEST_F(Assembling, AReferenceIntoAnotherAssemblyIsRefused) {
    Model& top = Assembly("top");
    Model& other = Assembly("other");
    Model& plate = Part("plate");
    other.AddFeature(CsysAt({}, {}));
    plate.AddFeature(CsysAt({}, {}));
    ProAsmcomp component = Assemble(top, plate);
    EXPECT_EQ(Constrain(other, &component, plate, PRO_ASM_CSYS), PRO_TK_BAD_INPUTS);
    EXPECT_FALSE(At(top, component).constraints);
}

// --- Reading and removing ---

TEST_F(Assembling, RemovingMovesTheLaterOnesUpAndRefusesWhatIsNotThere) {
    Model& top = Assembly("top");
    ProAsmcomp component = WithThree(top);
    // At rising places every second one stays.
    EXPECT_EQ(ProAsmcompConstrRemove(&component, 0), PRO_TK_NO_ERROR);
    EXPECT_EQ(Types(At(top, component)), (std::vector{PRO_ASM_DEF_PLACEMENT, PRO_ASM_AUTO}));
    EXPECT_EQ(ProAsmcompConstrRemove(&component, 1), PRO_TK_NO_ERROR);
    EXPECT_EQ(ProAsmcompConstrRemove(&component, 2), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Types(At(top, component)), std::vector{PRO_ASM_DEF_PLACEMENT});
    EXPECT_EQ(ProAsmcompConstrRemove(&component, -1), PRO_TK_NO_ERROR) << "all of them";
    ProAsmcompconstraint* list = nullptr;
    EXPECT_EQ(ProAsmcompConstraintsGet(&component, &list), PRO_TK_NO_ERROR);
    int size = -1;
    EXPECT_EQ(ProArraySizeGet(list, &size), PRO_TK_NO_ERROR);
    EXPECT_EQ(size, 0);
    ProArray array = list;
    ProArrayFree(&array);
    EXPECT_EQ(Complaints(), Lines{});
}

TEST_F(Assembling, TheConstraintsInAnArrayAreCopiesThatEndWithIt) {
    Model& top = Assembly("top");
    ProAsmcomp component = WithThree(top);
    ProAsmcompconstraint* list = nullptr;
    ASSERT_EQ(ProAsmcompConstraintsGet(&component, &list), PRO_TK_NO_ERROR);
    const ProAsmcompconstraint first = list[0];
    EXPECT_EQ(ProAsmcompconstraintTypeSet(first, PRO_ASM_MATE), PRO_TK_NO_ERROR);
    EXPECT_EQ(Types(At(top, component))[0], PRO_ASM_FIX);
    ProArray array = list;
    ProArrayFree(&array);
    EXPECT_EQ(ProAsmcompconstraintTypeSet(first, PRO_ASM_MATE), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints().size(), 1u);
}

TEST_F(Assembling, WhatIsNotFreedIsHeld) {
    ProAsmcompconstraint constraint = nullptr;
    ProAsmcompconstraintAlloc(&constraint);
    EXPECT_EQ(host().arrays.HeldByMistake().size(), 1u);
    EXPECT_EQ(ProAsmcompconstraintFree(constraint), PRO_TK_NO_ERROR);
    EXPECT_EQ(host().arrays.HeldByMistake().size(), 0u);
    Model& top = Assembly("top");
    ProModelitem item = {PRO_ASSEMBLY, -1, top.handle};
    ProSelection selection = nullptr;
    EXPECT_EQ(ProSelectionAlloc(nullptr, &item, &selection), PRO_TK_NO_ERROR);
    EXPECT_EQ(host().arrays.HeldByMistake().size(), 1u);
    EXPECT_EQ(ProSelectionFree(&selection), PRO_TK_NO_ERROR);
    EXPECT_EQ(selection, nullptr);
    EXPECT_EQ(ProSelectionFree(&selection), PRO_TK_BAD_INPUTS) << "a null one, quietly";
    EXPECT_EQ(Complaints(), Lines{});
}

// --- The host's dialog ---

TEST_F(Assembling, TheUserRedefinesConstraintsInADialog) {
    Model& top = Assembly("top");
    ProAsmcomp component = WithThree(top);
    ProError status = PRO_TK_GENERAL_ERROR;
    PlayDuring([&] { status = ProAsmcompConstrRedefUI(&component); },
               "@ expect dialog comp_placement\n"
               "~ Input `comp_placement` `Number` `2`\n"
               "~ Activate `comp_placement` `Delete`\n"
               "~ Activate `comp_placement` `Fix`\n"
               "~ Activate `comp_placement` `OK`\n");
    EXPECT_EQ(status, PRO_TK_NO_ERROR);
    EXPECT_EQ(Types(At(top, component)), (std::vector{PRO_ASM_FIX, PRO_ASM_AUTO, PRO_ASM_FIX}));
}

TEST_F(Assembling, ACancelledRedefinitionChangesNothing) {
    Model& top = Assembly("top");
    ProAsmcomp component = Assemble(top, Part("plate"));
    top.modified = false;
    ProError status = PRO_TK_NO_ERROR;
    PlayDuring([&] { status = ProAsmcompConstrRedefUI(&component); },
               "~ Activate `comp_placement` `Fix`\n~ Close `comp_placement`\n");
    EXPECT_EQ(status, PRO_TK_USER_ABORT);
    EXPECT_FALSE(At(top, component).constraints);
    EXPECT_FALSE(top.modified);
}

TEST_F(Assembling, AComponentThatTheUserDeletesInTheDialogIsRefusedQuietlyFromThenOn) {
    Model& top = Assembly("top");
    ProAsmcomp component = WithThree(top);
    PlayDuring([&] { ProAsmcompConstrRedefUI(&component); },
               "~ Activate `comp_placement` `RemoveComponent` 1\n"
               "~ Activate `comp_placement` `OK`\n");
    EXPECT_TRUE(top.features().empty());
    EXPECT_EQ(ProAsmcompRegenerate(&component, PRO_B_TRUE), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ProAsmcompConstrRedefUI(&component), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints(), Lines{});
}

// --- Files ---

TEST_F(Assembling, AFileKeepsCsysesParentsAndConstraints) {
    const std::string text =
        "[model]\ntype = \"assembly\"\n"
        "\n[[feature]]\nid = 1\ntype = 923\n"
        "\n[[feature]]\nid = 3\ntype = 979\nname = \"CS\"\nparents = [1]\ncsys = 12\n"
        "at = [1, 2, 3]\nturn = [0, 0, 90]\n"
        "\n[[feature]]\nid = 4\ntype = 1000\nmodel = \"plate.prt\"\n"
        "\n[[feature.constraint]]\ntype = \"csys\"\ncomponent = \"csys#2\"\n"
        "component_side = \"yellow\"\nassembly = \"7/csys#12\"\nassembly_side = \"red\"\n"
        "\n[[feature.constraint]]\ntype = \"fix\"\n"
        "\n[[feature]]\nid = 7\ntype = 1000\nmodel = \"sub.asm\"\nconstraint = []\n";
    Model& top = Assembly("top");
    ReadModelText(text, "top.asm.1", &top);
    EXPECT_EQ(ModelText(top), text);
    ASSERT_EQ(top.features().size(), 4u);
    const Constraint& csys = top.features()[2].constraints->at(0);
    EXPECT_EQ(csys.assembly->path, Ids{7});
    EXPECT_EQ(csys.assembly->side, PRO_DATUM_SIDE_RED);
    EXPECT_EQ(csys.component->id, 2);
    EXPECT_TRUE(top.features()[3].constraints->empty());
}

TEST_F(Assembling, ScriptsLookAtConstraintsAndPlaces) {
    Model& top = workbench::MakeModels("top: plate");
    Open(top);
    top.MutableFeatures()[0].placement = PlacementFrom({1, 2, 3}, {0, 0, 90});
    EXPECT_EQ(RunScript("@ expect constraints plate none\n"
                        "@ expect place plate 1 2 3 turn 0 0 90\n"),
              Lines{});
    EXPECT_EQ(RunScript("@ expect place plate 1 2 3\n").size(), 1u);
    top.MutableFeatures()[0].constraints.emplace();
    EXPECT_EQ(RunScript("@ expect constraints plate empty\n"), Lines{});
    top.MutableFeatures()[0].constraints->push_back({PRO_ASM_FIX, {}, {}});
    EXPECT_EQ(RunScript("@ expect constraints plate fix\n"), Lines{});
    EXPECT_EQ(RunScript("@ expect constraints plate none\n").size(), 1u);
}

}  // namespace
