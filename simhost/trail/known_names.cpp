// Looks the names up where they are kept: in memory, in the working folder, in the installed files.
#include "simhost/trail/known_names.h"

#include <algorithm>
#include <filesystem>

#include "simhost/core/disk.h"
#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/trail/lexer.h"
#include "simhost/ui/resource.h"

namespace simhost {
namespace {

std::string WithoutVersion(const std::string& file) {
    const std::size_t dot = file.rfind('.');
    const bool digits = dot != std::string::npos && dot + 1 < file.size() &&
                        file.find_first_not_of("0123456789", dot + 1) == std::string::npos;
    return digits ? file.substr(0, dot) : file;
}

bool IsModelFile(const std::string& file) {
    const std::size_t dot = file.rfind('.');
    return dot != std::string::npos && TypeOfSuffix(Lower(file.substr(dot + 1))) != PRO_MDL_UNUSED;
}

}  // namespace

std::vector<std::string> ModelsInMemory() {
    std::vector<std::string> names;
    for (const Model* model : TheHost().session.All()) names.push_back(model->FileName());
    return names;
}

std::vector<std::string> ModelFiles() {
    std::vector<std::string> names;
    const auto folder = TheHost().disk.Real(TheHost().session.workingDirectory);
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
        const std::u8string name = entry.path().filename().u8string();
        const std::string file = WithoutVersion(std::string(name.begin(), name.end()));
        if (IsModelFile(file)) names.push_back(file);
    }
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
}

std::map<std::string, std::vector<std::string>> IniNames(const WideText& path) {
    std::string text = ReadFile(TheHost().disk.Real(path));
    // The names are ASCII, whatever the file's code page; in UTF-16 there are zeros between the
    // letters.
    std::erase(text, '\0');
    std::map<std::string, std::vector<std::string>> names;
    std::vector<std::string>* keys = nullptr;
    for (std::size_t from = 0, to = 0; from < text.size(); from = to + 1) {
        to = std::min(text.find('\n', from), text.size());
        const std::string line(Trimmed(text.substr(from, to - from)));
        if (line.empty() || line[0] == ';') continue;
        const std::size_t equals = line.find('=');
        if (line[0] == '[') {
            keys = &names[line.substr(1, line.rfind(']') - 1)];
        } else if (keys && equals != std::string::npos) {
            keys->emplace_back(Trimmed(line.substr(0, equals)));
        }
    }
    return names;
}

std::vector<std::string> SettingValues(const std::string& section) {
    const WideText path = TheHost().textFolder + WIDE("\\text\\resource\\VxConfig.res");
    bool found = false;
    const std::string text = ReadFile(TheHost().disk.Real(path), &found);
    if (!found) return {};
    try {
        const DialogResource dialog = ParseResource(text, "VxConfig.res");
        const std::vector<std::string>* values = dialog.Find(section, "Names");
        return values ? *values : std::vector<std::string>();
    } catch (const ResourceError&) {
        return {};  // who opens the dialog is told
    }
}

const std::vector<std::string>& OptionNames() {
    static const std::vector<std::string> names = {
        "dwg_export_format",  "override_store_back",     "pro_format_dir",
        "pro_group_dir",      "pro_material_dir",        "pro_sheet_met_dir",
        "template_designasm", "template_sheetmetalpart", "template_solidpart",
    };
    return names;
}

}  // namespace simhost
