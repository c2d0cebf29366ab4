// Where the plug-in's files lie. There are two ways to them, and each command keeps its own: beside
// the module, and below the text folder that the host reports. Installed, both are one folder.
#pragma once

#include <optional>

#include "hostapi/wide.h"

// The module's file name. Its place is found by this name, so a renamed module finds no files.
inline constexpr WideView kModuleFile = WIDE("vorlatix5.1.dll");

// The settings of all commands, as a relative path.
inline constexpr WideView kConfigFile = WIDE("VXconfig\\VxConfig.ini");

// The module's own path with every occurrence of its file name replaced by `file`. When the module
// is not found under its name this is the path of the host's executable: fit for reading (nothing
// is found there), never for writing.
WideText FileBesideModule(WideView file);

// The same for a file that will be written: nothing where the module's name was not found.
std::optional<WideText> WritableFileBesideModule(WideView file);

// The plug-in's text folder as the host reports it, without a separator at its end. Empty on
// failure.
WideText AppTextDir();

// AppTextDir, "\VXconfig\", and this file name.
WideText ConfigPathFor(WideView fileName);
