#include "settings/registry_values.h"

#include <cwchar>
#include <vector>

#include "support/handles.h"

namespace {

const wchar_t* OrEmpty(const wchar_t* text) { return text ? text : L""; }

RegKey OpenForReading(HKEY root, const wchar_t* path) {
    RegKey key;
    if (RegOpenKeyExW(root, path, 0, KEY_READ, key.out()) != ERROR_SUCCESS) key.release();
    return key;
}

const size_t kSmallStringChars = 264;

COLORREF RedGreenBlue(const BYTE* bytes) { return RGB(bytes[0], bytes[1], bytes[2]); }

}  // namespace

DWORD ReadDword(HKEY key, const wchar_t* name, DWORD defaultValue) {
    if (!key) return defaultValue;
    DWORD value = 0;
    DWORD size = sizeof value;
    if (RegQueryValueExW(key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(&value), &size) != ERROR_SUCCESS)
        return defaultValue;
    return value;
}

DWORD ReadDword(HKEY root, const wchar_t* path, const wchar_t* name, DWORD defaultValue) {
    RegKey key = OpenForReading(root, path);
    return ReadDword(key.get(), name, defaultValue);
}

int ReadString(HKEY key, const wchar_t* name, WString& out, const wchar_t* defaultValue) {
    DWORD size = 0;
    if (!key || RegQueryValueExW(key, name, nullptr, nullptr, nullptr, &size) != ERROR_SUCCESS) {
        out.assign(OrEmpty(defaultValue));
        return 0;
    }
    // Room for every stored byte and one terminator after them: the value may be of any type, and
    // need not end with a zero character.
    wchar_t small[kSmallStringChars];
    std::vector<wchar_t> large;
    size_t chars = size / sizeof(wchar_t) + 1;
    wchar_t* text = small;
    if (chars > kSmallStringChars) {
        large.resize(chars);
        text = large.data();
    }
    DWORD readSize = size;
    if (RegQueryValueExW(key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(text), &readSize) != ERROR_SUCCESS) {
        out.assign(OrEmpty(defaultValue));
        return 0;
    }
    // A trailing odd byte is half a character and is dropped.
    text[readSize / sizeof(wchar_t)] = L'\0';
    out.assign(text);
    return 1;
}

int ReadString(HKEY root, const wchar_t* path, const wchar_t* name, WString& out, const wchar_t* defaultValue) {
    RegKey key = OpenForReading(root, path);
    return ReadString(key.get(), name, out, defaultValue);
}

void WriteDwordOrDelete(HKEY key, const wchar_t* name, DWORD value, DWORD defaultValue) {
    if (value != defaultValue)
        RegSetValueExW(key, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value), sizeof value);
    else
        RegDeleteValueW(key, name);
}

void WriteStringOrDelete(HKEY key, const wchar_t* name, const wchar_t* value, const wchar_t* defaultValue) {
    value = OrEmpty(value);
    if (wcscmp(value, OrEmpty(defaultValue)) != 0) {
        DWORD bytes = static_cast<DWORD>((wcslen(value) + 1) * sizeof(wchar_t));
        RegSetValueExW(key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(value), bytes);
    } else {
        RegDeleteValueW(key, name);
    }
}

COLORREF ReadSystemColour(int index, COLORREF defaultColour) {
    RegKey key = OpenForReading(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Microsoft\\Color");
    if (!key) return defaultColour & 0x00FFFFFF;

    wchar_t name[16];
    swprintf(name, 16, L"%d", index);
    BYTE single[4] = {};
    DWORD size = sizeof single;
    if (RegQueryValueExW(key.get(), name, nullptr, nullptr, single, &size) == ERROR_SUCCESS) return RedGreenBlue(single);

    const BYTE* fallback = reinterpret_cast<const BYTE*>(&defaultColour);
    DWORD arraySize = 0;
    if (index < 0 || RegQueryValueExW(key.get(), L"SHColor", nullptr, nullptr, nullptr, &arraySize) != ERROR_SUCCESS ||
        arraySize <= static_cast<DWORD>(index) * 4 + 4)
        return RedGreenBlue(fallback);
    std::vector<BYTE> colours(arraySize);
    DWORD readSize = arraySize;
    if (RegQueryValueExW(key.get(), L"SHColor", nullptr, nullptr, colours.data(), &readSize) != ERROR_SUCCESS ||
        readSize <= static_cast<DWORD>(index) * 4 + 4)
        return RedGreenBlue(fallback);
    return RedGreenBlue(&colours[static_cast<size_t>(index) * 4]);
}
