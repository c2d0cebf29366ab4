// Hands out what is replayed, then what comes from the browser.
#include "simhost/web/browser_source.h"

#include <utility>

#include "simhost/user/progress.h"

namespace simhost {

std::optional<std::string> BrowserSource::Next(const std::string& waiting) {
    const bool stopped = TheProgress().stop.exchange(false);
    if (at_ < first_.size() && !stopped) return first_[at_++];
    at_ = first_.size();
    if (replayed) std::exchange(replayed, nullptr)();
    return board_.NextLine(waiting);
}

}  // namespace simhost
