// The timer that restores the last directory two seconds after a start: that it fires once, and
// that it never outlives the module.
#include "tests/frame/last_dir_bench.h"

namespace {

using namespace last_dir;

TEST_F(LastDirectory, IsRestoredAfterTwoSecondsAndNotBefore) {
    MakeFolder(WIDE("C:\\Projects"));
    Setting("SetLastDir", "1");
    Write(kFile, "C:\\Projects");
    Start();
    AdvanceClock(1999);
    EXPECT_EQ(WorkingDirectory(), "C:\\Work");
    AdvanceClock(1);
    EXPECT_EQ(WorkingDirectory(), "C:\\Projects");
    EXPECT_EQ(Boxes(), Lines{});
}

TEST_F(LastDirectory, IsRestoredByTheStepsInTheirOrder) {
    MakeFolder(WIDE("C:\\Projects"));
    RestoreFrom("C:\\Projects");
    const Lines wanted = {"KillTimer",
                          "GetModuleHandleW",
                          "GetModuleFileNameW",
                          "GetPrivateProfileStringW",
                          "CreateFileW",
                          "GetFileSizeEx",
                          "ReadFile",
                          "CloseHandle",
                          "MultiByteToWideChar",
                          "ProDirectoryChange"};
    EXPECT_EQ(host().journal.Names(), wanted);
    const Lines calls = Calls();
    EXPECT_EQ(calls[0], KillsIt());
    EXPECT_EQ(calls[3],
              R"(GetPrivateProfileStringW(section="SetLastDir", key="value", fallback="", )"
              R"(value="1", size=255, path="C:\Plug-in\VXconfig\VxConfig.ini") = 1)");
    EXPECT_EQ(calls.back(), R"(ProDirectoryChange(directory="C:\Projects") = 0)");
}

TEST_F(LastDirectory, TheTimerIsKilledByTheIdThatItReceives) {
    // Timers that others run already shift the ids: this one gets another than the 1 it asks for.
    TheWindows().StartTimer(0, 100000, nullptr);
    TheWindows().StartTimer(0, 100000, nullptr);
    StartAndWait();
    ASSERT_FALSE(Calls().empty());
    EXPECT_NE(timer_, 1u);
    EXPECT_EQ(Calls().front(), KillsIt());
    EXPECT_EQ(TheWindows().timers().size(), 2u);
}

TEST_F(LastDirectory, TheTimerFiresOnce) {
    RestoreFrom("C:\\Projects");
    EXPECT_TRUE(TheWindows().timers().empty());
    MakeFolder(WIDE("C:\\Projects"));
    AdvanceClock(600000);
    EXPECT_EQ(WorkingDirectory(), "C:\\Work");
}

TEST_F(LastDirectory, TheTimerFiresOnceAlsoWithTheSettingOff) {
    Setting("SetLastDir", "0");
    StartAndWait();
    EXPECT_TRUE(TheWindows().timers().empty());
    EXPECT_EQ(CallsOf("CreateFileW"), 0);
}

TEST_F(LastDirectory, IsRestoredAlsoWhenTheTimerCannotBeKilled) {
    MakeFolder(WIDE("C:\\Projects"));
    Fail("KillTimer");
    RestoreFrom("C:\\Projects");
    EXPECT_EQ(WorkingDirectory(), "C:\\Projects");
}

TEST_F(LastDirectory, TheTimerIsKilledByTheEndOfARunThatIsShorter) {
    MakeFolder(WIDE("C:\\Projects"));
    Setting("SetLastDir", "1");
    Start();
    ASSERT_EQ(TheWindows().timers().size(), 1u);
    timer_ = TheWindows().timers().front().id;
    host().journal.Start();
    workplace_->StopPlugin();
    host().journal.Stop();
    EXPECT_EQ(Calls().back(), KillsIt());
    EXPECT_TRUE(TheWindows().timers().empty());
    Write(kFile, "C:\\Projects");
    AdvanceClock(600000);
    EXPECT_EQ(WorkingDirectory(), "C:\\Work");
}

TEST_F(LastDirectory, TheEndOfARunKillsNoTimerThatHasFired) {
    StartAndWait();
    EXPECT_EQ(CallsOf("KillTimer"), 1);
    host().journal.Start();
    workplace_->StopPlugin();
    EXPECT_EQ(CallsOf("KillTimer"), 1);
}

TEST_F(LastDirectory, TheEndOfARunKillsNoTimerThatWasNeverSet) {
    Fail("SetTimer");
    Start();
    host().journal.Start();
    workplace_->StopPlugin();
    EXPECT_EQ(CallsOf("KillTimer"), 0);
    EXPECT_EQ(CallsOf("ProDirectoryCurrentGet"), 1);
}

TEST_F(LastDirectory, TheEndOfARunKillsATimerWhoseKillingFailedBefore) {
    Fail("KillTimer");
    StartAndWait();
    ASSERT_EQ(TheWindows().timers().size(), 1u);
    host().journal.Clear();
    host().journal.Start();
    workplace_->StopPlugin();
    EXPECT_EQ(Calls().back(), KillsIt());
    EXPECT_TRUE(TheWindows().timers().empty());
}

TEST_F(LastDirectory, ATimerThatOutlivesTheModuleIsAComplaintAndFiresNoMore) {
    Start();
    Fail("KillTimer");
    workplace_->StopPlugin();
    EXPECT_EQ(Complaints(), Lines{"a timer is still set whose procedure lies in vorlatix5.1.dll, "
                                  "which leaves memory"});
    EXPECT_TRUE(TheWindows().timers().empty());
    AdvanceClock(600000);
}

TEST_F(LastDirectory, TimersOfOthersOutliveTheModule) {
    TheWindows().StartTimer(0, 1000000, nullptr);
    Start();
    workplace_->StopPlugin();
    EXPECT_EQ(TheWindows().timers().size(), 1u);
}

}  // namespace
