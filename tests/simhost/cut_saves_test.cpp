// Saves that are cut off, by a full disk or by the end of the process, and folders with things in
// them that cannot be copied: nothing that was whole before is lost.
#include "tests/support/workbench.h"

#ifndef _WIN32

#include <fmt/format.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <unistd.h>

#include "hostapi/windows.h"
#include "simhost/core/disk.h"
#include "simhost/model/model_file.h"
#include "simhost/trail/interpreter.h"

using namespace simhost;
namespace fs = std::filesystem;

namespace {

// While it lives, no file can become longer than so many bytes: what a full disk does to a writer.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) : signal_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before_);
        rlimit limit = before_;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, signal_);
    }

private:
    rlimit before_{};
    void (*signal_)(int);
};

std::vector<std::string> NamesIn(const fs::path& folder) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder)) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string Bytes(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

class CutSaves : public workbench::Workbench {
protected:
    fs::path Folder() { return host().disk.Real(host().session.workingDirectory); }
    Model& LongPart(int lines) {
        Model& part = Part("long");
        part.relations.initial.emplace();
        for (int i = 0; i < lines; ++i) part.relations.initial->push_back(WIDE("X = 1234567890"));
        return part;
    }
};

using Strings = std::vector<std::string>;

TEST_F(CutSaves, ByAFullDiskLeaveTheVersionBeforeTheNewest) {
    Model& part = LongPart(1);
    host().session.Save(part);
    part.relations.initial->resize(1000, WIDE("Y = 1"));
    std::string told;
    {
        const FullDisk full(4096);
        const auto failures = RunScript("@ save long.prt");
        told = failures.empty() ? "" : failures[0];
    }
    EXPECT_EQ(told, "line 1: long.prt is not saved in C:\\Work: long.prt.2: File too large");
    EXPECT_EQ(NamesIn(Folder()), Strings{"long.prt.1"});
    EXPECT_EQ(part.version, 1);
    host().session.Save(part);
    EXPECT_EQ(NamesIn(Folder()), (Strings{"long.prt.1", "long.prt.2"}));
}

TEST_F(CutSaves, OfSettingsOnAFullDiskLeaveThemWhole) {
    const WideText path = WIDE("C:\\Work\\s.ini");
    std::string before;
    for (int i = 0; i < 500; ++i) before += fmt::format("[section {}]\r\nkey=value\r\n", i);
    Write(path, before);
    {
        const FullDisk full(4096);
        EXPECT_FALSE(WritePrivateProfileStringW(WIDE("section 7"), WIDE("key"), WIDE("other"),
                                                path.c_str()));
    }
    EXPECT_TRUE(Read(path) == before);
    EXPECT_EQ(NamesIn(Folder()), Strings{"s.ini"});
    EXPECT_TRUE(
        WritePrivateProfileStringW(WIDE("section 7"), WIDE("key"), WIDE("other"), path.c_str()));
}

// A process that writes past its limit is killed in the middle of the write.
TEST_F(CutSaves, ByTheEndOfTheProcessLeaveNoHalfFile) {
    Model& part = LongPart(1);
    ASSERT_TRUE(WriteFile(Folder() / "long.prt.1", ModelText(part)));
    part.relations.initial->resize(1000, WIDE("Y = 1"));
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        const rlimit noCore{0, 0};
        setrlimit(RLIMIT_CORE, &noCore);
        const FullDisk full(4096);
        std::signal(SIGXFSZ, SIG_DFL);
        host().session.Save(part);
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), SIGXFSZ);
    host().session.Erase(part);
    const Model* read = host().session.Retrieve("long.prt");
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->version, 1);
}

TEST(WholeFiles, KeepTheirRightsAndTheLinksThatLeadToThem) {
    const fs::path folder = fs::temp_directory_path() / ("whole_files_" + std::to_string(getpid()));
    fs::create_directories(folder);
    ASSERT_TRUE(WriteFile(folder / "a", "1"));
    fs::permissions(folder / "a", fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink("a", folder / "link");
    EXPECT_TRUE(WriteFile(folder / "link", "2"));
    EXPECT_EQ(Bytes(folder / "a"), "2");
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(fs::status(folder / "a").permissions(),
              fs::perms::owner_read | fs::perms::owner_write);
    std::string reason;
    EXPECT_FALSE(WriteFile(folder, "3", &reason));
    EXPECT_EQ(reason, "Is a directory");
    EXPECT_TRUE(WriteFile("/dev/null", "4"));
    EXPECT_FALSE(fs::is_regular_file("/dev/null"));
    EXPECT_EQ(NamesIn(folder), (Strings{"a", "link"}));
    fs::remove_all(folder);
}

TEST(ProjectFolder, IsCopiedButForWhatCannotBe) {
    const fs::path folder =
        fs::temp_directory_path() / ("project_folder_" + std::to_string(getpid()));
    const fs::path project = folder / "project";
    fs::create_directories(project / "sub");
    std::ofstream(project / "a.prt.1") << "a";
    std::ofstream(project / "sub" / "b.prt.1") << "b";
    fs::create_symlink("nowhere", project / "link.prt.1");
    fs::create_symlink("a.prt.1", project / "good_link.prt.1");
    fs::create_directory_symlink("..", project / "sub" / "around");
    ASSERT_EQ(mkfifo((project / "pipe.prt.1").c_str(), 0600), 0);
    Strings told;
    WorkplaceOptions options;
    options.drive = folder / "drive";
    options.project = project;
    options.tell = [&](const std::string& line) { told.push_back(line); };
    { const Workplace workplace(options); }
    std::sort(told.begin(), told.end());
    const std::string begin = "not copied: " + project.string();
    EXPECT_EQ(told, (Strings{begin + "/link.prt.1: it is a link that leads nowhere",
                             begin + "/pipe.prt.1: it is no file",
                             begin + "/sub/around: it leads back to a folder around it"}));
    const fs::path work = folder / "drive" / "Work";
    EXPECT_EQ(NamesIn(work), (Strings{"a.prt.1", "good_link.prt.1", "sub"}));
    EXPECT_EQ(NamesIn(work / "sub"), Strings{"b.prt.1"});
    fs::remove_all(folder);
}

}  // namespace

#endif
