// Long work: it says how far it is, and whoever waits can stop it.
#pragma once

#include <atomic>
#include <cstddef>
#include <functional>
#include <stdexcept>

namespace simhost {

// The user has stopped the work.
struct Interrupted : std::runtime_error {
    Interrupted() : std::runtime_error("interrupted") {}
};

struct Progress {
    // Is told how many of how many steps are done; unset: nobody wants to know.
    std::function<void(const char* work, std::size_t done, std::size_t all)> tell;
    std::atomic<bool> stop = false;  // set from anywhere, taken back by whoever works
};
Progress& TheProgress();

// For the work, at each of its steps: throws Interrupted if it shall stop. The work must not run
// inside a callback of the plug-in, where nothing may be thrown.
void WorkStep(const char* work, std::size_t done, std::size_t all);

}  // namespace simhost
