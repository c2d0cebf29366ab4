// The lines of a session: first those that are replayed, then those from the browser.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "simhost/user/progress.h"
#include "simhost/web/browser_source.h"

namespace {

using namespace simhost;
using Lines = std::vector<std::string>;

class TheBrowserSource : public ::testing::Test {
protected:
    ~TheBrowserSource() override { TheProgress().stop = false; }
    BrowserSource Replaying(Lines lines) {
        BrowserSource source(board_, std::move(lines));
        source.replayed = [this] { ++replays_; };
        return source;
    }
    Lines Shown() { return board_.WaitForNews(0, 0, std::chrono::seconds(0)).lines; }

    Board board_;
    int replays_ = 0;
};

TEST_F(TheBrowserSource, ReplaysEachLineAndTellsOnceThatItHas) {
    BrowserSource source = Replaying({"one", "two"});
    EXPECT_EQ(source.Next("vx"), "one");
    EXPECT_EQ(source.Next("vx"), "two");
    EXPECT_EQ(replays_, 0) << "the last line is still to be done";
    board_.End();
    EXPECT_EQ(source.Next("vx"), std::nullopt);
    EXPECT_EQ(replays_, 1);
    EXPECT_EQ(source.Next("vx"), std::nullopt);
    EXPECT_EQ(replays_, 1);
    EXPECT_EQ(Shown(), (Lines{"one", "two"})) << "as if they had been typed";
}

TEST_F(TheBrowserSource, AStopEndsTheReplay) {
    BrowserSource source = Replaying({"one", "two", "three"});
    EXPECT_EQ(source.Next("vx"), "one");
    TheProgress().stop = true;
    board_.End();
    EXPECT_EQ(source.Next("vx"), std::nullopt);
    EXPECT_EQ(replays_, 1);
    EXPECT_FALSE(TheProgress().stop) << "it has done its work";
    EXPECT_EQ(source.Next("vx"), std::nullopt) << "the rest does not come later either";
    EXPECT_EQ(Shown(), Lines{"one"});
}

TEST_F(TheBrowserSource, AStopWhileNothingIsAtWorkDoesNotHitTheNextCommand) {
    BrowserSource source = Replaying({});
    std::thread user([&] {
        Board::News news;
        do {
            news = board_.WaitForNews(news.change, 0, std::chrono::seconds(1));
        } while (news.busy || news.version == 0);
        TheProgress().stop = true;
        EXPECT_EQ(board_.Offer("one", news.version), Board::Outcome::Done);
    });
    EXPECT_EQ(source.Next("vx"), "one");
    user.join();
    EXPECT_FALSE(TheProgress().stop);
    EXPECT_EQ(Shown(), Lines{"one"});
}

}  // namespace
