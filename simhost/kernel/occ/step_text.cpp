// Entities of a STEP text by their numbers, and the last of them in a new order.
#include "simhost/kernel/occ/step_text.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <string_view>
#include <vector>

namespace simhost::kernel {

namespace {

constexpr std::string_view kColours = "MECHANICAL_DESIGN_GEOMETRIC_PRESENTATION_REPRESENTATION(";

// Calls `each` with the place and length of every reference "#12" that is outside of quotes.
template <class Each>
void EachReference(std::string_view text, const Each& each) {
    bool quoted = false;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '\'') quoted = !quoted;
        if (quoted || text[at] != '#') continue;
        std::size_t end = at + 1;
        while (end < text.size() && std::isdigit(static_cast<unsigned char>(text[end]))) ++end;
        each(at, end - at);
        at = end - 1;
    }
}

int NumberAt(std::string_view text, std::size_t at, std::size_t length) {
    return std::stoi(std::string(text.substr(at + 1, length - 1)));
}

// The statements of a text, each from its "#" to its ";", and what is after the last one.
std::string_view Split(std::string_view text, std::map<int, std::string_view>* statements) {
    while (text.starts_with('#')) {
        bool quoted = false;
        std::size_t end = 0;
        for (; end < text.size() && (quoted || text[end] != ';'); ++end) {
            if (text[end] == '\'') quoted = !quoted;
        }
        const std::size_t space = text.find(' ');
        (*statements)[NumberAt(text, 0, space)] = text.substr(0, end);
        text.remove_prefix(std::min(end + 2, text.size()));
    }
    return text;
}

class Renumbering {
public:
    explicit Renumbering(const std::map<int, std::string_view>& statements)
        : statements_(statements), next_(statements.begin()->first) {}

    // What it leads to comes right after it.
    void Visit(int number) {
        const auto found = statements_.find(number);
        if (found == statements_.end() || !newNumbers_.try_emplace(number, next_).second) return;
        ++next_;
        order_.push_back(number);
        EachReference(found->second, [&](std::size_t at, std::size_t length) {
            Visit(NumberAt(found->second, at, length));
        });
    }

    std::string Text() const {
        std::string text;
        for (const int number : order_) {
            const std::string_view old = statements_.at(number);
            std::size_t done = 0;
            EachReference(old, [&](std::size_t at, std::size_t length) {
                const auto renumbered = newNumbers_.find(NumberAt(old, at, length));
                if (renumbered == newNumbers_.end()) return;
                text.append(old, done, at + 1 - done);
                text += std::to_string(renumbered->second);
                done = at + length;
            });
            text.append(old, done).append(";\n");
        }
        return text;
    }

private:
    const std::map<int, std::string_view>& statements_;
    std::map<int, int> newNumbers_;
    std::vector<int> order_;
    int next_;
};

// The last reference of the list of a part's colours names the part.
int PartOf(std::string_view statement) {
    int last = 0;
    EachReference(statement, [&](std::size_t at, std::size_t length) {
        last = NumberAt(statement, at, length);
    });
    return last;
}

}  // namespace

std::string WithColoursInOrder(const std::string& text) {
    const std::size_t found = text.find(kColours);
    if (found == std::string::npos) return text;
    const std::size_t begin = text.rfind('#', found);
    std::map<int, std::string_view> statements;
    const std::string_view rest = Split(std::string_view(text).substr(begin), &statements);
    std::vector<std::pair<int, int>> parts;
    for (const auto& [number, statement] : statements) {
        if (statement.find(kColours) != std::string_view::npos) {
            parts.emplace_back(PartOf(statement), number);
        }
    }
    std::sort(parts.begin(), parts.end());
    Renumbering renumbering(statements);
    for (const auto& [part, number] : parts) renumbering.Visit(number);
    for (const auto& [number, statement] : statements) renumbering.Visit(number);
    std::string result = text.substr(0, begin) + renumbering.Text();
    return result.append(rest);
}

}  // namespace simhost::kernel
