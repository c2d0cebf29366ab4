// Pictures as files: each format by its ending, as a program that we did not write would read them.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "simhost/app/picture_file.h"
#include "simhost/core/disk.h"
#include "simhost/host.h"

namespace {

using namespace simhost;
namespace fs = std::filesystem;

class PictureFiles : public ::testing::Test {
protected:
    void SetUp() override {
        RestartHost();
        folder_ =
            fs::temp_directory_path() /
            ("picture-files-" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) +
             ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(folder_);
        fs::create_directories(folder_);
        Session& session = TheHost().session;
        Model& part = session.Create(WIDE("箱体"), PRO_MDL_PART);
        Solid box;
        box.id = 10;
        box.shape = Shape::Box;
        box.size = {30, 20, 10};
        part.partData.solids.push_back(box);
        session.Open(part);
    }
    void TearDown() override { fs::remove_all(folder_); }

    // What went wrong, and the file.
    std::string Save(const std::string& name) {
        const std::string wrong = SavePicture((folder_ / name).string());
        file_ = ReadFile(folder_ / name);
        return wrong;
    }
    fs::path folder_;
    std::string file_;
};

TEST_F(PictureFiles, AnSvgIsText) {
    EXPECT_EQ(Save("part.svg"), "");
    EXPECT_EQ(file_.compare(0, 5, "<?xml"), 0);
}

TEST_F(PictureFiles, AnUnknownEndingIsRefusedAndNothingIsWritten) {
    for (const char* name : {"part.jpg", "part", "part.svg.bak"}) {
        EXPECT_NE(Save(name).find("a picture ends in .svg, .png or .pdf"), std::string::npos);
        EXPECT_FALSE(fs::exists(folder_ / name));
    }
}

TEST_F(PictureFiles, AFolderThatIsNoFolderIsTold) {
    EXPECT_EQ(Save("part.svg"), "");
    EXPECT_NE(Save("part.svg/inside.svg"), "");
}

#ifndef _WIN32
unsigned BigEndian(const std::string& bytes, std::size_t at) {
    unsigned value = 0;
    for (std::size_t i = at; i < at + 4; ++i) value = value << 8 | (unsigned char)bytes.at(i);
    return value;
}

TEST_F(PictureFiles, APngHasTheSizeOfTheSvg) {
    EXPECT_EQ(Save("part.svg"), "");
    const std::string svg = file_.substr(0, 300);
    EXPECT_EQ(Save("PART.PNG"), "");
    ASSERT_GT(file_.size(), 33u);
    EXPECT_EQ(file_.compare(0, 8, "\x89PNG\r\n\x1a\n"), 0);
    EXPECT_NE(svg.find(" width=\"" + std::to_string(BigEndian(file_, 16)) + "\""),
              std::string::npos);
    EXPECT_NE(svg.find(" height=\"" + std::to_string(BigEndian(file_, 20)) + "\""),
              std::string::npos);
}

TEST_F(PictureFiles, APdfHasAPageAndItsFontInside) {
    EXPECT_EQ(Save("part.pdf"), "");
    EXPECT_EQ(file_.compare(0, 5, "%PDF-"), 0);
    EXPECT_NE(file_.find("/Type /Page % 1\n"), std::string::npos);
    EXPECT_NE(file_.find("/FontFile"), std::string::npos);
}
#endif

}  // namespace
