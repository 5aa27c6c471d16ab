#include <cstring>
#include <string>

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
        RegCreateKeyExW(HKEY_CURRENT_USER, kScratchPath, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key_, nullptr);
        ASSERT_NE(key_, nullptr);
    }
    void TearDown() override {
        RegCloseKey(key_);
        RemoveProductKeys();
    }
    void put(const wchar_t* name, DWORD type, const void* data, DWORD size) {
        RegPutRaw(HKEY_CURRENT_USER, kScratchPath, name, type, data, size);
    }
    HKEY key_ = nullptr;
};

TEST_F(RegistryValues, ReadDwordTakesFourBytesOfAnyTypeAndFallsBackOtherwise) {
    RegPutDword(HKEY_CURRENT_USER, kScratchPath, L"Dword", 0x12345678);
    const BYTE shortBinary[2] = {0x0A, 0x01};
    put(L"Short", REG_BINARY, shortBinary, 2);
    const BYTE longBinary[8] = {1, 2, 3, 4, 5, 6, 7, 8};
    put(L"Long", REG_BINARY, longBinary, 8);
    put(L"Text", REG_SZ, L"5", 4);  // '5' and the terminator: four bytes

    EXPECT_EQ(ReadDword(key_, L"Dword", 7), 0x12345678u);
    EXPECT_EQ(ReadDword(key_, L"Short", 7), 0x010Au) << "a short value is zero-extended";
    EXPECT_EQ(ReadDword(key_, L"Long", 7), 7u) << "more than four bytes cannot be read into four";
    EXPECT_EQ(ReadDword(key_, L"Text", 7), 0x35u) << "the type is not looked at";
    EXPECT_EQ(ReadDword(key_, L"Missing", 7), 7u);
    EXPECT_EQ(ReadDword(static_cast<HKEY>(nullptr), L"Dword", 9), 9u);

    EXPECT_EQ(ReadDword(HKEY_CURRENT_USER, kScratchPath, L"Dword", 1), 0x12345678u);
    EXPECT_EQ(ReadDword(HKEY_CURRENT_USER, L"Software\\Orvane\\NoSuchKey", L"Dword", 3), 3u);
    EXPECT_FALSE(RegKeyExists(HKEY_CURRENT_USER, L"Software\\Orvane\\NoSuchKey")) << "reading never creates";
}

TEST_F(RegistryValues, ReadStringTakesTheStoredBytesOfAnyTypeAsTextEndedInsideItsBuffer) {
    RegPutString(HKEY_CURRENT_USER, kScratchPath, L"Text", L"Calendar");
    put(L"Expand", REG_EXPAND_SZ, L"%TEMP%", 14);
    DWORD letters = 0x00420041, small = 5, zero = 0;
    put(L"Letters", REG_DWORD, &letters, 4);
    put(L"Small", REG_DWORD, &small, 4);
    put(L"Zero", REG_DWORD, &zero, 4);
    put(L"Binary", REG_BINARY, "H\0i\0", 4);   // no terminator
    put(L"Odd", REG_BINARY, "x\0y\0z", 5);     // half a character at the end
    put(L"OneByte", REG_BINARY, "A", 1);
    put(L"Empty", REG_BINARY, "", 0);
    put(L"Multi", REG_MULTI_SZ, L"ab\0cd\0", 14);
    const std::wstring longText(3000, L'w');  // beyond any small buffer, stored without terminator
    put(L"Long", REG_SZ, longText.data(), static_cast<DWORD>(longText.size() * 2));
    put(L"LongOdd", REG_BINARY, longText.data(), static_cast<DWORD>(longText.size() * 2 - 1));

    struct Case {
        const wchar_t* name;
        std::wstring text;
    };
    for (const Case& c : {Case{L"Text", L"Calendar"}, Case{L"Expand", L"%TEMP%"}, Case{L"Letters", L"AB"},
                          Case{L"Small", L"\x0005"}, Case{L"Zero", L""}, Case{L"Binary", L"Hi"}, Case{L"Odd", L"xy"},
                          Case{L"OneByte", L""}, Case{L"Empty", L""}, Case{L"Multi", L"ab"}, Case{L"Long", longText},
                          Case{L"LongOdd", longText.substr(1)}}) {
        WString out(L"old");
        EXPECT_EQ(ReadString(key_, c.name, out, L"dflt"), 1) << Narrow(c.name);
        EXPECT_EQ(std::wstring(out.c_str()), c.text) << Narrow(c.name);
    }

    WString out;
    EXPECT_EQ(ReadString(key_, L"Missing", out, nullptr), 0);
    EXPECT_STREQ(out.c_str(), L"");
    EXPECT_EQ(ReadString(static_cast<HKEY>(nullptr), L"Text", out, L"none"), 0);
    EXPECT_STREQ(out.c_str(), L"none");
    EXPECT_EQ(ReadString(HKEY_CURRENT_USER, kScratchPath, L"Letters", out, L""), 1);
    EXPECT_STREQ(out.c_str(), L"AB");
    EXPECT_EQ(ReadString(HKEY_CURRENT_USER, L"Software\\Orvane\\NoSuchKey", L"Text", out, L"d"), 0);
    EXPECT_STREQ(out.c_str(), L"d");
}

