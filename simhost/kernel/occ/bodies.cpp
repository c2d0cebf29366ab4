// Faces with tight boxes and facets, edges between two faces, volume, and the exact shape as text.
#include "simhost/kernel/occ/bodies.h"

#include <BRepAdaptor_Curve.hxx>
#include <BRepAdaptor_Surface.hxx>
#include <BRepBndLib.hxx>
#include <BRepGProp.hxx>
#include <BRepMesh_IncrementalMesh.hxx>
#include <BRepTools.hxx>
#include <BRep_Tool.hxx>
#include <Bnd_Box.hxx>
#include <GProp_GProps.hxx>
#include <Poly_Triangulation.hxx>
#include <TopExp.hxx>
#include <TopExp_Explorer.hxx>
#include <TopTools_IndexedDataMapOfShapeListOfShape.hxx>
#include <TopTools_IndexedMapOfShape.hxx>
#include <TopoDS.hxx>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <sstream>

#include "simhost/kernel/kernel.h"
#include "simhost/kernel/occ/places.h"

namespace simhost::kernel {

namespace {

// Facets stray from a round face by so much of the solid's size, and turn by so much.
constexpr double kStray = 0.002;
constexpr double kTurn = 0.35;
constexpr int kChords = 8;  // of a curve that is neither straight nor a full circle

// Shorter numbers: nobody measures a nanometre.
double Tidy(double value) {
    const double tidy = std::round(value * 1e9) / 1e9;
    return tidy == 0 ? 0 : tidy;
}
Vec3 Tidy(const gp_XYZ& p) {
    return {Tidy(p.X()), Tidy(p.Y()), Tidy(p.Z())};
}

Bnd_Box TightBox(const TopoDS_Shape& shape) {
    Bnd_Box box;
    box.SetGap(0);
    BRepBndLib::AddOptimal(shape, box, /*useTriangulation=*/false, /*useShapeTolerance=*/false);
    return box;
}

// A flat face, and a round one between two rims, reaches as far as its edges, which are measured
// far more quickly.
Extents BoxOf(const TopoDS_Face& face, FaceKind kind) {
    Bnd_Box box;
    if (kind != FaceKind::Other) {
        for (TopExp_Explorer edges(face, TopAbs_EDGE); edges.More(); edges.Next()) {
            box.Add(TightBox(edges.Current()));
        }
    } else {
        box = TightBox(face);
    }
    Extents extents;
    if (box.IsVoid()) return extents;
    extents.Add(Tidy(box.CornerMin().XYZ()));
    extents.Add(Tidy(box.CornerMax().XYZ()));
    return extents;
}

// A full circle of an edge; false for any other edge.
bool IsFullCircle(const BRepAdaptor_Curve& curve) {
    constexpr double kSlack = 1e-6;
    const double sweep = curve.LastParameter() - curve.FirstParameter();
    return curve.GetType() == GeomAbs_Circle && sweep > 2 * std::numbers::pi - kSlack;
}

// Whether a face has an axis and a full circle at each of its two ends.
bool HasTwoRims(const TopoDS_Face& face) {
    int rims = 0;
    for (TopExp_Explorer edges(face, TopAbs_EDGE); edges.More(); edges.Next()) {
        const TopoDS_Edge& edge = TopoDS::Edge(edges.Current());
        if (BRep_Tool::Degenerated(edge)) return false;
        if (BRep_Tool::IsClosed(edge, face)) continue;  // the seam
        if (!IsFullCircle(BRepAdaptor_Curve(edge))) return false;
        ++rims;
    }
    return rims == 2;
}

class BodyMaker {
public:
    explicit BodyMaker(const TopoDS_Shape& shape) : shape_(shape) {}

    ImportedBody Run() {
        std::ostringstream exact;
        exact.precision(17);
        BRepTools::Write(shape_, exact, /*theWithTriangles=*/false, /*theWithNormals=*/false,
                         TopTools_FormatVersion_CURRENT);
        body_.exact = exact.str();
        GProp_GProps properties;
        BRepGProp::VolumeProperties(shape_, properties);
        body_.volume = properties.Mass();
        Bnd_Box box;
        BRepBndLib::Add(shape_, box);
        const double size = std::sqrt(box.SquareExtent());
        const BRepMesh_IncrementalMesh mesh(shape_, std::max(kStray * size, 1e-4),
                                            /*isRelative=*/false, kTurn);
        for (TopExp_Explorer faces(shape_, TopAbs_FACE); faces.More(); faces.Next()) {
            AddFace(TopoDS::Face(faces.Current()));
        }
        AddEdges();
        return std::move(body_);
    }

private:
    void AddFace(const TopoDS_Face& face) {
        faces_.Add(face);
        ImportedFace made;
        const BRepAdaptor_Surface surface(face);
        Measure(face, surface, &made);
        made.box = BoxOf(face, made.kind);
        AddTriangles(face, &made);
        body_.faces.push_back(std::move(made));
    }

