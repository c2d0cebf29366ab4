// Scripts: how their lines answer what waits, and how what fails is told.
#include <algorithm>
#include <deque>
#include <string>
#include <utility>
#include <vector>

#include "hostapi/host.h"
#include "tests/simhost/trail_ground.h"

using namespace simhost;
using namespace trails;

namespace {

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
    EXPECT_EQ(Failure("@ expect bx hello"),
              "line 1: nothing is called \"expect bx hello\"; did you mean expect box?");
    EXPECT_EQ(Failure("@ expect clour shaft none"),
              "line 1: nothing is called \"expect clour shaft none\"; did you mean expect colour?");
    EXPECT_EQ(Failure("@ expect").substr(0, 41), "line 1: expect what? box, caption, no box");
    EXPECT_EQ(Failure("@ expect everything").substr(0, 60),
              "line 1: nothing called \"everything\" can be expected; box, ca");
    EXPECT_EQ(Failure("@ ls"), "line 1: nothing is called \"ls\"; try help");
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

TEST_F(Scripts, ALineBeforeTheFirstDoesNotCount) {
    TextSource source("~ Command `Nowhere`");
    Trail trail(source, [](const std::string&) {});
    trail.Begin("~ Command `Runs`");
    trail.Run();
    EXPECT_EQ(seen, "ran ");
    ASSERT_EQ(trail.failures().size(), 1u);
    EXPECT_EQ(trail.failures()[0].substr(0, 8), "line 1: ");
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
    EXPECT_EQ(Failure("~ Command `ShowsABoxOfTwoLines`"),
              "line 1: the box \"first\\nsecond\" is open and the script is at its end");
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
    EXPECT_EQ(Failure("@ quit"),
              "line 1: neither a prompt nor a pick nor a click nor a popup is there to be left");
    EXPECT_EQ(Failure("~ Command `Asks`\n@ ok\n@ quit"), "line 2: no box is open");
}

TEST_F(Scripts, AMessageIsTold) {
    host().messages.Display(WIDE("done"));
    EXPECT_EQ(Run("@ expect message done"), Failures{});
    EXPECT_EQ(Failure("@ expect message gone"), "line 1: the message line says \"done\"");
}

TEST_F(Scripts, AMessageThatComesAgainAndAgainIsToldOnceWithItsNumber) {
    EXPECT_EQ(Run("~ Command `Tells`"), Failures{});
    EXPECT_TRUE(Told("message: one\n    message: two (x3)\n    message: one\n")) << transcript_;
}

// --- Dialogs

TEST_F(Scripts, ADialogIsUsedByTheNextLinesAndABoxInItByThoseBehind) {
    EXPECT_EQ(Run("~ Command `OpensADialog`\n@ expect dialog Settings\n"
                  "~ FocusIn `Settings` `Apply`; ~ Activate `Settings` `Apply`\n@ ok\n"
                  "~ Activate `Settings` `OK`\n@ expect dialog none"),
              Failures{});
    EXPECT_EQ(seen, "box answered dialog 1 ");
    EXPECT_TRUE(Told("[ 应用 ]   ( 帮助 )    [> 确定 <]"));
}

TEST_F(Scripts, AWindowWithoutACloseActionStaysOpenAndThatIsNoFailure) {
    EXPECT_EQ(Run("~ Command `OpensADialog`\n~ Close `Settings`\n@ expect dialog Settings\n"
                  "~ Close `Settings` `Settings`\n~ Activate `Settings` `OK`"),
              Failures{});
    EXPECT_TRUE(Told("    the window of Settings stays open: its buttons end it"));
    EXPECT_EQ(seen, "dialog 1 ");
}

// --- The Enter key

TEST_F(Scripts, EnterPressesTheDefaultButtonOrAnswersABox) {
    EXPECT_EQ(Run("~ Command `OpensADialog`\n@ enter\n~ Command `ShowsABox`\n@ enter"), Failures{});
    EXPECT_TRUE(Told("( 帮助 )    [> 确定 <]"));
    EXPECT_EQ(seen, "dialog 1 box answered ");
    EXPECT_EQ(Failure("@ enter"), "line 1: neither a box nor a dialog is open");
}

TEST_F(Scripts, InAScriptOkIsForBoxesAlone) {
    EXPECT_EQ(Failure("~ Command `OpensADialog`\n@ ok\n@ enter"), "line 2: no box is open");
}

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

// --- Labels

TEST_F(Scripts, AButtonIsAlsoPressedByItsLabelAndTheTranscriptHoldsItsName) {
    EXPECT_EQ(Run("~ Command `OpensADialog`\n~ Activate `Settings` `应用`\n@ ok\n"
                  "~ Activate `Settings` `确定`"),
              Failures{});
    EXPECT_TRUE(Told("\n~ Activate `Settings` `Apply`\n"));
    EXPECT_FALSE(Told("`应用`"));
    EXPECT_EQ(seen, "box answered dialog 1 ");
}

TEST_F(Scripts, ALabelThatTwoButtonsBearIsRefusedWithBothNames) {
    const WideText file = workbench::kTextFolder + WIDE("\\text\\resource\\Settings.res");
    std::string resource = Read(file);
    resource.replace(resource.find("帮助"), std::string("帮助").size(), "应用");
    Write(file, resource);
    EXPECT_EQ(Failure("~ Command `OpensADialog`\n~ Activate `Settings` `应用`\n"
                      "~ Activate `Settings` `OK`"),
              "line 2: \"应用\" is the label of Apply and Help; say which by its name");
    EXPECT_EQ(seen, "dialog 1 ");
    Hand hand({"OpensADialog", "应用", "确定"});
    std::string told;
    Trail trail(hand, [&told](const std::string& line) { told += line + "\n"; });
    EXPECT_TRUE(trail.Run());
    EXPECT_NE(told.find("    !! \"应用\" can mean several: ~ Activate `Settings` `Apply`, or "
                        "~ Activate `Settings` `Help`\n"),
              std::string::npos)
        << told;
    EXPECT_EQ(seen, "dialog 1 dialog 1 ");
}

TEST_F(Scripts, ALabelThatTwoCommandsBearIsRefusedWithBothNames) {
    Commands& commands = host().commands;
    commands.AddMenu("Trials", WIDE("Trials"), nullptr, true);
    for (const char* name : {"Runs", "Asks", "ShowsABox"}) {
        const WideText label = name == std::string("ShowsABox") ? WIDE("Box") : WIDE("Go on");
        MenuButton button{name, label, {}, &commands.RequireName(name), {}, {}};
        commands.AddButton("Trials", std::move(button), nullptr, true);
    }
    EXPECT_EQ(Failure("~ Command `Go on`"),
              "line 1: \"Go on\" is the label of Runs and Asks; say which by its name");
    EXPECT_EQ(Run("~ Command `Box`\n@ ok"), Failures{});
    EXPECT_EQ(seen, "box answered ");
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
    EXPECT_TRUE(Told("    (its window stays open; OK ends it)"));
    EXPECT_EQ(seen, "dialog 1 ");
}

TEST_F(Scripts, ACommandBehindADialogFailsAndIsDoneWhenTheDialogIsClosed) {
    EXPECT_EQ(Failure("~ Command `OpensADialog`\n~ Command `Runs`").substr(0, 40),
              "line 2: the dialog Settings is open and ");
    EXPECT_EQ(seen, "dialog 1 ran ");
}

TEST_F(Scripts, AStepNeedsADialogAndAComponent) {
    EXPECT_EQ(Failure("~ Activate"), "line 1: a dialog's name belongs after ~ Activate");
    EXPECT_EQ(Failure("~ Activate `Settings`"),
              "line 1: a component's name belongs after ~ Activate `Settings`");
    EXPECT_EQ(Failure("~ Command"), "line 1: a command's name belongs after ~ Command");
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

// --- By hand

TEST_F(Scripts, ByHandPlainWordsAreCommandsAndWordsAndTheNextPromptSaysWhatWaits) {
    Hand hand({"Runs", "ShowsABox", "ok", "OpensADialog", "~ Activate `Settings` `OK`", "Asks",
               "answer X", "right-click", "quit", "quit"});
    Trail trail(hand, [](const std::string&) {});
    EXPECT_TRUE(trail.Run());
    EXPECT_EQ(seen, "ran box answered dialog 1 asked 0 X ");
    EXPECT_EQ(hand.prompts, "vx> vx> box> vx> dialog Settings> vx> answer> vx> popup> vx> ");
}

TEST_F(Scripts, ByHandAStepThatEndsWithoutAWordIsConfirmed) {
    Hand hand({"Runs", "note seen", "ShowsABox", "ok"});
    std::vector<std::string> told;
    Trail trail(hand, [&told](const std::string& line) { told.push_back(line); });
    EXPECT_TRUE(trail.Run());
    ASSERT_GT(told.size(), 3u);
    EXPECT_EQ(told[0], "    done");
    EXPECT_EQ(told[1], "    seen");
    EXPECT_EQ(told.back(), "    done");
    EXPECT_EQ(std::count(told.begin(), told.end(), "    done"), 2);
}

TEST_F(Scripts, ByHandLeavingIsDoneTwiceWhereSomethingWouldBeLost) {
    std::string lost = "a.prt is not saved";
    TheHooks().lost = [&] { return lost; };
    const auto typed = [](const std::deque<std::string>& lines) {
        Hand hand(lines);
        std::string told;
        Trail trail(hand, [&told](const std::string& line) { told += line + "\n"; });
        EXPECT_TRUE(trail.Run());
        return told + hand.prompts;
    };
    const std::string once = "    a.prt is not saved\n";
    EXPECT_EQ(typed({"quit", "quit", "Runs"}), once + "vx> vx> ");
    // The end of the input is told like the word; there is none behind the last.
    EXPECT_EQ(typed({}), once + "vx> vx> ");
    EXPECT_EQ(typed({"quit", "Runs", "quit", "Runs"}), once + "    done\nvx> vx> vx> ");
    lost.clear();
    EXPECT_EQ(typed({"quit", "Runs"}), "vx> ");
    EXPECT_EQ(seen, "ran ");
}

TEST_F(Scripts, ByHandWhatWouldBeLostBesidesIsToldOnceMore) {
    int changes = 0;
    TheHooks().lost = [&] { return std::to_string(changes) + " changes"; };
    TheHooks().start = [&] {
        ++changes;
        return std::string();
    };
    Hand hand({"quit", "start", "quit", "quit"});
    std::string told;
    Trail trail(hand, [&told](const std::string& line) { told += line + "\n"; });
    EXPECT_TRUE(trail.Run());
    EXPECT_EQ(told, "    0 changes\n    done\n    1 changes\n");
}

TEST_F(Scripts, WhatAScriptWouldLoseIsNotAskedAbout) {
    TheHooks().lost = [] { return std::string("a.prt is not saved"); };
    EXPECT_EQ(Run("~ Command `Runs`"), Failures{});
    EXPECT_EQ(transcript_, "~ Command `Runs`\n");
}

TEST_F(Scripts, ByHandALineThatDoesNotFitIsAskedAgain) {
    Hand hand({"ShowsABox", "Runs", "nonsense", "ok"});
    std::vector<std::string> told;
    Trail trail(hand, [&told](const std::string& line) { told.push_back(line); });
    EXPECT_TRUE(trail.Run());
    EXPECT_EQ(seen, "box answered ");
    ASSERT_EQ(told.size(), 7u);  // the box, two slips, the end
    EXPECT_EQ(told[5], "    !! nothing is called \"nonsense\"; try help");
}

TEST_F(Scripts, ByHandASlipIsNoFailureButAnExpectationAndAComplaintAre) {
    Hand hand({"nonsense", "expect bx x", "open nowhere.prt", "expect message gone", "Complains"});
    Trail trail(hand, [](const std::string&) {});
    EXPECT_FALSE(trail.Run());
    const Failures wanted = {"the message line says \"\"", "the host complains: a dangling handle"};
    EXPECT_EQ(trail.failures(), wanted);
    EXPECT_EQ(Complaints().size(), 1u);
}

TEST_F(Scripts, ByHandButtonsAndTheDefaultButtonArePressedByPlainWords) {
    Hand hand({"OpensADialog", "应用", "ok", "ok", "OpensADialog", "OK"});
    std::vector<std::string> told;
    Trail trail(hand, [&told](const std::string& line) { told.push_back(line); });
    EXPECT_TRUE(trail.Run());
    EXPECT_EQ(seen, "box answered dialog 1 dialog 1 ");
    EXPECT_EQ(std::count(told.begin(), told.end(), "    ~ Activate `Settings` `Apply`"), 1);
    EXPECT_EQ(std::count(told.begin(), told.end(), "    ~ Activate `Settings` `OK`"), 0);
}

}  // namespace
