// The Windows under the host: what its user can see and do there. On Windows it is the real one,
// watched (simhost/windows_real/), elsewhere a simulated one (simhost/windows/); the build takes
// one of the two folders.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <list>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "hostapi/wide.h"
#include "hostapi/windows.h"
#include "simhost/user/desk.h"

namespace simhost {

struct RegistryValue {
    WideText name;
    DWORD type = 0;
    std::string bytes;
};
struct RegistryKey {
    std::map<WideText, RegistryValue>
        values;  // by the name, in small letters where it is simulated
};

struct Timer {
    UINT_PTR id = 0;
    UINT milliseconds = 0;
    TIMERPROC procedure = nullptr;
    std::uint64_t due = 0;
};

class Windows {
public:
    Windows() = default;
    virtual ~Windows() = default;
    Windows(const Windows&) = delete;
    Windows& operator=(const Windows&) = delete;

    // The host that runs here. Throws std::logic_error where none does; see ServeHost.
    static const HostSide& host();

    // --- Modules ---
    // Makes a module known under this name where none of the plug-in's is at hand; on Windows some
    // library is really loaded.
    virtual void AddModule(WideView name, WideView windowsPath) = 0;
    virtual void RemoveModule(WideView name) = 0;
    WideText executablePath;

    // --- Registry of the current user; paths such as "Software\\PTC" ---
    virtual void SetRegistry(WideView path, WideView name, DWORD type, std::string bytes) = 0;
    void SetRegistry(WideView path, WideView name, WideView text);  // a terminated REG_SZ
    // A value's text up to its terminator; nothing if there is no such key or value.
    virtual std::optional<WideText> RegistryText(WideView path, WideView name) const = 0;
    virtual void RemoveRegistry(WideView path) = 0;  // with everything below it
    virtual bool HasRegistry(WideView path) const = 0;
    virtual void MakeKey(WideView path) = 0;  // with the keys above it
    // The values of a key as they are now, good until the next call; null if there is none.
    virtual const RegistryKey* FindKey(WideView path) const = 0;

    // --- Timers ---
    // Lets time pass: timers that fall due run in order of their times, and again until they are
    // killed.
    virtual void AdvanceClock(unsigned milliseconds) = 0;
    const std::list<Timer>& timers() const { return timers_; }
    virtual UINT_PTR StartTimer(UINT_PTR id, UINT milliseconds, TIMERPROC procedure) = 0;
    virtual bool StopTimer(UINT_PTR id) = 0;
    // Stops those whose procedure is one of `which`; how many there were.
    int StopTimers(const std::function<bool(TIMERPROC)>& which);

    // --- Files ---
    // As if another program had the file open and shared it with nobody.
    virtual void Hold(WideView windowsPath) = 0;
    virtual void Release(WideView windowsPath) = 0;
    // Whether the system would let somebody open a real file that it knows others have open or that
    // may not be written. A real Windows says so itself when the file is opened.
    virtual bool MayOpen(const std::filesystem::path& real, bool toWrite) const = 0;
    virtual WideText Desktop() const = 0;  // the user's folder

    // --- Clipboard ---
    // As if a window of another program had it open.
    virtual void HoldClipboard() = 0;
    virtual void ReleaseClipboard() = 0;
    // The text on it; nothing if there is none, or another program keeps us out.
    virtual std::optional<WideText> ClipboardText() = 0;

    // --- What the plug-in did ---
    // Command lines that were to run, in order; they never do.
    std::vector<WideText> programs;
    std::map<int, WideText> locale;  // what was set, by category
    // What is still open, one line each: "key Software\PTC", "file C:\Work\a.txt", "thread",
    // "clipboard", "memory of 14 bytes" that was neither freed nor handed over.
    virtual std::vector<std::string> OpenHandles() const = 0;

protected:
    std::list<Timer> timers_;
    std::uint64_t tick_ = 0;
};

// The Windows of this process.
Windows& TheWindows();

// As at a computer's start: forgets modules, registry, timers, open handles and all else.
void RestartWindows();

// Windows serves this host from now on; null: none. The host calls it when it starts and ends.
void ServeHost(const HostSide* host);

}  // namespace simhost
