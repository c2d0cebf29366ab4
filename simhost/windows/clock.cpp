// Lets time pass on the clock of whichever Windows this is.
#include "simhost/windows/clock.h"

#include "simhost/windows/windows.h"

namespace simhost {

void AdvanceClock(unsigned milliseconds) {
    TheWindows().AdvanceClock(milliseconds);
}

}  // namespace simhost
