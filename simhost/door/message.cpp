// The door's operations on message files, the message line and the two forms of text.
#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdarg>
#include <cstring>
#include <string>

#include "hostapi/host.h"
#include "simhost/core/text.h"
#include "simhost/door/door.h"

using namespace simhost;

namespace {

// The text of a key with its arguments put in.
WideText Filled(WideChar* file, char* key, std::va_list arguments) {
    Need(file, "the message file");
    Need(key, "the message's key");
    const auto text = TheHost().messages.Find(file, FromSystemCodePage(key));
    if (!text) Refuse(PRO_TK_MSG_NOT_FOUND);
    const auto filled = Messages::Fill(*text, arguments);
    if (!filled) Refuse(PRO_TK_MSG_FMT_ERROR);
    return *filled;
}

// A number as a user types it: blanks around it do not matter, and nothing else may be there.
std::optional<double> NumberIn(std::string text) {
    const std::size_t from = text.find_first_not_of(' ');
    if (from == std::string::npos) return std::nullopt;
    text = text.substr(from, text.find_last_not_of(' ') + 1 - from);
    double value = 0;
    const char* end = text.data() + text.size();
    const auto [parsed, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || parsed != end || !std::isfinite(value)) return std::nullopt;
    return value;
}

}  // namespace

ProError ProMessageToBuffer(WideChar* buffer, WideChar* messageFile, char* key, ...) {
    std::va_list arguments;
    va_start(arguments, key);
    const ProError status = Op<"ProMessageToBuffer">.Call(
        [&] { CopyCut(Filled(messageFile, key, arguments), buffer, PRO_LINE_SIZE); }, OUT(buffer),
        ARG(messageFile), ARG(key));
    va_end(arguments);
    return status;
}

ProError ProMessageDisplay(WideChar* messageFile, char* key, ...) {
    std::va_list arguments;
    va_start(arguments, key);
    const ProError status = Op<"ProMessageDisplay">.Call(
        [&] { TheHost().messages.Display(Filled(messageFile, key, arguments)); }, ARG(messageFile),
        ARG(key));
    va_end(arguments);
    return status;
}

ProError ProMessageStringRead(int size, WideChar* text) {
    return Op<"ProMessageStringRead">.Call(
        [&] {
            if (size < 1) Refuse(PRO_TK_BAD_INPUTS);
            auto answer = TheHost().messages.Read();
            if (!answer) Refuse(PRO_TK_MSG_USER_QUIT);
            const auto most = static_cast<std::size_t>(size);
            if (answer->size() > most) {
                answer->resize(most);
                TheHost().Tell(
                    fmt::format("the answer is cut to {} characters: {}", size, Utf8(*answer)));
            }
            CopyCut(*answer, text, most + 1);
        },
        ARG(size), OUT(text));
}

ProError ProMessageDoubleRead(double range[2], double* value) {
    const std::string within = range ? fmt::format("{} to {}", range[0], range[1]) : "any";
    return Op<"ProMessageDoubleRead">.Call(
        [&] {
            for (;;) {
                const auto answer = TheHost().messages.Read();
                if (!answer) Refuse(PRO_TK_MSG_USER_QUIT);
                if (answer->empty()) Refuse(PRO_TK_GENERAL_ERROR);
                const auto number = NumberIn(Utf8(*answer));
                const bool fits =
                    number && (!range || (*number >= range[0] && *number <= range[1]));
                if (fits) {
                    *value = *number;
                    return;
                }
                TheHost().Tell(fmt::format("{} is no number that is asked for", Utf8(*answer)));
            }
        },
        "range", within.c_str(), OUT_NUMBER(value));
}

WideChar* ProStringToWstring(WideChar* wide, char* narrow) {
    return Op<"ProStringToWstring">.CallOr(
        [&](int) {
            if (wide) *wide = 0;
            return static_cast<WideChar*>(nullptr);
        },
        [&] {
            Need(wide, "the buffer");
            const WideText text = FromSystemCodePage(narrow);
            std::copy_n(text.c_str(), text.size() + 1, wide);
            return wide;
        },
        GIVEN(narrow));
}

char* ProWstringToString(char* narrow, WideChar* wide) {
    return Op<"ProWstringToString">.CallOr(
        [&](int) {
            if (narrow) *narrow = 0;
            return static_cast<char*>(nullptr);
        },
        [&] {
            Need(narrow, "the buffer");
            const std::string text = ToSystemCodePage(wide);
            std::copy_n(text.c_str(), text.size() + 1, narrow);
            return narrow;
        },
        GIVEN(wide));
}
