// The current user's registry in the simulated Windows.
#include "tests/simhost/windows_place.h"

#ifndef _WIN32

#include <cstring>

using namespace simhost;

namespace {

using Complaints = std::vector<std::string>;
using Lines = std::vector<std::string>;

constexpr const WideChar* kPath = WIDE("Software\\PTC\\Creo_Parametric");
constexpr LSTATUS kInvalidHandle = 6, kInvalidParameter = 87, kBadPath = 161, kDeleted = 1018;
constexpr DWORD kBinary = 3;

class Registry : public WindowsPlace {
protected:
    static HKEY Open(REGSAM access, const WideChar* path = kPath) {
        HKEY key = nullptr;
        EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, path, 0, access, &key), ERROR_SUCCESS);
        return key;
    }
    static LSTATUS Create(HKEY parent, const WideChar* path, HKEY* key,
                          DWORD* disposition = nullptr) {
        return RegCreateKeyExW(parent, path, 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS,
                               nullptr, key, disposition);
    }
    static LSTATUS SetText(HKEY key, const WideChar* name, const WideText& text) {
        return RegSetValueExW(key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                              static_cast<DWORD>((text.size() + 1) * sizeof(WideChar)));
    }
};

TEST_F(Registry, HasNoKeysAtFirst) {
    HKEY key = nullptr;
    EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, kPath, 0, KEY_READ, &key), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(key, nullptr);
    EXPECT_FALSE(TheWindows().HasRegistry(WIDE("Software")));
}

TEST_F(Registry, IsReadIgnoringCase) {
    TheWindows().SetRegistry(kPath, WIDE("VxReg"), WIDE("5110"));
    const HKEY key = Open(KEY_READ, WIDE("SOFTWARE\\ptc\\creo_PARAMETRIC\\"));
    WideChar text[100] = {};
    DWORD type = 0, size = sizeof text;
    EXPECT_EQ(
        RegQueryValueExW(key, WIDE("vxREG"), nullptr, &type, reinterpret_cast<BYTE*>(text), &size),
        ERROR_SUCCESS);
    EXPECT_EQ(type, REG_SZ);
    EXPECT_EQ(size, 10u);  // four digits and the terminator
    EXPECT_EQ(WideText(text), WIDE("5110"));
    EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
}

TEST_F(Registry, GetsTheKeysAboveANewOne) {
    HKEY key = nullptr;
    DWORD disposition = 0;
    EXPECT_EQ(Create(HKEY_CURRENT_USER, kPath, &key, &disposition), ERROR_SUCCESS);
    EXPECT_EQ(disposition, 1u);
    EXPECT_TRUE(TheWindows().HasRegistry(WIDE("Software")));
    EXPECT_TRUE(TheWindows().HasRegistry(WIDE("Software\\PTC")));
    EXPECT_EQ(SetText(key, WIDE("VxReg"), WIDE("5120")), ERROR_SUCCESS);
    EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
    EXPECT_EQ(TheWindows().RegistryText(kPath, WIDE("VxReg")), WIDE("5120"));
}

TEST_F(Registry, KeepsAKeyThatIsCreatedAgain) {
    TheWindows().SetRegistry(kPath, WIDE("VxReg"), WIDE("5110"));
    HKEY key = nullptr;
    DWORD disposition = 0;
    EXPECT_EQ(Create(HKEY_CURRENT_USER, kPath, &key, &disposition), ERROR_SUCCESS);
    EXPECT_EQ(disposition, 2u);
    EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
    EXPECT_EQ(TheWindows().RegistryText(kPath, WIDE("VxReg")), WIDE("5110"));
}

TEST_F(Registry, OpensKeysBelowOpenKeys) {
    TheWindows().SetRegistry(kPath, WIDE("VxReg"), WIDE("5110"));
    const HKEY software = Open(KEY_READ, WIDE("Software"));
    HKEY key = nullptr;
    EXPECT_EQ(RegOpenKeyExW(software, WIDE("PTC\\Creo_Parametric"), 0, KEY_READ, &key),
              ERROR_SUCCESS);
    DWORD size = 0;
    EXPECT_EQ(RegQueryValueExW(key, WIDE("VxReg"), nullptr, nullptr, nullptr, &size),
              ERROR_SUCCESS);
    EXPECT_EQ(size, 10u);
    EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
    EXPECT_EQ(RegCloseKey(software), ERROR_SUCCESS);
}

