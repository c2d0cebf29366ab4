// VxTransparent and SurfTransparent: what flips, at which values, and what stays.
#include <algorithm>
#include <cmath>

#include "tests/support/observed.h"

namespace {

using namespace simhost;
using workbench::MakeModels;
using workbench::ModelNamed;
using workbench::Names;
using workbench::ObservedBench;

class Transparency : public ObservedBench {
protected:
    // TOP holds BOLT twice, and SUB, which holds PLATE.
    void SetUp() override {
        top_ = &MakeModels("top: bolt x2, sub(plate)");
        Open(*top_);
        Start();
    }
    static void Look(Model& model, double transparency, double red = 0.25) {
        model.appearance = DefaultAppearance();
        model.appearance->transparency = transparency;
        model.appearance->colour[0] = red;
    }
    // Flips the picked ones.
    void Flip(const std::string& picks) { Play("~ Command `VxTransparent`\n@ pick " + picks); }
    void FlipSurfaces(const std::string& picks) {
        Play("~ Command `SurfTransparent`\n@ pick " + picks);
    }
    static double Of(const std::string& model) {
        return ModelNamed(model).appearance->transparency;
    }
    Model* top_ = nullptr;
    Model& bolt() { return ModelNamed("bolt"); }
    Model& plate() { return ModelNamed("plate"); }
};

// --- VxTransparent

TEST_F(Transparency, EachPickedModelFlipsByItself) {
    Look(plate(), 0.618);
    Flip("bolt, sub/plate");
    EXPECT_EQ(Of("bolt"), 0.618);
    EXPECT_EQ(Of("plate"), 0);
    EXPECT_EQ(host().session.current->repaints, 1);
}

TEST_F(Transparency, AModelCountsAsTransparentFromTwoTenthsOn) {
    struct {
        double before, after;
    } const cases[] = {{0, 0.618}, {0.1, 0.618}, {std::nextafter(0.2, 0), 0.618},
                       {0.2, 0},   {0.618, 0},   {1, 0}};
    for (const auto& each : cases) {
        Look(bolt(), each.before);
        Flip("bolt");
        EXPECT_EQ(Of("bolt"), each.after) << each.before;
    }
}

TEST_F(Transparency, TheOtherFieldsOfTheModelStay) {
    Look(bolt(), 0, 0.125);
    bolt().appearance->reflection = 0.3;
    Flip("bolt");
    EXPECT_EQ(bolt().appearance->colour[0], 0.125);
    EXPECT_EQ(bolt().appearance->reflection, 0.3);
}

TEST_F(Transparency, TwoPickedUsesOfOnePartCancelEachOther) {
    Look(bolt(), 0.1);
    Flip("bolt, bolt:2");
    EXPECT_EQ(Of("bolt"), 0);
}

TEST_F(Transparency, TheSurfacesOfAPickedPartLoseTheirOwnAppearance) {
    plate().partData.surfaceAppearances[12] = DefaultAppearance();
    bolt().partData.surfaceAppearances[12] = DefaultAppearance();
    Flip("sub/plate");
    EXPECT_TRUE(plate().partData.surfaceAppearances.empty());
    EXPECT_EQ(bolt().partData.surfaceAppearances.size(), 1u);
}

// Its surfaces are asked for under the name of a part; that part is another model.
TEST_F(Transparency, APickedAssemblyFlipsItsOwnRecordAndAPartOfItsNameKeepsItsSurfaces) {
    Model& namesake = Part("sub");
    namesake.partData.surfaceAppearances[12] = DefaultAppearance();
    Flip("sub");
    EXPECT_EQ(ModelNamed("sub.asm").appearance->transparency, 0.618);
    EXPECT_FALSE(namesake.appearance);
    EXPECT_EQ(namesake.partData.surfaceAppearances.size(), 1u);
    EXPECT_FALSE(plate().appearance);
}

TEST_F(Transparency, APartOnScreenFlipsAtOnce) {
    Open(plate());
    plate().partData.surfaceAppearances[12] = DefaultAppearance();
    Press("VxTransparent");
    EXPECT_EQ(Of("plate"), 0.618);
    EXPECT_TRUE(plate().partData.surfaceAppearances.empty());
    Press("VxTransparent");
    EXPECT_EQ(Of("plate"), 0);
}

TEST_F(Transparency, APickOfNothingOrALeftOneChangesAndRepaintsNothing) {
    for (const std::string command : {"VxTransparent", "SurfTransparent"}) {
        for (const std::string answer : {"pick nothing", "quit"}) {
            Play("~ Command `" + command + "`\n@ " + answer);
        }
    }
    EXPECT_EQ(host().session.current->repaints, 0);
    EXPECT_FALSE(bolt().appearance);
}

// What such a pick has brought is not looked at.
TEST_F(Transparency, AFailedPickChangesAndRepaintsNothing) {
    for (const std::string command : {"VxTransparent", "SurfTransparent"}) {
        Operation::Fail({.operation = "ProSelect", .n = 1, .afterWork = true});
        Play("~ Command `" + command + "`\n@ pick bolt" +
             (command == "VxTransparent" ? "" : "#12"));
    }
    EXPECT_EQ(host().session.current->repaints, 0);
    EXPECT_FALSE(bolt().appearance);
    EXPECT_TRUE(bolt().partData.surfaceAppearances.empty());
}

TEST_F(Transparency, AManufacturingModelIsPickedInItsAssembly) {
    Open(Manufacturing("mill", *top_));
    Flip("bolt");
    FlipSurfaces("bolt#12");
    EXPECT_EQ(Of("bolt"), 0.618);
    EXPECT_EQ(bolt().partData.surfaceAppearances.at(12).transparency, 1.0);
}

TEST_F(Transparency, InADrawingBothCommandsAreGreyed) {
    Open(host().session.Create(WIDE("SHEET"), PRO_MDL_DRAWING));
    Play("@ expect greyed VxTransparent\n@ expect greyed SurfTransparent");
}

// The host may ask its rule, and show another model before it calls the action.
TEST_F(Transparency, WithoutASolidAPlainErrorIsAllThatComes) {
    for (const std::string command : {"VxTransparent", "SurfTransparent"}) {
        for (const std::string call : {"ProMdlCurrentGet", "ProMdlTypeGet"}) {
            Fail(call);
            Record();
            Play("~ Command `" + command +
                 "`\n@ expect box \"当前无组件/零件模型！\"\n"
                 "@ expect caption none\n@ ok");
            EXPECT_EQ(Lines("ProSelect"), Names{});
            EXPECT_EQ(Lines("ProWindowRepaint"), Names{});
        }
    }
}

TEST_F(Transparency, AFailedReadGivesZeroAndNeverTheRecordOfThePickBefore) {
    Look(bolt(), 0.9);
    Look(plate(), 0.9, 0.75);
    Fail("prodb_get_surface_props", {.n = 2});
    Flip("bolt, sub/plate");
    EXPECT_EQ(Of("bolt"), 0);
    EXPECT_EQ(Of("plate"), 0.618);
    EXPECT_EQ(plate().appearance->colour[0], 0);
}

TEST_F(Transparency, APickWhoseWayCannotBeHadIsPassedOver) {
    Fail("ProSelectionAsmcomppathGet");
    Flip("bolt, sub/plate");
    EXPECT_FALSE(bolt().appearance);
    EXPECT_EQ(Of("plate"), 0.618);
}

TEST_F(Transparency, TheCallsForAModelComeInTheirOrder) {
    Record();
    Flip("sub/plate");
    const Names calls = Recorded();
    const Names expected = {"ProMdlCurrentGet",        "ProMdlTypeGet",
                            "ProMessageDisplay",       "ProSelect",
                            "ProArraySizeGet",         "ProSelectionAsmcomppathGet",
                            "ProAsmcomppathMdlGet",    "ProMdlNameGet",
                            "ProMdlTypeGet",           "prodb_get_object_ptr",
                            "prodb_get_surface_props", "ProMdlNameGet",
                            "prodb_get_object_ptr",    "ProArrayAlloc",
                            "ProSolidSurfaceVisit"};
    const auto begin = std::search(calls.begin(), calls.end(), expected.begin(), expected.end());
    EXPECT_NE(begin, calls.end()) << ::testing::PrintToString(calls);
    ASSERT_GE(calls.size(), 2u);
    EXPECT_EQ(calls[calls.size() - 2], "prodb_set_surface_props");
    EXPECT_EQ(calls.back(), "ProWindowRepaint");
    EXPECT_NE(Lines("prodb_set_surface_props").at(0).find("itemType=69, id=-1, unused=0"),
              std::string::npos);
    EXPECT_EQ(Lines("ProSelect").size(), 1u);
    EXPECT_NE(Lines("ProSelect")
                  .at(0)
                  .find("filter=\"prt_or_asm\", most=-1, initial=null, "
                        "functions=null, environment=null, reference=null"),
              std::string::npos);
    EXPECT_NE(Lines("ProWindowRepaint").at(0).find("(window=-1)"), std::string::npos);
}

TEST_F(Transparency, TheMessageLineAsksForWhatIsToBePicked) {
    Play(
        "~ Command `VxTransparent`\n@ expect message 请选择要切换透明的零件：\n@ quit\n"
        "~ Command `SurfTransparent`\n@ expect message 请选择要切换透明的曲面：\n@ quit");
}

// --- SurfTransparent

TEST_F(Transparency, ASurfaceCountsAsTransparentNearOneOnly) {
    struct {
        double before, after;
    } const cases[] = {{0, 1},
                       {0.618, 1},
                       {0.94, 1},
                       {0.96, 0},
                       {1, 0},
                       // As 64-bit numbers this is further than 0.05 from 1.
                       {0.95, 1}};
    for (const auto& each : cases) {
        bolt().partData.surfaceAppearances[12] = DefaultAppearance();
        bolt().partData.surfaceAppearances[12].transparency = each.before;
        FlipSurfaces("bolt#12");
        EXPECT_EQ(bolt().partData.surfaceAppearances.at(12).transparency, each.after)
            << each.before;
    }
}

TEST_F(Transparency, ASurfaceTakesOnTheLookOfTheWholeInAllButTransparency) {
    Look(bolt(), 0.4, 0.125);
    ProdbSurfaceProps own = DefaultAppearance();
    own.colour[0] = 0.875;
    own.reflection = 0.7;
    bolt().partData.surfaceAppearances[12] = own;
    FlipSurfaces("bolt#12");
    const ProdbSurfaceProps& now = bolt().partData.surfaceAppearances.at(12);
    EXPECT_EQ(now.transparency, 1.0);
    EXPECT_EQ(now.colour[0], 0.125);
    EXPECT_EQ(now.reflection, bolt().appearance->reflection);
    EXPECT_EQ(Of("bolt"), 0.4);
}

TEST_F(Transparency, SurfacesArePickedInAPartToo) {
    Open(plate());
    FlipSurfaces("#12, #13");
    EXPECT_EQ(plate().partData.surfaceAppearances.size(), 2u);
    EXPECT_EQ(host().session.current->repaints, 1);
}

TEST_F(Transparency, AFailedReadOfASurfaceCountsAsOpaque) {
    plate().partData.surfaceAppearances[13] = DefaultAppearance();
    plate().partData.surfaceAppearances[13].transparency = 1;
    plate().partData.surfaceAppearances[12] = plate().partData.surfaceAppearances[13];
    Fail("prodb_get_surface_props", {.n = 4});  // whole, surface; whole, and this
    FlipSurfaces("sub/plate#12, sub/plate#13");
    EXPECT_EQ(plate().partData.surfaceAppearances.at(12).transparency, 0);
    EXPECT_EQ(plate().partData.surfaceAppearances.at(13).transparency, 1.0);
}

TEST_F(Transparency, TheFilterOfSurfacesAndTheirCallsAreAsPrescribed) {
    Record();
    FlipSurfaces("sub/plate#12");
    EXPECT_EQ(Recorded(),
              (Names{"ProModeCurrentGet", "ProStringToWstring", "ProMdlCurrentGet", "ProMdlTypeGet",
                     "ProMessageDisplay", "ProSelect", "ProArraySizeGet",
                     "ProSelectionModelitemGet", "ProModelitemMdlGet", "ProMdlNameGet",
                     "ProMdlTypeGet", "prodb_get_object_ptr", "prodb_get_surface_props",
                     "prodb_get_surface_props", "prodb_set_surface_props", "ProWindowRepaint"}));
    EXPECT_NE(Lines("ProSelect").at(0).find("filter=\"surface,sldface,qltface\", most=-1"),
              std::string::npos);
    const Names reads = Lines("prodb_get_surface_props");
    ASSERT_EQ(reads.size(), 2u);
    EXPECT_NE(reads[0].find("itemType=69, id=-1, unused=0"), std::string::npos);
    EXPECT_NE(reads[1].find("itemType=2, id=12, unused=0"), std::string::npos);
    ASSERT_EQ(Lines("prodb_set_surface_props").size(), 1u);
    EXPECT_NE(Lines("prodb_set_surface_props")[0].find("itemType=2, id=12, unused=0"),
              std::string::npos);
    EXPECT_EQ(Lines("ProSolidSurfaceVisit"), Names{});
}

}  // namespace
