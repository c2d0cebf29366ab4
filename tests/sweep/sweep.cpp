// The fault sweep itself.
#include "tests/sweep/sweep.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <map>
#include <utility>

#include "simhost/core/disk.h"
#include "simhost/core/file_names.h"
#include "simhost/core/operation.h"
#include "simhost/model/model.h"
#include "tests/support/desk.h"
#include "tests/sweep/crash_note.h"

namespace sweep {

using namespace simhost;

int Sweep::runs = 0;
int Sweep::stories = 0;

namespace {

// Up to this many calls of an operation in a story every one fails in its turn. Beyond that (the 56
// rows of the menu, the features of a walk) the calls repeat each other, and the first ones, one in
// the middle and the last ones do for all.
constexpr int kAllUpTo = 8;

std::vector<int> CallsToFail(int calls) {
    std::vector<int> chosen;
    if (calls > kAllUpTo) return {1, 2, 3, calls / 2, calls - 1, calls};
    for (int n = 1; n <= calls; ++n) chosen.push_back(n);
    return chosen;
}

// No exception may leave the plug-in.
void Do(const std::function<void(World&)>& act, World& world, const std::string& run) {
    try {
        act(world);
    } catch (const std::exception& error) {
        ADD_FAILURE() << run << ": an exception came through the door: " << error.what();
    } catch (...) {
        ADD_FAILURE() << run << ": an exception came through the door";
    }
}

void CheckUnloaded(World& world, const std::string& run) {
    Do([](World& w) { w.Stop(); }, world, run);
    EXPECT_FALSE(World::ModuleIsInMemory()) << run << ": the module stays in memory";
    // Time in which whatever the module left to Windows would run.
    Do([](World& w) { w.Wait(); }, world, run);
}

bool StartsWith(const std::string& text, const std::string& beginning) {
    return text.compare(0, beginning.size(), beginning) == 0;
}

// What the model files of a folder hold; under which names is another matter.
std::multiset<std::string> ModelFiles(const std::filesystem::path& folder) {
    std::multiset<std::string> contents;
    std::error_code none;
    for (const auto& entry : std::filesystem::directory_iterator(folder, none)) {
        const auto name = entry.path().filename().u8string();
        std::string file;
        SplitVersion(std::string(name.begin(), name.end()), &file);
        const std::size_t dot = file.rfind('.');
        const bool isModel =
            dot != std::string::npos && TypeOfSuffix(file.substr(dot + 1)) != PRO_MDL_UNUSED;
        if (isModel) contents.insert(ReadFile(entry.path()));
    }
    return contents;
}

// No command deletes or overwrites a version of a model, whatever fails.
void DoAndKeepModels(const std::function<void(World&)>& act, World& world, const std::string& run) {
    const auto folder = world.host().disk.Real(world.host().session.workingDirectory);
    const std::multiset<std::string> before = ModelFiles(folder);
    Do(act, world, run);
    const std::multiset<std::string> after = ModelFiles(folder);
    EXPECT_TRUE(std::includes(after.begin(), after.end(), before.begin(), before.end()))
        << run << ": a model file is gone";
}

// The record without the command's name.
std::string Nameless(std::string text, const std::string& command) {
    if (command.empty()) return text;
    for (std::size_t at = text.find(command); at != std::string::npos; at = text.find(command)) {
        text.replace(at, command.size(), "*");
    }
    return text;
}

// A choice that is the same whenever the tests are shuffled with the same seed.
bool IsOneInFour(const std::string& text) {
    const int seed = ::testing::UnitTest::GetInstance()->random_seed();
    return std::hash<std::string>{}(text + std::to_string(seed)) % 4 == 0;
}

}  // namespace

Sweep::~Sweep() {
    if (!allNeeded_ || HowMuch() == Extent::kSome || ::testing::Test::HasFailure()) return;
    for (const Forced& row : forced_) {
        EXPECT_TRUE(needed_.count(&row))
            << "no run needs this exception any more, so strike it: " << row.failed << ", "
            << row.complaint;
    }
}

void Sweep::CheckComplaints(World& world, const std::string& failed, const std::string& run) {
    for (const std::string& complaint : std::exchange(world.host().complaints, {})) {
        const auto row = std::find_if(forced_.begin(), forced_.end(), [&](const Forced& each) {
            return failed == each.failed && StartsWith(complaint, each.complaint);
        });
        if (row != forced_.end()) {
            needed_.insert(&*row);
        } else {
            ADD_FAILURE() << run << ": the host complains: " << complaint;
        }
    }
}

Sweep::Recording Sweep::Record(const Story& story) {
    NoteRun(story.name);
    World world;
    Do(story.prepare, world, story.name);
    Journal& journal = world.host().journal;
    journal.Start();
    Do(story.act, world, story.name);
    journal.Stop();
    CheckComplaints(world, "nothing", story.name);
    EXPECT_EQ(world.failures(), std::vector<std::string>{}) << story.name;
    const Recording recording = {journal.Text(), journal.Names()};
    for (const std::string& operation : story.mustCall) {
        EXPECT_TRUE(std::count(recording.names.begin(), recording.names.end(), operation))
            << story.name << " never calls " << operation << ":\n"
            << recording.text;
    }
    CheckUnloaded(world, story.name);
    EXPECT_EQ(workbench::LeftOpen(), std::vector<std::string>{}) << story.name;
    EndNote();
    return recording;
}

std::set<std::string> Sweep::Reached(const Story& story) {
    const Recording recording = Record(story);
    return {recording.names.begin(), recording.names.end()};
}

Sweep::Extent Sweep::HowMuch() {
#ifdef _WIN32
    return Extent::kSome;
#else
    const char* sweep = std::getenv("VX_SWEEP");
    return sweep && std::string(sweep) == "full" ? Extent::kAll : Extent::kFirst;
#endif
}

int Sweep::RunWith(const Story& story, const std::string& operation, int n, bool forGood) {
    const std::string run = story.name + ", " + operation + " failing at call " +
                            std::to_string(n) + (forGood ? " and from then on" : "");
    NoteRun(run);
    ++runs;
    World world;
    Do(story.prepare, world, run);
    Operation::ResetCounts();
    workbench::Fail(operation, {.n = unsigned(n), .forGood = forGood});
    DoAndKeepModels(story.act, world, run);
    const auto fired = Operation::FiredFaults();
    Operation::ForgetFaults();
    const int calls = int(Operation::All().at(operation)->calls());
    EXPECT_GE(fired, 1u) << run << ": that call was never made";
    CheckComplaints(world, operation, run);

    // The session goes on.
    DoAndKeepModels(story.after ? story.after : story.act, world, run);
    CheckComplaints(world, operation, run + ", then without faults");
    CheckUnloaded(world, run);
    CheckComplaints(world, operation, run + ", then the end");
    // An array or a record that could not be freed is nobody's any more.
    std::vector<std::string> left = workbench::LeftOpen();
    static const std::set<std::string> kFrees = {
        "ProArrayFree",       "ProStringarrayFree", "ProGeomitemdataFree",
        "ProSimprepdataFree", "ProSelectionFree",   "ProAsmcompconstraintFree",
        "ProUdfdataFree",     "ProElementFree",     "ProPDFoptionsFree"};
    if (kFrees.count(operation) && left.size() <= fired) left.clear();
    EXPECT_EQ(left, std::vector<std::string>{}) << run;
    EndNote();
    return calls;
}

void Sweep::FailOperation(const Story& story, const std::string& operation, int calls) {
    if (HowMuch() == Extent::kSome && !IsOneInFour(story.name + operation)) return;
    if (HowMuch() != Extent::kAll) {
        RunWith(story, operation, 1, /*forGood=*/false);
        return;
    }
    for (const int n : CallsToFail(calls)) {
        const int made = RunWith(story, operation, n, /*forGood=*/false);
        // Where the failed call was the last one of its kind, failing for good is the same run.
        if (made > n) RunWith(story, operation, n, /*forGood=*/true);
    }
}

void Sweep::Run(const Story& story) {
    const Recording first = Record(story);
    if (first.names.empty()) return;
    if (!records_.insert(Nameless(first.text, story.command)).second) return;
    ++stories;
    std::map<std::string, int> calls;
    for (const std::string& name : first.names) ++calls[name];
    for (const auto& [operation, count] : calls) FailOperation(story, operation, count);
    // Nothing of all that has stayed in the process.
    EXPECT_EQ(Record(story).names, first.names) << story.name << " goes another way afterwards";
}

}  // namespace sweep
