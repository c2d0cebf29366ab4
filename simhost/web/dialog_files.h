// Dialogs as files that show them without a workbench: for the guide, the demonstration, and for
// whoever wants to look at their layout.
#pragma once

#include <filesystem>
#include <vector>

namespace simhost {

// Writes each dialog resource (*.res) of a folder as NAME.html into `out`, which is made if it is
// missing: a page that needs nothing else, laid out by the same sources as in the workbench (the
// folder `page`), with what the dialog holds when it has just been made. Beside them: index.html,
// which shows them all, and frames.js, which shows a dialog in a page that has
// <a class="dialog" href="…/NAME.html">. The dialogs' files in the order of their names. Throws
// std::runtime_error: what cannot be read or written; what is wrong with a resource.
std::vector<std::filesystem::path> WriteDialogFiles(const std::filesystem::path& page,
                                                    const std::filesystem::path& resources,
                                                    const std::filesystem::path& out);

}  // namespace simhost
