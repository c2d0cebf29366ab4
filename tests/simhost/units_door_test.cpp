// Units of models at the door and in files, and parameters that have units.
#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "hostapi/host.h"
#include "simhost/model/model_file.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using Names = std::vector<std::string>;

// --- Parameters ---

class ParametersWithUnits : public workbench::Workbench {
protected:
    void SetUp() override {
        part_ = &Part("plate");
        part_->parameters.Set(With(WIDE("WIDTH"), 25.4, WIDE("mm")));
        part_->parameters.Set(With(WIDE("RATIO"), 25.4, WIDE("")));
        part_->parameters.Set(With(WIDE("MASS"), 2, WIDE("kg")));
        part_->parameters.Set(With(WIDE("HEAT"), 20, WIDE("C")));
    }
    static Parameter With(WideView name, double value, WideView unit) {
        Parameter parameter = RealParameter(name, value);
        parameter.unit = unit;
        return parameter;
    }
    std::string Written(const char* name) {
        const Parameter& one = *part_->parameters.Find(Wide(name));
        return ValueText(one) + Utf8(one.unit);
    }
    void Set(const char* name, ProUnitConvertType conversion, ProBoolean ignore) {
        ProUnitsystem system{};
        system.owner = part_->handle;
        Wide(name).copy(system.name, PRO_NAME_SIZE);
        EXPECT_EQ(ProMdlPrincipalunitsystemSet(part_->handle, &system, conversion, ignore, -1),
                  PRO_TK_NO_ERROR);
    }
    Model* part_ = nullptr;
};

TEST_F(ParametersWithUnits, AreLeftAloneWithOneInTheFourthPlace) {
    Set("inch Pound Second (IPS)", PRO_UNITCONVERT_SAME_SIZE, PRO_B_TRUE);
    EXPECT_EQ(Written("WIDTH"), "25.4mm");
    Set("foot Pound Second (FPS)", PRO_UNITCONVERT_SAME_DIMS, PRO_B_TRUE);
    EXPECT_EQ(Written("WIDTH"), "25.4mm");
}

TEST_F(ParametersWithUnits, AreConvertedWithZeroInTheFourthPlace) {
    Set("inch Pound Second (IPS)", PRO_UNITCONVERT_SAME_SIZE, PRO_B_FALSE);
    EXPECT_EQ(Written("WIDTH"), "1in");
    EXPECT_EQ(Written("RATIO"), "25.4");
    EXPECT_EQ(Written("MASS"), "2kg");  // the system has a unit of force
    EXPECT_EQ(Written("HEAT"), "20C");
    Set("centimeter Gram Second (CGS)", PRO_UNITCONVERT_SAME_DIMS, PRO_B_FALSE);
    EXPECT_EQ(Written("WIDTH"), "1cm");
    EXPECT_EQ(Written("MASS"), "2g");
}

TEST_F(ParametersWithUnits, AreInTheFile) {
    const std::string text = ModelText(*part_);
    EXPECT_NE(text.find("name = \"WIDTH\"\nvalue = 25.4\nunit = \"mm\"\n"), std::string::npos);
    Model again;
    ReadModelText(text, "plate.prt.1", &again);
    EXPECT_EQ(again.parameters.Find(WIDE("WIDTH"))->unit, WIDE("mm"));
    EXPECT_EQ(ModelText(again), text);
}

// --- What the door answers ---

class UnitsAtTheDoor : public workbench::Workbench {
protected:
    void SetUp() override {
        part_ = &Part("plate");
        for (const char* unit : {"mm", "g", "sec", "C"}) records_.push_back(Record(unit));
    }
    ProUnititem Record(const char* unit) {
        ProUnititem record{};
        ProError status = ProUnitInit(part_->handle, Wide(unit).data(), &record);
        EXPECT_EQ(status, PRO_TK_NO_ERROR) << unit;
        return record;
    }
    ProError Create(WideText name, ProUnitsystemType type = PRO_UNITSYSTEM_MLT) {
        name.resize(PRO_NAME_SIZE);
        ProArray array = nullptr;
        ProArrayAlloc(int(records_.size()), sizeof(ProUnititem), 1, &array);
        std::copy(records_.begin(), records_.end(), static_cast<ProUnititem*>(array));
        const ProError status = ProMdlUnitsystemCreate(part_->handle, type, name.data(),
                                                       static_cast<ProUnititem*>(array), &made_);
        ProArrayFree(&array);
        return status;
    }
    ProError Set(const ProUnitsystem& system, int conversion = 1) {
        ProUnitsystem copy = system;
        return ProMdlPrincipalunitsystemSet(part_->handle, &copy, ProUnitConvertType(conversion),
                                            PRO_B_TRUE, -1);
    }
    Model* part_ = nullptr;
    std::vector<ProUnititem> records_;
    ProUnitsystem made_{};
};

