// The ground of the tests of dimensions: a block and a stepped shaft in views of one drawing whose
// places on the sheet can be told without a calculator, and dimensions made by hand.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "simhost/model/annotations.h"
#include "tests/drawing/drawing_bench.h"

namespace workbench {

class DimensionBench : public DrawingBench {
protected:
    // The drawing SHEET is open. View 1 shows the block, 40 x 20 x 10, from the front with scale 1:
    // its lower left corner is at 80 90 on the sheet. View 2 shows the shaft from its end, its axis
    // at 200 100; view 3 from its side with scale 2, its axis level, from 240 to 360. The shaft has
    // 30 millimetres of diameter 40 and then 30 of diameter 20.
    void SetUp() override;

    // The edge of a part between two points of it, and the rim with this middle and radius.
    static int EdgeOf(const simhost::Model& part, simhost::Vec3 from, simhost::Vec3 to);
    static int RimOf(const simhost::Model& part, simhost::Vec3 middle, double radius);

    // A shown dimension of the block's lower edge, 40 long, that nobody has picked.
    simhost::Dimension& Length();
    simhost::Dimension& DimensionOf(int id);
    // The first dimension but `id - 1` as the sheet says it; "none" if there is none.
    std::string Says(int id);
    // The line of a text with U+0001 and U+0002 as < and >.
    static std::string Shown(const WideText& line);
    std::string FirstLineOf(int id) { return Shown(DimensionOf(id).text->at(0)); }

    // Records the calls while it plays lines, and gives those of an operation.
    void Record(const std::string& lines);
    std::vector<std::string> LinesOf(const std::string& operation);
    std::vector<std::string> NamesOfCalls();

    // "@ pick edge 1/…" for items that tests take often.
    std::string PickBlockEdge(simhost::Vec3 from, simhost::Vec3 to);
    std::string PickCorner(simhost::Vec3 corner);  // of the block

    simhost::Model* block_ = nullptr;
    simhost::Model* shaft_ = nullptr;
    simhost::Model* drawing_ = nullptr;
};

}  // namespace workbench
