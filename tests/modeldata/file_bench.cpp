// The files, and what became of the parts.
#include "tests/modeldata/file_bench.h"

#include <fmt/format.h>

#include <filesystem>

namespace workbench {

using namespace simhost;

const char* const kMaterialDone =
    "@ expect box \"\\t材料设置完成|岚枢QQ②群:100200301，①群:10020030\\t\"\n"
    "@ expect caption 岚枢工具By墨川听雨,QQ:100200300\n@ ok\n";
const char* const kBendTableDone =
    "@ expect box \"\\t钣金件批量折弯表设置完成|岚枢QQ②群:100200301，①群:10020030\\t\"\n"
    "@ expect caption 岚枢工具By墨川听雨,QQ:100200300\n@ ok\n";

std::string PlainError(const std::string& text) {
    return "@ expect box \"" + text + "\"\n@ expect caption none\n@ ok\n";
}

void FileBench::SetUp() {
    Start();
    WriteIn("C:\\Materials", "steel.mtl", MaterialText(8000));
    WriteIn("C:\\Materials", "brass.mtl", MaterialText(9000));
    WriteIn("C:\\Tables", "soft.bnd", TableText(7));
}

void FileBench::WriteIn(const std::string& folder, const std::string& file,
                        const std::string& text) {
    std::filesystem::create_directories(host().disk.Real(Wide(folder)));
    Write(Wide(folder + "\\" + file), text);
}

std::string FileBench::MaterialText(double density) {
    return fmt::format("[material]\ndensity = {}\ndensity_unit = \"kg/m^3\"\n", density);
}

std::string FileBench::TableText(double length) {
    return fmt::format("[bend_table]\nthickness = [3]\nradius = [2]\nlength = [[{}]]\n", length);
}

Model& FileBench::Sheet(const std::string& name) {
    Model& part = SheetMetal(name);
    auto& sheet = part.partData.sheetMetal;
    sheet.thickness = 3;
    sheet.flats = {20, 30};
    sheet.bends = {Bend{2, 90}};
    sheet.developed = DevelopedLength(sheet);
    return part;
}

void FileBench::SetMaterial(const std::string& more, const std::string& path) {
    Play("~ Command `SetMat`\n@ answer " + path + "\n" + more);
}

void FileBench::SetTable(const std::string& more, const std::string& path) {
    Play("~ Command `SetBendTable`\n@ answer " + path + "\n" + more);
}

void FileBench::RunAction(const std::string& command, const std::string& lines) {
    const Command* found = host().commands.Newest(command);
    PlayDuring([&] { found->action(found->id, nullptr, nullptr); }, lines);
}

std::string FileBench::MaterialIn(const Model& part) {
    const Material* material = MaterialOf(part);
    return material ? Utf8(material->name) : "none";
}

std::string FileBench::TableIn(const Model& part) {
    const WideText& name = part.partData.sheetMetal.table.name;
    return name.empty() ? "none" : Utf8(name);
}

std::string FileBench::Option(const std::string& name) {
    const auto found = host().configOptions.find(Wide(name));
    return found == host().configOptions.end() ? "none" : Utf8(found->second.at(0));
}

std::string FileBench::WorkingFolder() {
    return Utf8(host().session.workingDirectory);
}

}  // namespace workbench
