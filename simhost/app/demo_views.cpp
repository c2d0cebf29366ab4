// The part of the demonstration that makes drawings: what a designer does in the dialog TweViews,
// for a part and for an assembly.
#include "simhost/app/demo_views.h"

#include <fmt/format.h>

#include "hostapi/windows.h"
#include "simhost/app/picture_file.h"
#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/trail/interpreter.h"

namespace simhost {

namespace {

struct Sheet {
    const char* model;
    const char* drawing;
    const char* views;
    const char* fromScreen;  // the setting: the main view as the screen shows the model
    int count;
    bool exported;
};
constexpr Sheet kSheets[] = {
    {"housing.prt", "HOUSING-12", "six-nohidden", "1", 7, false},
    {"housing.prt", "HOUSING-12", "twelve", "0", 14, false},
    {"gearbox.asm", "GEARBOX-12", "six-nohidden", "1", 7, false},
    {"gearbox.asm", "GEARBOX-12", "twelve", "0", 14, true},
};

std::string ScriptFor(const Sheet& sheet) {
    std::string script = fmt::format(
        "@ open {}\n@ setting TweViewsUseAutoMainView value {}\n~ Command `TweViews`\n"
        "~ Select `TweViews` `DirectionRadio` 1 `main-h`\n"
        "~ Select `TweViews` `ViewsRadio` 1 `{}`\n",
        sheet.model, sheet.fromScreen, sheet.views);
    if (sheet.exported) script += "~ Activate `TweViews` `ExportCheckButton` 1\n";
    script += "~ Activate `TweViews` `ApplyBt`\n";
    if (sheet.exported) script += "@ expect box 已导出到桌面\n@ ok\n";
    return script + fmt::format("@ expect views {}\n@ show views\n", sheet.count);
}

// The next run starts without the drawing: one that is there would only be opened.
void Forget(const Sheet& sheet) {
    Session& session = TheHost().session;
    if (Model* drawing = session.FindByName(Wide(sheet.drawing), PRO_MDL_DRAWING)) {
        session.Erase(*drawing);
    }
}

}  // namespace

bool RunViewsDemo(const std::filesystem::path& out,
                  const std::function<void(const std::string&)>& print) {
    bool ok = true;
    const Sheet* before = nullptr;
    for (const Sheet& sheet : kSheets) {
        if (before && std::string(before->drawing) == sheet.drawing) Forget(*before);
        before = &sheet;
        print(fmt::format("\n== A drawing of {}: {}", sheet.model, sheet.views));
        ok = RunScript(ScriptFor(sheet), print).empty() && ok;
        const auto picture = out / fmt::format("{}-{}.svg", sheet.drawing, sheet.views);
        const std::string wrong = SavePicture(picture.string());
        print(wrong.empty() ? "sheet:   " + picture.string() : wrong);
        ok = ok && wrong.empty();
    }
    WideChar desktop[MAX_PATH] = {};
    SHGetSpecialFolderPathW(nullptr, desktop, CSIDL_DESKTOPDIRECTORY, FALSE);
    const auto exported = TheHost().disk.Real(WideText(desktop) + WIDE("\\GEARBOX-12.dwg"));
    ok = std::filesystem::exists(exported) && ok;
    print("desktop: " + exported.string());
    return RunScript("@ open gearbox.asm\n", print).empty() && ok;
}

}  // namespace simhost
