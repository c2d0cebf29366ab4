// The pattern of all dialogs: its order of calls, what a failed step shows and leaves, and the two
// ways in which a dialog ends.
#include "frame/services/dialog.h"
#include "frame/services/text.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using workbench::Workbench;
using Lines = std::vector<std::string>;

constexpr const char* kName = "Question";

class ModalDialog : public Workbench {
protected:
    ModalDialog() {
        Write(workbench::kTextFolder + WIDE("\\text\\resource\\Question.res"),
              "(Dialog Question (Components (PushButton OK)) (Resources (OK.Label \"OK\")"
              " (.Layout (Grid (Rows 1) (Cols 1) OK))))");
    }
    // Runs the dialog while the user plays these lines; the journal has its calls.
    ProError Run(const std::string& lines) {
        ProError status = PRO_TK_NO_ERROR;
        host().journal.Clear();
        host().journal.Start();
        PlayDuring(
            [&] {
                status = RunModalDialog(kName, [&] {
                    ++prepared_;
                    ProUIPushbuttonActivateActionSet(HostText(kName), HostText("OK"),
                                                     EndDialogWithOk, nullptr);
                    ProUIDialogCloseActionSet(HostText(kName), EndDialogOnClose, nullptr);
                });
            },
            lines);
        host().journal.Stop();
        return status;
    }
    void ExpectPlainError(const std::string& text) {
        ASSERT_EQ(AllBoxes().size(), 1u);
        EXPECT_EQ(Boxes().front(), text);
        EXPECT_FALSE(AllBoxes().front().hasCaption);
        EXPECT_EQ(AllBoxes().front().flags, 0u);
    }

    int prepared_ = 0;
};

TEST_F(ModalDialog, RunsItsStepsInOrderUnderOneNameForDialogAndResource) {
    EXPECT_EQ(Run("~ Activate `Question` `OK`"), PRO_TK_NO_ERROR);
    const Lines wanted = {
        R"(ProUIDialogCreate(dialog="Question", resource="Question") = 0)",
        R"(ProUIPushbuttonActivateActionSet(dialog="Question", component="OK", action=function, )"
        "data=null) = 0",
        R"(ProUIDialogCloseActionSet(dialog="Question", action=function, data=null) = 0)",
        R"(ProUIDialogActivate(dialog="Question", status=1) = 0)",
        R"(  ProUIDialogExit(dialog="Question", status=1) = 0)",
        R"(ProUIDialogDestroy(dialog="Question") = 0)",
    };
    EXPECT_EQ(Calls(), wanted);
    EXPECT_TRUE(host().dialogs.Existing().empty());
    EXPECT_EQ(Boxes(), Lines{});
}

TEST_F(ModalDialog, EndsWithNoughtWhenItsWindowIsClosed) {
    EXPECT_EQ(Run("~ Close `Question`"), PRO_TK_NO_ERROR);
    EXPECT_EQ(Calls().at(3), R"(ProUIDialogActivate(dialog="Question", status=0) = 0)");
    EXPECT_EQ(Calls().at(4), R"(  ProUIDialogExit(dialog="Question", status=0) = 0)");
}

TEST_F(ModalDialog, CanBeShownAgain) {
    for (int i = 0; i < 3; ++i) EXPECT_EQ(Run("~ Activate `Question` `OK`"), PRO_TK_NO_ERROR);
    EXPECT_EQ(prepared_, 3);
}

TEST_F(ModalDialog, ThatCannotBeCreatedSaysSoAndDoesNothingElse) {
    Fail("ProUIDialogCreate", {.status = PRO_TK_BAD_INPUTS});
    EXPECT_EQ(Run("@ ok"), PRO_TK_BAD_INPUTS);
    ExpectPlainError("UIDialog Create error!");
    EXPECT_EQ(prepared_, 0);
    const Lines wanted = {"ProUIDialogCreate", "MessageBoxW"};
    EXPECT_EQ(host().journal.Names(), wanted);
}

TEST_F(ModalDialog, WithoutItsResourceCannotBeCreated) {
    std::filesystem::remove(
        host().disk.Real(workbench::kTextFolder + WIDE("\\text\\resource\\Question.res")));
    EXPECT_EQ(Run("@ ok"), PRO_TK_E_NOT_FOUND);
    ExpectPlainError("UIDialog Create error!");
}

TEST_F(ModalDialog, ThatCannotBeActivatedSaysSoAndIsNotDestroyed) {
    Fail("ProUIDialogActivate");
    EXPECT_EQ(Run("@ ok"), PRO_TK_GENERAL_ERROR);
    ExpectPlainError("UIDialog Activate error!");
    EXPECT_EQ(prepared_, 1);
    EXPECT_EQ(host().dialogs.Existing(), Lines{kName});
    EXPECT_EQ(host().journal.Names().back(), "MessageBoxW");
}

TEST_F(ModalDialog, ThatCannotBeDestroyedSaysSo) {
    Fail("ProUIDialogDestroy", {.status = PRO_TK_BAD_CONTEXT});
    EXPECT_EQ(Run("~ Activate `Question` `OK`\n@ ok"), PRO_TK_BAD_CONTEXT);
    ExpectPlainError("UIDialog Destroy error!");
}

TEST_F(ModalDialog, WhosePreparationThrowsIsDestroyedSilentlyAndNotShown) {
    host().journal.Start();
    EXPECT_THROW(RunModalDialog(kName, [] { throw std::bad_alloc(); }), std::bad_alloc);
    host().journal.Stop();
    const Lines wanted = {"ProUIDialogCreate", "ProUIDialogDestroy"};
    EXPECT_EQ(host().journal.Names(), wanted);
    EXPECT_TRUE(host().dialogs.Existing().empty());
    EXPECT_EQ(Boxes(), Lines{});
}

TEST_F(ModalDialog, GoesOnWhenAnActionCannotBeAttached) {
    Fail("ProUIPushbuttonActivateActionSet");
    EXPECT_EQ(Run("~ Close `Question`"), PRO_TK_NO_ERROR);
    EXPECT_EQ(Boxes(), Lines{});
}

}  // namespace
