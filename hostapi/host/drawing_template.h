// New drawings, made from a template.
#pragma once

#include "hostapi/host/drawing.h"
#include "hostapi/host/model.h"
#include "hostapi/host/types.h"

// The model that a new drawing shows: its name, and its kind as text.
// Assumed (record, 60 %): name and kind, both as text; the template call takes it
typedef struct VxModelName {
    ProName name;
    WideChar type[PRO_TYPE_SIZE];
} ProModel;

typedef int ProDwgcreateOptions;
#define PRODWGCREATE_DISPLAY_DRAWING 1

// What could not be made as the template wants it. An array of the host's.
typedef struct VxHostDrawingErrors* ProDwgcreateErrs;

// Makes a drawing of this name that shows the model from a template, with the template's sheets,
// formats, views and settings. The template is named with or without ".drw", and is in memory or in
// the working folder.
// PRO_TK_E_FOUND: there is a drawing of this name. PRO_TK_E_NOT_FOUND: no such template, or the
// model is not in memory. PRO_TK_DWGCREATE_ERRORS: the template is not as it should be, or one of
// its formats is not there. PRO_TK_NO_PERMISSION: the user may not read the template.
// Assumed (frees, 30 %): the last parameter receives an array of errors, which is not freed; the
//   template's name may end in .drw
HOST_API ProError ProDrawingFromTmpltCreate(ProName name, ProName drawingTemplate, ProModel* model,
                                            ProDwgcreateOptions options, ProDrawing* drawing,
                                            ProDwgcreateErrs* errors);
