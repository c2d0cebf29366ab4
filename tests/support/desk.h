// A designer's desk: the plug-in installed on drive C, started and stopped, and its settings. Tests
// and the fault sweep sit at the same one.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "hostapi/host.h"
#include "simhost/app/workplace.h"

namespace workbench {

// A test has two folders for what is one in an installation.
inline const WideText kModuleFolder = WIDE("C:\\Plug-in");
inline const WideText kTextFolder = WIDE("C:\\App Text");

// What the registry holds of a user who has seen the first-run notice.
inline const WideText kRegistryFolder = WIDE("Software\\PTC\\Creo_Parametric");
inline const WideText kRegistryName = WIDE("VxReg");
inline const WideText kRegistryMarker = WIDE("5130");

// The plug-in of this build, to be installed from the sources onto the drive; a new user's.
simhost::WorkplaceOptions DeskOptions(const std::filesystem::path& drive);

// From now on the user has seen the first-run notice.
void MarkFirstRunSeen();

// Settings of VxConfig.ini, in the folder of the module or of the texts.
void WriteSetting(const std::string& section, const std::string& value);
void WriteTextFolderSetting(const std::string& section, const std::string& value);

// A value of another file of settings, in both folders.
void WriteIni(const std::string& file, const std::string& section, const std::string& key,
              const std::string& value);

// The lists of columns of the bill of materials, as in its settings.
bool WriteBomColumns(const std::string& summed, const std::string& levelled);

// Which calls of an operation fail, from now on: the n-th one (1 is the next), and with `forGood`
// every later one too.
struct Failing {
    unsigned n = 1;
    bool forGood = false;
    int status = PRO_TK_GENERAL_ERROR;
};
void Fail(const std::string& operation, const Failing& which = {});

// What must not be left behind: host arrays, handles of Windows, objects of the spreadsheets.
std::vector<std::string> LeftOpen();

}  // namespace workbench
