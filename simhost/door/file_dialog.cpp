// File dialogs at the door, and names of files in pieces.
#include "hostapi/host/file_dialog.h"

#include <filesystem>

#include "simhost/core/file_names.h"
#include "simhost/core/text.h"
#include "simhost/door/door.h"
#include "simhost/user/file_question.h"

using namespace simhost;

namespace {

// Where the dialog opens. A designer whose folder is gone still wants to choose a file.
WideText StartFolder(const WideChar* wanted) {
    Host& host = TheHost();
    if (!wanted || !*wanted) return host.session.workingDirectory;
    RefuseEndedOptionValue(wanted);
    WideText folder = wanted;
    while (folder.size() > 3 && (folder.back() == '\\' || folder.back() == '/')) folder.pop_back();
    std::error_code error;
    if (std::filesystem::is_directory(host.disk.Real(folder), error)) return folder;
    host.Tell("there is no folder " + Utf8(folder));
    return host.session.workingDirectory;
}

// A name of 32 characters leaves no room for a terminator in its record.
void PutWholeName(WideView name, ProName record) {
    if (name.size() > PRO_NAME_SIZE) Refuse(PRO_TK_LINE_TOO_LONG);
    std::copy(name.begin(), name.end(), record);
    if (name.size() < PRO_NAME_SIZE) record[name.size()] = 0;
}

// Puts the file that the user names into `path`; refuses where the user leaves the dialog.
void Ask(const FileQuestion& question, ProPath path) {
    Host& host = TheHost();
    host.shown.push_back({Shown::Kind::Prompt, question.title, {}});
    const OpenFileDialog open(host.desk, question);
    const auto answer = host.user ? host.user->AnswerFile(question) : std::nullopt;
    if (!answer) Refuse(PRO_TK_USER_ABORT);
    CopyCut(*answer, path, PRO_PATH_SIZE);
}

}  // namespace

ProError ProFileOpen(WideChar* title, WideChar* filter, ProPath*, ProName*, ProPath folder,
                     ProFileName proposed, ProPath path) {
    return Op<"ProFileOpen">.Call(
        [&] {
            Host& host = TheHost();
            FileQuestion question{title, filter, StartFolder(folder), {}, {}};
            for (const NamedFile& file : FilesIn(host.disk.Real(question.folder))) {
                if (FitsFilter(file.name, question.filter)) question.files.push_back(file.name);
            }
            if (proposed) question.proposed = proposed;
            Ask(question, path);
        },
        GIVEN(title), GIVEN(filter), ARG(folder), ARG(proposed), OUT(path));
}

ProError ProFileSave(WideChar* title, WideChar* filter, ProPath*, ProName*, ProPath folder,
                     ProFileName proposed, ProPath path) {
    return Op<"ProFileSave">.Call(
        [&] {
            FileQuestion question{title, filter, StartFolder(folder), {}, {}, true};
            if (proposed) question.proposed = proposed;
            Ask(question, path);
        },
        GIVEN(title), GIVEN(filter), ARG(folder), ARG(proposed), OUT(path));
}

ProError ProDirectoryChoose(WideChar* title, ProPath* shortcutPaths, ProName* shortcutNames,
                            ProPath folder, ProPath path) {
    return Op<"ProDirectoryChoose">.Call(
        [&] {
            FileQuestion question;
            question.title = title;
            question.folder = StartFolder(folder);
            question.forFolder = true;
            question.files = FoldersIn(TheHost().disk.Real(question.folder));
            Ask(question, path);
        },
        GIVEN(title), ARG(shortcutPaths), ARG(shortcutNames), ARG(folder), OUT(path));
}

ProError ProFilenameParse(ProPath path, ProPath folder, ProName name, ProName extension,
                          int* version) {
    return Op<"ProFilenameParse">.Call(
        [&] {
            const WideText whole = path;
            if (whole.empty()) Refuse(PRO_TK_BAD_INPUTS);
            const std::size_t file = whole.find_last_of(WIDE("\\/:")) + 1;
            std::string folded;
            const std::string written = Utf8(whole.substr(file));
            const int number = SplitVersion(written, &folded);
            const WideText bare = Wide(written.substr(0, folded.size()));
            const std::size_t dot = std::min(bare.rfind('.'), bare.size());
            ProName base = {}, ending = {};
            PutWholeName(WideView(bare).substr(0, dot), base);
            PutWholeName(WideView(bare).substr(std::min(dot + 1, bare.size())), ending);
            CopyCut(WideView(whole).substr(0, file), folder, PRO_PATH_SIZE);
            std::copy_n(base, PRO_NAME_SIZE, name);
            std::copy_n(ending, PRO_NAME_SIZE, extension);
            *version = number;
        },
        GIVEN(path), OUT(folder), OUT_NAME(name), OUT_NAME(extension), OUT(version));
}
