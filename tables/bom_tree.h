// The tree of a bill of materials: the models below an assembly, each with the number of its like
// siblings and its place in dotted numbers.
#pragma once

#include <vector>

#include "hostapi/host.h"

// One model at one place of the assembly tree.
struct BomNode {
    WideText name;
    ProMdlType type = PRO_MDL_UNUSED;
    int count = 1;                  // equal siblings counted in it
    int level = 0;                  // below the root, which is 0; set by FlattenBom
    WideText number = WIDE("0");    // "2.1"; "0" for the root
    std::vector<BomNode> children;  // in the order in which they are first met
};

// The nodes of a tree, parents before their children, as FlattenBom has left them. They belong to
// the tree: empty the list before the tree goes or grows.
extern std::vector<BomNode*> BomFlatList;

// The tree below an assembly. Siblings are one node if their names are equal, ignoring case; the
// first one counts for all, with what is below it. Components that are not active and visible or
// that have no model in memory are left out. `root` is null: a root without a name.
BomNode BuildBomTree(ProMdl root);

// Adds the node and all below it to BomFlatList and sets their levels, beginning with `level` (0
// for a negative one).
void FlattenBom(BomNode* node, int level);
