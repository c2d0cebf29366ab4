// Dialogs of the simulated host: their strictness, their life, their look, and the host's own.
#include <functional>
#include <string>

#include "hostapi/host.h"
#include "simhost/core/disk.h"
#include "simhost/trail/robot.h"
#include "tests/support/places.h"
#include "tests/support/workbench.h"

using namespace simhost;

namespace {

// A user whose way through a dialog a test writes down.
class Person : public User {
public:
    std::function<void(Dialog&)> use;
    int AnswerBox(const Box&) override { return 1; }
    void UseDialog(Dialog& dialog) override {
        if (use) use(dialog);
    }
    std::optional<WideText> AnswerPrompt(const WideText&, const WideText&) override {
        return std::nullopt;
    }
};

std::string calls;

char* Narrow(const char* text) {
    return const_cast<char*>(text);
}

void Note(char* dialog, char* component, ProAppData data) {
    calls += std::string(dialog) + "." + component + (data ? "+data " : " ");
}
void ExitWithOne(char* dialog, char* component, ProAppData data) {
    Note(dialog, component, data);
    EXPECT_EQ(ProUIDialogExit(dialog, 1), PRO_TK_NO_ERROR);
}
void ExitWithZero(char* dialog, char*, ProAppData) {
    ProUIDialogExit(dialog, 0);
}
void ExitThenLook(char* dialog, char*, ProAppData) {
    ProUIDialogExit(dialog, 5);
    calls += TheHost().dialogs.Find(dialog)->ended() ? "ended " : "going on ";
}
void DestroyItself(char* dialog, char*, ProAppData) {
    EXPECT_EQ(ProUIDialogDestroy(dialog), PRO_TK_BAD_CONTEXT);
}
void OpenSecond(char*, char*, ProAppData) {
    int status = 99;
    ProUIDialogActivate(Narrow("Second"), &status);
    calls += "second ended with " + std::to_string(status) + " ";
}

class DialogsOfTheHost : public workbench::Workbench {
protected:
    void SetUp() override {
        calls.clear();
        bool found = false;
        Write(workbench::kTextFolder + WIDE("\\text\\resource\\Settings.res"),
              ReadFile(std::string(workbench::kSourceFolder) + "/tests/simhost/data/Settings.res",
                       &found));
        ASSERT_TRUE(found);
        host().user = &person_;
    }
    ~DialogsOfTheHost() override { host().user = nullptr; }

    ProError Create(const char* name = "Settings", const char* resource = "Settings") {
        return ProUIDialogCreate(Narrow(name), Narrow(resource));
    }
    ProError SetAction(const char* component, ProUIAction action, ProAppData data = nullptr) {
        return ProUIPushbuttonActivateActionSet(Narrow("Settings"), Narrow(component), action,
                                                data);
    }
    ProError SetClose(ProUIAction action) {
        return ProUIDialogCloseActionSet(Narrow("Settings"), action, nullptr);
    }
    ProError Activate(int* status, const char* name = "Settings") {
        return ProUIDialogActivate(Narrow(name), status);
    }
    ProError Destroy(const char* name = "Settings") { return ProUIDialogDestroy(Narrow(name)); }

