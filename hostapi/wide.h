// Wide text as the host and Windows know it: UTF-16 code units on every system.
// `WideChar` is `wchar_t` where that is 16 bits (Windows) and `char16_t` elsewhere; write every
// wide literal as WIDE("…"). Nothing else in the project asks which of the two it is.
#pragma once

#include <string>
#include <string_view>

#ifdef _WIN32
using WideChar = wchar_t;
#define WIDE(text) L##text
#else
using WideChar = char16_t;
#define WIDE(text) u##text
#endif

// The one wide string type, with value semantics.
using WideText = std::basic_string<WideChar>;
using WideView = std::basic_string_view<WideChar>;
