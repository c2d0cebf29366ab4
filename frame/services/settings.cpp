// Settings: INI files with one key to a section.
#include "frame/services/settings.h"

#include <algorithm>

#include "frame/services/paths.h"
#include "frame/services/text.h"
#include "hostapi/windows.h"

WideText ReadIniValue(const WideText& path, const WideText& section, const WideText& key) {
    constexpr DWORD kValueSize = 255;
    WideChar value[kValueSize] = {};
    const DWORD length = GetPrivateProfileStringW(section.c_str(), key.c_str(), WIDE(""), value,
                                                  kValueSize, path.c_str());
    return WideText(value, std::min(length, kValueSize - 1));
}

void WriteIniValue(const WideText& path, const WideText& section, const WideText& key,
                   const WideText& value) {
    WritePrivateProfileStringW(section.c_str(), key.c_str(), value.c_str(), path.c_str());
}

WideText ConfigValue(const WideText& section, Place place) {
    const WideText path = place == Place::BesideModule ? FileBesideModule(kConfigFile)
                                                       : ConfigPathFor(WIDE("VxConfig.ini"));
    return DeleteBlanks(ReadIniValue(path, section, WIDE("value")));
}
