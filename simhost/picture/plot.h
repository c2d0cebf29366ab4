// Drawings as they are plotted: every sheet at its true size, as a page of a PDF file. On Windows,
// where there is no drawing library, a small file that says so takes its place.
#pragma once

#include <string>
#include <vector>

#include "simhost/model/model.h"
#include "simhost/model/plot_records.h"
#include "simhost/picture/canvas.h"

namespace simhost {

// A sheet without anything around it: lengths are mm of the sheet, its size is shown in points.
Picture SheetPlot(Model& drawing, int sheet);

struct PlotFile {
    std::string bytes;
    std::string note;  // what the user should know about it; empty: nothing
};
// A page for each of the sheets. The same sheets give the same bytes at any time.
// Throws std::runtime_error: no font with Chinese characters.
PlotFile PlotOf(Model& drawing, const std::vector<int>& sheets, const PlotOptions& options);

// What the text of a profile says: lines such as `sheets = "current"`, described in
// docs/pdf-profile.md. The mistake in it, empty if there is none.
std::string ReadPlotProfile(const std::string& text, PlotOptions* options);

}  // namespace simhost
