// VxMdlRename: the name that is asked for, what goes along with a new one, and what is saved.
#include <algorithm>
#include <filesystem>

#include "simhost/core/disk.h"
#include "simhost/trail/interpreter.h"
#include "tests/support/observed.h"

namespace {

using namespace simhost;
using workbench::Joined;
using workbench::Names;
using workbench::ObservedBench;
namespace fs = std::filesystem;

constexpr const char* kOnlyOne = "\t当前模式只能选择1个元件\t";
constexpr const char* kRefused = "\t名称已存在或输入非法，请重新输入\t";
const Names kAsk = {"ProMessageDisplay", "ProMessageStringRead", "ProMdlRetrieve"};

class Rename : public ObservedBench {
protected:
    void SetUp() override {
        TextFolderSetting("RmbDisable", "0");
        Start();
        Open(workbench::MakeModels("top: plate, lid"));
        for (Model* model : host().session.All()) host().session.Save(*model);
        Play("@ select plate");
    }
    // What the action itself called; the access rule before it asks for the mode.
    Names OfTheAction() {
        Names calls = Recorded();
        if (!calls.empty() && calls.front() == "ProModeCurrentGet") calls.erase(calls.begin());
        return calls;
    }
    Names Files() {
        Names names;
        for (const auto& entry : fs::directory_iterator(host().disk.Real(WIDE("C:\\Work")))) {
            names.push_back(Utf8(
                Wide(reinterpret_cast<const char*>(entry.path().filename().u8string().c_str()))));
        }
        std::sort(names.begin(), names.end());
        return names;
    }
    // A drawing of that name, in the working folder and not in memory.
    void SaveDrawing(const std::string& name) {
        Model& drawing = workbench::MakeModels(name + ".drw: A3");
        host().session.Save(drawing);
        host().session.Erase(drawing);
    }
    static constexpr const char* kFilesBefore[] = {"lid.prt.1", "plate.prt.1", "top.asm.1"};
    void ExpectAllAsBefore() {
        EXPECT_EQ(Files(), Names(std::begin(kFilesBefore), std::end(kFilesBefore)));
        EXPECT_NE(host().session.FindByFile("plate.prt"), nullptr);
    }
};

// --- A new name ---

TEST_F(Rename, OfAModelWithoutADrawingIsItsOwnAlone) {
    Record();
    Play("~ Command `VxMdlRename`\n@ answer cover");
    EXPECT_EQ(OfTheAction(),
              Joined({{"ProSelbufferSelectionsGet", "ProArraySizeGet", "ProSelectionAsmcomppathGet",
                       "ProAsmcomppathMdlGet", "ProArrayFree", "ProMdlNameGet"},
                      kAsk,
                      {"ProMdlRename", "ProMdlSave", "ProMdlCurrentGet", "ProMdlSave"}}));
    EXPECT_EQ(Lines("ProMessageStringRead").size(), 1u);
    EXPECT_EQ(Lines("ProMessageStringRead")[0].find("ProMessageStringRead(size=32"), 0u);
    EXPECT_EQ(Files(),
              (Names{"cover.prt.1", "cover.prt.2", "lid.prt.1", "top.asm.1", "top.asm.2"}));
    EXPECT_EQ(Boxes(), Names{});
}

TEST_F(Rename, IsKeptByTheTopModelOnDisk) {
    Play(
        "~ Command `VxMdlRename`\n"
        "@ answer 盖板\n"
        "@ erase top.asm\n"
        "@ erase 盖板.prt\n"
        "@ open top.asm");
    const Feature& component = host().session.CurrentModel()->features()[0];
    ASSERT_NE(component.model, nullptr);
    EXPECT_EQ(component.model->name, WIDE("盖板"));
}

TEST_F(Rename, TakesTheDrawingOfTheSameNameAlong) {
    SaveDrawing("plate");
    Record();
    Play("~ Command `VxMdlRename`\n@ answer cover");
    Recorded();
    EXPECT_EQ(Lines("ProMdlRetrieve").size(), 1u);
    EXPECT_EQ(Lines("ProMdlRetrieve")[0].find(R"(ProMdlRetrieve(name="PLATE", type=4)"), 0u);
    const Names wanted = {R"(ProMdlRename(model=cover.prt, name="cover") = 0)",
                          R"(ProMdlRename(model=cover.drw, name="cover") = 0)"};
    EXPECT_EQ(Lines("ProMdlRename"), wanted);
    EXPECT_EQ(Lines("ProMdlSave"),
              (Names{"ProMdlSave(model=cover.prt) = 0", "ProMdlSave(model=cover.drw) = 0",
                     "ProMdlSave(model=top.asm) = 0"}));
    EXPECT_EQ(Files(), (Names{"cover.drw.1", "cover.drw.2", "cover.prt.1", "cover.prt.2",
                              "lid.prt.1", "top.asm.1", "top.asm.2"}));
}

TEST_F(Rename, IsToldAsAChangeOfNames) {
    std::string transcript;
    const Names failures = RunScript("~ Command `VxMdlRename`\n@ answer cover",
                                     [&](const std::string& line) { transcript += line + '\n'; });
    EXPECT_EQ(failures, Names{});
    EXPECT_NE(transcript.find("changed: the name of 1 model\n"), std::string::npos) << transcript;
}

TEST_F(Rename, LeavesADrawingBehindWhoseNewNameIsTaken) {
    SaveDrawing("plate");
    SaveDrawing("cover");
    Play("~ Command `VxMdlRename`\n@ answer cover\n@ expect no box");
    const Names files = Files();
    EXPECT_TRUE(std::count(files.begin(), files.end(), "plate.drw.2"));
    EXPECT_TRUE(std::count(files.begin(), files.end(), "cover.prt.2"));
    EXPECT_FALSE(std::count(files.begin(), files.end(), "cover.drw.2"));
}

TEST_F(Rename, DoesNotMindADrawingThatCannotBeRead) {
    Write(WIDE("C:\\Work\\plate.drw.1"), "this is no drawing");
    Play("~ Command `VxMdlRename`\n@ answer cover\n@ expect no box");
    const Names files = Files();
    EXPECT_TRUE(std::count(files.begin(), files.end(), "cover.prt.2"));
    EXPECT_TRUE(std::count(files.begin(), files.end(), "plate.drw.1"));
}

TEST_F(Rename, OfMoreThan32CharactersIsCutByTheHost) {
    Play("~ Command `VxMdlRename`\n@ answer A23456789012345678901234567890123456");
    EXPECT_NE(host().session.FindByFile("a2345678901234567890123456789012.prt"), nullptr);
}

TEST_F(Rename, IsInTheRightClickMenuToo) {
    // The first popup of a run has no buttons of ours.
    Play("@ right-click\n@ quit\n@ right-click\n@ choose 快速重命名(vx)\n@ answer cover");
    EXPECT_NE(host().session.FindByFile("cover.prt"), nullptr);
}

TEST_F(Rename, IsThatOfThePickedComponentWhereNothingIsSelected) {
    Play(
        "@ clear selection\n"
        "~ Command `VxMdlRename`\n"
        "@ expect message 请选择要重命名的零件或组件\n"
        "@ pick lid\n"
        "@ expect message 请输入新名称\n"
        "@ answer cover");
    EXPECT_NE(host().session.FindByFile("cover.prt"), nullptr);
    EXPECT_EQ(host().session.FindByFile("lid.prt"), nullptr);
}

// --- Asked again, or left ---

TEST_F(Rename, ProposesThePresentNameWhichIsTaken) {
    Play("~ Command `VxMdlRename`\n@ answer\n@ ok\n@ quit");
    EXPECT_EQ(host().messages.lastDefault(), WIDE("PLATE"));
    EXPECT_EQ(Boxes(), Names{kRefused});
    ExpectAllAsBefore();
}

TEST_F(Rename, AsksAgainForEachNameThatIsRefused) {
    Record();
    Play(
        "~ Command `VxMdlRename`\n"
        "@ answer LID\n@ ok\n"
        "@ answer a/b\n@ ok\n"
        "@ answer Plate\n@ ok\n"
        "@ answer cover");
    EXPECT_EQ(OfTheAction(),
              Joined({{"ProSelbufferSelectionsGet", "ProArraySizeGet", "ProSelectionAsmcomppathGet",
                       "ProAsmcomppathMdlGet", "ProArrayFree", "ProMdlNameGet"},
                      kAsk,
                      {"ProMdlRename", "MessageBoxW"},
                      kAsk,
                      {"ProMdlRename", "MessageBoxW"},
                      kAsk,
                      {"ProMdlRename", "MessageBoxW"},
                      kAsk,
                      {"ProMdlRename", "ProMdlSave", "ProMdlCurrentGet", "ProMdlSave"}}));
    EXPECT_EQ(Boxes(), (Names{kRefused, kRefused, kRefused}));
    EXPECT_EQ(AllBoxes()[0].flags, 0x40000u);
    EXPECT_NE(host().session.FindByFile("cover.prt"), nullptr);
}

TEST_F(Rename, ThatIsLeftLeavesAllAsItWas) {
    SaveDrawing("plate");
    Play("~ Command `VxMdlRename`\n@ answer lid\n@ ok\n@ quit");
    EXPECT_EQ(Files(), (Names{"lid.prt.1", "plate.drw.1", "plate.prt.1", "top.asm.1"}));
    EXPECT_FALSE(workbench::ModelNamed("top.asm").modified);
    EXPECT_EQ(workbench::ModelNamed("plate.prt").version, 1);
}

TEST_F(Rename, OfAFileThatIsHeldIsRefusedUntilItIsLetGo) {
    Play(
        "@ hold plate.prt.1\n"
        "~ Command `VxMdlRename`\n"
        "@ answer cover\n@ ok\n"
        "@ let go plate.prt.1\n"
        "@ answer cover");
    EXPECT_EQ(Boxes(), Names{kRefused});
    EXPECT_NE(host().session.FindByFile("cover.prt"), nullptr);
}

// Only a user who leaves ends the asking.
TEST_F(Rename, TakesAPromptThatFailsForAnEmptyAnswer) {
    Fail("ProMessageStringRead");
    Record();
    Play("~ Command `VxMdlRename`\n@ ok\n@ answer cover");
    Recorded();
    EXPECT_EQ(Lines("ProMdlRename").at(0), R"(ProMdlRename(model=plate.prt, name="") = -2)");
    EXPECT_EQ(Boxes(), Names{kRefused});
    EXPECT_NE(host().session.FindByFile("cover.prt"), nullptr);
}

// A refused name is not what is typed next, or left over where the prompt then fails.
TEST_F(Rename, ForgetsTheAnswerBefore) {
    Fail("ProMessageStringRead", {.n = 2});
    Record();
    Play("~ Command `VxMdlRename`\n@ answer lid\n@ ok\n@ ok\n@ quit");
    Recorded();
    EXPECT_EQ(Lines("ProMdlRename"), (Names{R"(ProMdlRename(model=plate.prt, name="lid") = -5)",
                                            R"(ProMdlRename(model=plate.prt, name="") = -2)"}));
}

// --- Not exactly one, and what fails ---

TEST_F(Rename, WithTwoSelectedIsANoticeAndNoPrompt) {
    Play("@ select plate, lid\n~ Command `VxMdlRename`\n@ ok");
    EXPECT_EQ(Boxes(), Names{kOnlyOne});
    ExpectAllAsBefore();
}

TEST_F(Rename, WithAnEmptySelectionThatCanBeReadIsTheSameNotice) {
    Play("@ selection empty\n~ Command `VxMdlRename`\n@ ok");
    EXPECT_EQ(Boxes(), Names{kOnlyOne});
    ExpectAllAsBefore();
}

TEST_F(Rename, EndsSilentlyWhereNoModelIsFound) {
    for (const char* operation : {"ProSelectionAsmcomppathGet", "ProAsmcomppathMdlGet"}) {
        Fail(operation);
        Press("VxMdlRename");
    }
    Play("@ clear selection\n~ Command `VxMdlRename`\n@ quit");
    Play("~ Command `VxMdlRename`\n@ pick nothing");
    EXPECT_EQ(Boxes(), Names{});
    ExpectAllAsBefore();
}

TEST_F(Rename, SavesNoTopModelWhereTheHostNamesNone) {
    Fail("ProMdlCurrentGet");
    Record();
    Play("~ Command `VxMdlRename`\n@ answer cover");
    Recorded();
    EXPECT_EQ(Lines("ProMdlSave"), Names{"ProMdlSave(model=cover.prt) = 0"});
}

// Only a handle that was never filled keeps it from the save.
TEST_F(Rename, SavesATopModelThatComesWithAnotherStatus) {
    Operation::Fail({.operation = "ProMdlCurrentGet", .afterWork = true});
    Record();
    Play("~ Command `VxMdlRename`\n@ answer cover");
    Recorded();
    EXPECT_EQ(Lines("ProMdlSave"),
              (Names{"ProMdlSave(model=cover.prt) = 0", "ProMdlSave(model=top.asm) = 0"}));
}

TEST_F(Rename, GoesOnWhereASaveFails) {
    SaveDrawing("plate");
    Fail("ProMdlSave", {.forGood = true});
    Record();
    Play("~ Command `VxMdlRename`\n@ answer cover\n@ expect no box");
    Recorded();
    EXPECT_EQ(Lines("ProMdlSave").size(), 3u);
    EXPECT_EQ(Files(), (Names{"cover.drw.1", "cover.prt.1", "lid.prt.1", "top.asm.1"}));
}

}  // namespace
