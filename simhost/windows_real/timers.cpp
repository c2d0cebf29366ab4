// Timers of a real Windows on a clock that the user moves: one that is set does not run out by
// itself, or it would fire in the message loop of any box on a slow machine. When it falls due it
// is set anew with the shortest interval, and fires from the thread's message loop as ever.
#include <algorithm>

#include "simhost/windows_real/real.h"

namespace simhost {

namespace {

constexpr ULONGLONG kPatience = 5000;  // milliseconds for a timer that should fire at once

}  // namespace

UINT_PTR RealWindows::StartTimer(UINT_PTR id, UINT milliseconds, TIMERPROC procedure) {
    const UINT interval = onWallClock ? milliseconds : USER_TIMER_MAXIMUM;
    const UINT_PTR timer = SetTimer(nullptr, id, interval, procedure);
    if (timer == 0) return 0;
    timers_.remove_if([timer](const Timer& each) { return each.id == timer; });
    timers_.push_back({timer, milliseconds, procedure, tick_ + milliseconds});
    return timer;
}

bool RealWindows::StopTimer(UINT_PTR id) {
    timers_.remove_if([id](const Timer& each) { return each.id == id; });
    return KillTimer(nullptr, id);
}

// Runs the message loop until the timer has fired; false if it does not.
bool RealWindows::Fire(const Timer& timer) {
    if (SetTimer(nullptr, timer.id, USER_TIMER_MINIMUM, timer.procedure) != timer.id) return false;
    for (const ULONGLONG end = GetTickCount64() + kPatience; GetTickCount64() < end;) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, USER_TIMER_MINIMUM, QS_ALLINPUT);
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
            if (message.message == WM_TIMER && message.wParam == timer.id) return true;
        }
    }
    return false;
}

void RealWindows::AdvanceClock(unsigned milliseconds) {
    const std::uint64_t until = tick_ + milliseconds;
    while (!timers_.empty()) {
        const auto next =
            std::min_element(timers_.begin(), timers_.end(),
                             [](const Timer& a, const Timer& b) { return a.due < b.due; });
        if (next->due > until) break;
        tick_ = std::max(tick_, next->due);
        next->due += next->milliseconds;
        timers_.splice(timers_.end(), timers_, next);
        const Timer due = *next;
        if (!Fire(due)) {
            host().desk.Complain("a timer that was due did not fire");
            break;
        }
        const auto is = [&due](const Timer& each) { return each.id == due.id; };
        if (std::any_of(timers_.begin(), timers_.end(), is)) {
            SetTimer(nullptr, due.id, USER_TIMER_MAXIMUM, due.procedure);
        }
    }
    tick_ = std::max(tick_, until);
}

}  // namespace simhost
