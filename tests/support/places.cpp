// The two places that the build tells.
#include "tests/support/places.h"

namespace workbench {

const char* const kSourceFolder = VX_SOURCE_DIR;
const char* const kModuleBuilt = VX_MODULE;

}  // namespace workbench
