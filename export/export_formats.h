// The five formats of a drawing: which files are written, under which names, and what is asked of
// the host for each.
#pragma once

#include "export/export_names.h"
#include "export/host_path.h"
#include "frame/services.h"

// What the check buttons of the dialog say, as the host answers them: 1, 0, or -1 for one that it
// does not know.
struct ExportChoices {
    int dwg, pdf, dxf, stp, igs;
    int strokes, black, multiSheet;
};

// One drawing on its way through the formats. What one format leaves in it the next one takes on.
struct DrawingExport {
    const ExportChoices& choices;
    const NamePattern& pattern;
    const WideText& folder;  // the working directory, with a separator at its end
    const WideText& name;    // as the table has it
    ProDrawing drawing = nullptr;
    ProSolid firstSolid = nullptr;
    WideText composedName = {};
    int sheets = 0;  // as last counted; STEP and IGES do not count them
};

// The views of a drawing, among which those of its sheets are looked for.
struct SheetViews {
    HostArray<ProView> list;
    int count = 0;

    // False: the host has none to give.
    bool Collect(ProDrawing drawing) {
        ProView* views = nullptr;
        if (ProDrawingViewsCollect(drawing, &views) != PRO_TK_NO_ERROR) return false;
        list.Adopt(views);
        count = list.Size();
        return true;
    }
};

// Makes the folder of a format in the working directory, where it may be already: "DWG\\".
WideText MakeFolder(const DrawingExport& each, const WideChar* name);

// Each writes its files. False: the drawing has no views where they are needed, and is left.
bool ExportDwg(DrawingExport& each);
bool ExportDxf(DrawingExport& each);
bool ExportPdf(DrawingExport& each);
bool ExportStp(const DrawingExport& each);
bool ExportIgs(const DrawingExport& each);
