// The two palettes as they are installed: how many colours, in which form, and that the plug-in
// finds every one of them.
#include <algorithm>
#include <set>
#include <sstream>

#include "hostapi/windows.h"
#include "simhost/core/disk.h"
#include "tests/display/colour_bench.h"

namespace {

using namespace simhost;
using workbench::kTextFolder;
using workbench::Workbench;

struct Palette {
    const char* file;
    int count;
};

class Palettes : public Workbench, public ::testing::WithParamInterface<Palette> {
protected:
    WideText Path() const { return kTextFolder + WIDE("\\VXconfig\\") + Wide(GetParam().file); }
    WideText Value(const std::string& section) const {
        WideChar value[255] = {};
        const DWORD length = GetPrivateProfileStringW(Wide(section).c_str(), WIDE("value"),
                                                      WIDE(""), value, 255, Path().c_str());
        return WideText(value, length);
    }
};

// Three whole numbers up to 255 without leading zeros, with full stops between them.
bool IsColour(const std::string& text) {
    std::istringstream stream(text);
    int parts[3] = {-1, -1, -1};
    char stops[2] = {};
    stream >> parts[0] >> stops[0] >> parts[1] >> stops[1] >> parts[2];
    std::string again;
    for (const int part : parts) {
        if (part < 0 || part > 255) return false;
        again += (again.empty() ? "" : ".") + std::to_string(part);
    }
    return again == text;
}

TEST(PaletteColours, AreToldFromOtherTexts) {
    EXPECT_TRUE(IsColour("0.128.255"));
    for (const char* text :
         {"", "1.2", "1.2.3.4", "256.0.0", "01.2.3", "1,2,3", "1. 2.3", "-1.2.3"}) {
        EXPECT_FALSE(IsColour(text)) << text;
    }
}

TEST_P(Palettes, TheFileIsOneSectionAfterTheOtherFromZero) {
    const std::string text = Read(Path());
    std::size_t at = 0;
    int count = 0;
    for (; at < text.size(); ++count) {
        const std::string head = "[" + std::to_string(count) + "]\r\nvalue=";
        ASSERT_EQ(text.substr(at, head.size()), head);
        at += head.size();
        const std::size_t end = text.find("\r\n", at);
        ASSERT_NE(end, std::string::npos);
        EXPECT_TRUE(IsColour(text.substr(at, end - at))) << text.substr(at, end - at);
        at = end + 2;
    }
    EXPECT_EQ(count, GetParam().count);
}

TEST_P(Palettes, EverySectionIsFoundAndNoColourIsThereTwice) {
    std::set<WideText> values;
    for (int i = 0; i < GetParam().count; ++i) {
        const WideText value = Value(std::to_string(i));
        EXPECT_EQ(std::count(value.begin(), value.end(), WideChar{'.'}), 2) << i;
        values.insert(value);
    }
    EXPECT_EQ(int(values.size()), GetParam().count);
    EXPECT_EQ(Value(std::to_string(GetParam().count)), WideText());
    EXPECT_EQ(Value("-1"), WideText());
}

INSTANTIATE_TEST_SUITE_P(Installed, Palettes,
                         ::testing::Values(Palette{"VxUGColor.ini", 217},
                                           Palette{"VxOptiColor.ini", 201}),
                         [](const auto& row) {
                             const std::string file = row.param.file;
                             return file.substr(0, file.find('.'));
                         });

}  // namespace
