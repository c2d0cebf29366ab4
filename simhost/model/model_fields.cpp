// The kinds of values in model files, each read and written in one way wherever it is.
#include "simhost/model/model_fields.h"

#include <array>
#include <climits>
#include <cmath>

#include "simhost/core/text.h"

namespace simhost::model_text {

void ReadValue(const toml::node& node, const char* key, bool* value) {
    if (!node.is_boolean()) Fail(node.source(), Quoted(key) + " must be true or false");
    *value = node.as_boolean()->get();
}

void ReadValue(const toml::node& node, const char* key, int* value) {
    *value = Integer(node, key, INT_MIN);
}

void ReadValue(const toml::node& node, const char* key, double* value) {
    *value = Measure(node, key);
}

void ReadValue(const toml::node& node, const char* key, std::string* value) {
    *value = Text(node, key);
}

void ReadValue(const toml::node& node, const char* key, WideText* value) {
    *value = Wide(Text(node, key));
}

void ReadValue(const toml::node& node, const char* key, Vec3* value) {
    std::array<double, 3> v{};
    Numbers(node, key, v.data(), v.size());
    *value = {v[0], v[1], v[2]};
}

void ReadValue(const toml::node& node, const char* key, std::vector<int>* value) {
    if (!node.is_array()) Fail(node.source(), Quoted(key) + " must be a list of whole numbers");
    value->clear();
    for (const toml::node& one : *node.as_array()) value->push_back(Integer(one, key, INT_MIN));
}

void ReadValue(const toml::node& node, const char* key, std::vector<WideText>* value) {
    if (!node.is_array()) Fail(node.source(), Quoted(key) + " must be a list of texts");
    value->clear();
    for (const toml::node& one : *node.as_array()) value->push_back(Wide(Text(one, key)));
}

void ReadValue(const toml::node& node, const char* key,
               std::optional<std::vector<WideText>>* value) {
    ReadValue(node, key, &value->emplace());
}

std::string TextOf(bool value) {
    return value ? "true" : "false";
}

std::string TextOf(int value) {
    return std::to_string(value);
}

std::string TextOf(double value) {
    return NumberText(value);
}

std::string TextOf(const std::string& value) {
    return TextText(value);
}

std::string TextOf(const WideText& value) {
    return TextText(Utf8(value));
}

std::string TextOf(const Vec3& value) {
    return ListText({value.x, value.y, value.z});
}

std::string TextOf(const std::vector<int>& value) {
    std::string list;
    for (const int one : value) list += (list.empty() ? "" : ", ") + TextOf(one);
    return '[' + list + ']';
}

std::string TextOf(const std::vector<WideText>& value) {
    std::string list;
    for (const WideText& one : value) list += (list.empty() ? "" : ", ") + TextOf(one);
    return '[' + list + ']';
}

std::string TextOf(const std::optional<std::vector<WideText>>& value) {
    return TextOf(value.value_or(std::vector<WideText>()));
}

Vec3 TidyTurnOf(const Placement& frame) {
    const auto tidy = [](double degrees) { return std::round(degrees * 1e10) / 1e10; };
    const Vec3 turn = TurnOf(frame);
    return {tidy(turn.x), tidy(turn.y), tidy(turn.z)};
}

}  // namespace simhost::model_text
