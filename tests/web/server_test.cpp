// Who may ask the workbench what, tried from outside.
#include <atomic>
#include <chrono>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "simhost/web/server.h"
#include "tests/web/web_ground.h"

namespace {

namespace fs = std::filesystem;
using web_tests::Json;

class WebServer : public web_tests::WebBench {};

TEST_F(WebServer, GivesStaticFilesToAnybodyAndNothingElse) {
    Start();
    auto client = Client();
    for (const char* address : {"/page/index.html", "/page/app.js", "/three/build/three.module.js",
                                "/icons/AboutVx.png"}) {
        EXPECT_EQ(client.Get(address)->status, 200) << address;
    }
    for (const char* address :
         {"/state", "/tree", "/events", "/files", "/file?path=x", "/model", "/recording", "/faults",
          "/journal", "/sheet", "/dialog", "/rows", "/nothing"}) {
        EXPECT_EQ(client.Get(address)->status, 401) << address;
    }
    for (const char* address : {"/step?v=1", "/stop", "/restart?v=1"}) {
        EXPECT_EQ(client.Post(address, "@ open gearbox.asm", "text/plain")->status, 401) << address;
    }
    EXPECT_EQ(Get("/state")["current"], nullptr) << "nothing was done";
}

TEST_F(WebServer, TakesNoTokenButItsOwn) {
    Start();
    auto client = Client();
    const std::string name = "vx_" + std::to_string(port_);
    std::string other = Token().begin()->second.substr(name.size() + 1);
    other[0] = other[0] == '0' ? '1' : '0';
    for (const std::string& cookie :
         {name + "=" + other, name + "=", std::string("vx_1=") + other, other}) {
        EXPECT_EQ(client.Get("/state", {{"Cookie", cookie}})->status, 401) << cookie;
    }
    EXPECT_EQ(
        client.Get("/state", {{"Cookie", "a=b; " + Token().begin()->second + "; c=d"}})->status,
        200);
}

TEST_F(WebServer, MakesACookieOfTheFirstAddressAndLeadsToOneWithoutTheToken) {
    Start();
    auto client = Client();
    const std::string cookie = Token().begin()->second;
    const std::string token = cookie.substr(cookie.find('=') + 1);
    EXPECT_EQ(token.size(), 32u);
    const auto answer = client.Get("/?t=" + token);
    EXPECT_EQ(answer->status, 303);
    EXPECT_EQ(answer->get_header_value("Location"), "/");
    EXPECT_EQ(answer->get_header_value("Set-Cookie"),
              cookie + "; Path=/; HttpOnly; SameSite=Strict");
    const auto wrong = client.Get("/?t=0123");
    EXPECT_EQ(wrong->status, 303);
    EXPECT_FALSE(wrong->has_header("Set-Cookie"));
}

TEST_F(WebServer, AnswersUnderItsOwnNameOnly) {
    Start();
    auto client = Client();
    const auto asks = [&](const std::string& host, const std::string& origin) {
        httplib::Headers headers = Token();
        headers.emplace("Host", host);
        if (!origin.empty()) headers.emplace("Origin", origin);
        return client.Get("/state", headers)->status;
    };
    const std::string port = std::to_string(port_);
    EXPECT_EQ(asks("127.0.0.1:" + port, ""), 200);
    EXPECT_EQ(asks("localhost:" + port, "http://localhost:" + port), 200);
    EXPECT_EQ(asks("evil.example:" + port, ""), 403) << "a name that was led here";
    EXPECT_EQ(asks("127.0.0.1", ""), 403);
    EXPECT_EQ(asks("127.0.0.1:" + port, "http://evil.example"), 403);
    EXPECT_EQ(asks("127.0.0.1:" + port, "null"), 403);
    EXPECT_EQ(asks("127.0.0.1:" + port, "https://127.0.0.1:" + port), 403);
    EXPECT_EQ(asks("127.0.0.1:" + port, "http://127.0.0.1:1"), 403) << "another server here";
}

TEST_F(WebServer, TellsTheBrowserToTrustNothingElse) {
    Start();
    for (const char* address : {"/page/index.html", "/state"}) {
        const auto answer = Client().Get(address, Token());
        const std::string policy = answer->get_header_value("Content-Security-Policy");
        EXPECT_NE(policy.find("default-src 'self'"), std::string::npos) << address;
        EXPECT_EQ(policy.find("unsafe"), std::string::npos) << address;
        EXPECT_EQ(answer->get_header_value("X-Content-Type-Options"), "nosniff") << address;
        EXPECT_EQ(answer->get_header_value("Cache-Control"), "no-store") << address;
    }
}

TEST_F(WebServer, WastesNoTimeOnPackingScripts) {
    Start();
    const auto answer =
        Client().Get("/three/build/three.module.js", {{"Accept-Encoding", "gzip, deflate, br"}});
    ASSERT_EQ(answer->status, 200);
    EXPECT_FALSE(answer->has_header("Content-Encoding"));
    EXPECT_EQ(answer->get_header_value("Content-Type").find("application/javascript"), 0u)
        << "a browser runs no module of another type";
}

TEST_F(WebServer, TakesOneLineOfText) {
    Start();
    for (const std::string& body :
         {std::string(), std::string("@ note a\n@ note b"), std::string("@ note a\r"),
          std::string("a\0b", 3), std::string("@ note \xff")}) {
        EXPECT_EQ(StepAs(body, Settle()), 400) << body;
    }
    EXPECT_EQ(StepAs(std::string(simhost::Server::kLongestLine + 1, 'a'), Settle()), 413);
    EXPECT_EQ(Transcript().find("@ note"), std::string::npos) << "none was done";
    EXPECT_EQ(Step("@ note 中文"), 202);
    EXPECT_NE(Transcript().find("中文"), std::string::npos);
}

TEST_F(WebServer, RefusesAnAnswerForABoxThatHasGone) {
    Start();
    Play("@ open gearbox.asm\n~ Command `AboutVx`");
    const auto seen = Settle();
    ASSERT_EQ(Get("/state")["wait"]["kind"], "dialog");
    EXPECT_EQ(StatusOf("/state?v=" + std::to_string(seen)), 200);
    Play("~ Close `AboutVx`");
    EXPECT_EQ(StepAs("@ ok", seen), 409);
    EXPECT_EQ(StepAs("@ ok", 0), 409) << "without a version it is nobody's answer";
    EXPECT_EQ(StatusOf("/state?v=" + std::to_string(seen)), 409);
    EXPECT_EQ(StatusOf("/state?v=-1"), 409);
}

TEST_F(WebServer, LetsNoStopThatCameTooLateEndTheNextWork) {
    Start();
    EXPECT_EQ(Client().Post("/stop", Token(), "", "text/plain")->status, 202);
    Step("@ open gearbox.asm");
    EXPECT_EQ(Get("/state")["current"]["file"], "gearbox.asm") << Transcript();
}

TEST_F(WebServer, HandsOutFilesOfTheDriveOnly) {
    Start();
    const std::string drive = Get("/files")["drive"];
    EXPECT_EQ(StatusOf("/file?path=Work/gearbox.asm.1"), 200);
    std::ofstream(fs::path(drive) / ".." / "beside.txt") << "secret";
    fs::create_symlink("/etc/passwd", fs::path(drive) / "Work" / "link.txt");
    for (const char* path : {"../beside.txt", "Work/../../beside.txt", "/etc/passwd", "", "Work",
                             "Work/link.txt", "nothing.txt", "Work/%00"}) {
        EXPECT_EQ(StatusOf(std::string("/file?path=") + path), 404) << path;
    }
    for (const char* address :
         {"/page/../server.cpp", "/page/%2e%2e/server.cpp", "/icons/../../CMakeLists.txt"}) {
        EXPECT_NE(StatusOf(address), 200) << address;
    }
    fs::remove(fs::path(drive) / ".." / "beside.txt");
}

TEST_F(WebServer, NamesAFileForTheBrowserInAnyScript) {
    Start();
    Play("@ open 箱体组件.asm\n@ save");
    std::string path;
    const Json files = Get("/files");
    for (const Json& file : files["files"]) path = file["path"];
    ASSERT_NE(path.find("箱体组件.asm"), std::string::npos);
    const auto answer =
        Client().Get("/file?path=" + httplib::detail::encode_query_param(path), Token());
    ASSERT_EQ(answer->status, 200);
    // The client takes headers apart already: what comes over the wire is %E7%AE%B1 and so on.
    EXPECT_EQ(answer->get_header_value("Content-Disposition"),
              "attachment; filename*=UTF-8''箱体组件.asm.2");
}

TEST_F(WebServer, WritesNothingOutsideTheDrive) {
    Start();
    const fs::path outside = fs::temp_directory_path() / ("web-outside-" + std::to_string(port_));
    fs::remove(outside);
    Play("@ open gearbox.asm\n@ picture " + outside.string() + "\n@ picture screen " +
         outside.string() + "\n@ hand out gearbox.asm\n@ script x.py");
    EXPECT_FALSE(fs::exists(outside));
    std::size_t refused = 0;
    const std::string transcript = Transcript();
    for (std::size_t at = 0; (at = transcript.find("!!", at)) != std::string::npos; ++at) ++refused;
    EXPECT_EQ(refused, 4u) << transcript;
}

TEST_F(WebServer, BoundsTheStreamsOfEvents) {
    Start();
    std::vector<std::thread> readers;
    std::atomic<int> open = 0;
    std::atomic<bool> enough = false;
    for (int i = 0; i < simhost::Server::kMostStreams; ++i) {
        readers.emplace_back([&] {
            bool first = true;
            Client().Get("/events", Token(), [&](const char*, std::size_t) {
                if (std::exchange(first, false)) ++open;
                return !enough;
            });
        });
    }
    while (open < simhost::Server::kMostStreams) std::this_thread::yield();
    EXPECT_EQ(StatusOf("/events"), 429);
    EXPECT_EQ(StatusOf("/state"), 200) << "the others are answered all the same";
    enough = true;
    Step("@ note wake up");
    for (std::thread& reader : readers) reader.join();
    // A stream that was left is noticed though there are no more news.
    int status = 429;
    for (int tries = 0; status == 429 && tries < 1000; ++tries) {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        Client().Get(
            "/events", Token(),
            [&](const httplib::Response& response) {
                status = response.status;
                return false;
            },
            [](const char*, std::size_t) { return false; });
    }
    EXPECT_EQ(status, 200);
}

TEST_F(WebServer, ShowsTwoPagesTheSameSession) {
    Start();
    std::string heard[2];
    std::vector<std::thread> pages;
    for (std::string& all : heard) {
        pages.emplace_back([&] {
            Client().Get("/events?from=0", Token(), [&](const char* data, std::size_t size) {
                all.append(data, size);
                return all.find("both hear this") == std::string::npos;
            });
        });
    }
    Step("@ note both hear this");
    for (std::thread& page : pages) page.join();
    EXPECT_NE(heard[0].find("\"lines\":["), std::string::npos);
    EXPECT_NE(heard[0].find("both hear this"), std::string::npos);
    EXPECT_NE(heard[1].find("both hear this"), std::string::npos);
}

TEST_F(WebServer, RefusesAPortThatIsTaken) {
    Start();
    simhost::ServerOptions options = options_.server;
    options.port = port_;
    simhost::Board other;
    EXPECT_THROW(simhost::Server(other, options), std::runtime_error);
    options.port = 0;
    options.page = "/no/such/folder";
    EXPECT_THROW(simhost::Server(other, options), std::runtime_error);
}

TEST_F(WebServer, TellsAtItsEndWhatIsUnsavedAndWhereItLies) {
    Start();
    Play("@ open gearbox.asm\n@ parameter gearbox.asm PLACE \"here\"\n@ open housing.prt\n@ save");
    std::string said;
    for (const std::string& line : End()) said += line + "\n";
    EXPECT_NE(said.find("changed and not saved: gearbox.asm"), std::string::npos) << said;
    EXPECT_NE(said.find("gone with the temporary drive: Work/housing.prt.2"), std::string::npos)
        << said;
}

}  // namespace
