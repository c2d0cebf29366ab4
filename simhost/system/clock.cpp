// Time on the clock of whichever Windows this is.
#include "simhost/system/clock.h"

#include <ctime>
#include <utility>

#include "simhost/system/windows.h"

namespace simhost {
namespace {

// On the host's thread only.
std::optional<std::int64_t> setTime, toldTime;

}  // namespace

void AdvanceClock(unsigned milliseconds) {
    TheWindows().AdvanceClock(milliseconds);
}

void SetClock(std::optional<std::int64_t> seconds) {
    setTime = seconds;
    toldTime.reset();
}

std::optional<std::int64_t> TakeToldTime() {
    return std::exchange(toldTime, std::nullopt);
}

std::uint64_t TellTime() {
    constexpr std::uint64_t kStepsInASecond = 10'000'000;
    constexpr std::uint64_t kSecondsTo1970 = 11'644'473'600;
    const std::int64_t now = setTime.value_or(std::time(nullptr));
    if (!toldTime) toldTime = now;
    return (std::uint64_t(now) + kSecondsTo1970) * kStepsInASecond;
}

}  // namespace simhost
