// What the user's side knows of a real Windows: the same knobs as the simulated Windows has, as far
// as a real one can be turned. What the plug-in calls is answered by Windows itself, but for
// programs and the save dialog.
#pragma once

#include <cstdint>
#include <functional>
#include <list>
#include <map>
#include <optional>
#include <string>
#include <utility>
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
    std::map<WideText, RegistryValue> values;  // by their names
};

struct Timer {
    UINT_PTR id = 0;
    UINT milliseconds = 0;
    TIMERPROC procedure = nullptr;
    std::uint64_t due = 0;
};

class RealWindows {
public:
    RealWindows();
    ~RealWindows();
    RealWindows(const RealWindows&) = delete;
    RealWindows& operator=(const RealWindows&) = delete;

    // The host that runs here. Throws std::logic_error where none does; see ServeHost.
    const HostSide& host() const;

    // --- Modules ---
    // Really loads some library under this name, where no module of the plug-in's is at hand.
    void AddModule(WideView name, WideView windowsPath);
    void RemoveModule(WideView name);
    WideText executablePath;  // of this very process

    // --- Registry of the current user; a part of it that belongs to this process alone ---
    void SetRegistry(WideView path, WideView name, DWORD type, std::string bytes);
    void SetRegistry(WideView path, WideView name, WideView text);  // a terminated REG_SZ
    // A value's text up to its terminator; nothing if there is no such key or value.
    std::optional<WideText> RegistryText(WideView path, WideView name) const;
    void RemoveRegistry(WideView path);  // with everything below it
    bool HasRegistry(WideView path) const;
    // The values of a key as they are now, good until the next call; null if there is none.
    const RegistryKey* FindKey(WideView path) const;
    void MakeKey(WideView path);

    // --- Timers ---
    // Lets time pass that nobody waits for: timers that fall due in it are set anew with the
    // shortest interval, and fire from the thread's message loop, in order of their times.
    bool onWallClock = false;  // true: timers run out by themselves, as they are asked for
    void AdvanceClock(unsigned milliseconds);
    const std::list<Timer>& timers() const { return timers_; }
    UINT_PTR StartTimer(UINT_PTR id, UINT milliseconds, TIMERPROC procedure);
    bool StopTimer(UINT_PTR id);
    // Stops those whose procedure is one of `which`; how many there were.
    int StopTimers(const std::function<bool(TIMERPROC)>& which);

    // --- Files ---
    // Holds the file open and shares it with nobody.
    void Hold(WideView windowsPath);
    void Release(WideView windowsPath);
    WideText Desktop() const;  // the user's folder

    // --- What the plug-in did ---
    std::vector<WideText> programs;  // command lines that were to run; they are never run
    std::map<int, WideText> locale;  // what was set, by category
    std::vector<std::string> OpenHandles() const;  // "key Software\\PTC", "file C:\\Work\\a.txt"

    // For the watch over the plug-in's calls.
    std::vector<UINT> boxFlags;  // of the boxes that are open
    std::vector<std::pair<HKEY, WideText>> keys;
    std::vector<std::pair<HANDLE, WideText>> files;

private:
    bool Fire(const Timer& timer);

    HKEY root_ = nullptr;  // what HKEY_CURRENT_USER means to this process
    WideText rootPath_;
    mutable RegistryKey found_;
    std::list<Timer> timers_;
    std::uint64_t tick_ = 0;
    std::map<WideText, HANDLE> held_;
    std::map<WideText, HMODULE> modules_;
};

// The Windows of this process.
RealWindows& TheWindows();

// Windows serves this host from now on; null: none. The host calls it when it starts and ends.
void ServeHost(const HostSide* host);

// As at a computer's start: an empty registry, nothing noted.
void RestartWindows();

// Lets message boxes of this thread be answered by the host's user.
void CatchBoxes();

// Sends the module's calls of Windows through the journal and the faults on their way to Windows.
void WatchCalls(HMODULE module);

// Sends the module's calls of one operation of Windows to another function of the same type.
void ReplaceCall(HMODULE module, const char* name, void* call);

}  // namespace simhost
