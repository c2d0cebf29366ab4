// Drawings written in the formats of other systems.
#pragma once

#include "hostapi/host/types.h"

// Formats of Pro2dExport.
typedef enum : int { PRO_DXF_FILE = 9, PRO_DWG_FILE = 34 } Pro2dExportType;

// Which sheets are written, and into which space of the file.
typedef enum : int {
    PRO2DEXPORT_CURRENT_TO_MODEL_SPACE = 0,
    PRO2DEXPORT_CURRENT_TO_PAPER_SPACE = 1,
    PRO2DEXPORT_ALL = 2,
    // Assumed (codes, 60 %): the sheet of Pro2dExportdataModelspacesheetSet goes into the model
    //   space, and no other sheet is asked for
    PRO2DEXPORT_SELECTED = 3
} Pro2dExportSheetOption;

typedef struct VxHost2dExportdata* Pro2dExportdata;

// A new record of what is to be written. The plug-in leaves it to the host.
// Assumed (parameters, 80 %): takes the place for the handle
// Assumed (frees, 30 %): nothing is lost but a little memory if nobody frees it; kits have a call
//   that does
HOST_API ProError Pro2dExportdataAlloc(Pro2dExportdata* data);

// PRO_TK_BAD_INPUTS: no such option.
HOST_API ProError Pro2dExportdataSheetoptionSet(Pro2dExportdata data,
                                                Pro2dExportSheetOption option);

// The sheet that goes into the model space of the file, from 1. PRO_TK_BAD_INPUTS: less than 1.
HOST_API ProError Pro2dExportdataModelspacesheetSet(Pro2dExportdata data, int sheet);

// Writes a drawing into a file; a path without the format's extension gets it. `data` may be null:
// the current sheet is written. The drawing's current sheet stays what it is.
// PRO_TK_CANT_WRITE: the file cannot be written. PRO_TK_BAD_INPUTS: not a drawing, or a sheet that
// it has not.
// Assumed (behaviour, 70 %): adds .dwg to a path without an extension
HOST_API ProError Pro2dExport(Pro2dExportType format, ProPath file, ProMdl drawing,
                              Pro2dExportdata data);
