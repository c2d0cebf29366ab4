// Cuts lines of trail files into steps.
#include "simhost/trail/lexer.h"

#include <algorithm>

namespace simhost {
namespace {

// A step that only records; what the dialog has told follows it without a tilde.
constexpr std::string_view kRecording = "Trail";

constexpr std::string_view kBlanks = " \t\r\n";

class LineReader {
public:
    explicit LineReader(std::string_view line) : line_(line) {}

    std::vector<Step> Steps() {
        std::vector<Step> steps;
        for (SkipTo(); at_ < line_.size() && line_[at_] != '!'; SkipTo()) {
            if (line_[at_] == '`' && !steps.empty() && steps.back().verb == kRecording) {
                steps.back().arguments.push_back(ReadQuoted());
                continue;
            }
            if (line_[at_] != '~') {
                throw LexError("a step begins with ~, not with \"" +
                               std::string(line_.substr(at_, 10)) + "\"");
            }
            steps.push_back(ReadStep());
        }
        return steps;
    }

private:
    void SkipBlanks() { at_ = std::min(line_.find_first_not_of(kBlanks, at_), line_.size()); }
    void SkipTo() { at_ = std::min(line_.find_first_not_of(" \t\r\n;", at_), line_.size()); }

    Step ReadStep() {
        const std::size_t begin = at_++;
        Step step;
        step.kind = Step::Kind::Trail;
        SkipBlanks();
        step.verb = ReadBare();
        // Without a verb a trail names what a right click has opened.
        const bool names = at_ < line_.size() && line_[at_] == '`';
        if (step.verb.empty() && !names) throw LexError("there is no verb after the ~");
        for (SkipBlanks(); at_ < line_.size() && line_[at_] != ';' && line_[at_] != '~';
             SkipBlanks()) {
            step.arguments.push_back(line_[at_] == '`' ? ReadQuoted() : ReadBare());
        }
        step.written = Trimmed(line_.substr(begin, at_ - begin));
        return step;
    }

    std::string ReadBare() {
        const std::size_t end = std::min(line_.find_first_of(" \t\r\n;~`", at_), line_.size());
        const std::string word(line_.substr(at_, end - at_));
        at_ = end;
        return word;
    }

    std::string ReadQuoted() {
        const std::size_t end = line_.find('`', at_ + 1);
        if (end == std::string_view::npos) throw LexError("a name in `…` does not end");
        const std::string name(line_.substr(at_ + 1, end - at_ - 1));
        at_ = end + 1;
        return name;
    }

    std::string_view line_;
    std::size_t at_ = 0;
};

}  // namespace

std::string_view Trimmed(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(kBlanks);
    if (begin == std::string_view::npos) return {};
    return text.substr(begin, text.find_last_not_of(kBlanks) + 1 - begin);
}

std::string TakeWord(std::string* text) {
    const std::size_t end = std::min(text->find_first_of(" \t"), text->size());
    std::string word = text->substr(0, end);
    *text = Trimmed(text->substr(end));
    return word;
}

std::vector<Step> LexLine(std::string_view line) {
    const std::string_view text = Trimmed(line);
    if (text.empty() || text[0] == '!') return {};
    if (text[0] == '~') return LineReader(text).Steps();
    Step step;
    step.kind = text[0] == '@' ? Step::Kind::Word : Step::Kind::Plain;
    step.text = Trimmed(text.substr(text[0] == '@' ? 1 : 0));
    step.written = text;
    return {step};
}

TextArgument ParseText(std::string_view argument) {
    const std::string_view text = Trimmed(argument);
    if (text.empty() || text[0] != '"') return {std::string(text), false};
    TextArgument parsed{{}, true};
    for (std::size_t i = 1; i < text.size(); ++i) {
        if (text[i] == '"') {
            if (i + 1 != text.size()) throw LexError("there is something after the \"…\"");
            return parsed;
        }
        if (text[i] != '\\') {
            parsed.text += text[i];
            continue;
        }
        if (++i == text.size()) break;
        switch (text[i]) {
            case 't': parsed.text += '\t'; break;
            case 'n': parsed.text += '\n'; break;
            case 'r': parsed.text += '\r'; break;
            case '"':
            case '\\':
            case '/': parsed.text += text[i]; break;
            default: throw LexError(std::string("\\") + text[i] + " means nothing in a \"…\"");
        }
    }
    throw LexError("a text in \"…\" does not end");
}

}  // namespace simhost
