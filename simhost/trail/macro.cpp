// Runs macros. A dialog that a macro opens is used by the macro's next steps first.
#include "simhost/trail/macro.h"

#include <fmt/format.h>

#include <deque>

#include "simhost/host.h"
#include "simhost/trail/steps.h"

namespace simhost {
namespace {

class MacroUser : public User {
public:
    explicit MacroUser(std::deque<Step> steps) : steps_(std::move(steps)) { TheHost().user = this; }
    ~MacroUser() override { TheHost().user = person_; }
    MacroUser(const MacroUser&) = delete;
    MacroUser& operator=(const MacroUser&) = delete;

    void Run() {
        while (!steps_.empty()) Perform(Take());
    }

    // A macro cannot answer boxes, prompts, picks and file dialogs; the person before the host
    // does.
    int AnswerBox(const Box& box) override {
        if (person_) return person_->AnswerBox(box);
        TheHost().Complain("a box is open and nobody answers it");
        return 1;
    }
    std::optional<WideText> AnswerPrompt(const WideText& prompt,
                                         const WideText& byDefault) override {
        if (person_) return person_->AnswerPrompt(prompt, byDefault);
        TheHost().Complain("a prompt waits and nobody answers it");
        return std::nullopt;
    }
    void Pick(Picking& picking) override {
        if (person_) person_->Pick(picking);
    }
    std::optional<Click> AnswerClick() override {
        if (person_) return person_->AnswerClick();
        TheHost().Complain("a click is waited for and nobody clicks");
        return std::nullopt;
    }
    std::optional<WideText> AnswerFile(const FileQuestion& question) override {
        if (person_) return person_->AnswerFile(question);
        TheHost().Complain("a file dialog is open and nobody answers it");
        return std::nullopt;
    }
    bool AnswerReplace(const WideText& path) override {
        return !person_ || person_->AnswerReplace(path);
    }
    // A dialog that the macro's steps leave open is the person's, unless a step did not fit: then
    // it is closed without effect.
    void UseDialog(Dialog& dialog) override {
        while (!dialog.ended() && !steps_.empty()) Perform(Take());
        if (dialog.ended()) return;
        if (!failed_) {
            if (person_) person_->UseDialog(dialog);
            return;
        }
        TheHost().Tell(
            fmt::format("the dialog {} that the macro has opened is closed", dialog.name()));
        dialog.CloseWindow();
    }

private:
    // A command that nobody has registered is passed over; after a step that cannot be done the
    // rest of the macro would do something else than was meant.
    void Perform(const Step& step) {
        if (step.verb == "Command" && !step.arguments.empty() && !IsCommand(step.arguments[0])) {
            TheHost().Tell(fmt::format("in the macro, {}: there is no such command, passed over",
                                       step.written));
            return;
        }
        const std::string problem = PerformTrailStep(step);
        if (problem.empty()) return;
        TheHost().Complain(fmt::format("in the macro, {}: {}", step.written, problem));
        failed_ = true;
        steps_.clear();
    }

    Step Take() {
        Step step = std::move(steps_.front());
        steps_.pop_front();
        return step;
    }

    User* person_ = TheHost().user;
    std::deque<Step> steps_;
    bool failed_ = false;
};

}  // namespace

void RunMacro(const std::string& macro) {
    std::deque<Step> steps;
    try {
        for (Step& step : LexLine(macro)) {
            if (step.kind != Step::Kind::Trail) throw LexError("its steps begin with ~");
            steps.push_back(std::move(step));
        }
    } catch (const LexError& error) {
        TheHost().Complain(fmt::format("the macro \"{}\": {}", macro, error.what()));
        return;
    }
    MacroUser(std::move(steps)).Run();
    MainWindow& window = TheHost().dialogs.mainWindow;
    if (window.questionOpen()) {
        TheHost().Complain(fmt::format("the macro ended while {} waited for an answer",
                                       MainWindow::kQuestionName));
        window.CloseQuestion();
    }
}

}  // namespace simhost
