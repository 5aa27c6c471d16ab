// Exporting and importing the product's registry tree as a backup text, beside Wine's own
// "reg export" / "reg import" of the same tree in the same run. Two trees: one the size of the
// product's settings (about 400 values) and a stress tree of 20,000 values.
#include <windows.h>

#include <cstdio>
#include <cwchar>
#include <string>

#include "bench_harness.h"
#include "files/categories.h"
#include "files/filters.h"
#include "files/registry_text.h"
#include "files/text_stream.h"

namespace {

const wchar_t kProduct[] = L"Software\\Orvane\\Quillory";

std::wstring TempFile(const wchar_t* name) {
    wchar_t folder[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    return std::wstring(folder) + name;
}

const std::wstring& OurFile() {
    static const std::wstring path = TempFile(L"ql_bench_backup.qlsb");
    return path;
}
const std::wstring& RegFile() {
    static const std::wstring path = TempFile(L"ql_bench_backup.reg");
    return path;
}

// Runs reg.exe with the arguments and waits for it; false when it could not run or failed.
bool RunReg(const std::wstring& arguments) {
    std::wstring command = L"reg.exe " + arguments;
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process = {};
    if (!CreateProcessW(nullptr, &command[0], nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr, nullptr, &startup,
                        &process)) {
        fprintf(stderr, "reg.exe could not be started (%lu)\n", GetLastError());
        return false;
    }
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD exitCode = 1;
    GetExitCodeProcess(process.hProcess, &exitCode);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    if (exitCode != 0) fprintf(stderr, "reg.exe %ls: exit code %lu\n", arguments.c_str(), exitCode);
    return exitCode == 0;
}

void PutValue(HKEY key, int n) {
    wchar_t name[64];
    if (n % 3 == 0) {
        swprintf(name, 64, L"Colour%05d", n);
        DWORD value = n % 2 ? 0xFFFFFFFFu : static_cast<DWORD>(n) * 2654435761u;
        RegSetValueExW(key, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value), sizeof value);
    } else if (n % 3 == 1) {
        swprintf(name, 64, L"Setting%05d", n);
        DWORD value = static_cast<DWORD>(n % 200);
        RegSetValueExW(key, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value), sizeof value);
    } else {
        swprintf(name, 64, L"Text%05d", n);
        wchar_t text[128];
        swprintf(text, 128, L"\\Program Files\\Orvane\\Quillory\\Item %d\\%.*ls", n, n % 60,
                 L"abcdefghijklmnopqrstuvwxyzabcdefghijklmnopqrstuvwxyzabcdefgh");
        RegSetValueExW(key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text),
                       static_cast<DWORD>((wcslen(text) + 1) * sizeof(wchar_t)));
    }
}

// `keys` sub-keys of the product key (plus the key itself), `values` values in all.
void PopulateTree(int keys, int values) {
    RegDeleteTreeW(HKEY_CURRENT_USER, kProduct);
    int perKey = values / (keys + 1);
    int n = 0;
    for (int k = 0; k <= keys; ++k) {
        std::wstring path = kProduct;
        if (k > 0) path += L"\\Area" + std::to_wstring(k);
        HKEY key = nullptr;
        RegCreateKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr);
        int count = k == keys ? values - n : perKey;
        for (int i = 0; i < count; ++i) PutValue(key, n++);
        RegCloseKey(key);
    }
}

CategoryList& BenchCategories() {
    static CategoryList categories;
    return categories;
}
FilterList& BenchFilters() {
    static FilterList filters;
    if (!filters.count) MakeDefaultFilters(filters);
    return filters;
}

void ExportOurs() {
    Utf16TextWriter out;
    if (!out.open(OurFile().c_str())) return;
    WriteRegistryTree(kProduct, out);
    out.close();
}

void ExportWithReg() { RunReg(L"export HKCU\\Software\\Orvane\\Quillory \"" + RegFile() + L"\" /y"); }

void ImportOurs() {
    Utf16TextReader in;
    if (!in.open(OurFile().c_str())) return;
    BenchKeep(ReadRegistryTextFile(in, BenchCategories(), BenchFilters()));
}

// reg import merges, so the tree is deleted first, as the backup reader does.
void ImportWithReg() {
    RegDeleteTreeW(HKEY_CURRENT_USER, kProduct);
    RunReg(L"import \"" + RegFile() + L"\"");
}

void TearDown() {
    RegDeleteTreeW(HKEY_CURRENT_USER, kProduct);
    DeleteFileW(OurFile().c_str());
    DeleteFileW(RegFile().c_str());
}

// Both import cases read files made from the populated tree by each side's export.
void PrepareImport(int keys, int values) {
    PopulateTree(keys, values);
    ExportOurs();
    ExportWithReg();
}

BenchRegistration g_exportProduct({"backup export, product tree (400 values)", "reg export of the same tree",
                                   [] { PopulateTree(15, 400); }, ExportOurs, ExportWithReg, TearDown, 5});
BenchRegistration g_importProduct({"backup import, product tree (400 values)",
                                   "delete tree + reg import of the same tree", [] { PrepareImport(15, 400); },
                                   ImportOurs, ImportWithReg, TearDown, 5});
BenchRegistration g_exportStress({"backup export, stress tree (20,000 values)", "reg export of the same tree",
                                  [] { PopulateTree(40, 20000); }, ExportOurs, ExportWithReg, TearDown, 5});
BenchRegistration g_importStress({"backup import, stress tree (20,000 values)",
                                  "delete tree + reg import of the same tree", [] { PrepareImport(40, 20000); },
                                  ImportOurs, ImportWithReg, TearDown, 5});

}  // namespace
