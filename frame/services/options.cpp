// Options by their first value, which is all that commands ask for.
#include "frame/services/options.h"

#include "frame/services/fixed_text.h"
#include "frame/services/host_array.h"
#include "frame/services/text.h"

std::optional<WideText> FirstOptionValue(const WideChar* option) {
    ProPath* made = nullptr;
    const ProError status = ProConfigoptArrayGet(HostText(option), &made);
    HostArray<ProPath> values;
    values.Adopt(made);
    if (status != PRO_TK_NO_ERROR || values.Size() == 0) return std::nullopt;
    return TextIn(values.data()[0]);
}
