// When a command is available: the rules that the host asks before it shows or runs a command.
#pragma once

#include "hostapi/host.h"

// Rules of menu commands: by the host's current mode, and unavailable when it cannot be read.
uiCmdAccessState AccessAlways(uiCmdAccessMode mode) noexcept;         // does not ask the host
uiCmdAccessState AccessSolid(uiCmdAccessMode mode) noexcept;          // parts and assemblies
uiCmdAccessState AccessSolidOrMfg(uiCmdAccessMode mode) noexcept;     // and manufacturing
uiCmdAccessState AccessAssemblyOrMfg(uiCmdAccessMode mode) noexcept;  // no parts
uiCmdAccessState AccessDrawing(uiCmdAccessMode mode) noexcept;

// What the host hands a popup button's rule last; of which type, its own headers say.
template <class Function>
struct LastOfThree;
template <class Result, class First, class Second, class Third>
struct LastOfThree<Result (*)(First, Second, Third)> {
    using Type = Third;
};
using PopupSelection = LastOfThree<ProPopupmenuAccessFn>::Type;

// Rules of popup buttons: by what is selected. The first looks at the first selection only, the
// second wants exactly one. The host's array of selections is left to the host.
uiCmdAccessState PopupAccessComponent(uiCmdCmdId command, ProAppData data,
                                      PopupSelection selection) noexcept;
uiCmdAccessState PopupAccessSingleItem(uiCmdCmdId command, ProAppData data,
                                       PopupSelection selection) noexcept;
