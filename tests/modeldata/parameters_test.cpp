// Add, Update and Delete of VxParams, and the settings that the dialog keeps.
#include <gtest/gtest.h>

#include <filesystem>

#include "simhost/trail/interpreter.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using workbench::kTextFolder;
using workbench::Workbench;

class BatchParameters : public Workbench {
protected:
    void SetUp() override {
        Start();
        top_ = &Assembly("top");
        a_ = &Part("a");
        bolt_ = &Part("bolt");
        Use(*top_, *a_);
        Use(*top_, *a_);
        Use(*top_, *bolt_);
        Open(*top_);
    }

    void Run(const std::string& steps) {
        Play("~ Command `VxParams`\n" + steps + "\n~ Activate `VxParams` `Close`");
    }
    static std::string Fill(const std::string& name, const std::string& value,
                            const std::string& type) {
        return "~ Input `VxParams` `ParaName` `" + name + "`\n~ Input `VxParams` `ParaValue` `" +
               value + "`\n~ Select `VxParams` `PtypeOption` 1 `" + type + "`\n";
    }
    static constexpr const char* kAdd = "~ Activate `VxParams` `Add`\n";
    static constexpr const char* kUpdate = "~ Activate `VxParams` `Update`\n";
    static constexpr const char* kDelete = "~ Activate `VxParams` `Delete`\n";

    std::string ValueOn(const Model& model, const std::string& name) {
        const Parameter* found = model.parameters.Find(Wide(name));
        return found ? std::string(ParameterTypeName(found->type)) + " " + ValueText(*found)
                     : "none";
    }
    void WriteIni(const std::string& text) {
        Write(kTextFolder + WIDE("\\VXconfig\\VxParams.ini"), ToSystemCodePage(Wide(text)));
    }
    std::string ReadIni() { return ReadSettings(kTextFolder + WIDE("\\VXconfig\\VxParams.ini")); }

    const std::string none_ = "@ expect box \"当前模型中没有合适的子零件/组件\"\n@ ok\n";
    Model *top_, *a_, *bolt_;
};

TEST_F(BatchParameters, AddMakesAParameterOfEachType) {
    Run(Fill("P_INT", "42mm", "整数") + kAdd + Fill("P_REAL", "2.5", "实数") + kAdd +
        Fill("P_TEXT", "二级减速箱", "字符串") + kAdd + Fill("P_BOOL", "yes", "是/否") + kAdd);
    for (const Model* model : {top_, a_, bolt_}) {
        EXPECT_EQ(ValueOn(*model, "P_INT"), "integer 42");
        EXPECT_EQ(ValueOn(*model, "P_REAL"), "real 2.5");
        EXPECT_EQ(ValueOn(*model, "P_TEXT"), "text 二级减速箱");
        EXPECT_EQ(ValueOn(*model, "P_BOOL"), "boolean YES");
    }
    EXPECT_EQ(Boxes(), std::vector<std::string>{});
    EXPECT_EQ(top_->treeRefreshes, 4);
}

TEST_F(BatchParameters, UnreadableNumbersAreZero) {
    Run(Fill("P_INT", "many", "整数") + kAdd + Fill("P_REAL", "", "实数") + kAdd);
    EXPECT_EQ(ValueOn(*a_, "P_INT"), "integer 0");
    EXPECT_EQ(ValueOn(*a_, "P_REAL"), "real 0");
}

TEST_F(BatchParameters, ABooleanTakesYesInAnyCaseButNoInCapitalsOnly) {
    const std::string refusal =
        "@ expect box \"布尔类型参数值只可为'YES'或'NO',请重新输入!\"\n"
        "@ expect caption none\n@ ok\n";
    Run(Fill("P", "no", "是/否") + kAdd + refusal + Fill("P", "No", "是/否") + kAdd + refusal +
        Fill("P", "1", "是/否") + kAdd + refusal);
    EXPECT_EQ(ValueOn(*a_, "P"), "none");
    Run(Fill("P1", "NO", "是/否") + kAdd + Fill("P2", "Yes", "是/否") + kAdd +
        Fill("P3", "", "是/否") + kAdd);
    EXPECT_EQ(ValueOn(*a_, "P1"), "boolean NO");
    EXPECT_EQ(ValueOn(*a_, "P2"), "boolean YES");
    EXPECT_EQ(ValueOn(*a_, "P3"), "boolean NO");
}

