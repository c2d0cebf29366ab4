// VxMdlNameCopy: whose name comes onto the clipboard, and what keeps it from there.
#include "simhost/system/windows.h"
#include "tests/support/observed.h"

namespace {

using namespace simhost;
using workbench::Joined;
using workbench::Names;
using workbench::ObservedBench;

constexpr const char* kOneOnly = "\t当前模式只能选择1个元件\t";
const Names kToClipboard = {"OpenClipboard", "EmptyClipboard",   "GlobalAlloc",   "GlobalLock",
                            "GlobalUnlock",  "SetClipboardData", "CloseClipboard"};

class NameCopy : public ObservedBench {
protected:
    void SetUp() override {
        TextFolderSetting("RmbDisable", "0");
        Start();
        Open(workbench::MakeModels("top: 箱体, sub(plate x2)"));
        message_ = Message();
        // A real one still has what lay there before the test.
        OpenClipboard(nullptr);
        EmptyClipboard();
        CloseClipboard();
    }
    std::string Clipboard() {
        const auto text = TheWindows().ClipboardText();
        return text ? Utf8(*text) : "none";
    }
    // What the action itself called; the access rule before it asks for the mode.
    Names OfTheAction() {
        Names calls = Recorded();
        if (!calls.empty() && calls.front() == "ProModeCurrentGet") calls.erase(calls.begin());
        return calls;
    }
    // In a part it is pressed in the menu of actions, which is there from the first popup on.
    void PressInPart(const std::string& part) {
        Play("@ right-click\n@ quit");
        Open(workbench::MakeModels(part));
        Record();
        Play("@ press ActionMenu/复制模型名称(vx)");
    }
    std::string Message() { return Utf8(host().messages.last()); }
    bool SaysCopied() { return Message() == "模型名称已复制"; }
    // Nothing was copied, and nothing was said.
    void ExpectSilence() {
        EXPECT_EQ(Clipboard(), "none");
        EXPECT_FALSE(SaysCopied());
        EXPECT_EQ(Boxes(), Names{});
    }
    std::string message_;
};

// --- Whose name ---

TEST_F(NameCopy, InAPartIsItsOwnWhateverIsSelected) {
    Play("@ select 箱体, sub");
    PressInPart("plate");
    EXPECT_EQ(OfTheAction(), Joined({{"ProMdlCurrentGet", "ProMdlTypeGet", "ProMdlNameGet"},
                                     kToClipboard,
                                     {"ProMessageDisplay"}}));
    EXPECT_EQ(Clipboard(), "PLATE");
    EXPECT_TRUE(SaysCopied());
}

TEST_F(NameCopy, InAnAssemblyIsThatOfTheSelectedComponent) {
    Play("@ select 箱体");
    Record();
    Press("VxMdlNameCopy");
    EXPECT_EQ(OfTheAction(),
              Joined({{"ProMdlCurrentGet", "ProMdlTypeGet", "ProSelbufferSelectionsGet",
                       "ProArraySizeGet", "ProSelectionAsmcomppathGet", "ProAsmcomppathMdlGet",
                       "ProArrayFree", "ProMdlNameGet"},
                      kToClipboard,
                      {"ProMessageDisplay"}}));
    EXPECT_EQ(Clipboard(), "箱体");
    EXPECT_TRUE(SaysCopied());
}

TEST_F(NameCopy, IsThatOfAComponentDeepDownOrOfASubAssembly) {
    Play("@ select sub/plate:2\n~ Command `VxMdlNameCopy`\n@ expect clipboard PLATE");
    Play("@ select sub\n~ Command `VxMdlNameCopy`\n@ expect clipboard SUB");
}

TEST_F(NameCopy, InAManufacturingModelIsThatOfTheSelectedComponentToo) {
    Open(workbench::MakeModels("mill.mfg: top.asm"));
    Play("@ select sub/plate\n~ Command `VxMdlNameCopy`\n@ expect clipboard PLATE");
}

TEST_F(NameCopy, IsThatOfThePickedComponentWhereNothingIsSelected) {
    Record();
    Play(
        "~ Command `VxMdlNameCopy`\n"
        "@ expect message 请选择要复制名称的零件或组件\n"
        "@ pick sub/plate:1");
    EXPECT_EQ(OfTheAction(),
              Joined({{"ProMdlCurrentGet", "ProMdlTypeGet", "ProSelbufferSelectionsGet",
                       "ProMessageDisplay", "ProSelect", "ProSelectionAsmcomppathGet",
                       "ProAsmcomppathMdlGet", "ProMdlNameGet"},
                      kToClipboard,
                      {"ProMessageDisplay"}}));
    ASSERT_EQ(Lines("ProSelect").size(), 1u);
    EXPECT_EQ(Lines("ProSelect")[0].find(R"(ProSelect(filter="prt_or_asm", most=1,)"), 0u)
        << Lines("ProSelect")[0];
    EXPECT_EQ(Clipboard(), "PLATE");
}

TEST_F(NameCopy, IsTheBareNameUpTo32Characters) {
    PressInPart("a2345678901234567890123456789032");
    EXPECT_EQ(Clipboard(), "A2345678901234567890123456789032");
}

TEST_F(NameCopy, TakesThePlaceOfWhatWasOnTheClipboard) {
    Play("@ select 箱体\n~ Command `VxMdlNameCopy`\n@ select sub\n~ Command `VxMdlNameCopy`");
    EXPECT_EQ(Clipboard(), "SUB");
}

TEST_F(NameCopy, IsInTheRightClickMenuToo) {
    Play(
        "@ select sub\n"
        "@ right-click\n"  // the first popup of a run has no buttons of ours
        "@ quit\n"
        "@ right-click\n"
        "@ choose 复制模型名称(vx)\n"
        "@ expect clipboard SUB");
}

// --- Not exactly one ---

TEST_F(NameCopy, WithTwoSelectedIsANoticeAndNoPick) {
    Play("@ select 箱体, sub\n~ Command `VxMdlNameCopy`\n@ ok");
    EXPECT_EQ(Boxes(), Names{kOneOnly});
    EXPECT_EQ(AllBoxes()[0].flags, 0x40000u);
    EXPECT_EQ(Clipboard(), "none");
    EXPECT_EQ(Message(), message_);
}

TEST_F(NameCopy, WithAnEmptySelectionThatCanBeReadIsTheSameNotice) {
    Play("@ selection empty\n~ Command `VxMdlNameCopy`\n@ ok");
    EXPECT_EQ(Boxes(), Names{kOneOnly});
    EXPECT_EQ(Message(), message_);
}

TEST_F(NameCopy, EndsSilentlyWhereNothingIsPicked) {
    Play("~ Command `VxMdlNameCopy`\n@ quit\n~ Command `VxMdlNameCopy`\n@ pick nothing");
    ExpectSilence();
}

// --- What fails ---

TEST_F(NameCopy, EndsSilentlyAfterAPickThatTheHostRefusesAfterAll) {
    Operation::Fail({.operation = "ProSelect", .afterWork = true});
    Play("~ Command `VxMdlNameCopy`\n@ pick sub");
    ExpectSilence();
}

TEST_F(NameCopy, EndsSilentlyWithoutAModel) {
    Play("@ select 箱体");
    for (const char* operation :
         {"ProMdlCurrentGet", "ProSelectionAsmcomppathGet", "ProAsmcomppathMdlGet"}) {
        Fail(operation);
        Press("VxMdlNameCopy");
        ExpectSilence();
    }
}

TEST_F(NameCopy, EndsSilentlyWhereAnotherProgramHoldsTheClipboard) {
    Play(
        "@ select 箱体\n"
        "~ Command `VxMdlNameCopy`\n"
        "@ hold clipboard\n"
        "@ select sub");
    Record();
    Press("VxMdlNameCopy");
    EXPECT_EQ(OfTheAction().back(), "OpenClipboard");
    EXPECT_EQ(Boxes(), Names{});
    Play("@ let go clipboard\n@ expect clipboard 箱体\n~ Command `VxMdlNameCopy`");
    EXPECT_EQ(Clipboard(), "SUB");
}

// The clipboard was emptied by then, but it is closed again, and the memory freed.
TEST_F(NameCopy, EndsSilentlyWithoutMemory) {
    Play("@ select 箱体");
    for (const char* operation : {"GlobalAlloc", "GlobalLock"}) {
        Fail(operation);
        Record();
        Press("VxMdlNameCopy");
        const Names calls = Recorded();
        EXPECT_EQ(calls.back(), "CloseClipboard") << operation;
        ExpectSilence();
        EXPECT_EQ(TheWindows().OpenHandles(), Names{}) << operation;
    }
}

TEST_F(NameCopy, IsSaidToBeThereEvenWhereTheClipboardDoesNotTakeIt) {
    Play("@ select 箱体");
    Fail("SetClipboardData");
    Press("VxMdlNameCopy");
    EXPECT_TRUE(SaysCopied());
    EXPECT_EQ(Clipboard(), "none");
    EXPECT_EQ(TheWindows().OpenHandles(), Names{});
}

TEST_F(NameCopy, IsHandedOverAsUnicodeInMemoryOfItsSize) {
    Play("@ select 箱体");
    Record();
    Press("VxMdlNameCopy");
    Recorded();
    EXPECT_EQ(Lines("GlobalAlloc")[0].find("GlobalAlloc(flags=8192, bytes=6) = "), 0u);
    EXPECT_EQ(Lines("SetClipboardData")[0].find("SetClipboardData(format=13, text=\"箱体\") = "),
              0u);
    EXPECT_EQ(Lines("OpenClipboard"), Names{"OpenClipboard(owner=null) = 1"});
}

}  // namespace