TEST_F(Registry, TellsTheSizeThatABufferLacks) {
    TheWindows().SetRegistry(kPath, WIDE("VxReg"), WIDE("5110"));
    const HKEY key = Open(KEY_READ);
    BYTE bytes[9];
    DWORD type = 0, size = sizeof bytes;
    EXPECT_EQ(RegQueryValueExW(key, WIDE("VxReg"), nullptr, &type, bytes, &size), ERROR_MORE_DATA);
    EXPECT_EQ(size, 10u);
    EXPECT_EQ(type, REG_SZ);
    RegCloseKey(key);
}

TEST_F(Registry, KeepsBytesAndTypes) {
    TheWindows().SetRegistry(kPath, WIDE("Bytes"), kBinary, std::string("a\0b", 3));
    const HKEY key = Open(KEY_READ);
    char bytes[8] = "#######";
    DWORD type = 0, size = sizeof bytes;
    EXPECT_EQ(
        RegQueryValueExW(key, WIDE("Bytes"), nullptr, &type, reinterpret_cast<BYTE*>(bytes), &size),
        ERROR_SUCCESS);
    EXPECT_EQ(type, kBinary);
    EXPECT_EQ(std::string(bytes, 8), std::string("a\0b####\0", 8));
    EXPECT_EQ(size, 3u);
    RegCloseKey(key);
}

TEST_F(Registry, TakesTextWithoutTerminator) {
    TheWindows().SetRegistry(kPath, WIDE("VxReg"), REG_SZ, std::string("5\0001\000", 4));
    EXPECT_EQ(TheWindows().RegistryText(kPath, WIDE("VxReg")), WIDE("51"));
}

TEST_F(Registry, HasADefaultValue) {
    HKEY key = nullptr;
    Create(HKEY_CURRENT_USER, kPath, &key);
    EXPECT_EQ(SetText(key, nullptr, WIDE("x")), ERROR_SUCCESS);
    EXPECT_EQ(TheWindows().RegistryText(kPath, WIDE("")), WIDE("x"));
    RegCloseKey(key);
}

TEST_F(Registry, IsNotWrittenThroughAKeyForReading) {
    TheWindows().SetRegistry(kPath, WIDE("VxReg"), WIDE("5110"));
    const HKEY key = Open(KEY_READ);
    EXPECT_EQ(SetText(key, WIDE("VxReg"), WIDE("5120")), ERROR_ACCESS_DENIED);
    HKEY below = nullptr;
    EXPECT_EQ(Create(key, WIDE("New"), &below), ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
    EXPECT_EQ(TheWindows().RegistryText(kPath, WIDE("VxReg")), WIDE("5110"));
    EXPECT_EQ(TheWindows().RegistryText(kPath, WIDE("None")), std::nullopt);
}

TEST_F(Registry, HasNoMissingValues) {
    TheWindows().SetRegistry(kPath, WIDE("VxReg"), WIDE("5110"));
    const HKEY key = Open(KEY_READ);
    DWORD size = 7;
    EXPECT_EQ(RegQueryValueExW(key, WIDE("Other"), nullptr, nullptr, nullptr, &size),
              ERROR_FILE_NOT_FOUND);
    RegCloseKey(key);
}

TEST_F(Registry, LosesAKeyWithAllBelowIt) {
    TheWindows().SetRegistry(kPath, WIDE("VxReg"), WIDE("5110"));
    TheWindows().SetRegistry(WIDE("Software\\PTC2"), WIDE("x"), WIDE("y"));
    const HKEY key = Open(KEY_READ);
    TheWindows().RemoveRegistry(WIDE("software\\ptc"));
    EXPECT_FALSE(TheWindows().HasRegistry(kPath));
    EXPECT_TRUE(TheWindows().HasRegistry(WIDE("Software")));
    EXPECT_TRUE(TheWindows().HasRegistry(WIDE("Software\\PTC2")));
    DWORD size = 0;
    EXPECT_EQ(RegQueryValueExW(key, WIDE("VxReg"), nullptr, nullptr, nullptr, &size), kDeleted);
    EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
}

TEST_F(Registry, RefusesAPathThatBeginsWithASeparator) {
    HKEY key = nullptr;
    EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, WIDE("\\Software"), 0, KEY_READ, &key), kBadPath);
}

TEST_F(Registry, RefusesDataWithoutASize) {
    TheWindows().SetRegistry(kPath, WIDE("VxReg"), WIDE("5110"));
    const HKEY key = Open(KEY_READ);
    BYTE byte = 0;
    EXPECT_EQ(RegQueryValueExW(key, WIDE("VxReg"), nullptr, nullptr, &byte, nullptr),
              kInvalidParameter);
    RegCloseKey(key);
}

