// The batch commands, pressed for one part: which calls come before which.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "tests/support/call_order.h"
#include "tests/support/observed.h"

namespace {

using namespace simhost;
using workbench::CallOrder;
using workbench::Joined;
using workbench::Names;
using workbench::ObservedBench;

// What a dialog is asked and told, what models are asked and given, and what the user sees.
const std::set<std::string> kDialogCalls = {
    "ProUIDialogCreate",         "ProUIPushbuttonActivateActionSet",
    "ProUIDialogCloseActionSet", "ProUIDialogActivate",
    "ProUIDialogDestroy",        "ProUIInputpanelValueSet",
    "ProUIOptionmenuValueSet",   "ProUICheckbuttonSet",
    "ProUICheckbuttonUnset",     "GetPrivateProfileStringW",
};
const std::set<std::string> kWorkCalls = {
    "ProToolkitApplTextPathGet",
    "ProMdlCurrentGet",
    "ProUIRadiogroupSelectednamesGet",
    "ProUITextareaValueGet",
    "ProUIInputpanelValueGet",
    "ProUIOptionmenuValueGet",
    "ProUICheckbuttonGetState",
    "WritePrivateProfileStringW",
    "ProSolidFeatVisit",
    "ProAsmcompMdlGet",
    "ProArrayAlloc",
    "ProModelitemToRelset",
    "ProRelsetPostregenerationInit",
    "ProRelsetCreate",
    "ProRelsetRelationsGet",
    "ProRelsetRelationsSet",
    "ProParameterInit",
    "ProParameterCreate",
    "ProParameterValueSet",
    "ProParameterDelete",
    "ProSolidSurfaceVisit",
    "ProMdlRetrieve",
    "ProTreetoolRefresh",
    "MessageBoxW",
};

class BatchCalls : public ObservedBench {
protected:
    // TOP with the part A.
    void SetUp() override {
        Start();
        top_ = &Assembly("top");
        a_ = &Part("a");
        UseAll(*top_, {a_});
        Open(*top_);
    }

    // The calls from the opening of the command's dialog to its end.
    Names Opening(const std::string& command, const std::string& dialog) {
        Record();
        Play("~ Command `" + command + "`\n~ Activate `" + dialog + "` `Close`");
        Recorded();
        return CallOrder(host().journal.lines(), kDialogCalls);
    }
    // The calls of a button, pressed after these steps; `answer` takes its box away.
    Names Pressing(const std::string& command, const std::string& dialog, const std::string& steps,
                   const std::string& button, const std::string& answer = {}) {
        Record();
        Play("~ Command `" + command + "`\n" + steps + "~ Activate `" + dialog + "` `" + button +
             "`\n" + answer + "~ Activate `" + dialog + "` `Close`");
        Recorded();
        return CallOrder(host().journal.lines(), kWorkCalls);
    }
    Names PressingRelations(const std::string& button) {
        return Pressing("VxRelations", "Relations",
                        "~ Select `Relations` `TypeRadio` 1 `Part`\n"
                        "~ Input `Relations` `RelTxtarea` `x=1`\n",
                        button, "@ ok\n");
    }
    Names PressingParams(const std::string& button, const std::string& answer = {}) {
        return Pressing("VxParams", "VxParams",
                        "~ Select `VxParams` `TypeRadio` 1 `Part`\n"
                        "~ Select `VxParams` `TypeRadio2` 1 `Part`\n"
                        "~ Input `VxParams` `ParaName` `P`\n"
                        "~ Input `VxParams` `outlinePname` `SIZE`\n"
                        "~ Input `VxParams` `shSizePname` `SHEET`\n"
                        "~ Select `VxParams` `PtypeOption` 1 `整数`\n",
                        button, answer);
    }

