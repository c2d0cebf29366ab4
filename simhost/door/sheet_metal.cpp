// Sheet metal parts at the door.
#include "hostapi/host/sheet_metal.h"

#include "simhost/core/file_names.h"
#include "simhost/core/text.h"
#include "simhost/door/door.h"
#include "simhost/door/part_file.h"

using namespace simhost;

namespace {

// Looked for at the moment of the call, in the one folder that the option names.
BendTable TableInItsFolder(const WideText& name) {
    Host& host = TheHost();
    const auto option = host.configOptions.find(WIDE("pro_sheet_met_dir"));
    if (option == host.configOptions.end() || option->second.empty()) Refuse(PRO_TK_E_NOT_FOUND);
    const WideText& folder = option->second.front();
    if (folder.empty()) Refuse(PRO_TK_E_NOT_FOUND);
    BendTable table =
        ReadPartFile(NewestFileOf(host.disk.Real(folder), name + WIDE(".bnd")), ReadBendTableText);
    table.name = name;
    return table;
}

}  // namespace

ProError ProSmtPartBendtableApply(ProSolid part, WideChar* name, ProBoolean fromFile) {
    return Op<"ProSmtPartBendtableApply">.Call(
        [&] {
            Model& model = RequireChangeablePart(part);
            if (model.subtype != PROMDLSTYPE_PART_SHEETMETAL) Refuse(PRO_TK_INVALID_TYPE);
            const WideText wanted = RequireBaseName(name);
            BendTable& present = model.partData.sheetMetal.table;
            if (fromFile) {
                present = TableInItsFolder(wanted);
                ConvertLengths(&present, /*from=*/1, LengthUnit(model));
                model.modified = true;
            } else if (!SameName(present.name, wanted)) {
                Refuse(PRO_TK_E_NOT_FOUND);
            }
        },
        ARG(part), GIVEN(name), ARG(fromFile));
}
