// The working directory from one run of the host to the next: the file that the end of a run
// writes, and what the next run takes from it.
#include <clocale>

#include "tests/frame/last_dir_bench.h"

namespace {

using namespace last_dir;

// --- The setting ---

TEST_F(LastDirectory, IsRestoredForOneWithBlanksToo) {
    MakeFolder(WIDE("C:\\Projects"));
    for (const char* value : {"1", " 1 ", "\" 1 \"", "\"1 \""}) {
        host().session.workingDirectory = WIDE("C:\\Work");
        Setting("SetLastDir", value);
        Write(kFile, "C:\\Projects");
        StartAndWait();
        EXPECT_EQ(WorkingDirectory(), "C:\\Projects") << value;
        workplace_->StopPlugin();
    }
}

TEST_F(LastDirectory, IsNotRestoredForAnyOtherValue) {
    MakeFolder(WIDE("C:\\Projects"));
    for (const char* value : {"0", " 0 ", "2", "", "11", "1 1", "01", "1a", "true", "１", "-1"}) {
        Setting("SetLastDir", value);
        Write(kFile, "C:\\Projects");
        StartAndWait();
        ExpectNothingRestored();
        EXPECT_EQ(CallsOf("CreateFileW"), 0) << value;
        workplace_->StopPlugin();
    }
}

TEST_F(LastDirectory, IsNotRestoredWithoutTheSettingsFile) {
    MakeFolder(WIDE("C:\\Projects"));
    Write(kFile, "C:\\Projects");
    std::filesystem::remove(host().disk.Real(kSettings));
    TextFolderSetting("SetLastDir", "1");
    StartAndWait();
    ExpectNothingRestored();
    EXPECT_FALSE(std::filesystem::exists(host().disk.Real(kSettings)));
}

TEST_F(LastDirectory, IsNotRestoredWithoutTheSectionOrTheKey) {
    MakeFolder(WIDE("C:\\Projects"));
    for (const char* bytes : {"[RmbDisable]\r\nvalue=1\r\n", "[SetLastDir]\r\npath=1\r\n", ""}) {
        Write(kFile, "C:\\Projects");
        Write(kSettings, bytes);
        StartAndWait();
        ExpectNothingRestored();
        workplace_->StopPlugin();
    }
}

TEST_F(LastDirectory, FollowsTheFolderOfTheModuleAndNotTheTextFolder) {
    MakeFolder(WIDE("C:\\Projects"));
    MakeFolder(WIDE("C:\\Others"));
    TextFolderSetting("SetLastDir", "0");
    Write(workbench::kTextFolder + WIDE("\\VXconfig\\vorlatix.ini"), "C:\\Others");
    RestoreFrom("C:\\Projects");
    EXPECT_EQ(WorkingDirectory(), "C:\\Projects");
    workplace_->StopPlugin();
    host().session.workingDirectory = WIDE("C:\\Work");
    Setting("SetLastDir", "0");
    TextFolderSetting("SetLastDir", "1");
    StartAndWait();
    ExpectNothingRestored();
}

// --- The file that is read ---

TEST_F(LastDirectory, StaysWhenTheFileIsMissingWhichReadingDoesNotMake) {
    Setting("SetLastDir", "1");
    StartAndWait();
    ExpectNothingRestored();
    EXPECT_EQ(CallsOf("CreateFileW"), 1);
    EXPECT_EQ(CallsOf("ProDirectoryChange"), 0);
    EXPECT_FALSE(std::filesystem::exists(host().disk.Real(kFile)));
}

TEST_F(LastDirectory, StaysWhenTheFileIsEmpty) {
    RestoreFrom("");
    ExpectNothingRestored();
    EXPECT_EQ(CallsOf("ProDirectoryChange"), 0);
    EXPECT_EQ(Read(kFile), "");
}

TEST_F(LastDirectory, StaysWhenTheFileHoldsOneByte) {
    for (const char* byte : {"C", "\x81", "\xFF", " "}) {
        RestoreFrom(byte);
        ExpectNothingRestored();
        EXPECT_EQ(Read(kFile), byte);
        workplace_->StopPlugin();
    }
}

// To the host that is the root of the present drive.
TEST_F(LastDirectory, IsTheRootWhenTheFileHoldsOneSeparator) {
    RestoreFrom("\\");
    EXPECT_EQ(WorkingDirectory(), "C:\\");
    EXPECT_EQ(Boxes(), Lines{});
}

TEST_F(LastDirectory, StaysWhenTheFileBeginsWithANullByte) {
    RestoreFrom(std::string("\0C:\\Projects", 12));
    ExpectNothingRestored();
    EXPECT_EQ(CallsOf("ProDirectoryChange"), 0);
}

TEST_F(LastDirectory, StaysWhenTheBytesAreNoTextOfTheCodePage) {
    // Lead bytes without a second one, and second bytes that none has.
    for (const char* bytes : {"\xFF\xFF\xFF\xFF", "C:\\\x81", "\x81\x20\x81\x20", "\x80\xFE\x7F"}) {
        RestoreFrom(bytes);
        ExpectNothingRestored();
        workplace_->StopPlugin();
    }
}

TEST_F(LastDirectory, StaysWhenTheFileIsHuge) {
    const std::string huge = "C:\\" + std::string(3'000'000, 'a');
    RestoreFrom(huge);
    ExpectNothingRestored();
    EXPECT_EQ(CallsOf("ProDirectoryChange"), 0);
    EXPECT_TRUE(Read(kFile) == huge);
}

TEST_F(LastDirectory, IsAskedForWithAtMost259Characters) {
    // A path has room for 259 characters and the terminator.
    RestoreFrom("C:\\" + std::string(256, 'a'));
    ExpectNothingRestored();
    EXPECT_EQ(CallsOf("ProDirectoryChange"), 1);
    workplace_->StopPlugin();
    for (const std::size_t letters : {257u, 300u, 1000u, 5000u}) {
        RestoreFrom("C:\\" + std::string(letters, 'a'));
        ExpectNothingRestored();
        EXPECT_EQ(CallsOf("ProDirectoryChange"), 0) << letters;
        workplace_->StopPlugin();
    }
}

TEST_F(LastDirectory, CountsCharactersAndNotBytes) {
    std::string chinese = "C:\\";
    for (int i = 0; i < 256; ++i) chinese += "\xCF\xEE";  // 515 bytes for 259 characters
    RestoreFrom(chinese);
    ExpectNothingRestored();
    EXPECT_EQ(CallsOf("ProDirectoryChange"), 1);
    workplace_->StopPlugin();
    RestoreFrom(chinese + "\xCF\xEE");
    EXPECT_EQ(CallsOf("ProDirectoryChange"), 0);
}

TEST_F(LastDirectory, OfThreeHundredCharactersIsNotReachedEvenIfItExists) {
    const WideText part(98, WideChar{'d'});
    const WideText folder = WIDE("C:\\") + part + WIDE("\\") + part + WIDE("\\") + part;  // 299
    MakeFolder(folder);
    RestoreFrom(Utf8(folder));
    ExpectNothingRestored();
}

TEST_F(LastDirectory, StaysWhenTheFolderIsGone) {
    RestoreFrom("C:\\Gone");
    ExpectNothingRestored();
    EXPECT_EQ(Calls().back(), R"(ProDirectoryChange(directory="C:\Gone") = -15)");
}

TEST_F(LastDirectory, StaysWhenTheLineHasAnEnd) {
    MakeFolder(WIDE("C:\\Projects"));
    RestoreFrom("C:\\Projects\r\n");
    ExpectNothingRestored();
}

TEST_F(LastDirectory, EndsAtANullByte) {
    MakeFolder(WIDE("C:\\Projects"));
    RestoreFrom(std::string("C:\\Projects\0rest of an older line", 33));
    EXPECT_EQ(WorkingDirectory(), "C:\\Projects");
}

TEST_F(LastDirectory, WithAChineseNameIsReadInTheSystemCodePage) {
    MakeFolder(WIDE("C:\\项目"));
    RestoreFrom("C:\\\xCF\xEE\xC4\xBF");
    EXPECT_EQ(WorkingDirectory(), "C:\\项目");
}

TEST_F(LastDirectory, InUtf8IsAnotherFolder) {
    MakeFolder(WIDE("C:\\项目"));
    RestoreFrom("C:\\项目");
    ExpectNothingRestored();
}

TEST_F(LastDirectory, LeavesTheFileAsItWasAfterReading) {
    MakeFolder(WIDE("C:\\Projects"));
    RestoreFrom("C:\\Projects");
    EXPECT_EQ(Read(kFile), "C:\\Projects");
}

TEST_F(LastDirectory, StaysWhenTheFileMayNotBeWritten) {
    // It is opened for reading and writing.
    MakeFolder(WIDE("C:\\Projects"));
    Setting("SetLastDir", "1");
    Write(kFile, "C:\\Projects");
    std::filesystem::permissions(host().disk.Real(kFile), std::filesystem::perms::owner_read);
    StartAndWait();
    ExpectNothingRestored();
}

TEST_F(LastDirectory, StaysWhenAnotherProgramHoldsTheFile) {
    MakeFolder(WIDE("C:\\Projects"));
    Setting("SetLastDir", "1");
    Write(kFile, "C:\\Projects");
    TheWindows().Hold(kFile);
    StartAndWait();
    ExpectNothingRestored();
}

TEST_F(LastDirectory, StaysWhenTheFileCannotBeRead) {
    MakeFolder(WIDE("C:\\Projects"));
    for (const char* operation : {"GetFileSizeEx", "ReadFile", "MultiByteToWideChar"}) {
        Fail(operation);
        RestoreFrom("C:\\Projects");
        ExpectNothingRestored();
        EXPECT_EQ(CallsOf("ProDirectoryChange"), 0) << operation;
        workplace_->StopPlugin();
    }
}

// --- The end of a run ---

TEST_F(LastDirectory, IsWrittenAtTheEndOfARunWithoutALineEnd) {
    Start();
    host().session.workingDirectory = WIDE("C:\\Projects\\Pump");
    workplace_->StopPlugin();
    EXPECT_EQ(SavedBytes(), "C:\\Projects\\Pump\\");  // the host puts a separator at its end
}

TEST_F(LastDirectory, IsWrittenByTheStepsInTheirOrder) {
    Start();
    host().journal.Start();
    workplace_->StopPlugin();
    host().journal.Stop();
    const Lines wanted = {"ProDirectoryCurrentGet",
                          "GetModuleHandleW",
                          "GetModuleFileNameW",
                          "_wsetlocale",
                          "WideCharToMultiByte",
                          "CreateFileW",
                          "WriteFile",
                          "CloseHandle",
                          "KillTimer"};
    EXPECT_EQ(host().journal.Names(), wanted);
}

TEST_F(LastDirectory, IsWrittenWhateverTheSettingSays) {
    for (const char* value : {"0", "1", "2", ""}) {
        Setting("SetLastDir", value);
        std::filesystem::remove(host().disk.Real(kFile));
        Start();
        workplace_->StopPlugin();
        EXPECT_EQ(SavedBytes(), "C:\\Work\\") << value;
    }
}

TEST_F(LastDirectory, IsWrittenBesideTheModuleAndNotIntoTheTextFolder) {
    Start();
    workplace_->StopPlugin();
    EXPECT_EQ(SavedBytes(), "C:\\Work\\");
    bool found = true;
    Read(workbench::kTextFolder + WIDE("\\VXconfig\\vorlatix.ini"), &found);
    EXPECT_FALSE(found);
}

TEST_F(LastDirectory, IsWrittenOverALongerLine) {
    Write(kFile, "C:\\" + std::string(500, 'x') + "\r\nmore");
    Start();
    workplace_->StopPlugin();
    EXPECT_EQ(SavedBytes(), "C:\\Work\\");
}

TEST_F(LastDirectory, WithAChineseNameIsWrittenInTheSystemCodePage) {
    Start();
    host().session.workingDirectory = WIDE("C:\\项目");
    workplace_->StopPlugin();
    EXPECT_EQ(SavedBytes(), "C:\\\xCF\xEE\xC4\xBF\\");
}

TEST_F(LastDirectory, WithALetterThatTheCodePageLacksIsNotTakenForALookAlike) {
    MakeFolder(WIDE("C:\\étude"));
    Start();
    host().session.workingDirectory = WIDE("C:\\Étude");
    workplace_->StopPlugin();
    EXPECT_EQ(SavedBytes(), "C:\\?tude\\");
    host().session.workingDirectory = WIDE("C:\\Work");
    Setting("SetLastDir", "1");
    StartAndWait();
    ExpectNothingRestored();
}

TEST_F(LastDirectory, SetsTheLocaleOfCharactersToChineseAndLeavesItSo) {
    Start();
    EXPECT_EQ(TheWindows().locale.count(LC_CTYPE), 0u);
    workplace_->StopPlugin();
    EXPECT_EQ(TheWindows().locale[LC_CTYPE], WIDE("chs"));
    EXPECT_EQ(TheWindows().locale.count(LC_NUMERIC), 0u);
}

TEST_F(LastDirectory, IsWrittenAlsoWhereThereIsNoChineseLocale) {
    Start();
    host().session.workingDirectory = WIDE("C:\\项目");
    Fail("_wsetlocale");
    workplace_->StopPlugin();
    EXPECT_EQ(SavedBytes(), "C:\\\xCF\xEE\xC4\xBF\\");
}

TEST_F(LastDirectory, IsWrittenAlsoAfterAStartThatFailed) {
    Fail("ProUIDialogCreate");
    PlayDuring([this] { StartAsNewUser(); }, "@ ok");
    ASSERT_NE(startStatus_, 0);
    workplace_->StopPlugin();
    EXPECT_EQ(SavedBytes(), "C:\\Work\\");
}

TEST_F(LastDirectory, IsLostQuietlyWhenTheFileMayNotBeWritten) {
    Write(kFile, "C:\\Before");
    std::filesystem::permissions(host().disk.Real(kFile), std::filesystem::perms::owner_read);
    Start();
    workplace_->StopPlugin();
    EXPECT_EQ(SavedBytes(), "C:\\Before");
    EXPECT_EQ(Boxes(), Lines{});
}

TEST_F(LastDirectory, IsLostQuietlyWhenAnotherProgramHoldsTheFile) {
    Write(kFile, "C:\\Before");
    Start();
    TheWindows().Hold(kFile);
    workplace_->StopPlugin();
    TheWindows().Release(kFile);
    EXPECT_EQ(SavedBytes(), "C:\\Before");
    EXPECT_EQ(Boxes(), Lines{});
}

TEST_F(LastDirectory, IsLostQuietlyWithoutTheFolderOfTheSettings) {
    std::filesystem::remove_all(host().disk.Real(workbench::kModuleFolder + WIDE("\\VXconfig")));
    Start();
    workplace_->StopPlugin();
    EXPECT_FALSE(std::filesystem::exists(host().disk.Real(kFile)));
    EXPECT_EQ(Boxes(), Lines{});
}

TEST_F(LastDirectory, ThatTheHostDoesNotTellLeavesAnEmptyFileAndTheNextRunAlone) {
    Start();
    Fail("ProDirectoryCurrentGet");
    workplace_->StopPlugin();
    EXPECT_EQ(SavedBytes(), "");
    Setting("SetLastDir", "1");
    StartAndWait();
    ExpectNothingRestored();
}

TEST_F(LastDirectory, ComesBackInTheNextRun) {
    MakeFolder(WIDE("C:\\项目\\水泵 2"));
    Setting("SetLastDir", "1");
    Start();
    host().session.workingDirectory = WIDE("C:\\项目\\水泵 2");
    workplace_->StopPlugin();
    host().session.workingDirectory = WIDE("C:\\Work");
    StartAndWait();
    EXPECT_EQ(WorkingDirectory(), "C:\\项目\\水泵 2");
}

}  // namespace
