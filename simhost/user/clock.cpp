// Lets time pass: on the simulated clock, or on Windows by really waiting, with the thread's
// message loop running, as that is where timers fire.
#include "simhost/user/clock.h"

#ifdef _WIN32

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

#else

#include "simhost/windows/windows.h"

namespace simhost {

void AdvanceClock(unsigned milliseconds) {
    TheWindows().AdvanceClock(milliseconds);
}

}  // namespace simhost

#endif
