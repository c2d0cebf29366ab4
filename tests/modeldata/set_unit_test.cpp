// SetUnit, pressed as a designer presses it: which system each model has then, by which calls.
#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

#include "tests/support/call_order.h"
#include "tests/support/desk.h"
#include "tests/support/observed.h"

namespace {

using namespace simhost;
using workbench::Joined;
using workbench::MakeModels;
using workbench::ModelNamed;
using workbench::Names;
using workbench::ObservedBench;

const char* const kInches = "inch Pound Second (IPS)";
const char* const kMillimetres = "millimeter Newton Second (mmNs)";
const char* const kDone = "\t模型批量单位设置完成|岚枢QQ②群:100200301，①群:10020030\t";

std::string SystemOf(const Model& model) {
    return Utf8(model.units.Principal().name);
}
double WidthOf(const Model& model) {
    return model.partData.solids[0].size.x;
}

const WideText kResource = WideText(workbench::kTextFolder) + WIDE("\\text\\resource\\SetUnit.res");

class SetUnit : public ObservedBench {
protected:
    void SetUp() override { Start(); }

    // Opens the dialog, does `steps` there, applies and closes.
    static std::string Lines(const std::string& steps) {
        return "~ Command `SetUnit`\n" + steps +
               "~ Activate `SetUnit` `ApplyBt`\n@ ok\n~ Activate `SetUnit` `Close`";
    }
    static std::string System(const std::string& item) {
        return "~ Select `SetUnit` `UnitRadio` 1 `" + item + "`\n";
    }
    static std::string Option(const std::string& item) {
        return "~ Select `SetUnit` `OptionRadio` 1 `" + item + "`\n";
    }
    void Apply(const std::string& system, const std::string& option = "SAME_SIZE") {
        Play(Lines(System(system) + Option(option)));
    }
    // The same for a model whose mode greys the command.
    void ApplyAllTheSame(const std::string& system) {
        PlayDuring([&] { host().commands.Newest("SetUnit")->action(nullptr, nullptr, nullptr); },
                   System(system) +
                       "~ Activate `SetUnit` `ApplyBt`\n@ ok\n"
                       "~ Activate `SetUnit` `Close`");
    }
    Names LinesOf(const std::string& operation) { return ObservedBench::Lines(operation); }
    Model& OnePart() {
        Model& part = Part("plate");
        Open(part);
        return part;
    }
};

// --- Every row of the two tables ---

TEST_F(SetUnit, EachItemSetsTheSystemOfItsNameWhateverItsCase) {
    const struct {
        const char* item;
        const char* system;
    } rows[] = {
        {"mmKs", "Millimeter Kilogram Sec (mmKs)"},
        {"CGS", "centimeter Gram Second (CGS)"},
        {"mmNs", "millimeter Newton Second (mmNs)"},
        {"MKS", "meter Kilogram Second (MKS)"},
        {"IPS", "inch Pound Second (IPS)"},
        {"FPS", "foot Pound Second (FPS)"},
        {"mmgs", "mmgs"},
    };
    const Model& part = OnePart();
    for (const auto& row : rows) {
        SCOPED_TRACE(row.item);
        Apply(row.item);
        EXPECT_EQ(SystemOf(part), row.system);
        EXPECT_EQ(AllBoxes().back().text, Wide(kDone));
    }
    EXPECT_EQ(AllBoxes().back().flags, 0x40000u);
    EXPECT_EQ(AllBoxes().back().caption, WIDE("岚枢工具By墨川听雨,QQ:100200300"));
}

TEST_F(SetUnit, TheSystemsAreAskedForByTheseNames) {
    const struct {
        const char* item;
        WideText system;
    } rows[] = {
        {"mmKs", WIDE("millimeter Kilogram Sec (mmKs)")},
        {"CGS", WIDE("Centimeter Gram Second (CGS)")},
        {"mmNs", WIDE("Millimeter Newton Second (mmNs)")},
        {"MKS", WIDE("Meter Kilogram Second (MKS)")},
        {"IPS", WIDE("Inch Pound Second (IPS)")},
        {"FPS", WIDE("Foot Pound Second (FPS)")},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.item);
        // Of two names the one that differs in more than its case is another system.
        Model& part = Part(std::string("part_") + row.item);
        part.units.systems = {{WIDE("none"), UsualSystems()[0].units},
                              {row.system + WIDE(" "), UsualSystems()[0].units},
                              {row.system, UsualSystems()[0].units}};
        part.units.principal = 0;
        Open(part);
        Apply(row.item);
        EXPECT_EQ(part.units.Principal().name, row.system);
    }
}

