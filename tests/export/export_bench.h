// The ground of the tests of VxExport: drawings of boxes in the working folder, and the files that
// came of them.
#pragma once

#include <string>
#include <vector>

#include "tests/drawing/sheet_bench.h"

namespace workbench {

using Names = std::vector<std::string>;

// The text of a drawing of so many sheets of a size, without its views: A3 lies, 420 x 297 mm.
std::string SheetsOf(int count, const std::string& size = "A3");

class ExportBench : public SheetBench {
protected:
    // What lies in a folder, in the order of the names; empty where there is no such folder.
    Names FilesIn(const WideText& folder);
    bool Exists(const WideText& path);
    // Takes a file out of the working folder, "a.drw.1".
    void Remove(const WideText& file);
};

}  // namespace workbench
