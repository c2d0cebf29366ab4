// Time on a real Windows: it passes by waiting, with the thread's message loop running, as that is
// where timers fire. Elsewhere the simulated Windows has a clock of its own.
#ifdef _WIN32

#include "simhost/user/clock.h"

#include "hostapi/windows.h"

namespace simhost {

void AdvanceClock(unsigned milliseconds) {
    const ULONGLONG until = GetTickCount64() + milliseconds;
    for (ULONGLONG now = GetTickCount64(); now < until; now = GetTickCount64()) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(until - now), QS_ALLINPUT);
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
}

}  // namespace simhost

#endif
