// Backups at the door: where the record sends them, what comes along, and what they cannot do.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "hostapi/host.h"
#include "simhost/core/disk.h"
#include "simhost/model/drawing.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using Names = std::vector<std::string>;
namespace fs = std::filesystem;

class Backups : public workbench::Workbench {
protected:
    void SetUp() override { fs::create_directories(Real("C:\\Out")); }
    fs::path Real(const std::string& path) { return host().disk.Real(Wide(path)); }
    Names FilesOf(const std::string& path) {
        Names names;
        for (const auto& entry : fs::directory_iterator(Real(path))) {
            const auto name = entry.path().filename().u8string();
            names.emplace_back(name.begin(), name.end());
        }
        std::sort(names.begin(), names.end());
        return names;
    }
    ProError BackUp(Model& model, const std::string& path, const std::string& device = "C") {
        ProMdldata data = {};
        EXPECT_EQ(ProMdlDataGet(model.handle, &data), PRO_TK_NO_ERROR);
        CopyCut(Wide(path), data.path, PRO_PATH_SIZE);
        CopyCut(Wide(device), data.device, PRO_NAME_SIZE);
        return ProMdlBackup(model.handle, &data);
    }
};

TEST_F(Backups, GoWhereTheRecordsPathSaysWhateverItsDevice) {
    Model& part = workbench::MakeModels("plate");
    EXPECT_EQ(BackUp(part, "C:\\Out", ""), PRO_TK_NO_ERROR);
    EXPECT_EQ(FilesOf("C:\\Out"), Names{"plate.prt.1"});
    fs::create_directories(Real("C:\\Second"));
    EXPECT_EQ(BackUp(part, "C:\\Second\\", "D"), PRO_TK_NO_ERROR);
    EXPECT_EQ(FilesOf("C:\\Second"), Names{"plate.prt.1"});
    fs::create_directories(Real("C:\\Third"));
    EXPECT_EQ(BackUp(part, "\\Third\\", "C"), PRO_TK_NO_ERROR);
    EXPECT_EQ(FilesOf("C:\\Third"), Names{"plate.prt.1"});
}

