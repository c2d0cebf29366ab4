// The ground of the tests of the one-click exports: a drawing that is open, and what was written.
#pragma once

#include <algorithm>
#include <filesystem>
#include <string>

#include "tests/export/folders.h"

namespace workbench {

inline constexpr const char* kDesktop = "C:\\Users\\Designer\\Desktop";

class OneClick : public FolderBench {
protected:
    void SetUp() override {
        FolderBench::SetUp();
        MakeFolder(kDesktop);
    }
    // A drawing with so many empty sheets; open.
    simhost::Model& OpenDrawing(int sheets, const std::string& name = "plan") {
        simhost::Model& drawing = MakeModel(name, PRO_MDL_DRAWING);
        for (int i = 0; i < sheets; ++i) drawing.drawingData.sheets.emplace_back();
        Open(drawing);
        return drawing;
    }
    // The calls of a command and of the lines after it.
    Names CallsOf(const std::string& command, const std::string& then = "") {
        Record();
        Play("~ Command `" + command + "`\n" + then);
        return CallsOfTheAction();
    }
    // What the calls of an operation were given as their file.
    Names Paths(const std::string& operation, const std::string& argument) {
        Names paths;
        for (const std::string& line : Lines(operation)) {
            const std::size_t from = line.find(argument + "=\"") + argument.size() + 2;
            paths.push_back(line.substr(from, line.find('"', from) - from));
        }
        return paths;
    }
    Names Desktop() { return FilesOf(kDesktop); }
};

}  // namespace workbench
