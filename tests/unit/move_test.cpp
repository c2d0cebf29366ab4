// Files that get another path: nothing is replaced, and what cannot be moved stays.
#include <filesystem>

#include "frame/services/move.h"
#include "simhost/core/text.h"
#include "simhost/system/windows.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using workbench::Workbench;

const WideText kFrom = WIDE("C:\\Work\\a.pdf");
const WideText kTo = WIDE("C:\\Work\\图 1.pdf");

// Both ways of naming the files; what holds for one holds for the other.
class Moves : public Workbench, public ::testing::WithParamInterface<decltype(&MoveToPath)> {
protected:
    bool Move(const WideText& from, const WideText& to) { return GetParam()(from, to); }
    bool Exists(const WideText& path) { return std::filesystem::exists(host().disk.Real(path)); }
};

TEST_P(Moves, GiveAFileItsNewPath) {
    Write(kFrom, "text");
    EXPECT_TRUE(Move(kFrom, kTo));
    EXPECT_FALSE(Exists(kFrom));
    EXPECT_EQ(Read(kTo), "text");
}

TEST_P(Moves, ReplaceNothing) {
    Write(kFrom, "new");
    Write(kTo, "old");
    EXPECT_FALSE(Move(kFrom, kTo));
    EXPECT_EQ(Read(kFrom), "new");
    EXPECT_EQ(Read(kTo), "old");
    std::filesystem::create_directories(host().disk.Real(WIDE("C:\\Work\\folder")));
    EXPECT_FALSE(Move(kFrom, WIDE("C:\\Work\\folder")));
    EXPECT_EQ(Read(kFrom), "new");
}

TEST_P(Moves, ToTheSamePathKeepTheFileAndChangeItsLetters) {
    Write(kFrom, "text");
    EXPECT_TRUE(Move(kFrom, kFrom));
    EXPECT_EQ(Read(kFrom), "text");
    EXPECT_TRUE(Move(kFrom, WIDE("C:\\Work\\A.PDF")));
    const std::filesystem::directory_iterator files(host().disk.Real(WIDE("C:\\Work")));
    std::vector<std::string> names;
    for (const auto& file : files) names.push_back(file.path().filename().string());
    EXPECT_EQ(names, std::vector<std::string>{"A.PDF"});
}

TEST_P(Moves, NeedAFileAFolderAndANameThatCanBe) {
    EXPECT_FALSE(Move(kFrom, kTo));
    Write(kFrom, "text");
    EXPECT_FALSE(Move(kFrom, WIDE("C:\\Nowhere\\a.pdf")));
    EXPECT_FALSE(Move(kFrom, WIDE("C:\\Work\\a?b.pdf")));
    EXPECT_FALSE(Move(kFrom, WIDE("C:\\Work\\") + WideText(300, WideChar{'a'})));
    EXPECT_FALSE(Move(kFrom, WIDE("")));
    EXPECT_EQ(Read(kFrom), "text");
}

TEST_P(Moves, LeaveAFileThatAnotherProgramHolds) {
    Write(kFrom, "text");
    TheWindows().Hold(kFrom);
    EXPECT_FALSE(Move(kFrom, kTo));
    TheWindows().Release(kFrom);
    EXPECT_EQ(Read(kFrom), "text");
    EXPECT_TRUE(Move(kFrom, kTo));
}

TEST_P(Moves, TakeAFileIntoAnotherFolder) {
    Write(kFrom, "text");
    std::filesystem::create_directories(host().disk.Real(WIDE("C:\\Other")));
    EXPECT_TRUE(Move(kFrom, WIDE("C:\\Other\\b.pdf")));
    EXPECT_EQ(Read(WIDE("C:\\Other\\b.pdf")), "text");
    std::filesystem::remove_all(host().disk.Real(WIDE("C:\\Other")));
}

INSTANTIATE_TEST_SUITE_P(Paths, Moves, ::testing::Values(&MoveToPath, &MoveToNarrowPath),
                         [](const auto& one) { return one.index == 0 ? "Wide" : "Narrow"; });

class MovesByNarrowPaths : public Workbench {};

TEST_F(MovesByNarrowPaths, LeaveAFileWhoseNewNameTheCodePageHasNotAndWideOnesDoNot) {
    const WideText name = WIDE("C:\\Work\\한글.pdf");
    Write(kFrom, "text");
    EXPECT_FALSE(MoveToNarrowPath(kFrom, name));
    EXPECT_EQ(Read(kFrom), "text");
    EXPECT_TRUE(MoveToPath(kFrom, name));
    EXPECT_EQ(Read(name), "text");
}

TEST_F(MovesByNarrowPaths, AreOneCallOfWindowsEach) {
    host().journal.Start();
    MoveToNarrowPath(kFrom, kTo);
    MoveToPath(kFrom, kTo);
    host().journal.Stop();
    EXPECT_EQ(Calls(), (std::vector<std::string>{
                           "MoveFileA(from=\"C:\\Work\\a.pdf\", to=\"C:\\Work\\图 1.pdf\") = 0",
                           "MoveFileW(from=\"C:\\Work\\a.pdf\", to=\"C:\\Work\\图 1.pdf\") = 0"}));
}

}  // namespace
