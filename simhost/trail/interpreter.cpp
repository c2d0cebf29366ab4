// Runs scripts. Whatever waits for the user takes the next lines from the same source, so a script
// reads from top to bottom as the user acts.
#include "simhost/trail/interpreter.h"

#include <fmt/format.h>

#include <algorithm>
#include <exception>
#include <utility>

#include "simhost/core/text.h"
#include "simhost/model/picking.h"
#include "simhost/system/clock.h"
#include "simhost/trail/file_choice.h"
#include "simhost/trail/hooks.h"
#include "simhost/trail/labels.h"
#include "simhost/trail/robot.h"
#include "simhost/trail/steps.h"
#include "simhost/trail/words.h"
#include "simhost/ui/near_name.h"
#include "simhost/ui/text_frame.h"
#include "simhost/ui/textfield.h"
#include "simhost/user/language.h"

namespace simhost {
namespace {

constexpr const char* kIndent = "    ";

std::string Quoted(const WideText& text) {
    return Visible(Wide(std::string(Trimmed(Utf8(text)))));
}

// What waits, as the beginning of a sentence.
std::string Describe(const Wait& wait) {
    switch (wait.kind) {
        case Wait::Kind::Box: return fmt::format("the box {} is open", Quoted(wait.box->text));
        case Wait::Kind::Prompt: return fmt::format("the prompt {} waits", Quoted(wait.prompt));
        case Wait::Kind::Pick:
            return fmt::format("the host waits for a pick ({})", wait.picking->Question());
        case Wait::Kind::Click: return "the host waits for a click";
        default: return fmt::format("the dialog {} is open", wait.dialog->name());
    }
}

const char* WayOut(const Wait& wait) {
    switch (wait.kind) {
        case Wait::Kind::Box: return "@ ok answers it";
        case Wait::Kind::Prompt: return "@ answer TEXT or @ quit answers it";
        case Wait::Kind::Pick: return "@ pick PATH, @ pick nothing or @ quit answers it";
        case Wait::Kind::Click: return "@ click X Y or @ quit answers it";
        default: return "its buttons or ~ Close end it";
    }
}

// Presses and what else a user does to commands and dialogs.
bool IsPress(const Step& step) {
    if (step.kind == Step::Kind::Trail) return true;
    const Word* word = step.kind == Step::Kind::Word ? FindWord(step.text, nullptr) : nullptr;
    return word && word->presses;
}

bool IsExpectation(const Step& step) {
    const Word* word = step.kind == Step::Kind::Word ? FindWord(step.text, nullptr) : nullptr;
    return word && std::string_view(word->name).substr(0, 7) == "expect ";
}

// A step that closes the dialog's window, and not the list of one of its menus.
bool ClosesWindow(const Dialog& dialog, const Step& step) {
    if (step.verb != VerbName(Verb::Close) || step.arguments.empty() ||
        step.arguments[0] != dialog.name())
        return false;
    return step.arguments.size() == 1 ||
           !dynamic_cast<const OptionMenu*>(dialog.Find(step.arguments[1]));
}

std::string InOneLine(std::string text) {
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

bool IsDone(const Wait& wait) {
    if (wait.kind == Wait::Kind::Dialog) return wait.dialog->ended();
    return wait.kind == Wait::Kind::Pick ? wait.picking->answered() : wait.answered;
}

}  // namespace

Trail::Trail(Source& source, Print print) : source_(source), print_(std::move(print)) {}

void Trail::Begin(const std::string& line) {
    for (Step& step : LexLine(line)) pending_.push_back(std::move(step));
}

bool Trail::Run() {
    Host& host = TheHost();
    User* before = host.user;
    host.user = &user_;
    shownSeen_ = host.shown.size();
    complaintsSeen_ = host.complaints.size();
    while (!stopped_) {
        const auto step = NextStep();
        if (!step) {
            Leave();
            continue;
        }
        if (host.commands.popup() && !KeepsPopup(*step)) host.commands.ClosePopup();
        Perform(*step);
    }
    host.commands.ClosePopup();
    if (host.dialogs.mainWindow.questionOpen()) {
        Fail(fmt::format("the script ended while {} waited for an answer",
                         MainWindow::kQuestionName));
        host.dialogs.mainWindow.CloseQuestion();
    }
    host.user = before;
    return failures_.empty();
}

void Trail::Leave() {
    const std::string lost = typed() && TheHooks().lost ? TheHooks().lost() : std::string();
    const bool told = lost.empty() || lost == lossTold_;
    stopped_ = told || !patient();
    if (told) return;
    lossTold_ = lost;
    Say(lost);
}

std::string Trail::WaitingFor() const {
    if (waits_.empty()) return TheHost().commands.popup() ? "popup" : "vx";
    switch (waits_.back()->kind) {
        case Wait::Kind::Box: return "box";
        case Wait::Kind::Prompt: return "answer";
        case Wait::Kind::Pick: return "pick";
        case Wait::Kind::Click: return "click";
        default: return "dialog " + waits_.back()->dialog->name();
    }
}

std::optional<std::string> Trail::NextLine() {
    auto line = source_.Next(WaitingFor());
    if (line) ++line_;
    return line;
}

std::optional<Step> Trail::NextStep() {
    while (pending_.empty()) {
        auto line = NextLine();
        if (!line) return std::nullopt;
        const int first = line_;
        // The host breaks long steps with a backslash at the line's end.
        while (!line->empty() && line->back() == '\\' && Trimmed(*line).substr(0, 1) == "~") {
            line->pop_back();
            const auto more = NextLine();
            if (!more) break;
            *line += *more;
        }
        try {
            for (Step& step : LexLine(*line)) {
                step.file = source_.name();
                step.line = first;
                pending_.push_back(Resolved(std::move(step)));
            }
        } catch (const LexError& error) {
            Step broken;
            broken.written = *line;
            broken.file = source_.name();
            broken.line = first;
            const Step* outer = current_;
            current_ = &broken;
            const std::size_t recording = std::exchange(recording_, 0);
            if (!patient()) print_(*line);
            Fail(error.what());
            recording_ = recording;
            current_ = outer;
        }
    }
    Step step = std::move(pending_.front());
    pending_.pop_front();
    return step;
}

Step Trail::Resolved(Step step) const {
    if (step.kind != Step::Kind::Plain || !source_.takesPlainWords()) return step;
    const auto [file, line] = std::pair(step.file, step.line);
    ResolvePlain(&step);
    step.file = file;
    step.line = line;
    if (step.kind == Step::Kind::Plain) step.kind = Step::Kind::Word;
    return step;
}

// --- Answering ---------------------------------------------------------------------------------

bool Trail::Fits(const Step& step) const {
    if (waits_.empty()) return true;
    switch (step.kind) {
        case Step::Kind::Word: return !NeedsTheMainWindow(step);
        case Step::Kind::Trail:
            return waits_.back()->kind == Wait::Kind::Dialog && step.verb != "Command";
        default: return true;
    }
}

std::string Trail::Misfit(const Step& step) const {
    const Wait& wait = *waits_.back();
    return fmt::format("{} and has to be answered before {} ({})", Describe(wait), step.written,
                       WayOut(wait));
}

bool Trail::Serve(Wait& wait) {
    waits_.push_back(&wait);
    const Step* outer = current_;
    bool served = true;
    while (!IsDone(wait)) {
        auto step = NextStep();
        if (!step) {
            // By hand the end of input is a way out like any other.
            if (!patient()) Fail(Describe(wait) + " and the script is at its end");
            served = false;
            break;
        }
        if (Fits(*step)) {
            Perform(*step);
            continue;
        }
        current_ = &*step;
        const std::size_t recording = std::exchange(recording_, 0);
        Fail(Misfit(*step));
        recording_ = recording;
        current_ = outer;
        if (patient()) continue;
        pending_.push_front(std::move(*step));
        served = false;
        break;
    }
    waits_.pop_back();
    return served;
}

int Trail::TrailUser::AnswerBox(const Box& box) {
    constexpr int kOk = 1;
    trail_.TellWhatWasShown();
    std::vector<std::string> lines = TextLines(Utf8(box.text));
    lines.emplace_back("[ OK ]");
    trail_.SayAll(Framed(box.hasCaption ? Utf8(box.caption) : "!", lines));
    Wait wait;
    wait.kind = Wait::Kind::Box;
    wait.box = &box;
    if (!trail_.Serve(wait)) trail_.Say("(the box is answered OK)");
    return kOk;
}

void Trail::TrailUser::UseDialog(Dialog& dialog) {
    trail_.TellWhatWasShown();
    trail_.SayAll(DialogText(dialog));
    Wait wait;
    wait.kind = Wait::Kind::Dialog;
    wait.dialog = &dialog;
    if (trail_.Serve(wait)) return;
    trail_.Say("(the dialog is closed)");
    dialog.CloseWindow();
    const std::string button = LeaveByAButton(dialog);
    if (!button.empty()) trail_.Say(fmt::format("(its window stays open; {} ends it)", button));
    if (!dialog.ended()) dialog.Exit(-1);  // the run must go on all the same
}

std::optional<WideText> Trail::TrailUser::AnswerPrompt(const WideText& prompt,
                                                       const WideText& byDefault) {
    return Ask(prompt, byDefault, nullptr);
}

std::optional<WideText> Trail::TrailUser::Ask(const WideText& prompt, const WideText& byDefault,
                                              const FileQuestion* file) {
    trail_.TellWhatWasShown();
    trail_.Say(fmt::format("prompt: {}{}", Utf8(prompt),
                           byDefault.empty() ? "" : " [" + Utf8(byDefault) + "]"));
    Wait wait;
    wait.kind = Wait::Kind::Prompt;
    wait.prompt = prompt;
    wait.byDefault = byDefault;
    wait.file = file;
    if (!trail_.Serve(wait)) trail_.Say("(the prompt is left)");
    return wait.answer;
}

void Trail::TrailUser::Pick(Picking& picking) {
    trail_.TellWhatWasShown();
    trail_.Say("pick: " + picking.Question());
    Wait wait;
    wait.kind = Wait::Kind::Pick;
    wait.picking = &picking;
    if (trail_.Serve(wait)) return;
    trail_.Say("(the pick is left)");
    picking.Leave();
}

std::optional<Click> Trail::TrailUser::AnswerClick() {
    trail_.TellWhatWasShown();
    trail_.Say("click: where on the sheet?");
    Wait wait;
    wait.kind = Wait::Kind::Click;
    if (!trail_.Serve(wait)) trail_.Say("(no click)");
    return wait.click;
}

std::optional<WideText> Trail::TrailUser::AnswerFile(const FileQuestion& question) {
    if (!question.toWrite) trail_.SayAll(FileList(question));
    WideText title = question.title;
    if (!question.forFolder) title += WIDE(" (") + question.filter + WIDE(")");
    title += WIDE(" ") + question.folder;
    return Ask(title, question.proposed, &question);
}

bool Trail::TrailUser::AnswerReplace(const WideText& path) {
    const auto answer = AnswerPrompt(path + WIDE(" is there already. Replace it?"), WIDE("yes"));
    return answer && (answer->empty() || *answer == WIDE("yes"));
}

// --- Doing -------------------------------------------------------------------------------------

void Trail::Perform(const Step& given) {
    Step step = given;
    if (step.kind == Step::Kind::Trail) step.problem = NameLabels(&step);
    const Step* outer = current_;
    const std::size_t outerRecording = recording_;
    current_ = &step;
    Record(step);
    said_ = false;
    if (!patient()) print_(step.written);
    // By hand the transcript is the screen: it holds the name, too.
    if (patient() && (step.byLabel || step.written != given.written)) Say(step.written);
    const bool isPress = IsPress(step);
    if (isPress) changes_.Begin();
    const std::size_t failedBefore = failures_.size();
    try {
        PerformInner(step);
    } catch (const Refusal& refusal) {
        Fail(refusal.complaint.empty() ? fmt::format("the host refuses ({})", refusal.status)
                                       : refusal.complaint);
    } catch (const std::exception& error) {
        Fail(error.what());
    }
    if (IsExpectation(step) && failures_.size() == failedBefore) ++held_;
    TellWhatWasShown();
    if (isPress) {
        const std::string changed = changes_.Tell();
        if (!changed.empty()) Say(changed);
    }
    // Whoever types sees that something happened.
    if (!said_ && patient() && waits_.empty() && !stopped_) Say(Either("done", "完成"));
    current_ = outer;
    NoteTime();
    recording_ = outerRecording;
}

// The clock that a step was told belongs to what it did.
void Trail::NoteTime() {
    const auto told = TakeToldTime();
    if (told && recording_ > 0) recorded_[recording_ - 1].time = told;
}

void Trail::Record(const Step& step) {
    if (step.line == 0) return void(recording_ = 0);  // the session's own beginning
    // A word that was typed without its sign needs it in a script.
    const bool bare = step.kind == Step::Kind::Word && !step.written.starts_with('@');
    NoteTime();
    const Word* word = step.kind == Step::Kind::Word ? FindWord(step.text, nullptr) : nullptr;
    const bool turns = word && word->perform == TurnView;
    recorded_.push_back({(bare ? "@ " : "") + step.written, {}, {}, turns});
    recording_ = recorded_.size();
}

std::string Trail::Recording() const {
    std::string text;
    for (std::size_t i = 0; i < recorded_.size(); ++i) {
        const auto& [line, slip, time, turns] = recorded_[i];
        // The next one says it all anew: a view that was turned by hand is many of these.
        const auto isTurn = [](const Recorded& each) { return each.turns && each.slip.empty(); };
        if (isTurn(recorded_[i]) && i + 1 < recorded_.size() && isTurn(recorded_[i + 1])) continue;
        if (time) text += fmt::format("@ clock {}\n", *time);
        text += slip.empty() ? line : fmt::format("! {}   ({})", line, InOneLine(slip));
        text += '\n';
    }
    return text;
}

void Trail::PerformInner(const Step& step) {
    if (!step.problem.empty()) return Fail(step.problem);
    switch (step.kind) {
        case Step::Kind::Trail: PerformTrail(step); break;
        case Step::Kind::Word: PerformWord(*this, step.text); break;
        default: Fail("a line begins with ~ (a step), @ (a word) or ! (a comment)");
    }
}

void Trail::PerformTrail(const Step& step) {
    const Dialog* dialog = TheHost().dialogs.Active();
    const bool closesWindow = dialog && ClosesWindow(*dialog, step);
    const std::string problem = PerformTrailStep(step);
    if (!problem.empty()) return Fail(problem + (step.verb == "Command" ? UnloadedHint() : ""));
    if (closesWindow && TheHost().dialogs.Active() == dialog && !dialog->ended()) {
        Say(fmt::format("the window of {} stays open: its buttons end it", dialog->name()));
    }
}

void Trail::TellWhatWasShown() {
    Host& host = TheHost();
    while (shownSeen_ < host.shown.size()) {
        const Shown& shown = host.shown[shownSeen_];
        const std::size_t first = shownSeen_++;
        if (shown.kind == Shown::Kind::Program) Say("program: " + Utf8(shown.text));
        if (shown.kind != Shown::Kind::Message) continue;
        // A message that comes once for each component is one line.
        while (shownSeen_ < host.shown.size() && host.shown[shownSeen_].kind == shown.kind &&
               host.shown[shownSeen_].text == shown.text) {
            ++shownSeen_;
        }
        const std::size_t times = shownSeen_ - first;
        Say("message: " + Utf8(shown.text) + (times > 1 ? fmt::format(" (x{})", times) : ""));
    }
    while (complaintsSeen_ < host.complaints.size()) {
        const std::string complaint = "the host complains: " + host.complaints[complaintsSeen_++];
        Count(complaint);
    }
}

void Trail::Fail(const std::string& what) {
    // By hand a slip is told and forgotten; what was expected and is not so, counts.
    if (!patient() || (current_ && IsExpectation(*current_))) return Count(what);
    if (recording_ > 0) recorded_[recording_ - 1].slip = what;
    Say("!! " + what);
}

void Trail::Count(const std::string& what) {
    std::string place;
    const int line = current_ ? current_->line : line_;
    if (!patient() && line > 0) {
        const std::string file = source_.name().empty() ? "line " : source_.name() + ":";
        place = fmt::format("{}{}: ", file, line);
    }
    failures_.push_back(place + what);
    Say("!! " + failures_.back());
}

void Trail::Say(const std::string& line) {
    said_ = true;
    print_(kIndent + line);
}

void Trail::SayAll(const std::vector<std::string>& lines) {
    for (const std::string& line : lines) Say(line);
}

std::vector<std::string> RunScript(const std::string& text, const Trail::Print& print) {
    TextSource source(text);
    const Trail::Print quiet = [](const std::string&) {};
    Trail trail(source, print ? print : quiet);
    trail.Run();
    return trail.failures();
}

}  // namespace simhost
