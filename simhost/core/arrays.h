// The ledger of what callers have to free, host arrays and records: who holds what, and what is
// not there any more.
#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "hostapi/host/types.h"

namespace simhost {

// An array or a handle that a caller leaves to the host for ever.
struct HeldOnPurpose {
    const char* holder;
    const char* origin;
    std::size_t objectSize;  // 0: of any size
    const char* why;
};

// A caller that frees a null array and ignores the answer.
struct NullFreedOnPurpose {
    const char* holder;
    const char* why;
};

class ArrayLedger {
public:
    ~ArrayLedger();

    // What the plug-in at hand does on purpose; nothing before.
    void Forgive(std::vector<HeldOnPurpose> held, std::vector<NullFreedOnPurpose> nullFreed) {
        heldOnPurpose_ = std::move(held);
        nullFreedOnPurpose_ = std::move(nullFreed);
    }

    // The holder of arrays that the host lends and takes back itself: nobody else frees them, and
    // they are not among those that are held.
    static constexpr const char* kTheHost = "the host";
    // Is told of each array that ends, while it is still whole. The host sets it.
    std::function<void(const void* array)> ending;

    ProArray Allocate(int objects, int objectSize, int step, std::string origin = {});
    void Free(ProArray array);
    void TakeBack(ProArray array);  // one of the host's own
    int Size(ProArray array) const;
    void Insert(ProArray* array, int index, int count, const void* object);

    // A new array that holds these elements, for operations that return one.
    template <class T>
    T* Make(const std::vector<T>& elements, std::string origin) {
        ProArray array = Allocate(0, int(sizeof(T)), 1, std::move(origin));
        if (!elements.empty()) Insert(&array, -1, int(elements.size()), elements.data());
        return static_cast<T*>(array);
    }

    // A new array of narrow names (system code page), and its end with all of its texts.
    char** MakeNames(std::vector<std::string> names, std::string origin);
    void FreeNames(char** names, int count);

    // A record for the caller to give back, at the address that is returned; and its end. Giving
    // back what is not lent is a complaint.
    template <class Record>
    Record* Lend(const Record& record, const std::string& origin) {
        auto memory = std::make_shared<Record>(record);
        NoteLoan(memory, sizeof record, origin);
        return memory.get();
    }
    void TakeBackRecord(const void* record);
    // Whether the address lies in one of the records that were given back last.
    bool WasTakenBack(const void* address) const;

    // A handle that the caller has to give back by its own call, and its end.
    void NoteHandle(const void* handle, std::string origin) {
        handles_[handle] = {holder, std::move(origin)};
    }
    void ForgetHandle(const void* handle) { handles_.erase(handle); }

    // On whose behalf arrays are made now: "command BatchColor", "popup access".
    std::string holder;

    // What is still allocated, as lines "holder, origin: n objects of m bytes"; the origin is the
    // operation that made the array, "ProArrayAlloc" for the plug-in's own. And what is lent.
    std::vector<std::string> Held() const;
    // The same without those that are left on purpose; see Forgive.
    std::vector<std::string> HeldByMistake() const;
    std::size_t BytesHeld() const;
    void FreeAll();

private:
    struct Loan {
        std::string holder, origin;
        std::size_t size = 0;
        std::shared_ptr<void> memory;
    };
    struct Range {
        const void* begin;
        const void* end;
        bool Holds(const void* address) const {
            return !std::less<>()(address, begin) && std::less<>()(address, end);
        }
    };
    void NoteLoan(std::shared_ptr<void> memory, std::size_t size, std::string origin);
    std::vector<std::string> LoansHeld(bool byMistake) const;
    bool IsOnPurpose(const std::string& by, const std::string& origin,
                     std::size_t objectSize) const;
    struct HeldHandle {
        std::string holder, origin;
    };
    std::map<const void*, Loan> loans_;
    std::map<const void*, HeldHandle> handles_;
    std::deque<Range> takenBack_;
    struct Header;
    Header* Require(ProArray array) const;
    void End(Header* header);
    static std::string Line(const Header& header);
    std::vector<HeldOnPurpose> heldOnPurpose_;
    std::vector<NullFreedOnPurpose> nullFreedOnPurpose_;
    std::unordered_map<const void*, Header*> live_;
    std::unordered_map<const void*, std::vector<std::string>> names_;  // texts by their array
};

// Names the holder of arrays for as long as the plug-in runs on that behalf.
class HolderScope {
public:
    HolderScope(ArrayLedger& ledger, std::string holder)
        : ledger_(ledger), before_(std::exchange(ledger.holder, std::move(holder))) {}
    ~HolderScope() { ledger_.holder = std::move(before_); }
    HolderScope(const HolderScope&) = delete;
    HolderScope& operator=(const HolderScope&) = delete;

private:
    ArrayLedger& ledger_;
    std::string before_;
};

}  // namespace simhost
