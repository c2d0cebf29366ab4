// Replaces a component by another model, or says why not.
#include "simhost/model/replacing.h"

#include <fmt/format.h>

#include <algorithm>

#include "simhost/core/text.h"
#include "simhost/model/constraints.h"
#include "simhost/model/model_tree.h"
#include "simhost/model/session.h"

namespace simhost {

namespace {

bool Resolves(const Session& session, Model& model, const ConstraintReference& reference) {
    ProModelitem end;
    return Session::Follow(model, reference.path, &end) &&
           HasItem(*session.Find(end.owner), reference.type, reference.id);
}

}  // namespace

std::string ReplaceComponent(Session& session, const Selection& selection,
                             const std::string& file) {
    std::vector<int> above = selection.path;
    if (above.empty()) return "the top is no component";
    const int id = above.back();
    above.pop_back();
    ProModelitem holder;
    const bool leads = Session::Follow(*selection.top, above, &holder);
    Model* owner = leads ? session.Find(holder.owner) : nullptr;
    Feature* component = owner ? owner->FindFeature(id) : nullptr;
    if (!component) return "the component is there no more";
    if (owner->readOnly) return owner->FileName() + " may not be changed";
    Model* model = session.RetrieveOrTell(file);
    if (!model) return file + " cannot be opened";
    if (model->type != PRO_MDL_PART && model->type != PRO_MDL_ASSEMBLY) {
        return file + " is neither a part nor an assembly";
    }
    if (Contains(*model, *owner)) return fmt::format("{} would contain itself", owner->FileName());
    component = owner->FindFeature(id);
    ++session.contentsRevision;
    component->file = model->FileName();
    component->model = model;
    if (component->constraints) {
        std::erase_if(*component->constraints, [&](const Constraint& each) {
            return each.component && !Resolves(session, *model, *each.component);
        });
    }
    owner->modified = true;
    session.selections.ClearBuffer();
    return {};
}

}  // namespace simhost
