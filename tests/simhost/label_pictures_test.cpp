// Labels with pictures: the file is looked for and looked at, and is seen in the dialog's picture.
#include <filesystem>
#include <fstream>

#include "hostapi/host.h"
#include "simhost/core/disk.h"
#include "simhost/picture/dialogs.h"
#include "simhost/picture/svg_canvas.h"
#include "simhost/ui/label.h"
#include "tests/support/places.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

constexpr const char* kDialog =
    "(Dialog Logo (Components (Label Sign) (PushButton OK))\n"
    "    (Resources (OK.Label \"OK\")\n"
    "        (Sign.Bitmap \"sign.png\")\n"
    "        (.Layout (Grid (Rows 1 1) (Cols 1) Sign OK))))\n";

class LabelPictures : public workbench::Workbench {
protected:
    void SetUp() override {
        shipped_ = fs::path(workbench::kSourceFolder) / "text" / "resource";
        Write(Place("Logo.res"), kDialog);
    }
    static WideText Place(const std::string& file) {
        return workbench::kTextFolder + WIDE("\\text\\resource\\") + Wide(file);
    }
    std::string Shipped(const std::string& file) { return ReadFile(shipped_ / file); }
    ProError Create() {
        char name[] = "Logo";
        return ProUIDialogCreate(name, name);
    }
    fs::path shipped_;
};

TEST_F(LabelPictures, ThatAreNotThereAreAComplaintWithTheirLine) {
    EXPECT_EQ(Create(), PRO_TK_INVALID_FILE);
    Write(Place("sign.png"), "GIF89a");
    EXPECT_EQ(Create(), PRO_TK_INVALID_FILE);
    EXPECT_EQ(Complaints(),
              (Lines{"ProUIDialogCreate: Logo.res:3: the picture sign.png is not there",
                     "ProUIDialogCreate: Logo.res:3: the picture sign.png is no PNG"}));
}

TEST_F(LabelPictures, AreNamedWhereADialogIsShownAsText) {
    Write(Place("sign.png"), Shipped("AboutVx.png"));
    ASSERT_EQ(Create(), PRO_TK_NO_ERROR);
    EXPECT_EQ(host().dialogs.Find("Logo")->Find("Sign")->Picture(), Lines{"( sign.png )"});
}

TEST_F(LabelPictures, HaveTheSizeThatTheirHeadTells) {
    const auto size = PngSize(Shipped("VxQQGroup.png"));
    ASSERT_TRUE(size.has_value());
    EXPECT_EQ(size->width, 96);
    EXPECT_EQ(size->height, 96);
    EXPECT_FALSE(PngSize("").has_value());
    EXPECT_FALSE(PngSize(Shipped("VxQQ2.gif")).has_value());
    EXPECT_FALSE(PngSize(Shipped("VxQQGroup.png").substr(0, 20)).has_value());
}

// A dialog with a picture is larger by it.
TEST_F(LabelPictures, AreDrawnInThePictureOfTheDialog) {
    const fs::path folder = host().disk.Real(workbench::kTextFolder + WIDE("\\text\\resource"));
    Write(Place("sign.png"), Shipped("AboutVx.png"));
    const fs::path out = folder / "out";
    DrawDialogs(folder, out);
    const std::string with = ReadFile(out / "Logo.png");
    Write(Place("sign.png"), Shipped("VxQQGroup.png"));
    DrawDialogs(folder, out);
    const std::string other = ReadFile(out / "Logo.png");
    ASSERT_TRUE(PngSize(with).has_value());
    EXPECT_GT(PngSize(with)->height, 96 + 30);
    EXPECT_EQ(PngSize(with)->height, PngSize(other)->height);
    EXPECT_NE(with, other);
    fs::remove(folder / "sign.png");
    EXPECT_THROW(DrawDialogs(folder, out), std::runtime_error);
}

TEST_F(LabelPictures, LieInsideAnSvg) {
    const fs::path file = host().disk.Real(WIDE("C:\\Work")) / "three.bin";
    Picture picture{10, 10, 10, 10, [&](Canvas& canvas) { canvas.Image({1, 2, 3, 4}, file); }};
    EXPECT_THROW(SvgOf(picture), std::runtime_error);
    for (const auto& [bytes, base64] :
         {std::pair{"M", "TQ=="}, {"Ma", "TWE="}, {"Man", "TWFu"}, {"\xff\xff\xbe", "//++"}}) {
        Write(WIDE("C:\\Work\\three.bin"), bytes);
        EXPECT_NE(SvgOf(picture).find(std::string("<image x=\"1\" y=\"2\" width=\"3\" height=\"4\" "
                                                  "href=\"data:image/png;base64,") +
                                      base64 + "\"/>"),
                  std::string::npos)
            << base64;
    }
}

}  // namespace
