// Text between the plug-in and the host.
#include "frame/services/text.h"

#include <charconv>
#include <cstring>

#include "hostapi/host.h"

WideText Widen(const char* narrow) {
    if (!narrow) return {};
    // No code page takes less than one byte for a wide character.
    WideText wide(std::strlen(narrow) + 1, WideChar{});
    ProStringToWstring(wide.data(), HostText(narrow));
    return wide.c_str();
}

std::string Narrow(const WideText& wide) {
    // No code page takes more than four bytes for one.
    std::string narrow(wide.size() * 4 + 1, '\0');
    ProWstringToString(narrow.data(), HostText(wide));
    return narrow.c_str();
}

WideText DeleteBlanks(WideText text) {
    std::erase(text, WideChar{' '});
    return text;
}

WideText ReplaceAll(WideText text, WideView part, WideView by) {
    for (std::size_t at = text.find(part); at != WideText::npos;
         at = text.find(part, at + by.size())) {
        text.replace(at, part.size(), by);
    }
    return text;
}

WideText FoldCase(WideView text) {
    WideText folded(text);
    for (WideChar& c : folded) {
        if (c >= 'a' && c <= 'z') c = WideChar(c - ('a' - 'A'));
    }
    return folded;
}

WideText Digits(int number) {
    char narrow[12];
    const char* const end = std::to_chars(narrow, narrow + sizeof narrow, number).ptr;
    return WideText(static_cast<const char*>(narrow), end);
}
