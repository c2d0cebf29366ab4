// The ground of the tests of dimensions.
#include "tests/drawing/dimension_bench.h"

#include <fmt/format.h>

#include <cmath>

#include "simhost/model/dimension_measure.h"
#include "simhost/model/dimension_text.h"
#include "simhost/model/shape.h"

namespace workbench {

using namespace simhost;

namespace {

bool IsNear(Vec3 a, Vec3 b) {
    const Vec3 off = a - b;
    return Dot(off, off) < 1e-12;
}

Solid Cylinder(int id, double diameter, double from, double length) {
    Solid solid;
    solid.id = id;
    solid.shape = Shape::Cylinder;
    solid.diameter = diameter;
    solid.length = length;
    solid.at = {0, 0, from};
    return solid;
}

}  // namespace

void DimensionBench::SetUp() {
    DrawingBench::SetUp();
    block_ = &BoxPart("BLOCK", 40, 20, 10);
    shaft_ = &Part("SHAFT");
    shaft_->partData.solids = {Cylinder(10, 40, 0, 30), Cylinder(20, 20, 30, 30)};
    drawing_ = &MakeModels("sheet.drw: A3");
    Drawing& drawing = DrawingOf(*drawing_);
    drawing.AddGeneral(*block_, 1, {100, 100, 0}, 1, Placement());
    drawing.AddGeneral(*shaft_, 1, {200, 100, 0}, 1, Placement());
    // The axis z runs to the right.
    Placement side;
    side.axes = {Vec3{0, 0, -1}, Vec3{0, 1, 0}, Vec3{1, 0, 0}};
    drawing.AddGeneral(*shaft_, 1, {300, 100, 0}, 2, side);
    Open(*drawing_);
}

int DimensionBench::EdgeOf(const Model& part, Vec3 from, Vec3 to) {
    for (const ShapeEdge& edge : part.shape().edges) {
        const bool ahead = IsNear(edge.from, from) && IsNear(edge.to, to);
        if (ahead || (IsNear(edge.from, to) && IsNear(edge.to, from))) return edge.id;
    }
    ADD_FAILURE() << "there is no such edge";
    return 0;
}

int DimensionBench::RimOf(const Model& part, Vec3 middle, double radius) {
    for (const ShapeEdge& edge : part.shape().edges) {
        const bool round = edge.kind == EdgeKind::Circle && std::fabs(edge.radius - radius) < 1e-9;
        if (round && IsNear(edge.frame.origin, middle)) return edge.id;
    }
    ADD_FAILURE() << "there is no such rim";
    return 0;
}

Dimension& DimensionBench::Length() {
    Dimension made;
    made.view = 1;
    made.to = {{{{}, PRO_EDGE, EdgeOf(*block_, {0, 0, 10}, {40, 0, 10})}}};
    made.at = {0, -20, 0};
    made.shown = true;
    Dimension& added = AnnotationsOf(*drawing_).Add(made);
    Remeasure(*drawing_, &added);
    return added;
}

Dimension& DimensionBench::DimensionOf(int id) {
    static Dimension none;
    Dimension* found = AnnotationsOf(*drawing_).FindDimension(id);
    EXPECT_TRUE(found) << "no dimension " << id;
    return found ? *found : none;
}

std::string DimensionBench::Says(int id) {
    Dimension* found = AnnotationsOf(*drawing_).FindDimension(id);
    if (!found) return "none";
    Remeasure(*drawing_, found);
    return PlainText(*found, found->value) + (found->shown ? "" : " (not shown)");
}

std::string DimensionBench::Shown(const WideText& line) {
    WideText shown = line;
    for (WideChar& c : shown) {
        if (c == 1) c = '<';
        if (c == 2) c = '>';
    }
    return Utf8(shown);
}

void DimensionBench::Record(const std::string& lines) {
    host().journal.Clear();
    host().journal.Start();
    Play(lines);
    host().journal.Stop();
}

std::vector<std::string> DimensionBench::LinesOf(const std::string& operation) {
    std::vector<std::string> found;
    for (const std::string& line : host().journal.lines()) {
        const std::size_t begin = line.find_first_not_of(' ');
        if (begin == std::string::npos) continue;
        const std::string call = line.substr(begin);
        if (call.rfind(operation + "(", 0) == 0) found.push_back(call);
    }
    return found;
}

std::vector<std::string> DimensionBench::NamesOfCalls() {
    std::vector<std::string> names;
    for (const std::string& call : Calls()) {
        const std::size_t begin = call.find_first_not_of(' ');
        names.push_back(call.substr(begin, call.find('(') - begin));
    }
    return names;
}

std::string DimensionBench::PickBlockEdge(Vec3 from, Vec3 to) {
    return fmt::format("@ pick edge 1/{}\n", EdgeOf(*block_, from, to));
}

std::string DimensionBench::PickCorner(Vec3 corner) {
    for (const ShapeEdge& edge : block_->shape().edges) {
        if (IsNear(edge.from, corner)) return fmt::format("@ pick edge 1/start#{}\n", edge.id);
    }
    ADD_FAILURE() << "no edge begins there";
    return {};
}

}  // namespace workbench