TEST_F(UnitsAtTheDoor, UnitsAreFoundByTheirNamesInTheirVeryCase) {
    ProUnititem record{};
    for (const char* unknown : {"MM", "stone", ""}) {
        EXPECT_EQ(ProUnitInit(part_->handle, Wide(unknown).data(), &record), PRO_TK_E_NOT_FOUND);
    }
    EXPECT_EQ(record.owner, nullptr);
}

TEST_F(UnitsAtTheDoor, ASystemIsMadeOnceByItsVeryName) {
    EXPECT_EQ(Create(WIDE("mmgs")), PRO_TK_NO_ERROR);
    EXPECT_EQ(Create(WIDE("mmgs")), PRO_TK_E_FOUND);
    EXPECT_EQ(Create(WIDE("MMGS")), PRO_TK_NO_ERROR);
    EXPECT_EQ(Create(WIDE("inch Pound Second (IPS)")), PRO_TK_E_FOUND);
    EXPECT_EQ(part_->units.systems.size(), 8u);
    // It is not in force by being made.
    EXPECT_EQ(LengthUnitName(*part_), WIDE("mm"));
    EXPECT_EQ(part_->units.principal, kUsualPrincipal);
    EXPECT_EQ(Set(made_), PRO_TK_NO_ERROR);
    EXPECT_EQ(part_->units.Principal().name, WIDE("MMGS"));
}

TEST_F(UnitsAtTheDoor, ASystemOfOtherUnitsIsRefused) {
    EXPECT_EQ(Create({}), PRO_TK_INVALID_NAME);
    EXPECT_EQ(Create(WIDE("f"), PRO_UNITSYSTEM_FLT), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Create(WIDE("f"), ProUnitsystemType(3)), PRO_TK_BAD_INPUTS);
    std::swap(records_[0], records_[1]);
    EXPECT_EQ(Create(WIDE("swapped")), PRO_TK_BAD_INPUTS);
    std::swap(records_[0], records_[1]);
    records_[2] = {};
    EXPECT_EQ(Create(WIDE("empty")), PRO_TK_BAD_INPUTS);
    records_[2] = Record("sec");
    records_[1] = Record("N");
    EXPECT_EQ(Create(WIDE("force")), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Create(WIDE("force"), PRO_UNITSYSTEM_FLT), PRO_TK_NO_ERROR);
    EXPECT_EQ(part_->units.systems.size(), 7u);
}

TEST_F(UnitsAtTheDoor, UnitsOfAnotherModelMakeNoSystem) {
    records_[0].owner = Part("other").handle;
    EXPECT_EQ(Create(WIDE("mmgs")), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints(), Names{});
}

TEST_F(UnitsAtTheDoor, AnArrayOfAnotherLengthIsAComplaint) {
    records_.pop_back();
    EXPECT_EQ(Create(WIDE("mmgs")), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints(), Names{"ProMdlUnitsystemCreate: a system is made of four units"});
}

TEST_F(UnitsAtTheDoor, AnEmptyRecordIsRefusedQuietlyAndAMadeUpOneIsNot) {
    EXPECT_EQ(Set({}), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints(), Names{});
    EXPECT_EQ(Create(WIDE("mmgs")), PRO_TK_NO_ERROR);
    EXPECT_EQ(Set(made_, 2), PRO_TK_BAD_INPUTS);
    made_.owner = Part("other").handle;
    EXPECT_EQ(Set(made_), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints(), Names{});
    made_.owner = part_->handle;
    made_.name[0] = 'x';
    EXPECT_EQ(Set(made_), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints(), Names{"ProMdlPrincipalunitsystemSet: not a system of units of "
                                  "plate.prt"});
}

TEST_F(UnitsAtTheDoor, AReadOnlyModelIsNeitherConvertedNorGivenASystem) {
    Create(WIDE("mmgs"));
    part_->readOnly = true;
    part_->modified = false;
    EXPECT_EQ(Create(WIDE("other")), PRO_TK_NO_PERMISSION);
    EXPECT_EQ(Set(made_), PRO_TK_NO_PERMISSION);
    EXPECT_FALSE(part_->modified);
}

