// Drawings as PDF, at the door: the options of a caller or of a profile, and the file.
#include "hostapi/host/pdf.h"

#include <fmt/format.h>

#include "simhost/core/text.h"
#include "simhost/door/door.h"
#include "simhost/door/output_file.h"
#include "simhost/door/owned.h"
#include "simhost/model/drawing.h"
#include "simhost/picture/plot.h"

using namespace simhost;

namespace {

constexpr int kNumbered25 = 25, kSheets = 28;  // they have no names here

PlotOptions& RequireOptions(ProPDFOptions options) {
    return RequireOf(TheHost().session.plotRecords.options, options, "PDF options");
}

// A value of an enumeration that begins with 0 and ends with this one.
template <class Enumeration>
void Take(int value, Enumeration last, Enumeration* place) {
    if (value < 0 || value > int(last)) Refuse(PRO_TK_BAD_INPUTS);
    *place = Enumeration(value);
}

// The sheets to be written, a page each, in the file's order.
std::vector<int> SheetsOf(Model& drawing, PlotSheets which) {
    if (which == PlotSheets::Current) return {DrawingOf(drawing).currentSheet};
    std::vector<int> sheets(drawing.drawingData.sheets.size());
    for (std::size_t i = 0; i < sheets.size(); ++i) sheets[i] = int(i) + 1;
    return sheets;
}

void Write(Model& drawing, const WideChar* path, const PlotOptions& options) {
    PlotFile file;
    WriteOutput(path, [&] {
        file = PlotOf(drawing, SheetsOf(drawing, options.sheets), options);
        return file.bytes;
    });
    if (!file.note.empty()) TheHost().Tell(fmt::format("{}: {}", Utf8(path), file.note));
    if (options.shown) TheHost().Tell(Utf8(path) + " is shown in the viewer");
}

// The profile of this name in the working directory.
PlotOptions ReadProfile(const WideText& name) {
    WideText path = TheHost().session.workingDirectory + WIDE("\\");
    path += name + WIDE(".dop");
    bool found = false;
    const std::string text = ReadFile(TheHost().disk.Real(path), &found);
    if (!found) Refuse(PRO_TK_E_NOT_FOUND);
    PlotOptions options;
    const std::string mistake = ReadPlotProfile(text, &options);
    if (mistake.empty()) return options;
    TheHost().Tell(fmt::format("{}: {}", Utf8(path), mistake));
    Refuse(PRO_TK_INVALID_FILE);
}

}  // namespace

ProError ProPDFoptionsAlloc(ProPDFOptions* options) {
    Operation& op = Op<"ProPDFoptionsAlloc">;
    return op.Call(
        [&] {
            *options = Give<ProPDFOptions>(&TheHost().session.plotRecords.options, PlotOptions(),
                                           op.name());
        },
        OUT(options));
}

ProError ProPDFoptionsFree(ProPDFOptions options) {
    return Op<"ProPDFoptionsFree">.Call(
        [&] { TakeBack(&TheHost().session.plotRecords.options, options, "PDF options"); },
        ARG(options));
}

ProError ProPDFoptionsIntpropertySet(ProPDFOptions options, ProPDFOptionType option, int value) {
    return Op<"ProPDFoptionsIntpropertySet">.Call(
        [&] {
            PlotOptions& changed = RequireOptions(options);
            switch (int(option)) {
                case PRO_PDFOPT_FONT_STROKE: return Take(value, true, &changed.strokes);
                case PRO_PDFOPT_COLOR_DEPTH:
                    return Take(value, PlotColours::Black, &changed.colours);
                case kSheets: return Take(value, PlotSheets::Current, &changed.sheets);
                default: Refuse(PRO_TK_BAD_INPUTS);
            }
        },
        ARG(options), ARG(option), ARG(value));
}

ProError ProPDFoptionsBoolpropertySet(ProPDFOptions options, ProPDFOptionType option,
                                      ProBoolean value) {
    return Op<"ProPDFoptionsBoolpropertySet">.Call(
        [&] {
            PlotOptions& changed = RequireOptions(options);
            switch (int(option)) {
                case PRO_PDFOPT_LAUNCH_VIEWER: return Take(value, true, &changed.shown);
                case kNumbered25: return Take(value, true, &changed.numbered25);
                default: Refuse(PRO_TK_BAD_INPUTS);
            }
        },
        ARG(options), ARG(option), ARG(value));
}

ProError ProPDFExport(ProMdl model, ProPath file, ProPDFOptions options) {
    return Op<"ProPDFExport">.Call(
        [&] {
            Model& drawing = TheHost().session.RequireDrawing(model);
            Write(drawing, file, RequireOptions(options));
        },
        ARG(model), GIVEN(file), ARG(options));
}

ProError ProPDFWithProfileExport(ProMdl model, ProPath file, ProPath profile) {
    return Op<"ProPDFWithProfileExport">.Call(
        [&] {
            Model& drawing = TheHost().session.RequireDrawing(model);
            Write(drawing, file, ReadProfile(profile));
        },
        ARG(model), GIVEN(file), GIVEN(profile));
}
