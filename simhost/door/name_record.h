// Names and paths in the host's records.
#pragma once

#include <algorithm>
#include <cstddef>

#include "hostapi/host/types.h"

namespace simhost {

// A name of 32 characters leaves no room for a terminator in its record.
inline void PutName(WideView name, WideChar* record) {
    const std::size_t length = std::min<std::size_t>(name.size(), PRO_NAME_SIZE);
    std::copy_n(name.begin(), length, record);
    if (length < PRO_NAME_SIZE) record[length] = 0;
}

// What such a record says.
inline WideText NameIn(const WideChar* record) {
    return {record, std::find(record, record + PRO_NAME_SIZE, WideChar{})};
}

// A path as an element of an array.
struct PathRecord {
    ProPath text;
};

}  // namespace simhost
