// Solids of the record of shape as exact solids of the kernel: what is round stays round.
#include "simhost/kernel/occ/shapes.h"

#include <BOPTools_AlgoTools3D.hxx>
#include <BRepAdaptor_Surface.hxx>
#include <BRepAlgoAPI_Cut.hxx>
#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepBuilderAPI_MakePolygon.hxx>
#include <BRepBuilderAPI_MakeSolid.hxx>
#include <BRepBuilderAPI_Sewing.hxx>
#include <BRepBuilderAPI_Transform.hxx>
#include <BRepLib.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <BRepPrimAPI_MakeCone.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <BRepPrimAPI_MakePrism.hxx>
#include <BRepTools.hxx>
#include <BRep_Builder.hxx>
#include <IntTools_Context.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Compound.hxx>
#include <TopoDS_Shell.hxx>
#include <gp_Trsf.hxx>

#include <algorithm>
#include <cmath>
#include <limits>
#include <sstream>

#include "simhost/kernel/kernel.h"
#include "simhost/kernel/occ/places.h"
#include "simhost/model/imported_body.h"

namespace simhost::kernel {

namespace {

TopoDS_Shape Cylinder(double diameter, double length) {
    return BRepPrimAPI_MakeCylinder(diameter / 2, length).Shape();
}

// Between two diameters; the kernel has no cone of equal ones.
TopoDS_Shape Cone(const Solid& solid) {
    if (solid.diameter == solid.top) return Cylinder(solid.diameter, solid.length);
    return BRepPrimAPI_MakeCone(solid.diameter / 2, solid.top / 2, solid.length).Shape();
}

TopoDS_Shape Cut(const TopoDS_Shape& from, const TopoDS_Shape& tool) {
    BRepAlgoAPI_Cut cut(from, tool);
    if (!cut.IsDone()) throw Failure("a bore cannot be cut");
    const TopExp_Explorer solids(cut.Shape(), TopAbs_SOLID);
    if (!solids.More()) throw Failure("a bore leaves nothing");
    return solids.Current();
}

using Outline = std::vector<std::array<double, 2>>;

TopoDS_Shape Extruded(const Outline& outline, double height) {
    BRepBuilderAPI_MakePolygon polygon;
    for (const auto& [x, y] : outline) polygon.Add(gp_Pnt(x, y, 0));
    polygon.Close();
    const TopoDS_Face face = BRepBuilderAPI_MakeFace(polygon.Wire(), /*OnlyPlane=*/true);
    return BRepPrimAPI_MakePrism(face, gp_Vec(0, 0, height)).Shape();
}

// A gear's flanks are its last surfaces, each of one facet whose first corner is on the outline.
TopoDS_Shape Gear(const Solid& gear) {
    Solid full = gear;
    full.bore = 0;
    full.at = full.turn = {};
    Outline outline;
    const std::vector<SolidFace> faces = Faces(full);
    for (std::size_t i = 2; i < faces.size(); ++i) {
        const Vec3 corner = faces[i].facets[0].corners[0];
        outline.push_back({corner.x, corner.y});
    }
    const TopoDS_Shape body = Extruded(outline, gear.width);
    return gear.bore > 0 ? Cut(body, Cylinder(gear.bore, gear.width)) : body;
}

constexpr double kNoScale = 1e-9;

// In the kernel's own words, which are in mm.
TopoDS_Shape Imported(const Solid& solid) {
    std::istringstream words(solid.body->exact);
    TopoDS_Shape shape;
    BRepTools::Read(shape, words, BRep_Builder());
    if (shape.IsNull()) throw Failure("an imported solid has no exact shape");
    if (std::abs(solid.scale - 1) < kNoScale) return shape;
    gp_Trsf scaled;
    scaled.SetScale(gp_Pnt(), solid.scale);
    return BRepBuilderAPI_Transform(shape, scaled, /*theCopyGeom=*/true).Shape();
}

TopoDS_Shape InItsFrame(const Solid& solid) {
    switch (solid.shape) {
        case Shape::Box:
            return BRepPrimAPI_MakeBox(solid.size.x, solid.size.y, solid.size.z).Shape();
        case Shape::Cylinder: return Cylinder(solid.diameter, solid.length);
        case Shape::Cone: return Cone(solid);
        case Shape::Tube:
            return Cut(Cylinder(solid.outer, solid.length), Cylinder(solid.inner, solid.length));
        case Shape::Gear: return Gear(solid);
        case Shape::Prism: return Extruded(solid.outline, solid.height);
        case Shape::Imported: return Imported(solid);
    }
    return {};
}

// Flat facets sewn along their sides.
TopoDS_Shape Facetted(const Solid& solid) {
    BRepBuilderAPI_Sewing sewing;
    for (const SolidFace& face : Faces(solid)) {
        for (const Facet& facet : face.facets) {
            BRepBuilderAPI_MakePolygon polygon;
            for (const Vec3 corner : facet.corners) polygon.Add(PointOf(corner));
            polygon.Close();
            sewing.Add(BRepBuilderAPI_MakeFace(polygon.Wire(), /*OnlyPlane=*/true));
        }
    }
    sewing.Perform();
    const TopExp_Explorer shells(sewing.SewedShape(), TopAbs_SHELL);
    if (!shells.More()) throw Failure("facets do not meet");
    TopoDS_Solid sewn = BRepBuilderAPI_MakeSolid(TopoDS::Shell(shells.Current()));
    BRepLib::OrientClosedSolid(sewn);
    return sewn;
}

// --- Which face is which surface ---

double SquareDistance(Vec3 a, Vec3 b) {
    return Dot(a - b, a - b);
}

double SquareDistance(Vec3 p, Vec3 a, Vec3 b) {
    const Vec3 side = b - a;
    const double length = Dot(side, side);
    const double t = length > 0 ? std::clamp(Dot(p - a, side) / length, 0.0, 1.0) : 0;
    return SquareDistance(p, a + t * side);
}

// Of a point from a facet, which is convex.
double SquareDistance(Vec3 p, const Facet& facet) {
    const auto& corners = facet.corners;
    const Vec3 normal = Cross(corners[1] - corners[0], corners[2] - corners[0]);
    double nearest = std::numeric_limits<double>::infinity();
    bool inside = true;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Vec3 a = corners[i], b = corners[(i + 1) % corners.size()];
        inside = inside && Dot(Cross(b - a, p - a), normal) >= 0;
        nearest = std::min(nearest, SquareDistance(p, a, b));
    }
    if (!inside) return nearest;
    const double height = Dot(p - corners[0], normal);
    return height * height / Dot(normal, normal);
}

// Facets stray from round faces by so little that the next face is farther away.
constexpr int kFineness = 256;

FaceKind KindOf(const TopoDS_Face& face) {
    const GeomAbs_SurfaceType type = BRepAdaptor_Surface(face).GetType();
    if (type == GeomAbs_Cylinder) return FaceKind::Cylinder;
    return type == GeomAbs_Cone ? FaceKind::Cone : FaceKind::Plane;
}

// A point of the face that lies on none of its edges.
Vec3 PointInside(const TopoDS_Face& face) {
    gp_Pnt point;
    gp_Pnt2d place;
    const Handle(IntTools_Context) context = new IntTools_Context;
    if (BOPTools_AlgoTools3D::PointInFace(face, point, place, context) != 0) {
        throw Failure("a face has no point inside");
    }
    return VectorOf(point.XYZ());
}

}  // namespace

