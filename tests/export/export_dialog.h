// The ground of the tests of VxExport: two drawings of one part, the settings of the dialog, and
// the dialog opened and closed around a test's lines.
#pragma once

#include <string>

#include "tests/export/export_bench.h"

namespace workbench {

// A.DRW has one sheet A3 with a view of BOX, B.DRW (its third version is the newest) has three: a
// view of BOX, nothing, and a view of PIN. BOX has the parameters 代号 (P-1) and 名称 (盒).
class ExportDialog : public ExportBench {
protected:
    void SetUp() override;

    // A value of VxDrawingsIni.ini; the columns are 代号 and 名称 at the beginning.
    static void Configure(const std::string& section, const std::string& key,
                          const std::string& value);

    // Opens the dialog, plays these lines, and closes it by its window; the calls.
    Names Check(const std::string& lines);
};

}  // namespace workbench
