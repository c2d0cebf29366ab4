// Runs the workbench on a thread of its own, which so is the host's.
#include "tests/web/web_ground.h"

#include <chrono>
#include <optional>
#include <sstream>
#include <stdexcept>

#include "simhost/host.h"
#include "tests/support/models.h"
#include "tests/support/places.h"

namespace web_tests {

namespace fs = std::filesystem;
using namespace simhost;

namespace {

constexpr auto kPatience = std::chrono::minutes(4);

}  // namespace

ProdbSurfaceProps Painted(double red, double green, double blue, double transparency) {
    ProdbSurfaceProps props = DefaultAppearance();
    props.colour[0] = red;
    props.colour[1] = green;
    props.colour[2] = blue;
    props.transparency = transparency;
    return props;
}

WebBench::~WebBench() {
    if (thread_.joinable()) End();
}

void WebBench::Start() {
    Start((fs::path(workbench::kSourceFolder) / "samples" / "gearbox").string());
}

void WebBench::Start(const std::string& project, const fs::path& drive) {
    const fs::path source = workbench::kSourceFolder;
    options_.workplace.installed = source;
    options_.workplace.module = workbench::kModuleBuilt;
    options_.workplace.project = project;
    options_.workplace.drive = drive;
    options_.server.page = source / "simhost" / "web" / "page";
    options_.server.three = "/usr/share/javascript/three";
    options_.server.icons = source / "text" / "resource";
    thread_ = std::thread([this] {
        RunWorkbench(options_, board_, [this](const std::string& line) {
            const std::lock_guard lock(mutex_);
            said_.push_back(line);
        });
    });
    Settle();
    const std::lock_guard lock(mutex_);
    ASSERT_FALSE(said_.empty());
    const std::string& address = said_.front();
    const std::size_t colon = address.rfind(':'), mark = address.find("/?t=");
    ASSERT_NE(mark, std::string::npos) << address;
    port_ = std::stoi(address.substr(colon + 1, mark - colon - 1));
    token_ = address.substr(mark + 4);
}

std::vector<std::string> WebBench::End() {
    board_.End();
    thread_.join();
    return said_;
}

std::uint64_t WebBench::Settle() {
    const auto until = Board::Clock::now() + kPatience;
    std::uint64_t change = 0;
    while (Board::Clock::now() < until) {
        const Board::News news = board_.WaitForNews(change, SIZE_MAX, std::chrono::seconds(1));
        if (!news.busy && news.version > 0) return news.version;
        change = news.change;
    }
    throw std::runtime_error("the session does not come to wait");
}

httplib::Client WebBench::Client() const {
    httplib::Client client("127.0.0.1", port_);
    client.set_read_timeout(60);
    return client;
}

httplib::Headers WebBench::Token() const {
    return {{"Cookie", "vx_" + std::to_string(port_) + "=" + token_}};
}

int WebBench::StepAs(const std::string& line, std::uint64_t version) {
    auto client = Client();
    const auto answer =
        client.Post("/step?v=" + std::to_string(version), Token(), line, "text/plain");
    return answer ? answer->status : 0;
}

int WebBench::Step(const std::string& line) {
    const std::uint64_t version = Settle();
    const int status = StepAs(line, version);
    if (status != 202) return status;
    // The line may be taken only after this thread has come to look.
    while (Settle() == version) std::this_thread::yield();
    return status;
}

void WebBench::Play(const std::string& lines) {
    std::istringstream all(lines);
    for (std::string line; std::getline(all, line);) {
        if (line.empty() || line[0] == '!') continue;
        EXPECT_EQ(Step(line), 202) << line;
    }
}

void WebBench::Do(const std::function<void()>& act) {
    Settle();
    ASSERT_EQ(board_.Ask(act, std::nullopt), Board::Outcome::Done);
}

void WebBench::OpenModels(const std::string& models) {
    Start();
    Do([&] { TheHost().session.Open(workbench::MakeModels(models)); });
}

Json WebBench::Get(const std::string& address) {
    Settle();
    auto client = Client();
    const auto answer = client.Get(address, Token());
    if (!answer) {
        ADD_FAILURE() << address << " has no answer";
        return {};
    }
    EXPECT_EQ(answer->status, 200) << address << ": " << answer->body;
    return Json::parse(answer->body);
}

int WebBench::StatusOf(const std::string& address) {
    auto client = Client();
    const auto answer = client.Get(address, Token());
    return answer ? answer->status : 0;
}

std::string WebBench::Transcript() {
    std::string all;
    for (std::size_t from = 0;;) {
        const Board::News news = board_.WaitForNews(0, from, std::chrono::seconds(0));
        for (const std::string& line : news.lines) all += line + "\n";
        if (news.lines.empty() || news.nextLine == from) return all;
        from = news.nextLine;
    }
}

}  // namespace web_tests
