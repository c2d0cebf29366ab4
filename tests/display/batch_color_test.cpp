// BatchColor: which part gets which colour, from which source, and what is left alone.
#include <array>
#include <bit>
#include <ctime>

#include "simhost/system/clock.h"
#include "simhost/trail/interpreter.h"
#include "tests/display/colour_bench.h"

namespace {

using namespace simhost;
using workbench::ByHandle;
using workbench::ColourBench;
using workbench::Colours;
using workbench::kModuleFolder;
using workbench::kTextFolder;
using workbench::Names;
using workbench::Numbers;
using workbench::Rgb;
using workbench::WholeRecord;

class BatchColor : public ColourBench {
protected:
    // Opens an assembly that uses these models once each.
    Model& OpenAssembly(std::initializer_list<Model*> models) {
        Model& top = Assembly("top");
        UseAll(top, models);
        Open(top);
        return top;
    }
    Rgb ColourOf(Model& model) { return Present({&model})[&model]; }
};

// --- The three modes ---------------------------------------------------------------------------

TEST_F(BatchColor, EachModeGivesTheColoursThatItsSeedForetells) {
    std::vector<Model*> parts;
    Model& top = Assembly("top");
    for (int i = 0; i < 12; ++i) {
        parts.push_back(&Part("part" + std::to_string(i)));
        UseAll(top, {parts.back()});
    }
    Open(top);
    for (const char* mode : {"asUG", "Optimization", "random"}) {
        SCOPED_TRACE(mode);
        Setting("VxRandomColorOpt", mode);
        ExpectForetold(mode, parts);
    }
}

TEST_F(BatchColor, APartAloneGetsTheFirstColourOfEachMode) {
    Model& part = Part("single");
    Open(part);
    for (const char* mode : {"asUG", "Optimization", "random"}) {
        SCOPED_TRACE(mode);
        Setting("VxRandomColorOpt", mode);
        ExpectForetold(mode, {&part});
    }
}

TEST_F(BatchColor, ANameThatFillsItsRecordToTheLastPlaceIsFound) {
    const std::string name = "a2345678901234567890123456789032";
    Setting("VxRandomColorOpt", "asUG");
    Model& alone = Part(name);
    Open(alone);
    ExpectForetold("asUG", {&alone});
    Model& used = Part("b" + name.substr(1));
    OpenAssembly({&used});
    ExpectForetold("asUG", {&used});
}

TEST_F(BatchColor, TheModeComesFromBesideTheModuleThePalettesFromTheTextFolder) {
    Model& part = Part("single");
    Open(part);
    Setting("VxRandomColorOpt", "asUG");
    TextFolderSetting("VxRandomColorOpt", "Optimization");
    Write(kModuleFolder + WIDE("\\VXconfig\\VxUGColor.ini"), "[0]\r\nvalue=9.9.9\r\n");
    ExpectForetold("asUG", {&part});
    EXPECT_EQ(ColourOf(part).green, 1);
}

TEST_F(BatchColor, BlanksInTheModeDoNotCount) {
    Model& part = Part("single");
    Open(part);
    Setting("VxRandomColorOpt", "\" as UG \"");
    ExpectForetold("asUG", {&part});
}

TEST_F(BatchColor, EveryNumberOfBothPalettesIsReached) {
    // One assembly of 1500 parts: the chance that a colour is missed is below 1 in 1000, and a
    // wrong modulus would leave colours out or draw black.
    Model& top = Assembly("top");
    std::vector<Model*> parts;
    for (int i = 0; i < 1500; ++i) {
        parts.push_back(&Part("p" + std::to_string(i), /*solids=*/0));
        UseAll(top, {parts.back()});
    }
    Open(top);
    for (const char* mode : {"asUG", "Optimization"}) {
        Setting("VxRandomColorOpt", mode);
        ExpectForetold(mode, parts);
        for (const auto& [part, colour] : Present(parts)) EXPECT_FALSE(colour == Rgb{});
    }
}

// --- A mode that is none of the three ----------------------------------------------------------

TEST_F(BatchColor, AFreshlyLoadedPluginPaintsBlackInAnUnknownMode) {
    Model& part = Part("single");
    Open(part);
    for (const char* mode : {"", "asug", "AsUG", "optimization", "Random", "1", "asUG2", "xasUG"}) {
        SCOPED_TRACE(mode);
        Setting("VxRandomColorOpt", mode);
        part.appearance.reset();
        Press("BatchColor");
        ASSERT_TRUE(part.appearance);
        EXPECT_EQ(Numbers(*part.appearance), Numbers(WholeRecord(0, 0, 0)));
    }
}

TEST_F(BatchColor, AnUnknownModeRepeatsTheLastColourOnAllPartsUntilThePluginIsLoadedAfresh) {
    Model& single = Part("single");
    Model& first = Part("first");
    Model& second = Part("second");
    Model& top = OpenAssembly({&first, &second});
    Open(single);
    Setting("VxRandomColorOpt", "asUG");
    Press("BatchColor");
    const Rgb last = ColourOf(single);
    EXPECT_EQ(last.green, 1);

    Setting("VxRandomColorOpt", "none");
    Open(top);
    Press("BatchColor");
    EXPECT_EQ(Present({&first, &second}), (Colours{{&first, last}, {&second, last}}));
    Press("BatchColor");
    EXPECT_EQ(Present({&first, &second}), (Colours{{&first, last}, {&second, last}}));

    workplace_->StopPlugin();
    Start();
    Press("BatchColor");
    EXPECT_EQ(Present({&first, &second}), (Colours{{&first, Rgb{}}, {&second, Rgb{}}}));
}

TEST_F(BatchColor, InAnUnknownModeNoPaletteIsRead) {
    Open(Part("single"));
    Setting("VxRandomColorOpt", "");
    Record();
    Press("BatchColor");
    Recorded();
    EXPECT_EQ(Lines("GetPrivateProfileStringW").size(), 1u);
}

// --- What a palette may hold -------------------------------------------------------------------

TEST_F(BatchColor, TheValuesOfAPaletteAreReadAsTheyStand) {
    const struct {
        const char* value;
        double red, green, blue;
    } rows[] = {
        {"255.128.0", 255, 128, 0},
        {"0.0.1", 0, 0, 1},
        {"12.34", 12, 0, 34},  // red up to the only full stop, blue after it
        {"5", 0, 0, 5},        // without a full stop the number is blue
        {"", 0, 0, 0},
        {"7.", 7, 0, 0},
        {".8", 0, 0, 8},
        {"..9", 0, 0, 9},
        {"1.2.3.4", 1, 2, 3},
        {" 1 2. 34 .5 ", 12, 34, 5},
        {"\" 10.20.30 \"", 10, 20, 30},
        {"x.y.z", 0, 0, 0},
        {"12:.3/4.56x", 12, 3, 56},   // the signs beside the digits end a number, too
        {"300.256.-4", 255, 255, 0},  // kept within what the host takes
        {"99999999999999999999.1.1", 255, 1, 1},
    };
    Model& part = Part("single");
    Open(part);
    Setting("VxRandomColorOpt", "Optimization");
    for (const auto& row : rows) {
        SCOPED_TRACE(row.value);
        std::string palette;
        for (int i = 0; i < 201; ++i) {
            palette += "[" + std::to_string(i) + "]\r\nvalue=" + row.value + "\r\n";
        }
        WritePalette("VxOptiColor.ini", palette);
        Press("BatchColor");
        ASSERT_TRUE(part.appearance);
        EXPECT_EQ(Numbers(*part.appearance),
                  Numbers(WholeRecord(row.red / 255.0, row.green / 255.0, row.blue / 255.0)));
    }
}

TEST_F(BatchColor, ASectionThatIsMissingFromThePaletteIsBlack) {
    Model& part = Part("single");
    Open(part);
    Setting("VxRandomColorOpt", "asUG");
    Press("BatchColor");
    EXPECT_EQ(ColourOf(part).blue, 2);
    // Of 217 sections none is left, and next no file either.
    WritePalette("VxUGColor.ini", "[217]\r\nvalue=1.1.1\r\n[-1]\r\nvalue=1.1.1\r\n");
    Press("BatchColor");
    EXPECT_EQ(ColourOf(part), Rgb{});
    Setting("VxRandomColorOpt", "Optimization");
    std::filesystem::remove(workplace_->Real(kTextFolder + WIDE("\\VXconfig\\VxOptiColor.ini")));
    Press("BatchColor");
    EXPECT_EQ(ColourOf(part), Rgb{});
}

TEST_F(BatchColor, SectionsAreNamedByTheDrawnNumberAndReadUnderTheKeyValue) {
    Open(Part("single"));
    Setting("VxRandomColorOpt", "asUG");
    Record();
    const std::time_t before = std::time(nullptr);
    Press("BatchColor");
    const std::time_t after = std::time(nullptr);
    Recorded();
    const Names reads = Lines("GetPrivateProfileStringW");
    ASSERT_EQ(reads.size(), 2u);
    bool foretold = false;
    for (std::time_t second = before; second <= after; ++second) {
        const std::string number =
            std::to_string(workbench::Draws(std::uint32_t(second)).Next() % 217);
        foretold = foretold || reads[1] == "GetPrivateProfileStringW(section=\"" + number +
                                               "\", key=\"value\", fallback=\"\", value=\"" +
                                               number +
                                               ".1.2\", size=255, path=\"C:\\App Text"
                                               "\\VXconfig\\VxUGColor.ini\") = " +
                                               std::to_string(number.size() + 4);
    }
    EXPECT_TRUE(foretold) << reads[1];
}

// --- The record --------------------------------------------------------------------------------

TEST_F(BatchColor, TheWholeRecordIsSetByteForByte) {
    Model& part = Part("single");
    Open(part);
    std::string palette;
    for (int i = 0; i < 217; ++i) {
        palette += "[" + std::to_string(i) + "]\r\nvalue=51.102.255\r\n";
    }
    WritePalette("VxUGColor.ini", palette);
    Setting("VxRandomColorOpt", "asUG");
    Press("BatchColor");
    ASSERT_TRUE(part.appearance);
    // ambient, diffuse, highlight, shininess, reserved, transparency, colour, highlight colour,
    // reflection; 51 and 102 of 255 are 0.2 and 0.4.
    const double expected[13] = {0.6, 0.9, 0.6, 0.6, 0.0, 0.0, 0.2, 0.4, 1.0, 1.0, 1.0, 1.0, 0.3};
    EXPECT_EQ(Numbers(*part.appearance), std::vector<double>(expected, expected + 13));
    using Bytes = std::array<unsigned char, sizeof expected>;
    EXPECT_EQ(std::bit_cast<Bytes>(*part.appearance), std::bit_cast<Bytes>(expected));
}

// --- Which part gets the colour ----------------------------------------------------------------

TEST_F(BatchColor, TwoUsesOfOnePartAreOneColourAndOneDraw) {
    Model& bolt = Part("bolt");
    Model& nut = Part("nut");
    Model& sub = Assembly("sub");
    UseAll(sub, {&bolt, &bolt});
    Model& top = Assembly("top");
    UseAll(top, {&bolt, &nut, &bolt, &sub, &sub});
    Open(top);
    Setting("VxRandomColorOpt", "random");
    Record();
    ExpectForetold("random", {&bolt, &nut, &sub});
    Recorded();
    EXPECT_EQ(Lines("prodb_unset_surface_props").size(), 12u);  // two boxes of six surfaces
}

TEST_F(BatchColor, ASubAssemblyDrawsTooAndPaintsThePartBeforeItInTheList) {
    Model& part = Part("part");
    Model& sub = AssemblyBehind(part);
    OpenAssembly({&sub, &part});
    ASSERT_EQ(ByHandle({&sub, &part}), (Names{"part.prt", sub.FileName()}));
    Setting("VxRandomColorOpt", "random");
    Record();
    ExpectForetold("random", {&part, &sub});  // the second triple of draws stays
    Recorded();
    const Names set = Lines("prodb_set_surface_props");
    ASSERT_EQ(set.size(), 2u);
    for (const std::string& call : set) {
        EXPECT_EQ(call.substr(0, call.find(", props=")),
                  "prodb_set_surface_props(object=part.prt object, itemType=69, id=-1, unused=0");
    }
    EXPECT_FALSE(sub.appearance);
}

TEST_F(BatchColor, ASubAssemblyBeforeAnyPartDrawsButPaintsNothing) {
    Model& part = Part("part");
    Model& sub = AssemblyBefore(part);
    OpenAssembly({&part, &sub});
    Setting("VxRandomColorOpt", "random");
    Record();
    ExpectForetold("random", {&part, &sub});  // the part has the second triple of draws
    Recorded();
    EXPECT_EQ(Lines("prodb_set_surface_props").size(), 1u);
}

TEST_F(BatchColor, TheKeptPartOfTheLastRunIsForgotten) {
    Model& part = Part("part");
    Model& sub = Assembly("sub");
    Open(part);
    Setting("VxRandomColorOpt", "random");
    Press("BatchColor");
    const Rgb kept = ColourOf(part);
    OpenAssembly({&sub});
    Record();
    Press("BatchColor");
    EXPECT_EQ(Lines("prodb_set_surface_props"), Names{});
    Recorded();
    EXPECT_EQ(ColourOf(part), kept);
}

TEST_F(BatchColor, SeveralSubAssembliesInARowAllPaintThePartBeforeThem) {
    Model& part = Part("part");
    Model& first = AssemblyBehind(part);
    Model& second = AssemblyBehind(first);
    Model& third = AssemblyBehind(second);
    OpenAssembly({&part, &first, &second, &third});
    for (const char* mode : {"asUG", "Optimization", "random"}) {
        Setting("VxRandomColorOpt", mode);
        Record();
        ExpectForetold(mode, {&part, &first, &second, &third});  // the fourth draw stays
        Recorded();
        EXPECT_EQ(Lines("prodb_set_surface_props").size(), 4u);
    }
}

TEST_F(BatchColor, AMixedListGoesByTheHandles) {
    Model& a = Part("a");
    Model& b = PartBehind(a);
    Model& c = AssemblyBehind(b);
    Model& d = AssemblyBefore(a);
    UseAll(c, {&a});
    UseAll(d, {&b});
    OpenAssembly({&c, &d, &a});
    for (const char* mode : {"asUG", "Optimization", "random"}) {
        Setting("VxRandomColorOpt", mode);
        ExpectForetold(mode, {&a, &b, &c, &d});
    }
}

TEST_F(BatchColor, SuppressedAndMissingComponentsAreNotColouredHiddenOnesAre) {
    Model& shown = Part("shown");
    Model& hidden = Part("hidden");
    Model& suppressed = Part("suppressed");
    Model& top = Assembly("top");
    UseAll(top, {&shown, &hidden, &suppressed});
    UseMissing(top, "lost.prt");
    FeatureOf(top, 2).hidden = true;
    FeatureOf(top, 3).status = PRO_FEAT_SUPPRESSED;
    Open(top);
    Setting("VxRandomColorOpt", "asUG");
    ExpectForetold("asUG", {&shown, &hidden});
    EXPECT_FALSE(suppressed.appearance);
}

TEST_F(BatchColor, TheTopAssemblyGetsNoColourAndIsNotInTheList) {
    Model& part = Part("part");
    Model& top = OpenAssembly({&part});
    Setting("VxRandomColorOpt", "random");
    ExpectForetold("random", {&part});
    EXPECT_FALSE(top.appearance);
}

TEST_F(BatchColor, SheetMetalAndSkeletonsAreParts) {
    Model& sheet = SheetMetal("sheet");
    Model& skeleton = Part("skeleton", /*solids=*/0);
    skeleton.partData.skeleton = true;
    Model& top = OpenAssembly({&sheet, &skeleton});
    Setting("VxRandomColorOpt", "asUG");
    ExpectForetold("asUG", {&sheet, &skeleton});
    Open(sheet);
    ExpectForetold("asUG", {&sheet});
    EXPECT_FALSE(top.appearance);
}

TEST_F(BatchColor, AManufacturingModelIsColouredFromItsAssembly) {
    Model& part = Part("part");
    Model& workpieces = Assembly("workpieces");
    UseAll(workpieces, {&part});
    Model& mill = Manufacturing("mill", workpieces);
    Open(mill);
    Setting("VxRandomColorOpt", "Optimization");
    Record();
    ExpectForetold("Optimization", {&part});
    Recorded();
    EXPECT_EQ(Lines("ProMfgAssemGet"),
              Names{"ProMfgAssemGet(manufacturing=mill.mfg, assembly=workpieces.asm) = 0"});
    EXPECT_EQ(Lines("ProSolidFeatVisit"), Names{"ProSolidFeatVisit(solid=workpieces.asm) = 0"});
    EXPECT_EQ(host().session.current->repaints, 1);
}

// --- Two runs ----------------------------------------------------------------------------------

TEST_F(BatchColor, DrawsByTheTimeThatAScriptSays) {
    Model& part = Part("single");
    Open(part);
    Setting("VxRandomColorOpt", "random");
    // 4 294 967 297 is one more than the generator can tell from 1.
    for (const char* seconds : {"1", "4294967297"}) {
        Play(std::string("@ clock ") + seconds + "\n~ Command `BatchColor`");
        workbench::Draws draws(1);
        for (const double part255 : {ColourOf(part).red, ColourOf(part).green, ColourOf(part).blue})
            EXPECT_EQ(part255, draws.Next() % 256) << seconds;
    }
    Play("@ clock");
    // There are 11 644 473 600 seconds from 1601 to 1970.
    EXPECT_NEAR(double(TellTime()) / 1e7 - 11644473600.0, double(std::time(nullptr)), 60);
    for (const char* wrong : {"-1", "soon", "1 2", "9999999999999999999999"}) {
        EXPECT_FALSE(RunScript(std::string("@ clock ") + wrong).empty()) << wrong;
    }
}

// 2000-01-01: 399 years with 96 leap days are 145 731 days since 1601, each of 864 000 000 000
// steps.
TEST_F(BatchColor, TheJournalTellsTheTimeInTheStepsOfWindows) {
    Open(Part("single"));
    Setting("VxRandomColorOpt", "random");
    Play("@ clock 946684800");
    Record();
    Press("BatchColor");
    Recorded();
    EXPECT_EQ(Lines("GetSystemTimeAsFileTime"),
              Names{"GetSystemTimeAsFileTime(time=125911584000000000) = 0"});
    EXPECT_EQ(TellTime(), 125911584000000000u);
}

TEST_F(BatchColor, TwoRunsGiveOtherColoursUnlessTheyFallWithinOneSecond) {
    Model& part = Part("single");
    Open(part);
    for (const char* mode : {"asUG", "Optimization", "random"}) {
        SCOPED_TRACE(mode);
        Setting("VxRandomColorOpt", mode);
        std::time_t second = 0;
        Rgb first;
        // Both presses lie within the second when it has not changed meanwhile.
        do {
            second = std::time(nullptr);
            Press("BatchColor");
            first = ColourOf(part);
            Press("BatchColor");
        } while (std::time(nullptr) != second);
        EXPECT_EQ(ColourOf(part), first);
        while (std::time(nullptr) == second) continue;
        Press("BatchColor");
        // The first draw of the next second is larger by 3 or 4 (214013 / 65536), or by some
        // 214013 / 65536 more for each further second; no modulus makes that the same colour.
        EXPECT_FALSE(ColourOf(part) == first);
    }
}

}  // namespace
