// What a simulated and a real Windows have in common.
#include "simhost/system/windows.h"

#include <cstring>
#include <stdexcept>

namespace simhost {

namespace {

const HostSide* served = nullptr;

}  // namespace

void ServeHost(const HostSide* host) {
    served = host;
}

const HostSide& Windows::host() {
    if (!served) throw std::logic_error("no host runs on this Windows");
    return *served;
}

void Windows::SetRegistry(WideView path, WideView name, WideView text) {
    std::string bytes((text.size() + 1) * sizeof(WideChar), '\0');
    std::memcpy(bytes.data(), text.data(), text.size() * sizeof(WideChar));
    SetRegistry(path, name, REG_SZ, std::move(bytes));
}

int Windows::StopTimers(const std::function<bool(TIMERPROC)>& which) {
    std::vector<UINT_PTR> ids;
    for (const Timer& timer : timers_) {
        if (which(timer.procedure)) ids.push_back(timer.id);
    }
    for (const UINT_PTR id : ids) StopTimer(id);
    return static_cast<int>(ids.size());
}

}  // namespace simhost
