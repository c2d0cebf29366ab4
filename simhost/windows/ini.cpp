// Reading and writing values of INI files.
#include <sys/stat.h>

#include <algorithm>
#include <chrono>

#include "simhost/core/disk.h"
#include "simhost/core/operation.h"
#include "simhost/core/text.h"
#include "simhost/windows/simulated.h"

using namespace simhost;

namespace simhost {

namespace {

// A change within this time of the one before may leave a file's time stamp as it was.
constexpr std::int64_t kSettledNanoseconds = 50'000'000;
constexpr std::size_t kFilesKept = 64;
constexpr DWORD kShareAll = 3;

std::int64_t Now() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(now).count();
}

}  // namespace

const IniTable* SimulatedWindows::ReadIni(WideView windowsPath) {
    const std::filesystem::path real = RealFile(windowsPath);
    struct stat now = {};
    if (real.empty() || stat(real.c_str(), &now) != 0) return nullptr;
    if (IsHeld(real) || !CanShare(real, GENERIC_READ, kShareAll)) return nullptr;
    const std::int64_t changed = now.st_mtim.tv_sec * 1'000'000'000LL + now.st_mtim.tv_nsec;

    const auto place = inis_.find(real.string());
    const bool known = place != inis_.end() && place->second.changed == changed &&
                       place->second.node == now.st_ino &&
                       place->second.codePage == SystemCodePage() &&
                       static_cast<off_t>(place->second.bytes.size()) == now.st_size;
    if (known && place->second.settled) return place->second.table.get();

    const bool settled = Now() > changed + kSettledNanoseconds;
    bool found = false;
    std::string bytes = ReadFile(real, &found);
    if (!found) return nullptr;
    if (known && place->second.bytes == bytes) {
        place->second.settled = settled;
        return place->second.table.get();
    }
    if (inis_.size() >= kFilesKept) inis_.clear();
    KnownIni& ini = inis_[real.string()];
    ini.table = std::make_unique<IniTable>(bytes);
    ini.bytes = std::move(bytes);
    ini.changed = changed;
    ini.node = now.st_ino;
    ini.codePage = SystemCodePage();
    ini.settled = settled;
    return ini.table.get();
}

namespace {

// The fallback loses the blanks at its end.
WideView FallbackText(const WideChar* fallback) {
    WideView text = fallback ? WideView(fallback) : WideView();
    while (!text.empty() && text.back() == u' ') text.remove_suffix(1);
    return text;
}

DWORD PutText(WideView text, WideChar* place, DWORD size) {
    if (size == 0) return 0;
    CopyCut(text, place, size);
    return static_cast<DWORD>(std::min<std::size_t>(text.size(), size - 1));
}

// Several texts, each terminated, and one more terminator. A list that leaves no unit of the
// buffer over counts as cut.
DWORD PutList(const std::vector<WideText>& names, WideChar* place, DWORD size) {
    WideText list;
    for (const WideText& name : names) {
        if (!name.empty()) list.append(name).push_back(WideChar{});
    }
    if (list.size() + 1 < size) {
        std::copy(list.begin(), list.end(), place);
        place[list.size()] = WideChar{};
        if (list.empty()) place[1] = WideChar{};
        return static_cast<DWORD>(list.size());
    }
    if (size < 2) return PutText({}, place, size);
    std::copy_n(list.begin(), std::min<std::size_t>(list.size(), size - 2), place);
    place[size - 2] = place[size - 1] = WideChar{};
    return size - 2;
}

DWORD ReadValue(const IniTable* ini, const WideChar* section, const WideChar* key,
                const WideChar* fallback, WideChar* value, DWORD size) {
    if (!section) return PutList(ini ? ini->Sections() : std::vector<WideText>(), value, size);
    if (!key) {
        const std::vector<WideText> keys = ini ? ini->Keys(section) : std::vector<WideText>();
        if (keys.empty()) return PutText(FallbackText(fallback), value, size);
        return PutList(keys, value, size);
    }
    const WideText* found = ini ? ini->Find(section, key) : nullptr;
    return PutText(found ? WideView(*found) : FallbackText(fallback), value, size);
}

bool WriteValue(const WideChar* section, const WideChar* key, const WideChar* value,
                const WideChar* path) {
    const std::filesystem::path real = RealFile(path);
    const SimulatedWindows& windows = Simulated();
    if (real.empty() || windows.IsHeld(real) || IsReadOnly(real)) return false;
    if (!windows.CanShare(real, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ)) return false;
    bool exists = false;
    const std::string before = ReadFile(real, &exists);
    const bool deletes = !key || !value;
    if (!exists && deletes) return true;
    const std::string after = !key     ? WithoutIniSection(before, section)
                              : !value ? WithoutIniKey(before, section, key)
                                       : WithIniKey(before, section, key, value);
    return (exists && after == before) || WriteFile(real, after);
}

}  // namespace

}  // namespace simhost

DWORD GetPrivateProfileStringW(const WideChar* section, const WideChar* key,
                               const WideChar* fallback, WideChar* value, DWORD size,
                               const WideChar* path) {
    Operation& op = Op<"GetPrivateProfileStringW">;
    WideText result;
    return op.CallOr(
        [&](int) { return value ? PutText(FallbackText(fallback), value, size) : DWORD{0}; },
        [&] {
            if (size > 0) Need(value, "the place for the value");
            const IniTable* ini = path ? Simulated().ReadIni(path) : nullptr;
            const DWORD length = ReadValue(ini, section, key, fallback, value, size);
            if (Operation::journalling) result.assign(value, length);
            return length;
        },
        "section", section, "key", key, "fallback", fallback, "value", TextThen{&result}, "size",
        size, "path", path);
}

BOOL WritePrivateProfileStringW(const WideChar* section, const WideChar* key, const WideChar* value,
                                const WideChar* path) {
    Operation& op = Op<"WritePrivateProfileStringW">;
    return op.CallOr([](int) { return BOOL{FALSE}; },
                     [&] {
                         if (!section || !path) return BOOL{FALSE};
                         return BOOL{WriteValue(section, key, value, path)};
                     },
                     "section", section, "key", key, "value", value, "path", path);
}
