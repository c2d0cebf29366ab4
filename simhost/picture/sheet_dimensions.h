// The dimensions and notes of a sheet as a draughtsman draws them, in lines, arrows and texts; what
// pictures and files make of a sheet begins here.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "simhost/model/annotations.h"
#include "simhost/picture/canvas.h"

namespace simhost {

// A piece of text; `at` is the left end of the line that it is written on.
struct DrawnText {
    Vec3 at;
    double turn = 0;  // degrees, counter-clockwise
    double height = 0;
    std::string text;  // UTF-8
};

// The tip of an arrow and the direction that it points in, of length 1.
struct DrawnArrow {
    Vec3 tip, way;
};

// All lengths are those of the sheet.
struct DrawnAnnotation {
    int id = 0;
    bool lost = false;  // what it measured is gone
    std::vector<std::pair<Vec3, Vec3>> lines;
    std::vector<DrawnArrow> arrows;
    std::vector<DrawnText> texts;
};

inline constexpr double kArrowLength = 3.5, kArrowWidth = 1.0;

// What is shown on a sheet, dimensions before notes.
std::vector<DrawnAnnotation> AnnotationsOnSheet(Model& drawing, int sheet);

// Paints it into a picture whose upper left corner is at this place of the sheet. Each dimension is
// a group with the id "dimension" and its number.
void PaintAnnotations(Model& drawing, int sheet, Vec3 upperLeft, Canvas* canvas);

}  // namespace simhost
