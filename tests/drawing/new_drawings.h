// The ground of the tests of commands that make or open a model's drawing: an assembly TOP with the
// part BOX in it, templates of the settings, and what windows show.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "tests/drawing/sheet_bench.h"

namespace workbench {

using Names = std::vector<std::string>;

inline constexpr const char* kCreate = "~ Activate `VxNewDrw` `VxCreateDrw`\n";
inline constexpr const char* kCloseDialog = "~ Close `VxNewDrw`\n";
inline constexpr const char* kOneOnly = "@ expect box \"当前模式只能选择1个元件\"\n";
inline constexpr const char* kOurs = "@ expect caption \"岚枢工具By墨川听雨,QQ:100200300\"\n";

class NewDrawings : public SheetBench {
protected:
    void SetUp() override {
        TextFolderSetting("RmbDisable", "0");
        SheetBench::SetUp();
    }
    // Presses VxOpenDrw, which is in popups only, and in none before the second one of a run.
    void OpenByPopup(const std::string& then = {}) {
        Play("@ right-click\n@ quit\n@ right-click\n@ choose 打开工程图(vx)\n" + then);
    }
    // The same without a popup, whatever is selected.
    Names CallsOfOpen(const std::string& select = {}) {
        Play("@ right-click\n@ quit\n@ right-click\n@ quit\n" + select);
        return CallsOf("@ mapped key VxOpenDrw");
    }
    // Presses VxNewDrw and the button of its dialog; what the button called.
    Names CallsOfTheButton(const std::string& then = {}) {
        const Names all =
            CallsOf(std::string("~ Command `VxNewDrw`\n") + kCreate + then + kCloseDialog);
        const auto from = std::find(all.begin(), all.end(), "ProUIDialogActivate");
        const auto to = std::find(from, all.end(), "ProUIDialogExit");
        return from == to ? Names{} : Names(from + 1, to);
    }
    void SetTemplate(const std::string& section, const std::string& path) {
        workbench::WriteIni("VxConfig.ini", section, "path", path);
    }
    // TOP with the saved box BOX in it, in a window.
    simhost::Model& OpenTop() {
        simhost::Model& box = SavedBox("BOX");
        simhost::Model& top = Assembly("TOP");
        Use(top, box);
        Open(top);
        return top;
    }
    // The model of each window, in the order of their opening.
    Names Windows() {
        Names names;
        for (const simhost::Window& window : host().session.windows()) {
            names.push_back(window.model ? window.model->FileName() : "none");
        }
        return names;
    }
    std::string Current() {
        const simhost::Model* current = host().session.CurrentModel();
        return current ? current->FileName() : "none";
    }
    void DrawingIsThere(const std::string& file) {
        WriteDrawing(file + ".1", "[sheets]\nsizes = [\"A3\"]\n");
    }
};

}  // namespace workbench
