// Drawings written in the formats of other systems.
#pragma once

#include "hostapi/host/types.h"

// Formats of Pro2dExport.
typedef enum : int { PRO_DXF_FILE = 9, PRO_DWG_FILE = 34 } Pro2dExportType;

typedef struct VxHost2dExportdata* Pro2dExportdata;

// Writes a drawing into a file; a path without the format's extension gets it. `data` may be null:
// the current sheet is written.
// PRO_TK_CANT_WRITE: the file cannot be written. PRO_TK_BAD_INPUTS: not a drawing.
// Assumed (behaviour, 70 %): adds .dwg to a path without an extension
HOST_API ProError Pro2dExport(Pro2dExportType format, ProPath file, ProMdl drawing,
                              Pro2dExportdata data);
