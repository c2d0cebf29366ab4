// The name of the present run, for whoever ends the process.
#include "tests/sweep/crash_note.h"

#include <chrono>
#include <condition_variable>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <thread>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/common_interface_defs.h>
#endif

namespace sweep {

namespace {

// Far more than any run takes, on the busiest machine.
constexpr std::chrono::seconds kLongestRun{60};

// Written before a run and only read by a process that is ending.
char present[512] = "no run";

void TellRun() {
    std::fprintf(stderr, "fault sweep: the process ended during: %s\n", present);
}

#ifdef __SANITIZE_ADDRESS__
constexpr int kSignals[] = {SIGABRT};  // the sanitizer has the others
#else
constexpr int kSignals[] = {SIGABRT, SIGSEGV, SIGFPE, SIGILL};
#endif

void OnSignal(int number) {
    TellRun();
    std::signal(number, SIG_DFL);
    std::raise(number);
}

class Watch {
public:
    Watch() : thread_([this] { Guard(); }) {
        for (const int number : kSignals) std::signal(number, OnSignal);
#ifdef __SANITIZE_ADDRESS__
        __sanitizer_set_death_callback(TellRun);
#endif
    }
    ~Watch() {
        {
            const std::lock_guard lock(mutex_);
            ended_ = true;
        }
        changed_.notify_one();
        thread_.join();
    }

    void Begin(const std::string& name) {
        const std::lock_guard lock(mutex_);
        std::snprintf(present, sizeof present, "%s", name.c_str());
        running_ = true;
        ++number_;
        changed_.notify_one();
    }
    void End() {
        const std::lock_guard lock(mutex_);
        std::snprintf(present, sizeof present, "no run");
        running_ = false;
        ++number_;
    }

private:
    void Guard() {
        std::unique_lock lock(mutex_);
        while (!ended_) {
            const auto seen = number_;
            const auto over = [&] { return ended_ || number_ != seen; };
            if (changed_.wait_for(lock, kLongestRun, over) || !running_) continue;
            std::fprintf(stderr, "fault sweep: this run does not end: %s\n", present);
            std::_Exit(EXIT_FAILURE);
        }
    }

    std::mutex mutex_;
    std::condition_variable changed_;
    bool ended_ = false;
    bool running_ = false;
    unsigned long number_ = 0;
    std::thread thread_;  // the last: it uses the others
};

Watch& TheWatch() {
    static Watch watch;
    return watch;
}

}  // namespace

void NoteRun(const std::string& name) {
    TheWatch().Begin(name);
}

void EndNote() {
    TheWatch().End();
}

}  // namespace sweep
