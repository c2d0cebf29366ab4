// What is sent through the page's address is the same session as a script, and what was recorded
// does it again.
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "simhost/core/disk.h"
#include "simhost/host.h"
#include "simhost/trail/interpreter.h"
#include "tests/support/places.h"
#include "tests/web/web_ground.h"

namespace {

namespace fs = std::filesystem;
using namespace simhost;
using web_tests::Json;

// The files that were written, with the hashes of their bytes: whole files are nothing to print.
using Written = std::map<std::string, std::size_t>;

std::size_t HashOf(const std::string& bytes) {
    return std::hash<std::string>()(bytes);
}

// The same lines as `simhost run` does them, at a workplace of its own.
Written FilesOfScript(const WorkplaceOptions& options, const std::string& lines) {
    Workplace workplace(options);
    workplace.StartPlugin();
    TextSource source(lines);
    Trail trail(source, [](const std::string&) {});
    trail.Run();
    Written written;
    for (const fs::path& file : workplace.WrittenFiles()) {
        written[fs::relative(file, workplace.drive()).string()] = HashOf(ReadFile(file));
    }
    workplace.StopPlugin();
    return written;
}

class WebReplay : public web_tests::WebBench {
protected:
    Written FilesOnTheDrive() {
        Written written;
        const Json files = Get("/files");
        for (const Json& file : files["files"]) {
            const std::string path = file["path"];
            const auto answer =
                Client().Get("/file?path=" + httplib::detail::encode_query_param(path), Token());
            EXPECT_EQ(answer->status, 200) << path;
            written[path] = HashOf(answer->body);
        }
        return written;
    }
    std::string Recording() { return Client().Get("/recording", Token())->body; }
};

class WebTrail : public WebReplay, public ::testing::WithParamInterface<const char*> {};

// Saves what was changed, so that there is something to compare. The demonstration is left out: it
// lets another program fill in a spreadsheet, which no page may start.
TEST_P(WebTrail, WritesTheSameFilesAsTheScript) {
    std::ifstream file(fs::path(workbench::kSourceFolder) / "samples" / "trails" /
                       (std::string(GetParam()) + ".trail"));
    std::stringstream lines;
    lines << file.rdbuf() << "\n@ save all\n";
    ASSERT_GT(lines.str().size(), 100u);
    Start();
    Play(lines.str());
    const Written clicked = FilesOnTheDrive();
    const std::string recording = Recording();
    End();
    const Written scripted = FilesOfScript(options_.workplace, lines.str());
    EXPECT_FALSE(scripted.empty());
    EXPECT_EQ(clicked, scripted);
    EXPECT_EQ(FilesOfScript(options_.workplace, recording), scripted) << recording;
}

INSTANTIATE_TEST_SUITE_P(Samples, WebTrail, ::testing::Values("colour", "model_data", "bom"),
                         [](const auto& one) { return std::string(one.param); });

TEST_F(WebReplay, RecordsWhatWasTypedPlainlyAsAScriptTakesIt) {
    Start();
    Play("open gearbox.asm\nAboutVx\n@ ok\nnote 中文\nenter\n~ Command `AboutVx`");
    EXPECT_EQ(Recording(),
              "@ open gearbox.asm\n~ Command `AboutVx`\n@ ok\n@ note 中文\n@ enter\n"
              "~ Command `AboutVx`\n");
}

TEST_F(WebReplay, KeepsOfSeveralTurnsInARowTheLastOne) {
    Start();
    Play(
        "@ open gearbox.asm\n@ turn 0 0 0\n@ turn 10 0 0\n@ turn wrongly\n@ turn 20 0 0\n"
        "@ turn 30 0 0 scale 0.5 at 500 400\n@ note between\n@ turn 40 0 0");
    const std::string recording = Recording();
    EXPECT_EQ(recording.find("@ open gearbox.asm\n@ turn 10 0 0\n! @ turn wrongly   ("), 0u)
        << recording;
    const std::string end = "\n@ turn 30 0 0 scale 0.5 at 500 400\n@ note between\n@ turn 40 0 0\n";
    EXPECT_TRUE(recording.ends_with(end)) << recording;
    EXPECT_EQ(recording.find("@ turn 20"), std::string::npos) << "the next one says it anew";
}

TEST_F(WebReplay, KeepsASlipAsACommentThatSaysWhy) {
    Start();
    Play("@ open nothing.asm\n@ note after");
    const std::string recording = Recording();
    EXPECT_EQ(recording.find("! @ open nothing.asm   ("), 0u) << recording;
    EXPECT_NE(recording.find("\n@ note after\n"), std::string::npos) << recording;
}

TEST_F(WebReplay, DoesWhatWasRecordedOnANewCopyAndComparesTheFiles) {
    Start();
    Play("@ open gearbox.asm\n@ parameter gearbox.asm PLACE \"here\"\n@ save");
    const Written before = FilesOnTheDrive();
    ASSERT_TRUE(before.contains("Work/gearbox.asm.2"));
    const auto version = Settle();
    EXPECT_EQ(Client()
                  .Post("/restart?replay=1&v=" + std::to_string(version), Token(), "", "text/plain")
                  ->status,
              202);
    while (Transcript().find("replayed: the same 1 files as before") == std::string::npos &&
           Transcript().find("replayed; not") == std::string::npos) {
        Settle();
    }
    EXPECT_EQ(FilesOnTheDrive(), before) << Transcript();
    EXPECT_EQ(Recording(), "@ open gearbox.asm\n@ parameter gearbox.asm PLACE \"here\"\n@ save\n");
}

TEST_F(WebReplay, BeginsAnewWithTheProjectAsItWas) {
    Start();
    Play("@ open gearbox.asm\n@ save");
    const auto version = Settle();
    EXPECT_EQ(
        Client().Post("/restart?v=" + std::to_string(version), Token(), "", "text/plain")->status,
        202);
    while (Settle() == version) std::this_thread::yield();
    EXPECT_EQ(Get("/state")["current"], nullptr);
    EXPECT_EQ(Get("/files")["files"].size(), 0u);
}

TEST_F(WebReplay, LeavesOpenDialogsWhenItBeginsAnew) {
    Start();
    Play("@ open gearbox.asm\n~ Command `VxConfig`");
    const auto version = Settle();
    ASSERT_EQ(Get("/state")["wait"]["kind"], "dialog");
    EXPECT_EQ(
        Client().Post("/restart?v=" + std::to_string(version), Token(), "", "text/plain")->status,
        202);
    while (Settle() == version) std::this_thread::yield();
    EXPECT_EQ(Get("/state")["wait"], nullptr);
}

TEST_F(WebReplay, BeginsNothingAnewOnADriveThatStays) {
    const fs::path drive = fs::temp_directory_path() / "web-kept-drive";
    fs::remove_all(drive);
    Start((fs::path(workbench::kSourceFolder) / "samples" / "gearbox").string(), drive);
    const auto version = Settle();
    EXPECT_EQ(
        Client().Post("/restart?v=" + std::to_string(version), Token(), "", "text/plain")->status,
        403);
    EXPECT_FALSE(Get("/files")["temporary"]);
    End();
    fs::remove_all(drive);
}

// The colours are drawn by the time.
TEST_F(WebReplay, TellsThePluginTheTimeThatItWasToldBefore) {
    Start();
    Play("@ open gearbox.asm\n~ Command `BatchColor`\n@ save all");
    const Written before = FilesOnTheDrive();
    EXPECT_GT(before.size(), 40u);
    std::smatch clock;
    const std::string recording = Recording();
    ASSERT_TRUE(std::regex_match(
        recording, clock,
        std::regex("@ open gearbox.asm\n@ clock (\\d+)\n~ Command `BatchColor`\n@ save all\n")))
        << recording;
    // A later second gives other colours, unless the clock says the same.
    while (std::to_string(std::time(nullptr)) == clock[1].str()) std::this_thread::yield();
    const auto version = Settle();
    Client().Post("/restart?replay=1&v=" + std::to_string(version), Token(), "", "text/plain");
    while (Transcript().find("replayed") == std::string::npos) Settle();
    EXPECT_EQ(FilesOnTheDrive(), before);
    End();
    EXPECT_EQ(FilesOfScript(options_.workplace, recording), before);
}

// A step costs the same whether few or many went before, and nothing is kept but the recording.
TEST_F(WebReplay, TakesTenThousandSteps) {
    Start();
    for (int i = 0; i < 10000; ++i) {
        const auto version = Settle();
        ASSERT_EQ(board_.Offer("@ note " + std::to_string(i), version), Board::Outcome::Done);
        while (Settle() == version) std::this_thread::yield();
    }
    EXPECT_NE(Transcript().find("9999"), std::string::npos);
}

}  // namespace
