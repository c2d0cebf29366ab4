// Reads config.pro, line by line.
#include "simhost/app/config_file.h"

#include <sstream>

#include "simhost/core/text.h"
#include "simhost/trail/lexer.h"

namespace simhost {

ConfigOptions ReadConfigOptions(const std::string& text, const WideText& folder) {
    ConfigOptions options;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (line.ends_with('\r')) line.pop_back();
        std::string value(Trimmed(line));
        if (value.empty() || value.front() == '!') continue;
        const WideText name = Wide(Lower(TakeWord(&value)));
        const bool relative = value.starts_with(".\\");
        options[name].push_back(relative ? folder + Wide(value.substr(1)) : Wide(value));
    }
    return options;
}

}  // namespace simhost
