// The names that a line of a script can mean: model files, settings of the plug-in, options of the
// host. What is not among them is a slip of the finger, and is told with the nearest.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "hostapi/wide.h"

namespace simhost {

// "gearbox.asm" of each model in memory, and of each model file in the working folder (without its
// version, each once).
std::vector<std::string> ModelsInMemory();
std::vector<std::string> ModelFiles();

// The keys by the section of an INI file (a Windows path), both as written there. Empty if there is
// no such file.
std::map<std::string, std::vector<std::string>> IniNames(const WideText& path);

// What the settings dialog offers for a section of VxConfig.ini; empty where anything can be typed.
std::vector<std::string> SettingValues(const std::string& section);

// The options of the host that mean something to it or to the plug-in.
const std::vector<std::string>& OptionNames();

}  // namespace simhost
