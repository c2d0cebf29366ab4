// The ground of the tests of commands about sheets.
#include "tests/drawing/sheet_bench.h"

#include <fmt/format.h>

#include <filesystem>

#include "simhost/model/model_file.h"

namespace workbench {

using namespace simhost;

std::string GeneralView(int id, const std::string& model, int sheet, const std::string& scale) {
    std::string text = fmt::format("\n[[view]]\nid = {}\n", id);
    text += fmt::format("model = \"{}\"\n", model);
    text += fmt::format("sheet = {}\nat = [{}, 100]\npivot = [50, 30, 20]\n", sheet, 100 * id);
    if (!scale.empty()) text += fmt::format("scale = {}\n", scale);
    return text;
}

std::string ProjectedView(int id, int parent) {
    return fmt::format("\n[[view]]\nid = {}\nparent = {}\nside = \"below\"\nat = [{}, 20]\n", id,
                       parent, 100 * parent);
}

void SheetBench::WriteInto(const WideText& path, const std::string& bytes) {
    const WideText folder = path.substr(0, path.rfind(WideChar{'\\'}));
    std::filesystem::create_directories(host().disk.Real(folder));
    Write(path, bytes);
}

void SheetBench::WriteDrawing(const std::string& file, const std::string& rest) {
    Write(WIDE("C:\\Work\\") + Wide(file), "[model]\ntype = \"drawing\"\n" + rest);
}

void SheetBench::WriteFormat(const std::string& file, const std::string& size,
                             const WideText& folder) {
    WriteInto(folder + WIDE("\\") + Wide(file),
              "[model]\ntype = \"format\"\n\n[[sheet]]\nsize = \"" + size +
                  "\"\n[[sheet.line]]\npoints = [10, 10, 200, 10]\n\n[[table]]\nid = 1\n"
                  "at = [100, 50]\ncolumns = [40]\nheights = [8]\ncells = [[\"&model_name\"]]\n");
}

Model& SheetBench::SavedBox(const std::string& name) {
    Model& box = BoxPart(name, 100, 60, 40);
    host().session.Save(box);
    return box;
}

void SheetBench::WriteTemplate(const WideText& path, const std::string& size) {
    WriteInto(path, "[model]\ntype = \"drawing\"\n\n[sheets]\nsizes = [\"" + size +
                        "\"]\n\n[drawing]\nprojection = \"first-angle\"\n" + GeneralView(1, "", 1));
}

Model SheetBench::Saved(const std::string& fileName) {
    Model model;
    const auto path =
        NewestFileOf(host().disk.Real(host().session.workingDirectory), Wide(fileName));
    EXPECT_FALSE(path.empty()) << fileName;
    if (!path.empty()) ReadModelText(ReadFile(path), fileName, &model);
    return model;
}

std::vector<std::string> SheetBench::CallsOf(const std::string& lines) {
    host().journal.Clear();
    host().journal.Start();
    Play(lines);
    host().journal.Stop();
    std::vector<std::string> names;
    for (const std::string& call : Calls()) {
        const std::size_t from = call.find_first_not_of(' ');
        const std::string name = call.substr(from, call.find('(') - from);
        const bool counts = name != "ProModeCurrentGet" && name != "ProStringToWstring" &&
                            name != "ProWstringToString";
        if (name.starts_with("Pro") && counts) names.push_back(name);
    }
    return names;
}

std::vector<std::string> SheetBench::LinesOf(const std::string& operation) const {
    std::vector<std::string> found;
    for (const std::string& line : Calls()) {
        const std::string call = line.substr(line.find_first_not_of(' '));
        if (call.starts_with(operation + "(")) found.push_back(call);
    }
    return found;
}

Model& SheetBench::Drawn(const std::string& name) {
    Model* drawing = FindDrawing(name);
    if (!drawing) throw std::runtime_error("no drawing " + name);
    return *drawing;
}

}  // namespace workbench
