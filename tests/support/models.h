// Models made by a line of text, so that a test shows its assembly as a person would write it down.
//
//     top: a x3, sub(b, s!sheet)      TOP holds A three times and SUB; SUB holds B and the sheet
//                                     metal part S
//     empty:                          an assembly without components
//     plate                           a part
//     mill.mfg: top(a)                a manufacturing model and its assembly
//     plate.drw: A3, A4               a drawing and its sheets
//
// What holds something is an assembly, anything else a part, unless the name says otherwise
// (sub.asm, sub.prt). A name that comes again is the same model. A model that is there already is
// used as it is, and gets the components that are written after it.
//
// Marks follow a name: of the model !sheet (sheet metal), !skeleton, !round (a cylinder in the
// place of the box), !released (nobody may change it); of the component !suppressed, !hidden (by
// the user), !invisible, !missing (its model is nowhere). `m12 of bolt` is an instance of the
// generic BOLT.
#pragma once

#include <string>

#include "simhost/model/model.h"

namespace workbench {

// Makes them in the session of the host; the first one of the text. Throws std::invalid_argument
// with the place in the text.
simhost::Model& MakeModels(const std::string& text);

// A model in memory: an assembly or a part by its name, any by its file name. Throws
// std::invalid_argument if there is none, or both of that name.
simhost::Model& ModelNamed(const std::string& name);

// A component of this model, at the end of the assembly. Good until the next one.
simhost::Feature& AddComponent(simhost::Model& assembly, simhost::Model& model);

// An empty model of that name; of a part with so many boxes of 10 x 20 x 30, side by side.
simhost::Model& MakeModel(const std::string& name, ProMdlType type);
simhost::Model& MakePart(const std::string& name, int boxes = 1);

// A manufacturing model of that assembly.
simhost::Model& MakeManufacturing(const std::string& name, simhost::Model& assembly);

}  // namespace workbench
