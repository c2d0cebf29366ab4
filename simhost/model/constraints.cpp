// Constraints as words, as drafts in a caller's hand, and their effect on a component's place.
#include "simhost/model/constraints.h"

#include <fmt/format.h>

#include <charconv>
#include <utility>

#include "simhost/model/annotations.h"
#include "simhost/model/csys.h"
#include "simhost/model/frames.h"
#include "simhost/model/session.h"

namespace simhost {

namespace {

// By their numbers.
constexpr const char* kTypeWords[] = {
    "mate",
    "mate_offset",
    "align",
    "align_offset",
    "insert",
    "orient",
    "csys",
    "tangent",
    "point_on_surface",
    "edge_on_surface",
    "default",
    "substitute",
    "point_on_line",
    "fix",
    "automatic",
};

struct ItemWord {
    const char* word;
    ProType type;
};
constexpr ItemWord kItemWords[] = {
    {"csys", PRO_CSYS},       {"surface", PRO_SURFACE}, {"edge", PRO_EDGE},
    {"feature", PRO_FEATURE}, {"quilt", PRO_QUILT},     {"curve", PRO_CURVE},
};

bool ParseNumber(std::string_view text, int* number) {
    const char* end = text.data() + text.size();
    const auto [parsed, error] = std::from_chars(text.data(), end, *number);
    return !text.empty() && error == std::errc() && parsed == end;
}

bool NeedsReferences(ProAsmcompConstrType type) {
    return type != PRO_ASM_FIX && type != PRO_ASM_DEF_PLACEMENT && type != PRO_ASM_AUTO;
}

// The model that component ids lead to, with its frame in that of `top`, in mm. Null: nowhere.
Model* Follow(Model& top, const std::vector<int>& path, Placement* frame) {
    Model* model = &top;
    for (const int id : path) {
        const Feature* feature = model->FindFeature(id);
        if (!feature || !feature->model) return nullptr;
        *frame = Compose(*frame, PlaceInMm(feature->placement, *model));
        model = feature->model;
    }
    return model;
}

// The frame of a coordinate system that a constraint holds on to, in that of `top`, in mm.
std::optional<Placement> FrameOf(Model& top, const std::optional<ConstraintReference>& reference) {
    if (!reference || reference->type != PRO_CSYS) return std::nullopt;
    Placement frame;
    Model* owner = Follow(top, reference->path, &frame);
    const Feature* csys = owner ? FindCsys(*owner, reference->id) : nullptr;
    if (!csys) return std::nullopt;
    return Compose(frame, PlaceInMm(csys->placement, *owner));
}

// What a selection below `top` is to a constraint; nothing if it leads elsewhere.
std::optional<ConstraintReference> ReferenceFrom(const Session& session,
                                                 const ConstraintDraft::Reference& draft,
                                                 Model& top) {
    const Selection& selection = draft.selection;
    if (selection.top != &top) return std::nullopt;
    Placement ignored;
    Model* owner = Follow(top, selection.path, &ignored);
    if (!owner || session.Find(selection.item.owner) != owner) return std::nullopt;
    if (!HasItem(*owner, selection.item.type, selection.item.id)) return std::nullopt;
    return ConstraintReference{selection.path, selection.item.type, selection.item.id, draft.side};
}

std::optional<ConstraintDraft::Reference> DraftFrom(
    const std::optional<ConstraintReference>& reference, Model& top) {
    if (!reference) return std::nullopt;
    Placement ignored;
    const Model* owner = Follow(top, reference->path, &ignored);
    if (!owner) return std::nullopt;
    const ProModelitem item{reference->type, reference->id, owner->handle};
    return ConstraintDraft::Reference{{item, &top, reference->path}, reference->side};
}

}  // namespace

// --- Words ---

const char* ConstraintTypeName(ProAsmcompConstrType type) {
    const auto place = std::size_t(type);
    return type >= 0 && place < std::size(kTypeWords) ? kTypeWords[place] : nullptr;
}

bool ParseConstraintType(const std::string& word, ProAsmcompConstrType* type) {
    for (std::size_t i = 0; i < std::size(kTypeWords); ++i) {
        if (word != kTypeWords[i]) continue;
        *type = ProAsmcompConstrType(i);
        return true;
    }
    return false;
}

std::string ReferenceText(const ConstraintReference& reference) {
    std::string text;
    for (const int id : reference.path) text += fmt::format("{}/", id);
    for (const ItemWord& row : kItemWords) {
        if (row.type == reference.type) return text + fmt::format("{}#{}", row.word, reference.id);
    }
    return text + fmt::format("{}#{}", int(reference.type), reference.id);
}

bool ParseReference(const std::string& text, ConstraintReference* reference) {
    *reference = {{}, PRO_TYPE_UNUSED, -1, reference->side};
    std::string_view left = text;
    for (std::size_t slash = 0; (slash = left.find('/')) != left.npos;) {
        int id = 0;
        if (!ParseNumber(left.substr(0, slash), &id) || id < 1) return false;
        reference->path.push_back(id);
        left.remove_prefix(slash + 1);
    }
    const std::size_t hash = left.find('#');
    if (hash == left.npos || !ParseNumber(left.substr(hash + 1), &reference->id)) return false;
    const std::string_view kind = left.substr(0, hash);
    for (const ItemWord& row : kItemWords) {
        if (kind == row.word) reference->type = row.type;
    }
    int number = 0;
    if (ParseNumber(kind, &number)) reference->type = ProType(number);
    return reference->type != PRO_TYPE_UNUSED && reference->id >= 0;
}

std::string ConstraintText(const Constraint& constraint) {
    std::string text = ConstraintTypeName(constraint.type);
    const auto add = [&](const char* between, const std::optional<ConstraintReference>& reference) {
        if (reference) text += between + ReferenceText(*reference);
    };
    add(": ", constraint.component);
    add(constraint.component ? " to " : ": ", constraint.assembly);
    return text;
}

// --- Drafts ---

ProAsmcompconstraint ConstraintDrafts::Add(ConstraintDraft draft) {
    auto owned = std::make_unique<ConstraintDraft>(std::move(draft));
    void* handle = handles_.Add(owned.get());
    owned_[handle] = std::move(owned);
    return static_cast<ProAsmcompconstraint>(handle);
}

void ConstraintDrafts::Free(const void* handle) {
    handles_.Drop(handle);
    owned_.erase(handle);
}

void ConstraintDrafts::KeptIn(const void* array, std::vector<ProAsmcompconstraint> handles) {
    lent_[array] = std::move(handles);
}

void ConstraintDrafts::ArrayFreed(const void* array) {
    const auto found = lent_.find(array);
    if (found == lent_.end()) return;
    for (const ProAsmcompconstraint handle : found->second) Free(handle);
    lent_.erase(found);
}

void ConstraintDrafts::Forget(const GoneModels& gone) {
    const auto forget = [&](std::optional<ConstraintDraft::Reference>* reference) {
        if (!*reference) return;
        const Selection& selection = (*reference)->selection;
        if (gone.count(selection.top) || gone.count(selection.item.owner)) reference->reset();
    };
    for (const auto& [handle, draft] : owned_) {
        forget(&draft->assembly);
        forget(&draft->component);
    }
}

bool HasItem(Model& model, ProType type, int id) {
    switch (type) {
        case PRO_CSYS: return FindCsys(model, id) != nullptr;
        case PRO_SURFACE: return model.HasSurface(id);
        case PRO_FEATURE: return model.FindFeature(id) != nullptr;
        case PRO_DIMENSION: {
            const auto& annotations = model.drawingData.annotations;
            return annotations && annotations->FindDimension(id);
        }
        default: return true;
    }
}

std::optional<Constraint> ConstraintOf(const Session& session, const ConstraintDraft& draft,
                                       Model& assembly, const Feature& component) {
    if (!draft.type || !ConstraintTypeName(*draft.type) || !component.model) return std::nullopt;
    Constraint constraint;
    constraint.type = *draft.type;
    if (draft.assembly) {
        constraint.assembly = ReferenceFrom(session, *draft.assembly, assembly);
        if (!constraint.assembly) return std::nullopt;
    }
    if (draft.component) {
        constraint.component = ReferenceFrom(session, *draft.component, *component.model);
        if (!constraint.component) return std::nullopt;
    }
    const bool whole = constraint.assembly && constraint.component;
    if (NeedsReferences(constraint.type) && !whole) return std::nullopt;
    return constraint;
}

ConstraintDraft DraftOf(const Constraint& constraint, Model& assembly, const Feature& component) {
    ConstraintDraft draft;
    draft.type = constraint.type;
    draft.assembly = DraftFrom(constraint.assembly, assembly);
    if (component.model) draft.component = DraftFrom(constraint.component, *component.model);
    return draft;
}

// --- Effect ---

Placement ConstrainedPlace(Model& assembly, const Feature& component) {
    Placement place = component.placement;
    if (!component.constraints || !component.model) return place;
    for (const Constraint& constraint : *component.constraints) {
        if (constraint.type != PRO_ASM_CSYS) continue;
        const auto target = FrameOf(assembly, constraint.assembly);
        const auto own = FrameOf(*component.model, constraint.component);
        if (target && own) place = FromMm(Compose(*target, Inverse(*own)), assembly);
    }
    return place;
}

void PlaceComponent(Model& assembly, Feature* component) {
    if (assembly.readOnly) return;
    const Placement place = ConstrainedPlace(assembly, *component);
    if (IsSamePlace(place, component->placement)) return;
    component->placement = place;
    assembly.modified = true;
}

}  // namespace simhost
