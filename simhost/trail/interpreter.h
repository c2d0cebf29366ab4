// The interpreter of trails: it does the lines of a script one by one as a user would, and answers
// whatever the host asks meanwhile with the lines that follow.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "simhost/host.h"
#include "simhost/trail/changes.h"
#include "simhost/trail/fact_table.h"
#include "simhost/trail/lexer.h"
#include "simhost/trail/source.h"

namespace simhost {

// Something that waits for the user: lines go to it until it is answered.
struct Wait {
    enum class Kind { Box, Prompt, Pick, Click, Dialog } kind = Kind::Box;
    const Box* box = nullptr;
    Dialog* dialog = nullptr;
    Picking* picking = nullptr;
    WideText prompt, byDefault;
    const FileQuestion* file = nullptr;  // prompts: of a file dialog, whose answer is a path
    std::optional<Click> click;          // likewise
    bool answered = false;               // all but dialogs and picks
    std::optional<WideText> answer;      // prompts; nothing: the user left it
};

class Trail {
public:
    using Print = std::function<void(const std::string& line)>;

    // The transcript goes to `print` line by line.
    Trail(Source& source, Print print);
    Trail(const Trail&) = delete;
    Trail& operator=(const Trail&) = delete;

    // Does this line before the first one of the source; it does not count as a line of it.
    void Begin(const std::string& line);
    // Runs to the end; true if nothing failed. While it runs, it is the host's user.
    bool Run();
    // What failed, each with its place in the script. By hand only expectations that do not hold
    // and complaints of the host are failures; a slip of the finger is none.
    const std::vector<std::string>& failures() const { return failures_; }
    // How many lines expected something that was so.
    int held() const { return held_; }
    // What was done so far, one step a line, as a script that does it again. A slip of the finger,
    // which did nothing, is a comment in it that says why.
    std::string Recording() const;

    // --- For the @ words ---
    void Fail(const std::string& what);
    void Say(const std::string& line);  // a line of the transcript, below the step
    void SayAll(const std::vector<std::string>& lines);
    Wait* waiting() { return waits_.empty() ? nullptr : waits_.back(); }
    bool patient() const { return source_.patient(); }
    bool typed() const { return source_.takesPlainWords(); }  // by hand, or through a pipe
    void Stop() { stopped_ = true; }
    // Ends. Whoever typed is told what is lost by it, and at a terminal stays for once.
    void Leave();
    FactTable facts;  // what the script remembers

    // What the next line goes to, in the words of Source::Next.
    std::string WaitingFor() const;

private:
    class TrailUser : public User {
    public:
        explicit TrailUser(Trail& trail) : trail_(trail) {}
        int AnswerBox(const Box& box) override;
        void UseDialog(Dialog& dialog) override;
        std::optional<WideText> AnswerPrompt(const WideText& prompt,
                                             const WideText& byDefault) override;
        void Pick(Picking& picking) override;
        std::optional<Click> AnswerClick() override;
        std::optional<WideText> AnswerFile(const FileQuestion& question) override;
        bool AnswerReplace(const WideText& path) override;

    private:
        std::optional<WideText> Ask(const WideText& prompt, const WideText& byDefault,
                                    const FileQuestion* file);
        Trail& trail_;
    };

    std::optional<std::string> NextLine();
    std::optional<Step> NextStep();
    // Lines go to `wait` until it is answered. False: the script ended, or went on with a step
    // that does not fit; that has been told, and the step is kept for what comes after.
    bool Serve(Wait& wait);
    bool Fits(const Step& step) const;
    std::string Misfit(const Step& step) const;
    void Perform(const Step& given);
    void PerformInner(const Step& step);
    void PerformTrail(const Step& step);
    void Record(const Step& step);
    void NoteTime();
    void Count(const std::string& what);  // a failure, whoever types
    Step Resolved(Step step) const;
    void TellWhatWasShown();

    Source& source_;
    Print print_;
    TrailUser user_{*this};
    std::deque<Step> pending_;
    Changes changes_;
    std::vector<Wait*> waits_;
    std::vector<std::string> failures_;
    std::string lossTold_;
    const Step* current_ = nullptr;
    struct Recorded {
        std::string line, slip;
        std::optional<std::int64_t> time;  // that the plug-in asked for during it
        bool turns = false;                // says anew how the model is turned
    };
    std::vector<Recorded> recorded_;
    std::size_t recording_ = 0;  // the number of the step in hand there, from 1; 0: none
    int line_ = 0;
    int held_ = 0;
    std::size_t shownSeen_ = 0;
    std::size_t complaintsSeen_ = 0;
    bool said_ = false;  // since the last step began
    bool stopped_ = false;
};

// Runs a text as a script and gives what failed; the transcript goes to `print` if there is one.
std::vector<std::string> RunScript(const std::string& text, const Trail::Print& print = {});

}  // namespace simhost
