// What the simulated Windows does for a file that is to be written: its dialog, deleting an old
// one, and why a call failed.
#ifndef _WIN32

#include <gtest/gtest.h>

#include "simhost/core/text.h"
#include "simhost/windows/simulated.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using Names = std::vector<std::string>;

const WideText kFile = WIDE("C:\\Work\\a.xlsx");

class SavedFiles : public workbench::Workbench {
protected:
    bool Exists(const WideText& path) { return std::filesystem::exists(host().disk.Real(path)); }
    // The error of an attempt to open it for everything, sharing its reading; 0 if that went well.
    static DWORD OpenError(const WideText& path) {
        Simulated().lastError = ERROR_SUCCESS;
        const HANDLE file = CreateFileW(path.c_str(), FILE_ALL_ACCESS, FILE_SHARE_READ, nullptr,
                                        OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
        return GetLastError();
    }
    static DWORD DeleteError(const WideText& path) {
        Simulated().lastError = ERROR_SUCCESS;
        const BOOL deleted = DeleteFileW(path.c_str());
        const DWORD error = GetLastError();
        EXPECT_EQ(deleted != FALSE, error == ERROR_SUCCESS);
        return error;
    }
};

TEST_F(SavedFiles, AreDeletedUnlessSomethingStandsAgainstIt) {
    Write(kFile, "old");
    TheWindows().Hold(kFile);
    EXPECT_EQ(DeleteError(kFile), 32u);
    TheWindows().Release(kFile);
    const HANDLE open = CreateFileW(kFile.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    EXPECT_EQ(DeleteError(kFile), 32u);
    CloseHandle(open);
    std::filesystem::permissions(host().disk.Real(kFile), std::filesystem::perms::owner_read);
    EXPECT_EQ(DeleteError(kFile), 5u);
    std::filesystem::permissions(host().disk.Real(kFile), std::filesystem::perms::owner_all);
    EXPECT_TRUE(Exists(kFile));
    EXPECT_EQ(DeleteError(kFile), 0u);
    EXPECT_FALSE(Exists(kFile));
    EXPECT_EQ(DeleteError(kFile), 2u);
    EXPECT_EQ(DeleteError(WIDE("C:\\Nowhere\\a.xlsx")), 3u);
    EXPECT_EQ(DeleteError(WIDE("C:\\Work")), 5u);
}

TEST_F(SavedFiles, AreCopiedWholeAndOverNothingThatMustStay) {
    const WideText copy = WIDE("C:\\Work\\b.xlsx");
    const auto error = [&](const WideText& from, const WideText& to, BOOL failIfExists) {
        Simulated().lastError = ERROR_SUCCESS;
        const BOOL copied = CopyFileW(from.c_str(), to.c_str(), failIfExists);
        EXPECT_EQ(copied != FALSE, GetLastError() == ERROR_SUCCESS);
        return GetLastError();
    };
    EXPECT_EQ(error(kFile, copy, TRUE), 2u);
    Write(kFile, "old");
    EXPECT_EQ(error(kFile, copy, TRUE), 0u);
    EXPECT_EQ(Read(copy), "old");
    Write(kFile, "new");
    EXPECT_EQ(error(kFile, copy, TRUE), 80u);
    EXPECT_EQ(Read(copy), "old");
    TheWindows().Hold(copy);
    EXPECT_EQ(error(kFile, copy, FALSE), 32u);
    TheWindows().Release(copy);
    std::filesystem::permissions(host().disk.Real(copy), std::filesystem::perms::owner_read);
    EXPECT_EQ(error(kFile, copy, FALSE), 5u);
    std::filesystem::permissions(host().disk.Real(copy), std::filesystem::perms::owner_all);
    EXPECT_EQ(error(kFile, copy, FALSE), 0u);
    EXPECT_EQ(Read(copy), "new");
    EXPECT_EQ(error(copy, copy, FALSE), 32u);
    EXPECT_EQ(error(kFile, WIDE("C:\\Nowhere\\b.xlsx"), TRUE), 3u);
    EXPECT_EQ(error(WIDE("C:\\Work"), WIDE("C:\\Other"), TRUE), 5u);
    EXPECT_EQ(error(kFile, WIDE("C:\\Work\\b?"), TRUE), 123u);
    TheWindows().Hold(kFile);
    EXPECT_EQ(error(kFile, WIDE("C:\\Work\\c.xlsx"), TRUE), 32u);
    TheWindows().Release(kFile);
    EXPECT_FALSE(Exists(WIDE("C:\\Work\\c.xlsx")));
}

TEST_F(SavedFiles, TellWhyTheyCannotBeOpened) {
    EXPECT_EQ(OpenError(kFile), 2u);
    EXPECT_EQ(OpenError(WIDE("C:\\Nowhere\\a.xlsx")), 3u);
    EXPECT_EQ(OpenError(WIDE("C:\\Work")), 5u);
    Write(kFile, "old");
    EXPECT_EQ(OpenError(kFile), 0u);
    TheWindows().Hold(kFile);
    EXPECT_EQ(OpenError(kFile), 32u);
    TheWindows().Release(kFile);
    // Somebody who reads it and lets others only read it, too.
    const HANDLE reader = CreateFileW(kFile.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    EXPECT_EQ(OpenError(kFile), 32u);
    CloseHandle(reader);
}

// Asks for a name with this filter while a user plays the lines; the path, or "none".
class SaveDialogs : public SavedFiles {
protected:
    std::string Ask(const WideText& filter, const std::string& lines, DWORD size = MAX_PATH) {
        WideChar path[MAX_PATH] = {};
        OPENFILENAMEW dialog = {};
        dialog.lStructSize = sizeof dialog;
        dialog.lpstrFilter = filter.c_str();
        dialog.lpstrFile = path;
        dialog.nMaxFile = size;
        dialog.lpstrDefExt = WIDE(".xlsx");
        dialog.Flags = OFN_OVERWRITEPROMPT;
        BOOL chosen = FALSE;
        PlayDuring([&] { chosen = GetSaveFileNameW(&dialog); }, lines);
        return chosen ? Utf8(path) : "none";
    }
    const WideText filter_{WIDE("Sheets\0*.xlsx\0\0"), 15};
};

TEST_F(SaveDialogs, GiveTheNameItsFolderAndItsExtension) {
    EXPECT_EQ(Ask(filter_, "@ answer list"), "C:\\Work\\list.xlsx");
    EXPECT_EQ(Ask(filter_, "@ answer C:\\a.b\\list"), "C:\\a.b\\list.xlsx");
    EXPECT_EQ(Ask(filter_, "@ answer list.txt"), "C:\\Work\\list.txt");
    EXPECT_EQ(Ask(filter_, "@ quit"), "none");
}

TEST_F(SaveDialogs, TellOfAFolderThatIsNotThereAndGiveTheNameAllTheSame) {
    const auto messages = [&] {
        Names texts;
        for (const Shown& shown : host().shown) {
            if (shown.kind == Shown::Kind::Message) texts.push_back(Utf8(shown.text));
        }
        return texts;
    };
    Ask(filter_, "@ answer list");
    EXPECT_EQ(messages(), Names{});
    EXPECT_EQ(Ask(filter_, "@ answer C:\\Nowhere\\list"), "C:\\Nowhere\\list.xlsx");
    EXPECT_EQ(messages(), Names{"there is no folder C:\\Nowhere"});
}

TEST_F(SaveDialogs, AskBeforeAFileIsReplaced) {
    Write(kFile, "old");
    EXPECT_EQ(Ask(filter_, "@ answer a\n@ answer yes"), "C:\\Work\\a.xlsx");
    EXPECT_EQ(Ask(filter_, "@ answer a\n@ answer no\n@ answer b"), "C:\\Work\\b.xlsx");
    EXPECT_EQ(Read(kFile), "old");
}

TEST_F(SaveDialogs, TakeNoNameThatDoesNotFit) {
    EXPECT_EQ(Ask(filter_, "@ answer list", 10), "none");
}

TEST_F(SaveDialogs, ComplainAboutAFilterThatEndsBehindALabel) {
    WideChar path[MAX_PATH] = {};
    OPENFILENAMEW dialog = {};
    dialog.lStructSize = sizeof dialog;
    // A pattern that is empty ends the list; here something follows.
    dialog.lpstrFilter = WIDE("Sheets\0*.xlsx\0All\0\0*.*\0");
    dialog.lpstrFile = path;
    dialog.nMaxFile = MAX_PATH;
    EXPECT_FALSE(GetSaveFileNameW(&dialog));
    dialog.lStructSize = 1;
    EXPECT_FALSE(GetSaveFileNameW(&dialog));
    EXPECT_EQ(Complaints(), (Names{"GetSaveFileNameW: the filter ends after a label",
                                   "GetSaveFileNameW: a record of another size"}));
}

}  // namespace

#endif
