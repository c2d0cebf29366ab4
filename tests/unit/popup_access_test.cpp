// What the two rules of popup buttons answer exactly; from outside, "not shown" is all that one
// sees.
#include "frame/access.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using workbench::Workbench;

class PopupRules : public Workbench {
protected:
    void Select(const std::vector<int>& types) {
        host().session.selections.ClearBuffer();
        for (const int type : types) {
            const ProModelitem item = {ProType(type), 7, plate_.handle};
            host().session.selections.AddToBuffer({item, &plate_, {}});
        }
    }
    static int Component() { return PopupAccessComponent(nullptr, nullptr, nullptr); }
    static int SingleItem() { return PopupAccessSingleItem(nullptr, nullptr, nullptr); }
    void TearDown() override {
        host().arrays.FreeAll();  // both rules leave them to the host
        Workbench::TearDown();
    }

    Model& plate_ = Part("PLATE");
};

TEST_F(PopupRules, AnswerOneWithoutASelection) {
    EXPECT_EQ(Component(), 1);
    EXPECT_EQ(SingleItem(), 1);
}

TEST_F(PopupRules, AnswerOneWhenTheBufferCannotBeRead) {
    Select({PRO_PART});
    Fail("ProSelbufferSelectionsGet", {.forGood = true});
    EXPECT_EQ(Component(), 1);
    EXPECT_EQ(SingleItem(), 1);
}

TEST_F(PopupRules, AnswerByTheKindOfASingleItem) {
    for (int type = -1; type <= 200; ++type) {
        Select({type});
        const bool component = type == 1 || type == 2;
        const bool listed = component || type == 5 || type == 6 || type == 25 || type == 66 ||
                            type == 71 || type == 72 || type == 176;
        EXPECT_EQ(Component(), component ? 3 : 0) << type;
        EXPECT_EQ(SingleItem(), listed ? 3 : 0) << type;
    }
}

TEST_F(PopupRules, OfSeveralItemsLookAtTheFirstOrWantOne) {
    Select({2, 5});
    EXPECT_EQ(Component(), 3);
    EXPECT_EQ(SingleItem(), 0);
    Select({5, 2});
    EXPECT_EQ(Component(), 0);
    EXPECT_EQ(SingleItem(), 0);
    Select({1, 1, 1});
    EXPECT_EQ(Component(), 3);
    EXPECT_EQ(SingleItem(), 0);
}

TEST_F(PopupRules, AnswerNoughtForAnArrayWithoutElements) {
    Select({PRO_PART});
    Fail("ProArraySizeGet", {.forGood = true});
    EXPECT_EQ(Component(), 0);
    EXPECT_EQ(SingleItem(), 0);
}

TEST_F(PopupRules, AnswerNoughtForAnItemThatCannotBeRead) {
    Select({PRO_PART});
    Fail("ProSelectionModelitemGet", {.forGood = true});
    EXPECT_EQ(Component(), 0);
    EXPECT_EQ(SingleItem(), 0);
}

TEST_F(PopupRules, DoNotFreeTheArrayOfSelections) {
    Select({PRO_PART, PRO_PART});
    host().journal.Start();
    Component();
    SingleItem();
    host().journal.Stop();
    EXPECT_EQ(host().arrays.Held().size(), 2u);
    for (const std::string& name : host().journal.Names()) EXPECT_NE(name, "ProArrayFree");
}

}  // namespace
