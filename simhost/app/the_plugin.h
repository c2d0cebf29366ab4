// All that the simulated host knows of the plug-in that it was built for: its names, its places,
// and what it leaves behind on purpose. Another guest would need another such file and nothing
// else.
#pragma once

#include <array>
#include <vector>

#include "hostapi/wide.h"
#include "simhost/core/arrays.h"

namespace simhost::the_plugin {

inline constexpr WideView kModule = WIDE("vorlatix5.1.dll");

// Where it lies when it is installed by hand, and the folders that are copied there.
inline constexpr WideView kFolder = WIDE("C:\\Program Files\\Vorlatix");
inline constexpr std::array kInstalledFolders = {"VXconfig", "text", "tp", "vxudf"};
inline constexpr WideView kSettingsFile = WIDE("VXconfig\\VxConfig.ini");  // in that folder

// The registry value that says that its user has seen the first-run notice.
inline constexpr WideView kMarkerKey = WIDE("Software\\PTC\\Creo_Parametric");
inline constexpr WideView kMarker = WIDE("VxReg");
inline constexpr WideView kNoticeSeen = WIDE("5130");

extern const std::vector<HeldOnPurpose> kHeldOnPurpose;
extern const std::vector<NullFreedOnPurpose> kNullFreedOnPurpose;

}  // namespace simhost::the_plugin
