// The guards around everything that the host or Windows calls: whatever is thrown, nothing leaves.
#include <new>
#include <stdexcept>

#include "frame/services/guard.h"
#include "tests/support/workbench.h"

namespace {

using workbench::Workbench;
using Lines = std::vector<std::string>;

void RunsOutOfMemory() {
    throw std::bad_alloc();
}
void ThrowsANumber() {
    throw 7;
}
void ThrowsAnError() {
    throw std::runtime_error("a reason");
}
ProError VisitThatThrows(ProAppData) {
    throw std::bad_alloc();
}
int NumberThatThrows() {
    throw 7;
}
uiCmdAccessState RuleThatThrows(uiCmdAccessMode) {
    throw std::bad_alloc();
}
ProError VisitThatAnswers(ProAppData data) {
    return data ? PRO_TK_CONTINUE : PRO_TK_NO_ERROR;
}
int timesRun = 0;
void Runs() {
    ++timesRun;
}

const Lines kOneBox = {"操作未能完成：内存不足"};

class Guards : public Workbench {};

TEST_F(Guards, AreAsSilentAsWhatTheyGuard) {
    timesRun = 0;
    Guarded<Runs>();
    EXPECT_EQ(Command<Runs>(nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(timesRun, 2);
    EXPECT_EQ(Guarded<VisitThatAnswers>(nullptr), PRO_TK_NO_ERROR);
    EXPECT_EQ(Guarded<VisitThatAnswers>(&timesRun), PRO_TK_CONTINUE);
    EXPECT_EQ(Boxes(), Lines{});
}

TEST_F(Guards, TellTheUserOnceWhateverACommandThrows) {
    for (const uiCmdCmdActFn action :
         {&Command<RunsOutOfMemory>, &Command<ThrowsANumber>, &Command<ThrowsAnError>}) {
        host().shown.clear();
        PlayDuring([&] { EXPECT_EQ(action(nullptr, nullptr, nullptr), 0); }, "@ ok");
        EXPECT_EQ(Boxes(), kOneBox);
    }
}

TEST_F(Guards, TellTheUserWhenACallbackWithoutAResultThrows) {
    PlayDuring([] { Guarded<RunsOutOfMemory>(); }, "@ expect caption none\n@ ok");
    EXPECT_EQ(Boxes(), kOneBox);
}

TEST_F(Guards, EndAVisitAndANumberWithAGeneralError) {
    EXPECT_EQ(Guarded<VisitThatThrows>(nullptr), PRO_TK_GENERAL_ERROR);
    EXPECT_EQ(Guarded<NumberThatThrows>(), -1);
}

TEST_F(Guards, TakeACommandFromTheMenuWhoseRuleThrows) {
    EXPECT_EQ(Guarded<RuleThatThrows>(0), ACCESS_INVISIBLE);
}

TEST_F(Guards, AreNoexceptAtTheDoor) {
    static_assert(noexcept(Guarded<RunsOutOfMemory>()));
    static_assert(noexcept(Guarded<VisitThatThrows>(nullptr)));
    static_assert(noexcept(Command<ThrowsANumber>(nullptr, nullptr, nullptr)));
}

}  // namespace
