// Paths of modules and files, as a real Windows answers them, too.
#include "tests/simhost/windows_place.h"

namespace {

constexpr DWORD kLong = 1024;

WideText ExecutablePath() {
    WideChar path[kLong] = {};
    return WideText(path, GetModuleFileNameW(nullptr, path, kLong));
}

WideText FileOf(const WideText& path) {
    return path.substr(path.find_last_of(WideChar('\\')) + 1);
}

TEST(ModulePath, IsAWholeWindowsPathWithItsTerminator) {
    WideChar path[kLong];
    std::fill(std::begin(path), std::end(path), WideChar('#'));
    const DWORD length = GetModuleFileNameW(nullptr, path, kLong);
    ASSERT_GT(length, 3u);
    ASSERT_LT(length, kLong - 1);
    EXPECT_EQ(path[1], WideChar(':'));
    EXPECT_EQ(path[2], WideChar('\\'));
    EXPECT_EQ(path[length], WideChar{});
    EXPECT_EQ(path[length + 1], WideChar('#'));
}

TEST(ModulePath, FitsExactlyWithRoomForTheTerminator) {
    const WideText whole = ExecutablePath();
    const auto length = static_cast<DWORD>(whole.size());
    WideText path(whole.size() + 2, WideChar('#'));
    EXPECT_EQ(GetModuleFileNameW(nullptr, path.data(), length + 1), length);
    EXPECT_EQ(path, whole + WideChar{} + WideChar('#'));
}

TEST(ModulePath, OfANullHandleIsTheExecutables) {
    WideChar path[kLong] = {};
    const DWORD length = GetModuleFileNameW(GetModuleHandleW(nullptr), path, kLong);
    EXPECT_EQ(WideText(path, length), ExecutablePath());
}

TEST(ModulePath, OfNoSizeIsNothing) {
    WideChar path = '#';
    EXPECT_EQ(GetModuleFileNameW(nullptr, &path, 0), 0u);
    EXPECT_EQ(path, WideChar('#'));
}

TEST(ModuleHandle, IsFoundByFileNameIgnoringCase) {
    WideText file = FileOf(ExecutablePath());
    EXPECT_EQ(GetModuleHandleW(file.c_str()), GetModuleHandleW(nullptr));
    for (WideChar& c : file) {
        if (c >= 'a' && c <= 'z') c = static_cast<WideChar>(c - 0x20);
    }
    EXPECT_EQ(GetModuleHandleW(file.c_str()), GetModuleHandleW(nullptr));
}

TEST(ModuleHandle, IsFoundByItsWholePath) {
    EXPECT_EQ(GetModuleHandleW(ExecutablePath().c_str()), GetModuleHandleW(nullptr));
}

TEST(ModuleHandle, OfAModuleThatIsNotLoadedIsNull) {
    EXPECT_EQ(GetModuleHandleW(WIDE("no_such_module.dll")), nullptr);
}

TEST(ModuleHandle, IsNotFoundByAnExecutablesNameWithoutSuffix) {
    WideText file = FileOf(ExecutablePath());
    file.resize(file.find_last_of(WideChar('.')));
    EXPECT_EQ(GetModuleHandleW(file.c_str()), nullptr);
}

class FilePath : public WindowsPlace {
protected:
    HANDLE Open(WideView name, DWORD access, DWORD creation, DWORD share = 0) const {
        return CreateFileW(Path(name).c_str(), access, share, nullptr, creation,
                           FILE_ATTRIBUTE_NORMAL, nullptr);
    }
    // Whether a file can be opened so; it is closed again.
    bool Opens(WideView name, DWORD access, DWORD creation) const {
        const HANDLE file = Open(name, access, creation);
        if (file == INVALID_HANDLE_VALUE) return false;
        EXPECT_TRUE(CloseHandle(file));
        return true;
    }
};

TEST_F(FilePath, IsFoundWhateverTheCaseOfItsLetters) {
    Put("Folder/File.Txt", "abc");
    EXPECT_TRUE(Opens(WIDE("Folder\\File.Txt"), GENERIC_READ, OPEN_EXISTING));
    EXPECT_TRUE(Opens(WIDE("fOLDER\\fILE.tXT"), GENERIC_READ, OPEN_EXISTING));
}

TEST_F(FilePath, TakesBothSeparators) {
    Put("Folder/File.Txt", "abc");
    EXPECT_TRUE(Opens(WIDE("folder/file.txt"), GENERIC_READ, OPEN_EXISTING));
}

TEST_F(FilePath, TakesDots) {
    Put("Folder/File.Txt", "abc");
    EXPECT_TRUE(Opens(WIDE("Folder\\.\\..\\Folder\\File.Txt"), GENERIC_READ, OPEN_EXISTING));
}

TEST_F(FilePath, OfAnExistingFileInOtherLettersMakesNoSecondFile) {
    Put("File.txt", "abc");
    EXPECT_TRUE(Opens(WIDE("FILE.TXT"), GENERIC_WRITE, CREATE_ALWAYS));
    EXPECT_EQ(Bytes("File.txt"), "");
    int files = 0;
    for ([[maybe_unused]] const auto& each : std::filesystem::directory_iterator(folder())) ++files;
    EXPECT_EQ(files, 1);
}

TEST_F(FilePath, OfANewFileKeepsItsLetters) {
    EXPECT_TRUE(Opens(WIDE("New.TXT"), GENERIC_WRITE, CREATE_ALWAYS));
    EXPECT_EQ(std::filesystem::directory_iterator(folder())->path().filename(), "New.TXT");
}

TEST_F(FilePath, OfAMissingFileDoesNotOpen) {
    EXPECT_FALSE(Opens(WIDE("none.txt"), GENERIC_READ, OPEN_EXISTING));
    EXPECT_FALSE(Exists("none.txt"));
}

TEST_F(FilePath, InAMissingFolderMakesNothing) {
    EXPECT_FALSE(Opens(WIDE("folder\\new.txt"), GENERIC_WRITE, CREATE_ALWAYS));
    EXPECT_FALSE(Exists("folder"));
}

TEST_F(FilePath, OfAFolderDoesNotOpen) {
    Put("folder/file.txt", "abc");
    EXPECT_FALSE(Opens(WIDE("folder"), GENERIC_READ, OPEN_EXISTING));
    EXPECT_FALSE(Opens(WIDE("folder"), GENERIC_WRITE, CREATE_ALWAYS));
}

TEST_F(FilePath, WithAForbiddenCharacterMakesNoFile) {
    for (const char c : {'<', '>', '"', '|', '?', '*'}) {
        const WideText name = WideText(WIDE("a")) + static_cast<WideChar>(c) + WIDE("b.txt");
        EXPECT_FALSE(Opens(name, GENERIC_WRITE, CREATE_ALWAYS)) << c;
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder()));
}

