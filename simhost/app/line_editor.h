// A line that is edited while it is typed, with its history and the Tab key.
#pragma once

#include <memory>
#include <optional>
#include <string>

namespace simhost {

class LineEditor {
public:
    // Reads the history of former days.
    LineEditor();
    ~LineEditor();
    LineEditor(const LineEditor&) = delete;
    LineEditor& operator=(const LineEditor&) = delete;

    // The line that is typed at this prompt, UTF-8; nothing at the end of input. Ctrl-C gives
    // an empty line. What is not empty joins the history at once.
    std::optional<std::string> ReadLine(const std::string& prompt);

private:
    class Inner;
    std::unique_ptr<Inner> inner_;
};

}  // namespace simhost
