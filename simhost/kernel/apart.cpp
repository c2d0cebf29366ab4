// The copy of the process, the pipe through which it tells its result, and the watch over it.
#include "simhost/kernel/apart.h"

#include <fmt/format.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <new>
#include <optional>
#include <poll.h>
#include <signal.h>
#include <stdexcept>
#include <string_view>
#include <unistd.h>

namespace simhost {

namespace {

constexpr char kDone = '+', kFailed = '-';  // the first byte that the copy tells
constexpr int kLookEveryMs = 20;

void Tell(int pipe, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(pipe, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) _exit(1);
        bytes.remove_prefix(std::size_t(written));
    }
}

// The thread that waits for signals is not in the copy, and a crash is told by who waits for it.
void LeaveNothingOfTheParent(pid_t parent) {
    constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP, SIGPIPE, SIGSEGV,
                                SIGBUS, SIGFPE,  SIGILL, SIGABRT};
    for (const int each : kSignals) signal(each, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent) _exit(1);
    const rlimit noCore = {0, 0};
    setrlimit(RLIMIT_CORE, &noCore);
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (nowhere >= 0) dup2(nowhere, STDOUT_FILENO);
}

[[noreturn]] void BeTheCopy(const std::string& name, const std::function<std::string()>& work,
                            int pipe, pid_t parent) {
    LeaveNothingOfTheParent(parent);
    std::string told;
    try {
        told = work();
        told.insert(told.begin(), kDone);
    } catch (const std::bad_alloc&) {
        told = kFailed + name + " takes more memory than there is";
    } catch (const std::exception& error) {
        told = kFailed + std::string(error.what());
    } catch (...) {
        told = kFailed + name + " failed without a word";
    }
    Tell(pipe, told);
    _exit(0);
}

std::uint64_t PagesInBytes(long pages) {
    return pages < 0 ? 0 : std::uint64_t(pages) * std::uint64_t(sysconf(_SC_PAGESIZE));
}

// 0 if it has ended meanwhile.
std::uint64_t MemoryOf(pid_t process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/statm");
    long size = 0, resident = 0;
    return file >> size >> resident ? PagesInBytes(resident) : 0;
}

class Watch {
public:
    Watch(const std::string& name, pid_t process, const Bounds& bounds)
        : name_(name), process_(process), bounds_(bounds) {
        if (bounds_.bytes == 0) bounds_.bytes = PagesInBytes(sysconf(_SC_PHYS_PAGES)) / 4 * 3;
    }
    ~Watch() {
        if (!ended_) End();
    }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

    // Everything that comes through the pipe until it is closed.
    std::string Listen(int pipe) {
        std::string told;
        char bytes[65536];
        for (;;) {
            LookAfterIt();
            pollfd waiting = {pipe, POLLIN, 0};
            if (poll(&waiting, 1, kLookEveryMs) <= 0) continue;
            const ssize_t length = read(pipe, bytes, sizeof(bytes));
            if (length < 0 && errno == EINTR) continue;
            if (length <= 0) return told;
            told.append(bytes, std::size_t(length));
        }
    }

    void ExpectGoodEnd() {
        const int status = Wait();
        if (WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) {
            Fail("was ended from outside, as where memory runs out");
        }
        if (WIFSIGNALED(status)) {
            throw BrokenOff(fmt::format("{} broke off ({})", name_, strsignal(WTERMSIG(status))));
        }
        if (WEXITSTATUS(status) != 0) {
            throw BrokenOff(fmt::format("{} broke off (status {})", name_, WEXITSTATUS(status)));
        }
    }

private:
    [[noreturn]] void Fail(const std::string& how) const {
        throw std::runtime_error(name_ + " " + how);
    }
    void LookAfterIt() const {
        if (std::chrono::steady_clock::now() - start_ > std::chrono::seconds(bounds_.seconds)) {
            Fail(fmt::format("takes more than {} seconds", bounds_.seconds));
        }
        if (MemoryOf(process_) > bounds_.bytes) {
            Fail(fmt::format("takes more than {} MB of memory", bounds_.bytes >> 20));
        }
    }
    void End() {
        kill(process_, SIGKILL);
        Wait();
    }
    int Wait() {
        int status = 0;
        while (waitpid(process_, &status, 0) < 0 && errno == EINTR) continue;
        ended_ = true;
        return status;
    }

    std::string name_;
    pid_t process_;
    Bounds bounds_;
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
    bool ended_ = false;
};

class OpenFile {
public:
    explicit OpenFile(int number) : number_(number) {}
    ~OpenFile() { close(number_); }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    int number() const { return number_; }

private:
    int number_;
};

}  // namespace

std::string DoneApart(const std::string& name, const std::function<std::string()>& work,
                      const Bounds& bounds) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error(name + " needs a pipe, and got none");
    const OpenFile from(ends[0]);
    std::optional<OpenFile> to(ends[1]);
    const pid_t parent = getpid(), process = fork();
    if (process < 0) throw std::runtime_error(name + " needs a process, and got none");
    if (process == 0) BeTheCopy(name, work, to->number(), parent);
    Watch watch(name, process, bounds);
    to.reset();
    std::string told = watch.Listen(from.number());
    watch.ExpectGoodEnd();
    if (told.empty()) throw BrokenOff(name + " broke off without a word");
    if (told.front() == kFailed) throw std::runtime_error(told.substr(1));
    told.erase(0, 1);
    return told;
}

}  // namespace simhost
