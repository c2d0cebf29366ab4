// Drawing areas of dialogs: places for pictures.
#pragma once

#include "hostapi/host/dialog.h"

typedef struct ProUIPoint {
    int x, y;  // from the upper left corner
} ProUIPoint;

// Called when the area has got its place in the dialog that is shown.
// Assumed (behaviour, 75 %): the action runs when the dialog is shown, with the application data
//   that it was set with
HOST_API ProError ProUIDrawingareaPostmanagenotifyActionSet(char* dialog, char* area,
                                                            ProUIAction action, ProAppData data);

// Makes pictures of text/resource known to the area, by their file names.
// PRO_TK_E_NOT_FOUND: a file is missing.
// Assumed (parameters, 60 %): in the order dialog, area, count, file names (narrow), and for
//   drawing the positions (whole numbers)
HOST_API ProError ProUIDrawingareaImagesSet(char* dialog, char* area, int count, char** images);

// Draws pictures that are known to the area, each with its upper left corner at a position.
HOST_API ProError ProUIDrawingareaImagesDraw(char* dialog, char* area, int count, char** images,
                                             ProUIPoint* positions);
