// The @ words about the files of the working folder: which there are, what they name, and how those
// of another system get there.
#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <stdexcept>
#include <string_view>

#include "simhost/core/disk.h"
#include "simhost/core/file_names.h"
#include "simhost/core/text.h"
#include "simhost/kernel/import.h"
#include "simhost/model/drawing.h"
#include "simhost/model/model_file.h"
#include "simhost/model/solid_features.h"
#include "simhost/trail/interpreter.h"
#include "simhost/trail/words.h"
#include "simhost/ui/text_frame.h"

namespace simhost {

namespace fs = std::filesystem;

namespace {

fs::path WorkingFolder() {
    return TheHost().disk.Real(TheHost().session.workingDirectory);
}

// A folder or a file by its Windows path, or below the working folder; no text is that one.
fs::path PlaceAt(const std::string& name) {
    WideText path = Wide(name);
    if (path.find(WideChar{':'}) == WideText::npos) {
        path = TheHost().session.workingDirectory + WIDE("\\") + path;
    }
    return TheHost().disk.Real(path);
}

std::string NameOf(const fs::path& path) {
    const auto name = path.filename().u8string();
    return {name.begin(), name.end()};
}

void AddNew(const std::string& name, std::vector<std::string>* names) {
    const bool isNew = std::find(names->begin(), names->end(), name) == names->end();
    if (!name.empty() && isNew) names->push_back(name);
}

// Every file of the folder with its bytes.
using FolderBytes = std::map<std::string, std::string>;
FolderBytes BytesOf(const fs::path& folder) {
    FolderBytes bytes;
    for (const auto& entry : fs::directory_iterator(folder)) {
        if (entry.is_regular_file()) bytes[NameOf(entry.path())] = ReadFile(entry.path());
    }
    return bytes;
}
FolderBytes& Remembered() {
    static FolderBytes files;
    return files;
}

// The files that a model's file names, each once.
std::vector<std::string> NamedIn(const fs::path& file) {
    Model model;
    std::string fileName;
    SplitVersion(NameOf(file), &fileName);
    ReadModelText(ReadFile(file), fileName, &model);
    std::vector<std::string> names;
    for (const Feature& feature : model.features()) {
        AddNew(feature.file, &names);
        if (feature.merge) AddNew(feature.merge->file, &names);
    }
    AddNew(model.manufacturingData.assemblyFile, &names);
    AddNew(model.family.genericFile, &names);
    model.drawingData.EachFile([&](const std::string* each) { AddNew(*each, &names); });
    if (!model.drawingData.views) return names;
    for (const auto& view : model.drawingData.views->views()) AddNew(view->file, &names);
    return names;
}

// A name that is nowhere is what a designer will miss at the next opening.
void SayReferences(Trail& trail, const fs::path& file) {
    std::string line;
    for (const std::string& name : NamedIn(file)) {
        line += (line.empty() ? "" : ", ") + name;
        if (NewestFileOf(WorkingFolder(), Wide(name)).empty()) line += " (missing)";
    }
    if (!line.empty()) trail.Say(Padded(NameOf(file), 28) + " -> " + line);
}

}  // namespace

void MakeFolder(Trail& trail, const std::string& rest) {
    const std::string name = ParseText(rest).text;
    if (name.empty()) return trail.Fail("a folder's name belongs after make folder");
    const fs::path folder = PlaceAt(name);
    std::error_code error;
    fs::create_directories(folder, error);
    if (error || folder.empty()) trail.Fail("the folder " + name + " cannot be made");
}

void ImportFile(Trail& trail, const std::string& rest) {
    constexpr std::string_view kInto = " into ";
    const std::size_t into = rest.rfind(kInto);
    if (into == std::string::npos) return trail.Fail("write import FILE into FOLDER");
    const std::string file = ParseText(rest.substr(0, into)).text;
    const std::string folder = ParseText(rest.substr(into + kInto.size())).text;
    const fs::path from = PlaceAt(file), to = PlaceAt(folder);
    if (from.empty()) return trail.Fail("there is no file " + file);
    if (to.empty()) return trail.Fail("the folder " + folder + " cannot be made");
    try {
        trail.SayAll(TextOf(ImportStep(from, to)));
    } catch (const std::runtime_error& error) {
        trail.Fail(error.what());
    }
}

void RememberFiles(Trail& trail, const std::string&) {
    Remembered() = BytesOf(WorkingFolder());
    trail.Say(fmt::format("{} files", Remembered().size()));
}

void ExpectSameFiles(Trail& trail, const std::string&) {
    const FolderBytes now = BytesOf(WorkingFolder());
    std::string differs;
    const auto compare = [&](const FolderBytes& files, const FolderBytes& others) {
        for (const auto& [name, bytes] : files) {
            const auto other = others.find(name);
            if (other == others.end() || other->second != bytes) differs = name;
        }
    };
    compare(now, Remembered());
    compare(Remembered(), now);
    if (!differs.empty()) trail.Fail(differs + " is not as it was remembered");
}

void ShowFiles(Trail& trail, const std::string& rest) {
    const std::string wanted = ParseText(rest).text;
    const fs::path folder = PlaceAt(wanted);
    std::error_code error;
    if (!fs::is_directory(folder, error)) return trail.Fail("there is no folder " + wanted);
    std::vector<std::string> lines;
    for (const auto& entry : fs::directory_iterator(folder)) {
        if (!entry.is_regular_file()) continue;
        lines.push_back(
            fmt::format("{} {} bytes", Padded(NameOf(entry.path()), 28), entry.file_size()));
    }
    std::sort(lines.begin(), lines.end());
    if (lines.empty()) lines.emplace_back("(no files)");
    trail.SayAll(lines);
}

void ShowReferences(Trail& trail, const std::string& rest) {
    const std::string wanted = ParseText(rest).text;
    if (!wanted.empty()) {
        const fs::path file = NewestFileOf(WorkingFolder(), Wide(wanted));
        if (file.empty()) return trail.Fail("there is no file " + wanted);
        return SayReferences(trail, file);
    }
    for (const NamedFile& file : FilesIn(WorkingFolder())) {
        const std::string name = Utf8(Lower(file.name));
        const std::size_t dot = name.rfind('.');
        const bool isModel =
            dot != std::string::npos && TypeOfSuffix(name.substr(dot + 1)) != PRO_MDL_UNUSED;
        if (isModel) SayReferences(trail, file.path);
    }
}

}  // namespace simhost
