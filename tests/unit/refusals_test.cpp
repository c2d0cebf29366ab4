// Hosts that refuse and fill the record all the same: "exists already" is the usual word for it.
// Operations are answered here in the simulated host's place: it does its work, and the caller is
// told another status.
#ifndef _WIN32
#include <dlfcn.h>
#include <map>

#include "modeldata/commands.h"
#include "tests/support/observed.h"

namespace {

// The status that an operation answers after doing its work.
std::map<std::string, int>& Answers() {
    static std::map<std::string, int> answers;
    return answers;
}

ProError Answered(const char* operation, ProError done) {
    const auto other = Answers().find(operation);
    return other == Answers().end() ? done : ProError(other->second);
}

template <class Function>
Function* Real(const char* operation) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, operation));
}

}  // namespace

#define ANSWER(operation, parameters, arguments)                        \
    HOST_API ProError operation parameters {                            \
        static const auto real = Real<decltype(operation)>(#operation); \
        return Answered(#operation, real arguments);                    \
    }
ANSWER(ProMdlToModelitem, (ProMdl model, ProModelitem* item), (model, item))
ANSWER(ProModelitemToRelset, (ProModelitem * item, ProRelset* set), (item, set))
ANSWER(ProRelsetPostregenerationInit, (ProMdl model, ProRelset* set), (model, set))
ANSWER(ProRelsetCreate, (ProModelitem * item, ProRelset* set), (item, set))
ANSWER(ProParameterInit, (ProModelitem * item, ProName name, ProParameter* parameter),
       (item, name, parameter))
ANSWER(ProParameterCreate,
       (ProModelitem * item, ProName name, ProParamvalue* value, ProParameter* parameter),
       (item, name, value, parameter))
#undef ANSWER

namespace {

using namespace simhost;
using workbench::Names;
using workbench::ObservedBench;
using Texts = std::vector<WideText>;

// TOP with the part A, which alone is written.
class RefusalsThatFill : public ObservedBench {
protected:
    RefusalsThatFill() {
        Use(top_, a_);
        Open(top_);
    }
    ~RefusalsThatFill() override { Answers().clear(); }

    // The lines that A has after this button, with x = 1 typed.
    Texts Written(const std::string& button, const std::string& set) {
        Record();
        PlayDuring([] { VxRelations(); },
                   "~ Input `Relations` `RelTxtarea` `x = 1`\n"
                   "~ Select `Relations` `TypeRadio` 1 `Part`\n"
                   "~ Select `Relations` `OptionRadio` 1 `" +
                       set + "`\n~ Activate `Relations` `" + button +
                       "`\n@ ok\n~ Activate `Relations` `Close`");
        calls_ = Recorded();
        return set == "init" ? a_.relations.initial.value_or(Texts{})
                             : a_.relations.afterRegeneration;
    }
    // Presses a button of VxParams for the text parameter P, whose new value is "new".
    void PressInParams(const std::string& button) {
        PlayDuring([] { VxParams(); },
                   "~ Select `VxParams` `TypeRadio` 1 `Part`\n~ Input `VxParams` `ParaName` `P`\n"
                   "~ Input `VxParams` `ParaValue` `new`\n"
                   "~ Select `VxParams` `PtypeOption` 1 `字符串`\n"
                   "~ Select `VxParams` `TypeRadio2` 1 `Part`\n"
                   "~ Input `VxParams` `outlinePname` `P`\n~ Activate `VxParams` `" +
                       button + "`\n" + (button == "VxOutline" ? "@ ok\n" : "") +
                       "~ Activate `VxParams` `Close`");
    }
    std::string ValueOfP() {
        const Parameter* found = a_.parameters.Find(WIDE("P"));
        return found ? ValueText(*found) : "none";
    }
    long CallsOf(const char* operation) const {
        return std::count(calls_.begin(), calls_.end(), operation);
    }

    Model& top_ = Assembly("top");
    Model& a_ = Part("a");
    Names calls_;
};

TEST_F(RefusalsThatFill, TheLinesGoToASetThatExistsAlready) {
    Answers()["ProRelsetCreate"] = PRO_TK_E_FOUND;
    EXPECT_EQ(Written("AddRels", "init"), Texts{WIDE("x = 1")});
}

TEST_F(RefusalsThatFill, ASetThatWasTakenWithARefusalIsWrittenThoughItsLinesAreNotRead) {
    a_.relations.initial = {WIDE("old = 1")};
    Answers()["ProModelitemToRelset"] = PRO_TK_E_FOUND;
    EXPECT_EQ(Written("AddRels", "init"), Texts{WIDE("x = 1")});
    EXPECT_EQ(CallsOf("ProRelsetCreate"), 1);
    EXPECT_EQ(CallsOf("ProRelsetRelationsGet"), 0);
}

TEST_F(RefusalsThatFill, CoveringLooksAtNoStatus) {
    a_.relations.initial = {WIDE("old = 1")};
    Answers()["ProModelitemToRelset"] = PRO_TK_E_FOUND;
    Answers()["ProMdlToModelitem"] = PRO_TK_E_FOUND;
    EXPECT_EQ(Written("CoverRels", "init"), Texts{WIDE("x = 1")});
    Answers()["ProRelsetPostregenerationInit"] = PRO_TK_E_FOUND;
    EXPECT_EQ(Written("CoverRels", "after"), Texts{WIDE("x = 1")});
}

TEST_F(RefusalsThatFill, AParameterThatIsNamedIsUpdatedAndDeleted) {
    a_.parameters.Set(TextParameter(WIDE("P"), WIDE("old")));
    Answers()["ProParameterInit"] = PRO_TK_E_FOUND;
    Answers()["ProMdlToModelitem"] = PRO_TK_E_FOUND;
    PressInParams("Update");
    EXPECT_EQ(ValueOfP(), "new");
    PressInParams("Delete");
    EXPECT_EQ(ValueOfP(), "none");
}

TEST_F(RefusalsThatFill, ATextParameterThatTheRefusedCreationNamesGetsItsValue) {
    Answers()["ProParameterCreate"] = PRO_TK_E_FOUND;
    Record();
    PressInParams("VxOutline");
    calls_ = Recorded();
    EXPECT_EQ(CallsOf("ProParameterValueSet"), 1);
    EXPECT_NE(ValueOfP(), "none");
}

TEST_F(RefusalsThatFill, ATextParameterThatWasFoundWithARefusalGetsItsValue) {
    a_.parameters.Set(TextParameter(WIDE("P"), WIDE("old")));
    Answers()["ProParameterInit"] = PRO_TK_E_FOUND;
    PressInParams("VxOutline");
    EXPECT_NE(ValueOfP(), "old");
}

TEST_F(RefusalsThatFill, AModelsNumberIsWrittenToAnItemThatWasGivenWithARefusal) {
    Answers()["ProMdlToModelitem"] = PRO_TK_E_FOUND;
    PlayDuring([] { VxMdlCount(); }, "@ expect box 批量数量参数创建/更新完毕\n@ ok");
    ASSERT_TRUE(a_.parameters.Find(WIDE("数量")));
    EXPECT_EQ(ValueText(*a_.parameters.Find(WIDE("数量"))), "1");
}

}  // namespace
#endif
