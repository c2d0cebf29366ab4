// The grammar that all model files share, for reading and writing: what is there must be of the
// right kind, and nothing else may be there; whoever mistypes something learns in which file and
// line.
#pragma once

#include <functional>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "simhost/model/model.h"
#include "simhost/model/toml.h"

namespace simhost::model_text {

// "part", "assembly" and so on, and back (PRO_MDL_UNUSED for any other word).
const char* WordOfModelType(ProMdlType type);
ProMdlType ModelTypeOfWord(std::string_view word);

using Keys = std::vector<std::string_view>;

// Throws ModelFileError with the place in the file.
[[noreturn]] void Fail(const toml::source_region& where, const std::string& what);
std::string Quoted(std::string_view word);

// --- Reading; all fail by Fail ---

inline constexpr double kLargestMeasure = 1e30;

void Allow(const toml::table& table, const Keys& keys);
void OnlyIn(const Model& model, ProMdlType type, const toml::node* node, std::string_view key);
const toml::node& Require(const toml::table& table, std::string_view key);
const toml::table* Table(const toml::table& table, std::string_view key);  // null: not there
double NumberOf(const toml::node& node, std::string_view key);
// A length, an angle, a scale: what is multiplied with its like and must not overflow then.
double Measure(const toml::node& node, std::string_view key);
int Integer(const toml::node& node, std::string_view key, int least);
std::string Text(const toml::node& node, std::string_view key);
void Numbers(const toml::node& node, std::string_view key, double* values, std::size_t count);
// Which of the words it is.
std::size_t PlaceOfWord(const toml::node& node, std::string_view key,
                        std::span<const char* const> words);

// Reads a file that is one table [key] and nothing else. Throws ModelFileError.
void ReadOnlyTable(const std::string& text, const std::string& fileName, const char* key,
                   const std::function<void(const toml::table& table)>& read);

// Calls `each` with every table of a list [[key]].
template <class Each>
void EachTable(const toml::table& root, std::string_view key, Each each) {
    const toml::node* node = root.get(key);
    if (!node) return;
    const std::string name(key);
    const std::string what = Quoted(key) + " must be a list of tables: [[" + name + "]]";
    if (!node->is_array()) Fail(node->source(), what);
    for (const toml::node& one : *node->as_array()) {
        if (!one.is_table()) Fail(one.source(), what);
        each(*one.as_table());
    }
}

// --- Writing ---

// The shortest text that reads back as the same number.
std::string NumberText(double value);
std::string ListText(std::initializer_list<double> values);
std::string TextText(std::string_view text);
void Line(std::string* text, const char* key, const std::string& value);

}  // namespace simhost::model_text
