// Hands out what is replayed, then what comes from the browser.
#include "simhost/web/browser_source.h"

#include <utility>

#include "simhost/user/progress.h"

namespace simhost {

// There is no terminal that has shown what was typed.
std::optional<std::string> BrowserSource::Shown(std::optional<std::string> line) {
    if (line) board_.Print(*line);
    return line;
}

std::optional<std::string> BrowserSource::Next(const std::string& waiting) {
    if (at_ < first_.size() && !TheProgress().stop) return Shown(first_[at_++]);
    at_ = first_.size();
    if (replayed) std::exchange(replayed, nullptr)();
    auto line = board_.NextLine(waiting);
    TheProgress().stop = false;  // the next line begins afresh
    return Shown(std::move(line));
}

}  // namespace simhost
