// The commands of this room: what the models on the screen look like, and which of them are seen.
#pragma once

// Gives every part below the current assembly, or the current part, a colour of its own. The source
// of the colours is a setting.
void BatchColor();

// Takes all appearances away, by a macro of the host that runs when the command has returned.
void VxClearAllColor();

// Makes the current part, or each part and assembly that is picked, transparent, or opaque if it is
// transparent already. Appearances of single surfaces go.
void VxTransparent();

// Does the same with picked surfaces, which take on the whole object's appearance otherwise.
void SurfTransparent();

// Lets parts be picked, by a box too, into the selection buffer. 0, or -3 if nothing was picked.
int BoxSel();

// The same with surfaces.
void VxBoxSelSur();

// Hides all parts of the current assembly but those that are selected, or are below what is.
void VxIsolate();

// Hides the parts that are shown and shows those that are hidden.
void VxHideReverse();

// Shows all that is hidden below the current assembly.
void VxShowAllComp();

// Makes a simplified representation of the current assembly from what is selected or picked.
void VxSimRep();
