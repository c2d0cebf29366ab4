// Lets time pass on the clock of whichever Windows this is.
#include "simhost/system/clock.h"

#include "simhost/system/windows.h"

namespace simhost {

void AdvanceClock(unsigned milliseconds) {
    TheWindows().AdvanceClock(milliseconds);
}

}  // namespace simhost
