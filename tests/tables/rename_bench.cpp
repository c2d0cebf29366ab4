// The small assembly of the tests of VxRename.
#include "tests/tables/rename_bench.h"

#include <filesystem>

#include "simhost/core/disk.h"
#include "simhost/ui/text_frame.h"

namespace workbench {

using namespace simhost;
namespace fs = std::filesystem;

void RenameBench::SetUp() {
    Workbench::Start();
    top_ = &MakeModels("top: plate x2, sub(bolt, skel!skeleton), bolt");
    plate_ = &ModelNamed("plate");
    sub_ = &ModelNamed("sub");
    bolt_ = &ModelNamed("bolt");
    for (Model* model : host().session.All()) host().session.Save(*model);
    Open(*top_);
    Filter("");
}

void RenameBench::Filter(const std::string& value) {
    Write(kModuleFolder + WIDE("\\VXconfig\\VxRename.ini"),
          ToSystemCodePage(Wide("[RenameFilter]\r\ncontent=" + value + "\r\n")));
}

void RenameBench::Check(const std::string& lines) {
    Play("~ Command `VxRename`\n" + lines + "~ Close `VxRename`\n");
}

void RenameBench::Start(const std::string& lines, const std::string& box) {
    const std::string text = Visible(Wide(box.empty() ? kRenamed : box));
    Check(lines + "~ Activate `VxRename` `StartRename`\n@ expect box " + text + "\n@ ok\n");
}

std::map<std::string, std::string> RenameBench::Folder() {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::directory_iterator(host().disk.Real(WIDE("C:\\Work")))) {
        const auto name = entry.path().filename().u8string();
        files[std::string(name.begin(), name.end())] = ReadFile(entry.path());
    }
    return files;
}

Names RenameBench::Files() {
    Names names;
    for (const auto& [name, bytes] : Folder()) names.push_back(name);
    return names;
}

bool RenameBench::Exists(const WideText& path) {
    return fs::exists(host().disk.Real(path));
}

std::string RenameBench::Option() {
    const auto found = host().configOptions.find(WIDE("override_store_back"));
    if (found == host().configOptions.end()) return "none";
    return found->second.empty() ? "(no value)" : Utf8(found->second.front());
}

}  // namespace workbench
