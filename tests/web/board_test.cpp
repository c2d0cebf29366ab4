// The board between the session and the server, without either.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <future>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "simhost/web/board.h"

namespace {

using namespace simhost;
using Outcome = Board::Outcome;

// A session that keeps the lines that it is given.
class ASession {
public:
    explicit ASession(Board& board) : board_(board), thread_([this] { Run(); }) {}
    ~ASession() { End(); }
    void End() {
        board_.End();
        if (thread_.joinable()) thread_.join();
    }
    std::vector<std::string> lines;

private:
    void Run() {
        while (auto line = board_.NextLine("vx")) lines.push_back(*line);
    }
    Board& board_;
    std::thread thread_;
};

// The version that the session shows, as soon as it is a later one than `than`.
std::uint64_t VersionAfter(Board& board, std::uint64_t than) {
    for (std::uint64_t change = 0;;) {
        const auto news = board.WaitForNews(change, 0, std::chrono::seconds(1));
        if (!news.busy && news.version > than) return news.version;
        change = news.change;
    }
}

TEST(TheBoard, TakesALineFromWhoeverSawTheNewestVersion) {
    Board board;
    ASession session(board);
    const auto first = VersionAfter(board, 0);
    EXPECT_EQ(board.Offer("one", first), Outcome::Done);
    const auto second = VersionAfter(board, first);
    EXPECT_EQ(board.Offer("late", first), Outcome::Stale);
    EXPECT_EQ(board.Offer("two", second), Outcome::Done);
    VersionAfter(board, second);
    session.End();
    EXPECT_EQ(session.lines, (std::vector<std::string>{"one", "two"}));
}

TEST(TheBoard, TakesNothingWhileTheSessionIsAtWorkOrHasEnded) {
    Board board;
    EXPECT_EQ(board.Offer("too early", 0), Outcome::Busy);
    EXPECT_EQ(board.Ask([] { FAIL(); }, std::nullopt), Outcome::Busy);
    ASession session(board);
    const auto version = VersionAfter(board, 0);
    session.End();
    EXPECT_EQ(board.Offer("too late", version), Outcome::Ended);
    EXPECT_EQ(board.Ask([] { FAIL(); }, version), Outcome::Ended);
}

TEST(TheBoard, AnswersQuestionsOnTheThreadOfTheSession) {
    Board board;
    ASession session(board);
    const auto version = VersionAfter(board, 0);
    std::thread::id asked;
    EXPECT_EQ(board.Ask([&] { asked = std::this_thread::get_id(); }, version), Outcome::Done);
    EXPECT_NE(asked, std::thread::id());
    EXPECT_NE(asked, std::this_thread::get_id());
    EXPECT_EQ(board.Ask([] { FAIL(); }, version + 1), Outcome::Stale);
    EXPECT_EQ(VersionAfter(board, 0), version) << "a question changes nothing";
}

TEST(TheBoard, HandsBackWhatAQuestionThrows) {
    Board board;
    ASession session(board);
    VersionAfter(board, 0);
    EXPECT_THROW(board.Ask([] { throw std::runtime_error("no"); }, std::nullopt),
                 std::runtime_error);
    EXPECT_EQ(board.Ask([] {}, std::nullopt), Outcome::Done) << "the session goes on";
}

TEST(TheBoard, KeepsTheLastLinesOfTheTranscriptOnly) {
    Board board;
    const std::size_t all = Board::kMostLines + 10;
    for (std::size_t i = 0; i < all; ++i) board.Print(std::to_string(i));
    auto news = board.WaitForNews(0, 0, std::chrono::seconds(0));
    ASSERT_EQ(news.lines.size(), Board::kMostLinesAtOnce);
    EXPECT_EQ(news.lines.front(), "10") << "the first ten have gone";
    while (news.nextLine < all) {
        news = board.WaitForNews(news.change, news.nextLine, std::chrono::seconds(0));
        ASSERT_FALSE(news.lines.empty());
    }
    EXPECT_EQ(news.lines.back(), std::to_string(all - 1));
}

TEST(TheBoard, SendsAReaderBackAtOnceAsLongAsThereAreMoreLines) {
    Board board;
    const std::size_t all = Board::kMostLinesAtOnce + 1;
    for (std::size_t i = 0; i < all; ++i) board.Print(std::to_string(i));
    const auto first = board.WaitForNews(0, 0, std::chrono::seconds(0));
    EXPECT_EQ(first.nextLine, Board::kMostLinesAtOnce);
    EXPECT_EQ(first.change, 0u) << "as if nothing had been heard yet";
    const auto last = board.WaitForNews(first.change, first.nextLine, std::chrono::seconds(0));
    EXPECT_EQ(last.lines, std::vector<std::string>{std::to_string(all - 1)});
    EXPECT_EQ(last.change, all) << "each line is a change";
}

TEST(TheBoard, ShowsALineOnceToAReaderWhoComesAgain) {
    Board board;
    board.Print("one");
    auto news = board.WaitForNews(0, 0, std::chrono::seconds(0));
    EXPECT_EQ(news.lines, std::vector<std::string>{"one"});
    news = board.WaitForNews(news.change, news.nextLine, std::chrono::seconds(0));
    EXPECT_EQ(news.lines, std::vector<std::string>{});
    board.Print("two");
    news = board.WaitForNews(news.change, news.nextLine, std::chrono::seconds(0));
    EXPECT_EQ(news.lines, std::vector<std::string>{"two"});
}

TEST(TheBoard, WakesAReaderAtOnce) {
    Board board;
    const auto before = board.WaitForNews(0, 0, std::chrono::seconds(0));
    std::thread later([&] { board.Print("now"); });
    const auto news = board.WaitForNews(before.change, 0, std::chrono::minutes(1));
    later.join();
    EXPECT_EQ(news.lines, std::vector<std::string>{"now"});
}

// A session that has taken a line and is at work until it is told to go on.
class ASessionAtWork {
public:
    explicit ASessionAtWork(Board& board) : board_(board) {
        thread_ = std::thread([this] {
            if (board_.NextLine("vx")) done_.get_future().wait();
        });
        version = VersionAfter(board_, 0);
    }
    ~ASessionAtWork() {
        board_.End();
        done_.set_value();
        thread_.join();
    }
    std::uint64_t version = 0;

private:
    Board& board_;
    std::promise<void> done_;
    std::thread thread_;
};

double SecondsSince(Board::Clock::time_point begin) {
    return std::chrono::duration<double>(Board::Clock::now() - begin).count();
}

TEST(TheBoard, TellsReadersWhenTheSessionTakesALineAndHowLongItIsAtWork) {
    constexpr auto kAWhile = std::chrono::milliseconds(20);
    Board board;
    ASessionAtWork session(board);
    std::this_thread::sleep_for(kAWhile);
    const auto before = board.WaitForNews(0, 0, std::chrono::seconds(0));
    EXPECT_FALSE(before.busy);
    EXPECT_EQ(before.waiting, "vx");
    EXPECT_EQ(before.busySeconds, 0);
    const auto begin = Board::Clock::now();
    ASSERT_EQ(board.Offer("work", session.version), Outcome::Done);
    const auto taken = board.WaitForNews(before.change, 0, std::chrono::seconds(10));
    EXPECT_EQ(taken.change, before.change + 1);
    EXPECT_TRUE(taken.busy);
    EXPECT_LE(taken.busySeconds, SecondsSince(begin)) << "the time before was no work";
    std::this_thread::sleep_for(kAWhile);
    const auto later = board.WaitForNews(taken.change, 0, std::chrono::seconds(0));
    EXPECT_GE(later.busySeconds, 0.02);
    EXPECT_LE(later.busySeconds, SecondsSince(begin));
}

TEST(TheBoard, CountsBeginningsAndTellsReadersOfThem) {
    Board board;
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    const auto before = board.WaitForNews(0, 0, std::chrono::seconds(0));
    const auto begin = Board::Clock::now();
    board.BeginSession();
    auto news = board.WaitForNews(before.change, 0, std::chrono::seconds(0));
    EXPECT_EQ(news.change, before.change + 1);
    EXPECT_EQ(news.session, 1u);
    EXPECT_LE(news.busySeconds, SecondsSince(begin));
    board.BeginSession();
    EXPECT_EQ(board.WaitForNews(news.change, 0, std::chrono::seconds(0)).session, 2u);
}

TEST(TheBoard, LeavesNoLineOfASessionThatEndedToTheNext) {
    Board board;
    {
        ASession session(board);
        const auto version = VersionAfter(board, 0);
        const auto lineThenEnd = [&] {
            EXPECT_EQ(board.Offer("of the first", version), Outcome::Done);
            board.End();
        };
        EXPECT_EQ(board.Ask(lineThenEnd, version), Outcome::Done);
    }
    board.BeginSession();
    ASession session(board);
    const auto version = VersionAfter(board, 1);
    EXPECT_EQ(board.Offer("of the second", version), Outcome::Done);
    VersionAfter(board, version);
    session.End();
    EXPECT_EQ(session.lines, std::vector<std::string>{"of the second"});
}

TEST(TheBoard, TellsHowFarLongWorkIs) {
    Board board;
    board.TellWork("opening", 3, 10);
    const auto told = board.WaitForNews(0, 0, std::chrono::seconds(0));
    EXPECT_EQ(told.work, "opening: 3 / 10");
    EXPECT_EQ(told.change, 1u) << "so that it is seen";
    board.TellWork("opening", 4, 10);  // too soon for the eye
    EXPECT_EQ(board.WaitForNews(0, 0, std::chrono::seconds(0)).work, "opening: 3 / 10");
    ASession session(board);
    VersionAfter(board, 0);
    EXPECT_EQ(board.WaitForNews(0, 0, std::chrono::seconds(0)).work, "") << "it has ended";
}

TEST(TheBoard, BeginsAnewWithTheLinesThatWereAskedFor) {
    Board board;
    EXPECT_EQ(board.Restart({"a"}, 0), Outcome::Busy);
    ASession session(board);
    const auto version = VersionAfter(board, 0);
    EXPECT_EQ(board.Restart({"a"}, version + 1), Outcome::Stale);
    EXPECT_EQ(board.Restart({"a", "b"}, version), Outcome::Done);
    while (board.WaitForNews(0, 0, std::chrono::seconds(0)).busy == false) {
        std::this_thread::yield();
    }
    EXPECT_TRUE(board.ending());
    EXPECT_EQ(board.TakeRestart(), (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(board.TakeRestart(), std::nullopt) << "once";
    board.BeginSession();
    EXPECT_FALSE(board.ending());
}

TEST(TheBoard, EndsRatherThanBeginsAnewWhenBothAreAskedFor) {
    Board board;
    {
        ASession session(board);
        EXPECT_EQ(board.Restart({"a"}, VersionAfter(board, 0)), Outcome::Done);
    }
    EXPECT_EQ(board.TakeRestart(), std::nullopt);
}

TEST(TheBoard, TellsReadersThatItIsOver) {
    Board board;
    const auto before = board.WaitForNews(0, 0, std::chrono::seconds(0));
    EXPECT_FALSE(before.ended);
    board.Close();
    const auto after = board.WaitForNews(before.change, 0, std::chrono::minutes(1));
    EXPECT_TRUE(after.ended);
    EXPECT_EQ(after.change, before.change + 1) << "whoever waits already is woken";
    EXPECT_TRUE(board.WaitForNews(after.change, 0, std::chrono::minutes(1)).ended) << "at once";
}

}  // namespace
