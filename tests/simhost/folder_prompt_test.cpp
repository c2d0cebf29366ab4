// The host's question for a folder: what is listed, what may be typed, and what comes back.
#include <gtest/gtest.h>

#include <filesystem>

#include "hostapi/host.h"
#include "simhost/app/prompt.h"
#include "simhost/trail/hooks.h"
#include "simhost/trail/interpreter.h"
#include "simhost/trail/robot.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using workbench::Workbench;

class FolderPrompt : public Workbench {
protected:
    void SetUp() override {
        for (const char* name : {"C:\\Files\\b", "C:\\Files\\A", "C:\\Files\\输出 1"}) {
            std::filesystem::create_directories(host().disk.Real(Wide(name)));
        }
        Write(WIDE("C:\\Files\\file"), "x");
    }
    ProError Choose(const WideText& start = WIDE("C:\\Files")) {
        ProPath path = {};
        WideText title = WIDE("Where to?"), folder = start;
        const ProError status =
            ProDirectoryChoose(title.data(), nullptr, nullptr, folder.data(), path);
        chosen_ = Utf8(path);
        return status;
    }
    // The status of a prompt that this script answers; its path is in chosen_.
    ProError Ask(const std::string& script, const WideText& start = WIDE("C:\\Files")) {
        ProError status = PRO_TK_NO_ERROR;
        PlayDuring([&] { status = Choose(start); }, script);
        return status;
    }
    // What a script that answers so is told.
    std::string Failure(const std::string& answer) {
        TheHooks().start = [this] {
            EXPECT_EQ(Choose(), PRO_TK_USER_ABORT);
            EXPECT_EQ(chosen_, "");
            return std::string();
        };
        const std::vector<std::string> failures = RunScript("@ start\n@ answer " + answer);
        TheHooks().start = {};
        return failures.empty() ? "" : failures[0];
    }
    std::string chosen_;
};

TEST_F(FolderPrompt, TakesAFolderOfTheOneThatIsShown) {
    EXPECT_EQ(Ask("@ answer B"), PRO_TK_NO_ERROR);
    EXPECT_EQ(chosen_, "C:\\Files\\B");
    EXPECT_EQ(Ask("@ answer 输出 1"), PRO_TK_NO_ERROR);
    EXPECT_EQ(chosen_, "C:\\Files\\输出 1");
}

TEST_F(FolderPrompt, TakesAWholePathJustAsItIsTyped) {
    EXPECT_EQ(Ask("@ answer C:\\Work"), PRO_TK_NO_ERROR);
    EXPECT_EQ(chosen_, "C:\\Work");
    EXPECT_EQ(Ask("@ answer C:\\files\\a\\"), PRO_TK_NO_ERROR);
    EXPECT_EQ(chosen_, "C:\\files\\a\\");
    EXPECT_EQ(Ask("@ answer C:\\"), PRO_TK_NO_ERROR);
    EXPECT_EQ(chosen_, "C:\\");
}

TEST_F(FolderPrompt, TakesTheShownFolderWhereNothingIsTyped) {
    EXPECT_EQ(Ask("@ answer"), PRO_TK_NO_ERROR);
    EXPECT_EQ(chosen_, "C:\\Files");
    EXPECT_EQ(Ask("@ answer", {}), PRO_TK_NO_ERROR);
    EXPECT_EQ(chosen_, "C:\\Work");
}

TEST_F(FolderPrompt, OpensInTheWorkingFolderWithoutAFolderOfItsOwn) {
    ProPath path = {};
    WideText title = WIDE("T");
    ProError status = PRO_TK_NO_ERROR;
    PlayDuring([&] { status = ProDirectoryChoose(title.data(), nullptr, nullptr, nullptr, path); },
               "@ answer");
    EXPECT_EQ(status, PRO_TK_NO_ERROR);
    EXPECT_EQ(WideText(path), WIDE("C:\\Work"));
}

