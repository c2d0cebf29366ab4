// Text conversions of the simulated host: UTF-8 inside its files and reports, UTF-16 at the door,
// code page 936 for what the system code page governs.
#pragma once

#include <string>
#include <string_view>

#include "hostapi/wide.h"

namespace simhost {

// UTF-16 and UTF-8. Lone surrogates and invalid bytes become U+FFFD; nothing throws.
std::string Utf8(WideView wide);
WideText Wide(std::string_view utf8);

// Code page 936, the system code page. What it has no place for becomes '?'.
std::string ToSystemCodePage(WideView wide);
WideText FromSystemCodePage(std::string_view bytes);

// ASCII letters folded; other characters as they are.
std::string Lower(std::string_view text);
WideText Lower(WideView text);
WideText Upper(WideView text);
bool SameName(WideView a, WideView b);  // equal but for the case of ASCII letters

// Copies into a fixed buffer of `size` units, cut to fit and always terminated.
void CopyCut(WideView text, WideChar* buffer, std::size_t size);

}  // namespace simhost
