// Making drawings from a template at the door.
#include "hostapi/host/drawing_template.h"

#include <algorithm>
#include <filesystem>

#include "simhost/core/file_names.h"
#include "simhost/core/text.h"
#include "simhost/door/door.h"
#include "simhost/model/drawing_template.h"
#include "simhost/model/model_file.h"

using namespace simhost;

namespace {

namespace fs = std::filesystem;

// "a3_prt", "vx.drw" and "VX.DRW.2" as the name of a file, "vx.drw".
std::string FileOfTemplate(WideView name) {
    std::string file;
    SplitVersion(Utf8(WideText(name)), &file);
    return file.ends_with(".drw") ? file : file + ".drw";
}

bool MayRead(const fs::path& path) {
    std::error_code error;
    return (fs::status(path, error).permissions() & fs::perms::owner_read) != fs::perms::none;
}

// What a template in the working folder says, in a model of no session.
void ReadTemplate(const std::string& file, Model* model) {
    const fs::path folder = TheHost().disk.Real(TheHost().session.workingDirectory);
    const fs::path path = NewestFileOf(folder, Wide(file));
    if (path.empty()) Refuse(PRO_TK_E_NOT_FOUND);
    if (!MayRead(path)) Refuse(PRO_TK_NO_PERMISSION);
    try {
        ReadModelText(ReadFile(path), file, model);
    } catch (const ModelFileError& error) {
        TheHost().Tell(error.what());
        Refuse(PRO_TK_DWGCREATE_ERRORS);
    }
    if (model->type != PRO_MDL_DRAWING) Refuse(PRO_TK_DWGCREATE_ERRORS);
}

WideText TextIn(const WideChar* buffer, std::size_t size) {
    return WideText(buffer, std::find(buffer, buffer + size, WideChar{}));
}

Model* ShownModel(const ProModel& shown) {
    const std::string type = Utf8(Lower(TextIn(shown.type, PRO_TYPE_SIZE)));
    const ProMdlType kind = TypeOfSuffix(type);
    if (kind != PRO_MDL_PART && kind != PRO_MDL_ASSEMBLY) return nullptr;
    return TheHost().session.FindByName(TextIn(shown.name, PRO_NAME_SIZE), kind);
}

bool IsInWorkingFolder(const std::string& file) {
    const fs::path folder = TheHost().disk.Real(TheHost().session.workingDirectory);
    return !NewestFileOf(folder, Wide(file)).empty();
}

// The new drawing; none is left where the template has not what it needs.
Model& Made(const WideText& name, const Model& pattern, Model& shown) {
    if (pattern.drawingData.sheets.empty()) Refuse(PRO_TK_DWGCREATE_ERRORS);
    Session& session = TheHost().session;
    Model& made = session.Create(name, PRO_MDL_DRAWING);
    if (FillFromTemplate(pattern, shown, &made)) return made;
    session.Erase(made);
    Refuse(PRO_TK_DWGCREATE_ERRORS);
}

// A window of its own; the user's attention stays where it is.
void ShowInWindow(Model& model) {
    Session& session = TheHost().session;
    Window* current = session.current;
    session.Open(model);
    if (current) session.current = current;
}

}  // namespace

ProError ProDrawingFromTmpltCreate(ProName name, ProName drawingTemplate, ProModel* model,
                                   ProDwgcreateOptions options, ProDrawing* drawing,
                                   ProDwgcreateErrs* errors) {
    return Op<"ProDrawingFromTmpltCreate">.Call(
        [&] {
            Need(drawingTemplate, "the template");
            if (!model->name[0]) Refuse(PRO_TK_BAD_INPUTS);
            Session& session = TheHost().session;
            const WideText wanted = name;
            if (!IsModelName(wanted)) Refuse(PRO_TK_BAD_INPUTS);
            const std::string file = Utf8(Lower(WideView(wanted))) + ".drw";
            if (session.FindByFile(file) || IsInWorkingFolder(file)) Refuse(PRO_TK_E_FOUND);
            Model* shown = ShownModel(*model);
            if (!shown) Refuse(PRO_TK_E_NOT_FOUND);
            const std::string templateFile = FileOfTemplate(drawingTemplate);
            Model read;
            const Model* pattern = session.FindByFile(templateFile);
            if (!pattern) {
                ReadTemplate(templateFile, &read);
                pattern = &read;
            }
            Model& made = Made(wanted, *pattern, *shown);
            made.modified = true;
            if (options & PRODWGCREATE_DISPLAY_DRAWING) ShowInWindow(made);
            *errors = nullptr;
            *drawing = static_cast<ProDrawing>(made.handle);
        },
        GIVEN(name), "template", drawingTemplate, GIVEN(model), ARG(options), OUT(drawing),
        OUT(errors));
}
