// Counting, failing and recording of the calls through the door, and how values look in the
// journal.
#include "simhost/core/operation.h"

#include <fmt/format.h>

#include <mutex>
#include <stdexcept>

#include "simhost/core/journal.h"
#include "simhost/core/meanwhile.h"
#include "simhost/core/text.h"

namespace simhost {

namespace {

std::map<std::string, Operation*>& Registry() {
    static std::map<std::string, Operation*> operations;
    return operations;
}

struct ArmedFault {
    Fault fault;
    int fired = 0;  // how often
};
std::vector<ArmedFault>& Faults() {
    static std::vector<ArmedFault> faults;
    return faults;
}

// See DoMeanwhile.
struct Change {
    std::string operation;
    std::uint64_t n;
    std::function<void()> perform;
};
std::vector<Change>& Changes() {
    static std::vector<Change> changes;
    return changes;
}

std::uint64_t firedFaults = 0;

// Operations that ask the user, with the status of a user who leaves. Commands ask again until that
// comes, so a question that failed for good would have no end: after some failures the user leaves.
struct Question {
    const char* operation;
    int left;
};
constexpr Question kQuestions[] = {
    {"ProMessageStringRead", PRO_TK_MSG_USER_QUIT},
};
constexpr int kPatience = 5;

// The status of one more failure after so many.
int StatusAfter(const Fault& fault, int failures) {
    for (const Question& question : kQuestions) {
        if (fault.operation == question.operation && failures >= kPatience) return question.left;
    }
    return fault.status;
}

struct Listeners {
    Journal* journal = nullptr;
    Operation::ComplaintSink complain;
    std::string (*describe)(const void*) = nullptr;
};
// Calls on threads that are not the host's, until the host's own thread tells of them.
struct ForeignCalls {
    std::mutex mutex;
    std::vector<std::string> names;
};
ForeignCalls& TheForeignCalls() {
    static ForeignCalls calls;
    return calls;
}

Listeners& TheListeners() {
    static Listeners listeners;
    return listeners;
}

}  // namespace

std::thread::id Operation::hostThread;
std::atomic<std::uint64_t> Operation::pulse{0};
std::atomic<const char*> Operation::latest{nullptr};
bool Operation::journalling = false;
bool Operation::faultsArmed = false;

void Refuse(int status) {
    throw Refusal{status, {}};
}

void Complain(int status, std::string complaint) {
    throw Refusal{status, std::move(complaint)};
}

void ComplainOfNull(const char* what) {
    std::string complaint = what;
    complaint += " is null";
    Complain(PRO_TK_BAD_INPUTS, std::move(complaint));
}

Operation::Operation(const char* name) : name_(name) {
    Registry()[name] = this;
}

const std::map<std::string, Operation*>& Operation::All() {
    return Registry();
}

void Operation::Fail(Fault fault) {
    Faults().push_back({std::move(fault)});
    faultsArmed = true;
}

void Operation::ForgetFaults() {
    Faults().clear();
    Changes().clear();
    faultsArmed = false;
    firedFaults = 0;
}

std::uint64_t Operation::FiredFaults() {
    return firedFaults;
}

void Operation::ResetCounts() {
    for (auto& [name, operation] : Registry()) operation->calls_ = 0;
}

std::uint64_t Operation::TotalCalls() {
    std::uint64_t total = 0;
    for (const auto& [name, operation] : Registry()) total += operation->calls_;
    return total;
}

std::vector<Fault> Operation::UnreachedFaults() {
    std::vector<Fault> unreached;
    for (const ArmedFault& armed : Faults()) {
        if (armed.fired == 0) unreached.push_back(armed.fault);
    }
    return unreached;
}

void DoMeanwhile(const std::string& operation, std::uint64_t n, std::function<void()> change) {
    Changes().push_back({operation, n, std::move(change)});
    Operation::faultsArmed = true;
}

Operation::Injected Operation::Strike() {
    for (Change& change : Changes()) {
        if (change.operation != name_ || change.n == 0) continue;
        if (--change.n == 0) change.perform();
    }
    for (ArmedFault& armed : Faults()) {
        Fault& fault = armed.fault;
        if (fault.operation != name_ || fault.n == 0) continue;
        if (--fault.n > 0) continue;
        if (fault.forGood) fault.n = 1;
        ++firedFaults;
        return {true, fault.afterWork, StatusAfter(fault, armed.fired++)};
    }
    return {};
}

void Operation::Serve(Journal* journal, ComplaintSink complain) {
    TheListeners().journal = journal;
    hostThread = journal ? std::this_thread::get_id() : std::thread::id{};
    TheListeners().complain = std::move(complain);
}

void Operation::NoteForeignCall() const {
    ForeignCalls& foreign = TheForeignCalls();
    const std::lock_guard lock(foreign.mutex);
    foreign.names.push_back(name_);
}

void Operation::ComplainOfForeignCalls() {
    ForeignCalls& foreign = TheForeignCalls();
    std::vector<std::string> names;
    {
        const std::lock_guard lock(foreign.mutex);
        names.swap(foreign.names);
    }
    for (const std::string& name : names) {
        TheListeners().complain(name + ": called on a thread that is not the host's");
    }
}

void Operation::DescribeHandlesBy(std::string (*describe)(const void* handle)) {
    TheListeners().describe = describe;
}

void Operation::Report(const Refusal& refusal) {
    if (refusal.complaint.empty()) return;
    const std::string complaint = fmt::format("{}: {}", name_, refusal.complaint);
    // A complaint that nobody hears must not pass for a good run.
    if (!TheListeners().complain) throw std::logic_error("no host hears: " + complaint);
    TheListeners().complain(complaint);
}

Operation::Pulse Operation::TakePulse() {
    const char* last = latest.load(std::memory_order_relaxed);
    return {pulse.load(std::memory_order_relaxed), last ? last : ""};
}

long Operation::Begin() {
    return TheListeners().journal ? TheListeners().journal->Begin(name_) : -1;
}

void Operation::End(long line, const std::string& arguments, const std::string& result) {
    if (TheListeners().journal) TheListeners().journal->End(line, arguments, result);
}

void Operation::Add(std::string* text, const char* name, const std::string& value) {
    if (!text->empty()) *text += ", ";
    *text += name;
    *text += '=';
    *text += value;
}

// --- Values in the journal ---

// clang-format off
std::string Describe(int value) { return fmt::format("{}", value); }
std::string Describe(unsigned value) { return fmt::format("{}", value); }
std::string Describe(long value) { return fmt::format("{}", value); }
std::string Describe(unsigned long value) { return fmt::format("{}", value); }
std::string Describe(long long value) { return fmt::format("{}", value); }
std::string Describe(unsigned long long value) { return fmt::format("{}", value); }
std::string Describe(double value) { return fmt::format("{}", value); }
// clang-format on

std::string InQuotes(const std::string& utf8) {
    std::string text = "\"";
    for (char c : utf8) {
        switch (c) {
            case '\t': text += "\\t"; break;
            case '\n': text += "\\n"; break;
            case '\r': text += "\\r"; break;
            case '"': text += "\\\""; break;
            default:
                if (std::uint8_t(c) < 0x20 || c == 0x7f) {
                    text += fmt::format("\\x{:02x}", std::uint8_t(c));
                } else {
                    text += c;
                }
        }
    }
    return text + '"';
}

std::string DescribeList(std::size_t count,
                         const std::function<std::string(std::size_t i)>& describe) {
    const Journal* journal = TheListeners().journal;
    const std::size_t shown = std::min(count, journal ? journal->mostListed() : count);
    std::string text = "[";
    for (std::size_t i = 0; i < shown; ++i) text += (i ? ", " : "") + describe(i);
    if (shown < count) text += fmt::format(", and {} more", count - shown);
    return text + ']';
}

std::string Describe(const char* text) {
    return text ? InQuotes(Utf8(FromSystemCodePage(text))) : "null";
}

std::string Describe(const WideChar* text) {
    return text ? InQuotes(Utf8(text)) : "null";
}

std::string Describe(const void* handle) {
    if (!handle) return "null";
    return TheListeners().describe ? TheListeners().describe(handle) : "pointer";
}

}  // namespace simhost
