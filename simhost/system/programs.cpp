// How the start of a program is written down.
#include "simhost/system/programs.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "simhost/core/text.h"

namespace simhost {

bool IsKnownProgram(WideView name) {
    constexpr WideView kPrograms[] = {WIDE("cmd"), WIDE("explorer"), WIDE("notepad")};
    WideText folded = Lower(name);
    constexpr WideView kEnding = WIDE(".exe");
    const bool ends = folded.size() > kEnding.size() &&
                      WideView(folded).substr(folded.size() - kEnding.size()) == kEnding;
    if (ends) folded.resize(folded.size() - kEnding.size());
    return std::find(std::begin(kPrograms), std::end(kPrograms), folded) != std::end(kPrograms);
}

WideText ProgramLine(const WideChar* verb, const WideChar* file, const WideChar* arguments,
                     int show) {
    WideText line;
    for (const WideChar* part : {verb, file, arguments}) {
        if (part) line.append(part).append(WIDE(" "));
    }
    return line + Wide("(show " + std::to_string(show) + ")");
}

}  // namespace simhost
