// Materials of parts in the simulated host: files, units, what the door answers, masses.
#include <gtest/gtest.h>

#include <filesystem>
#include <numbers>

#include "simhost/model/model_file.h"
#include "simhost/model/model_file_error.h"
#include "simhost/trail/interpreter.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using workbench::MakeModels;
using workbench::Workbench;

std::string FileText(const std::string& density, const std::string& unit = "kg/m^3",
                     const std::string& more = {}) {
    return "[material]\ndensity = " + density + "\ndensity_unit = \"" + unit + "\"\n" + more;
}

class Materials : public Workbench {
protected:
    void SetUp() override { part_ = &Part("a"); }  // one box of 10 x 20 x 30

    ProError ReadInto(Model& model, WideText name) {
        return ProMaterialfileRead(static_cast<ProSolid>(model.handle), name.data());
    }
    ProError SetCurrent(Model& model, WideView name) {
        ProMaterial material{};
        std::copy(name.begin(), name.end(), material.matl_name);
        material.part = static_cast<ProSolid>(model.handle);
        return ProMaterialCurrentSet(&material);
    }
    std::string Failures(const std::string& script) {
        std::string all;
        for (const std::string& failure : RunScript(script)) all += failure + '\n';
        return all;
    }
    std::string LastTold() { return Utf8(host().shown.back().text); }
    const Material& First() { return part_->partData.materials.at(0); }

    Model* part_ = nullptr;
};

// --- Reading -----------------------------------------------------------------------------------

TEST_F(Materials, AFileOfTheWorkingFolderIsReadByItsBaseName) {
    Write(WIDE("C:\\Work\\Steel.mtl"),
          FileText("7850", "kg/m^3", "title = \"钢\"\nyoung = 206000\nyield = 355\npoisson = 0.3"));
    EXPECT_EQ(ReadInto(*part_, WIDE("steel")), PRO_TK_NO_ERROR);
    EXPECT_EQ(First().name, WIDE("steel"));
    EXPECT_EQ(First().title, "钢");
    EXPECT_EQ(First().density, 7850);
    EXPECT_EQ(First().young, 206000);
    EXPECT_EQ(First().yield, 355);
    EXPECT_EQ(First().poisson, 0.3);
    EXPECT_TRUE(part_->partData.material.empty());
    EXPECT_TRUE(part_->modified);
}

TEST_F(Materials, OnlyTheWorkingFolderIsLookedIn) {
    std::filesystem::create_directories(host().disk.Real(WIDE("C:\\Materials")));
    Write(WIDE("C:\\Materials\\steel.mtl"), FileText("7850"));
    Play("@ option pro_material_dir C:\\Materials");
    EXPECT_EQ(ReadInto(*part_, WIDE("steel")), PRO_TK_E_NOT_FOUND);
    Play("@ directory C:\\Materials");
    EXPECT_EQ(ReadInto(*part_, WIDE("steel")), PRO_TK_NO_ERROR);
}

TEST_F(Materials, AnMtlFileIsTakenBeforeAMatFileAndANewVersionBeforeAnOldOne) {
    Write(WIDE("C:\\Work\\x.mat"), FileText("1"));
    ReadInto(*part_, WIDE("x"));
    EXPECT_EQ(First().density, 1);
    Write(WIDE("C:\\Work\\x.mtl"), FileText("2"));
    ReadInto(*part_, WIDE("x"));
    EXPECT_EQ(First().density, 2);
    Write(WIDE("C:\\Work\\x.mtl.9"), FileText("9"));
    Write(WIDE("C:\\Work\\x.mtl.10"), FileText("10"));
    ReadInto(*part_, WIDE("x"));
    EXPECT_EQ(First().density, 10);
    EXPECT_EQ(part_->partData.materials.size(), 1u);
}

TEST_F(Materials, ReadAgainItIsReplacedAndTheCurrentOneStays) {
    Write(WIDE("C:\\Work\\x.mtl"), FileText("1"));
    Write(WIDE("C:\\Work\\y.mtl"), FileText("2"));
    ReadInto(*part_, WIDE("x"));
    EXPECT_EQ(SetCurrent(*part_, WIDE("x")), PRO_TK_NO_ERROR);
    ReadInto(*part_, WIDE("y"));
    Write(WIDE("C:\\Work\\x.mtl"), FileText("3"));
    ReadInto(*part_, WIDE("X"));
    EXPECT_EQ(part_->partData.materials.size(), 2u);
    ASSERT_NE(MaterialOf(*part_), nullptr);
    EXPECT_EQ(MaterialOf(*part_)->density, 3);
}

