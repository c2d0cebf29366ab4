// Constraints of components: what an assembly keeps of them, what a caller has in hand of them, and
// where they put a component.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "hostapi/host/assembly.h"
#include "simhost/core/handles.h"
#include "simhost/model/selections.h"

namespace simhost {

class Model;
class Session;
struct Feature;
struct Placement;

// What a constraint holds on to: an item of a model that component ids lead to. They start from the
// assembly, or from the component's own model.
struct ConstraintReference {
    std::vector<int> path;
    ProType type = PRO_TYPE_UNUSED;
    int id = -1;
    ProDatumside side = PRO_DATUM_SIDE_NONE;
    bool operator==(const ConstraintReference&) const = default;
};

struct Constraint {
    ProAsmcompConstrType type = PRO_ASM_AUTO;
    std::optional<ConstraintReference> assembly, component;
    bool operator==(const Constraint&) const = default;
};

// "csys", "fix" and so on; null for a number that is no type. ParseConstraintType gives false for a
// word that names none.
const char* ConstraintTypeName(ProAsmcompConstrType type);
bool ParseConstraintType(const std::string& word, ProAsmcompConstrType* type);
// "csys#8", "3/csys#8"; and back, false for a text that is none.
std::string ReferenceText(const ConstraintReference& reference);
bool ParseReference(const std::string& text, ConstraintReference* reference);
// "csys: csys#8 to csys#5", "fix".
std::string ConstraintText(const Constraint& constraint);

// A constraint that a caller has in hand and fills step by step.
struct ConstraintDraft {
    struct Reference {
        Selection selection;
        ProDatumside side = PRO_DATUM_SIDE_NONE;
    };
    std::optional<ProAsmcompConstrType> type;
    std::optional<Reference> assembly, component;
};

// Handles of drafts: those that the caller made live until they are freed, copies in an array that
// the host made end with the array, or when they are freed one by one.
class ConstraintDrafts {
public:
    ProAsmcompconstraint Add(ConstraintDraft draft);
    ConstraintDraft* Find(const void* handle) const { return handles_.Find(handle); }
    bool WasGiven(const void* handle) const { return handles_.WasGiven(handle); }
    void Free(const void* handle);
    void KeptIn(const void* array, std::vector<ProAsmcompconstraint> handles);
    void ArrayFreed(const void* array);
    void Forget(const GoneModels& gone);  // references to them are gone

private:
    HandleTable<ConstraintDraft> handles_{HandleKind::Constraint};
    std::unordered_map<const void*, std::unique_ptr<ConstraintDraft>> owned_;
    std::unordered_map<const void*, std::vector<ProAsmcompconstraint>> lent_;
};

// The constraint of a draft for this component; nothing where it lacks a type, or a reference that
// its type needs, or one of them leads nowhere.
std::optional<Constraint> ConstraintOf(const Session& session, const ConstraintDraft& draft,
                                       Model& assembly, const Feature& component);
// And the other way round, as far as the models are in memory.
ConstraintDraft DraftOf(const Constraint& constraint, Model& assembly, const Feature& component);

// Whether an item of this kind and number is there, as far as this host knows items of the kind.
bool HasItem(Model& model, ProType type, int id);

// Where the component's constraints want it: two coordinate systems become one, and all other
// constraints leave it where it is.
Placement ConstrainedPlace(Model& assembly, const Feature& component);
// Puts it there; an assembly that nobody may change stays as it is.
void PlaceComponent(Model& assembly, Feature* component);

}  // namespace simhost
