// The commands of this room: the same data written into many models of an assembly.
#pragma once

// Lets the user choose a material file and gives its material to the current part, to the picked
// parts and all that is below picked assemblies, or, with nothing picked, to all that is below the
// current assembly. Where a walk fails or finds no part it ends at once and leaves the host in the
// folder of the file.
void SetMat();

// The same with a bend table, for sheet metal parts alone, which are then brought up to date. Where
// a walk below a picked assembly fails or finds none it ends at once and leaves pro_sheet_met_dir
// at the folder of the file.
void SetBendTable();
// Opens the dialog SetUnit; its button sets one of seven systems of units in the current model and
// in all models below it, by one of two ways of converting, and leaves it open.
void SetUnit();

// Writes how often each model occurs in the current assembly into its integer parameter 数量, and
// names the models that could not be written.
void VxMdlCount();

// Opens the dialog VxParams: one parameter made, changed or deleted in many models, and the
// computed parameters for outline and sheet size. Its buttons leave it open.
void VxParams();

// Opens the dialog Relations; its buttons write the typed lines into the models of the current
// assembly, and it stays open for the next press.
void VxRelations();
