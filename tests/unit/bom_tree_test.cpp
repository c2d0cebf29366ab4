// The tree of a bill of materials, built from assemblies of the simulated host.
#include <gtest/gtest.h>

#include "simhost/core/text.h"
#include "simhost/host.h"
#include "tables/bom_tree.h"

namespace {

using namespace simhost;

// A node and all below it: "2.1 GEAR x3", a line for each, indented by the level.
std::string Text(const BomNode& node, int depth = 0) {
    std::string text = std::string(std::size_t(depth) * 2, ' ') + Utf8(node.number) + " " +
                       Utf8(node.name) + " x" + std::to_string(node.count) + "\n";
    for (const BomNode& child : node.children) text += Text(child, depth + 1);
    return text;
}

class BomTree : public ::testing::Test {
protected:
    void SetUp() override {
        RestartHost();
        top_ = &Make("top", PRO_MDL_ASSEMBLY);
        sub_ = &Make("sub", PRO_MDL_ASSEMBLY);
        bolt_ = &Make("bolt", PRO_MDL_PART);
        gear_ = &Make("gear", PRO_MDL_PART);
    }
    void TearDown() override {
        BomFlatList.clear();
        EXPECT_EQ(TheHost().complaints, std::vector<std::string>{});
        RestartHost();
    }

    static Model& Make(const char* name, ProMdlType type) {
        return TheHost().session.Create(Wide(name), type);
    }
    static Feature& Use(Model& assembly, Model& model) {
        Feature feature;
        feature.type = PRO_FEAT_COMPONENT;
        feature.file = model.FileName();
        feature.model = &model;
        return assembly.AddFeature(feature);
    }
    std::string Built() { return Text(BuildBomTree(top_->handle)); }

    Model *top_, *sub_, *bolt_, *gear_;
};

TEST_F(BomTree, OfAnEmptyAssemblyIsItsRoot) {
    EXPECT_EQ(Built(), "0 TOP x1\n");
}

TEST_F(BomTree, NumbersChildrenByTheirPlaces) {
    Use(*top_, *bolt_);
    Use(*top_, *sub_);
    Use(*sub_, *gear_);
    Use(*sub_, *bolt_);
    EXPECT_EQ(Built(),
              "0 TOP x1\n"
              "  1 BOLT x1\n"
              "  2 SUB x1\n"
              "    2.1 GEAR x1\n"
              "    2.2 BOLT x1\n");
}

TEST_F(BomTree, CountsLikeSiblingsAtTheFirstOneAndLeavesNoGapInTheNumbers) {
    for (Model* model : {bolt_, sub_, bolt_, sub_, bolt_, gear_}) Use(*top_, *model);
    Use(*sub_, *gear_);
    Use(*sub_, *gear_);
    EXPECT_EQ(Built(),
              "0 TOP x1\n"
              "  1 BOLT x3\n"
              "  2 SUB x2\n"
              "    2.1 GEAR x2\n"
              "  3 GEAR x1\n");
}

TEST_F(BomTree, TakesAPartAndAnAssemblyOfOneNameForOneSibling) {
    Use(*top_, *sub_);
    Use(*top_, Make("sub", PRO_MDL_PART));
    Use(*sub_, *bolt_);
    EXPECT_EQ(Built(), "0 TOP x1\n  1 SUB x2\n    1.1 BOLT x1\n");
}

TEST_F(BomTree, DoesNotMindTheCaseOfNames) {
    Model& other = Make("other", PRO_MDL_PART);
    other.name = WIDE("bolt");
    Use(*top_, *bolt_);
    Use(*top_, other);
    EXPECT_EQ(Built(), "0 TOP x1\n  1 BOLT x2\n");
    other.name = WIDE("OTHER");
}

TEST_F(BomTree, LeavesOutWhatIsSuppressedHiddenOrMissing) {
    Use(*top_, *sub_).status = PRO_FEAT_SUPPRESSED;
    Use(*top_, *gear_).visible = false;
    Use(*top_, *bolt_).model = nullptr;
    Use(*top_, *bolt_);
    EXPECT_EQ(Built(), "0 TOP x1\n  1 BOLT x1\n");
}

TEST_F(BomTree, GoesOnBehindAComponentWhoseModelCannotBeFetched) {
    for (Model* model : {bolt_, gear_, sub_}) Use(*top_, *model);
    Operation::Fail({"ProAsmcompMdlGet", 2, false, PRO_TK_GENERAL_ERROR});
    EXPECT_EQ(Built(), "0 TOP x1\n  1 BOLT x1\n  2 SUB x1\n");
}

TEST_F(BomTree, WithoutAModelHasANamelessRoot) {
    const BomNode root = BuildBomTree(nullptr);
    EXPECT_EQ(Text(root), "0  x1\n");
    EXPECT_EQ(root.type, PRO_MDL_ASSEMBLY);
}

TEST_F(BomTree, FlattensParentsBeforeTheirChildrenAndSetsTheLevels) {
    Use(*top_, *sub_);
    Use(*top_, *bolt_);
    Use(*sub_, *gear_);
    BomNode root = BuildBomTree(top_->handle);
    FlattenBom(&root, -3);
    std::string text;
    for (const BomNode* node : BomFlatList) {
        text += std::to_string(node->level) + " " + Utf8(node->name) + "\n";
    }
    EXPECT_EQ(text, "0 TOP\n1 SUB\n2 GEAR\n1 BOLT\n");
    EXPECT_EQ(BomFlatList[1], &root.children[0]);
}

}  // namespace
