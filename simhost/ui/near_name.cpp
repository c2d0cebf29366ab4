// The nearest of a set of names by the number of letters that must change.
#include "simhost/ui/near_name.h"

#include <algorithm>
#include <numeric>

#include "simhost/core/text.h"

namespace simhost {
namespace {

// Letters to replace, put in, take out, or swap with their neighbour.
std::size_t Distance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> above, last(b.size() + 1), row(b.size() + 1);
    std::iota(last.begin(), last.end(), std::size_t{0});
    for (std::size_t i = 1; i <= a.size(); ++i) {
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t replaced = last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            row[j] = std::min({replaced, last[j] + 1, row[j - 1] + 1});
            const bool swapped = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
            if (swapped) row[j] = std::min(row[j], above[j - 2] + 1);
        }
        above = last;
        last = row;
    }
    return last[b.size()];
}

}  // namespace

std::string NearName(std::string_view name, const std::vector<std::string>& names) {
    const std::string wanted = Lower(name);
    std::string best;
    // Two slips in three letters make another word.
    std::size_t least = std::max<std::size_t>(wanted.size() > 3 ? 2 : 1, wanted.size() / 3) + 1;
    least = std::min(least, wanted.size());
    for (const std::string& candidate : names) {
        const std::string whole = Lower(candidate);
        // The user may have left the type of a file out.
        const std::size_t distance =
            std::min(Distance(wanted, whole), Distance(wanted, whole.substr(0, whole.rfind('.'))));
        if (distance < least) {
            least = distance;
            best = candidate;
        }
    }
    return best;
}

std::string DidYouMean(std::string_view name, const std::vector<std::string>& names) {
    const std::string best = NearName(name, names);
    return best.empty() ? std::string() : "; did you mean " + best + "?";
}

}  // namespace simhost
