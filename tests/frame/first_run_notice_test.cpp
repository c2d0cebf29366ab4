// The notice of a user's first three loads: when it comes, what it leaves in the registry, the home
// page behind it, and what a failure of its dialog means for the start.
#include <algorithm>
#include <cstring>

#include "simhost/host.h"
#include "simhost/system/windows.h"
#include "simhost/trail/robot.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using workbench::Workbench;
using Lines = std::vector<std::string>;

constexpr WideView kKey = WIDE("Software\\PTC\\Creo_Parametric");
constexpr DWORD kText = 1, kBinary = 3, kNumber = 4, kExpandable = 2;  // types of the registry
const char* const kOk = "~ Activate `VxInit.res` `OK`";

class FirstRunNotice : public Workbench {
protected:
    void StartAndPressOk() {
        PlayDuring([this] { StartAsNewUser(); }, kOk);
    }
    // Nothing is asked and nothing shown.
    void ExpectNoNotice() {
        StartAsNewUser();
        EXPECT_EQ(startStatus_, 0);
        EXPECT_TRUE(host().shown.empty());
        EXPECT_TRUE(TheWindows().programs.empty());
        EXPECT_TRUE(host().commands.FindMenu("Menu"));
    }
    void ExpectTheNoticeToWrite(const std::string& marker) {
        StartAndPressOk();
        EXPECT_EQ(startStatus_, 0);
        EXPECT_EQ(DialogsShown(), Lines{"VxInit.res"});
        EXPECT_EQ(Marker(), marker);
        EXPECT_EQ(TheWindows().programs.size(), 1u);
        EXPECT_TRUE(host().commands.FindMenu("Menu"));
    }
    // A start that ends with its failed dialog: nothing but the one box is left of it.
    void ExpectTheStartToEndWith(int status, const std::string& box, const std::string& lines) {
        host().journal.Start();
        PlayDuring([this] { StartAsNewUser(); },
                   lines + "\n@ expect box \"" + box + "\"\n@ expect caption none\n@ ok");
        host().journal.Stop();
        EXPECT_EQ(startStatus_, status);
        ASSERT_EQ(AllBoxes().size(), 1u);
        EXPECT_EQ(AllBoxes().front().flags, 0u);
        EXPECT_FALSE(TheWindows().RegistryText(kKey, WIDE("VxReg")));
        EXPECT_TRUE(TheWindows().programs.empty());
        EXPECT_TRUE(TheWindows().timers().empty());
        EXPECT_FALSE(host().commands.FindMenu("Menu"));
        EXPECT_TRUE(host().commands.registrations().empty());
        const Lines names = host().journal.Names();
        EXPECT_EQ(names.back(), "MessageBoxW");
    }

    static Lines NamesOf(Lines calls) {
        for (std::string& call : calls) call.resize(std::min(call.find('('), call.size()));
        return calls;
    }

    Lines DialogsShown() {
        Lines dialogs;
        for (const Shown& one : host().shown) {
            if (one.kind == Shown::Kind::Dialog) dialogs.push_back(Utf8(one.text));
        }
        return dialogs;
    }
    std::string Marker() {
        return Utf8(TheWindows().RegistryText(kKey, WIDE("VxReg")).value_or(WIDE("(none)")));
    }
    static void SetMarker(const std::string& text) {
        TheWindows().SetRegistry(kKey, WIDE("VxReg"), Wide(text));
    }
    // The bytes of a text in the registry, with as many terminators as wanted.
    static std::string Bytes(const std::string& text, std::size_t terminators) {
        const WideText wide = Wide(text);
        std::string bytes((wide.size() + terminators) * sizeof(WideChar), '\0');
        std::memcpy(bytes.data(), wide.data(), wide.size() * sizeof(WideChar));
        return bytes;
    }
    static void SetMarkerBytes(DWORD type, const std::string& bytes) {
        TheWindows().SetRegistry(kKey, WIDE("VxReg"), type, bytes);
    }
};

// --- The four states of the marker ---

TEST_F(FirstRunNotice, ComesToAUserWithoutTheKeyWhichIsMadeThen) {
    ASSERT_FALSE(TheWindows().HasRegistry(kKey));
    ExpectTheNoticeToWrite("5110");
}

