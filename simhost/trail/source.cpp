// Lines out of texts and files.
#include "simhost/trail/source.h"

#include <filesystem>
#include <stdexcept>

#include "simhost/core/disk.h"
#include "simhost/core/text.h"

namespace simhost {

TextSource::TextSource(std::string text, std::string name)
    : text_(std::move(text)), name_(std::move(name)) {
    if (text_.compare(0, 3, "\xef\xbb\xbf") == 0) at_ = 3;
}

std::optional<std::string> TextSource::Next(const std::string&) {
    if (at_ >= text_.size()) return std::nullopt;
    std::size_t end = text_.find('\n', at_);
    if (end == std::string::npos) end = text_.size();
    std::string line = text_.substr(at_, end - at_);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    at_ = end + 1;
    return line;
}

std::optional<TextSource> FileSource(const std::string& path) {
    const std::filesystem::path real(std::u8string(path.begin(), path.end()));
    bool found = false;
    std::string text = ReadFile(real, &found);
    if (!found) return std::nullopt;
    if (text.find('\0') != std::string::npos || Utf8(Wide(text)) != text) {
        throw std::runtime_error(path + " is no UTF-8 text, which a script must be");
    }
    const std::u8string name = real.filename().u8string();
    return TextSource(std::move(text), std::string(name.begin(), name.end()));
}

}  // namespace simhost
