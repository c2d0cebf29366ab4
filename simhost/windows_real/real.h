// What the user's side knows of a real Windows: the same knobs as the simulated Windows has, as far
// as a real one can be turned. Everything that the plug-in calls is answered by Windows itself.
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
#include "simhost/system/windows.h"

namespace simhost {

class RealWindows : public Windows {
public:
    RealWindows();
    ~RealWindows() override;

    void AddModule(WideView name, WideView windowsPath) override;
    void RemoveModule(WideView name) override;
    // A part of the registry that belongs to this process alone.
    using Windows::SetRegistry;
    void SetRegistry(WideView path, WideView name, DWORD type, std::string bytes) override;
    std::optional<WideText> RegistryText(WideView path, WideView name) const override;
    void RemoveRegistry(WideView path) override;
    bool HasRegistry(WideView path) const override;
    void MakeKey(WideView path) override;
    const RegistryKey* FindKey(WideView path) const override;
    // Time passes that nobody waits for: timers that fall due in it are restarted with the shortest
    // interval, and fire from the thread's message loop.
    void AdvanceClock(unsigned milliseconds) override;
    UINT_PTR StartTimer(UINT_PTR id, UINT milliseconds, TIMERPROC procedure) override;
    bool StopTimer(UINT_PTR id) override;
    void Hold(WideView windowsPath) override;
    void Release(WideView windowsPath) override;
    bool MayOpen(const std::filesystem::path&, bool) const override { return true; }
    WideText Desktop() const override;
    void HoldClipboard() override;
    void ReleaseClipboard() override;
    std::optional<WideText> ClipboardText() override;
    std::vector<std::string> OpenHandles() const override;

    bool onWallClock = false;  // true: timers run out by themselves, as they are asked for

    // For the watch over the plug-in's calls.
    std::vector<UINT> boxFlags;  // of the boxes that are open
    std::vector<std::pair<HKEY, WideText>> keys;
    std::vector<std::pair<HANDLE, WideText>> files;
    std::vector<HANDLE> threads;
    std::vector<std::pair<HGLOBAL, std::size_t>> memory;
    bool clipboardOpen = false;

private:
    bool Fire(const Timer& timer);

    HKEY root_ = nullptr;  // what HKEY_CURRENT_USER means to this process
    WideText rootPath_;
    mutable RegistryKey found_;
    std::map<WideText, HANDLE> held_;
    std::function<void()> letGoOfClipboard_;  // while it is held
    std::map<WideText, HMODULE> modules_;
};

// The Windows of this process, as what it is here.
RealWindows& Real();

// Lets message boxes of this thread be answered by the host's user.
void CatchBoxes();

// Sends the module's calls of Windows through the journal and the faults on their way to Windows.
void WatchCalls(HMODULE module);

// Sends the module's calls of one operation of Windows to another function of the same type.
void ReplaceCall(HMODULE module, const char* name, void* call);

}  // namespace simhost
