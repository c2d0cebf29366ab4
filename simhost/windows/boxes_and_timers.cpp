// Message boxes, which the host's user answers, and timers, which run when its clock moves on.
#include <algorithm>

#include "simhost/core/operation.h"
#include "simhost/windows/simulated.h"

using namespace simhost;

namespace simhost {

namespace {

constexpr UINT kTimerMessage = 0x113;
constexpr UINT kShortest = 10, kLongest = 0x7FFFFFFF;  // what Windows makes of other intervals
constexpr UINT_PTR kFirstId = 0x7FFF, kLastId = 0x100;

}  // namespace

UINT_PTR SimulatedWindows::StartTimer(UINT_PTR id, UINT milliseconds, TIMERPROC procedure) {
    const auto running = [this](UINT_PTR wanted) {
        return std::any_of(timers_.begin(), timers_.end(),
                           [wanted](const Timer& timer) { return timer.id == wanted; });
    };
    // The id of a running timer restarts that one; any other is only a wish.
    if (!StopTimer(id)) {
        do {
            id = nextTimer_;
            nextTimer_ = nextTimer_ == kLastId ? kFirstId : nextTimer_ - 1;
        } while (running(id));
    }
    const UINT interval = std::clamp(milliseconds, kShortest, kLongest);
    timers_.push_back({id, interval, procedure, tick_ + interval});
    return id;
}

bool SimulatedWindows::StopTimer(UINT_PTR id) {
    return timers_.remove_if([id](const Timer& timer) { return timer.id == id; }) > 0;
}

void SimulatedWindows::AdvanceClock(unsigned milliseconds) {
    const std::uint64_t until = tick_ + milliseconds;
    while (!timers_.empty()) {
        const auto next =
            std::min_element(timers_.begin(), timers_.end(),
                             [](const Timer& a, const Timer& b) { return a.due < b.due; });
        if (next->due > until) break;
        tick_ = std::max(tick_, next->due);
        next->due += next->milliseconds;
        // Behind others that fall due at the same time. The procedure may stop the timer.
        timers_.splice(timers_.end(), timers_, next);
        const Timer due = *next;
        if (due.procedure) {
            due.procedure(nullptr, kTimerMessage, due.id, static_cast<DWORD>(tick_));
        }
    }
    tick_ = std::max(tick_, until);
}

}  // namespace simhost

int MessageBoxW(HWND owner, const WideChar* text, const WideChar* caption, UINT flags) {
    Operation& op = Op<"MessageBoxW">;
    return op.CallOr([](int) { return 0; },
                     [&] {
                         if (owner) Complain(0, "there is no such window");
                         Box box;
                         box.text = text ? text : WIDE("");
                         box.caption = caption ? caption : WIDE("");
                         box.hasCaption = caption != nullptr;
                         box.flags = flags;
                         return Simulated().host().desk.ShowBox(box);
                     },
                     "text", text, "caption", caption, "flags", flags);
}

UINT_PTR SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC procedure) {
    Operation& op = Op<"SetTimer">;
    return op.CallOr([](int) { return UINT_PTR{0}; },
                     [&] {
                         if (window) Complain(0, "there is no such window");
                         return Simulated().StartTimer(id, milliseconds, procedure);
                     },
                     "id", id, "milliseconds", milliseconds, "procedure", procedure);
}

BOOL KillTimer(HWND window, UINT_PTR id) {
    Operation& op = Op<"KillTimer">;
    return op.CallOr([](int) { return BOOL{FALSE}; },
                     [&] {
                         if (window) Complain(0, "there is no such window");
                         return BOOL{Simulated().StopTimer(id)};
                     },
                     "id", id);
}
