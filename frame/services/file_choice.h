// Files that the user chooses in the host's dialog.
#pragma once

#include <optional>

#include "hostapi/wide.h"

// A chosen file: its full path as the host gave it; its folder with a separator at its end, and its
// name without extension and version.
struct ChosenFile {
    WideText path, folder, name;
};

// Lets the user choose a file that fits the filter ("*.frm"), beginning in a folder; empty: the
// working folder. Nothing if the user leaves the dialog or the host cannot show it.
std::optional<ChosenFile> ChooseFile(const WideChar* title, const WideChar* filter,
                                     const WideText& startFolder);
