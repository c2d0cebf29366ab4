// Clicks of other threads wait under a lock until the host's thread makes operations of them.
#include "simhost/system/clicks.h"

#include <mutex>
#include <vector>

#include "simhost/core/operation.h"
#include "simhost/system/windows.h"

namespace simhost {

namespace {

struct KeptClicks {
    std::mutex mutex;
    std::vector<DWORD> flags;
};
KeptClicks& Kept() {
    static KeptClicks kept;
    return kept;
}

void ClickWith(DWORD flags) {
    Operation& op = Op<"mouse_event">;
    op.Call(
        [&] {
            // Any other would move the mouse or press a button that no dialog here knows.
            if (flags != (MOUSEEVENTF_MIDDLEDOWN | MOUSEEVENTF_MIDDLEUP)) {
                Complain(PRO_TK_BAD_INPUTS, "only a click of the middle button is known here");
            }
            Windows::host().desk.SendClick();
        },
        "flags", flags);
}

}  // namespace

void SendClick(DWORD flags) {
    if (Operation::OnHostThread()) {
        ClickWith(flags);
        return;
    }
    const std::lock_guard lock(Kept().mutex);
    Kept().flags.push_back(flags);
}

void TakeKeptClicks() {
    std::vector<DWORD> taken;
    {
        const std::lock_guard lock(Kept().mutex);
        taken.swap(Kept().flags);
    }
    for (const DWORD flags : taken) ClickWith(flags);
}

}  // namespace simhost
