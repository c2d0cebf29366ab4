// The @ words about units and sizes, and what is remembered of single models.
#include <gtest/gtest.h>

#include "simhost/host.h"
#include "simhost/trail/interpreter.h"
#include "simhost/trail/words.h"
#include "tests/support/models.h"

namespace {

using namespace simhost;
using workbench::MakeModels;
using workbench::ModelNamed;
using Lines = std::vector<std::string>;

class UnitWords : public ::testing::Test {
protected:
    // TOP holds the part A (10 x 20 x 30 mm), and at (100, 0, 2.5) B, which is in inches.
    void SetUp() override {
        RestartHost();
        top_ = &MakeModels("top: a, b");
        top_->MutableFeatures()[1].placement.origin = {100, 0, 2.5};
        ModelNamed("b").units.principal = 4;
        TheHost().session.Open(*top_);
    }
    // What a line of a script says.
    static Lines Said(const std::string& line) {
        Lines said;
        const auto failures = RunScript(line, [&](const std::string& one) { said.push_back(one); });
        EXPECT_EQ(failures, Lines{}) << line;
        if (!said.empty()) said.erase(said.begin());  // the line itself
        for (std::string& one : said) one.erase(0, one.find_first_not_of(' '));
        return said;
    }
    static std::string Failure(const std::string& line) {
        const auto failures = RunScript(line);
        return failures.empty() ? "" : failures[0];
    }
    Model* top_ = nullptr;
};

TEST_F(UnitWords, ShowTheSystemsOfAllModelsOrThoseOfOne) {
    EXPECT_EQ(Said("@ show units"),
              (Lines{"top.asm                      mm N sec C     millimeter Newton Second (mmNs)",
                     "a.prt                        mm N sec C     millimeter Newton Second (mmNs)",
                     "b.prt                        in lbf sec F   inch Pound Second (IPS)"}));
    ModelNamed("b").units.systems.resize(5);
    EXPECT_EQ(Said("@ show units b.prt"), (Lines{"mm kg sec C    Millimeter Kilogram Sec (mmKs)",
                                                 "cm g sec C     centimeter Gram Second (CGS)",
                                                 "mm N sec C     millimeter Newton Second (mmNs)",
                                                 "m kg sec C     meter Kilogram Second (MKS)",
                                                 "* in lbf sec F   inch Pound Second (IPS)"}));
    EXPECT_NE(Failure("@ show units c.prt"), "");
    MakeModels("a.drw: A3");
    EXPECT_EQ(Failure("@ show units a.drw"), "line 1: a.drw has no units");
    EXPECT_EQ(Said("@ show units").size(), 3u);
}

TEST_F(UnitWords, ShowAnOutlineInTheUnitInForce) {
    EXPECT_EQ(Said("@ show outline a.prt"), Lines{"a.prt                        10 x 20 x 30 mm"});
    EXPECT_EQ(Said("@ show outline b.prt"), Lines{"b.prt                        10 x 20 x 30 in"});
    // From A at the origin to the end of B, 10 in and 100 mm away.
    EXPECT_EQ(Said("@ show outline"), Lines{"top.asm                      354 x 508 x 764.5 mm"});
    MakeModels("none:");
    EXPECT_EQ(Said("@ show outline none.asm"), Lines{"none.asm                     no geometry"});
}

TEST_F(UnitWords, AnUnexpectedSystemIsToldWithTheOneThatIsThere) {
    EXPECT_EQ(Failure("@ expect unit b.prt inch Pound Second (IPS)"), "");
    EXPECT_EQ(Failure("@ expect unit b.prt \"inch Pound Second (IPS)\""), "");
    EXPECT_EQ(Failure("@ expect unit a.prt inch Pound Second (IPS)"),
              "line 1: the units of a.prt are millimeter Newton Second (mmNs), not inch Pound "
              "Second (IPS)");
    EXPECT_EQ(Failure("@ expect unit b.prt inch Pond Second (IPS)"),
              "line 1: the units of b.prt are inch Pound Second (IPS), not inch Pond Second "
              "(IPS); did you mean inch Pound Second (IPS)?");
    MakeModels("a.drw: A3");
    EXPECT_EQ(Failure("@ expect unit a.drw mmgs"), "line 1: a.drw has no units");
}

TEST_F(UnitWords, FactsAreRememberedOfAllModelsOrOfThoseNamed) {
    EXPECT_EQ(Said("@ remember now of top.asm, a.prt: size, placement\n@ table"),
              (Lines{"@ table", "model    now                   now",
                     "size                  placement", "a.prt    10 x 20 x 30 mm       -",
                     "top.asm  354 x 508 x 764.5 mm  (100, 0, 2.5)"}));
    EXPECT_EQ(Said("@ remember now: units\n@ table").size(), 6u);
    EXPECT_NE(Failure("@ remember now of c.prt: size"), "");
}

TEST_F(UnitWords, AParametersUnitIsShownWithItsValue) {
    Parameter length = RealParameter(WIDE("L"), 12.5);
    length.unit = WIDE("mm");
    ModelNamed("a").parameters.Set(length);
    EXPECT_EQ(Said("@ show parameters"),
              Lines{"a.prt                        L                    real     12.5 mm"});
}

}  // namespace
