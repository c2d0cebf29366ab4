// The @ words about other programs on the same computer: files and the clipboard that they keep,
// and what lies on it.
#include <fmt/format.h>

#include <filesystem>

#include "simhost/core/text.h"
#include "simhost/system/windows.h"
#include "simhost/trail/interpreter.h"
#include "simhost/trail/words.h"
#include "simhost/ui/text_frame.h"

namespace simhost {
namespace {

// The Windows path of a file that is there, by its path or by its name in the working folder;
// empty if there is none, which has been told.
WideText FileThatIsThere(Trail& trail, const std::string& rest, bool orFolder = false) {
    const std::string name = ParseText(rest).text;
    WideText path = Wide(name);
    if (path.find(WideChar{':'}) == WideText::npos) {
        path = TheHost().session.workingDirectory + WIDE("\\") + path;
    }
    std::error_code error;
    const std::filesystem::path real = TheHost().disk.Real(path);
    const std::filesystem::file_status status = std::filesystem::status(real, error);
    const bool fits = is_regular_file(status) || (orFolder && is_directory(status));
    if (!name.empty() && fits) return path;
    trail.Fail(name.empty() ? "a file's name is missing"
                            : fmt::format("there is no file {}", Utf8(path)));
    return {};
}

}  // namespace

void HoldFile(Trail& trail, const std::string& rest) {
    const WideText path = FileThatIsThere(trail, rest);
    if (!path.empty()) TheWindows().Hold(path);
}

void LetGoFile(Trail& trail, const std::string& rest) {
    const WideText path = FileThatIsThere(trail, rest);
    if (!path.empty()) TheWindows().Release(path);
}

void MakeReadOnly(Trail& trail, const std::string& rest) {
    using std::filesystem::perms;
    const WideText path = FileThatIsThere(trail, rest, /*orFolder=*/true);
    if (path.empty()) return;
    std::error_code error;
    std::filesystem::permissions(TheHost().disk.Real(path),
                                 perms::owner_write | perms::group_write | perms::others_write,
                                 std::filesystem::perm_options::remove, error);
    if (error) trail.Fail(fmt::format("{}: {}", Utf8(path), error.message()));
}

void HoldClipboard(Trail&, const std::string&) {
    TheWindows().HoldClipboard();
}

void LetGoClipboard(Trail&, const std::string&) {
    TheWindows().ReleaseClipboard();
}

void ExpectClipboard(Trail& trail, const std::string& rest) {
    const TextArgument expected = ParseText(rest);
    if (expected.text.empty() && !expected.quoted) {
        return trail.Fail("the text that is expected is missing");
    }
    const bool wantsNone = !expected.quoted && expected.text == "none";
    const auto text = TheWindows().ClipboardText();
    if (!text) {
        if (!wantsNone) trail.Fail("no text can be had from the clipboard");
    } else if (wantsNone || Utf8(*text) != expected.text) {
        trail.Fail(fmt::format("on the clipboard is {}", Visible(*text)));
    }
}

}  // namespace simhost
