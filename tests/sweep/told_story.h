// Stories that are told in files: trails beside the tests of a command, which fill its dialogs and
// reach every operation that it calls. tests/<room>/stories/<what it does>.trail:
//
//     ! What a designer does here, and why it is of interest.
//     % models top: bolt x3, plate
//     % relations plate.prt d1 = 5 / d2 = 6
//     % reaches ProRelsetRelationsSet ProArrayFree
//     @ open top.asm
//
//     ~ Command `VxRelations`
//     ...
//
// All before the first step prepares the world and does not fail: lines with @ are the words of
// trails, those with % the story's own:
//
//     models LINE                      see tests/support/models.h
//     relations FILE LINE / LINE       a model's initial relations
//     csys FILE                        a coordinate system of a model, off its origin
//     template OPTION PATH             a model file with one, which an option of the host names
//     setting SECTION VALUE            of VxConfig.ini
//     ini FILE SECTION KEY VALUE       of another file of settings
//     columns SUMMED | LEVELLED        of the bill of materials
//     file PATH                        an empty file that is there
//     text PATH LINE / LINE            a file with these lines
//     fresh PATH                       a file that is not there whenever the steps begin
//     forced OPERATION COMPLAINT       how a complaint begins that its failure leads to
//     reaches OPERATION...             what the steps must call, or the sweep fails
//
// The steps are what fails in turn. Without faults all of them must come true.
#pragma once

#include <string>
#include <vector>

#include "tests/sweep/sweep.h"

namespace sweep {

struct ToldStory {
    std::string room, name;             // "modeldata", "relations_add"
    std::vector<std::string> commands;  // which its steps press
    std::string text;
    std::vector<Forced> forced;
};

// All of them, by room and name.
const std::vector<ToldStory>& ToldStories();

// Throws std::invalid_argument for a % line that cannot be understood.
Story StoryOf(const ToldStory& told);

}  // namespace sweep
