// Asks nm for the names that the module leaves open, and the loader whose they are.
#include "tests/sweep/imports.h"

#ifndef _WIN32
#include <cstdio>
#include <dlfcn.h>
#endif

#include "tests/support/places.h"

namespace sweep {

#ifdef _WIN32

std::set<std::string> ImportedOperations() {
    return {};
}

#else

namespace {

bool IsOfTheHost(const std::string& name) {
    const void* symbol = dlsym(RTLD_DEFAULT, name.c_str());
    Dl_info info{};
    if (!symbol || dladdr(symbol, &info) == 0 || !info.dli_fname) return false;
    return std::string(info.dli_fname).find("libsimhost") != std::string::npos;
}

}  // namespace

std::set<std::string> ImportedOperations() {
    std::set<std::string> names;
    const std::string command =
        std::string("nm -D --undefined-only --format=posix '") + workbench::kModuleBuilt + "'";
    std::FILE* output = popen(command.c_str(), "r");
    if (!output) return names;
    char line[4096];
    while (std::fgets(line, sizeof line, output)) {
        const std::string text = line;
        const std::string name = text.substr(0, text.find(' '));
        // What the compiler makes of C++ names begins with an underscore.
        if (name.front() != '_' && IsOfTheHost(name)) names.insert(name);
    }
    pclose(output);
    return names;
}

#endif

}  // namespace sweep
