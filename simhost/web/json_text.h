// Texts of the host in JSON. Whatever bytes they hold, what comes out can be read.
#pragma once

#include <nlohmann/json.hpp>

#include <string>

#include "hostapi/wide.h"
#include "simhost/core/text.h"

namespace simhost {

using Json = nlohmann::ordered_json;

inline std::string Text(const WideText& text) {
    return Utf8(text);
}

// The whole as text. Bytes that are no UTF-8 become the sign for what cannot be read.
inline std::string Dump(const Json& json) {
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace simhost
