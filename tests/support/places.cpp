// The two places that the build tells. On Windows both lie beside the program, so that a folder of
// test programs can be carried to another computer.
#include "tests/support/places.h"

#ifdef _WIN32

#include <filesystem>
#include <string>

#include "hostapi/wide.h"
#include "hostapi/windows.h"

namespace workbench {

namespace {

// For as long as the program runs; in the code page that its narrow paths are in.
const char* Beside(const char* name) {
    WideChar program[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    const auto path = std::filesystem::path(program).parent_path() / name;
    return (new std::string(path.string()))->c_str();
}

}  // namespace

const char* const kSourceFolder = Beside("source");
const char* const kModuleBuilt = Beside(VX_MODULE_NAME);

}  // namespace workbench

#else

#include <cstdlib>

namespace workbench {

namespace {

// Tests can be asked about another module than the one that was built with them.
const char* Module() {
    const char* const other = std::getenv("VX_MODULE_FILE");
    return other ? other : VX_MODULE;
}

}  // namespace

const char* const kSourceFolder = VX_SOURCE_DIR;
const char* const kModuleBuilt = Module();

}  // namespace workbench

#endif
