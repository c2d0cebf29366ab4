// Typing at the host: reading of lines, their history and their completion.
#include "simhost/app/prompt.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <iostream>

#ifdef _WIN32
#include <io.h>
#else
#include <readline/history.h>
#include <readline/readline.h>

#include <unistd.h>
#endif

#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/trail/known_names.h"
#include "simhost/trail/words.h"

namespace simhost {
namespace {

// Where a word begins for the completion: paths and names of components hold these.
constexpr const char* kWordBreaks = " \t`,/";

std::string WordAtEnd(const std::string& line) {
    const std::size_t at = line.find_last_of(kWordBreaks);
    return at == std::string::npos ? line : line.substr(at + 1);
}

// --- What can stand where ----------------------------------------------------------------------

std::vector<std::string> PopupLabels() {
    std::vector<std::string> labels;
    if (const Popup* popup = TheHost().commands.popup()) {
        for (const PopupEntry& entry : popup->entries) labels.push_back(Utf8(entry.label));
    }
    return labels;
}

std::vector<std::string> ForWord(const Word& word) {
    const std::string name = word.name;
    const std::string arguments = word.arguments;
    if (name == "open") return ModelFiles();
    if (name == "show") return ShowTopics();
    if (name == "right-click") return Commands::PopupNames();
    if (name == "choose" || arguments == "LABEL") return PopupLabels();
    if (arguments == "COMMAND") return TheHost().commands.Names();
    if (name == "expect dialog") return TheHost().dialogs.Existing();
    if (name == "picture" || arguments == "TEXT" || arguments.empty()) return {};
    return ModelsInMemory();
}

// The argument of a trail step that is being typed: 0 behind the verb.
std::vector<std::string> ForStep(const std::string& line) {
    const auto ticks = std::count(line.begin(), line.end(), '`');
    if (ticks == 0) {
        std::vector<std::string> verbs = VerbNames();
        verbs.emplace_back("Command");
        return verbs;
    }
    const std::size_t first = line.find('`');
    if (line.find("Command") < first) return TheHost().commands.Names();
    if (ticks <= 2) {
        std::vector<std::string> names = TheHost().dialogs.Existing();
        names.emplace_back(MainWindow::kName);
        return names;
    }
    const std::string dialog = line.substr(first + 1, line.find('`', first + 1) - first - 1);
    const Dialog* open = TheHost().dialogs.Find(dialog);
    return open ? open->ComponentNames() : std::vector<std::string>();
}

// The beginnings of @ words, and what belongs behind the one that is there.
std::vector<std::string> ForWords(const std::string& typed) {
    std::vector<std::string> found;
    for (const Word& word : Words()) {
        const std::string name = word.name;
        const std::size_t at = typed.find_last_of(' ');
        const std::string head = at == std::string::npos ? "" : typed.substr(0, at + 1);
        if (name.compare(0, typed.size(), typed) != 0) continue;
        const std::string rest = name.substr(head.size());
        found.push_back(rest.substr(0, rest.find(' ')));
    }
    const Word* word = FindWord(typed, nullptr);
    if (word && typed.size() > std::strlen(word->name)) {
        for (std::string& name : ForWord(*word)) found.push_back(std::move(name));
    }
    return found;
}

}  // namespace

std::vector<std::string> Completions(const std::string& line) {
    const std::size_t begin = std::min(line.find_first_not_of(" \t"), line.size());
    const std::string text = line.substr(begin);
    std::vector<std::string> words;
    if (!text.empty() && text[0] == '~') {
        const std::size_t semicolon = text.rfind(';');
        words = ForStep(semicolon == std::string::npos ? text : text.substr(semicolon));
    } else {
        const bool at = !text.empty() && text[0] == '@';
        const std::size_t from = at ? std::min(text.find_first_not_of(" \t", 1), text.size()) : 0;
        words = ForWords(text.substr(from));
        if (!at && text.find(' ') == std::string::npos) {
            for (std::string& name : TheHost().commands.Names()) words.push_back(std::move(name));
        }
    }
    const std::string typed = Lower(WordAtEnd(line));
    std::erase_if(words, [&](const std::string& word) {
        return Lower(word).compare(0, typed.size(), typed) != 0;
    });
    std::sort(words.begin(), words.end());
    words.erase(std::unique(words.begin(), words.end()), words.end());
    return words;
}

namespace {

class PlainSource : public Source {
public:
    explicit PlainSource(bool terminal) : terminal_(terminal) {}
    std::optional<std::string> Next(const std::string& waiting) override {
        if (terminal_) std::cout << waiting << "> " << std::flush;
        std::string line;
        if (!std::getline(std::cin, line)) return std::nullopt;
        return line;
    }
    bool patient() const override { return terminal_; }
    bool takesPlainWords() const override { return true; }

private:
    bool terminal_;
};

#ifdef _WIN32

bool IsTerminal() {
    return _isatty(_fileno(stdin)) != 0;
}

std::unique_ptr<Source> TerminalSource() {
    return std::make_unique<PlainSource>(/*terminal=*/true);
}

#else

bool IsTerminal() {
    return isatty(STDIN_FILENO) != 0;
}

constexpr int kMostHistory = 2000;

// The file that keeps the history; empty if there is no place for one.
std::string HistoryFile() {
    const char* state = std::getenv("XDG_STATE_HOME");
    const char* home = std::getenv("HOME");
    std::filesystem::path folder;
    if (state && *state) {
        folder = state;
    } else if (home && *home) {
        folder = std::filesystem::path(home) / ".local" / "state";
    } else {
        return {};
    }
    folder /= "vorlatix";
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    return error ? std::string() : (folder / "history").string();
}

// Readline asks for one candidate after the other and frees each.
char* NextCompletion(const char*, int state) {
    static std::vector<std::string> words;
    static std::size_t next = 0;
    if (state == 0) {
        words = Completions(std::string(rl_line_buffer, static_cast<std::size_t>(rl_point)));
        next = 0;
        const std::string line(rl_line_buffer, static_cast<std::size_t>(rl_point));
        const bool quoted = std::count(line.begin(), line.end(), '`') % 2 == 1;
        rl_completion_append_character = quoted ? int{'`'} : int{' '};
    }
    return next < words.size() ? strdup(words[next++].c_str()) : nullptr;
}

char** CompleteLine(const char* text, int, int) {
    rl_attempted_completion_over = 1;  // never the names of files
    return rl_completion_matches(text, NextCompletion);
}

class ReadlineSource : public Source {
public:
    ReadlineSource() : historyFile_(HistoryFile()) {
        rl_attempted_completion_function = CompleteLine;
        rl_completer_word_break_characters = kWordBreaks;
        rl_completer_quote_characters = "";
        // Names are compared ignoring the case of their letters, as Completions does.
        rl_variable_bind("completion-ignore-case", "on");
        using_history();
        if (!historyFile_.empty()) read_history(historyFile_.c_str());
        stifle_history(kMostHistory);
        std::cout << "The simulated host. Type help, or quit to end.\n";
    }
    ~ReadlineSource() override {
        if (!historyFile_.empty()) write_history(historyFile_.c_str());
    }

    std::optional<std::string> Next(const std::string& waiting) override {
        std::cout << std::flush;
        char* typed = readline((waiting + "> ").c_str());
        if (!typed) {
            std::cout << '\n';
            return std::nullopt;
        }
        std::string line = typed;
        std::free(typed);
        if (line.find_first_not_of(" \t") != std::string::npos && line != last_) {
            add_history(line.c_str());
            last_ = line;
        }
        return line;
    }
    bool patient() const override { return true; }
    bool takesPlainWords() const override { return true; }

private:
    std::string historyFile_, last_;
};

std::unique_ptr<Source> TerminalSource() {
    return std::make_unique<ReadlineSource>();
}

#endif

}  // namespace

std::unique_ptr<Source> PromptSource() {
    if (IsTerminal()) return TerminalSource();
    return std::make_unique<PlainSource>(/*terminal=*/false);
}

}  // namespace simhost
