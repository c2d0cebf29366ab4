// The commands of this room: models that are made anew or from others, and put into the assembly
// that the user works on.
#pragma once

// Each makes a new, empty part, assembly or sheet-metal part from the template that an option of
// the host names, under the next free name after that of the active assembly, saves it and puts it
// into that assembly at its origin; fixed there by coordinate systems if the settings say so.
void NewPart();
void NewAsm();
void NewSmt();

// Copies the one selected component under a new name, saves the copy and puts it into the active
// assembly, where the user constrains it in the host's dialog.
void CloneComp();

// Copies it likewise, and has the host put the copy into its place, by a macro that runs when the
// command has returned.
void CloneAndReplace();

// Makes a new part from the template under a name that the user types, puts it into the active
// assembly and merges every selected part into it.
void VxMerge();

// Merges the parts that the user picks into the part that is active in an assembly.
void VxMergeTo();

// Fixes every component of the current assembly, at every depth, where it is: one fixed constraint
// in the place of all that it has.
void VxRemoveCons();

// Puts a block around a part, into that part; or around the parts that the user picks in an
// assembly, into a new part that is assembled there. The block is the group of vxbox.gph.
void VxBox();
