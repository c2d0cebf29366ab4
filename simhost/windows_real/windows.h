// What the user's side knows of a real Windows: the same knobs as the simulated Windows has, as far
// as a real one can be turned. Everything that the plug-in calls is answered by Windows itself.
#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "hostapi/wide.h"
#include "hostapi/windows.h"

namespace simhost {

class RealWindows {
public:
    RealWindows();
    ~RealWindows();
    RealWindows(const RealWindows&) = delete;
    RealWindows& operator=(const RealWindows&) = delete;

    // --- Registry of the current user; a part of it that belongs to this process alone ---
    void SetRegistry(WideView path, WideView name, DWORD type, std::string bytes);
    void SetRegistry(WideView path, WideView name, WideView text);  // a terminated REG_SZ
    // A value's text up to its terminator; nothing if there is no such key or value.
    std::optional<WideText> RegistryText(WideView path, WideView name) const;
    void RemoveRegistry(WideView path);  // with everything below it
    bool HasRegistry(WideView path) const;

    // --- Clock: time really passes, with the thread's message loop running ---
    void AdvanceClock(unsigned milliseconds);

    // --- What the plug-in did ---
    std::vector<WideText> programs;        // command lines that were to run; they are never run
    std::vector<std::string> OpenHandles() const;  // "key Software\PTC", "file C:\Work\a.txt"

    // --- For the watch over the plug-in's calls ---
    std::set<UINT_PTR> timers;
    std::vector<std::pair<HKEY, WideText>> keys;
    std::vector<std::pair<HANDLE, WideText>> files;
    void StopTimers();  // those of a module that is about to leave memory

private:
    HKEY root_ = nullptr;  // what HKEY_CURRENT_USER means to this process
    WideText rootPath_;
};

// The Windows of this process.
RealWindows& TheWindows();

// As at a computer's start: an empty registry, nothing noted.
void RestartWindows();

// Lets message boxes of this thread be answered by the host's user.
void CatchBoxes();

// Sends the module's calls of Windows through the journal and the faults on their way to Windows.
void WatchCalls(HMODULE module);

}  // namespace simhost
