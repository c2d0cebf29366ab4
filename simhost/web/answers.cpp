// The table of what can be asked.
#include "simhost/web/answers.h"

#include <nlohmann/json.hpp>

#include <charconv>

namespace simhost {

std::string Query::Text(const std::string& name) const {
    const auto found = values.find(name);
    return found == values.end() ? std::string() : found->second;
}

std::size_t Query::Number(const std::string& name, std::size_t byDefault) const {
    const std::string text = Text(name);
    std::size_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? number : byDefault;
}

Reply Refused(int status, const std::string& why) {
    return {status, Reply().type, nlohmann::json{{"problem", why}}.dump(), {}};
}

const std::vector<Answer>& Answers() {
    static const std::vector<Answer> answers = {
        {"/state", StateNow},          // what the user can do now
        {"/tree", TreeNow},            // the components of the current model
        {"/scene", SceneNow},          // what the window shows of them
        {"/files", FilesNow},          // what lies on the drive
        {"/file", OneFile},            // one of them
        {"/recording", RecordingNow},  // what was done, as a script
        {"/faults", FaultsNow},        // what the host complained of
        {"/journal", JournalNow},      // calls through the door
        {"/sheet", SheetNow},          // a sheet of a drawing
        {"/dialog", DialogNow},        // the open dialog as a form
        {"/rows", RowsNow},            // rows of a table in it
        {"/model", ModelFacts},        // parameters and relations of a model
    };
    return answers;
}

}  // namespace simhost
