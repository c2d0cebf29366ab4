// The ground of the tests of commands about sheets: formats, templates and drawings in the working
// folder, made from the text of their files.
#pragma once

#include <string>

#include "tests/drawing/drawing_bench.h"

namespace workbench {

class SheetBench : public DrawingBench {
protected:
    // A file and the folder that it lies in.
    void WriteInto(const WideText& path, const std::string& bytes);
    // A file of the working folder, "a.drw.1", with what follows its [model].
    void WriteDrawing(const std::string& file, const std::string& rest);
    // A format of one sheet with one line and one table, in C:\Formats or another folder.
    void WriteFormat(const std::string& file, const std::string& size,
                     const WideText& folder = WIDE("C:\\Formats"));
    // A box of 100 x 60 x 40 saved in the working folder, so that drawings find it again.
    simhost::Model& SavedBox(const std::string& name);
    // A template of one sheet and a front view, at this full path.
    void WriteTemplate(const WideText& path, const std::string& size = "A3");

    // The drawing of this name as its newest file in the working folder has it, in a model of no
    // session.
    simhost::Model Saved(const std::string& fileName);
    simhost::Model& Drawn(const std::string& name);  // in memory; a failure if it is not there

    // Plays the lines; what the plug-in called in the meantime, without what access rules ask and
    // conversions of text, as names of operations; and the whole lines of one of them.
    std::vector<std::string> CallsOf(const std::string& lines);
    std::vector<std::string> LinesOf(const std::string& operation) const;
};

// A [[view]] of a box on a sheet; with no scale of its own if that is empty.
std::string GeneralView(int id, const std::string& model, int sheet, const std::string& scale = "");
std::string ProjectedView(int id, int parent);

}  // namespace workbench
