// Relations: which parameters they give a value.
#include "simhost/model/relations.h"

#include <algorithm>

#include "simhost/core/text.h"

namespace simhost {

namespace {

constexpr WideView kBlanks = WIDE(" \t\r\n");

// The name on the left of a line's equals sign; empty for comments and for everything else.
WideView Assigned(WideView line) {
    const std::size_t equals = line.find(WideChar{'='});
    if (equals == WideView::npos) return {};
    if (line.substr(equals, 2) == WIDE("==")) return {};
    WideView left = line.substr(0, equals);
    const std::size_t begin = left.find_first_not_of(kBlanks);
    if (begin == WideView::npos || left.substr(begin, 2) == WIDE("/*")) return {};
    left = left.substr(begin, left.find_last_not_of(kBlanks) + 1 - begin);
    return left;
}

bool Decide(const std::vector<WideText>& lines, WideView parameter) {
    return std::any_of(lines.begin(), lines.end(),
                       [&](const WideText& line) { return SameName(Assigned(line), parameter); });
}

}  // namespace

bool Decides(const Relations& relations, WideView parameter) {
    return (relations.initial && Decide(*relations.initial, parameter)) ||
           Decide(relations.afterRegeneration, parameter);
}

}  // namespace simhost
