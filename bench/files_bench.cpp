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
    BenchCheck(out.open(OurFile().c_str()), "backup file created");
    WriteRegistryTree(kProduct, out);
    BenchCheck(out.close(), "backup file written");
}

void ExportWithReg() {
    BenchCheck(RunReg(L"export HKCU\\Software\\Orvane\\Quillory \"" + RegFile() + L"\" /y"), "reg export ran");
}

void ImportOurs() {
    Utf16TextReader in;
    BenchCheck(in.open(OurFile().c_str()), "backup file opened");
    BenchCheck(ReadRegistryTextFile(in, BenchCategories(), BenchFilters()), "backup file read");
}

// reg import merges, so the tree is deleted first, as the backup reader does (the runs start from
// an empty tree: this costs the same on both sides).
void ImportWithReg() {
    RegDeleteTreeW(HKEY_CURRENT_USER, kProduct);
    BenchCheck(RunReg(L"import \"" + RegFile() + L"\""), "reg import ran");
}

// The header lines ("[...]") and value lines ("\"name\"=...") of a UTF-16 registry text file.
struct ExportedLines {
    int headers = 0;
    int values = 0;
};

ExportedLines CountExportedLines(const std::wstring& path) {
    ExportedLines lines;
    FILE* file = _wfopen(path.c_str(), L"rb");
    if (!file) return lines;
    std::wstring text;
    wchar_t unit;
    while (fread(&unit, sizeof unit, 1, file) == 1) text += unit;
    fclose(file);
    size_t start = !text.empty() && text[0] == 0xFEFF ? 1 : 0;
    while (start < text.size()) {
        size_t end = text.find(L'\n', start);
        if (end == std::wstring::npos) end = text.size();
        if (text[start] == L'[') ++lines.headers;
        if (text[start] == L'"') ++lines.values;
        start = end + 1;
    }
    return lines;
}

// Values below the product key, its own included.
int ValuesBelow(const std::wstring& path) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return 0;
    DWORD subKeys = 0, values = 0;
    RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &subKeys, nullptr, nullptr, &values, nullptr, nullptr, nullptr,
                     nullptr);
    int count = static_cast<int>(values);
    wchar_t name[256];
    for (DWORD i = 0; i < subKeys; ++i) {
        DWORD length = 256;
        if (RegEnumKeyExW(key, i, name, &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS)
            count += ValuesBelow(path + L"\\" + name);
    }
    RegCloseKey(key);
    return count;
}

// The tree the case works on: `keys` sub-keys of the product key and `values` values in all.
int g_keys = 0;
int g_values = 0;

void PopulateCaseTree(int keys, int values) {
    g_keys = keys;
    g_values = values;
    PopulateTree(keys, values);
}

// An export holds a header for every key and a line for every value; the file is removed so that
// the next run writes it anew.
void CheckExport(const std::wstring& path, const char* what) {
    ExportedLines lines = CountExportedLines(path);
    BenchCheckCount(lines.headers, g_keys + 1, what);
    BenchCheckCount(lines.values, g_values, what);
    DeleteFileW(path.c_str());
}

// An import put every value back; the tree is removed so that the next run writes it anew.
void CheckImport(const char* what) {
    BenchCheckCount(ValuesBelow(kProduct), g_values, what);
    RegDeleteTreeW(HKEY_CURRENT_USER, kProduct);
}

void TearDown() {
    RegDeleteTreeW(HKEY_CURRENT_USER, kProduct);
    DeleteFileW(OurFile().c_str());
    DeleteFileW(RegFile().c_str());
}

// Both import cases read files made from the populated tree by each side's export.
// Each import run starts from an empty tree: the check after a run removes it.
void PrepareImport(int keys, int values) {
    PopulateCaseTree(keys, values);
    ExportOurs();
    ExportWithReg();
    BenchCheckCount(CountExportedLines(OurFile()).values, values, "values in the backup to import");
    BenchCheckCount(CountExportedLines(RegFile()).values, values, "values in the .reg file to import");
    RegDeleteTreeW(HKEY_CURRENT_USER, kProduct);
}

void CheckOurExport() { CheckExport(OurFile(), "backup export: lines written"); }
void CheckRegExport() { CheckExport(RegFile(), "reg export: lines written"); }
void CheckOurImport() { CheckImport("backup import: values written"); }
void CheckRegImport() { CheckImport("reg import: values written"); }

BenchRegistration g_exportProduct({"backup export, product tree (400 values)", "reg export of the same tree",
                                   [] { PopulateCaseTree(15, 400); }, ExportOurs, ExportWithReg, TearDown, 5,
                                   CheckOurExport, CheckRegExport});
BenchRegistration g_importProduct({"backup import, product tree (400 values)", "reg import of the same tree",
                                   [] { PrepareImport(15, 400); }, ImportOurs, ImportWithReg, TearDown, 5,
                                   CheckOurImport, CheckRegImport});
BenchRegistration g_exportStress({"backup export, stress tree (20,000 values)", "reg export of the same tree",
                                  [] { PopulateCaseTree(40, 20000); }, ExportOurs, ExportWithReg, TearDown, 5,
                                  CheckOurExport, CheckRegExport});
BenchRegistration g_importStress({"backup import, stress tree (20,000 values)", "reg import of the same tree",
                                  [] { PrepareImport(40, 20000); }, ImportOurs, ImportWithReg, TearDown, 5,
                                  CheckOurImport, CheckRegImport});

}  // namespace
