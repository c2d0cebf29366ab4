// The working directory: VxOpenDir shows it, VxSetDirectory takes the current model's folder.
#include <filesystem>

#include "simhost/core/disk.h"
#include "simhost/system/windows.h"
#include "tests/support/observed.h"

namespace {

using namespace simhost;
using workbench::Names;
using workbench::ObservedBench;

class WorkingDirectory : public ObservedBench {
protected:
    void SetUp() override { Start(); }

    // A part that lies in a folder of its own, while the working directory is another one.
    Model& PartFrom(const WideText& folder) {
        std::filesystem::create_directories(host().disk.Real(folder));
        Model& part = Part("plate");
        part.folder = folder;
        Open(part);
        return part;
    }
    std::string Directory() { return Utf8(host().session.workingDirectory); }
    std::string Message() { return Utf8(host().messages.last()); }
};

// --- VxOpenDir ---

TEST_F(WorkingDirectory, IsShownInTheExplorer) {
    Record();
    Press("VxOpenDir");
    EXPECT_EQ(Recorded(), (Names{"ProDirectoryCurrentGet", "ShellExecuteW"}));
    EXPECT_EQ(Lines("ShellExecuteW").size(), 1u);
    EXPECT_EQ(Lines("ShellExecuteW")
                  .at(0)
                  .find(R"(ShellExecuteW(owner=null, verb=null, file="explorer", )"
                        R"(arguments="C:\Work\", folder=null, show=5) = )"),
              0u)
        << Lines("ShellExecuteW").at(0);
    EXPECT_EQ(TheWindows().programs, std::vector<WideText>{WIDE("explorer C:\\Work\\ (show 5)")});
}

TEST_F(WorkingDirectory, IsNotMissedWhereTheExplorerDoesNotStart) {
    Fail("ShellExecuteW");
    Press("VxOpenDir");
    EXPECT_EQ(TheWindows().programs, std::vector<WideText>{});
    EXPECT_EQ(Boxes(), Names{});
}

TEST_F(WorkingDirectory, ThatTheHostDoesNotTellIsShownAsNone) {
    Fail("ProDirectoryCurrentGet");
    Press("VxOpenDir");
    EXPECT_EQ(TheWindows().programs, std::vector<WideText>{WIDE("explorer  (show 5)")});
}

// --- VxSetDirectory ---

TEST_F(WorkingDirectory, BecomesTheFolderOfTheCurrentModel) {
    PartFrom(WIDE("C:\\Projects\\齿轮箱 2"));
    Record();
    Press("VxSetDirectory");
    EXPECT_EQ(Recorded(), (Names{"ProMdlCurrentGet", "ProMdlDataGet", "ProDirectoryChange",
                                 "ProMessageDisplay"}));
    EXPECT_EQ(Directory(), "C:\\Projects\\齿轮箱 2");
    EXPECT_EQ(Message(), "工作目录已更改为：C:\\Projects\\齿轮箱 2\\");
    EXPECT_EQ(Lines("ProDirectoryChange"),
              Names{"ProDirectoryChange(directory=\"\\Projects\\齿轮箱 2\\\") = 0"});
}

TEST_F(WorkingDirectory, IsToldAlsoWhereTheHostStaysWhereItIs) {
    PartFrom(WIDE("C:\\Elsewhere"));
    Fail("ProDirectoryChange");
    Press("VxSetDirectory");
    EXPECT_EQ(Directory(), "C:\\Work");
    EXPECT_EQ(Message(), "工作目录已更改为：C:\\Elsewhere\\");
}

TEST_F(WorkingDirectory, IsTheRootWhereTheModelLiesThere) {
    PartFrom(WIDE("C:\\"));
    Press("VxSetDirectory");
    EXPECT_EQ(Directory(), "C:\\");
    EXPECT_EQ(Message(), "工作目录已更改为：C:\\");
}

TEST_F(WorkingDirectory, HasAColonEvenBehindAnEmptyDevice) {
    PartFrom(WIDE("C:\\Elsewhere")).folder = WIDE("\\\\server\\parts");
    Press("VxSetDirectory");
    EXPECT_EQ(Directory(), "C:\\Work");
    EXPECT_EQ(Message(), "工作目录已更改为：:\\\\server\\parts\\");
}

TEST_F(WorkingDirectory, StaysWhereAModelWillBeSavedThatNeverWas) {
    Open(Part("new"));
    Press("VxSetDirectory");
    EXPECT_EQ(Directory(), "C:\\Work");
    EXPECT_EQ(Message(), "工作目录已更改为：C:\\Work\\");
}

TEST_F(WorkingDirectory, StaysWithoutAModelOrItsData) {
    Press("VxSetDirectory");
    PartFrom(WIDE("C:\\Elsewhere"));
    const std::string before = Message();
    Fail("ProMdlDataGet");
    Press("VxSetDirectory");
    EXPECT_EQ(Directory(), "C:\\Work");
    EXPECT_EQ(Message(), before);
    EXPECT_EQ(Boxes(), Names{});
}

// The drawing that is open counts, and not what it shows.
TEST_F(WorkingDirectory, FollowsADrawingAsWell) {
    PartFrom(WIDE("C:\\Parts"));
    Model& drawing = workbench::MakeModels("sheet.drw: A3");
    drawing.folder = WIDE("C:\\Parts");
    Open(drawing);
    Press("VxSetDirectory");
    EXPECT_EQ(Directory(), "C:\\Parts");
}

}  // namespace
