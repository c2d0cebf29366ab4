// How the door's records look in the journal. Every operation whose arguments they are includes
// this; handles are described by describe.cpp wherever they appear.
#pragma once

#include <string>

#include "hostapi/host/parameter.h"
#include "hostapi/host/types.h"
#include "simhost/core/operation.h"

namespace simhost {

template <>
struct JournalText<ProModelitem> {
    static std::string Of(const ProModelitem& item);
};
template <>
struct JournalText<ProParameter> {
    static std::string Of(const ProParameter& parameter);
};
template <>
struct JournalText<ProParamvalue> {
    static std::string Of(const ProParamvalue& value);
};

}  // namespace simhost
