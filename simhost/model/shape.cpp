// Faces, edges and vertices of each solid: straight edges are found where the facets of two faces
// meet, round ones are told by the shape.
#include "simhost/model/shape.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>
#include <tuple>
#include <utility>

#include "simhost/model/imported_body.h"

namespace simhost {

namespace {

using std::numbers::pi;

// --- What is round on a solid. Faces are numbered from 0 here. ---

struct RoundFace {
    std::size_t face;
    double diameter;
    double slope;
    bool hollow;
};
struct Rim {
    double height, diameter;
    std::size_t one, other;  // its faces, the lower one first
};
struct Roundness {
    std::vector<RoundFace> faces;
    std::vector<Rim> rims;  // in the order of their ids
    std::vector<Vec3> tips;
};

Roundness RoundnessOfCone(double bottom, double top, double length) {
    Roundness round;
    round.faces = {{0, bottom, (top - bottom) / 2 / length, false}};
    std::size_t lid = 1;
    for (const auto& [height, diameter] : {std::pair{0.0, bottom}, std::pair{length, top}}) {
        if (diameter > 0) {
            round.rims.push_back({height, diameter, 0, lid++});
        } else {
            round.tips.push_back({0, 0, height});
        }
    }
    return round;
}

Roundness RoundnessOf(const Solid& solid) {
    switch (solid.shape) {
        case Shape::Cylinder: return RoundnessOfCone(solid.diameter, solid.diameter, solid.length);
        case Shape::Cone: return RoundnessOfCone(solid.diameter, solid.top, solid.length);
        case Shape::Tube:
            return {{{0, solid.outer, 0, false}, {1, solid.inner, 0, true}},
                    {{0, solid.outer, 0, 2},
                     {0, solid.inner, 1, 2},
                     {solid.length, solid.outer, 0, 3},
                     {solid.length, solid.inner, 1, 3}},
                    {}};
        case Shape::Gear:
            if (solid.bore <= 0) return {};
            return {{{2, solid.bore, 0, true}},
                    {{0, solid.bore, 0, 2}, {solid.width, solid.bore, 1, 2}},
                    {}};
        case Shape::Box:
        case Shape::Prism:
        case Shape::Imported: return {};
    }
    return {};
}

// --- One body ---

struct Before {
    bool operator()(const Vec3& a, const Vec3& b) const {
        return std::tie(a.x, a.y, a.z) < std::tie(b.x, b.y, b.z);
    }
    bool operator()(const std::pair<Vec3, Vec3>& a, const std::pair<Vec3, Vec3>& b) const {
        if (!(a.first == b.first)) return (*this)(a.first, b.first);
        return (*this)(a.second, b.second);
    }
};

// Twice the area of a facet along its normal. Measured from a corner, so that a facet at right
// angles to an axis gets a normal that is exactly that axis.
Vec3 TwiceArea(const Facet& facet) {
    Vec3 sum;
    const Vec3 first = facet.corners[0];
    for (std::size_t i = 2; i < facet.corners.size(); ++i) {
        sum = sum + Cross(facet.corners[i - 1] - first, facet.corners[i] - first);
    }
    return sum;
}

Vec3 NormalOf(const Facet& facet) {
    const Vec3 area = TwiceArea(facet);
    const double length = std::sqrt(Dot(area, area));
    return length > 0 ? 1 / length * area : Vec3{0, 0, 1};
}

// The points of a circle that lie farthest along the axes of the frame it is seen in.
void AddCircle(const Placement& circle, double radius, Extents* box) {
    const Vec3 x = circle.axes[0], y = circle.axes[1];
    const Vec3 reach{radius * std::hypot(x.x, y.x), radius * std::hypot(x.y, y.y),
                     radius * std::hypot(x.z, y.z)};
    box->Add(circle.origin - reach);
    box->Add(circle.origin + reach);
}

class BodyMaker {
public:
    BodyMaker(const Solid& solid, PartShape* shape)
        : solid_(solid),
          frame_(PlacementFrom(solid.at, solid.turn)),
          round_(RoundnessOf(solid)),
          list_(Faces(solid)),
          edgesOfFace_(list_.size()),
          shape_(*shape) {}

