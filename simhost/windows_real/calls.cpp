// The plug-in's calls of a real Windows on their way there: counted, told to fail, written into the
// journal and remembered where something is left open. Windows itself answers them; only programs
// are noted and not run, since no test may open a browser.
#include <algorithm>
#include <cstdint>
#include <cstring>

#include "simhost/core/operation.h"
#include "simhost/core/text.h"
#include "simhost/system/clicks.h"
#include "simhost/system/clock.h"
#include "simhost/system/programs.h"
#include "simhost/user/save_dialog.h"
#include "simhost/windows_real/clipboard.h"
#include "simhost/windows_real/real.h"

namespace simhost {

namespace {

LSTATUS Denied(int status) {
    return status > 0 ? status : ERROR_ACCESS_DENIED;
}
BOOL False(int) {
    return FALSE;
}
DWORD Nothing(int) {
    return 0;
}

template <class Handle>
void Forget(std::vector<std::pair<Handle, WideText>>* open, Handle handle) {
    const auto is = [handle](const auto& each) { return each.first == handle; };
    open->erase(std::remove_if(open->begin(), open->end(), is), open->end());
}

// --- Modules ---

HMODULE WINAPI ModuleHandle(const WideChar* name) {
    Operation& op = Op<"GetModuleHandleW">;
    return op.CallOr([](int) { return HMODULE{}; }, [&] { return GetModuleHandleW(name); }, "name",
                     name);
}

DWORD WINAPI ModuleFileName(HMODULE module, WideChar* path, DWORD size) {
    Operation& op = Op<"GetModuleFileNameW">;
    return op.CallOr(
        Nothing, [&] { return GetModuleFileNameW(module, path, size); }, "module", module, "path",
        Out(path), "size", size);
}

// --- INI files ---

DWORD WINAPI GetProfile(const WideChar* section, const WideChar* key, const WideChar* fallback,
                        WideChar* value, DWORD size, const WideChar* path) {
    Operation& op = Op<"GetPrivateProfileStringW">;
    const auto failed = [&](int) {
        CopyCut(fallback ? fallback : L"", value, size);
        return static_cast<DWORD>(std::wcslen(value));
    };
    return op.CallOr(
        failed, [&] { return GetPrivateProfileStringW(section, key, fallback, value, size, path); },
        "section", section, "key", key, "fallback", fallback, "value", Out(value), "size", size,
        "path", path);
}

BOOL WINAPI WriteProfile(const WideChar* section, const WideChar* key, const WideChar* value,
                         const WideChar* path) {
    Operation& op = Op<"WritePrivateProfileStringW">;
    return op.CallOr(
        False, [&] { return WritePrivateProfileStringW(section, key, value, path); }, "section",
        section, "key", key, "value", value, "path", path);
}

// --- Boxes and timers ---

int WINAPI ShowMessageBox(HWND owner, const WideChar* text, const WideChar* caption, UINT flags) {
    Operation& op = Op<"MessageBoxW">;
    return op.CallOr([](int) { return 0; },
                     [&] {
                         Real().boxFlags.push_back(flags);
                         const int answer = MessageBoxW(owner, text, caption, flags);
                         Real().boxFlags.pop_back();
                         return answer;
                     },
                     "text", text, "caption", caption, "flags", flags);
}

UINT_PTR WINAPI StartTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC procedure) {
    Operation& op = Op<"SetTimer">;
    return op.CallOr([](int) { return UINT_PTR{0}; },
                     [&] {
                         return window ? SetTimer(window, id, milliseconds, procedure)
                                       : Real().StartTimer(id, milliseconds, procedure);
                     },
                     "id", id, "milliseconds", milliseconds, "procedure", procedure);
}

BOOL WINAPI StopTimer(HWND window, UINT_PTR id) {
    Operation& op = Op<"KillTimer">;
    return op.CallOr(
        False, [&] { return window ? KillTimer(window, id) : BOOL{Real().StopTimer(id)}; }, "id",
        id);
}

// --- Registry ---

LSTATUS WINAPI OpenKey(HKEY parent, const WideChar* path, DWORD options, REGSAM access, HKEY* key) {
    Operation& op = Op<"RegOpenKeyExW">;
    return op.CallOr(
        Denied,
        [&]() -> LSTATUS {
            const LSTATUS status = RegOpenKeyExW(parent, path, options, access, key);
            if (status == ERROR_SUCCESS) Real().keys.emplace_back(*key, path ? path : L"");
            return status;
        },
        "path", path, "options", options, "access", access);
}

LSTATUS WINAPI CreateKey(HKEY parent, const WideChar* path, DWORD reserved, WideChar* keyClass,
                         DWORD options, REGSAM access, SECURITY_ATTRIBUTES* security, HKEY* key,
                         DWORD* disposition) {
    Operation& op = Op<"RegCreateKeyExW">;
    return op.CallOr(
        Denied,
        [&]() -> LSTATUS {
            const LSTATUS status = RegCreateKeyExW(parent, path, reserved, keyClass, options,
                                                   access, security, key, disposition);
            if (status == ERROR_SUCCESS) Real().keys.emplace_back(*key, path ? path : L"");
            return status;
        },
        "path", path, "class", keyClass, "options", options, "access", access, "security", security,
        "disposition", Out(disposition));
}

LSTATUS WINAPI QueryValue(HKEY key, const WideChar* name, DWORD* reserved, DWORD* type, BYTE* data,
                          DWORD* size) {
    Operation& op = Op<"RegQueryValueExW">;
    return op.CallOr(
        Denied,
        [&]() -> LSTATUS { return RegQueryValueExW(key, name, reserved, type, data, size); },
        "name", name, "type", Out(type), "size", Out(size));
}

LSTATUS WINAPI SetValue(HKEY key, const WideChar* name, DWORD reserved, DWORD type,
                        const BYTE* data, DWORD size) {
    Operation& op = Op<"RegSetValueExW">;
    return op.CallOr(
        Denied, [&]() -> LSTATUS { return RegSetValueExW(key, name, reserved, type, data, size); },
        "name", name, "type", type, "size", size);
}

LSTATUS WINAPI CloseKey(HKEY key) {
    Operation& op = Op<"RegCloseKey">;
    // Told to fail, it closes the key all the same, so that no test leaks one.
    const auto close = [&] {
        Forget(&Real().keys, key);
        return RegCloseKey(key);
    };
    return op.CallOr(
        [&](int status) {
            close();
            return Denied(status);
        },
        [&]() -> LSTATUS { return close(); });
}

// --- Programs ---

UINT WINAPI RunProgram(const char* commandLine, UINT show) {
    Operation& op = Op<"WinExec">;
    constexpr UINT kFileNotFound = 2, kStarted = 33;
    return op.CallOr([](int) { return kFileNotFound; },
                     [&] {
                         Need(commandLine, "the command line");
                         const WideText command = FromSystemCodePage(commandLine);
                         Real().programs.push_back(command);
                         Real().host().desk.shown.push_back({Shown::Kind::Program, command, {}});
                         return kStarted;
                     },
                     "commandLine", commandLine, "show", show);
}

HINSTANCE WINAPI OpenByProgram(HWND owner, const WideChar* verb, const WideChar* file,
                               const WideChar* arguments, const WideChar* folder, int show) {
    Operation& op = Op<"ShellExecuteW">;
    constexpr std::uintptr_t kFileNotFound = 2, kStarted = 33;
    const auto result = [](std::uintptr_t value) { return reinterpret_cast<HINSTANCE>(value); };
    return op.CallOr(
        [&](int) { return result(kFileNotFound); },
        [&] {
            Need(file, "the file");
            if (!IsKnownProgram(file) && GetFileAttributesW(file) == INVALID_FILE_ATTRIBUTES) {
                return result(kFileNotFound);
            }
            const WideText line = ProgramLine(verb, file, arguments, show);
            Real().programs.push_back(line);
            Real().host().desk.shown.push_back({Shown::Kind::Program, line, {}});
            return result(kStarted);
        },
        "owner", static_cast<const void*>(owner), "verb", verb, "file", file, "arguments",
        arguments, "folder", folder, "show", show);
}

// --- Files ---

HWND WINAPI ActiveWindow() {
    Operation& op = Op<"GetActiveWindow">;
    return op.CallOr([](int) { return HWND{}; }, [] { return GetActiveWindow(); });
}

template <class Ask>
BOOL AskForName(Operation& op, Ask ask, OPENFILENAMEW* dialog) {
    return op.CallOr(
        False,
        [&] {
            Need(dialog, "the record");
            return ask(Real().host(), dialog);
        },
        "owner", static_cast<const void*>(dialog->hwndOwner), "extension", dialog->lpstrDefExt,
        "folder", dialog->lpstrInitialDir, "flags", dialog->Flags, "path", Out(dialog->lpstrFile));
}

BOOL WINAPI SaveName(OPENFILENAMEW* dialog) {
    return AskForName(Op<"GetSaveFileNameW">, AskForSaveName, dialog);
}

BOOL WINAPI OpenName(OPENFILENAMEW* dialog) {
    return AskForName(Op<"GetOpenFileNameW">, AskForOpenName, dialog);
}

BOOL WINAPI FileExists(const WideChar* path) {
    Operation& op = Op<"PathFileExistsW">;
    return op.CallOr(
        False, [&] { return PathFileExistsW(path); }, "path", path);
}

BOOL WINAPI RemoveFile(const WideChar* path) {
    Operation& op = Op<"DeleteFileW">;
    return op.CallOr(
        False, [&] { return DeleteFileW(path); }, "path", path);
}

BOOL WINAPI CopyOfFile(const WideChar* from, const WideChar* to, BOOL failIfExists) {
    Operation& op = Op<"CopyFileW">;
    return op.CallOr(
        False, [&] { return CopyFileW(from, to, failIfExists); }, "from", from, "to", to,
        "failIfExists", failIfExists);
}

// A path without a folder lies in that of the process, which is a host's working directory; here
// only for a call, since nobody can remove the folder in which a process works.
class InWorkingDirectory {
public:
    InWorkingDirectory() {
        GetCurrentDirectoryW(MAX_PATH, before_);
        SetCurrentDirectoryW(Real().host().workingDirectory.c_str());
    }
    ~InWorkingDirectory() { SetCurrentDirectoryW(before_); }
    InWorkingDirectory(const InWorkingDirectory&) = delete;
    InWorkingDirectory& operator=(const InWorkingDirectory&) = delete;

private:
    wchar_t before_[MAX_PATH] = {};
};

BOOL MoveThere(const WideChar* from, const WideChar* to) {
    const InWorkingDirectory here;
    return MoveFileW(from, to);
}

BOOL WINAPI MoveWide(const WideChar* from, const WideChar* to) {
    Operation& op = Op<"MoveFileW">;
    return op.CallOr(
        False, [&] { return MoveThere(from, to); }, "from", from, "to", to);
}

BOOL WINAPI MoveNarrow(const char* from, const char* to) {
    Operation& op = Op<"MoveFileA">;
    return op.CallOr(
        False, [&] { return MoveFileA(from, to); }, "from", from, "to", to);
}

BOOL WINAPI MakeFolder(const WideChar* path, SECURITY_ATTRIBUTES* security) {
    Operation& op = Op<"CreateDirectoryW">;
    return op.CallOr(
        False, [&] { return CreateDirectoryW(path, security); }, "path", path, "security",
        static_cast<const void*>(security));
}

// What is done here on the way must not hide the error that is asked for.
DWORD WINAPI LastError() {
    Operation& op = Op<"GetLastError">;
    const DWORD error = GetLastError();
    const DWORD told = op.CallOr(Nothing, [error] { return error; });
    SetLastError(error);
    return told;
}

HANDLE WINAPI OpenFile(const WideChar* path, DWORD access, DWORD share,
                       SECURITY_ATTRIBUTES* security, DWORD creation, DWORD attributes,
                       HANDLE pattern) {
    Operation& op = Op<"CreateFileW">;
    DWORD error = ERROR_GEN_FAILURE;
    const HANDLE file =
        op.CallOr([](int) { return INVALID_HANDLE_VALUE; },
                  [&] {
                      const HANDLE opened =
                          CreateFileW(path, access, share, security, creation, attributes, pattern);
                      error = GetLastError();
                      if (opened != INVALID_HANDLE_VALUE) Real().files.emplace_back(opened, path);
                      return opened;
                  },
                  "path", path, "access", access, "share", share, "security", security, "creation",
                  creation, "attributes", attributes, "pattern", pattern);
    SetLastError(error);
    return file;
}

BOOL WINAPI FileSize(HANDLE file, LARGE_INTEGER* size) {
    Operation& op = Op<"GetFileSizeEx">;
    return op.CallOr(False, [&] { return GetFileSizeEx(file, size); });
}

BOOL WINAPI ReadBytes(HANDLE file, void* data, DWORD size, DWORD* done, OVERLAPPED* overlapped) {
    Operation& op = Op<"ReadFile">;
    return op.CallOr(
        False, [&] { return ReadFile(file, data, size, done, overlapped); }, "size", size, "read",
        Out(done));
}

BOOL WINAPI WriteBytes(HANDLE file, const void* data, DWORD size, DWORD* done,
                       OVERLAPPED* overlapped) {
    Operation& op = Op<"WriteFile">;
    return op.CallOr(
        False, [&] { return WriteFile(file, data, size, done, overlapped); }, "size", size,
        "written", Out(done));
}

BOOL WINAPI Close(HANDLE handle) {
    Operation& op = Op<"CloseHandle">;
    const auto close = [&] {
        Forget(&Real().files, handle);
        std::erase(Real().threads, handle);
        return CloseHandle(handle);
    };
    return op.CallOr(
        [&](int) {
            close();
            return FALSE;
        },
        close);
}

BOOL WINAPI SpecialFolder(HWND owner, WideChar* path, int folder, BOOL create) {
    Operation& op = Op<"SHGetSpecialFolderPathW">;
    return op.CallOr(
        False, [&] { return SHGetSpecialFolderPathW(owner, path, folder, create); }, "owner",
        static_cast<const void*>(owner), "path", Out(path), "folder", folder, "create", create);
}

// What a script has set, else what Windows says.
void WINAPI SystemTime(FILETIME* time) {
    Operation& op = Op<"GetSystemTimeAsFileTime">;
    std::uint64_t steps = 0;
    op.CallOr([](int) { return 0; },
              [&] {
                  steps = TellTime();
                  *time = {DWORD(steps & 0xffffffff), DWORD(steps >> 32)};
                  return 0;
              },
              "time", Out(&steps));
}

UINT WINAPI SystemFolder(WideChar* path, UINT size) {
    Operation& op = Op<"GetSystemDirectoryW">;
    return op.CallOr([](int) { return UINT{0}; }, [&] { return GetSystemDirectoryW(path, size); },
                     "path", Out(path), "size", size);
}

// --- Threads and the mouse ---

HANDLE WINAPI StartThread(SECURITY_ATTRIBUTES* security, SIZE_T stack, LPTHREAD_START_ROUTINE start,
                          void* parameter, DWORD flags, DWORD* id) {
    Operation& op = Op<"CreateThread">;
    return op.CallOr([](int) { return HANDLE{}; },
                     [&] {
                         const HANDLE thread =
                             CreateThread(security, stack, start, parameter, flags, id);
                         if (thread) Real().threads.push_back(thread);
                         return thread;
                     },
                     "flags", flags);
}

// What the thread sent comes before the end of the wait in the journal. Told to fail, it has waited
// all the same, so that no thread runs on beside the host.
DWORD WINAPI Wait(HANDLE object, DWORD milliseconds) {
    Operation& op = Op<"WaitForSingleObject">;
    const DWORD ended = WaitForSingleObject(object, milliseconds);
    TakeKeptClicks();
    Operation::ComplainOfForeignCalls();
    return op.CallOr([](int) { return DWORD{WAIT_FAILED}; }, [ended] { return ended; },
                     "milliseconds", milliseconds);
}

// Never goes out: no test may click on somebody's desktop.
void WINAPI Click(DWORD flags, DWORD, DWORD, DWORD, ULONG_PTR) {
    SendClick(flags);
}

// --- Code pages and locale ---

int WINAPI ToWide(UINT codePage, DWORD flags, const char* narrow, int length, WideChar* wide,
                  int size) {
    Operation& op = Op<"MultiByteToWideChar">;
    return op.CallOr(
        False, [&] { return MultiByteToWideChar(codePage, flags, narrow, length, wide, size); },
        "codePage", codePage, "flags", flags, "length", length, "size", size);
}

int WINAPI ToNarrow(UINT codePage, DWORD flags, const WideChar* wide, int length, char* narrow,
                    int size, const char* byDefault, BOOL* usedDefault) {
    Operation& op = Op<"WideCharToMultiByte">;
    return op.CallOr(
        False,
        [&] {
            return WideCharToMultiByte(codePage, flags, wide, length, narrow, size, byDefault,
                                       usedDefault);
        },
        "codePage", codePage, "flags", flags, "length", length, "size", size);
}

WideChar* SetLocale(int category, const WideChar* locale) {
    Operation& op = Op<"_wsetlocale">;
    return op.CallOr([](int) -> WideChar* { return nullptr; },
                     [&] {
                         WideChar* set = _wsetlocale(category, locale);
                         if (set && locale) Real().locale[category] = locale;
                         return set;
                     },
                     "category", category, "locale", locale);
}

struct Watched {
    const char* name;
    void* call;
};

template <class Function>
void* Address(Function* function) {
    return reinterpret_cast<void*>(function);
}

void* WatcherOf(const char* name) {
    // clang-format off
    static const Watched kWatched[] = {
        {"GetModuleHandleW",           Address(ModuleHandle)},
        {"GetModuleFileNameW",         Address(ModuleFileName)},
        {"GetPrivateProfileStringW",   Address(GetProfile)},
        {"WritePrivateProfileStringW", Address(WriteProfile)},
        {"MessageBoxW",                Address(ShowMessageBox)},
        {"SetTimer",                   Address(StartTimer)},
        {"KillTimer",                  Address(StopTimer)},
        {"RegOpenKeyExW",              Address(OpenKey)},
        {"RegCreateKeyExW",            Address(CreateKey)},
        {"RegQueryValueExW",           Address(QueryValue)},
        {"RegSetValueExW",             Address(SetValue)},
        {"RegCloseKey",                Address(CloseKey)},
        {"WinExec",                    Address(RunProgram)},
        {"ShellExecuteW",              Address(OpenByProgram)},
        {"GetActiveWindow",            Address(ActiveWindow)},
        {"GetSaveFileNameW",           Address(SaveName)},
        {"GetOpenFileNameW",           Address(OpenName)},
        {"PathFileExistsW",            Address(FileExists)},
        {"DeleteFileW",                Address(RemoveFile)},
        {"CopyFileW",                  Address(CopyOfFile)},
        {"MoveFileW",                  Address(MoveWide)},
        {"MoveFileA",                  Address(MoveNarrow)},
        {"CreateDirectoryW",           Address(MakeFolder)},
        {"GetLastError",               Address(LastError)},
        {"CreateFileW",                Address(OpenFile)},
        {"GetFileSizeEx",              Address(FileSize)},
        {"ReadFile",                   Address(ReadBytes)},
        {"WriteFile",                  Address(WriteBytes)},
        {"CloseHandle",                Address(Close)},
        {"CreateThread",               Address(StartThread)},
        {"WaitForSingleObject",        Address(Wait)},
        {"mouse_event",                Address(Click)},
        {"SHGetSpecialFolderPathW",    Address(SpecialFolder)},
        {"GetSystemDirectoryW",        Address(SystemFolder)},
        {"GetSystemTimeAsFileTime",    Address(SystemTime)},
        {"MultiByteToWideChar",        Address(ToWide)},
        {"WideCharToMultiByte",        Address(ToNarrow)},
        {"_wsetlocale",                Address(SetLocale)},
        {"OpenClipboard",              Address(clipboard::Open)},
        {"CloseClipboard",             Address(clipboard::Close)},
        {"EmptyClipboard",             Address(clipboard::Empty)},
        {"SetClipboardData",           Address(clipboard::Put)},
        {"GlobalAlloc",                Address(clipboard::Allocate)},
        {"GlobalLock",                 Address(clipboard::Lock)},
        {"GlobalUnlock",               Address(clipboard::Unlock)},
        {"GlobalFree",                 Address(clipboard::Free)},
    };
    // clang-format on
    for (const Watched& each : kWatched) {
        if (std::strcmp(each.name, name) == 0) return each.call;
    }
    return nullptr;
}

void Replace(IMAGE_THUNK_DATA* entry, void* call) {
    DWORD before = 0;
    VirtualProtect(entry, sizeof *entry, PAGE_READWRITE, &before);
    entry->u1.Function = reinterpret_cast<ULONGLONG>(call);
    VirtualProtect(entry, sizeof *entry, before, &before);
}

// A module calls others through its table of imports, where the loader has put the addresses.
// `callFor` gives the call to be put in the place of a name, or null.
template <class Choice>
void ReplaceImports(HMODULE module, Choice callFor) {
    auto* base = reinterpret_cast<unsigned char*>(module);
    const auto at = [base](auto offset) { return base + offset; };
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* header = reinterpret_cast<const IMAGE_NT_HEADERS*>(at(dos->e_lfanew));
    const auto& imports = header->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    const auto* library =
        reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(at(imports.VirtualAddress));
    for (; library->Name != 0; ++library) {
        const auto* name =
            reinterpret_cast<const IMAGE_THUNK_DATA*>(at(library->OriginalFirstThunk));
        auto* entry = reinterpret_cast<IMAGE_THUNK_DATA*>(at(library->FirstThunk));
        for (; name->u1.AddressOfData != 0; ++name, ++entry) {
            if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) continue;
            const auto* symbol =
                reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(at(name->u1.AddressOfData));
            void* call = callFor(reinterpret_cast<const char*>(symbol->Name));
            if (call) Replace(entry, call);
        }
    }
}

}  // namespace

void WatchCalls(HMODULE module) {
    ReplaceImports(module, WatcherOf);
}

void ReplaceCall(HMODULE module, const char* name, void* call) {
    ReplaceImports(module, [&](const char* import) {
        return std::strcmp(import, name) == 0 ? call : nullptr;
    });
}

}  // namespace simhost
