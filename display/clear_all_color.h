// The command VxClearAllColor: takes all appearances away.
#pragma once

// Removes all appearances, by a macro of the host that runs when the command has returned.
void VxClearAllColor();