TEST_F(SetUnit, SameSizeConvertsTheNumbersAndSameDimensionsKeepsThem) {
    const Model& part = OnePart();
    Apply("IPS", "SAME_SIZE");
    EXPECT_EQ(WidthOf(part), 10 / 25.4);
    Apply("mmNs", "SAME_DIMS");
    EXPECT_EQ(WidthOf(part), 10 / 25.4);
    EXPECT_EQ(SystemOf(part), kMillimetres);
    EXPECT_TRUE(part.modified);
}

TEST_F(SetUnit, TheConversionGoesToTheHostAsACode) {
    OnePart();
    Record();
    Apply("IPS", "SAME_DIMS");
    Apply("FPS", "SAME_SIZE");
    Recorded();
    EXPECT_EQ(LinesOf("ProMdlPrincipalunitsystemSet"),
              (Names{"ProMdlPrincipalunitsystemSet(model=plate.prt, system=\"inch Pound Second "
                     "(IPS)\" of plate.prt, conversion=0, ignoreParameterUnits=1, "
                     "regeneration=-1) = 0",
                     "ProMdlPrincipalunitsystemSet(model=plate.prt, system=\"foot Pound Second "
                     "(FPS)\" of plate.prt, conversion=1, ignoreParameterUnits=1, "
                     "regeneration=-1) = 0"}));
}

// --- The dialog ---

TEST_F(SetUnit, TheDialogStandsAsItIsShippedAndStaysOpenAfterAPress) {
    const Model& part = OnePart();
    Play(
        "~ Command `SetUnit`\n"
        "~ Activate `SetUnit` `ApplyBt`\n@ ok\n"
        "@ expect dialog SetUnit\n" +
        System("IPS") +
        "~ Activate `SetUnit` `ApplyBt`\n@ ok\n"
        "@ expect dialog SetUnit\n"
        "~ Activate `SetUnit` `Close`");
    // Sizes stay unless the designer wants it otherwise.
    EXPECT_EQ(SystemOf(part), kInches);
    EXPECT_EQ(WidthOf(part), 10 / 25.4);
}

TEST_F(SetUnit, ClosingTheWindowEndsTheDialog) {
    const Model& part = OnePart();
    Play("~ Command `SetUnit`\n" + System("IPS") + "~ Close `SetUnit`");
    EXPECT_EQ(SystemOf(part), kMillimetres);
    EXPECT_EQ(Boxes(), Names{});
}

TEST_F(SetUnit, TheDialogIsMadeShownAndDestroyedWithItsActions) {
    OnePart();
    host().journal.Start();
    Play("~ Command `SetUnit`\n~ Activate `SetUnit` `Close`");
    host().journal.Stop();
    EXPECT_EQ(workbench::CallOrder(host().journal.lines(),
                                   {"ProUIDialogCreate", "ProUIPushbuttonActivateActionSet",
                                    "ProUIDialogCloseActionSet", "ProUIDialogActivate",
                                    "ProUIDialogExit", "ProUIDialogDestroy"}),
              (Names{"ProUIDialogCreate", "ProUIPushbuttonActivateActionSet ApplyBt",
                     "ProUIPushbuttonActivateActionSet Close", "ProUIDialogCloseActionSet",
                     "ProUIDialogActivate", "ProUIDialogExit", "ProUIDialogDestroy"}));
}

TEST_F(SetUnit, AStepOfTheDialogThatFailsIsToldAndEndsTheCommand) {
    OnePart();
    const std::pair<const char*, const char*> rows[] = {
        {"ProUIDialogCreate", "UIDialog Create error!"},
        {"ProUIDialogActivate", "UIDialog Activate error!"},
    };
    for (const auto& [operation, box] : rows) {
        SCOPED_TRACE(operation);
        Fail(operation);
        Play("~ Command `SetUnit`\n@ ok");
        EXPECT_EQ(Boxes().back(), box);
        EXPECT_EQ(AllBoxes().back().flags, 0u);
        host().dialogs.Clear();
    }
    Fail("ProUIDialogDestroy");
    Play("~ Command `SetUnit`\n~ Activate `SetUnit` `Close`\n@ ok");
    EXPECT_EQ(Boxes().back(), "UIDialog Destroy error!");
}

