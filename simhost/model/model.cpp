// Models in memory: features, surfaces and names.
#include "simhost/model/model.h"

#include <algorithm>

#include "simhost/core/text.h"
#include "simhost/model/session.h"
#include "simhost/model/shape.h"

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

// A dot would part the name from its type; the others can be in no file's name.
bool IsModelName(WideView name) {
    const auto isForbidden = [](WideChar c) {
        return c < WideChar{' '} || WideView(WIDE("\\/:*?\"<>|.")).find(c) != WideView::npos;
    };
    return !name.empty() && name.size() <= PRO_NAME_SIZE && name.front() != WideChar{' '} &&
           name.back() != WideChar{' '} && std::none_of(name.begin(), name.end(), isForbidden);
}

std::string Model::FileName() const {
    return Utf8(Lower(name)) + '.' + SuffixOf(type);
}

Feature& Model::AddFeature(Feature feature) {
    if (feature.id == 0) feature.id = lastFeatureId_ + 1;
    lastFeatureId_ = std::max(lastFeatureId_, feature.id);
    if (session) ++session->contentsRevision;
    featureAt_[feature.id] = features_.size();
    features_.push_back(std::move(feature));
    return features_.back();
}

void Model::RemoveFeature(int id) {
    const auto found = featureAt_.find(id);
    if (found == featureAt_.end()) return;
    if (session) ++session->contentsRevision;
    features_.erase(features_.begin() + std::ptrdiff_t(found->second));
    featureAt_.clear();
    for (std::size_t i = 0; i < features_.size(); ++i) featureAt_[features_[i].id] = i;
}

std::vector<Feature>& Model::MutableFeatures() {
    if (session) ++session->contentsRevision;
    return features_;
}

Feature* Model::FindFeature(int id) {
    const auto found = featureAt_.find(id);
    return found == featureAt_.end() ? nullptr : &features_[found->second];
}

namespace {

void CopyPoint(Vec3 from, Pro3dPnt to) {
    to[0] = from.x;
    to[1] = from.y;
    to[2] = from.z;
}

}  // namespace

const PartShape& Model::shape() const {
    if (!shape_ || !IsShapeOf(*shape_, partData.solids)) {
        shape_ = std::make_shared<const PartShape>(ShapeOf(partData.solids));
    }
    return *shape_;
}

const std::vector<std::unique_ptr<Surface>>& Model::Surfaces() {
    const PartShape& now = shape();
    if (surfacesOf_ == shape_) return surfaces_;
    surfacesOf_ = shape_;
    std::unordered_map<int, std::unique_ptr<Surface>> before;
    for (auto& surface : surfaces_) before[surface->id] = std::move(surface);
    surfaces_.clear();
    for (const ShapeFace& face : now.faces) {
        std::unique_ptr<Surface>& known = before[face.id];
        if (!known) {
            known = std::make_unique<Surface>(Surface{this, face.id, {}, {}});
            if (surfaceHandles)
                known->handle = static_cast<ProSurface>(surfaceHandles->Add(known.get()));
        }
        CopyPoint(face.box.low, known->box.xyz_min);
        CopyPoint(face.box.high, known->box.xyz_max);
        surfaces_.push_back(std::move(known));
    }
    for (const auto& [id, gone] : before) {
        if (gone && surfaceHandles) surfaceHandles->Drop(gone->handle);
    }
    return surfaces_;
}

bool Model::HasSurface(int id) {
    const auto& all = Surfaces();
    return std::any_of(all.begin(), all.end(), [id](const auto& one) { return one->id == id; });
}

}  // namespace simhost
