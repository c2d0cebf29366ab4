// Documents as the bytes of exchange files.
#pragma once

#include <string>

#include "simhost/kernel/document.h"

namespace simhost::kernel {

// Both throw Failure and whatever the kernel throws.
std::string StepBytes(const Document& document);
std::string IgesBytes(const Document& document);

}  // namespace simhost::kernel
