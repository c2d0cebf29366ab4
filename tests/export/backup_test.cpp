// VxBackup from outside: which models and drawings come into the chosen folder, what stays as it
// was, and what becomes of a prompt that is left and of files that cannot be written.
#include "simhost/core/disk.h"
#include "simhost/model/drawing.h"
#include "simhost/model/model_file.h"
#include "tests/export/folders.h"
#include "tests/support/call_order.h"

namespace {

using namespace simhost;
using workbench::Completion;
using workbench::FolderBench;
using workbench::Names;

class Backup : public FolderBench {
protected:
    // Presses the command, chooses this folder and reads the notice at the end.
    void Run(const std::string& folder = "C:\\Out") {
        Play("~ Command `VxBackup`\n@ answer " + folder +
             "\n@ expect box 图纸备份操作已完成\n@ ok");
    }
    // A drawing of a model, saved.
    Model& Drawing(const std::string& name, Model& shown) {
        Model& drawing = workbench::MakeModels(name + ".drw: A3");
        DrawingOf(drawing).AddGeneral(shown, 1, {100, 100, 0}, 1, {});
        host().session.Save(drawing);
        return drawing;
    }
    // The calls that look for a drawing, and those that write.
    Names Order() {
        return workbench::CallOrder((Recorded(), Lines("Pro*")),
                                    {"ProDirectoryChange", "ProMdlBackup", "ProMdlRetrieve"});
    }
};

// --- What is backed up ---

TEST_F(Backup, HoldsEveryModelOnceAndTellsSo) {
    OpenSaved("top: a x3, sub(b, a)");
    Run();
    EXPECT_EQ(FilesOf("C:\\Out"), (Names{"a.prt.1", "b.prt.1", "sub.asm.1", "top.asm.1"}));
    EXPECT_EQ(Boxes(), Names{Completion("图纸备份操作已完成")});
    EXPECT_EQ(AllBoxes().at(0).flags, 0x40000u);
    EXPECT_TRUE(AllBoxes().at(0).hasCaption);
}

TEST_F(Backup, CanBeOpenedByItselfWithAllBelowIt) {
    OpenSaved("top: a x3, sub(b, a)");
    Run();
    std::filesystem::remove_all(Real("C:\\Work"));
    std::filesystem::create_directories(Real("C:\\Work"));
    Play(
        "@ close\n@ erase top.asm\n@ erase sub.asm\n@ erase a.prt\n@ erase b.prt\n"
        "@ directory C:\\Out\n@ open top.asm");
    Model* top = host().session.FindByFile("top.asm");
    ASSERT_NE(top, nullptr);
    EXPECT_EQ(top->features().size(), 4u);
    for (const Feature& feature : top->features()) EXPECT_NE(feature.model, nullptr);
}

TEST_F(Backup, TakesDrawingsOfTheSameNameAlong) {
    Model& top = OpenSaved("top: a, b");
    Drawing("a", *host().session.FindByFile("a.prt"));
    Drawing("top", top);
    Run();
    EXPECT_EQ(FilesOf("C:\\Out"),
              (Names{"a.drw.1", "a.prt.1", "b.prt.1", "top.asm.1", "top.drw.1"}));
}

TEST_F(Backup, LooksForDrawingsInTheWorkingFolder) {
    Model& top = OpenSaved("top: a");
    Model& drawing = Drawing("top", top);
    host().session.Erase(drawing);
    // A stranger of that name in the chosen folder is not taken.
    Write(WIDE("C:\\Out\\a.drw.4"), Bytes("C:\\Work\\top.drw.1"));
    Run();
    EXPECT_EQ(FilesOf("C:\\Out"), (Names{"a.drw.4", "a.prt.1", "top.asm.1", "top.drw.1"}));
    EXPECT_EQ(host().session.FindByFile("a.drw"), nullptr);
}

TEST_F(Backup, OfADrawingThatCannotBeReadGoesOnWithTheNextModel) {
    OpenSaved("top: a");
    Write(WIDE("C:\\Work\\a.drw.1"), "no model");
    Run();
    EXPECT_EQ(FilesOf("C:\\Out"), (Names{"a.prt.1", "top.asm.1"}));
}

TEST_F(Backup, IsWhatIsInMemoryAndLeavesItThereAsItIs) {
    Model& top = OpenSaved("top: a");
    Model& part = *host().session.FindByFile("a.prt");
    part.relations.initial.emplace().push_back(WIDE("X = 1"));
    part.modified = true;
    const int version = part.version;
    const Names before = FilesOf("C:\\Work");
    Run();
    EXPECT_NE(Bytes("C:\\Out\\a.prt.1").find("X = 1"), std::string::npos);
    EXPECT_TRUE(part.modified);
    EXPECT_EQ(part.version, version);
    EXPECT_EQ(part.folder, WIDE("C:\\Work"));
    EXPECT_EQ(top.folder, WIDE("C:\\Work"));
    EXPECT_EQ(FilesOf("C:\\Work"), before);
    Play("@ save a.prt");
    EXPECT_EQ(FilesOf("C:\\Work"), (Names{"a.prt.1", "a.prt.2", "top.asm.1"}));
}

TEST_F(Backup, OfAManufacturingModelIsThatOfItsAssemblyAndAllBelow) {
    OpenSaved("mill.mfg: top(a, sub(b))");
    Record();
    Run();
    EXPECT_EQ(FilesOf("C:\\Out"), (Names{"a.prt.1", "b.prt.1", "sub.asm.1", "top.asm.1"}));
    Recorded();
    EXPECT_EQ(Lines("ProMfgAssemGet").size(), 1u);
}

TEST_F(Backup, LeavesOutWhatTheWalkLeavesOutButForWhatAModelNeeds) {
    OpenSaved("top: a, gone!invisible(c), s!suppressed, lost!missing");
    Record();
    Run();
    // The assembly cannot be opened without them, so the host writes them along with it.
    EXPECT_EQ(FilesOf("C:\\Out"),
              (Names{"a.prt.1", "c.prt.1", "gone.asm.1", "s.prt.1", "top.asm.1"}));
    Recorded();
    EXPECT_EQ(Lines("ProMdlBackup").size(), 2u);
}

// --- The same once more ---

TEST_F(Backup, DoesNotWriteAgainWhatIsThere) {
    OpenSaved("top: a x3, sub(b, a)");
    Run();
    const Names once = FilesOf("C:\\Out");
    Run("C:\\Out\\");
    EXPECT_EQ(FilesOf("C:\\Out"), once);
}

TEST_F(Backup, WritesTheNextVersionOfWhatHasChanged) {
    OpenSaved("top: a, b");
    Run();
    Model& part = *host().session.FindByFile("a.prt");
    part.relations.initial.emplace().push_back(WIDE("X = 1"));
    Run();
    EXPECT_EQ(FilesOf("C:\\Out"), (Names{"a.prt.1", "a.prt.2", "b.prt.1", "top.asm.1"}));
    EXPECT_EQ(Bytes("C:\\Out\\a.prt.1").find("X = 1"), std::string::npos);
}

TEST_F(Backup, GoesBehindWhateverHasTheNameInThatFolder) {
    OpenSaved("top: a");
    Write(WIDE("C:\\Out\\A.PRT.7"), "another's");
    Write(WIDE("C:\\Out\\top.asm"), "without a number");
    Run();
    EXPECT_EQ(FilesOf("C:\\Out"), (Names{"A.PRT.7", "a.prt.8", "top.asm", "top.asm.1"}));
    EXPECT_EQ(Bytes("C:\\Out\\A.PRT.7"), "another's");
    EXPECT_EQ(Bytes("C:\\Out\\top.asm"), "without a number");
}

TEST_F(Backup, IntoTheWorkingFolderWritesOnlyWhatIsNotSaved) {
    OpenSaved("top: a, b");
    host().session.FindByFile("a.prt")->relations.initial.emplace().push_back(WIDE("X = 1"));
    Run("C:\\Work");
    EXPECT_EQ(FilesOf("C:\\Work"), (Names{"a.prt.1", "a.prt.2", "b.prt.1", "top.asm.1"}));
}

// --- The order of calls ---

TEST_F(Backup, AsksBeforeItWalksAndChangesTheFolderForEachModel) {
    Model& top = OpenSaved("top: a, b");
    std::vector<Model*> models = {&top, host().session.FindByFile("a.prt"),
                                  host().session.FindByFile("b.prt")};
    workbench::SortByHandle(&models);
    Drawing("a", *host().session.FindByFile("a.prt"));
    Record();
    Run();
    const Names calls = CallsOfTheAction();
    EXPECT_EQ((Names{calls.begin(), calls.begin() + 6}),
              (Names{"ProDirectoryCurrentGet", "ProMdlCurrentGet", "ProMdlTypeGet",
                     "ProDirectoryChoose", "ProDirectoryChange", "ProArrayAlloc"}));
    const Names end = {calls.end() - 2, calls.end()};
    EXPECT_EQ(end, (Names{"ProDirectoryChange", "MessageBoxW"}));
    EXPECT_EQ(Lines("ProDirectoryChoose"),
              Names{"ProDirectoryChoose(title=\"请选择模型备份目录\", shortcutPaths=null, "
                    "shortcutNames=null, folder=null, path=\"C:\\Out\") = 0"});
    Names backups, changes{"ProDirectoryChange(directory=\"C:\\Out\") = 0"};
    for (const Model* model : models) {
        const std::string file = model->FileName();
        const std::string name = Utf8(model->name);
        const auto line = [&](const std::string& what, const std::string& type) {
            return "ProMdlBackup(model=" + what + ", data=\"C\":\"C:\\Out\", \"" + name + "\", \"" +
                   type + "\", version 1) = 0";
        };
        backups.push_back(line(file, model->type == PRO_MDL_PART ? "PRT" : "ASM"));
        if (file == "a.prt") backups.push_back(line("a.drw", "DRW"));
        changes.emplace_back("ProDirectoryChange(directory=\"C:\\Work\\\") = 0");
    }
    changes.push_back(changes.back());
    EXPECT_EQ(Lines("ProMdlBackup"), backups);
    EXPECT_EQ(Lines("ProDirectoryChange"), changes);
}

TEST_F(Backup, OfEachModelComesBeforeTheSearchForItsDrawing) {
    OpenSaved("top: a");
    Drawing("a", *host().session.FindByFile("a.prt"));
    Record();
    Run();
    const Names expected = {"ProMdlNameGet", "ProMdlDataGet", "ProMdlBackup", "ProDirectoryChange",
                            "ProMdlRetrieve"};
    const Names calls = Recorded();
    for (std::size_t i = 0, seen = 0; i < calls.size(); ++i) {
        if (calls[i] != "ProMdlNameGet") continue;
        const Names five(calls.begin() + std::ptrdiff_t(i), calls.begin() + std::ptrdiff_t(i) + 5);
        EXPECT_EQ(five, expected) << ++seen;
    }
    EXPECT_EQ(Lines("ProMdlNameGet").size(), 2u);
    EXPECT_EQ(Lines("ProMdlRetrieve").size(), 2u);
}

TEST_F(Backup, AsksTheDrawingForItsOwnRecord) {
    OpenSaved("top: a");
    Drawing("a", *host().session.FindByFile("a.prt"));
    Record();
    Run();
    Recorded();
    EXPECT_EQ(Lines("ProMdlDataGet").size(), 3u);
}

// --- Models that cannot be backed up so ---

TEST_F(Backup, OfAPartIsRefusedWithANotice) {
    OpenSaved("plate");
    Play(
        "@ mapped key VxBackup\n"
        "@ expect box \"\\t当前环境不是组件/制造，无法进行备份操作\\t\"\n"
        "@ expect caption 岚枢工具By墨川听雨,QQ:100200300\n@ ok");
    EXPECT_EQ(AllBoxes().at(0).flags, 0x40000u);
    EXPECT_EQ(Directory(), "C:\\Work");
}

TEST_F(Backup, WithoutAModelIsRefusedLikewise) {
    Play("@ mapped key VxBackup\n@ expect box 当前环境不是组件/制造，无法进行备份操作\n@ ok");
    EXPECT_EQ(Boxes(), Names{"\t当前环境不是组件/制造，无法进行备份操作\t"});
}

TEST_F(Backup, OfAnEmptyAssemblyAsksFirstAndLeavesTheFolderChanged) {
    OpenSaved("top:");
    Play("~ Command `VxBackup`\n@ answer C:\\Out\n@ expect box 当前模型中没有子零件/组件\n@ ok");
    EXPECT_EQ(Boxes(), Names{"当前模型中没有子零件/组件"});
    EXPECT_FALSE(AllBoxes().at(0).hasCaption);
    EXPECT_EQ(AllBoxes().at(0).flags, 0u);
    EXPECT_EQ(Directory(), "C:\\Out");
    EXPECT_EQ(FilesOf("C:\\Out"), Names{});
}

TEST_F(Backup, WithoutAnArrayEndsInTheChosenFolderToo) {
    OpenSaved("top: a");
    Fail("ProArrayAlloc");
    Play("~ Command `VxBackup`\n@ answer C:\\Out\n@ expect box \"ProArray Alloc error\"\n@ ok");
    EXPECT_EQ(Boxes(), Names{"ProArray Alloc error"});
    EXPECT_FALSE(AllBoxes().at(0).hasCaption);
    EXPECT_EQ(Directory(), "C:\\Out");
    EXPECT_EQ(FilesOf("C:\\Out"), Names{});
}

TEST_F(Backup, OfAManufacturingModelWhoseAssemblyIsGoneFindsNothing) {
    OpenSaved("mill.mfg: top(a)");
    Fail("ProMfgAssemGet");
    Play("~ Command `VxBackup`\n@ answer C:\\Out\n@ expect box 当前模型中没有子零件/组件\n@ ok");
    EXPECT_EQ(FilesOf("C:\\Out"), Names{});
}

// --- The prompt ---

TEST_F(Backup, GoesOnAfterThePromptIsLeftAndWritesNothing) {
    OpenSaved("top: a");
    Record();
    Play("~ Command `VxBackup`\n@ quit\n@ expect box 图纸备份操作已完成\n@ ok");
    Recorded();
    const std::string prompt = Lines("ProDirectoryChoose").at(0);
    EXPECT_EQ(prompt.substr(prompt.rfind(" = ")), " = -3");
    EXPECT_EQ(Lines("ProDirectoryChange").at(0), "ProDirectoryChange(directory=\"\") = -2");
    ASSERT_EQ(Lines("ProMdlBackup").size(), 2u);
    for (const std::string& line : Lines("ProMdlBackup")) {
        EXPECT_NE(line.find("data=\"C\":\"\", "), std::string::npos) << line;
        EXPECT_NE(line.find(") = -2"), std::string::npos) << line;
    }
    EXPECT_EQ(FilesOf("C:\\Work"), (Names{"a.prt.1", "top.asm.1"}));
    EXPECT_EQ(Directory(), "C:\\Work");
}

TEST_F(Backup, TakesAFolderWithASeparatorAtItsEnd) {
    OpenSaved("top: a");
    Run("C:\\Out\\");
    EXPECT_EQ(FilesOf("C:\\Out"), (Names{"a.prt.1", "top.asm.1"}));
}

TEST_F(Backup, TakesAFolderWithAChineseName) {
    MakeFolder("C:\\备份 1");
    OpenSaved("top: 板");
    Run("C:\\备份 1");
    EXPECT_EQ(FilesOf("C:\\备份 1"), (Names{"top.asm.1", "板.prt.1"}));
}

// --- What fails ---

TEST_F(Backup, IntoAReadOnlyFolderTellsEachFileAndEndsAsIfAllHadGoneWell) {
    OpenSaved("top: a");
    Play("@ read-only C:\\Out");
    Record();
    Run();
    Recorded();
    for (const std::string& line : Lines("ProMdlBackup")) {
        EXPECT_NE(line.find(") = -17"), std::string::npos) << line;
    }
    EXPECT_EQ(FilesOf("C:\\Out"), Names{});
    EXPECT_EQ(Directory(), "C:\\Work");
    std::filesystem::permissions(Real("C:\\Out"), std::filesystem::perms::owner_all);
}

TEST_F(Backup, OntoAFullDiskKeepsTheCopiesThatAreThereAndLeavesNoHalves) {
    OpenSaved("top: a");
    Run();
    const std::string before = Bytes("C:\\Out\\a.prt.1");
    host().session.FindByFile("a.prt")->relations.initial.emplace().push_back(WIDE("X = 1"));
    LimitDisk(1);
    Run();
    LimitDisk({});
    EXPECT_EQ(FilesOf("C:\\Out"), (Names{"a.prt.1", "top.asm.1"}));
    EXPECT_EQ(Bytes("C:\\Out\\a.prt.1"), before);
    bool told = false;
    for (const Shown& one : host().shown) {
        told = told || Utf8(one.text).starts_with("a.prt is not saved in C:\\Out: a.prt.2: ");
    }
    EXPECT_TRUE(told);
}

TEST_F(Backup, GoesBesideACopyThatAnotherProgramHolds) {
    OpenSaved("top: a");
    Run();
    host().session.FindByFile("a.prt")->relations.initial.emplace().push_back(WIDE("X = 1"));
    Play("@ hold C:\\Out\\a.prt.1");
    Run();
    EXPECT_EQ(FilesOf("C:\\Out"), (Names{"a.prt.1", "a.prt.2", "top.asm.1"}));
    Play("@ let go C:\\Out\\a.prt.1");
}

TEST_F(Backup, PassesOverAModelWhoseRecordIsNotToBeHad) {
    Model& top = OpenSaved("top: a");
    std::vector<Model*> models = {&top, host().session.FindByFile("a.prt")};
    workbench::SortByHandle(&models);
    Fail("ProMdlDataGet");
    Record();
    Run();
    Recorded();
    // Its drawing is looked for all the same.
    EXPECT_EQ(Lines("ProMdlRetrieve").size(), 2u);
    ASSERT_EQ(Lines("ProMdlBackup").size(), 1u);
    EXPECT_NE(Lines("ProMdlBackup").at(0).find("model=" + models.at(1)->FileName()),
              std::string::npos);
}

TEST_F(Backup, GoesOnWithTheNextModelAfterAnyFailure) {
    OpenSaved("top: a, b");
    Fail("ProMdlBackup");
    Fail("ProMdlNameGet", {.n = 2});
    Run();
    EXPECT_EQ(FilesOf("C:\\Out"), (Names{"a.prt.1", "b.prt.1", "top.asm.1"}));
}

}  // namespace
