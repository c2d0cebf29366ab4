// Drawings in the formats of other systems, at the door. What is written under either name is the
// exchange text of release 12.
#include "hostapi/host/export2d.h"

#include "simhost/core/text.h"
#include "simhost/door/door.h"
#include "simhost/model/drawing.h"
#include "simhost/picture/dxf.h"

using namespace simhost;

namespace {

WideText WithExtension(const WideText& path, const WideText& extension) {
    const bool has = path.size() > extension.size() &&
                     SameName(WideView(path).substr(path.size() - extension.size()), extension);
    return has ? path : path + extension;
}

// A path without a folder lies in the working folder.
WideText WholePath(const WideText& path) {
    const bool whole = path.size() > 1 && path[1] == ':';
    return whole ? path : TheHost().session.workingDirectory + WIDE("\\") + path;
}

}  // namespace

ProError Pro2dExport(Pro2dExportType format, ProPath file, ProMdl drawing, Pro2dExportdata data) {
    return Op<"Pro2dExport">.Call(
        [&] {
            Model& model = TheHost().session.Require(drawing);
            if (model.type != PRO_MDL_DRAWING) Refuse(PRO_TK_BAD_INPUTS);
            if (format != PRO_DWG_FILE && format != PRO_DXF_FILE) Refuse(PRO_TK_BAD_INPUTS);
            if (data) Complain(PRO_TK_BAD_INPUTS, "not a record of export data");
            const WideText extension = format == PRO_DWG_FILE ? WIDE(".dwg") : WIDE(".dxf");
            const WideText path = WholePath(WithExtension(file, extension));
            const auto real = TheHost().disk.Real(path);
            const std::string text = SheetDxf(model, DrawingOf(model).currentSheet);
            if (real.empty() || !WriteFile(real, text)) Refuse(PRO_TK_CANT_WRITE);
        },
        ARG(format), GIVEN(file), ARG(drawing));
}