TEST_F(Registry, ListsKeysThatWereNotClosed) {
    TheWindows().SetRegistry(kPath, WIDE("VxReg"), WIDE("5110"));
    const HKEY first = Open(KEY_READ);
    const HKEY second = Open(KEY_READ, WIDE("Software\\PTC"));
    EXPECT_NE(first, second);
    EXPECT_EQ(TheWindows().OpenHandles(),
              (Lines{"key Software\\PTC\\Creo_Parametric", "key Software\\PTC"}));
    RegCloseKey(first);
    EXPECT_EQ(TheWindows().OpenHandles(), Lines{"key Software\\PTC"});
    RegCloseKey(second);
    EXPECT_TRUE(TheWindows().OpenHandles().empty());
}

TEST_F(Registry, ComplainsAboutHandlesThatNameNoOpenKey) {
    TheWindows().SetRegistry(kPath, WIDE("VxReg"), WIDE("5110"));
    const HKEY key = Open(KEY_READ);
    EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
    EXPECT_EQ(RegCloseKey(key), kInvalidHandle);
    EXPECT_EQ(RegQueryValueExW(key, WIDE("VxReg"), nullptr, nullptr, nullptr, nullptr),
              kInvalidHandle);
    EXPECT_EQ(SetText(nullptr, WIDE("VxReg"), WIDE("x")), kInvalidHandle);
    EXPECT_EQ(TakeComplaints(), (Complaints{"RegCloseKey: the handle names no open key",
                                            "RegQueryValueExW: the handle names no open key",
                                            "RegSetValueExW: the handle names no open key"}));
}

TEST_F(Registry, ComplainsAboutMissingPlaces) {
    EXPECT_NE(RegOpenKeyExW(HKEY_CURRENT_USER, kPath, 0, KEY_READ, nullptr), ERROR_SUCCESS);
    EXPECT_NE(Create(HKEY_CURRENT_USER, kPath, nullptr), ERROR_SUCCESS);
    EXPECT_NE(RegSetValueExW(HKEY_CURRENT_USER, WIDE("x"), 0, REG_SZ, nullptr, 4), ERROR_SUCCESS);
    EXPECT_EQ(TakeComplaints(), (Complaints{"RegOpenKeyExW: the place for the key is null",
                                            "RegCreateKeyExW: the place for the key is null",
                                            "RegSetValueExW: the data is null"}));
}

TEST_F(Registry, DeniesAccessWhenToldToFail) {
    TheWindows().SetRegistry(kPath, WIDE("VxReg"), WIDE("5110"));
    for (const char* operation :
         {"RegOpenKeyExW", "RegCreateKeyExW", "RegQueryValueExW", "RegSetValueExW"}) {
        Operation::Fail({operation, 1, /*forGood=*/true});
    }
    HKEY key = nullptr;
    EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, kPath, 0, KEY_READ, &key), ERROR_ACCESS_DENIED);
    EXPECT_EQ(Create(HKEY_CURRENT_USER, WIDE("New"), &key), ERROR_ACCESS_DENIED);
    EXPECT_EQ(key, nullptr);
    EXPECT_EQ(RegQueryValueExW(HKEY_CURRENT_USER, nullptr, nullptr, nullptr, nullptr, nullptr),
              ERROR_ACCESS_DENIED);
    EXPECT_EQ(SetText(HKEY_CURRENT_USER, WIDE("x"), WIDE("y")), ERROR_ACCESS_DENIED);
    EXPECT_FALSE(TheWindows().HasRegistry(WIDE("New")));
    EXPECT_EQ(TheWindows().RegistryText({}, WIDE("x")), std::nullopt);
}

TEST_F(Registry, FailsWithTheNumberThatItIsTold) {
    Operation::Fail({"RegOpenKeyExW", 1, false, 1450});
    HKEY key = nullptr;
    EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, kPath, 0, KEY_READ, &key), 1450);
}

TEST_F(Registry, ClosesAKeyAlsoWhenThatIsToldToFail) {
    TheWindows().SetRegistry(kPath, WIDE("VxReg"), WIDE("5110"));
    const HKEY key = Open(KEY_READ);
    Operation::Fail({"RegCloseKey"});
    EXPECT_EQ(RegCloseKey(key), ERROR_ACCESS_DENIED);
    EXPECT_TRUE(TheWindows().OpenHandles().empty());
}

}  // namespace

#endif
