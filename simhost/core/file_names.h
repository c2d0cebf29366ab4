// Names of files as a designer knows them: gearbox.asm.12 is version 12 of gearbox.asm, the highest
// version is the newest, and a file dialog lists what fits its patterns.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "hostapi/wide.h"

namespace simhost {

// "gearbox.asm.12" is version 12 of gearbox.asm. 0, and the whole text as the file's name, where no
// version comes last. The file's name comes in small letters.
int SplitVersion(const std::string& name, std::string* fileName);

// Whether a Windows path with a drive can be that of a file: shorter than Windows' limit, no letter
// that names must not have, no separator at its end, no name of a device.
bool IsFilePath(WideView windowsPath);

// A file of a folder in its newest version; a file without a version number is older than 1.
struct NamedFile {
    WideText name;  // as it lies there, without its version
    std::filesystem::path path;
};

// The files of a folder, in the order of their names whatever the case of the letters.
std::vector<NamedFile> FilesIn(const std::filesystem::path& folder);

// The newest version of a file of this name, whatever the case of the letters; empty: there is
// none.
std::filesystem::path NewestFileOf(const std::filesystem::path& folder, WideView name);

// Whether a name fits one of the patterns of a file dialog, which have * and ? in them and commas
// between them: "*.mtl,*.mat". Every name fits a text without patterns, and "*.*".
bool FitsFilter(WideView name, WideView filter);

}  // namespace simhost
