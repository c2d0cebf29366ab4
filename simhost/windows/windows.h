// The simulated Windows as one thing: what it knows, and what its user can see and do. The
// operations of hostapi/windows.h are answered from here on systems that are not Windows.
#pragma once

#ifdef _WIN32
#include "simhost/windows_real/windows.h"
#else

#include <cstdint>
#include <filesystem>
#include <functional>
#include <list>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "hostapi/windows.h"
#include "simhost/core/handles.h"
#include "simhost/user/desk.h"
#include "simhost/windows/ini_text.h"

namespace simhost {

// A text for the journal, as it is when the call has ended; never read beyond its end, as the
// plug-in's own buffer might be.
struct TextThen {
    const WideText* text;
    operator const WideChar*() const { return text->c_str(); }
};

struct LoadedModule {
    WideText name;
    WideText path;
    HMODULE handle = nullptr;
};

struct RegistryValue {
    WideText name;
    DWORD type = 0;
    std::string bytes;
};
struct RegistryKey {
    std::map<WideText, RegistryValue> values;  // by the folded name
};

// A handle that RegOpenKeyExW or RegCreateKeyExW gave.
struct OpenKey {
    WideText path;
    REGSAM access = 0;
};

// A handle that CreateFileW gave.
struct OpenFile {
    WideText path;
    std::string place;  // the real path, as Held knows it
    int descriptor = -1;
    DWORD access = 0;
    DWORD share = 0;
};

struct Timer {
    UINT_PTR id = 0;
    UINT milliseconds = 0;
    TIMERPROC procedure = nullptr;
    std::uint64_t due = 0;
};

class SimulatedWindows {
public:
    SimulatedWindows() = default;
    ~SimulatedWindows();
    SimulatedWindows(const SimulatedWindows&) = delete;
    SimulatedWindows& operator=(const SimulatedWindows&) = delete;

    // The host that runs here. Throws std::logic_error where none does; see ServeHost.
    const HostSide& host() const;

    // --- Modules ---
    void AddModule(WideView name, WideView windowsPath);
    void RemoveModule(WideView name);
    WideText executablePath = WIDE("C:\\Program Files\\Host\\bin\\xtop.exe");
    // By file name or full path; null for a module that is not loaded. Null means the executable.
    HMODULE FindModule(const WideChar* name) const;
    // Complains about a handle that names no loaded module.
    const WideText& ModulePath(HMODULE module) const;

    // --- INI files ---
    // The file at a Windows path as it is now; null if it cannot be read. Good until the next call.
    const IniTable* ReadIni(WideView windowsPath);

    // --- Timers ---
    // Lets time pass: timers that fall due run in order of their times, as they would from the
    // message loop, and again until they are killed.
    void AdvanceClock(std::uint32_t milliseconds);
    std::uint64_t tick() const { return tick_; }
    const std::list<Timer>& timers() const { return timers_; }
    UINT_PTR StartTimer(UINT_PTR id, UINT milliseconds, TIMERPROC procedure);
    bool StopTimer(UINT_PTR id);
    // Stops those whose procedure is one of `which`; how many there were.
    int StopTimers(const std::function<bool(TIMERPROC)>& which);

    // --- Registry of the current user; paths such as "Software\\PTC" ---
    void SetRegistry(WideView path, WideView name, DWORD type, std::string bytes);
    void SetRegistry(WideView path, WideView name, WideView text);  // a terminated REG_SZ
    // A value's text up to its terminator; nothing if there is no such key or value.
    std::optional<WideText> RegistryText(WideView path, WideView name) const;
    void RemoveRegistry(WideView path);  // with everything below it
    bool HasRegistry(WideView path) const { return FindKey(path) != nullptr; }

    RegistryKey* FindKey(WideView path) const;
    RegistryKey& MakeKey(WideView path);  // with the keys above it
    HKEY Open(WideView path, REGSAM access);
    // The open key of a handle, the user's root included; complains about any other handle.
    OpenKey Require(HKEY key) const;
    bool Close(HKEY key);

    // --- Programs ---
    std::vector<WideText> programs;  // the command lines that were to run, in order

    // --- Files ---
    // As if another program had the file open and shared it with nobody.
    void Hold(WideView windowsPath);
    void Release(WideView windowsPath);
    bool IsHeld(const std::filesystem::path& real) const;
    // Whether a new handle would get along with those that are open.
    bool CanShare(const std::filesystem::path& real, DWORD access, DWORD share) const;
    HANDLE Open(OpenFile file);
    // Null for the two values that stand for no file; complains about any other that is none.
    OpenFile* Require(HANDLE file) const;
    bool Close(HANDLE file);

    DWORD lastError = ERROR_SUCCESS;  // GetLastError
    WideText Desktop() const;         // the user's folder

    // --- Locale ---
    std::map<int, WideText> locale;  // what was set, by category

    // --- Leaks ---
    // What is still open, one line each: "key Software\PTC", "file C:\Work\a.txt".
    std::vector<std::string> OpenHandles() const;

private:
    // A file's table and the signs by which a change of the file is noticed.
    struct KnownIni {
        std::string bytes;
        std::int64_t changed = 0;  // nanoseconds
        std::uint64_t node = 0;
        unsigned codePage = 0;
        bool settled = false;  // it was read well after its last change
        std::unique_ptr<IniTable> table;
    };

    HandleTable<LoadedModule> modules_{HandleKind{0x31}};
    HandleTable<OpenKey> keys_{HandleKind{0x32}};
    HandleTable<OpenFile> files_{HandleKind{0x33}};
    std::list<LoadedModule> loaded_;
    std::list<OpenKey> openKeys_;
    std::list<OpenFile> openFiles_;

    std::unordered_map<std::string, KnownIni> inis_;
    std::map<WideText, std::unique_ptr<RegistryKey>> registry_;  // by the folded path
    std::set<std::string> held_;
    std::list<Timer> timers_;
    std::uint64_t tick_ = 0;
    UINT_PTR nextTimer_ = 0x7FFF;
};

// The Windows of this process.
SimulatedWindows& TheWindows();

// Windows serves this host from now on; null: none. The host calls it when it starts and ends.
void ServeHost(const HostSide* host);

// Forgets modules, registry, timers, open handles and all else, as at a computer's start.
void RestartWindows();

// Whether a real file has the read-only attribute; a file that does not exist has not.
bool IsReadOnly(const std::filesystem::path& real);

// Where a Windows path leads; empty for one that Windows refuses as the name of a file: too long,
// with a character that no name may have, or ending in a separator.
std::filesystem::path RealFile(WideView windowsPath);

}  // namespace simhost

#endif