TEST_F(FilePath, ThatEndsInASeparatorMakesNoFile) {
    EXPECT_FALSE(Opens(WIDE("a.txt\\"), GENERIC_WRITE, CREATE_ALWAYS));
    EXPECT_TRUE(std::filesystem::is_empty(folder()));
}

using FileContents = FilePath;

TEST_F(FileContents, AreWrittenAndReadBack) {
    const HANDLE out = Open(WIDE("a.txt"), GENERIC_WRITE, CREATE_ALWAYS);
    ASSERT_NE(out, INVALID_HANDLE_VALUE);
    DWORD done = 99;
    EXPECT_TRUE(WriteFile(out, "ab\0cd", 5, &done, nullptr));
    EXPECT_EQ(done, 5u);
    EXPECT_TRUE(CloseHandle(out));
    EXPECT_EQ(Bytes("a.txt"), std::string("ab\0cd", 5));

    const HANDLE in = Open(WIDE("a.txt"), GENERIC_READ, OPEN_EXISTING);
    ASSERT_NE(in, INVALID_HANDLE_VALUE);
    LARGE_INTEGER size = {};
    EXPECT_TRUE(GetFileSizeEx(in, &size));
    EXPECT_EQ(size.QuadPart, 5);
    char bytes[8] = {};
    EXPECT_TRUE(ReadFile(in, bytes, 3, &done, nullptr));
    EXPECT_EQ(std::string(bytes, done), std::string("ab\0", 3));
    EXPECT_TRUE(ReadFile(in, bytes, 8, &done, nullptr));
    EXPECT_EQ(std::string(bytes, done), "cd");
    EXPECT_TRUE(CloseHandle(in));
}

TEST_F(FileContents, AtTheEndAreNothingWithoutFailure) {
    Put("a.txt", "");
    const HANDLE file = Open(WIDE("a.txt"), GENERIC_READ, OPEN_EXISTING);
    char byte = '#';
    DWORD done = 99;
    EXPECT_TRUE(ReadFile(file, &byte, 1, &done, nullptr));
    EXPECT_EQ(done, 0u);
    EXPECT_EQ(byte, '#');
    EXPECT_TRUE(CloseHandle(file));
}

TEST_F(FileContents, AreNotReadThroughAHandleForWriting) {
    Put("a.txt", "abc");
    const HANDLE file = Open(WIDE("a.txt"), GENERIC_WRITE, OPEN_EXISTING);
    char byte = '#';
    DWORD done = 99;
    EXPECT_FALSE(ReadFile(file, &byte, 1, &done, nullptr));
    EXPECT_EQ(done, 0u);
    EXPECT_TRUE(CloseHandle(file));
}

