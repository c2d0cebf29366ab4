// Reading of message files: four lines a message (key, original, translation, a line with #).
#include "simhost/ui/messages.h"

#include <fmt/format.h>

#include <system_error>
#include <vector>

#include "simhost/core/text.h"

namespace simhost {
namespace {

constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf";

std::vector<WideText> Lines(std::string_view bytes) {
    const bool utf8 = bytes.substr(0, 3) == kByteOrderMark;
    const WideText text = utf8 ? Wide(bytes.substr(3)) : FromSystemCodePage(bytes);
    std::vector<WideText> lines;
    std::size_t from = 0;
    while (from < text.size()) {
        std::size_t to = text.find(WIDE('\n'), from);
        if (to == WideText::npos) to = text.size();
        WideText line = text.substr(from, to - from);
        if (!line.empty() && line.back() == WIDE('\r')) line.pop_back();
        lines.push_back(std::move(line));
        from = to + 1;
    }
    return lines;
}

bool IsEndMark(const WideText& line) {
    return !line.empty() && line[0] == WIDE('#');
}

}  // namespace

const Messages::File* Messages::Load(WideView file) {
    WideText path = textFolder_;
    path.append(WIDE("\\text\\")).append(file);
    const std::filesystem::path real = disk_.Real(path);
    std::error_code error;
    const auto written = std::filesystem::last_write_time(real, error);
    const auto size = error ? 0 : std::filesystem::file_size(real, error);
    if (real.empty() || error) return nullptr;
    const auto old = files_.find(real);
    if (old != files_.end() && old->second.written == written && old->second.size == size) {
        return &old->second;
    }
    File& known = files_[real] = {written, size, {}};
    const std::vector<WideText> lines = Lines(ReadFile(real));
    for (std::size_t at = 0; at < lines.size(); at += 4) {
        if (lines[at].empty() && at + 1 == lines.size()) break;
        if (at + 3 >= lines.size() || !IsEndMark(lines[at + 3])) {
            desk_.Complain(fmt::format("{}:{}: a message has four lines, the fourth begins with #",
                                       Utf8(file), at + 1));
            break;
        }
        const bool translated = !lines[at + 2].empty() && !IsEndMark(lines[at + 2]);
        known.texts.emplace(lines[at],
                            File::Text{lines[at + 1], translated ? lines[at + 2] : lines[at + 1]});
    }
    return &known;
}

std::optional<WideText> Messages::Find(WideView file, WideView key) {
    const File* known = Load(file);
    if (!known) return std::nullopt;
    const auto found = known->texts.find(key);
    if (found == known->texts.end()) return std::nullopt;
    return found->second.shown;
}

WideText Messages::Label(WideView file, WideView key) {
    return Find(file, key).value_or(WideText(key));
}

WideText Messages::OriginalLabel(WideView file, WideView key) {
    const File* known = Load(file);
    if (!known) return WideText(key);
    const auto found = known->texts.find(key);
    return found == known->texts.end() ? WideText(key) : found->second.original;
}

void Messages::Display(const WideText& text) {
    const std::size_t bar = text.find(WIDE("|||"));
    last_ = text.substr(0, bar);
    lastDefault_ = bar == WideText::npos ? WideText() : text.substr(bar + 3);
    desk_.shown.push_back({Shown::Kind::Message, last_, {}});
}

std::optional<WideText> Messages::Read() {
    desk_.shown.push_back({Shown::Kind::Prompt, last_, {}});
    if (!desk_.user) {
        desk_.Complain(fmt::format("nobody answers the prompt \"{}\"", Utf8(last_)));
        return std::nullopt;
    }
    std::optional<WideText> answer = desk_.user->AnswerPrompt(last_, lastDefault_);
    if (answer && answer->empty()) answer = lastDefault_;
    return answer;
}

}  // namespace simhost
