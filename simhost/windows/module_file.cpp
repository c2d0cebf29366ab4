// The plug-in as a shared object, which the simulated Windows knows by its Windows path.
#include "simhost/system/module_file.h"

#include <dlfcn.h>
#include <stdexcept>

#include "simhost/system/windows.h"

namespace simhost {

ModuleFile::ModuleFile(const std::filesystem::path& file, const WideText& windowsPath)
    : name_(windowsPath.substr(windowsPath.find_last_of(WIDE("\\/")) + 1)),
      module_(dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL)) {
    if (!module_) throw std::runtime_error(dlerror());
    TheWindows().AddModule(name_, windowsPath);
}

ModuleFile::~ModuleFile() {
    TheWindows().RemoveModule(name_);
    dlclose(module_);
}

void* ModuleFile::Symbol(const char* name) const {
    return dlsym(module_, name);
}

bool ModuleFile::Holds(const void* address) const {
    Dl_info place = {};
    if (dladdr(address, &place) == 0) return false;
    void* holder = dlopen(place.dli_fname, RTLD_NOW | RTLD_NOLOAD);
    if (holder) dlclose(holder);
    return holder == module_;
}

}  // namespace simhost
