// Options of PDF files by their numbers.
#pragma once

#include "frame/services.h"

// An option that has no name in our headers. The number is not a constant here, since the vendor's
// enumeration may end before it as far as a compiler sees.
inline ProPDFOptionType PdfOption(int number) {
    return static_cast<ProPDFOptionType>(number);
}
