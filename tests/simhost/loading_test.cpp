// Loading by a full path, copying, the active model, and files without a version, at the door.
#include <algorithm>
#include <filesystem>

#include "hostapi/host.h"
#include "simhost/trail/interpreter.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

const std::string kPart = "[model]\ntype = \"part\"\n";

class Loading : public workbench::Workbench {
protected:
    ProError Load(WideText path, ProMdlType type, ProMdl* model = nullptr) {
        ProMdl ignored = nullptr;
        return ProMdlLoad(path.data(), type, PRO_B_FALSE, model ? model : &ignored);
    }
    ProError Copy(Model& model, WideText name, ProMdl* copy = nullptr) {
        ProMdl ignored = nullptr;
        return ProMdlCopy(model.handle, name.data(), copy ? copy : &ignored);
    }
    Model* InMemory(const char* file) { return host().session.FindByFile(file); }
    bool IsThere(const WideText& path) { return fs::exists(host().disk.Real(path)); }
    void SetUp() override { fs::create_directories(host().disk.Real(WIDE("C:\\模板 库"))); }
};

TEST_F(Loading, ByFullPathWithOrWithoutAVersion) {
    Write(WIDE("C:\\模板 库\\start.prt.1"), kPart + "title = \"old\"\n");
    Write(WIDE("C:\\模板 库\\start.prt.2"), kPart + "title = \"new\"\n");
    Write(WIDE("C:\\模板 库\\flat.prt"), kPart);
    EXPECT_EQ(Load(WIDE("C:\\模板 库\\START.PRT"), PRO_MDL_PART), PRO_TK_NO_ERROR);
    EXPECT_EQ(InMemory("start.prt")->title, "new");
    host().session.Erase(*InMemory("start.prt"));
    EXPECT_EQ(Load(WIDE("C:/模板 库/start.prt.1"), PRO_MDL_PART), PRO_TK_NO_ERROR);
    EXPECT_EQ(InMemory("start.prt")->title, "old");
    EXPECT_EQ(Load(WIDE("C:\\模板 库\\flat.prt"), PRO_MDL_PART), PRO_TK_NO_ERROR);
    EXPECT_NE(InMemory("flat.prt"), nullptr) << "a file without a number";
    EXPECT_EQ(host().session.workingDirectory, WIDE("C:\\Work"));
}

TEST_F(Loading, AModelOfThatNameInMemoryIsTakenAsItIs) {
    Model& mine = Part("start");
    Write(WIDE("C:\\模板 库\\start.prt.1"), kPart);
    ProMdl model = nullptr;
    EXPECT_EQ(Load(WIDE("C:\\模板 库\\start.prt"), PRO_MDL_PART, &model), PRO_TK_NO_ERROR);
    EXPECT_EQ(model, mine.handle);
}