TEST_F(BatchParameters, ARefusedBooleanStillKeepsTheSettings) {
    Run("~ Input `VxParams` `InputKeyWords` `M8 M10`\n" + Fill("P", "no", "是/否") + kAdd +
        "@ expect box 布尔类型\n@ ok\n");
    EXPECT_NE(ReadIni().find("content=M8 M10"), std::string::npos);
}

TEST_F(BatchParameters, AddLeavesAParameterThatIsThere) {
    a_->parameters.Set(TextParameter(WIDE("p"), WIDE("old")));
    Run(Fill("P", "new", "字符串") + kAdd);
    EXPECT_EQ(ValueOn(*a_, "P"), "text old");
    EXPECT_EQ(ValueOn(*bolt_, "P"), "text new");
}

TEST_F(BatchParameters, UpdateChangesWhatIsThereAndMakesNothing) {
    a_->parameters.Set(TextParameter(WIDE("P"), WIDE("old")));
    Run(Fill("P", "new", "字符串") + kUpdate);
    EXPECT_EQ(ValueOn(*a_, "P"), "text new");
    EXPECT_EQ(ValueOn(*bolt_, "P"), "none");
    EXPECT_EQ(ValueOn(*top_, "P"), "none");
}

TEST_F(BatchParameters, UpdateOfABooleanIsAlwaysYes) {
    a_->parameters.Set(FlagParameter(WIDE("P"), false));
    Run(Fill("P", "NO", "是/否") + kUpdate);
    EXPECT_EQ(ValueOn(*a_, "P"), "boolean YES");
    a_->parameters.Set(FlagParameter(WIDE("P"), false));
    Run(Fill("P", "whatever", "是/否") + kUpdate);
    EXPECT_EQ(ValueOn(*a_, "P"), "boolean YES");
}

TEST_F(BatchParameters, LockedParametersAndThoseOfAnotherTypeStay) {
    Parameter locked = WholeParameter(WIDE("P"), 1);
    locked.locked = true;
    a_->parameters.Set(locked);
    bolt_->parameters.Set(WholeParameter(WIDE("P"), 2));
    bolt_->relations.initial = {WIDE("P = 2")};
    top_->parameters.Set(TextParameter(WIDE("P"), WIDE("3")));
    Run(Fill("P", "9", "整数") + kUpdate);
    EXPECT_EQ(ValueOn(*a_, "P"), "integer 1");
    EXPECT_EQ(ValueOn(*bolt_, "P"), "integer 2");
    EXPECT_EQ(ValueOn(*top_, "P"), "text 3");
    Run(Fill("P", "", "整数") + kDelete);
    EXPECT_EQ(ValueOn(*a_, "P"), "integer 1");
    EXPECT_EQ(ValueOn(*bolt_, "P"), "integer 2");
    EXPECT_EQ(ValueOn(*top_, "P"), "none");
}

TEST_F(BatchParameters, DeleteTakesTheParameterAwayWhateverItsType) {
    a_->parameters.Set(WholeParameter(WIDE("P"), 1));
    bolt_->parameters.Set(RealParameter(WIDE("Q"), 2));
    Run(Fill("P", "", "字符串") + kDelete);
    EXPECT_EQ(ValueOn(*a_, "P"), "none");
    EXPECT_EQ(ValueOn(*bolt_, "Q"), "real 2");
}

// A failed search must not leave the handle of the model before.
TEST_F(BatchParameters, AModelWithoutTheParameterNeverTouchesThatOfAnother) {
    for (Model* model : {top_, a_, bolt_}) {
        model->parameters.Set(WholeParameter(WIDE("P"), 1));
    }
    for (unsigned n = 1; n <= 3; ++n) {
        Operation::ForgetFaults();
        Fail("ProParameterInit", {.n = n});
        Run(Fill("P", std::to_string(n + 1), "整数") + kUpdate);
        int changed = 0;
        for (Model* model : {top_, a_, bolt_}) {
            changed += ValueOn(*model, "P") == "integer " + std::to_string(n + 1) ? 1 : 0;
        }
        EXPECT_EQ(changed, 2);
    }
}

