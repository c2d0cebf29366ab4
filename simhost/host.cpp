// The one simulated host of the process.
#include "simhost/host.h"

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
    Operation::Serve(&journal, [this](const std::string& what) { Complain(what); });
}

Host::~Host() {
    Operation::Serve(nullptr, {});
}

void RestartHost() {
    Operation::ForgetFaults();
    Operation::ResetCounts();
    Operation::journalling = false;
    Instance().reset();
    TheHost();  // hears the complaints of operations from now on
}

void Host::Complain(const std::string& what) {
    complaints.push_back(what);
}

int Host::ShowBox(const Box& box) {
    shown.push_back({Shown::Kind::Box, box.text, box});
    if (user) return user->AnswerBox(box);
    Complain("a box is open and nobody answers it");
    return 1;
}

}  // namespace simhost
