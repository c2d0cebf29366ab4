// The two ways to the plug-in's files: beside the module and below the text folder.
#include "frame/services/paths.h"
#include "simhost/system/windows.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using workbench::Workbench;

class Paths : public Workbench {
protected:
    static void ModuleAt(WideView path) {
        TheWindows().RemoveModule(WIDE("vorlatix5.1.dll"));
        TheWindows().AddModule(WIDE("vorlatix5.1.dll"), path);
    }
};

TEST_F(Paths, BesideTheModuleTakeThePlaceOfItsFileName) {
    ModuleAt(WIDE("C:\\Plug-in\\vorlatix5.1.dll"));
    EXPECT_EQ(FileBesideModule(WIDE("VXconfig\\VxConfig.ini")),
              WIDE("C:\\Plug-in\\VXconfig\\VxConfig.ini"));
    EXPECT_EQ(FileBesideModule(WIDE("tp\\vx.drw")), WIDE("C:\\Plug-in\\tp\\vx.drw"));
    EXPECT_EQ(WritableFileBesideModule(WIDE("VXconfig\\vorlatix.ini")),
              WideText(WIDE("C:\\Plug-in\\VXconfig\\vorlatix.ini")));
}

TEST_F(Paths, BesideTheModuleReplaceEveryOccurrenceOfItsName) {
    ModuleAt(WIDE("C:\\vorlatix5.1.dll\\old vorlatix5.1.dll\\vorlatix5.1.dll"));
    EXPECT_EQ(FileBesideModule(WIDE("a")), WIDE("C:\\a\\old a\\a"));
    EXPECT_EQ(WritableFileBesideModule(WIDE("a")), WideText(WIDE("C:\\a\\old a\\a")));
}

TEST_F(Paths, BesideTheModuleMindTheCaseOfItsName) {
    ModuleAt(WIDE("C:\\Plug-in\\VORLATIX5.1.dll"));
    EXPECT_EQ(FileBesideModule(WIDE("a")), WIDE("C:\\Plug-in\\VORLATIX5.1.dll"));
    EXPECT_EQ(WritableFileBesideModule(WIDE("a")), std::nullopt);
}

TEST_F(Paths, WithoutTheModuleAreTheExecutablesAndNotForWriting) {
    EXPECT_EQ(FileBesideModule(WIDE("a")), TheWindows().executablePath);
    EXPECT_EQ(WritableFileBesideModule(WIDE("a")), std::nullopt);
}

TEST_F(Paths, BesideTheModuleAreTakenWholeUpTo260Characters) {
    const WideText name = WIDE("\\vorlatix5.1.dll");
    for (const std::size_t length : {259u, 260u}) {
        const WideText folder = WIDE("C:\\") + WideText(length - 3 - name.size(), WideChar{'d'});
        ModuleAt(folder + name);
        EXPECT_EQ(FileBesideModule(WIDE("a")), folder + WIDE("\\a")) << length;
    }
}

TEST_F(Paths, BesideAModuleWithALongerPathAreCutAndNotForWriting) {
    const WideText name = WIDE("\\vorlatix5.1.dll");
    const WideText path = WIDE("C:\\") + WideText(258 - name.size(), WideChar{'d'}) + name;
    ASSERT_EQ(path.size(), 261u);
    ModuleAt(path);
    EXPECT_EQ(FileBesideModule(WIDE("a")), path.substr(0, 260));
    EXPECT_EQ(WritableFileBesideModule(WIDE("a")), std::nullopt);
}

TEST_F(Paths, WithoutAnAnswerOfWindowsAreEmptyAndNotForWriting) {
    ModuleAt(WIDE("C:\\Plug-in\\vorlatix5.1.dll"));
    Fail("GetModuleFileNameW", {.forGood = true, .status = 0});
    EXPECT_EQ(FileBesideModule(WIDE("a")), WIDE(""));
    EXPECT_EQ(WritableFileBesideModule(WIDE("a")), std::nullopt);
}

TEST_F(Paths, BelowTheTextFolderFollowTheHost) {
    ModuleAt(WIDE("C:\\Plug-in\\vorlatix5.1.dll"));
    EXPECT_EQ(AppTextDir(), workbench::kTextFolder);
    EXPECT_EQ(ConfigPathFor(WIDE("VxUGColor.ini")), WIDE("C:\\App Text\\VXconfig\\VxUGColor.ini"));
    host().textFolder = WIDE("C:\\文本 2");
    EXPECT_EQ(ConfigPathFor(WIDE("VxUGColor.ini")), WIDE("C:\\文本 2\\VXconfig\\VxUGColor.ini"));
}

TEST_F(Paths, BelowTheTextFolderAreRelativeToNothingWhenTheHostDoesNotAnswer) {
    Fail("ProToolkitApplTextPathGet", {.forGood = true});
    EXPECT_EQ(AppTextDir(), WIDE(""));
    EXPECT_EQ(ConfigPathFor(WIDE("a.ini")), WIDE("\\VXconfig\\a.ini"));
}

}  // namespace
