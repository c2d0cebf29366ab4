// Work that a strange file may make break off, go on for ever or take all memory, done in a process
// of its own.
#pragma once

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>

namespace simhost {

// What such work may take before it is given up.
struct Bounds {
    int seconds = 600;
    std::uint64_t bytes = 0;  // of memory; 0: three quarters of what the machine has
};

// It ended by itself, and without a word.
struct BrokenOff : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Does the work in a copy of this process, and returns what it returned. Throws std::runtime_error
// with the words of whatever the work threw, or with a sentence that begins with `name` ("reading
// x.stp") and tells how it ended instead: BrokenOff by a signal or by leaving, others because it
// took more than it may or than there is. The work changes nothing here, and what it prints is
// lost. It ends with this process at the latest. Other threads must be at rest: the copy has none
// of them, and what they hold stays held in it. On Windows, where there is no geometry kernel that
// could break off, it is just done.
std::string DoneApart(const std::string& name, const std::function<std::string()>& work,
                      const Bounds& bounds);

}  // namespace simhost
