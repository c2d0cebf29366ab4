// The host's file dialog and its options: what is listed, what is chosen, what a file's name is
// made of, and values that are handed out.
#include <gtest/gtest.h>

#include <filesystem>

#include "simhost/app/prompt.h"
#include "simhost/core/file_names.h"
#include "simhost/trail/hooks.h"
#include "simhost/trail/interpreter.h"
#include "simhost/trail/robot.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using workbench::Workbench;

TEST(FileNames, AFilterIsAListOfPatternsWhateverTheCase) {
    EXPECT_TRUE(FitsFilter(WIDE("Steel.MTL"), WIDE("*.mtl,*.mat")));
    EXPECT_TRUE(FitsFilter(WIDE("old.mat"), WIDE("*.mtl, *.mat")));
    EXPECT_FALSE(FitsFilter(WIDE("old.mats"), WIDE("*.mtl,*.mat")));
    EXPECT_FALSE(FitsFilter(WIDE("mtl"), WIDE("*.mtl")));
    EXPECT_TRUE(FitsFilter(WIDE("a1.drw"), WIDE("a?.drw")));
    EXPECT_FALSE(FitsFilter(WIDE("a.drw"), WIDE("a?.drw")));
    EXPECT_TRUE(FitsFilter(WIDE("anything"), WIDE("*.*")));
    EXPECT_TRUE(FitsFilter(WIDE("anything"), WIDE("")));
    EXPECT_FALSE(FitsFilter(WIDE("anything"), WIDE("*.x,,")));
}

class FileDialog : public Workbench {
protected:
    void SetUp() override {
        std::filesystem::create_directories(host().disk.Real(WIDE("C:\\Files\\folder.mtl")));
        for (const char* name :
             {"b.mtl", "A.mat", "c.mtl.9", "c.mtl.10", "c.mtl", "d.txt", "铁.mtl"}) {
            Write(Wide(std::string("C:\\Files\\") + name), "x");
        }
    }
    // The status of a dialog that this script answers; its path is in chosen_.
    ProError Ask(const std::string& script, const WideText& folder = WIDE("C:\\Files"),
                 const WideText& filter = WIDE("*.mtl,*.mat")) {
        ProError status = PRO_TK_NO_ERROR;
        chosen_.clear();
        PlayDuring(
            [&] {
                ProPath path = {};
                WideText title = WIDE("Choose"), patterns = filter, start = folder;
                status = ProFileOpen(title.data(), patterns.data(), nullptr, nullptr, start.data(),
                                     nullptr, path);
                chosen_ = Utf8(path);
            },
            script);
        return status;
    }
    std::string chosen_;
};

TEST_F(FileDialog, ListsWhatFitsByNameInItsNewestVersionOnly) {
    std::vector<WideText> files;
    class Looker : public RobotUser {
    public:
        explicit Looker(std::vector<WideText>* seen) : seen_(seen) {}
        std::optional<WideText> AnswerFile(const FileQuestion& question) override {
            *seen_ = question.files;
            EXPECT_EQ(TheHost().desk.fileQuestion, &question);
            return RobotUser::AnswerFile(question);
        }

    private:
        std::vector<WideText>* seen_;
    } looker(&files);
    host().user = &looker;
    ProPath path = {};
    WideText title = WIDE("T"), filter = WIDE("*.mtl,*.mat"), folder = WIDE("C:\\Files\\");
    EXPECT_EQ(
        ProFileOpen(title.data(), filter.data(), nullptr, nullptr, folder.data(), nullptr, path),
        PRO_TK_NO_ERROR);
    host().user = nullptr;
    EXPECT_EQ(files,
              (std::vector<WideText>{WIDE("A.mat"), WIDE("b.mtl"), WIDE("c.mtl"), WIDE("铁.mtl")}));
    // The robot takes the first.
    EXPECT_EQ(Utf8(path), "C:\\Files\\A.mat");
    EXPECT_EQ(host().desk.fileQuestion, nullptr);
}

TEST_F(FileDialog, AFileIsChosenByItsName) {
    EXPECT_EQ(Ask("@ answer B.MTL"), PRO_TK_NO_ERROR);
    EXPECT_EQ(chosen_, "C:\\Files\\b.mtl");
    EXPECT_EQ(Ask("@ answer 铁.mtl"), PRO_TK_NO_ERROR);
    EXPECT_EQ(chosen_, "C:\\Files\\铁.mtl");
    EXPECT_EQ(Ask("@ answer C:\\Files\\c.mtl", WIDE("C:\\Work")), PRO_TK_NO_ERROR);
    EXPECT_EQ(chosen_, "C:\\Files\\c.mtl");
}

TEST_F(FileDialog, LeavingItIsAStatus) {
    EXPECT_EQ(Ask("@ quit"), PRO_TK_USER_ABORT);
    EXPECT_EQ(chosen_, "");
}

