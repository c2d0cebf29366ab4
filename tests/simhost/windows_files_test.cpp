// Files by handles in the simulated Windows, as far as a real one cannot be asked the same: files
// that others hold, handles that are wrong or left open, and failures on demand.
#include "tests/simhost/windows_place.h"

#ifndef _WIN32

using namespace simhost;

namespace {

using Complaints = std::vector<std::string>;
using Lines = std::vector<std::string>;

class SimulatedFiles : public WindowsPlace {
protected:
    static HANDLE Open(const WideChar* path, DWORD access = GENERIC_READ,
                       DWORD creation = OPEN_EXISTING) {
        return CreateFileW(path, access, FILE_SHARE_READ, nullptr, creation, FILE_ATTRIBUTE_NORMAL,
                           nullptr);
    }
};

TEST_F(SimulatedFiles, HeldByAnotherProgramDoNotOpen) {
    Put("a.txt", "abc");
    TheWindows().Hold(WIDE("C:\\A.txt"));
    EXPECT_EQ(Open(WIDE("C:\\a.txt")), INVALID_HANDLE_VALUE);
    EXPECT_EQ(Open(WIDE("C:\\a.txt"), GENERIC_WRITE, CREATE_ALWAYS), INVALID_HANDLE_VALUE);
    EXPECT_EQ(Bytes("a.txt"), "abc");
    TheWindows().Release(WIDE("C:\\a.TXT"));
    const HANDLE file = Open(WIDE("C:\\a.txt"));
    EXPECT_NE(file, INVALID_HANDLE_VALUE);
    EXPECT_TRUE(CloseHandle(file));
}

TEST_F(SimulatedFiles, ThatAreReadOnlyDoNotOpenForWriting) {
    Put("a.txt", "abc");
    std::filesystem::permissions(folder() / "a.txt", std::filesystem::perms::owner_read);
    EXPECT_EQ(Open(WIDE("C:\\a.txt"), GENERIC_WRITE), INVALID_HANDLE_VALUE);
    EXPECT_EQ(Open(WIDE("C:\\a.txt"), GENERIC_READ, CREATE_ALWAYS), INVALID_HANDLE_VALUE);
    EXPECT_EQ(Bytes("a.txt"), "abc");
    const HANDLE file = Open(WIDE("C:\\a.txt"));
    EXPECT_NE(file, INVALID_HANDLE_VALUE);
    EXPECT_TRUE(CloseHandle(file));
}

TEST_F(SimulatedFiles, OnOtherDrivesDoNotOpen) {
    EXPECT_EQ(Open(WIDE("D:\\a.txt"), GENERIC_WRITE, CREATE_ALWAYS), INVALID_HANDLE_VALUE);
    EXPECT_EQ(Open(WIDE("a.txt"), GENERIC_WRITE, CREATE_ALWAYS), INVALID_HANDLE_VALUE);
}

TEST_F(SimulatedFiles, OfAnUnknownCreationDoNotOpen) {
    Put("a.txt", "abc");
    EXPECT_EQ(Open(WIDE("C:\\a.txt"), GENERIC_READ, 0), INVALID_HANDLE_VALUE);
}

TEST_F(SimulatedFiles, WithAPathThatIsTooLongDoNotOpen) {
    std::filesystem::create_directory(folder() / std::string(200, 'a'));
    WideText path = WIDE("C:\\");
    path.append(200, WideChar('a')).append(WIDE("\\")).append(55, WideChar('b'));
    ASSERT_EQ(path.size(), 259u);  // the longest there is, since the terminator counts
    const HANDLE file = Open(path.c_str(), GENERIC_WRITE, CREATE_ALWAYS);
    EXPECT_NE(file, INVALID_HANDLE_VALUE);
    EXPECT_TRUE(CloseHandle(file));
    EXPECT_EQ(Open((path + WideChar('b')).c_str(), GENERIC_WRITE, CREATE_ALWAYS),
              INVALID_HANDLE_VALUE);
}

TEST_F(SimulatedFiles, LeftOpenAreListed) {
    Put("a.txt", "abc");
    const HANDLE file = Open(WIDE("C:\\a.txt"));
    EXPECT_EQ(TheWindows().OpenHandles(), Lines{"file C:\\a.txt"});
    EXPECT_TRUE(CloseHandle(file));
    EXPECT_TRUE(TheWindows().OpenHandles().empty());
}

TEST_F(SimulatedFiles, LeftOpenAreForgottenAtARestart) {
    Put("a.txt", "abc");
    CreateFileW(WIDE("C:\\a.txt"), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    RestartWindows();
    EXPECT_TRUE(TheWindows().OpenHandles().empty());
    const HANDLE file = Open(WIDE("C:\\a.txt"));
    EXPECT_NE(file, INVALID_HANDLE_VALUE);
    EXPECT_TRUE(CloseHandle(file));
}

TEST_F(SimulatedFiles, ByHandlesThatAreWrongAreAComplaint) {
    Put("a.txt", "abc");
    const HANDLE file = Open(WIDE("C:\\a.txt"));
    EXPECT_TRUE(CloseHandle(file));
    LARGE_INTEGER size = {};
    char byte = 0;
    DWORD done = 0;
    EXPECT_FALSE(CloseHandle(file));
    EXPECT_FALSE(GetFileSizeEx(file, &size));
    EXPECT_FALSE(ReadFile(file, &byte, 1, &done, nullptr));
    EXPECT_FALSE(WriteFile(&byte, &byte, 1, &done, nullptr));
    EXPECT_EQ(TakeComplaints(), (Complaints{"CloseHandle: the handle names no open file",
                                            "GetFileSizeEx: the handle names no open file",
                                            "ReadFile: the handle names no open file",
                                            "WriteFile: the handle names no open file"}));
}

TEST_F(SimulatedFiles, WithoutPlacesAreAComplaint) {
    Put("a.txt", "abc");
    const HANDLE file = Open(WIDE("C:\\a.txt"), GENERIC_READ | GENERIC_WRITE);
    char byte = 0;
    DWORD done = 0;
    EXPECT_EQ(Open(nullptr), INVALID_HANDLE_VALUE);
    EXPECT_FALSE(GetFileSizeEx(file, nullptr));
    EXPECT_FALSE(ReadFile(file, nullptr, 1, &done, nullptr));
    EXPECT_FALSE(ReadFile(file, &byte, 1, nullptr, nullptr));
    EXPECT_FALSE(WriteFile(file, nullptr, 1, &done, nullptr));
    EXPECT_TRUE(CloseHandle(file));
    EXPECT_EQ(TakeComplaints(), (Complaints{"CreateFileW: the path is null",
                                            "GetFileSizeEx: the place for the size is null",
                                            "ReadFile: the buffer is null",
                                            "ReadFile: the place for the number of bytes is null",
                                            "WriteFile: the data is null"}));
}

TEST_F(SimulatedFiles, ThatAreToldNotToOpenAreNotMade) {
    Operation::Fail({"CreateFileW"});
    EXPECT_EQ(Open(WIDE("C:\\a.txt"), GENERIC_WRITE, CREATE_ALWAYS), INVALID_HANDLE_VALUE);
    EXPECT_FALSE(Exists("a.txt"));
}

TEST_F(SimulatedFiles, ThatAreToldToFailReadAndWriteNothing) {
    Put("a.txt", "abc");
    const HANDLE file = Open(WIDE("C:\\a.txt"), GENERIC_READ | GENERIC_WRITE);
    for (const char* operation : {"GetFileSizeEx", "ReadFile", "WriteFile"}) {
        Operation::Fail({operation});
    }
    LARGE_INTEGER size = {};
    char byte = '#';
    DWORD done = 99;
    EXPECT_FALSE(GetFileSizeEx(file, &size));
    EXPECT_EQ(size.QuadPart, 0);
    EXPECT_FALSE(ReadFile(file, &byte, 1, &done, nullptr));
    EXPECT_EQ(byte, '#');
    EXPECT_EQ(done, 0u);
    EXPECT_FALSE(WriteFile(file, "x", 1, &done, nullptr));
    EXPECT_TRUE(CloseHandle(file));
    EXPECT_EQ(Bytes("a.txt"), "abc");
}

TEST_F(SimulatedFiles, AreClosedAlsoWhenThatIsToldToFail) {
    Put("a.txt", "abc");
    const HANDLE file = Open(WIDE("C:\\a.txt"));
    Operation::Fail({"CloseHandle"});
    EXPECT_FALSE(CloseHandle(file));
    EXPECT_TRUE(TheWindows().OpenHandles().empty());
}

TEST_F(SimulatedFiles, AreRecordedInTheJournal) {
    Put("a.txt", "abc");
    TheHost().journal.Start();
    const HANDLE file = Open(WIDE("C:\\a.txt"));
    char bytes[3];
    DWORD done = 0;
    ReadFile(file, bytes, 3, &done, nullptr);
    CloseHandle(file);
    TheHost().journal.Stop();
    EXPECT_EQ(TheHost().journal.Names(),
              (std::vector<std::string>{"CreateFileW", "ReadFile", "CloseHandle"}));
    EXPECT_EQ(TheHost().journal.lines()[1], "ReadFile(size=3, read=3) = 1");
}

}  // namespace

#endif
