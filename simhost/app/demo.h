// The demonstration: what a newcomer sees first.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "simhost/app/workplace.h"

namespace simhost {

// Loads the plug-in, opens the sample gearbox, colours it in each of the three modes, writes
// data into its models, tells what happened, and saves the changed project and a picture below
// `out`. 0 if all went well.
int RunDemo(WorkplaceOptions options, const std::filesystem::path& out,
            const std::function<void(const std::string&)>& print);

}  // namespace simhost
