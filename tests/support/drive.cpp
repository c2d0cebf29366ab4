// Drive C of the tests.
#include "tests/support/drive.h"

#ifdef _WIN32

#include <cstdio>
#include <cstdlib>
#include <set>

#include "simhost/core/text.h"
#include "simhost/windows_real/real.h"

namespace fs = std::filesystem;

namespace workbench {

namespace {

const fs::path kDrive = L"C:\\";
const fs::path kPrograms = L"C:\\Program Files";

// Asked once, before any test lets a call of Windows fail.
bool IsForTests() {
    static const bool isWine =
        GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
    return isWine || std::getenv("VX_TEST_COMPUTER") != nullptr;
}

std::set<fs::path> Entries() {
    static const fs::path desktop = simhost::TheWindows().Desktop();
    std::set<fs::path> entries;
    for (const fs::path& folder : {kDrive, kPrograms, desktop}) {
        std::error_code error;
        for (const auto& entry : fs::directory_iterator(folder, error)) {
            entries.insert(entry.path());
        }
    }
    return entries;
}

// What was there when the program began.
std::set<fs::path>& EntriesAtFirst() {
    static std::set<fs::path> entries = Entries();
    return entries;
}

// The form in which a path may have more than 260 characters, which the standard library lacks.
std::wstring Long(const fs::path& path) {
    return L"\\\\?\\" + path.native();
}

// Removes a file or a whole folder, read-only ones too; false if something of it stays.
bool Remove(const fs::path& place) {
    const std::wstring name = Long(place);
    const DWORD attributes = GetFileAttributesW(name.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return false;
    SetFileAttributesW(name.c_str(), FILE_ATTRIBUTE_NORMAL);
    if (!(attributes & FILE_ATTRIBUTE_DIRECTORY)) return DeleteFileW(name.c_str());
    WIN32_FIND_DATAW found;
    const HANDLE search = FindFirstFileW((name + L"\\*").c_str(), &found);
    if (search != INVALID_HANDLE_VALUE) {
        do {
            const std::wstring child = found.cFileName;
            if (child != L"." && child != L"..") Remove(place / child);
        } while (FindNextFileW(search, &found));
        FindClose(search);
    }
    return RemoveDirectoryW(name.c_str());
}

}  // namespace

fs::path DriveOfTests() {
    if (!IsForTests()) {
        std::fputs(
            "These tests write to C:\\ and clear it: run them with ./vx windows, or set "
            "VX_TEST_COMPUTER=1 on a computer that is only for tests\n",
            stderr);
        std::exit(2);
    }
    EntriesAtFirst();
    // What a test calls itself counts as natively, also from plug-in code that is linked into it.
    static const bool watched = [] {
        simhost::WatchCalls(GetModuleHandleW(nullptr));
        return true;
    }();
    return watched ? kDrive : fs::path();
}

std::vector<std::string> ClearDrive() {
    simhost::RestartWindows();  // lets go of what the test itself held and loaded
    std::vector<std::string> left;
    for (const fs::path& place : Entries()) {
        if (EntriesAtFirst().count(place) > 0) continue;
        if (Remove(place)) continue;
        left.push_back(simhost::Utf8(place.native()));
        EntriesAtFirst().insert(place);  // told once
    }
    return left;
}

std::vector<fs::path> PlacesOnDrive(const fs::path&) {
    std::vector<fs::path> places;
    for (const fs::path& place : Entries()) {
        if (EntriesAtFirst().count(place) == 0) places.push_back(place);
    }
    return places;
}

}  // namespace workbench

#else

namespace workbench {

std::filesystem::path DriveOfTests() {
    return {};
}
std::vector<std::string> ClearDrive() {
    return {};
}

std::vector<std::filesystem::path> PlacesOnDrive(const std::filesystem::path& drive) {
    std::vector<std::filesystem::path> places;
    for (const auto& entry : std::filesystem::directory_iterator(drive)) {
        places.push_back(entry.path());
    }
    return places;
}

}  // namespace workbench

#endif