    void Run() {
        ShapeBody body{solid_, shape_.faces.size(), list_.size(), 0};
        for (const SolidFace& face : list_) AddFace(face);
        for (const RoundFace& each : round_.faces) MakeRound(each);
        AddRims(&body);
        AddLines();
        for (const Vec3 tip : round_.tips) {
            const Vec3 point = frame_.Point(tip);
            VertexAt(point);
            FaceAt(0).box.Add(point);
        }
        shape_.volume += VolumeOf(solid_);
        shape_.bodies.push_back(std::move(body));
    }

private:
    ShapeFace& FaceAt(std::size_t i) {
        return shape_.faces[shape_.faces.size() - list_.size() + i];
    }

    bool IsRound(std::size_t face) const {
        return std::any_of(round_.faces.begin(), round_.faces.end(),
                           [face](const RoundFace& each) { return each.face == face; });
    }

    void AddFace(const SolidFace& each) {
        ShapeFace face;
        face.id = each.surface;
        face.origin = each.facets[0].corners[0];
        face.axis = NormalOf(each.facets[0]);
        shape_.faces.push_back(face);
    }

    void MakeRound(const RoundFace& round) {
        ShapeFace& face = FaceAt(round.face);
        face.kind = round.slope == 0 ? FaceKind::Cylinder : FaceKind::Cone;
        face.origin = frame_.origin;
        face.axis = frame_.axes[2];
        face.radius = round.diameter / 2;
        face.slope = round.slope;
        face.hollow = round.hollow;
    }

    std::size_t VertexAt(Vec3 point) {
        const auto [found, isNew] = vertices_.try_emplace(point, shape_.vertices.size());
        if (isNew) shape_.vertices.push_back(point);
        return found->second;
    }

    // `edge` has its curve; the faces are given by their places.
    void Add(ShapeEdge edge, std::size_t one, std::size_t other) {
        edge.id = 10 * FaceAt(other).id + ++edgesOfFace_[other];
        edge.faces[0] = FaceAt(one).id;
        edge.faces[1] = FaceAt(other).id;
        edge.vertices[0] = VertexAt(edge.from);
        edge.vertices[1] = VertexAt(edge.to);
        for (const std::size_t face : {one, other}) {
            Extents& box = FaceAt(face).box;
            box.Add(edge.from);
            box.Add(edge.to);
            if (edge.kind == EdgeKind::Circle) AddCircle(edge.frame, edge.radius, &box);
        }
        shape_.edges.push_back(edge);
    }

    void AddRims(ShapeBody* body) {
        for (const Rim& rim : round_.rims) {
            ShapeEdge edge;
            edge.kind = EdgeKind::Circle;
            edge.frame = frame_;
            edge.frame.origin = frame_.Point({0, 0, rim.height});
            edge.radius = rim.diameter / 2;
            edge.from = edge.to = edge.frame.Point({edge.radius, 0, 0});
            Add(edge, rim.one, rim.other);
            body->widest = std::max(body->widest, rim.diameter);
        }
    }

    template <class Each>
    void EachSide(Each&& each) const {
        for (std::size_t face = 0; face < list_.size(); ++face) {
            if (IsRound(face)) continue;
            for (const Facet& facet : list_[face].facets) {
                for (std::size_t i = 0; i < facet.corners.size(); ++i) {
                    each(face, facet.corners[i], facet.corners[(i + 1) % facet.corners.size()]);
                }
            }
        }
    }