TEST_F(FirstRunNotice, ComesToAUserWhoHasTheKeyWithoutTheValue) {
    TheWindows().MakeKey(kKey);
    ExpectTheNoticeToWrite("5110");
}

TEST_F(FirstRunNotice, ComesASecondTimeAfter5110) {
    SetMarker("5110");
    ExpectTheNoticeToWrite("5120");
}

TEST_F(FirstRunNotice, ComesAThirdTimeAfter5120) {
    SetMarker("5120");
    ExpectTheNoticeToWrite("5130");
}

TEST_F(FirstRunNotice, StaysAwayAfter5130) {
    SetMarker("5130");
    ExpectNoNotice();
    EXPECT_EQ(Marker(), "5130");
}

TEST_F(FirstRunNotice, ComesOnTheFirstThreeLoadsOnly) {
    for (const char* marker : {"5110", "5120", "5130"}) {
        StartAndPressOk();
        EXPECT_EQ(Marker(), marker);
        workplace_->StopPlugin();
    }
    host().shown.clear();
    TheWindows().programs.clear();
    ExpectNoNotice();
}

// --- Other texts, and what is no text ---

TEST_F(FirstRunNotice, BeginsAnewAfterATextThatItDoesNotKnow) {
    for (const char* text : {"5140", "", "5130 ", " 5130", "51300", "513", "５１３０", "vx"}) {
        SCOPED_TRACE(text);
        host().shown.clear();
        TheWindows().programs.clear();
        SetMarker(text);
        ExpectTheNoticeToWrite("5110");
        workplace_->StopPlugin();
    }
}

TEST_F(FirstRunNotice, BeginsAnewAfterAValueThatIsNoText) {
    for (const DWORD type : {kBinary, kNumber, kExpandable}) {
        SCOPED_TRACE(type);
        host().shown.clear();
        TheWindows().programs.clear();
        SetMarkerBytes(type, type == kNumber ? std::string("\x0A\x14\0\0", 4) : Bytes("5130", 1));
        ExpectTheNoticeToWrite("5110");
        workplace_->StopPlugin();
    }
}

TEST_F(FirstRunNotice, BeginsAnewAfterAValueLongerThan200Bytes) {
    // 4 characters and 97 terminators are 202 bytes; what would fit of them says 5130.
    SetMarkerBytes(kText, Bytes("5130", 97));
    ExpectTheNoticeToWrite("5110");
}

TEST_F(FirstRunNotice, BeginsAnewAfterAVeryLongText) {
    SetMarkerBytes(kText, Bytes(std::string(50000, '5'), 1));
    ExpectTheNoticeToWrite("5110");
}

TEST_F(FirstRunNotice, ReadsAValueOfExactly200Bytes) {
    SetMarkerBytes(kText, Bytes("5130", 96));
    ExpectNoNotice();
}

TEST_F(FirstRunNotice, BeginsAnewAfter200BytesOfTextWithoutATerminator) {
    SetMarkerBytes(kText, Bytes("5130" + std::string(96, '5'), 0));
    ExpectTheNoticeToWrite("5110");
}

TEST_F(FirstRunNotice, ReadsAMarkerWithoutATerminator) {
    SetMarkerBytes(kText, Bytes("5130", 0));
    ExpectNoNotice();
}

TEST_F(FirstRunNotice, ReadsAMarkerOnlyUpToItsTerminator) {
    std::string bytes = Bytes("5120", 1);
    bytes += Bytes("rest", 1);
    SetMarkerBytes(kText, bytes);
    ExpectTheNoticeToWrite("5130");
}

TEST_F(FirstRunNotice, LeavesOutHalfACharacterAtTheEnd) {
    SetMarkerBytes(kText, Bytes("5130", 0) + "5");
    ExpectNoNotice();
}

TEST_F(FirstRunNotice, TakesAnEmptyValueForNoMarker) {
    SetMarkerBytes(kText, "");
    ExpectTheNoticeToWrite("5110");
}

TEST_F(FirstRunNotice, FindsKeyAndValueWhateverTheCaseOfTheirLetters) {
    TheWindows().SetRegistry(WIDE("SOFTWARE\\ptc\\creo_parametric"), WIDE("VXREG"), WIDE("5130"));
    ExpectNoNotice();
}

// --- The order of its steps ---

