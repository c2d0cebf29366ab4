// A folder of its own for each test of the Windows operations. Tests that use nothing else run
// against the simulated Windows and against a real one alike.
#pragma once

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "hostapi/wide.h"
#include "hostapi/windows.h"

#ifndef _WIN32
#include "simhost/host.h"
#include "simhost/windows/simulated.h"
#endif

// Literals with null bytes or null units in them.
template <std::size_t n>
std::string BytesOf(const char (&literal)[n]) {
    return std::string(literal, n - 1);
}
template <std::size_t n>
WideText UnitsOf(const WideChar (&literal)[n]) {
    return WideText(literal, n - 1);
}

// Names the test of a table's row by the row's own name.
struct NameOfRow {
    template <class Info>
    std::string operator()(const Info& row) const {
        return row.param.name;
    }
};

// Whether the Windows here is Wine, which is known to differ in a few cases.
inline bool IsWine() {
#ifdef _WIN32
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
#else
    return false;
#endif
}

class WindowsPlace : public testing::Test {
protected:
    WindowsPlace() {
        static std::atomic<int> number = 0;
        const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
        folder_ = std::filesystem::temp_directory_path() /
                  ("vorlatix_" + std::to_string(now) + "_" + std::to_string(++number));
        std::filesystem::create_directories(folder_);
#ifndef _WIN32
        simhost::RestartHost();
        simhost::RestartWindows();
        simhost::TheHost().disk.SetRoot(folder_);
#endif
    }

    ~WindowsPlace() override {
#ifndef _WIN32
        EXPECT_EQ(TakeComplaints(), std::vector<std::string>()) << "misuse that no test asked for";
        simhost::RestartWindows();
        simhost::RestartHost();
#endif
        std::error_code error;
        std::filesystem::remove_all(folder_, error);
    }

    const std::filesystem::path& folder() const {
        return folder_;
    }

    // The Windows path of a file of this test.
    WideText Path(WideView name) const {
#ifdef _WIN32
        return folder_.wstring() + L'\\' + WideText(name);
#else
        return WideText(WIDE("C:\\")).append(name);
#endif
    }

    // Files as they lie on the disk. Names in ASCII, with `/`.
    void Put(const std::string& name, std::string_view bytes) const {
        std::filesystem::create_directories((folder_ / name).parent_path());
        std::ofstream file(folder_ / name, std::ios::binary);
        file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }
    bool Exists(const std::string& name) const {
        return std::filesystem::exists(folder_ / name);
    }
    std::string Bytes(const std::string& name) const {
        std::ifstream file(folder_ / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

#ifndef _WIN32
    // What was complained about since the last time.
    static std::vector<std::string> TakeComplaints() {
        return std::exchange(simhost::TheHost().complaints, {});
    }
#endif

private:
    std::filesystem::path folder_;
};
