#include "common/test_support.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

std::wstring TestBinDir() {
    wchar_t path[MAX_PATH];
    DWORD length = GetModuleFileNameW(nullptr, path, MAX_PATH);
    std::wstring folder(path, length);
    return folder.substr(0, folder.find_last_of(L'\\'));
}

ScratchFolder::ScratchFolder(const wchar_t* name) {
    wchar_t temp[MAX_PATH];
    GetTempPathW(MAX_PATH, temp);
    path_ = std::wstring(temp) + L"qltest_" + name;
    RemoveTree(path_);
    CreateDirectoryW(path_.c_str(), nullptr);
}

ScratchFolder::~ScratchFolder() { RemoveTree(path_); }

void RemoveTree(const std::wstring& path) {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
}

void WriteBytes(const std::wstring& path, const std::string& bytes) {
    std::ofstream out(std::filesystem::path(path), std::ios::binary);
    ASSERT_TRUE(out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()))) << "cannot write the file";
}

std::string ReadBytes(const std::wstring& path) {
    std::ifstream in(std::filesystem::path(path), std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

std::string Utf16Bytes(const std::wstring& text) {
    std::string bytes;
    for (wchar_t c : text) {
        bytes.push_back(static_cast<char>(c & 0xFF));
        bytes.push_back(static_cast<char>((c >> 8) & 0xFF));
    }
    return bytes;
}

std::wstring WideFromUtf16(const std::string& bytes) {
    std::wstring text;
    for (size_t i = 0; i + 1 < bytes.size(); i += 2) text.push_back(wchar_t(BYTE(bytes[i]) | BYTE(bytes[i + 1]) << 8));
    return text;
}

std::string Narrow(const std::wstring& text) {
    std::string out;
    for (wchar_t c : text) out.push_back(c < 128 ? static_cast<char>(c) : '?');
    return out;
}

void PumpMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

// ---- registry ---------------------------------------------------------------------------------

namespace {

struct ReadValue {
    bool found = false;
    DWORD type = 0;
    std::vector<BYTE> data;
};

ReadValue Read(HKEY root, const wchar_t* path, const wchar_t* name) {
    ReadValue value;
    HKEY key;
    if (RegOpenKeyExW(root, path, 0, KEY_READ, &key) != ERROR_SUCCESS) return value;
    DWORD size = 0;
    if (RegQueryValueExW(key, name, nullptr, &value.type, nullptr, &size) == ERROR_SUCCESS) {
        value.data.resize(size);
        value.found = RegQueryValueExW(key, name, nullptr, &value.type, value.data.data(), &size) == ERROR_SUCCESS;
        value.data.resize(size);
    }
    RegCloseKey(key);
    return value;
}

std::string Where(const wchar_t* path, const wchar_t* name) {
    return Narrow(path) + " \\ " + Narrow(name ? name : L"(default)");
}

HKEY Create(HKEY root, const wchar_t* path) {
    HKEY key = nullptr;
    RegCreateKeyExW(root, path, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr);
    return key;
}

void SnapshotInto(HKEY root, const std::wstring& path, RegSnapshot& out) {
    HKEY key;
    if (RegOpenKeyExW(root, path.empty() ? nullptr : path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
    auto& values = out[path];
    std::wstring name(16384, L'\0');
    for (DWORD i = 0, length = 16384, type, size = 0;
         RegEnumValueW(key, i, &name[0], &length, nullptr, &type, nullptr, &size) == ERROR_SUCCESS;
         ++i, length = 16384, size = 0) {
        std::string data(size, '\0');
        RegQueryValueExW(key, name.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(&data[0]), &size);
        values[name.substr(0, length)] = {type, data.substr(0, size)};
    }
    wchar_t child[256];
    for (DWORD i = 0, length = 256;
         RegEnumKeyExW(key, i, child, &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS; ++i, length = 256)
        SnapshotInto(root, path.empty() ? std::wstring(child) : path + L"\\" + child, out);
    RegCloseKey(key);
}

}  // namespace

RegSnapshot Snapshot(HKEY root, const std::wstring& path) {
    RegSnapshot snapshot;
    SnapshotInto(root, path, snapshot);
    return snapshot;
}

RegSnapshot WithoutEmptyKeys(RegSnapshot snapshot) {
    for (auto it = snapshot.begin(); it != snapshot.end();) it = it->second.empty() ? snapshot.erase(it) : ++it;
    return snapshot;
}

bool RegValueExists(HKEY root, const wchar_t* path, const wchar_t* name) { return Read(root, path, name).found; }

bool RegKeyExists(HKEY root, const wchar_t* path) {
    HKEY key;
    if (RegOpenKeyExW(root, path, 0, KEY_READ, &key) != ERROR_SUCCESS) return false;
    RegCloseKey(key);
    return true;
}

void RegRemoveTree(HKEY root, const wchar_t* path) {
    HKEY key;
    if (RegOpenKeyExW(root, path, 0, KEY_ALL_ACCESS, &key) != ERROR_SUCCESS) return;
    wchar_t child[256];
    for (;;) {
        DWORD length = 256;
        if (RegEnumKeyExW(key, 0, child, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) break;
        std::wstring childPath = std::wstring(path) + L"\\" + child;
        RegRemoveTree(root, childPath.c_str());
    }
    RegCloseKey(key);
    RegDeleteKeyW(root, path);
}

void RegPutDword(HKEY root, const wchar_t* path, const wchar_t* name, DWORD value) {
    RegPutRaw(root, path, name, REG_DWORD, &value, sizeof value);
}

void RegPutString(HKEY root, const wchar_t* path, const wchar_t* name, const wchar_t* value) {
    RegPutRaw(root, path, name, REG_SZ, value, static_cast<DWORD>((wcslen(value) + 1) * sizeof(wchar_t)));
}

void RegPutRaw(HKEY root, const wchar_t* path, const wchar_t* name, DWORD type, const void* data, DWORD size) {
    HKEY key = Create(root, path);
    ASSERT_NE(key, nullptr) << Narrow(path);
    ASSERT_EQ(RegSetValueExW(key, name, 0, type, static_cast<const BYTE*>(data), size), ERROR_SUCCESS);
    RegCloseKey(key);
}

namespace {

::testing::AssertionResult Mismatch(const wchar_t* path, const wchar_t* name, const std::string& what) {
    return ::testing::AssertionFailure() << Where(path, name) << " " << what;
}

}  // namespace

::testing::AssertionResult RegHasDword(HKEY root, const wchar_t* path, const wchar_t* name, DWORD expected) {
    ReadValue value = Read(root, path, name);
    if (!value.found) return Mismatch(path, name, "is missing");
    if (value.type != REG_DWORD || value.data.size() != 4)
        return Mismatch(path, name, "is not a DWORD (type " + std::to_string(value.type) + ")");
    DWORD actual = *reinterpret_cast<DWORD*>(value.data.data());
    if (actual != expected)
        return Mismatch(path, name, "is " + std::to_string(actual) + ", expected " + std::to_string(expected));
    return ::testing::AssertionSuccess();
}

::testing::AssertionResult RegHasString(HKEY root, const wchar_t* path, const wchar_t* name,
                                        const wchar_t* expected) {
    ReadValue value = Read(root, path, name);
    if (!value.found) return Mismatch(path, name, "is missing");
    if (value.type != REG_SZ) return Mismatch(path, name, "is not REG_SZ");
    std::wstring actual(reinterpret_cast<wchar_t*>(value.data.data()), value.data.size() / sizeof(wchar_t));
    while (!actual.empty() && actual.back() == 0) actual.pop_back();
    if (actual != expected)
        return Mismatch(path, name, "is \"" + Narrow(actual) + "\", expected \"" + Narrow(expected) + "\"");
    return ::testing::AssertionSuccess();
}

::testing::AssertionResult RegHasNoValue(HKEY root, const wchar_t* path, const wchar_t* name) {
    return Read(root, path, name).found ? Mismatch(path, name, "exists but should not") : ::testing::AssertionSuccess();
}

// ---- registry write order ---------------------------------------------------------------------

namespace {

using SetValueFunction = LONG(WINAPI*)(HKEY, LPCWSTR, DWORD, DWORD, const BYTE*, DWORD);
SetValueFunction g_realSetValue = nullptr;
std::vector<std::wstring>* g_writtenNames = nullptr;

LONG WINAPI RecordingSetValue(HKEY key, LPCWSTR name, DWORD reserved, DWORD type, const BYTE* data, DWORD size) {
    if (g_writtenNames) g_writtenNames->push_back(name ? name : L"");
    return g_realSetValue(key, name, reserved, type, data, size);
}

// The slot of the test program's import table through which it calls `function`, or null.
void** ImportSlotOf(const void* function) {
    BYTE* base = reinterpret_cast<BYTE*>(GetModuleHandleW(nullptr));
    auto* headers = reinterpret_cast<IMAGE_NT_HEADERS*>(base + reinterpret_cast<IMAGE_DOS_HEADER*>(base)->e_lfanew);
    DWORD imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
    for (auto* library = reinterpret_cast<IMAGE_IMPORT_DESCRIPTOR*>(base + imports); imports && library->Name;
         ++library)
        for (auto* thunk = reinterpret_cast<IMAGE_THUNK_DATA*>(base + library->FirstThunk); thunk->u1.Function; ++thunk)
            if (reinterpret_cast<const void*>(thunk->u1.Function) == function)
                return reinterpret_cast<void**>(&thunk->u1.Function);
    return nullptr;
}

void PatchSlot(void** slot, void* target) {
    DWORD protection = 0;
    VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &protection);
    *slot = target;
    VirtualProtect(slot, sizeof *slot, protection, &protection);
}

}  // namespace

RegistryWriteRecorder::RegistryWriteRecorder() {
    void* real = reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"advapi32.dll"), "RegSetValueExW"));
    slot_ = real ? ImportSlotOf(real) : nullptr;
    if (!slot_) return;
    g_realSetValue = reinterpret_cast<SetValueFunction>(real);
    g_writtenNames = &names_;
    PatchSlot(slot_, reinterpret_cast<void*>(&RecordingSetValue));
}

RegistryWriteRecorder::~RegistryWriteRecorder() {
    if (!slot_) return;
    PatchSlot(slot_, reinterpret_cast<void*>(g_realSetValue));
    g_writtenNames = nullptr;
}

std::vector<std::wstring> RegistryWriteRecorder::written(const std::vector<std::wstring>& among) const {
    std::vector<std::wstring> kept;
    for (const std::wstring& name : names_)
        if (std::find(among.begin(), among.end(), name) != among.end()) kept.push_back(name);
    return kept;
}

const wchar_t* TestWindowClass(const wchar_t* name, WNDPROC proc, HBRUSH background) {
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = proc;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hbrBackground = background;
    windowClass.lpszClassName = name;
    if (RegisterClassW(&windowClass)) return name;
    return GetLastError() == ERROR_CLASS_ALREADY_EXISTS ? name : nullptr;
}

BITMAPINFO TopDownDibInfo(int width, int height) {
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    return info;
}

HBITMAP CreateTopDownDib(int width, int height, DWORD** bits) {
    BITMAPINFO info = TopDownDibInfo(width, height);
    void* pixels = nullptr;
    HBITMAP bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
    *bits = static_cast<DWORD*>(pixels);
    return bitmap;
}