TEST_F(FileDialog, ItOpensInTheWorkingFolderWhereTheStartFolderIsNotThere) {
    Write(WIDE("C:\\Work\\here.mtl"), "x");
    for (const WideText& folder : {WideText(), WideText(WIDE("C:\\Gone"))}) {
        EXPECT_EQ(Ask("@ answer here.mtl", folder), PRO_TK_NO_ERROR);
        EXPECT_EQ(chosen_, "C:\\Work\\here.mtl");
    }
    bool told = false;
    for (const Shown& one : host().shown) {
        told = told || one.text == WIDE("there is no folder C:\\Gone");
    }
    EXPECT_TRUE(told);
}

TEST_F(FileDialog, WhatIsNotListedCannotBeChosen) {
    const auto failure = [&](const std::string& answer) {
        std::vector<std::string> failures;
        TheHooks().start = [] {
            ProPath path = {};
            WideText title = WIDE("T"), filter = WIDE("*.mtl"), folder = WIDE("C:\\Files");
            const ProError status = ProFileOpen(title.data(), filter.data(), nullptr, nullptr,
                                                folder.data(), nullptr, path);
            EXPECT_EQ(status, PRO_TK_USER_ABORT);
            return std::string();
        };
        failures = RunScript("@ start\n@ answer " + answer);
        TheHooks().start = {};
        return failures.empty() ? "" : failures[0];
    };
    EXPECT_EQ(failure("e.mtl"),
              "line 2: the file dialog has no file e.mtl in C:\\Files; did you mean b.mtl?");
    EXPECT_EQ(failure("d.txt").substr(0, 41), "line 2: the file dialog has no file d.txt");
    EXPECT_EQ(failure("C:\\Files\\d.txt"),
              "line 2: the file dialog takes *.mtl, not C:\\Files\\d.txt");
    EXPECT_EQ(failure("C:\\Files\\e.mtl"), "line 2: the file dialog has no file C:\\Files\\e.mtl");
}

TEST_F(FileDialog, TheListIsShownAndTheTabKeyCompletesFromIt) {
    std::string told;
    TheHooks().start = [&] {
        ProPath path = {};
        WideText title = WIDE("T"), filter = WIDE("*.mtl"), folder = WIDE("C:\\Files");
        ProFileOpen(title.data(), filter.data(), nullptr, nullptr, folder.data(), nullptr, path);
        return std::string();
    };
    std::vector<std::string> offered;
    RunScript("@ start\n@ answer b.mtl", [&](const std::string& line) {
        told += line + "\n";
        if (line.find("prompt:") != std::string::npos) offered = Completions("@ answer ");
    });
    TheHooks().start = {};
    EXPECT_NE(told.find("|   c.mtl"), std::string::npos) << told;
    EXPECT_EQ(told.find("A.mat"), std::string::npos) << told;
    EXPECT_EQ(offered, (std::vector<std::string>{"b.mtl", "c.mtl", "铁.mtl"}));
    EXPECT_EQ(Completions("@ answer "), std::vector<std::string>{});
}

// --- Names in pieces ---------------------------------------------------------------------------

std::string Parsed(const WideText& path) {
    WideText text = path;
    ProPath folder = {};
    ProName name = {}, extension = {};
    int version = -1;
    const ProError status = ProFilenameParse(text.data(), folder, name, extension, &version);
    if (status != PRO_TK_NO_ERROR) return std::to_string(status);
    return Utf8(folder) + " | " + Utf8(name) + " | " + Utf8(extension) + " | " +
           std::to_string(version);
}

TEST_F(FileDialog, APathIsSplitIntoFolderNameExtensionAndVersion) {
    EXPECT_EQ(Parsed(WIDE("C:\\Files\\c.mtl.10")), "C:\\Files\\ | c | mtl | 10");
    EXPECT_EQ(Parsed(WIDE("C:\\Files\\钢 45.x.MTL")), "C:\\Files\\ | 钢 45.x | MTL | 0");
    EXPECT_EQ(Parsed(WIDE("C:/a/b")), "C:/a/ | b |  | 0");
    EXPECT_EQ(Parsed(WIDE("b.prt")), " | b | prt | 0");
    EXPECT_EQ(Parsed(WIDE("")), std::to_string(PRO_TK_BAD_INPUTS));
}

TEST_F(FileDialog, ANameOf32CharactersFillsItsRecordAndALongerOneIsAStatus) {
    WideText path = WIDE("C:\\") + WideText(32, 'n') + WIDE(".mtl");
    ProPath folder = {};
    WideChar name[PRO_NAME_SIZE + 2] = {};
    name[PRO_NAME_SIZE] = 'x';
    ProName extension = {};
    int version = 0;
    EXPECT_EQ(ProFilenameParse(path.data(), folder, name, extension, &version), PRO_TK_NO_ERROR);
    WideText expected(32, 'n');
    expected += 'x';
    EXPECT_EQ(WideText(name), expected);
    WideText longer(33, 'n');
    longer += WIDE(".mtl");
    EXPECT_EQ(Parsed(longer), std::to_string(PRO_TK_LINE_TOO_LONG));
}

// --- Options -----------------------------------------------------------------------------------

