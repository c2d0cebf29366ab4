// The three kinds of boxes, down to the code of each character: digits and marks in the caption and
// in the tail of a completion look alike but are not.
#include "frame/services/messages.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using workbench::Workbench;

class Messages : public Workbench {
protected:
    Box BoxOf(const std::function<void()>& show) {
        PlayDuring(show, "@ ok");
        return AllBoxes().empty() ? Box{} : AllBoxes().back();
    }
};

// 岚枢工具By墨川听雨 with a plain comma before QQ and a plain colon.
const WideText kCaption = WIDE("\u5C9A\u67A2\u5DE5\u5177By\u58A8\u5DDD\u542C\u96E8,QQ:100200300");
// 岚枢QQ②群 and ①群, plain colons, a full-width comma between them, eight and nine digits, a tab.
const WideText kTail = WIDE("|\u5C9A\u67A2QQ\u2461\u7FA4:100200301\uFF0C\u2460\u7FA4:10020030\t");

TEST_F(Messages, HaveTheirLiteralsCharacterByCharacter) {
    EXPECT_EQ(CaptionText, kCaption);
    EXPECT_EQ(CompletionSuffix, kTail);
}

TEST_F(Messages, ANoticeHasOurCaptionStandsAboveAllAndIsShownAsItIs) {
    const Box box = BoxOf([] { ShowNotice(WIDE("\t请先选择需要独立显示的模型\t")); });
    EXPECT_EQ(box.text, WIDE("\t请先选择需要独立显示的模型\t"));
    EXPECT_TRUE(box.hasCaption);
    EXPECT_EQ(box.caption, kCaption);
    EXPECT_EQ(box.flags, 0x40000u);
}

TEST_F(Messages, ANoticeAddsNoTabs) {
    EXPECT_EQ(BoxOf([] { ShowNotice(WIDE("text")); }).text, WIDE("text"));
}

TEST_F(Messages, ACompletionHasItsTailAndIsOtherwiseANotice) {
    const Box box = BoxOf([] { ShowCompletion(WIDE("\t材料设置完成")); });
    EXPECT_EQ(box.text, WIDE("\t材料设置完成") + kTail);
    EXPECT_EQ(box.caption, kCaption);
    EXPECT_EQ(box.flags, 0x40000u);
    EXPECT_EQ(box.text.back(), WideChar{'\t'});
}

TEST_F(Messages, APlainErrorHasTheSystemsCaptionAndNoFlags) {
    const Box box = BoxOf([] { ShowPlainError(WIDE("ProArray Alloc error")); });
    EXPECT_EQ(box.text, WIDE("ProArray Alloc error"));
    EXPECT_FALSE(box.hasCaption);
    EXPECT_EQ(box.flags, 0u);
}

TEST_F(Messages, AreShownByOneCallWithoutAnOwner) {
    PlayDuring(
        [this] {
            host().journal.Start();
            ShowPlainError(WIDE("text"));
            host().journal.Stop();
        },
        "@ ok");
    EXPECT_EQ(Calls(),
              std::vector<std::string>{R"(MessageBoxW(text="text", caption=null, flags=0) = 1)"});
}

TEST_F(Messages, ComeFromTheirOwnFile) {
    EXPECT_EQ(WideView(kMessageFile), WIDE("vxmsg_display.txt"));
}

}  // namespace
