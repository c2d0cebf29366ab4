// The clock of the Windows under the host.
#pragma once

#include <cstdint>
#include <optional>

namespace simhost {

// Lets time pass; timers that become due in it fire in their order.
void AdvanceClock(unsigned milliseconds);

// What the plug-in is told when it asks for the time, in seconds since 1970 (UTC); nothing: what
// this computer's clock says. It stays until it is set again, or Windows is started anew.
void SetClock(std::optional<std::int64_t> seconds);
// The seconds that the plug-in was told first since the last call; nothing: it did not ask.
std::optional<std::int64_t> TakeToldTime();

// For the Windows: the time to tell, in steps of 100 nanoseconds since 1601 (UTC).
std::uint64_t TellTime();

}  // namespace simhost