TEST_F(UnitsAtTheDoor, ADrawingHasNoSystems) {
    Model& sheet = host().session.Create(WIDE("sheet"), PRO_MDL_DRAWING);
    ProUnitsystem* systems = nullptr;
    EXPECT_EQ(ProMdlUnitsystemsCollect(sheet.handle, &systems), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ProMdlUnitsystemsCollect(nullptr, &systems), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(systems, nullptr);
    EXPECT_EQ(LengthUnit(sheet), 1);
}

// --- Files ---

std::string Again(const std::string& text) {
    Model model;
    ReadModelText(text, "a.prt.1", &model);
    return ModelText(model);
}

std::string WrongWith(const std::string& text) {
    try {
        Again(text);
    } catch (const ModelFileError& error) {
        return error.what();
    }
    return "nothing";
}

TEST(UnitsInAFile, AreThoseThatEachModelHasUnlessItSaysSo) {
    const std::string plain = "[model]\ntype = \"part\"\n";
    EXPECT_EQ(Again(plain), plain);
    EXPECT_EQ(Again(plain + "units = \"millimeter Newton Second (mmNs)\"\n"), plain);
}

TEST(UnitsInAFile, SayWhichSystemIsInForceWhichAreThereAndWhatTheOthersAreMadeOf) {
    const std::string text =
        "[model]\ntype = \"part\"\n"
        "units = \"mmgs\"\n"
        "unit_systems = [\"inch Pound Second (IPS)\", \"foot Pound Second (FPS)\"]\n"
        "\n[[unit_system]]\nname = \"mmgs\"\nunits = [\"mm\", \"g\", \"sec\", \"C\"]\n"
        "\n[[unit_system]]\nname = \"MMGS\"\nunits = [\"in\", \"lbf\", \"sec\", \"F\"]\n";
    EXPECT_EQ(Again(text), text);
    Model model;
    ReadModelText(text, "a.prt.1", &model);
    EXPECT_EQ(model.units.systems.size(), 4u);
    EXPECT_EQ(model.units.Principal().name, WIDE("mmgs"));
    EXPECT_EQ(model.units.systems[3].LengthInMm(), 25.4);
}

TEST(UnitsInAFile, OfAnAssemblyAndAManufacturingModelAreKept) {
    for (const std::string rest : {"assembly\"\nunits = \"foot Pound Second (FPS)\"\n",
                                   "manufacturing\"\nunits = \"foot Pound Second (FPS)\"\n"
                                   "\n[manufacturing]\nassembly = \"top.asm\"\n"}) {
        const std::string text = "[model]\ntype = \"" + rest;
        EXPECT_EQ(Again(text), text);
    }
}

TEST(UnitsInAFile, ThatCannotBeAreToldWithTheirPlace) {
    const std::string head = "[model]\ntype = \"part\"\n";
    const std::string own = "[[unit_system]]\n";
    const std::string six =
        "\"Millimeter Kilogram Sec (mmKs)\", \"centimeter Gram Second (CGS)\", "
        "\"millimeter Newton Second (mmNs)\", \"meter Kilogram Second (MKS)\", "
        "\"inch Pound Second (IPS)\", \"foot Pound Second (FPS)\"";
    const std::pair<std::string, std::string> rows[] = {
        {head + "units = \"mmgs\"\n",
         "a.prt.1:3: the model has no system of units \"mmgs\"; it has " + six},
        {head + "units = 5\n", "a.prt.1:3: \"units\" must be a text in quotes"},
        {head + "unit_systems = [\"mmgs\"]\n", "a.prt.1:3: \"mmgs\" is no usual system of units"},
        {head + "unit_systems = [\"foot Pound Second (FPS)\"]\n",
         "a.prt.1:1: the model has no system of units \"millimeter Newton Second (mmNs)\"; it has "
         "\"foot Pound Second (FPS)\""},
        {head + own + "name = \"\"\nunits = [\"mm\", \"g\", \"sec\", \"C\"]\n",
         "a.prt.1:4: \"name\" must have 1 to 32 characters"},
        {head + own + "name = \"" + std::string(33, 'n') + "\"\nunits = []\n",
         "a.prt.1:4: \"name\" must have 1 to 32 characters"},
        {head + own + "name = \"n\"\nunits = [\"mm\", \"stone\", \"sec\", \"C\"]\n",
         "a.prt.1:5: there is no unit \"stone\""},
        {head + own + "name = \"n\"\nunits = [\"mm\", \"g\", \"sec\"]\n",
         "a.prt.1:5: \"units\" must be those of length, mass or force, time, and temperature"},
        {head + own + "name = \"n\"\nunits = [\"mm\", \"g\", \"C\", \"sec\"]\n",
         "a.prt.1:5: \"units\" must be those of length, mass or force, time, and temperature"},
        {head + own +
             "name = \"inch Pound Second (IPS)\"\nunits = [\"mm\", \"g\", \"sec\", \"C\"]\n",
         "a.prt.1:3: the system of units \"inch Pound Second (IPS)\" is there twice"},
        {"[model]\ntype = \"drawing\"\nunits = \"mmgs\"\n",
         "a.prt.1:3: only a part, an assembly and a manufacturing model have units"},
        {head + "[[parameter]]\nname = \"A\"\nvalue = 2\nunit = \"mm\"\n",
         "a.prt.1:6: \"unit\" is only for real numbers"},
        {head + "[[parameter]]\nname = \"A\"\nvalue = 2.0\nunit = \"stone\"\n",
         "a.prt.1:6: there is no unit \"stone\""},
    };
    for (const auto& [text, wrong] : rows) EXPECT_EQ(WrongWith(text), wrong) << text;
}

TEST(UnitsInAFile, ANameMayFillItsRecord) {
    const std::string text = "[model]\ntype = \"part\"\n\n[[unit_system]]\nname = \"" +
                             std::string(32, 'n') + "\"\nunits = [\"mm\", \"g\", \"sec\", \"C\"]\n";
    EXPECT_EQ(Again(text), text);
}

}  // namespace
