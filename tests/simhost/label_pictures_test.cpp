// Labels with pictures: the file is looked for and looked at when the dialog is made.
#include <filesystem>

#include "hostapi/host.h"
#include "simhost/core/disk.h"
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

}  // namespace
