// What the commands share that give many parts a setting from one file: which file, and which parts
// of the current assembly.
#pragma once

#include <functional>

#include "frame/services.h"

// The message with which both begin.
inline constexpr const char* kBendTableMessage =
    "Wether change the bend table while assigning a material to a sheetmetal part";

// The first of an option's values; empty for an option that is not set. Unlike FirstOptionValue it
// does not look at the status: values that come with a refusal count. A copy, for what the host
// hands out is good until the next call about an option.
WideText FirstValueOf(const WideChar* option);

// What the user is told where a walk fails and where it finds nothing.
struct WalkTexts {
    const WideChar *failed, *empty;
};

// Collects the components below an assembly; their number. 0: something failed or there are none,
// and the user was told which.
int CollectOrTell(ProMdl assembly, ProFeatureVisitAction visitor, const WalkTexts& texts,
                  ComponentArray* components);

// Does what is to be done with each picked part and assembly, in the order of picking; passes over
// whatever else is picked. False as soon as `assembly` says so.
bool ForEachPicked(const HostArray<ProSelection>& selections,
                   const std::function<void(ProMdl)>& part,
                   const std::function<bool(ProMdl)>& assembly);
