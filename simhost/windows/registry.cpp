// The registry of the current user, held in memory: keys, typed values and the handles to them.
#include <algorithm>
#include <cstring>

#include "simhost/core/operation.h"
#include "simhost/windows/names.h"
#include "simhost/windows/simulated.h"

using namespace simhost;

namespace simhost {

namespace {

constexpr REGSAM kMayQuery = 0x1, kMaySet = 0x2, kMayCreate = 0x4, kMaximum = 0x2000000;
constexpr LSTATUS kInvalidHandle = 6, kInvalidParameter = 87, kBadPath = 161, kNoAccess = 998,
                  kKeyDeleted = 1018;
constexpr DWORD kCreated = 1, kOpened = 2;

// The path below another key; single separators, none at its ends.
WideText Join(WideView parent, WideView path) {
    WideText joined(parent);
    for (std::size_t at = 0; at < path.size();) {
        const std::size_t end = std::min(path.find(u'\\', at), path.size());
        if (end > at) {
            if (!joined.empty()) joined += u'\\';
            joined += path.substr(at, end - at);
        }
        at = end + 1;
    }
    return joined;
}

}  // namespace

RegistryKey* SimulatedWindows::FindKey(WideView path) const {
    const auto found = registry_.find(FoldCase(Join({}, path)));
    return found == registry_.end() ? nullptr : found->second.get();
}

RegistryKey& SimulatedWindows::KeyAt(WideView path) {
    const WideText folded = FoldCase(Join({}, path));
    for (std::size_t at = 0; at < folded.size();) {
        at = std::min(folded.find(u'\\', at + 1), folded.size());
        auto& key = registry_[folded.substr(0, at)];
        if (!key) key = std::make_unique<RegistryKey>();
    }
    auto& key = registry_[folded];
    if (!key) key = std::make_unique<RegistryKey>();
    return *key;
}

void SimulatedWindows::SetRegistry(WideView path, WideView name, DWORD type, std::string bytes) {
    KeyAt(path).values[FoldCase(name)] = {WideText(name), type, std::move(bytes)};
}

std::optional<WideText> SimulatedWindows::RegistryText(WideView path, WideView name) const {
    const RegistryKey* key = FindKey(path);
    if (!key) return std::nullopt;
    const auto value = key->values.find(FoldCase(name));
    if (value == key->values.end()) return std::nullopt;
    const std::string& bytes = value->second.bytes;
    WideText text(bytes.size() / sizeof(WideChar), WideChar{});
    std::memcpy(text.data(), bytes.data(), text.size() * sizeof(WideChar));
    return text.substr(0, text.find(WideChar{}));
}

void SimulatedWindows::RemoveRegistry(WideView path) {
    const WideText folded = FoldCase(Join({}, path));
    const WideText below = folded + u'\\';
    std::erase_if(registry_, [&](const auto& entry) {
        return folded.empty() || entry.first == folded || entry.first.starts_with(below);
    });
}

HKEY SimulatedWindows::Open(WideView path, REGSAM access) {
    OpenKey& key = openKeys_.emplace_back();
    key.path = path;
    key.access = access & kMaximum ? KEY_ALL_ACCESS : access;
    return static_cast<HKEY>(keys_.Add(&key));
}

OpenKey SimulatedWindows::Require(HKEY key) const {
    if (key == HKEY_CURRENT_USER) return {{}, KEY_ALL_ACCESS};
    const OpenKey* open = keys_.Find(key);
    if (!open) Complain(kInvalidHandle, "the handle names no open key");
    return *open;
}

bool SimulatedWindows::Close(HKEY key) {
    if (key == HKEY_CURRENT_USER) return true;
    const OpenKey* open = keys_.Find(key);
    if (!open) return false;
    keys_.Drop(key);
    openKeys_.remove_if([open](const OpenKey& each) { return &each == open; });
    return true;
}

namespace {

LSTATUS Denied(int status) {
    return status > 0 ? status : ERROR_ACCESS_DENIED;
}

// The key of a handle, if the handle may do this to it.
LSTATUS UseKey(HKEY handle, REGSAM need, RegistryKey** key) {
    const OpenKey open = Simulated().Require(handle);
    *key = open.path.empty() ? &Simulated().KeyAt({}) : Simulated().FindKey(open.path);
    if (!*key) return kKeyDeleted;
    return open.access & need ? ERROR_SUCCESS : ERROR_ACCESS_DENIED;
}

// The path of a key below an open one.
LSTATUS PathBelow(const OpenKey& parent, const WideChar* path, WideText* joined) {
    if (path && *path == u'\\') return kBadPath;
    *joined = Join(parent.path, path ? WideView(path) : WideView());
    return ERROR_SUCCESS;
}

LSTATUS CreateKey(HKEY parent, const WideChar* path, REGSAM access, HKEY* key, DWORD* disposition) {
    Need(key, "the place for the key");
    Need(path, "the path");
    const OpenKey above = Simulated().Require(parent);
    WideText joined;
    if (const LSTATUS status = PathBelow(above, path, &joined)) return status;
    const bool exists = joined.empty() || Simulated().HasRegistry(joined);
    if (!exists && !(above.access & kMayCreate)) return ERROR_ACCESS_DENIED;
    Simulated().KeyAt(joined);
    *key = Simulated().Open(joined, access);
    if (disposition) *disposition = exists ? kOpened : kCreated;
    return ERROR_SUCCESS;
}

LSTATUS QueryValue(HKEY handle, const WideChar* name, DWORD* type, BYTE* data, DWORD* size) {
    RegistryKey* key = nullptr;
    if (const LSTATUS status = UseKey(handle, kMayQuery, &key)) return status;
    if (data && !size) return kInvalidParameter;
    const auto found = key->values.find(FoldCase(name ? name : WIDE("")));
    if (found == key->values.end()) return ERROR_FILE_NOT_FOUND;
    const RegistryValue& value = found->second;
    const auto length = static_cast<DWORD>(value.bytes.size());
    if (type) *type = value.type;
    const bool fits = !data || *size >= length;
    if (data && fits) std::copy(value.bytes.begin(), value.bytes.end(), data);
    if (size) *size = length;
    return fits ? ERROR_SUCCESS : ERROR_MORE_DATA;
}

LSTATUS SetValue(HKEY handle, const WideChar* name, DWORD type, const BYTE* data, DWORD size) {
    if (!data && size > 0) Complain(kNoAccess, "the data is null");
    RegistryKey* key = nullptr;
    if (const LSTATUS status = UseKey(handle, kMaySet, &key)) return status;
    const WideText text = name ? name : WIDE("");
    std::string bytes;
    if (size > 0) bytes.assign(reinterpret_cast<const char*>(data), size);
    key->values[FoldCase(text)] = {text, type, std::move(bytes)};
    return ERROR_SUCCESS;
}

}  // namespace

}  // namespace simhost

