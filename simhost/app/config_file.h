// The host's options as the file config.pro of a working folder sets them.
#pragma once

#include <string>

#include "simhost/model/config_options.h"

namespace simhost {

// The lines of such a file (UTF-8), "name value" each; an option that comes again has several
// values, and ! begins a comment. A value that begins with ".\" is a path from `folder`.
ConfigOptions ReadConfigOptions(const std::string& text, const WideText& folder);

}  // namespace simhost
