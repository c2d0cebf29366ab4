// The simulated clock: time passes only when the user lets it.
#pragma once

namespace simhost {

// Lets time pass; timers that become due in it fire in their order.
void AdvanceClock(unsigned milliseconds);

}  // namespace simhost
