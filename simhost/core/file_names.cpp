// What is in a folder, version by version.
#include "simhost/core/file_names.h"

#include <algorithm>
#include <charconv>
#include <map>

#include "simhost/core/text.h"

namespace simhost {

namespace fs = std::filesystem;

namespace {

// A star takes as little as it can, and more where the rest does not fit then.
bool Fits(WideView name, WideView pattern) {
    if (pattern.empty()) return name.empty();
    if (pattern[0] == WideChar{'*'}) {
        const WideView rest = pattern.substr(1);
        return Fits(name, rest) || (!name.empty() && Fits(name.substr(1), pattern));
    }
    if (name.empty() || (pattern[0] != WideChar{'?'} && pattern[0] != name[0])) return false;
    return Fits(name.substr(1), pattern.substr(1));
}

WideView WithoutBlanks(WideView text) {
    while (!text.empty() && text.front() == WideChar{' '}) text.remove_prefix(1);
    while (!text.empty() && text.back() == WideChar{' '}) text.remove_suffix(1);
    return text;
}

// CON, NUL, COM1 and so on lead to a device in every folder and with every ending.
bool IsDevice(WideView name) {
    const WideText stem = Upper(name.substr(0, name.find(WideChar{'.'})));
    for (const WideView device : {WIDE("CON"), WIDE("PRN"), WIDE("AUX"), WIDE("NUL")}) {
        if (stem == device) return true;
    }
    const bool isPort = stem.starts_with(WIDE("COM")) || stem.starts_with(WIDE("LPT"));
    return isPort && stem.size() == 4 && stem[3] >= WideChar{'1'} && stem[3] <= WideChar{'9'};
}

}  // namespace

bool IsFilePath(WideView windowsPath) {
    constexpr std::size_t kLongest = 259;
    // The drive's colon is the only one.
    const WideView names = windowsPath.substr(std::min<std::size_t>(windowsPath.size(), 2));
    if (windowsPath.size() > kLongest || names.empty()) return false;
    const auto isForbidden = [](WideChar c) {
        return c < WideChar{' '} || WideView(WIDE("<>:\"|?*")).find(c) != WideView::npos;
    };
    if (std::any_of(names.begin(), names.end(), isForbidden)) return false;
    const WideView name = names.substr(names.find_last_of(WIDE("\\/")) + 1);
    return !name.empty() && !IsDevice(name);
}

int SplitVersion(const std::string& name, std::string* fileName) {
    const std::size_t dot = name.rfind('.');
    if (dot != std::string::npos) {
        int version = 0;
        const char* end = name.data() + name.size();
        const auto parsed = std::from_chars(name.data() + dot + 1, end, version);
        if (parsed.ec == std::errc() && parsed.ptr == end && version > 0) {
            *fileName = Lower(name.substr(0, dot));
            return version;
        }
    }
    *fileName = Lower(name);
    return 0;
}

std::vector<NamedFile> FilesIn(const fs::path& folder) {
    struct Found {
        int version;
        NamedFile file;
    };
    std::map<std::string, Found> byName;
    std::error_code error;
    fs::directory_iterator entry(folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        std::error_code none;
        if (!entry->is_regular_file(none)) continue;
        const auto utf8 = entry->path().filename().u8string();
        const std::string name(utf8.begin(), utf8.end());
        std::string folded;
        const int version = SplitVersion(name, &folded);
        const Found found{version, {Wide(name.substr(0, folded.size())), entry->path()}};
        const auto [known, isNew] = byName.emplace(folded, found);
        if (!isNew && known->second.version < version) known->second = found;
    }
    std::vector<NamedFile> files;
    files.reserve(byName.size());
    for (auto& [folded, found] : byName) files.push_back(std::move(found.file));
    return files;
}

fs::path NewestFileOf(const fs::path& folder, WideView name) {
    for (NamedFile& file : FilesIn(folder)) {
        if (SameName(file.name, name)) return std::move(file.path);
    }
    return {};
}

bool FitsFilter(WideView name, WideView filter) {
    if (WithoutBlanks(filter).empty()) return true;
    const WideText folded = Lower(name);
    for (std::size_t from = 0; from <= filter.size();) {
        const std::size_t comma = std::min(filter.find(WideChar{','}, from), filter.size());
        const WideText pattern = Lower(WithoutBlanks(filter.substr(from, comma - from)));
        if (pattern == WIDE("*.*") || (!pattern.empty() && Fits(folded, pattern))) return true;
        from = comma + 1;
    }
    return false;
}

}  // namespace simhost
