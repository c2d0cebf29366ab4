// Where the plug-in looks for its files, by the place of its module: in odd folders, under other
// names, and that it never writes where it has not found itself.
#include <algorithm>
#include <utility>

#include "simhost/app/plugin.h"
#include "simhost/host.h"
#include "simhost/system/clock.h"
#include "simhost/system/windows.h"
#include "tests/support/desk.h"
#include "tests/support/drive.h"
#include "tests/support/places.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using workbench::Workbench;
using Lines = std::vector<std::string>;

class PlaceOfTheModule : public Workbench {
protected:
    // One run of the host with the module at this place: start, timer, end.
    void RunAt(const WideText& module) {
        workbench::MarkFirstRunSeen();
        Plugin plugin(workbench::kModuleBuilt, module);
        EXPECT_EQ(plugin.Initialize(), 0);
        AdvanceClock(2000);
        directoryAfterTheTimer_ = Utf8(host().session.workingDirectory);
        plugin.Terminate();
    }
    // Puts the settings and a last directory below a folder.
    void WriteSettingsInto(const WideText& folder) {
        std::filesystem::create_directories(host().disk.Real(folder));
        std::filesystem::create_directories(host().disk.Real(WIDE("C:\\Projects")));
        Write(folder + WIDE("\\VxConfig.ini"), "[SetLastDir]\r\nvalue=1\r\n");
        Write(folder + WIDE("\\vorlatix.ini"), "C:\\Projects");
    }
    void ExpectRestoredAndSavedIn(const WideText& folder) {
        EXPECT_EQ(directoryAfterTheTimer_, "C:\\Projects");
        EXPECT_EQ(Read(folder + WIDE("\\vorlatix.ini")), "C:\\Projects\\");
    }
    // All files of the drive with their bytes, to see that none changes.
    std::vector<std::pair<std::string, std::string>> Files() {
        std::vector<std::pair<std::string, std::string>> files;
        for (const auto& place : workbench::PlacesOnDrive(workplace_->drive())) {
            if (std::filesystem::is_regular_file(place)) {
                files.emplace_back(place.string(), ReadFile(place));
            }
            if (!std::filesystem::is_directory(place)) continue;
            for (const auto& each : std::filesystem::recursive_directory_iterator(place)) {
                if (!each.is_regular_file()) continue;
                files.emplace_back(each.path().string(), ReadFile(each.path()));
            }
        }
        std::sort(files.begin(), files.end());
        return files;
    }
    // A folder whose module has a path of this length.
    static WideText ModuleOfLength(std::size_t length) {
        WideText path = WIDE("C:\\");
        const WideText name = WIDE("\\vorlatix5.1.dll");
        while (path.size() + name.size() + 101 < length) {
            path += WideText(100, WideChar{'d'}) + WIDE("\\");
        }
        path += WideText(length - path.size() - name.size(), WideChar{'e'});
        return path + name;
    }
    static WideText FolderOf(const WideText& module) {
        return module.substr(0, module.find_last_of(WideChar{'\\'}));
    }

    std::string directoryAfterTheTimer_;
};

// --- Found ---

TEST_F(PlaceOfTheModule, IsWhereSettingsAndLastDirectoryLie) {
    const WideText folder = WIDE("C:\\Tools 工具\\vx");
    WriteSettingsInto(folder + WIDE("\\VXconfig"));
    RunAt(folder + WIDE("\\vorlatix5.1.dll"));
    ExpectRestoredAndSavedIn(folder + WIDE("\\VXconfig"));
}

TEST_F(PlaceOfTheModule, ReplacesItsFileNameInTheNameOfAFolderToo) {
    // Every occurrence in the path: C:\vorlatix5.1.dll\bin\vorlatix5.1.dll.
    const WideText folder = WIDE("C:\\VXconfig\\VxConfig.ini\\bin\\VXconfig");
    WriteSettingsInto(folder);
    // The file that holds the directory has its own name in place of that folder's.
    const WideText lastDir = WIDE("C:\\VXconfig\\vorlatix.ini\\bin\\VXconfig");
    std::filesystem::create_directories(host().disk.Real(lastDir));
    Write(lastDir + WIDE("\\vorlatix.ini"), "C:\\Projects");
    RunAt(WIDE("C:\\vorlatix5.1.dll\\bin\\vorlatix5.1.dll"));
    ExpectRestoredAndSavedIn(lastDir);
}

TEST_F(PlaceOfTheModule, IsReadAndWrittenUpToTheLongestPathOfAFile) {
    // The settings' path is six characters longer than the module's: 253 + 6 = 259.
    const WideText module = ModuleOfLength(253);
    ASSERT_EQ(module.size(), 253u);
    WriteSettingsInto(FolderOf(module) + WIDE("\\VXconfig"));
    RunAt(module);
    ExpectRestoredAndSavedIn(FolderOf(module) + WIDE("\\VXconfig"));
}

// --- Too long ---

