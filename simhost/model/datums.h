// Datums of solids: coordinate systems, planes, axes and points. Each is a feature with a place and
// no material, and has a number of its own as an item.
#pragma once

#include <span>

#include "simhost/model/model.h"

namespace simhost {

// A [[feature]] of a part's file says by `at` where a datum is, and by `turn` how its frame is
// turned, whose z axis is the normal of a plane and the direction of an axis. Planes, axes and
// points without `at` have a name only. `csys`, `datum`, `axis` or `point` is the datum's number as
// an item, if it is not the usual one.

// Types of features that the door has no names for.
inline constexpr int kDatumPlaneFeature = 923;
inline constexpr int kDatumAxisFeature = 926;
inline constexpr int kDatumPointFeature = 931;

struct DatumKind {
    int feature;       // the type of its feature
    ProType item;      // its kind as an item
    const char* word;  // in files the key of its number, in scripts its kind
    const char* name;  // "datum plane"
    const char* names;
};
// All there are.
std::span<const DatumKind> DatumKinds();
// Null: the feature is no datum.
const DatumKind* DatumKindOf(const Feature& feature);

// The number of a datum as an item: one more than the feature's, unless a file says otherwise.
int DatumIdOf(const Feature& feature);

// The feature of a datum by its kind and number as an item. Null: there is none.
Feature* FindDatum(Model& model, ProType item, int id);

// Whether its place is known, and the feature neither suppressed nor invisible.
bool IsDatumThere(const Feature& feature);

}  // namespace simhost
