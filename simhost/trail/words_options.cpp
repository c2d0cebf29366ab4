// The @ words about the options of the host, which can have several values.
#include <fmt/format.h>

#include <algorithm>

#include "simhost/core/text.h"
#include "simhost/trail/interpreter.h"
#include "simhost/trail/known_names.h"
#include "simhost/trail/words.h"
#include "simhost/ui/near_name.h"
#include "simhost/ui/text_frame.h"

namespace simhost {
namespace {

// Takes the name of an option off the text; empty after a failure.
WideText TakeOption(Trail& trail, std::string* text) {
    const std::string name = TakeWord(text);
    if (name.empty()) {
        trail.Fail("an option is NAME VALUE; \"\" is the empty text, and none no value at all");
        return {};
    }
    const auto& known = OptionNames();
    if (std::find(known.begin(), known.end(), Lower(name)) == known.end()) {
        trail.Fail(fmt::format("the host has no option {}{}", name, DidYouMean(name, known)));
        return {};
    }
    return Wide(Lower(name));
}

// A value as it is typed, or several with | between them; a text in quotes is one value.
std::vector<WideText> ValuesOf(const std::string& written) {
    const TextArgument whole = ParseText(written);
    if (whole.quoted) return {Wide(whole.text)};
    std::vector<WideText> values;
    for (std::size_t from = 0; from <= written.size();) {
        const std::size_t stroke = std::min(written.find('|', from), written.size());
        values.push_back(Wide(std::string(Trimmed(written.substr(from, stroke - from)))));
        from = stroke + 1;
    }
    return values;
}

bool IsNone(const std::string& written) {
    const TextArgument value = ParseText(written);
    return !value.quoted && value.text == "none";
}

std::string Written(const std::vector<WideText>& values) {
    std::string text;
    for (const WideText& value : values) {
        text += (text.empty() ? "" : " | ") + (value.empty() ? "\"\"" : Utf8(value));
    }
    return text;
}

}  // namespace

void SetOption(Trail& trail, const std::string& rest) {
    std::string left = rest;
    const WideText option = TakeOption(trail, &left);
    if (option.empty()) return;
    if (left.empty()) {
        return trail.Fail(fmt::format(
            "a value belongs after option {}; \"\" is the empty text, and none no value at all",
            Utf8(option)));
    }
    if (IsNone(left)) {
        TheHost().configOptions.erase(option);
    } else {
        TheHost().configOptions[option] = ValuesOf(left);
    }
}

void ExpectOption(Trail& trail, const std::string& rest) {
    std::string left = rest;
    const WideText option = TakeOption(trail, &left);
    if (option.empty()) return;
    const ConfigOptions& options = TheHost().configOptions;
    const auto found = options.find(option);
    if (found == options.end()) {
        if (!IsNone(left)) trail.Fail(fmt::format("{} is not set", Utf8(option)));
    } else if (IsNone(left) || found->second != ValuesOf(left)) {
        trail.Fail(fmt::format("{} is {}", Utf8(option), Written(found->second)));
    }
}

void ShowOptions(Trail& trail) {
    for (const auto& [name, values] : TheHost().configOptions) {
        trail.Say(fmt::format("{} {}", Padded(Utf8(name), 24), Written(values)));
    }
    trail.Say(fmt::format("{} options are set", TheHost().configOptions.size()));
}

}  // namespace simhost
