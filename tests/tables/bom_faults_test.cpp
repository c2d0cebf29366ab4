// VxBom where the host does not answer: what becomes of the rows.
#include <gtest/gtest.h>

#include "simhost/ui/dialogs.h"
#include "tests/tables/bom_bench.h"

namespace {

using namespace simhost;
using workbench::BomBench;
using workbench::kCloseBom;
using workbench::LoadLevels;

class BomFaults : public BomBench {
protected:
    void Check(const std::string& lines) { Play("~ Command `VxBom`\n" + lines + kCloseBom); }
};

TEST_F(BomFaults, AfterASkeletonWhatCannotBeToldFromOneIsNone) {
    // Asked are TOP, SKEL, which is one, and BOLT, for which the host does not answer.
    Fail("ProMdlIsSkeleton", {.n = 3});
    Check("@ expect rows bom_list 4\n@ expect row bom_list 2 \"2|BOLT|5\"\n");
}

TEST_F(BomFaults, AModelWhoseKindCannotBeReadHasAnUncolouredRowOfTheModelBefore) {
    Open(Assembly("empty"));
    Columns("模型名称,材料");
    Record();
    Check("@ expect row colours bom_list 1 17 17 -\n");
    Recorded();
    // The last question is the one for the row.
    Fail("ProMdlTypeGet", {.n = unsigned(Lines("ProMdlTypeGet").size())});
    Check("@ expect row bom_list 1 \"1|EMPTY|\"\n@ expect row colours bom_list 1 - - -\n");
}

TEST_F(BomFaults, InTheTreeAModelWhoseKindCannotBeReadIsNoAssembly) {
    Open(*sub_);
    Record();
    Check(LoadLevels("1") + "@ expect rows bom_list 3\n");
    Recorded();
    Fail("ProMdlTypeGet", {.n = unsigned(Lines("ProMdlTypeGet").size())});  // that of BOLT
    Check(LoadLevels("1") + "@ expect row bom_list 3 \"3|1|2|BOLT|1\"\n" +
          "@ expect row colours bom_list 3 - - - - -\n");
}

TEST_F(BomFaults, AComponentThatDoesNotTellWhetherItShowsIsLeftOutOfTheTree) {
    Open(*sub_);
    WithBom([&](Dialog& dialog) {
        dialog.Use(Verb::Select, "BomRadio", {"LevelBom"});
        Fail("ProFeatureVisibilityGet", {.forGood = true});
        EXPECT_EQ(dialog.Press("VxLoadBom"), "");
        EXPECT_EQ(dialog.Find("bom_list")->State(), "1 rows of 5 columns");
    });
}

TEST_F(BomFaults, AComponentThatDoesNotTellItsStatusCountsAsActive) {
    Open(*sub_);
    Fail("ProFeatureStatusGet", {.forGood = true});
    Check(LoadLevels("1") + "@ expect rows bom_list 3\n");
}

TEST_F(BomFaults, AtTheOpeningOnlyTheSummedModeGreysTheDepth) {
    Fail("ProUIRadiogroupSelectednamesGet");
    WithBom([&](Dialog& dialog) { EXPECT_TRUE(dialog.Find("LevelOption")->enabled); });
    WithBom([&](Dialog& dialog) { EXPECT_FALSE(dialog.Find("LevelOption")->enabled); });
}

}  // namespace
