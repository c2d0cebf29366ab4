// Running a story again and again, each time with another call through the door failing: the first
// call of each operation, or in the full sweep every call, once and for good.
#pragma once

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "tests/sweep/world.h"

namespace sweep {

// What is done in a fresh world. Faults go into `act`; `after` says what must still go, without
// faults; where it is empty `act` is done once more.
struct Story {
    std::string name;
    std::function<void(World&)> prepare;
    std::function<void(World&)> act;
    std::function<void(World&)> after = {};
    // Operations that the story is about: one that it never calls is a failure of the sweep.
    std::vector<std::string> mustCall = {};
    // The name under which the story's command appears in its record; may be empty.
    std::string command = {};
};

// A complaint that a prescribed sequence forces once an operation has failed.
struct Forced {
    std::string failed;
    std::string complaint;  // how it begins
    std::string reason;
};

class Sweep {
public:
    // Where `allNeeded`, every row of the forced complaints must have been needed at the end; a
    // failure else.
    explicit Sweep(std::vector<Forced> forced = {}, bool allNeeded = true)
        : forced_(std::move(forced)), allNeeded_(allNeeded) {}
    ~Sweep();
    Sweep(const Sweep&) = delete;
    Sweep& operator=(const Sweep&) = delete;

    // Records the story, then runs it with faults. A story whose record is that of an earlier one
    // of this sweep, but for the command's name, is left out: the plug-in sees and does the same,
    // call by call.
    void Run(const Story& story);

    // What the story calls without faults, each name once. It is checked as the recording of Run
    // is.
    std::set<std::string> Reached(const Story& story);

    // How much is made to fail. A run takes five times as long on a real Windows, where the plug-in
    // goes the same ways: it always tries some there.
    enum class Extent {
        kSome,   // the first call of one operation in four, others with each seed
        kFirst,  // the first call of each operation
        kAll     // every call: VX_SWEEP is "full"
    };
    static Extent HowMuch();

    // Of all sweeps of the process.
    static int runs;
    static int stories;

private:
    // The journal of a run without faults: its text and the names of its calls.
    struct Recording {
        std::string text;
        std::vector<std::string> names;
    };
    Recording Record(const Story& story);
    void FailOperation(const Story& story, const std::string& operation, int calls);
    // How often the operation was called in `act`.
    int RunWith(const Story& story, const std::string& operation, int n, bool forGood);
    void CheckComplaints(World& world, const std::string& failed, const std::string& run);

    std::vector<Forced> forced_;
    bool allNeeded_;
    std::set<const Forced*> needed_;
    std::set<std::string> records_;
};

}  // namespace sweep
