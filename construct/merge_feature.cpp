// Merges of parts; the tree of elements from which the host makes one is a table.
#include "construct/merge_feature.h"

#include <iterator>

#include "frame/services.h"

namespace {

enum class Value { None, Number, Name, Part };

// Ids and numbers are the host's own.
struct Row {
    ProElemId id;
    ProElemId parent;
    Value value = Value::None;
    int number = 0;
};

constexpr ProElemId kRoot = 386;
constexpr Row kRows[] = {
    {kRoot, 0},
    {387, kRoot, Value::Number, 1238},  // the type of the feature
    {1964, kRoot, Value::Name},
    {3386, kRoot, Value::Number, 0},
    {3388, kRoot},
    {3389, 3388, Value::Number, 0},
    {3390, 3388, Value::Part},
    {3391, 3390},
    {605, 3391},
    {606, 605},
    {607, 606, Value::Number, 13},
};

ProValueData DataOf(const Row& row, WideText* name, ProSelection part) {
    ProValueData data = {};
    switch (row.value) {
        case Value::Name:
            data.type = PRO_VALUE_TYPE_WSTRING;
            data.v.w = name->data();
            break;
        case Value::Part:
            data.type = PRO_VALUE_TYPE_SELECTION;
            data.v.r = part;
            break;
        default: data.type = PRO_VALUE_TYPE_INT; data.v.i = row.number;
    }
    return data;
}

void GiveValue(ProElement element, ProValueData data) {
    ProValue value = nullptr;
    ProValueAlloc(&value);
    if (!value) return;
    ProValueDataSet(value, &data);
    if (ProElementValueSet(element, value) != PRO_TK_NO_ERROR) ProValueFree(value);
}

ProElement ElementOf(ProElemId id, const ProElement* made) {
    for (const Row& row : kRows) {
        if (row.id == id) return made[&row - kRows];
    }
    return nullptr;
}

// Where the element cannot be added it is freed, and the variable is null.
void AddBelow(ProElement parent, ProElement* element) {
    if (parent && ProElemtreeElementAdd(parent, nullptr, *element) == PRO_TK_NO_ERROR) return;
    ProElementFree(element);
}

// Null if the host does not give the root. What it refused of the rest is not in the tree, so that
// no feature comes of it.
ProElement NewMergeTree(WideView name, ProSelection part) {
    WideText featureName(name);
    ProElement made[std::size(kRows)] = {};
    for (std::size_t i = 0; i < std::size(kRows); ++i) {
        const Row& row = kRows[i];
        ProElementAlloc(row.id, &made[i]);
        if (!made[i]) continue;
        if (row.value != Value::None) GiveValue(made[i], DataOf(row, &featureName, part));
        if (row.id != kRoot) AddBelow(ElementOf(row.parent, made), &made[i]);
    }
    return made[0];
}

}  // namespace

void MergeFeature::Free() {
    if (tree) ProElementFree(&tree);
    if (target) ProSelectionFree(&target);
}

MergeFeature MergeInto(ProModelitem* target, WideView name, ProSelection part) {
    MergeFeature merge;
    merge.tree = NewMergeTree(name, part);
    ProSelectionAlloc(nullptr, target, &merge.target);
    if (merge.tree && merge.target) {
        HostRecord<ProFeature> feature;
        ProFeatureCreate(merge.target, merge.tree, nullptr, 0, feature.Place(), nullptr);
    }
    return merge;
}
