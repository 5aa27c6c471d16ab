#include <cstring>

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
    void put(const wchar_t* name, DWORD type, const void* data, DWORD size) {
        RegPutRaw(HKEY_CURRENT_USER, kScratchPath, name, type, data, size);
    }
    HKEY key_ = nullptr;
};

TEST_F(RegistryValues, ReadDwordTakesUpToFourBytesOfAnyTypeAndFallsBackOtherwise) {
    put(L"Short", REG_BINARY, "\x0A\x01", 2);
    put(L"Long", REG_BINARY, "12345678", 8);
    put(L"Text", REG_SZ, L"5", 4);
    EXPECT_EQ(ReadDword(key_, L"Short", 7), 0x010Au);
    EXPECT_EQ(ReadDword(key_, L"Long", 7), 7u);
    EXPECT_EQ(ReadDword(key_, L"Text", 7), 0x35u);
    EXPECT_EQ(ReadDword(key_, L"Missing", 7), 7u);
    EXPECT_EQ(ReadDword(static_cast<HKEY>(nullptr), L"Text", 9), 9u);
    EXPECT_EQ(ReadDword(HKEY_CURRENT_USER, kScratchPath, L"Text", 1), 0x35u);
    EXPECT_EQ(ReadDword(HKEY_CURRENT_USER, L"Software\\Orvane\\NoSuchKey", L"Text", 3), 3u);
    EXPECT_FALSE(RegKeyExists(HKEY_CURRENT_USER, L"Software\\Orvane\\NoSuchKey")) << "reading never creates";
}

TEST_F(RegistryValues, ReadStringTakesTheStoredBytesOfAnyTypeAsTextEndedInsideItsBuffer) {
    DWORD letters = 0x00420041;
    put(L"Letters", REG_DWORD, &letters, 4);
    put(L"Binary", REG_BINARY, "H\0i\0", 4);  // no terminator
    put(L"Odd", REG_BINARY, "x\0y\0z", 5);    // half a character at the end
    put(L"Empty", REG_BINARY, "", 0);
    put(L"Multi", REG_MULTI_SZ, L"ab\0cd\0", 14);
    const std::wstring longText(3000, L'w');  // beyond any small buffer, stored without terminator
    put(L"Long", REG_SZ, longText.data(), static_cast<DWORD>(longText.size() * 2));
    put(L"LongOdd", REG_BINARY, longText.data(), static_cast<DWORD>(longText.size() * 2 - 1));
    const std::pair<const wchar_t*, std::wstring> cases[] = {{L"Letters", L"AB"}, {L"Binary", L"Hi"}, {L"Odd", L"xy"},
        {L"Empty", L""}, {L"Multi", L"ab"}, {L"Long", longText}, {L"LongOdd", longText.substr(1)}};
    for (const auto& c : cases) {
        WString out(L"old");
        EXPECT_EQ(ReadString(key_, c.first, out, L"default"), 1) << Narrow(c.first);
        EXPECT_EQ(std::wstring(out.c_str()), c.second) << Narrow(c.first);
    }
    WString out;
    EXPECT_EQ(ReadString(key_, L"Missing", out, nullptr), 0);
    EXPECT_STREQ(out.c_str(), L"");
    EXPECT_EQ(ReadString(HKEY_CURRENT_USER, L"Software\\Orvane\\NoSuchKey", L"Text", out, L"d"), 0);
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

TEST_F(RegistryValues, KeyIndexesBeyondTheTableNameNoKeyAndOnlyOpenSettingKeyCreates) {
    for (unsigned index : {15u, 0xFFFFFFFFu})
        EXPECT_FALSE(KeyRoot(index) || KeyPath(index) || OpenSettingKey(index) || OpenExistingSettingKey(index));
    EXPECT_FALSE(OpenExistingSettingKey(kKeyCategories));
    EXPECT_FALSE(RegKeyExists(HKEY_CURRENT_USER, L"Software\\Orvane\\Quillory\\Categories"));
    EXPECT_TRUE(OpenSettingKey(kKeyCategories));
    EXPECT_TRUE(OpenExistingSettingKey(kKeyCategories));
}

TEST_F(RegistryValues, SystemColourPrefersTheDecimalValueThenAStrictlyLongerArrayThenTheDefault) {
    EXPECT_EQ(ReadSystemColour(6, 0xFFEF8E73), 0x00EF8E73u) << "no key: the default without its top byte";
    BYTE array[40];
    for (int i = 0; i < 40; ++i) array[i] = static_cast<BYTE>(i);
    RegPutRaw(HKEY_LOCAL_MACHINE, kColorPath, L"SHColor", REG_BINARY, array, 8 * 4 + 4);
    EXPECT_EQ(ReadSystemColour(8, 0xFF9C4D2C), 0x009C4D2Cu) << "exactly index * 4 + 4 bytes: the default";
    RegPutRaw(HKEY_LOCAL_MACHINE, kColorPath, L"SHColor", REG_BINARY, array, 8 * 4 + 5);
    EXPECT_EQ(ReadSystemColour(8, 0x9C4D2C), RGB(32, 33, 34));
    EXPECT_EQ(ReadSystemColour(-1, 0x123456), 0x123456u);
    RegPutDword(HKEY_LOCAL_MACHINE, kColorPath, L"8", 0xAA112233);
    EXPECT_EQ(ReadSystemColour(8, 0), 0x00112233u);
}

}  // namespace
