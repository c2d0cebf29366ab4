// The clipboard, and the blocks of memory that texts are handed to it in. A block's handle is not
// its address, so whoever forgets to lock it is found out.
#include <algorithm>
#include <cstring>

#include "simhost/core/operation.h"
#include "simhost/core/text.h"
#include "simhost/windows/simulated.h"

using namespace simhost;

namespace simhost {

namespace {

constexpr std::size_t kStrip = 16;  // bytes behind a block
constexpr char kUntouched = 0x5a;

void CheckStrip(const MemoryBlock& block) {
    const auto end = block.bytes.begin() + std::ptrdiff_t(block.size);
    if (std::all_of(end, block.bytes.end(), [](char byte) { return byte == kUntouched; })) return;
    Complain(0, "memory was written beyond its end");
}

void CheckHandedOver(const MemoryBlock& block) {
    if (block.handedOver && *block.handedOver != block.bytes) {
        Complain(0, "memory was written after it was handed to the clipboard");
    }
}

// The text of a block; complains about one without an end.
WideText TextIn(const MemoryBlock& block) {
    WideText text(block.size / sizeof(WideChar), WideChar{});
    std::memcpy(text.data(), block.bytes.data(), text.size() * sizeof(WideChar));
    const std::size_t end = text.find(WideChar{});
    if (end == WideText::npos) Complain(0, "the text for the clipboard has no terminator");
    return text.substr(0, end);
}

}  // namespace

bool SimulatedWindows::OpenTheClipboard() {
    if (clipboardHeld_) return false;
    if (clipboardOpen) Complain(0, "the clipboard is open already");
    clipboardOpen = true;
    return true;
}

void SimulatedWindows::CloseTheClipboard() {
    if (!clipboardOpen) Complain(0, "the clipboard is not open");
    clipboardOpen = false;
    for (const auto& [format, block] : clipboard_) CheckHandedOver(*block);
}

void SimulatedWindows::EmptyTheClipboard() {
    if (!clipboardOpen) Complain(0, "the clipboard is not open");
    for (const auto& [format, block] : clipboard_) {
        CheckHandedOver(*block);
        memory_.Drop(block->handle);
        blocks_.remove_if([gone = block](const MemoryBlock& each) { return &each == gone; });
    }
    clipboard_.clear();
}

void SimulatedWindows::PutOntoClipboard(UINT format, HANDLE memory) {
    MemoryBlock& block = RequireOwn(memory);
    if (!clipboardOpen) Complain(0, "the clipboard is not open");
    if (clipboard_.count(format)) Complain(0, "the clipboard was not emptied");
    if (block.locked) Complain(0, "memory for the clipboard is still locked");
    CheckStrip(block);
    if (format == CF_UNICODETEXT) TextIn(block);
    block.handedOver = block.bytes;
    clipboard_[format] = &block;
}

HGLOBAL SimulatedWindows::Allocate(std::size_t bytes) {
    MemoryBlock& block = blocks_.emplace_back();
    block.size = bytes;
    block.bytes.assign(bytes + kStrip, kUntouched);
    block.handle = memory_.Add(&block);
    return block.handle;
}

void SimulatedWindows::Free(HGLOBAL memory) {
    MemoryBlock& block = RequireOwn(memory);
    CheckStrip(block);
    memory_.Drop(memory);
    blocks_.remove_if([&block](const MemoryBlock& each) { return &each == &block; });
}

MemoryBlock& SimulatedWindows::RequireOwn(HGLOBAL memory) const {
    MemoryBlock* block = memory_.Find(memory);
    if (!block) Complain(0, "the handle names no block of memory");
    if (block->handedOver) Complain(0, "the memory was handed to the clipboard");
    return *block;
}

std::optional<WideText> SimulatedWindows::ClipboardText() {
    const auto found = clipboard_.find(CF_UNICODETEXT);
    if (found == clipboard_.end() || clipboardHeld_) return std::nullopt;
    return TextIn(*found->second);
}

}  // namespace simhost

namespace {

BOOL Refused(int) {
    return FALSE;
}
void* Null(int) {
    return nullptr;
}

}  // namespace

BOOL OpenClipboard(HWND owner) {
    Operation& op = Op<"OpenClipboard">;
    return op.CallOr(
        Refused, [] { return BOOL{Simulated().OpenTheClipboard()}; }, "owner",
        static_cast<const void*>(owner));
}

// Told to fail, it closes the clipboard all the same, so that no test keeps it.
BOOL CloseClipboard() {
    Operation& op = Op<"CloseClipboard">;
    const auto close = [] {
        Simulated().CloseTheClipboard();
        return BOOL{TRUE};
    };
    return op.CallOr(
        [](int) {
            Simulated().clipboardOpen = false;
            return BOOL{FALSE};
        },
        close);
}

BOOL EmptyClipboard() {
    Operation& op = Op<"EmptyClipboard">;
    return op.CallOr(Refused, [] {
        Simulated().EmptyTheClipboard();
        return BOOL{TRUE};
    });
}

HANDLE SetClipboardData(UINT format, HANDLE memory) {
    Operation& op = Op<"SetClipboardData">;
    WideText text;
    return op.CallOr(
        Null,
        [&]() -> HANDLE {
            Simulated().PutOntoClipboard(format, memory);
            text = Simulated().ClipboardText().value_or(WideText());
            return memory;
        },
        "format", format, "text", TextThen{&text});
}

HGLOBAL GlobalAlloc(UINT flags, SIZE_T bytes) {
    Operation& op = Op<"GlobalAlloc">;
    return op.CallOr(
        Null, [&]() -> HGLOBAL { return Simulated().Allocate(bytes); }, "flags", flags, "bytes",
        bytes);
}

void* GlobalLock(HGLOBAL memory) {
    Operation& op = Op<"GlobalLock">;
    return op.CallOr(Null, [&]() -> void* {
        MemoryBlock& block = Simulated().RequireOwn(memory);
        block.locked = true;
        return block.bytes.data();
    });
}

// Told to fail, it unlocks all the same, as the clipboard is closed.
BOOL GlobalUnlock(HGLOBAL memory) {
    Operation& op = Op<"GlobalUnlock">;
    return op.CallOr(
        [&](int) {
            if (MemoryBlock* block = Simulated().FindBlock(memory)) block->locked = false;
            return BOOL{FALSE};
        },
        [&] {
            MemoryBlock& block = Simulated().RequireOwn(memory);
            if (!block.locked) Complain(0, "the memory is not locked");
            block.locked = false;
            return BOOL{FALSE};  // nobody has it locked any more
        });
}

HGLOBAL GlobalFree(HGLOBAL memory) {
    Operation& op = Op<"GlobalFree">;
    return op.CallOr([&](int) { return memory; },
                     [&]() -> HGLOBAL {
                         if (memory) Simulated().Free(memory);
                         return nullptr;
                     });
}
