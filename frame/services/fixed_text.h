// Texts of a fixed size in the host's records.
#pragma once

#include <algorithm>
#include <cstddef>

#include "hostapi/host.h"

// The text in a record, up to its terminator or, in a record that is filled to the last place,
// to its end; in the record's own place.
template <std::size_t Size>
WideView ViewIn(const WideChar (&record)[Size]) {
    return WideView(record, std::size_t(std::find(record, record + Size, WideChar{}) - record));
}

// The same as a text of its own.
template <std::size_t Size>
WideText TextIn(const WideChar (&record)[Size]) {
    return WideText(ViewIn(record));
}

// Puts a text into a record, terminated; what does not fit is cut at a whole character.
template <std::size_t Size>
void PutText(WideView text, WideChar (&record)[Size]) {
    std::size_t length = std::min(text.size(), Size - 1);
    const bool cut = length < text.size();
    if (cut && length > 0 && text[length - 1] >= 0xD800 && text[length - 1] <= 0xDBFF) --length;
    std::copy_n(text.begin(), length, record);
    std::fill(record + length, record + Size, WideChar{});
}
