// Programs that the plug-in starts are written down, never run.
#include "simhost/system/programs.h"

#include "simhost/core/operation.h"
#include "simhost/core/text.h"
#include "simhost/windows/simulated.h"

using namespace simhost;

UINT WinExec(const char* commandLine, UINT show) {
    Operation& op = Op<"WinExec">;
    constexpr UINT kFileNotFound = 2, kStarted = 33;
    return op.CallOr(
        [](int) { return kFileNotFound; },
        [&] {
            Need(commandLine, "the command line");
            const WideText command = FromSystemCodePage(commandLine);
            Simulated().programs.push_back(command);
            Simulated().host().desk.shown.push_back({Shown::Kind::Program, command, {}});
            return kStarted;
        },
        "commandLine", commandLine, "show", show);
}

HINSTANCE ShellExecuteW(HWND owner, const WideChar* verb, const WideChar* file,
                        const WideChar* arguments, const WideChar* folder, int show) {
    Operation& op = Op<"ShellExecuteW">;
    constexpr std::uintptr_t kFileNotFound = 2, kStarted = 33;
    const auto result = [](std::uintptr_t value) { return reinterpret_cast<HINSTANCE>(value); };
    return op.CallOr(
        [&](int) { return result(kFileNotFound); },
        [&] {
            Need(file, "the file");
            std::error_code error;
            if (!IsKnownProgram(file) && !std::filesystem::exists(RealFile(file), error)) {
                return result(kFileNotFound);
            }
            const WideText line = ProgramLine(verb, file, arguments, show);
            Simulated().programs.push_back(line);
            Simulated().host().desk.shown.push_back({Shown::Kind::Program, line, {}});
            return result(kStarted);
        },
        "owner", static_cast<const void*>(owner), "verb", verb, "file", file, "arguments",
        arguments, "folder", folder, "show", show);
}