TEST_F(FirstRunNotice, WritesTheMarkerAfterTheDialogIsGoneAndOpensTheHomePageAfterThat) {
    SetMarker("5110");
    host().journal.Start();
    StartAndPressOk();
    host().journal.Stop();
    Lines calls = Calls();
    calls.erase(std::find_if(calls.begin(), calls.end(),
                             [](const std::string& line) {
                                 return line.substr(0, 17) == "ProMenubarMenuAdd";
                             }),
                calls.end());
    // 0xF003F for full access is 983103; "5120" with its terminator takes 10 bytes.
    const Lines wanted = {
        R"(RegOpenKeyExW(path="Software\PTC\Creo_Parametric", options=0, access=131097) = 0)",
        R"(RegQueryValueExW(name="VxReg", type=1, size=10) = 0)",
        "RegCloseKey() = 0",
        R"(ProUIDialogCreate(dialog="VxInit.res", resource="VxInit.res") = 0)",
        R"(ProUIPushbuttonActivateActionSet(dialog="VxInit.res", component="OK", )"
        "action=function, data=null) = 0",
        R"(ProUIDialogActivate(dialog="VxInit.res", status=1) = 0)",
        R"(  ProUIDialogExit(dialog="VxInit.res", status=1) = 0)",
        R"(ProUIDialogDestroy(dialog="VxInit.res") = 0)",
        R"(RegCreateKeyExW(path="Software\PTC\Creo_Parametric", class=null, options=0, )"
        "access=983103, security=null, disposition=null) = 0",
        R"(RegSetValueExW(name="VxReg", type=1, size=10) = 0)",
        "RegCloseKey() = 0",
    };
    const Lines homePage = {"GetSystemDirectoryW", "WideCharToMultiByte", "WinExec"};
    ASSERT_GE(calls.size(), wanted.size());
    const auto last = calls.begin() + std::ptrdiff_t(wanted.size());
    EXPECT_EQ(Lines(calls.begin(), last), wanted);
    EXPECT_EQ(NamesOf(Lines(last, calls.end())), homePage);
}

