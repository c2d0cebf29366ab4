// The tree of a bill of materials, built from assemblies of the simulated host.
#include <gtest/gtest.h>

#include "simhost/core/text.h"
#include "simhost/host.h"
#include "tables/bom_tree.h"
#include "tests/support/desk.h"
#include "tests/support/models.h"

namespace {

using namespace simhost;
using workbench::MakeModels;

// A node and all below it: "2.1 GEAR x3", a line for each, indented by the level.
std::string Text(const BomNode& node, int depth = 0) {
    std::string text = std::string(std::size_t(depth) * 2, ' ') + Utf8(node.number) + " " +
                       Utf8(node.name) + " x" + std::to_string(node.count) + "\n";
    for (const BomNode& child : node.children) text += Text(child, depth + 1);
    return text;
}

class BomTree : public ::testing::Test {
protected:
    void SetUp() override { RestartHost(); }
    void TearDown() override {
        BomFlatList.clear();
        EXPECT_EQ(TheHost().complaints, std::vector<std::string>{});
        RestartHost();
    }

    static std::string Built(const std::string& models) {
        return Text(BuildBomTree(MakeModels(models).handle));
    }
};

TEST_F(BomTree, OfAnEmptyAssemblyIsItsRoot) {
    EXPECT_EQ(Built("top:"), "0 TOP x1\n");
}

TEST_F(BomTree, NumbersChildrenByTheirPlaces) {
    EXPECT_EQ(Built("top: bolt, sub(gear, bolt)"),
              "0 TOP x1\n"
              "  1 BOLT x1\n"
              "  2 SUB x1\n"
              "    2.1 GEAR x1\n"
              "    2.2 BOLT x1\n");
}

TEST_F(BomTree, CountsLikeSiblingsAtTheFirstOneAndLeavesNoGapInTheNumbers) {
    EXPECT_EQ(Built("top: bolt, sub(gear x2), bolt, sub, bolt, gear"),
              "0 TOP x1\n"
              "  1 BOLT x3\n"
              "  2 SUB x2\n"
              "    2.1 GEAR x2\n"
              "  3 GEAR x1\n");
}

TEST_F(BomTree, TakesAPartAndAnAssemblyOfOneNameForOneSibling) {
    EXPECT_EQ(Built("top: sub(bolt), sub.prt"), "0 TOP x1\n  1 SUB x2\n    1.1 BOLT x1\n");
}

TEST_F(BomTree, DoesNotMindTheCaseOfNames) {
    Model& other = MakeModels("other");
    other.name = WIDE("bolt");
    Model& top = MakeModels("top: bolt");
    workbench::AddComponent(top, other);
    EXPECT_EQ(Text(BuildBomTree(top.handle)), "0 TOP x1\n  1 BOLT x2\n");
    other.name = WIDE("OTHER");
}

TEST_F(BomTree, LeavesOutWhatIsSuppressedHiddenOrMissing) {
    EXPECT_EQ(Built("top: sub!suppressed(), gear!invisible, lost!missing, bolt"),
              "0 TOP x1\n  1 BOLT x1\n");
}

TEST_F(BomTree, GoesOnBehindAComponentWhoseModelCannotBeFetched) {
    workbench::Fail("ProAsmcompMdlGet", {.n = 2});
    EXPECT_EQ(Built("top: bolt, gear, sub()"), "0 TOP x1\n  1 BOLT x1\n  2 SUB x1\n");
}

TEST_F(BomTree, WithoutAModelHasANamelessRoot) {
    const BomNode root = BuildBomTree(nullptr);
    EXPECT_EQ(Text(root), "0  x1\n");
    EXPECT_EQ(root.type, PRO_MDL_ASSEMBLY);
}

TEST_F(BomTree, FlattensParentsBeforeTheirChildrenAndSetsTheLevels) {
    BomNode root = BuildBomTree(MakeModels("top: sub(gear), bolt").handle);
    FlattenBom(&root, -3);
    std::string text;
    for (const BomNode* node : BomFlatList) {
        text += std::to_string(node->level) + " " + Utf8(node->name) + "\n";
    }
    EXPECT_EQ(text, "0 TOP\n1 SUB\n2 GEAR\n1 BOLT\n");
    EXPECT_EQ(BomFlatList[1], &root.children[0]);
}

}  // namespace
