// Access rules of menu commands, asked by the host before a command is shown or runs.
#include <algorithm>
#include <set>

#include "simhost/host.h"
#include "tests/frame/expected_rows.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using workbench::Workbench;

// The rules as a table: the host's modes in which a command is available.
std::set<ProMode> ModesOf(expected::Rule rule) {
    switch (rule) {
        case expected::kSolid: return {ProMode(1), ProMode(2), ProMode(5)};
        case expected::kSolidOrMfg: return {ProMode(1), ProMode(2), ProMode(5), ProMode(8)};
        case expected::kAssemblyOrMfg: return {ProMode(5), ProMode(8)};
        case expected::kDrawing: return {ProMode(6)};
        default: return {ProMode(1), ProMode(2), ProMode(5), ProMode(6), ProMode(8)};
    }
}

class AccessRules : public Workbench {
protected:
    // Asks every command of the menu in the window that is open now.
    void ExpectTheRulesInMode(int mode) {
        ASSERT_EQ(int(host().session.Mode()), mode);
        for (const expected::Row& row : expected::Rows()) {
            const bool available = ModesOf(row.rule).count(ProMode(mode)) > 0;
            EXPECT_EQ(host().commands.Access(row.name), uiCmdAccessState(available ? 3 : 1))
                << row.name << " in mode " << mode;
        }
    }

    // Only the commands that never ask are available; no other may be.
    void ExpectOnlyTheAlwaysAvailable() {
        for (const expected::Row& row : expected::Rows()) {
            EXPECT_EQ(host().commands.Access(row.name),
                      uiCmdAccessState(row.rule == expected::kAlways ? 3 : 1))
                << row.name;
        }
    }
};

TEST_F(AccessRules, InAPartFollowTheirTable) {
    Start();
    Open(Part("PLATE"));
    ExpectTheRulesInMode(1);
}

TEST_F(AccessRules, InASheetMetalPartFollowTheirTable) {
    Start();
    Open(SheetMetal("COVER"));
    ExpectTheRulesInMode(2);
}

TEST_F(AccessRules, InAnAssemblyFollowTheirTable) {
    Start();
    Open(Assembly("UNIT"));
    ExpectTheRulesInMode(5);
}

TEST_F(AccessRules, InADrawingFollowTheirTable) {
    Start();
    Open(host().session.Create(WIDE("SHEET"), PRO_MDL_DRAWING));
    ExpectTheRulesInMode(6);
}

TEST_F(AccessRules, InAManufacturingModelFollowTheirTable) {
    Start();
    Open(Manufacturing("MILL", Assembly("UNIT")));
    ExpectTheRulesInMode(8);
}

TEST_F(AccessRules, WithoutAnOpenModelOnlyTheAlwaysAvailableCommandsCanBePressed) {
    Start();
    ExpectOnlyTheAlwaysAvailable();
}

TEST_F(AccessRules, WhenTheModeCannotBeReadOnlyTheAlwaysAvailableCommandsCanBePressed) {
    Start();
    Open(Assembly("UNIT"));
    Fail("ProModeCurrentGet", {.forGood = true});
    ExpectOnlyTheAlwaysAvailable();
}

TEST_F(AccessRules, TheAlwaysAvailableDoNotAskTheHostAndTheOthersAskForTheModeOnce) {
    Start();
    Open(Assembly("UNIT"));
    for (const expected::Row& row : expected::Rows()) {
        host().journal.Clear();
        host().journal.Start();
        host().commands.Access(row.name);
        const std::vector<std::string> once = {"ProModeCurrentGet"};
        EXPECT_EQ(host().journal.Names(),
                  row.rule == expected::kAlways ? std::vector<std::string>{} : once)
            << row.name;
    }
}

TEST_F(AccessRules, FollowTheWindowFromOneModelToTheNext) {
    Start();
    Open(Assembly("UNIT"));
    EXPECT_EQ(host().commands.Access("VxBackup"), ACCESS_AVAILABLE);
    Open(Part("PLATE"));
    EXPECT_EQ(host().commands.Access("VxBackup"), ACCESS_INVISIBLE);
    host().session.CloseCurrent();
    EXPECT_EQ(host().commands.Access("SetMat"), ACCESS_INVISIBLE);
}

TEST_F(AccessRules, ACommandThatIsNotAvailableDoesNotRunWhenItIsPressed) {
    Start();
    Open(Part("PLATE"));
    const Pressed pressed = host().commands.Press("SameScale");  // for drawings
    EXPECT_FALSE(pressed);
    EXPECT_EQ(Boxes(), std::vector<std::string>{});
}

}  // namespace
