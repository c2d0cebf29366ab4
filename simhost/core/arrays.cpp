// Host arrays, each with a header and all in a list of the live ones; and records that are lent.
#include "simhost/core/arrays.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "simhost/core/operation.h"

namespace simhost {

struct ArrayLedger::Header {
    std::string holder, origin;
    std::size_t objectSize = 0;
    std::size_t size = 0;
    std::size_t capacity = 0;
    char* elements = nullptr;  // a block of its own, so that an overrun is found by the sanitizer
};

ArrayLedger::~ArrayLedger() {
    FreeAll();
}

ArrayLedger::Header* ArrayLedger::Require(ProArray array) const {
    if (!array) Complain(PRO_TK_BAD_INPUTS, "the array is null");
    const auto found = live_.find(array);
    if (found == live_.end()) Complain(PRO_TK_BAD_INPUTS, "not a live array");
    return found->second;
}

ProArray ArrayLedger::Allocate(int objects, int objectSize, int step, std::string origin) {
    if (objects < 0 || objectSize <= 0 || step <= 0) {
        Complain(PRO_TK_BAD_INPUTS, "a size of the array is not positive");
    }
    auto* header = new Header;
    header->holder = holder;
    header->origin = origin.empty() ? "ProArrayAlloc" : std::move(origin);
    header->objectSize = std::size_t(objectSize);
    header->size = header->capacity = std::size_t(objects);
    // An empty array has an address too.
    header->elements =
        static_cast<char*>(std::calloc(std::max<std::size_t>(header->size, 1), header->objectSize));
    live_[header->elements] = header;
    return header->elements;
}

void ArrayLedger::Free(ProArray array) {
    const auto forgiven = [&](const NullFreedOnPurpose& row) { return holder == row.holder; };
    if (!array && std::any_of(nullFreedOnPurpose_.begin(), nullFreedOnPurpose_.end(), forgiven)) {
        Refuse(PRO_TK_BAD_INPUTS);
    }
    Header* header = Require(array);
    if (header->holder == kTheHost) {
        Complain(PRO_TK_BAD_INPUTS, "the array is the host's own: " + header->origin);
    }
    End(header);
}

void ArrayLedger::TakeBack(ProArray array) {
    End(Require(array));
}

void ArrayLedger::End(Header* header) {
    if (ending) ending(header->elements);
    live_.erase(header->elements);
    std::free(header->elements);
    delete header;
}

int ArrayLedger::Size(ProArray array) const {
    return int(Require(array)->size);
}

void ArrayLedger::Insert(ProArray* array, int index, int count, const void* object) {
    Header* header = Require(*array);
    if (count <= 0 || index < -1 || index > int(header->size)) {
        Complain(PRO_TK_BAD_INPUTS, "no such place in the array");
    }
    const auto added = std::size_t(count);
    const std::size_t place = index < 0 ? header->size : std::size_t(index);
    if (header->size + added > header->capacity) {
        // Always to a new place: whoever kept the old address is found out.
        header->capacity = std::max(header->size + added, header->capacity * 2);
        auto* moved = static_cast<char*>(std::malloc(header->capacity * header->objectSize));
        std::memcpy(moved, header->elements, header->size * header->objectSize);
        live_.erase(header->elements);
        std::free(header->elements);
        header->elements = moved;
        live_[moved] = header;
        *array = moved;
    }
    char* hole = header->elements + place * header->objectSize;
    std::memmove(hole + added * header->objectSize, hole,
                 (header->size - place) * header->objectSize);
    std::memcpy(hole, object, added * header->objectSize);
    header->size += added;
}

char** ArrayLedger::MakeNames(std::vector<std::string> names, std::string origin) {
    if (names.empty()) return nullptr;
    std::vector<char*> texts;
    texts.reserve(names.size());
    for (std::string& name : names) texts.push_back(name.data());
    char** array = Make(texts, std::move(origin));
    names_[array] = std::move(names);
    return array;
}

void ArrayLedger::FreeNames(char** names, int count) {
    const auto found = names_.find(names);
    if (found == names_.end()) Complain(PRO_TK_BAD_INPUTS, "not a live array of names");
    if (count != int(found->second.size())) {
        Complain(PRO_TK_BAD_INPUTS,
                 fmt::format("{} names are freed of {}", count, found->second.size()));
    }
    names_.erase(found);
    Free(names);
}

// --- Records ---

void ArrayLedger::NoteLoan(std::shared_ptr<void> memory, std::size_t size, std::string origin) {
    const void* begin = memory.get();
    // What was here before is forgotten: the address is good again.
    const Range range{begin, static_cast<const char*>(begin) + size};
    std::erase_if(takenBack_, [&](const Range& old) {
        return range.Holds(old.begin) || old.Holds(range.begin);
    });
    loans_[begin] = {holder, std::move(origin), size, std::move(memory)};
}

void ArrayLedger::TakeBackRecord(const void* record) {
    if (!record) Complain(PRO_TK_BAD_INPUTS, "the record is null");
    const auto found = loans_.find(record);
    if (found == loans_.end()) {
        Complain(PRO_TK_BAD_INPUTS,
                 WasTakenBack(record) ? "a record that is freed already" : "not a live record");
    }
    constexpr std::size_t kRemembered = 16;
    const Loan& loan = found->second;
    // Whoever reads on finds no number; and the sanitizer finds whoever reads on.
    std::memset(loan.memory.get(), 0xff, loan.size);
    takenBack_.push_back({record, static_cast<const char*>(record) + loan.size});
    if (takenBack_.size() > kRemembered) takenBack_.pop_front();
    loans_.erase(found);
}

bool ArrayLedger::WasTakenBack(const void* address) const {
    return std::any_of(takenBack_.begin(), takenBack_.end(),
                       [&](const Range& range) { return range.Holds(address); });
}

bool ArrayLedger::IsOnPurpose(const std::string& by, const std::string& origin,
                              std::size_t objectSize) const {
    return std::any_of(heldOnPurpose_.begin(), heldOnPurpose_.end(), [&](const auto& row) {
        return by == row.holder && origin == row.origin &&
               (row.objectSize == 0 || row.objectSize == objectSize);
    });
}

std::vector<std::string> ArrayLedger::LoansHeld(bool byMistake) const {
    std::vector<std::string> held;
    for (const auto& [address, loan] : loans_) {
        held.push_back(
            fmt::format("{}, {}: a record of {} bytes", loan.holder, loan.origin, loan.size));
    }
    for (const auto& [address, handle] : handles_) {
        if (byMistake && IsOnPurpose(handle.holder, handle.origin, 0)) continue;
        held.push_back(fmt::format("{}, {}: a handle", handle.holder, handle.origin));
    }
    return held;
}

// --- What is held ---

std::string ArrayLedger::Line(const Header& header) {
    return fmt::format("{}, {}: {} objects of {} bytes", header.holder, header.origin, header.size,
                       header.objectSize);
}

std::vector<std::string> ArrayLedger::Held() const {
    std::vector<std::string> held = LoansHeld(/*byMistake=*/false);
    for (const auto& [address, header] : live_) {
        if (header->holder != kTheHost) held.push_back(Line(*header));
    }
    return held;
}

std::vector<std::string> ArrayLedger::HeldByMistake() const {
    std::vector<std::string> held = LoansHeld(/*byMistake=*/true);
    for (const auto& [address, header] : live_) {
        if (header->holder == kTheHost) continue;
        if (!IsOnPurpose(header->holder, header->origin, header->objectSize)) {
            held.push_back(Line(*header));
        }
    }
    return held;
}

std::size_t ArrayLedger::BytesHeld() const {
    std::size_t bytes = 0;
    for (const auto& [address, header] : live_) bytes += header->capacity * header->objectSize;
    for (const auto& [address, loan] : loans_) bytes += loan.size;
    return bytes;
}

void ArrayLedger::FreeAll() {
    for (const auto& [address, header] : live_) {
        std::free(header->elements);
        delete header;
    }
    live_.clear();
    loans_.clear();
    handles_.clear();
}

}  // namespace simhost
