// Where the lines of a trail come from: a text, a file, or somebody at a terminal.
#pragma once

#include <optional>
#include <string>

namespace simhost {

class Source {
public:
    virtual ~Source() = default;

    // The next line without its end; nothing when there are no more. `waiting` says what waits for
    // it: "vx" (nothing special), "box", "dialog NAME", "answer", "pick",
    // "popup".
    virtual std::optional<std::string> Next(const std::string& waiting) = 0;

    // How failures name the source: "story.trl", or empty.
    virtual std::string name() const { return {}; }
    // Somebody is there to be asked again after a line that does not fit. A script is not.
    virtual bool patient() const { return false; }
    // The @ and the ~ Command may be left out.
    virtual bool takesPlainWords() const { return false; }
};

class TextSource : public Source {
public:
    explicit TextSource(std::string text, std::string name = {});
    std::optional<std::string> Next(const std::string& waiting) override;
    std::string name() const override { return name_; }

private:
    std::string text_, name_;
    std::size_t at_ = 0;
};

// The whole of a file as a source; nothing if it cannot be read. A path of this system, UTF-8.
// Throws std::runtime_error if what it holds is no UTF-8 text.
std::optional<TextSource> FileSource(const std::string& path);

}  // namespace simhost
