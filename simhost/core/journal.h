// The record of every call through the door, one line each: operation, arguments, result. Calls
// that the host makes into the plug-in while an operation runs are indented below it.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

namespace simhost {

class Journal {
public:
    Journal();
    ~Journal();

    // Keeps the lines, for lines(), Text() and Names().
    void Start();
    // Writes the lines to a file as the calls end, and keeps none. A call during which others are
    // made has two: its name and "..." before them, the whole line, which begins with "... ", after
    // them. Throws std::runtime_error with the path and the reason if the file cannot be written.
    void StartFile(const std::string& path);
    // Ends either; throws as StartFile does if a file could not be written to its end.
    void Stop();
    void Clear();
    bool running() const { return running_; }

    // The lines so far, such as "ProMdlTypeGet(model=gearbox.asm, type=1) = 0".
    const std::vector<std::string>& lines() const { return lines_; }
    std::string Text() const;

    // Only the names of the operations, for tests of an order.
    std::vector<std::string> Names() const;

    // How many elements of a list a line shows.
    std::size_t mostListed() const { return path_.empty() ? std::size_t(-1) : 50; }

    // For Operation: reserves the line of a call that begins, and fills it when the call ends.
    long Begin(const char* operation);
    void End(long line, const std::string& arguments, const std::string& result);

private:
    struct OpenCall {
        const char* operation;
        bool announced = false;
    };
    void NoteError();
    void EndInFile(const std::string& arguments, const std::string& result);

    std::vector<std::string> lines_;
    int depth_ = 0;
    bool running_ = false;
    std::string path_;  // empty: no file
    std::unique_ptr<std::ofstream> file_;
    int error_ = 0;               // the first one of the file
    std::vector<OpenCall> open_;  // calls that have not ended, for the file
};

}  // namespace simhost
