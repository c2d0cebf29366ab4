// Every operation of the door runs through here: it is counted, told to fail if the user asked for
// that, recorded in the journal, and a misuse becomes a complaint instead of a crash. See
// simhost/door/door.h for the form that operations are written in.
#pragma once

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

#include "hostapi/host/types.h"

namespace simhost {

class Journal;

// Thrown inside an operation: it ends with this status. `complaint` is not empty where a real host
// would misbehave or crash (a dangling handle, a null output): it fails the run.
struct Refusal {
    int status;
    std::string complaint;
};

[[noreturn]] void Refuse(int status);
[[noreturn]] void Complain(int status, std::string complaint);

// What wraps an argument may have Missing(), which tells a null that is a complaint, and kOutput,
// which hides the argument of a refused call.

// An output of a call, shown in the journal with the value that it has after the call. Null is a
// complaint where the place is needed.
template <class T>
struct Output {
    static constexpr bool kOutput = true;
    T* place;
    bool needed = false;
    bool Missing() const { return needed && place == nullptr; }
};
template <class T>
Output<T> Out(T* place) {
    return {place};
}
template <class T>
Output<T> NeededOut(T* place) {
    return {place, true};
}

// An input that must not be null: a text, a record, a list.
template <class T>
struct GivenInput {
    T* value;
    bool Missing() const { return value == nullptr; }
};
template <class T>
GivenInput<T> Given(T* value) {
    return {value};
}

// Complains about a null pointer where the caller must give a place or a text.
[[noreturn]] void ComplainOfNull(const char* what);
template <class T>
void Need(T* pointer, const char* what = "an argument") {
    if (pointer == nullptr) ComplainOfNull(what);
}

// --- How values look in the journal ---
std::string Describe(int value);
std::string Describe(unsigned value);
std::string Describe(long value);
std::string Describe(unsigned long value);
std::string Describe(long long value);
std::string Describe(unsigned long long value);
std::string Describe(double value);
std::string Describe(const char* text);
std::string Describe(const WideChar* text);
// In quotes, with control characters as \t, \n, \r or \x1b.
std::string InQuotes(const std::string& utf8);
// A list as "[a, b]", in a journal that goes to a file the first 50 and how many more.
std::string DescribeList(std::size_t count,
                         const std::function<std::string(std::size_t i)>& describe);
std::string Describe(const void* handle);  // by whoever knows handles; else "pointer" or "null"
inline std::string Describe(char* text) {
    return Describe(static_cast<const char*>(text));
}
inline std::string Describe(WideChar* text) {
    return Describe(static_cast<const WideChar*>(text));
}
inline std::string Describe(void* handle) {
    return Describe(static_cast<const void*>(handle));
}

// Records look as whoever knows them says: template <> struct JournalText<ProModelitem> with
// `static std::string Of(const ProModelitem&)`, to be seen wherever the record is an argument.
template <class T>
struct JournalText;
template <class T>
concept HasJournalText = requires(const T& value) {
    JournalText<T>::Of(value);
};

template <class T>
std::string DescribeAny(const T& value) {
    if constexpr (HasJournalText<T>) {
        return JournalText<T>::Of(value);
    } else if constexpr (std::is_enum_v<T>) {
        return Describe(static_cast<int>(value));
    } else if constexpr (std::is_array_v<T>) {
        return Describe(&value[0]);  // a text in a record
    } else if constexpr (std::is_pointer_v<T> && std::is_function_v<std::remove_pointer_t<T>>) {
        return value ? "function" : "null";
    } else if constexpr (std::is_pointer_v<T>) {
        using Pointee = std::remove_cv_t<std::remove_pointer_t<T>>;
        if constexpr (std::is_same_v<Pointee, char> || std::is_same_v<Pointee, WideChar>) {
            return Describe(value);
        } else if constexpr (HasJournalText<Pointee>) {
            return value ? JournalText<Pointee>::Of(*value) : "null";
        } else {
            return Describe(static_cast<const void*>(value));
        }
    } else {
        return Describe(value);
    }
}
template <class T>
std::string DescribeAny(const Output<T>& output) {
    if (!output.place) return "null";
    if constexpr (std::is_same_v<T, WideChar> || std::is_same_v<T, char>) {
        return Describe(static_cast<const T*>(output.place));  // a text buffer
    } else if constexpr (HasJournalText<T*>) {
        return JournalText<T*>::Of(output.place);  // a matrix
    } else {
        return DescribeAny(*output.place);
    }
}
template <class T>
std::string DescribeAny(const GivenInput<T>& input) {
    return DescribeAny(input.value);
}

// The n-th call from now on fails (1 is the next), and with `forGood` every later one too. With
// `afterWork` the work is done first, as by a host that fills a record and refuses all the same.
// A question to the user that fails for good is left by the user after some failures.
struct Fault {
    std::string operation;
    std::uint64_t n = 1;
    bool forGood = false;
    int status = PRO_TK_GENERAL_ERROR;
    bool afterWork = false;
};

class Operation {
public:
    explicit Operation(const char* name);
    Operation(const Operation&) = delete;

    // What a body without a result gives is success.
    template <class Body>
    using ResultOf = std::conditional_t<std::is_void_v<std::invoke_result_t<Body>>, ProError,
                                        std::invoke_result_t<Body>>;

