// The simulated Windows itself: how it is started anew, and what is left open.
#include "simhost/windows/simulated.h"

#include <fmt/format.h>

#include <memory>
#include <optional>

#include "simhost/core/text.h"
#include "simhost/system/clock.h"

namespace simhost {

namespace {

std::unique_ptr<SimulatedWindows>& Instance() {
    static std::unique_ptr<SimulatedWindows> windows;
    return windows;
}

}  // namespace

SimulatedWindows& Simulated() {
    auto& windows = Instance();
    if (!windows) windows = std::make_unique<SimulatedWindows>();
    return *windows;
}

Windows& TheWindows() {
    return Simulated();
}

void RestartWindows() {
    Instance().reset();
    SetClock(std::nullopt);
    SetSystemCodePage(936);
}

std::vector<std::string> SimulatedWindows::OpenHandles() const {
    std::vector<std::string> lines;
    for (const OpenKey& key : openKeys_) lines.push_back("key " + Utf8(key.path));
    for (const OpenFile& file : openFiles_) lines.push_back("file " + Utf8(file.path));
    for (std::size_t i = 0; i < openThreads_.size(); ++i) lines.push_back("thread");
    for (const MemoryBlock& block : blocks_) {
        if (!block.handedOver) lines.push_back(fmt::format("memory of {} bytes", block.size));
    }
    if (clipboardOpen) lines.push_back("clipboard");
    return lines;
}

}  // namespace simhost
