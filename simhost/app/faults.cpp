// Faults as they are written on a command line.
#include "simhost/app/faults.h"

#include <charconv>
#include <stdexcept>

namespace simhost {

namespace {

bool ParseWhole(std::string_view text, long* number) {
    const char* end = text.data() + text.size();
    const auto parsed = std::from_chars(text.data(), end, *number);
    return parsed.ec == std::errc() && parsed.ptr == end;
}

}  // namespace

Fault ParseFault(const std::string& text) {
    const std::size_t equals = text.find('=');
    const std::string head = text.substr(0, equals);
    const std::size_t colon = head.find(':');
    Fault fault;
    fault.operation = head.substr(0, colon);
    fault.forGood = colon == std::string::npos;
    long n = 1;
    long status = 0;
    const bool ok = equals != std::string::npos && !fault.operation.empty() &&
                    ParseWhole(text.substr(equals + 1), &status) &&
                    (fault.forGood || ParseWhole(head.substr(colon + 1), &n)) && n > 0;
    if (!ok) {
        throw std::invalid_argument("--fail " + text +
                                    ": write OPERATION=STATUS or OPERATION:N=STATUS, such as "
                                    "ProMdlTypeGet:3=-1");
    }
    fault.n = std::uint64_t(n);
    fault.status = int(status);
    return fault;
}

}  // namespace simhost
