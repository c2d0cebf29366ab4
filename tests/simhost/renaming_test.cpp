// Renaming and saving at the door: what follows a new name in memory and on disk, which names are
// refused, and that a renaming is done whole or not at all.
#include <algorithm>
#include <filesystem>

#include "hostapi/host.h"
#include "simhost/core/disk.h"
#include "simhost/model/drawing.h"
#include "simhost/system/windows.h"
#include "simhost/trail/interpreter.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
namespace fs = std::filesystem;
using Names = std::vector<std::string>;

class Renaming : public workbench::Workbench {
protected:
    ProError Rename(Model& model, WideText name) { return ProMdlRename(model.handle, name.data()); }
    Names Files(const WideText& folder = WIDE("C:\\Work")) {
        Names names;
        for (const auto& entry : fs::directory_iterator(host().disk.Real(folder))) {
            names.push_back(Utf8(
                Wide(reinterpret_cast<const char*>(entry.path().filename().u8string().c_str()))));
        }
        std::sort(names.begin(), names.end());
        return names;
    }
    // A part with two versions on disk.
    Model& SavedPart(const std::string& name) {
        Model& part = Part(name);
        host().session.Save(part);
        host().session.Save(part);
        return part;
    }
    // The last line that was told to the user.
    std::string Told() {
        return host().shown.empty() ? std::string() : Utf8(host().shown.back().text);
    }
};

// --- What follows ---

TEST_F(Renaming, TakesAllVersionsAlongAndKeepsTheirNumbers) {
    Model& part = SavedPart("plate");
    Write(WIDE("C:\\Work\\plate.prt"), "a file without a number");
    EXPECT_EQ(Rename(part, WIDE("盖板")), PRO_TK_NO_ERROR);
    EXPECT_EQ(part.name, WIDE("盖板"));
    EXPECT_EQ(Files(), (Names{"盖板.prt", "盖板.prt.1", "盖板.prt.2"}));
    EXPECT_EQ(host().session.FindByFile("plate.prt"), nullptr);
    EXPECT_EQ(host().session.FindByFile("盖板.prt"), &part);
    EXPECT_EQ(ProMdlSave(part.handle), PRO_TK_NO_ERROR);
    EXPECT_EQ(Files().back(), "盖板.prt.3");
}

TEST_F(Renaming, IsInCapitalsAsFarAsTheLettersAreAscii) {
    Model& part = SavedPart("plate");
    EXPECT_EQ(Rename(part, WIDE("Lid_底")), PRO_TK_NO_ERROR);
    EXPECT_EQ(part.name, WIDE("LID_底"));
    EXPECT_EQ(Files(), (Names{"lid_底.prt.1", "lid_底.prt.2"}));
}

TEST_F(Renaming, IsFollowedByEverythingInMemoryThatRefersToTheModel) {
    Model& top = workbench::MakeModels("top: sub(plate x2), other");
    Model& plate = workbench::ModelNamed("plate.prt");
    Model& sub = workbench::ModelNamed("sub.asm");
    Model& mill = workbench::MakeModels("mill.mfg: top.asm");
    Model& sheet = workbench::MakeModels("sheet.drw: A3");
    DrawingOf(sheet).AddGeneral(plate, 1, {}, 1, {});
    for (Model* model : host().session.All()) model->modified = false;
    EXPECT_EQ(Rename(plate, WIDE("lid")), PRO_TK_NO_ERROR);
    for (const Feature& feature : sub.features()) EXPECT_EQ(feature.file, "lid.prt");
    EXPECT_EQ(DrawingOf(sheet).views().front()->file, "lid.prt");
    EXPECT_TRUE(sub.modified);
    EXPECT_TRUE(sheet.modified);
    EXPECT_FALSE(top.modified);
    EXPECT_EQ(Rename(top, WIDE("machine")), PRO_TK_NO_ERROR);
    EXPECT_EQ(mill.manufacturingData.assemblyFile, "machine.asm");
    EXPECT_TRUE(mill.modified);
}

TEST_F(Renaming, IsFollowedByTheInstancesOfAGeneric) {
    workbench::MakeModels("m12 of bolt");
    Model& bolt = workbench::ModelNamed("bolt.prt");
    EXPECT_EQ(Rename(bolt, WIDE("screw")), PRO_TK_NO_ERROR);
    EXPECT_EQ(workbench::ModelNamed("m12.prt").family.genericFile, "screw.prt");
    EXPECT_TRUE(workbench::ModelNamed("m12.prt").modified);
}

