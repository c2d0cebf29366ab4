// The ground of the tests of ApplyBt in VxExport.
#include "tests/export/engine_bench.h"

#include <algorithm>

namespace workbench {

using namespace simhost;

void EngineBench::SetUp() {
    ExportDialog::SetUp();
    Naming("代号,图纸名称", "_");
    Formats({});
}

void EngineBench::Formats(const Names& on) {
    for (const char* each : {"DWGCheck", "DXFCheck", "STPCheck", "IGSCheck", "PDFOptionCheck",
                             "PDFBlackCheck", "MultiSheetCheck"}) {
        const bool is = std::find(on.begin(), on.end(), each) != on.end();
        Configure(each, "value", is ? "1" : "0");
    }
    // No setting reaches the button of PDF, which is on in the resource.
    pdf_ = std::find(on.begin(), on.end(), "PDFCheck") != on.end();
}

void EngineBench::Naming(const std::string& pattern, const std::string& separator) {
    Configure("drwNames", "content", pattern);
    Configure("Separator", "content", separator);
}

Names EngineBench::Export(const Names& rows) {
    std::string lines;
    if (!pdf_) lines += "~ Activate `VxExport` `PDFCheck` 0\n";
    if (rows.empty()) {
        lines += "~ Activate `VxExport` `selAll`\n";
    } else {
        lines += "~ Select `VxExport` `drw_list` " + std::to_string(2 * rows.size());
        for (const std::string& row : rows) lines += " `" + row + "` `num`";
        lines += "\n";
    }
    lines += "~ Activate `VxExport` `ApplyBt`\n@ expect box 工程图批量导出已完成\n@ ok\n";
    const Names calls = Check(lines);
    const auto from = std::find(calls.begin(), calls.end(), "ProUICheckbuttonGetState");
    return {from, std::find(from, calls.end(), "ProUIDialogExit")};
}

Names EngineBench::After(const Names& calls, const std::string& first) {
    return {std::find(calls.begin(), calls.end(), first), calls.end()};
}

Names EngineBench::Order(const Names& operations) {
    Names order;
    for (const std::string& line : Calls()) {
        const std::size_t from = line.find_first_not_of(' ');
        const std::string name = line.substr(from, line.find('(') - from);
        const bool wanted =
            std::find(operations.begin(), operations.end(), name) != operations.end();
        if (wanted) order.push_back(name);
    }
    return order;
}

Names EngineBench::Files(const WideText& format) {
    return FilesIn(WIDE("C:\\Work\\") + format);
}

std::string EngineBench::Option() {
    const auto found = host().configOptions.find(WIDE("dwg_export_format"));
    return found == host().configOptions.end() ? "none" : Utf8(found->second.front());
}

}  // namespace workbench