class Options : public Workbench {
protected:
    ProError Get(ProPath** values) {
        WideChar option[] = WIDE("PRO_Material_Dir");
        return ProConfigoptArrayGet(option, values);
    }
    ProError Set(WideText value) {
        WideChar option[] = WIDE("pro_material_dir");
        return ProConfigoptSet(option, value.data());
    }
    static void Free(ProPath* values) {
        ProArray array = values;
        ProArrayFree(&array);
    }
};

TEST_F(Options, AnOptionCanHaveSeveralValuesAndLosesThemToOneThatIsSet) {
    Play("@ option pro_material_dir C:\\A | C:\\B b");
    ProPath* values = nullptr;
    ASSERT_EQ(Get(&values), PRO_TK_NO_ERROR);
    EXPECT_EQ(host().arrays.Size(values), 2);
    EXPECT_EQ(WideText(values[0]), WIDE("C:\\A"));
    EXPECT_EQ(WideText(values[1]), WIDE("C:\\B b"));
    Free(values);
    EXPECT_EQ(Set(WIDE("C:\\C")), PRO_TK_NO_ERROR);
    Play("@ expect option pro_material_dir C:\\C");
}

TEST_F(Options, NotSetAndSetToTheEmptyTextAreTwoThings) {
    ProPath* values = nullptr;
    EXPECT_EQ(Get(&values), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(values, nullptr);
    EXPECT_EQ(Set(WIDE("")), PRO_TK_NO_ERROR);
    ASSERT_EQ(Get(&values), PRO_TK_NO_ERROR);
    EXPECT_EQ(host().arrays.Size(values), 1);
    EXPECT_EQ(WideText(values[0]), WIDE(""));
    Free(values);
    Play("@ expect option pro_material_dir \"\"\n@ option pro_material_dir none");
    EXPECT_EQ(Get(&values), PRO_TK_E_NOT_FOUND);
    host().configOptions[WIDE("pro_material_dir")] = {};
    ASSERT_EQ(Get(&values), PRO_TK_NO_ERROR);
    EXPECT_EQ(host().arrays.Size(values), 0);
    Free(values);
}

TEST_F(Options, AValueThatIsKeptBeyondTheNextCallIsFoundOut) {
    Play("@ option pro_material_dir C:\\A");
    ProPath *values = nullptr, *later = nullptr;
    Get(&values);
    Get(&later);
    EXPECT_EQ(Utf8(later[0]), "C:\\A");
    WideChar option[] = WIDE("pro_material_dir");
    EXPECT_EQ(ProConfigoptSet(option, values[0]), PRO_TK_BAD_INPUTS);
    ProPath path = {};
    EXPECT_EQ(ProFileOpen(option, option, nullptr, nullptr, later[0], nullptr, path),
              PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints(),
              (std::vector<std::string>{
                  "ProConfigoptSet: a value of an option that was kept beyond another option call",
                  "ProFileOpen: a value of an option that was kept beyond another option call"}));
    EXPECT_EQ(Utf8(host().configOptions[WIDE("pro_material_dir")].at(0)), "C:\\A");
    Free(values);
    Free(later);
}

TEST_F(Options, AnArrayThatWasFreedIsNotTouchedByTheNextCall) {
    Play("@ option pro_material_dir C:\\A");
    ProPath* values = nullptr;
    Get(&values);
    Free(values);
    EXPECT_EQ(host().optionValues, nullptr);
    EXPECT_EQ(Set(WIDE("C:\\B")), PRO_TK_NO_ERROR);
}

TEST_F(Options, WordsSetExpectAndShowThem) {
    const auto failure = [](const std::string& script) {
        const auto failures = RunScript(script);
        return failures.empty() ? std::string() : failures[0];
    };
    EXPECT_EQ(failure("@ expect option pro_group_dir none"), "");
    EXPECT_EQ(failure("@ expect option pro_group_dir C:\\A"), "line 1: pro_group_dir is not set");
    EXPECT_EQ(
        failure("@ option pro_group_dir C:\\A|C:\\B\n@ expect option pro_group_dir C:\\A | C:\\B"),
        "");
    EXPECT_EQ(failure("@ expect option pro_group_dir C:\\A"),
              "line 1: pro_group_dir is C:\\A | C:\\B");
    EXPECT_EQ(failure("@ expect option pro_group_dir none"),
              "line 1: pro_group_dir is C:\\A | C:\\B");
    EXPECT_NE(failure("@ option pro_group_dir"), "");
    EXPECT_NE(failure("@ option"), "");
    EXPECT_NE(failure("@ expect option pro_grp_dir C:\\A"), "");
    Play("@ option pro_material_dir \"\"");
    std::string told;
    RunScript("@ show options", [&](const std::string& line) { told += line + "\n"; });
    EXPECT_NE(told.find("pro_material_dir         \"\""), std::string::npos) << told;
    EXPECT_NE(told.find("2 options are set"), std::string::npos) << told;
    EXPECT_NE(Completions("option pro_sh").size(), 0u);
}

}  // namespace
