// When a command is available: the rules that the host asks before it shows or runs a command.
#pragma once

#include "hostapi/host.h"

// Rules of menu commands: by the host's current mode, and unavailable when it cannot be read.
uiCmdAccessState AccessAlways(uiCmdAccessMode mode) noexcept;         // does not ask the host
uiCmdAccessState AccessSolid(uiCmdAccessMode mode) noexcept;          // parts and assemblies
uiCmdAccessState AccessSolidOrMfg(uiCmdAccessMode mode) noexcept;     // and manufacturing
uiCmdAccessState AccessAssemblyOrMfg(uiCmdAccessMode mode) noexcept;  // no parts
uiCmdAccessState AccessDrawing(uiCmdAccessMode mode) noexcept;

// Rules of popup buttons: by what is selected. The first looks at the first selection only, the
// second wants exactly one. The host's array of selections is left to the host.
uiCmdAccessState PopupAccessComponent(uiCmdCmdId command, ProAppData data,
                                      void* selection) noexcept;
uiCmdAccessState PopupAccessSingleItem(uiCmdCmdId command, ProAppData data,
                                       void* selection) noexcept;
