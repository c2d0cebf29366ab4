// The module in a real Windows: its file and its place, its timer in a message loop, its files, its
// key in the registry, and the locale that it leaves behind.
#include <cstdio>
#include <cstdlib>

#include "simhost/core/disk.h"
#include "simhost/host.h"
#include "simhost/windows_real/real.h"
#include "tests/support/places.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using workbench::Workbench;

const WideText kModule = workbench::kModuleFolder + L"\\vorlatix5.1.dll";
const WideText kLastDirFile = workbench::kModuleFolder + L"\\VXconfig\\vorlatix.ini";
constexpr const WideChar* kKey = L"Software\\PTC\\Creo_Parametric";

class RealModule : public Workbench {
protected:
    // Runs the thread's message loop, as a host does, for so long by the clock on the wall.
    static void RunMessageLoop(DWORD milliseconds) {
        const UINT_PTR end = SetTimer(nullptr, 0, milliseconds, nullptr);
        MSG message;
        while (GetMessageW(&message, nullptr, 0, 0) > 0) {
            if (message.message == WM_TIMER && message.wParam == end) break;
            DispatchMessageW(&message);
        }
        KillTimer(nullptr, end);
    }
};

TEST_F(RealModule, IsLoadedFromItsFolderUnderItsName) {
    Start();
    const HMODULE module = GetModuleHandleW(L"vorlatix5.1.dll");
    ASSERT_TRUE(module);
    WideChar path[MAX_PATH] = {};
    GetModuleFileNameW(module, path, MAX_PATH);
    EXPECT_EQ(Utf8(path), Utf8(kModule));
    EXPECT_TRUE(GetProcAddress(module, "user_initialize"));
    EXPECT_TRUE(GetProcAddress(module, "user_terminate"));
}

TEST_F(RealModule, LeavesMemoryWithThePlugin) {
    Start();
    workplace_->StopPlugin();
    EXPECT_FALSE(GetModuleHandleW(L"vorlatix5.1.dll"));
}

TEST_F(RealModule, RestoresTheLastDirectoryAfterTwoSecondsOfTheMessageLoop) {
    std::filesystem::create_directories(L"C:\\项目\\泵 2");
    Write(kLastDirFile, "C:\\\xCF\xEE\xC4\xBF\\\xB1\xC3 2");
    Setting("SetLastDir", "1");
    Real().onWallClock = true;
    Start();
    const ULONGLONG started = GetTickCount64();
    RunMessageLoop(1000);
    // A machine that was asleep for a second proves nothing here.
    if (GetTickCount64() - started < 1900) {
        EXPECT_EQ(Utf8(host().session.workingDirectory), "C:\\Work");
    }
    RunMessageLoop(1500);
    EXPECT_EQ(Utf8(host().session.workingDirectory), "C:\\项目\\泵 2");
}

TEST_F(RealModule, WritesTheLastDirectoryInTheChineseCodePage) {
    Start();
    host().session.workingDirectory = L"C:\\项目";
    workplace_->StopPlugin();
    // By Windows' own means, not by ours.
    std::FILE* file = _wfopen(kLastDirFile.c_str(), L"rb");
    ASSERT_TRUE(file);
    char bytes[64] = {};
    const std::size_t length = std::fread(bytes, 1, sizeof bytes, file);
    std::fclose(file);
    EXPECT_EQ(std::string(bytes, length), "C:\\\xCF\xEE\xC4\xBF\\");
}

TEST_F(RealModule, LeavesWideTextToBeWrittenInTheChineseCodePage) {
    Start();
    workplace_->StopPlugin();
    char bytes[8] = {};
    EXPECT_EQ(std::wcstombs(bytes, L"项目", sizeof bytes), 4u);
    EXPECT_STREQ(bytes, "\xCF\xEE\xC4\xBF");
}

TEST_F(RealModule, KeepsItsMarkerInTheRegistryOfTheUser) {
    PlayDuring([this] { StartAsNewUser(); }, "~ Activate `VxInit.res` `OK`");
    HKEY key = nullptr;
    ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, kKey, 0, KEY_READ, &key), ERROR_SUCCESS);
    WideChar text[8] = {};
    DWORD size = sizeof text, type = 0;
    EXPECT_EQ(RegQueryValueExW(key, L"VxReg", nullptr, &type, reinterpret_cast<BYTE*>(text), &size),
              ERROR_SUCCESS);
    RegCloseKey(key);
    EXPECT_EQ(type, DWORD{REG_SZ});
    EXPECT_EQ(size, 10u);  // four digits and the terminator
    EXPECT_EQ(Utf8(text), "5110");
}

// What is told about a module that is no good; empty if it was loaded.
std::string Refusal(const WideText& file) {
    try {
        Plugin plugin(file, file);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return {};
}

TEST_F(RealModule, ThatIsNoModuleIsRefusedInOneSentence) {
    Write(L"C:\\Work\\text.dll", "this is a text");
    EXPECT_EQ(Refusal(L"C:\\Work\\text.dll"),
              "the module C:\\Work\\text.dll cannot be loaded: it is no module for 64-bit Windows; "
              "build it for that");
}

TEST_F(RealModule, WhoseLibraryIsMissingIsRefusedInOneSentence) {
    // The real module, but for the name of the library that it wants.
    std::string bytes = ReadFile(workbench::kModuleBuilt);
    const std::size_t at = bytes.find("simhost.dll");
    ASSERT_NE(at, std::string::npos);
    bytes.replace(at, 7, "no-host");
    // Wine keeps such a file open, so it lies where nothing is cleared.
    const WideText file = (std::filesystem::temp_directory_path() / L"项目.dll").wstring();
    ASSERT_TRUE(WriteFile(file, bytes));
    EXPECT_EQ(Refusal(file), "the module " + Utf8(file) +
                                 " cannot be loaded: a library that it needs is missing; "
                                 "put it beside simhost");
}

}  // namespace
