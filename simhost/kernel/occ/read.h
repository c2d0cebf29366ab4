// Exchange files as documents.
#pragma once

#include <string>

#include "simhost/kernel/document.h"

namespace simhost::kernel {

// Both throw Failure and whatever the kernel throws.
Document StepDocument(const std::string& path);
Document IgesDocument(const std::string& path);

}  // namespace simhost::kernel
