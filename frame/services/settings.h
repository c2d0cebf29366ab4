// Settings: INI files with one key to a section. Nothing but the empty text is ever the default.
#pragma once

#include "hostapi/wide.h"

// The value of a key as it is in the file, at most 254 characters. Empty for a missing file,
// section or key.
WideText ReadIniValue(const WideText& path, const WideText& section, const WideText& key);

// Writes a key, making file and section where missing. Success is not examined.
void WriteIniValue(const WideText& path, const WideText& section, const WideText& key,
                   const WideText& value);

// The two places of VxConfig.ini. Installed they are one folder, and nothing checks that; each
// command keeps its own.
enum class Place { BesideModule, TextFolder };

// The key `value` of a section of VxConfig.ini, with all blanks deleted.
WideText ConfigValue(const WideText& section, Place place);
