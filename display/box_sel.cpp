// BoxSel, VxBoxSelSur: pick parts or surfaces, by a box too, for the command that comes next.
#include <algorithm>
#include <iterator>

#include "display/commands.h"
#include "frame/services.h"

namespace {

// The third lets the user draw a box.
constexpr ProSelectionEnvOption kOptions[] = {
    {ProSelectionEnvAttr(50), 0},
    {ProSelectionEnvAttr(51), 1},
    {ProSelectionEnvAttr(52), 1},
};

// Whether something was picked, be it nothing at all; the selection buffer holds it then.
bool PickIntoBuffer(const char* filter) {
    ProSelectionEnvOption options[std::size(kOptions)];
    std::copy(std::begin(kOptions), std::end(kOptions), options);
    ProSelectionEnv environment = nullptr;
    ProSelectionEnvAlloc(options, int(std::size(options)), &environment);
    ProSelection* selections = nullptr;
    int count = 0;
    const ProError status = ProSelect(HostText(filter), -1, nullptr, nullptr, environment, nullptr,
                                      &selections, &count);
    if (status != PRO_TK_NO_ERROR || count < 0) return false;
    ProSelbufferClear();
    for (int i = 0; selections && i < count; ++i) ProSelbufferSelectionAdd(selections[i]);
    return true;
}

}  // namespace

int BoxSel() {
    return PickIntoBuffer("part") ? PRO_TK_NO_ERROR : PRO_TK_USER_ABORT;
}

void VxBoxSelSur() {
    PickIntoBuffer("surface");
}
