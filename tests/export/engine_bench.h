// The ground of the tests of ApplyBt in VxExport: formats and names chosen, rows exported, and what
// was called.
#pragma once

#include <string>

#include "tests/export/export_dialog.h"

namespace workbench {

class EngineBench : public ExportDialog {
protected:
    void SetUp() override;  // 代号,图纸名称 with _ between them; no format

    // The check buttons that are on from now on, and no others.
    void Formats(const Names& on);
    static void Naming(const std::string& pattern, const std::string& separator);

    // Exports the rows by their numbers, all without any; the calls of the button.
    Names Export(const Names& rows = {});
    // Those calls from the first one of an operation on.
    static Names After(const Names& calls, const std::string& first);
    // Of the last record the calls of these operations, those of Windows among them, in order.
    Names Order(const Names& operations);
    // What lies in the folder of a format, "DXF".
    Names Files(const WideText& format);
    std::string Option();  // dwg_export_format; "none" where it is not set

private:
    bool pdf_ = false;
};

}  // namespace workbench
