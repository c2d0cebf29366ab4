// What model files say about a model's data: parameters, relations and family tables.
#pragma once

#include <string>

#include "simhost/model/model_text.h"
#include "simhost/model/toml.h"

namespace simhost {

// The keys of a file's root that belong here.
model_text::Keys ModelDataKeys();

// Reads what is there into the model. Throws ModelFileError.
void ReadModelData(const toml::table& root, Model* model);

// Writes what the model has, and nothing for what it has not.
void AddModelData(std::string* text, const Model& model);

}  // namespace simhost
