// Names for new models: a base, and the first number after it that is still free.
#pragma once

#include <optional>

#include "hostapi/host.h"

// How a number is set after a base.
using NumberedName = void (*)(int number, WideText* base);
void WithDash(int number, WideText* base);       // "TOP-7"
void WithTwoDigits(int number, WideText* base);  // "TOP_07", "TOP_70"

// The base that an assembly's name gives: without an ending that is exactly "_00".
WideText BaseOf(const WideText& assemblyName);

// The first of the names from number 1 on that the host cannot retrieve as a model of this type.
// What is in the way is in memory afterwards. Nothing: one that is longer than `longest` was
// reached before a free one.
std::optional<WideText> FirstFreeName(const WideText& base, NumberedName name, ProMdlType type,
                                      std::size_t longest = WideText::npos);
