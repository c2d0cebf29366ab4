// The one simulated host of the process.
#include "simhost/host.h"

#include "simhost/system/windows.h"

namespace simhost {

namespace {

std::unique_ptr<Host>& Instance() {
    static std::unique_ptr<Host> host;
    return host;
}

}  // namespace

Host& TheHost() {
    auto& host = Instance();
    if (!host) host = std::make_unique<Host>();
    return *host;
}

Host::Host() {
    ServeHost(&forWindows_);
}

Host::~Host() {
    ServeHost(nullptr);
}

void RestartHost() {
    Operation::ForgetFaults();
    Operation::ResetCounts();
    Operation::journalling = false;
    Instance().reset();
    TheHost();  // Windows serves it from now on
}

}  // namespace simhost