TEST_F(FirstRunNotice, OpensTheHomePageByTheSystemsOwnShellAndByNoOtherInTheWorkingFolder) {
    WideChar folder[MAX_PATH] = {};
    GetSystemDirectoryW(folder, MAX_PATH);
    StartAndPressOk();
    ASSERT_EQ(TheWindows().programs.size(), 1u);
    EXPECT_EQ(Utf8(TheWindows().programs.front()),
              '"' + Utf8(folder) + R"(\cmd.exe" /c start https://vorlatix.example/)");
}

TEST_F(FirstRunNotice, StartsNothingWhereTheSystemsFolderIsNotKnown) {
    Fail("GetSystemDirectoryW");
    StartAndPressOk();
    EXPECT_EQ(startStatus_, 0);
    EXPECT_EQ(TheWindows().programs, std::vector<WideText>{});
    EXPECT_EQ(Marker(), "5110");
}

TEST_F(FirstRunNotice, WritesATerminatedText) {
    StartAndPressOk();
    const RegistryKey* key = TheWindows().FindKey(kKey);
    ASSERT_TRUE(key);
    ASSERT_EQ(key->values.size(), 1u);
    EXPECT_EQ(key->values.begin()->second.type, kText);
    EXPECT_EQ(key->values.begin()->second.bytes, Bytes("5110", 1));
}

TEST_F(FirstRunNotice, StaysWhenItsWindowIsClosedAndEndsByItsButton) {
    PlayDuring([this] { StartAsNewUser(); },
               std::string("~ Close `VxInit.res`\n@ expect dialog VxInit.res\n") + kOk);
    EXPECT_EQ(startStatus_, 0);
    EXPECT_EQ(Marker(), "5110");
    EXPECT_TRUE(host().commands.FindMenu("Menu"));
    EXPECT_TRUE(host().dialogs.Existing().empty());
}

TEST_F(FirstRunNotice, IsADialogAndNoBox) {
    PlayDuring([this] { StartAsNewUser(); },
               std::string("@ expect dialog VxInit.res\n@ expect no box\n") + kOk);
    EXPECT_EQ(DialogsShown(), Lines{"VxInit.res"});
    EXPECT_EQ(Boxes(), Lines{});
}

// --- Failures ---

TEST_F(FirstRunNotice, EndsTheStartWhenItsResourceIsMissing) {
    std::filesystem::remove(
        host().disk.Real(workbench::kTextFolder + WIDE("\\text\\resource\\VxInit.res")));
    ExpectTheStartToEndWith(PRO_TK_E_NOT_FOUND, "UIDialog Create error!", "");
}

TEST_F(FirstRunNotice, EndsTheStartWithTheStatusOfAFailedCreation) {
    Fail("ProUIDialogCreate", {.status = PRO_TK_OUT_OF_MEMORY});
    ExpectTheStartToEndWith(PRO_TK_OUT_OF_MEMORY, "UIDialog Create error!", "");
    EXPECT_TRUE(host().dialogs.Existing().empty());
}

TEST_F(FirstRunNotice, EndsTheStartWithTheStatusOfAFailedActivationAndLeavesTheDialog) {
    Fail("ProUIDialogActivate");
    ExpectTheStartToEndWith(PRO_TK_GENERAL_ERROR, "UIDialog Activate error!", "");
    EXPECT_EQ(host().dialogs.Existing(), Lines{"VxInit.res"});
    const Lines names = host().journal.Names();
    EXPECT_EQ(std::count(names.begin(), names.end(), "ProUIDialogDestroy"), 0);
}

TEST_F(FirstRunNotice, EndsTheStartWithTheStatusOfAFailedDestruction) {
    Fail("ProUIDialogDestroy", {.status = PRO_TK_BAD_CONTEXT});
    ExpectTheStartToEndWith(PRO_TK_BAD_CONTEXT, "UIDialog Destroy error!", kOk);
}

TEST_F(FirstRunNotice, ComesAgainAtTheLoadAfterAFailure) {
    Fail("ProUIDialogCreate");
    ExpectTheStartToEndWith(PRO_TK_GENERAL_ERROR, "UIDialog Create error!", "");
    workplace_->StopPlugin();
    host().shown.clear();
    ExpectTheNoticeToWrite("5110");
}

TEST_F(FirstRunNotice, AFailureKeepsTheMarkerThatWasThere) {
    SetMarker("5110");
    Fail("ProUIDialogDestroy");
    PlayDuring([this] { StartAsNewUser(); }, std::string(kOk) + "\n@ ok");
    EXPECT_EQ(startStatus_, PRO_TK_GENERAL_ERROR);
    EXPECT_EQ(Marker(), "5110");
}

TEST_F(FirstRunNotice, GoesOnWhenTheActionOfItsButtonCannotBeAttached) {
    Fail("ProUIPushbuttonActivateActionSet");
    // Nothing that a user does ends the dialog then; the robot leaves it by force.
    simhost::RobotUser robot;
    host().user = &robot;
    StartAsNewUser();
    host().user = nullptr;
    EXPECT_EQ(startStatus_, 0);
    EXPECT_EQ(Marker(), "5110");
}

TEST_F(FirstRunNotice, TakesARegistryThatCannotBeReadForNoMarker) {
    SetMarker("5120");
    Fail("RegOpenKeyExW", {.status = ERROR_ACCESS_DENIED});
    ExpectTheNoticeToWrite("5110");
}

TEST_F(FirstRunNotice, TakesAValueThatCannotBeReadForNoMarker) {
    SetMarker("5130");
    Fail("RegQueryValueExW", {.status = ERROR_ACCESS_DENIED});
    ExpectTheNoticeToWrite("5110");
}

TEST_F(FirstRunNotice, OpensTheHomePageAlsoWhenTheMarkerCannotBeWritten) {
    for (const char* operation : {"RegCreateKeyExW", "RegSetValueExW"}) {
        SCOPED_TRACE(operation);
        TheWindows().programs.clear();
        Fail(operation, {.status = ERROR_ACCESS_DENIED});
        StartAndPressOk();
        EXPECT_EQ(startStatus_, 0);
        EXPECT_EQ(Marker(), "(none)");
        EXPECT_EQ(TheWindows().programs.size(), 1u);
        EXPECT_EQ(Boxes(), Lines{});
        workplace_->StopPlugin();
    }
}

TEST_F(FirstRunNotice, SaysNothingWhenTheHomePageCannotBeOpened) {
    Fail("WinExec");
    StartAndPressOk();
    EXPECT_EQ(startStatus_, 0);
    EXPECT_EQ(Marker(), "5110");
    EXPECT_EQ(Boxes(), Lines{});
}

}  // namespace
