// Message files, the message line and its prompt, and the two forms of text.
#include <algorithm>
#include <cstring>
#include <string>

#include "hostapi/host.h"
#include "tests/support/workbench.h"

using namespace simhost;

namespace {

constexpr const char* kMark = "\xef\xbb\xbf";

class AnsweringUser : public User {
public:
    std::optional<WideText> answer;
    WideText prompt, byDefault;
    int AnswerBox(const Box&) override { return 1; }
    void UseDialog(Dialog&) override {}
    std::optional<WideText> AnswerPrompt(const WideText& text, const WideText& known) override {
        prompt = text;
        byDefault = known;
        return answer;
    }
};

class MessagesOfTheHost : public workbench::Workbench {
protected:
    ~MessagesOfTheHost() override { host().user = nullptr; }
    void File(const std::string& bytes) {
        Write(workbench::kTextFolder + WIDE("\\text\\m.txt"), bytes);
    }
    static WideChar* Name() { return const_cast<WideChar*>(WIDE("m.txt")); }
    template <class... Arguments>
    WideText Text(const char* key, Arguments... arguments) {
        ProLine line = WIDE("before");
        status_ = ProMessageToBuffer(line, Name(), const_cast<char*>(key), arguments...);
        return line;
    }
    template <class... Arguments>
    ProError Display(const char* key, Arguments... arguments) {
        return ProMessageDisplay(Name(), const_cast<char*>(key), arguments...);
    }
    ProError status_ = PRO_TK_NO_ERROR;
};

TEST_F(MessagesOfTheHost, TheTranslationIsShown) {
    File(std::string(kMark) + "Hello\nHello!\n你好\n#\n");
    EXPECT_EQ(Text("Hello"), WIDE("你好"));
    EXPECT_EQ(status_, PRO_TK_NO_ERROR);
}

TEST_F(MessagesOfTheHost, WithoutATranslationTheOriginalIsShown) {
    File(std::string(kMark) + "A\nOriginal\n\n#\nB\nOther\n#\n#\n");
    EXPECT_EQ(Text("A"), WIDE("Original"));
    EXPECT_EQ(Text("B"), WIDE("Other"));
}

TEST_F(MessagesOfTheHost, AFileWithoutAByteOrderMarkIsInTheSystemCodePage) {
    File("Hello\r\nHello!\r\n\xc4\xe3\xba\xc3\r\n#\r\n");  // 你好 in code page 936
    EXPECT_EQ(Text("Hello"), WIDE("你好"));
}

TEST_F(MessagesOfTheHost, TheLastMessageNeedsNoLineEnd) {
    File(std::string(kMark) + "Hello\nHello!\n你好\n#");
    EXPECT_EQ(Text("Hello"), WIDE("你好"));
    EXPECT_TRUE(Complaints().empty());
}

TEST_F(MessagesOfTheHost, AnUnknownKeyOrFileIsNotFoundAndLeavesTheBuffer) {
    File(std::string(kMark) + "Hello\nHello!\n\n#\n");
    EXPECT_EQ(Text("hello"), WIDE("before"));  // keys are compared with their case
    EXPECT_EQ(status_, PRO_TK_MSG_NOT_FOUND);
    ProLine line = WIDE("before");
    EXPECT_EQ(ProMessageToBuffer(line, const_cast<WideChar*>(WIDE("none.txt")),
                                 const_cast<char*>("Hello")),
              PRO_TK_MSG_NOT_FOUND);
    EXPECT_EQ(WideText(line), WIDE("before"));
}

TEST_F(MessagesOfTheHost, AFileWhoseFourthLineIsNoEndMarkIsComplainedAboutWithItsLine) {
    File(std::string(kMark) + "A\nA!\n\n#\nB\nB!\n乙\nC\nC!\n\n#\n");
    EXPECT_EQ(Text("A"), WIDE("A!"));
    const auto complaints = Complaints();
    ASSERT_EQ(complaints.size(), 1u);
    EXPECT_NE(complaints[0].find("m.txt:5:"), std::string::npos);
    EXPECT_EQ(Text("A"), WIDE("A!"));
    EXPECT_TRUE(Complaints().empty());  // once is enough
}

TEST_F(MessagesOfTheHost, AFileThatHasChangedIsReadAgain) {
    File(std::string(kMark) + "A\nold\n\n#\n");
    EXPECT_EQ(Text("A"), WIDE("old"));
    File(std::string(kMark) + "A\nnewer\n\n#\n");
    EXPECT_EQ(Text("A"), WIDE("newer"));
}

TEST_F(MessagesOfTheHost, ArgumentsOfEachKindArePutIn) {
    File(std::string(kMark) + "A\n%0w|%1s|%2d|%3f|%4(8.2)f\n\n#\n");
    EXPECT_EQ(Text("A", WIDE("箱体"), "\xcf\xe4", -7, 0.5, 3.14159),
              WIDE("箱体|箱|-7|0.500000|    3.14"));
}

TEST_F(MessagesOfTheHost, ATranslationMayUseTheArgumentsInAnotherOrderAndTwice) {
    File(std::string(kMark) + "A\n%0w of %1d\n%1d之%0w之%1d\n#\n");
    EXPECT_EQ(Text("A", WIDE("x"), 9), WIDE("9之x之9"));
}

TEST_F(MessagesOfTheHost, APercentThatIsNoArgumentStays) {
    File(std::string(kMark) + "A\n100 % %w %0q %\n\n#\n");
    EXPECT_EQ(Text("A"), WIDE("100 % %w %0q %"));
}

TEST_F(MessagesOfTheHost, ATextThatLeavesAnArgumentOutIsAFormatError) {
    File(std::string(kMark) + "A\n%1d\n\n#\n");
    EXPECT_EQ(Text("A", 1, 2), WIDE("before"));
    EXPECT_EQ(status_, PRO_TK_MSG_FMT_ERROR);
}

TEST_F(MessagesOfTheHost, ATextIsCutToALine) {
    File(std::string(kMark) + "A\n%0w\n\n#\n");
    struct {
        ProLine line;
        WideChar behind = 0x7777;
    } buffer;
    const WideText text(200, WIDE('x'));
    EXPECT_EQ(ProMessageToBuffer(buffer.line, Name(), const_cast<char*>("A"), text.c_str()),
              PRO_TK_NO_ERROR);
    EXPECT_EQ(WideText(buffer.line), WideText(PRO_LINE_SIZE - 1, WIDE('x')));
    EXPECT_EQ(buffer.behind, 0x7777);
}

TEST_F(MessagesOfTheHost, AMessageIsShownOnTheLine) {
    File(std::string(kMark) + "A\ndone\n\n#\n");
    EXPECT_EQ(Display("A"), PRO_TK_NO_ERROR);
    EXPECT_EQ(host().messages.last(), WIDE("done"));
    ASSERT_EQ(host().shown.size(), 1u);
    EXPECT_EQ(host().shown[0].kind, Shown::Kind::Message);
    EXPECT_EQ(Display("B"), PRO_TK_MSG_NOT_FOUND);
    EXPECT_EQ(host().shown.size(), 1u);
}

TEST_F(MessagesOfTheHost, APromptAndItsDefaultAreSeparatedByBars) {
    File(std::string(kMark) + "A\nName:|||%0w\n\n#\n");
    AnsweringUser user;
    user.answer = WIDE("");
    host().user = &user;
    Display("A", WIDE("OLD"));
    EXPECT_EQ(host().messages.last(), WIDE("Name:"));
    WideChar text[32];
    EXPECT_EQ(ProMessageStringRead(32, text), PRO_TK_NO_ERROR);
    EXPECT_EQ(user.prompt, WIDE("Name:"));
    EXPECT_EQ(user.byDefault, WIDE("OLD"));
    EXPECT_EQ(WideText(text), WIDE("OLD"));  // an empty answer takes the default
    user.answer = WIDE("NEW");
    EXPECT_EQ(ProMessageStringRead(32, text), PRO_TK_NO_ERROR);
    EXPECT_EQ(WideText(text), WIDE("NEW"));
    EXPECT_EQ(host().shown.back().kind, Shown::Kind::Prompt);
}

TEST_F(MessagesOfTheHost, TheNextMessageWithoutADefaultForgetsTheOldOne) {
    File(std::string(kMark) + "A\nName:|||OLD\n\n#\nB\nScale:\n\n#\n");
    AnsweringUser user;
    user.answer = WIDE("");
    host().user = &user;
    Display("A");
    Display("B");
    WideChar text[32];
    EXPECT_EQ(ProMessageStringRead(32, text), PRO_TK_NO_ERROR);
    EXPECT_EQ(WideText(text), WIDE(""));
}

TEST_F(MessagesOfTheHost, AnAnswerIsCutToItsSizeWithATerminatorBehindItAndTheUserIsTold) {
    AnsweringUser user;
    user.answer = WIDE("12345678");
    host().user = &user;
    WideChar text[7] = {0, 0, 0, 0, 0, 0x7777, 0x7777};
    EXPECT_EQ(ProMessageStringRead(5, text), PRO_TK_NO_ERROR);
    EXPECT_EQ(WideText(text), WIDE("12345"));
    EXPECT_EQ(text[5], 0);
    EXPECT_EQ(text[6], 0x7777);
    EXPECT_EQ(host().shown.back().text, WIDE("the answer is cut to 5 characters: 12345"));
    user.answer = WIDE("abcde");
    const std::size_t shown = host().shown.size();
    EXPECT_EQ(ProMessageStringRead(5, text), PRO_TK_NO_ERROR);
    EXPECT_EQ(WideText(text), WIDE("abcde"));
    EXPECT_EQ(host().shown.size(), shown + 1);  // the prompt alone
    EXPECT_EQ(ProMessageStringRead(0, text), PRO_TK_BAD_INPUTS);
}

// A command that asks until the user leaves would never end.
TEST_F(MessagesOfTheHost, APromptThatFailsForGoodIsLeftByTheUserAfterSomeFailures) {
    Fail("ProMessageStringRead", {.forGood = true});
    WideChar text[33] = {};
    std::vector<int> statuses;
    for (int i = 0; i < 7; ++i) statuses.push_back(ProMessageStringRead(32, text));
    EXPECT_EQ(statuses, (std::vector<int>{-1, -1, -1, -1, -1, -31, -31}));
}

TEST_F(MessagesOfTheHost, LeavingThePromptIsAStatusOfItsOwn) {
    AnsweringUser user;
    host().user = &user;
    WideChar text[32] = WIDE("before");
    EXPECT_EQ(ProMessageStringRead(32, text), PRO_TK_MSG_USER_QUIT);
    EXPECT_EQ(WideText(text), WIDE("before"));
    EXPECT_TRUE(Complaints().empty());
}

TEST_F(MessagesOfTheHost, APromptThatNobodyAnswersIsComplainedAbout) {
    WideChar text[32];
    EXPECT_EQ(ProMessageStringRead(32, text), PRO_TK_MSG_USER_QUIT);
    EXPECT_EQ(Complaints().size(), 1u);
}

TEST_F(MessagesOfTheHost, TextIsWidenedAndNarrowedWithTheSystemCodePage) {
    WideChar wide[16];
    char chinese[] = "VX\xcf\xe4\xcc\xe5";  // 箱体 in code page 936
    EXPECT_EQ(ProStringToWstring(wide, chinese), wide);
    EXPECT_EQ(WideText(wide), WIDE("VX箱体"));
    char narrow[16];
    EXPECT_EQ(ProWstringToString(narrow, wide), narrow);
    EXPECT_STREQ(narrow, chinese);
}

TEST_F(MessagesOfTheHost, AMissingBufferIsComplainedAbout) {
    char text[] = "x";
    EXPECT_EQ(ProStringToWstring(nullptr, text), nullptr);
    EXPECT_EQ(ProMessageToBuffer(nullptr, Name(), text), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints().size(), 2u);
}

}  // namespace
