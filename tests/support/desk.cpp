// What tests and the fault sweep do with the plug-in before anybody presses a command.
#include "tests/support/desk.h"

#include "hostapi/windows.h"
#include "simhost/core/disk.h"
#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/spreadsheet/spreadsheets.h"
#include "simhost/system/windows.h"
#include "tests/support/places.h"

namespace workbench {

using namespace simhost;

namespace {

void WriteIn(const WideText& folder, const std::string& file, const std::string& section,
             const std::string& key, const std::string& value) {
    const WideText path = folder + WIDE("\\VXconfig\\") + Wide(file);
    WritePrivateProfileStringW(Wide(section).c_str(), Wide(key).c_str(), Wide(value).c_str(),
                               path.c_str());
}

}  // namespace

WorkplaceOptions DeskOptions(const std::filesystem::path& drive) {
    WorkplaceOptions options;
    options.drive = drive;
    options.newUser = true;
    options.installed = kSourceFolder;
    options.module = kModuleBuilt;
    options.moduleFolder = kModuleFolder;
    options.textFolder = kTextFolder;
    return options;
}

void MarkFirstRunSeen() {
    TheWindows().SetRegistry(kRegistryFolder, kRegistryName, kRegistryMarker);
}

void WriteSetting(const std::string& section, const std::string& value) {
    WriteIn(kModuleFolder, "VxConfig.ini", section, "value", value);
}

void WriteTextFolderSetting(const std::string& section, const std::string& value) {
    WriteIn(kTextFolder, "VxConfig.ini", section, "value", value);
}

void WriteIni(const std::string& file, const std::string& section, const std::string& key,
              const std::string& value) {
    for (const WideText& folder : {kModuleFolder, kTextFolder}) {
        WriteIn(folder, file, section, key, value);
    }
}

bool WriteBomColumns(const std::string& summed, const std::string& levelled) {
    return WriteFile(
        TheHost().disk.Real(kModuleFolder + WIDE("\\VXconfig\\VxBom.ini")),
        ToSystemCodePage(Wide("[tableCols_sum]\r\ncontent=" + summed +
                              "\r\n[tableCols_level]\r\ncontent=" + levelled + "\r\n")));
}

void Fail(const std::string& operation, const Failing& which) {
    Operation::Fail({operation, which.n, which.forGood, which.status});
}

std::vector<std::string> LeftOpen() {
    std::vector<std::string> left = TheHost().arrays.HeldByMistake();
    for (const std::string& data : TheHost().session.simprepDatas.Held()) left.push_back(data);
    for (const std::string& handle : TheWindows().OpenHandles()) left.push_back(handle);
    for (const std::string& object : TheSpreadsheets().NotReleased()) left.push_back(object);
    return left;
}

}  // namespace workbench
