// The line editor is libedit; its history is kept as plain lines.
#ifndef _WIN32

#include "simhost/app/line_editor.h"

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <filesystem>
#include <fstream>
#include <histedit.h>
#include <langinfo.h>
#include <vector>

#include "simhost/app/prompt.h"
#include "simhost/core/text.h"
#include "simhost/ui/text_frame.h"

namespace simhost {
namespace {

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

// The editor counts characters by the locale; names are UTF-8 whatever the user's locale is.
void UseUtf8() {
    std::setlocale(LC_CTYPE, "");
    if (std::string(nl_langinfo(CODESET)) != "UTF-8") std::setlocale(LC_CTYPE, "C.UTF-8");
}

int Characters(const std::string& utf8) {
    return int(std::count_if(utf8.begin(), utf8.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xc0) != 0x80;
    }));
}

// The longest beginning that all words share, whole characters of it, in the letters of the first.
std::string CommonBeginning(const std::vector<std::string>& words) {
    std::string common = words[0];
    for (const std::string& word : words) {
        const std::string a = Lower(common), b = Lower(word);
        std::size_t same =
            std::size_t(std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin());
        while (same > 0 && same < common.size() &&
               (static_cast<unsigned char>(common[same]) & 0xc0) == 0x80) {
            --same;
        }
        common.resize(std::min(same, common.size()));
    }
    return common;
}

void PrintInColumns(const std::vector<std::string>& words) {
    constexpr std::size_t kTerminal = 80;
    std::size_t width = 0;
    for (const std::string& word : words) width = std::max(width, DisplayWidth(word) + 2);
    const std::size_t columns = std::max<std::size_t>(1, kTerminal / width);
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (i % columns == 0) std::fputc('\n', stdout);
        std::fputs(Padded(words[i], width).c_str(), stdout);
    }
    std::fputc('\n', stdout);
    std::fflush(stdout);
}

}  // namespace

class LineEditor::Inner {
public:
    Inner() : historyFile_(HistoryFile()) {
        UseUtf8();
        editor_ = el_init("simhost", stdin, stdout, stderr);
        history_ = history_init();
        HistEvent event;
        history(history_, &event, H_SETSIZE, kMostHistory);
        history(history_, &event, H_SETUNIQUE, 1);
        el_set(editor_, EL_CLIENTDATA, this);
        el_set(editor_, EL_PROMPT, Prompt);
        el_set(editor_, EL_EDITOR, "emacs");
        el_set(editor_, EL_HIST, history, history_);
        // Of narrow names the library makes wide ones that it never frees.
        el_wset(editor_, EL_ADDFN, L"vx-complete", L"complete the word", Complete);
        el_wset(editor_, EL_ADDFN, L"vx-clear", L"throw the line away", Clear);
        el_set(editor_, EL_BIND, "\t", "vx-complete", nullptr);
        // While a line is edited Ctrl-C is a key; while work goes on it is a signal.
        el_set(editor_, EL_SETTY, "-d", "-isig", nullptr);
        el_set(editor_, EL_BIND, "^C", "vx-clear", nullptr);
        el_set(editor_, EL_BIND, "^R", "em-inc-search-prev", nullptr);
        el_source(editor_, nullptr);  // the user's own keys
        ReadHistory();
    }
    ~Inner() {
        history_end(history_);
        el_end(editor_);
    }
    Inner(const Inner&) = delete;
    Inner& operator=(const Inner&) = delete;

    std::optional<std::string> ReadLine(const std::string& prompt) {
        prompt_ = prompt;
        cleared_ = false;
        int count = 0;
        // By itself the editor takes the terminal over only once the prompt is shown; a key such as
        // Ctrl-D that came between the two would be the terminal's, and be lost.
        el_set(editor_, EL_PREP_TERM, 1);
        const char* typed = el_gets(editor_, &count);
        if (cleared_) return std::string();
        if (!typed || count <= 0) {
            std::puts("");
            return std::nullopt;
        }
        std::string line(typed, std::size_t(count));
        while (!line.empty() && (line.back() == '\n' || line.back() == '\r')) line.pop_back();
        if (line.find_first_not_of(" \t") != std::string::npos) Keep(line);
        return line;
    }

private:
    static Inner* Of(EditLine* editor) {
        void* inner = nullptr;
        el_get(editor, EL_CLIENTDATA, &inner);
        return static_cast<Inner*>(inner);
    }
    static char* Prompt(EditLine* editor) { return Of(editor)->prompt_.data(); }

    static unsigned char Clear(EditLine* editor, wint_t) {
        std::fputs("^C\n", stdout);
        Of(editor)->cleared_ = true;
        return CC_EOF;
    }

    static unsigned char Complete(EditLine* editor, wint_t) {
        const LineInfo* info = el_line(editor);
        const std::string line(info->buffer, std::size_t(info->cursor - info->buffer));
        const std::vector<std::string> words = Completions(line);
        if (words.empty()) return CC_REFRESH_BEEP;
        const std::string typed = WordAtEnd(line);
        std::string text = CommonBeginning(words);
        if (words.size() == 1 && text.back() != '/') {
            const bool quoted = std::count(line.begin(), line.end(), '`') % 2 == 1;
            text += quoted ? '`' : ' ';
        } else if (words.size() > 1 && text.size() <= typed.size()) {
            PrintInColumns(words);
            return CC_REDISPLAY;
        }
        el_deletestr(editor, Characters(typed));
        el_insertstr(editor, text.c_str());
        return CC_REFRESH;
    }

    void Remember(const std::string& line) {
        HistEvent event;
        history(history_, &event, H_ENTER, line.c_str());
    }

    void ReadHistory() {
        std::vector<std::string> lines;
        std::ifstream file(historyFile_);
        for (std::string line; std::getline(file, line);) lines.push_back(std::move(line));
        file.close();
        if (lines.size() > kMostHistory) {
            lines.erase(lines.begin(), lines.end() - kMostHistory);
            std::ofstream shorter(historyFile_);
            for (const std::string& line : lines) shorter << line << '\n';
        }
        for (const std::string& line : lines) Remember(line);
    }

    void Keep(const std::string& line) {
        Remember(line);
        if (line == last_ || historyFile_.empty()) return;
        std::ofstream(historyFile_, std::ios::app) << line << '\n';
        last_ = line;
    }

    std::string historyFile_, prompt_, last_;
    EditLine* editor_ = nullptr;
    History* history_ = nullptr;
    bool cleared_ = false;
};

LineEditor::LineEditor() : inner_(std::make_unique<Inner>()) {}

LineEditor::~LineEditor() = default;

std::optional<std::string> LineEditor::ReadLine(const std::string& prompt) {
    return inner_->ReadLine(prompt);
}

}  // namespace simhost

#endif
