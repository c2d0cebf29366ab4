// The record of the calls through the door.
#include "simhost/core/journal.h"

#include "simhost/core/operation.h"

namespace simhost {

void Journal::Start() {
    running_ = true;
    Operation::journalling = true;
}

void Journal::Stop() {
    running_ = false;
    Operation::journalling = false;
}

void Journal::Clear() {
    lines_.clear();
    depth_ = 0;
}

std::string Journal::Text() const {
    std::string text;
    for (const std::string& line : lines_) text += line + '\n';
    return text;
}

std::vector<std::string> Journal::Names() const {
    std::vector<std::string> names;
    for (const std::string& line : lines_) {
        const std::size_t start = line.find_first_not_of(' ');
        names.push_back(line.substr(start, line.find('(') - start));
    }
    return names;
}

long Journal::Begin(const char* operation) {
    lines_.push_back(std::string(std::size_t(depth_) * 2, ' ') + operation);
    ++depth_;
    return long(lines_.size()) - 1;
}

void Journal::End(long line, const std::string& arguments, const std::string& result) {
    if (depth_ > 0) --depth_;
    if (line < long(lines_.size())) {
        lines_[std::size_t(line)] += '(' + arguments + ") = " + result;
    }
}

}  // namespace simhost