TEST_F(SetUnit, AnUnselectedSystemMatchesNothingAndTheBoxStillComes) {
    const Model& part = OnePart();
    std::string resource = Read(kResource);
    const std::string line = "(UnitRadio.SelectedNames        \"mmNs\")";
    ASSERT_NE(resource.find(line), std::string::npos);
    resource.erase(resource.find(line), line.size());
    Write(kResource, resource);
    host().journal.Start();
    Play(Lines(""));
    host().journal.Stop();
    EXPECT_EQ(Boxes(), Names{kDone});
    EXPECT_FALSE(part.modified);
    EXPECT_EQ(LinesOf("ProMdlUnitsystemsCollect").size(), 1u);
    EXPECT_EQ(LinesOf("ProMdlPrincipalunitsystemSet"), Names{});
}

TEST_F(SetUnit, AnUnknownItemMatchesNothing) {
    const Model& part = OnePart();
    std::string resource = Read(kResource);
    // Items count exactly: this one differs in its case.
    for (std::size_t at = 0; (at = resource.find("\"IPS\"", at)) != std::string::npos;) {
        resource.replace(at, 5, "\"Ips\"");
    }
    Write(kResource, resource);
    Apply("Ips");
    EXPECT_EQ(SystemOf(part), kMillimetres);
    EXPECT_EQ(Boxes(), Names{kDone});
}

TEST_F(SetUnit, AnUnknownOptionIsTheCodeZero) {
    const Model& part = OnePart();
    Fail("ProUIRadiogroupSelectednamesGet", {.n = 2});
    Apply("IPS", "SAME_SIZE");
    EXPECT_EQ(SystemOf(part), kInches);
    EXPECT_EQ(WidthOf(part), 10);
}

// --- Which models ---

TEST_F(SetUnit, APartIsConvertedAloneWithoutAWalk) {
    OnePart();
    Record();
    Apply("IPS");
    Recorded();
    EXPECT_EQ(
        workbench::CallOrder(
            host().journal.lines(),
            {"ProUIRadiogroupSelectednamesGet", "ProMdlCurrentGet", "ProMdlTypeGet",
             "ProArrayAlloc", "ProSolidFeatVisit", "ProMdlUnitsystemsCollect", "MessageBoxW"}),
        (Names{"ProUIRadiogroupSelectednamesGet UnitRadio",
               "ProUIRadiogroupSelectednamesGet OptionRadio", "ProMdlCurrentGet plate.prt",
               "ProMdlTypeGet plate.prt", "ProMdlUnitsystemsCollect plate.prt", "MessageBoxW"}));
}

TEST_F(SetUnit, EveryModelBelowAnAssemblyIsConvertedOnce) {
    Model& top = MakeModels("top: a x3, sub(b, s!sheet), sub, k!skeleton");
    Open(top);
    Record();
    Apply("IPS");
    Recorded();
    for (const char* name : {"top", "a", "sub", "b", "s", "k"}) {
        EXPECT_EQ(SystemOf(ModelNamed(name)), kInches) << name;
    }
    EXPECT_EQ(WidthOf(ModelNamed("a")), 10 / 25.4);
    // In the order of handles, each model once.
    const Names models =
        workbench::ByHandle({&top, &ModelNamed("a"), &ModelNamed("sub"), &ModelNamed("b"),
                             &ModelNamed("s"), &ModelNamed("k")});
    Names collected;
    for (const std::string& line : LinesOf("ProMdlUnitsystemsCollect")) {
        const std::size_t from = line.find('=') + 1;
        collected.push_back(line.substr(from, line.find(',') - from));
    }
    EXPECT_EQ(collected, models);
}

TEST_F(SetUnit, WhatIsSuppressedOrInvisibleKeepsItsUnitsAndWhatIsHiddenDoesNot) {
    Open(MakeModels("top: a!suppressed, b!invisible, c!hidden, d"));
    Apply("IPS");
    EXPECT_EQ(SystemOf(ModelNamed("a")), kMillimetres);
    EXPECT_EQ(SystemOf(ModelNamed("b")), kMillimetres);
    EXPECT_EQ(SystemOf(ModelNamed("c")), kInches);
    EXPECT_EQ(SystemOf(ModelNamed("d")), kInches);
}

TEST_F(SetUnit, AnEmptyAssemblyIsConvertedItself) {
    Model& top = Assembly("top");
    Open(top);
    Apply("IPS");
    EXPECT_EQ(SystemOf(top), kInches);
    EXPECT_EQ(Boxes(), Names{kDone});
}