TEST_F(PlaceOfTheModule, IsOfNoUseWhereThePathsOfItsFilesAreTooLong) {
    for (const std::size_t length : {254u, 259u, 260u, 261u, 270u, 300u, 600u}) {
        SCOPED_TRACE(length);
        const WideText module = ModuleOfLength(length);
        ASSERT_EQ(module.size(), length);
        // Real files, so that only the length is in the way.
        WriteSettingsInto(FolderOf(module) + WIDE("\\VXconfig"));
        const auto before = Files();
        RunAt(module);
        EXPECT_EQ(directoryAfterTheTimer_, "C:\\Work");
        EXPECT_TRUE(Files() == before);
        EXPECT_EQ(Boxes(), Lines{});
    }
}

TEST_F(PlaceOfTheModule, OfExactly260CharactersIsReadWithoutATerminatorButNoFurther) {
    const WideText module = ModuleOfLength(260);
    workbench::MarkFirstRunSeen();
    Plugin plugin(workbench::kModuleBuilt, module);
    EXPECT_EQ(plugin.Initialize(), 0);
    host().journal.Start();
    AdvanceClock(2000);
    host().journal.Stop();
    // All 260 characters have been taken, and the file name in them replaced.
    const std::string path = Utf8(FolderOf(module)) + "\\VXconfig\\VxConfig.ini";
    EXPECT_EQ(
        Calls().at(3),
        R"(GetPrivateProfileStringW(section="SetLastDir", key="value", fallback="", value="", )"
        "size=255, path=\"" +
            path + "\") = 0");
}

// --- Not found ---

TEST_F(PlaceOfTheModule, UnderAnotherNameReadsNothingAndKeepsTheHostsExecutable) {
    const WideText executable = TheWindows().executablePath;
    std::filesystem::create_directories(host().disk.Real(FolderOf(executable)));
    Write(executable, std::string("MZ\x90\0the host itself", 19));
    WriteSettingsInto(workbench::kModuleFolder + WIDE("\\VXconfig"));
    const auto before = Files();
    RunAt(workbench::kModuleFolder + WIDE("\\vorlatix5.2.dll"));
    EXPECT_EQ(directoryAfterTheTimer_, "C:\\Work");
    EXPECT_TRUE(Files() == before);
    EXPECT_EQ(Read(executable), std::string("MZ\x90\0the host itself", 19));
    EXPECT_EQ(Boxes(), Lines{});
}

TEST_F(PlaceOfTheModule, UnderAnotherNameStillHasMenuAndPopups) {
    TextFolderSetting("RmbDisable", "0");
    workbench::MarkFirstRunSeen();
    Plugin plugin(workbench::kModuleBuilt, workbench::kModuleFolder + WIDE("\\other.dll"));
    EXPECT_EQ(plugin.Initialize(), 0);
    ASSERT_TRUE(host().commands.FindMenu("Menu"));
    EXPECT_EQ(host().commands.FindMenu("Menu")->buttons.size(), 56u);
    host().commands.OpenPopup("Sel Obj Menu");
    EXPECT_EQ(host().commands.registrations().size(), 61u);
    plugin.Terminate();
}

TEST_F(PlaceOfTheModule, UnderAnotherNameDoesNotMakeAFileOfAMissingExecutable) {
    const auto before = Files();
    RunAt(workbench::kModuleFolder + WIDE("\\other.dll"));
    EXPECT_TRUE(Files() == before);
}

TEST_F(PlaceOfTheModule, UnderAnotherNameKeepsAnExecutableThatReadsLikeSettings) {
    const WideText executable = TheWindows().executablePath;
    std::filesystem::create_directories(host().disk.Real(FolderOf(executable)));
    const std::string bytes = "[SetLastDir]\r\nvalue=1\r\n";
    Write(executable, bytes);
    RunAt(workbench::kModuleFolder + WIDE("\\other.dll"));
    EXPECT_EQ(Read(executable), bytes);
    EXPECT_EQ(directoryAfterTheTimer_, "C:\\Work");
}

TEST_F(PlaceOfTheModule, InOtherLettersIsFoundButNotReplacedAndKeepsItsBytes) {
    // Windows finds the module whatever the case of its letters; its path is then the file itself.
    const WideText module = workbench::kModuleFolder + WIDE("\\Vorlatix5.1.DLL");
    Write(module, "the module's bytes");
    WriteSettingsInto(workbench::kModuleFolder + WIDE("\\VXconfig"));
    const auto before = Files();
    RunAt(module);
    EXPECT_EQ(directoryAfterTheTimer_, "C:\\Work");
    EXPECT_TRUE(Files() == before);
    EXPECT_EQ(Read(module), "the module's bytes");
}

TEST_F(PlaceOfTheModule, ThatWindowsDoesNotTellLeavesAllFilesAlone) {
    WriteSettingsInto(workbench::kModuleFolder + WIDE("\\VXconfig"));
    const auto before = Files();
    for (const char* operation : {"GetModuleHandleW", "GetModuleFileNameW"}) {
        Fail(operation, {.forGood = true});
    }
    RunAt(workbench::kModuleFolder + WIDE("\\vorlatix5.1.dll"));
    EXPECT_EQ(directoryAfterTheTimer_, "C:\\Work");
    EXPECT_TRUE(Files() == before);
}

}  // namespace
