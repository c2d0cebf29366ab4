// The record of the calls through the door.
#include "simhost/core/journal.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <stdexcept>
#include <utility>

#include "simhost/core/operation.h"

namespace simhost {

namespace {

[[noreturn]] void CannotWrite(const std::string& path, int error) {
    throw std::runtime_error("cannot write the journal " + path + ": " + std::strerror(error));
}

std::string Indent(std::size_t depth) {
    return std::string(depth * 2, ' ');
}

}  // namespace

Journal::Journal() : file_(std::make_unique<std::ofstream>()) {}
Journal::~Journal() = default;

void Journal::Start() {
    running_ = true;
    Operation::journalling = true;
}

void Journal::StartFile(const std::string& path) {
    errno = 0;
    file_->open(path);
    if (!*file_) CannotWrite(path, errno);
    path_ = path;
    Start();
}

void Journal::Stop() {
    running_ = false;
    Operation::journalling = false;
    if (path_.empty()) return;
    const std::string path = std::exchange(path_, {});
    open_.clear();
    file_->close();
    NoteError();
    if (const int error = std::exchange(error_, 0)) CannotWrite(path, error);
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
    if (path_.empty()) {
        lines_.push_back(Indent(std::size_t(depth_)) + operation);
        ++depth_;
        return long(lines_.size()) - 1;
    }
    if (!open_.empty() && !open_.back().announced) {
        open_.back().announced = true;
        *file_ << Indent(open_.size() - 1) << open_.back().operation << " ...\n";
    }
    open_.push_back({operation});
    return 0;
}

void Journal::EndInFile(const std::string& arguments, const std::string& result) {
    if (open_.empty()) return;
    const OpenCall call = open_.back();
    open_.pop_back();
    *file_ << Indent(open_.size()) << (call.announced ? "... " : "") << call.operation << '('
           << arguments << ") = " << result << '\n';
    NoteError();
}

void Journal::NoteError() {
    if (!*file_ && error_ == 0) error_ = errno;
}

void Journal::End(long line, const std::string& arguments, const std::string& result) {
    if (!path_.empty()) return EndInFile(arguments, result);
    if (depth_ > 0) --depth_;
    if (line < long(lines_.size())) {
        lines_[std::size_t(line)] += '(' + arguments + ") = " + result;
    }
}

}  // namespace simhost
