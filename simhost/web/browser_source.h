// The lines of a trail as somebody clicks them in a browser.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "simhost/trail/source.h"
#include "simhost/web/board.h"

namespace simhost {

class BrowserSource : public Source {
public:
    // `first` comes before what the browser sends: what is replayed.
    BrowserSource(Board& board, std::vector<std::string> first)
        : board_(board), first_(std::move(first)) {}
    std::optional<std::string> Next(const std::string& waiting) override;
    bool patient() const override { return true; }
    bool takesPlainWords() const override { return true; }
    // Called when the last line of `first` has been done.
    std::function<void()> replayed;

private:
    std::optional<std::string> Shown(std::optional<std::string> line);

    Board& board_;
    std::vector<std::string> first_;
    std::size_t at_ = 0;
};

}  // namespace simhost
