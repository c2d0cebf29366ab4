// The @ words of scripts that look at models and change the session, and the Tab key at the prompt.
#include <filesystem>
#include <fstream>
#include <random>
#include <stdexcept>
#include <string>

#include "hostapi/host.h"
#include "hostapi/windows.h"
#include "simhost/app/prompt.h"
#include "simhost/trail/words.h"
#include "tests/simhost/trail_ground.h"

using namespace simhost;
using namespace trails;

namespace {

TEST_F(ModelScripts, ComponentsArePickedDownTheTree) {
    const int unit = top_->features()[0].id;
    const int second = unit_->features()[1].id;
    EXPECT_EQ(Run("@ select shaft, 箱体/SHAFT.PRT:2, ."), Failures{});
    ASSERT_EQ(host().session.selections.buffer().size(), 3u);
    EXPECT_EQ(Picked(0), "shaft.prt 2 -1 at " + std::to_string(top_->features()[1].id));
    EXPECT_EQ(Picked(1),
              "shaft.prt 2 -1 at " + std::to_string(unit) + " " + std::to_string(second));
    EXPECT_EQ(Picked(2), "top.asm 1 -1 at");
    EXPECT_EQ(Run("@ clear selection"), Failures{});
    EXPECT_TRUE(host().session.selections.buffer().empty());
}

TEST_F(ModelScripts, SurfacesFeaturesAndOtherItemsArePickedByTheirIds) {
    const std::string id = std::to_string(unit_->features()[0].id);
    EXPECT_EQ(Run("@ select shaft#11, shaft/surface#12, shaft/edge#7, 箱体#" + id), Failures{});
    ASSERT_EQ(host().session.selections.buffer().size(), 4u);
    const std::string at = " at " + std::to_string(top_->features()[1].id);
    EXPECT_EQ(Picked(0), "shaft.prt 5 11" + at);
    EXPECT_EQ(Picked(1), "shaft.prt 5 12" + at);
    EXPECT_EQ(Picked(2), "shaft.prt 6 7" + at);
    EXPECT_EQ(Picked(3).substr(0, 14), "箱体.asm 3 " + id.substr(0, 1));
}

TEST_F(ModelScripts, APathThatLeadsNowhereFailsAndTheSelectionStays) {
    EXPECT_EQ(Run("@ select shaft"), Failures{});
    EXPECT_EQ(Failure("@ select shaf"),
              "line 1: top.asm holds no component shaf; did you mean shaft.prt?");
    EXPECT_EQ(Failure("@ select 箱体/shaft:3"), "line 1: 箱体.asm holds shaft only 2 times");
    EXPECT_EQ(Failure("@ select shaft#999"), "line 1: shaft.prt has no surface or feature 999");
    EXPECT_EQ(Failure("@ select shaft#x"), "line 1: \"x\" after # is no id");
    EXPECT_EQ(Failure("@ select"), "line 1: a path belongs after select, such as UNIT/GEAR:2");
    EXPECT_EQ(host().session.selections.buffer().size(), 1u);
}

TEST_F(ModelScripts, TheTreeIsShownWithThePathsThatSelectTakes) {
    EXPECT_EQ(Run("@ show tree\n@ select 箱体, 箱体/shaft, 箱体/shaft:2, shaft"), Failures{});
    for (const char* path : {"    箱体 ", "    箱体/shaft ", "    箱体/shaft:2 ", "    shaft "}) {
        EXPECT_TRUE(Told(path)) << path;
    }
    EXPECT_TRUE(Told("4 components in top.asm"));
    EXPECT_EQ(Run("@ show tree 箱体"), Failures{});
    EXPECT_TRUE(Told("2 components in 箱体.asm"));
    EXPECT_FALSE(Told("    shaft "));
    EXPECT_EQ(Failure("@ show tree 箱"), "line 1: there is no component 箱");
}

TEST_F(ModelScripts, ComponentsAreShownWithTheirNewestFilesAndTheirConstraints) {
    Constraint fixed;
    fixed.type = PRO_ASM_FIX;
    Feature& shaft = *unit_->FindFeature(unit_->features()[0].id);
    shaft.constraints = {{fixed}};
    host().session.Save(*shaft_);
    host().session.Save(*shaft_);
    const std::size_t told = 44 + 1 + 36 + 1;
    EXPECT_EQ(Run("@ show components"), Failures{});
    EXPECT_TRUE(Told("not in the working folder"));
    EXPECT_FALSE(Told("changed since"));
    const std::size_t line = transcript_.find("    shaft  ");
    ASSERT_NE(line, std::string::npos) << transcript_;
    EXPECT_EQ(transcript_.substr(line + 4 + 45, 12), "shaft.prt.2 ");
    EXPECT_EQ(transcript_.substr(line + 4 + told, 2), "-\n") << "it has none";
    EXPECT_TRUE(Told(" fix\n"));
    host().session.Save(*unit_);
    unit_->modified = true;
    EXPECT_EQ(Run("@ show components"), Failures{});
    EXPECT_TRUE(Told("箱体.asm.1, changed since"));
    host().session.CloseCurrent();
    EXPECT_EQ(Failure("@ show components"), "line 1: no model is open");
}

TEST_F(ModelScripts, APartAndAnAssemblyOfOneNameAreToldApartByTheirType) {
    Use(*top_, Assembly("SHAFT"));
    EXPECT_EQ(Run("@ show tree\n@ select shaft.asm"), Failures{});
    EXPECT_TRUE(Told("    shaft.asm "));
    EXPECT_TRUE(Told("    shaft.prt "));
    EXPECT_EQ(Picked(0).substr(0, 9), "shaft.asm");
}

TEST_F(ModelScripts, APressTellsWhatItHasChanged) {
    changed = {shaft_, unit_};
    EXPECT_EQ(Run("~ Command `Changes`\n~ Command `Runs`"), Failures{});
    EXPECT_TRUE(
        Told("    changed: colours of 2 models, parameters of 2 models, relations of 1 model, "
             "1 model came into memory\n"));
    EXPECT_EQ(transcript_.find("changed:"), transcript_.rfind("changed:"));
}

TEST(ChineseHelp, EveryWordHasOne) {
    for (const Word& word : Words()) EXPECT_STRNE(ChineseHelp(word.name), "") << word.name;
}

TEST_F(ModelScripts, ATransparencyIsExpectedToTheLastBit) {
    EXPECT_EQ(Run("@ expect transparency shaft none\n@ expect transparency shaft#12 none"),
              Failures{});
    shaft_->appearance = DefaultAppearance();
    shaft_->appearance->transparency = 0.618;
    shaft_->partData.surfaceAppearances[12] = DefaultAppearance();
    shaft_->partData.surfaceAppearances[12].transparency = 1;
    EXPECT_EQ(Run("@ expect transparency shaft.prt 0.618\n@ expect transparency shaft#12 1"),
              Failures{});
    EXPECT_EQ(Failure("@ expect transparency shaft 0.6180000001"),
              "line 1: the transparency of shaft.prt is 0.618, not 0.6180000001");
    EXPECT_EQ(Failure("@ expect transparency shaft none"),
              "line 1: the transparency of shaft.prt is 0.618, not none");
    EXPECT_EQ(Failure("@ expect transparency top 0"),
              "line 1: the transparency of top.asm is none, not 0");
    EXPECT_EQ(Failure("@ expect transparency shaft much"),
              "line 1: a transparency is a number or none, not much");
    EXPECT_EQ(Failure("@ expect transparency shaft"),
              "line 1: a transparency is MODEL VALUE, or MODEL none");
    EXPECT_EQ(Failure("@ expect transparency shaft#99 0"), "line 1: shaft.prt has no surface 99");
}

TEST_F(ModelScripts, AManufacturingModelIsPickedInItsAssembly) {
    Open(Manufacturing("MILL", *top_));
    EXPECT_EQ(Run("@ select 箱体"), Failures{});
    EXPECT_EQ(host().session.selections.buffer()[0].top, top_);
}

TEST_F(ModelScripts, ModelsAreSavedClosedAndOpenedAgain) {
    const WideText folder = host().session.workingDirectory;
    EXPECT_EQ(Run("@ save all\n@ close\n@ open top.asm"), Failures{});
    bool found = false;
    Read(folder + WIDE("\\箱体.asm.1"), &found);
    EXPECT_TRUE(found);
    EXPECT_EQ(host().session.CurrentModel(), top_);
    EXPECT_EQ(Run("@ save\n@ save shaft.prt"), Failures{});
    EXPECT_EQ(top_->version, 2);
    EXPECT_EQ(shaft_->version, 2);
    EXPECT_EQ(Run("@ save all"), Failures{});  // nothing was changed since
    EXPECT_EQ(top_->version, 2);
    EXPECT_EQ(Failure("@ save shat.prt"),
              "line 1: the model shat.prt is not in memory; did you mean shaft.prt?");
}

TEST_F(ModelScripts, WindowsAreChangedByTheirModel) {
    Open(*shaft_);
    EXPECT_EQ(Run("@ window top.asm"), Failures{});
    EXPECT_EQ(host().session.CurrentModel(), top_);
    EXPECT_EQ(Failure("@ window 箱体.asm"), "line 1: no window shows 箱体.asm");
    EXPECT_EQ(Run("@ close"), Failures{});
    EXPECT_EQ(Failure("@ close"), "line 1: no window is open");
    EXPECT_EQ(Failure("@ select shaft"), "line 1: no model is open");
}

TEST_F(ModelScripts, AFileOrAFolderThatIsNotThereFails) {
    EXPECT_EQ(Failure("@ open nowhere.prt"), "line 1: there is no nowhere.prt in C:\\Work");
    EXPECT_EQ(Run("@ save shaft.prt"), Failures{});
    for (const char* slip : {"shft.prt", "shaft", "shaft.asm"}) {
        EXPECT_EQ(
            Failure(std::string("@ open ") + slip),
            std::string("line 1: there is no ") + slip + " in C:\\Work; did you mean shaft.prt?");
    }
    EXPECT_EQ(Failure("@ directory"), "line 1: a folder's name belongs after directory");
    EXPECT_EQ(Failure("@ directory C:\\Nowhere"), "line 1: there is no folder C:\\Nowhere");
    std::filesystem::create_directories(host().disk.Real(WIDE("C:\\Other")));
    EXPECT_EQ(Run("@ directory C:\\Other\\"), Failures{});
    EXPECT_EQ(host().session.workingDirectory, WIDE("C:\\Other"));
}

TEST_F(ModelScripts, ColoursAreExpectedAsRedGreenBlue) {
    shaft_->appearance = DefaultAppearance();
    shaft_->appearance->colour[0] = 1.0;
    shaft_->appearance->colour[1] = 128 / 255.0;
    shaft_->appearance->colour[2] = 0;
    EXPECT_EQ(Run("@ expect colour shaft.prt 255.128.0\n@ expect colour SHAFT 255.128.0\n"
                  "@ expect colour 箱体 none\n@ expect colour shaft#11 none"),
              Failures{});
    EXPECT_EQ(Failure("@ expect colour shaft 255.128.1"),
              "line 1: the colour of shaft.prt is 255.128.0, not 255.128.1");
    EXPECT_EQ(Failure("@ expect colour 箱体 0.0.0"),
              "line 1: the colour of 箱体.asm is none, not 0.0.0");
    EXPECT_EQ(Failure("@ expect colour shaft 1,2,3"),
              "line 1: a colour is R.G.B, each 0 to 255, or none, not 1,2,3");
    EXPECT_EQ(Failure("@ expect colour shaft 1.2.256").substr(0, 26), "line 1: a colour is R.G.B,");
    EXPECT_EQ(Failure("@ expect colour shaft#999 none"), "line 1: shaft.prt has no surface 999");
    EXPECT_EQ(Failure("@ expect colour shat none"),
              "line 1: the model shat is not in memory; did you mean shaft.prt?");
}

TEST_F(ModelScripts, AvailabilityIsExpected) {
    EXPECT_EQ(Run("@ expect available Runs\n@ expect greyed NotHere"), Failures{});
    EXPECT_EQ(Failure("@ expect greyed Runs"),
              "line 1: Runs is available (its access rule answers 3)");
    EXPECT_EQ(Failure("@ expect available NotHere"),
              "line 1: NotHere is not shown (its access rule answers 1)");
    EXPECT_EQ(Failure("@ expect greyed Rums"),
              "line 1: there is no command Rums; did you mean Runs?");
}

TEST_F(ModelScripts, TheSelectionIsShownWithThePathsThatSelectTakes) {
    const std::string id = std::to_string(top_->features()[0].id);
    const std::string picks = "箱体/shaft:2, shaft/surface#11, 箱体/shaft/edge#7, feature#" + id;
    ASSERT_EQ(Run("@ select " + picks + ", .\n@ show selection"), Failures{});
    // Paths fill 44 columns; a Chinese letter takes two.
    const auto blanks = [](int count) { return std::string(std::size_t(count), ' '); };
    EXPECT_TRUE(Told("    箱体/shaft:2" + blanks(32) + " shaft.prt in top.asm\n")) << transcript_;
    EXPECT_TRUE(Told("    shaft/surface#11" + blanks(28) + " shaft.prt in top.asm\n"));
    EXPECT_TRUE(Told("    箱体/shaft/edge#7" + blanks(27) + " shaft.prt in top.asm\n"));
    EXPECT_TRUE(Told("    feature#" + id + blanks(36 - int(id.size())) + " top.asm\n"));
    EXPECT_TRUE(Told("    ." + blanks(43) + " top.asm\n"));
}

TEST_F(ModelScripts, OfASelectedComponentThatIsGoneTheIdIsShown) {
    ASSERT_EQ(Run("@ select 箱体/shaft"), Failures{});
    const std::string id = std::to_string(unit_->features()[0].id);
    unit_->MutableFeatures().clear();
    EXPECT_EQ(Run("@ show selection"), Failures{});
    EXPECT_TRUE(Told("    箱体/" + id + " ")) << transcript_;
}

TEST_F(ModelScripts, EverythingCanBeShown) {
    shaft_->appearance = DefaultAppearance();
    EXPECT_EQ(Run("@ select shaft\n@ show models\n@ show menu\n@ show commands\n@ show dialog\n"
                  "@ show popup\n@ show selection\n@ show colours\n@ show messages"),
              Failures{});
    EXPECT_TRUE(Told("* top.asm"));
    EXPECT_TRUE(Told("3 models in memory, working folder C:\\Work"));
    EXPECT_TRUE(Told("NotHere                  not shown"));
    EXPECT_TRUE(Told("no dialog is open"));
    EXPECT_TRUE(Told("1 selected"));
    EXPECT_TRUE(Told("1 models have a colour of their own"));
    EXPECT_EQ(Failure("@ show model").substr(0, 66),
              "line 1: nothing called model can be shown; did you mean models? Th");
    EXPECT_EQ(Failure("@ show").substr(0, 26), "line 1: show what? models,");
}

// --- Settings, time, hooks

TEST_F(Scripts, ASettingIsWritten) {
    EXPECT_EQ(Run("@ setting RmbDisable value 0"), Failures{});
    WideChar value[20];
    const WideText path = workbench::kTextFolder + WIDE("\\VXconfig\\VxConfig.ini");
    GetPrivateProfileStringW(WIDE("RmbDisable"), WIDE("value"), WIDE("none"), value, 20,
                             path.c_str());
    EXPECT_EQ(WideText(value), WIDE("0"));
    EXPECT_FALSE(Told("note:"));
    EXPECT_EQ(Failure("@ setting RmbDisable"),
              "line 1: a setting is SECTION KEY VALUE, such as RmbDisable value 0");
}

TEST_F(Scripts, ASettingThatThePlugInDoesNotHaveFails) {
    EXPECT_EQ(
        Failure("@ setting VxRandomColrOpt value random"),
        "line 1: VxConfig.ini has no section VxRandomColrOpt; did you mean VxRandomColorOpt?");
    EXPECT_EQ(Failure("@ setting VxRandomColorOpt path random"),
              "line 1: the section VxRandomColorOpt has no key path; it has value");
    EXPECT_EQ(Run("@ setting vxrandomcoloropt VALUE random"), Failures{});
    EXPECT_EQ(Run("@ setting A0Asmpath path C:\\any.drw"), Failures{});
}

TEST_F(Scripts, AValueThatNoSettingHasIsWrittenWithANote) {
    EXPECT_EQ(Run("@ setting VxRandomColorOpt value rainbow"), Failures{});
    EXPECT_TRUE(
        Told("note: \"rainbow\" is no usual value of VxRandomColorOpt (asUG, Optimization, "
             "random)"));
    WideChar value[20];
    const WideText path = workbench::kTextFolder + WIDE("\\VXconfig\\VxConfig.ini");
    GetPrivateProfileStringW(WIDE("VxRandomColorOpt"), WIDE("value"), WIDE("none"), value, 20,
                             path.c_str());
    EXPECT_EQ(WideText(value), WIDE("rainbow"));
}

void Fires(HWND, UINT, UINT_PTR timer, DWORD) {
    seen += "fired ";
    KillTimer(nullptr, timer);
}

TEST_F(Scripts, WaitingLetsTimersFire) {
    SetTimer(nullptr, 1, 2000, Fires);
    EXPECT_EQ(Run("@ wait 1.5"), Failures{});
    EXPECT_EQ(seen, "");
    EXPECT_EQ(Run("@ wait 0.5"), Failures{});
    EXPECT_EQ(seen, "fired ");
    EXPECT_EQ(Failure("@ wait long"), "line 1: \"long\" is no number of seconds");
    EXPECT_EQ(Failure("@ wait"), "line 1: a number of seconds belongs after wait");
    EXPECT_EQ(Failure("@ wait -1"), "line 1: \"-1\" is no number of seconds");
}

TEST_F(Scripts, TheApplicationLoadsUnloadsAndDraws) {
    EXPECT_EQ(Failure("@ start"), "line 1: nothing here can load the plug-in");
    EXPECT_EQ(Failure("@ picture x.svg"), "line 1: nothing here can draw pictures");
    TheHooks().start = [] { return std::string("the module has no user_initialize"); };
    TheHooks().stop = [] {
        seen += "stopped ";
        return std::string();
    };
    TheHooks().picture = [](const std::string& file, bool asOnScreen) {
        seen += file + (asOnScreen ? " screen " : " ");
        return std::string();
    };
    EXPECT_EQ(Failure("@ start"), "line 1: the module has no user_initialize");
    EXPECT_EQ(Run("@ stop\n@ picture \"a b.svg\"\n@ picture screen b.png"), Failures{});
    EXPECT_EQ(seen, "stopped a b.svg b.png screen ");
}

TEST_F(Scripts, WhatIsLoadedIsNotLoadedAgainAndWhatIsNotIsNotUnloaded) {
    bool loaded = true;
    TheHooks().loaded = [&loaded] { return loaded; };
    TheHooks().start = TheHooks().stop = [] {
        seen += "done ";
        return std::string();
    };
    EXPECT_EQ(Run("@ start"), Failures{});
    EXPECT_TRUE(Told("the plug-in is loaded already"));
    loaded = false;
    EXPECT_EQ(Run("@ stop"), Failures{});
    EXPECT_TRUE(Told("the plug-in is not loaded"));
    EXPECT_EQ(seen, "");
    EXPECT_EQ(Failure("~ Command `BatchColor`"),
              "line 1: there is no command BatchColor; the plug-in is not loaded: start loads it");
}

TEST_F(Scripts, AScriptEndsWhereThePlugInCannotBeLoaded) {
    TheHooks().start = [] { return std::string("it is broken"); };
    EXPECT_EQ(Failure("@ start\n~ Command `Nowhere`\n@ expect box x"), "line 1: it is broken");
}

TEST(ScriptFiles, OneThatIsNoUtf8TextIsRefused) {
    const std::filesystem::path file = std::filesystem::temp_directory_path() /
                                       ("script-" + std::to_string(std::random_device()()));
    for (const char* bytes : {"@ open \xcf\xe4.asm", "\xff\xfe@"}) {
        std::ofstream(file) << bytes;
        EXPECT_THROW(FileSource(file.string()), std::runtime_error) << bytes;
    }
    std::filesystem::remove(file);
}

TEST_F(Scripts, ANoteStandsInTheTranscript) {
    EXPECT_EQ(Run("@ note the second half\n@ help words"), Failures{});
    EXPECT_TRUE(Told("@ note the second half"));
    EXPECT_TRUE(Told("@ expect box TEXT"));
    EXPECT_EQ(Failure("@ ok now"), "line 1: nothing belongs after ok, but there is \"now\"");
}

TEST_F(Scripts, TheUserBeforeTheScriptIsBackAfterIt) {
    EXPECT_EQ(host().user, nullptr);
    Run("~ Command `Runs`");
    EXPECT_EQ(host().user, nullptr);
}

// --- The Tab key

TEST_F(ModelScripts, TheTabKeyKnowsStepsWordsCommandsDialogsAndModels) {
    using Words = std::vector<std::string>;
    EXPECT_EQ(Completions("~ Ac"), Words{"Activate"});
    EXPECT_EQ(Completions("~ Command `Run"), Words{"Runs"});
    EXPECT_EQ(Completions("Run"), Words{"Runs"});
    EXPECT_EQ(Completions("@ expect ca"), Words{"caption"});
    EXPECT_EQ(Completions("expect no "), (Words{"box", "button", "file"}));
    EXPECT_EQ(Completions("select 箱体/SH"), (Words{"shaft", "shaft:2"}));
    EXPECT_EQ(Completions("select shaft, "), (Words{"shaft", "箱体/"}));
    EXPECT_EQ(Completions("show tree 箱"), Words{"箱体/"});
    EXPECT_EQ(Completions("select nowhere/"), Words{});
    EXPECT_EQ(Completions("show col"), Words{"colours"});
    EXPECT_EQ(Completions("expect greyed Not"), Words{"NotHere"});
    char name[] = "Settings";
    ProUIDialogCreate(name, name);
    EXPECT_EQ(Completions("~ Activate `Set"), Words{"Settings"});
    EXPECT_EQ(Completions("~ FocusIn `Settings` `A"), Words{"Apply"});
    EXPECT_EQ(Completions("~ Command `Runs`; ~ Activate `Settings` `O"), Words{"OK"});
    EXPECT_EQ(Run("@ save all"), Failures{});
    EXPECT_EQ(Completions("open s"), Words{"shaft.prt"});
}

}  // namespace
