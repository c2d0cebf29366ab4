// Windows paths and the real files behind them.
#include "tests/simhost/windows_place.h"

#ifndef _WIN32

#include <ctime>

#include "simhost/core/text.h"

using namespace simhost;

namespace {

class DiskPath : public WindowsPlace {
protected:
    // The real path below the test's folder.
    std::string Real(WideView path) const {
        const std::filesystem::path real = TheHost().disk.Real(path);
        return real.empty() ? "none" : real.lexically_relative(folder()).string();
    }
};

TEST_F(DiskPath, LeadsToAFileWhateverTheCaseOfItsLetters) {
    Put("Work/Gears/Gear_1.prt", "");
    EXPECT_EQ(Real(WIDE("C:\\Work\\Gears\\Gear_1.prt")), "Work/Gears/Gear_1.prt");
    EXPECT_EQ(Real(WIDE("c:\\WORK\\gears/GEAR_1.PRT")), "Work/Gears/Gear_1.prt");
}

TEST_F(DiskPath, IsTakenAsWrittenWhereNothingExists) {
    Put("Work/a.txt", "");
    EXPECT_EQ(Real(WIDE("C:\\WORK\\New\\B.txt")), "Work/New/B.txt");
}

TEST_F(DiskPath, MayHaveChineseNames) {
    Put("\xE4\xB8\xAD\xE6\x96\x87/A.txt", "");
    EXPECT_EQ(Real(WIDE("C:\\\u4e2d\u6587\\a.TXT")), "\xE4\xB8\xAD\xE6\x96\x87/A.txt");
}

TEST_F(DiskPath, OfTheDriveIsTheFolderItself) {
    EXPECT_EQ(Real(WIDE("C:\\")), ".");
    EXPECT_EQ(Real(WIDE("C:")), ".");
}

TEST_F(DiskPath, NeverLeadsOutOfTheDrive) {
    EXPECT_EQ(Real(WIDE("C:\\..\\..\\a.txt")), "a.txt");
    EXPECT_EQ(Real(WIDE("C:\\x\\..\\y\\.\\a.txt")), "y/a.txt");
}

TEST_F(DiskPath, OfAnotherDriveOrNoneIsEmpty) {
    for (const WideView path :
         {WideView(WIDE("D:\\a.txt")), WideView(WIDE("a.txt")), WideView(WIDE("\\a.txt")),
          WideView(WIDE("\\\\server\\a")), WideView(WIDE("C:a.txt")), WideView()}) {
        EXPECT_EQ(Real(path), "none") << Utf8(path);
    }
}

TEST_F(DiskPath, PrefersTheNameAsItIsWritten) {
    Put("a.txt", "");
    Put("A.TXT", "");
    EXPECT_EQ(Real(WIDE("C:\\a.txt")), "a.txt");
    EXPECT_EQ(Real(WIDE("C:\\A.TXT")), "A.TXT");
    EXPECT_EQ(Real(WIDE("C:\\A.txt")), "A.TXT");  // the first in the alphabet
}

TEST_F(DiskPath, NoticesNewRemovedAndRenamedFiles) {
    Put("one.txt", "");
    EXPECT_EQ(Real(WIDE("C:\\ONE.TXT")), "one.txt");
    EXPECT_EQ(Real(WIDE("C:\\TWO.TXT")), "TWO.TXT");
    Put("two.txt", "");
    EXPECT_EQ(Real(WIDE("C:\\TWO.TXT")), "two.txt");
    std::filesystem::rename(folder() / "two.txt", folder() / "Two.txt");
    EXPECT_EQ(Real(WIDE("C:\\TWO.TXT")), "Two.txt");
    std::filesystem::remove(folder() / "Two.txt");
    EXPECT_EQ(Real(WIDE("C:\\TWO.TXT")), "TWO.TXT");
}

TEST_F(DiskPath, NoticesAFileThatComesAfterTheFolderWasLearntByHeart) {
    Put("one.txt", "");
    // Long enough ago for the folder to count as settled.
    const auto past = std::filesystem::file_time_type::clock::now() - std::chrono::seconds(5);
    std::filesystem::last_write_time(folder(), past);
    EXPECT_EQ(Real(WIDE("C:\\ONE.TXT")), "one.txt");
    EXPECT_EQ(Real(WIDE("C:\\TWO.TXT")), "TWO.TXT");
    Put("two.txt", "");
    EXPECT_EQ(Real(WIDE("C:\\TWO.TXT")), "two.txt");
}

TEST_F(DiskPath, IsFoundQuicklyAmongManyFiles) {
    constexpr int kFiles = 10000;
    for (int i = 0; i < kFiles; ++i) {
        std::ofstream file(folder() / ("part_" + std::to_string(i) + ".prt"));
    }
    const auto past = std::filesystem::file_time_type::clock::now() - std::chrono::seconds(5);
    std::filesystem::last_write_time(folder(), past);
    const std::clock_t start = std::clock();
    for (int i = 0; i < kFiles; ++i) {
        const std::string number = std::to_string(i);
        EXPECT_EQ(Real(Wide("C:\\part_" + number + ".prt")), "part_" + number + ".prt");
        EXPECT_EQ(Real(Wide("C:\\PART_" + number + ".PRT")), "part_" + number + ".prt");
        EXPECT_EQ(Real(Wide("C:\\none_" + number + ".prt")), "none_" + number + ".prt");
    }
    // A walk through the folder for each of the names would take ten times as long.
    EXPECT_LT((std::clock() - start) / CLOCKS_PER_SEC, 5);
}

TEST_F(DiskPath, GoesBackToAWindowsPath) {
    const Disk& disk = TheHost().disk;
    EXPECT_EQ(disk.Windows(folder() / "Work" / "a.txt"), WIDE("C:\\Work\\a.txt"));
    EXPECT_EQ(disk.Windows(folder() / "\xE4\xB8\xAD" / ""), WIDE("C:\\\u4e2d"));
    EXPECT_EQ(disk.Windows(folder() / "x" / ".." / "a.txt"), WIDE("C:\\a.txt"));
    EXPECT_EQ(disk.Windows(folder()), WIDE("C:\\"));
}

TEST_F(DiskPath, GoesBackFromBelowTheDriveOnly) {
    const Disk& disk = TheHost().disk;
    EXPECT_EQ(disk.Windows("/"), WIDE(""));
    EXPECT_EQ(disk.Windows(folder().parent_path()), WIDE(""));
    EXPECT_EQ(disk.Windows(folder().string() + "_2/a.txt"), WIDE(""));
}

TEST_F(DiskPath, GoesBackFromARootWithASeparatorAtItsEnd) {
    TheHost().disk.SetRoot(folder() / "");
    EXPECT_EQ(TheHost().disk.Windows(folder() / "a.txt"), WIDE("C:\\a.txt"));
}

using WholeFile = WindowsPlace;

TEST_F(WholeFile, IsReadAndWrittenAsBytes) {
    const std::string bytes("a\r\n\0\xFF", 5);
    EXPECT_TRUE(simhost::WriteFile(folder() / "a.bin", bytes));
    bool found = false;
    EXPECT_EQ(simhost::ReadFile(folder() / "a.bin", &found), bytes);
    EXPECT_TRUE(found);
}

TEST_F(WholeFile, IsEmptyAndNotFoundWhereThereIsNone) {
    bool found = true;
    EXPECT_EQ(simhost::ReadFile(folder() / "none.bin", &found), "");
    EXPECT_FALSE(found);
    found = true;
    EXPECT_EQ(simhost::ReadFile(folder(), &found), "");
    EXPECT_FALSE(found) << "a folder is no file";
    EXPECT_FALSE(simhost::WriteFile(folder() / "none" / "a.bin", "x"));
}

TEST_F(WholeFile, MayBeEmpty) {
    Put("a.bin", "");
    bool found = false;
    EXPECT_EQ(simhost::ReadFile(folder() / "a.bin", &found), "");
    EXPECT_TRUE(found);
}

}  // namespace

#endif