TEST_F(Materials, OtherUnitsAreConverted) {
    // 1 lb/in^3 = 0.45359237 kg / (0.0254 m)^3 = 27679.9047102 kg/m^3; 1 psi = 0.00689475729317
    // MPa.
    Write(WIDE("C:\\Work\\us.mat"),
          FileText("0.2836", "lb/in^3", "young = 29700000\nstress_unit = \"psi\""));
    ReadInto(*part_, WIDE("us"));
    EXPECT_NEAR(First().density, 7850.0209758, 1e-6);
    EXPECT_NEAR(First().young, 204774.2916, 1e-3);
    EXPECT_EQ(First().densityUnit, DensityUnit::KgPerM3);
    EXPECT_EQ(First().stressUnit, StressUnit::MPa);
    for (const auto& [text, unit] :
         {std::pair{"7.85e-9", "t/mm^3"}, {"7.85e-6", "kg/mm^3"}, {"7.85", "g/cm^3"}}) {
        Write(WIDE("C:\\Work\\us.mat"), FileText(text, unit));
        ReadInto(*part_, WIDE("us"));
        EXPECT_NEAR(First().density, 7850, 1e-9) << unit;
    }
    for (const auto& [text, unit] : {std::pair{"206", "GPa"}, {"206000000000", "Pa"}}) {
        Write(WIDE("C:\\Work\\us.mat"),
              FileText("1", "kg/m^3",
                       std::string("young = ") + text + "\nstress_unit = \"" + unit + "\""));
        ReadInto(*part_, WIDE("us"));
        EXPECT_NEAR(First().young, 206000, 1e-6) << unit;
    }
}

TEST_F(Materials, WhatCannotBeReadIsAStatusAndALineForTheUser) {
    EXPECT_EQ(ReadInto(*part_, WIDE("nowhere")), PRO_TK_E_NOT_FOUND);
    Write(WIDE("C:\\Work\\bad.mtl"), "[material]\ndensity = 0\ndensity_unit = \"kg/m^3\"\n");
    EXPECT_EQ(ReadInto(*part_, WIDE("bad")), PRO_TK_INVALID_FILE);
    EXPECT_EQ(LastTold(), "bad.mtl:2: \"density\" must be more than 0");
    for (const char* text : {"", "density", "[material]\ndensity = 1\n", "[steel]\n",
                             "[material]\ndensity = 1\ndensity_unit = \"kg\"\n",
                             "[material]\ndensity = 1\ndensity_unit = \"kg/m^3\"\npoisson = -1\n",
                             "[material]\ndensity = 1\ndensity_unit = \"kg/m^3\"\ncolour = 1\n"}) {
        Write(WIDE("C:\\Work\\bad.mtl"), text);
        EXPECT_EQ(ReadInto(*part_, WIDE("bad")), PRO_TK_INVALID_FILE) << text;
    }
    EXPECT_TRUE(part_->partData.materials.empty());
    EXPECT_FALSE(part_->modified);
}

