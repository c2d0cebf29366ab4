// A thread of its own waits for the signals, so that it may do what a handler must not.
#include "simhost/app/signals.h"

#include <semaphore>
#include <string_view>
#include <thread>
#include <utility>

#include "simhost/app/temporary_drive.h"
#include "simhost/user/progress.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <signal.h>
#include <unistd.h>
#endif

namespace simhost {

#ifdef _WIN32

namespace {

// Windows runs it in a thread of its own and ends the program afterwards.
BOOL WINAPI TakeDrivesAway(DWORD) {
    RemoveTemporaryDrives();
    return FALSE;
}

}  // namespace

void WatchSignals(std::function<std::string()>) {
    SetConsoleCtrlHandler(TakeDrivesAway, TRUE);
}

#else

namespace {

void Tell(std::string_view line) {
    // Nothing can be done about a terminal that is gone.
    [[maybe_unused]] const auto written = write(STDERR_FILENO, line.data(), line.size());
}

[[noreturn]] void EndBy(int signal) {
    RemoveTemporaryDrives();
    ::signal(signal, SIG_DFL);
    sigset_t one;
    sigemptyset(&one);
    sigaddset(&one, signal);
    pthread_sigmask(SIG_UNBLOCK, &one, nullptr);
    raise(signal);
    _exit(128 + signal);
}

std::binary_semaphore watching(0);

void Watch(sigset_t signals, const std::function<std::string()>& interrupt) {
    watching.release();
    for (;;) {
        int signal = 0;
        if (sigwait(&signals, &signal) != 0) continue;
        const std::string said = interrupt && signal == SIGINT ? interrupt() : std::string();
        if (said.empty()) EndBy(signal);
        Tell("\n(" + said + ")\n");
    }
}

}  // namespace

void WatchSignals(std::function<std::string()> interrupt) {
    // Who reads the transcript may leave early; the writing tells it then.
    signal(SIGPIPE, SIG_IGN);
    sigset_t signals;
    sigemptyset(&signals);
    for (const int each : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&signals, each);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    std::thread(Watch, signals, std::move(interrupt)).detach();
    // A thread that is still being made holds locks of the memory, which a copy of this process
    // would find locked for ever.
    watching.acquire();
}

#endif

std::string StopWork() {
    if (TheProgress().stop.exchange(true)) return {};
    return "stopping as soon as it can be; Ctrl-C again ends the session";
}

}  // namespace simhost