    // A side of a facet runs against that of its neighbour, and the facets of one solid meet in
    // the very same corners.
    void AddLines() {
        std::map<std::pair<Vec3, Vec3>, std::size_t, Before> faceAt;
        EachSide([&](std::size_t face, Vec3 a, Vec3 b) { faceAt[{a, b}] = face; });
        EachSide([&](std::size_t face, Vec3 a, Vec3 b) {
            const auto found = faceAt.find({b, a});
            if (found == faceAt.end() || found->second >= face) return;
            ShapeEdge edge;
            edge.from = a;
            edge.to = b;
            Add(edge, found->second, face);
        });
    }

    const Solid& solid_;
    const Placement frame_;
    const Roundness round_;
    const std::vector<SolidFace> list_;
    std::vector<int> edgesOfFace_;
    std::map<Vec3, std::size_t, Before> vertices_;
    PartShape& shape_;
};

// --- A body that was imported: all that is asked is in its record ---

class ImportedMaker {
public:
    ImportedMaker(const Solid& solid, PartShape* shape)
        : solid_(solid),
          frame_(PlacementFrom(solid.at, solid.turn)),
          points_(ScaledBy(frame_, solid.scale)),
          lastFace_(solid.id),
          shape_(*shape) {}

    void Run() {
        const ImportedBody& record = *solid_.body;
        ShapeBody body{solid_, shape_.faces.size(), record.faces.size(), 0};
        for (const ImportedFace& face : record.faces) AddFace(face);
        int number = 10 * (solid_.id + 1);
        for (const ImportedEdge& edge : record.edges) AddEdge(edge, number++, &body);
        shape_.volume += VolumeOf(solid_);
        shape_.bodies.push_back(std::move(body));
    }

private:
    static Placement ScaledBy(Placement frame, double scale) {
        for (Vec3& axis : frame.axes) axis = scale * axis;
        return frame;
    }

    // The box of a tilted body is that of the corners of the face's own.
    void AddFace(const ImportedFace& each) {
        ShapeFace face;
        face.id = ++lastFace_;
        face.kind = each.kind;
        face.origin = points_.Point(each.origin);
        face.axis = frame_.Direction(each.axis);
        face.radius = solid_.scale * each.radius;
        face.slope = each.slope;
        face.hollow = each.hollow;
        const Vec3 low = each.box.low, high = each.box.high;
        for (const double x : {low.x, high.x}) {
            for (const double y : {low.y, high.y}) {
                for (const double z : {low.z, high.z}) face.box.Add(points_.Point({x, y, z}));
            }
        }
        shape_.faces.push_back(face);
    }

    void AddEdge(const ImportedEdge& each, int id, ShapeBody* body) {
        ShapeEdge edge;
        edge.id = id;
        edge.kind = each.kind;
        edge.from = points_.Point(each.from);
        edge.to = points_.Point(each.to);
        for (std::size_t i : {0u, 1u}) edge.faces[i] = solid_.id + 1 + each.faces[i];
        edge.vertices[0] = VertexAt(edge.from);
        edge.vertices[1] = VertexAt(edge.to);
        if (each.kind == EdgeKind::Circle) {
            edge.frame = Compose(frame_, each.frame);
            edge.frame.origin = points_.Point(each.frame.origin);
            edge.radius = solid_.scale * each.radius;
            body->widest = std::max(body->widest, 2 * edge.radius);
        }
        shape_.edges.push_back(edge);
    }

    std::size_t VertexAt(Vec3 point) {
        const auto [found, isNew] = vertices_.try_emplace(point, shape_.vertices.size());
        if (isNew) shape_.vertices.push_back(point);
        return found->second;
    }

