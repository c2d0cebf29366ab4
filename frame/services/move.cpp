// How files get another path.
#include "frame/services/move.h"

#include <string>

#include "frame/services/text.h"
#include "hostapi/windows.h"

bool MoveToPath(const WideText& from, const WideText& to) {
    return MoveFileW(from.c_str(), to.c_str()) != FALSE;
}

bool MoveToNarrowPath(const WideText& from, const WideText& to) {
    const std::string narrowFrom = Narrow(from);
    const std::string narrowTo = Narrow(to);
    return MoveFileA(narrowFrom.c_str(), narrowTo.c_str()) != FALSE;
}