TEST_F(SetUnit, AComponentThatIsNotInMemoryIsPassedOver) {
    Model& top = MakeModels("top: a, b!missing, c");
    Open(top);
    Apply("IPS");
    EXPECT_EQ(SystemOf(ModelNamed("c")), kInches);
    EXPECT_EQ(SystemOf(top), kInches);
}

TEST_F(SetUnit, AManufacturingModelIsConvertedAlone) {
    Model& mill = MakeModels("mill.mfg: top(a)");
    Open(mill);
    EXPECT_NE(host().commands.Access("SetUnit"), ACCESS_AVAILABLE);
    ApplyAllTheSame("IPS");
    EXPECT_EQ(SystemOf(mill), kInches);
    EXPECT_EQ(SystemOf(ModelNamed("top")), kMillimetres);
    EXPECT_EQ(SystemOf(ModelNamed("a")), kMillimetres);
    EXPECT_EQ(Boxes(), Names{kDone});
}

TEST_F(SetUnit, ADrawingHasNoUnitsAndTheBoxStillComes) {
    Open(MakeModels("plate.drw: A3"));
    ApplyAllTheSame("IPS");
    ApplyAllTheSame("mmgs");
    EXPECT_EQ(Boxes(), (Names{kDone, kDone}));
}

TEST_F(SetUnit, WithoutACurrentModelNothingIsAskedAndTheBoxComes) {
    Record();
    ApplyAllTheSame("mmgs");
    Recorded();
    EXPECT_EQ(LinesOf("ProMdlTypeGet"), Names{});
    EXPECT_EQ(LinesOf("ProMdlUnitsystemsCollect"), Names{});
    EXPECT_EQ(Boxes(), Names{kDone});
}

TEST_F(SetUnit, NothingIsRegeneratedOrRefreshed) {
    Model& top = MakeModels("top: a");
    Open(top);
    const int repaints = host().session.current->repaints;
    Apply("IPS");
    EXPECT_EQ(top.treeRefreshes, 0);
    EXPECT_EQ(host().session.current->repaints, repaints);
}

// --- mmgs is made first ---

TEST_F(SetUnit, TheSystemIsMadeOfFourUnitsSetFoundAndSetAgain) {
    const Model& part = OnePart();
    Record();
    Apply("mmgs");
    Recorded();
    const std::string set =
        "ProMdlPrincipalunitsystemSet(model=plate.prt, system=\"mmgs\" of plate.prt, conversion=1, "
        "ignoreParameterUnits=1, regeneration=-1) = 0";
    EXPECT_EQ(LinesOf("ProArrayAlloc"),
              Names{"ProArrayAlloc(objects=4, objectSize=72, step=1) = 0"});
    EXPECT_EQ(LinesOf("ProUnitInit"),
              (Names{"ProUnitInit(model=plate.prt, name=\"mm\", unit=\"mm\" of plate.prt) = 0",
                     "ProUnitInit(model=plate.prt, name=\"g\", unit=\"g\" of plate.prt) = 0",
                     "ProUnitInit(model=plate.prt, name=\"sec\", unit=\"sec\" of plate.prt) = 0",
                     "ProUnitInit(model=plate.prt, name=\"C\", unit=\"C\" of plate.prt) = 0"}));
    EXPECT_EQ(LinesOf("ProMdlUnitsystemCreate"),
              Names{"ProMdlUnitsystemCreate(model=plate.prt, type=1, name=\"mmgs\", units=[\"mm\" "
                    "of plate.prt, \"g\" of plate.prt, \"sec\" of plate.prt, \"C\" of plate.prt], "
                    "system=\"mmgs\" of plate.prt) = 0"});
    EXPECT_EQ(LinesOf("ProMdlPrincipalunitsystemSet"), (Names{set, set}));
    EXPECT_EQ(SystemOf(part), "mmgs");
    EXPECT_EQ(part.units.systems.size(), 7u);
}

TEST_F(SetUnit, TheArrayIsFreedBeforeTheSystemsAreCollected) {
    OnePart();
    host().journal.Start();
    Apply("mmgs");
    host().journal.Stop();
    EXPECT_EQ(workbench::CallOrder(host().journal.lines(),
                                   {"ProArrayAlloc", "ProArrayFree", "ProArraySizeGet",
                                    "ProUnitInit", "ProMdlUnitsystemCreate",
                                    "ProMdlUnitsystemsCollect", "ProMdlPrincipalunitsystemSet"}),
              (Names{"ProArrayAlloc", "ProUnitInit plate.prt", "ProUnitInit plate.prt",
                     "ProUnitInit plate.prt", "ProUnitInit plate.prt",
                     "ProMdlUnitsystemCreate plate.prt", "ProMdlPrincipalunitsystemSet plate.prt",
                     "ProArrayFree", "ProMdlUnitsystemsCollect plate.prt", "ProArraySizeGet",
                     "ProMdlPrincipalunitsystemSet plate.prt", "ProArrayFree"}));
}

