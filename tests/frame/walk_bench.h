// The walk's results as texts that a person can check by eye.
#pragma once

#include <string>

#include "frame/services/assembly_walk.h"
#include "tests/support/observed.h"

namespace workbench {

// An assembly of three levels:
// top.asm:     1 plate.prt   2 sub.asm     3 plate.prt
// sub.asm:     1 sheet.prt   2 subsub.asm  3 plate.prt      (sheet.prt is sheet metal)
// subsub.asm:  1 pin.prt
class WalkBench : public ObservedBench {
protected:
    WalkBench();

    // The components in the array as "owner.asm#id"; the array is freed.
    Names Found(ComponentArray components);
    Names Walk(simhost::Model& top, ProFeatureVisitAction visitor,
               ProFeatureFilterAction filter = ComponentFilter);

    // The models of the list by their file names.
    Names FileNames(const ModelList& list);

    simhost::Model& top_ = Assembly("top");
    simhost::Model& sub_ = Assembly("sub");
    simhost::Model& subsub_ = Assembly("subsub");
    simhost::Model& plate_ = Part("plate");
    simhost::Model& sheet_ = SheetMetal("sheet");
    simhost::Model& pin_ = Part("pin");

    // What a walk over all components finds: a sub-assembly, then what lies below it.
    const Names everything_ = {"top.asm#1",    "top.asm#2", "sub.asm#1", "sub.asm#2",
                               "subsub.asm#1", "sub.asm#3", "top.asm#3"};
};

}  // namespace workbench
