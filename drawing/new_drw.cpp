// VxNewDrw: the drawing of a model under the model's own name, opened if it is there, else made
// from the template that the settings have for a sheet size and a type of model.
#include <iterator>

#include "drawing/commands.h"
#include "drawing/drawn_model.h"
#include "drawing/folder_drawings.h"
#include "drawing/new_drawing.h"
#include "frame/services.h"

namespace {

constexpr Dialog kDialog{"VxNewDrw"};

// A choice of the dialog, and the section of the settings that holds its template.
struct TemplateSection {
    const char* size;
    const WideChar* assembly;
    const WideChar* part;
};
// clang-format off
constexpr TemplateSection kTemplates[] = {
    {"A0",  WIDE("A0Asmpath"),  WIDE("A0Prtpath")},
    {"A1",  WIDE("A1Asmpath"),  WIDE("A1Prtpath")},
    {"A2",  WIDE("A2Asmpath"),  WIDE("A2Prtpath")},
    {"A3",  WIDE("A3Asmpath"),  WIDE("A3Prtpath")},
    {"A4",  WIDE("A4Asmpath"),  WIDE("A4Prtpath")},
    {"A4H", WIDE("A4HAsmpath"), WIDE("A4HPrtpath")},
};
// clang-format on

// The template for a size and a type of model; empty where none is set.
WideText TemplateFor(const std::string& size, const std::string& type) {
    for (const TemplateSection& each : kTemplates) {
        if (size != each.size) continue;
        const WideChar* section = type == "asm"   ? each.assembly
                                  : type == "prt" ? each.part
                                                  : nullptr;
        if (!section) break;
        return ReadIniValue(FileBesideModule(kConfigFile), section, WIDE("path"));
    }
    return {};
}

// The folder of a path; that of a file at the top of a drive is "C:\\". Empty for a bare name.
WideText FolderOf(const WideText& path) {
    const std::size_t end = path.find_last_of(WIDE("\\/"));
    if (end == WideText::npos) return {};
    WideText folder = path.substr(0, end);
    if (folder.ends_with(WideChar{':'})) folder += WideChar{'\\'};
    return folder;
}

// The host finds a template by its name where it works, so it works in the template's folder for
// the moment. A template that is set without a folder is looked for where the host is.
// False: there is no drawing.
bool CreateFromTemplate(ProMdl model, const WideText& name, const WideText& path,
                        const WideText& workFolder) {
    const WideText drawingTemplate = ModelNameOf(path);
    const FolderVisit visit(FolderOf(path), workFolder);
    if (!RetrieveDrawing(drawingTemplate)) {
        ShowNotice(WIDE("当前模板无法检索，请检查模板设置是否正确。\n") + path);
        return false;
    }
    ProDrawing drawing = nullptr;
    return CreateDrawing(name, drawingTemplate, ShownModel(model), &drawing) == PRO_TK_NO_ERROR;
}

void OnCreate(char*, char*, ProAppData) {
    ProPath workFolder = {};
    ProDirectoryCurrentGet(workFolder);
    const std::string size = kDialog.Selected("RadioSize");
    const std::string type = kDialog.Selected("RadioType");
    // The current one, whichever was selected when the dialog was opened.
    ProMdl model = nullptr;
    if (ProMdlCurrentGet(&model) != PRO_TK_NO_ERROR) return;
    const WideText path = TemplateFor(size, type);
    if (path.empty()) {
        return ShowNotice(WIDE("当前所选模板未配置，请在 岚枢设置 功能中配置后再试。"));
    }
    const WideText name = ModelName(model);
    if (CreateFromTemplate(model, name, path, TextIn(workFolder))) OpenDrawingWindowAndEnter(name);
}

}  // namespace

void VxNewDrw() {
    ProMdl current = nullptr;
    if (ProMdlCurrentGet(&current) != PRO_TK_NO_ERROR) return;
    const TopModel drawn = DrawnModel(current);
    if (!drawn.model) return;
    const WideText name = ModelName(drawn.model);
    if (RetrieveDrawing(name)) return OpenDrawingWindowAndEnter(name);
    RunModalDialog(kDialog, [type = drawn.type] {
        kDialog.OnPress("VxCreateDrw", Guarded<OnCreate>);
        kDialog.OnClose(EndDialogOnClose);
        // For a manufacturing model the choice stays as the resource has it.
        if (type == PRO_MDL_ASSEMBLY) kDialog.Select("RadioType", "asm");
        if (type == PRO_MDL_PART) kDialog.Select("RadioType", "prt");
        kDialog.Select("RadioSize", "A3");
    });
}
