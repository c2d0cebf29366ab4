// Sheet metal in the simulated host: bend tables, developed lengths, regeneration.
#include <gtest/gtest.h>

#include <filesystem>
#include <numbers>

#include "simhost/model/model_file.h"
#include "simhost/model/model_file_error.h"
#include "simhost/trail/interpreter.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using std::numbers::pi;
using workbench::MakeModels;
using workbench::Workbench;

// 2 and 4 mm thick, radii of 1 and 3.
BendTable Table() {
    return {WIDE("t"), "", {2, 4}, {1, 3}, {{3, 4}, {6, 8}}};
}

TEST(DevelopedLengths, ANumberOfTheTableIsTakenAsItIs) {
    EXPECT_DOUBLE_EQ(LengthOf({1, 90}, 2, Table()), 3);
    EXPECT_DOUBLE_EQ(LengthOf({3, 90}, 4, Table()), 8);
    EXPECT_DOUBLE_EQ(LengthOf({3, 45}, 2, Table()), 3);
}

TEST(DevelopedLengths, BetweenNumbersItIsInterpolatedBothWays) {
    EXPECT_DOUBLE_EQ(LengthOf({1, 90}, 3, Table()), 3.5);
    EXPECT_DOUBLE_EQ(LengthOf({2, 90}, 2, Table()), 4.5);
    // 3.5 with the radius of 1 and 7 with that of 3; a quarter of the way.
    EXPECT_DOUBLE_EQ(LengthOf({1.5, 90}, 3, Table()), 4.375);
}

TEST(DevelopedLengths, OutsideOfTheTableAndWithoutOneTheUsualFactorHolds) {
    EXPECT_DOUBLE_EQ(LengthOf({2, 90}, 2, {}), pi + 1);
    EXPECT_DOUBLE_EQ(LengthOf({0.9, 90}, 2, Table()), pi / 2 * 0.9 + 1);
    EXPECT_DOUBLE_EQ(LengthOf({3.1, 90}, 2, Table()), pi / 2 * 3.1 + 1);
    EXPECT_DOUBLE_EQ(LengthOf({1, 90}, 1.9, Table()), pi / 2 + 0.95);
    EXPECT_DOUBLE_EQ(LengthOf({1, 180}, 4.1, Table()), pi + 4.1);
}

TEST(DevelopedLengths, ASheetIsAsLongAsItsPiecesAndBends) {
    const SheetMetal sheet{2, {10, 20, 30}, {{1, 90}, {3, 60}}, Table(), 0};
    EXPECT_DOUBLE_EQ(DevelopedLength(sheet), 60 + 3 + 4);
}

// --- Files -------------------------------------------------------------------------------------

const std::string kSheet =
    "[model]\ntype = \"part\"\nsubtype = \"sheetmetal\"\n"
    "\n[sheet_metal]\nthickness = 2\nflats = [10, 20, 30]\n";

std::string RoundTrip(const std::string& text) {
    Model model;
    ReadModelText(text, "a.prt.1", &model);
    return ModelText(model);
}

std::string ReadingError(const std::string& text) {
    try {
        RoundTrip(text);
        return "";
    } catch (const ModelFileError& error) {
        return error.what();
    }
}

TEST(SheetMetalFiles, APartKeepsItsBendsItsTableAndItsLength) {
    const std::string text = kSheet +
                             "developed = 66.5\n"
                             "\n[bend_table]\nname = \"t\"\nthickness = [2, 4]\nradius = [1, 3]\n"
                             "length = [[3, 4], [6, 8]]\n"
                             "\n[[bend]]\nradius = 1\n"
                             "\n[[bend]]\nradius = 3\nangle = 60\n";
    EXPECT_EQ(RoundTrip(text), text);
}

TEST(SheetMetalFiles, AFileThatDoesNotSayTheLengthIsUpToDate) {
    Model model;
    ReadModelText(kSheet + "[[bend]]\nradius = 2\n[[bend]]\nradius = 2\n", "a.prt.1", &model);
    EXPECT_DOUBLE_EQ(model.partData.sheetMetal.developed, 60 + 2 * (pi + 1));
}