TEST_F(SetUnit, SettingItTwiceInOnePressConvertsOnce) {
    Model& part = OnePart();
    Apply("IPS", "SAME_DIMS");
    EXPECT_EQ(WidthOf(part), 10);
    Apply("mmgs", "SAME_SIZE");
    EXPECT_EQ(WidthOf(part), 254);
    Apply("mmgs", "SAME_SIZE");
    EXPECT_EQ(WidthOf(part), 254);
}

TEST_F(SetUnit, AModelThatHoldsItIsRefusedANewOneAndTheHeldOneIsSet) {
    Model& part = OnePart();
    part.units.systems.push_back({WIDE("mmgs"), UsualSystems()[1].units});
    Record();
    Apply("mmgs");
    Recorded();
    EXPECT_EQ(LinesOf("ProMdlPrincipalunitsystemSet"),
              (Names{"ProMdlPrincipalunitsystemSet(model=plate.prt, system=\"\" of null, "
                     "conversion=1, ignoreParameterUnits=1, regeneration=-1) = -2",
                     "ProMdlPrincipalunitsystemSet(model=plate.prt, system=\"mmgs\" of plate.prt, "
                     "conversion=1, ignoreParameterUnits=1, regeneration=-1) = 0"}));
    // Centimetres, as the model has it.
    EXPECT_EQ(WidthOf(part), 1);
    EXPECT_EQ(part.units.systems.size(), 7u);
}

TEST_F(SetUnit, AHeldSystemInOtherLettersIsSetAfterTheNewOne) {
    Model& part = OnePart();
    part.units.systems.push_back({WIDE("MMGS"), UsualSystems()[1].units});
    Apply("mmgs");
    // MMGS, then mmgs: both are found, in the order in which the model has them.
    EXPECT_EQ(SystemOf(part), "mmgs");
    EXPECT_EQ(WidthOf(part), 10);
    Record();
    Apply("mmgs");
    Recorded();
    EXPECT_EQ(LinesOf("ProMdlPrincipalunitsystemSet").size(), 3u);
}

TEST_F(SetUnit, AUnitThatCannotBeHadFailsTheCreationAndNothingElse) {
    const Model& part = OnePart();
    for (unsigned n = 1; n <= 4; ++n) {
        Fail("ProUnitInit", {.n = n});
        Record();
        Apply("mmgs");
        Recorded();
        EXPECT_EQ(LinesOf("ProUnitInit").size(), 4u);
        EXPECT_EQ(LinesOf("ProMdlUnitsystemCreate").size(), 1u);
        EXPECT_EQ(LinesOf("ProMdlPrincipalunitsystemSet").size(), 1u);
        EXPECT_EQ(SystemOf(part), kMillimetres);
    }
    EXPECT_EQ(Boxes().size(), 4u);
}

TEST_F(SetUnit, WithoutMemoryForTheUnitsNothingIsMadeAndHeldSystemsAreSet) {
    Model& part = OnePart();
    part.units.systems.push_back({WIDE("mmGS"), UsualSystems()[1].units});
    Fail("ProArrayAlloc");
    Record();
    Apply("mmgs");
    Recorded();
    EXPECT_EQ(LinesOf("ProUnitInit"), Names{});
    EXPECT_EQ(LinesOf("ProMdlUnitsystemCreate"), Names{});
    EXPECT_EQ(SystemOf(part), "mmGS");
}

TEST_F(SetUnit, OtherSystemsAreNeverMade) {
    OnePart();
    Record();
    for (const char* item : {"mmKs", "CGS", "mmNs", "MKS", "IPS", "FPS"}) Apply(item);
    Recorded();
    EXPECT_EQ(LinesOf("ProUnitInit"), Names{});
    EXPECT_EQ(LinesOf("ProArrayAlloc"), Names{});
}

// --- Held systems ---

TEST_F(SetUnit, AModelThatLacksTheSystemIsPassedOverWithoutAWord) {
    Model& top = MakeModels("top: a, b");
    Model& a = ModelNamed("a");
    a.units.systems = {UsualSystems()[2]};
    a.units.principal = 0;
    Open(top);
    Apply("IPS");
    EXPECT_EQ(SystemOf(a), kMillimetres);
    EXPECT_EQ(SystemOf(ModelNamed("b")), kInches);
    EXPECT_EQ(Boxes(), Names{kDone});
}

