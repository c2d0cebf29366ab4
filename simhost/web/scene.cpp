// The 3-D picture of the current part or assembly as one run of bytes: a JSON text, and after it
// the numbers of meshes and occurrences. docs/workbench.md tells its parts.
#include <fmt/format.h>

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <map>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "simhost/model/screen_view.h"
#include "simhost/model/shown.h"
#include "simhost/model/units.h"
#include "simhost/trail/picks.h"
#include "simhost/web/answers.h"
#include "simhost/web/json_text.h"
#include "simhost/web/mesh.h"
#include "simhost/web/number_ranges.h"

namespace simhost {
namespace {

static_assert(std::endian::native == std::endian::little, "the numbers go out as they lie here");

template <typename Number>
void Append(const std::vector<Number>& numbers, std::string* bytes) {
    static_assert(sizeof(Number) == 4);
    const std::size_t before = bytes->size();
    bytes->resize(before + 4 * numbers.size());
    if (!numbers.empty()) std::memcpy(bytes->data() + before, numbers.data(), 4 * numbers.size());
}

// What a fragment shader needs of an appearance: colour and opacity, then ambient, diffuse,
// highlight, shininess, then the highlight's colour.
using Look = std::array<float, 11>;
Look LookOf(const ProdbSurfaceProps& props) {
    const std::array<double, std::tuple_size_v<Look>> numbers = {
        props.colour[0],
        props.colour[1],
        props.colour[2],
        1 - props.transparency,
        props.ambient,
        props.diffuse,
        props.highlight,
        props.shininess,
        props.highlightColour[0],
        props.highlightColour[1],
        props.highlightColour[2],
    };
    Look look;
    for (std::size_t i = 0; i < look.size(); ++i) look[i] = float(numbers[i]);
    return look;
}

class Scene {
public:
    Scene(const Model& top, Meshes& meshes) : meshes_(meshes) {
        VisitShown(top, Sight::Screen, [&](const ShownPart& shown) { Add(top, shown); });
    }

    // All but what a page has, by the key of its last picture and the numbers of its meshes.
    Json Header(const std::string& have, const NumberRanges& known, std::string* data) {
        Json header = {
            {"parts", std::move(parts_)}, {"looks", looks_}, {"paths", std::move(paths_)}};
        std::string numbers;
        Append(partOf_, &numbers);
        Append(lookOf_, &numbers);
        Append(covered_, &numbers);
        Append(placements_, &numbers);
        // The same text gives the same key; who has it need not be told again.
        const auto hash = std::hash<std::string>();
        const std::string key = fmt::format("{:x}-{:x}", hash(Dump(header)), hash(numbers));
        if (key == have) return {{"key", key}, {"same", true}};
        header["key"] = key;
        *data = std::move(numbers);
        header["meshes"] = MeshesBut(known, data);
        return header;
    }

private:
    void Add(const Model& top, const ShownPart& shown) {
        const ProdbSurfaceProps usual = DefaultAppearance();
        const auto& own = shown.part->appearance;
        partOf_.push_back(PartNumber(*shown.part));
        lookOf_.push_back(LookNumber(shown.cover ? *shown.cover : own ? *own : usual));
        covered_.push_back(shown.cover ? 1 : 0);
        const Placement& place = shown.placement;
        for (const Vec3 each : {place.axes[0], place.axes[1], place.axes[2], place.origin}) {
            for (const double number : {each.x, each.y, each.z}) {
                placements_.push_back(float(number));
            }
        }
        paths_.push_back(names_.Of(&top, *shown.path));
    }

    std::uint32_t PartNumber(const Model& part) {
        const auto [found, isNew] =
            partNumbers_.try_emplace(&part, std::uint32_t(partNumbers_.size()));
        if (!isNew) return found->second;
        const Mesh& mesh = meshes_.Of(part);
        shownMeshes_.push_back(&mesh);
        Json surfaces = Json::array();
        for (const auto& [id, props] : part.partData.surfaceAppearances) {
            surfaces.push_back({id, LookNumber(props)});
        }
        parts_.push_back(
            {{"mesh", mesh.number}, {"file", part.FileName()}, {"surfaces", std::move(surfaces)}});
        return found->second;
    }

    std::uint32_t LookNumber(const ProdbSurfaceProps& props) {
        const Look look = LookOf(props);
        const auto [found, isNew] =
            lookNumbers_.try_emplace(look, std::uint32_t(lookNumbers_.size()));
        if (isNew) looks_.push_back(look);
        return found->second;
    }

    Json MeshesBut(const NumberRanges& known, std::string* data) const {
        Json sent = Json::array();
        for (const Mesh* mesh : shownMeshes_) {
            if (known.Contains(mesh->number)) continue;
            Json surfaces = Json::array();
            for (const Mesh::Surface& each : mesh->surfaces) {
                surfaces.push_back({each.id, each.triangles});
            }
            sent.push_back({{"number", mesh->number},
                            {"at", data->size()},
                            {"points", mesh->points.size() / 3},
                            {"triangles", mesh->triangles.size() / 3},
                            {"edges", mesh->edges.size() / 6},
                            {"surfaces", std::move(surfaces)}});
            Append(mesh->points, data);
            Append(mesh->normals, data);
            Append(mesh->triangles, data);
            Append(mesh->edges, data);
        }
        return sent;
    }

    Meshes& meshes_;
    std::vector<const Mesh*> shownMeshes_;
    Json parts_ = Json::array(), looks_ = Json::array(), paths_ = Json::array();
    std::vector<std::uint32_t> partOf_, lookOf_, covered_;
    std::vector<float> placements_;
    std::unordered_map<const Model*, std::uint32_t> partNumbers_;
    std::map<Look, std::uint32_t> lookNumbers_;
    PathNames names_;
};

// From the model in mm to the screen.
Json ScreenNow(Model& model) {
    const ProMatrix& matrix = ScreenOf(model).matrix;
    const double unit = LengthUnit(model);
    Json rows = Json::array();
    for (std::size_t row = 0; row < 4; ++row) {
        const double k = row < 3 ? 1 / unit : 1;
        rows.push_back({k * matrix[row][0], k * matrix[row][1], k * matrix[row][2]});
    }
    return {{"width", kScreenWidth}, {"height", kScreenHeight}, {"matrix", std::move(rows)}};
}

Reply Framed(const Json& header, const std::string& data) {
    std::string text = Dump(header);
    text.append((4 - text.size() % 4) % 4, ' ');
    std::string body;
    Append(std::vector<std::uint32_t>{std::uint32_t(text.size())}, &body);
    return {200, "application/octet-stream", body + text + data, {}};
}

}  // namespace

Reply SceneNow(const Seat&, const Query& query) {
    // Of all sessions: one that has gone leaves nothing that another could mistake for its own.
    static Meshes meshes;
    Model* top = ModelAt("");
    if (!top || (top->type != PRO_MDL_PART && top->type != PRO_MDL_ASSEMBLY)) {
        return Framed({{"top", nullptr}}, {});
    }
    std::string data;
    Scene scene(*top, meshes);
    Json header = scene.Header(query.Text("have"), NumberRanges(query.Text("known")), &data);
    header["top"] = top->FileName();
    header["screen"] = ScreenNow(*top);
    meshes.Forget();
    return Framed(header, data);
}

}  // namespace simhost