TEST_F(Loading, RefusesWhatIsNotThereNotReadableOrOfAnotherType) {
    Write(WIDE("C:\\模板 库\\start.prt.1"), kPart);
    Write(WIDE("C:\\模板 库\\broken.prt.1"), "nonsense");
    EXPECT_EQ(Load(WIDE("C:\\模板 库\\start.prt"), PRO_MDL_ASSEMBLY), PRO_TK_INVALID_TYPE);
    EXPECT_EQ(Load(WIDE("C:\\模板 库\\none.prt"), PRO_MDL_PART), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(Load(WIDE("C:\\none\\none.prt"), PRO_MDL_PART), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(Load(WIDE(""), PRO_MDL_PART), PRO_TK_INVALID_TYPE);
    EXPECT_EQ(Load(WIDE("C:\\模板 库\\broken.prt"), PRO_MDL_PART), PRO_TK_INVALID_FILE);
    EXPECT_EQ(host().session.All().size(), 0u);
    EXPECT_EQ(Complaints(), Lines{});
}

TEST_F(Loading, WhatLiesBelowIsLookedForBesideTheFileAndThenInTheWorkingFolder) {
    Write(WIDE("C:\\模板 库\\start.asm.1"),
          "[model]\ntype = \"assembly\"\n"
          "[[feature]]\nid = 1\ntype = 1000\nmodel = \"both.prt\"\n"
          "[[feature]]\nid = 2\ntype = 1000\nmodel = \"here.prt\"\n");
    Write(WIDE("C:\\模板 库\\both.prt.1"), kPart + "title = \"beside\"\n");
    Write(WIDE("C:\\Work\\both.prt.1"), kPart + "title = \"working folder\"\n");
    Write(WIDE("C:\\Work\\here.prt.1"), kPart);
    EXPECT_EQ(Load(WIDE("C:\\模板 库\\start.asm"), PRO_MDL_ASSEMBLY), PRO_TK_NO_ERROR);
    EXPECT_EQ(InMemory("both.prt")->title, "beside");
    EXPECT_NE(InMemory("here.prt"), nullptr);
    EXPECT_EQ(ProMdlSave(InMemory("both.prt")->handle), PRO_TK_NO_ERROR);
    EXPECT_TRUE(IsThere(WIDE("C:\\模板 库\\both.prt.2"))) << "into the folder that it came from";
}

TEST_F(Loading, ACopyBelongsToTheWorkingFolderAndHasTheSameComponents) {
    Write(WIDE("C:\\模板 库\\start.asm.1"),
          "[model]\ntype = \"assembly\"\nread_only = true\n"
          "[[feature]]\nid = 3\ntype = 979\nat = [1, 0, 0]\n"
          "[[feature]]\nid = 7\ntype = 1000\nmodel = \"bolt.prt\"\n");
    Write(WIDE("C:\\模板 库\\bolt.prt.1"), kPart);
    ASSERT_EQ(Load(WIDE("C:\\模板 库\\start.asm"), PRO_MDL_ASSEMBLY), PRO_TK_NO_ERROR);
    ASSERT_EQ(Copy(*InMemory("start.asm"), WIDE("Top_01")), PRO_TK_NO_ERROR);
    Model* copy = InMemory("top_01.asm");
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy->name, WIDE("TOP_01"));
    EXPECT_FALSE(copy->readOnly);
    EXPECT_EQ(copy->features()[0].id, 3);
    EXPECT_EQ(copy->features()[1].model, InMemory("bolt.prt"));
    EXPECT_FALSE(IsThere(WIDE("C:\\Work\\top_01.asm.1"))) << "on no disk before it is saved";
    EXPECT_EQ(ProMdlSave(copy->handle), PRO_TK_NO_ERROR);
    EXPECT_TRUE(IsThere(WIDE("C:\\Work\\top_01.asm.1")));
    EXPECT_FALSE(IsThere(WIDE("C:\\模板 库\\top_01.asm.1")));
}

TEST_F(Loading, ACopyKeepsWhatAPartHas) {
    Model& sheet = SheetMetal("sheet");
    sheet.partData.skeleton = false;
    sheet.parameters.Set(TextParameter(WIDE("MAT"), WIDE("Q235")));
    sheet.partData.surfaceAppearances[sheet.partData.solids[0].id + 1] = DefaultAppearance();
    ProMdl made = nullptr;
    ASSERT_EQ(Copy(sheet, WIDE("copy"), &made), PRO_TK_NO_ERROR);
    Model& copy = host().session.Require(made);
    EXPECT_EQ(copy.subtype, PROMDLSTYPE_PART_SHEETMETAL);
    EXPECT_NE(ShownParameter(copy, WIDE("MAT")), nullptr);
    EXPECT_EQ(copy.partData.surfaceAppearances.size(), 1u);
    EXPECT_EQ(copy.Surfaces().size(), sheet.Surfaces().size());
    EXPECT_TRUE(copy.modified);
}

TEST_F(Loading, ACopyOfAnInstanceIsNoInstance) {
    Model& instance = workbench::MakeModels("m12 of bolt");
    workbench::ModelNamed("bolt").parameters.Set(TextParameter(WIDE("MAT"), WIDE("8.8")));
    ProMdl made = nullptr;
    ASSERT_EQ(Copy(instance, WIDE("copy"), &made), PRO_TK_NO_ERROR);
    Model& copy = host().session.Require(made);
    EXPECT_EQ(copy.family.genericFile, "");
    ASSERT_NE(ShownParameter(copy, WIDE("MAT")), nullptr);
    EXPECT_EQ(ValueText(*ShownParameter(copy, WIDE("MAT"))), "8.8");
}

TEST_F(Loading, RefusesANameThatIsTakenOrNoneAndLeavesNothingBehind) {
    Model& plate = Part("plate");
    Assembly("lid");
    Write(WIDE("C:\\Work\\broken.prt.1"), "nonsense");
    Write(WIDE("C:\\Work\\flat.prt"), kPart);
    EXPECT_EQ(Copy(plate, WIDE("Plate")), PRO_TK_E_FOUND) << "in other letters";
    EXPECT_EQ(Copy(plate, WIDE("broken")), PRO_TK_E_FOUND) << "by a file that cannot be read";
    EXPECT_EQ(Copy(plate, WIDE("flat")), PRO_TK_E_FOUND) << "by a file without a number";
    for (const WideText& name :
         {WideText(), WideText(33, WIDE('A')), WideText(WIDE(" a")), WideText(WIDE("a.b")),
          WideText(WIDE("a/b")), WideText(WIDE("a:b")), WideText(WIDE("a*"))}) {
        EXPECT_EQ(Copy(plate, name), PRO_TK_BAD_INPUTS) << Utf8(name);
    }
    EXPECT_EQ(host().session.All().size(), 2u);
    EXPECT_EQ(Copy(plate, WIDE("lid")), PRO_TK_NO_ERROR) << "a part beside an assembly";
    EXPECT_EQ(Copy(plate, WideText(32, WIDE('A'))), PRO_TK_NO_ERROR);
    WideText other = WIDE("other");
    ProMdl none = nullptr;
    EXPECT_EQ(ProMdlCopy(nullptr, other.data(), &none), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints(), Lines{});
}

TEST_F(Loading, ARetrieveByAFreeNameIsQuietOverABrokenFile) {
    Write(WIDE("C:\\Work\\broken.prt.1"), "nonsense");
    WideText name = WIDE("BROKEN");
    ProMdl model = nullptr;
    EXPECT_EQ(ProMdlRetrieve(name.data(), PRO_MDL_PART, &model), PRO_TK_INVALID_FILE);
    EXPECT_EQ(model, nullptr);
    EXPECT_EQ(Complaints(), Lines{});
}

TEST_F(Loading, SavingGoesPastABrokenNewestVersion) {
    Model& plate = Part("plate");
    Write(WIDE("C:\\Work\\plate.prt.7"), "nonsense");
    EXPECT_EQ(ProMdlSave(plate.handle), PRO_TK_NO_ERROR);
    EXPECT_TRUE(IsThere(WIDE("C:\\Work\\plate.prt.8")));
}

TEST_F(Loading, NothingIsSavedIntoAReadOnlyFolder) {
    Model& plate = Part("plate");
    EXPECT_EQ(RunScript("@ read-only C:\\Work\n"), Lines{});
    EXPECT_EQ(ProMdlSave(plate.handle), PRO_TK_CANT_WRITE);
    fs::permissions(host().disk.Real(WIDE("C:\\Work")), fs::perms::owner_all);
    EXPECT_FALSE(IsThere(WIDE("C:\\Work\\plate.prt.1")));
    EXPECT_EQ(Complaints(), Lines{});
}

TEST_F(Loading, TheActiveModelIsTheComponentThatTheUserHasActivated) {
    ProMdl active = nullptr;
    EXPECT_EQ(ProMdlActiveGet(&active), PRO_TK_BAD_CONTEXT);
    Model& top = workbench::MakeModels("top: sub(plate)");
    Model& mill = Manufacturing("mill", top);
    Open(top);
    EXPECT_EQ(ProMdlActiveGet(&active), PRO_TK_NO_ERROR);
    EXPECT_EQ(active, top.handle);
    EXPECT_EQ(RunScript("@ activate sub\n"), Lines{});
    ProMdlActiveGet(&active);
    EXPECT_EQ(active, workbench::ModelNamed("sub").handle);
    ProMdl current = nullptr;
    ProMdlCurrentGet(&current);
    EXPECT_EQ(current, top.handle);
    Open(mill);
    ProMdlActiveGet(&active);
    EXPECT_EQ(active, mill.handle) << "another window has its own";
    EXPECT_EQ(RunScript("@ window top.asm\n@ activate .\n"), Lines{});
    ProMdlActiveGet(&active);
    EXPECT_EQ(active, top.handle);
}

}  // namespace
