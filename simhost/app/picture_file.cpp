// Saving the picture of the current model.
#include "simhost/app/picture_file.h"

#include <filesystem>

#include "simhost/app/picture.h"
#include "simhost/app/sheet_picture.h"
#include "simhost/core/disk.h"
#include "simhost/host.h"
#include "simhost/model/drawing.h"

namespace fs = std::filesystem;

namespace simhost {

std::string SavePicture(const std::string& file) {
    constexpr int kWidth = 1200, kSheetWidth = 2400;
    Session& session = TheHost().session;
    Model* model = session.CurrentModel();
    if (!model) return "no model is open";
    const fs::path path(std::u8string(file.begin(), file.end()));
    std::error_code ignored;
    if (path.has_parent_path()) fs::create_directories(path.parent_path(), ignored);
    const std::string svg = model->type == PRO_MDL_DRAWING
                                ? SheetSvg(*model, DrawingOf(*model).currentSheet, kSheetWidth)
                                : IsometricSvg(session, *model, kWidth);
    if (!WriteFile(path, svg)) return "cannot write " + file;
    return {};
}

}  // namespace simhost