    static void Measure(const TopoDS_Face& face, const BRepAdaptor_Surface& surface,
                        ImportedFace* made) {
        const bool reversed = face.Orientation() == TopAbs_REVERSED;
        const auto place = [&](const gp_Ax3& axes, double radius) {
            made->origin = Tidy(axes.Location().XYZ());
            made->axis = VectorOf(axes.Direction().XYZ());
            made->radius = radius;
            made->hollow = reversed == axes.Direct();
        };
        if (surface.GetType() == GeomAbs_Plane) {
            made->kind = FaceKind::Plane;
            const gp_Ax3 axes = surface.Plane().Position();
            place(axes, 0);
            if (made->hollow) made->axis = -1 * made->axis;
            made->hollow = false;
        } else if (surface.GetType() == GeomAbs_Cylinder && HasTwoRims(face)) {
            made->kind = FaceKind::Cylinder;
            place(surface.Cylinder().Position(), surface.Cylinder().Radius());
        } else if (surface.GetType() == GeomAbs_Cone && HasTwoRims(face)) {
            made->kind = FaceKind::Cone;
            place(surface.Cone().Position(), surface.Cone().RefRadius());
            made->slope = std::tan(surface.Cone().SemiAngle());
        }
    }

    void AddTriangles(const TopoDS_Face& face, ImportedFace* made) {
        TopLoc_Location place;
        const Handle(Poly_Triangulation) mesh = BRep_Tool::Triangulation(face, place);
        if (mesh.IsNull() || mesh->NbTriangles() == 0) throw Failure("a face has no facets");
        const int first = int(body_.points.size()) - 1;
        for (int i = 1; i <= mesh->NbNodes(); ++i) {
            body_.points.push_back(Tidy(mesh->Node(i).Transformed(place).XYZ()));
        }
        const bool reversed = face.Orientation() == TopAbs_REVERSED;
        for (int i = 1; i <= mesh->NbTriangles(); ++i) {
            int a = 0, b = 0, c = 0;
            mesh->Triangle(i).Get(a, b, c);
            if (reversed) std::swap(b, c);
            made->triangles.push_back({first + a, first + b, first + c});
        }
    }

    // Seams and what a face has to itself are no edges between two faces.
    void AddEdges() {
        TopTools_IndexedDataMapOfShapeListOfShape facesOf;
        TopExp::MapShapesAndAncestors(shape_, TopAbs_EDGE, TopAbs_FACE, facesOf);
        for (int i = 1; i <= facesOf.Extent(); ++i) {
            const TopoDS_Edge& edge = TopoDS::Edge(facesOf.FindKey(i));
            const TopTools_ListOfShape& faces = facesOf(i);
            if (faces.Extent() < 2 || BRep_Tool::Degenerated(edge)) continue;
            const int one = faces_.FindIndex(faces.First()) - 1;
            const int other = faces_.FindIndex(faces.Last()) - 1;
            if (one == other || one < 0 || other < 0) continue;
            AddEdge(BRepAdaptor_Curve(edge), std::min(one, other), std::max(one, other));
        }
    }

    void AddEdge(const BRepAdaptor_Curve& curve, int one, int other) {
        ImportedEdge edge;
        edge.faces[0] = one;
        edge.faces[1] = other;
        if (IsFullCircle(curve)) {
            const gp_Ax2 axes = curve.Circle().Position();
            edge.kind = EdgeKind::Circle;
            edge.frame = {{VectorOf(axes.XDirection().XYZ()), VectorOf(axes.YDirection().XYZ()),
                           VectorOf(axes.Direction().XYZ())},
                          Tidy(axes.Location().XYZ())};
            edge.radius = curve.Circle().Radius();
            edge.from = edge.to = edge.frame.Point({edge.radius, 0, 0});
            body_.edges.push_back(edge);
            return;
        }
        const int chords = curve.GetType() == GeomAbs_Line ? 1 : kChords;
        const double first = curve.FirstParameter();
        const double step = (curve.LastParameter() - first) / chords;
        for (int i = 0; i < chords; ++i) {
            edge.from = Tidy(curve.Value(first + i * step).XYZ());
            edge.to = Tidy(curve.Value(first + (i + 1) * step).XYZ());
            body_.edges.push_back(edge);
        }
    }

    const TopoDS_Shape& shape_;
    TopTools_IndexedMapOfShape faces_;  // without regard to how they are turned
    ImportedBody body_;
};

}  // namespace

ImportedBody BodyOf(const TopoDS_Shape& shape) {
    return BodyMaker(shape).Run();
}

}  // namespace simhost::kernel
