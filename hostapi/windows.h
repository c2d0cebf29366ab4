// The operations of Windows that the plug-in calls. On Windows this is <windows.h>; elsewhere the
// simulated Windows answers the few that are declared here, under the same names. Paths are
// Windows paths on every system, and files that the system code page governs are in code page 936.
#pragma once

#ifdef _WIN32

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#include <commdlg.h>
#include <locale.h>
#include <shellapi.h>
#include <shlobj.h>
#include <shlwapi.h>
#include <wchar.h>

// Windows' macros that would rename functions of ours.
#undef CopyFile
#undef CreateDialog
#undef CreateDirectory
#undef CreateFile
#undef CreateWindow
#undef DeleteFile
#undef DrawText
#undef FindText
#undef FindWindow
#undef GetClassName
#undef GetMessage
#undef GetObject
#undef LoadImage
#undef MessageBox
#undef MoveFile
#undef ReplaceText
#undef SendMessage
#undef far
#undef interface
#undef near
#undef small

#else

#include <clocale>
#include <cstddef>
#include <cstdint>

#include "hostapi/export.h"
#include "hostapi/wide.h"

#define WINAPI
#define CALLBACK
#define MAX_PATH 260

using BOOL = int;
using BYTE = unsigned char;
using UINT = unsigned int;
using DWORD = std::uint32_t;
using LONG = std::int32_t;
using LSTATUS = LONG;
using REGSAM = DWORD;
using SIZE_T = std::size_t;
using UINT_PTR = std::uintptr_t;
using ULONG_PTR = std::uintptr_t;
using HANDLE = void*;
using HGLOBAL = void*;
using HMODULE = struct VxModule*;
using HINSTANCE = HMODULE;
using HWND = struct VxWindow*;
using HKEY = struct VxRegistryKey*;
union LARGE_INTEGER {
    std::int64_t QuadPart;
};
using LPTHREAD_START_ROUTINE = DWORD(WINAPI*)(void* parameter);
using TIMERPROC = void(CALLBACK*)(HWND window, UINT message, UINT_PTR timer, DWORD time);

#define TRUE 1
#define FALSE 0

// --- The module's own place -------------------------------------------------------------------

// A loaded module by its file name (null: the process's executable); null if it is not loaded.
HOST_API HMODULE GetModuleHandleW(const WideChar* name);

// Receives the module's full path (a null module: the executable's) and returns its length; a path
// that does not fit is cut at `size`, without a terminator, and `size` returned. 0 on failure.
HOST_API DWORD GetModuleFileNameW(HMODULE module, WideChar* path, DWORD size);

// --- INI files --------------------------------------------------------------------------------

// Receives the value of a key, or `fallback`, cut at size - 1 and terminated; returns its length.
HOST_API DWORD GetPrivateProfileStringW(const WideChar* section, const WideChar* key,
                                        const WideChar* fallback, WideChar* value, DWORD size,
                                        const WideChar* path);

// Writes a key, making file and section where missing. A null value deletes the key, a null key
// the section. 0 on failure.
HOST_API BOOL WritePrivateProfileStringW(const WideChar* section, const WideChar* key,
                                         const WideChar* value, const WideChar* path);

// --- Message boxes ----------------------------------------------------------------------------

#define MB_OK 0x0u
#define MB_ICONWARNING 0x30u
#define MB_TOPMOST 0x40000u
#define IDOK 1

// Shows a box and waits for its answer; a null caption is the system's own title for errors.
HOST_API int MessageBoxW(HWND owner, const WideChar* text, const WideChar* caption, UINT flags);

// --- Timers -----------------------------------------------------------------------------------

// Without a window the id asked for is ignored: the timer's real id is returned (0 on failure) and
// handed to the procedure, which runs from the thread's message loop.
HOST_API UINT_PTR SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC procedure);
HOST_API BOOL KillTimer(HWND window, UINT_PTR id);

// --- Registry ---------------------------------------------------------------------------------

inline HKEY const HKEY_CURRENT_USER = reinterpret_cast<HKEY>(std::uintptr_t{0x80000001u});
#define KEY_READ 0x20019u
#define KEY_ALL_ACCESS 0xF003Fu
#define REG_SZ 1u
#define REG_OPTION_NON_VOLATILE 0u
#define ERROR_SUCCESS 0
#define ERROR_FILE_NOT_FOUND 2
#define ERROR_ACCESS_DENIED 5
#define ERROR_MORE_DATA 234

// All return ERROR_SUCCESS or an error number. A key that was opened is closed with RegCloseKey.
HOST_API LSTATUS RegOpenKeyExW(HKEY parent, const WideChar* path, DWORD options, REGSAM access,
                               HKEY* key);
