// Saving the picture of the current model.
#include "simhost/app/picture_file.h"

#include <filesystem>
#include <stdexcept>

#include "simhost/core/disk.h"
#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/model/drawing.h"
#include "simhost/picture/cairo_canvas.h"
#include "simhost/picture/isometric.h"
#include "simhost/picture/sheet.h"
#include "simhost/picture/svg_canvas.h"
#include "simhost/user/progress.h"

namespace fs = std::filesystem;

namespace simhost {

namespace {

Picture PictureOf(Model& model, bool asOnScreen) {
    constexpr int kWidth = 1200, kSheetWidth = 2400;
    if (model.type != PRO_MDL_DRAWING) {
        return asOnScreen ? ScreenPicture(model) : IsometricPicture(model, kWidth);
    }
    return SheetPicture(model, DrawingOf(model).currentSheet, kSheetWidth);
}

// Throws std::runtime_error where it cannot be done.
void Write(const Picture& picture, const std::string& ending, const fs::path& path) {
    if (ending == ".png") return WritePng(picture, path);
    if (ending == ".pdf") return WritePdf({picture}, path);
    if (!WriteFile(path, SvgOf(picture))) throw std::runtime_error("cannot write it");
}

}  // namespace

std::string SavePicture(const std::string& file, bool asOnScreen) {
    Model* model = TheHost().session.CurrentModel();
    if (!model) return "no model is open";
    const fs::path path(std::u8string(file.begin(), file.end()));
    const std::string ending = Lower(path.extension().string());
    if (ending != ".svg" && ending != ".png" && ending != ".pdf") {
        return file + ": a picture ends in .svg, .png or .pdf";
    }
    std::error_code ignored;
    if (path.has_parent_path()) fs::create_directories(path.parent_path(), ignored);
    try {
        Write(PictureOf(*model, asOnScreen), ending, path);
    } catch (const Interrupted& stopped) {
        return stopped.what();
    } catch (const std::runtime_error& error) {
        return file + ": " + error.what();
    }
    return {};
}

}  // namespace simhost
