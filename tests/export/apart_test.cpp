// Work in a process of its own: its result, its words when it fails, and every way in which it may
// end without either.
#ifndef _WIN32

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <functional>
#include <new>
#include <signal.h>
#include <stdexcept>
#include <string>
#include <unistd.h>
#include <vector>

#include "simhost/kernel/apart.h"

namespace {

using namespace simhost;

std::string HowItFailed(const std::function<std::string()>& work, const Bounds& bounds = {}) {
    try {
        DoneApart("working", work, bounds);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "nothing failed";
}

TEST(WorkApart, GivesItsResultHoweverLongAndChangesNothingHere) {
    const std::string kLong(3'000'000, 'x');
    std::string here = "as it was";
    const std::string result = DoneApart("working",
                                         [&] {
                                             here = "changed";
                                             return kLong + std::string("\0end", 4);
                                         },
                                         {});
    EXPECT_EQ(result, kLong + std::string("\0end", 4));
    EXPECT_EQ(here, "as it was");
    EXPECT_EQ(DoneApart("working", [] { return std::string(); }, {}), "");
}

TEST(WorkApart, FailsInItsOwnWords) {
    EXPECT_EQ(HowItFailed([]() -> std::string { throw std::runtime_error("x is no y"); }),
              "x is no y");
    EXPECT_EQ(HowItFailed([]() -> std::string { throw std::bad_alloc(); }),
              "working takes more memory than there is");
    EXPECT_EQ(HowItFailed([]() -> std::string { throw 1; }), "working failed without a word");
}

TEST(WorkApart, ThatASignalEndsOrThatLeavesIsTold) {
    for (const int each : {SIGSEGV, SIGABRT, SIGFPE, SIGBUS}) {
        const std::string how = HowItFailed([each] {
            signal(each, SIG_DFL);  // sanitizers have handlers of their own
            raise(each);
            return std::string("survived");
        });
        EXPECT_EQ(how, std::string("working broke off (") + strsignal(each) + ")");
    }
    const std::string killed = HowItFailed([] {
        raise(SIGKILL);
        return std::string("survived");
    });
    EXPECT_EQ(killed, "working was ended from outside, as where memory runs out");
    EXPECT_EQ(HowItFailed([]() -> std::string { _exit(3); }), "working broke off (status 3)");
    EXPECT_EQ(HowItFailed([]() -> std::string { _exit(0); }), "working broke off without a word");
}

TEST(WorkApart, ThatNeverEndsIsGivenUp) {
    const auto forEver = [] {
        for (;;) pause();
        return std::string();
    };
    EXPECT_EQ(HowItFailed(forEver, {.seconds = 0}), "working takes more than 0 seconds");
}

TEST(WorkApart, ThatTakesAllMemoryIsGivenUp) {
    const auto greedy = [] {
        std::vector<std::string> taken;
        for (;;) taken.emplace_back(std::size_t{1} << 20, 'x');
        return std::string();
    };
    // More than a test program has before it does anything.
    EXPECT_EQ(HowItFailed(greedy, {.seconds = 60, .bytes = std::uint64_t{1} << 29}),
              "working takes more than 512 MB of memory");
}

}  // namespace

#endif
