// The door's operations on message files, the message line and the two forms of text.
#include <fmt/format.h>

#include <algorithm>
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
