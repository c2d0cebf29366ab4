// The commands of this room: the same data written into many models of an assembly.
#pragma once

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
