// Threads of the plug-in's own, and the clicks that they send.
#ifndef _WIN32

#include "hostapi/host/model.h"
#include "simhost/windows/simulated.h"
#include "tests/support/observed.h"

namespace {

using namespace simhost;
using workbench::Names;

constexpr DWORD kClick = MOUSEEVENTF_MIDDLEDOWN | MOUSEEVENTF_MIDDLEUP;

DWORD WINAPI ClickOnce(void*) {
    mouse_event(kClick, 0, 0, 0, 0);
    return 0;
}
DWORD WINAPI AskForTheModel(void* answer) {
    ProMdl model = nullptr;
    *static_cast<ProError*>(answer) = ProMdlCurrentGet(&model);
    return 0;
}

class SimulatedThreads : public workbench::ObservedBench {
protected:
    void SetUp() override { Start(); }
    static HANDLE Run(LPTHREAD_START_ROUTINE start, void* parameter = nullptr) {
        return CreateThread(nullptr, 0, start, parameter, 0, nullptr);
    }
    static Names Left() { return TheWindows().OpenHandles(); }
};

TEST_F(SimulatedThreads, AClickTakesItsPlaceBeforeTheEndOfTheWaitForItsThread) {
    Record();
    const HANDLE thread = Run(ClickOnce);
    EXPECT_EQ(WaitForSingleObject(thread, INFINITE), WAIT_OBJECT_0);
    EXPECT_TRUE(CloseHandle(thread));
    EXPECT_EQ(Recorded(),
              (Names{"CreateThread", "mouse_event", "WaitForSingleObject", "CloseHandle"}));
    EXPECT_TRUE(host().desk.TakeClick());
    EXPECT_FALSE(host().desk.TakeClick());
    EXPECT_EQ(Left(), Names{});
}

TEST_F(SimulatedThreads, AClickOfTheHostsOwnThreadCountsAtOnce) {
    mouse_event(kClick, 0, 0, 0, 0);
    EXPECT_TRUE(host().desk.TakeClick());
}

TEST_F(SimulatedThreads, AClickThatNoDialogTakesIsAComplaintWhenTheCommandEnds) {
    host().desk.SendClick();
    host().commands.Press("ForTest");
    EXPECT_EQ(Complaints(),
              Names{"a click of the middle button was sent, and no dialog has taken it"});
    EXPECT_FALSE(host().desk.TakeClick());
}

TEST_F(SimulatedThreads, OnlyTheMiddleButtonIsKnown) {
    mouse_event(MOUSEEVENTF_MIDDLEDOWN, 0, 0, 0, 0);
    EXPECT_EQ(Complaints(), Names{"mouse_event: only a click of the middle button is known here"});
    EXPECT_FALSE(host().desk.TakeClick());
}

TEST_F(SimulatedThreads, AnOperationOnAThreadIsNotAnsweredAndComplainedOf) {
    ProError answer = PRO_TK_NO_ERROR;
    const HANDLE thread = Run(AskForTheModel, &answer);
    WaitForSingleObject(thread, INFINITE);
    CloseHandle(thread);
    EXPECT_EQ(answer, PRO_TK_GENERAL_ERROR);
    EXPECT_EQ(Complaints(), Names{"ProMdlCurrentGet: called on a thread that is not the host's"});
}

TEST_F(SimulatedThreads, AThreadWhoseHandleIsNotClosedIsLeftOpen) {
    const HANDLE thread = Run(ClickOnce);
    EXPECT_EQ(Left(), Names{"thread"});
    EXPECT_TRUE(CloseHandle(thread));  // and waits for its end
    EXPECT_EQ(Left(), Names{});
    EXPECT_EQ(WaitForSingleObject(thread, INFINITE), WAIT_FAILED);
    EXPECT_EQ(Complaints(), Names{"WaitForSingleObject: the handle names no thread"});
}

TEST_F(SimulatedThreads, AThreadThatIsNotMadeSendsNothing) {
    workbench::Fail("CreateThread");
    EXPECT_EQ(Run(ClickOnce), nullptr);
    EXPECT_FALSE(host().desk.TakeClick());
}

TEST_F(SimulatedThreads, AWaitThatFailsHasWaitedAllTheSame) {
    workbench::Fail("WaitForSingleObject");
    const HANDLE thread = Run(ClickOnce);
    EXPECT_EQ(WaitForSingleObject(thread, INFINITE), WAIT_FAILED);
    CloseHandle(thread);
    EXPECT_TRUE(host().desk.TakeClick());
}

}  // namespace

#endif
