// The release of the DWG format, as both ways of exporting choose it.
#include "export/dwg_release.h"

#include "frame/services.h"

void ChooseDwgRelease() {
    const WideChar* const option = WIDE("dwg_export_format");
    ProPath release = {};
    if (ProConfigoptGet(HostText(option), release) == PRO_TK_NO_ERROR) return;
    ProConfigoptSet(HostText(option), HostText(WIDE("2000")));
}
