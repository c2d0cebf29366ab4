// What the plug-in tells about itself: AboutVx, VxQQGroup, VxVersion, VxVipAbout.
#include "simhost/system/windows.h"
#include "tests/support/observed.h"

namespace {

using namespace simhost;
using workbench::Names;
using workbench::ObservedBench;

constexpr const char* kAgreement =
    "使用本插件表示同意以下条款：\n使用前应充分了解该插件所有功能并进行备份数据测试，"
    "本插件不承担任何使用过程中造成的数据丢失或其他损失;。";

class Information : public ObservedBench {
protected:
    void SetUp() override { Start(); }
};

// --- AboutVx ---

TEST_F(Information, AboutShowsTheTermsOfUseWhenItIsLeftByItsButton) {
    Play(
        "~ Command `AboutVx`\n"
        "@ expect dialog AboutVx\n"
        "@ expect no box\n"
        "~ Activate `AboutVx` `OK`\n"
        "@ ok\n"
        "@ expect dialog none");
    const std::vector<Box> boxes = AllBoxes();
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(Utf8(boxes[0].text), kAgreement);
    EXPECT_EQ(Utf8(boxes[0].caption),
              "岚枢工具By墨川听雨,QQ:100200300  岚枢QQ②群:100200301，①群:10020030");
    EXPECT_EQ(boxes[0].flags, 0x40000u);
}

TEST_F(Information, AboutIsToldToEndBeforeTheTermsComeUpAndIsDestroyedAfterwards) {
    Record();
    Play("~ Command `AboutVx`\n~ Activate `AboutVx` `OK`\n@ ok");
    EXPECT_EQ(Recorded(),
              (Names{"ProUIDialogCreate", "ProUIPushbuttonActivateActionSet", "ProUIDialogActivate",
                     "ProUIDialogExit", "MessageBoxW", "ProUIDialogDestroy"}));
    EXPECT_EQ(Lines("ProUIDialogCreate"),
              Names{R"(ProUIDialogCreate(dialog="AboutVx", resource="AboutVx") = 0)"});
    EXPECT_EQ(Lines("ProUIDialogExit"),
              Names{R"(ProUIDialogExit(dialog="AboutVx", status=1) = 0)"});
    EXPECT_EQ(Lines("ProUIDialogActivate"),
              Names{R"(ProUIDialogActivate(dialog="AboutVx", status=1) = 0)"});
}

TEST_F(Information, AboutStaysOpenWhenItsWindowIsClosed) {
    Play(
        "~ Command `AboutVx`\n"
        "~ Close `AboutVx`\n"
        "@ expect no box\n"
        "@ expect dialog AboutVx\n"
        "~ Activate `AboutVx` `OK`\n"
        "@ ok");
    EXPECT_EQ(Boxes(), Names{kAgreement});
}

TEST_F(Information, AboutShowsTheTermsEvenWhereTheDialogCannotBeEnded) {
    Fail("ProUIDialogExit");
    Play(
        "~ Command `AboutVx`\n"
        "~ Activate `AboutVx` `OK`\n"
        "@ ok\n"
        "@ expect dialog AboutVx\n"
        "~ Activate `AboutVx` `OK`\n"
        "@ ok\n"
        "@ expect dialog none");
    EXPECT_EQ(Boxes(), (Names{kAgreement, kAgreement}));
}

// --- VxQQGroup ---

TEST_F(Information, TheGroupsAreLeftByTheButtonOrByTheWindow) {
    Record();
    Play("~ Command `VxQQGroup`\n~ Activate `VxQQGroup` `OK`\n@ expect dialog none");
    EXPECT_EQ(Recorded(), (Names{"ProUIDialogCreate", "ProUIPushbuttonActivateActionSet",
                                 "ProUIDialogCloseActionSet", "ProUIDialogActivate",
                                 "ProUIDialogExit", "ProUIDialogDestroy"}));
    EXPECT_EQ(Lines("ProUIDialogActivate"),
              Names{R"(ProUIDialogActivate(dialog="VxQQGroup", status=1) = 0)"});
    Record();
    Play("~ Command `VxQQGroup`\n~ Close `VxQQGroup`\n@ expect dialog none");
    EXPECT_EQ(Recorded().size(), 6u);
    EXPECT_EQ(Lines("ProUIDialogActivate"),
              Names{R"(ProUIDialogActivate(dialog="VxQQGroup", status=0) = 0)"});
    EXPECT_EQ(Boxes(), Names{});
}

TEST_F(Information, DialogsThatCannotBeShownSaySo) {
    for (const char* command : {"AboutVx", "VxQQGroup"}) {
        for (const auto& [operation, step] :
             {std::pair{"ProUIDialogCreate", "Create"}, {"ProUIDialogActivate", "Activate"}}) {
            Fail(operation);
            Play(std::string("~ Command `") + command + "`\n@ expect box \"UIDialog " + step +
                 " error!\"\n@ expect caption none\n@ ok");
            if (Dialog* left = host().dialogs.Find(command)) host().dialogs.Destroy(*left);
        }
    }
}

// --- VxVersion ---

TEST_F(Information, TheVersionIsANoticeOfThreeLines) {
    Play("~ Command `VxVersion`\n@ ok");
    const std::vector<Box> boxes = AllBoxes();
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(Utf8(boxes[0].text),
              "当前版本：5.1\n开发者：墨川听雨，QQ：100200300\n"
              "岚枢QQ②群:100200301，①群:10020030");
    EXPECT_EQ(Utf8(boxes[0].caption), "岚枢工具By墨川听雨,QQ:100200300");
    EXPECT_EQ(boxes[0].flags, 0x40000u);
}

// --- VxVipAbout ---

TEST_F(Information, ThePageForSupportersOpensByTheSystemsOwnShell) {
    Record();
    Press("VxVipAbout");
    EXPECT_EQ(Recorded(), (Names{"GetSystemDirectoryW", "WideCharToMultiByte", "WinExec"}));
    WideChar folder[MAX_PATH] = {};
    GetSystemDirectoryW(folder, MAX_PATH);
    ASSERT_EQ(TheWindows().programs.size(), 1u);
    EXPECT_EQ(Utf8(TheWindows().programs.front()),
              '"' + Utf8(folder) + R"(\cmd.exe" /c start https://vorlatix.example/?Vip/)");
    EXPECT_EQ(Boxes(), Names{});
}

TEST_F(Information, ABrowserThatDoesNotStartIsNotToldOf) {
    Fail("WinExec");
    Press("VxVipAbout");
    EXPECT_EQ(TheWindows().programs, std::vector<WideText>{});
}

// --- All of them ---

TEST_F(Information, IsThereWithoutAModel) {
    for (const char* command : {"AboutVx", "VxQQGroup", "VxVersion", "VxVipAbout"}) {
        EXPECT_EQ(host().commands.Access(command), ACCESS_AVAILABLE) << command;
    }
}

}  // namespace