TEST_F(FileContents, AreNotWrittenThroughAHandleForReading) {
    Put("a.txt", "abc");
    const HANDLE file = Open(WIDE("a.txt"), GENERIC_READ, OPEN_EXISTING);
    DWORD done = 99;
    EXPECT_FALSE(WriteFile(file, "x", 1, &done, nullptr));
    EXPECT_TRUE(CloseHandle(file));
    EXPECT_EQ(Bytes("a.txt"), "abc");
}

TEST_F(FileContents, StayWhenAFileIsOpenedToReadAndWrite) {
    Put("a.txt", "abc");
    const HANDLE file = Open(WIDE("a.txt"), GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING);
    DWORD done = 0;
    EXPECT_TRUE(WriteFile(file, "x", 1, &done, nullptr));
    EXPECT_TRUE(CloseHandle(file));
    EXPECT_EQ(Bytes("a.txt"), "xbc");
}

using FileSharing = FilePath;

TEST_F(FileSharing, AFileThatIsNotSharedDoesNotOpenAgain) {
    Put("a.txt", "abc");
    const HANDLE first = Open(WIDE("a.txt"), GENERIC_READ, OPEN_EXISTING);
    EXPECT_FALSE(Opens(WIDE("A.TXT"), GENERIC_READ, OPEN_EXISTING));
    EXPECT_TRUE(CloseHandle(first));
    EXPECT_TRUE(Opens(WIDE("A.TXT"), GENERIC_READ, OPEN_EXISTING));
}

TEST_F(FileSharing, AFileSharedForReadingOpensForReadingOnly) {
    Put("a.txt", "abc");
    const HANDLE first = Open(WIDE("a.txt"), GENERIC_READ, OPEN_EXISTING, FILE_SHARE_READ);
    const HANDLE second = Open(WIDE("a.txt"), GENERIC_READ, OPEN_EXISTING, FILE_SHARE_READ);
    EXPECT_NE(second, INVALID_HANDLE_VALUE);
    EXPECT_EQ(Open(WIDE("a.txt"), GENERIC_WRITE, OPEN_EXISTING, FILE_SHARE_READ),
              INVALID_HANDLE_VALUE);
    EXPECT_TRUE(CloseHandle(first));
    EXPECT_TRUE(CloseHandle(second));
}

TEST_F(FileSharing, AFileThatIsBeingReadIsNotEmptied) {
    Put("a.txt", "abc");
    const HANDLE first = Open(WIDE("a.txt"), GENERIC_READ, OPEN_EXISTING, FILE_SHARE_READ);
    EXPECT_FALSE(Opens(WIDE("a.txt"), GENERIC_WRITE, CREATE_ALWAYS));
    EXPECT_TRUE(CloseHandle(first));
    EXPECT_EQ(Bytes("a.txt"), "abc");
}

TEST_F(FileSharing, AnIniFileThatIsHeldOpenGivesTheFallbackAndIsNotWritten) {
    Put("a.ini", "[A]\r\nk=v\r\n");
    const WideText path = Path(WIDE("a.ini"));
    const HANDLE file = Open(WIDE("a.ini"), GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING);
    WideChar value[8] = {};
    const DWORD length =
        GetPrivateProfileStringW(WIDE("A"), WIDE("k"), WIDE("none"), value, 8, path.c_str());
    EXPECT_EQ(WideText(value, length), WIDE("none"));
    EXPECT_FALSE(WritePrivateProfileStringW(WIDE("A"), WIDE("k"), WIDE("w"), path.c_str()));
    EXPECT_TRUE(CloseHandle(file));
    EXPECT_EQ(Bytes("a.ini"), "[A]\r\nk=v\r\n");
}

TEST(NoFile, FailsQuietlyInEveryOperation) {
    LARGE_INTEGER size = {};
    size.QuadPart = 7;
    char byte = '#';
    DWORD done = 99;
    EXPECT_FALSE(GetFileSizeEx(INVALID_HANDLE_VALUE, &size));
    EXPECT_EQ(size.QuadPart, 7);
    EXPECT_FALSE(ReadFile(INVALID_HANDLE_VALUE, &byte, 1, &done, nullptr));
    EXPECT_FALSE(WriteFile(INVALID_HANDLE_VALUE, &byte, 1, &done, nullptr));
    EXPECT_EQ(byte, '#');
    EXPECT_FALSE(CloseHandle(nullptr));
}

TEST(NoFile, ClosesAsTheProcessItselfWould) {
    EXPECT_TRUE(CloseHandle(INVALID_HANDLE_VALUE));
}

}  // namespace