TEST(SheetMetalFiles, WhatIsWrongIsTold) {
    const std::string bend = "[[bend]]\nradius = 1\n";
    EXPECT_EQ(ReadingError(kSheet + bend + bend), "");
    EXPECT_EQ(ReadingError(kSheet + bend), "a.prt.1:5: there is one bend between two flat pieces");
    EXPECT_EQ(ReadingError(kSheet + bend + bend + bend),
              "a.prt.1:12: there is a flat piece before and after each bend");
    EXPECT_EQ(ReadingError("[model]\ntype = \"part\"\n[sheet_metal]\nthickness = 2\nflats = [1]\n"),
              "a.prt.1:3: \"sheet_metal\" belongs only in a part of subtype \"sheetmetal\"");
    EXPECT_NE(ReadingError("[model]\ntype = \"part\"\n" + bend), "");
    EXPECT_NE(ReadingError("[model]\ntype = \"part\"\n[bend_table]\nname = \"t\"\n"), "");
    EXPECT_NE(ReadingError(kSheet + "[[bend]]\nradius = 1\nangle = 360\n" + bend), "");
    EXPECT_NE(ReadingError(kSheet + "[[bend]]\nradius = 0\n" + bend), "");
    EXPECT_NE(ReadingError(kSheet + bend + bend +
                           "[bend_table]\nname = \"\"\nthickness = [1]\n"
                           "radius = [1]\nlength = [[1]]\n"),
              "");
}

TEST(SheetMetalFiles, ABendTableMustBeWholeAndRise) {
    const auto error = [](const std::string& text) -> std::string {
        try {
            ReadBendTableText("[bend_table]\n" + text, "t.bnd");
            return "";
        } catch (const ModelFileError& wrong) {
            return wrong.what();
        }
    };
    EXPECT_EQ(error("thickness = [1, 2]\nradius = [1]\nlength = [[1, 2]]\n"), "");
    EXPECT_EQ(error("thickness = [1, 1]\nradius = [1]\nlength = [[1, 2]]\n"),
              "t.bnd:2: the numbers of \"thickness\" must rise");
    EXPECT_EQ(error("thickness = [1, 2]\nradius = []\nlength = []\n"),
              "t.bnd:3: \"radius\" must not be empty");
    EXPECT_EQ(error("thickness = [1, 2]\nradius = [1]\nlength = [[1, 2], [3, 4]]\n"),
              "t.bnd:4: \"length\" must be a list with a row for each radius");
    EXPECT_EQ(error("thickness = [1, 2]\nradius = [1]\nlength = [[1]]\n"),
              "t.bnd:4: a row of \"length\" must have a number for each thickness");
    EXPECT_NE(error("thickness = [1, 2]\nradius = [1]\nlength = [[1, -2]]\n"), "");
    EXPECT_NE(error("thickness = 1\nradius = [1]\nlength = [[1]]\n"), "");
    EXPECT_NE(error("radius = [1]\nlength = [[1]]\n"), "");
}

// --- At the door -------------------------------------------------------------------------------

class SheetMetalParts : public Workbench {
protected:
    void SetUp() override {
        sheet_ = &MakeModels("s!sheet");
        sheet_->partData.sheetMetal = {2, {10, 20}, {{2, 90}}, {}, 0};
        sheet_->partData.sheetMetal.developed = DevelopedLength(sheet_->partData.sheetMetal);
        for (const char* folder : {"C:\\A", "C:\\B"}) {
            std::filesystem::create_directories(host().disk.Real(Wide(folder)));
        }
        Write(WIDE("C:\\A\\t.bnd"), Text("5"));
        Write(WIDE("C:\\B\\t.bnd"), Text("6"));
    }
    static std::string Text(const std::string& length) {
        return "[bend_table]\nthickness = [2]\nradius = [2]\nlength = [[" + length + "]]\n";
    }
    ProError Apply(Model& model, WideText name = WIDE("t"), ProBoolean fromFile = PRO_B_TRUE) {
        return ProSmtPartBendtableApply(static_cast<ProSolid>(model.handle), name.data(), fromFile);
    }
    ProError Regenerate(Model& model) {
        return ProSolidRegenerate(static_cast<ProSolid>(model.handle), 0);
    }
    double Developed() const { return sheet_->partData.sheetMetal.developed; }
    Model* sheet_ = nullptr;
};