    // Runs `body` unless this call is told to fail. The rest are names and values for the journal;
    // an output is shown only on success.
    template <class Body, class... NamesAndValues>
    ResultOf<Body> Call(Body&& body, const NamesAndValues&... arguments) {
        return CallOr([](int status) { return ResultOf<Body>(status); }, std::forward<Body>(body),
                      arguments...);
    }

    // The same for an operation whose failures are not statuses: `failed(status)` gives its result.
    template <class Failed, class Body, class... NamesAndValues>
    ResultOf<Body> CallOr(Failed&& failed, Body&& body, const NamesAndValues&... arguments) {
        if (!OnHostThread()) {
            NoteForeignCall();
            return failed(PRO_TK_GENERAL_ERROR);
        }
        ++calls_;
        NoteCall();
        const long line = journalling ? Begin() : -1;
        ResultOf<Body> result{};
        Injected injected;
        bool refused = true;
        if (faultsArmed) injected = Strike();
        if (!injected.fails || injected.afterWork) {
            try {
                RefuseNull(arguments...);
                if constexpr (std::is_void_v<std::invoke_result_t<Body>>) {
                    body();
                } else {
                    result = body();
                }
                refused = false;
            } catch (const Refusal& refusal) {
                Report(refusal);
                result = failed(refusal.status);
            }
        }
        if (injected.fails) result = failed(injected.status);
        if (line >= 0) {
            std::string text;
            Append(&text, refused, arguments...);
            End(line, text, DescribeAny(result));
        }
        return result;
    }

    const char* name() const { return name_; }
    std::uint64_t calls() const { return calls_; }

    // --- The host's side ---
    // Where calls are recorded and complaints go; the host hands itself in at its start and takes
    // itself out at its end.
    using ComplaintSink = std::function<void(const std::string&)>;
    static void Serve(Journal* journal, ComplaintSink complain);
    // Whether this is the thread of the host, which is the one that served last. The host and its
    // journal are that thread's alone, so a call on another one is not answered.
    static bool OnHostThread() {
        return hostThread == std::thread::id{} || hostThread == std::this_thread::get_id();
    }
    // Complains, on the host's thread, about the calls that came on other ones since the last time.
    static void ComplainOfForeignCalls();
    // Who describes handles in the journal.
    static void DescribeHandlesBy(std::string (*describe)(const void* handle));

    // --- The user's side ---
    static bool journalling;  // set by Journal
    static bool faultsArmed;  // set by Fail

    // All operations by name. Those made by Op are known from the start.
    static const std::map<std::string, Operation*>& All();
    // Makes calls of an operation, known yet or not, end with `status`: see Fault.
    static void Fail(Fault fault);
    static void ForgetFaults();
    static std::uint64_t FiredFaults();  // calls that were failed since ForgetFaults
    // Those of Fail whose call was never made, in their order; `n` counts what is left to it.
    static std::vector<Fault> UnreachedFaults();
    static void ResetCounts();
    static std::uint64_t TotalCalls();
    // For another thread that wants to know how far the host's is: the number of calls since the
    // program began, and the name of the last one ("" before the first).
    struct Pulse {
        std::uint64_t calls;
        const char* last;
    };
    static Pulse TakePulse();

private:
    static std::thread::id hostThread;  // none: no host serves
    // Written by the host's thread alone, which so needs no counting in one step.
    static std::atomic<std::uint64_t> pulse;
    static std::atomic<const char*> latest;
    void NoteCall() const {
        pulse.store(pulse.load(std::memory_order_relaxed) + 1, std::memory_order_relaxed);
        latest.store(name_, std::memory_order_relaxed);
    }
    void NoteForeignCall() const;
    long Begin();
    void End(long line, const std::string& arguments, const std::string& result);
    struct Injected {
        bool fails = false;
        bool afterWork = false;
        int status = 0;
    };
    Injected Strike();  // what the faults say about this call
    void Report(const Refusal& refusal);

    static void RefuseNull() {}
    template <class Value, class... Rest>
    static void RefuseNull(const char* name, const Value& value, const Rest&... rest) {
        if constexpr (requires { value.Missing(); }) {
            if (value.Missing()) ComplainOfNull(name);
        }
        RefuseNull(rest...);
    }

    static void Append(std::string*, bool) {}
    template <class Value, class... Rest>
    static void Append(std::string* text, bool refused, const char* name, const Value& value,
                       const Rest&... rest) {
        if constexpr (requires { Value::kOutput; }) {
            if (!refused) Add(text, name, DescribeAny(value));
        } else {
            Add(text, name, DescribeAny(value));
        }
        Append(text, refused, rest...);
    }
    static void Add(std::string* text, const char* name, const std::string& value);

    const char* name_;
    std::uint64_t calls_ = 0;
};

template <std::size_t Size>
struct OperationName {
    consteval OperationName(const char (&name)[Size]) { std::copy_n(name, Size, text); }
    char text[Size];
};

// The operation of a name: Op<"ProMdlTypeGet">. It is made when the library is loaded, so that the
// list of operations is whole before the first call.
template <OperationName Name>
inline Operation Op{Name.text};

}  // namespace simhost