TEST_F(RegistryValues, WritesUnlessEqualToTheDefaultThenDeletes) {
    WriteDwordOrDelete(key_, L"Days", 14, 7);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kScratchPath, L"Days", 14);
    WriteDwordOrDelete(key_, L"Days", 7, 7);
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kScratchPath, L"Days");
    WriteDwordOrDelete(key_, L"NeverThere", 0, 0);
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kScratchPath, L"NeverThere");

    WriteStringOrDelete(key_, L"Face", L"tahoma", L"Tahoma");
    EXPECT_REG_STRING(HKEY_CURRENT_USER, kScratchPath, L"Face", L"tahoma") << "the comparison is case-sensitive";
    HKEY read;
    ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, kScratchPath, 0, KEY_READ, &read), ERROR_SUCCESS);
    DWORD type = 0, size = 0;
    RegQueryValueExW(read, L"Face", nullptr, &type, nullptr, &size);
    RegCloseKey(read);
    EXPECT_EQ(type, static_cast<DWORD>(REG_SZ));
    EXPECT_EQ(size, 14u) << "six characters and the terminator";

    WriteStringOrDelete(key_, L"Face", L"Tahoma", L"Tahoma");
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kScratchPath, L"Face");
    WriteStringOrDelete(key_, L"Skin", L"", nullptr);
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kScratchPath, L"Skin") << "null and empty are the same default";
    WriteStringOrDelete(key_, L"Skin", L"x", nullptr);
    EXPECT_REG_STRING(HKEY_CURRENT_USER, kScratchPath, L"Skin", L"x");
}

TEST(KeyTable, IndexesBeyondTheTableNameNoKey) {
    EXPECT_NE(KeyPath(kKeyCount - 1), nullptr);
    for (unsigned index : {15u, 16u, 0xFFFFFFFFu}) {
        EXPECT_EQ(KeyRoot(index), nullptr);
        EXPECT_EQ(KeyPath(index), nullptr);
        EXPECT_FALSE(OpenSettingKey(index));
        EXPECT_FALSE(OpenExistingSettingKey(index));
    }
}

TEST(KeyTable, OpenSettingKeyCreatesButOpenExistingDoesNot) {
    RemoveProductKeys();
    EXPECT_FALSE(OpenExistingSettingKey(kKeyCategories));
    EXPECT_FALSE(RegKeyExists(HKEY_CURRENT_USER, L"Software\\Orvane\\Quillory\\Categories"));
    EXPECT_TRUE(OpenSettingKey(kKeyCategories));
    EXPECT_TRUE(RegKeyExists(HKEY_CURRENT_USER, L"Software\\Orvane\\Quillory\\Categories"));
    EXPECT_TRUE(OpenExistingSettingKey(kKeyCategories));
    RemoveProductKeys();
}

class SystemColours : public ::testing::Test {
protected:
    void SetUp() override { RegRemoveTree(HKEY_LOCAL_MACHINE, kColorPath); }
    void TearDown() override { RegRemoveTree(HKEY_LOCAL_MACHINE, kColorPath); }
};

TEST_F(SystemColours, DecimalValueWinsOverTheArrayAndOnlyRgbIsKept) {
    RegPutDword(HKEY_LOCAL_MACHINE, kColorPath, L"34", 0xAA112233);
    BYTE array[37 * 4];
    memset(array, 0x44, sizeof array);
    RegPutRaw(HKEY_LOCAL_MACHINE, kColorPath, L"SHColor", REG_BINARY, array, sizeof array);
    EXPECT_EQ(ReadSystemColour(34, 0), 0x00112233u);
    EXPECT_EQ(ReadSystemColour(35, 0), 0x00444444u) << "no value \"35\": the array entry";
}

TEST_F(SystemColours, ArrayEntryIsUsedOnlyWhenTheArrayIsStrictlyLonger) {
    EXPECT_EQ(ReadSystemColour(6, 0xFFEF8E73), 0x00EF8E73u) << "no key: the default without its top byte";
    const int index = 8;
    BYTE array[index * 4 + 8];
    for (int i = 0; i < static_cast<int>(sizeof array); ++i) array[i] = static_cast<BYTE>(i);
    RegPutRaw(HKEY_LOCAL_MACHINE, kColorPath, L"SHColor", REG_BINARY, array, index * 4 + 4);
    EXPECT_EQ(ReadSystemColour(index, 0xFF9C4D2C), 0x009C4D2Cu) << "exactly index * 4 + 4 bytes: the default";
    RegPutRaw(HKEY_LOCAL_MACHINE, kColorPath, L"SHColor", REG_BINARY, array, index * 4 + 5);
    EXPECT_EQ(ReadSystemColour(index, 0x9C4D2C), RGB(32, 33, 34));
    EXPECT_EQ(ReadSystemColour(-1, 0x123456), 0x123456u) << "a negative index reads nothing";
}

}  // namespace