// As in life: a file that nobody saved keeps the old name, and finds nothing by it.
TEST_F(Renaming, IsOnDiskInOtherFilesOnlyWhenThoseAreSaved) {
    Model& top = workbench::MakeModels("top: plate");
    host().session.Save(top);
    host().session.Save(workbench::ModelNamed("plate.prt"));
    EXPECT_EQ(Rename(workbench::ModelNamed("plate.prt"), WIDE("lid")), PRO_TK_NO_ERROR);
    Play("@ erase top.asm\n@ erase lid.prt\n@ open top.asm");
    EXPECT_EQ(host().session.CurrentModel()->features()[0].model, nullptr);
    Play("@ erase top.asm\n@ open lid.prt");
    EXPECT_EQ(host().session.CurrentModel()->name, WIDE("LID"));
}

TEST_F(Renaming, HappensInTheFolderThatTheModelCameFrom) {
    fs::create_directories(host().disk.Real(WIDE("C:\\Parts")));
    host().session.workingDirectory = WIDE("C:\\Parts");
    Model& part = SavedPart("plate");
    host().session.workingDirectory = WIDE("C:\\Work");
    EXPECT_EQ(Rename(part, WIDE("lid")), PRO_TK_NO_ERROR);
    EXPECT_EQ(Files(WIDE("C:\\Parts")), (Names{"lid.prt.1", "lid.prt.2"}));
    EXPECT_EQ(ProMdlSave(part.handle), PRO_TK_NO_ERROR);
    EXPECT_EQ(Files(WIDE("C:\\Parts")).back(), "lid.prt.3");
    EXPECT_EQ(Files(), Names{});
}

// --- What is refused ---

TEST_F(Renaming, RefusesNamesThatNoModelCanHave) {
    Model& part = SavedPart("plate");
    for (const WideText& name :
         {WideText(), WideText(33, WideChar{'a'}), WideText(WIDE("a.b")), WideText(WIDE("a/b")),
          WideText(WIDE("a\\b")), WideText(WIDE("a:b")), WideText(WIDE("a*")), WideText(WIDE(" a")),
          WideText(WIDE("a ")), WideText(WIDE("a\tb"))}) {
        EXPECT_EQ(Rename(part, name), PRO_TK_BAD_INPUTS) << Utf8(name);
    }
    EXPECT_EQ(part.name, WIDE("PLATE"));
    EXPECT_EQ(Files(), (Names{"plate.prt.1", "plate.prt.2"}));
}

TEST_F(Renaming, TakesANameOf32CharactersWhichFillsItsRecord) {
    Model& part = SavedPart("plate");
    EXPECT_EQ(Rename(part, WideText(32, WideChar{'A'})), PRO_TK_NO_ERROR);
    WideChar name[PRO_NAME_SIZE + 1] = {};
    name[PRO_NAME_SIZE] = WideChar{'!'};
    EXPECT_EQ(ProMdlNameGet(part.handle, name), PRO_TK_NO_ERROR);
    EXPECT_EQ(WideView(name, PRO_NAME_SIZE + 1), WideText(32, WideChar{'A'}) + WIDE("!"));
}

TEST_F(Renaming, RefusesANameThatIsTakenInMemoryOrOnDiskInWhateverLetters) {
    Model& part = SavedPart("plate");
    Part("lid");
    Write(WIDE("C:\\Work\\Cover.prt.7"), "");
    Write(WIDE("C:\\Work\\old.prt"), "");
    for (const WideView name :
         {WideView(WIDE("LID")), WideView(WIDE("cover")), WideView(WIDE("Old")),
          WideView(WIDE("plate")), WideView(WIDE("Plate"))}) {
        EXPECT_EQ(Rename(part, WideText(name)), PRO_TK_E_FOUND) << Utf8(name);
    }
    // The name of a drawing is no part's.
    Write(WIDE("C:\\Work\\free.drw.1"), "");
    EXPECT_EQ(Rename(part, WIDE("free")), PRO_TK_NO_ERROR);
}

TEST_F(Renaming, IsDoneWholeOrNotAtAll) {
    Model& part = SavedPart("plate");
    Model& top = workbench::MakeModels("top: plate");
    top.modified = false;
    Play("@ hold plate.prt.2");
    EXPECT_EQ(Rename(part, WIDE("lid")), PRO_TK_CANT_WRITE);
    EXPECT_NE(Told().find("plate.prt"), std::string::npos);
    Play("@ let go plate.prt.2\n@ read-only plate.prt.1");
    EXPECT_EQ(Rename(part, WIDE("lid")), PRO_TK_CANT_WRITE);
    EXPECT_NE(Told().find("plate.prt.1 is read-only"), std::string::npos);
    EXPECT_EQ(Files(), (Names{"plate.prt.1", "plate.prt.2"}));
    EXPECT_EQ(part.name, WIDE("PLATE"));
    EXPECT_EQ(top.features()[0].file, "plate.prt");
    EXPECT_FALSE(top.modified);
}

