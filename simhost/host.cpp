// The one simulated host of the process.
#include "simhost/host.h"

#include "simhost/core/text.h"

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

void RestartHost() {
    Operation::ForgetFaults();
    Operation::ResetCounts();
    Operation::journalling = false;
    Instance().reset();
}

Host::Host() {
    session.tell = [this](const std::string& line) { Tell(line); };
}

void Host::Tell(const std::string& line) {
    shown.push_back({Shown::Kind::Message, Wide(line), {}});
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
