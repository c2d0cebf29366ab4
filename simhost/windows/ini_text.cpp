// INI files line by line: how a line is understood, looked up and replaced.
#include "simhost/windows/ini_text.h"

#include <algorithm>
#include <optional>

#include "simhost/core/text.h"
#include "simhost/windows/names.h"

namespace simhost {
namespace {

constexpr std::string_view kUtf16Mark = "\xFF\xFE";

bool IsBlank(WideChar c) {
    return (c >= 9 && c <= 13) || c == u' ' || c == 0x1A;
}

WideView Trim(WideView text) {
    while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
    return text;
}

WideView WithoutQuotes(WideView value) {
    if (value.size() < 2 || value.front() != value.back()) return value;
    if (value.front() != u'"' && value.front() != u'\'') return value;
    return value.substr(1, value.size() - 2);
}

enum class LineKind { Header, Key, Blank, Other };

struct Line {
    LineKind kind = LineKind::Other;
    WideText name;   // of the section or key
    WideText value;  // of the key
};

Line Understand(WideView text) {
    text = Trim(text.substr(0, text.find(WideChar{})));
    if (text.empty()) return {LineKind::Blank, {}, {}};
    if (text.front() == u'[') {
        const std::size_t end = text.rfind(u']');
        if (end == WideView::npos) return {};
        return {LineKind::Header, WideText(Trim(text.substr(1, end - 1))), {}};
    }
    const std::size_t equals = text.find(u'=');
    if (text.front() == u';' || equals == WideView::npos) return {};
    return {LineKind::Key, WideText(Trim(text.substr(0, equals))),
            WideText(Trim(text.substr(equals + 1)))};
}

// A file as lines of bytes, each with its end. Only lines that are asked for are decoded, and what
// does not fit the encoding survives in all others.
class IniLines {
public:
    explicit IniLines(std::string_view bytes) : wide_(bytes.substr(0, 2) == kUtf16Mark) {
        if (wide_) bytes.remove_prefix(kUtf16Mark.size());
        while (!bytes.empty()) {
            const std::size_t length = LineLength(bytes);
            raw_.emplace_back(bytes.substr(0, length));
            bytes.remove_prefix(length);
        }
    }

    std::size_t size() const { return raw_.size(); }
    Line at(std::size_t i) const { return Understand(Decode(raw_[i])); }

    void Replace(std::size_t i, WideView text) {
        const WideText old = Decode(raw_[i]);
        const std::size_t end = old.find_last_not_of(WIDE("\r\n")) + 1;
        WideText line(text);
        line += end < old.size() ? old.substr(end) : WideText(WIDE("\r\n"));
        raw_[i] = Encode(line);
    }
    void Insert(std::size_t i, WideView text) {
        if (i > 0) EndLine(i - 1);
        raw_.insert(raw_.begin() + std::ptrdiff_t(i), Encode(WideText(text) + WIDE("\r\n")));
    }
    void Erase(std::size_t first, std::size_t end) {
        raw_.erase(raw_.begin() + std::ptrdiff_t(first), raw_.begin() + std::ptrdiff_t(end));
    }

    std::string Bytes() const {
        std::string bytes(wide_ ? kUtf16Mark : std::string_view());
        for (const std::string& line : raw_) bytes += line;
        return bytes;
    }

private:
    // Lines end with CR LF, LF or CR. In code page 936 neither is ever a second byte.
    std::size_t LineLength(std::string_view bytes) const {
        const std::size_t unit = wide_ ? 2 : 1;
        const auto is = [&](std::size_t at, char c) {
            return at + unit <= bytes.size() && bytes[at] == c && (!wide_ || bytes[at + 1] == 0);
        };
        for (std::size_t at = 0; at + unit <= bytes.size(); at += unit) {
            if (is(at, '\n')) return at + unit;
            if (is(at, '\r')) return at + (is(at + unit, '\n') ? 2 : 1) * unit;
        }
        return bytes.size();
    }

    void EndLine(std::size_t i) {
        const WideText line = Decode(raw_[i]);
        const bool ended = !line.empty() && (line.back() == u'\n' || line.back() == u'\r');
        if (!ended) raw_[i] += Encode(WIDE("\r\n"));
    }

