// A file dialog at the prompt: the list of its files, and what a typed name means.
#pragma once

#include <string>
#include <vector>

#include "simhost/user/user.h"

namespace simhost {

// The files that the dialog lists, in a frame.
std::vector<std::string> FileList(const FileQuestion& question);

struct FileChoice {
    WideText path;
    std::string problem;  // why it is no choice
};

// A name of the list whatever the case of its letters, or the path of a file elsewhere that fits
// the filter; any name for a file that need not be there; a folder that is there, in the shown one
// or by its path, just as it was typed. No text is the name that the dialog proposes, or the shown
// folder.
FileChoice ChoiceOf(const FileQuestion& question, const WideText& answer);

}  // namespace simhost
