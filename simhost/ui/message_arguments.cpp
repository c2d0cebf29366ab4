// The arguments of a message's text: %0w for wide text and so on, numbered from 0 in the order of
// the call, so that a translation can use them in another order.
#include <cstdio>
#include <map>
#include <vector>

#include "simhost/core/text.h"
#include "simhost/ui/messages.h"

namespace simhost {
namespace {

// One place of the text where an argument goes.
struct Place {
    std::size_t at = 0, length = 0;
    int argument = 0;
    int width = 0, places = -1;
    char kind = 0;
};

bool IsDigit(WideChar c) {
    return c >= WIDE('0') && c <= WIDE('9');
}

// No number of a message text needs more digits; the rest would overflow.
constexpr int kMostNumber = 999;

int ReadNumber(WideView text, std::size_t* at) {
    int number = 0;
    for (; *at < text.size() && IsDigit(text[*at]); ++*at) {
        if (number <= kMostNumber) number = number * 10 + (text[*at] - WIDE('0'));
    }
    return number < kMostNumber ? number : kMostNumber;
}

// A place begins at `at` ('%'); false if what follows is no argument but plain text.
bool ReadPlace(WideView text, std::size_t at, Place* place) {
    std::size_t next = at + 1;
    if (next >= text.size() || !IsDigit(text[next])) return false;
    place->at = at;
    place->argument = ReadNumber(text, &next);
    if (next < text.size() && text[next] == WIDE('(')) {
        ++next;
        place->width = ReadNumber(text, &next);
        if (next < text.size() && text[next] == WIDE('.')) {
            ++next;
            place->places = ReadNumber(text, &next);
        }
        if (next >= text.size() || text[next] != WIDE(')')) return false;
        ++next;
    }
    if (next >= text.size()) return false;
    constexpr WideView kKinds = WIDE("wsdfeg");
    if (kKinds.find(text[next]) == WideView::npos) return false;
    place->kind = static_cast<char>(text[next]);
    place->length = next + 1 - at;
    return true;
}

WideText Real(const Place& place, double value) {
    const char format[] = {'%', '*', '.', '*', place.kind, '\0'};
    char buffer[512];
    std::snprintf(buffer, sizeof buffer, format, place.width, place.places < 0 ? 6 : place.places,
                  value);
    return Wide(buffer);
}

// The next argument of the call as text. Only here is its real type known.
WideText Take(const Place& place, std::va_list* arguments) {
    switch (place.kind) {
        case 'w': {
            const WideChar* text = va_arg(*arguments, WideChar*);
            return text ? WideText(text) : WideText();
        }
        case 's': {
            const char* text = va_arg(*arguments, char*);
            return text ? FromSystemCodePage(text) : WideText();
        }
        case 'd': {
            char buffer[1024];
            std::snprintf(buffer, sizeof buffer, "%*d", place.width, va_arg(*arguments, int));
            return Wide(buffer);
        }
        default: return Real(place, va_arg(*arguments, double));
    }
}

}  // namespace

std::optional<WideText> Messages::Fill(WideView text, std::va_list arguments) {
    std::vector<Place> places;
    std::map<int, Place> byArgument;
    for (std::size_t at = text.find(WIDE('%')); at != WideView::npos;
         at = text.find(WIDE('%'), at + 1)) {
        Place place;
        if (!ReadPlace(text, at, &place)) continue;
        places.push_back(place);
        byArgument.emplace(place.argument, place);
    }
    std::va_list left;
    va_copy(left, arguments);
    std::vector<WideText> values;
    bool complete = true;
    for (const auto& [number, place] : byArgument) {
        complete = number == static_cast<int>(values.size());
        if (!complete) break;
        values.push_back(Take(place, &left));
    }
    va_end(left);
    if (!complete) return std::nullopt;

    WideText filled;
    std::size_t from = 0;
    for (const Place& place : places) {
        filled.append(text.substr(from, place.at - from));
        filled += values[static_cast<std::size_t>(place.argument)];
        from = place.at + place.length;
    }
    return filled.append(text.substr(from));
}

}  // namespace simhost
