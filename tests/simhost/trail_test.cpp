// Scripts: how lines are read, how they answer what waits, and how what fails is told.
#include <algorithm>
#include <deque>
#include <filesystem>
#include <string>

#include "hostapi/host.h"
#include "hostapi/windows.h"
#include "simhost/app/prompt.h"
#include "simhost/core/disk.h"
#include "simhost/trail/hooks.h"
#include "simhost/trail/interpreter.h"
#include "simhost/trail/picks.h"
#include "tests/support/workbench.h"

using namespace simhost;

namespace {

using Failures = std::vector<std::string>;

std::string Shape(const std::vector<Step>& steps) {
    std::string shape;
    for (const Step& step : steps) {
        shape += step.kind == Step::Kind::Trail ? step.verb : step.text;
        for (const std::string& argument : step.arguments) shape += "|" + argument;
        shape += ";";
    }
    return shape;
}

std::string LexProblem(const std::string& line) {
    try {
        LexLine(line);
    } catch (const LexError& error) {
        return error.what();
    }
    return "none";
}

TEST(TrailLines, AStepIsAVerbAndItsArguments) {
    EXPECT_EQ(Shape(LexLine("~ Activate `VxInit.res` `OK`")), "Activate|VxInit.res|OK;");
    EXPECT_EQ(Shape(LexLine("  ~ Input `D` `N` `two words; and ~`  12 ")),
              "Input|D|N|two words; and ~|12;");
    EXPECT_EQ(Shape(LexLine("~ Select `D`  ``")), "Select|D|;");
}

TEST(TrailLines, StepsAreSeparatedBySemicolonsWithOrWithoutBlanks) {
    EXPECT_EQ(Shape(LexLine("~ Command `A`; ~ Command `B`;~ Command `C`;")),
              "Command|A;Command|B;Command|C;");
    EXPECT_EQ(Shape(LexLine("~Command `A` ~ Command `B`")), "Command|A;Command|B;");
}

TEST(TrailLines, CommentsAndEmptyLinesAreNoSteps) {
    EXPECT_TRUE(LexLine("").empty());
    EXPECT_TRUE(LexLine("  \t\r").empty());
    EXPECT_TRUE(LexLine("! ~ Command `A`").empty());
    EXPECT_EQ(Shape(LexLine("~ Command `A`; ! a note")), "Command|A;");
}

TEST(TrailLines, AnAtLineIsKeptWhole) {
    const auto steps = LexLine(" @  expect box \"a;b~c\" ");
    ASSERT_EQ(steps.size(), 1u);
    EXPECT_EQ(steps[0].kind, Step::Kind::Word);
    EXPECT_EQ(steps[0].text, "expect box \"a;b~c\"");
}

TEST(TrailLines, WhatCannotBeReadIsToldInASentence) {
    EXPECT_EQ(LexProblem("~ Command `A"), "a name in `…` does not end");
    EXPECT_EQ(LexProblem("~"), "there is no verb behind the ~");
    EXPECT_EQ(LexProblem("~ Command `A`; Command"), "a step begins with ~, not with \"Command\"");
}

TEST(TrailLines, ATextIsQuotedWithEscapesOrTakenAsItIs) {
    EXPECT_EQ(ParseText("  plain \\t text ").text, "plain \\t text");
    EXPECT_FALSE(ParseText("plain").quoted);
    EXPECT_EQ(ParseText("\"\\ttab\\n\\\"q\\\" \\\\ \"").text, "\ttab\n\"q\" \\ ");
    EXPECT_TRUE(ParseText("\"\"").quoted);
    EXPECT_THROW(ParseText("\"open"), LexError);
    EXPECT_THROW(ParseText("\"a\" b"), LexError);
    EXPECT_THROW(ParseText("\"\\q\""), LexError);
}

// --- Scripts -------------------------------------------------------------------------------------

std::string seen;

int ShowsABox(uiCmdCmdId, uiCmdValue*, void*) {
    Box box;
    box.text = WIDE("\t材料设置完成\t");
    box.caption = WIDE("标题");
    box.hasCaption = true;
    TheHost().ShowBox(box);
    seen += "box answered ";
    return 0;
}
int ShowsAPlainBox(uiCmdCmdId, uiCmdValue*, void*) {
    TheHost().ShowBox(Box{WIDE("plain"), {}, false, 0});
    return 0;
}
int ShowsTwoBoxes(uiCmdCmdId, uiCmdValue*, void*) {
    TheHost().ShowBox(Box{WIDE("one"), {}, false, 0});
    TheHost().ShowBox(Box{WIDE("two"), {}, false, 0});
    return 0;
}
int Asks(uiCmdCmdId, uiCmdValue*, void*) {
    TheHost().messages.Display(WIDE("Name:|||OLD"));
    WideChar text[32] = WIDE("untouched");
    const ProError status = ProMessageStringRead(32, text);
    seen += "asked " + std::to_string(status) + " " + Utf8(text) + " ";
    return 0;
}
void Ends(char* dialog, char*, ProAppData) {
    ProUIDialogExit(dialog, 1);
}
void BoxInDialog(char*, char*, ProAppData) {
    ShowsABox(nullptr, nullptr, nullptr);
}
int OpensADialog(uiCmdCmdId, uiCmdValue*, void*) {
    char name[] = "Settings";
    char ok[] = "OK";
    char apply[] = "Apply";
    ProUIDialogCreate(name, name);
    ProUIPushbuttonActivateActionSet(name, ok, Ends, nullptr);
    ProUIPushbuttonActivateActionSet(name, apply, BoxInDialog, nullptr);
    int status = 99;
    ProUIDialogActivate(name, &status);
    ProUIDialogDestroy(name);
    seen += "dialog " + std::to_string(status) + " ";
    return 0;
}
int Runs(uiCmdCmdId, uiCmdValue*, void*) {
    seen += "ran ";
    return 0;
}
int Complains(uiCmdCmdId, uiCmdValue*, void*) {
    TheHost().Complain("a dangling handle");
    return 0;
}
uiCmdAccessState NotHere(uiCmdAccessMode) {
    return ACCESS_INVISIBLE;
}
uiCmdAccessState InPopup(uiCmdCmdId, ProAppData, void*) {
    return ACCESS_AVAILABLE;
}
ProError FillsPopup(char* popup) {
    ProPopupMenuId id = 0;
    uiCmdCmdId command = nullptr;
    ProPopupmenuIdGet(popup, &id);
    ProCmdCmdIdFind(const_cast<char*>("Runs"), &command);
    return ProPopupmenuButtonAdd(id, -1, const_cast<char*>("Runs"),
                                 const_cast<WideChar*>(WIDE("独立显示")),
                                 const_cast<WideChar*>(WIDE("help")), command, InPopup, nullptr);
}

class Scripts : public workbench::Workbench {
protected:
    void SetUp() override {
        seen.clear();
        bool found = false;
        Write(workbench::kTextFolder + WIDE("\\text\\resource\\Settings.res"),
              ReadFile(std::string(VX_SOURCE_DIR) + "/tests/simhost/data/Settings.res", &found));
        ASSERT_TRUE(found);
        Add("ShowsABox", ShowsABox);
        Add("ShowsAPlainBox", ShowsAPlainBox);
        Add("ShowsTwoBoxes", ShowsTwoBoxes);
        Add("Asks", Asks);
        Add("OpensADialog", OpensADialog);
        Add("Runs", Runs);
        Add("Complains", Complains);
        Add("NotHere", Runs, NotHere);
    }
    void TearDown() override {
        TheHooks() = {};
        workbench::Workbench::TearDown();
    }
    static void Add(const char* name, uiCmdCmdActFn action, uiCmdAccessFn access = nullptr) {
        uiCmdCmdId id = nullptr;
        ProCmdActionAdd(const_cast<char*>(name), action, 2, access, PRO_B_FALSE, PRO_B_FALSE, &id);
    }
    Failures Run(const std::string& script) {
        transcript_.clear();
        return RunScript(script, [&](const std::string& line) { transcript_ += line + "\n"; });
    }
    bool Told(const std::string& text) const { return transcript_.find(text) != std::string::npos; }
    // Runs a script that must fail once, and gives the sentence.
    std::string Failure(const std::string& script) {
        const Failures failures = Run(script);
        EXPECT_EQ(failures.size(), 1u) << transcript_;
        return failures.empty() ? "" : failures[0];
    }
    std::string transcript_;
};

TEST_F(Scripts, ACommandIsPressedByItsName) {
    EXPECT_EQ(Run("! a story\n~ Command `Runs`; ~ Command `Runs`\n"), Failures{});
    EXPECT_EQ(seen, "ran ran ");
}

TEST_F(Scripts, ALongStepGoesOnBehindABackslash) {
    EXPECT_EQ(Run("~ Command \\\n`Runs`\n~ Command `Runs`"), Failures{});
    EXPECT_EQ(seen, "ran ran ");
}

TEST_F(Scripts, WhatDoesNotExistFailsWithItsLine) {
    EXPECT_EQ(Failure("\n~ Command `Rums`"),
              "line 2: there is no command Rums; did you mean Runs?");
    EXPECT_EQ(Failure("~ Activat `D` `C`"),
              "line 1: there is no step Activat; did you mean Activate?");
    EXPECT_EQ(Failure("~ Activate `Settings` `OK`"), "line 1: no dialog Settings is open");
    EXPECT_EQ(Failure("@ expct box x"),
              "line 1: nothing is called \"expct box x\"; did you mean expect box?");
    EXPECT_EQ(Failure("Runs"),
              "line 1: a line begins with ~ (a step), @ (a word) or ! (a comment)");
    EXPECT_EQ(Failure("~ Command `NotHere`").substr(0, 26), "line 1: NotHere is not sho");
    EXPECT_EQ(seen, "");
}

TEST_F(Scripts, AFileNamesItselfInItsFailures) {
    TextSource source("~ Command `Nowhere`", "story.trl");
    Trail trail(source, [](const std::string&) {});
    EXPECT_FALSE(trail.Run());
    ASSERT_EQ(trail.failures().size(), 1u);
    EXPECT_EQ(trail.failures()[0].substr(0, 13), "story.trl:1: ");
}

TEST_F(Scripts, TheRunGoesOnAfterAFailure) {
    EXPECT_EQ(Run("~ Command `Nowhere`\n~ Command `Runs`").size(), 1u);
    EXPECT_EQ(seen, "ran ");
}

TEST_F(Scripts, AComplaintOfTheHostIsAFailure) {
    EXPECT_EQ(Failure("~ Command `Complains`"), "line 1: the host complains: a dangling handle");
    EXPECT_EQ(Complaints().size(), 1u);
}

// --- Boxes
// -----------------------------------------------------------------------------------------

TEST_F(Scripts, ABoxIsAnsweredByTheNextLines) {
    EXPECT_EQ(Run("~ Command `ShowsABox`\n@ expect box 材料设置完成\n"
                  "@ expect box \"\\t材料设置完成\\t\"\n@ expect caption \"标题\"\n@ ok\n"
                  "~ Command `Runs`"),
              Failures{});
    EXPECT_EQ(seen, "box answered ran ");
    EXPECT_TRUE(Told("+- 标题 "));
    EXPECT_TRUE(Told("材料设置完成"));
}

TEST_F(Scripts, AnExpectationThatDoesNotHoldSaysWhatIsThere) {
    EXPECT_EQ(Failure("~ Command `ShowsABox`\n@ expect box \"材料设置完成\"\n@ ok"),
              "line 2: the box says \"\\t材料设置完成\\t\"");
    EXPECT_EQ(Failure("~ Command `ShowsABox`\n@ expect caption 别的\n@ ok"),
              "line 2: the caption is \"标题\"");
    EXPECT_EQ(Failure("~ Command `ShowsABox`\n@ expect box\n@ ok"),
              "line 2: the text that is expected is missing");
}

TEST_F(Scripts, ABoxWithoutACaptionHasTheSystemsOwn) {
    EXPECT_EQ(Run("~ Command `ShowsAPlainBox`\n@ expect caption none\n@ ok"), Failures{});
    EXPECT_EQ(Failure("~ Command `ShowsAPlainBox`\n@ expect caption x\n@ ok"),
              "line 2: the box has the system's own caption");
    EXPECT_EQ(Failure("~ Command `ShowsABox`\n@ expect caption none\n@ ok"),
              "line 2: the caption is \"标题\"");
}

TEST_F(Scripts, ABoxThatNoLineAnswersFailsAndIsAnsweredOk) {
    EXPECT_EQ(Failure("~ Command `ShowsABox`"),
              "line 1: the box \"材料设置完成\" is open and the script is at its end");
    EXPECT_EQ(seen, "box answered ");
}

TEST_F(Scripts, ALineThatDoesNotFitABoxFailsAndIsDoneAfterwards) {
    EXPECT_EQ(Failure("~ Command `ShowsABox`\n~ Command `Runs`"),
              "line 2: the box \"材料设置完成\" is open and has to be answered before "
              "~ Command `Runs` (@ ok answers it)");
    EXPECT_EQ(seen, "box answered ran ");
    EXPECT_EQ(Run("~ Command `ShowsTwoBoxes`\n~ Command `Runs`").size(), 2u);
}

TEST_F(Scripts, OkWithoutABoxFails) {
    EXPECT_EQ(Failure("@ ok"), "line 1: no box is open");
    EXPECT_EQ(Failure("@ expect box x"), "line 1: no box is open");
}

TEST_F(Scripts, NoBoxCanBeExpected) {
    EXPECT_EQ(Run("~ Command `Runs`\n@ expect no box"), Failures{});
    EXPECT_EQ(Failure("~ Command `ShowsAPlainBox`\n@ expect no box\n~ Command `Runs`"),
              "line 2: the box \"plain\" is open; it is answered OK");
    EXPECT_EQ(seen, "ran ran ");
}

// --- Prompts
// ---------------------------------------------------------------------------------------

TEST_F(Scripts, APromptIsAnsweredOrLeft) {
    EXPECT_EQ(Run("~ Command `Asks`\n@ expect message \"Name:\"\n@ answer NEW 1\n"), Failures{});
    EXPECT_EQ(Run("~ Command `Asks`\n@ answer\n"), Failures{});
    EXPECT_EQ(Run("~ Command `Asks`\n@ quit\n"), Failures{});
    EXPECT_EQ(seen, "asked 0 NEW 1 asked 0 OLD asked -31 untouched ");
    EXPECT_TRUE(Told("prompt: Name: [OLD]"));
}

TEST_F(Scripts, APromptThatNoLineAnswersFailsAndIsLeft) {
    EXPECT_EQ(Failure("~ Command `Asks`"),
              "line 1: the prompt \"Name:\" waits and the script is at its end");
    EXPECT_EQ(Failure("~ Command `Asks`\n~ Command `Runs`").substr(0, 35),
              "line 2: the prompt \"Name:\" waits an");
    EXPECT_EQ(seen, "asked -31 untouched asked -31 untouched ran ");
}

TEST_F(Scripts, AnAnswerWithoutAPromptFails) {
    EXPECT_EQ(Failure("@ answer x"), "line 1: no prompt waits for an answer");
    EXPECT_EQ(Failure("@ quit"), "line 1: neither a prompt nor a popup is there to be left");
    EXPECT_EQ(Failure("~ Command `Asks`\n@ ok\n@ quit"), "line 2: no box is open");
}

TEST_F(Scripts, AMessageIsTold) {
    host().messages.Display(WIDE("done"));
    EXPECT_EQ(Run("@ expect message done"), Failures{});
    EXPECT_EQ(Failure("@ expect message gone"), "line 1: the message line says \"done\"");
}

// --- Dialogs
// ---------------------------------------------------------------------------------------

TEST_F(Scripts, ADialogIsUsedByTheNextLinesAndABoxInItByThoseBehind) {
    EXPECT_EQ(Run("~ Command `OpensADialog`\n@ expect dialog Settings\n"
                  "~ FocusIn `Settings` `Apply`; ~ Activate `Settings` `Apply`\n@ ok\n"
                  "~ Activate `Settings` `OK`\n@ expect dialog none"),
              Failures{});
    EXPECT_EQ(seen, "box answered dialog 1 ");
    EXPECT_TRUE(Told("[ 应用 ]  ( 帮助 )  [ 确定 ]"));
}

TEST_F(Scripts, CloseClosesTheWindowOfADialog) {
    EXPECT_EQ(Run("~ Command `OpensADialog`\n~ Close `Settings`"), Failures{});
    EXPECT_EQ(Run("~ Command `OpensADialog`\n~ Close `Settings` `Settings`"), Failures{});
    EXPECT_EQ(seen, "dialog -1 dialog -1 ");
}

TEST_F(Scripts, AWrongComponentFailsAndTheDialogStays) {
    EXPECT_EQ(Failure("~ Command `OpensADialog`\n~ Activate `Settings` `Ok`\n"
                      "~ Activate `Settings` `OK`"),
              "line 2: no component Ok in dialog Settings; did you mean OK?");
    EXPECT_EQ(seen, "dialog 1 ");
}

TEST_F(Scripts, AnotherDialogCannotBeUsedMeanwhile) {
    EXPECT_EQ(Failure("~ Command `OpensADialog`\n~ Activate `Other` `OK`\n"
                      "~ Activate `Settings` `OK`"),
              "line 2: dialog Settings is open and has to be used first, not Other");
}

TEST_F(Scripts, ADialogThatNoLineEndsFailsAndIsClosed) {
    EXPECT_EQ(Failure("~ Command `OpensADialog`"),
              "line 1: the dialog Settings is open and the script is at its end");
    EXPECT_EQ(seen, "dialog -1 ");
}

TEST_F(Scripts, ACommandBehindADialogFailsAndIsDoneWhenTheDialogIsClosed) {
    EXPECT_EQ(Failure("~ Command `OpensADialog`\n~ Command `Runs`").substr(0, 40),
              "line 2: the dialog Settings is open and ");
    EXPECT_EQ(seen, "dialog -1 ran ");
}

TEST_F(Scripts, AStepNeedsADialogAndAComponent) {
    EXPECT_EQ(Failure("~ Activate"), "line 1: a dialog's name belongs behind ~ Activate");
    EXPECT_EQ(Failure("~ Activate `Settings`"),
              "line 1: a component's name belongs behind ~ Activate `Settings`");
    EXPECT_EQ(Failure("~ Command"), "line 1: a command's name belongs behind ~ Command");
}

TEST_F(Scripts, AQuestionOfTheHostThatStaysOpenFails) {
    Open(Part("SHAFT"));
    EXPECT_EQ(Failure("~ Select `main_dlg_cur` `ProCmdViewGallery.view`\n"
                      "~ Select `main_dlg_cur` "
                      "`ProCmdViewGallery_layoutph.palette_holder.clearAppearance`\n"
                      "~ Activate `main_dlg_cur` `clearAllAppearance`"),
              "line 3: the script ended while UI Message Dialog waited for an answer");
}

TEST_F(Scripts, AMacroUsesTheDialogItOpensAndThePersonDoesTheRest) {
    host().macros = {WIDE("~ Command `OpensADialog`;~ Activate `Settings` `OK`")};
    EXPECT_EQ(Run("@ wait 0"), Failures{});
    host().macros = {WIDE("~ Command `OpensADialog`;~ Activate `Settings` `Apply`")};
    EXPECT_EQ(Run("@ wait 0\n@ ok\n~ Activate `Settings` `OK`"), Failures{});
    EXPECT_EQ(seen, "dialog 1 box answered dialog 1 ");
}

// --- Popups
// ----------------------------------------------------------------------------------------

class PopupScripts : public Scripts {
protected:
    void SetUp() override {
        Scripts::SetUp();
        ProNotificationSet(PRO_POPUPMENU_CREATE_POST,
                           reinterpret_cast<ProFunction>(reinterpret_cast<void (*)()>(FillsPopup)));
    }
};

TEST_F(PopupScripts, AButtonOfThePopupIsChosenByItsLabel) {
    EXPECT_EQ(Run("@ right-click\n@ expect button 独立显示\n@ expect no button 反转显示\n"
                  "@ choose 独立显示\n"),
              Failures{});
    EXPECT_EQ(seen, "ran ");
    EXPECT_TRUE(Told("Sel Obj Menu"));
}

TEST_F(PopupScripts, WhatThePopupDoesNotHaveFails) {
    EXPECT_EQ(Failure("@ right-click Graphic Area Menu\n@ expect button 打开"),
              "line 2: the popup Graphic Area Menu has no button 打开");
    EXPECT_EQ(Failure("@ right-click\n@ expect no button 独立显示"),
              "line 2: the popup Sel Obj Menu has the button 独立显示");
    EXPECT_EQ(Failure("@ right-click\n@ choose Nothing"),
              "line 2: the popup Sel Obj Menu has no button Nothing");
    EXPECT_EQ(Failure("@ right-click Sel Obj Men"),
              "line 1: there is no popup menu Sel Obj Men; did you mean Sel Obj Menu?");
}

TEST_F(PopupScripts, APopupIsLeftByAnythingElse) {
    EXPECT_EQ(Failure("@ right-click\n~ Command `Runs`\n@ choose 独立显示"),
              "line 3: no popup is open; right-click opens one");
    EXPECT_EQ(Failure("@ right-click\n@ quit\n@ expect button 独立显示"),
              "line 3: no popup is open; right-click opens one");
    EXPECT_EQ(seen, "ran ");
}

// --- Models
// ----------------------------------------------------------------------------------------

class ModelScripts : public Scripts {
protected:
    void SetUp() override {
        Scripts::SetUp();
        shaft_ = &Part("SHAFT");
        unit_ = &Assembly("箱体");
        top_ = &Assembly("TOP");
        Use(*unit_, *shaft_);
        Use(*unit_, *shaft_);
        Use(*top_, *unit_);
        Use(*top_, *shaft_);
        Open(*top_);
    }
    std::string Picked(std::size_t i) {
        const Selection& selection = *host().session.buffer.at(i);
        std::string text = host().session.Find(selection.item.owner)->FileName() + " " +
                           std::to_string(selection.item.type) + " " +
                           std::to_string(selection.item.id) + " at";
        for (const int id : selection.path) text += " " + std::to_string(id);
        return text;
    }
    Model* shaft_ = nullptr;
    Model* unit_ = nullptr;
    Model* top_ = nullptr;
};

TEST_F(ModelScripts, ComponentsArePickedDownTheTree) {
    const int unit = top_->features()[0].id;
    const int second = unit_->features()[1].id;
    EXPECT_EQ(Run("@ select shaft, 箱体/SHAFT.PRT:2, ."), Failures{});
    ASSERT_EQ(host().session.buffer.size(), 3u);
    EXPECT_EQ(Picked(0), "shaft.prt 2 -1 at " + std::to_string(top_->features()[1].id));
    EXPECT_EQ(Picked(1),
              "shaft.prt 2 -1 at " + std::to_string(unit) + " " + std::to_string(second));
    EXPECT_EQ(Picked(2), "top.asm 1 -1 at");
    EXPECT_EQ(Run("@ clear selection"), Failures{});
    EXPECT_TRUE(host().session.buffer.empty());
}

TEST_F(ModelScripts, SurfacesFeaturesAndOtherItemsArePickedByTheirIds) {
    const std::string id = std::to_string(unit_->features()[0].id);
    EXPECT_EQ(Run("@ select shaft#11, shaft/surface#12, shaft/edge#7, 箱体#" + id), Failures{});
    ASSERT_EQ(host().session.buffer.size(), 4u);
    const std::string at = " at " + std::to_string(top_->features()[1].id);
    EXPECT_EQ(Picked(0), "shaft.prt 5 11" + at);
    EXPECT_EQ(Picked(1), "shaft.prt 5 12" + at);
    EXPECT_EQ(Picked(2), "shaft.prt 6 7" + at);
    EXPECT_EQ(Picked(3).substr(0, 14), "箱体.asm 3 " + id.substr(0, 1));
}

TEST_F(ModelScripts, APathThatLeadsNowhereFailsAndTheSelectionStays) {
    EXPECT_EQ(Run("@ select shaft"), Failures{});
    EXPECT_EQ(Failure("@ select shaf"),
              "line 1: top.asm holds no component shaf; did you mean shaft.prt?");
    EXPECT_EQ(Failure("@ select 箱体/shaft:3"), "line 1: 箱体.asm holds shaft only 2 times");
    EXPECT_EQ(Failure("@ select shaft#999"), "line 1: shaft.prt has no surface or feature 999");
    EXPECT_EQ(Failure("@ select shaft#x"), "line 1: \"x\" behind # is no id");
    EXPECT_EQ(Failure("@ select"), "line 1: a path belongs behind select, such as UNIT/GEAR:2");
    EXPECT_EQ(host().session.buffer.size(), 1u);
}

TEST_F(ModelScripts, AManufacturingModelIsPickedInItsAssembly) {
    Open(Manufacturing("MILL", *top_));
    EXPECT_EQ(Run("@ select 箱体"), Failures{});
    EXPECT_EQ(host().session.buffer[0]->top, top_);
}

TEST_F(ModelScripts, ModelsAreSavedClosedAndOpenedAgain) {
    const WideText folder = host().session.workingDirectory;
    EXPECT_EQ(Run("@ save all\n@ close\n@ open top.asm"), Failures{});
    bool found = false;
    Read(folder + WIDE("\\箱体.asm.1"), &found);
    EXPECT_TRUE(found);
    EXPECT_EQ(host().session.CurrentModel(), top_);
    EXPECT_EQ(Run("@ save\n@ save shaft.prt"), Failures{});
    EXPECT_EQ(top_->version, 2);
    EXPECT_EQ(shaft_->version, 2);
    EXPECT_EQ(Run("@ save all"), Failures{});  // nothing was changed since
    EXPECT_EQ(top_->version, 2);
    EXPECT_EQ(Failure("@ save shat.prt"),
              "line 1: the model shat.prt is not in memory; did you mean shaft.prt?");
}

TEST_F(ModelScripts, WindowsAreChangedByTheirModel) {
    Open(*shaft_);
    EXPECT_EQ(Run("@ window top.asm"), Failures{});
    EXPECT_EQ(host().session.CurrentModel(), top_);
    EXPECT_EQ(Failure("@ window 箱体.asm"), "line 1: no window shows 箱体.asm");
    EXPECT_EQ(Run("@ close"), Failures{});
    EXPECT_EQ(Failure("@ close"), "line 1: no window is open");
    EXPECT_EQ(Failure("@ select shaft"), "line 1: no model is open");
}

TEST_F(ModelScripts, AFileOrAFolderThatIsNotThereFails) {
    EXPECT_EQ(Failure("@ open nowhere.prt"), "line 1: there is no nowhere.prt in C:\\Work");
    EXPECT_EQ(Failure("@ directory C:\\Nowhere"), "line 1: there is no folder C:\\Nowhere");
    std::filesystem::create_directories(host().disk.Real(WIDE("C:\\Other")));
    EXPECT_EQ(Run("@ directory C:\\Other\\"), Failures{});
    EXPECT_EQ(host().session.workingDirectory, WIDE("C:\\Other"));
}

TEST_F(ModelScripts, ColoursAreExpectedAsRedGreenBlue) {
    shaft_->appearance = DefaultAppearance();
    shaft_->appearance->colour[0] = 1.0;
    shaft_->appearance->colour[1] = 128 / 255.0;
    shaft_->appearance->colour[2] = 0;
    EXPECT_EQ(Run("@ expect colour shaft.prt 255.128.0\n@ expect colour SHAFT 255.128.0\n"
                  "@ expect colour 箱体 none\n@ expect colour shaft#11 none"),
              Failures{});
    EXPECT_EQ(Failure("@ expect colour shaft 255.128.1"),
              "line 1: the colour of shaft.prt is 255.128.0, not 255.128.1");
    EXPECT_EQ(Failure("@ expect colour 箱体 0.0.0"),
              "line 1: the colour of 箱体.asm is none, not 0.0.0");
    EXPECT_EQ(Failure("@ expect colour shaft#999 none"), "line 1: shaft.prt has no surface 999");
    EXPECT_EQ(Failure("@ expect colour shat none"),
              "line 1: the model shat is not in memory; did you mean shaft.prt?");
}

TEST_F(ModelScripts, AvailabilityIsExpected) {
    EXPECT_EQ(Run("@ expect available Runs\n@ expect greyed NotHere"), Failures{});
    EXPECT_EQ(Failure("@ expect greyed Runs"),
              "line 1: Runs is available (its access rule answers 3)");
    EXPECT_EQ(Failure("@ expect available NotHere"),
              "line 1: NotHere is not shown (its access rule answers 1)");
    EXPECT_EQ(Failure("@ expect greyed Rums"),
              "line 1: there is no command Rums; did you mean Runs?");
}

TEST_F(ModelScripts, EverythingCanBeShown) {
    shaft_->appearance = DefaultAppearance();
    EXPECT_EQ(Run("@ select shaft\n@ show models\n@ show menu\n@ show commands\n@ show dialog\n"
                  "@ show popup\n@ show selection\n@ show colours\n@ show messages"),
              Failures{});
    EXPECT_TRUE(Told("* top.asm"));
    EXPECT_TRUE(Told("3 models in memory, working folder C:\\Work"));
    EXPECT_TRUE(Told("NotHere                  not shown"));
    EXPECT_TRUE(Told("no dialog is open"));
    EXPECT_TRUE(Told("1 selected"));
    EXPECT_TRUE(Told("1 models have a colour of their own"));
    EXPECT_EQ(Failure("@ show model").substr(0, 18), "line 1: show what?");
}

// --- Settings, time, hooks
// ---------------------------------------------------------------------------

TEST_F(Scripts, ASettingIsWritten) {
    EXPECT_EQ(Run("@ setting RmbDisable value 0"), Failures{});
    WideChar value[20];
    const WideText path = workbench::kTextFolder + WIDE("\\VXconfig\\VxConfig.ini");
    GetPrivateProfileStringW(WIDE("RmbDisable"), WIDE("value"), WIDE("none"), value, 20,
                             path.c_str());
    EXPECT_EQ(WideText(value), WIDE("0"));
    EXPECT_EQ(Failure("@ setting RmbDisable"),
              "line 1: a setting is SECTION KEY VALUE, such as RmbDisable value 0");
}

void Fires(HWND, UINT, UINT_PTR timer, DWORD) {
    seen += "fired ";
    KillTimer(nullptr, timer);
}

TEST_F(Scripts, WaitingLetsTimersFire) {
    SetTimer(nullptr, 1, 2000, Fires);
    EXPECT_EQ(Run("@ wait 1.5"), Failures{});
    EXPECT_EQ(seen, "");
    EXPECT_EQ(Run("@ wait 0.5"), Failures{});
    EXPECT_EQ(seen, "fired ");
    EXPECT_EQ(Failure("@ wait long"), "line 1: \"long\" is no number of seconds");
    EXPECT_EQ(Failure("@ wait -1"), "line 1: \"-1\" is no number of seconds");
}

TEST_F(Scripts, TheApplicationLoadsUnloadsAndDraws) {
    EXPECT_EQ(Failure("@ start"), "line 1: nothing here can load the plug-in");
    EXPECT_EQ(Failure("@ picture x.svg"), "line 1: nothing here can draw pictures");
    TheHooks().start = [] { return std::string("the module has no user_initialize"); };
    TheHooks().stop = [] {
        seen += "stopped ";
        return std::string();
    };
    TheHooks().picture = [](const std::string& file) {
        seen += file;
        return std::string();
    };
    EXPECT_EQ(Failure("@ start"), "line 1: the module has no user_initialize");
    EXPECT_EQ(Run("@ stop\n@ picture \"a b.svg\""), Failures{});
    EXPECT_EQ(seen, "stopped a b.svg");
}

TEST_F(Scripts, ANoteStandsInTheTranscript) {
    EXPECT_EQ(Run("@ note the second half\n@ help words"), Failures{});
    EXPECT_TRUE(Told("@ note the second half"));
    EXPECT_TRUE(Told("@ expect box TEXT"));
    EXPECT_EQ(Failure("@ ok now"), "line 1: nothing belongs behind ok, but there is \"now\"");
}

TEST_F(Scripts, TheUserBeforeTheScriptIsBackAfterIt) {
    EXPECT_EQ(host().user, nullptr);
    Run("~ Command `Runs`");
    EXPECT_EQ(host().user, nullptr);
}

// --- By hand
// -----------------------------------------------------------------------------------------

// Somebody at a terminal, as the prompt is: asked again after a line that does not fit.
class Hand : public Source {
public:
    explicit Hand(std::deque<std::string> lines) : lines_(std::move(lines)) {}
    std::optional<std::string> Next(const std::string& waiting) override {
        prompts += waiting + "> ";
        if (lines_.empty()) return std::nullopt;
        std::string line = lines_.front();
        lines_.pop_front();
        return line;
    }
    bool patient() const override { return true; }
    bool takesPlainWords() const override { return true; }
    std::string prompts;

private:
    std::deque<std::string> lines_;
};

TEST_F(Scripts, ByHandPlainWordsAreCommandsAndWordsAndTheNextPromptSaysWhatWaits) {
    Hand hand({"Runs", "ShowsABox", "ok", "OpensADialog", "~ Activate `Settings` `OK`", "Asks",
               "answer X", "right-click", "quit", "quit"});
    Trail trail(hand, [](const std::string&) {});
    EXPECT_TRUE(trail.Run());
    EXPECT_EQ(seen, "ran box answered dialog 1 asked 0 X ");
    EXPECT_EQ(hand.prompts, "vx> vx> box> vx> dialog Settings> vx> answer> vx> popup> vx> ");
}

TEST_F(Scripts, ByHandALineThatDoesNotFitIsAskedAgain) {
    Hand hand({"ShowsABox", "Runs", "nonsense", "ok"});
    Trail trail(hand, [](const std::string&) {});
    trail.Run();
    EXPECT_EQ(seen, "box answered ");
    ASSERT_EQ(trail.failures().size(), 2u);
    EXPECT_EQ(trail.failures()[1], "nothing is called \"nonsense\"; try help");
}

TEST_F(ModelScripts, TheTabKeyKnowsStepsWordsCommandsDialogsAndModels) {
    using Words = std::vector<std::string>;
    EXPECT_EQ(Completions("~ Ac"), Words{"Activate"});
    EXPECT_EQ(Completions("~ Command `Run"), Words{"Runs"});
    EXPECT_EQ(Completions("Run"), Words{"Runs"});
    EXPECT_EQ(Completions("@ expect ca"), Words{"caption"});
    EXPECT_EQ(Completions("expect no "), (Words{"box", "button"}));
    EXPECT_EQ(Completions("select 箱体/SH"), Words{"shaft.prt"});
    EXPECT_EQ(Completions("show col"), Words{"colours"});
    EXPECT_EQ(Completions("expect greyed Not"), Words{"NotHere"});
    char name[] = "Settings";
    ProUIDialogCreate(name, name);
    EXPECT_EQ(Completions("~ Activate `Set"), Words{"Settings"});
    EXPECT_EQ(Completions("~ FocusIn `Settings` `A"), Words{"Apply"});
    EXPECT_EQ(Completions("~ Command `Runs`; ~ Activate `Settings` `O"), Words{"OK"});
    EXPECT_EQ(Run("@ save all"), Failures{});
    EXPECT_EQ(Completions("open s"), Words{"shaft.prt"});
}

}  // namespace
