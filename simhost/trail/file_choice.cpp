// Chooses files by their names.
#include "simhost/trail/file_choice.h"

#include <fmt/format.h>

#include <filesystem>

#include "simhost/core/file_names.h"
#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/ui/near_name.h"
#include "simhost/ui/text_frame.h"

namespace simhost {

namespace {

constexpr std::size_t kMostLines = 40;

std::vector<std::string> Names(const std::vector<WideText>& files) {
    std::vector<std::string> names;
    names.reserve(files.size());
    for (const WideText& file : files) names.push_back(Utf8(file));
    return names;
}

bool IsPath(const WideText& typed) {
    return typed.find(WIDE(":\\")) != WideText::npos;
}

// A folder without a separator at its end.
WideText InFolder(const WideText& folder, const WideText& name) {
    return folder + WIDE("\\") + name;
}

FileChoice Elsewhere(const FileQuestion& question, const WideText& path) {
    const std::size_t name = path.find_last_of(WIDE("\\/")) + 1;
    // A file of a certain version is another choice than the newest.
    std::string file;
    const int version = SplitVersion(Utf8(path.substr(name)), &file);
    if (!FitsFilter(Wide(file), question.filter)) {
        return {{},
                fmt::format("the file dialog takes {}, not {}", Utf8(question.filter), Utf8(path))};
    }
    std::error_code error;
    if (version > 0 && std::filesystem::is_regular_file(TheHost().disk.Real(path), error)) {
        return {path, {}};
    }
    const auto folder = TheHost().disk.Real(path.substr(0, name));
    if (!NewestFileOf(folder, WideView(path).substr(name)).empty()) return {path, {}};
    return {{}, "the file dialog has no file " + Utf8(path)};
}

// An empty answer takes the folder that the dialog shows.
FileChoice FolderOf(const FileQuestion& question, const WideText& typed) {
    const WideText path = typed.empty()   ? question.folder
                          : IsPath(typed) ? typed
                                          : InFolder(question.folder, typed);
    std::error_code error;
    if (!std::filesystem::is_directory(TheHost().disk.Real(path), error)) {
        return {{},
                fmt::format("there is no folder {}{}", Utf8(path),
                            DidYouMean(Utf8(typed), Names(question.files)))};
    }
    if (path.size() >= PRO_PATH_SIZE) return {{}, "the folder's name is longer than a path"};
    return {path, {}};
}

}  // namespace

std::vector<std::string> FileList(const FileQuestion& question) {
    std::vector<std::string> lines{Utf8(question.folder)};
    for (const WideText& file : question.files) {
        if (lines.size() > kMostLines) {
            lines.push_back(fmt::format("… {} in all", question.files.size()));
            break;
        }
        lines.push_back("  " + Utf8(file));
    }
    const std::string wanted = question.forFolder ? "folders" : Utf8(question.filter);
    if (question.files.empty()) lines.push_back(fmt::format("  (no {})", wanted));
    return Framed(Utf8(question.title), lines);
}

FileChoice ChoiceOf(const FileQuestion& question, const WideText& answer) {
    const WideText& typed = answer.empty() ? question.proposed : answer;
    if (question.forFolder) return FolderOf(question, typed);
    if (question.toWrite || question.mayBeMissing) {
        return {IsPath(typed) ? typed : InFolder(question.folder, typed), {}};
    }
    if (IsPath(typed)) return Elsewhere(question, typed);
    for (const WideText& file : question.files) {
        if (SameName(file, typed)) return {InFolder(question.folder, file), {}};
    }
    return {{},
            fmt::format("the file dialog has no file {} in {}{}", Utf8(typed),
                        Utf8(question.folder), DidYouMean(Utf8(typed), Names(question.files)))};
}

}  // namespace simhost
