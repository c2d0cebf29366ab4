// The commands as their users know them, written down a second time and apart from the plug-in: a
// slip in its own table shows in the tests.
#pragma once

#include <string>
#include <vector>

namespace expected {

// In which windows a command can be pressed.
enum Rule { kAlways, kSolid, kSolidOrMfg, kAssemblyOrMfg, kDrawing };

struct Row {
    std::string name;
    Rule rule;
    bool onRibbon;  // offered for the customising of the ribbon
    std::string helpKey, icon;
};

// All commands of the menu, in its order.
const std::vector<Row>& Rows();

}  // namespace expected
