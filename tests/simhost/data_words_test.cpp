// The @ words about parameters, relations and options, and the file dialog's answers.
#include <gtest/gtest.h>

#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/trail/interpreter.h"

namespace {

using namespace simhost;

class DataWords : public ::testing::Test {
protected:
    void SetUp() override {
        RestartHost();
        part_ = &TheHost().session.Create(WIDE("a"), PRO_MDL_PART);
    }
    static std::string Failures(const std::string& script) {
        std::string all;
        for (const std::string& failure : RunScript(script)) all += failure + '\n';
        return all;
    }
    Model* part_ = nullptr;
};

TEST_F(DataWords, ParametersAreSetAndExpectedByTheirValues) {
    EXPECT_EQ(Failures("@ parameter a.prt N 4\n@ expect parameter a.prt N 4\n"
                       "@ parameter a.prt L 12.5\n@ expect parameter a.prt L 12.5\n"
                       "@ parameter a.prt OK YES\n@ expect parameter a.prt OK YES\n"
                       "@ parameter a.prt 代号 \"none\"\n@ expect parameter a.prt 代号 \"none\"\n"
                       "@ expect parameter a.prt M none\n"),
              "");
    EXPECT_EQ(part_->parameters.Find(WIDE("N"))->type, PRO_PARAM_INTEGER);
    EXPECT_EQ(part_->parameters.Find(WIDE("L"))->type, PRO_PARAM_DOUBLE);
    EXPECT_EQ(part_->parameters.Find(WIDE("OK"))->type, PRO_PARAM_BOOLEAN);
}

TEST_F(DataWords, AWrongExpectationTellsWhatIsThere) {
    EXPECT_EQ(Failures("@ parameter a.prt N 4\n@ expect parameter a.prt N 5"),
              "line 2: N of a.prt is 4, not 5\n");
    EXPECT_EQ(Failures("@ parameter a.prt 材料 \"45\"\n@ expect parameter a.prt 材料 46"),
              "line 2: 材料 of a.prt is \"45\", not \"46\"\n");
    EXPECT_EQ(Failures("@ expect parameter a.prt N none"),
              "line 1: N of a.prt is 4, and should not be there\n");
    EXPECT_EQ(Failures("@ expect parameter a.prt M 5"), "line 1: a.prt has no parameter M\n");
    EXPECT_NE(Failures("@ expect parameter b.prt M 5"), "");
    EXPECT_NE(Failures("@ parameter a.prt 1N 5"), "");
    EXPECT_NE(Failures("@ parameter a.prt N five"), "");
}

TEST_F(DataWords, ALockedParameterCannotBeSetByHandEither) {
    part_->parameters.Set(WholeParameter(WIDE("N"), 1));
    part_->relations.initial = {WIDE("N = 1")};
    EXPECT_EQ(Failures("@ parameter a.prt N 4"),
              "line 1: N cannot be changed: a relation decides it\n");
}

TEST_F(DataWords, RelationsAreExpectedWithSlashesBetweenTheirLines) {
    EXPECT_EQ(Failures("@ expect relations a.prt none"), "");
    part_->relations.initial = {WIDE("x = 1"), WIDE("y = 2")};
    part_->relations.afterRegeneration = {WIDE("z = 3")};
    EXPECT_EQ(Failures("@ expect relations a.prt x = 1 / y = 2 / after: z = 3"), "");
    EXPECT_NE(Failures("@ expect relations a.prt x = 1"), "");
}

TEST_F(DataWords, AnOptionIsSetIgnoringTheCaseOfItsName) {
    EXPECT_EQ(Failures("@ option Pro_Format_Dir C:\\My Formats"), "");
    WideChar option[] = WIDE("pro_format_dir");
    ProPath* values = nullptr;
    ASSERT_EQ(ProConfigoptArrayGet(option, &values), PRO_TK_NO_ERROR);
    EXPECT_EQ(WideText(values[0]), WIDE("C:\\My Formats"));
    ProArray array = values;
    ProArrayFree(&array);
    EXPECT_EQ(Failures("@ option pro_format_dir none"), "");
    EXPECT_TRUE(TheHost().configOptions.empty());
    EXPECT_EQ(Failures("@ option pro_format_dir \"none\""), "");
    EXPECT_EQ(TheHost().configOptions[WIDE("pro_format_dir")], std::vector{WideText(WIDE("none"))});
}

TEST_F(DataWords, AnOptionThatTheHostDoesNotHaveFails) {
    EXPECT_EQ(Failures("@ option pro_frmat_dir C:\\My Formats"),
              "line 1: the host has no option pro_frmat_dir; did you mean pro_format_dir?\n");
    EXPECT_TRUE(TheHost().configOptions.empty());
}

}  // namespace
