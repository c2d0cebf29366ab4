// The simulated clipboard and its memory: what a real one would bear, and what it would not.
#ifndef _WIN32

#include <cstring>

#include "simhost/core/operation.h"
#include "simhost/trail/interpreter.h"
#include "simhost/windows/simulated.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using Lines = std::vector<std::string>;

const WideText kText = WIDE("箱体");

class SimulatedClipboard : public workbench::Workbench {
protected:
    static HGLOBAL Block(const WideText& text) {
        const std::size_t bytes = (text.size() + 1) * sizeof(WideChar);
        const HGLOBAL memory = GlobalAlloc(GMEM_DDESHARE, bytes);
        std::memcpy(GlobalLock(memory), text.c_str(), bytes);
        GlobalUnlock(memory);
        return memory;
    }
    static void Put(const WideText& text) {
        EXPECT_TRUE(OpenClipboard(nullptr));
        EXPECT_TRUE(EmptyClipboard());
        EXPECT_TRUE(SetClipboardData(CF_UNICODETEXT, Block(text)));
        EXPECT_TRUE(CloseClipboard());
    }
    static Lines Left() { return TheWindows().OpenHandles(); }
};

TEST_F(SimulatedClipboard, HoldsTheLastTextThatWasPutThere) {
    EXPECT_EQ(TheWindows().ClipboardText(), std::nullopt);
    Put(WIDE("first"));
    Put(kText);
    EXPECT_EQ(TheWindows().ClipboardText(), kText);
    Play("@ expect clipboard 箱体\n@ expect clipboard \"箱体\"");
    EXPECT_EQ(Left(), Lines{});
    OpenClipboard(nullptr);
    EmptyClipboard();
    CloseClipboard();
    Play("@ expect clipboard none");
}

TEST_F(SimulatedClipboard, IsClosedToUsWhileAnotherProgramHoldsIt) {
    Put(kText);
    Play("@ hold clipboard\n@ expect clipboard none");
    EXPECT_FALSE(OpenClipboard(nullptr));
    Play("@ let go clipboard\n@ expect clipboard 箱体");
    Put(WIDE("second"));
}

TEST_F(SimulatedClipboard, IsNotWhatAScriptExpects) {
    Put(kText);
    EXPECT_EQ(RunScript("@ expect clipboard none"), Lines{"line 1: on the clipboard is \"箱体\""});
    EXPECT_EQ(RunScript("@ expect clipboard 箱"), Lines{"line 1: on the clipboard is \"箱体\""});
    EXPECT_EQ(RunScript("@ expect clipboard"),
              Lines{"line 1: the text that is expected is missing"});
}

TEST_F(SimulatedClipboard, ThatIsLeftOpenOrUsedClosedIsFoundOut) {
    OpenClipboard(nullptr);
    EXPECT_EQ(Left(), Lines{"clipboard"});
    EXPECT_FALSE(OpenClipboard(nullptr));
    CloseClipboard();
    EXPECT_FALSE(CloseClipboard());
    EXPECT_FALSE(EmptyClipboard());
    const HGLOBAL memory = Block(kText);
    EXPECT_EQ(SetClipboardData(CF_UNICODETEXT, memory), nullptr);
    GlobalFree(memory);
    EXPECT_EQ(Complaints(), (Lines{"OpenClipboard: the clipboard is open already",
                                   "CloseClipboard: the clipboard is not open",
                                   "EmptyClipboard: the clipboard is not open",
                                   "SetClipboardData: the clipboard is not open"}));
}

TEST_F(SimulatedClipboard, TakesNothingThatWasNotEmptiedUnlockedOrTerminated) {
    OpenClipboard(nullptr);
    EmptyClipboard();
    const HGLOBAL memory = Block(kText);
    GlobalLock(memory);
    EXPECT_EQ(SetClipboardData(CF_UNICODETEXT, memory), nullptr);
    GlobalUnlock(memory);
    const HGLOBAL endless = GlobalAlloc(GMEM_DDESHARE, 2);
    std::memcpy(GlobalLock(endless), WIDE("x"), 2);
    GlobalUnlock(endless);
    EXPECT_EQ(SetClipboardData(CF_UNICODETEXT, endless), nullptr);
    EXPECT_EQ(SetClipboardData(CF_UNICODETEXT, memory), memory);
    const HGLOBAL second = Block(kText);
    EXPECT_EQ(SetClipboardData(CF_UNICODETEXT, second), nullptr);
    CloseClipboard();
    GlobalFree(endless);
    GlobalFree(second);
    EXPECT_EQ(Complaints(), (Lines{"SetClipboardData: memory for the clipboard is still locked",
                                   "SetClipboardData: the text for the clipboard has no terminator",
                                   "SetClipboardData: the clipboard was not emptied"}));
}

