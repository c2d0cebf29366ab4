// Dimensions of a drawing: their text, their tolerance, and how they are made from what the user
// has picked. Positions are those of the sheet; z is 0.
// All calls refuse an item that is no live dimension with PRO_TK_BAD_INPUTS.
#pragma once

#include "hostapi/host/component_path.h"
#include "hostapi/host/drawing.h"
#include "hostapi/host/geometry.h"
#include "hostapi/host/selection.h"
#include "hostapi/host/types.h"
#include "hostapi/host/view.h"

typedef ProModelitem ProDimension, ProAnnotation;

// --- Texts. @D in a line is the value; a letter between U+0001 and U+0002 is one of the host's
// --- drawing symbols (n diameter, o square, v counterbore, w countersink, x depth) ---

// A new array with the lines of the dimension's text. The caller frees it.
// PRO_TK_E_NOT_FOUND: it has no text of its own and shows its value alone. Hosts say the same with
// an empty array or with null.
// Assumed (parameters, 70 %): takes the dimension and the place of an array of ProLine
HOST_API ProError ProDimensionTextGet(ProDimension* dimension, ProLine** lines);

// Replaces the whole text by the lines of a host array.
// Assumed (parameters, 70 %): takes the dimension and an array of ProLine
HOST_API ProError ProDimensionTextSet(ProDimension* dimension, ProLine* lines);

// --- Tolerances ---

// How a tolerance is shown.
// Assumed (codes, 50 %): what the numbers beyond 2 and 4, which are prescribed, mean
typedef enum : int {
    PRO_TOL_DEFAULT = 0,     // not at all
    PRO_TOL_LIMITS = 1,      // the largest and the smallest size
    PRO_TOL_PLUS_MINUS = 2,  // the size with an upper and a lower deviation
    PRO_TOL_PLUS_MINUS_SYM = 4
} ProToleranceType;

// Where the values of a tolerance come from; 0: from the dimension itself.
// Assumed (codes, 60 %): 0 names no table
enum ProToleranceTable : int {};

HOST_API ProError ProDimensionToltypeSet(ProDimension* dimension, ProToleranceType type);

// Ties the tolerance to a table of tolerances; with zeros, to none.
// Assumed (parameters, 40 %): table, name, column; only zeros are handed over
HOST_API ProError ProDimensionTollabelSet(ProDimension* dimension, ProToleranceTable table,
                                          WideChar* name, int column);

// The upper deviation upwards and the lower one downwards, so both are usually positive.
// Assumed (behaviour, 60 %): a positive lower value lies below the size
HOST_API ProError ProDimensionToleranceSet(ProDimension* dimension, double upper, double lower);

// --- Making and showing ---

// What an attachment of a dimension means by its item.
// Assumed (record, 50 %): 24 bytes; kind, value and hint are its first, second and sixth word
typedef struct VxDimSense {
    int type;   // 0: the item as a whole; 1: a point of it, which `sense` names
    int sense;  // of a point: 1 where the edge begins, 2 where it ends, 3 its centre
    int angle[3];
    int orient_hint;  // of the first attachment, for the whole dimension
} ProDimSense;

// Makes a dimension of the drawing, which nobody sees until it is shown. `attachments` and `senses`
// are host arrays of one length, 1 or 2; all picks lie in one view. What comes of it:
//   one straight edge: its length; one round one: its radius, or its diameter with hint 3;
//   two lines: the angle between them, or the distance of parallel ones;
//   a line and a point: their distance;
//   two points: their distance upwards (hint 1), across (hint 2) or straight (0 and 3).
// PRO_TK_BAD_INPUTS: an attachment or a sense that is none. PRO_TK_GENERAL_ERROR: the attachments
// give no dimension, such as a distance of 0, or the centre of a circle that is seen on edge.
// Assumed (parameters, 40 %): drawing, attachments, senses, place of the text, whether it is a
//   reference dimension, the new dimension
// Assumed (codes, 40 %): what each hint means
HOST_API ProError ProDrawingDimCreate(ProDrawing drawing, ProSelection* attachments,
                                      ProDimSense* senses, ProVector position, ProBoolean reference,
                                      ProDimension* dimension);

// Shows a dimension of a drawing in a view. A null path is the whole model of the view.
// PRO_TK_BAD_CONTEXT: it is attached in another view.
HOST_API ProError ProAnnotationShow(ProAnnotation* annotation, ProAsmcomppath* path, ProView view);
