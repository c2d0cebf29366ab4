// The values of parameters as text.
#include "frame/services/parameter_text.h"

#include <charconv>
#include <string>

#include "frame/services/fixed_text.h"
#include "frame/services/host_record.h"
#include "frame/services/parameters.h"
#include "frame/services/text.h"

namespace {

// With a point whatever the locale; the largest number has 309 digits before it.
WideText ThreeDecimals(double number) {
    char digits[320];
    const auto end =
        std::to_chars(digits, digits + sizeof digits, number, std::chars_format::fixed, 3).ptr;
    return WideText(digits, end);
}

std::optional<WideText> YesOrNo(short flag) {
    if (flag == 1) return WIDE("是");
    if (flag == 0) return WIDE("否");
    return std::nullopt;
}

}  // namespace

std::optional<WideText> ParameterText(const ProParamvalue& value) {
    switch (value.type) {
        case PRO_PARAM_DOUBLE: return ThreeDecimals(value.value.d_val);
        case PRO_PARAM_STRING: return TextIn(value.value.s_val);
        case PRO_PARAM_INTEGER: return Digits(value.value.i_val);
        case PRO_PARAM_BOOLEAN: return YesOrNo(value.value.l_val);
        default: return std::nullopt;
    }
}

std::optional<WideText> ReadParameterText(ProModelitem* item, const WideText& name) {
    // A cut name would be another parameter's.
    if (name.size() >= PRO_NAME_SIZE) return std::nullopt;
    HostRecord<ProParameter> parameter;
    FindParameter(item, name, parameter.Place());
    if (!parameter.IsFilled()) return std::nullopt;
    ProParamvalue value = {};
    ProParameterValueGet(parameter.Place(), &value);
    return ParameterText(value);
}