TEST_F(Renaming, NeedsAModel) {
    WideText name = WIDE("lid");
    EXPECT_EQ(ProMdlRename(nullptr, name.data()), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ProMdlSave(nullptr), PRO_TK_BAD_INPUTS);
}

// --- Saving ---

TEST_F(Renaming, SavingGoesToTheWorkingFolderWhereTheOptionSaysSo) {
    fs::create_directories(host().disk.Real(WIDE("C:\\Parts")));
    Model& part = Part("plate");
    part.folder = WIDE("C:\\Parts");
    Play("@ option override_store_back yes");
    EXPECT_EQ(ProMdlSave(part.handle), PRO_TK_NO_ERROR);
    EXPECT_EQ(Files(), Names{"plate.prt.1"});
    Play("@ option override_store_back no");
    EXPECT_EQ(ProMdlSave(part.handle), PRO_TK_NO_ERROR);
    EXPECT_EQ(Files(WIDE("C:\\Parts")), Names{"plate.prt.1"});
}

TEST_F(Renaming, SavingIntoAFolderThatIsGoneIsToldToTheUser) {
    Model& part = Part("plate");
    part.folder = WIDE("C:\\Gone");
    EXPECT_EQ(ProMdlSave(part.handle), PRO_TK_CANT_WRITE);
    EXPECT_NE(Told().find("plate.prt is not saved"), std::string::npos);
}

TEST_F(Renaming, ANewModelIsSavedInTheFolderThatIsTheWorkingOneThen) {
    fs::create_directories(host().disk.Real(WIDE("C:\\Parts")));
    Model& part = Part("plate");
    host().session.workingDirectory = WIDE("C:\\Parts");
    EXPECT_EQ(ProMdlSave(part.handle), PRO_TK_NO_ERROR);
    host().session.workingDirectory = WIDE("C:\\Work");
    EXPECT_EQ(ProMdlSave(part.handle), PRO_TK_NO_ERROR);
    EXPECT_EQ(Files(WIDE("C:\\Parts")), (Names{"plate.prt.1", "plate.prt.2"}));
}

// --- Where a model comes from ---

TEST_F(Renaming, TheDataOfAModelNameItsDriveAndItsFolder) {
    fs::create_directories(host().disk.Real(WIDE("C:\\Parts")));
    host().session.workingDirectory = WIDE("C:\\Parts");
    host().session.Save(Part("plate"));
    Play("@ erase plate.prt\n@ open plate.prt");
    host().session.workingDirectory = WIDE("C:\\Work");
    ProMdldata data = {};
    EXPECT_EQ(ProMdlDataGet(host().session.CurrentModel()->handle, &data), PRO_TK_NO_ERROR);
    EXPECT_EQ(WideView(data.device), WIDE("C"));
    EXPECT_EQ(WideView(data.path), WIDE("\\Parts\\"));
    EXPECT_EQ(WideView(data.name), WIDE("PLATE"));
}

TEST_F(Renaming, TheWorkingDirectoryCanBeNamedWithoutItsDriveButNotByNothing) {
    fs::create_directories(host().disk.Real(WIDE("C:\\Parts")));
    WideChar path[PRO_PATH_SIZE] = WIDE("\\Parts\\");
    EXPECT_EQ(ProDirectoryChange(path), PRO_TK_NO_ERROR);
    EXPECT_EQ(host().session.workingDirectory, WIDE("C:\\Parts"));
    WideChar none[PRO_PATH_SIZE] = {};
    EXPECT_EQ(ProDirectoryChange(none), PRO_TK_BAD_INPUTS);
    WideChar missing[PRO_PATH_SIZE] = WIDE("\\Nowhere");
    EXPECT_EQ(ProDirectoryChange(missing), PRO_TK_INVALID_DIR);
    WideChar server[PRO_PATH_SIZE] = WIDE("\\\\Parts");
    EXPECT_EQ(ProDirectoryChange(server), PRO_TK_INVALID_DIR);
    EXPECT_EQ(host().session.workingDirectory, WIDE("C:\\Parts"));
}

// --- Words of scripts ---

TEST_F(Renaming, AFileThatIsNotThereCannotBeHeldOrMadeReadOnly) {
    EXPECT_EQ(RunScript("@ hold plate.prt.1\n@ let go C:\\Work\\plate.prt.1\n@ read-only plate"),
              (Names{"line 1: there is no file C:\\Work\\plate.prt.1",
                     "line 2: there is no file C:\\Work\\plate.prt.1",
                     "line 3: there is no file C:\\Work\\plate"}));
    EXPECT_EQ(RunScript("@ hold"), Names{"line 1: a file's name is missing"});
}

}  // namespace
