// Drawings written as PDF.
#pragma once

#include "hostapi/host/types.h"

// What can be said about a PDF file, each by an integer or by a Boolean. The plug-in sets two more
// by their numbers: 25 (Boolean), and 28, which sheets are written (0: all).
// Assumed (codes, 40 %): 25 and 28 by their numbers; what 25 decides is not known here
typedef enum : int {
    PRO_PDFOPT_FONT_STROKE = 0,   // integer; 0: texts in embedded fonts, 1: as strokes
    PRO_PDFOPT_COLOR_DEPTH = 1,   // integer; 0: colours, 1: grey, 2: black on white
    PRO_PDFOPT_LAUNCH_VIEWER = 5  // Boolean; shows the file when it is written
} ProPDFOptionType;

typedef struct VxHostPdfOptions* ProPDFOptions;

// A new record with the host's own options: all sheets, colours, embedded fonts. The caller frees
// it with ProPDFoptionsFree.
HOST_API ProError ProPDFoptionsAlloc(ProPDFOptions* options);
HOST_API ProError ProPDFoptionsFree(ProPDFOptions options);

// PRO_TK_BAD_INPUTS: no option of this number and kind, or a value that it cannot have.
// Assumed (parameters, 80 %): in the order options, number, value
HOST_API ProError ProPDFoptionsIntpropertySet(ProPDFOptions options, ProPDFOptionType option,
                                              int value);
HOST_API ProError ProPDFoptionsBoolpropertySet(ProPDFOptions options, ProPDFOptionType option,
                                               ProBoolean value);

// Writes a drawing as it is said by the options, one page a sheet. A file that is there is
// replaced; a path without a folder lies in the working directory.
// PRO_TK_CANT_WRITE: the file cannot be written. PRO_TK_BAD_INPUTS: not a drawing.
// Assumed (parameters, 80 %): in the order model, path, options
HOST_API ProError ProPDFExport(ProMdl model, ProPath file, ProPDFOptions options);

// The same as a profile says, a file NAME.dop in the working directory; `profile` is its name
// without folder and extension. PRO_TK_E_NOT_FOUND: no such profile. PRO_TK_INVALID_FILE: none that
// the host can read.
// Assumed (parameters, 60 %): in the order model, path, name of the profile
// Assumed (behaviour, 50 %): the profile is looked for in the working directory
HOST_API ProError ProPDFWithProfileExport(ProMdl model, ProPath file, ProPath profile);
