// "Did you mean …?" for names that do not exist, so that a slip of the finger explains itself.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace simhost {

// The name nearest to `name` (ignoring case), or empty if none is near.
std::string NearName(std::string_view name, const std::vector<std::string>& names);

// "; did you mean X?" or nothing, to end a sentence with.
std::string DidYouMean(std::string_view name, const std::vector<std::string>& names);

}  // namespace simhost
