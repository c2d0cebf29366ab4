// What happens between two calls of one press, for tests: a user is never that quick.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace simhost {

// Does something right before the n-th call of an operation from now on (1 is the next), which then
// goes its way. Operation::ForgetFaults forgets it, too.
void DoMeanwhile(const std::string& operation, std::uint64_t n, std::function<void()> change);

}  // namespace simhost
