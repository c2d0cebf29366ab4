// The dialogs for the name of a file.
#include "simhost/user/save_dialog.h"

#include <filesystem>

#include "simhost/core/file_names.h"
#include "simhost/core/operation.h"
#include "simhost/core/text.h"
#include "simhost/user/file_question.h"

namespace simhost {

namespace {

constexpr WideView kSaveTitle = WIDE("Save As");
constexpr WideView kOpenTitle = WIDE("Open");

// The default extension goes to a name that has none; its own dot is not doubled.
WideText WithExtension(WideText path, const WideChar* extension) {
    const std::size_t name = path.find_last_of(WIDE("\\/:")) + 1;
    if (!extension || !*extension || path.find('.', name) != WideText::npos) return path;
    const WideView bare = WideView(extension).substr(*extension == '.' ? 1 : 0);
    return path.append(WIDE(".")).append(bare);
}

// What both dialogs ask, by a record that the real ones would bear.
FileQuestion QuestionOf(const HostSide& host, const OPENFILENAMEW& dialog, WideView title) {
    Need(dialog.lpstrFile, "the place for the path");
    if (dialog.lStructSize != sizeof dialog) Complain(0, "a record of another size");
    FileQuestion question;
    question.title = dialog.lpstrTitle ? WideText(dialog.lpstrTitle) : WideText(title);
    question.filter = FirstPattern(dialog.lpstrFilter);
    question.folder = dialog.lpstrInitialDir ? dialog.lpstrInitialDir : host.workingDirectory;
    question.proposed = dialog.lpstrFile;
    return question;
}

// The real dialog keeps its user from such a name; here whoever asked gets it, to show what becomes
// of it, and the user is told.
void TellMissingFolder(const HostSide& host, const WideText& path) {
    const WideText folder = path.substr(0, path.find_last_of(WIDE("\\/")));
    std::error_code error;
    if (std::filesystem::is_directory(host.disk.Real(path).parent_path(), error)) return;
    host.desk.Tell(WIDE("there is no folder ") + folder);
}

}  // namespace

WideText FirstPattern(const WideChar* pairs) {
    if (!pairs) return WIDE("*.*");
    const WideView label = pairs;
    const WideView pattern = pairs + label.size() + 1;
    if (label.empty() || pattern.empty()) Complain(0, "a filter without a pattern");
    // Every pair must be whole: a label without a pattern would run on into other memory.
    for (const WideChar* at = pairs; *at;) {
        at += WideView(at).size() + 1;
        // An empty pattern ends the list, and so must what follows it.
        if (!*at && at[1]) Complain(0, "the filter ends after a label");
        at += WideView(at).size() + 1;
    }
    return WideText(pattern);
}

BOOL AskForSaveName(const HostSide& host, OPENFILENAMEW* dialog) {
    FileQuestion question = QuestionOf(host, *dialog, kSaveTitle);
    question.toWrite = true;
    Desk& desk = host.desk;
    desk.shown.push_back({Shown::Kind::Prompt, question.title, {}});
    while (true) {
        const auto answer = desk.user ? desk.user->AnswerFile(question) : std::nullopt;
        if (!answer) return FALSE;
        const WideText path = WithExtension(*answer, dialog->lpstrDefExt);
        if (path.size() >= dialog->nMaxFile) return FALSE;
        std::error_code error;
        const bool asks = dialog->Flags & OFN_OVERWRITEPROMPT;
        if (asks && std::filesystem::exists(host.disk.Real(path), error) &&
            !desk.user->AnswerReplace(path)) {
            continue;
        }
        TellMissingFolder(host, path);
        CopyCut(path, dialog->lpstrFile, dialog->nMaxFile);
        return TRUE;
    }
}

BOOL AskForOpenName(const HostSide& host, OPENFILENAMEW* dialog) {
    FileQuestion question = QuestionOf(host, *dialog, kOpenTitle);
    question.mayBeMissing = true;
    for (const NamedFile& file : FilesIn(host.disk.Real(question.folder))) {
        if (FitsFilter(file.name, question.filter)) question.files.push_back(file.name);
    }
    Desk& desk = host.desk;
    desk.shown.push_back({Shown::Kind::Prompt, question.title, {}});
    const OpenFileDialog open(desk, question);
    const auto answer = desk.user ? desk.user->AnswerFile(question) : std::nullopt;
    if (!answer) return FALSE;
    const WideText path = WithExtension(*answer, dialog->lpstrDefExt);
    if (path.size() >= dialog->nMaxFile) return FALSE;
    CopyCut(path, dialog->lpstrFile, dialog->nMaxFile);
    return TRUE;
}

}  // namespace simhost
