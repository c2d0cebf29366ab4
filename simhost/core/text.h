// Text conversions of the simulated host: UTF-8 inside its files and reports, UTF-16 at the door,
// the system code page for what that governs.
#pragma once

#include <string>
#include <string_view>

#include "hostapi/wide.h"

namespace simhost {

// UTF-16 and UTF-8. Lone surrogates and invalid bytes become U+FFFD; nothing throws.
std::string Utf8(WideView wide);
WideText Wide(std::string_view utf8);

// The code page of the system: 936 (Chinese) on the simulated Windows unless it is set to 1252
// (Western) or 65001 (UTF-8); on a real one what that says, whatever is set.
unsigned SystemCodePage();
void SetSystemCodePage(unsigned codePage);

// Text in one of these code pages, and in that of the system. What it has no place for becomes '?'.
std::string ToCodePage(unsigned codePage, WideView wide);
WideText FromCodePage(unsigned codePage, std::string_view bytes);
std::string ToSystemCodePage(WideView wide);
WideText FromSystemCodePage(std::string_view bytes);

// ASCII letters folded; other characters as they are.
std::string Lower(std::string_view text);
WideText Lower(WideView text);
WideText Upper(WideView text);
bool SameName(WideView a, WideView b);  // equal but for the case of ASCII letters

// Columns that UTF-8 text takes on a terminal, where a Chinese character takes two.
std::size_t DisplayWidth(std::string_view text);

// Copies into a fixed buffer of `size` units, cut to fit and always terminated.
void CopyCut(WideView text, WideChar* buffer, std::size_t size);

}  // namespace simhost