    Person person_;
};

// --- Making -----------------------------------------------------------------------------------

TEST_F(DialogsOfTheHost, AResourceIsFoundByItsNameOrAsAFileName) {
    EXPECT_EQ(Create("One", "Settings"), PRO_TK_NO_ERROR);
    EXPECT_EQ(Create("Two", "Settings.res"), PRO_TK_NO_ERROR);
    EXPECT_EQ(Create("Three", "Nowhere"), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(host().dialogs.Existing(), (std::vector<std::string>{"One", "Two"}));
}

TEST_F(DialogsOfTheHost, ADialogOfTheSameNameIsRefusedUntilTheFirstIsDestroyed) {
    EXPECT_EQ(Create(), PRO_TK_NO_ERROR);
    EXPECT_EQ(Create(), PRO_TK_E_FOUND);
    EXPECT_EQ(Destroy(), PRO_TK_NO_ERROR);
    EXPECT_EQ(Create(), PRO_TK_NO_ERROR);
}

TEST_F(DialogsOfTheHost, ABrokenResourceIsComplainedAboutWithItsLine) {
    Write(workbench::kTextFolder + WIDE("\\text\\resource\\Broken.res"), "\n(Dialog Broken");
    EXPECT_EQ(Create("Broken", "Broken"), PRO_TK_INVALID_FILE);
    EXPECT_EQ(Complaints(),
              (std::vector<std::string>{
                  "ProUIDialogCreate: Broken.res:2: the list that begins here is never closed"}));
    EXPECT_TRUE(host().dialogs.Existing().empty());
}

TEST_F(DialogsOfTheHost, AnUnknownDialogIsNotFoundByAnyOperation) {
    int status = 7;
    EXPECT_EQ(Activate(&status), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(status, 7);
    EXPECT_EQ(Destroy(), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(SetAction("OK", Note), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(SetClose(Note), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(ProUIDialogExit(Narrow("Settings"), 1), PRO_TK_E_NOT_FOUND);
}

TEST_F(DialogsOfTheHost, AComponentThatTheResourceDoesNotDeclareDoesNotExist) {
    Create();
    EXPECT_EQ(SetAction("Cancel", Note), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(SetAction("ok", Note), PRO_TK_E_NOT_FOUND);  // names are compared with their case
    EXPECT_EQ(SetAction("OK", Note), PRO_TK_NO_ERROR);
}

TEST_F(DialogsOfTheHost, AnOperationForAnotherKindOfComponentIsComplainedAbout) {
    Create();
    EXPECT_EQ(SetAction("Title", Note), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(SetAction("Name", Note), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints(),
              (std::vector<std::string>{
                  "ProUIPushbuttonActivateActionSet: Title of dialog Settings is a Label, not a "
                  "PushButton",
                  "ProUIPushbuttonActivateActionSet: Name of dialog Settings is a InputPanel, not "
                  "a PushButton"}));
}

// --- Using ------------------------------------------------------------------------------------

TEST_F(DialogsOfTheHost, APressRunsTheActionWithTheNamesAndTheData) {
    int data = 0;
    Create();
    SetAction("Apply", Note, &data);
    SetAction("OK", ExitWithOne);
    person_.use = [](Dialog& dialog) {
        EXPECT_EQ(dialog.Press("Apply"), "");
        EXPECT_FALSE(dialog.ended());
        EXPECT_EQ(dialog.Press("OK"), "");
        EXPECT_TRUE(dialog.ended());
    };
    int status = 99;
    EXPECT_EQ(Activate(&status), PRO_TK_NO_ERROR);
    EXPECT_EQ(status, 1);
    EXPECT_EQ(calls, "Settings.Apply+data Settings.OK ");
    ASSERT_EQ(host().shown.size(), 1u);
    EXPECT_EQ(host().shown[0].kind, Shown::Kind::Dialog);
    EXPECT_EQ(host().shown[0].text, WIDE("Settings"));
}

TEST_F(DialogsOfTheHost, WhatTheUserCannotDoIsAnsweredWithAReason) {
    Create();
    SetAction("Help", Note);
    SetAction("OK", ExitWithOne);
    person_.use = [](Dialog& dialog) {
        EXPECT_EQ(dialog.Press("Help"), "Help is greyed in dialog Settings");
        EXPECT_EQ(dialog.Press("Aply"),
                  "no component Aply in dialog Settings; did you mean Apply?");
        EXPECT_EQ(dialog.Press("Title"),
                  "Title of dialog Settings is a Label: nothing to Activate there");
        EXPECT_EQ(dialog.Use(Verb::Select, "OK"),
                  "OK of dialog Settings is a PushButton: nothing to Select there");
        EXPECT_EQ(dialog.Use(Verb::FocusIn, "OK"), "");
        dialog.Find("Apply")->visible = false;
        EXPECT_EQ(dialog.Press("Apply"), "Apply is not shown in dialog Settings");
        dialog.Press("OK");
        EXPECT_EQ(dialog.Press("OK"), "dialog Settings is not open");
    };
    int status = 0;
    Activate(&status);
    EXPECT_EQ(calls, "Settings.OK ");
}

TEST_F(DialogsOfTheHost, TheEndTakesEffectWhenTheActionHasReturned) {
    Create();
    SetAction("OK", ExitThenLook);
    person_.use = [](Dialog& dialog) {
        dialog.Press("OK");
        calls += dialog.ended() ? "ended" : "going on";
    };
    int status = 0;
    Activate(&status);
    EXPECT_EQ(calls, "going on ended");
    EXPECT_EQ(status, 5);
}

TEST_F(DialogsOfTheHost, ClosingTheWindowRunsTheCloseAction) {
    Create();
    SetClose(ExitWithZero);
    person_.use = [](Dialog& dialog) { dialog.CloseWindow(); };
    int status = 99;
    EXPECT_EQ(Activate(&status), PRO_TK_NO_ERROR);
    EXPECT_EQ(status, 0);
}

TEST_F(DialogsOfTheHost, AWindowWithoutACloseActionStaysOpen) {
    Create();
    SetAction("OK", ExitWithOne);
    person_.use = [](Dialog& dialog) {
        dialog.CloseWindow();
        EXPECT_FALSE(dialog.ended());
        dialog.Press("OK");
    };
    int status = 99;
    Activate(&status);
    EXPECT_EQ(status, 1);
}

TEST_F(DialogsOfTheHost, ACloseActionThatDoesNotEndLeavesTheDialogOpen) {
    Create();
    SetClose(Note);
    SetAction("OK", ExitWithOne);
    person_.use = [](Dialog& dialog) {
        dialog.CloseWindow();
        EXPECT_FALSE(dialog.ended());
        dialog.Press("OK");
    };
    int status = 99;
    Activate(&status);
    EXPECT_EQ(status, 1);
}

TEST_F(DialogsOfTheHost, ADialogCanBeActivatedAgain) {
    Create();
    SetAction("OK", ExitWithOne);
    person_.use = [](Dialog& dialog) {
        EXPECT_FALSE(dialog.ended());
        dialog.Press("OK");
    };
    int status = 0;
    Activate(&status);
    EXPECT_EQ(Activate(&status), PRO_TK_NO_ERROR);
    EXPECT_EQ(calls, "Settings.OK Settings.OK ");
}

TEST_F(DialogsOfTheHost, ADialogThatIsNotActiveCannotBeEnded) {
    Create();
    EXPECT_EQ(ProUIDialogExit(Narrow("Settings"), 1), PRO_TK_BAD_CONTEXT);
}

TEST_F(DialogsOfTheHost, ADialogIsNotDestroyedWhileItIsActive) {
    Create();
    SetAction("Apply", DestroyItself);
    SetAction("OK", ExitWithOne);
    person_.use = [](Dialog& dialog) {
        dialog.Press("Apply");
        dialog.Press("OK");
    };
    int status = 0;
    EXPECT_EQ(Activate(&status), PRO_TK_NO_ERROR);
    EXPECT_EQ(Complaints().size(), 1u);
    EXPECT_EQ(Destroy(), PRO_TK_NO_ERROR);
}

TEST_F(DialogsOfTheHost, ADialogOpenedFromAnotherHasTheUserFirst) {
    Create();
    Create("Second", "Settings");
    SetAction("Apply", OpenSecond);
    SetAction("OK", ExitWithOne);
    person_.use = [this](Dialog& dialog) {
        if (dialog.name() == "Second") {
            EXPECT_EQ(host().dialogs.Active(), &dialog);
            EXPECT_NE(host().dialogs.Use(Verb::Activate, "Settings", "OK"), "");
            dialog.Exit(-1);
            return;
        }
        dialog.Press("Apply");
        EXPECT_EQ(host().dialogs.Active(), &dialog);
        dialog.Press("OK");
    };
    int status = 0;
    Activate(&status);
    EXPECT_EQ(calls, "second ended with -1 Settings.OK ");
    EXPECT_EQ(host().dialogs.Active(), nullptr);
}

TEST_F(DialogsOfTheHost, AUserWhoLeavesADialogOpenIsComplainedAboutAndItIsClosed) {
    Create();
    SetClose(ExitWithZero);
    int status = 99;
    EXPECT_EQ(Activate(&status), PRO_TK_NO_ERROR);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(Complaints(), (std::vector<std::string>{"the user left open the dialog Settings"}));
}

TEST_F(DialogsOfTheHost, WithoutAUserADialogEndsWithItsCloseActionOrMinusOne) {
    host().user = nullptr;
    Create();
    SetClose(Note);  // does not end it
    int status = 99;
    EXPECT_EQ(Activate(&status), PRO_TK_NO_ERROR);
    EXPECT_EQ(status, -1);
    EXPECT_EQ(calls, "Settings. ");
    EXPECT_EQ(Complaints().size(), 1u);
}

// --- Looks ------------------------------------------------------------------------------------

TEST_F(DialogsOfTheHost, ADialogAsTextShowsItsLayoutWithGreyedButtonsInParentheses) {
    Create();
    const auto lines = DialogText(*host().dialogs.Find("Settings"));
    // The upper rows are 11 + 2 + 22 wide, the row of buttons 8 + 8 + 10 + 2 * 2 (Enter presses the
    // last one): of the 5 columns that are left its three columns get 1, 2 and 2.
    const std::vector<std::string> expected = {"+- 设置! -----------------------------+",  //
                                               "| 设置 \"A\"     [____________________] |",
                                               "| second line                         |",  //
                                               "| ----                                |",  //
                                               "| [ 应用 ]   ( 帮助 )    [> 确定 <]   |",  //
                                               "+-------------------------------------+"};
    EXPECT_EQ(lines, expected);
}

TEST_F(DialogsOfTheHost, SpareRoomGoesToTheColumnsThatWantIt) {
    Write(workbench::kTextFolder + WIDE("\\text\\resource\\Middle.res"),
          "(Dialog Middle (Components (Label Text) (Label L) (Label R) (PushButton OK))"
          "(Resources (Text.Label \"0123456789012345\") (.Label \"T\")"
          "(.Layout (Grid (Rows 1 1) (Cols 1) Text"
          " (Grid (Rows 1) (Cols 1 0 1) L OK R)))))");
    Create("Middle", "Middle");
    // The text is 16 wide, the button 6 and two gaps 4: of the 6 columns left, 3 go to each side.
    const std::vector<std::string> expected = {"+- T --------------+",  //
                                               "| 0123456789012345 |",  //
                                               "|      [ OK ]      |",  //
                                               "+------------------+"};
    EXPECT_EQ(DialogText(*host().dialogs.Find("Middle")), expected);
}

TEST_F(DialogsOfTheHost, AComponentThatIsNotShownTakesNoRoom) {
    Create();
    Dialog* dialog = host().dialogs.Find("Settings");
    dialog->Find("Line")->visible = false;
    dialog->Find("Title")->visible = false;
    dialog->Find("Name")->visible = false;
    EXPECT_EQ(DialogText(*dialog).size(), 3u);  // the frame and the buttons
}

// --- The user without a mind --------------------------------------------------------------------

TEST_F(DialogsOfTheHost, TheRobotPressesEachButtonOnceAndThoseThatEndLast) {
    RobotUser robot;
    host().user = &robot;
    Create();
    for (const char* button : {"Apply", "Help"}) SetAction(button, Note);
    SetAction("OK", ExitWithOne);
    int status = 99;
    EXPECT_EQ(Activate(&status), PRO_TK_NO_ERROR);
    EXPECT_EQ(status, 1);
    EXPECT_EQ(calls, "Settings.Apply Settings.OK ");  // Help is greyed
}

TEST_F(DialogsOfTheHost, TheRobotEndsADialogWhoseButtonsDoNothing) {
    RobotUser robot;
    host().user = &robot;
    Create();
    SetClose(Note);
    int status = 99;
    EXPECT_EQ(Activate(&status), PRO_TK_NO_ERROR);
    EXPECT_EQ(status, -1);
}

TEST_F(DialogsOfTheHost, TheRobotAnswersBoxesAndPromptsAndLeavesEveryFourthPrompt) {
    RobotUser robot;
    EXPECT_EQ(robot.AnswerBox(Box{}), 1);
    for (const char* name : {"ROBOT-1", "ROBOT-2", "ROBOT-3"}) {
        EXPECT_EQ(robot.AnswerPrompt(WIDE("Name:"), WIDE("X")), Wide(std::string(name)));
    }
    EXPECT_EQ(robot.AnswerPrompt(WIDE("Name:"), WIDE("X")), std::nullopt);
}

// --- The host's own -----------------------------------------------------------------------------

constexpr const char* kMenuName = "ProCmdViewGallery_layoutph.palette_holder.clearAppearance";

class AppearanceGallery : public workbench::Workbench {
protected:
    void SetUp() override {
        part_ = &Part("SHAFT");
        elsewhere_ = &Part("ELSEWHERE");
        Model& unit = Assembly("UNIT");
        top_ = &Assembly("TOP");
        Use(unit, *part_);
        Use(*top_, unit);
        Open(*top_);
        const ProdbSurfaceProps props = DefaultAppearance();
        for (Model* model : {part_, elsewhere_, &unit, top_}) model->appearance = props;
        part_->partData.surfaceAppearances[11] = props;
    }
    std::string Do(Verb verb, const char* component, const char* dialog = "main_dlg_cur") {
        return host().dialogs.Use(verb, dialog, component);
    }
    void Ask() {
        EXPECT_EQ(Do(Verb::Select, "ProCmdViewGallery.view"), "");
        EXPECT_EQ(Do(Verb::Select, kMenuName), "");
        EXPECT_EQ(Do(Verb::Close, kMenuName), "");
        EXPECT_EQ(Do(Verb::Activate, "clearAllAppearance"), "");
    }
    Model* part_ = nullptr;
    Model* elsewhere_ = nullptr;
    Model* top_ = nullptr;
};

TEST_F(AppearanceGallery, TheWholeWayClearsTheCurrentModelAndAllBelowIt) {
    Ask();
    EXPECT_TRUE(part_->appearance);
    EXPECT_EQ(Do(Verb::Close, kMenuName), "");
    EXPECT_EQ(Do(Verb::Close, "ProCmdViewGallery.view"), "");
    EXPECT_EQ(Do(Verb::FocusIn, "yes", "UI Message Dialog"), "");
    EXPECT_EQ(Do(Verb::Activate, "yes", "UI Message Dialog"), "");
    EXPECT_FALSE(top_->appearance);
    EXPECT_FALSE(part_->appearance);
    EXPECT_TRUE(part_->partData.surfaceAppearances.empty());
    EXPECT_TRUE(part_->modified);
    EXPECT_TRUE(elsewhere_->appearance);
    EXPECT_FALSE(elsewhere_->modified);
}

TEST_F(AppearanceGallery, AManufacturingModelClearsItsAssembly) {
    Open(Manufacturing("MILL", *top_));
    Ask();
    EXPECT_EQ(Do(Verb::Activate, "yes", "UI Message Dialog"), "");
    EXPECT_FALSE(part_->appearance);
}

TEST_F(AppearanceGallery, NoToTheQuestionClearsNothing) {
    Ask();
    EXPECT_EQ(Do(Verb::Activate, "no", "UI Message Dialog"), "");
    EXPECT_TRUE(part_->appearance);
    EXPECT_NE(Do(Verb::Activate, "yes", "UI Message Dialog"), "");
    EXPECT_TRUE(part_->appearance);
}

TEST_F(AppearanceGallery, AStepLeftOutMakesTheNextOneImpossible) {
    EXPECT_NE(Do(Verb::Select, kMenuName), "");                     // no gallery
    EXPECT_NE(Do(Verb::Activate, "clearAllAppearance"), "");        // no drop-down
    EXPECT_NE(Do(Verb::Activate, "yes", "UI Message Dialog"), "");  // no question
    EXPECT_EQ(Do(Verb::Select, "ProCmdViewGallery.view"), "");
    EXPECT_NE(Do(Verb::Activate, "clearAllAppearance"), "");
    EXPECT_EQ(Do(Verb::Select, kMenuName), "");
    EXPECT_EQ(Do(Verb::Close, "ProCmdViewGallery.view"), "");  // closes all of it
    EXPECT_NE(Do(Verb::Activate, "clearAllAppearance"), "");
    EXPECT_TRUE(part_->appearance);
}

TEST_F(AppearanceGallery, TheEntryIsOutOfReachOnceSomethingElseHappened) {
    Do(Verb::Select, "ProCmdViewGallery.view");
    Do(Verb::Select, kMenuName);
    Do(Verb::Close, kMenuName);
    Do(Verb::Close, kMenuName);  // it was closed before
    EXPECT_NE(Do(Verb::Activate, "clearAllAppearance"), "");
}

TEST_F(AppearanceGallery, AnOpenQuestionHasToBeAnsweredFirst) {
    Ask();
    EXPECT_EQ(Do(Verb::Select, "ProCmdViewGallery.view"), "UI Message Dialog waits for an answer");
    EXPECT_NE(Do(Verb::Activate, "maybe", "UI Message Dialog"), "");
    EXPECT_EQ(Do(Verb::Activate, "no", "UI Message Dialog"), "");
}

TEST_F(AppearanceGallery, AWrongComponentIsNamed) {
    EXPECT_EQ(Do(Verb::Select, "ProCmdViewGalery.view"),
              "no component ProCmdViewGalery.view in main_dlg_cur; did you mean "
              "ProCmdViewGallery.view?");
}

TEST_F(AppearanceGallery, WithoutAModelThereIsNoGallery) {
    host().session.CloseCurrent();
    EXPECT_NE(Do(Verb::Select, "ProCmdViewGallery.view"), "");
}

TEST_F(AppearanceGallery, AMacroDoesItAndAWrongNameInItIsComplainedAbout) {
    const std::string way =
        "~ Select `main_dlg_cur` `ProCmdViewGallery.view`;~ Select `main_dlg_cur` `" +
        std::string(kMenuName) + "`; ~ Close `main_dlg_cur`  `" + kMenuName + "`;";
    host().macros.push_back(Wide(way + "~ Activate `main_dlg_cur` `clearAll`"));
    host().commands.RunMacros();
    const auto complaints = Complaints();
    ASSERT_EQ(complaints.size(), 1u);
    EXPECT_NE(complaints[0].find("no component clearAll in main_dlg_cur"), std::string::npos);
    EXPECT_TRUE(part_->appearance);

    host().macros.push_back(Wide(way + "~ Activate `main_dlg_cur` `clearAllAppearance`;"
                                       "~ Activate `UI Message Dialog` `yes`;"));
    host().commands.RunMacros();
    EXPECT_FALSE(part_->appearance);
}

TEST_F(AppearanceGallery, AMacroThatLeavesTheQuestionOpenIsComplainedAbout) {
    host().macros.push_back(
        Wide("~ Select `main_dlg_cur` `ProCmdViewGallery.view`;~ Select `main_dlg_cur` `" +
             std::string(kMenuName) + "`;~ Activate `main_dlg_cur` `clearAllAppearance`"));
    host().commands.RunMacros();
    EXPECT_EQ(Complaints().size(), 1u);
    EXPECT_FALSE(host().dialogs.mainWindow.questionOpen());
    EXPECT_TRUE(part_->appearance);
}

}  // namespace
