// The unpacked package: the module runs from where it was put, and finds everything beside itself.
#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <vector>

#include "simhost/app/workplace.h"
#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/system/windows.h"
#include "simhost/trail/interpreter.h"
#include "tests/support/desk.h"
#include "tests/support/drive.h"
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
    // Without the palette's file all would be black.
    std::set<std::vector<double>> colours;
    for (const Model* model : TheHost().session.All()) {
        if (!model->appearance) continue;
        const double* colour = model->appearance->colour;
        colours.insert({colour[0], colour[1], colour[2]});
    }
    EXPECT_GT(colours.size(), 3u);
}

TEST_F(UnpackedPackage, ListsTheGearboxWithTheColumnsOfItsSettings) {
    Play(
        "@ open gearbox.asm\n~ Command `VxBom`\n"
        "@ expect columns bom_list \"序号|代号|名称|模型名称|模型数量|材料|重量\"\n"
        "~ Close `VxBom`");
}

TEST_F(UnpackedPackage, TellsItsVersionInTheFilesProperties) {
    const WideText file = workplace_->options().moduleFolder + L"\\vorlatix5.1.dll";
    std::string block(GetFileVersionInfoSizeW(file.c_str(), nullptr), '\0');
    ASSERT_FALSE(block.empty());
    ASSERT_TRUE(GetFileVersionInfoW(file.c_str(), 0, DWORD(block.size()), block.data()));
    void* found = nullptr;
    UINT length = 0;
    ASSERT_TRUE(VerQueryValueW(block.data(), L"\\", &found, &length));
    EXPECT_EQ(static_cast<VS_FIXEDFILEINFO*>(found)->dwProductVersionMS, 0x00050001u);
    ASSERT_TRUE(
        VerQueryValueW(block.data(), L"\\StringFileInfo\\080404B0\\ProductName", &found, &length));
    EXPECT_EQ(Utf8(static_cast<const WideChar*>(found)), "岚枢工具");
}

TEST_F(UnpackedPackage, KeepsTheLastDirectoryBesideTheModule) {
    const WideText folder = workplace_->options().moduleFolder;
    workplace_->StopPlugin();
    EXPECT_EQ(ReadFile(folder + L"\\VXconfig\\vorlatix.ini"), "C:\\Work\\");
}

}  // namespace
