// The working directory from one run of the host to the next.
#pragma once

// Asks Windows to restore the last working directory once, two seconds from now.
void RestoreLastDirLater();

// Writes the working directory to LastDirFile, whatever the settings say.
void SaveLastDir();