TEST_F(BatchParameters, KeywordsLeaveModelsOut) {
    Run("~ Input `VxParams` `InputKeyWords` `BO，X`\n" + Fill("P", "1", "整数") + kAdd);
    EXPECT_EQ(ValueOn(*a_, "P"), "integer 1");
    EXPECT_EQ(ValueOn(*bolt_, "P"), "none");
}

TEST_F(BatchParameters, TheScopeOfPartsLeavesTheTopOut) {
    Run("~ Select `VxParams` `TypeRadio` 1 `Part`\n" + Fill("P", "1", "整数") + kAdd);
    EXPECT_EQ(ValueOn(*top_, "P"), "none");
    EXPECT_EQ(ValueOn(*a_, "P"), "integer 1");
}

TEST_F(BatchParameters, AManufacturingModelsAssemblyJoinsWithBothButNotWithAssemblies) {
    Use(*top_, Assembly("sub"));
    Open(Manufacturing("mill", *top_));
    Run("~ Select `VxParams` `TypeRadio` 1 `Asm`\n" + Fill("P", "1", "整数") + kAdd);
    EXPECT_EQ(ValueOn(*top_, "P"), "none");
    Run(Fill("P", "1", "整数") + kAdd);
    EXPECT_EQ(ValueOn(*top_, "P"), "integer 1");
}

TEST_F(BatchParameters, WithoutComponentsThereIsOnlyTheMessage) {
    Open(Assembly("empty"));
    Run(Fill("P", "1", "整数") + kAdd + none_ + kUpdate + none_ + kDelete + none_);
}

TEST_F(BatchParameters, AFailedArrayIsToldByAddOnly) {
    Fail("ProArrayAlloc", {.forGood = true, .status = PRO_TK_OUT_OF_MEMORY});
    Run(Fill("P", "1", "整数") + kAdd + "@ expect box \"ProArray Alloc error\"\n@ ok\n" + kUpdate +
        none_ + kDelete + none_);
}

TEST_F(BatchParameters, OverlongNamesAreCutAndOverlongTextsToo) {
    const std::string name(40, 'N');
    Run(Fill(name, std::string(100, 'v'), "字符串") + kAdd);
    EXPECT_EQ(ValueOn(*a_, std::string(31, 'N')), "text " + std::string(80, 'v'));
}

TEST_F(BatchParameters, WithoutATypeNothingIsWritten) {
    Fail("ProUIOptionmenuValueGet", {.forGood = true});
    a_->parameters.Set(WholeParameter(WIDE("P"), 1));
    Run(Fill("P", "9", "整数") + kAdd + kUpdate);
    EXPECT_EQ(ValueOn(*a_, "P"), "integer 1");
    EXPECT_EQ(ValueOn(*bolt_, "P"), "none");
    EXPECT_EQ(top_->treeRefreshes, 2);  // the end is as ever
}

// --- Settings ---

TEST_F(BatchParameters, SavedSettingsComeBack) {
    WriteIni(
        "[InputKeyWords]\r\ncontent=M8 BOLT\r\n[VxOutlineOrder]\r\ncontent=0 off\r\n"
        "[VxOutlineNum]\r\ncontent=2 dp\r\n[outlinePname]\r\ncontent=SIZE old\r\n"
        "[shSizePname]\r\ncontent=SHEET\r\n");
    // A press keeps what is shown: the values as they arrived in the components.
    Run(Fill("P", "1", "整数") + kAdd);
    EXPECT_EQ(ReadIni(),
              "[InputKeyWords]\r\ncontent=M8 BOLT\r\n[VxOutlineOrder]\r\ncontent=0\r\n"
              "[VxOutlineNum]\r\ncontent=2\r\n[outlinePname]\r\ncontent=SIZE\r\n"
              "[shSizePname]\r\ncontent=SHEET\r\n");
}

