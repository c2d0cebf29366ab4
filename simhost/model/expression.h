// Arithmetic on named numbers, for the sizes of groups: "x - zval / 2".
#pragma once

#include <map>
#include <stdexcept>
#include <string>
#include <string_view>

namespace simhost {

// Says what is wrong with an expression, and quotes it.
struct ExpressionError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

using NamedNumbers = std::map<std::string, double, std::less<>>;

// Numbers, names, + - * / and parentheses, with the usual precedence. Throws ExpressionError; what
// is divided by 0 is one, too.
double Evaluate(std::string_view text, const NamedNumbers& names);

}  // namespace simhost