HOST_API LSTATUS RegCreateKeyExW(HKEY parent, const WideChar* path, DWORD reserved,
                                 WideChar* keyClass, DWORD options, REGSAM access, void* security,
                                 HKEY* key, DWORD* disposition);
// `size` is the buffer's length in bytes, and receives the value's. ERROR_MORE_DATA: the value is
// longer and the buffer's contents are not defined. Text need not be terminated.
HOST_API LSTATUS RegQueryValueExW(HKEY key, const WideChar* name, DWORD* reserved, DWORD* type,
                                  BYTE* data, DWORD* size);
HOST_API LSTATUS RegSetValueExW(HKEY key, const WideChar* name, DWORD reserved, DWORD type,
                                const BYTE* data, DWORD size);
HOST_API LSTATUS RegCloseKey(HKEY key);

// --- Programs ---------------------------------------------------------------------------------

#define SW_HIDE 0
#define SW_SHOWNORMAL 1
#define SW_SHOW 5

// Runs a command line (system code page) and does not wait; above 31 on success.
HOST_API UINT WinExec(const char* commandLine, UINT show);

// Runs a program or opens a file with the one that is registered for it. A null verb is what the
// file's kind does by default, mostly "open". Above 32 on success.
HOST_API HINSTANCE ShellExecuteW(HWND owner, const WideChar* verb, const WideChar* file,
                                 const WideChar* arguments, const WideChar* folder, int show);

// --- Files ------------------------------------------------------------------------------------

#define GENERIC_READ 0x80000000u
#define GENERIC_WRITE 0x40000000u
#define FILE_SHARE_READ 1u
#define CREATE_ALWAYS 2u
#define OPEN_EXISTING 3u
#define FILE_ATTRIBUTE_NORMAL 0x80u
#define FILE_ALL_ACCESS 0x1F01FFu
inline HANDLE const INVALID_HANDLE_VALUE = reinterpret_cast<HANDLE>(~std::uintptr_t{0});

#define ERROR_SHARING_VIOLATION 32

// Why the last call that failed did so, of those whose comment says that they tell.
HOST_API DWORD GetLastError();

// INVALID_HANDLE_VALUE on failure, which GetLastError tells; the caller closes the handle with
// CloseHandle.
HOST_API HANDLE CreateFileW(const WideChar* path, DWORD access, DWORD share, void* security,
                            DWORD creation, DWORD attributes, HANDLE pattern);
HOST_API BOOL GetFileSizeEx(HANDLE file, LARGE_INTEGER* size);
HOST_API BOOL ReadFile(HANDLE file, void* data, DWORD size, DWORD* read, void* overlapped);
HOST_API BOOL WriteFile(HANDLE file, const void* data, DWORD size, DWORD* written,
                        void* overlapped);
HOST_API BOOL CloseHandle(HANDLE handle);

// Whether there is a file or folder of this path.
HOST_API BOOL PathFileExistsW(const WideChar* path);

// FALSE on failure, which GetLastError tells.
HOST_API BOOL DeleteFileW(const WideChar* path);

// Copies a file with its bytes. FALSE on failure, which GetLastError tells; with `failIfExists`
// also where there is a file of the new path.
HOST_API BOOL CopyFileW(const WideChar* from, const WideChar* to, BOOL failIfExists);

// Give a file another path, on another volume if need be. The same path, also in other letters,
// keeps the file. FALSE on failure, which GetLastError tells: above all where there is something of
// the new path. The narrow ones are in the system code page.
HOST_API BOOL MoveFileW(const WideChar* from, const WideChar* to);
HOST_API BOOL MoveFileA(const char* from, const char* to);

// Makes a folder in a folder that is there. FALSE on failure, which GetLastError tells.
HOST_API BOOL CreateDirectoryW(const WideChar* path, void* security);

// --- File dialogs -----------------------------------------------------------------------------

#define OFN_OVERWRITEPROMPT 0x2u
#define OFN_HIDEREADONLY 0x4u

// What a file dialog is told, in the order of the published record.
struct OPENFILENAMEW {
    DWORD lStructSize;
    HWND hwndOwner;
    HINSTANCE hInstance;
    const WideChar*
        lpstrFilter;  // pairs of label and pattern, each terminated; one more at the end
    WideChar* lpstrCustomFilter;
    DWORD nMaxCustFilter;
    DWORD nFilterIndex;   // from 1
    WideChar* lpstrFile;  // proposes a name, and receives the path
    DWORD nMaxFile;       // its size in characters
    WideChar* lpstrFileTitle;
    DWORD nMaxFileTitle;
    const WideChar* lpstrInitialDir;
    const WideChar* lpstrTitle;  // null: the system's own
    DWORD Flags;
    std::uint16_t nFileOffset;
    std::uint16_t nFileExtension;
    const WideChar* lpstrDefExt;  // for names without an extension
    std::intptr_t lCustData;
    void* lpfnHook;
    const WideChar* lpTemplateName;
    void* pvReserved;
    DWORD dwReserved;
    DWORD FlagsEx;
};