LSTATUS RegOpenKeyExW(HKEY parent, const WideChar* path, DWORD options, REGSAM access, HKEY* key) {
    Operation& op = Op<"RegOpenKeyExW">;
    return op.CallOr(
        Denied,
        [&]() -> LSTATUS {
            Need(key, "the place for the key");
            WideText joined;
            const OpenKey above = Simulated().Require(parent);
            if (const LSTATUS status = PathBelow(above, path, &joined)) return status;
            if (!joined.empty() && !Simulated().HasRegistry(joined)) return ERROR_FILE_NOT_FOUND;
            *key = Simulated().Open(joined, access);
            return ERROR_SUCCESS;
        },
        "path", path, "options", options, "access", access);
}

LSTATUS RegCreateKeyExW(HKEY parent, const WideChar* path, DWORD reserved, WideChar* keyClass,
                        DWORD options, REGSAM access, void* security, HKEY* key,
                        DWORD* disposition) {
    Operation& op = Op<"RegCreateKeyExW">;
    return op.CallOr(
        Denied,
        [&]() -> LSTATUS {
            if (reserved != 0) return kInvalidParameter;
            return CreateKey(parent, path, access, key, disposition);
        },
        "path", path, "class", keyClass, "options", options, "access", access, "security", security,
        "disposition", Out(disposition));
}

LSTATUS RegQueryValueExW(HKEY key, const WideChar* name, DWORD* reserved, DWORD* type, BYTE* data,
                         DWORD* size) {
    Operation& op = Op<"RegQueryValueExW">;
    return op.CallOr(
        Denied,
        [&]() -> LSTATUS {
            if (reserved) return kInvalidParameter;
            return QueryValue(key, name, type, data, size);
        },
        "name", name, "type", Out(type), "size", Out(size));
}

LSTATUS RegSetValueExW(HKEY key, const WideChar* name, DWORD reserved, DWORD type, const BYTE* data,
                       DWORD size) {
    Operation& op = Op<"RegSetValueExW">;
    return op.CallOr(
        Denied,
        [&]() -> LSTATUS {
            if (reserved != 0) return kInvalidParameter;
            return SetValue(key, name, type, data, size);
        },
        "name", name, "type", type, "size", size);
}

LSTATUS RegCloseKey(HKEY key) {
    Operation& op = Op<"RegCloseKey">;
    return op.CallOr(
        [&](int status) {
            Simulated().Close(key);
            return Denied(status);
        },
        [&]() -> LSTATUS {
            if (!Simulated().Close(key)) {
                Complain(kInvalidHandle, "the handle names no open key");
            }
            return ERROR_SUCCESS;
        });
}
