// Simplified representations of an assembly: which of its components are there, by the way to them.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "hostapi/wide.h"
#include "simhost/core/handles.h"

namespace simhost {

// What an item of a representation does; the numbers of the door.
inline constexpr int kSimprepInclude = 2;
inline constexpr int kSimprepExclude = 3;

struct Simprep {
    struct Item {
        std::vector<int> path;  // component ids from the top down
        int action = kSimprepInclude;
    };
    int id = 0;
    WideText name;
    int defaultAction = kSimprepExclude;  // for what no item leads to
    std::vector<Item> items;              // of two for one path the later counts
};

// What the plug-in makes a representation from, until it frees it.
class SimprepDatas {
public:
    void* Add(Simprep data);
    Simprep* Find(const void* handle) const { return handles_.Find(handle); }
    bool WasGiven(const void* handle) const { return handles_.WasGiven(handle); }
    void Free(const void* handle);
    std::vector<std::string> Held() const;  // those that are not freed, as lines

private:
    HandleTable<Simprep> handles_{HandleKind::SimprepData};
    std::map<const void*, std::unique_ptr<Simprep>> owned_;
};

// Who is a member of a representation. The longest item that leads to a component, or to what it is
// a part of, decides; an assembly on the way to a member is there too, without its other contents.
class Membership {
public:
    // Without a representation, the master, all are members.
    explicit Membership(const Simprep* representation);
    ~Membership();
    Membership(const Membership&) = delete;
    Membership& operator=(const Membership&) = delete;

    struct Node;
    // A component as the walk has come to it.
    struct At {
        const Node* node = nullptr;  // null: no item leads further down
        bool included = true;
    };
    At Top() const;
    static At Below(At at, int id);
    static bool IsThere(At at);  // it, or something below it

private:
    std::unique_ptr<Node> root_;
    bool included_ = true;
};

}  // namespace simhost
