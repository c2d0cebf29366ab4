// The question for a folder into which the commands of this room write.
#pragma once

#include "hostapi/wide.h"

struct FolderAnswer {
    bool cancelled = false;  // by the user; a prompt that fails otherwise has an empty folder
    WideText folder;         // as the host gave it, with or without a separator at its end
};

// Lets the user choose a folder that is there.
FolderAnswer AskFolder(const WideChar* title);

// Makes it the host's working directory; a folder that cannot be is the host's to refuse.
void ChangeDirectory(const WideText& folder);

// The host's working directory as it gives it; empty on failure.
WideText CurrentDirectory();