TEST_F(Materials, OtherModelsAndNamesAreRefusedQuietly) {
    Write(WIDE("C:\\Work\\x.mtl"), FileText("1"));
    EXPECT_EQ(ReadInto(Assembly("top"), WIDE("x")), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ReadInto(MakeModels("plate.drw"), WIDE("x")), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ReadInto(MakeModels("b!released"), WIDE("x")), PRO_TK_NO_PERMISSION);
    EXPECT_EQ(ReadInto(*part_, WIDE("")), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ReadInto(*part_, WIDE("..\\Work\\x")), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ReadInto(*part_, WideText(33, 'x')), PRO_TK_INVALID_NAME);
    WideChar name[] = WIDE("x");
    EXPECT_EQ(ProMaterialfileRead(nullptr, name), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(SetCurrent(*part_, WIDE("x")), PRO_TK_E_NOT_FOUND);
    ProMaterial zeroed{};
    EXPECT_EQ(ProMaterialCurrentSet(&zeroed), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints(), std::vector<std::string>{});
}

TEST_F(Materials, ANameThatFillsItsRecordIsReadNoFurther) {
    const WideText name(32, 'm');
    Write(WIDE("C:\\Work\\") + name + WIDE(".mtl"), FileText("1"));
    EXPECT_EQ(ReadInto(*part_, name), PRO_TK_NO_ERROR);
    EXPECT_EQ(SetCurrent(*part_, name), PRO_TK_NO_ERROR);
    EXPECT_EQ(part_->partData.material, name);
}

// --- In the part's file ------------------------------------------------------------------------

std::string RoundTrip(const std::string& text) {
    Model model;
    ReadModelText(text, "a.prt.1", &model);
    return ModelText(model);
}

std::string ReadingError(const std::string& text) {
    try {
        RoundTrip("[model]\ntype = \"part\"\n" + text);
        return "";
    } catch (const ModelFileError& error) {
        return error.what();
    }
}

TEST(MaterialsInFiles, APartKeepsItsMaterialsAndWhichIsCurrent) {
    const std::string text =
        "[model]\ntype = \"part\"\n"
        "\n[[material]]\nname = \"brass\"\ndensity = 8430\ndensity_unit = \"kg/m^3\"\n"
        "\n[[material]]\nname = \"steel\"\ntitle = \"钢\"\ndensity = 7850\n"
        "density_unit = \"kg/m^3\"\nyoung = 206000\nyield = 355\npoisson = 0.3\ncurrent = true\n";
    EXPECT_EQ(RoundTrip(text), text);
}

TEST(MaterialsInFiles, WhatIsWrongIsTold) {
    const std::string one = "[[material]]\nname = \"x\"\ndensity = 1\ndensity_unit = \"kg/m^3\"\n";
    EXPECT_EQ(ReadingError(one), "");
    EXPECT_EQ(ReadingError(one + one), "a.prt.1:7: the material x is there twice");
    EXPECT_NE(ReadingError("[[material]]\ndensity = 1\ndensity_unit = \"kg/m^3\"\n"), "");
    const std::string other =
        "[[material]]\nname = \"y\"\ndensity = 1\ndensity_unit = \"kg/m^3\"\n";
    EXPECT_EQ(ReadingError(one + "current = true\n" + other), "");
    EXPECT_EQ(ReadingError(one + "current = true\n" + other + "current = true\n"),
              "a.prt.1:8: a part is made of one material");
    EXPECT_NE(ReadingError("[[material]]\nname = \"\"\ndensity = 1\ndensity_unit = \"kg/m^3\"\n"),
              "");
}

// --- Masses ------------------------------------------------------------------------------------

TEST_F(Materials, TheMassIsDensityTimesTheVolumesOfTheSolids) {
    EXPECT_EQ(MassOf(*part_), std::nullopt);
    Write(WIDE("C:\\Work\\x.mtl"), FileText("8000"));
    ReadInto(*part_, WIDE("x"));
    EXPECT_EQ(MassOf(*part_), std::nullopt);
    SetCurrent(*part_, WIDE("x"));
    // 10 x 20 x 30 = 6000 mm^3 = 6e-6 m^3.
    EXPECT_NEAR(MassOf(*part_).value(), 0.048, 1e-12);
    Solid twin = part_->partData.solids[0];
    twin.id = 100;
    part_->partData.solids.push_back(twin);  // in the same place: counts twice
    EXPECT_NEAR(MassOf(*part_).value(), 0.096, 1e-12);
}

TEST_F(Materials, AnAssemblysMassIsThatOfItsPartsAsFarAsItIsKnown) {
    Model& top = MakeModels("top: a x2, b, sub(a), a!suppressed, a!invisible, a!hidden");
    Open(top);
    Write(WIDE("C:\\Work\\x.mtl"), FileText("8000"));
    EXPECT_EQ(Failures("@ expect mass top.asm none"), "");
    ReadInto(*part_, WIDE("x"));
    SetCurrent(*part_, WIDE("x"));
    // Four uses that are there, the hidden one among them.
    EXPECT_EQ(Failures("@ expect mass top.asm 0.192\n@ expect mass a.prt 0.05"), "");
    EXPECT_EQ(Failures("@ expect mass top.asm 0.193"),
              "line 1: the mass of top.asm is 0.192 kg, not 0.193\n");
    std::string told;
    RunScript("@ show masses", [&](const std::string& line) { told += line + "\n"; });
    EXPECT_NE(told.find("top.asm: 0.192 kg in 4 uses of parts; 1 have no material"),
              std::string::npos)
        << told;
    EXPECT_NE(told.find("overlap"), std::string::npos) << told;
}

TEST_F(Materials, WordsExpectAndShowMaterials) {
    EXPECT_EQ(Failures("@ expect material a.prt none"), "");
    EXPECT_EQ(Failures("@ expect material a.prt x"),
              "line 1: the material of a.prt is none, not x\n");
    Write(WIDE("C:\\Work\\x.mtl"), FileText("8000"));
    Write(WIDE("C:\\Work\\y.mtl"), FileText("9000"));
    ReadInto(*part_, WIDE("x"));
    ReadInto(*part_, WIDE("y"));
    SetCurrent(*part_, WIDE("x"));
    EXPECT_EQ(Failures("@ expect material a.prt x"), "");
    EXPECT_NE(Failures("@ expect material a.prt y"), "");
    EXPECT_NE(Failures("@ expect material a.prt none"), "");
    std::string told;
    RunScript("@ show materials", [&](const std::string& line) { told += line + "\n"; });
    EXPECT_NE(told.find("8000 kg/m^3"), std::string::npos) << told;
    EXPECT_NE(told.find("(read, not in use)"), std::string::npos) << told;
    EXPECT_NE(told.find("1 parts have a material"), std::string::npos) << told;
}

}  // namespace
