// Message boxes of a real Windows: what the hook reads from a box is what was asked for.
#include "simhost/host.h"
#include "simhost/system/windows.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using workbench::Workbench;

class RealBox : public Workbench {
protected:
    // The box as the user saw it; it was answered by the lines.
    Box Shown(const WideChar* text, const WideChar* caption, UINT flags,
              const std::string& lines = "@ ok") {
        PlayDuring([&] { answer_ = MessageBoxW(nullptr, text, caption, flags); }, lines);
        return AllBoxes().empty() ? Box{} : AllBoxes().back();
    }
    int answer_ = 0;
};

TEST_F(RealBox, HasItsTextAndCaption) {
    const Box box = Shown(L"设置完成\t\n第二行", L"岚枢工具By墨川听雨,QQ:100200300", MB_OK);
    EXPECT_EQ(Utf8(box.text), "设置完成\t\n第二行");
    EXPECT_EQ(Utf8(box.caption), "岚枢工具By墨川听雨,QQ:100200300");
    EXPECT_TRUE(box.hasCaption);
    EXPECT_EQ(box.flags, 0u);
    EXPECT_EQ(answer_, IDOK);
}

TEST_F(RealBox, StandsAboveAllOtherWindowsWhenAskedTo) {
    EXPECT_EQ(Shown(L"a", L"b", MB_TOPMOST).flags, UINT{MB_TOPMOST});
    EXPECT_EQ(Shown(L"a", L"b", MB_OK).flags, 0u);
}

TEST_F(RealBox, WithoutACaptionHasTheSystemsOwn) {
    EXPECT_FALSE(Shown(L"UIDialog Create error!", nullptr, MB_OK).hasCaption);
    EXPECT_TRUE(Shown(L"UIDialog Create error!", L"", MB_OK).hasCaption);
}

TEST_F(RealBox, HasItsIcon) {
    EXPECT_EQ(Shown(L"a", L"b", MB_ICONWARNING).flags, UINT{MB_ICONWARNING});
    EXPECT_EQ(Shown(L"a", L"b", MB_ICONERROR | MB_TOPMOST).flags, UINT{MB_ICONERROR | MB_TOPMOST});
}

TEST_F(RealBox, KeepsALongText) {
    const std::string text(20000, 'x');
    EXPECT_EQ(Shown(Wide(text).c_str(), L"b", MB_OK).text.size(), text.size());
}

TEST_F(RealBox, ThatNobodyAnswersIsAComplaint) {
    EXPECT_EQ(MessageBoxW(nullptr, L"a", L"b", MB_OK), IDOK);
    EXPECT_EQ(Complaints(), std::vector<std::string>{"a box is open and nobody answers it"});
}

}  // namespace
