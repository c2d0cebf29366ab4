// What lies on a sheet besides its views: the lines and words of its format, and its tables with
// their fields filled in. Lengths are in mm of the sheet.
#pragma once

#include <string>
#include <vector>

#include "simhost/model/drawing.h"
#include "simhost/picture/canvas.h"

namespace simhost {

struct SheetStroke {
    std::vector<Vec3> points;
    double width;
};

struct SheetWords {
    Vec3 at;  // where the line that they are written on begins, or its middle
    double height;
    bool centred;
    std::string text;  // UTF-8
};

struct SheetFurniture {
    bool hasFormat = false;  // its lines are there: the sheet needs no other frame
    std::vector<SheetStroke> strokes;
    std::vector<SheetWords> words;
    std::string missing;  // a format that the sheet has and the host has not
};
SheetFurniture FurnitureOf(Model& drawing, int sheet);

// Paints it in one colour into a picture whose upper left corner is at this place of the sheet.
void PaintFurniture(const SheetFurniture& furniture, Vec3 upperLeft, const char* colour,
                    Canvas* canvas);

// A text with its fields filled in, as they are about a model (null: none) on a sheet:
// &model_name, &dwg_name, &scale, &format, &current_sheet, &total_sheets, &type,
// &ptc_common_name, &ptc_material_name, and parameters by their names; &name:d is the drawing's
// own. What the model has not is left empty.
std::string FilledFields(const WideText& text, const Model& drawing, int sheet, const Model* about);

}  // namespace simhost
