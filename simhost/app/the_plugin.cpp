// Arrays that the plug-in leaves to the host, and null arrays that it frees, each with its reason.
#include "simhost/app/the_plugin.h"

namespace simhost::the_plugin {

const std::vector<HeldOnPurpose> kHeldOnPurpose = {
    {"popup access", "ProSelbufferSelectionsGet", 0,
     "the access rules of popup buttons leave the array of selections to the host"},
    {"command VxBom", "ProArrayAlloc", sizeof(char*),
     "the drawing area is left the list of its picture"},
    {"command VxMergeTo", "ProElementAlloc", 0, "of several trees only the last is freed"},
    {"command VxMergeTo", "ProSelectionAlloc", 0, "so it is with what they were made in"},
};

const std::vector<NullFreedOnPurpose> kNullFreedOnPurpose = {
    {"command VxRelations", "adding only new relations frees twice for each model"},
};

}  // namespace simhost::the_plugin
