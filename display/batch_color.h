// The command BatchColor: a colour of its own for every part.
#pragma once

// Gives every part below the current assembly, or the current part, a colour of its own.
void BatchColor();