TEST_F(SetUnit, TwoSystemsThatDifferInCaseAreBothSetAndTheLoopGoesOn) {
    Model& part = OnePart();
    part.units.systems.push_back({WIDE("INCH POUND SECOND (IPS)"), UsualSystems()[5].units});
    Record();
    Apply("IPS", "SAME_DIMS");
    Recorded();
    EXPECT_EQ(LinesOf("ProMdlPrincipalunitsystemSet").size(), 2u);
    EXPECT_EQ(SystemOf(part), "INCH POUND SECOND (IPS)");
}

TEST_F(SetUnit, OnlyLettersOfTheAsciiAreFolded) {
    Model& part = OnePart();
    // The Kelvin sign and the long s are a k and an s only for who folds all scripts.
    part.units.systems = {UsualSystems()[2],
                          {WIDE("millimeter \u212Ailogram Sec (mmKs)"), UsualSystems()[4].units},
                          {WIDE("millimeter Kilogram \u017Fec (mmKs)"), UsualSystems()[4].units}};
    part.units.principal = 0;
    Apply("mmKs");
    EXPECT_EQ(SystemOf(part), kMillimetres);
}

TEST_F(SetUnit, ANameOf32CharactersIsReadToItsEndAndNoFurther) {
    Model& part = OnePart();
    // As long as the record, which then has no terminator; the wanted name is shorter.
    part.units.systems.push_back(
        {WIDE("Inch Pound Second (IPS)_________"), UsualSystems()[4].units});
    ASSERT_EQ(part.units.systems.back().name.size(), 32u);
    Record();
    Apply("IPS");
    Recorded();
    EXPECT_EQ(SystemOf(part), kInches);
    EXPECT_EQ(LinesOf("ProMdlPrincipalunitsystemSet").size(), 1u);
}

// --- Failures in the loop ---

TEST_F(SetUnit, NoFailureInTheLoopKeepsTheOthersFromBeingSet) {
    Model& top = MakeModels("top: a, b, c");
    Open(top);
    std::vector<Model*> models = {&top, &ModelNamed("a"), &ModelNamed("b"), &ModelNamed("c")};
    workbench::SortByHandle(&models);
    const char* system = kMillimetres;
    for (const auto& [operation, item, next] :
         {std::tuple("ProMdlUnitsystemsCollect", "IPS", kInches),
          std::tuple("ProMdlPrincipalunitsystemSet", "CGS", "centimeter Gram Second (CGS)")}) {
        SCOPED_TRACE(operation);
        Fail(operation, {.n = 2});
        Apply(item);
        for (std::size_t i = 0; i < models.size(); ++i) {
            EXPECT_EQ(SystemOf(*models[i]), i == 1 ? system : next) << models[i]->FileName();
        }
        Apply(item);
        system = next;
    }
    EXPECT_EQ(Boxes(), (Names{kDone, kDone, kDone, kDone}));
}

TEST_F(SetUnit, AReadOnlyPartKeepsItsUnitsAndItsSizeInTheAssembly) {
    Model& top = MakeModels("top: a!released, b");
    Open(top);
    Apply("IPS", "SAME_DIMS");
    const Model& a = ModelNamed("a");
    EXPECT_EQ(SystemOf(a), kMillimetres);
    EXPECT_EQ(WidthOf(a), 10);
    EXPECT_FALSE(a.modified);
    EXPECT_EQ(SystemOf(ModelNamed("b")), kInches);
}

TEST_F(SetUnit, ATypeThatCannotBeReadLeavesTheModelAlone) {
    Model& top = MakeModels("top: a");
    Open(top);
    Fail("ProMdlTypeGet");
    Apply("IPS");
    EXPECT_EQ(SystemOf(top), kInches);
    EXPECT_EQ(SystemOf(ModelNamed("a")), kMillimetres);
}

TEST_F(SetUnit, AFailedWalkLeavesTheTopAndWhatWasFound) {
    Model& top = MakeModels("top: a");
    Open(top);
    Fail("ProSolidFeatVisit");
    Apply("IPS");
    EXPECT_EQ(SystemOf(top), kInches);
    EXPECT_EQ(SystemOf(ModelNamed("a")), kMillimetres);
    EXPECT_EQ(Boxes(), Names{kDone});
}

}  // namespace
