#pragma once
// Helpers shared by the tests: the folder of the test program, scratch folders, registry
// read-back that reports the caller's line, and message pumping for window tests.
#include <windows.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

// Folder holding the test program and the built resource libraries (no trailing backslash).
std::wstring TestBinDir();

// A fresh empty folder under the prefix's temp folder, removed with its content on destruction.
class ScratchFolder {
public:
    explicit ScratchFolder(const wchar_t* name);
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    const std::wstring& path() const { return path_; }
    std::wstring file(const wchar_t* name) const { return path_ + L"\\" + name; }

private:
    std::wstring path_;
};

void RemoveTree(const std::wstring& path);
void WriteBytes(const std::wstring& path, const std::string& bytes);
std::string ReadBytes(const std::wstring& path);
std::string Utf16Bytes(const std::wstring& text);
std::wstring WideFromUtf16(const std::string& bytes);
// ASCII kept, anything else as '?': for test messages.
std::string Narrow(const std::wstring& text);

// Runs the message loop until no message is waiting.
void PumpMessages();

// ---- registry read-back -------------------------------------------------------------------
bool RegValueExists(HKEY root, const wchar_t* path, const wchar_t* name);
bool RegKeyExists(HKEY root, const wchar_t* path);
void RegRemoveTree(HKEY root, const wchar_t* path);
void RegPutDword(HKEY root, const wchar_t* path, const wchar_t* name, DWORD value);
void RegPutString(HKEY root, const wchar_t* path, const wchar_t* name, const wchar_t* value);
void RegPutRaw(HKEY root, const wchar_t* path, const wchar_t* name, DWORD type, const void* data, DWORD size);

// Key path (relative to the root, as enumerated) -> value name -> (type, raw bytes).
using RegValueData = std::pair<DWORD, std::string>;
using RegSnapshot = std::map<std::wstring, std::map<std::wstring, RegValueData>>;

// Every key and value below root\\path, path included (an empty path: the whole root).
RegSnapshot Snapshot(HKEY root, const std::wstring& path);
// Keys without values are left out, so that empty keys created on the way do not count.
RegSnapshot WithoutEmptyKeys(RegSnapshot snapshot);

::testing::AssertionResult RegHasDword(HKEY root, const wchar_t* path, const wchar_t* name, DWORD expected);
::testing::AssertionResult RegHasString(HKEY root, const wchar_t* path, const wchar_t* name,
                                        const wchar_t* expected);
::testing::AssertionResult RegHasNoValue(HKEY root, const wchar_t* path, const wchar_t* name);

// While alive, records the name of every value the test program writes with RegSetValueExW, in
// the order of the calls. (Wine's registry enumerates a key's values by name, not in the order
// they were written, so that order can only be seen at the calls.)
class RegistryWriteRecorder {
public:
    RegistryWriteRecorder();
    ~RegistryWriteRecorder();
    RegistryWriteRecorder(const RegistryWriteRecorder&) = delete;
    RegistryWriteRecorder& operator=(const RegistryWriteRecorder&) = delete;

    bool recording() const { return slot_ != nullptr; }
    // The names written so far, in order, keeping only those listed in `among`.
    std::vector<std::wstring> written(const std::vector<std::wstring>& among) const;

private:
    void** slot_ = nullptr;
    std::vector<std::wstring> names_;
};

// Each check reports the line of the test that made it.
#define EXPECT_REG_DWORD(root, path, name, value) EXPECT_TRUE(RegHasDword(root, path, name, value))
#define EXPECT_REG_STRING(root, path, name, value) EXPECT_TRUE(RegHasString(root, path, name, value))
#define EXPECT_REG_ABSENT(root, path, name) EXPECT_TRUE(RegHasNoValue(root, path, name))

// ---- windows and pictures -----------------------------------------------------------------
// Registers a window class of the test program once (a later call with the same name does
// nothing) and returns its name, or null when it cannot be registered.
const wchar_t* TestWindowClass(const wchar_t* name, WNDPROC proc, HBRUSH background = nullptr);

// The header of a 32-bit DIB of width × height whose first row is the top one.
BITMAPINFO TopDownDibInfo(int width, int height);
// A 32-bit top-down DIB section; `bits` receives its pixels, one 0x00RRGGBB each.
HBITMAP CreateTopDownDib(int width, int height, DWORD** bits);
inline COLORREF ColourOfDibPixel(DWORD pixel) { return RGB((pixel >> 16) & 0xFF, (pixel >> 8) & 0xFF, pixel & 0xFF); }
inline DWORD DibPixelOfColour(COLORREF colour) {
    return (GetRValue(colour) << 16) | (GetGValue(colour) << 8) | GetBValue(colour);
}
