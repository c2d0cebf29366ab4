// What the server says over the wire, byte by byte where that matters, with a board in place of a
// whole session.
#include <filesystem>
#include <fstream>
#include <httplib.h>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "simhost/user/progress.h"
#include "simhost/web/server.h"
#include "tests/web/web_ground.h"
#include "tests/web/wire_bench.h"

namespace {

namespace fs = std::filesystem;
using simhost::Board;
using simhost::Server;
using simhost::ServerOptions;
using web_tests::ExchangeBytes;
using web_tests::ExpectProblem;
using web_tests::Json;
using web_tests::ThePages;

class WebWire : public web_tests::WireBench {};

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
    // A session that ends takes no line any more.
    while (board_.Ask([] {}, std::nullopt) == Board::Outcome::Busy) std::this_thread::yield();
    EndSession();
    EXPECT_TRUE(lines_ == std::vector<std::string>{longest});
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
        EXPECT_NE(ExchangeBytes(options.port, "GET / HTTP/1.1\r\nHost: 127.0.0.1:" +
                                                  std::to_string(options.port) +
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
    const std::string answer = ExchangeBytes(
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
