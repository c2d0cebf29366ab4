// VxMdlCount: how often each model occurs, as its parameter 数量.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using workbench::Workbench;

class ModelCount : public Workbench {
protected:
    // TOP with A three times and, twice, S, which holds A once.
    void SetUp() override {
        Start();
        top_ = &Assembly("top");
        s_ = &Assembly("s");
        a_ = &Part("a");
        for (int i = 0; i < 3; ++i) Use(*top_, *a_);
        for (int i = 0; i < 2; ++i) Use(*top_, *s_);
        Use(*s_, *a_);
        Open(*top_);
    }

    void Count(const std::string& before = {}) {
        Play("~ Command `VxMdlCount`\n" + before +
             "@ expect box \"\\t批量数量参数创建/更新完毕。\\t\"\n@ expect caption 岚枢工具\n@ ok");
    }
    static std::string Failed(const std::string& names) {
        return "@ expect box \"以下模型“数量”参数创建/更新失败，请检查参数是否存在关系锁定等原因，"
               "需手动处理：\\n" +
               names + "\"\n@ ok\n";
    }
    std::string NumberOf(const Model& model) {
        const Parameter* found = model.parameters.Find(WIDE("数量"));
        return found ? ValueText(*found) : "none";
    }
    Model* MakeInstance(const std::string& name, Model& generic) {
        Model& model = Part(name);
        model.family.generic = &generic;
        model.family.genericFile = generic.FileName();
        return &model;
    }

    Model *top_, *s_, *a_;
};

TEST_F(ModelCount, CountsEachModelInTheWholeTree) {
    Count();
    EXPECT_EQ(NumberOf(*a_), "5");
    EXPECT_EQ(NumberOf(*s_), "2");
    EXPECT_EQ(NumberOf(*top_), "1");
    EXPECT_EQ(a_->parameters.Find(WIDE("数量"))->type, PRO_PARAM_INTEGER);
    EXPECT_EQ(top_->treeRefreshes, 1);
}

TEST_F(ModelCount, ASecondRunOverwritesTheOldNumbers) {
    Count();
    Use(*s_, *a_);
    Count();
    EXPECT_EQ(NumberOf(*a_), "7");
}

TEST_F(ModelCount, APartAndAnAssemblyOfOneNameAreCountedApart) {
    Model& assembly = Assembly("a");
    Use(*top_, assembly);
    Count();
    EXPECT_EQ(NumberOf(assembly), "1");
    EXPECT_EQ(NumberOf(*a_), "5");
}

TEST_F(ModelCount, AnAssemblyWithoutComponentsCountsItself) {
    Model& empty = Assembly("empty");
    Open(empty);
    Count();
    EXPECT_EQ(NumberOf(empty), "1");
}

TEST_F(ModelCount, AComponentWithoutItsModelIsLeftOut) {
    Use(*top_, *a_).model = nullptr;
    Count();
    EXPECT_EQ(NumberOf(*a_), "5");
}

TEST_F(ModelCount, AManufacturingModelCountsItsAssembly) {
    Model& mill = Manufacturing("mill", *top_);
    Open(mill);
    Count();
    EXPECT_EQ(NumberOf(*top_), "1");
    EXPECT_EQ(NumberOf(mill), "none");
}

TEST_F(ModelCount, NamesThatDifferInCaseOnlyAreOneModel) {
    // The host keeps capitals itself; a model whose name came in small letters is told it here.
    Model& twin = Part("other");
    twin.name = WIDE("a");
    Use(*top_, twin);
    Count();
    EXPECT_EQ(NumberOf(*a_), "6");
    EXPECT_EQ(NumberOf(twin), "none");
    twin.name = WIDE("OTHER");
}

TEST_F(ModelCount, ANameOfFullLengthIsNotMixedUpWithAnother) {
    const std::string name(30, 'N');
    Model& one = Part(name + "1");
    Model& two = Part(name + "2");
    Use(*top_, one);
    Use(*top_, two);
    Use(*top_, two);
    Count();
    EXPECT_EQ(NumberOf(one), "1");
    EXPECT_EQ(NumberOf(two), "2");
}

TEST_F(ModelCount, AModelWhoseNumberIsLockedIsNamedAndTheOthersGoOn) {
    a_->parameters.Set(WholeParameter(WIDE("数量"), 9));
    a_->relations.initial = {WIDE("数量 = 9")};
    s_->parameters.Set(TextParameter(WIDE("数量"), WIDE("two")));
    Count(Failed("A\\nS\\n"));
    EXPECT_EQ(NumberOf(*a_), "9");
    EXPECT_EQ(NumberOf(*s_), "two");
    EXPECT_EQ(NumberOf(*top_), "1");
}

