// Loaded modules: the plug-in asks where its own file lies.
#include <algorithm>

#include "simhost/core/operation.h"
#include "simhost/core/text.h"
#include "simhost/windows/names.h"
#include "simhost/windows/simulated.h"

using namespace simhost;

namespace simhost {

namespace {

// The process's own module, which is always loaded.
HMODULE Executable() {
    return reinterpret_cast<HMODULE>(std::uintptr_t{0x140000000u});
}

}  // namespace

void SimulatedWindows::AddModule(WideView name, WideView windowsPath) {
    LoadedModule& module = loaded_.emplace_back();
    module.name = name;
    module.path = windowsPath;
    module.handle = static_cast<HMODULE>(modules_.Add(&module));
}

void SimulatedWindows::RemoveModule(WideView name) {
    const WideText folded = FoldCase(name);
    loaded_.remove_if([&](const LoadedModule& module) {
        const bool gone = FoldCase(module.name) == folded;
        if (gone) modules_.Drop(module.handle);
        return gone;
    });
}

HMODULE SimulatedWindows::FindModule(const WideChar* name) const {
    if (name == nullptr) return Executable();
    WideText folded = FoldCase(name);
    const std::size_t separator = folded.find_last_of(WIDE("\\/"));
    const bool isPath = separator != WideText::npos;
    const std::size_t dot = folded.find(u'.', isPath ? separator : 0);
    if (dot == WideText::npos) folded += WIDE(".dll");
    if (folded.back() == u'.') folded.pop_back();  // "a name without a suffix"
    for (const LoadedModule& module : loaded_) {
        if (FoldCase(isPath ? module.path : module.name) == folded) return module.handle;
    }
    const std::size_t file = executablePath.find_last_of(u'\\') + 1;
    const WideText executable = isPath ? executablePath : executablePath.substr(file);
    return FoldCase(executable) == folded ? Executable() : nullptr;
}

const WideText& SimulatedWindows::ModulePath(HMODULE module) const {
    if (module == nullptr || module == Executable()) return executablePath;
    const LoadedModule* loaded = modules_.Find(module);
    if (!loaded) Complain(0, "the handle names no loaded module");
    return loaded->path;
}

}  // namespace simhost

HMODULE GetModuleHandleW(const WideChar* name) {
    Operation& op = Op<"GetModuleHandleW">;
    return op.CallOr([](int) { return HMODULE{}; }, [&] { return Simulated().FindModule(name); },
                     "name", name);
}

DWORD GetModuleFileNameW(HMODULE module, WideChar* path, DWORD size) {
    Operation& op = Op<"GetModuleFileNameW">;
    WideText whole;
    return op.CallOr([](int) { return DWORD{0}; },
                     [&] {
                         Need(path, "the place for the path");
                         whole = Simulated().ModulePath(module);
                         // A path that just fits without its terminator counts as cut, too.
                         if (whole.size() < size) {
                             CopyCut(whole, path, size);
                             return static_cast<DWORD>(whole.size());
                         }
                         std::copy_n(whole.data(), size, path);
                         return size;
                     },
                     "module", module, "path", TextThen{&whole}, "size", size);
}
