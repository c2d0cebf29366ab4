// The sheets of drawings and formats: size, format and scales of each, the lines and words that a
// format puts onto a sheet, and the tables that lie there. Lengths are in mm of the sheet, from its
// lower left corner.
#pragma once

#include <string>
#include <vector>

#include "hostapi/wide.h"
#include "simhost/model/geometry.h"

namespace simhost {

class Model;

// A line of a format from point to point; it is closed if it ends where it began.
struct FormatLine {
    std::vector<Vec3> points;
    double width = 0.25;
};

// Words of a format. Their fields (&model_name) are filled in when the sheet is drawn.
struct FormatText {
    Vec3 at;  // the left end of the line that they are written on, or its middle
    double height = 3.5;
    bool centred = false;
    WideText text;
};

// The scale of one model's views on a sheet; the file tells the model, "shaft.prt".
struct SolidScale {
    std::string file;
    double scale = 1;
};

struct Sheet {
    Sheet() = default;
    Sheet(WideText name) : size(std::move(name)) {}
    Sheet(const WideChar* name) : size(name) {}

    WideText size;                   // "A3"
    double scale = 1;                // of models that have none of their own below
    std::vector<SolidScale> scales;  // each model once
    // Drawings: the format's file, "a3.frm" (empty: none), which of its sheets, and the model that
    // its fields are about (empty: none).
    std::string format;
    int formatSheet = 1;
    std::string about;
    // Formats: what they put onto a sheet besides their tables.
    std::vector<FormatLine> lines;
    std::vector<FormatText> texts;

    double ScaleOf(const std::string& file) const;
    void SetScale(const std::string& file, double value);
};

// A table. Cells are texts with fields; a row may have fewer cells than there are columns.
struct SheetTable {
    int id = 0;
    int sheet = 1;
    Vec3 at;                               // its upper left corner
    std::vector<double> columns, heights;  // how wide and how high
    std::vector<std::vector<WideText>> cells;
    double textHeight = 3.5;
    bool fromFormat = false;  // it came onto the sheet with the format
    std::string about;        // the model that its fields are about; empty: none

    double Wide() const;
    double High() const;
};

// What only drawings and formats have, beside a drawing's views.
struct SheetSet {
    std::vector<Sheet> sheets;
    std::vector<SheetTable> tables;   // in the order of their making
    std::vector<std::string> solids;  // the files of the models that a drawing can show, each once
    std::string currentSolid;         // the file of one of them; empty: the first

    Sheet* Find(int sheet);  // they count from 1; null: no such sheet
    const Sheet* Find(int sheet) const;
    SheetTable& AddTable(SheetTable table);  // with the next free id
    SheetTable* FindTable(int id);
    void AddSolid(const std::string& file);
    bool Shows(const std::string& file) const;

    // Puts a sheet of the format onto a sheet, with its size and its tables; a format that was
    // there goes, and its tables stay. `about` is the file of the model that the fields are about.
    void AddFormat(int sheet, const Model& format, int formatSheet, const std::string& about);

    // Calls `each` with the place of every file name in here.
    template <class Each>
    void EachFile(Each each);
};

template <class Each>
void SheetSet::EachFile(Each each) {
    for (Sheet& sheet : sheets) {
        for (SolidScale& one : sheet.scales) each(&one.file);
        each(&sheet.format);
        each(&sheet.about);
    }
    for (SheetTable& table : tables) each(&table.about);
    for (std::string& file : solids) each(&file);
    each(&currentSolid);
}

}  // namespace simhost
