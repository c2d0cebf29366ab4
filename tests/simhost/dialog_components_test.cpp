// Components of dialogs: what a resource says of them, what a user does to them, and what the
// plug-in reads.
#include <gtest/gtest.h>

#include "simhost/host.h"
#include "simhost/ui/checkbutton.h"
#include "simhost/ui/dialogs.h"
#include "simhost/ui/radiogroup.h"
#include "simhost/ui/textfield.h"

namespace {

using namespace simhost;

constexpr const char* kResource = R"((Dialog Test
    (Components (RadioGroup Scope) (RadioGroup Open) (InputPanel Name) (TextArea Lines)
        (OptionMenu Kind) (CheckButton Order) (PushButton OK))
    (Resources
        (Scope.Names "Part" "Asm") (Scope.Labels "零件" "组件") (Scope.SelectedNames "Asm")
        (Scope.Orientation Horizontal)
        (Open.Names "a" "b")
        (Name.Value "M8") (Name.Columns 6)
        (Lines.Rows 2) (Lines.Columns 4)
        (Kind.Names "int" "real") (Kind.Labels "整数" "实数") (Kind.Value "整数")
        (Order.Label "大到小") (Order.Set True)))
)";

class DialogComponents : public ::testing::Test {
protected:
    void SetUp() override {
        RestartHost();
        dialog_ = std::make_unique<Dialog>("Test", ParseResource(kResource, "Test.res"));
    }
    template <class Kind>
    Kind& Get(const char* name) {
        return dynamic_cast<Kind&>(*dialog_->Find(name));
    }
    std::unique_ptr<Dialog> dialog_;
};

using Lines = std::vector<std::string>;

TEST_F(DialogComponents, ARadioGroupHasOneOfItsNamesSelected) {
    auto& scope = Get<RadioGroup>("Scope");
    EXPECT_EQ(scope.Picture(), Lines{"( ) 零件  (*) 组件"});
    EXPECT_EQ(scope.Use(Verb::Select, {"1", "Part"}), "");
    EXPECT_STREQ(scope.SelectedForCaller()[0], "Part");
    EXPECT_NE(scope.Use(Verb::Select, {"1", "Smt"}), "");
    EXPECT_NE(scope.Use(Verb::Input, {"Part"}), "");
    EXPECT_STREQ(scope.SelectedForCaller()[0], "Part");
    EXPECT_EQ(scope.State(), "Part (of Part, Asm)");
}

TEST_F(DialogComponents, ARadioGroupWithoutASelectionHandsOutNothing) {
    auto& open = Get<RadioGroup>("Open");
    EXPECT_EQ(open.SelectedForCaller(), nullptr);
    EXPECT_EQ(open.Picture(), (Lines{"( ) a", "( ) b"}));
}

TEST_F(DialogComponents, AResourceCannotSelectWhatIsNotThere) {
    const auto resource = ParseResource(
        "(Dialog D (Components (RadioGroup R)) (Resources (R.Names \"a\") (R.SelectedNames "
        "\"b\")))",
        "D.res");
    EXPECT_THROW(Dialog("D", resource), ResourceError);
}

TEST_F(DialogComponents, AnInputPanelTakesATextAsAWhole) {
    auto& name = Get<InputPanel>("Name");
    EXPECT_EQ(name.Picture(), Lines{"[M8____]"});
    const WideChar* before = name.ValueForCaller();
    EXPECT_EQ(name.Use(Verb::Input, {"M10 x 2"}), "");
    EXPECT_EQ(name.value, WIDE("M10 x 2"));
    // What was handed out stays as it was.
    EXPECT_EQ(WideText(before), WIDE("M8"));
}

TEST_F(DialogComponents, ATextAreaTakesLines) {
    auto& lines = Get<TextArea>("Lines");
    EXPECT_EQ(lines.Use(Verb::Input, {"a=1\\nb\\r\\n\\\\"}), "");
    EXPECT_EQ(lines.value, WIDE("a=1\nb\r\n\\"));
    EXPECT_EQ(lines.Picture(), (Lines{"|a=1 |", "|b   |", "|\\   |"}));
}

TEST_F(DialogComponents, AnOptionMenuShowsTheLabelOfWhatIsChosen) {
    auto& kind = Get<OptionMenu>("Kind");
    EXPECT_EQ(kind.Use(Verb::Open, {}), "");
    EXPECT_EQ(kind.Use(Verb::Select, {"1", "real"}), "");
    EXPECT_EQ(kind.value, WIDE("实数"));
    EXPECT_EQ(kind.Use(Verb::Select, {"整数"}), "");
    EXPECT_EQ(kind.value, WIDE("整数"));
    EXPECT_NE(kind.Use(Verb::Select, {"text"}), "");
    EXPECT_EQ(kind.State(), "\"整数\" (of 整数, 实数)");
}

TEST_F(DialogComponents, ACheckButtonChangesOrTakesAState) {
    auto& descending = Get<CheckButton>("Order");
    EXPECT_EQ(descending.Picture(), Lines{"[x] 大到小"});
    EXPECT_EQ(descending.Use(Verb::Activate, {}), "");
    EXPECT_FALSE(descending.set);
    EXPECT_EQ(descending.Use(Verb::Activate, {"0"}), "");
    EXPECT_FALSE(descending.set);
    EXPECT_EQ(descending.Use(Verb::Activate, {"1"}), "");
    EXPECT_TRUE(descending.set);
    EXPECT_NE(descending.Use(Verb::Activate, {"2"}), "");
}

}  // namespace
