// Model files and their versions: what a save leaves in the folder, which version is opened, and
// what the user is told about one that cannot be read or written.
#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "hostapi/host.h"
#include "hostapi/windows.h"
#include "simhost/core/disk.h"
#include "simhost/model/model_file.h"
#include "simhost/trail/interpreter.h"
#include "simhost/user/progress.h"
#include "tests/support/workbench.h"

using namespace simhost;
namespace fs = std::filesystem;

namespace {

constexpr const char* kPart = "[model]\ntype = \"part\"\n";

class SavedModels : public workbench::Workbench {
protected:
    fs::path Folder() { return host().disk.Real(host().session.workingDirectory); }
    void Put(const std::string& name, const std::string& text) {
        std::ofstream(Folder() / name, std::ios::binary) << text;
    }
    // The names in the working folder, in their order.
    std::vector<std::string> Names() {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(Folder())) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }
    // What the script says when it fails, without the number of its line.
    std::string Failure(const std::string& line) {
        const auto failures = RunScript(line);
        EXPECT_EQ(failures.size(), 1u);
        return failures.empty() ? "" : failures[0].substr(std::string("line 1: ").size());
    }
    // Its version as it is read anew; 0 if there is none.
    int NewestVersion(const std::string& file) {
        if (Model* there = host().session.FindByFile(file)) host().session.Erase(*there);
        const Model* model = host().session.Retrieve(file);
        return model ? model->version : 0;
    }
};

using Strings = std::vector<std::string>;

TEST_F(SavedModels, AreTheNextVersionAndNothingElse) {
    Model& part = Part("a");
    host().session.Save(part);
    part.title = "new";
    host().session.Save(part);
    EXPECT_EQ(Names(), (Strings{"a.prt.1", "a.prt.2"}));
    EXPECT_EQ(NewestVersion("a.prt"), 2);
    EXPECT_EQ(host().session.FindByFile("a.prt")->title, "new");
}

TEST_F(SavedModels, AreFoundWhoeverPutsAndTakesTheirFiles) {
    EXPECT_EQ(NewestVersion("a.prt"), 0);
    Put("a.prt.1", kPart);
    EXPECT_EQ(NewestVersion("a.prt"), 1);
    Put("A.PRT.12", kPart);
    EXPECT_EQ(NewestVersion("a.prt"), 12);
    host().session.Save(Part("b"));
    EXPECT_EQ(NewestVersion("a.prt"), 12);
    fs::rename(Folder() / "A.PRT.12", Folder() / "c.prt.3");
    EXPECT_EQ(NewestVersion("a.prt"), 1);
    EXPECT_EQ(NewestVersion("c.prt"), 3);
    DeleteFileW(WIDE("C:\\Work\\c.prt.3"));
    EXPECT_EQ(NewestVersion("c.prt"), 0);
    EXPECT_EQ(NewestVersion("b.prt"), 1);
}

TEST_F(SavedModels, AreFoundInAFolderThatTookTheNameOfAnother) {
    Put("a.prt.1", kPart);
    EXPECT_EQ(NewestVersion("a.prt"), 1);
    const fs::path before = Folder().parent_path() / "Before";
    fs::rename(Folder(), before);
    fs::create_directory(Folder().parent_path() / "Work");
    EXPECT_EQ(NewestVersion("a.prt"), 0);
    Put("a.prt.7", kPart);
    EXPECT_EQ(NewestVersion("a.prt"), 7);
    fs::remove_all(Folder());
    fs::rename(before, Folder());
    EXPECT_EQ(NewestVersion("a.prt"), 1);
}

TEST_F(SavedModels, ComeInTheVersionThatTheUserNames) {
    Put("a.prt.1", kPart + std::string("title = \"first\"\n"));
    Put("a.prt.2", kPart);
    Play("@ open A.prt.1");
    Model* part = host().session.CurrentModel();
    EXPECT_EQ(part->title, "first");
    EXPECT_EQ(part->version, 1);
    Play("@ open a.prt.1");
    EXPECT_EQ(Failure("@ open a.prt.2"), "a.prt is in memory already, and is its version 1");
    Play("@ save");
    EXPECT_EQ(part->version, 3) << "the next save is newer than all";
    EXPECT_EQ(Failure("@ open b.prt.1"), "there is no b.prt.1 in C:\\Work");
}

TEST_F(SavedModels, ThatCannotBeReadAreNamedWithTheOneBefore) {
    Put("a.prt.1", kPart);
    Put("a.prt.3", "[model]\ntype = \"pa");
    EXPECT_NE(Failure("@ open a.prt")
                  .find("; the file before it is a.prt.1, and \"open a.prt.1\" opens it"),
              std::string::npos);
    EXPECT_EQ(Failure("@ open a.prt").substr(0, 10), "a.prt.3:2:");
    EXPECT_EQ(host().session.All().size(), 0u);
    Play("@ open a.prt.1");
}

TEST_F(SavedModels, AreNotReplacedByOlderOnesWhereAFolderHasTheNameOfTheNewest) {
    Put("a.prt.1", kPart);
    fs::create_directory(Folder() / "a.prt.2");
    EXPECT_EQ(Failure("@ open a.prt"),
              "a.prt.2: it is a folder; the file before it is a.prt.1, and \"open a.prt.1\" opens "
              "it");
    Play("@ open a.prt.1\n@ save");
    EXPECT_EQ(NewestVersion("a.prt"), 3);
}

