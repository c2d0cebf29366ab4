// A listing of all components below an assembly, as text: one line for each component in the order
// of the tree, "HOUSING.PRT:41:1\n" – model name, kind, component id, depth.
#pragma once

#include <optional>

#include "hostapi/host.h"

// Program-wide while a listing is made: empty and 0 between uses.
extern WideText ComponentTreeText;
extern int ComponentTreeDepth;

// The visit's action: adds lines to ComponentTreeText and the components to the host array whose
// place is `data`. Starts from the present depth.
ProError ComponentTreeVisitor(ProFeature* feature, ProError status, ProAppData data);

// The whole listing below an assembly, and the program-wide values back as they were. Nothing if
// the host has no array for it.
std::optional<WideText> ListComponents(ProMdl assembly);

// A line of the listing.
struct TreeLine {
    WideView model;  // "HOUSING.PRT"; a part of the listing
    int id = 0;
    int depth = 0;
};

// Takes the first line off a listing; what is no such line is passed over. False: there is none.
bool TakeTreeLine(WideView* listing, TreeLine* line);
