// Free names for new models.
#include "construct/names.h"

#include "frame/services.h"

WideText WithDash(const WideText& base, int number) {
    return base + WIDE("-") + Digits(number);
}

WideText WithTwoDigits(const WideText& base, int number) {
    return base + (number < 10 ? WIDE("_0") : WIDE("_")) + Digits(number);
}

WideText BaseOf(const WideText& assemblyName) {
    constexpr WideView kEnding = WIDE("_00");
    if (!assemblyName.ends_with(kEnding)) return assemblyName;
    return assemblyName.substr(0, assemblyName.size() - kEnding.size());
}

std::optional<WideText> FirstFreeName(const WideText& base, NumberedName name, ProMdlType type,
                                      std::size_t longest) {
    for (int number = 1;; ++number) {
        WideText candidate = name(base, number);
        if (candidate.size() > longest) return std::nullopt;
        ProMdl taken = nullptr;
        if (ProMdlRetrieve(HostText(candidate), type, &taken) != PRO_TK_NO_ERROR) return candidate;
    }
}
