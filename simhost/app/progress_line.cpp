// One line that is written over again and again.
#include "simhost/app/progress_line.h"

#include <chrono>
#include <cstdio>
#include <cstring>

#include "simhost/user/progress.h"

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace simhost {
namespace {

using Clock = std::chrono::steady_clock;

constexpr auto kPatience = std::chrono::milliseconds(700);  // before the first word
constexpr auto kPause = std::chrono::milliseconds(200);     // between two

struct Line {
    const char* work = nullptr;
    std::size_t done = 0;
    Clock::time_point next;
    bool shown = false;
} current;

void Tell(const char* work, std::size_t done, std::size_t all) {
    const Clock::time_point now = Clock::now();
    const bool isNew = !current.work || std::strcmp(current.work, work) != 0 || done < current.done;
    if (isNew && !current.shown) current.next = now + kPatience;
    current.work = work;
    current.done = done;
    if (now < current.next || all == 0) return;
    std::fprintf(stderr, "\r    %s: %d %%\033[K", work, int(100.0 * double(done) / double(all)));
    std::fflush(stderr);
    current.shown = true;
    current.next = now + kPause;
}

}  // namespace

void ShowProgress() {
#ifdef _WIN32
    const bool terminal = _isatty(_fileno(stderr)) != 0;
#else
    const bool terminal = isatty(STDERR_FILENO) != 0;
#endif
    if (terminal) TheProgress().tell = Tell;
}

void ClearProgressLine() {
    if (current.shown) std::fputs("\r\033[K", stderr);
    current = Line();
}

}  // namespace simhost