// The window of this thread that the user works in; null if there is none.
HOST_API HWND GetActiveWindow();

// Asks the user for the name of a file to be written. FALSE: the user left the dialog, or it could
// not be shown.
HOST_API BOOL GetSaveFileNameW(OPENFILENAMEW* dialog);

// Asks the user for the name of a file to be read, which need not be there. FALSE: as above.
HOST_API BOOL GetOpenFileNameW(OPENFILENAMEW* dialog);

// --- Folders ----------------------------------------------------------------------------------

#define CSIDL_DESKTOPDIRECTORY 0x10

// Receives the full path of one of the system's folders, without a separator at its end, into
// MAX_PATH characters. FALSE on failure.
HOST_API BOOL SHGetSpecialFolderPathW(HWND owner, WideChar* path, int folder, BOOL create);

// Receives the full path of the folder of Windows' own programs, without a separator at its end,
// and returns its length, or the size needed if that is greater than `size`. 0 on failure.
HOST_API UINT GetSystemDirectoryW(WideChar* path, UINT size);

// --- Clock --------------------------------------------------------------------------------------

typedef struct {
    DWORD dwLowDateTime, dwHighDateTime;
} FILETIME;

// Receives the time: steps of 100 nanoseconds since 1601 (UTC).
HOST_API void GetSystemTimeAsFileTime(FILETIME* time);

// --- Clipboard and the memory that is handed to it ---------------------------------------------

#define CF_UNICODETEXT 13u
#define GMEM_DDESHARE 0x2000u

// Opens the clipboard for this thread, which closes it again. FALSE while a window of another
// program has it open.
HOST_API BOOL OpenClipboard(HWND owner);
HOST_API BOOL CloseClipboard();

// Drops what lies on the clipboard, which must be open. FALSE on failure.
HOST_API BOOL EmptyClipboard();

// Puts a block of memory onto the clipboard, which must be open. From then on it is the system's:
// it is neither written nor freed any more. Null on failure, and then the block is still the
// caller's. Text is terminated.
HOST_API HANDLE SetClipboardData(UINT format, HANDLE memory);

// A block of memory; null on failure. It is the caller's until it is freed or handed on.
HOST_API HGLOBAL GlobalAlloc(UINT flags, SIZE_T bytes);

// Where the block lies, until it is unlocked; null on failure.
HOST_API void* GlobalLock(HGLOBAL memory);
HOST_API BOOL GlobalUnlock(HGLOBAL memory);

// Null on success, else the handle.
HOST_API HGLOBAL GlobalFree(HGLOBAL memory);

// --- Threads and the mouse ----------------------------------------------------------------------

#define INFINITE 0xFFFFFFFFu
#define WAIT_OBJECT_0 0u
#define WAIT_FAILED 0xFFFFFFFFu
#define MOUSEEVENTF_MIDDLEDOWN 0x20u
#define MOUSEEVENTF_MIDDLEUP 0x40u

// Runs `start` with its parameter on a thread of its own. Null on failure; the caller closes the
// handle with CloseHandle, which does not end the thread.
HOST_API HANDLE CreateThread(void* security, SIZE_T stack, LPTHREAD_START_ROUTINE start,
                             void* parameter, DWORD flags, DWORD* id);

// Waits for the end of a thread. WAIT_OBJECT_0, or WAIT_FAILED on failure.
HOST_API DWORD WaitForSingleObject(HANDLE object, DWORD milliseconds);

// Sends what the mouse would send: it goes to whatever window has the mouse then.
HOST_API void mouse_event(DWORD flags, DWORD dx, DWORD dy, DWORD data, ULONG_PTR extra);

// --- Code pages and locale --------------------------------------------------------------------

#define CP_ACP 0u
#define WC_NO_BEST_FIT_CHARS 0x400u

// Both return the number of units written, or, with size 0, the number needed. 0 on failure. A
// length of -1 takes the terminated text with its terminator. What has no place in the target
// becomes a character that looks like it, or, with WC_NO_BEST_FIT_CHARS and where there is none,
// the default character.
HOST_API int MultiByteToWideChar(UINT codePage, DWORD flags, const char* narrow, int narrowLength,
                                 WideChar* wide, int wideSize);
HOST_API int WideCharToMultiByte(UINT codePage, DWORD flags, const WideChar* wide, int wideLength,
                                 char* narrow, int narrowSize, const char* defaultChar,
                                 BOOL* usedDefault);

// Sets a category of the C runtime's locale; null where there is no such locale.
HOST_API WideChar* _wsetlocale(int category, const WideChar* locale);

#endif