TEST_F(ModelCount, AFailedCreationIsNamedToo) {
    Fail("ProParameterCreate");
    Count(Failed("TOP\\n"));
    EXPECT_EQ(NumberOf(*top_), "none");
    EXPECT_EQ(NumberOf(*a_), "5");
}

TEST_F(ModelCount, OutsideAssembliesItIsRefused) {
    Fail("ProMdlTypeGet");
    Play(
        "~ Command `VxMdlCount`\n@ expect box \"此功能仅组件/制造环境可用！\"\n"
        "@ expect caption none\n@ ok");
    EXPECT_EQ(NumberOf(*a_), "none");
}

// --- Family tables ---

TEST_F(ModelCount, InstancesGetTheirOwnNumbersThroughAColumnOfTheGeneric) {
    TextFolderSetting("VxCountForInstance", " TRUE ");
    Model& generic = Part("bolt");
    Model* m8 = MakeInstance("bolt_m8", generic);
    Model* m10 = MakeInstance("bolt_m10", generic);
    Use(*top_, *m8);
    Use(*top_, *m10);
    Use(*top_, *m10);
    Count();
    EXPECT_EQ(generic.family.columns, std::vector<WideText>{WIDE("数量")});
    EXPECT_EQ(NumberOf(generic), "0");
    EXPECT_EQ(NumberOf(*m8), "1");
    EXPECT_EQ(NumberOf(*m10), "2");
    Count();
    EXPECT_EQ(generic.family.columns.size(), 1u);
    EXPECT_EQ(NumberOf(*m10), "2");
}

TEST_F(ModelCount, AGenericUsedByItselfIsCountedAsAnyModel) {
    TextFolderSetting("VxCountForInstance", "true");
    Model& generic = Part("bolt");
    Model* m8 = MakeInstance("bolt_m8", generic);
    Use(*top_, generic);
    Use(*top_, generic);
    Use(*top_, *m8);
    Count();
    EXPECT_EQ(NumberOf(generic), "2");
    EXPECT_EQ(NumberOf(*m8), "1");
}

TEST_F(ModelCount, WithoutTheSettingInstancesArePassedOverSilently) {
    TextFolderSetting("VxCountForInstance", "false");
    Model& generic = Part("bolt");
    Model* m8 = MakeInstance("bolt_m8", generic);
    Use(*top_, *m8);
    Count();
    EXPECT_EQ(NumberOf(*m8), "none");
    EXPECT_EQ(NumberOf(generic), "none");
    EXPECT_EQ(NumberOf(*a_), "5");
}

TEST_F(ModelCount, TheInstancesOfAReleasedGenericArePassedOverSilently) {
    TextFolderSetting("VxCountForInstance", "true");
    Model& generic = Part("bolt");
    generic.readOnly = true;
    Model* m8 = MakeInstance("bolt_m8", generic);
    Use(*top_, *m8);
    Count();
    EXPECT_EQ(NumberOf(*m8), "none");
}

TEST_F(ModelCount, AFamilyTableThatCannotBeHadLeavesTheParameterAColumnToBe) {
    TextFolderSetting("VxCountForInstance", "true");
    Model& generic = Part("bolt");
    Use(*top_, *MakeInstance("bolt_m8", generic));
    Fail("ProFamtableInit", {.forGood = true});
    host().journal.Start();
    Count(Failed("BOLT_M8\\n"));
    host().journal.Stop();
    const auto calls = host().journal.Names();
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "ProParameterToFamtableItem"), 1);
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "ProFamtableItemAdd"), 0);
    EXPECT_EQ(NumberOf(generic), "0");
}

TEST_F(ModelCount, WithoutAnItemOfTheGenericItsFamilyTableIsStillAskedFor) {
    TextFolderSetting("VxCountForInstance", "true");
    Model& generic = Part("bolt");
    Use(*top_, *MakeInstance("bolt_m8", generic));
    Fail("ProMdlToModelitem", {.forGood = true});
    host().journal.Start();
    Count(Failed("TOP\\nA\\nS\\nBOLT_M8\\n"));
    host().journal.Stop();
    const auto calls = host().journal.Names();
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "ProFamtableInit"), 1);
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "ProParameterToFamtableItem"), 0);
}

