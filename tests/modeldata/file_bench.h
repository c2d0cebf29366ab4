// A workbench with the files that SetMat and SetBendTable ask for.
#pragma once

#include <string>

#include "tests/support/observed.h"

namespace workbench {

// The boxes at the end of the two commands.
extern const char* const kMaterialDone;
extern const char* const kBendTableDone;

// A plain error, to be answered.
std::string PlainError(const std::string& text);

class FileBench : public ObservedBench {
protected:
    // C:\Materials has steel.mtl (8000 kg/m^3) and brass.mtl (9000), C:\Tables has soft.bnd, after
    // which bends of radius 2 in sheets of 3 take 7 mm; the working folder has none of them.
    void SetUp() override;

    void WriteIn(const std::string& folder, const std::string& file, const std::string& text);
    static std::string MaterialText(double density);
    static std::string TableText(double length);

    // A sheet of 3 mm with one bend of radius 2 between pieces of 20 and 30 mm: by the factor of
    // soft material its developed length is 50 + pi/2 x 2 + 0.5 x 3 = 54.642.
    simhost::Model& Sheet(const std::string& name);

    // Presses the command, chooses the file of this path and goes on with the lines.
    void SetMaterial(const std::string& more, const std::string& path = "C:\\Materials\\steel.mtl");
    void SetTable(const std::string& more, const std::string& path = "C:\\Tables\\soft.bnd");

    // Runs a command where the menu does not offer it.
    void RunAction(const std::string& command, const std::string& lines);

    // "name" of the part's material or bend table; "none".
    static std::string MaterialIn(const simhost::Model& part);
    static std::string TableIn(const simhost::Model& part);
    // The first value of an option; "none" for one that is not set.
    std::string Option(const std::string& name);
    std::string WorkingFolder();
};

}  // namespace workbench
