// The two places that the build tells.
#include "tests/support/places.h"

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
