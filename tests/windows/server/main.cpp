// The spreadsheet application as a program of its own, as COM starts it: the test's class in
// another process. It ends when nobody holds an object of it any more, and never outlives its
// client.
//
//   excel_server LOG STEP CLIENT -Embedding
//
// It writes what it is asked to LOG and refuses call STEP (0: none); CLIENT is the id of the
// process that it serves.
#include <windows.h>
#include <cstdio>
#include <cstdlib>
#include <shellapi.h>
#include <string>

#include "simhost/host.h"
#include "simhost/spreadsheet/spreadsheets.h"
#include "tests/windows/excel_class.h"

namespace {

std::FILE* logFile = nullptr;

// Whoever reads the log may do so at any time.
void Write(const std::string& line) {
    std::fprintf(logFile, "%s\n", line.c_str());
    std::fflush(logFile);
}

constexpr DWORD kLongest = 60000;  // milliseconds; no test takes longer
constexpr DWORD kToEnd = 5000;
constexpr UINT kGivenUp = 3;

struct Watched {
    HANDLE client;
    DWORD thread;  // which serves it
};

// First in the usual way: Wine would offer the class of a program that was killed for ever. Then
// whatever that thread is doing.
DWORD WINAPI EndWithClient(void* given) {
    const auto* watched = static_cast<const Watched*>(given);
    if (watched->client) WaitForSingleObject(watched->client, kLongest);
    PostThreadMessageW(watched->thread, WM_QUIT, 0, 0);
    Sleep(kToEnd);
    TerminateProcess(GetCurrentProcess(), kGivenUp);
    return 0;
}

void WatchClient(DWORD process) {
    static Watched watched = {OpenProcess(SYNCHRONIZE, FALSE, process), GetCurrentThreadId()};
    CloseHandle(CreateThread(nullptr, 0, EndWithClient, &watched, 0, nullptr));
}

// Until the last object is released. The timer is for those that are given up without a message.
void Serve() {
    const UINT_PTR timer = SetTimer(nullptr, 0, 10, nullptr);
    bool hadObjects = false;
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        DispatchMessageW(&message);
        hadObjects = hadObjects || workbench::ExcelObjects() > 0;
        if (hadObjects && workbench::ExcelObjects() == 0) break;
    }
    KillTimer(nullptr, timer);
}

}  // namespace

int main() {
    int count = 0;
    WideChar** arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    if (count < 4) return 2;
    WatchClient(DWORD(_wtoi(arguments[3])));
    logFile = _wfopen(arguments[1], L"ab");
    if (!logFile) return 2;
    workbench::WatchExcel({_wtoi(arguments[2]), E_FAIL, 1}, Write);
    LocalFree(arguments);
    simhost::TheHost();  // on whose drive the application's files are
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    const DWORD registration = workbench::OfferExcel(CLSCTX_LOCAL_SERVER);
    Write("process " + std::to_string(GetCurrentProcessId()));
    Serve();
    CoRevokeClassObject(registration);
    for (const std::string& line : simhost::TheSpreadsheets().NotReleased()) {
        Write("not released " + line);
    }
    Write("end");
    std::fclose(logFile);
    CoUninitialize();
    return 0;
}
