// Exchange files of other systems as projects of the host: a folder of model files.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "simhost/kernel/apart.h"

namespace simhost {

struct Imported {
    std::string top;  // "gearbox.asm"
    int parts = 0, assemblies = 0;
    std::vector<std::string> notes;  // what is not as it was in the file, one sentence each
};

// The same for people, line by line: "note: ...", and last "written: gearbox.asm with 2 parts ...".
std::vector<std::string> TextOf(const Imported& made);

// Reads a STEP file and writes a project into a folder, which is made if it is missing and must
// be empty. Throws std::runtime_error with a sentence, and then nothing is left behind: the file
// cannot be read, is no STEP file, is broken, has no product or is nested too deep; reading it
// breaks off or goes beyond the bounds; the folder holds something or cannot be written; there is
// no geometry kernel.
Imported ImportStep(const std::filesystem::path& file, const std::filesystem::path& folder,
                    const Bounds& bounds = {});

}  // namespace simhost
