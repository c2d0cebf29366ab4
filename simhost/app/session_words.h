// What a session that somebody has says of itself: where it works, what leaving would lose, what
// was written.
#pragma once

#include <functional>
#include <string>

#include "simhost/app/workplace.h"

namespace simhost {

using Print = std::function<void(const std::string& line)>;

// Lets scripts load and unload the plug-in and draw pictures. `lost`: what leaving would lose.
void SetHooks(Workplace& workplace, std::function<std::string()> lost);

void TellWhereItWorks(const Workplace& workplace, const Print& print);
// What is changed in memory and in no file; empty: nothing is. For somebody who has typed it says
// what can be done about it, too.
std::string TellUnsaved(const Workplace& workplace, bool typed);
// The files that were written, which stay or not.
void TellWhatIsWritten(const Workplace& workplace, const Print& print);

}  // namespace simhost