TEST_F(Backups, AreRefusedWithoutAFolderToGoTo) {
    Model& part = workbench::MakeModels("plate");
    Write(WIDE("C:\\file"), "x");
    EXPECT_EQ(BackUp(part, ""), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(BackUp(part, "C:\\Gone"), PRO_TK_INVALID_DIR);
    EXPECT_EQ(BackUp(part, "C:\\file"), PRO_TK_INVALID_DIR);
    EXPECT_EQ(BackUp(part, "\\\\server\\parts"), PRO_TK_INVALID_DIR);
    EXPECT_EQ(BackUp(part, "\\Out", ""), PRO_TK_INVALID_DIR);
    EXPECT_EQ(FilesOf("C:\\Out"), Names{});
    ProMdldata data = {};
    EXPECT_EQ(ProMdlBackup(nullptr, &data), PRO_TK_BAD_INPUTS);
}

TEST_F(Backups, OfAnAssemblyTakeAllAlongThatItNeeds) {
    workbench::MakeModels("top: a, sub(b, m12 of bolt), gone!missing");
    EXPECT_EQ(BackUp(workbench::ModelNamed("top.asm"), "C:\\Out"), PRO_TK_NO_ERROR);
    EXPECT_EQ(FilesOf("C:\\Out"),
              (Names{"a.prt.1", "b.prt.1", "bolt.prt.1", "m12.prt.1", "sub.asm.1", "top.asm.1"}));
}

TEST_F(Backups, OfAManufacturingModelTakeItsAssemblyAlong) {
    Model& mill = workbench::MakeModels("mill.mfg: top(a)");
    EXPECT_EQ(BackUp(mill, "C:\\Out"), PRO_TK_NO_ERROR);
    EXPECT_EQ(FilesOf("C:\\Out"), (Names{"a.prt.1", "mill.mfg.1", "top.asm.1"}));
}

TEST_F(Backups, OfADrawingTakeAlongWhatItShows) {
    Model& top = workbench::MakeModels("top: a");
    Model& part = workbench::MakeModels("solid");
    Model& drawing = workbench::MakeModels("sheet.drw: A3");
    DrawingOf(drawing).AddGeneral(top, 1, {100, 100, 0}, 1, {});
    drawing.drawingData.AddSolid(part.FileName());
    EXPECT_EQ(BackUp(drawing, "C:\\Out"), PRO_TK_NO_ERROR);
    EXPECT_EQ(FilesOf("C:\\Out"), (Names{"a.prt.1", "sheet.drw.1", "solid.prt.1", "top.asm.1"}));
}

TEST_F(Backups, FetchTheModelOfADrawingThatIsOnDiskAlone) {
    Model& part = workbench::MakeModels("plate");
    Model& drawing = workbench::MakeModels("sheet.drw: A3");
    DrawingOf(drawing).AddGeneral(part, 1, {100, 100, 0}, 1, {});
    host().session.Save(part);
    host().session.Save(drawing);
    host().session.Erase(drawing);
    host().session.Erase(part);
    EXPECT_EQ(BackUp(*host().session.Retrieve("sheet.drw"), "C:\\Out"), PRO_TK_NO_ERROR);
    EXPECT_EQ(FilesOf("C:\\Out"), (Names{"plate.prt.1", "sheet.drw.1"}));
}

TEST_F(Backups, CountOnlyWhatDiffersFromTheNewestCopyThere) {
    Model& part = workbench::MakeModels("plate");
    EXPECT_EQ(BackUp(part, "C:\\Out"), PRO_TK_NO_ERROR);
    const std::string first = Read(WIDE("C:\\Out\\plate.prt.1"));
    part.relations.initial.emplace().push_back(WIDE("X = 1"));
    EXPECT_EQ(BackUp(part, "C:\\Out"), PRO_TK_NO_ERROR);
    EXPECT_EQ(BackUp(part, "C:\\Out"), PRO_TK_NO_ERROR);
    EXPECT_EQ(FilesOf("C:\\Out"), (Names{"plate.prt.1", "plate.prt.2"}));
    // An older one of the same bytes does not count.
    part.relations.initial.reset();
    EXPECT_EQ(BackUp(part, "C:\\Out"), PRO_TK_NO_ERROR);
    EXPECT_EQ(FilesOf("C:\\Out"), (Names{"plate.prt.1", "plate.prt.2", "plate.prt.3"}));
    EXPECT_EQ(Read(WIDE("C:\\Out\\plate.prt.3")), first);
}

TEST_F(Backups, LeaveTheModelAsItIs) {
    Model& part = workbench::MakeModels("plate");
    host().session.Save(part);
    part.modified = true;
    EXPECT_EQ(BackUp(part, "C:\\Out"), PRO_TK_NO_ERROR);
    EXPECT_EQ(BackUp(part, "C:\\Out"), PRO_TK_NO_ERROR);
    EXPECT_TRUE(part.modified);
    EXPECT_EQ(part.version, 1);
    EXPECT_EQ(part.folder, WIDE("C:\\Work"));
}

TEST_F(Backups, IntoAReadOnlyFolderAreAStatusAndALineToTheUser) {
    Model& part = workbench::MakeModels("plate");
    fs::permissions(Real("C:\\Out"), fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_EQ(BackUp(part, "C:\\Out"), PRO_TK_CANT_WRITE);
    fs::permissions(Real("C:\\Out"), fs::perms::owner_all);
    EXPECT_EQ(FilesOf("C:\\Out"), Names{});
    ASSERT_FALSE(host().shown.empty());
    EXPECT_EQ(Utf8(host().shown.back().text),
              "plate.prt is not saved in C:\\Out: the folder is read-only");
}

}  // namespace
