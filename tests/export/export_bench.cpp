// The ground of the tests of VxExport.
#include "tests/export/export_bench.h"

#include <algorithm>
#include <filesystem>

namespace workbench {

std::string SheetsOf(int count, const std::string& size) {
    std::string text;
    for (int i = 0; i < count; ++i) text += "\n[[sheet]]\nsize = \"" + size + "\"\n";
    return text + "\n[drawing]\nprojection = \"first-angle\"\n";
}

Names ExportBench::FilesIn(const WideText& folder) {
    Names names;
    std::error_code error;
    const std::filesystem::directory_iterator files(host().disk.Real(folder), error);
    for (const auto& file : files) {
        const auto name = file.path().filename().u8string();
        names.emplace_back(name.begin(), name.end());
    }
    std::sort(names.begin(), names.end());
    return names;
}

bool ExportBench::Exists(const WideText& path) {
    return std::filesystem::exists(host().disk.Real(path));
}

void ExportBench::Remove(const WideText& file) {
    std::filesystem::remove(host().disk.Real(WIDE("C:\\Work\\") + file));
}

}  // namespace workbench
