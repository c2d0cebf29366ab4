// Membership of simplified representations: the items as a tree of component ids.
#include "simhost/model/simprep.h"

#include <optional>
#include <utility>

#include "simhost/core/text.h"

namespace simhost {

void* SimprepDatas::Add(Simprep data) {
    auto owned = std::make_unique<Simprep>(std::move(data));
    void* handle = handles_.Add(owned.get());
    owned_[handle] = std::move(owned);
    return handle;
}

void SimprepDatas::Free(const void* handle) {
    handles_.Drop(handle);
    owned_.erase(handle);
}

std::vector<std::string> SimprepDatas::Held() const {
    std::vector<std::string> held;
    for (const auto& [handle, data] : owned_) {
        held.push_back("data of the representation " + Utf8(data->name));
    }
    return held;
}

struct Membership::Node {
    std::optional<bool> included;  // by an item that ends here
    bool includesBelow = false;    // an item that ends here or further down includes
    std::map<int, Node> below;
};

Membership::Membership(const Simprep* representation) {
    if (!representation) return;
    root_ = std::make_unique<Node>();
    included_ = representation->defaultAction != kSimprepExclude;
    for (const Simprep::Item& item : representation->items) {
        Node* node = root_.get();
        const bool includes = item.action != kSimprepExclude;
        node->includesBelow |= includes;
        for (const int id : item.path) {
            node = &node->below[id];
            node->includesBelow |= includes;
        }
        node->included = includes;
    }
}

Membership::~Membership() = default;

Membership::At Membership::Top() const {
    if (!root_) return {};
    return {root_.get(), root_->included.value_or(included_)};
}

Membership::At Membership::Below(At at, int id) {
    if (!at.node) return at;
    const auto found = at.node->below.find(id);
    if (found == at.node->below.end()) return {nullptr, at.included};
    return {&found->second, found->second.included.value_or(at.included)};
}

bool Membership::IsThere(At at) {
    return at.included || (at.node && at.node->includesBelow);
}

}  // namespace simhost
