// NewPart, NewAsm, NewSmt: names, templates, where the new component stands, and what is left when
// a step fails.
#include "tests/construct/templates.h"

namespace {

using namespace construct_tests;
using workbench::MakeModels;
using workbench::ModelNamed;

const std::string kPartFails = "\t零件模板加载失败，请确认template_solidpart选项是否配置正确\t";
const std::string kAsmFails = "\t组件模板加载失败，请确认template_designasm选项是否配置正确\t";
const std::string kSmtFails =
    "\t钣金件模板加载失败，请确认template_sheetmetalpart选项是否配置正确\t";
const std::string kNoActiveAssembly = "\t当前激活元件不是组件/制造,无法进行新建装配操作\t";
const std::string kTooLong = "新建模型名称长度不能超过32位";
const std::string kNoCsysForNew = "\t当前组件无坐标系,无法缺省装配新零件\t";

class NewComponent : public TemplateBench {
protected:
    void SetUp() override { WriteTemplates(); }
    // An empty assembly of this name with a coordinate system, open, and the plug-in started.
    Model& Top(const std::string& name) {
        Model& top = MakeModels(name + ":");
        AddCsys(top);
        Open(top);
        Start();
        return top;
    }
    // Presses it, and gives the texts of the boxes that were answered.
    Names Boxes(const std::string& command, int boxes) {
        std::string lines = "~ Command `" + command + "`\n";
        for (int i = 0; i < boxes; ++i) lines += "@ ok\n";
        const std::size_t before = AllBoxes().size();
        Play(lines);
        Names texts;
        for (std::size_t i = before; i < AllBoxes().size(); ++i) {
            texts.push_back(Utf8(AllBoxes()[i].text));
        }
        return texts;
    }
};

// --- What is made ---

TEST_F(NewComponent, EachKindIsCopiedFromItsTemplateSavedAndConstrained) {
    Model& top = Top("top");
    Press("NewPart");
    Press("NewAsm");
    Press("NewSmt");
    EXPECT_EQ(Components(top), (Names{"top-1.prt", "top_01.asm", "top-2.prt"}));
    EXPECT_EQ(Files(), (Names{"top-1.prt.1", "top-2.prt.1", "top_01.asm.1"}));
    EXPECT_EQ(InMemory("top-1.prt")->subtype, PROMDLSTYPE_PART_SOLID);
    EXPECT_EQ(InMemory("top-2.prt")->subtype, PROMDLSTYPE_PART_SHEETMETAL);
    EXPECT_EQ(AllBoxes().size(), 0u) << "ends silently";
    EXPECT_EQ(top.treeRefreshes, 3);
    EXPECT_TRUE(top.modified);
    for (std::size_t i = 1; i < top.features().size(); ++i) {
        const Feature& feature = top.features()[i];
        ASSERT_TRUE(feature.constraints);
        EXPECT_EQ(ConstraintText(feature.constraints->at(0)), "csys: csys#5 to csys#2");
        EXPECT_EQ(feature.constraints->at(0).component->side, PRO_DATUM_SIDE_YELLOW);
        EXPECT_EQ(feature.constraints->at(0).assembly->side, PRO_DATUM_SIDE_YELLOW);
        // Five along the template's z, which lies along the assembly's -y.
        EXPECT_TRUE(
            IsSamePlace(feature.placement, PlacementFrom({100, 5, 0}, TurnOf(feature.placement))));
        EXPECT_FALSE(IsSamePlace(feature.placement, PlacementFrom({100, 5, 0}, {})));
    }
}

TEST_F(NewComponent, TheTemplateStaysLoadedAndUnchanged) {
    Top("top");
    Press("NewPart");
    ASSERT_NE(InMemory("起始 零件.prt"), nullptr);
    EXPECT_FALSE(InMemory("起始 零件.prt")->modified);
    EXPECT_EQ(host().session.workingDirectory, WIDE("C:\\Work"));
}

TEST_F(NewComponent, TheFirstOfSeveralCoordinateSystemsIsTakenOnBothSides) {
    WriteTemplate(WIDE("two.prt.1"), "part",
                  "\n[[feature]]\nid = 9\ntype = 979\nname = \"B\"\nat = [3, 0, 0]\n" + kCsys);
    Option("template_solidpart", kTemplates + WIDE("two.prt"));
    Model& top = Top("top");
    AddCsys(top, {}, {});
    Press("NewPart");
    EXPECT_EQ(ConstraintText(top.features()[2].constraints->at(0)), "csys: csys#10 to csys#2");
}

// --- Names ---

TEST_F(NewComponent, AnEndingOfExactlyTwoNoughtsIsCutAndTakenNumbersArePassedOver) {
    Write(WIDE("C:\\Work\\top-1.prt.1"), "[model]\ntype = \"part\"\n");
    Model& top = Top("TOP_00");
    Press("NewPart");
    EXPECT_EQ(Components(top), Names{"top-2.prt"});
    EXPECT_NE(InMemory("top-1.prt"), nullptr) << "what was in the way stays in memory";
}

TEST_F(NewComponent, OtherEndingsStay) {
    Model& top = Top("TOP_0");
    Press("NewPart");
    EXPECT_EQ(Components(top), Names{"top_0-1.prt"});
}

TEST_F(NewComponent, AShortNameIsTheBase) {
    Model& top = Top("00");
    Press("NewPart");
    EXPECT_EQ(Components(top), Names{"00-1.prt"});
}

TEST_F(NewComponent, AssembliesHaveTwoDigitsUpToNine) {
    Model& top = Top("top");
    for (int i = 1; i <= 8; ++i) MakeModels("top_0" + std::to_string(i) + ":");
    Press("NewAsm");
    Press("NewAsm");
    EXPECT_EQ(Components(top), (Names{"top_09.asm", "top_10.asm"}));
}

TEST_F(NewComponent, APartIsNotInTheWayOfAnAssembly) {
    MakeModels("top_01.prt");
    Model& top = Top("top");
    Press("NewAsm");
    EXPECT_EQ(Components(top), Names{"top_01.asm"});
}

TEST_F(NewComponent, ABaseOf30CharactersGivesNineNamesAndThenFails) {
    const std::string base(30, 'A');
    for (int i = 1; i <= 8; ++i) MakeModels(base + "-" + std::to_string(i) + ".prt");
    Model& top = Top(base);
    Press("NewPart");
    ASSERT_EQ(top.features().size(), 2u);
    EXPECT_EQ(top.features()[1].model->name.size(), 32u);
    const Names before = Files();
    EXPECT_EQ(Boxes("NewPart", 1), Names{kTooLong});
    EXPECT_EQ(top.features().size(), 2u);
    EXPECT_EQ(Files(), before);
}

TEST_F(NewComponent, ANameThatIsTooLongIsNotRetrievedFirst) {
    Top(std::string(31, 'A'));
    host().journal.Start();
    EXPECT_EQ(Boxes("NewPart", 1), Names{kTooLong});
    host().journal.Stop();
    EXPECT_EQ(host().journal.Text().find("ProMdlRetrieve"), std::string::npos);
}

TEST_F(NewComponent, ABrokenFileIsAFreeNameThatTheCopyCannotHave) {
    Write(WIDE("C:\\Work\\top-1.prt.1"), "nonsense");
    Model& top = Top("top");
    EXPECT_EQ(Boxes("NewPart", 1), Names{"\t零件模板无坐标系,无法缺省装配新零件\t"});
    EXPECT_EQ(Components(top), Names{});
    EXPECT_EQ(Files(), Names{"top-1.prt.1"});
}

// --- Where ---

TEST_F(NewComponent, AManufacturingModelGivesTheNameAndItsAssemblyGetsTheComponent) {
    Model& mill = MakeModels("mfg1.mfg: asm1()");
    Model& assembly = ModelNamed("asm1");
    AddCsys(assembly);
    Open(mill);
    Start();
    Press("NewPart");
    EXPECT_EQ(Components(assembly), Names{"mfg1-1.prt"});
    EXPECT_EQ(assembly.treeRefreshes, 1);
}

TEST_F(NewComponent, AnActivatedSubAssemblyGivesNameAndPlace) {
    Model& top = MakeModels("top: sub()");
    AddCsys(ModelNamed("sub"));
    Open(top);
    Start();
    Play("@ activate sub\n~ Command `NewPart`");
    EXPECT_EQ(Components(ModelNamed("sub")), Names{"sub-1.prt"});
    EXPECT_EQ(top.features().size(), 1u);
}

TEST_F(NewComponent, AnActivatedPartIsNoPlace) {
    Model& top = MakeModels("top: plate");
    Open(top);
    Start();
    Play("@ activate plate");
    for (const char* command : {"NewPart", "NewAsm", "NewSmt"}) {
        EXPECT_EQ(Boxes(command, 1), Names{kNoActiveAssembly}) << command;
    }
    EXPECT_EQ(Files(), Names{});
    EXPECT_NE(InMemory("start.asm"), nullptr) << "its template was loaded before";
    EXPECT_EQ(InMemory("sheet.prt"), nullptr);
    // A bad template is told first by NewAsm alone.
    host().session.Erase(*InMemory("start.asm"));
    Option("template_designasm", kTemplates + WIDE("none.asm"));
    Option("template_solidpart", kTemplates + WIDE("none.prt"));
    EXPECT_EQ(Boxes("NewAsm", 1), Names{kAsmFails});
    EXPECT_EQ(Boxes("NewPart", 1), Names{kNoActiveAssembly});
}

TEST_F(NewComponent, AManufacturingModelWithoutAnAssemblyIsNoPlace) {
    Model& mill = MakeModels("mill.mfg: top()");
    Open(mill);
    Start();
    Fail("ProMfgAssemGet");
    EXPECT_EQ(Boxes("NewPart", 1), Names{kNoActiveAssembly});
    EXPECT_EQ(Files(), Names{});
}

// --- Settings ---

TEST_F(NewComponent, OnlyASettingOfOneConstrains) {
    Model& top = Top("top");
    for (const char* value : {"0", "", "2", "11"}) {
        Setting("PrtAssembly", value);
        Press("NewPart");
        EXPECT_FALSE(top.features().back().constraints) << value;
        EXPECT_TRUE(IsSamePlace(top.features().back().placement, {})) << value;
    }
    EXPECT_EQ(top.treeRefreshes, 0);
    Setting("PrtAssembly", " 1 ");
    Press("NewPart");
    EXPECT_TRUE(top.features().back().constraints) << "blanks do not count";
}

TEST_F(NewComponent, AMissingSectionLeavesTheComponentUnconstrained) {
    Model& top = Top("top");
    Write(workbench::kModuleFolder + WIDE("\\VXconfig\\VxConfig.ini"), "[Other]\r\nvalue=1\r\n");
    Press("NewPart");
    EXPECT_FALSE(top.features().back().constraints);
    EXPECT_EQ(top.treeRefreshes, 0);
}

TEST_F(NewComponent, EachKindHasASettingOfItsOwn) {
    Model& top = Top("top");
    Setting("PrtAssembly", "0");
    Setting("SmtAssembly", "0");
    Press("NewAsm");
    EXPECT_TRUE(top.features().back().constraints);
    Press("NewSmt");
    EXPECT_FALSE(top.features().back().constraints);
    Setting("SmtAssembly", "1");
    Setting("AsmAssembly", "0");
    Press("NewSmt");
    EXPECT_TRUE(top.features().back().constraints);
    Press("NewAsm");
    EXPECT_FALSE(top.features().back().constraints);
}

// --- Failures ---

TEST_F(NewComponent, AnOptionThatIsNotSetOrEmptyAndATemplateThatCannotBeLoaded) {
    Model& top = Top("top");
    const struct {
        const char *command, *option;
        const std::string& text;
    } kinds[] = {{"NewPart", "template_solidpart", kPartFails},
                 {"NewAsm", "template_designasm", kAsmFails},
                 {"NewSmt", "template_sheetmetalpart", kSmtFails}};
    WriteTemplate(WIDE("broken.prt.1"), "nonsense", "");
    WriteTemplate(WIDE("broken.asm.1"), "nonsense", "");
    for (const auto& kind : kinds) {
        const std::string suffix = kind.command == std::string("NewAsm") ? ".asm" : ".prt";
        NoOption(kind.option);
        EXPECT_EQ(Boxes(kind.command, 1), Names{kind.text}) << kind.command;
        Option(kind.option, {});
        EXPECT_EQ(Boxes(kind.command, 1), Names{kind.text}) << kind.command;
        Option(kind.option, kTemplates + Wide("none" + suffix));
        EXPECT_EQ(Boxes(kind.command, 1), Names{kind.text}) << kind.command;
        Option(kind.option, kTemplates + Wide("broken" + suffix));
        EXPECT_EQ(Boxes(kind.command, 1), Names{kind.text}) << kind.command;
        Option(kind.option,
               kTemplates + (suffix == ".asm" ? WIDE("sheet.prt") : WIDE("start.asm")));
        EXPECT_EQ(Boxes(kind.command, 1), Names{kind.text}) << "of another type";
    }
    EXPECT_EQ(top.features().size(), 1u);
    EXPECT_EQ(Files(), Names{});
    for (const Box& box : AllBoxes()) EXPECT_TRUE(IsNotice(box));
}

TEST_F(NewComponent, AnOptionThatIsRefusedIsNoneEvenIfTheHostHasFilledItsValues) {
    Model& top = Top("top");
    Operation::Fail({.operation = "ProConfigoptArrayGet", .afterWork = true});
    EXPECT_EQ(Boxes("NewPart", 1), Names{kPartFails});
    EXPECT_EQ(top.features().size(), 1u);
}

TEST_F(NewComponent, TheFirstValueOfTheOptionIsTheTemplate) {
    Model& top = Top("top");
    host().configOptions[WIDE("template_solidpart")] = {kTemplates + WIDE("sheet.prt"),
                                                        kTemplates + WIDE("none.prt")};
    Press("NewPart");
    EXPECT_EQ(top.features().back().model->subtype, PROMDLSTYPE_PART_SHEETMETAL);
}

TEST_F(NewComponent, WithoutACoordinateSystemTheComponentStaysUnconstrained) {
    WriteTemplate(WIDE("bare.prt.1"), "part", "");
    WriteTemplate(WIDE("bare.asm.1"), "assembly", "");
    Option("template_solidpart", kTemplates + WIDE("bare.prt"));
    Option("template_designasm", kTemplates + WIDE("bare.asm"));
    Model& top = Top("top");
    EXPECT_EQ(Boxes("NewPart", 1), Names{"\t零件模板无坐标系,无法缺省装配新零件\t"});
    EXPECT_EQ(Boxes("NewAsm", 1), Names{"\t组件模板无坐标系,无法缺省装配新零件\t"});
    Option("template_sheetmetalpart", kTemplates + WIDE("bare.prt"));
    EXPECT_EQ(Boxes("NewSmt", 1), Names{"\t钣金件模板无坐标系,无法缺省装配新零件\t"});
    top.RemoveFeature(1);
    EXPECT_EQ(Boxes("NewPart", 1), Names{kNoCsysForNew}) << "the assembly's comes first";
    EXPECT_EQ(Components(top), (Names{"top-1.prt", "top_01.asm", "top-2.prt", "top-3.prt"}));
    EXPECT_EQ(Files(), (Names{"top-1.prt.1", "top-2.prt.1", "top-3.prt.1", "top_01.asm.1"}));
    for (const Feature& feature : top.features()) EXPECT_FALSE(feature.constraints);
    EXPECT_EQ(top.treeRefreshes, 0);
    for (const Box& box : AllBoxes()) EXPECT_TRUE(IsNotice(box));
}

TEST_F(NewComponent, ARefusedSaveLeavesTheComponentWithoutAFile) {
    Model& top = Top("top");
    Fail("ProMdlSave");
    Press("NewPart");
    EXPECT_EQ(Components(top), Names{"top-1.prt"});
    EXPECT_EQ(Files(), Names{});
}

TEST_F(NewComponent, ARefusedAssemblingStillLeavesTheFile) {
    Model& top = Top("top");
    Fail("ProAsmcompAssemble");
    Press("NewPart");
    EXPECT_EQ(Components(top), Names{});
    EXPECT_EQ(Files(), Names{"top-1.prt.1"});
}

// --- Calls ---

TEST_F(NewComponent, AsksTheHostInThisOrder) {
    Top("top");
    host().journal.Clear();
    host().journal.Start();
    Press("NewPart");
    host().journal.Stop();
    EXPECT_NE(host().journal.Text().find("type=2, askUser=0"), std::string::npos);
    Names names;
    for (const std::string& name : host().journal.Names()) {
        if (name.substr(0, 8) == "ProArray" || name.find('W') != std::string::npos) continue;
        if (name != "ProStringToWstring" && name.substr(0, 3) == "Pro") names.push_back(name);
    }
    EXPECT_EQ(names, (Names{"ProModeCurrentGet",  // the access rule
                            "ProConfigoptArrayGet",
                            "ProMdlActiveGet",
                            "ProMdlTypeGet",
                            "ProMdlNameGet",
                            "ProMdlLoad",
                            "ProMdlRetrieve",
                            "ProMdlCopy",
                            "ProMdlSave",
                            "ProAsmcompAssemble",
                            "ProAsmcompconstraintAlloc",
                            "ProAsmcompconstraintTypeSet",
                            "ProSolidCsysVisit",
                            "ProSolidCsysVisit",
                            "ProAsmcomppathInit",
                            "ProCsysToGeomitem",
                            "ProSelectionAlloc",
                            "ProCsysToGeomitem",
                            "ProSelectionAlloc",
                            "ProAsmcompconstraintAsmreferenceSet",
                            "ProAsmcompconstraintCompreferenceSet",
                            "ProAsmcompConstraintsSet",
                            "ProSelectionFree",
                            "ProSelectionFree",
                            "ProAsmcompconstraintFree",
                            "ProTreetoolRefresh"}));
}

}  // namespace
