// What a demonstration deletes: its own files, and nothing else.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>

#include "simhost/app/demo_drive.h"

using namespace simhost;
namespace fs = std::filesystem;

namespace {

class DriveOfTheDemonstration : public testing::Test {
protected:
    DriveOfTheDemonstration()
        : out_(fs::temp_directory_path() /
               ("demo_drive_" +
                std::to_string(std::chrono::steady_clock::now().time_since_epoch().count()))),
          drive_(out_) {
        fs::create_directories(out_);
    }
    ~DriveOfTheDemonstration() override { fs::remove_all(out_); }

    void Put(const std::string& name, const std::string& text = "x") {
        fs::create_directories((out_ / name).parent_path());
        std::ofstream(out_ / name) << text;
    }
    bool Has(const std::string& name) const { return fs::exists(out_ / name); }

    fs::path out_;
    DemoDrive drive_;
};

TEST_F(DriveOfTheDemonstration, MakesRoomWhereNothingIs) {
    EXPECT_EQ(drive_.MakeRoom(), "");
}

TEST_F(DriveOfTheDemonstration, GoesIfItIsAsItWasLeft) {
    Put("drive_c/Work/a.prt.1");
    Put("drive_c/Work/b.prt.1");
    drive_.NoteFiles();
    fs::remove(out_ / "drive_c/Work/b.prt.1");
    EXPECT_EQ(drive_.MakeRoom(), "");
    EXPECT_FALSE(Has("drive_c"));
}

TEST_F(DriveOfTheDemonstration, IsKeptIfNoDemonstrationMadeIt) {
    Put("drive_c/mine.txt");
    EXPECT_EQ(drive_.MakeRoom(), (out_ / "drive_c").string() +
                                     " holds more than a demonstration left there; all of it is "
                                     "now in " +
                                     (out_ / "drive_c.kept-1").string());
    EXPECT_TRUE(Has("drive_c.kept-1/mine.txt"));
    EXPECT_FALSE(Has("drive_c"));
}

TEST_F(DriveOfTheDemonstration, IsKeptIfAFileOrFolderWasAddedOrChanged) {
    const auto leave = [&] {
        Put("drive_c/Work/a.prt.1");
        drive_.NoteFiles();
    };
    leave();
    Put("drive_c/Work/mine.prt.1");
    EXPECT_NE(drive_.MakeRoom(), "");
    EXPECT_TRUE(Has("drive_c.kept-1/Work/mine.prt.1"));
    leave();
    Put("drive_c/Work/a.prt.1", "longer");
    EXPECT_NE(drive_.MakeRoom(), "");
    EXPECT_TRUE(Has("drive_c.kept-2/Work/a.prt.1"));
    leave();
    fs::create_directory(out_ / "drive_c/Mine");
    EXPECT_NE(drive_.MakeRoom(), "");
    EXPECT_TRUE(Has("drive_c.kept-3/Mine"));
}

}  // namespace
