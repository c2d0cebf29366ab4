// The part of the demonstration that lists the gearbox and writes the list as a spreadsheet.
#include "simhost/app/demo_bom.h"

#include <fmt/format.h>

#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/trail/interpreter.h"

namespace simhost {

namespace fs = std::filesystem;

bool RunBomDemo(const fs::path& out, const std::function<void(const std::string&)>& print) {
    const WideText path = TheHost().session.workingDirectory + WIDE("\\gearbox_bom.xlsx");
    const std::string script = fmt::format(
        "~ Command `VxBom`\n"
        "@ note The whole gearbox, each model once (* marks the rows of assemblies):\n"
        "@ show tables\n"
        "~ Activate `VxBom` `VxExportBom`\n"
        "@ answer {}\n"
        "~ Select `VxBom` `BomRadio` 1 `LevelBom`\n"
        "~ Select `VxBom` `LevelOption` `2`\n"
        "~ Activate `VxBom` `VxLoadBom`\n"
        "@ note Two levels of its tree:\n"
        "@ show tables\n"
        "~ Activate `VxBom` `Close`\n",
        Utf8(path));
    print("\n== The bill of materials, on the screen and as a spreadsheet");
    bool ok = RunScript(script, print).empty();
    std::error_code error;
    const fs::path file = out / "gearbox_bom.xlsx";
    fs::copy_file(TheHost().disk.Real(path), file, fs::copy_options::overwrite_existing, error);
    if (error) {
        ok = false;
        print("cannot write " + file.string() + ": " + error.message());
    } else {
        print("spreadsheet:      " + file.string());
    }
    return ok;
}

}  // namespace simhost
