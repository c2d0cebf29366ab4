// Saving the picture of the current model.
#include "simhost/app/picture_file.h"

#include <filesystem>

#include "simhost/app/picture.h"
#include "simhost/core/disk.h"
#include "simhost/host.h"

namespace fs = std::filesystem;

namespace simhost {

std::string SavePicture(const std::string& file) {
    constexpr int kWidth = 1200;
    Session& session = TheHost().session;
    Model* model = session.CurrentModel();
    if (!model) return "no model is open";
    const fs::path path(std::u8string(file.begin(), file.end()));
    std::error_code ignored;
    if (path.has_parent_path()) fs::create_directories(path.parent_path(), ignored);
    if (!WriteFile(path, IsometricSvg(session, *model, kWidth))) return "cannot write " + file;
    return {};
}

}  // namespace simhost