TEST_F(SimulatedClipboard, OwnsWhatItWasGiven) {
    OpenClipboard(nullptr);
    EmptyClipboard();
    const HGLOBAL memory = Block(kText);
    auto* place = static_cast<WideChar*>(GlobalLock(memory));
    GlobalUnlock(memory);
    SetClipboardData(CF_UNICODETEXT, memory);
    EXPECT_EQ(GlobalFree(memory), memory);
    EXPECT_EQ(GlobalLock(memory), nullptr);
    place[0] = WideChar{'x'};
    EXPECT_FALSE(CloseClipboard());
    EXPECT_EQ(Complaints(),
              (Lines{"GlobalFree: the memory was handed to the clipboard",
                     "GlobalLock: the memory was handed to the clipboard",
                     "CloseClipboard: memory was written after it was handed to the clipboard"}));
    place[0] = kText[0];
}

TEST_F(SimulatedClipboard, MemoryIsTheCallersUntilItIsFreed) {
    const HGLOBAL memory = GlobalAlloc(GMEM_DDESHARE, 14);
    EXPECT_EQ(Left(), Lines{"memory of 14 bytes"});
    auto* place = static_cast<char*>(GlobalLock(memory));
    place[14] = 0;
    GlobalUnlock(memory);
    EXPECT_EQ(GlobalFree(memory), memory);
    place[14] = 0x5a;
    EXPECT_EQ(GlobalFree(memory), nullptr);
    EXPECT_EQ(GlobalFree(memory), memory);
    EXPECT_FALSE(GlobalUnlock(nullptr));
    EXPECT_EQ(GlobalFree(nullptr), nullptr);
    EXPECT_EQ(Complaints(), (Lines{"GlobalFree: memory was written beyond its end",
                                   "GlobalFree: the handle names no block of memory",
                                   "GlobalUnlock: the handle names no block of memory"}));
}

TEST_F(SimulatedClipboard, FailsOnDemand) {
    for (const char* operation : {"OpenClipboard", "EmptyClipboard", "CloseClipboard"}) {
        Fail(operation);
        const bool opened = OpenClipboard(nullptr);
        EXPECT_EQ(opened, std::string(operation) != "OpenClipboard");
        if (!opened) continue;
        EXPECT_EQ(bool(EmptyClipboard()), std::string(operation) != "EmptyClipboard");
        EXPECT_EQ(bool(CloseClipboard()), std::string(operation) != "CloseClipboard");
        EXPECT_EQ(Left(), Lines{}) << operation;
    }
    Fail("GlobalAlloc");
    EXPECT_EQ(GlobalAlloc(GMEM_DDESHARE, 2), nullptr);
    const HGLOBAL memory = Block(kText);
    Fail("GlobalLock");
    EXPECT_EQ(GlobalLock(memory), nullptr);
    OpenClipboard(nullptr);
    Fail("SetClipboardData");
    EXPECT_EQ(SetClipboardData(CF_UNICODETEXT, memory), nullptr);
    CloseClipboard();
    EXPECT_EQ(GlobalFree(memory), nullptr);
}

TEST_F(SimulatedClipboard, ShowsItsTextInTheJournal) {
    host().journal.Start();
    Put(kText);
    host().journal.Stop();
    EXPECT_EQ(Calls(),
              (Lines{"OpenClipboard(owner=null) = 1", "EmptyClipboard() = 1",
                     "GlobalAlloc(flags=8192, bytes=6) = pointer", "GlobalLock() = pointer",
                     "GlobalUnlock() = 0", "SetClipboardData(format=13, text=\"箱体\") = pointer",
                     "CloseClipboard() = 1"}));
}

}  // namespace

#endif
