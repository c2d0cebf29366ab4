// The one simulated host of the process.
#include "simhost/host.h"

#include "simhost/core/text.h"
#include "simhost/system/windows.h"
#include "simhost/ui/replace_dialog.h"

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
    LimitDisk({});
    ServeHost(&forWindows_);
    Operation::Serve(&journal, [this](const std::string& what) { Complain(what); });
    arrays.ending = [this](const void* array) {
        session.selections.ArrayFreed(array);
        if (array == optionValues) optionValues = nullptr;
        session.constraints.ArrayFreed(array);
    };
    session.tell = [this](const std::string& line) { Tell(line); };
    session.savesInWorkingFolder = [this] {
        const auto option = configOptions.find(WIDE("override_store_back"));
        return option != configOptions.end() && !option->second.empty() &&
               Lower(WideView(option->second.back())) == WIDE("yes");
    };
    session.formatFolder = [this] {
        const auto option = configOptions.find(WIDE("pro_format_dir"));
        const bool there = option != configOptions.end() && !option->second.empty();
        return there ? option->second.front() : WideText();
    };
    session.mayWrite = [](const std::filesystem::path& file) {
        return TheWindows().MayOpen(file, /*toWrite=*/true);
    };
}

Host::~Host() {
    Operation::Serve(nullptr, {});
    ServeHost(nullptr);
}

void RestartHost() {
    Operation::ForgetFaults();
    Operation::ResetCounts();
    Operation::journalling = false;
    ResetHostVersion();
    Instance().reset();
    TheHost();  // serves Windows and hears the complaints of operations from now on
}

void Host::Tell(const std::string& line) {
    desk.Tell(Wide(line));
}

}  // namespace simhost
