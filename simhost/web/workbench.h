// The workbench: the simulated host with a face in a browser.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "simhost/app/workplace.h"
#include "simhost/web/board.h"
#include "simhost/web/server.h"

namespace simhost {

struct WorkbenchOptions {
    WorkplaceOptions workplace;
    ServerOptions server;
    std::filesystem::path keepRecording;  // where the recording goes at the end; empty: nowhere
};

// Serves sessions until somebody ends them: by quit in the page, or by board.End(). `print` is told
// the address and, at the end, what is unsaved and where it lies. 0 if nothing failed.
int RunWorkbench(const WorkbenchOptions& options, Board& board,
                 const std::function<void(const std::string&)>& print);

}  // namespace simhost
