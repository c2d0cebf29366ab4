// The unpacked package: the module runs from where it was put, and finds everything beside itself.
#include <gtest/gtest.h>

#include <memory>

#include "simhost/app/workplace.h"
#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/system/windows.h"
#include "simhost/trail/interpreter.h"
#include "tests/support/desk.h"
#include "tests/support/places.h"

namespace {

using namespace simhost;

class UnpackedPackage : public testing::Test {
protected:
    // Module folder and text folder are one, as on a designer's computer.
    void SetUp() override {
        const WideChar* folder = _wgetenv(L"VX_PACKAGE");
        ASSERT_TRUE(folder) << "VX_PACKAGE names the folder of the unpacked package";
        WorkplaceOptions options;
        options.drive = workbench::DriveOfTests();
        options.module = std::filesystem::path(folder) / "vorlatix5.1.dll";
        options.moduleFolder = folder;
        options.textFolder = folder;
        options.project = std::filesystem::path(workbench::kSourceFolder) / "samples" / "gearbox";
        workplace_ = std::make_unique<Workplace>(options);
        ASSERT_EQ(workplace_->StartPlugin(), 0);
    }
    void TearDown() override {
        EXPECT_EQ(TheHost().complaints, std::vector<std::string>{});
        workplace_.reset();
        EXPECT_EQ(workbench::ClearDrive(), std::vector<std::string>{});
    }
    void Play(const std::string& lines) { EXPECT_EQ(RunScript(lines), std::vector<std::string>{}); }
    std::unique_ptr<Workplace> workplace_;
};

TEST_F(UnpackedPackage, IsLoadedFromItsOwnFolder) {
    WideChar path[MAX_PATH] = {};
    GetModuleFileNameW(GetModuleHandleW(L"vorlatix5.1.dll"), path, MAX_PATH);
    EXPECT_EQ(Utf8(path), Utf8(workplace_->options().moduleFolder) + "\\vorlatix5.1.dll");
}

TEST_F(UnpackedPackage, HasTheMenuWithItsTexts) {
    const Menu* menu = TheHost().commands.FindMenu("Menu");
    ASSERT_TRUE(menu);
    EXPECT_EQ(menu->buttons.size(), 56u);
    for (const MenuButton& button : menu->buttons) {
        EXPECT_NE(Utf8(button.label), button.name) << "no text in vxMenu.txt";
    }
}

TEST_F(UnpackedPackage, ColoursTheGearboxByItsSettings) {
    Play("@ open gearbox.asm");
    // The mode as shipped says nothing here: the settings of the package are really read.
    const WideText settings = workplace_->options().moduleFolder + L"\\VXconfig\\VxConfig.ini";
    WritePrivateProfileStringW(L"VxRandomColorOpt", L"value", L"asUG", settings.c_str());
    Play("~ Command `BatchColor`");
    int coloured = 0;
    for (const Model* model : TheHost().session.All()) coloured += model->appearance.has_value();
    EXPECT_GT(coloured, 10);
}

TEST_F(UnpackedPackage, KeepsTheLastDirectoryBesideTheModule) {
    const WideText folder = workplace_->options().moduleFolder;
    workplace_->StopPlugin();
    EXPECT_EQ(ReadFile(folder + L"\\VXconfig\\vorlatix.ini"), "C:\\Work\\");
}

}  // namespace