TEST_F(FolderPrompt, LeavesThePathAloneWhenItIsLeft) {
    ProPath path = WIDE("as before");
    WideText title = WIDE("T");
    ProError status = PRO_TK_NO_ERROR;
    PlayDuring([&] { status = ProDirectoryChoose(title.data(), nullptr, nullptr, nullptr, path); },
               "@ quit");
    EXPECT_EQ(status, PRO_TK_USER_ABORT);
    EXPECT_EQ(int(status), -3);
    EXPECT_EQ(WideText(path), WIDE("as before"));
}

TEST_F(FolderPrompt, DoesNotTakeWhatIsNoFolder) {
    EXPECT_EQ(Failure("gone"), "line 2: there is no folder C:\\Files\\gone");
    EXPECT_EQ(Failure("file"), "line 2: there is no folder C:\\Files\\file");
    EXPECT_EQ(Failure("输出 2"),
              "line 2: there is no folder C:\\Files\\输出 2; did you mean 输出 1?");
    EXPECT_EQ(Failure("D:\\x"), "line 2: there is no folder D:\\x");
}

TEST_F(FolderPrompt, ShowsItsTitleAndTheFoldersAndCompletesFromThem) {
    std::string told;
    std::vector<std::string> offered;
    TheHooks().start = [this] {
        Choose();
        return std::string();
    };
    RunScript("@ start\n@ quit", [&](const std::string& line) {
        told += line + "\n";
        if (line.find("prompt:") != std::string::npos) offered = Completions("@ answer ");
    });
    TheHooks().start = {};
    EXPECT_NE(told.find("prompt: Where to? C:\\Files\n"), std::string::npos) << told;
    EXPECT_NE(told.find("|   A "), std::string::npos) << told;
    EXPECT_EQ(told.find("file"), std::string::npos) << told;
    EXPECT_EQ(offered, (std::vector<std::string>{"A", "b", "输出 1"}));
}

TEST_F(FolderPrompt, SaysThatThereAreNoFoldersToList) {
    std::string told;
    TheHooks().start = [this] {
        Choose(WIDE("C:\\Files\\b"));
        return std::string();
    };
    RunScript("@ start\n@ quit", [&](const std::string& line) { told += line + "\n"; });
    TheHooks().start = {};
    EXPECT_NE(told.find("(no folders)"), std::string::npos) << told;
}

TEST_F(FolderPrompt, IsLeftByTheRobot) {
    RobotUser robot;
    host().user = &robot;
    EXPECT_EQ(Choose(), PRO_TK_USER_ABORT);
    host().user = nullptr;
}

// --- The words about folders ---

class FolderWords : public Workbench {
protected:
    std::string Failure(const std::string& line) {
        const std::vector<std::string> failures =
            RunScript(line, [this](const std::string& told) { told_ += told + "\n"; });
        return failures.empty() ? "" : failures[0];
    }
    std::string told_;
};

TEST_F(FolderWords, MakeOneAndShowWhatIsInIt) {
    EXPECT_EQ(Failure("@ make folder 输出 1"), "");
    EXPECT_EQ(Failure("@ make folder C:\\A\\b"), "");
    EXPECT_TRUE(std::filesystem::is_directory(host().disk.Real(WIDE("C:\\Work\\输出 1"))));
    EXPECT_EQ(Failure("@ show files C:\\A\\b"), "");
    EXPECT_NE(told_.find("(no files)"), std::string::npos) << told_;
    Write(WIDE("C:\\Work\\输出 1\\a.stp"), "12345");
    told_.clear();
    EXPECT_EQ(Failure("@ show files 输出 1"), "");
    EXPECT_NE(told_.find("a.stp"), std::string::npos) << told_;
    EXPECT_NE(told_.find("5 bytes"), std::string::npos) << told_;
}

TEST_F(FolderWords, AreToldWhatCannotBe) {
    Write(WIDE("C:\\Work\\file"), "x");
    EXPECT_EQ(Failure("@ show files gone"), "line 1: there is no folder gone");
    EXPECT_EQ(Failure("@ show files file"), "line 1: there is no folder file");
    EXPECT_EQ(Failure("@ make folder"), "line 1: a folder's name belongs after make folder");
    EXPECT_EQ(Failure("@ make folder D:\\x"), "line 1: the folder D:\\x cannot be made");
    EXPECT_EQ(Failure("@ make folder file"), "line 1: the folder file cannot be made");
}

}  // namespace
