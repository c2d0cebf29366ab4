// The working directory from one run of the host to the next.
#pragma once

// Asks Windows to restore the last working directory once, two seconds from now.
void RestoreLastDirLater();

// Takes that back where it has not happened yet; calls nothing where no timer is left. After this
// the module may leave memory.
void RestoreLastDirNoMore();

// Writes the working directory to LastDirFile, whatever the settings say.
void SaveLastDir();
