// Programs that the plug-in starts are written down, never run.
#ifndef _WIN32

#include "simhost/core/operation.h"
#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/windows/windows.h"

using namespace simhost;

UINT WinExec(const char* commandLine, UINT show) {
    static Operation op("WinExec");
    constexpr UINT kFileNotFound = 2, kStarted = 33;
    return op.CallOr([](int) { return kFileNotFound; },
                     [&] {
                         Need(commandLine, "the command line");
                         const WideText command = FromSystemCodePage(commandLine);
                         TheWindows().programs.push_back(command);
                         TheHost().shown.push_back({Shown::Kind::Program, command, {}});
                         return kStarted;
                     },
                     "commandLine", commandLine, "show", show);
}

#endif
