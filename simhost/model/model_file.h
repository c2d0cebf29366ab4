// Model files: TOML text that a person can read and change, one model to a file.
#pragma once

#include <string>

#include "simhost/model/model.h"
#include "simhost/model/model_file_error.h"

namespace simhost {

// Fills an empty model from a file's text. Components get their file names, not yet their models.
// Throws ModelFileError.
void ReadModelText(const std::string& text, const std::string& fileName, Model* model);

// The model as a file's text: what ReadModelText reads back.
std::string ModelText(const Model& model);

}  // namespace simhost