TEST_F(SheetMetalParts, TheTableIsLookedForWhereTheOptionPointsAtThatMoment) {
    EXPECT_EQ(Apply(*sheet_), PRO_TK_E_NOT_FOUND);
    Write(WIDE("C:\\Work\\t.bnd"), Text("9"));
    EXPECT_EQ(Apply(*sheet_), PRO_TK_E_NOT_FOUND);
    Play("@ option pro_sheet_met_dir \"\"");
    EXPECT_EQ(Apply(*sheet_), PRO_TK_E_NOT_FOUND);
    Play("@ option pro_sheet_met_dir C:\\A");
    EXPECT_EQ(Apply(*sheet_), PRO_TK_NO_ERROR);
    EXPECT_EQ(sheet_->partData.sheetMetal.table.length[0][0], 5);
    EXPECT_TRUE(sheet_->modified);
    Play("@ option pro_sheet_met_dir C:\\B\\");
    EXPECT_EQ(Apply(*sheet_), PRO_TK_NO_ERROR);
    EXPECT_EQ(sheet_->partData.sheetMetal.table.length[0][0], 6);
    Play("@ option pro_sheet_met_dir none");
    EXPECT_EQ(Apply(*sheet_, WIDE("T"), PRO_B_FALSE), PRO_TK_NO_ERROR);
    EXPECT_EQ(Apply(*sheet_, WIDE("u"), PRO_B_FALSE), PRO_TK_E_NOT_FOUND);
}

TEST_F(SheetMetalParts, TheLengthFollowsWithTheRegeneration) {
    Play("@ option pro_sheet_met_dir C:\\A");
    Apply(*sheet_);
    EXPECT_DOUBLE_EQ(Developed(), 30 + pi + 1);
    EXPECT_EQ(Regenerate(*sheet_), PRO_TK_NO_ERROR);
    EXPECT_DOUBLE_EQ(Developed(), 35);
    EXPECT_EQ(sheet_->regenerations, 1);
    sheet_->partData.sheetMetal.thickness = 3;  // outside of the table
    Regenerate(*sheet_);
    EXPECT_DOUBLE_EQ(Developed(), 30 + pi + 1.5);
}

TEST_F(SheetMetalParts, AnAssemblyBringsEachModelBelowItUpToDateOnce) {
    Model& top = MakeModels("top: s x3, sub(s, p), p!suppressed, lost!missing");
    sheet_->partData.sheetMetal.flats = {10, 25};
    for (Model* model : host().session.All()) model->modified = false;
    EXPECT_EQ(Regenerate(top), PRO_TK_NO_ERROR);
    EXPECT_DOUBLE_EQ(Developed(), 35 + pi + 1);
    EXPECT_EQ(top.regenerations, 1);
    EXPECT_EQ(sheet_->regenerations, 1);
    EXPECT_TRUE(sheet_->modified);
    EXPECT_FALSE(top.modified);
}

TEST_F(SheetMetalParts, OtherModelsTablesAndNamesAreRefusedQuietly) {
    Play("@ option pro_sheet_met_dir C:\\A");
    EXPECT_EQ(Apply(Part("p")), PRO_TK_INVALID_TYPE);
    EXPECT_EQ(Apply(Assembly("top")), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Apply(MakeModels("r!sheet!released")), PRO_TK_NO_PERMISSION);
    EXPECT_EQ(Apply(*sheet_, WIDE("")), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Apply(*sheet_, WIDE("nowhere")), PRO_TK_E_NOT_FOUND);
    Write(WIDE("C:\\A\\bad.bnd"), "thickness");
    EXPECT_EQ(Apply(*sheet_, WIDE("bad")), PRO_TK_INVALID_FILE);
    EXPECT_EQ(ProSolidRegenerate(nullptr, 0), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Regenerate(MakeModels("plate.drw")), PRO_TK_BAD_INPUTS);
    EXPECT_TRUE(sheet_->partData.sheetMetal.table.name.empty());
    EXPECT_EQ(Complaints(), std::vector<std::string>{});
}

TEST_F(SheetMetalParts, WordsExpectAndShowBends) {
    const auto failures = [](const std::string& script) { return RunScript(script).size(); };
    EXPECT_EQ(failures("@ expect bend table s.prt none\n@ expect developed length s.prt 34.14"),
              0u);
    EXPECT_EQ(failures("@ expect bend table s.prt t"), 1u);
    EXPECT_EQ(failures("@ expect developed length s.prt 34.15"), 1u);
    EXPECT_EQ(failures("@ expect developed length s.prt much"), 1u);
    Play("@ option pro_sheet_met_dir C:\\A");
    Apply(*sheet_);
    Regenerate(*sheet_);
    EXPECT_EQ(failures("@ expect bend table s.prt t\n@ expect developed length s.prt 35"), 0u);
    std::string told;
    RunScript("@ show bends", [&](const std::string& line) { told += line + "\n"; });
    EXPECT_NE(told.find("thickness 2, 1 bends, table t, developed length 35.000 mm, "
                        "brought up to date 1 times"),
              std::string::npos)
        << told;
    EXPECT_NE(told.find("radius 2, 90 degrees: 5.000"), std::string::npos) << told;
}

}  // namespace
