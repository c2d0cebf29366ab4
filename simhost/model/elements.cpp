// The tree of a merge as a table, and the reading of trees by it.
#include "simhost/model/elements.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

namespace simhost {

namespace {

constexpr int kNoKind = 0;
constexpr int kAnyNumber = -1;

// One row is one element: elements are added in this order. A number that is known here stands for
// the only one that a merge of whole parts has.
struct Row {
    ProElemId id, parent;
    int kind;
    int number;
};
constexpr ProElemId kName = 1964;
constexpr ProElemId kSource = 3390;
// clang-format off
constexpr Row kMergeRows[] = {
    {386,     0,       kNoKind,                  kAnyNumber},
    {387,     386,     PRO_VALUE_TYPE_INT,       1238},
    {kName,   386,     PRO_VALUE_TYPE_WSTRING,   kAnyNumber},
    {3386,    386,     PRO_VALUE_TYPE_INT,       0},
    {3388,    386,     kNoKind,                  kAnyNumber},
    {3389,    3388,    PRO_VALUE_TYPE_INT,       0},
    {kSource, 3388,    PRO_VALUE_TYPE_SELECTION, kAnyNumber},
    {3391,    kSource, kNoKind,                  kAnyNumber},
    {605,     3391,    kNoKind,                  kAnyNumber},
    {606,     605,     kNoKind,                  kAnyNumber},
    {607,     606,     PRO_VALUE_TYPE_INT,       13},
};
// clang-format on

struct Placed {
    const Element* element;
    ProElemId parent;
};

// All elements of a tree in the order in which they were added, the root first.
std::vector<Placed> InOrder(const Elements& elements, const void* root) {
    std::vector<Placed> all{{elements.elements.Find(root), 0}};
    for (std::size_t i = 0; i < all.size(); ++i) {
        const Element& element = *all[i].element;
        for (const void* child : element.children) {
            all.push_back({elements.elements.Find(child), element.id});
        }
    }
    std::stable_sort(all.begin() + 1, all.end(), [](const Placed& a, const Placed& b) {
        return a.element->added < b.element->added;
    });
    return all;
}

const Row* RowOf(ProElemId id) {
    const auto found = std::find_if(std::begin(kMergeRows), std::end(kMergeRows),
                                    [id](const Row& row) { return row.id == id; });
    return found == std::end(kMergeRows) ? nullptr : found;
}

std::string Misuse(const Placed& placed, const Row* row, const Row* before) {
    const ProElemId id = placed.element->id;
    if (!row) return fmt::format("a merge has no element {}", id);
    if (row->parent != placed.parent) {
        return fmt::format("the element {} is below {} instead of {}", id, placed.parent,
                           row->parent);
    }
    if (before == row) return fmt::format("the element {} is there twice", id);
    if (before > row) return fmt::format("the element {} was added after {}", id, before->id);
    const auto& value = placed.element->value;
    const int kind = value && value->kind ? int(*value->kind) : kNoKind;
    if (value && value->kind && kind != row->kind) {
        return fmt::format("the element {} has a value of the kind {} instead of {}", id, kind,
                           row->kind);
    }
    return {};
}

bool IsFaulty(const Element& element, const Row& row) {
    if (row.kind == kNoKind) return false;
    if (!element.value || !element.value->kind) return true;
    return row.number != kAnyNumber && element.value->number != row.number;
}

}  // namespace

TreeReading ReadMergeTree(const Elements& elements, const void* root) {
    TreeReading reading;
    std::vector<ProElemId> present;
    const Row* before = nullptr;
    for (const Placed& placed : InOrder(elements, root)) {
        const Row* row = RowOf(placed.element->id);
        reading.misuse = Misuse(placed, row, before);
        if (!reading.misuse.empty()) return reading;
        before = row;
        present.push_back(row->id);
        if (IsFaulty(*placed.element, *row)) reading.faulty.push_back(row->id);
        if (row->id == kName && placed.element->value)
            reading.merge.name = placed.element->value->text;
        if (row->id == kSource && placed.element->value) {
            reading.merge.source = placed.element->value->selection;
        }
    }
    for (const Row& row : kMergeRows) {
        if (std::find(present.begin(), present.end(), row.id) != present.end()) continue;
        reading.faulty.push_back(row.id);
    }
    return reading;
}

}  // namespace simhost
