// Trees of elements, from which callers have features made, and what a tree must be for a merge.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "hostapi/host/element.h"
#include "simhost/core/owned_handles.h"
#include "simhost/model/selections.h"

namespace simhost {

struct Value {
    std::optional<ProValueDataType> kind;  // nothing before its data is set
    int number = 0;
    WideText text;
    Selection selection;
};

struct Element {
    ProElemId id = 0;
    std::optional<Value> value;
    bool hasParent = false;
    std::vector<void*> children;  // handles, in the order in which they were added
    int added = 0;                // its place in the order of all that were added to any tree
};

struct Elements {
    OwnedHandles<Element> elements{HandleKind::Element};
    OwnedHandles<Value> values{HandleKind::Value};
    int additions = 0;

    // Ends an element with all below it, and their values; each is told before.
    template <class Each>
    void FreeTree(const void* root, Each&& each) {
        const std::vector<void*> children = elements.Find(root)->children;
        for (const void* child : children) FreeTree(child, each);
        each(root);
        elements.Free(root);
    }
};

// What a merge feature is made from.
struct MergeRequest {
    WideText name;
    Selection source;
};

// What came of reading a tree. A tree that no caller could mean (an element below the wrong parent,
// twice, in the wrong order, or with a value of the wrong kind) is a misuse, and so a sentence. One
// that merely lacks something, or has another number than is known here, names its elements.
struct TreeReading {
    std::string misuse;
    std::vector<ProElemId> faulty;
    MergeRequest merge;
};
TreeReading ReadMergeTree(const Elements& elements, const void* root);

}  // namespace simhost
