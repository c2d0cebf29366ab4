// The record of every call through the door, one line each: operation, arguments, result. Calls
// that the host makes into the plug-in while an operation runs are indented below it.
#pragma once

#include <string>
#include <vector>

namespace simhost {

class Journal {
public:
    void Start();
    void Stop();
    void Clear();
    bool running() const { return running_; }

    // The lines so far, such as "ProMdlTypeGet(model=gearbox.asm, type=1) = 0".
    const std::vector<std::string>& lines() const { return lines_; }
    std::string Text() const;

    // Only the names of the operations, for tests of an order.
    std::vector<std::string> Names() const;

    // For Operation: reserves the line of a call that begins, and fills it when the call ends.
    long Begin(const char* operation);
    void End(long line, const std::string& arguments, const std::string& result);

private:
    std::vector<std::string> lines_;
    int depth_ = 0;
    bool running_ = false;
};

}  // namespace simhost