gp_Trsf TransformationOf(const Placement& place) {
    const auto& [x, y, z] = place.axes;
    const Vec3 at = place.origin;
    gp_Trsf result;
    result.SetValues(x.x, y.x, z.x, at.x, x.y, y.y, z.y, at.y, x.z, y.z, z.z, at.z);
    return result;
}

TopoDS_Shape ShapeOfSolid(const Solid& solid, bool facetted) {
    if (facetted) return Facetted(solid);
    const TopoDS_Shape shape = InItsFrame(solid);
    if (solid.at == Vec3{} && solid.turn == Vec3{}) return shape;
    // A shape that is placed counts as a use of another one: its geometry is moved instead.
    const gp_Trsf place = TransformationOf(PlacementFrom(solid.at, solid.turn));
    return BRepBuilderAPI_Transform(shape, place, /*theCopyGeom=*/true).Shape();
}

TopoDS_Shape SideBySide(const std::vector<TopoDS_Shape>& shapes) {
    if (shapes.empty()) return {};
    if (shapes.size() == 1) return shapes.front();
    TopoDS_Compound all;
    const BRep_Builder builder;
    builder.MakeCompound(all);
    for (const TopoDS_Shape& each : shapes) builder.Add(all, each);
    return all;
}

std::map<int, std::vector<TopoDS_Shape>> FacesBySurface(const TopoDS_Shape& shape,
                                                        const Solid& solid) {
    std::map<int, std::vector<TopoDS_Shape>> faces;
    if (solid.shape == Shape::Imported) {
        int surface = solid.id;
        for (TopExp_Explorer each(shape, TopAbs_FACE); each.More(); each.Next()) {
            faces[++surface].push_back(each.Current());
        }
        return faces;
    }
    const PartShape record = ShapeOf({solid});
    const std::vector<SolidFace> facets = FacetsOf(record.bodies[0], kFineness);
    for (TopExp_Explorer each(shape, TopAbs_FACE); each.More(); each.Next()) {
        const TopoDS_Face& face = TopoDS::Face(each.Current());
        const Vec3 inside = PointInside(face);
        const FaceKind kind = KindOf(face);
        double least = std::numeric_limits<double>::infinity();
        int surface = 0;
        for (std::size_t i = 0; i < facets.size(); ++i) {
            if (record.faces[i].kind != kind) continue;
            for (const Facet& facet : facets[i].facets) {
                const double distance = SquareDistance(inside, facet);
                if (distance >= least) continue;
                least = distance;
                surface = facets[i].surface;
            }
        }
        faces[surface].push_back(face);
    }
    return faces;
}

}  // namespace simhost::kernel
