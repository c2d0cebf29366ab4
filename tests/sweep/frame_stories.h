// The stories that no trail can tell: start and end of the plug-in, its timer, its popups.
#pragma once

#include <string>
#include <vector>

#include "tests/sweep/sweep.h"

namespace sweep {

// Stories that share their expected complaints.
struct FrameStories {
    std::string name;
    std::vector<Story> stories;
    std::vector<Forced> forced;
};
const std::vector<FrameStories>& AllFrameStories();

// The plug-in is started, with its buttons on popups.
void StartWithPopups(World& world);
// The same, and a popup has been seen, in the scene with everything.
void StartBehindFirstPopup(World& world);

}  // namespace sweep
