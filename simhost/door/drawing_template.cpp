// Making drawings from a template at the door.
#include "hostapi/host/drawing_template.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "simhost/core/text.h"
#include "simhost/door/door.h"
#include "simhost/model/drawing.h"
#include "simhost/model/model_file.h"

using namespace simhost;

namespace {

namespace fs = std::filesystem;

std::string FileNameOf(const fs::path& path) {
    const auto utf8 = path.filename().u8string();
    return std::string(utf8.begin(), utf8.end());
}

// The file of this name in the working folder: its highest version, or the one without a version.
// Empty if there is none.
fs::path NewestFile(const std::string& fileName) {
    const fs::path folder = TheHost().disk.Real(TheHost().session.workingDirectory);
    fs::path newest;
    long best = -1;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(folder, error)) {
        const std::string name = Lower(FileNameOf(entry.path()));
        if (name.compare(0, fileName.size(), fileName) != 0) continue;
        const std::string rest = name.substr(fileName.size());
        const bool versioned = rest.size() > 1 && rest[0] == '.' &&
                               rest.find_first_not_of("0123456789", 1) == std::string::npos;
        if (!rest.empty() && !versioned) continue;
        const long version = rest.empty() ? 0 : std::strtol(rest.c_str() + 1, nullptr, 10);
        if (version > best) {
            best = version;
            newest = entry.path();
        }
    }
    return newest;
}

// What a template says, in a model of no session.
void ReadTemplate(const fs::path& path, Model* model) {
    try {
        ReadModelText(ReadFile(path), FileNameOf(path), model);
    } catch (const ModelFileError& error) {
        TheHost().Tell(error.what());
        Refuse(PRO_TK_DWGCREATE_ERRORS);
    }
    if (model->type != PRO_MDL_DRAWING || model->drawingData.sheetSizes.empty()) {
        Refuse(PRO_TK_DWGCREATE_ERRORS);
    }
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
            if (wanted.empty() || wanted.size() >= PRO_NAME_SIZE) {
                Complain(PRO_TK_BAD_INPUTS, "a drawing's name has 1 to 31 characters");
            }
            const std::string file = Utf8(Lower(WideView(wanted))) + ".drw";
            if (session.FindByFile(file) || !NewestFile(file).empty()) Refuse(PRO_TK_E_FOUND);
            const fs::path path = NewestFile(Utf8(Lower(WideView(drawingTemplate))));
            if (path.empty() || !ShownModel(*model)) Refuse(PRO_TK_E_NOT_FOUND);
            Model pattern;
            ReadTemplate(path, &pattern);
            Model& made = session.Create(wanted, PRO_MDL_DRAWING);
            made.drawingData.sheetSizes = pattern.drawingData.sheetSizes;
            DrawingOf(made).rule = DrawingOf(pattern).rule;
            made.modified = true;
            if (options & PRODWGCREATE_DISPLAY_DRAWING) ShowInWindow(made);
            *errors = nullptr;
            *drawing = static_cast<ProDrawing>(made.handle);
        },
        GIVEN(name), "template", drawingTemplate, GIVEN(model), ARG(options), OUT(drawing),
        OUT(errors));
}
