// Case folding for names.
#include "simhost/windows/names.h"

#include <clocale>
#include <cwctype>

#include "simhost/core/text.h"

namespace simhost {

WideText FoldCase(WideView text) {
    // The folding of this locale does not depend on any language.
    static const locale_t everyScript = newlocale(LC_CTYPE_MASK, "C.UTF-8", locale_t{});
    WideText folded = Lower(text);
    for (WideChar& c : folded) {
        if (c >= 0x80 && everyScript) {
            c = static_cast<WideChar>(towlower_l(static_cast<wint_t>(c), everyScript));
        }
    }
    return folded;
}

}  // namespace simhost
