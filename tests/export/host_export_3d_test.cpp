// The simulated host's files for other systems, through the door: which models and names are
// taken, what is refused without harm, and whose the records are.
#include <algorithm>
#include <filesystem>

#include "simhost/core/disk.h"
#include "simhost/system/windows.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using workbench::MakeModels;
using workbench::ModelNamed;
namespace fs = std::filesystem;

WideChar* Text(const WideText& text) {
    return const_cast<WideChar*>(text.c_str());
}

class FilesForOthers : public workbench::Workbench {
protected:
    ProError WriteStep(Model& model, const WideText& file) {
        return ProOutputFileWrite(model.handle, Text(file), PRO_STEP_FILE, nullptr, nullptr,
                                  nullptr, nullptr);
    }
    ProError WriteIges(Model& model, const WideText& file, ProOutputInclusion inclusion = nullptr,
                       ProOutputLayerOptions layers = nullptr) {
        return ProIntf3DFileWrite(static_cast<ProSolid>(model.handle), PRO_INTF_EXPORT_IGES,
                                  Text(file), PRO_OUTPUT_ASSEMBLY_MULTI_FILES, nullptr, nullptr,
                                  inclusion, layers);
    }
    bool IsThere(const WideText& path) {
        std::error_code error;
        return fs::exists(host().disk.Real(path), error);
    }
    // How many of the lines that the user was shown have these words.
    std::size_t Told(const std::string& words) {
        return std::size_t(std::count_if(
            host().shown.begin(), host().shown.end(),
            [&](const Shown& each) { return Utf8(each.text).find(words) != std::string::npos; }));
    }
    void ExpectRefused(const WideText& file, const std::string& why) {
        EXPECT_EQ(WriteStep(ModelNamed("plate"), file), PRO_TK_CANT_WRITE) << Utf8(file);
        EXPECT_EQ(Told(why), 1u) << why;
        host().shown.clear();
    }
};

TEST_F(FilesForOthers, GoByTheirVeryNameIntoTheWorkingFolderOrByAWholePath) {
    Model& plate = MakeModels("plate");
    fs::create_directory(host().disk.Real(WIDE("C:\\Work")) / "STP");
    EXPECT_EQ(WriteStep(plate, WIDE("plate.sat")), PRO_TK_NO_ERROR);
    EXPECT_EQ(WriteStep(plate, WIDE("STP\\板")), PRO_TK_NO_ERROR);
    EXPECT_EQ(WriteIges(plate, WIDE("C:\\Work\\100%.igs")), PRO_TK_NO_ERROR);
    EXPECT_TRUE(IsThere(WIDE("C:\\Work\\plate.sat")));
    EXPECT_TRUE(IsThere(WIDE("C:\\Work\\STP\\板")));
    EXPECT_TRUE(IsThere(WIDE("C:\\Work\\100%.igs")));
    EXPECT_FALSE(IsThere(WIDE("C:\\Work\\plate.stp")));
    EXPECT_FALSE(IsThere(WIDE("C:\\Work\\plate.sat.stp")));
}