TEST_F(ModelCount, WithoutAColumnTheInstanceCannotHaveItsNumberAndIsNamed) {
    TextFolderSetting("VxCountForInstance", "true");
    Model& generic = Part("bolt");
    Model* m8 = MakeInstance("bolt_m8", generic);
    Use(*top_, *m8);
    Fail("ProFamtableItemAdd", {.forGood = true});
    Count(Failed("BOLT_M8\\n"));
    EXPECT_EQ(NumberOf(*m8), "none");
}

TEST_F(ModelCount, OnlyTheWordTrueSwitchesInstancesOn) {
    Model& generic = Part("bolt");
    Model* m8 = MakeInstance("bolt_m8", generic);
    Use(*top_, *m8);
    for (const char* value : {"1", "yes", "trues", ""}) {
        TextFolderSetting("VxCountForInstance", value);
        Count();
        EXPECT_EQ(NumberOf(*m8), "none") << value;
    }
    TextFolderSetting("VxCountForInstance", "tRuE");
    Count();
    EXPECT_EQ(NumberOf(*m8), "1");
}

TEST_F(ModelCount, OnlyAStatusOfSuccessMakesAnInstance) {
    // Whatever else the host says of a generic, the model gets its number.
    for (const int status : {-1, -2, -4, -5}) {
        Operation::ForgetFaults();
        Fail("ProFaminstanceGenericGet", {.forGood = true, .status = status});
        a_->parameters = {};
        Count();
        EXPECT_EQ(NumberOf(*a_), "5") << status;
    }
}

TEST_F(ModelCount, WithoutAnArrayForTheWalkTheTopHasItsNumberAllTheSame) {
    Fail("ProArrayAlloc", {.forGood = true, .status = PRO_TK_OUT_OF_MEMORY});
    Count();
    EXPECT_EQ(NumberOf(*top_), "1");
    EXPECT_EQ(NumberOf(*a_), "none");
}

TEST_F(ModelCount, TheTreeIsShownAfreshBeforeTheBoxes) {
    Model& mill = Manufacturing("mill", *top_);
    Open(mill);
    Fail("ProParameterCreate");
    host().journal.Start();
    Count(Failed("TOP\\n"));
    std::vector<std::string> order;
    for (const std::string& name : host().journal.Names()) {
        for (const char* told : {"GetPrivateProfileStringW", "ProSolidFeatVisit",
                                 "ProParameterCreate", "ProTreetoolRefresh", "MessageBoxW"}) {
            if (name == told && (order.empty() || order.back() != name)) order.push_back(name);
        }
    }
    EXPECT_EQ(order, (std::vector<std::string>{"GetPrivateProfileStringW", "ProSolidFeatVisit",
                                               "ProParameterCreate", "ProTreetoolRefresh",
                                               "MessageBoxW"}));
    EXPECT_EQ(top_->treeRefreshes, 1);
    EXPECT_EQ(mill.treeRefreshes, 0);
}

TEST_F(ModelCount, AModelThatIsNoItemOrWhoseParameterCannotBeFoundAgainIsNamed) {
    Fail("ProMdlToModelitem");
    Count(Failed("TOP\\n"));
    EXPECT_EQ(NumberOf(*top_), "none");
    EXPECT_EQ(NumberOf(*a_), "5");
    // TOP gets its number now; A and S have theirs, and A's, the first, is not found.
    Fail("ProParameterInit");
    Count(Failed("A\\n"));
    EXPECT_EQ(NumberOf(*top_), "1");
}

TEST_F(ModelCount, TheImmediateGenericIsAskedForAndWhetherAllOfItCanBeChanged) {
    TextFolderSetting("VxCountForInstance", "true");
    Use(*top_, *MakeInstance("bolt_m8", Part("bolt")));
    host().journal.Start();
    Count();
    int generics = 0, questions = 0;
    for (const std::string& line : host().journal.lines()) {
        if (line.find("ProFaminstanceGenericGet(") == 0) {
            ++generics;
            EXPECT_NE(line.find("immediate=1"), std::string::npos) << line;
        }
        if (line.find("ProMdlIsModifiable(") == 0) {
            ++questions;
            EXPECT_NE(line.find("checkAll=1"), std::string::npos) << line;
        }
    }
    EXPECT_EQ(generics, 4);  // TOP, A, S and the instance
    EXPECT_EQ(questions, 1);
}

}  // namespace
