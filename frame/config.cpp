// VxConfig: the settings of all commands in one dialog. A setting is a section of the file and a
// component of the dialog of the same name.
#include "frame/config.h"

#include <string_view>

#include "frame/services.h"
#include "hostapi/windows.h"

namespace {

constexpr Dialog kDialog = "VxConfig";

// Choices in the order in which the dialog is filled, and in that in which they are saved.
constexpr const char* kChoices[] = {
    "SetLastDir",      "AsmAssembly",      "PrtAssembly",
    "SmtAssembly",     "RmbDisable",       "TweViewsUseAutoMainView",
    "CompCopyAutoNum", "VxRandomColorOpt", "VxExportDwgDIr",
    "VxExportPdfDIr",  "VxExportStpDir",   "VxCountForInstance",
};
constexpr const char* kChoicesToSave[] = {
    "SetLastDir",       "AsmAssembly",        "PrtAssembly",    "SmtAssembly",
    "CompCopyAutoNum",  "VxExportDwgDIr",     "VxExportPdfDIr", "VxExportStpDir",
    "VxRandomColorOpt", "VxCountForInstance", "RmbDisable",     "TweViewsUseAutoMainView",
};

// A template drawing: its button, its input panel (and section), the title of its file dialog.
struct TemplateRow {
    const char* button;
    const char* panel;
    const WideChar* title;
};
// clang-format off
constexpr TemplateRow kTemplates[] = {
    {"SelA0Asm",  "A0Asmpath",  WIDE("请选择A0组件模板")},
    {"SelA0Prt",  "A0Prtpath",  WIDE("请选择A0零件模板")},
    {"SelA1Asm",  "A1Asmpath",  WIDE("请选择A1组件模板")},
    {"SelA1Prt",  "A1Prtpath",  WIDE("请选择A1零件模板")},
    {"SelA2Asm",  "A2Asmpath",  WIDE("请选择A2组件模板")},
    {"SelA2Prt",  "A2Prtpath",  WIDE("请选择A2零件模板")},
    {"SelA3Asm",  "A3Asmpath",  WIDE("请选择A3组件模板")},
    {"SelA3Prt",  "A3Prtpath",  WIDE("请选择A3零件模板")},
    {"SelA4Asm",  "A4Asmpath",  WIDE("请选择A4组件模板")},
    {"SelA4Prt",  "A4Prtpath",  WIDE("请选择A4零件模板")},
    {"SelA4HAsm", "A4HAsmpath", WIDE("请选择A4横向组件模板")},
    {"SelA4HPrt", "A4HPrtpath", WIDE("请选择A4横向零件模板")},
};
// clang-format on

WideText SectionOf(std::string_view component) {
    return WideText(component.begin(), component.end());
}

void ShowChoice(const WideText& path, const char* group) {
    const WideText value = ReadIniValue(path, SectionOf(group), WIDE("value"));
    kDialog.Select(group, Narrow(value));
}

void ShowTemplate(const WideText& path, const char* panel) {
    const WideText value = ReadIniValue(path, SectionOf(panel), WIDE("path"));
    kDialog.SetInputText(panel, value.c_str());
}

// A group without a selection leaves its section as it is on disk.
void SaveChoice(const WideText& path, const char* group) {
    const std::string name = kDialog.Selected(group);
    const WideText value = Widen(name.c_str());
    if (!value.empty()) WriteIniValue(path, SectionOf(group), WIDE("value"), value);
}

// A null text deletes the key; what could not be read stays as it is on disk.
void SaveTemplate(const WideText& path, const char* panel) {
    const auto value = kDialog.InputValue(panel);
    if (!value) return;
    WritePrivateProfileStringW(SectionOf(panel).c_str(), WIDE("path"), value->OrNull(),
                               path.c_str());
}

void OnSave(char*, char*, ProAppData) {
    const std::optional<WideText> path = WritableFileBesideModule(kConfigFile);
    if (!path) return;
    for (const char* group : kChoicesToSave) SaveChoice(*path, group);
    for (const TemplateRow& row : kTemplates) SaveTemplate(*path, row.panel);
}

// Starts in the host's folder of drawing formats; without one, where the host likes.
void PickTemplate(const TemplateRow& row) {
    HostArray<ProPath> folders;
    ProPath* values = nullptr;
    if (ProConfigoptArrayGet(HostText(WIDE("pro_format_dir")), &values) == PRO_TK_NO_ERROR) {
        folders.Adopt(values);
    }
    WideChar* folder = folders.Size() > 0 ? folders.data()[0] : nullptr;
    ProPath path = {};
    if (ProFileOpen(HostText(row.title), HostText(WIDE("*.drw")), nullptr, nullptr, folder, nullptr,
                    path) != PRO_TK_NO_ERROR) {
        return;
    }
    kDialog.SetInputText(row.panel, path);
}

void OnPickTemplate(char*, char*, ProAppData row) {
    PickTemplate(*static_cast<const TemplateRow*>(row));
}

void Prepare() {
    kDialog.OnPress("save", Guarded<OnSave>);
    for (const TemplateRow& row : kTemplates) {
        kDialog.OnPress(row.button, Guarded<OnPickTemplate>, &row);
    }
    kDialog.OnClose(EndDialogOnClose);
    const WideText path = FileBesideModule(kConfigFile);
    for (const char* group : kChoices) ShowChoice(path, group);
    for (const TemplateRow& row : kTemplates) ShowTemplate(path, row.panel);
}

}  // namespace

void VxConfig() {
    RunModalDialog(kDialog, Prepare);
}
