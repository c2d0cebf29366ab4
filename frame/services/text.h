// Text between the plug-in and the host: wide values, narrow names, and how a literal is handed
// over.
#pragma once

#include <string>

#include "hostapi/wide.h"

// The host's parameter lists take texts that are only read as if they could be written. These hand
// over a literal or a value that stays the caller's.
inline char* HostText(const char* text) {
    return const_cast<char*>(text);
}
inline WideChar* HostText(const WideChar* text) {
    return const_cast<WideChar*>(text);
}
inline WideChar* HostText(const WideText& text) {
    return const_cast<WideChar*>(text.c_str());
}

// Between wide and narrow (system code page) text, by the host. Null, or a failed call, gives the
// empty text.
WideText Widen(const char* narrow);
std::string Narrow(const WideText& wide);

// Without its blanks (U+0020), also those inside.
WideText DeleteBlanks(WideText text);

// Every occurrence of `part` (not empty) replaced, case-sensitively.
WideText ReplaceAll(WideText text, WideView part, WideView by);

// With its ASCII letters in capitals.
WideText FoldCase(WideView text);

// A number in decimal digits.
WideText Digits(int number);
