// Files that are no model: whatever is in them, the reader says what is wrong, in every build.
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "simhost/model/model_file.h"
#include "simhost/picture/svg_canvas.h"

using namespace simhost;

namespace {

const std::string kGood =
    "[model]\ntype = \"part\"\ntitle = \"t\"\n\n[[parameter]]\nname = \"P\"\nvalue = 1.5\n\n"
    "[[solid]]\nid = 10\nshape = \"box\"\nsize = [1, 2, 3]\nturn = [0, 0, 90]\n";

// What the reader says; empty if it takes the text.
std::string Said(const std::string& text) {
    Model model;
    try {
        ReadModelText(text, "trial.prt.1", &model);
    } catch (const ModelFileError& error) {
        return error.what();
    }
    return "";
}

std::string PartOf(const std::string& key, const std::string& value) {
    return "[model]\ntype = \"part\"\n[[solid]]\nid = 10\nshape = \"box\"\nsize = [1, 1, 1]\n" +
           key + " = " + value + "\n";
}

TEST(BrokenModelFile, WithAControlCharacterIsNamedWithItsLine) {
    EXPECT_EQ(Said("[\x1a").substr(0, 14), "trial.prt.1:1:");
    EXPECT_EQ(Said(PartOf("turn", "[},0,0]")).substr(0, 14), "trial.prt.1:7:");
}

// Every place of a good file gets every character that means something, and some that do not.
TEST(BrokenModelFile, IsAnErrorOfTheFileAndNothingElse) {
    ASSERT_EQ(Said(kGood), "");
    constexpr char kBytes[] = "\0\x01\x1a\x7f\n\r\t \"'[]{}=,.#+-_0eE:TZxX\\u\x80\xc3\xff\xef";
    const std::string bytes(kBytes, sizeof kBytes - 1);
    for (std::size_t at = 0; at <= kGood.size(); ++at) {
        for (const char byte : bytes) {
            std::string changed = kGood;
            if (at < kGood.size()) changed[at] = byte;
            Said(changed);
            Said(kGood.substr(0, at) + byte + kGood.substr(at));
        }
        Said(kGood.substr(0, at));
    }
}

TEST(BrokenModelFile, WithMeasuresThatNobodyCanMultiplyIsRefused) {
    EXPECT_EQ(Said(PartOf("at", "[1e30, -1e30, 0]")), "");
    EXPECT_EQ(Said(PartOf("at", "[0, -1.1e30, 0]")),
              "trial.prt.1:7: \"at\" must be between -1e30 and 1e30");
    EXPECT_EQ(Said("[model]\ntype = \"part\"\n[[solid]]\nid = 1\nshape = \"cylinder\"\n"
                   "diameter = 1e300\nlength = 1\n"),
              "trial.prt.1:6: \"diameter\" must be between -1e30 and 1e30");
    EXPECT_EQ(Said("[model]\ntype = \"part\"\n[[parameter]]\nname = \"P\"\nvalue = 1e300\n"), "")
        << "parameters are not multiplied here";
}

TEST(NumbersOfPictures, AreWrittenHoweverLargeTheyAre) {
    EXPECT_EQ(SvgNumber(12.345), "12.35");
    EXPECT_EQ(SvgNumber(-0.5), "-.5");
    EXPECT_EQ(SvgNumber(-1e300), "-1e+300");
    EXPECT_EQ(SvgNumber(9.3e16), "9.3e+16");
    EXPECT_EQ(SvgNumber(std::numeric_limits<double>::infinity()), "0")
        << "not a number of the format";
}

}  // namespace
