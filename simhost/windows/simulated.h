// The simulated Windows as one thing, for the operations of hostapi/windows.h, which are answered
// from here on systems that are not Windows.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <list>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <thread>
#include <unordered_map>
#include <vector>

#include "hostapi/windows.h"
#include "simhost/core/handles.h"
#include "simhost/system/windows.h"
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

// A thread that CreateThread started and whose handle is not closed.
struct OpenThread {
    HANDLE handle = nullptr;
    std::thread thread;
};

// A block that GlobalAlloc gave, with a strip behind it that nobody may write to.
struct MemoryBlock {
    HGLOBAL handle = nullptr;
    std::size_t size = 0;
    std::vector<char> bytes;
    bool locked = false;
    std::optional<std::vector<char>> handedOver;  // as it was when it became the system's
};

class SimulatedWindows : public Windows {
public:
    SimulatedWindows() { executablePath = WIDE("C:\\Program Files\\Host\\bin\\xtop.exe"); }
    ~SimulatedWindows() override;

    void AddModule(WideView name, WideView windowsPath) override;
    void RemoveModule(WideView name) override;
    using Windows::SetRegistry;
    void SetRegistry(WideView path, WideView name, DWORD type, std::string bytes) override;
    std::optional<WideText> RegistryText(WideView path, WideView name) const override;
    void RemoveRegistry(WideView path) override;
    bool HasRegistry(WideView path) const override { return FindKey(path) != nullptr; }
    void MakeKey(WideView path) override { KeyAt(path); }
    RegistryKey* FindKey(WideView path) const override;
    void AdvanceClock(unsigned milliseconds) override;
    UINT_PTR StartTimer(UINT_PTR id, UINT milliseconds, TIMERPROC procedure) override;
    bool StopTimer(UINT_PTR id) override;
    void Hold(WideView windowsPath) override;
    void Release(WideView windowsPath) override;
    bool MayOpen(const std::filesystem::path& real, bool toWrite) const override;
    WideText Desktop() const override;
    void HoldClipboard() override { clipboardHeld_ = true; }
    void ReleaseClipboard() override { clipboardHeld_ = false; }
    std::optional<WideText> ClipboardText() override;
    std::vector<std::string> OpenHandles() const override;

    // --- Modules ---
    // By file name or full path; null for a module that is not loaded. Null means the executable.
    HMODULE FindModule(const WideChar* name) const;
    // Complains about a handle that names no loaded module.
    const WideText& ModulePath(HMODULE module) const;

    // --- INI files ---
    // The file at a Windows path as it is now; null if it cannot be read. Good until the next call.
    const IniTable* ReadIni(WideView windowsPath);

    // --- The clock ---
    std::uint64_t tick() const { return tick_; }

    // --- Registry of the current user ---
    RegistryKey& KeyAt(WideView path);  // made with the keys above it
    HKEY Open(WideView path, REGSAM access);
    // The open key of a handle, the user's root included; complains about any other handle.
    OpenKey Require(HKEY key) const;
    bool Close(HKEY key);

    // --- Files ---
    bool IsHeld(const std::filesystem::path& real) const;
    // Whether a new handle would get along with those that are open.
    bool CanShare(const std::filesystem::path& real, DWORD access, DWORD share) const;
    HANDLE Open(OpenFile file);
    // Null for the two values that mean no file; complains about any other that is none.
    OpenFile* Require(HANDLE file) const;
    bool Close(HANDLE file);
    DWORD lastError = ERROR_SUCCESS;  // GetLastError

    // --- Threads ---
    HANDLE StartThread(LPTHREAD_START_ROUTINE start, void* parameter);
    bool WaitForThread(HANDLE thread);  // false for a handle that names none
    bool CloseThread(HANDLE thread);    // likewise; waits for its end, as nothing runs on here

    // --- Clipboard ---
    bool OpenTheClipboard();  // false while another program has it open
    void CloseTheClipboard();
    bool clipboardOpen = false;
    void EmptyTheClipboard();
    void PutOntoClipboard(UINT format, HANDLE memory);
    HGLOBAL Allocate(std::size_t bytes);
    void Free(HGLOBAL memory);
    MemoryBlock* FindBlock(HGLOBAL memory) const { return memory_.Find(memory); }
    MemoryBlock& RequireOwn(HGLOBAL memory) const;  // complains about any that is not the caller's

private:
    void WaitForThreads();

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
    HandleTable<OpenThread> threads_{HandleKind{0x35}};
    std::list<OpenThread> openThreads_;

    std::unordered_map<std::string, KnownIni> inis_;
    std::map<WideText, std::unique_ptr<RegistryKey>> registry_;  // by the folded path
    std::set<std::string> held_;
    HandleTable<MemoryBlock> memory_{HandleKind{0x34}};
    std::list<MemoryBlock> blocks_;
    std::map<UINT, MemoryBlock*> clipboard_;  // by format
    bool clipboardHeld_ = false;
    UINT_PTR nextTimer_ = 0x7FFF;
};

// The Windows of this process, as what it is here.
SimulatedWindows& Simulated();

// Whether a real file has the read-only attribute; a file that does not exist has not.
bool IsReadOnly(const std::filesystem::path& real);

// Where a Windows path leads; empty for one that Windows refuses as the name of a file: too long,
// with a character that no name may have, or ending in a separator.
std::filesystem::path RealFile(WideView windowsPath);

}  // namespace simhost
