// The part of the demonstration that lists the gearbox and writes the list as a spreadsheet.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace simhost {

// On the open gearbox: opens VxBom, prints the summed and the levelled table, and exports the
// summed one to `out`/gearbox_bom.xlsx. True if all went well.
bool RunBomDemo(const std::filesystem::path& out,
                const std::function<void(const std::string&)>& print);

}  // namespace simhost
