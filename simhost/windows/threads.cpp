// Threads: real ones, which the host's thread waits for before it goes on.
#include <thread>

#include "simhost/core/operation.h"
#include "simhost/system/clicks.h"
#include "simhost/windows/simulated.h"

using namespace simhost;

namespace simhost {

HANDLE SimulatedWindows::StartThread(LPTHREAD_START_ROUTINE start, void* parameter) {
    OpenThread& open = openThreads_.emplace_back();
    open.thread = std::thread([start, parameter] { start(parameter); });
    open.handle = threads_.Add(&open);
    return open.handle;
}

bool SimulatedWindows::WaitForThread(HANDLE thread) {
    OpenThread* open = threads_.Find(thread);
    if (open && open->thread.joinable()) open->thread.join();
    return open != nullptr;
}

bool SimulatedWindows::CloseThread(HANDLE thread) {
    if (!WaitForThread(thread)) return false;
    threads_.Drop(thread);
    openThreads_.remove_if([thread](const OpenThread& each) { return each.handle == thread; });
    return true;
}

void SimulatedWindows::WaitForThreads() {
    for (OpenThread& open : openThreads_) WaitForThread(open.handle);
}

}  // namespace simhost

HANDLE CreateThread(void*, SIZE_T, LPTHREAD_START_ROUTINE start, void* parameter, DWORD flags,
                    DWORD* id) {
    Operation& op = Op<"CreateThread">;
    return op.CallOr([](int) { return HANDLE{}; },
                     [&] {
                         Need(reinterpret_cast<void*>(start), "what the thread runs");
                         if (flags != 0) Complain(0, "threads run at once here");
                         if (id) *id = 1;
                         return Simulated().StartThread(start, parameter);
                     },
                     "flags", flags);
}

// What the thread sent comes before the end of the wait in the journal. Told to fail, it has waited
// all the same, so that no thread runs on beside the host.
DWORD WaitForSingleObject(HANDLE object, DWORD milliseconds) {
    Operation& op = Op<"WaitForSingleObject">;
    const bool isThread = Simulated().WaitForThread(object);
    TakeKeptClicks();
    Operation::ComplainOfForeignCalls();
    return op.CallOr([](int) { return DWORD{WAIT_FAILED}; },
                     [&] {
                         if (!isThread) Complain(0, "the handle names no thread");
                         return DWORD{WAIT_OBJECT_0};
                     },
                     "milliseconds", milliseconds);
}

void mouse_event(DWORD flags, DWORD, DWORD, DWORD, ULONG_PTR) {
    SendClick(flags);
}
