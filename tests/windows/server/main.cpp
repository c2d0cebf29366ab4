// The spreadsheet application as a program of its own, as COM starts it: the test's class in
// another process. It ends when nobody holds an object of it any more.
//
//   excel_server LOG STEP -Embedding     refuses call STEP (0: none) and writes what it is asked
#include <windows.h>
#include <cstdio>
#include <cstdlib>
#include <shellapi.h>
#include <string>

#include "simhost/spreadsheet/spreadsheets.h"
#include "tests/windows/excel_class.h"

namespace {

std::FILE* log = nullptr;

// Whoever reads the log may do so at any time.
void Write(const std::string& line) {
    std::fprintf(log, "%s\n", line.c_str());
    std::fflush(log);
}

// A client that was never there, or that has died, must not leave the program behind.
constexpr ULONGLONG kLongest = 60000;

void Serve() {
    const ULONGLONG started = GetTickCount64();
    const UINT_PTR timer = SetTimer(nullptr, 0, 10, nullptr);
    bool hadObjects = false;
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        DispatchMessageW(&message);
        hadObjects = hadObjects || workbench::ExcelObjects() > 0;
        if (hadObjects && workbench::ExcelObjects() == 0) break;
        if (GetTickCount64() - started > kLongest) break;
    }
    KillTimer(nullptr, timer);
}

}  // namespace

int main() {
    int count = 0;
    WideChar** arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    if (count < 3) return 2;
    log = _wfopen(arguments[1], L"ab");
    if (!log) return 2;
    workbench::WatchExcel({_wtoi(arguments[2]), E_FAIL, 1}, Write);
    LocalFree(arguments);
    Write("process " + std::to_string(GetCurrentProcessId()));
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    const DWORD registration = workbench::OfferExcel(CLSCTX_LOCAL_SERVER);
    Serve();
    CoRevokeClassObject(registration);
    for (const std::string& line : simhost::TheSpreadsheets().NotReleased()) {
        Write("not released " + line);
    }
    Write("end");
    std::fclose(log);
    CoUninitialize();
    return 0;
}
