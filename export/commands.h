// The commands of this room, as the table presses them. Each acts on the current model.
#pragma once

// Backs up the current assembly, or that of a manufacturing model, each model below it, and their
// drawings of the same name, into a folder that the user chooses.
void VxBackup();

// Writes the current drawing as DWG, a file for each sheet, to the place that the settings name.
void VxExportDwg();