    WideText Decode(std::string_view bytes) const {
        if (!wide_) return FromSystemCodePage(bytes);
        WideText text;
        for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
            text += static_cast<WideChar>(static_cast<unsigned char>(bytes[i]) |
                                          static_cast<unsigned char>(bytes[i + 1]) << 8);
        }
        return text;
    }
    std::string Encode(WideView text) const {
        if (!wide_) return ToSystemCodePage(text);
        std::string bytes;
        for (const WideChar unit : text) {
            bytes += static_cast<char>(unit & 0xFF);
            bytes += static_cast<char>(unit >> 8);
        }
        return bytes;
    }

    bool wide_;
    std::vector<std::string> raw_;
};

// The lines of the first section of a name, without its header: from `first` up to `end`.
struct Extent {
    std::size_t first = 0, end = 0;
};
std::optional<Extent> FindSection(const IniLines& lines, WideView name) {
    const WideText folded = FoldName(name);
    bool inside = folded.empty();
    Extent extent{0, lines.size()};
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const Line line = lines.at(i);
        if (line.kind != LineKind::Header) continue;
        if (inside) {
            extent.end = i;
            break;
        }
        inside = FoldName(line.name) == folded;
        if (inside) extent.first = i + 1;
    }
    return inside ? std::optional(extent) : std::nullopt;
}

std::optional<std::size_t> FindKey(const IniLines& lines, Extent section, WideView key) {
    const WideText folded = FoldName(key);
    for (std::size_t i = section.first; i < section.end; ++i) {
        const Line line = lines.at(i);
        if (line.kind == LineKind::Key && FoldName(line.name) == folded) return i;
    }
    return std::nullopt;
}

WideText KeyLine(WideView key, WideView value) {
    return WideText(Trim(key)).append(WIDE("=")).append(value);
}

}  // namespace

WideText FoldName(WideView name) {
    return FoldCase(Trim(name));
}

IniTable::IniTable(std::string_view bytes) {
    const IniLines lines(bytes);
    Section* section = &sections_[{}];
    for (std::size_t i = 0; i < lines.size(); ++i) {
        Line line = lines.at(i);
        if (line.kind == LineKind::Header) {
            const auto [place, isNew] = sections_.try_emplace(FoldName(line.name));
            section = isNew ? &place->second : nullptr;
            sectionNames_.push_back(std::move(line.name));
        } else if (line.kind == LineKind::Key && section) {
            section->values.try_emplace(FoldName(line.name), WithoutQuotes(line.value));
            section->keyNames.push_back(std::move(line.name));
        }
    }
}

const WideText* IniTable::Find(WideView section, WideView key) const {
    const auto inSection = sections_.find(FoldName(section));
    if (inSection == sections_.end()) return nullptr;
    const auto& values = inSection->second.values;
    const auto value = values.find(FoldName(key));
    return value == values.end() ? nullptr : &value->second;
}

std::vector<WideText> IniTable::Keys(WideView section) const {
    const auto found = sections_.find(FoldName(section));
    return found == sections_.end() ? std::vector<WideText>() : found->second.keyNames;
}

std::string WithIniKey(std::string_view bytes, WideView section, WideView key, WideView value) {
    IniLines lines(bytes);
    const std::optional<Extent> found = FindSection(lines, section);
    if (!found) {
        const WideText header = WideText(WIDE("[")).append(Trim(section)).append(WIDE("]"));
        lines.Insert(lines.size(), header);
        lines.Insert(lines.size(), KeyLine(key, value));
        return lines.Bytes();
    }
    if (const auto line = FindKey(lines, *found, key)) {
        lines.Replace(*line, KeyLine(lines.at(*line).name, value));
        return lines.Bytes();
    }
    std::size_t place = found->end;
    while (place > found->first && lines.at(place - 1).kind == LineKind::Blank) --place;
    lines.Insert(place, KeyLine(key, value));
    return lines.Bytes();
}

std::string WithoutIniKey(std::string_view bytes, WideView section, WideView key) {
    IniLines lines(bytes);
    const std::optional<Extent> found = FindSection(lines, section);
    const auto line = found ? FindKey(lines, *found, key) : std::nullopt;
    if (line) lines.Erase(*line, *line + 1);
    return lines.Bytes();
}

std::string WithoutIniSection(std::string_view bytes, WideView section) {
    IniLines lines(bytes);
    const std::optional<Extent> found = FindSection(lines, section);
    if (found) lines.Erase(found->first - (found->first > 0 ? 1 : 0), found->end);
    return lines.Bytes();
}

}  // namespace simhost
