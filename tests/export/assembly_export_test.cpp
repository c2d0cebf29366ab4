// VxExStp, VxExSat and VxExIgs from outside: which models become files, under which names, written
// by what, and what becomes of the working directory.
#include "simhost/core/disk.h"
#include "tests/export/folders.h"

namespace {

using namespace simhost;
using workbench::Completion;
using workbench::FolderBench;
using workbench::Names;

// A command as the user meets it: how it is begun and ended, and what it says.
struct BatchCommand {
    const char* name;
    const char* begin;  // as far as the prompt
    const char* end;
    const char* title;
    const char* extension;
    const char* completion;
    const char* wrongModel;
    const char* writer;
};

const BatchCommand kCommands[] = {
    {"VxExStp", "~ Command `VxExStp`\n", "", "请选择stp导出目录", ".stp", "stp批量导出操作已完成",
     "此功能仅组件/制造环境可用！", "ProOutputFileWrite"},
    {"VxExSat", "~ Command `VxExSat`\n", "", "请选择sat文件导出目录", ".sat",
     "批量导出为sat操作已完成", "此功能仅组件/模具环境可用！", "ProOutputFileWrite"},
    {"VxExIgs", "~ Command `VxExIgs`\n~ Activate `VxExIgs` `VxExIgsAct`\n", "~ Close `VxExIgs`\n",
     "请选择igs导出目录", ".igs", "IGS批量导出操作已完成", "此功能仅组件/制造环境可用！",
     "ProIntf3DFileWrite"},
};

void PrintTo(const BatchCommand& command, std::ostream* out) {
    *out << command.name;
}

class AssemblyExport : public FolderBench, public ::testing::WithParamInterface<BatchCommand> {
protected:
    // Presses the command, gives this answer to its prompt and reads the notice at the end.
    void Run(const std::string& answer = "@ answer C:\\Out") {
        Play(Its().begin + answer + "\n@ expect box " + Its().completion + "\n@ ok\n" + Its().end);
    }
    // Presses it where it ends without the notice.
    void RunTo(const std::string& lines) { Play(Its().begin + lines + "\n" + Its().end); }
    const BatchCommand& Its() const { return GetParam(); }
    // The names with the command's extension.
    Names With(Names names) {
        for (std::string& name : names) name += Its().extension;
        return names;
    }
    // The model and the file of each call of the writer, in the order of the calls.
    Names Written() {
        Names written;
        for (const std::string& line : Lines(Its().writer)) {
            const std::size_t from = line.find('=') + 1, name = line.find("file=\"") + 6;
            written.push_back(line.substr(from, line.find(',') - from) + " as " +
                              line.substr(name, line.find('"', name) - name));
        }
        return written;
    }
    std::vector<std::string> LineEnds(const std::string& operation) {
        Names ends;
        for (const std::string& line : Lines(operation))
            ends.push_back(line.substr(line.rfind(" = ")));
        return ends;
    }
};

INSTANTIATE_TEST_SUITE_P(Each, AssemblyExport, ::testing::ValuesIn(kCommands),
                         [](const auto& test) { return std::string(test.param.name); });

// --- What is written ---

TEST_P(AssemblyExport, WritesEachModelOnceUnderItsNameAndTellsSo) {
    OpenSaved("top: a x3, sub(b, a)");
    Run();
    EXPECT_EQ(FilesOf("C:\\Out"), With({"A", "B", "SUB", "TOP"}));
    EXPECT_EQ(Boxes(), Names{Completion(Its().completion)});
    EXPECT_EQ(AllBoxes().at(0).flags, 0x40000u);
    EXPECT_TRUE(AllBoxes().at(0).hasCaption);
    EXPECT_EQ(Directory(), "C:\\Work");
}

TEST_P(AssemblyExport, GoesThroughTheModelsInTheOrderOfTheirHandles) {
    Model& top = OpenSaved("top: a, sub(b)");
    std::vector<Model*> models = {&top, host().session.FindByFile("a.prt"),
                                  host().session.FindByFile("b.prt"),
                                  host().session.FindByFile("sub.asm")};
    workbench::SortByHandle(&models);
    Record();
    Run();
    Recorded();
    Names expected;
    for (const Model* model : models) {
        expected.push_back(model->FileName() + " as " + Utf8(model->name) + Its().extension);
    }
    EXPECT_EQ(Written(), expected);
    EXPECT_EQ(Lines("ProDirectoryChange"),
              (Names{"ProDirectoryChange(directory=\"C:\\Out\") = 0",
                     "ProDirectoryChange(directory=\"C:\\Work\\\") = 0"}));
}

TEST_P(AssemblyExport, LeavesOutWhatTheWalkLeavesOut) {
    OpenSaved("top: a, b!suppressed, c!invisible, d!hidden, lost!missing");
    Run();
    EXPECT_EQ(FilesOf("C:\\Out"), With({"A", "D", "TOP"}));
}

TEST_P(AssemblyExport, OfAManufacturingModelWritesItsAssemblyAlone) {
    OpenSaved("mill.mfg: top(a, sub(b))");
    Record();
    Run();
    EXPECT_EQ(FilesOf("C:\\Out"), With({"TOP"}));
    Recorded();
    EXPECT_EQ(Written(), Names{std::string("top.asm as TOP") + Its().extension});
    EXPECT_EQ(Lines("ProSolidFeatVisit"), Names{});
}

TEST_P(AssemblyExport, OfAManufacturingModelWithoutAnAssemblyWritesNothingAndSaysThatItIsDone) {
    OpenSaved("mill.mfg: top(a)");
    Fail("ProMfgAssemGet");
    Run();
    EXPECT_EQ(FilesOf("C:\\Out"), Names{});
}

TEST_P(AssemblyExport, WithoutAnArrayWritesTheAssemblyAlone) {
    OpenSaved("top: a");
    Fail("ProArrayAlloc");
    Run();
    EXPECT_EQ(FilesOf("C:\\Out"), With({"TOP"}));
}

TEST_P(AssemblyExport, TakesANameAsItIsAndNotAsAFormat) {
    Model& top = Assembly("top");
    Use(top, Part("轴 50%D%S"));
    Open(top);
    Run();
    EXPECT_EQ(FilesOf("C:\\Out"), With({"TOP", "轴 50%D%S"}));
}

// --- Models that cannot be exported so ---

TEST_P(AssemblyExport, OfAPartIsRefusedWithAPlainError) {
    OpenSaved("plate");
    std::string lines = std::string("@ mapped key ") + Its().name + "\n";
    if (*Its().end) lines += "~ Activate `VxExIgs` `VxExIgsAct`\n";
    Play(lines + "@ expect box " + Its().wrongModel + "\n@ ok\n" + Its().end);
    EXPECT_EQ(Boxes(), Names{Its().wrongModel});
    EXPECT_FALSE(AllBoxes().at(0).hasCaption);
    EXPECT_EQ(AllBoxes().at(0).flags, 0u);
}

// --- The prompt ---

TEST_P(AssemblyExport, AsksWithItsOwnTitle) {
    OpenSaved("top: a");
    Record();
    Run();
    Recorded();
    EXPECT_EQ(Lines("ProDirectoryChoose"),
              Names{std::string("ProDirectoryChoose(title=\"") + Its().title +
                    "\", shortcutPaths=null, shortcutNames=null, folder=null, "
                    "path=\"C:\\Out\") = 0"});
}

TEST_P(AssemblyExport, EndsInSilenceWhenThePromptIsLeft) {
    OpenSaved("top: a");
    Record();
    RunTo("@ quit");
    Recorded();
    EXPECT_EQ(Lines("ProDirectoryChange"), Names{});
    EXPECT_EQ(Written(), Names{});
    EXPECT_EQ(Boxes(), Names{});
    EXPECT_EQ(Directory(), "C:\\Work");
}

// Only the user's leaving ends it: the folder is empty then, and the host stays where it is.
TEST_P(AssemblyExport, GoesOnAfterAPromptThatFailsOtherwise) {
    OpenSaved("top: a");
    Fail("ProDirectoryChoose", {.status = PRO_TK_GENERAL_ERROR});
    Record();
    Play(std::string(Its().begin) + "@ ok\n" + Its().end);
    Recorded();
    EXPECT_EQ(Lines("ProDirectoryChange").at(0), "ProDirectoryChange(directory=\"\") = -2");
    EXPECT_EQ(Written().size(), 2u);
    EXPECT_EQ(Directory(), "C:\\Work");
}

// --- What fails ---

TEST_P(AssemblyExport, GoesOnWithTheNextModelAfterOneThatIsNotWritten) {
    OpenSaved("top: a, b");
    Fail(Its().writer);
    Run();
    EXPECT_EQ(FilesOf("C:\\Out").size(), 2u);
    EXPECT_EQ(Directory(), "C:\\Work");
}

TEST_P(AssemblyExport, KeepsTheFilesThatOthersHoldOrProtect) {
    OpenSaved("top: a, b");
    const std::string held = std::string("C:\\Out\\A") + Its().extension;
    const std::string locked = std::string("C:\\Out\\B") + Its().extension;
    Write(Wide(held), "held");
    Write(Wide(locked), "locked");
    Play("@ hold " + held + "\n@ read-only " + locked);
    Record();
    Run();
    Recorded();
    Play("@ let go " + held);
    EXPECT_EQ(Bytes(held), "held");
    EXPECT_EQ(Bytes(locked), "locked");
    const Names ends = LineEnds(Its().writer);
    EXPECT_EQ(std::count(ends.begin(), ends.end(), " = -17"), 2);
    EXPECT_EQ(std::count(ends.begin(), ends.end(), " = 0"), 1);
}

TEST_P(AssemblyExport, ReplacesFilesOfItsOwn) {
    OpenSaved("top: a");
    Write(Wide(std::string("C:\\Out\\A") + Its().extension), "old");
    Run();
    EXPECT_NE(Bytes(std::string("C:\\Out\\A") + Its().extension), "old");
}

TEST_P(AssemblyExport, IntoAReadOnlyFolderLeavesNothingBehind) {
    OpenSaved("top: a");
    Play("@ read-only C:\\Out");
    Record();
    Run();
    Recorded();
    EXPECT_EQ(LineEnds(Its().writer), (Names{" = -17", " = -17"}));
    std::filesystem::permissions(Real("C:\\Out"), std::filesystem::perms::owner_all);
    EXPECT_EQ(FilesOf("C:\\Out"), Names{});
    EXPECT_EQ(Directory(), "C:\\Work");
}

TEST_P(AssemblyExport, OntoAFullDiskKeepsWhatWasThere) {
    OpenSaved("top: a");
    const std::string file = std::string("C:\\Out\\A") + Its().extension;
    Write(Wide(file), "old");
    LimitDisk(1);
    Run();
    LimitDisk({});
    EXPECT_EQ(Bytes(file), "old");
    EXPECT_EQ(FilesOf("C:\\Out"), With({"A"}));
}

// --- The writers and their calls ---

using ExportSat = FolderBench;

TEST_F(ExportSat, AsksForTheFormatOfTheStepCommand) {
    OpenSaved("top: a");
    Record();
    Play("~ Command `VxExSat`\n@ answer C:\\Out\n@ ok");
    Recorded();
    for (const std::string& line : Lines("ProOutputFileWrite")) {
        EXPECT_NE(line.find("format=22, first=null, second=null, third=null, fourth=null) = 0"),
                  std::string::npos)
            << line;
    }
    Play("~ Command `VxExStp`\n@ answer C:\\Out\n@ ok");
    const std::string step = Bytes("C:\\Out\\TOP.stp");
    EXPECT_FALSE(step.empty());
    EXPECT_EQ(Bytes("C:\\Out\\TOP.sat"), step);
}

TEST_F(ExportSat, MakesItsCallsInTheirOrder) {
    OpenSaved("top:");
    Record();
    Play("~ Command `VxExSat`\n@ answer C:\\Out\n@ ok");
    EXPECT_EQ(CallsOfTheAction(),
              (Names{"ProMdlCurrentGet", "ProMdlTypeGet", "ProDirectoryCurrentGet",
                     "ProDirectoryChoose", "ProDirectoryChange", "ProArrayAlloc",
                     "ProSolidFeatVisit", "ProArraySizeGet", "ProArrayFree", "ProMdlNameGet",
                     "ProOutputFileWrite", "ProDirectoryChange", "MessageBoxW"}));
}

class ExportIgs : public FolderBench {
protected:
    // The flags of each inclusion record, as they were set.
    Names Flags() {
        Names flags;
        for (const std::string& line : Lines("ProOutputInclusionFlagsSet")) {
            const std::size_t from = line.find("datums=");
            flags.push_back(line.substr(from, line.find(')') - from));
        }
        return flags;
    }
    void Export(const std::string& before) {
        Record();
        Play("~ Command `VxExIgs`\n" + before +
             "~ Activate `VxExIgs` `VxExIgsAct`\n@ answer C:\\Out\n@ ok\n~ Close `VxExIgs`");
        Recorded();
    }
};

TEST_F(ExportIgs, HandsTheThreeChoicesOnInTheirOrder) {
    OpenSaved("top:");
    const struct {
        const char* check;
        const char* flags;
    } rows[] = {{"", "datums=0, blanked=0, facetted=0"},
                {"~ Activate `VxExIgs` `datumsCheck` 1\n", "datums=1, blanked=0, facetted=0"},
                {"~ Activate `VxExIgs` `blankedCheck` 1\n", "datums=0, blanked=1, facetted=0"},
                {"~ Activate `VxExIgs` `facettedCheck` 1\n", "datums=0, blanked=0, facetted=1"}};
    for (const auto& row : rows) {
        Export(row.check);
        EXPECT_EQ(Flags(), Names{row.flags});
    }
}

TEST_F(ExportIgs, CountsACheckButtonThatIsNotToldAsOff) {
    OpenSaved("top:");
    Fail("ProUICheckbuttonGetState", {.n = 2});
    Export("~ Activate `VxExIgs` `datumsCheck` 1\n~ Activate `VxExIgs` `blankedCheck` 1\n");
    EXPECT_EQ(Flags(), Names{"datums=1, blanked=0, facetted=0"});
}

TEST_F(ExportIgs, MakesTwoNewRecordsForEveryModelAndLeavesThem) {
    OpenSaved("top: a, b");
    Export("");
    EXPECT_EQ(Lines("ProOutputInclusionAlloc").size(), 3u);
    EXPECT_EQ(Lines("ProOutputLayerOptionsAlloc").size(), 3u);
    // Two for each, still there; that they are left on purpose is known of this command.
    EXPECT_EQ(host().arrays.Held().size(), 6u);
    EXPECT_EQ(host().arrays.HeldByMistake(), Names{});
    for (const std::string& line : Lines("ProOutputLayerOptionsAutoidSet")) {
        EXPECT_NE(line.find("autoId=1) = 0"), std::string::npos) << line;
    }
}

TEST_F(ExportIgs, MakesItsCallsInTheirOrder) {
    OpenSaved("top:");
    Record();
    Play(
        "~ Command `VxExIgs`\n~ Activate `VxExIgs` `VxExIgsAct`\n@ answer C:\\Out\n@ ok\n"
        "~ Close `VxExIgs`");
    EXPECT_EQ(CallsOfTheAction(), (Names{"ProUIDialogCreate",
                                         "ProUIPushbuttonActivateActionSet",
                                         "ProUIDialogCloseActionSet",
                                         "ProUIDialogActivate",
                                         "ProMdlCurrentGet",
                                         "ProMdlTypeGet",
                                         "ProUICheckbuttonGetState",
                                         "ProUICheckbuttonGetState",
                                         "ProUICheckbuttonGetState",
                                         "ProDirectoryCurrentGet",
                                         "ProDirectoryChoose",
                                         "ProDirectoryChange",
                                         "ProArrayAlloc",
                                         "ProSolidFeatVisit",
                                         "ProArraySizeGet",
                                         "ProArrayFree",
                                         "ProMdlNameGet",
                                         "ProOutputInclusionAlloc",
                                         "ProOutputInclusionFlagsSet",
                                         "ProOutputLayerOptionsAlloc",
                                         "ProOutputLayerOptionsAutoidSet",
                                         "ProIntf3DFileWrite",
                                         "ProDirectoryChange",
                                         "MessageBoxW",
                                         "ProUIDialogExit",
                                         "ProUIDialogDestroy"}));
    const std::string write = Lines("ProIntf3DFileWrite").at(0);
    EXPECT_EQ(write.find("ProIntf3DFileWrite(solid=top.asm, format=4, file=\"TOP.igs\", "
                         "configuration=2, csys=null, representation=null, inclusion="),
              0u)
        << write;
    EXPECT_EQ(write.find("inclusion=null"), std::string::npos) << write;
    EXPECT_EQ(write.find("layers=null"), std::string::npos) << write;
    EXPECT_EQ(Lines("ProUIDialogExit"), Names{"ProUIDialogExit(dialog=\"VxExIgs\", status=0) = 0"});
}

TEST_F(ExportIgs, LeavesAModelOutWhoseRecordsAreNotToBeHad) {
    OpenSaved("top: a, b");
    Fail("ProOutputInclusionAlloc");
    Fail("ProOutputLayerOptionsAlloc", {.n = 2});
    Export("");
    EXPECT_EQ(Lines("ProOutputInclusionFlagsSet").size(), 2u);
    EXPECT_EQ(Lines("ProOutputLayerOptionsAutoidSet").size(), 2u);
    EXPECT_EQ(Lines("ProIntf3DFileWrite").size(), 1u);
    EXPECT_EQ(FilesOf("C:\\Out").size(), 1u);
}

TEST_F(ExportIgs, StaysOpenForTheNextExport) {
    OpenSaved("top: a");
    Play(
        "~ Command `VxExIgs`\n~ Activate `VxExIgs` `VxExIgsAct`\n@ answer C:\\Out\n@ ok\n"
        "@ expect dialog VxExIgs\n"
        "~ Activate `VxExIgs` `VxExIgsAct`\n@ quit\n"
        "@ expect dialog VxExIgs\n~ Close `VxExIgs`");
    EXPECT_EQ(Boxes().size(), 1u);
}

TEST_F(ExportIgs, SaysWhenItsDialogCannotBeHad) {
    OpenSaved("top: a");
    const struct {
        const char* operation;
        const char* text;
        const char* lines;
    } rows[] = {{"ProUIDialogCreate", "UIDialog Create error!", ""},
                {"ProUIDialogActivate", "UIDialog Activate error!", ""},
                {"ProUIDialogDestroy", "UIDialog Destroy error!", "~ Close `VxExIgs`\n"}};
    // A dialog that could not be shown or destroyed stays, so each is tried from the start.
    for (const auto& row : rows) {
        Fail(row.operation);
        Play(std::string("~ Command `VxExIgs`\n") + row.lines + "@ expect box \"" + row.text +
             "\"\n@ ok");
        EXPECT_FALSE(AllBoxes().back().hasCaption);
        if (Dialog* left = host().dialogs.Find("VxExIgs")) host().dialogs.Destroy(*left);
    }
}

}  // namespace
