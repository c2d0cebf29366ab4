// What a caller says about the files that are made of drawings: which sheets, and how they look.
#pragma once

#include "simhost/core/owned_handles.h"

namespace simhost {

// Of drawing exchange files: the values that a caller has set.
struct ExportData {
    int option = 0;  // the current sheet
    int sheet = 0;   // 0: none was named
};

enum class PlotSheets { All, Current };
enum class PlotColours { Full, Grey, Black };

// Of PDF files.
struct PlotOptions {
    PlotSheets sheets = PlotSheets::All;
    PlotColours colours = PlotColours::Full;
    bool strokes = false;     // texts are drawn as curves, not written in embedded fonts
    bool shown = false;       // in a viewer, when it is written
    bool numbered25 = false;  // kept and told; what it decides is not known here
};

struct PlotRecords {
    OwnedHandles<ExportData> datas{HandleKind::ExportData};
    OwnedHandles<PlotOptions> options{HandleKind::PdfOptions};
};

}  // namespace simhost
