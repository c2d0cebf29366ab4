// Handles that look like a host's pointers but are not: a handle is checked at every use, a
// dangling one is found out, and its numeric order is not the order of creation.
#pragma once

#include <cstdint>
#include <vector>

namespace simhost {

// The kind sits above the number, so that any handle tells what it is. No memory lies at such
// addresses.
enum class HandleKind : std::uint8_t {
    Model = 0x21,
    Surface = 0x22,
    Selection = 0x23,
    Command = 0x24,
    Object = 0x25,
    View = 0x26,
    SelectionEnvironment = 0x27,
    SimprepData = 0x28,
    Csys = 0x29,
    Constraint = 0x2a,
    UdfData = 0x2b,
    UdfReference = 0x2c,
    UdfDimension = 0x2d,
    Element = 0x2e,
    Value = 0x2f,
    Edge = 0x51,
    ExportData = 0x61,
    PdfOptions = 0x62,
    OutputInclusion = 0x65,
    OutputLayers = 0x66,
    // From 0x31 on: those of the simulated Windows; 0x41 to 0x4f: those of the spreadsheets.
};

inline HandleKind KindOf(const void* handle) {
    return HandleKind((reinterpret_cast<std::uintptr_t>(handle) >> 40) & 0xff);
}

// A number and its kind as a handle, and back. Multiplying by an odd number modulo 2^32 scatters
// the values and can be undone.
inline void* MakeHandle(HandleKind kind, std::uint32_t number) {
    const std::uint32_t scattered = (number + 1) * 2654435761u;
    return reinterpret_cast<void*>((std::uintptr_t(kind) << 40) | (std::uintptr_t(scattered) << 4));
}
inline std::uint32_t NumberOf(const void* handle) {
    const auto scattered = std::uint32_t(reinterpret_cast<std::uintptr_t>(handle) >> 4);
    return scattered * 244002641u - 1;
}

// The objects of one kind. Numbers are never given twice, so a handle of a dropped object stays
// recognisable as dangling.
template <class T>
class HandleTable {
public:
    explicit HandleTable(HandleKind kind) : kind_(kind) {}

    void* Add(T* object) {
        objects_.push_back(object);
        return MakeHandle(kind_, std::uint32_t(objects_.size() - 1));
    }
    // Null for a handle of another kind, a dropped object, or no handle at all.
    T* Find(const void* handle) const {
        if (KindOf(handle) != kind_) return nullptr;
        const std::uint32_t number = NumberOf(handle);
        if (number >= objects_.size() || MakeHandle(kind_, number) != handle) return nullptr;
        return objects_[number];
    }
    bool WasGiven(const void* handle) const {
        return KindOf(handle) == kind_ && NumberOf(handle) < objects_.size();
    }
    void Drop(const void* handle) {
        if (Find(handle)) objects_[NumberOf(handle)] = nullptr;
    }

private:
    HandleKind kind_;
    std::vector<T*> objects_;
};

}  // namespace simhost