    const Solid& solid_;
    const Placement frame_;   // turns and moves
    const Placement points_;  // takes points of the record to the part
    int lastFace_;            // its id
    std::map<Vec3, std::size_t, Before> vertices_;
    PartShape& shape_;
};

// Round faces without rims reach beyond all edges. Along the axes their boxes are exact; else the
// corners of their facets stray from them by little.
bool IsAlongAxes(const Placement& frame) {
    return std::all_of(frame.axes.begin(), frame.axes.end(), [](Vec3 axis) {
        return (axis.x != 0) + (axis.y != 0) + (axis.z != 0) == 1;
    });
}

void AddImported(const PartShape& shape, const ShapeBody& body, const Placement& frame,
                 Extents* box) {
    if (!IsAlongAxes(frame)) {
        for (const SolidFace& face : FacetsOf(body)) {
            for (const Facet& facet : face.facets) {
                for (const Vec3 corner : facet.corners) box->Add(frame.Point(corner));
            }
        }
        return;
    }
    for (std::size_t i = 0; i < body.faceCount; ++i) {
        const Extents& face = shape.faces[body.firstFace + i].box;
        box->Add(frame.Point(face.low));
        box->Add(frame.Point(face.high));
    }
}

}  // namespace

// Bodies are kept apart: where faces of two bodies lie flush, the seam is an edge of each. Joining
// them would begin here, once all bodies are known.
PartShape ShapeOf(const std::vector<Solid>& solids) {
    PartShape shape;
    for (const Solid& solid : solids) {
        if (solid.shape == Shape::Imported) {
            ImportedMaker(solid, &shape).Run();
        } else {
            BodyMaker(solid, &shape).Run();
        }
    }
    return shape;
}

bool IsShapeOf(const PartShape& shape, const std::vector<Solid>& solids) {
    return std::equal(
        shape.bodies.begin(), shape.bodies.end(), solids.begin(), solids.end(),
        [](const ShapeBody& body, const Solid& solid) { return body.madeOf == solid; });
}

std::vector<SolidFace> FacetsOf(const ShapeBody& body, int fineness) {
    return Faces(body.madeOf, fineness);
}

Extents ExtentsIn(const PartShape& shape, const Placement& frame) {
    Extents box;
    for (const Vec3& vertex : shape.vertices) box.Add(frame.Point(vertex));
    for (const ShapeBody& body : shape.bodies) {
        if (body.madeOf.shape == Shape::Imported) AddImported(shape, body, frame, &box);
    }
    for (const ShapeEdge& edge : shape.edges) {
        if (edge.kind == EdgeKind::Circle) AddCircle(Compose(frame, edge.frame), edge.radius, &box);
    }
    return box;
}

// --- Volumes ---

namespace {

// Of a flat lid that looks along z; the solid is in its own frame.
double AreaOf(const SolidFace& lid) {
    double twice = 0;
    for (const Facet& facet : lid.facets) twice += TwiceArea(facet).z;
    return twice / 2;
}

double GearArea(const Solid& gear) {
    Solid full = gear;
    full.bore = 0;
    full.at = full.turn = {};
    return AreaOf(Faces(full)[1]) - pi / 4 * gear.bore * gear.bore;
}

double OutlineArea(const Solid& prism) {
    double twice = 0;
    for (std::size_t i = 0; i < prism.outline.size(); ++i) {
        const auto& a = prism.outline[i];
        const auto& b = prism.outline[(i + 1) % prism.outline.size()];
        twice += a[0] * b[1] - a[1] * b[0];
    }
    return twice / 2;
}

double ConeVolume(double bottom, double top, double length) {
    return pi / 12 * length * (bottom * bottom + bottom * top + top * top);
}

}  // namespace

double VolumeOf(const Solid& solid) {
    switch (solid.shape) {
        case Shape::Box: return solid.size.x * solid.size.y * solid.size.z;
        case Shape::Cylinder: return ConeVolume(solid.diameter, solid.diameter, solid.length);
        case Shape::Cone: return ConeVolume(solid.diameter, solid.top, solid.length);
        case Shape::Tube:
            return ConeVolume(solid.outer, solid.outer, solid.length) -
                   ConeVolume(solid.inner, solid.inner, solid.length);
        case Shape::Gear: return GearArea(solid) * solid.width;
        case Shape::Prism: return OutlineArea(solid) * solid.height;
        case Shape::Imported: return solid.body->volume * std::pow(solid.scale, 3);
    }
    return 0;
}

}  // namespace simhost
