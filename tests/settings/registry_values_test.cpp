#include "settings/key_table.h"
#include "settings/registry_values.h"
#include "settings_test_util.h"

namespace {

const wchar_t kScratchPath[] = L"Software\\Orvane\\Quillory\\RegistryValuesTest";
const wchar_t kColorPath[] = L"SOFTWARE\\Microsoft\\Color";

class RegistryValues : public ::testing::Test {
protected:
    void SetUp() override {
        RemoveProductKeys();
        RegRemoveTree(HKEY_LOCAL_MACHINE, kColorPath);
        RegCreateKeyExW(HKEY_CURRENT_USER, kScratchPath, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key_, nullptr);
    }
    void TearDown() override {
        RegCloseKey(key_);
        RemoveProductKeys();
        RegRemoveTree(HKEY_LOCAL_MACHINE, kColorPath);
    }
    HKEY key_ = nullptr;
};

TEST_F(RegistryValues, ReadStringTakesTheStoredBytesOfAnyTypeAsTextEndedInsideItsBuffer) {
    const std::wstring longText(3000, L'w');  // beyond any small buffer, stored without terminator
    const struct {
        const wchar_t* name;
        DWORD type;
        const void* bytes;
        DWORD size;
        std::wstring text;
    } cases[] = {{L"NoEnd", REG_BINARY, "H\0i\0", 4, L"Hi"}, {L"Odd", REG_BINARY, "x\0y\0z", 5, L"xy"},
                 {L"Multi", REG_MULTI_SZ, L"ab\0cd\0", 14, L"ab"},
                 {L"Long", REG_SZ, longText.data(), 6000, longText},
                 {L"LongOdd", REG_BINARY, longText.data(), 5999, longText.substr(1)}};
    for (const auto& c : cases) {
        RegPutRaw(HKEY_CURRENT_USER, kScratchPath, c.name, c.type, c.bytes, c.size);
        WString out(L"old");
        EXPECT_EQ(ReadString(key_, c.name, out, L"default"), 1) << Narrow(c.name);
        EXPECT_EQ(std::wstring(out.c_str()), c.text) << Narrow(c.name);
    }
    WString out;
    EXPECT_EQ(ReadString(HKEY_CURRENT_USER, kScratchPath, L"Missing", out, L"d"), 0);
    EXPECT_STREQ(out.c_str(), L"d");
}

TEST_F(RegistryValues, WritesUnlessEqualToTheDefaultThenDeletes) {
    WriteDwordOrDelete(key_, L"Days", 14, 7);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kScratchPath, L"Days", 14);
    WriteDwordOrDelete(key_, L"Days", 7, 7);
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kScratchPath, L"Days");
    WriteStringOrDelete(key_, L"Face", L"tahoma", L"Tahoma");
    DWORD type = 0, size = 0;
    RegQueryValueExW(key_, L"Face", nullptr, &type, nullptr, &size);
    EXPECT_EQ(type, static_cast<DWORD>(REG_SZ));
    EXPECT_EQ(size, 14u) << "six characters and the terminator";
    WriteStringOrDelete(key_, L"Face", L"Tahoma", L"Tahoma");
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kScratchPath, L"Face");
    WriteStringOrDelete(key_, L"Skin", L"", nullptr);
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kScratchPath, L"Skin") << "null and empty are the same default";
}

TEST_F(RegistryValues, KeyIndexesBeyondTheTableNameNoKey) {
    for (unsigned index : {15u, 0xFFFFFFFFu})
        EXPECT_FALSE(KeyRoot(index) || KeyPath(index) || OpenSettingKey(index) || OpenExistingSettingKey(index));
}

TEST_F(RegistryValues, SystemColourPrefersTheDecimalValueThenAStrictlyLongerArrayThenTheDefault) {
    EXPECT_EQ(ReadSystemColour(6, 0xFFEF8E73), 0x00EF8E73u) << "no key: the default without its top byte";
    BYTE array[40];
    for (int i = 0; i < 40; ++i) array[i] = static_cast<BYTE>(i);
    RegPutRaw(HKEY_LOCAL_MACHINE, kColorPath, L"SHColor", REG_BINARY, array, 8 * 4 + 4);
    EXPECT_EQ(ReadSystemColour(8, 0xFF9C4D2C), 0x009C4D2Cu) << "exactly index * 4 + 4 bytes: the default";
    RegPutRaw(HKEY_LOCAL_MACHINE, kColorPath, L"SHColor", REG_BINARY, array, 8 * 4 + 5);
    EXPECT_EQ(ReadSystemColour(8, 0x9C4D2C), RGB(32, 33, 34));
    EXPECT_EQ(ReadSystemColour(0, 0x9C4D2C), RGB(0, 1, 2));
    EXPECT_EQ(ReadSystemColour(-1, 0x123456), 0x123456u);
    RegPutDword(HKEY_LOCAL_MACHINE, kColorPath, L"8", 0xAA112233);
    EXPECT_EQ(ReadSystemColour(8, 0), 0x00112233u);
}

}  // namespace
