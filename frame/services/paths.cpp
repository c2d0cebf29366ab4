// Where the plug-in's files lie.
#include "frame/services/paths.h"

#include "frame/services/text.h"
#include "hostapi/host.h"
#include "hostapi/windows.h"

namespace {

WideText ModulePath() {
    const HMODULE module = GetModuleHandleW(kModuleFile.data());
    WideChar path[MAX_PATH] = {};
    // By the returned length: a path that fills the buffer has no terminator.
    const DWORD length = GetModuleFileNameW(module, path, MAX_PATH);
    return WideText(path, length < MAX_PATH ? length : MAX_PATH);
}

}  // namespace

WideText FileBesideModule(WideView file) {
    return ReplaceAll(ModulePath(), kModuleFile, file);
}

std::optional<WideText> WritableFileBesideModule(WideView file) {
    const WideText path = ModulePath();
    if (path.find(kModuleFile) == WideText::npos) return std::nullopt;
    return ReplaceAll(path, kModuleFile, file);
}

WideText AppTextDir() {
    ProPath folder = {};
    ProToolkitApplTextPathGet(folder);
    return folder;
}

WideText ConfigPathFor(WideView fileName) {
    return AppTextDir().append(WIDE("\\VXconfig\\")).append(fileName);
}
