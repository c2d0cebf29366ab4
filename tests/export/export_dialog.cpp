// The two drawings of the tests of VxExport.
#include "tests/export/export_dialog.h"

namespace workbench {

using namespace simhost;

void ExportDialog::SetUp() {
    ExportBench::SetUp();
    Model& box = BoxPart("BOX", 100, 60, 40);
    box.parameters.Set(TextParameter(WIDE("代号"), WIDE("P-1")));
    box.parameters.Set(TextParameter(WIDE("名称"), WIDE("盒")));
    host().session.Save(box);
    SavedBox("PIN");
    WriteDrawing("a.drw.1", SheetsOf(1) + GeneralView(1, "box.prt", 1));
    WriteDrawing("b.drw.2", SheetsOf(1));
    WriteDrawing("b.drw.3",
                 SheetsOf(3) + GeneralView(1, "box.prt", 1) + GeneralView(2, "pin.prt", 3));
    Write(kModuleFolder + WIDE("\\VXconfig\\VxDrawingsIni.ini"), "");
    Configure("tableCols", "content", "代号,名称");
}

void ExportDialog::Configure(const std::string& section, const std::string& key,
                             const std::string& value) {
    WriteIni("VxDrawingsIni.ini", section, key, value);
}

Names ExportDialog::Check(const std::string& lines) {
    return CallsOf("~ Command `VxExport`\n" + lines + "~ Close `VxExport`\n");
}

}  // namespace workbench
