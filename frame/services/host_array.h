// A host array that is freed when its owner is done with it.
#pragma once

#include "hostapi/host.h"

template <class T>
class HostArray {
public:
    HostArray() = default;
    HostArray(const HostArray&) = delete;
    HostArray& operator=(const HostArray&) = delete;
    HostArray(HostArray&& other) noexcept : array_(other.array_) { other.array_ = nullptr; }
    HostArray& operator=(HostArray&& other) noexcept {
        if (this == &other) return *this;
        Free();
        array_ = other.array_;
        other.array_ = nullptr;
        return *this;
    }
    ~HostArray() { Free(); }

    // Makes it an empty array that grows by one element.
    ProError Allocate() { return ProArrayAlloc(0, int(sizeof(T)), 1, &array_); }

    // Frees it now instead of at the end.
    void Free() {
        if (array_) ProArrayFree(&array_);
        array_ = nullptr;
    }

    explicit operator bool() const { return array_ != nullptr; }

    // Asks the host for the number of elements; 0 without an array.
    int Size() const {
        int size = 0;
        if (array_) ProArraySizeGet(array_, &size);
        return size;
    }

    // The first element. Moves when the array grows.
    T* data() const { return static_cast<T*>(array_); }

    // Takes over an array that the host made, or this one from a place to which it has moved.
    void Adopt(T* array) { array_ = array; }

    // What a visit hands on to the action that appends: the place of the array, not the array,
    // because the array may move.
    ProAppData Place() { return &array_; }

private:
    ProArray array_ = nullptr;
};

// Appends a copy of `element` to the array whose place a visit handed on.
template <class T>
ProError AppendTo(ProAppData place, T* element) {
    return ProArrayObjectAdd(static_cast<ProArray*>(place), -1, 1, element);
}
