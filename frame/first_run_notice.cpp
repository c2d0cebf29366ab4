// The notice of the first three loads. A marker in the registry counts them.
#include "frame/first_run_notice.h"

#include <algorithm>
#include <string>

#include "frame/services/dialog.h"
#include "frame/services/shell.h"
#include "hostapi/windows.h"

namespace {

constexpr Dialog kDialog = "VxInit.res";
constexpr const WideChar* kRegistryKey = WIDE("Software\\PTC\\Creo_Parametric");
constexpr const WideChar* kMarkerValue = WIDE("VxReg");

// Which marker follows on which; the last one ends the notices.
struct MarkerStep {
    WideView found;
    WideView written;
};
constexpr MarkerStep kMarkerSteps[] = {
    {WIDE("5110"), WIDE("5120")},
    {WIDE("5120"), WIDE("5130")},
};
constexpr WideView kFirstMarker = WIDE("5110");
constexpr WideView kLastMarker = WIDE("5130");

// Empty for no marker: no key, no value, no text, or a text that is longer than any marker.
WideText ReadMarker() {
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, kRegistryKey, 0, KEY_READ, &key) != ERROR_SUCCESS) {
        return {};
    }
    WideChar text[100] = {};
    DWORD type = 0;
    DWORD bytes = sizeof text;
    const LSTATUS status =
        RegQueryValueExW(key, kMarkerValue, nullptr, &type, reinterpret_cast<BYTE*>(text), &bytes);
    RegCloseKey(key);
    if (status != ERROR_SUCCESS || type != REG_SZ) return {};
    const WideView read(text, std::min<std::size_t>(bytes / sizeof(WideChar), std::size(text)));
    return WideText(read.substr(0, read.find(WideChar{})));
}

void WriteMarker(WideView marker) {
    HKEY key = nullptr;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, kRegistryKey, 0, nullptr, REG_OPTION_NON_VOLATILE,
                        KEY_ALL_ACCESS, nullptr, &key, nullptr) != ERROR_SUCCESS) {
        return;
    }
    const auto bytes = DWORD((marker.size() + 1) * sizeof(WideChar));
    RegSetValueExW(key, kMarkerValue, 0, REG_SZ, reinterpret_cast<const BYTE*>(marker.data()),
                   bytes);
    RegCloseKey(key);
}

WideView MarkerAfter(WideView found) {
    for (const MarkerStep& step : kMarkerSteps) {
        if (step.found == found) return step.written;
    }
    return kFirstMarker;
}

}  // namespace

ProError FirstRunNotice() {
    const WideText found = ReadMarker();
    if (found == kLastMarker) return PRO_TK_NO_ERROR;
    const ProError status = RunModalDialog(kDialog, [] { kDialog.OnPress("OK", EndDialogWithOk); });
    if (status != PRO_TK_NO_ERROR) return status;
    WriteMarker(MarkerAfter(found));
    OpenHomePage();
    return PRO_TK_NO_ERROR;
}