TEST_F(BatchParameters, SavedKeywordsShowInBothFieldsButTheSecondIsNotKept) {
    WriteIni("[InputKeyWords]\r\ncontent=BOLT\r\n");
    std::string picture;
    RunScript("~ Command `VxParams`\n@ show dialog\n~ Close `VxParams`",
              [&](const std::string& line) { picture += line + '\n'; });
    EXPECT_NE(picture.find("InputKeyWords = \"BOLT\""), std::string::npos) << picture;
    EXPECT_NE(picture.find("InputKeyWords2 = \"BOLT\""), std::string::npos) << picture;
    Run("~ Input `VxParams` `InputKeyWords2` `NUT`\n" + Fill("P", "1", "整数") + kAdd);
    EXPECT_NE(ReadIni().find("[InputKeyWords]\r\ncontent=BOLT"), std::string::npos) << ReadIni();
    EXPECT_EQ(ReadIni().find("NUT"), std::string::npos);
}

TEST_F(BatchParameters, WithoutAFileTextsAreEmptyAndTheCheckButtonIsAsTheDialogHasIt) {
    std::filesystem::remove(host().disk.Real(kTextFolder + WIDE("\\VXconfig\\VxParams.ini")));
    std::string picture;
    RunScript("~ Command `VxParams`\n@ show dialog\n~ Close `VxParams`",
              [&](const std::string& line) { picture += line + '\n'; });
    for (const char* empty :
         {"InputKeyWords = \"\"", "InputKeyWords2 = \"\"", "VxOutlineNum = \"\"",
          "outlinePname = \"\"", "shSizePname = \"\"", "VxOutlineOrder = set"}) {
        EXPECT_NE(picture.find(empty), std::string::npos) << empty << '\n' << picture;
    }
}

TEST_F(BatchParameters, ClosingKeepsNothing) {
    const std::string before = ReadIni();
    Run("~ Input `VxParams` `InputKeyWords` `NEW`\n");
    EXPECT_EQ(ReadIni(), before);
}

TEST_F(BatchParameters, ASettingThatCannotBeReadStaysOnDisk) {
    WriteIni("[InputKeyWords]\r\ncontent=BOLT\r\n[VxOutlineOrder]\r\ncontent=1\r\n");
    Fail("ProUIInputpanelValueGet");
    Fail("ProUICheckbuttonGetState", {.forGood = true});
    Run("~ Input `VxParams` `InputKeyWords` `NEW`\n~ Activate `VxParams` `VxOutlineOrder` 0\n" +
        Fill("P", "1", "整数") + kAdd);
    EXPECT_EQ(ReadIni().find("NEW"), std::string::npos);
    EXPECT_NE(ReadIni().find("[VxOutlineOrder]\r\ncontent=1"), std::string::npos);
}

TEST_F(BatchParameters, TheOrderOfTheOutlineIsKeptAsOneOrZero) {
    for (const std::string state : {"0", "1"}) {
        Run("~ Activate `VxParams` `VxOutlineOrder` " + state + "\n" + Fill("P", "1", "整数") +
            kAdd);
        EXPECT_NE(ReadIni().find("[VxOutlineOrder]\r\ncontent=" + state + "\r\n"),
                  std::string::npos)
            << ReadIni();
    }
}

// A host that succeeds without a text hands over null, and null deletes the key.
TEST_F(BatchParameters, ATextThatIsNullLeavesItsSettingWithoutAKey) {
    WriteIni("[InputKeyWords]\r\ncontent=BOLT\r\n[outlinePname]\r\ncontent=SIZE\r\n");
    Fail("ProUIInputpanelValueGet", {.status = PRO_TK_NO_ERROR});
    Run(Fill("P", "1", "整数") + kAdd);
    EXPECT_EQ(ReadIni().find("BOLT"), std::string::npos) << ReadIni();
    EXPECT_EQ(ReadIni().find("[InputKeyWords]\r\ncontent="), std::string::npos) << ReadIni();
    EXPECT_NE(ReadIni().find("[outlinePname]\r\ncontent=SIZE"), std::string::npos) << ReadIni();
}

}  // namespace
