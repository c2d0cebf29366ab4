// The lines of text that tests make their models from.
#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using workbench::MakeModels;
using workbench::ModelNamed;

// What an assembly holds: "BOLT.PRT BOLT.PRT", a missing model in parentheses.
std::string Held(const Model& assembly) {
    std::string text;
    for (const Feature& each : assembly.features()) {
        if (!text.empty()) text += ' ';
        text += each.model ? each.model->FileName() : "(" + each.file + ")";
    }
    return text;
}

class ModelsByText : public workbench::Workbench {};

TEST_F(ModelsByText, AnAssemblyHoldsWhatIsListed) {
    const Model& top = MakeModels("top: a x3, sub(b, s!sheet), a");
    EXPECT_EQ(top.FileName(), "top.asm");
    EXPECT_EQ(Held(top), "a.prt a.prt a.prt sub.asm a.prt");
    EXPECT_EQ(Held(ModelNamed("sub")), "b.prt s.prt");
    EXPECT_EQ(ModelNamed("s").subtype, PROMDLSTYPE_PART_SHEETMETAL);
    EXPECT_NE(ModelNamed("a").subtype, PROMDLSTYPE_PART_SHEETMETAL);
}

TEST_F(ModelsByText, ANameAloneIsAPartAndAListMakesAnAssembly) {
    EXPECT_EQ(MakeModels("plate").FileName(), "plate.prt");
    EXPECT_EQ(MakeModels("empty:").FileName(), "empty.asm");
    EXPECT_EQ(Held(MakeModels("top: none()")), "none.asm");
    EXPECT_EQ(MakeModels("bare.asm").FileName(), "bare.asm");
}

TEST_F(ModelsByText, ANameThatComesAgainIsTheSameModel) {
    MakeModels("sub: b");
    const Model& top = MakeModels("top: sub x2, b");
    EXPECT_EQ(Held(top), "sub.asm sub.asm b.prt");
    EXPECT_EQ(host().session.All().size(), 3u);
}

TEST_F(ModelsByText, APartAndAnAssemblyOfOneNameAreToldApartByTheirTypes) {
    const Model& top = MakeModels("top: sub(b), sub.prt");
    EXPECT_EQ(Held(top), "sub.asm sub.prt");
    EXPECT_THROW(ModelNamed("sub"), std::invalid_argument);
    EXPECT_EQ(ModelNamed("sub.prt").type, PRO_MDL_PART);
}

TEST_F(ModelsByText, MarksAreOfTheModelOrOfTheComponent) {
    const Model& top = MakeModels(
        "top: k!skeleton, p!released, a!suppressed, a!hidden, a!invisible, lost!missing");
    EXPECT_TRUE(ModelNamed("k").partData.skeleton);
    EXPECT_TRUE(ModelNamed("p").readOnly);
    EXPECT_EQ(top.features()[2].status, PRO_FEAT_SUPPRESSED);
    EXPECT_TRUE(top.features()[3].hidden);
    EXPECT_FALSE(top.features()[4].visible);
    EXPECT_EQ(Held(top), "k.prt p.prt a.prt a.prt a.prt (lost.prt)");
}

TEST_F(ModelsByText, AnInstanceKnowsItsGeneric) {
    MakeModels("top: m12 of bolt x2, m16 of bolt");
    EXPECT_EQ(ModelNamed("m12").family.generic, &ModelNamed("bolt"));
    EXPECT_EQ(ModelNamed("m16").family.genericFile, "bolt.prt");
    EXPECT_EQ(Held(ModelNamed("top")), "m12.prt m12.prt m16.prt");
}

TEST_F(ModelsByText, ManufacturingModelsAndDrawingsNameTheirType) {
    const Model& mill = MakeModels("mill.mfg: top(a)");
    EXPECT_EQ(mill.manufacturingData.assembly, &ModelNamed("top"));
    const auto& sheets = MakeModels("plate.drw: A3, A4").drawingData.sheets;
    ASSERT_EQ(sheets.size(), 2u);
    EXPECT_EQ(sheets[0].size, WIDE("A3"));
    EXPECT_EQ(sheets[1].size, WIDE("A4"));
}

TEST_F(ModelsByText, AMistakeIsToldWithItsPlace) {
    const auto told = [](const std::string& text) -> std::string {
        try {
            MakeModels(text);
        } catch (const std::invalid_argument& error) {
            return error.what();
        }
        return "nothing";
    };
    EXPECT_EQ(told("top: a,"), "models: a name is missing: top: a, >>> ");
    EXPECT_EQ(told("top: a!huge"), "models: there is no mark !huge: top: a!huge >>> ");
    EXPECT_EQ(told("top: sub(a"), "models: a closing parenthesis is missing: top: sub(a >>> ");
    EXPECT_EQ(told("a b"), "models: nothing may follow here: a  >>> b");
    EXPECT_EQ(told("top: a x0"), "models: a number is wrong: top: a x >>> 0");
    EXPECT_EQ(host().session.All().size(), 0u);
}

}  // namespace
