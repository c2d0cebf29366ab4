// Models in memory: features, surfaces and names.
#include "simhost/model/model.h"

#include <algorithm>

#include "simhost/core/text.h"
#include "simhost/model/session.h"

namespace simhost {

namespace {

struct StatusWord {
    ProFeatStatus status;
    const char* word;
};
constexpr StatusWord kStatusWords[] = {
    {PRO_FEAT_ACTIVE, "active"},
    {PRO_FEAT_INACTIVE, "inactive"},
    {PRO_FEAT_FAMTAB_SUPPRESSED, "famtab_suppressed"},
    {PRO_FEAT_SIMPREP_SUPPRESSED, "simprep_suppressed"},
    {PRO_FEAT_PROG_SUPPRESSED, "prog_suppressed"},
    {PRO_FEAT_SUPPRESSED, "suppressed"},
    {PRO_FEAT_UNREGENERATED, "unregenerated"},
};

struct SuffixWord {
    ProMdlType type;
    const char* suffix;
};
constexpr SuffixWord kSuffixes[] = {
    {PRO_MDL_ASSEMBLY, "asm"}, {PRO_MDL_PART, "prt"}, {PRO_MDL_DRAWING, "drw"},
    {PRO_MDL_DWGFORM, "frm"},  {PRO_MDL_MFG, "mfg"},
};

}  // namespace

const char* StatusName(ProFeatStatus status) {
    for (const StatusWord& row : kStatusWords) {
        if (row.status == status) return row.word;
    }
    return "invalid";
}

bool ParseStatus(const std::string& word, ProFeatStatus* status) {
    for (const StatusWord& row : kStatusWords) {
        if (row.word != word) continue;
        *status = row.status;
        return true;
    }
    return false;
}

const char* SuffixOf(ProMdlType type) {
    for (const SuffixWord& row : kSuffixes) {
        if (row.type == type) return row.suffix;
    }
    return "";
}

ProMdlType TypeOfSuffix(std::string_view suffix) {
    for (const SuffixWord& row : kSuffixes) {
        if (row.suffix == suffix) return row.type;
    }
    return PRO_MDL_UNUSED;
}

// Plain light grey, as a new part looks.
ProdbSurfaceProps DefaultAppearance() {
    ProdbSurfaceProps props{};
    props.ambient = 0.5;
    props.diffuse = 0.8;
    props.highlight = 0.4;
    props.shininess = 0.3;
    for (double& part : props.colour) part = 0.75;
    for (double& part : props.highlightColour) part = 1.0;
    return props;
}

const Simprep* Model::FindSimprep(WideView wanted) const {
    for (const Simprep& each : assemblyData.simpreps) {
        if (SameName(each.name, wanted)) return &each;
    }
    return nullptr;
}

const Simprep* Model::ActiveSimprep() const {
    for (const Simprep& each : assemblyData.simpreps) {
        if (each.id == assemblyData.activeSimprep) return &each;
    }
    return nullptr;
}

std::string Model::FileName() const {
    return Utf8(Lower(name)) + '.' + SuffixOf(type);
}

Feature& Model::AddFeature(Feature feature) {
    if (feature.id == 0) {
        feature.id = 1;
        for (const Feature& other : features_) feature.id = std::max(feature.id, other.id + 1);
    }
    if (session) ++session->contentsRevision;
    featureAt_[feature.id] = features_.size();
    features_.push_back(std::move(feature));
    return features_.back();
}

std::vector<Feature>& Model::MutableFeatures() {
    if (session) ++session->contentsRevision;
    return features_;
}

Feature* Model::FindFeature(int id) {
    const auto found = featureAt_.find(id);
    return found == featureAt_.end() ? nullptr : &features_[found->second];
}

const std::vector<std::unique_ptr<Surface>>& Model::Surfaces() {
    if (!surfacesMade_) {
        surfacesMade_ = true;
        for (const Solid& solid : partData.solids) {
            for (int i = 1; i <= SurfaceCount(solid); ++i) {
                surfaces_.push_back(std::make_unique<Surface>(Surface{this, solid.id + i, {}, {}}));
                Surface* surface = surfaces_.back().get();
                if (!surfaceHandles) continue;
                surface->handle = static_cast<ProSurface>(surfaceHandles->Add(surface));
            }
        }
    }
    return surfaces_;
}

const ProSurfacedata& Model::BoxOf(Surface& surface) {
    if (surface.box) return *surface.box;
    Extents extents;
    for (const Solid& solid : surface.part->partData.solids) {
        if (surface.id <= solid.id || surface.id > solid.id + SurfaceCount(solid)) continue;
        for (const SolidFace& face : Faces(solid)) {
            if (face.surface != surface.id) continue;
            for (const Facet& facet : face.facets) {
                for (const Vec3 corner : facet.corners) extents.Add(corner);
            }
        }
    }
    const auto fill = [](Vec3 v, Pro3dPnt point) {
        point[0] = v.x;
        point[1] = v.y;
        point[2] = v.z;
    };
    surface.box.emplace();
    fill(extents.low, surface.box->xyz_min);
    fill(extents.high, surface.box->xyz_max);
    return *surface.box;
}

void Model::ForgetMeasures() {
    for (const auto& surface : surfaces_) surface->box.reset();
}

bool Model::HasSurface(int id) {
    const auto& all = Surfaces();
    return std::any_of(all.begin(), all.end(), [id](const auto& one) { return one->id == id; });
}

}  // namespace simhost
