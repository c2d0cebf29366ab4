// What the tests of the last directory share: its file, the setting, and a run of the host up to
// the timer that restores it.
#pragma once

#include <algorithm>

#include "simhost/host.h"
#include "simhost/system/clock.h"
#include "simhost/system/windows.h"
#include "tests/support/workbench.h"

namespace last_dir {

using namespace simhost;
using workbench::Workbench;
using Lines = std::vector<std::string>;

inline const WideText kFile = workbench::kModuleFolder + WIDE("\\VXconfig\\vorlatix.ini");
inline const WideText kSettings = workbench::kModuleFolder + WIDE("\\VXconfig\\VxConfig.ini");

class LastDirectory : public Workbench {
protected:
    void MakeFolder(const WideText& folder) {
        std::filesystem::create_directories(host().disk.Real(folder));
    }
    std::string WorkingDirectory() { return Utf8(host().session.workingDirectory); }

    // A run with the setting on and this LastDirFile, up to the timer.
    void RestoreFrom(const std::string& bytes) {
        Setting("SetLastDir", "1");
        Write(kFile, bytes);
        StartAndWait();
    }
    void StartAndWait() {
        Start();
        if (!TheWindows().timers().empty()) timer_ = TheWindows().timers().back().id;
        host().journal.Clear();
        host().journal.Start();
        AdvanceClock(2000);
        host().journal.Stop();
    }
    std::ptrdiff_t CallsOf(const std::string& operation) {
        const Lines names = host().journal.Names();
        return std::count(names.begin(), names.end(), operation);
    }
    void ExpectNothingRestored() {
        EXPECT_EQ(WorkingDirectory(), "C:\\Work");
        EXPECT_EQ(Boxes(), Lines{});
    }
    // What the end of a run leaves in the file.
    std::string SavedBytes() {
        bool found = false;
        const std::string bytes = Read(kFile, &found);
        EXPECT_TRUE(found);
        return bytes;
    }
    std::string KillsIt() const { return "KillTimer(id=" + std::to_string(timer_) + ") = 1"; }

    UINT_PTR timer_ = 0;  // the real id of the plug-in's timer
};

}  // namespace last_dir
