// Faults as they are written on a command line.
#include "simhost/app/faults.h"

#include <fmt/format.h>

#include <charconv>
#include <stdexcept>
#include <string_view>

#include "simhost/ui/near_name.h"

namespace simhost {

namespace {

constexpr std::string_view kDone = "+done";

template <class Number>
bool ParseWhole(std::string_view text, Number* number) {
    const char* end = text.data() + text.size();
    const auto parsed = std::from_chars(text.data(), end, *number);
    return parsed.ec == std::errc() && parsed.ptr == end;
}

bool ParseStatus(std::string_view text, Fault* fault) {
    fault->afterWork =
        text.size() > kDone.size() && text.substr(text.size() - kDone.size()) == kDone;
    if (fault->afterWork) text.remove_suffix(kDone.size());
    return ParseWhole(text, &fault->status);
}

[[noreturn]] void Wrong(const std::string& text, const std::string& why) {
    throw std::invalid_argument("--fail " + text + ": " + why);
}

}  // namespace

Fault ParseFault(const std::string& text) {
    const std::size_t equals = text.find('=');
    const std::string_view head = std::string_view(text).substr(0, equals);
    const std::size_t colon = head.find(':');
    Fault fault;
    fault.operation = head.substr(0, colon);
    fault.forGood = colon == std::string::npos;
    const bool ok = equals != std::string::npos && !fault.operation.empty() &&
                    ParseStatus(std::string_view(text).substr(equals + 1), &fault) &&
                    (fault.forGood || ParseWhole(head.substr(colon + 1), &fault.n)) && fault.n > 0;
    if (!ok) {
        Wrong(text,
              "write OPERATION=STATUS or OPERATION:N=STATUS, such as ProMdlTypeGet:3=-1, with "
              "+done at its end if the work is to be done all the same; a status is a whole number "
              "of 32 bits");
    }
    if (!Operation::All().count(fault.operation)) {
        std::vector<std::string> names;
        for (const auto& [name, operation] : Operation::All()) names.push_back(name);
        Wrong(text,
              "there is no operation " + fault.operation + DidYouMean(fault.operation, names));
    }
    return fault;
}

std::vector<std::string> UnreachedFaultLines() {
    std::vector<std::string> lines;
    for (const Fault& fault : Operation::UnreachedFaults()) {
        lines.push_back(
            fmt::format("--fail {}: that call was never made; there were {} calls of it",
                        fault.operation, Operation::All().at(fault.operation)->calls()));
    }
    return lines;
}

}  // namespace simhost
