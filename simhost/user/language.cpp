// The language by the usual variables.
#include "simhost/user/language.h"

#include <cstdlib>
#include <string_view>

namespace simhost {

bool InChinese() {
    for (const char* name : {"VX_LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* value = std::getenv(name);
        if (value && *value) return std::string_view(value).substr(0, 2) == "zh";
    }
    return false;
}

}  // namespace simhost
