// Picks with the options that allow a box.
#include "frame/services/pick.h"

#include <algorithm>
#include <iterator>

#include "frame/services/text.h"

namespace {

// The third lets the user draw a box.
constexpr ProSelectionEnvOption kOptions[] = {
    {ProSelectionEnvAttr(50), 0},
    {ProSelectionEnvAttr(51), 1},
    {ProSelectionEnvAttr(52), 1},
};

}  // namespace

bool PickByBox(const char* filter, ProSelection** selections, int* count) {
    ProSelectionEnvOption options[std::size(kOptions)];
    std::copy(std::begin(kOptions), std::end(kOptions), options);
    ProSelectionEnv environment = nullptr;
    ProSelectionEnvAlloc(options, int(std::size(options)), &environment);
    const ProError status =
        ProSelect(HostText(filter), -1, nullptr, nullptr, environment, nullptr, selections, count);
    return status == PRO_TK_NO_ERROR && *count >= 0;
}
