// Drawings in the formats of other systems, at the door. What is written under either name is the
// exchange text of release 12.
#include "hostapi/host/export2d.h"

#include <fmt/format.h>

#include "simhost/core/text.h"
#include "simhost/door/door.h"
#include "simhost/door/output_file.h"
#include "simhost/door/owned.h"
#include "simhost/model/drawing.h"
#include "simhost/picture/dxf.h"

using namespace simhost;

namespace {

ExportData& RequireData(Pro2dExportdata data) {
    return RequireOf(TheHost().session.plotRecords.datas, data, "a record of export data");
}

WideText WithExtension(const WideText& path, const WideText& extension) {
    const bool has = path.size() > extension.size() &&
                     SameName(WideView(path).substr(path.size() - extension.size()), extension);
    return has ? path : path + extension;
}

// The sheet that is asked for, which stays no more current than it was.
int SheetFor(Model& drawing, Pro2dExportdata data) {
    const int current = DrawingOf(drawing).currentSheet;
    if (!data) return current;
    const ExportData& asked = RequireData(data);
    if (asked.option != PRO2DEXPORT_SELECTED) return current;
    if (!drawing.drawingData.Find(asked.sheet)) Refuse(PRO_TK_BAD_INPUTS);
    return asked.sheet;
}

// What the user should know of a file that is no drawing of that system's own kind.
void TellOfText(const WideText& path) {
    const auto& options = TheHost().configOptions;
    const auto release = options.find(WIDE("dwg_export_format"));
    const bool set = release != options.end() && !release->second.empty();
    TheHost().Tell(fmt::format(
        "{} holds exchange text (DXF, release 12){}", Utf8(path),
        set ? "; dwg_export_format is " + Utf8(release->second.front()) : std::string()));
}

}  // namespace

ProError Pro2dExportdataAlloc(Pro2dExportdata* data) {
    Operation& op = Op<"Pro2dExportdataAlloc">;
    return op.Call(
        [&] {
            *data = Give<Pro2dExportdata>(&TheHost().session.plotRecords.datas, ExportData(),
                                          op.name());
        },
        OUT(data));
}

ProError Pro2dExportdataSheetoptionSet(Pro2dExportdata data, Pro2dExportSheetOption option) {
    return Op<"Pro2dExportdataSheetoptionSet">.Call(
        [&] {
            ExportData& changed = RequireData(data);
            if (option < PRO2DEXPORT_CURRENT_TO_MODEL_SPACE || option > PRO2DEXPORT_SELECTED) {
                Refuse(PRO_TK_BAD_INPUTS);
            }
            changed.option = option;
        },
        ARG(data), ARG(option));
}

ProError Pro2dExportdataModelspacesheetSet(Pro2dExportdata data, int sheet) {
    return Op<"Pro2dExportdataModelspacesheetSet">.Call(
        [&] {
            ExportData& changed = RequireData(data);
            if (sheet < 1) Refuse(PRO_TK_BAD_INPUTS);
            changed.sheet = sheet;
        },
        ARG(data), ARG(sheet));
}

ProError Pro2dExport(Pro2dExportType format, ProPath file, ProMdl drawing, Pro2dExportdata data) {
    return Op<"Pro2dExport">.Call(
        [&] {
            Model& model = TheHost().session.RequireDrawing(drawing);
            if (format != PRO_DWG_FILE && format != PRO_DXF_FILE) Refuse(PRO_TK_BAD_INPUTS);
            const int sheet = SheetFor(model, data);
            const WideText extension = format == PRO_DWG_FILE ? WIDE(".dwg") : WIDE(".dxf");
            const WideText path = WithExtension(file, extension);
            WriteOutput(path, [&] { return SheetDxf(model, sheet); });
            if (format == PRO_DWG_FILE) TellOfText(path);
        },
        ARG(format), GIVEN(file), ARG(drawing), ARG(data));
}
