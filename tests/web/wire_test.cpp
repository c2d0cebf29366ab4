// What the server says over the wire, byte by byte where that matters, with a board in place of a
// whole session.
#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <nlohmann/json.hpp>
#include <sys/socket.h>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <httplib.h>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

#include "simhost/user/progress.h"
#include "simhost/web/server.h"
#include "tests/support/places.h"
#include "tests/web/web_ground.h"

namespace {

namespace fs = std::filesystem;
using simhost::Board;
using simhost::Server;
using simhost::ServerOptions;
using web_tests::Json;

ServerOptions ThePages() {
    const fs::path source = workbench::kSourceFolder;
    return {source / "simhost" / "web" / "page", "/usr/share/javascript/three",
            source / "text" / "resource", 0};
}

// All that comes back for these bytes until the server closes the connection.
std::string Exchange(int port, const std::string& request) {
    const int wire = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_port = htons(std::uint16_t(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    std::string answer;
    if (connect(wire, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
        send(wire, request.data(), request.size(), 0) == ssize_t(request.size())) {
        char part[4096];
        for (ssize_t size = 0; (size = recv(wire, part, sizeof part, 0)) > 0;) {
            answer.append(part, std::size_t(size));
        }
    }
    close(wire);
    return answer;
}

// A server whose board is handled by the test.
class WebWire : public ::testing::Test {
protected:
    ~WebWire() override { EndSession(); }

    // A session that only waits, and takes lines.
    void WaitForLines() {
        session_ = std::thread([this] {
            while (auto line = board_.NextLine("vx")) lines_.push_back(*line);
        });
        while (board_.WaitForNews(0, 0, std::chrono::seconds(0)).busy) std::this_thread::yield();
    }
    void EndSession() {
        board_.End();
        if (session_.joinable()) session_.join();
    }

    std::string Cookie() const {
        return "vx_" + std::to_string(server_.port()) + "=" + server_.token();
    }
    httplib::Result Get(const std::string& address) {
        return Client().Get(address, {{"Cookie", Cookie()}});
    }
    httplib::Result Post(const std::string& address, const std::string& body = "") {
        return Client().Post(address, {{"Cookie", Cookie()}}, body, "text/plain");
    }
    httplib::Client Client() const {
        httplib::Client client("127.0.0.1", server_.port());
        client.set_read_timeout(60);
        return client;
    }
    // Of a request with just these headers.
    std::string StatusLine(const std::string& headers, const std::string& address = "/recording") {
        const std::string answer =
            Exchange(server_.port(),
                     "GET " + address + " HTTP/1.1\r\nConnection: close\r\n" + headers + "\r\n");
        return answer.substr(0, answer.find("\r\n"));
    }
    // The first events, as many as these.
    std::vector<Json> Events(const std::string& address, std::size_t count) {
        std::string all;
        std::vector<Json> events;
        Client().Get(address, {{"Cookie", Cookie()}}, [&](const char* data, std::size_t size) {
            all.append(data, size);
            for (std::size_t end = 0; (end = all.find("\n\n")) != std::string::npos;) {
                EXPECT_EQ(all.find("data: "), 0u) << all;
                events.push_back(Json::parse(all.substr(6, end - 6)));
                all.erase(0, end + 2);
            }
            return events.size() < count;
        });
        return events;
    }

    Board board_;
    Server server_{board_, ThePages()};
    std::vector<std::string> lines_;

private:
    std::thread session_;
};

void ExpectProblem(const httplib::Result& answer, int status, const std::string& problem) {
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->status, status);
    EXPECT_EQ(answer->get_header_value("Content-Type"), "application/json; charset=utf-8");
    EXPECT_EQ(answer->body, R"({"problem":")" + problem + "\"}");
}

// --- Refusals -----------------------------------------------------------------------------------

TEST_F(WebWire, SaysThatTheSessionIsAtWork) {
    for (const char* address : {"/state", "/scene", "/files?all=1", "/state?v=1"}) {
        ExpectProblem(Get(address), 503, "the session is at work");
    }
    for (const char* address : {"/step?v=1", "/restart?v=1", "/restart?v=1&replay=1"}) {
        ExpectProblem(Post(address, "@ note a"), 503, "the session is at work");
    }
}

TEST_F(WebWire, SaysThatTheSessionHasEnded) {
    board_.Close();
    ExpectProblem(Get("/state"), 410, "the session has ended");
    ExpectProblem(Post("/step?v=1", "@ note a"), 410, "the session has ended");
    ExpectProblem(Post("/restart?v=1"), 410, "the session has ended");
}

TEST_F(WebWire, SaysThatWhatWasSeenHasGone) {
    WaitForLines();
    const std::string problem = "what you saw is not what there is any more";
    ExpectProblem(Get("/state?v=2"), 409, problem);
    ExpectProblem(Post("/step?v=2", "@ note a"), 409, problem);
    ExpectProblem(Post("/step", "@ note a"), 409, problem);
    ExpectProblem(Post("/restart?v=2"), 409, problem);
    ExpectProblem(Post("/restart"), 409, problem);
}

TEST_F(WebWire, SaysThatThereIsNoSessionToAsk) {
    WaitForLines();
    ExpectProblem(Get("/state"), 503, "there is no session");
    ExpectProblem(Post("/restart?v=1&replay=1"), 403,
                  "the drive is kept, so nothing begins anew on it; simhost run replays a "
                  "recording");
    EndSession();
    EXPECT_EQ(board_.TakeRestart(), std::nullopt);
}

TEST_F(WebWire, SaysWhyItAnswersNobodyElse) {
    auto client = Client();
    ExpectProblem(client.Get("/state"), 401,
                  "open the address that the terminal shows: it holds the token");
    ExpectProblem(client.Get("/page/index.html", {{"Origin", "http://evil.example"}}), 403,
                  "this server answers its own page only");
    ExpectProblem(client.Post("/stop", {{"Cookie", Cookie()}, {"Origin", "http://evil.example"}},
                              "", "text/plain"),
                  403, "this server answers its own page only");
    EXPECT_FALSE(simhost::TheProgress().stop);
}

TEST_F(WebWire, SaysWhatALineIs) {
    WaitForLines();
    for (const std::string& body :
         {std::string(), std::string("a\nb"), std::string("\n"), std::string("a\r"),
          std::string("\0", 1), std::string("a\0b", 3), std::string("\xc3")}) {
        ExpectProblem(Post("/step?v=1", body), 400, "one line of UTF-8 text belongs there");
    }
    EndSession();
    EXPECT_TRUE(lines_.empty());
}

// --- What is let through ------------------------------------------------------------------------

TEST_F(WebWire, TakesALineAsLongAsItMayBeAndSaysNoMoreThanThat) {
    WaitForLines();
    const std::string longest(Server::kLongestLine, 'a');
    const auto answer = Post("/step?v=1", longest);
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->status, 202);
    EXPECT_EQ(answer->body, "{}");
    EXPECT_EQ(answer->get_header_value("Content-Type"), "application/json; charset=utf-8");
    EXPECT_FALSE(answer->has_header("Content-Disposition"));
    EndSession();
    EXPECT_EQ(lines_, std::vector<std::string>{longest});
}

TEST_F(WebWire, TakesVersionsOfUpTo18DigitsForNumbers) {
    WaitForLines();
    // 503 comes from the session that is not there: the version was right.
    for (const char* right : {"1", "01", "000000000000000001"}) {
        EXPECT_EQ(Get(std::string("/state?v=") + right)->status, 503) << right;
    }
    for (const char* wrong : {"", "0", "+1", "1.", "1/", "1:", "1~", "x", "0000000000000000001",
                              "99999999999999999999999"}) {
        EXPECT_EQ(Get(std::string("/state?v=") + wrong)->status, 409) << wrong;
    }
}

TEST_F(WebWire, FindsItsCookieAmongOthers) {
    WaitForLines();
    const std::string host = "Host: 127.0.0.1:" + std::to_string(server_.port()) + "\r\n";
    const std::string own = Cookie(), allowed = "HTTP/1.1 503 Service Unavailable";
    for (const std::string& cookies : {own, "a=b;" + own, "a=b;   " + own, own + ";", own + "; a=b",
                                       ";" + own, "; ;" + own, "a=b; c=d; " + own + "; e=f"}) {
        EXPECT_EQ(StatusLine(host + "Cookie: " + cookies + "\r\n"), allowed) << cookies;
    }
    for (const std::string& cookies : {"x" + own, own + "x", "a=" + own, own + " ; a=b",
                                       own.substr(0, own.size() - 1), std::string(";;")}) {
        EXPECT_EQ(StatusLine(host + "Cookie: " + cookies + "\r\n"), "HTTP/1.1 401 Unauthorized")
            << cookies;
    }
}

TEST_F(WebWire, WantsToBeCalledByItsName) {
    WaitForLines();
    const std::string cookie = "Cookie: " + Cookie() + "\r\n";
    const std::string port = std::to_string(server_.port());
    const auto called = [&](const std::string& host) {
        return StatusLine(cookie + "Host: " + host + "\r\n");
    };
    EXPECT_EQ(called("127.0.0.1:" + port), "HTTP/1.1 503 Service Unavailable");
    EXPECT_EQ(called("localhost:" + port), "HTTP/1.1 503 Service Unavailable");
    for (const std::string& other :
         {std::string("127.0.0.1"), std::string("localhost"), "127.0.0.1:" + port + "0",
          "localhost.evil.example:" + port, "127.0.0.2:" + port, std::string("evil.example"),
          std::string()}) {
        EXPECT_EQ(called(other), "HTTP/1.1 403 Forbidden") << other;
    }
    EXPECT_EQ(StatusLine(cookie), "HTTP/1.1 403 Forbidden") << "without a name";
    const std::string own = "Host: 127.0.0.1:" + port + "\r\n";
    EXPECT_EQ(StatusLine(own + cookie + "Origin: http://127.0.0.1:" + port + "\r\n"),
              "HTTP/1.1 503 Service Unavailable");
    for (const std::string& origin :
         {"127.0.0.1:" + port, "ftp://127.0.0.1:" + port, std::string("http://")}) {
        EXPECT_EQ(StatusLine(own + cookie + "Origin: " + origin + "\r\n"), "HTTP/1.1 403 Forbidden")
            << origin;
    }
}

TEST_F(WebWire, AsksForTheTokenWhereverAnAddressIsNoStaticOne) {
    auto client = Client();
    for (const char* address :
         {"/page", "/three", "/icons", "/pages/app.js", "/favicon.icon", "/x/page/app.js", "//"}) {
        EXPECT_EQ(client.Get(address)->status, 401) << address;
    }
    const auto icon = client.Get("/favicon.ico");
    EXPECT_EQ(icon->status, 204);
    EXPECT_EQ(icon->body, "");
}

TEST_F(WebWire, LeadsToThePage) {
    const auto answer = Client().Get("/");
    EXPECT_EQ(answer->status, 303);
    EXPECT_EQ(answer->get_header_value("Location"), "/page/index.html");
    EXPECT_FALSE(answer->has_header("Set-Cookie"));
    const std::string port = std::to_string(server_.port());
    EXPECT_EQ(server_.address(), "http://127.0.0.1:" + port + "/?t=" + server_.token());
}

TEST_F(WebWire, TellsTheBrowserWhatEveryAnswerMayDo) {
    for (const char* address : {"/page/index.html", "/recording", "/nothing"}) {
        const auto answer = Get(address);
        EXPECT_EQ(answer->get_header_value("Content-Security-Policy"),
                  "default-src 'self'; img-src 'self' data: blob:; style-src 'self'; "
                  "object-src 'none'; base-uri 'none'; form-action 'none'; frame-ancestors 'none'")
            << address;
        EXPECT_EQ(answer->get_header_value("X-Content-Type-Options"), "nosniff");
        EXPECT_EQ(answer->get_header_value("X-Frame-Options"), "DENY");
        EXPECT_EQ(answer->get_header_value("Referrer-Policy"), "no-referrer");
        EXPECT_EQ(answer->get_header_value("Cross-Origin-Resource-Policy"), "same-origin");
        EXPECT_EQ(answer->get_header_value("Cache-Control"), "no-store");
    }
}

TEST_F(WebWire, MakesAnotherTokenEachTime) {
    Board board;
    const Server other(board, ThePages());
    EXPECT_EQ(other.token().find_first_not_of("0123456789abcdef"), std::string::npos);
    EXPECT_NE(other.token(), server_.token());
    EXPECT_NE(other.token().substr(0, 8), other.token().substr(8, 8));
}

TEST_F(WebWire, StopsWhatIsAtWork) {
    const auto answer = Post("/stop");
    EXPECT_EQ(answer->status, 202);
    EXPECT_EQ(answer->body, "{}");
    EXPECT_TRUE(simhost::TheProgress().stop.exchange(false));
}

// --- Events -------------------------------------------------------------------------------------

TEST_F(WebWire, SendsTheNewsAsAnEvent) {
    board_.BeginSession();
    board_.Print("one");
    board_.Print("zwei \xff");
    board_.TellWork("opening", 3, 10);
    auto event = Events("/events", 1).at(0);
    EXPECT_TRUE(event["seconds"].is_number());
    event.erase("seconds");
    event.erase("calls");
    event.erase("lastCall");
    EXPECT_EQ(event, Json::parse(R"({"v": 0, "session": 1, "busy": true, "ended": false,
        "waiting": "", "next": 2, "lines": ["one", "zwei \ufffd"], "work": "opening: 3 / 10"})"));
    WaitForLines();
    event = Events("/events", 1).at(0);
    EXPECT_EQ(event["v"], 1);
    EXPECT_EQ(event["busy"], false);
    EXPECT_EQ(event["waiting"], "vx");
    EXPECT_EQ(event["seconds"], 0.0);
    EXPECT_EQ(event["work"], "");
}

TEST_F(WebWire, BeginsTheTranscriptWhereItIsAskedTo) {
    board_.Print("zero");
    board_.Print("one");
    board_.Close();  // so that each stream ends by itself
    const auto lines = [&](const std::string& query) {
        return Events("/events" + query, 1).at(0)["lines"];
    };
    const Json both = {"zero", "one"}, last = Json::array({"one"});
    EXPECT_EQ(lines(""), both);
    EXPECT_EQ(lines("?from=0"), both);
    EXPECT_EQ(lines("?from=1"), last);
    EXPECT_EQ(lines("?from=2"), Json::array());
    EXPECT_EQ(lines("?from=999999999"), Json::array());
    for (const char* none : {"?from=", "?from=x", "?from=1x", "?from=-1", "?from=1:", "?from=1~",
                             "?from=0000000001", "?from=99999999999999999999999"}) {
        EXPECT_EQ(lines(none), both) << none;
    }
}

TEST_F(WebWire, SendsNoNewsTwice) {
    WaitForLines();
    board_.Print("one");
    std::thread later([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        board_.Print("two");
    });
    const auto events = Events("/events", 2);
    later.join();
    EXPECT_EQ(events[0]["lines"], Json::array({"one"}));
    EXPECT_EQ(events[1]["lines"], Json::array({"two"}));
    EXPECT_EQ(events[1]["next"], 2);
}

TEST_F(WebWire, ShowsThatWorkGoesOn) {
    board_.BeginSession();
    const auto begin = std::chrono::steady_clock::now();
    const auto events = Events("/events", 3);
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
    // Twice 0.3 seconds; while nobody works, the next would come only after 5.
    EXPECT_GE(taken.count(), 0.55);
    EXPECT_LT(taken.count(), 4.5);
    EXPECT_EQ(events[2]["busy"], true);
}

TEST_F(WebWire, EndsTheEventsWithTheSession) {
    board_.Print("one");
    std::thread later([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        board_.Close();
    });
    std::string all, type;
    const auto answer = Client().Get(
        "/events", {{"Cookie", Cookie()}},
        [&](const httplib::Response& response) {
            type = response.get_header_value("Content-Type");
            return true;
        },
        [&](const char* data, std::size_t size) {
            all.append(data, size);
            return true;
        });
    later.join();
    ASSERT_TRUE(answer) << "it ends as it should";
    EXPECT_EQ(type, "text/event-stream");
    EXPECT_NE(all.find("\"ended\":true"), std::string::npos) << all;
}

TEST_F(WebWire, CountsNoStreamThatHasEndedNorOneThatWasRefused) {
    board_.Print("one");
    std::atomic<int> open = 0, right = 0;
    std::vector<std::thread> pages;
    for (int i = 0; i < Server::kMostStreams; ++i) {
        pages.emplace_back([&] {
            bool first = true;
            const auto answer =
                Client().Get("/events", {{"Cookie", Cookie()}}, [&](const char*, std::size_t) {
                    if (std::exchange(first, false)) ++open;
                    return true;
                });
            if (answer && answer->status == 200) ++right;
        });
    }
    while (open < Server::kMostStreams) std::this_thread::yield();
    for (int i = 0; i < Server::kMostStreams; ++i) {
        ExpectProblem(Get("/events"), 429, "too many pages are open");
    }
    board_.Close();
    for (std::thread& page : pages) page.join();
    EXPECT_EQ(right, Server::kMostStreams);
    // With the last byte of its answer a stream may still be counted for a moment.
    int status = 0;
    for (int i = 0; status != 200 && i < 1000; ++i) status = Get("/events")->status;
    EXPECT_EQ(status, 200);
    for (int i = 0; i <= Server::kMostStreams; ++i) {
        EXPECT_EQ(Get("/events")->status, 200) << i;
    }
}

TEST_F(WebWire, EndsAtOnceAlthoughSomebodyListens) {
    WaitForLines();
    auto server = std::make_unique<Server>(board_, ThePages());
    std::atomic<bool> open = false;
    std::thread page([&, port = server->port(), token = server->token()] {
        httplib::Client client("127.0.0.1", port);
        const httplib::Headers cookie = {{"Cookie", "vx_" + std::to_string(port) + "=" + token}};
        client.Get("/events", cookie, [&](const char*, std::size_t) { return open = true; });
    });
    while (!open) std::this_thread::yield();
    const auto begin = std::chrono::steady_clock::now();
    server.reset();
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
    EXPECT_LT(taken.count(), 4) << "5 seconds are between two events where nothing happens";
    page.join();
}

// --- Folders and ports --------------------------------------------------------------------------

TEST_F(WebWire, GoesWithoutAFolderThatNobodyNamed) {
    Board board;
    ServerOptions options = ThePages();
    options.three.clear();
    const Server server(board, options);
    httplib::Client client("127.0.0.1", server.port());
    EXPECT_EQ(client.Get("/three/build/three.module.js")->status, 404);
    EXPECT_EQ(client.Get("/page/index.html")->status, 200);
}

std::string ReasonWhyNot(const ServerOptions& options) {
    Board board;
    try {
        const Server server(board, options);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "it runs";
}

TEST_F(WebWire, SaysWhyItCannotBegin) {
    ServerOptions options = ThePages();
    options.port = server_.port();
    EXPECT_EQ(ReasonWhyNot(options),
              "port " + std::to_string(options.port) + " of this computer is not free");
    for (auto folder : {&ServerOptions::page, &ServerOptions::three, &ServerOptions::icons}) {
        options = ThePages();
        options.*folder = "/no/such/folder";
        EXPECT_EQ(ReasonWhyNot(options), "there is no folder /no/such/folder");
    }
}

// A connection that the server has closed itself keeps its port for a minute.
TEST_F(WebWire, BeginsAnewOnThePortOfOneThatHasJustEnded) {
    Board board;
    ServerOptions options = ThePages();
    {
        const Server first(board, options);
        options.port = first.port();
        EXPECT_NE(Exchange(options.port,
                           "GET / HTTP/1.1\r\nHost: 127.0.0.1:" + std::to_string(options.port) +
                               "\r\nConnection: close\r\n\r\n"),
                  "");
    }
    EXPECT_EQ(ReasonWhyNot(options), "it runs");
}

// --- With a whole session -----------------------------------------------------------------------

class WebWireOfASession : public web_tests::WebBench {};

TEST_F(WebWireOfASession, EscapesTheNameOfAFileAsHeadersWantIt) {
    Start();
    const Json files = Get("/files");
    const std::string name = "0/90:AZ@[az`{.-_ 箱";
    const fs::path drive = files["drive"].get<std::string>();
    fs::create_directories(drive / "Work" / "0");
    std::ofstream(drive / "Work" / name) << "text";
    const std::string port = std::to_string(port_);
    const std::string answer = Exchange(
        port_, "GET /file?path=" + httplib::detail::encode_query_param("Work/" + name) +
                   " HTTP/1.1\r\nHost: localhost:" + port +
                   "\r\nCookie: " + Token().begin()->second + "\r\nConnection: close\r\n\r\n");
    EXPECT_EQ(answer.find("HTTP/1.1 200 OK\r\n"), 0u) << answer;
    EXPECT_NE(answer.find("\r\nContent-Disposition: attachment; filename*=UTF-8''"
                          "90%3AAZ%40%5Baz%60%7B.-%5F%20%E7%AE%B1\r\n"),
              std::string::npos)
        << answer;
}

TEST_F(WebWireOfASession, CountsTheCallsOfThePluginAndNamesTheLast) {
    Start();
    EXPECT_EQ(Get("/journal")["running"], true);
    const auto before = board_.WaitForNews(0, SIZE_MAX, std::chrono::seconds(0));
    Play("~ Command `AboutVx`\n~ Close `AboutVx`");
    const auto after = board_.WaitForNews(0, SIZE_MAX, std::chrono::seconds(0));
    const Json journal = Get("/journal");
    ASSERT_GT(journal["all"], 0);
    EXPECT_EQ(after.calls - before.calls, journal["all"]) << "one line for each call";
    std::string last = journal["lines"].back();
    last.erase(0, last.find_first_not_of(' '));
    EXPECT_EQ(after.lastCall, last.substr(0, last.find('(')));
}

}  // namespace
