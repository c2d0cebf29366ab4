// Rows of keys in model files: what one row reads, writes, leaves out and refuses.
#include <gtest/gtest.h>

#include "simhost/model/model_fields.h"
#include "simhost/model/model_file.h"

using namespace simhost;
using namespace simhost::model_text;

namespace {

struct Lid {
    bool closed = true;
    double gap = 0.5;
};
enum class Colour { Red, Green };
struct Case {
    int id = 0;
    std::string maker = "unknown";
    Vec3 at;
    Colour colour = Colour::Red;
    Lid lid;
};

constexpr const char* kColours[] = {"red", "green"};
constexpr Field<Case> kCaseFields[] = {
    Required(Whole<1, &Case::id>("id")),
    Of<&Case::maker>("maker"),
    Of<&Case::at>("at"),
    OneOf<kColours, &Case::colour>("colour"),
    Of<&Case::lid, &Lid::closed>("closed"),
    Of<&Case::lid, &Lid::gap>("gap"),
};

Case Read(const std::string& text) {
    Case read;
    ReadRecord(toml::parse(text, std::string_view("case")), kCaseFields, &read);
    return read;
}

std::string Written(const Case& one) {
    std::string text;
    AddFields(&text, kCaseFields, one);
    return text;
}

std::string Complaint(const std::string& text) {
    try {
        Read(text);
    } catch (const ModelFileError& error) {
        return error.what();
    }
    return "";
}

TEST(ModelFields, AreReadIntoTheirMembersWhereverTheseAre) {
    const Case read = Read(
        "gap = 2\nid = 7\nmaker = '岚枢'\nat = [1, 2, 3.5]\ncolour = 'green'\nclosed = false\n");
    EXPECT_EQ(read.id, 7);
    EXPECT_EQ(read.maker, "岚枢");
    EXPECT_EQ(read.at, (Vec3{1, 2, 3.5}));
    EXPECT_EQ(read.colour, Colour::Green);
    EXPECT_FALSE(read.lid.closed);
    EXPECT_EQ(read.lid.gap, 2);
}

TEST(ModelFields, KeepTheirInitialValuesWhereTheFileSaysNothing) {
    const Case read = Read("id = 7\n");
    EXPECT_EQ(read.maker, "unknown");
    EXPECT_EQ(read.colour, Colour::Red);
    EXPECT_TRUE(read.lid.closed);
    EXPECT_EQ(read.lid.gap, 0.5);
}

TEST(ModelFields, AreWrittenInTheOrderOfTheirRows) {
    EXPECT_EQ(Written({7, "岚枢", {1, 2, 3.5}, Colour::Green, {false, 2}}),
              "id = 7\nmaker = \"岚枢\"\nat = [1, 2, 3.5]\ncolour = \"green\"\nclosed = false\n"
              "gap = 2\n");
}

TEST(ModelFields, AreLeftOutAsTheyWereMadeUnlessRequired) {
    EXPECT_EQ(Written({}), "id = 0\n");
    // Zero and nothing are no usual values by themselves.
    EXPECT_EQ(Written({1, "", {}, Colour::Red, {true, 0}}), "id = 1\nmaker = \"\"\ngap = 0\n");
}

TEST(ModelFields, RefuseWhatIsUnknownMissingOrOfTheWrongKind) {
    EXPECT_EQ(Complaint("id = 1\nmakr = 'x'\n"), "case:2: unknown key \"makr\"");
    EXPECT_EQ(Complaint("maker = 'x'\n"), "case:1: \"id\" is missing");
    EXPECT_EQ(Complaint("id = 0\n"), "case:1: \"id\" must be a whole number, at least 1");
    EXPECT_EQ(Complaint("id = 1\nclosed = 1\n"), "case:2: \"closed\" must be true or false");
    EXPECT_EQ(Complaint("id = 1\ngap = '2'\n"), "case:2: \"gap\" must be a number");
    EXPECT_EQ(Complaint("id = 1\ncolour = 'blue'\n"),
              "case:2: \"colour\" must be one of \"red\", \"green\"");
}

}  // namespace
