// The board between the session and the server: one mutex, one line at a time, each answered by the
// version that it makes.
#include "simhost/web/board.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "simhost/core/operation.h"

namespace simhost {

namespace {

constexpr auto kBetweenTwoWords = std::chrono::milliseconds(200);

}  // namespace

void Board::Changed() {
    ++change_;
    forServer_.notify_all();
}

std::optional<std::string> Board::NextLine(const std::string& waiting) {
    std::unique_lock lock(mutex_);
    ++version_;
    waiting_ = true;
    waitingFor_ = waiting;
    work_.clear();
    Changed();
    while (!line_ && !ending_) {
        forSession_.wait(lock);
        AnswerQuestions(lock);
    }
    waiting_ = false;
    busySince_ = Clock::now();
    Changed();
    return ending_ ? std::nullopt : std::exchange(line_, std::nullopt);
}

// All of them, so that none is left to a session that has gone on: while a line lies here, or the
// end, no question is taken.
void Board::AnswerQuestions(std::unique_lock<std::mutex>& lock) {
    while (!questions_.empty()) {
        Question* question = questions_.front();
        questions_.pop_front();
        lock.unlock();
        try {
            (*question->ask)();
        } catch (...) {
            question->thrown = std::current_exception();
        }
        lock.lock();
        question->answered = true;
        forServer_.notify_all();
    }
}

void Board::Print(const std::string& line) {
    const std::lock_guard lock(mutex_);
    lines_.push_back(line);
    if (lines_.size() > kMostLines) {
        lines_.pop_front();
        ++firstLine_;
    }
    Changed();
}

void Board::TellWork(const char* work, std::size_t done, std::size_t all) {
    const Clock::time_point now = Clock::now();
    const std::lock_guard lock(mutex_);
    if (now < toldWork_ + kBetweenTwoWords) return;
    toldWork_ = now;
    work_ = fmt::format("{}: {} / {}", work, done, all);
    Changed();
}

bool Board::ending() {
    const std::lock_guard lock(mutex_);
    return ending_;
}

void Board::BeginSession() {
    const std::lock_guard lock(mutex_);
    ++session_;
    ending_ = false;
    line_.reset();
    busySince_ = Clock::now();
    Changed();
}

void Board::Close() {
    const std::lock_guard lock(mutex_);
    closed_ = true;
    Changed();
}

void Board::End() {
    const std::lock_guard lock(mutex_);
    ending_ = true;
    restart_.reset();
    forSession_.notify_all();
}

Board::Outcome Board::Readiness(std::optional<std::uint64_t> version) const {
    if (closed_ || ending_) return Outcome::Ended;
    if (!waiting_ || line_) return Outcome::Busy;
    return version && *version != version_ ? Outcome::Stale : Outcome::Done;
}

Board::Outcome Board::Offer(std::string line, std::uint64_t version) {
    const std::lock_guard lock(mutex_);
    const Outcome ready = Readiness(version);
    if (ready != Outcome::Done) return ready;
    line_ = std::move(line);
    forSession_.notify_all();
    return Outcome::Done;
}

Board::Outcome Board::Ask(const std::function<void()>& question,
                          std::optional<std::uint64_t> version) {
    std::unique_lock lock(mutex_);
    const Outcome ready = Readiness(version);
    if (ready != Outcome::Done) return ready;
    Question asked{&question};
    questions_.push_back(&asked);
    forSession_.notify_all();
    forServer_.wait(lock, [&] { return asked.answered; });
    if (asked.thrown) std::rethrow_exception(asked.thrown);
    return Outcome::Done;
}

Board::Outcome Board::Restart(std::vector<std::string> lines, std::uint64_t version) {
    const std::lock_guard lock(mutex_);
    const Outcome ready = Readiness(version);
    if (ready != Outcome::Done) return ready;
    restart_ = std::move(lines);
    ending_ = true;
    forSession_.notify_all();
    return Outcome::Done;
}

std::optional<std::vector<std::string>> Board::TakeRestart() {
    const std::lock_guard lock(mutex_);
    return std::exchange(restart_, std::nullopt);
}

Board::News Board::WaitForNews(std::uint64_t change, std::size_t fromLine,
                               std::chrono::milliseconds atMost) {
    std::unique_lock lock(mutex_);
    forServer_.wait_for(lock, atMost, [&] { return change_ != change || closed_; });
    News news;
    news.change = change_;
    news.version = version_;
    news.session = session_;
    news.busy = !waiting_;
    news.ended = closed_;
    news.waiting = waitingFor_;
    news.work = work_;
    if (news.busy) {
        news.busySeconds = std::chrono::duration<double>(Clock::now() - busySince_).count();
    }
    const std::size_t end = firstLine_ + lines_.size();
    std::size_t at = std::clamp(fromLine, firstLine_, end);
    for (; at < end && news.lines.size() < kMostLinesAtOnce; ++at) {
        news.lines.push_back(lines_[at - firstLine_]);
    }
    news.nextLine = at;
    if (at < end) news.change = change;  // there is more: come again at once
    const Operation::Pulse pulse = Operation::TakePulse();
    news.calls = pulse.calls;
    news.lastCall = pulse.last;
    return news;
}

}  // namespace simhost
