// The values of parameters as text.
#include "frame/services/parameter_text.h"

#include <charconv>
#include <string>

#include "frame/services/fixed_text.h"
#include "frame/services/text.h"

namespace {

// With a point whatever the locale; the largest number has 309 digits before it.
WideText ThreeDecimals(double number) {
    char digits[320];
    const auto end =
        std::to_chars(digits, digits + sizeof digits, number, std::chars_format::fixed, 3).ptr;
    return WideText(digits, end);
}

}  // namespace

std::optional<WideText> ParameterText(const ProParamvalue& value) {
    switch (value.type) {
        case PRO_PARAM_DOUBLE: return ThreeDecimals(value.value.d_val);
        case PRO_PARAM_STRING: return TextIn(value.value.s_val);
        case PRO_PARAM_INTEGER: return Digits(value.value.i_val);
        case PRO_PARAM_BOOLEAN: return value.value.l_val ? WIDE("是") : WIDE("否");
        default: return std::nullopt;
    }
}
