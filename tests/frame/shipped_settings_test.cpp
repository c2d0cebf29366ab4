// The settings as they are shipped: read and written alike whatever the code page of the system is,
// and files in an old or in the system's own code page beside them.
#include <cstdlib>

#include "hostapi/windows.h"
#include "simhost/core/text.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using workbench::kModuleFolder;
using workbench::Workbench;

// Of a real Windows the one that it has, which VX_CODE_PAGE names where it is to be another.
std::vector<unsigned> CodePages() {
#ifdef _WIN32
    return {GetACP()};
#else
    return {936, 1252, 65001};
#endif
}

class ShippedSettings : public Workbench {
protected:
    static WideText PathOf(const WideText& file) {
        return kModuleFolder + WIDE("\\VXconfig\\") + file;
    }
    static std::string ValueOf(const WideText& file, const WideText& section, const WideText& key) {
        WideChar value[255];
        GetPrivateProfileStringW(section.c_str(), key.c_str(), WIDE("(missing)"), value, 255,
                                 PathOf(file).c_str());
        return Utf8(value);
    }
    void Delete(const WideText& file) { std::filesystem::remove(host().disk.Real(PathOf(file))); }
    static constexpr const char* kMark = "\xFF\xFE";
};

TEST_F(ShippedSettings, RunUnderTheCodePageThatWasAskedFor) {
    const char* wanted = std::getenv("VX_CODE_PAGE");
    for (const unsigned page : CodePages()) {
        SetSystemCodePage(page);
        EXPECT_EQ(SystemCodePage(), page);
        EXPECT_EQ(std::to_string(page), wanted ? wanted : std::to_string(page));
    }
}

TEST_F(ShippedSettings, AreReadAlikeUnderEveryCodePage) {
    for (const unsigned page : CodePages()) {
        SCOPED_TRACE(page);
        SetSystemCodePage(page);
        EXPECT_EQ(ValueOf(WIDE("VxBom.ini"), WIDE("tableCols_sum"), WIDE("content")),
                  "代号,名称,模型名称,模型数量,材料,重量");
        EXPECT_EQ(ValueOf(WIDE("VxConfig.ini"), WIDE("SetLastDir"), WIDE("value")), "0");
        EXPECT_EQ(ValueOf(WIDE("VxParams.ini"), WIDE("InputKeyWords"), WIDE("content")), "");
    }
}

TEST_F(ShippedSettings, StayWholeAndMarkedWhenAValueIsWritten) {
    for (const unsigned page : CodePages()) {
        SCOPED_TRACE(page);
        SetSystemCodePage(page);
        const std::string before = ReadSettings(PathOf(WIDE("VxConfig.ini")));
        Setting("SetLastDir", "螺栓 " + std::to_string(page));
        EXPECT_EQ(Read(PathOf(WIDE("VxConfig.ini"))).substr(0, 2), kMark);
        EXPECT_EQ(ValueOf(WIDE("VxConfig.ini"), WIDE("SetLastDir"), WIDE("value")),
                  "螺栓 " + std::to_string(page));
        Setting("SetLastDir", "0");
        const std::string after = ReadSettings(PathOf(WIDE("VxConfig.ini")));
        EXPECT_NE(after.find("; 启动时是否回到上次的工作目录"), std::string::npos);
        EXPECT_EQ(after.substr(0, 20), before.substr(0, 20));
    }
}

// What the plug-in showed its users so far lies in their folders still.
TEST_F(ShippedSettings, InTheChineseCodePageAreStillReadOnAChineseSystem) {
    SetSystemCodePage(936);
    Write(PathOf(WIDE("VxBom.ini")),
          ToCodePage(936, WIDE("; 列\r\n[tableCols_sum]\r\ncontent=模型名称\r\n")));
    // Another system reads two letters for each.
    EXPECT_EQ(ValueOf(WIDE("VxBom.ini"), WIDE("tableCols_sum"), WIDE("content")) == "模型名称",
              SystemCodePage() == 936);
}

// The plug-in makes no marks: whoever deletes a file gets one in the system's code page.
TEST_F(ShippedSettings, ThatWereDeletedComeBackInTheCodePageOfTheSystem) {
    for (const unsigned page : CodePages()) {
        SCOPED_TRACE(page);
        SetSystemCodePage(page);
        Delete(WIDE("VxConfig.ini"));
        Setting("SetLastDir", "é螺");
        EXPECT_EQ(Read(PathOf(WIDE("VxConfig.ini"))),
                  "[SetLastDir]\r\nvalue=" + ToCodePage(page, WIDE("é螺")) + "\r\n");
    }
}

}  // namespace
