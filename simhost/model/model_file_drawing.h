// What the file of a drawing says about its views.
#pragma once

#include <string>

#include "simhost/model/model_text.h"
#include "simhost/model/toml.h"

namespace simhost {

// The keys of a file's root that belong here.
model_text::Keys DrawingKeys();

// Reads what is there into the model. Throws ModelFileError.
void ReadDrawing(const toml::table& root, Model* model);

// Writes the drawing of a model, and nothing for a model that is none.
void AddDrawing(std::string* text, const Model& model);

}  // namespace simhost
