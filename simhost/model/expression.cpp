// Arithmetic by recursive descent: a sum is made of products, a product of factors.
#include "simhost/model/expression.h"

#include <fmt/format.h>

#include <charconv>

namespace simhost {

namespace {

constexpr int kDeepest = 100;  // parentheses and signs within each other

class Reader {
public:
    Reader(std::string_view text, const NamedNumbers& names) : text_(text), names_(names) {}

    double Whole() {
        const double value = Sum();
        if (at_ < text_.size()) Fail(fmt::format("\"{}\" is too much", text_.substr(at_)));
        return value;
    }

private:
    [[noreturn]] void Fail(const std::string& what) const {
        throw ExpressionError(fmt::format("{} in \"{}\"", what, text_));
    }

    void PassBlanks() {
        while (at_ < text_.size() && text_[at_] == ' ') ++at_;
    }
    bool Take(char wanted) {
        PassBlanks();
        if (at_ >= text_.size() || text_[at_] != wanted) return false;
        ++at_;
        PassBlanks();
        return true;
    }

    double Sum() {
        double value = Product();
        for (;;) {
            if (Take('+')) {
                value += Product();
            } else if (Take('-')) {
                value -= Product();
            } else {
                return value;
            }
        }
    }

    double Product() {
        double value = Factor();
        for (;;) {
            if (Take('*')) {
                value *= Factor();
            } else if (Take('/')) {
                const double divisor = Factor();
                if (divisor == 0) Fail("a division by 0");
                value /= divisor;
            } else {
                return value;
            }
        }
    }

    double Factor() {
        if (++depth_ > kDeepest) Fail("too many parentheses");
        double value = 0;
        if (Take('-')) {
            value = -Factor();
        } else if (Take('(')) {
            value = Sum();
            if (!Take(')')) Fail("a \")\" is missing");
        } else {
            value = NumberOrName();
        }
        --depth_;
        return value;
    }

    double NumberOrName() {
        PassBlanks();
        if (at_ < text_.size() && (IsDigit(text_[at_]) || text_[at_] == '.')) return Number();
        const std::size_t start = at_;
        while (at_ < text_.size() && IsOfName(text_[at_])) ++at_;
        const std::string_view name = text_.substr(start, at_ - start);
        if (name.empty()) Fail("a number or a name is missing");
        const auto found = names_.find(name);
        if (found == names_.end()) Fail(fmt::format("the unknown name {}", name));
        return found->second;
    }

    double Number() {
        double value = 0;
        const char* end = text_.data() + text_.size();
        const auto [after, error] = std::from_chars(text_.data() + at_, end, value);
        if (error != std::errc()) Fail(fmt::format("\"{}\" is no number", text_.substr(at_)));
        at_ = std::size_t(after - text_.data());
        return value;
    }

    static bool IsDigit(char c) { return c >= '0' && c <= '9'; }
    static bool IsOfName(char c) {
        return IsDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
    }

    std::string_view text_;
    const NamedNumbers& names_;
    std::size_t at_ = 0;
    int depth_ = 0;
};

}  // namespace

double Evaluate(std::string_view text, const NamedNumbers& names) {
    return Reader(text, names).Whole();
}

}  // namespace simhost
