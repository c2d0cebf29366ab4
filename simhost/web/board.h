// What the thread of the session and the threads of the server share: the lines that go in, the
// transcript that comes out, and the questions that only the session's thread may answer.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <exception>
#include <functional>
#include <list>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace simhost {

class Board {
public:
    using Clock = std::chrono::steady_clock;

    // --- For the thread of the session -----------------------------------------------------------

    // Waits for the next line, and answers questions meanwhile; nothing when the session shall end.
    // Each call is a new version of what the user sees.
    std::optional<std::string> NextLine(const std::string& waiting);
    // A line of the transcript. The last kMostLines are kept.
    void Print(const std::string& line);
    static constexpr std::size_t kMostLines = 20000;
    // What the long work says: "opening", so many of so many.
    void TellWork(const char* work, std::size_t done, std::size_t all);
    // The session is to end, or to begin anew: nobody need be asked whether it may.
    bool ending();
    // A session begins anew, after Restart: a next one reads lines again.
    void BeginSession();
    // Nobody is to be asked any more: whoever waits for news learns that it is over.
    void Close();

    // --- For the threads of the server -----------------------------------------------------------

    enum class Outcome { Done, Busy, Stale, Ended };
    // Hands the session its next line. Stale: the user saw an older version than there is. Busy:
    // it is at work.
    Outcome Offer(std::string line, std::uint64_t version);
    // Lets the session's thread do this while it waits for a line. Without a version any will do.
    // What it throws comes out here.
    Outcome Ask(const std::function<void()>& question, std::optional<std::uint64_t> version);
    // Ends the session: at once if it waits, else when it comes to wait next.
    void End();
    // Ends the session as soon as it waits, and asks for another one that begins with these lines.
    Outcome Restart(std::vector<std::string> lines, std::uint64_t version);
    std::optional<std::vector<std::string>> TakeRestart();  // what was asked for, once

    struct News {
        std::uint64_t change = 0;   // counts what happened; for the next call
        std::uint64_t version = 0;  // of what the user sees
        std::uint64_t session = 0;  // counts beginnings
        bool busy = false, ended = false;
        std::string waiting;  // in the words of Source::Next
        std::size_t nextLine = 0;
        std::vector<std::string> lines;  // of the transcript, up to nextLine
        double busySeconds = 0;
        std::string work;  // what long work says, empty: nothing
        std::uint64_t calls = 0;
        const char* lastCall = "";
    };
    // Returns when something has happened since `change`, or after some time in any case. The lines
    // are those from number `fromLine` on, at most kMostLinesAtOnce.
    News WaitForNews(std::uint64_t change, std::size_t fromLine, std::chrono::milliseconds atMost);
    static constexpr std::size_t kMostLinesAtOnce = 2000;

private:
    struct Question {
        const std::function<void()>* ask;
        bool answered = false;
        std::exception_ptr thrown = nullptr;
    };
    void Changed();  // with the mutex held
    void AnswerQuestions(std::unique_lock<std::mutex>& lock);
    Outcome Readiness(std::optional<std::uint64_t> version) const;

    std::mutex mutex_;
    std::condition_variable forSession_, forServer_;
    std::optional<std::string> line_;
    std::list<Question*> questions_;
    std::deque<std::string> lines_;
    std::size_t firstLine_ = 0;  // the number of lines_.front()
    std::uint64_t change_ = 0, version_ = 0, session_ = 0;
    bool waiting_ = false, ending_ = false, closed_ = false;
    std::string waitingFor_;
    std::string work_;
    Clock::time_point busySince_ = Clock::now();
    Clock::time_point toldWork_;
    std::optional<std::vector<std::string>> restart_;
};

}  // namespace simhost
