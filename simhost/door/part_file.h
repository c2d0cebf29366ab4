// What operations that read a small file into a part have in common: the part, the name, the file.
#pragma once

#include <filesystem>
#include <string>

#include "simhost/core/disk.h"
#include "simhost/door/door.h"
#include "simhost/model/model_file_error.h"

namespace simhost {

// A part that may be changed; refuses any other model.
inline Model& RequireChangeablePart(const void* handle) {
    Model& model = TheHost().session.RequireSolid(handle);
    if (model.type != PRO_MDL_PART) Refuse(PRO_TK_BAD_INPUTS);
    if (model.readOnly) Refuse(PRO_TK_NO_PERMISSION);
    return model;
}

// A file's name without folder and extension; refuses any other text.
inline WideText RequireBaseName(const WideChar* name) {
    const WideText wanted = name;
    if (wanted.empty() || wanted.find_first_of(WIDE("\\/:")) != WideText::npos) {
        Refuse(PRO_TK_BAD_INPUTS);
    }
    if (wanted.size() > PRO_NAME_SIZE) Refuse(PRO_TK_INVALID_NAME);
    return wanted;
}

// What `read` makes of the file's text; refuses an empty path, and what is no such file, of which
// the user is told.
template <class Read>
auto ReadPartFile(const std::filesystem::path& file, Read&& read) {
    if (file.empty()) Refuse(PRO_TK_E_NOT_FOUND);
    bool found = false;
    const std::string text = ReadFile(file, &found);
    if (!found) Refuse(PRO_TK_CANT_OPEN);
    const auto name = file.filename().u8string();
    try {
        return read(text, std::string(name.begin(), name.end()));
    } catch (const ModelFileError& error) {
        TheHost().Tell(error.what());
        Refuse(PRO_TK_INVALID_FILE);
    }
}

}  // namespace simhost
