// Sheet metal parts: how long their sheets are before they are bent.
#pragma once

#include "hostapi/host/types.h"

// Gives a sheet metal part the bend table of this name, from its file in the folder that the option
// pro_sheet_met_dir names at this moment. Lengths follow when the part is regenerated. `fromFile`
// false: the table of that name which the part has already.
// PRO_TK_E_NOT_FOUND: there is no such table. PRO_TK_INVALID_FILE: it cannot be understood.
// PRO_TK_INVALID_TYPE: the part is no sheet metal. PRO_TK_NO_PERMISSION: nobody may change it.
// Assumed (parameters, 50 %): the third parameter, 1 as it is handed over, asks for the file
// Assumed (behaviour, 60 %): looks in the folder of that option alone
HOST_API ProError ProSmtPartBendtableApply(ProSolid part, WideChar* name, ProBoolean fromFile);
