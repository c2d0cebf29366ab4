// CloneComp, CloneAndReplace: what may be selected, the three ways to a name, the host's dialogs,
// and the two macros byte for byte.
#include "simhost/ui/replace_dialog.h"
#include "tests/construct/templates.h"
#include "tests/support/call_order.h"

namespace {

using namespace construct_tests;
using workbench::MakeModels;
using workbench::ModelNamed;

const std::string kSelectFirst = "请先选择需要克隆的元件";
const std::string kOnlyOne = "当前模式只能选择1个元件";
const std::string kOnlyModels = "当前模式只能选择零件或组件";
const std::string kNotActive = "当前被激活的模型不是组件/制造,无法克隆装配";
const std::string kAgain = "名称已存在或输入非法，请重新输入";

// What the older hosts' macro is, written out: before the file's name, and after it.
const std::string kOlder =
    "~ Command `ProCmdReplace` ;~ Select `gen_repl_dlg` `ByCompPH.rpl_method_radio`1  "
    "`Unrelated Component`;~ Activate `gen_repl_dlg` `PB_NewComp`;~ Trail `UI Desktop` "
    "`DLG_PREVIEW_POST` `file_open`;`file_open:Ph_list.Filelist:<NULL>`;~ Activate `file_open` "
    "`Current Dir`;~ Activate `file_open` `Ph_list.Filelist`1  `";
const std::string kNewer =
    "~`rmb_popup` `PopupMenu`;~ Command `ProCmdReplComp@PopupMenuGraphicWinStack` ;~ Select "
    "`gen_repl_dlg` `ByCompPH.rpl_method_radio` 1 `Unrelated Component`;~ Activate "
    "`gen_repl_dlg` `PB_NewComp`;~ Activate `file_open` `Current Dir`;~ Activate `file_open` "
    "`Ph_list.Filelist` 1 `";
const std::string kEnd = "`;~ Activate `gen_repl_dlg` `DoneBtn`;";

const std::string kOk = "~ Activate `comp_placement` `OK`\n";

class Clone : public TemplateBench {
protected:
    // TOP with BOLT twice and SUB, which holds PLATE, saved, open, and the plug-in started.
    Model& Top(const std::string& name = "top") {
        Model& top = MakeModels(name + ": bolt x2, sub(plate)");
        for (const char* each : {"bolt.prt", "plate.prt", "sub.asm"}) {
            host().session.Save(*InMemory(each));
        }
        top_ = &top;
        Open(top);
        Start();
        return top;
    }
    // The macros that a press queues, without running them.
    Names MacrosOf(const std::string& lines) {
        Names macros;
        const auto usual = host().commands.runMacro;
        host().commands.runMacro = [&](const std::string& macro) { macros.push_back(macro); };
        Play(lines);
        host().commands.runMacro = usual;
        return macros;
    }
    // A press that ends with this box and does nothing.
    void EndsWithABox(const std::string& select, const std::string& text) {
        for (const char* command : {"CloneComp", "CloneAndReplace"}) {
            Play(select + "\n~ Command `" + command + "`\n@ expect box \"" + text + "\"\n@ ok");
            EXPECT_TRUE(IsNotice(AllBoxes().back()));
        }
        EXPECT_EQ(host().macros.size(), 0u);
    }
    // The plug-in anew, in a host of this version.
    void StartIn(const std::string& version) {
        workplace_->StopPlugin();
        HostVersion() = version;
        EXPECT_EQ(workplace_->StartPlugin(), 0);
    }
    Model* top_ = nullptr;
};

// --- What may be selected, and where ---

TEST_F(Clone, ASelectionOfOnePartOrAssemblyIsNeeded) {
    Top();
    Setting("CompCopyAutoNum", "byComp");
    const Names files = Files();
    Record();
    EndsWithABox("@ clear selection", kSelectFirst);
    EndsWithABox("@ selection empty", kOnlyOne);
    EndsWithABox("@ select bolt, bolt:2", kOnlyOne);
    EndsWithABox("@ select bolt#11", kOnlyModels);
    EXPECT_EQ(Lines("ProMdlRetrieve"), Names{}) << "no name is looked for";
    EXPECT_EQ(Files(), files);
    EXPECT_EQ(top_->features().size(), 3u);
}

TEST_F(Clone, AnAssemblyMustBeActive) {
    Top();
    Setting("CompCopyAutoNum", "byComp");
    const Names files = Files();
    Play("@ activate sub/plate");
    EndsWithABox("@ select bolt", kNotActive);
    Model& mill = workbench::MakeManufacturing("mill", *top_);
    Open(mill);
    Fail("ProMfgAssemGet");
    Record();
    Play("@ select bolt\n~ Command `CloneComp`\n@ expect box " + kNotActive + "\n@ ok");
    EXPECT_EQ(Lines("ProMdlRetrieve"), Names{}) << "no name is looked for";
    EXPECT_EQ(Files(), files);
}

// --- Names after the component ---

TEST_F(Clone, ByComponentTheNumberFollowsItsName) {
    Top();
    Setting("CompCopyAutoNum", " byComp ");
    MakeModels("bolt-1.prt");
    Write(WIDE("C:\\Work\\bolt-2.prt.4"), "[model]\ntype = \"part\"\n");
    Play("@ select bolt\n~ Command `CloneComp`\n" + kOk);
    EXPECT_EQ(Components(*top_), (Names{"bolt.prt", "bolt.prt", "sub.asm", "bolt-3.prt"}));
    EXPECT_NE(InMemory("bolt-2.prt"), nullptr) << "what was in the way stays in the session";
    EXPECT_EQ(Files().front(), "bolt-2.prt.4");
    EXPECT_EQ(Files()[1], "bolt-3.prt.1");
}

TEST_F(Clone, ByComponentOnlyPartsAreInTheWayEvenOfAnAssembly) {
    Top();
    Setting("CompCopyAutoNum", "byComp");
    MakeModels("sub-1.prt");
    Play("@ select sub\n~ Command `CloneComp`\n" + kOk);
    EXPECT_EQ(Components(*top_).back(), "sub-2.asm");
    // An assembly of the name is not seen; the copy fails, and nothing is assembled.
    MakeModels("sub-3.asm:");
    host().session.Erase(*InMemory("sub-1.prt"));
    MakeModels("sub-1.asm:");
    const std::size_t before = top_->features().size();
    Play("@ select sub\n~ Command `CloneComp`");
    EXPECT_EQ(top_->features().size(), before);
    EXPECT_EQ(MacrosOf("@ select sub\n~ Command `CloneAndReplace`"), Names{});
}

// --- Names after the assembly ---

TEST_F(Clone, ByAssemblyPartsAndUnitsAreNumberedAfterIt) {
    Top("TOP_00");
    Setting("CompCopyAutoNum", "byAsm");
    Play("@ select bolt\n~ Command `CloneComp`\n" + kOk + "~ Command `CloneComp`\n" + kOk);
    for (int i = 1; i <= 8; ++i) MakeModels("top_0" + std::to_string(i) + ".asm:");
    Play("@ select sub\n~ Command `CloneComp`\n" + kOk + "~ Command `CloneComp`\n" + kOk);
    EXPECT_EQ(Components(*top_), (Names{"bolt.prt", "bolt.prt", "sub.asm", "top-1.prt", "top-2.prt",
                                        "top_09.asm", "top_10.asm"}));
    EXPECT_EQ(Components(*InMemory("top_10.asm")), Names{"plate.prt"}) << "the same components";
}

TEST_F(Clone, ByAssemblyAPartOfTheNameIsNotInTheWayOfAUnit) {
    Top();
    Setting("CompCopyAutoNum", "byAsm");
    MakeModels("top_01.prt");
    Play("@ select sub\n~ Command `CloneComp`\n" + kOk);
    EXPECT_EQ(Components(*top_).back(), "top_01.asm");
}

TEST_F(Clone, InAManufacturingModelTheAssemblyGivesTheName) {
    Top();
    Setting("CompCopyAutoNum", "byAsm");
    Open(workbench::MakeManufacturing("mill", *top_));
    Play("@ select bolt\n~ Command `CloneComp`\n" + kOk);
    EXPECT_EQ(Components(*top_).back(), "top-1.prt");
}

TEST_F(Clone, AnActivatedSubAssemblyGivesNameAndPlace) {
    Top();
    Setting("CompCopyAutoNum", "byAsm");
    Play("@ activate sub\n@ select bolt\n~ Command `CloneComp`\n" + kOk);
    EXPECT_EQ(Components(ModelNamed("sub")), (Names{"plate.prt", "sub-1.prt"}));
}

// --- Names that the user types ---

TEST_F(Clone, ByUserTheNameIsAskedForUntilItCanBeHad) {
    Top();
    Setting("CompCopyAutoNum", "byUser");
    Play(
        "@ select bolt\n~ Command `CloneComp`\n@ expect message 请输入新名称\n@ answer plate\n"
        "@ expect box \"" +
        kAgain +
        "\"\n@ ok\n@ answer a.b\n@ ok\n@ answer\n@ ok\n"
        "@ answer 螺栓\n" +
        kOk);
    EXPECT_EQ(Components(*top_).back(), "螺栓.prt");
    EXPECT_EQ(Files().back(), "螺栓.prt.1");
}

TEST_F(Clone, ByUserThirtyTwoCharactersAreRead) {
    Top();
    Setting("CompCopyAutoNum", "byUser");
    const std::string name(32, 'A');
    Play("@ select bolt\n~ Command `CloneComp`\n@ answer " + name + "\n" + kOk);
    EXPECT_EQ(top_->features().back().model->name, WideText(32, WIDE('A')));
}

TEST_F(Clone, ByUserQuittingLeavesNothing) {
    Top();
    Setting("CompCopyAutoNum", "byUser");
    const Names files = Files();
    Play("@ select bolt\n~ Command `CloneComp`\n@ quit");
    EXPECT_EQ(MacrosOf("~ Command `CloneAndReplace`\n@ answer one\n@ quit"), Names{});
    EXPECT_EQ(Files(), files);
    EXPECT_EQ(top_->features().size(), 3u);
}

TEST_F(Clone, ByUserTheReplacementReadsTwiceAndTheSecondAnswerCounts) {
    Top();
    Setting("CompCopyAutoNum", "byUser");
    EXPECT_EQ(MacrosOf("@ select bolt\n~ Command `CloneAndReplace`\n@ answer one\n@ answer two"),
              Names{kNewer + "two.prt" + kEnd});
    EXPECT_EQ(InMemory("one.prt"), nullptr);
    // Leaving the first of the two is not looked at.
    EXPECT_EQ(MacrosOf("~ Command `CloneAndReplace`\n@ quit\n@ answer three"),
              Names{kNewer + "three.prt" + kEnd});
    EXPECT_EQ(MacrosOf("~ Command `CloneAndReplace`\n@ answer four\n@ answer two\n@ ok\n"
                       "@ answer five\n@ answer six"),
              Names{kNewer + "six.prt" + kEnd});
}

TEST_F(Clone, ByUserAPromptThatFailsOtherwiseIsAnEmptyNameAndIsAskedForAgain) {
    Top();
    Setting("CompCopyAutoNum", "byUser");
    Fail("ProMessageStringRead");
    Play("@ select bolt\n~ Command `CloneComp`\n@ ok\n@ answer lid\n" + kOk);
    EXPECT_EQ(Components(*top_).back(), "lid.prt");
}

TEST_F(Clone, AnyOtherWayOfNamingEndsQuietly) {
    Top();
    const Names files = Files();
    for (const char* mode : {"", "bycomp", "byCompx", "2"}) {
        Setting("CompCopyAutoNum", mode);
        Play("@ select bolt\n~ Command `CloneComp`");
        EXPECT_EQ(MacrosOf("~ Command `CloneAndReplace`"), Names{}) << mode;
    }
    EXPECT_EQ(Files(), files);
    EXPECT_EQ(top_->features().size(), 3u);
}

// --- Assembling ---

TEST_F(Clone, TheCopyIsPutAtTheOriginAndConstrainedByTheUser) {
    Top();
    Setting("CompCopyAutoNum", "byComp");
    Play(
        "@ select bolt\n~ Command `CloneComp`\n@ expect dialog comp_placement\n"
        "~ Activate `comp_placement` `Fix`\n" +
        kOk + "@ expect place bolt-1 0 0 0\n@ expect constraints bolt-1 fix");
    EXPECT_EQ(AllBoxes().size(), 0u) << "ends silently";
}

TEST_F(Clone, ARefusedSaveOrAssemblingIsNotTold) {
    Top();
    Setting("CompCopyAutoNum", "byComp");
    Fail("ProMdlSave");
    Play("@ select bolt\n~ Command `CloneComp`\n" + kOk);
    EXPECT_EQ(Components(*top_).back(), "bolt-1.prt");
    Fail("ProAsmcompAssemble");
    Play("~ Command `CloneComp`");
    EXPECT_EQ(Components(*top_).back(), "bolt-1.prt");
    EXPECT_EQ(Files()[0], "bolt-2.prt.1");
}

// --- Replacing ---

TEST_F(Clone, TheMacroDependsOnTheHostsVersion) {
    Top();
    Setting("CompCopyAutoNum", "byComp");
    int number = 0;
    for (const char* version :
         {"5.0", "Creo 1.0", "Creo 2.0", "Creo 3.0", "Creo 2.0 M010", " 5.0", "creo 2.0", "?"}) {
        StartIn(version);
        const bool older = number < 3;
        EXPECT_EQ(
            MacrosOf("@ select bolt\n~ Command `CloneAndReplace`"),
            Names{(older ? kOlder : kNewer) + "bolt-" + std::to_string(++number) + ".prt" + kEnd})
            << version;
    }
}

TEST_F(Clone, TheFilesNameIsInSmallLettersAndSaysTheKind) {
    Top();
    Setting("CompCopyAutoNum", "byAsm");
    EXPECT_EQ(MacrosOf("@ select sub\n~ Command `CloneAndReplace`"),
              Names{kNewer + "top_01.asm" + kEnd});
    Setting("CompCopyAutoNum", "byUser");
    const std::string name = "闷盖_ABCDEFGHIJKLMNOPQRSTUVWXYZ123";  // 32 characters
    EXPECT_EQ(MacrosOf("@ select bolt\n~ Command `CloneAndReplace`\n@ answer x\n@ answer " + name),
              Names{kNewer + "闷盖_abcdefghijklmnopqrstuvwxyz123.prt" + kEnd});
}

TEST_F(Clone, OnlyTheSelectedOccurrenceIsReplacedAndKeepsItsPlace) {
    Top();
    Setting("CompCopyAutoNum", "byComp");
    top_->MutableFeatures()[1].placement = PlacementFrom({1, 2, 3}, {0, 0, 90});
    top_->MutableFeatures()[1].constraints = std::vector{Constraint{PRO_ASM_FIX, {}, {}}};
    Play("@ select bolt:2\n~ Command `CloneAndReplace`");
    EXPECT_EQ(Components(*top_), (Names{"bolt.prt", "bolt-1.prt", "sub.asm"}));
    EXPECT_EQ(top_->features()[1].id, 2);
    Play("@ expect place bolt-1 1 2 3 turn 0 0 90\n@ expect constraints bolt-1 fix");
    EXPECT_TRUE(host().session.selections.buffer().empty());
    EXPECT_TRUE(top_->modified);
}

TEST_F(Clone, DeepDownItIsReplacedInTheAssemblyThatHoldsIt) {
    Top();
    Setting("CompCopyAutoNum", "byComp");
    Play("@ select sub/plate\n~ Command `CloneAndReplace`");
    EXPECT_EQ(Components(ModelNamed("sub")), Names{"plate-1.prt"});
    EXPECT_TRUE(ModelNamed("sub").modified);
}

TEST_F(Clone, TheConstraintsAreReadOfTheComponentInItsOwnAssembly) {
    Top();
    Setting("CompCopyAutoNum", "byComp");
    Record();
    MacrosOf("@ select sub/plate\n~ Command `CloneAndReplace`");
    Recorded();
    const Names read = Lines("ProAsmcompConstraintsGet");
    ASSERT_EQ(read.size(), 1u);
    EXPECT_NE(read[0].find("sub.asm item 1 of type 3"), std::string::npos) << read[0];
    const Names path = Lines("ProAsmcomppathMdlGet");
    ASSERT_EQ(path.size(), 1u);
    EXPECT_NE(path[0].find("top.asm [3]"), std::string::npos) << path[0];
}

TEST_F(Clone, ConstraintsAreReadBeforeTheFilesNameIsAskedFor) {
    Top();
    Setting("CompCopyAutoNum", "byComp");
    Record();
    MacrosOf("@ select bolt\n~ Command `CloneAndReplace`");
    Names operations;
    for (const std::string& call :
         workbench::CallOrder(Recorded(), {"ProMdlSave", "ProAsmcompConstraintsGet",
                                           "ProMdlNameGet", "ProMdlTypeGet", "ProMacroLoad"})) {
        operations.push_back(call.substr(0, call.find(' ')));
    }
    const auto saved = std::find(operations.begin(), operations.end(), "ProMdlSave");
    EXPECT_EQ(Names(saved, operations.end()),
              (Names{"ProMdlSave", "ProAsmcompConstraintsGet", "ProMdlNameGet", "ProMdlTypeGet",
                     "ProMacroLoad"}));
}

// A path has room for 25 ids.
TEST_F(Clone, TheConstraintsOfTheDeepestComponentAreRead) {
    Model& top = MakeModels("top: lid");
    Model* above = &top;
    for (int depth = 1; depth < 25; ++depth) {
        Model& next = Assembly("level" + std::to_string(depth));
        Use(*above, next);
        above = &next;
    }
    Use(*above, MakeModels("plate"));
    Open(top);
    Start();
    Setting("CompCopyAutoNum", "byComp");
    std::vector<int> path(25, 1);
    path.front() = 2;
    host().session.selections.SetBuffer(
        {{{PRO_PART, -1, ModelNamed("plate").handle}, &top, std::move(path)}});
    Record();
    MacrosOf("~ Command `CloneAndReplace`");
    EXPECT_EQ(Lines("ProAsmcompConstraintsGet").size(), 1u);
}

TEST_F(Clone, ACopyWhoseFileCannotBeNamedIsNotPutAnywhere) {
    Top();
    Setting("CompCopyAutoNum", "byComp");
    for (const char* operation : {"ProMdlNameGet", "ProMdlTypeGet"}) {
        // The first is asked of what is copied, or of the active assembly.
        Fail(operation, {.n = 2});
        EXPECT_EQ(MacrosOf("@ select bolt\n~ Command `CloneAndReplace`"), Names{}) << operation;
    }
    EXPECT_NE(InMemory("bolt-2.prt"), nullptr) << "the copies are there";
}

TEST_F(Clone, TheTopItselfIsCopiedButItsConstraintsAreNotRead) {
    Top();
    Setting("CompCopyAutoNum", "byComp");
    Record();
    EXPECT_EQ(MacrosOf("@ select .\n~ Command `CloneAndReplace`"),
              Names{kNewer + "top-1.asm" + kEnd});
    Recorded();
    EXPECT_EQ(Lines("ProAsmcompConstraintsGet"), Names{});
}

TEST_F(Clone, InAnOlderHostTheOtherDialogIsUsed) {
    Top();
    Setting("CompCopyAutoNum", "byComp");
    StartIn("Creo 2.0");
    Play("@ select bolt\n~ Command `CloneAndReplace`");
    EXPECT_EQ(Components(*top_), (Names{"bolt-1.prt", "bolt.prt", "sub.asm"}));
}

TEST_F(Clone, TheMacroOfAnotherVersionFailsLoudlyAndChangesNothing) {
    Top();
    Setting("CompCopyAutoNum", "byComp");
    host().commands.runMacro(kOlder + "bolt.prt" + kEnd);
    EXPECT_EQ(Complaints().size(), 1u);
    EXPECT_EQ(Components(*top_), (Names{"bolt.prt", "bolt.prt", "sub.asm"}));
}

TEST_F(Clone, AFileThatWasNotSavedFailsLoudlyAndChangesNothing) {
    Top();
    Setting("CompCopyAutoNum", "byComp");
    Fail("ProMdlSave");
    Play("@ select bolt");
    host().commands.Press("CloneAndReplace");
    const Names complaints = Complaints();
    ASSERT_EQ(complaints.size(), 1u);
    EXPECT_NE(complaints[0].find("Ph_list.Filelist has no bolt-1.prt"), std::string::npos)
        << complaints[0];
    EXPECT_EQ(Components(*top_), (Names{"bolt.prt", "bolt.prt", "sub.asm"}));
    EXPECT_EQ(host().dialogs.Active(), nullptr);
}

TEST_F(Clone, ARefusedReplacementLeavesTheDialogOpenForTheUser) {
    Top();
    Setting("CompCopyAutoNum", "byComp");
    top_->readOnly = true;
    Play(
        "@ select bolt\n~ Command `CloneAndReplace`\n@ expect dialog gen_repl_dlg\n"
        "~ Activate `gen_repl_dlg` `CancelBtn`");
    EXPECT_EQ(Components(*top_), (Names{"bolt.prt", "bolt.prt", "sub.asm"}));
}

TEST_F(Clone, ByHandTheUserReplacesInTheSameDialogs) {
    Top();
    Play(
        "@ select bolt\n~`rmb_popup` `PopupMenu`\n"
        "~ Command `ProCmdReplComp@PopupMenuGraphicWinStack`\n"
        "@ expect dialog gen_repl_dlg\n"
        "~ Select `gen_repl_dlg` `ByCompPH.rpl_method_radio` 1 `Unrelated Component`\n"
        "~ Activate `gen_repl_dlg` `PB_NewComp`\n@ expect dialog file_open\n"
        "~ Activate `file_open` `Ph_list.Filelist` 1 `plate.prt`\n"
        "~ Activate `gen_repl_dlg` `DoneBtn`");
    EXPECT_EQ(Components(*top_), (Names{"plate.prt", "bolt.prt", "sub.asm"}));
}

}  // namespace
