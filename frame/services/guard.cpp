// What the user sees when a callback could not finish.
#include "frame/services/guard.h"

#include "hostapi/windows.h"

void ReportUnfinished() noexcept {
    MessageBoxW(nullptr, WIDE("操作未能完成：内存不足"), nullptr, MB_OK);
}
