// Makes meshes of the facets that the simulated host measures by.
#include "simhost/web/mesh.h"

#include <cmath>
#include <map>
#include <tuple>
#include <utility>

#include "simhost/model/shape.h"

namespace simhost {
namespace {

constexpr int kFineness = 32;       // facets of a full circle
constexpr double kSmooth = 0.906;   // cosine of 25 degrees: less is no bend but a round surface
constexpr double kSamePoint = 1e5;  // a hundred-thousandth of the unit
constexpr double kSameNormal = 1e4;

using Key = std::tuple<long long, long long, long long>;
Key KeyOf(Vec3 v, double fineness) {
    return {std::llround(v.x * fineness), std::llround(v.y * fineness),
            std::llround(v.z * fineness)};
}

Vec3 UnitOf(Vec3 v) {
    const double length = std::sqrt(Dot(v, v));
    return length > 0 ? 1 / length * v : Vec3{0, 0, 1};
}

Vec3 NormalOf(const Facet& facet) {
    Vec3 sum;
    for (std::size_t i = 0; i < facet.corners.size(); ++i) {
        sum = sum + Cross(facet.corners[i], facet.corners[(i + 1) % facet.corners.size()]);
    }
    return UnitOf(sum);
}

void AddPoint(Vec3 p, std::vector<float>* numbers) {
    for (const double each : {p.x, p.y, p.z}) numbers->push_back(float(each));
}

// One surface at a time: its facets meet smoothly, those of two surfaces never do.
class SurfaceMesh {
public:
    SurfaceMesh(const SolidFace& face, Mesh* mesh) : face_(face), mesh_(mesh) {
        normals_.reserve(face.facets.size());
        for (const Facet& facet : face.facets) {
            normals_.push_back(NormalOf(facet));
            for (const Vec3 corner : facet.corners) {
                around_[KeyOf(corner, kSamePoint)].push_back(normals_.size() - 1);
            }
        }
    }

    void Add() {
        const std::size_t before = mesh_->triangles.size();
        for (std::size_t f = 0; f < face_.facets.size(); ++f) {
            const auto& corners = face_.facets[f].corners;
            std::vector<std::uint32_t> points;
            points.reserve(corners.size());
            for (const Vec3 corner : corners) points.push_back(PointAt(corner, f));
            for (std::size_t i = 2; i < points.size(); ++i) {
                for (const std::size_t at : {std::size_t(0), i - 1, i}) {
                    mesh_->triangles.push_back(points[at]);
                }
            }
        }
        const std::size_t added = (mesh_->triangles.size() - before) / 3;
        mesh_->surfaces.push_back({face_.surface, std::uint32_t(added)});
    }

private:
    std::uint32_t PointAt(Vec3 corner, std::size_t facet) {
        const Key place = KeyOf(corner, kSamePoint);
        Vec3 sum;
        for (const std::size_t other : around_[place]) {
            if (Dot(normals_[other], normals_[facet]) > kSmooth) sum = sum + normals_[other];
        }
        const Vec3 normal = UnitOf(sum);
        const auto next = std::uint32_t(mesh_->points.size() / 3);
        const auto [point, isNew] = points_.try_emplace({place, KeyOf(normal, kSameNormal)}, next);
        if (isNew) {
            AddPoint(corner, &mesh_->points);
            AddPoint(normal, &mesh_->normals);
        }
        return point->second;
    }

    const SolidFace& face_;
    Mesh* mesh_;
    std::vector<Vec3> normals_;                       // of the facets
    std::map<Key, std::vector<std::size_t>> around_;  // the facets at each corner
    std::map<std::pair<Key, Key>, std::uint32_t> points_;
};

void AddEdge(const ShapeEdge& edge, std::vector<float>* edges) {
    if (edge.kind == EdgeKind::Line) {
        AddPoint(edge.from, edges);
        AddPoint(edge.to, edges);
        return;
    }
    const auto onCircle = [&](int step) {
        const double angle = 2 * std::acos(-1.0) * (step % kFineness) / kFineness;
        return edge.frame.Point({edge.radius * std::cos(angle), edge.radius * std::sin(angle), 0});
    };
    for (int i = 0; i < kFineness; ++i) {
        AddPoint(onCircle(i), edges);
        AddPoint(onCircle(i + 1), edges);
    }
}

// Flat faces that run into each other as a round one would show no edge.
bool IsBend(const ShapeEdge& edge, const std::map<int, const ShapeFace*>& faces) {
    const auto one = faces.find(edge.faces[0]), other = faces.find(edge.faces[1]);
    if (one == faces.end() || other == faces.end()) return true;
    const bool flat =
        one->second->kind == FaceKind::Plane && other->second->kind == FaceKind::Plane;
    return !flat || Dot(one->second->axis, other->second->axis) < kSmooth;
}

bool IsMadeOf(const PartShape& shape, const std::vector<Solid>& solids) {
    if (shape.bodies.size() != solids.size()) return false;
    for (std::size_t i = 0; i < solids.size(); ++i) {
        if (shape.bodies[i].madeOf != solids[i]) return false;
    }
    return true;
}

}  // namespace

Mesh MeshOf(const PartShape& shape) {
    Mesh mesh;
    for (const ShapeBody& body : shape.bodies) {
        for (const SolidFace& face : FacetsOf(body, kFineness)) SurfaceMesh(face, &mesh).Add();
    }
    std::map<int, const ShapeFace*> faces;
    for (const ShapeFace& face : shape.faces) faces[face.id] = &face;
    for (const ShapeEdge& edge : shape.edges) {
        if (IsBend(edge, faces)) AddEdge(edge, &mesh.edges);
    }
    return mesh;
}

const Mesh& Meshes::Of(const Model& part) {
    const PartShape& shape = part.shape();
    const auto [found, isNew] = kept_.try_emplace(&part);
    Kept& kept = found->second;
    kept.asked = true;
    if (!isNew && IsMadeOf(shape, kept.solids)) return kept.mesh;
    kept.solids.clear();
    kept.solids.reserve(shape.bodies.size());
    for (const ShapeBody& body : shape.bodies) kept.solids.push_back(body.madeOf);
    kept.mesh = MeshOf(shape);
    kept.mesh.number = ++lastNumber_;
    return kept.mesh;
}

void Meshes::Forget() {
    std::erase_if(kept_, [](const auto& each) { return !each.second.asked; });
    for (auto& [part, kept] : kept_) kept.asked = false;
}

}  // namespace simhost
