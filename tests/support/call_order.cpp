// Which calls came in which order.
#include "tests/support/call_order.h"

namespace workbench {

namespace {

// Up to the comma or bracket that ends the argument, without quotes.
std::string Argument(const std::string& call, const std::string& name) {
    for (const char* before : {"(", ", "}) {
        const std::string start = before + name + "=";
        std::size_t at = call.find(start);
        if (at == std::string::npos) continue;
        at += start.size();
        const bool quoted = call[at] == '"';
        const std::size_t first = at + (quoted ? 1 : 0);
        return call.substr(first, call.find_first_of(quoted ? "\"" : ",)", first) - first);
    }
    return {};
}

}  // namespace

std::vector<std::string> CallOrder(const std::vector<std::string>& lines,
                                   const std::set<std::string>& operations) {
    std::vector<std::string> order;
    for (const std::string& line : lines) {
        const std::size_t begin = line.find_first_not_of(' ');
        std::string call = line.substr(begin, line.find('(') - begin);
        if (operations.count(call) == 0) continue;
        // An assembly's component is an argument of that name, too.
        const bool ofDialog = call.rfind("ProUI", 0) == 0;
        for (const char* name : {ofDialog ? "component" : "section", "model"}) {
            const std::string about = Argument(line, name);
            if (about.empty()) continue;
            call += ' ' + about;
            break;
        }
        order.push_back(call);
    }
    return order;
}

}  // namespace workbench
