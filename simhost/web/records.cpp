// What the session keeps of itself: the recording, what went wrong, the calls through the door.
#include <algorithm>
#include <string>

#include "simhost/host.h"
#include "simhost/web/answers.h"
#include "simhost/web/json_text.h"

namespace simhost {

Reply RecordingNow(const Seat& seat, const Query&) {
    return {200, "text/plain; charset=utf-8", seat.trail.Recording(), "recording.trail"};
}

Reply FaultsNow(const Seat& seat, const Query&) {
    Json held = Json::array();
    for (const std::string& each : TheHost().arrays.HeldByMistake()) held.push_back(each);
    const Json faults = {{"complaints", TheHost().complaints},
                         {"failures", seat.trail.failures()},
                         {"held", std::move(held)}};
    return {200, Reply().type, Dump(faults), {}};
}

// Calls are written down from the first question on, since whoever looks at them wants the next
// ones. On=0 ends that.
Reply JournalNow(const Seat&, const Query& query) {
    constexpr std::size_t kMostAtOnce = 2000;
    Journal& journal = TheHost().journal;
    if (query.Text("on") == "0") {
        if (journal.running()) journal.Stop();
        journal.Clear();
    } else if (!journal.running()) {
        journal.Start();
    }
    const auto& lines = journal.lines();
    const std::size_t from = std::min(query.Number("from", 0), lines.size());
    const std::size_t end = std::min(lines.size(), from + kMostAtOnce);
    const auto begin = lines.begin();
    const Json calls = {{"running", journal.running()},
                        {"all", lines.size()},
                        {"from", from},
                        {"lines", std::vector<std::string>(begin + std::ptrdiff_t(from),
                                                           begin + std::ptrdiff_t(end))}};
    return {200, Reply().type, Dump(calls), {}};
}

}  // namespace simhost
