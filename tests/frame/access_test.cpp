// Access rules of menu commands, asked by the host before a command runs.
#include "simhost/host.h"
#include "tests/support/workbench.h"

namespace {

using workbench::Workbench;

class AccessRules : public Workbench {};

TEST_F(AccessRules, WithoutAnOpenModelOnlyTheAlwaysAvailableCommandsCanBePressed) {
    Start();
    EXPECT_EQ(host().commands.Access("VxConfig"), ACCESS_AVAILABLE);
    EXPECT_EQ(host().commands.Access("BatchColor"), ACCESS_INVISIBLE);
}

}  // namespace
