// Free names for new models.
#include "construct/names.h"

#include "frame/services.h"

void WithDash(int number, WideText* base) {
    base->append(WIDE("-")).append(Digits(number));
}

void WithTwoDigits(int number, WideText* base) {
    base->append(number < 10 ? WIDE("_0") : WIDE("_")).append(Digits(number));
}

WideText BaseOf(const WideText& assemblyName) {
    constexpr WideView kEnding = WIDE("_00");
    if (!assemblyName.ends_with(kEnding)) return assemblyName;
    return assemblyName.substr(0, assemblyName.size() - kEnding.size());
}

std::optional<WideText> FirstFreeName(const WideText& base, NumberedName name, ProMdlType type,
                                      std::size_t longest) {
    WideText candidate;
    for (int number = 1;; ++number) {
        candidate = base;
        name(number, &candidate);
        if (candidate.size() > longest) return std::nullopt;
        ProMdl taken = nullptr;
        if (ProMdlRetrieve(HostText(candidate), type, &taken) != PRO_TK_NO_ERROR) return candidate;
    }
}
