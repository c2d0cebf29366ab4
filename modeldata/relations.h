// The command VxRelations: one set of relation lines for many models.
#pragma once

// Opens the dialog Relations; its buttons write the typed lines into the models of the current
// assembly, and it stays open for the next press.
void VxRelations();
