// Modules, message boxes, timers, programs and the locale of the simulated Windows.
#include "tests/simhost/windows_place.h"

#ifndef _WIN32

#include "simhost/core/text.h"

using namespace simhost;

namespace {

using Complaints = std::vector<std::string>;

// --- Modules ---

class Modules : public WindowsPlace {
protected:
    Modules() {
        TheWindows().AddModule(WIDE("vorlatix5.1.dll"), WIDE("C:\\Tools\\vorlatix5.1.dll"));
    }
    static WideText PathOf(HMODULE module) {
        WideChar path[MAX_PATH] = {};
        return WideText(path, GetModuleFileNameW(module, path, MAX_PATH));
    }
};

TEST_F(Modules, AreFoundByNameIgnoringCase) {
    const HMODULE module = GetModuleHandleW(WIDE("vorlatix5.1.dll"));
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(GetModuleHandleW(WIDE("VorLatix5.1.DLL")), module);
    EXPECT_EQ(GetModuleHandleW(WIDE("c:\\tools\\vorlatix5.1.dll")), module);
    EXPECT_EQ(PathOf(module), WIDE("C:\\Tools\\vorlatix5.1.dll"));
}

TEST_F(Modules, UnderAnotherNameAreNotFound) {
    EXPECT_EQ(GetModuleHandleW(WIDE("vorlatix.dll")), nullptr);
    EXPECT_EQ(GetModuleHandleW(WIDE("C:\\Other\\vorlatix5.1.dll")), nullptr);
}

TEST_F(Modules, WithoutSuffixAreTakenForLibraries) {
    TheWindows().AddModule(WIDE("helper.dll"), WIDE("C:\\Tools\\helper.dll"));
    EXPECT_EQ(PathOf(GetModuleHandleW(WIDE("helper"))), WIDE("C:\\Tools\\helper.dll"));
    EXPECT_EQ(GetModuleHandleW(WIDE("helper.")), nullptr);  // a point at the end: really none
    // "vorlatix5.1" has one already, namely ".1".
    EXPECT_EQ(GetModuleHandleW(WIDE("vorlatix5.1")), nullptr);
}

TEST_F(Modules, ThatAreNotNamedAreTheExecutable) {
    EXPECT_EQ(PathOf(nullptr), WIDE("C:\\Program Files\\Host\\bin\\xtop.exe"));
    TheWindows().executablePath = WIDE("C:\\Host\\xtop.exe");
    EXPECT_EQ(PathOf(nullptr), WIDE("C:\\Host\\xtop.exe"));
    EXPECT_EQ(PathOf(GetModuleHandleW(WIDE("XTOP.EXE"))), WIDE("C:\\Host\\xtop.exe"));
}

TEST_F(Modules, ThatWereRemovedAreNotFound) {
    const HMODULE module = GetModuleHandleW(WIDE("vorlatix5.1.dll"));
    TheWindows().RemoveModule(WIDE("VORLATIX5.1.DLL"));
    EXPECT_EQ(GetModuleHandleW(WIDE("vorlatix5.1.dll")), nullptr);
    EXPECT_EQ(PathOf(module), WIDE(""));
    EXPECT_EQ(TakeComplaints(),
              Complaints{"GetModuleFileNameW: the handle names no loaded module"});
}

TEST_F(Modules, HaveTheirPathsCutWithoutATerminator) {
    const HMODULE module = GetModuleHandleW(WIDE("vorlatix5.1.dll"));
    const WideText whole = PathOf(module);
    ASSERT_EQ(whole.size(), 24u);
    for (const DWORD size : {24u, 5u}) {
        WideText path(30, WideChar('#'));
        EXPECT_EQ(GetModuleFileNameW(module, path.data(), size), size);
        EXPECT_EQ(path, whole.substr(0, size) + WideText(30 - size, WideChar('#')));
    }
}

TEST_F(Modules, AreNotFoundAndHaveNoPathWhenToldToFail) {
    Operation::Fail({"GetModuleHandleW"});
    EXPECT_EQ(GetModuleHandleW(WIDE("vorlatix5.1.dll")), nullptr);
    Operation::Fail({"GetModuleFileNameW"});
    EXPECT_EQ(PathOf(nullptr), WIDE(""));
}

TEST_F(Modules, WithoutAPlaceForThePathAreAComplaint) {
    EXPECT_EQ(GetModuleFileNameW(nullptr, nullptr, 9), 0u);
    EXPECT_EQ(TakeComplaints(), Complaints{"GetModuleFileNameW: the place for the path is null"});
}

// --- Message boxes ---

class Answerer : public User {
public:
    int AnswerBox(const Box& box) override {
        boxes.push_back(box);
        return answer;
    }
    void UseDialog(Dialog&) override {}
    std::optional<WideText> AnswerPrompt(const WideText&, const WideText&) override { return {}; }
    std::vector<Box> boxes;
    int answer = 6;
};

class MessageBoxes : public WindowsPlace {
protected:
    MessageBoxes() { TheHost().user = &user_; }
    Answerer user_;
};

TEST_F(MessageBoxes, AreShownToTheUserWhoAnswers) {
    EXPECT_EQ(MessageBoxW(nullptr, WIDE("text"), WIDE("caption"), MB_TOPMOST), 6);
    ASSERT_EQ(user_.boxes.size(), 1u);
    const Box& box = user_.boxes[0];
    EXPECT_EQ(box.text, WIDE("text"));
    EXPECT_EQ(box.caption, WIDE("caption"));
    EXPECT_TRUE(box.hasCaption);
    EXPECT_EQ(box.flags, 0x40000u);
    ASSERT_EQ(TheHost().shown.size(), 1u);
    EXPECT_EQ(TheHost().shown[0].kind, Shown::Kind::Box);
}

TEST_F(MessageBoxes, WithoutCaptionHaveTheSystemsOwn) {
    MessageBoxW(nullptr, WIDE("text"), nullptr, MB_OK);
    MessageBoxW(nullptr, nullptr, WIDE(""), MB_OK);
    ASSERT_EQ(user_.boxes.size(), 2u);
    EXPECT_FALSE(user_.boxes[0].hasCaption);
    EXPECT_TRUE(user_.boxes[1].hasCaption);
    EXPECT_EQ(user_.boxes[1].text, WIDE(""));
}

TEST_F(MessageBoxes, ThatFailAreNotShown) {
    Operation::Fail({"MessageBoxW"});
    EXPECT_EQ(MessageBoxW(nullptr, WIDE("text"), nullptr, MB_OK), 0);
    EXPECT_TRUE(user_.boxes.empty());
    EXPECT_TRUE(TheHost().shown.empty());
}

TEST_F(MessageBoxes, ThatBelongToAWindowWhichIsNotThereAreAComplaint) {
    int nothing = 0;
    EXPECT_EQ(MessageBoxW(reinterpret_cast<HWND>(&nothing), WIDE("text"), nullptr, MB_OK), 0);
    EXPECT_EQ(TakeComplaints(), Complaints{"MessageBoxW: there is no such window"});
}

// --- Timers ---

struct Firing {
    UINT_PTR timer;
    DWORD time;
    bool operator==(const Firing&) const = default;
};
std::ostream& operator<<(std::ostream& out, const Firing& firing) {
    return out << firing.timer << " at " << firing.time;
}
std::vector<Firing> firings;
std::vector<UINT> messages;

void CALLBACK Note(HWND window, UINT message, UINT_PTR timer, DWORD time) {
    EXPECT_EQ(window, nullptr);
    messages.push_back(message);
    firings.push_back({timer, time});
}
void CALLBACK NoteOnce(HWND window, UINT message, UINT_PTR timer, DWORD time) {
    Note(window, message, timer, time);
    EXPECT_TRUE(KillTimer(nullptr, timer));
}
void CALLBACK NoteAndSetAnother(HWND window, UINT message, UINT_PTR timer, DWORD time) {
    NoteOnce(window, message, timer, time);
    SetTimer(nullptr, 1, 100, NoteOnce);
}

class Timers : public WindowsPlace {
protected:
    Timers() {
        firings.clear();
        messages.clear();
    }
};

TEST_F(Timers, GetIdsOfTheirOwn) {
    EXPECT_EQ(SetTimer(nullptr, 1, 2000, Note), 32767u);
    EXPECT_EQ(SetTimer(nullptr, 1, 2000, Note), 32766u);
    EXPECT_TRUE(KillTimer(nullptr, 32767));
    EXPECT_EQ(SetTimer(nullptr, 1, 2000, Note), 32765u);
}

TEST_F(Timers, FireAgainUntilTheyAreKilled) {
    const UINT_PTR timer = SetTimer(nullptr, 1, 1000, Note);
    TheWindows().AdvanceClock(999);
    EXPECT_TRUE(firings.empty());
    TheWindows().AdvanceClock(1);
    TheWindows().AdvanceClock(2500);
    EXPECT_EQ(firings, (std::vector<Firing>{{timer, 1000}, {timer, 2000}, {timer, 3000}}));
    EXPECT_EQ(messages[0], 0x113u);
    EXPECT_TRUE(KillTimer(nullptr, timer));
    TheWindows().AdvanceClock(5000);
    EXPECT_EQ(firings.size(), 3u);
    EXPECT_EQ(Simulated().tick(), 8500u);
}

TEST_F(Timers, FireInTheOrderOfTheirTimes) {
    const UINT_PTR quick = SetTimer(nullptr, 1, 200, Note);
    const UINT_PTR slow = SetTimer(nullptr, 1, 300, Note);
    TheWindows().AdvanceClock(600);
    // At 600 both are due, and the one whose turn was longer ago comes first.
    EXPECT_EQ(firings, (std::vector<Firing>{
                           {quick, 200}, {slow, 300}, {quick, 400}, {slow, 600}, {quick, 600}}));
}

TEST_F(Timers, MayKillThemselves) {
    const UINT_PTR timer = SetTimer(nullptr, 1, 2000, NoteOnce);
    TheWindows().AdvanceClock(10000);
    EXPECT_EQ(firings, (std::vector<Firing>{{timer, 2000}}));
    EXPECT_TRUE(TheWindows().timers().empty());
}

TEST_F(Timers, MaySetOthersThatFireInTheirTurn) {
    SetTimer(nullptr, 1, 100, NoteAndSetAnother);
    TheWindows().AdvanceClock(250);
    EXPECT_EQ(firings, (std::vector<Firing>{{32767, 100}, {32766, 200}}));
}

TEST_F(Timers, OfARunningIdAreSetAnew) {
    const UINT_PTR timer = SetTimer(nullptr, 1, 1000, Note);
    TheWindows().AdvanceClock(900);
    EXPECT_EQ(SetTimer(nullptr, timer, 1000, Note), timer);
    TheWindows().AdvanceClock(900);
    EXPECT_TRUE(firings.empty());
    EXPECT_EQ(TheWindows().timers().size(), 1u);
}

TEST_F(Timers, AreNeverShorterThanTenMilliseconds) {
    SetTimer(nullptr, 1, 0, Note);
    TheWindows().AdvanceClock(25);
    EXPECT_EQ(firings, (std::vector<Firing>{{32767, 10}, {32767, 20}}));
}

TEST_F(Timers, OfAnUnknownIdCannotBeKilled) {
    SetTimer(nullptr, 1, 1000, Note);
    EXPECT_FALSE(KillTimer(nullptr, 1));  // the id asked for is not the timer's
    EXPECT_TRUE(KillTimer(nullptr, 32767));
    EXPECT_FALSE(KillTimer(nullptr, 32767));
}

TEST_F(Timers, ThatAreToldToFailDoNotRun) {
    Operation::Fail({"SetTimer"});
    EXPECT_EQ(SetTimer(nullptr, 1, 1000, Note), 0u);
    TheWindows().AdvanceClock(5000);
    EXPECT_TRUE(firings.empty());
}

TEST_F(Timers, GoOnWhenTheirKillingIsToldToFail) {
    const UINT_PTR timer = SetTimer(nullptr, 1, 1000, Note);
    Operation::Fail({"KillTimer"});
    EXPECT_FALSE(KillTimer(nullptr, timer));
    TheWindows().AdvanceClock(1000);
    EXPECT_EQ(firings.size(), 1u);
}

TEST_F(Timers, OfAWindowWhichIsNotThereAreAComplaint) {
    int nothing = 0;
    const HWND window = reinterpret_cast<HWND>(&nothing);
    EXPECT_EQ(SetTimer(window, 1, 1000, Note), 0u);
    EXPECT_FALSE(KillTimer(window, 1));
    EXPECT_EQ(TakeComplaints(), (Complaints{"SetTimer: there is no such window",
                                            "KillTimer: there is no such window"}));
}

// --- Programs ---

using Programs = WindowsPlace;

TEST_F(Programs, AreWrittenDownAndNotRun) {
    const std::string mark = (folder() / "ran").string();
    EXPECT_GT(WinExec(("touch " + mark).c_str(), SW_HIDE), 31u);
    EXPECT_GT(WinExec("notepad.exe C:\\\xD6\xD0.ini", 5), 31u);
    EXPECT_FALSE(Exists("ran"));
    ASSERT_EQ(TheWindows().programs.size(), 2u);
    EXPECT_EQ(TheWindows().programs[1], WIDE("notepad.exe C:\\\u4e2d.ini"));
    ASSERT_EQ(TheHost().shown.size(), 2u);
    EXPECT_EQ(TheHost().shown[1].kind, Shown::Kind::Program);
    EXPECT_EQ(TheHost().shown[1].text, WIDE("notepad.exe C:\\\u4e2d.ini"));
}

TEST_F(Programs, ThatAreToldToFailAreNotFound) {
    Operation::Fail({"WinExec"});
    EXPECT_EQ(WinExec("notepad.exe", SW_HIDE), 2u);
    EXPECT_TRUE(TheWindows().programs.empty());
}

TEST_F(Programs, OfWindowsItselfAreFoundByTheirNameAndOthersByTheirFile) {
    const auto result = [](const WideChar* verb, const WideChar* file, const WideChar* arguments) {
        return reinterpret_cast<std::uintptr_t>(
            ShellExecuteW(nullptr, verb, file, arguments, nullptr, SW_SHOW));
    };
    EXPECT_GT(result(nullptr, WIDE("explorer"), WIDE("C:\\Work\\")), 32u);
    EXPECT_GT(result(WIDE("open"), WIDE("Notepad.EXE"), nullptr), 32u);
    EXPECT_EQ(result(nullptr, WIDE("explorers"), nullptr), 2u);
    EXPECT_EQ(result(nullptr, WIDE(".exe"), nullptr), 2u);
    EXPECT_EQ(result(nullptr, WIDE("C:\\none.txt"), nullptr), 2u);
    EXPECT_EQ(TheWindows().programs, (std::vector<WideText>{WIDE("explorer C:\\Work\\ (show 5)"),
                                                            WIDE("open Notepad.EXE (show 5)")}));
}

TEST_F(Programs, WithoutACommandLineAreAComplaint) {
    EXPECT_LT(WinExec(nullptr, SW_HIDE), 32u);
    EXPECT_EQ(TakeComplaints(), Complaints{"WinExec: the command line is null"});
}

// --- Locale ---

using Locale = WindowsPlace;

TEST_F(Locale, IsRememberedByCategory) {
    ASSERT_NE(_wsetlocale(LC_CTYPE, WIDE("chs")), nullptr);
    EXPECT_EQ(TheWindows().locale[LC_CTYPE], WIDE("chs"));
    EXPECT_STREQ(Utf8(_wsetlocale(LC_CTYPE, nullptr)).c_str(), "chs");
    EXPECT_STREQ(Utf8(_wsetlocale(LC_NUMERIC, nullptr)).c_str(), "C");
}

TEST_F(Locale, OfTheSystemIsChinese) {
    ASSERT_NE(_wsetlocale(LC_ALL, WIDE("")), nullptr);
    EXPECT_EQ(TheWindows().locale[LC_TIME], WIDE("chs"));
    ASSERT_NE(_wsetlocale(LC_TIME, WIDE("C")), nullptr);
    EXPECT_EQ(TheWindows().locale[LC_TIME], WIDE("C"));
}

TEST_F(Locale, ThatThisSystemHasNotChangesNothing) {
    _wsetlocale(LC_CTYPE, WIDE("chs"));
    EXPECT_EQ(_wsetlocale(LC_CTYPE, WIDE("tlh")), nullptr);
    EXPECT_EQ(_wsetlocale(77, WIDE("chs")), nullptr);
    EXPECT_EQ(TheWindows().locale[LC_CTYPE], WIDE("chs"));
}

TEST_F(Locale, IsNotSetWhenToldToFail) {
    Operation::Fail({"_wsetlocale"});
    EXPECT_EQ(_wsetlocale(LC_CTYPE, WIDE("chs")), nullptr);
    EXPECT_TRUE(TheWindows().locale.empty());
}

// --- Code pages that fail ---

using CodePageFaults = WindowsPlace;

TEST_F(CodePageFaults, GiveZeroAndWriteNothing) {
    Operation::Fail({"MultiByteToWideChar"});
    Operation::Fail({"WideCharToMultiByte"});
    WideChar wide = '#';
    char narrow = '#';
    EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, "a", 1, &wide, 1), 0);
    EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, WIDE("a"), 1, &narrow, 1, nullptr, nullptr), 0);
    EXPECT_EQ(wide, WideChar('#'));
    EXPECT_EQ(narrow, '#');
}

TEST_F(CodePageFaults, AreReportedForUtf8WithADefaultCharacter) {
    BOOL used = FALSE;
    EXPECT_EQ(WideCharToMultiByte(65001, 0, WIDE("a"), 1, nullptr, 0, nullptr, &used), 0);
    EXPECT_EQ(WideCharToMultiByte(65001, 0, WIDE("a"), 1, nullptr, 0, "?", nullptr), 0);
}

}  // namespace

#endif
