// The commands of this room: what the models on the screen look like.
#pragma once

// Gives every part below the current assembly, or the current part, a colour of its own. The source
// of the colours is a setting.
void BatchColor();

// Takes all appearances away, by a macro of the host that runs when the command has returned.
void VxClearAllColor();
