// The plug-in's message files, and the message line with its prompt.
#pragma once

#include <cstdarg>
#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "hostapi/wide.h"
#include "simhost/user/desk.h"

namespace simhost {

class Messages {
public:
    // Files lie in \text below `textFolder`, as it is when they are asked for.
    Messages(Desk& desk, const Disk& disk, const WideText& textFolder)
        : desk_(desk), disk_(disk), textFolder_(textFolder) {}

    // The text of a key as the user shall see it (the translation, or the original where that is
    // missing), with its arguments not yet put in. Nothing for an unknown key or file.
    std::optional<WideText> Find(WideView file, WideView key);

    // The text of a label's key; the key itself where it is unknown, as the host shows it.
    WideText Label(WideView file, WideView key);
    // The same before its translation, for whoever reads English.
    WideText OriginalLabel(WideView file, WideView key);

    // Puts the arguments in for %0w (wide), %0s (narrow), %0d and %0f, %0e, %0g; %0(8.3)f has a
    // width and a number of places. Nothing if the numbers leave one out.
    static std::optional<WideText> Fill(WideView text, std::va_list arguments);

    // Shows a text on the message line. What follows ||| is the prompt's default.
    void Display(const WideText& text);

    // Waits for a typed line; nothing if the user left the prompt.
    std::optional<WideText> Read();

    const WideText& last() const { return last_; }
    const WideText& lastDefault() const { return lastDefault_; }

private:
    struct File {
        std::filesystem::file_time_type written;
        std::uintmax_t size = 0;
        struct Text {
            WideText original, shown;
        };
        std::map<WideText, Text, std::less<>> texts;
    };
    const File* Load(WideView file);

    Desk& desk_;
    const Disk& disk_;
    const WideText& textFolder_;
    std::map<std::filesystem::path, File> files_;
    WideText last_, lastDefault_;
};

}  // namespace simhost
