// Loads the kernel's library from beside this one. It is large, and most sessions never need it.
#include <dlfcn.h>
#include <filesystem>

#include "simhost/kernel/kernel.h"

namespace simhost::kernel {

namespace {

Kernel* Load() {
    Dl_info here;
    if (!dladdr(reinterpret_cast<const void*>(&TheKernel), &here)) return nullptr;
    const auto path = std::filesystem::path(here.dli_fname).parent_path() / VX_KERNEL_FILE;
    void* library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!library) return nullptr;
    const auto make = reinterpret_cast<MakeKernel>(dlsym(library, kMakeKernel));
    return make ? make() : nullptr;
}

}  // namespace

Kernel* TheKernel() {
    static Kernel* const kernel = Load();
    return kernel;
}

}  // namespace simhost::kernel
