// VxClearAllColor: the macro, and what the host makes of it.
#include "simhost/trail/macro.h"
#include "tests/display/colour_bench.h"

namespace {

using namespace simhost;
using workbench::ColourBench;
using workbench::Names;
using workbench::WholeRecord;

// Two double blanks, and two tildes without a blank before them.
const std::string kMacro =
    "~ Select `main_dlg_cur` `ProCmdViewGallery.view`; ~ Select `main_dlg_cur` "
    "`ProCmdViewGallery_layoutph.palette_holder.clearAppearance`; ~ Close `main_dlg_cur`  "
    "`ProCmdViewGallery_layoutph.palette_holder.clearAppearance`; ~ Activate `main_dlg_cur` "
    "`clearAllAppearance`;~ Close `main_dlg_cur`  "
    "`ProCmdViewGallery_layoutph.palette_holder.clearAppearance`; ~ Close `main_dlg_cur` "
    "`ProCmdViewGallery.view`; ~ FocusIn `UI Message Dialog` `yes`;~ Activate `UI Message Dialog` "
    "`yes`;";

std::string Replaced(std::string text, const std::string& what, const std::string& by) {
    const std::size_t at = text.find(what);
    EXPECT_NE(at, std::string::npos) << what;
    return text.replace(at, what.size(), by);
}

class ClearAllColor : public ColourBench {
protected:
    void SetUp() override {
        ColourBench::SetUp();
        UseAll(sub_, {&second_});
        UseAll(top_, {&first_, &sub_});
        Open(top_);
        Paint();
    }
    void Paint() {
        first_.appearance = WholeRecord(1, 0, 0);
        second_.appearance = WholeRecord(0, 1, 0);
        ColourSurfaces(second_);
    }
    bool Coloured() const {
        return first_.appearance && second_.appearance &&
               second_.partData.surfaceAppearances.size() == 6;
    }
    bool Cleared() const {
        return !first_.appearance && !second_.appearance &&
               second_.partData.surfaceAppearances.empty();
    }
    Names Dialogs() {
        Names names;
        for (const Shown& shown : host().shown) {
            if (shown.kind == Shown::Kind::Dialog) names.push_back(Utf8(shown.text));
        }
        return names;
    }

    Model& first_ = Part("first");
    Model& second_ = Part("second");
    Model& sub_ = Assembly("sub");
    Model& top_ = Assembly("top");
};

TEST_F(ClearAllColor, TheCommandOnlyQueuesTheMacroWordForWord) {
    Record();
    RunAction("VxClearAllColor");
    EXPECT_EQ(Recorded(), Names{"ProMacroLoad"});
    ASSERT_EQ(host().macros.size(), 1u);
    EXPECT_EQ(Utf8(host().macros[0]), kMacro);
}

TEST_F(ClearAllColor, TheHostRunsTheMacroWhenTheCommandHasReturned) {
    RunAction("VxClearAllColor");
    EXPECT_TRUE(Coloured());
    host().commands.RunMacros();
    EXPECT_TRUE(Cleared());
    EXPECT_TRUE(host().macros.empty());
}

TEST_F(ClearAllColor, AllAppearancesAreGoneAndTheQuestionIsAnswered) {
    Press("VxClearAllColor");
    EXPECT_TRUE(Cleared());
    EXPECT_EQ(Dialogs(), Names{"UI Message Dialog"});
    EXPECT_FALSE(host().dialogs.mainWindow.questionOpen());
    EXPECT_EQ(Boxes(), Names{});
}

TEST_F(ClearAllColor, ItClearsWhatBatchColorHasPainted) {
    Setting("VxRandomColorOpt", "random");
    Press("BatchColor");
    EXPECT_TRUE(first_.appearance && second_.appearance);
    Press("VxClearAllColor");
    EXPECT_TRUE(Cleared());
    Press("VxClearAllColor");
    EXPECT_TRUE(Cleared());
}

TEST_F(ClearAllColor, APartAloneAndAManufacturingModelAreClearedToo) {
    Open(second_);
    Press("VxClearAllColor");
    EXPECT_TRUE(first_.appearance);
    EXPECT_FALSE(second_.appearance);
    Paint();
    Open(Manufacturing("mill", top_));
    Press("VxClearAllColor");
    EXPECT_TRUE(Cleared());
}

TEST_F(ClearAllColor, WhenTheMacroCannotBeQueuedNothingHappens) {
    Fail("ProMacroLoad");
    Press("VxClearAllColor");
    EXPECT_TRUE(Coloured());
    EXPECT_EQ(Boxes(), Names{});
}

// The host is told apart from one that clears whatever a macro says.
TEST_F(ClearAllColor, AMacroThatLosesItsWayClearsNothingAndIsComplainedAbout) {
    const std::string wrong[] = {
        Replaced(kMacro, "`ProCmdViewGallery.view`", "`ProCmdViewGallerie.view`"),
        Replaced(kMacro, "`clearAllAppearance`", "`clearAllAppearances`"),
        Replaced(kMacro, "~ Activate `UI Message Dialog` `yes`",
                 "~ Activate `UI Message Dialog` `no`"),
        Replaced(kMacro, "~ Activate `UI Message Dialog` `yes`;", ""),
        Replaced(kMacro, "~ Select `main_dlg_cur` `ProCmdViewGallery.view`; ", ""),
    };
    for (const std::string& macro : wrong) {
        SCOPED_TRACE(macro);
        RunMacro(macro);
        EXPECT_TRUE(Coloured());
        const bool refused = macro.find("`no`") != std::string::npos;
        EXPECT_EQ(Complaints().empty(), refused);
    }
    RunMacro(kMacro);
    EXPECT_TRUE(Cleared());
}

}  // namespace
