// What is wrong with a model file.
#pragma once

#include <stdexcept>

namespace simhost {

// Says what is wrong with a file, with its name and line, or why it cannot be written.
struct ModelFileError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

}  // namespace simhost
