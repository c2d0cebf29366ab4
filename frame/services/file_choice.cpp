// The host's dialog for one file, and its name in pieces.
#include "frame/services/file_choice.h"

#include "frame/services/fixed_text.h"
#include "frame/services/text.h"
#include "hostapi/host.h"

std::optional<ChosenFile> ChooseFile(const WideChar* title, const WideChar* filter,
                                     const WideText& startFolder) {
    ProPath path = {};
    if (ProFileOpen(HostText(title), HostText(filter), nullptr, nullptr, HostText(startFolder),
                    nullptr, path) != PRO_TK_NO_ERROR) {
        return std::nullopt;
    }
    ProPath folder = {};
    ProName name = {}, extension = {};
    int version = 0;
    ProFilenameParse(path, folder, name, extension, &version);
    return ChosenFile{TextIn(path), TextIn(folder), TextIn(name)};
}
