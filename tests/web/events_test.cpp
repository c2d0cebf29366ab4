// The stream of events, over the wire: what one holds, when the next comes, and when it ends.
#include <atomic>
#include <chrono>
#include <httplib.h>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "simhost/web/server.h"
#include "tests/web/wire_bench.h"

namespace {

using simhost::Server;
using web_tests::ExpectProblem;
using web_tests::Json;

class WebWireEvents : public web_tests::WireBench {};

TEST_F(WebWireEvents, SendsTheNewsAsAnEvent) {
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

TEST_F(WebWireEvents, BeginsTheTranscriptWhereItIsAskedTo) {
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

TEST_F(WebWireEvents, SendsNoNewsTwice) {
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

TEST_F(WebWireEvents, ShowsThatWorkGoesOn) {
    board_.BeginSession();
    const auto begin = std::chrono::steady_clock::now();
    const auto events = Events("/events", 3);
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
    // Twice 0.3 seconds; while nobody works, the next would come only after 5.
    EXPECT_GE(taken.count(), 0.55);
    EXPECT_LT(taken.count(), 4.5);
    EXPECT_EQ(events[2]["busy"], true);
}

TEST_F(WebWireEvents, EndsTheEventsWithTheSession) {
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

TEST_F(WebWireEvents, CountsNoStreamThatHasEndedNorOneThatWasRefused) {
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

TEST_F(WebWireEvents, EndsAtOnceAlthoughSomebodyListens) {
    WaitForLines();
    auto server = std::make_unique<Server>(board_, web_tests::ThePages());
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

}  // namespace
