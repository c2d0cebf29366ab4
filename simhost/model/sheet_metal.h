// Sheet metal: the bends of a part, bend tables, and how long the sheet is before it is bent.
#pragma once

#include <string>
#include <vector>

#include "hostapi/wide.h"

namespace simhost {

// The lengths of sheet that bends of 90 degrees take, by inner radius and thickness: in mm in the
// table's file, in the part's own unit in a part.
struct BendTable {
    WideText name;                  // that of its file, without extension; empty: no table
    std::string title;              // the designer's words for it (UTF-8)
    std::vector<double> thickness;  // rising
    std::vector<double> radius;     // rising
    std::vector<std::vector<double>> length;  // a row for each radius, a number for each thickness
};

struct Bend {
    double radius = 0;  // the inner one
    double angle = 90;  // in degrees, by which the sheet is bent
};

// What only sheet metal has, in the part's unit of length. The flat pieces of its profile have one
// bend between each two.
struct SheetMetal {
    double thickness = 0;
    std::vector<double> flats;
    std::vector<Bend> bends;
    BendTable table;
    double developed = 0;  // the length as it came out when the part was last brought up to date
};

// A bend table from the text of its file, without a name. Throws ModelFileError.
BendTable ReadBendTableText(const std::string& text, const std::string& fileName);

// How much sheet a bend takes. Between the numbers of the table it is interpolated; outside of
// them, and without a table, the neutral line is taken as for soft material (a factor of 0.5).
double LengthOf(const Bend& bend, double thickness, const BendTable& table);

// Flat pieces and bends in all.
double DevelopedLength(const SheetMetal& sheet);

}  // namespace simhost
