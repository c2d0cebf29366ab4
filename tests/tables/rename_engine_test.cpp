// The button of VxRename that renames: which names it lets through, what it renames, and what it
// leaves behind.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "simhost/core/disk.h"
#include "simhost/core/meanwhile.h"
#include "simhost/model/drawing.h"
#include "simhost/system/windows.h"
#include "simhost/ui/table.h"
#include "simhost/ui/textfield.h"
#include "tests/support/call_order.h"
#include "tests/tables/rename_bench.h"

namespace {

using namespace simhost;
using workbench::Names;
using workbench::RenameBench;

std::string Named(int row, const std::string& name) {
    return "~ Input `VxRename` `input" + std::to_string(row) + "` `" + name + "`\n";
}
std::string TooLong(const std::string& name) {
    return "无法执行重命名操作！\n新名称“" + name + "”长度大于32位，名称无效，请修改后再操作";
}
std::string Taken(const std::string& name) {
    return "无法执行重命名操作！\n新名称“" + name + "”在当前会话或工作目录中已存在，请修改后再试！";
}
std::string Illegal(const std::string& name) {
    return "无法执行重命名操作！\n新名称“" + name + "”非法，请修改后再试！";
}

class RenameBatch : public RenameBench {
protected:
    // A batch that one name ends: the box, and nothing else has happened.
    void ExpectRefusal(const std::string& lines, const std::string& box) {
        host().shown.clear();
        const auto before = Folder();
        const Names models = Models();
        Start(lines, box);
        EXPECT_EQ(Folder(), before) << box;
        EXPECT_EQ(Models(), models) << box;
        EXPECT_EQ(Option(), "yes") << box;
        ASSERT_EQ(AllBoxes().size(), 1u);
        EXPECT_TRUE(AllBoxes()[0].hasCaption);
        EXPECT_EQ(AllBoxes()[0].flags, 0x40000u);
    }
    Names Models() {
        Names names;
        for (const Model* model : host().session.All()) names.push_back(model->FileName());
        return names;
    }
    // A drawing of a model, on disk; in memory only if it is kept.
    Model& Drawing(const std::string& name, Model& shown, bool inMemory = false) {
        Model& drawing = workbench::MakeModels(name + ".drw: A3");
        DrawingOf(drawing).AddGeneral(shown, 1, {100, 100, 0}, 1, {});
        host().session.Save(drawing);
        if (!inMemory) host().session.Erase(drawing);
        return drawing;
    }
};

// --- What is renamed ---

TEST_F(RenameBatch, RenamesInMemoryAndOnDiskAndSavesTheNextVersion) {
    Start(Named(2, "cover") + Named(3, "unit"));
    EXPECT_EQ(Files(), (Names{"bolt.prt.1", "cover.prt.1", "cover.prt.2", "skel.prt.1", "top.asm.1",
                              "unit.asm.1", "unit.asm.2"}));
    EXPECT_EQ(plate_->FileName(), "cover.prt");
    EXPECT_EQ(sub_->FileName(), "unit.asm");
    EXPECT_EQ(Option(), "");
}

TEST_F(RenameBatch, TheAssemblyFollowsInMemoryAndOnDiskWhenItIsSaved) {
    Start(Named(2, "cover"));
    EXPECT_TRUE(top_->modified);
    EXPECT_NE(Read(WIDE("C:\\Work\\top.asm.1")).find("plate.prt"), std::string::npos);
    Play("@ save all");
    const std::string saved = Read(WIDE("C:\\Work\\top.asm.2"));
    EXPECT_NE(saved.find("cover.prt"), std::string::npos);
    EXPECT_EQ(saved.find("plate.prt"), std::string::npos);
}

TEST_F(RenameBatch, TakesTheDrawingOfTheSameNameAlongAndSavesItFirst) {
    Drawing("plate", *plate_);
    Record();
    Start(Named(2, "cover"));
    const Names order = workbench::CallOrder((Recorded(), Lines("ProMdl*")),
                                             {"ProMdlRename", "ProMdlSave", "ProMdlErase"});
    EXPECT_EQ(order,
              (Names{"ProMdlSave cover.prt", "ProMdlErase cover.prt", "ProMdlRename cover.prt",
                     "ProMdlRename cover.drw", "ProMdlSave cover.drw", "ProMdlSave cover.prt"}));
    EXPECT_EQ(Files(), (Names{"bolt.prt.1", "cover.drw.1", "cover.drw.2", "cover.prt.1",
                              "cover.prt.2", "skel.prt.1", "sub.asm.1", "top.asm.1"}));
    EXPECT_NE(Read(WIDE("C:\\Work\\cover.drw.2")).find("cover.prt"), std::string::npos);
}

TEST_F(RenameBatch, KeepsTheOldVersionsUnderTheNewName) {
    host().session.Save(*plate_);
    host().session.Save(*plate_);
    Start(Named(2, "cover"));
    const Names files = Files();
    for (const char* file : {"cover.prt.1", "cover.prt.2", "cover.prt.3", "cover.prt.4"}) {
        EXPECT_EQ(std::count(files.begin(), files.end(), file), 1) << file;
    }
    EXPECT_EQ(files.size(), 8u);
}

TEST_F(RenameBatch, FetchesAModelThatIsOnlyOnDisk) {
    Play("~ Command `VxRename`\n" + Named(4, "screw") + "~ Close `VxRename`");
    // In memory only the assembly that is shown, and what it needs, stays.
    Start(Named(5, "frame"));
    EXPECT_EQ(Files()[1], "frame.prt.1");
}

TEST_F(RenameBatch, LeavesUntouchedWhatHasNoNewName) {
    const auto before = Folder();
    Start("");
    EXPECT_EQ(Folder(), before);
    Start(Named(2, "") + Named(3, "  ") + Named(4, " BO LT "));
    EXPECT_EQ(Folder(), before);
    EXPECT_EQ(Boxes().size(), 2u);
}

TEST_F(RenameBatch, DeletesBlanksInsideAndAroundNewNames) {
    Start(Named(2, " co  ver "));
    EXPECT_EQ(plate_->FileName(), "cover.prt");
}

TEST_F(RenameBatch, ThirtyTwoCharactersAreAName) {
    const std::string name(32, 'n');
    Start(Named(2, name));
    EXPECT_EQ(Utf8(plate_->name), std::string(32, 'N'));
    EXPECT_TRUE(Exists(Wide("C:\\Work\\" + name + ".prt.2")));
}

TEST_F(RenameBatch, ThirtyTwoChineseCharactersAreANameToo) {
    std::string name;
    for (int i = 0; i < 32; ++i) name += "名";
    Start(Named(2, name));
    EXPECT_EQ(Utf8(plate_->name), name);
}

TEST_F(RenameBatch, TheSecondOfTwoEqualNamesIsLeftWithoutAWord) {
    Start(Named(2, "same") + Named(4, "same"));
    EXPECT_EQ(plate_->FileName(), "same.prt");
    EXPECT_EQ(bolt_->FileName(), "bolt.prt");
    // It is saved all the same.
    EXPECT_EQ(Files(), (Names{"bolt.prt.1", "bolt.prt.2", "same.prt.1", "same.prt.2", "skel.prt.1",
                              "sub.asm.1", "top.asm.1"}));
}

TEST_F(RenameBatch, APartAndAnAssemblyCanHaveOneNewName) {
    Start(Named(2, "same") + Named(3, "same"));
    EXPECT_EQ(plate_->FileName(), "same.prt");
    EXPECT_EQ(sub_->FileName(), "same.asm");
}

TEST_F(RenameBatch, TheTableStaysAsItIs) {
    Check(Named(2, "cover") +
          "~ Activate `VxRename` `StartRename`\n@ ok\n"
          "@ expect dialog VxRename\n@ expect row mdl_list 2 \"2|PLATE|prt|\"\n"
          // Its old name is nobody's now, and the new one is taken.
          "~ Activate `VxRename` `StartRename`\n@ expect box 已存在\n@ ok\n");
}

TEST_F(RenameBatch, NamesMayMoveOnByOneOnlyInTurns) {
    // BOLT is still there while PLATE is checked.
    ExpectRefusal(Named(2, "BOLT") + Named(4, "screw"), Taken("BOLT"));
}

// --- Names that cannot be had ---

TEST_F(RenameBatch, ATakenNameEndsTheBatchBeforeAnythingIsRenamed) {
    ExpectRefusal(Named(2, "cover") + Named(3, "unit") + Named(4, "skel"), Taken("skel"));
}

TEST_F(RenameBatch, ANameThatIsTakenOnDiskAloneIsTaken) {
    Write(WIDE("C:\\Work\\far.prt.7"), Read(WIDE("C:\\Work\\bolt.prt.1")));
    const auto before = Folder();
    Start(Named(2, "cover") + Named(4, "FAR"), Taken("FAR"));
    EXPECT_EQ(Folder(), before);
    // To look for it is to fetch it.
    EXPECT_NE(host().session.FindByFile("far.prt"), nullptr);
}

TEST_F(RenameBatch, AnAssemblyIsComparedWithAssemblies) {
    ExpectRefusal(Named(3, "top"), Taken("top"));
}

TEST_F(RenameBatch, AnAssemblyCannotHaveAPartsNameBecauseThePartIsWhatIsTried) {
    ExpectRefusal(Named(3, "bolt"), Illegal("bolt"));
}

TEST_F(RenameBatch, APartCanHaveAnAssemblysName) {
    Start(Named(2, "sub"));
    EXPECT_EQ(plate_->FileName(), "sub.prt");
}

TEST_F(RenameBatch, AFileThatCannotBeReadTakesItsName) {
    Write(WIDE("C:\\Work\\far.prt.1"), "nonsense");
    ExpectRefusal(Named(4, "far"), Illegal("far"));
    Write(WIDE("C:\\Work\\away.prt"), "nonsense");
    ExpectRefusal(Named(4, "away"), Illegal("away"));
}

TEST_F(RenameBatch, AnIllegalNameEndsTheBatch) {
    for (const char* name : {"M8*25", "a/b", "a.b", "x:y", "a\"b", "<", "?"}) {
        ExpectRefusal(Named(2, "cover") + Named(4, name), Illegal(name));
    }
}

TEST_F(RenameBatch, ThirtyThreeCharactersEndTheBatch) {
    const std::string name(33, 'n');
    ExpectRefusal(Named(2, "cover") + Named(5, name), TooLong(name));
    // Blanks do not count.
    Start(Named(5, std::string(16, 'n') + "   " + std::string(16, 'n')));
}

TEST_F(RenameBatch, TheOldNameInOtherLettersIsTaken) {
    ExpectRefusal(Named(2, "plate"), Taken("plate"));
}

TEST_F(RenameBatch, TheFirstNameThatCannotBeHadIsTold) {
    ExpectRefusal(Named(2, "M8*25") + Named(4, "skel"), Illegal("M8*25"));
}

TEST_F(RenameBatch, ARowOfAnotherKindCountsAsTaken) {
    // As a spreadsheet may say.
    const auto before = Folder();
    DoMeanwhile("ProDirectoryCurrentGet", 1, [&] {
        auto* table = dynamic_cast<Table*>(host().dialogs.Active()->Find("mdl_list"));
        table->RequireCell("2", "type").label = WIDE("PRT");
    });
    Start(Named(2, "cover"), Taken("cover"));
    EXPECT_EQ(Folder(), before);
}

TEST_F(RenameBatch, ARowOfAnotherKindWithoutANewNameIsPassedOver) {
    DoMeanwhile("ProDirectoryCurrentGet", 1, [&] {
        auto* table = dynamic_cast<Table*>(host().dialogs.Active()->Find("mdl_list"));
        table->RequireCell("2", "type").label = {};
    });
    Start(Named(4, "screw"));
    EXPECT_EQ(bolt_->FileName(), "screw.prt");
}

TEST_F(RenameBatch, AnEmptyTableIsToldWithTwoTabs) {
    Model& other = workbench::MakeModels("1: 2");
    Open(other);
    Filter("1,2");
    Start("", "\t\t重命名表格为空\t\t");
    EXPECT_EQ(AllBoxes()[0].flags, 0x40000u);
    EXPECT_EQ(Option(), "none");
}

TEST_F(RenameBatch, ReadsAndSetsInOneOrder) {
    Record();
    Start("");
    Names calls = Recorded();
    const auto first = std::find(calls.begin(), calls.end(), "ProDirectoryCurrentGet");
    ASSERT_GE(calls.end() - first, 9);
    EXPECT_EQ(
        Names(first, first + 9),
        (Names{"ProDirectoryCurrentGet", "ProUITableRownamesGet", "ProStringarrayFree",
               "ProConfigoptGet", "ProConfigoptSet", "ProUITableCellLabelGet",
               "ProUITableCellLabelGet", "ProUIInputpanelValueGet", "ProUIInputpanelValueGet"}));
    const Names cells = Lines("ProUITableCellLabelGet");
    EXPECT_NE(cells.at(0).find("column=\"old_name\""), std::string::npos);
    EXPECT_NE(cells.at(1).find("column=\"type\""), std::string::npos);
    const auto box = std::find(calls.begin(), calls.end(), "MessageBoxW");
    ASSERT_NE(box, calls.end());
    EXPECT_EQ(*(box - 1), "ProConfigoptSet");
}

// --- The test of a name ---

TEST_F(RenameBatch, TriesEachNameByAPartThatComesAndGoes) {
    Record();
    Start(Named(3, "unit"));
    Recorded();
    Names calls = Calls();
    const auto from = std::find_if(calls.begin(), calls.end(), [](const std::string& call) {
        return call.find("ProSolidCreate") != std::string::npos;
    });
    ASSERT_NE(from, calls.end());
    EXPECT_EQ(Lines("ProSolidCreate"), Names{"ProSolidCreate(name=\"unit\", type=2, "
                                             "solid=unit.prt) = 0"});
    EXPECT_EQ(Lines("DeleteFileW"), (Names{"DeleteFileW(path=\"C:\\Work\\\\unit.prt\") = 0",
                                           "DeleteFileW(path=\"C:\\Work\\\\unit.prt.1\") = 1"}));
    EXPECT_EQ(Lines("ProMdlErase"), Names{"ProMdlErase(model=\"unit.prt\") = 0"});
    EXPECT_EQ(host().session.FindByFile("unit.prt"), nullptr);
}

TEST_F(RenameBatch, ATestPartThatCannotBeFetchedIsErasedAndDeleted) {
    // The first question about BOLT's new name, then that about the saved part.
    const auto before = Folder();
    Fail("ProMdlRetrieve", {.n = 2});
    Start(Named(4, "screw"), Illegal("screw"));
    EXPECT_EQ(Folder(), before);
    EXPECT_EQ(host().session.FindByFile("screw.prt"), nullptr);
}

TEST_F(RenameBatch, WhereTheTestPartCannotBeSavedItsNameIsGoodAllTheSame) {
    Fail("ProMdlSave");
    Start(Named(4, "screw"));
    EXPECT_EQ(bolt_->FileName(), "screw.prt");
    EXPECT_EQ(Files()[4], "sub.asm.1");
}

TEST_F(RenameBatch, AFileOfTheTestsNameThatWasThereBeforeStays) {
    // No model, so the name is not taken; then it goes, so that the host lets the part be made.
    const WideText file = WIDE("C:\\Work\\screw.prt.1");
    Write(file, "nonsense");
    DoMeanwhile("ProSolidCreate", 1, [&] { std::filesystem::remove(host().disk.Real(file)); });
    Record();
    Start(Named(4, "screw"));
    Recorded();
    EXPECT_EQ(Lines("DeleteFileW"), Names{"DeleteFileW(path=\"C:\\Work\\\\screw.prt\") = 0"});
    EXPECT_TRUE(Exists(file));
}

TEST_F(RenameBatch, WithoutAWorkingFolderNothingIsDeleted) {
    Fail("ProDirectoryCurrentGet");
    Record();
    Start(Named(4, "screw"));
    Recorded();
    EXPECT_EQ(Lines("DeleteFileW"), Names{});
    // The test part's file has the name now, so the model stays as it is.
    EXPECT_EQ(bolt_->FileName(), "bolt.prt");
}

TEST_F(RenameBatch, ATestThatCannotBeMadeIsAnIllegalName) {
    for (const char* operation : {"ProSolidCreate"}) {
        Fail(operation);
        ExpectRefusal(Named(4, "screw"), Illegal("screw"));
    }
}

TEST_F(RenameBatch, SavesTheTestPartIntoTheWorkingFolderBecauseOfTheOption) {
    Play("@ option override_store_back no");
    Start(Named(4, "screw"));
    EXPECT_EQ(Option(), "no");
}

// --- The option ---

TEST_F(RenameBatch, KeepsTheOptionAsItWas) {
    Play("@ option override_store_back maybe");
    Record();
    Start(Named(4, "screw"));
    Recorded();
    EXPECT_EQ(Option(), "maybe");
    EXPECT_EQ(Lines("ProConfigopt*"),
              (Names{"ProConfigoptGet(option=\"override_store_back\", value=\"maybe\") = 0",
                     "ProConfigoptSet(option=\"override_store_back\", value=\"yes\") = 0",
                     "ProConfigoptSet(option=\"override_store_back\", value=\"maybe\") = 0"}));
}

TEST_F(RenameBatch, AnOptionThatWasNotSetIsEmptyAfterwards) {
    Start(Named(4, "screw"));
    EXPECT_EQ(Option(), "");
}

TEST_F(RenameBatch, TheBatchAfterARefusedOneKeepsTheYes) {
    Play("@ option override_store_back no");
    ExpectRefusal(Named(4, "skel"), Taken("skel"));
    Start(Named(4, "screw"));
    EXPECT_EQ(Option(), "yes");
}

TEST_F(RenameBatch, SavesWhatCameFromElsewhereIntoTheWorkingFolder) {
    std::filesystem::create_directories(host().disk.Real(WIDE("C:\\Lib")));
    Write(WIDE("C:\\Lib\\far.prt.3"), Read(WIDE("C:\\Work\\bolt.prt.1")));
    Model* far = host().session.RetrievePath(WIDE("C:\\Lib\\far.prt"));
    ASSERT_NE(far, nullptr);
    Use(*top_, *far);
    Start(Named(6, "near"));
    // The old versions are renamed where they are, the next one comes here.
    EXPECT_TRUE(Exists(WIDE("C:\\Lib\\near.prt.3")));
    EXPECT_TRUE(Exists(WIDE("C:\\Work\\near.prt.1")));
}

// --- What fails while it renames ---

TEST_F(RenameBatch, AHeldFileKeepsItsNameAndTheOthersGoOn) {
    TheWindows().Hold(WIDE("C:\\Work\\plate.prt.1"));
    Start(Named(2, "cover") + Named(4, "screw"));
    EXPECT_EQ(plate_->FileName(), "plate.prt");
    EXPECT_EQ(bolt_->FileName(), "screw.prt");
    EXPECT_TRUE(Exists(WIDE("C:\\Work\\plate.prt.1")));
    TheWindows().Release(WIDE("C:\\Work\\plate.prt.1"));
}

TEST_F(RenameBatch, ARowWhoseModelIsGoneRenamesNeitherItNorItsDrawing) {
    Drawing("plate", *plate_);
    const auto before = Folder();
    Record();
    // Two rows before it: PLATE's new name, its test part, then the old names TOP and PLATE.
    Fail("ProMdlRetrieve", {.n = 4});
    Start(Named(2, "cover"));
    Recorded();
    EXPECT_EQ(Lines("ProMdlRename"), Names{});
    EXPECT_EQ(Folder(), before);
}

TEST_F(RenameBatch, ADrawingThatCannotBeFetchedKeepsItsName) {
    Drawing("plate", *plate_);
    Record();
    Fail("ProMdlRetrieve", {.n = 5});
    Start(Named(2, "cover"));
    Recorded();
    EXPECT_EQ(plate_->FileName(), "cover.prt");
    EXPECT_TRUE(Exists(WIDE("C:\\Work\\plate.drw.1")));
    EXPECT_EQ(Lines("ProMdlRename").size(), 1u);
}

TEST_F(RenameBatch, ARenameThatIsRefusedDoesNotEndTheBatch) {
    Fail("ProMdlRename");
    Start(Named(2, "cover") + Named(4, "screw"));
    EXPECT_EQ(plate_->FileName(), "plate.prt");
    EXPECT_EQ(bolt_->FileName(), "screw.prt");
}

TEST_F(RenameBatch, DrawingsInMemoryFollowAndAreSavedByHand) {
    Model& other = Drawing("sheet", *plate_, /*inMemory=*/true);
    Start(Named(2, "cover"));
    EXPECT_TRUE(other.modified);
    EXPECT_NE(Read(WIDE("C:\\Work\\sheet.drw.1")).find("plate.prt"), std::string::npos);
    Play("@ save all");
    EXPECT_NE(Read(WIDE("C:\\Work\\sheet.drw.2")).find("cover.prt"), std::string::npos);
}

TEST_F(RenameBatch, AnAssemblyThatIsOnlyOnDiskKeepsTheOldName) {
    Write(WIDE("C:\\Work\\other.asm.1"), Read(WIDE("C:\\Work\\top.asm.1")));
    Start(Named(2, "cover"));
    Play("@ save all");
    EXPECT_NE(Read(WIDE("C:\\Work\\other.asm.1")).find("plate.prt"), std::string::npos);
    EXPECT_FALSE(Exists(WIDE("C:\\Work\\other.asm.2")));
}

// --- What changes between the two passes ---

TEST_F(RenameBatch, ANameThatGrewTooLongMeanwhileEndsTheRenaming) {
    const std::string name(33, 'x');
    // Each pass looks for inputImport and input of five rows: the second one begins with call 11.
    DoMeanwhile("ProUIInputpanelValueGet", 11, [&] {
        auto* field = dynamic_cast<TextField*>(host().dialogs.Active()->Find("input4"));
        field->value = Wide(name);
    });
    Start(Named(2, "cover") + Named(4, "screw"),
          "新名称“" + name + "”长度大于32位，名称无效，请修改后再操作");
    EXPECT_EQ(plate_->FileName(), "cover.prt");
    EXPECT_EQ(bolt_->FileName(), "bolt.prt");
    EXPECT_EQ(Option(), "yes");
}

TEST_F(RenameBatch, AFieldThatFailsToBeReadIsEmpty) {
    // inputImport2 is asked for third. Any answer but "not there" ends the search, so that the name
    // is not tried; the second pass reads it.
    for (const ProError status : {PRO_TK_BAD_INPUTS, PRO_TK_NO_ERROR}) {
        Fail("ProUIInputpanelValueGet", {.n = 3, .forGood = false, .status = status});
        Record();
        const std::string name = status == PRO_TK_NO_ERROR ? "lid" : "cover";
        Start(Named(2, name));
        Recorded();
        EXPECT_EQ(Lines("ProSolidCreate"), Names{});
        EXPECT_EQ(plate_->FileName(), name + ".prt");
    }
}

TEST_F(RenameBatch, WhatWasNotMadeIsNeitherSavedNorErased) {
    Fail("ProSolidCreate", {.status = PRO_TK_NO_ERROR});
    Record();
    Start(Named(4, "screw"), Illegal("screw"));
    Recorded();
    EXPECT_EQ(Lines("ProMdlSave"), Names{});
    EXPECT_EQ(Lines("ProMdlErase"), Names{});
}

}  // namespace
