// The one way on which all that is exported comes onto the disk.
#include "simhost/door/output_file.h"

#include <algorithm>
#include <filesystem>

#include "simhost/door/door.h"
#include "simhost/system/windows.h"

namespace simhost {

namespace {

// The host asks for it from Windows only when the bytes are there, so it is known here what no
// file is called.
bool IsPathOfAFile(WideView path) {
    const auto isForbidden = [](WideChar c) {
        return c < ' ' || WideView(WIDE("<>:\"|?*")).find(c) != WideView::npos;
    };
    // The drive's colon is the only one.
    if (path.size() < 3 || path[1] != ':' || path.size() >= PRO_PATH_SIZE) return false;
    const WideView names = path.substr(2);
    return names.back() != '\\' && names.back() != '/' &&
           std::none_of(names.begin(), names.end(), isForbidden);
}

}  // namespace

void WriteOutput(WideView path, const std::string& bytes) {
    const bool whole = path.size() > 1 && path[1] == ':';
    WideText full = whole ? WideText() : TheHost().session.workingDirectory + WIDE("\\");
    full += path;
    if (!IsPathOfAFile(full)) Refuse(PRO_TK_CANT_WRITE);
    const std::filesystem::path real = TheHost().disk.Real(full);
    std::error_code error;
    const bool writable = !real.empty() && !std::filesystem::is_directory(real, error) &&
                          TheWindows().MayOpen(real, /*toWrite=*/true) && WriteFile(real, bytes);
    if (!writable) Refuse(PRO_TK_CANT_WRITE);
}

}  // namespace simhost
