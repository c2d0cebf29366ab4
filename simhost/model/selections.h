// What the user has selected, and the handles of selections with the time that each lives.
#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "hostapi/host/types.h"
#include "hostapi/host/view.h"
#include "simhost/core/handles.h"
#include "simhost/model/geometry.h"

namespace simhost {

class Model;

// Models that leave memory, each by its address and by its handle.
using GoneModels = std::unordered_set<const void*>;

// A selected item: the item itself and the way to it from the top (component ids). What is picked
// in a view of a drawing has that model as its top which the view shows.
struct Selection {
    ProModelitem item{};
    Model* top = nullptr;
    std::vector<int> path;
    ProView view = nullptr;
    std::optional<Vec3> point{};  // where it was picked: on the item, in its owner's coordinates
};

// How picks are made.
struct SelectionEnvironment {
    bool box = false;  // the user may draw a box
};

class Selections {
public:
    // --- The selection buffer: what the user has selected, in order ---
    const std::vector<Selection>& buffer() const { return buffer_; }
    // Handles that were lent of the buffer end when it becomes another one.
    void SetBuffer(std::vector<Selection> list);
    void ClearBuffer() { SetBuffer({}); }
    void AddToBuffer(Selection one) { buffer_.push_back(std::move(one)); }
    // For tests: an empty buffer is read as one of no items, until something is selected.
    bool emptyBufferReads = false;
    bool IsReadable() const { return emptyBufferReads || !buffer_.empty(); }

    // --- Handles ---
    const Selection* Find(const void* handle) const { return handles_.Find(handle); }
    bool WasGiven(const void* handle) const { return handles_.WasGiven(handle); }
    // Copies of what is in the buffer, for an array that is told with KeptIn; they live until the
    // array is freed or the buffer becomes another one.
    std::vector<ProSelection> LendBuffer();
    void KeptIn(const void* array, std::vector<ProSelection> handles);
    void ArrayFreed(const void* array);
    // Handles of what the user has picked; they live until the next pick.
    std::vector<ProSelection> Picked(const std::vector<Selection>& list);

    // A selection that a caller makes, and frees; false for one that is none of these.
    ProSelection Make(const Selection& selection);
    bool Free(ProSelection handle);

    // --- Environments of picks; they stay ---
    void* NewEnvironment(bool box);
    const SelectionEnvironment* FindEnvironment(const void* handle) const {
        return environments_.Find(handle);
    }

    // A model goes, and with it what was selected of it or below it.
    // What is in these models or picked below them is gone; see Session::Erase.
    void Forget(const GoneModels& gone);

private:
    ProSelection Add(const Selection& selection);
    void End(const std::vector<ProSelection>& handles);

    std::vector<Selection> buffer_;
    HandleTable<Selection> handles_{HandleKind::Selection};
    std::unordered_map<const void*, std::unique_ptr<Selection>> owned_;  // by handle
    std::unordered_map<const void*, std::vector<ProSelection>> lent_;    // by array
    std::vector<ProSelection> picked_;
    std::unordered_set<const void*> made_;
    HandleTable<SelectionEnvironment> environments_{HandleKind::SelectionEnvironment};
    std::deque<SelectionEnvironment> ownedEnvironments_;
};

}  // namespace simhost