    Model *top_, *a_;
};

// --- Opening -----------------------------------------------------------------------------------

TEST_F(BatchCalls, TheDialogOfRelationsGetsItsButtonsAndThenItsCloseAction) {
    EXPECT_EQ(Opening("VxRelations", "Relations"),
              (Names{"ProUIDialogCreate", "ProUIPushbuttonActivateActionSet AddRels",
                     "ProUIPushbuttonActivateActionSet AddRelsAndNoRepeat",
                     "ProUIPushbuttonActivateActionSet CoverRels",
                     "ProUIPushbuttonActivateActionSet Close", "ProUIDialogCloseActionSet",
                     "ProUIDialogActivate", "ProUIDialogDestroy"}));
}

TEST_F(BatchCalls, TheDialogOfParametersGetsItsActionsAndThenWhatWasSaved) {
    EXPECT_EQ(Opening("VxParams", "VxParams"),
              (Names{"ProUIDialogCreate",
                     "ProUIPushbuttonActivateActionSet Add",
                     "ProUIPushbuttonActivateActionSet Update",
                     "ProUIPushbuttonActivateActionSet Delete",
                     "ProUIPushbuttonActivateActionSet VxOutline",
                     "ProUIPushbuttonActivateActionSet VxSheetSize",
                     "ProUIPushbuttonActivateActionSet Close",
                     "ProUIDialogCloseActionSet",
                     "GetPrivateProfileStringW InputKeyWords",
                     "ProUIInputpanelValueSet InputKeyWords",
                     "ProUIInputpanelValueSet InputKeyWords2",
                     "GetPrivateProfileStringW VxOutlineOrder",
                     "ProUICheckbuttonSet VxOutlineOrder",
                     "GetPrivateProfileStringW VxOutlineNum",
                     "ProUIOptionmenuValueSet VxOutlineNum",
                     "GetPrivateProfileStringW outlinePname",
                     "ProUIOptionmenuValueSet outlinePname",
                     "ProUIInputpanelValueSet outlinePname",
                     "GetPrivateProfileStringW shSizePname",
                     "ProUIOptionmenuValueSet shSizePname",
                     "ProUIInputpanelValueSet shSizePname",
                     "ProUIDialogActivate",
                     "ProUIDialogDestroy"}));
}

// --- Relations ---------------------------------------------------------------------------------

// Up to the work on the one model: the text before the test for components, the keywords after it.
const Names kRelationsBegin = {
    "ProMdlCurrentGet top.asm",
    "ProUIRadiogroupSelectednamesGet TypeRadio",
    "ProUIRadiogroupSelectednamesGet OptionRadio",
    "ProArrayAlloc",
    "ProSolidFeatVisit",
    "ProAsmcompMdlGet a.prt",  // in the walk
    "ProUITextareaValueGet RelTxtarea",
    "ProAsmcompMdlGet a.prt",  // for the list of targets
    "ProUIInputpanelValueGet InputKeyWords",
};
const Names kRelationsEnd = {"ProMdlCurrentGet top.asm", "ProTreetoolRefresh top.asm",
                             "MessageBoxW"};

TEST_F(BatchCalls, AppendingRelationsMakesItsArrayBeforeItTakesTheSet) {
    a_->relations.initial.emplace();
    for (const char* button : {"AddRels", "AddRelsAndNoRepeat"}) {
        EXPECT_EQ(PressingRelations(button),
                  Joined({kRelationsBegin,
                          {"ProArrayAlloc", "ProModelitemToRelset", "ProRelsetRelationsGet",
                           "ProRelsetRelationsSet"},
                          kRelationsEnd}))
            << button;
    }
}

TEST_F(BatchCalls, CoveringRelationsMakesItsArrayAfterItHasTakenTheSet) {
    a_->relations.initial.emplace();
    EXPECT_EQ(PressingRelations("CoverRels"),
              Joined({kRelationsBegin,
                      {"ProModelitemToRelset", "ProArrayAlloc", "ProRelsetRelationsSet"},
                      kRelationsEnd}));
}

TEST_F(BatchCalls, WithoutComponentsTheTextIsReadAndTheKeywordsAreNot) {
    Open(Assembly("empty"));
    EXPECT_EQ(PressingRelations("AddRels"),
              (Names{"ProMdlCurrentGet empty.asm", "ProUIRadiogroupSelectednamesGet TypeRadio",
                     "ProUIRadiogroupSelectednamesGet OptionRadio", "ProArrayAlloc",
                     "ProSolidFeatVisit", "ProUITextareaValueGet RelTxtarea", "MessageBoxW"}));
}

// --- Parameters --------------------------------------------------------------------------------

// The folder of the settings is asked for at the opening and for each save. All values are read
// before the first one is written.
const Names kSaving = {
    "ProToolkitApplTextPathGet",
    "ProToolkitApplTextPathGet",
    "ProUIInputpanelValueGet InputKeyWords",
    "ProUICheckbuttonGetState VxOutlineOrder",
    "ProUIOptionmenuValueGet VxOutlineNum",
    "ProUIInputpanelValueGet outlinePname",
    "ProUIInputpanelValueGet shSizePname",
    "WritePrivateProfileStringW InputKeyWords",
    "WritePrivateProfileStringW VxOutlineOrder",
    "WritePrivateProfileStringW VxOutlineNum",
    "WritePrivateProfileStringW outlinePname",
    "WritePrivateProfileStringW shSizePname",
};
const Names kWalk = {
    "ProArrayAlloc", "ProSolidFeatVisit",
    "ProAsmcompMdlGet a.prt",  // in the walk
    "ProAsmcompMdlGet a.prt",  // for the list of targets
};
const Names kShownAfresh = {"ProMdlCurrentGet top.asm", "ProTreetoolRefresh top.asm"};

TEST_F(BatchCalls, AParameterIsMadeOfWhatTheDialogSaysBeforeTheWalk) {
    EXPECT_EQ(PressingParams("Add"),
              Joined({kSaving,
                      {"ProMdlCurrentGet top.asm", "ProUIRadiogroupSelectednamesGet TypeRadio",
                       "ProUIInputpanelValueGet ParaName", "ProUIInputpanelValueGet ParaValue",
                       "ProUIOptionmenuValueGet PtypeOption"},
                      kWalk,
                      {"ProUIInputpanelValueGet InputKeyWords", "ProParameterCreate"},
                      kShownAfresh}));
}

TEST_F(BatchCalls, AnUpdateAsksForTheParameterAndThenSetsIt) {
    a_->parameters.Set(RealParameter(WIDE("P"), 1));
    EXPECT_EQ(PressingParams("Update"),
              Joined({kSaving,
                      {"ProMdlCurrentGet top.asm", "ProUIRadiogroupSelectednamesGet TypeRadio",
                       "ProUIInputpanelValueGet ParaName", "ProUIInputpanelValueGet ParaValue",
                       "ProUIOptionmenuValueGet PtypeOption"},
                      kWalk,
                      {"ProUIInputpanelValueGet InputKeyWords", "ProParameterInit",
                       "ProParameterValueSet"},
                      kShownAfresh}));
}

TEST_F(BatchCalls, ADeletionReadsTheNameOnly) {
    a_->parameters.Set(RealParameter(WIDE("P"), 1));
    EXPECT_EQ(
        PressingParams("Delete"),
        Joined({kSaving,
                {"ProMdlCurrentGet top.asm", "ProUIRadiogroupSelectednamesGet TypeRadio",
                 "ProUIInputpanelValueGet ParaName"},
                kWalk,
                {"ProUIInputpanelValueGet InputKeyWords", "ProParameterInit", "ProParameterDelete"},
                kShownAfresh}));
}

// --- Outline and sheet sizes -------------------------------------------------------------------

TEST_F(BatchCalls, TheOutlineReadsTheFirstNameBeforeTheWalkAndTheKeywordsAfterIt) {
    EXPECT_EQ(
        PressingParams("VxOutline", "@ ok\n"),
        Joined({kSaving,
                {"ProMdlCurrentGet top.asm", "ProUIRadiogroupSelectednamesGet TypeRadio2",
                 "ProUIInputpanelValueGet outlinePname"},
                kWalk,
                {"ProUIInputpanelValueGet InputKeyWords2",
                 "ProUICheckbuttonGetState VxOutlineOrder", "ProUIOptionmenuValueGet VxOutlineNum",
                 "ProArrayAlloc", "ProSolidSurfaceVisit", "ProParameterInit", "ProParameterCreate",
                 "MessageBoxW", "ProTreetoolRefresh top.asm"}}));
}

TEST_F(BatchCalls, TheOutlineReadsItsFormAnewForEachModel) {
    UseAll(*top_, {&Part("b")});
    const Names calls = PressingParams("VxOutline", "@ ok\n");
    for (const char* read :
         {"ProUICheckbuttonGetState VxOutlineOrder", "ProUIOptionmenuValueGet VxOutlineNum"}) {
        EXPECT_EQ(std::count(calls.begin(), calls.end(), read), 1 + 2) << read;  // saved; a, b
    }
}

TEST_F(BatchCalls, TheSheetSizesAreToldBeforeTheTreeIsShownAfresh) {
    host().session.Create(WIDE("a"), PRO_MDL_DRAWING).drawingData.sheets = {WIDE("A3")};
    EXPECT_EQ(PressingParams("VxSheetSize", "@ ok\n"),
              Joined({kSaving,
                      {"ProMdlCurrentGet top.asm", "ProUIRadiogroupSelectednamesGet TypeRadio2",
                       "ProUIInputpanelValueGet shSizePname"},
                      kWalk,
                      {"ProUIInputpanelValueGet InputKeyWords2", "ProMdlRetrieve a.drw",
                       "ProParameterInit", "ProParameterCreate", "MessageBoxW"},
                      kShownAfresh}));
}

TEST_F(BatchCalls, WhereThereAreNoSheetSizesTheSettingsAreSavedAllTheSame) {
    Open(Manufacturing("mill", *top_));
    EXPECT_EQ(PressingParams("VxSheetSize"), Joined({kSaving, {"ProMdlCurrentGet mill.mfg"}}));
}

// --- A manufacturing model ---------------------------------------------------------------------

TEST_F(BatchCalls, OfAManufacturingModelTheTreeThatIsShownAfreshIsItsOwnButAfterTheOutline) {
    Open(Manufacturing("mill", *top_));
    const auto refreshed = [](const Names& calls) {
        Names found;
        for (const std::string& call : calls) {
            if (call.rfind("ProTreetoolRefresh", 0) == 0) found.push_back(call);
        }
        return found;
    };
    EXPECT_EQ(refreshed(PressingRelations("AddRels")), (Names{"ProTreetoolRefresh mill.mfg"}));
    EXPECT_EQ(refreshed(PressingParams("Add")), (Names{"ProTreetoolRefresh mill.mfg"}));
    EXPECT_EQ(refreshed(PressingParams("VxOutline", "@ ok\n")),
              (Names{"ProTreetoolRefresh top.asm"}));
}

TEST_F(BatchCalls, TheSettingsAreReadAndWrittenByTwoSpellingsOfTheirFolder) {
    PressingParams("Add");
    for (const std::string& line : Lines("GetPrivateProfileStringW")) {
        EXPECT_NE(line.find("\\VXconfig\\VxParams.ini"), std::string::npos) << line;
    }
    const Names written = Lines("WritePrivateProfileStringW");
    EXPECT_EQ(written.size(), 5u);
    for (const std::string& line : written) {
        EXPECT_NE(line.find("\\vxconfig\\VxParams.ini"), std::string::npos) << line;
    }
}

}  // namespace
