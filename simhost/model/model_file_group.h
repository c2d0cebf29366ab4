// Groups as text: in files of their own, and as features in the file of a part.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "simhost/model/group.h"
#include "simhost/model/model_fields.h"

namespace simhost {

// The text of a solid of a group, one line for each key; `number` gives the text of what is in the
// place of a number. Throws ModelFileError.
using GroupNumber = std::function<std::string(const toml::node& node, std::string_view key)>;
std::string GroupSolidText(const toml::table& solid, const GroupNumber& number);

// The keys of features that are groups or merges. Throws ModelFileError.
extern const model_text::Keys kSolidFeatureKeys;
void ReadSolidFeature(const toml::table& table, Feature* feature);
void AddSolidFeature(std::string* text, const Feature& feature);

}  // namespace simhost