TEST_F(FilesForOthers, AreRefusedForWhatHasNoSolidAndForOtherModels) {
    MakeModels("top: sub(skeleton!skeleton), gone!missing");
    MakeModels("plate.drw: A3");
    MakeModels("mill.mfg: work(plate)");
    MakeModels("off: plate!suppressed");
    ModelNamed("skeleton").partData.solids.clear();
    EXPECT_EQ(WriteStep(ModelNamed("plate.drw"), WIDE("a.stp")), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(WriteStep(ModelNamed("mill.mfg"), WIDE("a.stp")), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(WriteStep(ModelNamed("top"), WIDE("a.stp")), PRO_TK_GENERAL_ERROR);
    EXPECT_EQ(WriteStep(ModelNamed("off"), WIDE("a.stp")), PRO_TK_GENERAL_ERROR);
    EXPECT_EQ(WriteStep(ModelNamed("skeleton"), WIDE("a.stp")), PRO_TK_GENERAL_ERROR);
    EXPECT_EQ(WriteIges(ModelNamed("mill.mfg"), WIDE("a.stp")), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ProOutputFileWrite(nullptr, Text(WIDE("a.stp")), PRO_STEP_FILE, nullptr, nullptr,
                                 nullptr, nullptr),
              PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ProOutputFileWrite(ModelNamed("plate.prt").handle, Text(WIDE("a.stp")),
                                 ProImportExportFile(5), nullptr, nullptr, nullptr, nullptr),
              PRO_TK_BAD_INPUTS);
    EXPECT_EQ(WriteStep(ModelNamed("work"), WIDE("")), PRO_TK_BAD_INPUTS);
    EXPECT_FALSE(IsThere(WIDE("C:\\Work\\a.stp")));
    EXPECT_TRUE(host().shown.empty());
}

TEST_F(FilesForOthers, AreNotWrittenUnderNamesThatAreNone) {
    MakeModels("plate");
    for (const WideText& name :
         {WideText(WIDE("a:b.stp")), WideText(WIDE("a?.stp")), WideText(WIDE("a\tb.stp")),
          WideText(WIDE("folder\\")), WideText(WIDE("C:plate.stp")), WideText(WIDE("nul.stp")),
          WideText(WIDE("C:\\Work\\Com1")), WideText(260, WideChar{'a'})}) {
        ExpectRefused(name, "no file can have this name");
    }
    EXPECT_EQ(WriteStep(ModelNamed("plate"), WIDE("comb.stp")), PRO_TK_NO_ERROR);
    ExpectRefused(WIDE("nowhere\\a.stp"), "there is no such folder");
    fs::create_directory(host().disk.Real(WIDE("C:\\Work")) / "taken.stp");
    ExpectRefused(WIDE("taken.stp"), "what has this name is no file");
}

TEST_F(FilesForOthers, ReplaceAFileOnlyWhereItMayBeWritten) {
    MakeModels("plate");
    Write(WIDE("C:\\Work\\old.stp"), "old");
    TheWindows().Hold(WIDE("C:\\Work\\old.stp"));
    ExpectRefused(WIDE("OLD.stp"), "another program has it open");
    TheWindows().Release(WIDE("C:\\Work\\old.stp"));
    const fs::path old = host().disk.Real(WIDE("C:\\Work\\old.stp"));
    fs::permissions(old, fs::perms::owner_read);
    ExpectRefused(WIDE("old.stp"), "the file is read-only");
    EXPECT_EQ(Read(WIDE("C:\\Work\\old.stp")), "old");
    fs::permissions(old, fs::perms::owner_all);
    EXPECT_EQ(WriteStep(ModelNamed("plate"), WIDE("old.stp")), PRO_TK_NO_ERROR);
    EXPECT_NE(Read(WIDE("C:\\Work\\old.stp")), "old");
}

TEST_F(FilesForOthers, AreNotWrittenIntoAReadOnlyFolder) {
    MakeModels("plate");
    const fs::path work = host().disk.Real(WIDE("C:\\Work"));
    fs::permissions(work, fs::perms::owner_read | fs::perms::owner_exec);
    ExpectRefused(WIDE("a.stp"), "the folder is read-only");
    fs::permissions(work, fs::perms::owner_all);
}

TEST_F(FilesForOthers, AreWholeOrNotThereOnAFullDisk) {
    MakeModels("plate");
    Write(WIDE("C:\\Work\\old.stp"), "old");
    LimitDisk(10);
    ExpectRefused(WIDE("old.stp"), "is not written: ");
    ExpectRefused(WIDE("new.stp"), "is not written: ");
    LimitDisk({});
    EXPECT_EQ(Read(WIDE("C:\\Work\\old.stp")), "old");
    EXPECT_FALSE(IsThere(WIDE("C:\\Work\\new.stp")));
    std::size_t files = 0;
    for ([[maybe_unused]] const auto& each :
         fs::directory_iterator(host().disk.Real(WIDE("C:\\Work")))) {
        ++files;
    }
    EXPECT_EQ(files, 1u);  // nothing is left of the tries
}

TEST_F(FilesForOthers, GoNowhereWhereTheHostWritesNoOutput) {
    MakeModels("plate");
    host().writesOutput = false;
    EXPECT_EQ(WriteStep(ModelNamed("plate"), WIDE("a.stp")), PRO_TK_NO_ERROR);
    EXPECT_FALSE(IsThere(WIDE("C:\\Work\\a.stp")));
    ExpectRefused(WIDE("nowhere\\a.stp"), "there is no such folder");
}

TEST_F(FilesForOthers, AreAskedForByRecordsThatTheHostKeeps) {
    MakeModels("plate");
    host().journal.Start();
    ProOutputInclusion inclusion = nullptr;
    ProOutputLayerOptions layers = nullptr;
    EXPECT_EQ(ProOutputInclusionAlloc(&inclusion), PRO_TK_NO_ERROR);
    EXPECT_EQ(ProOutputInclusionFlagsSet(inclusion, PRO_B_TRUE, PRO_B_FALSE, PRO_B_TRUE),
              PRO_TK_NO_ERROR);
    EXPECT_EQ(ProOutputLayerOptionsAlloc(&layers), PRO_TK_NO_ERROR);
    EXPECT_EQ(ProOutputLayerOptionsAutoidSet(layers, PRO_B_TRUE), PRO_TK_NO_ERROR);
    EXPECT_EQ(WriteIges(ModelNamed("plate"), WIDE("a.igs"), inclusion, layers), PRO_TK_NO_ERROR);
    EXPECT_EQ(host().journal.lines().back(),
              "ProIntf3DFileWrite(solid=plate.prt, format=4, file=\"a.igs\", configuration=2, "
              "csys=null, representation=null, inclusion=inclusion of datums, facetted, "
              "layers=layers with ids) = 0");
    EXPECT_EQ(host().arrays.Held().size(), 2u);
    EXPECT_EQ(ProOutputInclusionFlagsSet(nullptr, PRO_B_TRUE, PRO_B_TRUE, PRO_B_TRUE),
              PRO_TK_BAD_INPUTS);
    EXPECT_TRUE(Complaints().empty());
    auto* wrong = reinterpret_cast<ProOutputInclusion>(layers);
    EXPECT_EQ(WriteIges(ModelNamed("plate"), WIDE("a.igs"), wrong), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints().size(), 1u);
    host().arrays.ForgetHandle(inclusion);
    host().arrays.ForgetHandle(layers);
}

}  // namespace
