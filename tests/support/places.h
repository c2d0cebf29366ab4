// Where the tests find what they are made from. In one source, so that the compiler's cache serves
// every checkout.
#pragma once

namespace workbench {

extern const char* const kSourceFolder;  // the project
extern const char* const kModuleBuilt;   // the module, as it was built

}  // namespace workbench
