// Records that the host fills, and whether it has.
#pragma once

#include <algorithm>
#include <cstring>
#include <type_traits>

// A record of the host's, prepared with zeros. Hosts answer some calls with a status such as
// "exists already" and fill the record all the same; what is to be done with it is then done.
// Whether anything was put in is seen by its bytes, so that no field of a vendor's record is named.
template <class Record>
class HostRecord {
    static_assert(std::is_trivially_copyable_v<Record>);

public:
    HostRecord() { std::memset(&record_, 0, sizeof record_); }

    // Where the host puts it, and what it is handed back by.
    Record* Place() { return &record_; }

    // False while it has the bytes with which it was prepared.
    bool IsFilled() const {
        const auto* bytes = reinterpret_cast<const unsigned char*>(&record_);
        return std::any_of(bytes, bytes + sizeof record_,
                           [](unsigned char each) { return each != 0; });
    }

private:
    Record record_;
};