TEST_F(SavedModels, BelowOneThatCannotBeReadDoNotStayInMemory) {
    Put("bad.prt.1", "nothing");
    Put("good.prt.1", kPart);
    const auto component = [](int id, const char* file) {
        return fmt::format("[[feature]]\nid = {}\ntype = 1000\nmodel = \"{}\"\n", id, file);
    };
    Put("top.asm.1",
        "[model]\ntype = \"assembly\"\n" + component(1, "good.prt") + component(2, "bad.prt"));
    Feature use;
    use.type = PRO_FEAT_COMPONENT;
    use.file = "top.asm";
    Assembly("waits").AddFeature(use);
    EXPECT_THROW(host().session.Retrieve("waits.asm"), ModelFileError);
    EXPECT_EQ(host().session.All().size(), 1u);
    EXPECT_EQ(host().session.FindByFile("waits.asm")->features()[0].model, nullptr);
    Put("bad.prt.2", kPart);
    ASSERT_NE(host().session.Retrieve("waits.asm"), nullptr);
    EXPECT_EQ(host().session.All().size(), 4u);
}

TEST_F(SavedModels, ThatCannotBeReadAreAStatusToThePlugInAndALineToTheUser) {
    Put("bad.prt.1", "nothing");
    WideChar name[] = WIDE("bad");
    ProMdl model = nullptr;
    EXPECT_EQ(ProMdlRetrieve(name, PRO_MDL_PART, &model), PRO_TK_INVALID_FILE);
    int window = 0;
    ProName shown = WIDE("bad");
    EXPECT_EQ(ProObjectwindowCreate(shown, PRO_PART, &window), PRO_TK_INVALID_FILE);
    ASSERT_EQ(host().shown.size(), 2u);
    EXPECT_EQ(Utf8(host().shown[0].text).substr(0, 12), "bad.prt.1:1:");
    EXPECT_EQ(host().shown[0].kind, Shown::Kind::Message);
    EXPECT_EQ(Complaints(), Strings{});
}

TEST_F(SavedModels, EndAtTheLastNumberThatThereIs) {
    Put("a.prt.2147483647", kPart);
    Play("@ open a.prt");
    EXPECT_EQ(Failure("@ save"),
              "a.prt is not saved in C:\\Work: no version can come after a.prt.2147483647, which "
              "is there");
    EXPECT_EQ(Names(), Strings{"a.prt.2147483647"});
}

TEST_F(SavedModels, AreAllTriedAndThoseLeftAreListed) {
    Put("a.prt.2147483647", kPart);
    Part("b");
    host().session.Retrieve("a.prt")->modified = true;
    Part("c");
    EXPECT_EQ(Failure("@ save all"), "not saved: a.prt (1 in all)");
    EXPECT_EQ(Names(), (Strings{"a.prt.2147483647", "b.prt.1", "c.prt.1"}));
}

// Tells of long work go into a list while it lives.
class SavedModelsInSteps : public SavedModels {
protected:
    void SetUp() override {
        SavedModels::SetUp();
        TheProgress().tell = [this](const char* work, std::size_t done, std::size_t all) {
            told_.push_back(fmt::format("{} {} of {}", work, done, all));
            if (told_.size() == stopAfter_) TheProgress().stop = true;
        };
        Put("a.prt.1", kPart);
        Put("b.prt.1", kPart);
        Put("top.asm.1",
            "[model]\ntype = \"assembly\"\n[[feature]]\nid = 1\ntype = 1000\nmodel = \"a.prt\"\n"
            "[[feature]]\nid = 2\ntype = 1000\nmodel = \"b.prt\"\n");
    }
    void TearDown() override {
        TheProgress().tell = {};
        TheProgress().stop = false;
        SavedModels::TearDown();
    }
    Strings told_;
    std::size_t stopAfter_ = 0;
};

TEST_F(SavedModelsInSteps, AreOpenedWithAWordAfterEach) {
    Play("@ open top.asm");
    EXPECT_EQ(told_, (Strings{"opening 1 of 3", "opening 2 of 3", "opening 3 of 3"}));
}

TEST_F(SavedModelsInSteps, AreNotInMemoryWhenTheUserStopsTheirOpening) {
    stopAfter_ = 1;
    EXPECT_EQ(Failure("@ open top.asm"), "interrupted");
    EXPECT_EQ(told_, Strings{"opening 1 of 3"});
    EXPECT_EQ(host().session.All().size(), 0u);
    Play("@ open top.asm");
    EXPECT_EQ(host().session.All().size(), 3u);
}

TEST_F(SavedModels, AreRefusedWhereTheFolderIsNone) {
    Part("a");
    fs::remove_all(Folder());
    std::ofstream(Folder()) << "a file";
    EXPECT_EQ(Failure("@ save a.prt"), "a.prt is not saved in C:\\Work: there is no such folder");
    EXPECT_TRUE(host().session.All()[0]->version == 0);
}

}  // namespace
