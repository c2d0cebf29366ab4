// Typing at the host: where the lines come from.
#include "simhost/app/prompt.h"

#include <iostream>

#include "simhost/app/line_editor.h"
#include "simhost/user/language.h"
#include "simhost/user/progress.h"

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace simhost {
namespace {

// What waits, in the words of Source::Next, for the person's eyes.
std::string PromptFor(const std::string& waiting) {
    if (!InChinese()) return waiting;
    const std::string dialog = "dialog ";
    if (waiting.compare(0, dialog.size(), dialog) == 0) {
        return "对话框 " + waiting.substr(dialog.size());
    }
    if (waiting == "box") return "提示框";
    if (waiting == "answer") return "请回答";
    if (waiting == "pick") return "请选取";
    return waiting == "popup" ? "右键菜单" : waiting;
}

class PlainSource : public Source {
public:
    explicit PlainSource(bool terminal) : terminal_(terminal) {}
    std::optional<std::string> Next(const std::string& waiting) override {
        if (terminal_) std::cout << PromptFor(waiting) << "> " << std::flush;
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

std::unique_ptr<Source> TerminalSource() {
    return std::make_unique<PlainSource>(/*terminal=*/true);
}

#else

class EditedSource : public Source {
public:
    std::optional<std::string> Next(const std::string& waiting) override {
        TheProgress().stop = false;  // what was to be stopped has ended
        std::cout << std::flush;
        return editor_.ReadLine(PromptFor(waiting) + "> ");
    }
    bool patient() const override { return true; }
    bool takesPlainWords() const override { return true; }

private:
    LineEditor editor_;
};

std::unique_ptr<Source> TerminalSource() {
    return std::make_unique<EditedSource>();
}

#endif

}  // namespace

bool IsTyped() {
#ifdef _WIN32
    return _isatty(_fileno(stdin)) != 0;
#else
    return isatty(STDIN_FILENO) != 0;
#endif
}

std::unique_ptr<Source> PromptSource() {
    if (IsTyped()) return TerminalSource();
    return std::make_unique<PlainSource>(/*terminal=*/false);
}

}  // namespace simhost
