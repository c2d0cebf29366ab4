// The commands of this room: drawings and models in the formats of other systems.
#pragma once

// Opens the table of the drawings of the working directory, or of the current model and what lies
// in it; the selected ones are written as DWG, DXF, PDF, STEP and IGES files from there.
void VxExport();
