// The files that spreadsheets come from and go to, as other programs and the file system let us.
#pragma once

#include <string>

#include "hostapi/wide.h"

namespace simhost {

// The real path of a file that may be written now, or read; empty if it may not.
std::string WritablePath(const WideText& windowsPath);
std::string ReadablePath(const WideText& windowsPath);

// An open workbook keeps its file from other programs.
void HoldFile(const WideText& windowsPath);
void ReleaseFile(const WideText& windowsPath);

}  // namespace simhost
