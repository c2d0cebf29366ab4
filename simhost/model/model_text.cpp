// Reading and writing of the values that all model files share.
#include "simhost/model/model_text.h"

#include <algorithm>
#include <charconv>
#include <climits>
#include <cmath>

#include "simhost/model/model_file_error.h"

namespace simhost::model_text {

using std::string_view;

namespace {

struct TypeWord {
    const char* word;
    ProMdlType type;
};
constexpr TypeWord kTypes[] = {
    {"part", PRO_MDL_PART},       {"assembly", PRO_MDL_ASSEMBLY}, {"manufacturing", PRO_MDL_MFG},
    {"drawing", PRO_MDL_DRAWING}, {"format", PRO_MDL_DWGFORM},
};

}  // namespace

const char* WordOfModelType(ProMdlType type) {
    for (const TypeWord& row : kTypes) {
        if (row.type == type) return row.word;
    }
    return "";
}

ProMdlType ModelTypeOfWord(string_view word) {
    for (const TypeWord& row : kTypes) {
        if (row.word == word) return row.type;
    }
    return PRO_MDL_UNUSED;
}

void Fail(const toml::source_region& where, const std::string& what) {
    const std::string file = where.path ? *where.path : std::string("model");
    throw ModelFileError(file + ':' + std::to_string(where.begin.line) + ": " + what);
}

std::string Quoted(string_view word) {
    return '"' + std::string(word) + '"';
}

void Allow(const toml::table& table, const Keys& keys) {
    for (const auto& [key, value] : table) {
        if (std::find(keys.begin(), keys.end(), key.str()) != keys.end()) continue;
        Fail(key.source(), "unknown key " + Quoted(key.str()));
    }
}

void OnlyIn(const Model& model, ProMdlType type, const toml::node* node, string_view key) {
    if (!node || model.type == type) return;
    Fail(node->source(),
         Quoted(key) + " belongs only in a model of type " + Quoted(WordOfModelType(type)));
}

const toml::node& Require(const toml::table& table, string_view key) {
    const toml::node* node = table.get(key);
    if (!node) Fail(table.source(), Quoted(key) + " is missing");
    return *node;
}

const toml::table* Table(const toml::table& table, string_view key) {
    const toml::node* node = table.get(key);
    if (!node) return nullptr;
    if (!node->is_table()) {
        Fail(node->source(), Quoted(key) + " must be a table: [" + std::string(key) + "]");
    }
    return node->as_table();
}

double NumberOf(const toml::node& node, string_view key) {
    const auto number = node.is_number() ? node.value<double>() : std::nullopt;
    if (!number || !std::isfinite(*number)) {
        Fail(node.source(), Quoted(key) + " must be a number");
    }
    return *number;
}

int Integer(const toml::node& node, string_view key, int least) {
    const auto* whole = node.as_integer();
    if (!whole || whole->get() < least || whole->get() > INT_MAX) {
        Fail(node.source(), Quoted(key) + " must be a whole number" +
                                (least > INT_MIN ? ", at least " + std::to_string(least) : ""));
    }
    return int(whole->get());
}

std::string Text(const toml::node& node, string_view key) {
    if (!node.is_string()) Fail(node.source(), Quoted(key) + " must be a text in quotes");
    return node.as_string()->get();
}

void Numbers(const toml::node& node, string_view key, double* values, std::size_t count) {
    const toml::array* list = node.as_array();
    if (!list || list->size() != count) {
        Fail(node.source(),
             Quoted(key) + " must be a list of " + std::to_string(count) + " numbers");
    }
    for (std::size_t i = 0; i < count; ++i) values[i] = Measure(*list->get(i), key);
}

double Measure(const toml::node& node, string_view key) {
    const double value = NumberOf(node, key);
    if (std::fabs(value) > kLargestMeasure) {
        Fail(node.source(), Quoted(key) + " must be between -1e30 and 1e30");
    }
    return value;
}

std::size_t PlaceOfWord(const toml::node& node, string_view key,
                        std::span<const char* const> words) {
    const std::string word = Text(node, key);
    const auto found = std::find(words.begin(), words.end(), word);
    if (found != words.end()) return std::size_t(found - words.begin());
    std::string all;
    for (const char* one : words) all += (all.empty() ? "" : ", ") + Quoted(one);
    Fail(node.source(), Quoted(key) + " must be one of " + all);
}

void ReadOnlyTable(const std::string& text, const std::string& fileName, const char* key,
                   const std::function<void(const toml::table& table)>& read) {
    try {
        const auto root = toml::parse(string_view(text), string_view(fileName));
        Allow(root, {key});
        const toml::table* table = Table(root, key);
        if (!table) throw ModelFileError(fileName + ":1: the table [" + key + "] is missing");
        read(*table);
    } catch (const toml::parse_error& error) {
        Fail(error.source(), std::string(error.description()));
    }
}

// --- Writing ---

std::string NumberText(double value) {
    if (value == 0) return "0";
    char buffer[40];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
    std::string text(buffer, end);
    // Digits alone are a whole number in the format, and those end at 64 bits.
    if (std::fabs(value) >= 1e15 && text.find_first_of(".e") == std::string::npos) text += ".0";
    return text;
}

std::string ListText(std::initializer_list<double> values) {
    std::string text;
    for (const double value : values) text += (text.empty() ? "[" : ", ") + NumberText(value);
    return text + ']';
}

std::string TextText(string_view text) {
    std::string result = "\"";
    for (const char c : text) {
        const auto code = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            result += '\\';
            result += c;
        } else if (code < 0x20 || code == 0x7f) {
            constexpr char kDigits[] = "0123456789ABCDEF";
            result += "\\u00";
            result += kDigits[code >> 4];
            result += kDigits[code & 15];
        } else {
            result += c;
        }
    }
    return result + '"';
}

void Line(std::string* text, const char* key, const std::string& value) {
    *text += key;
    *text += " = ";
    *text += value;
    *text += '\n';
}

}  // namespace simhost::model_text
