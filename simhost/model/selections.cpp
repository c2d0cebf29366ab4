// The selection buffer, and handles that end with the array, the buffer or the pick they belong to.
#include "simhost/model/selections.h"

#include <utility>

#include "simhost/model/model.h"

namespace simhost {

void Selections::SetBuffer(std::vector<Selection> list) {
    for (const auto& [array, handles] : lent_) End(handles);
    lent_.clear();
    buffer_ = std::move(list);
    emptyBufferReads = false;
}

ProSelection Selections::Add(const Selection& selection) {
    auto owned = std::make_unique<Selection>(selection);
    void* handle = handles_.Add(owned.get());
    owned_[handle] = std::move(owned);
    return static_cast<ProSelection>(handle);
}

void Selections::End(const std::vector<ProSelection>& handles) {
    for (const ProSelection handle : handles) {
        handles_.Drop(handle);
        owned_.erase(handle);
    }
}

std::vector<ProSelection> Selections::LendBuffer() {
    std::vector<ProSelection> handles;
    handles.reserve(buffer_.size());
    for (const Selection& each : buffer_) handles.push_back(Add(each));
    return handles;
}

void Selections::KeptIn(const void* array, std::vector<ProSelection> handles) {
    lent_[array] = std::move(handles);
}

void Selections::ArrayFreed(const void* array) {
    const auto found = lent_.find(array);
    if (found == lent_.end()) return;
    End(found->second);
    lent_.erase(found);
}

std::vector<ProSelection> Selections::Picked(const std::vector<Selection>& list) {
    End(picked_);
    picked_.clear();
    for (const Selection& each : list) picked_.push_back(Add(each));
    return picked_;
}

ProSelection Selections::Make(const Selection& selection) {
    const ProSelection handle = Add(selection);
    made_.insert(handle);
    return handle;
}

bool Selections::Free(ProSelection handle) {
    if (made_.erase(handle) == 0) return false;
    End({handle});
    return true;
}

void* Selections::NewEnvironment(bool box) {
    ownedEnvironments_.push_back({box});
    return environments_.Add(&ownedEnvironments_.back());
}

void Selections::Forget(const GoneModels& gone) {
    const auto isGone = [&](const Selection& one) {
        return gone.count(one.top) > 0 || gone.count(one.item.owner) > 0;
    };
    std::erase_if(buffer_, isGone);
    std::erase_if(owned_, [&](const auto& entry) {
        if (!isGone(*entry.second)) return false;
        handles_.Drop(entry.first);
        return true;
    });
}

}  // namespace simhost
