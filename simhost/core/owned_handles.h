// Objects that callers allocate by one operation and free by another, by their handles.
#pragma once

#include <memory>
#include <unordered_map>
#include <utility>

#include "simhost/core/handles.h"

namespace simhost {

template <class T>
class OwnedHandles {
public:
    explicit OwnedHandles(HandleKind kind) : handles_(kind) {}

    void* Add(T object) {
        auto owned = std::make_unique<T>(std::move(object));
        void* handle = handles_.Add(owned.get());
        owned_[handle] = std::move(owned);
        return handle;
    }
    // Null for what is no such object, or not any more.
    T* Find(const void* handle) const { return handles_.Find(handle); }
    bool WasGiven(const void* handle) const { return handles_.WasGiven(handle); }
    void Free(const void* handle) {
        handles_.Drop(handle);
        owned_.erase(handle);
    }

private:
    HandleTable<T> handles_;
    std::unordered_map<const void*, std::unique_ptr<T>> owned_;
};

}  // namespace simhost
