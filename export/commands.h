// The commands of this room, as the table presses them: drawings and models in the formats of
// other systems, and backups.
#pragma once

// Backs up the current assembly, or that of a manufacturing model, each model below it, and their
// drawings of the same name, into a folder that the user chooses.
void VxBackup();

// Write the current assembly and each model below it into files of their own, in a folder that the
// user chooses: STEP, STEP under the ending of SAT, and IGES after a dialog. Of a manufacturing
// model the assembly alone.
void VxExStp();
void VxExSat();
void VxExIgs();

// Writes the current drawing as DWG, a file for each sheet, to the place that the settings name.
void VxExportDwg();

// Writes the current drawing as PDF there, a file for each sheet. A file that is there stays, and
// what was written then is temp.pdf in the working directory.
void VxExportPdf();

// Writes the current part or assembly, or the assembly of a manufacturing model, as STEP to the
// desktop or into a folder that the user chooses.
void VxExportStp();

// Opens the table of the drawings of the working directory, or of the current model and what lies
// in it; the selected ones are written as DWG, DXF, PDF, STEP and IGES files from there.
void VxExport();
