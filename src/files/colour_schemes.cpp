#include "files/colour_schemes.h"

#include <cwchar>

#include "files/categories.h"
#include "files/filters.h"
#include "files/registry_text.h"
#include "settings/key_table.h"
#include "settings/settings.h"
#include "support/handles.h"

namespace {

const wchar_t kSchemesSubFolder[] = L"\\Schemes";
const wchar_t kSchemeExtension[] = L".scm";
const wchar_t kSchemePattern[] = L"\\*.scm";

bool ReadFileBytes(const wchar_t* path, std::string& bytes) {
    File file(_wfopen(path, L"rb"));
    if (!file) return false;
    char block[16 * 1024];
    size_t got;
    while ((got = fread(block, 1, sizeof block, file.get())) > 0) bytes.append(block, got);
    return true;
}

// True when `path` names `root` or a key below it, compared as the registry compares names.
bool IsKeyOrBelow(const wchar_t* path, const wchar_t* root) {
    size_t length = wcslen(root);
    return _wcsnicmp(path, root, length) == 0 && (path[length] == L'\0' || path[length] == L'\\');
}

bool IsSchemeSection(const wchar_t* name) {
    if (ClassifySection(name) == kCategoriesSection) return true;
    if (ClassifySection(name) == kFiltersSection) return false;
    return IsKeyOrBelow(name, KeyPath(kKeyColors)) || IsKeyOrBelow(name, KeyPath(kKeyFonts));
}

// End (in bytes, past its line feed) of the line that starts at `begin`; a trailing odd byte is no
// character and belongs to no line.
size_t LineEnd(const std::string& bytes, size_t begin) {
    size_t end = bytes.size() & ~static_cast<size_t>(1);
    for (size_t at = begin; at < end; at += 2)
        if (bytes[at] == '\n' && bytes[at + 1] == '\0') return at + 2;
    return end;
}

bool IsLineFeedOnly(const WString& piece) { return piece.length() == 1 && piece.c_str()[0] == L'\n'; }

}  // namespace

WString SchemesFolder() {
    WString folder(g_settings.productFolder.c_str());
    folder.append(kSchemesSubFolder);
    return folder;
}

WString SchemeFilePath(const wchar_t* fileName) {
    WString path = SchemesFolder();
    path.append(L"\\");
    path.append(fileName);
    return path;
}

std::vector<WString> ListSchemeFiles() {
    std::vector<WString> names;
    WString pattern = SchemesFolder();
    pattern.append(kSchemePattern);
    WIN32_FIND_DATAW found;
    FindHandle search(FindFirstFileW(pattern.c_str(), &found));
    if (!search) return names;
    do {
        names.emplace_back(found.cFileName);
    } while (FindNextFileW(search.get(), &found));
    return names;
}

void WriteSchemeText(const CategoryList& categories, Utf16TextWriter& out) {
    WriteRegistryTree(KeyPath(kKeyColors), out);
    WriteRegistryTree(KeyPath(kKeyFonts), out);
    WriteCategoriesSection(categories, out);
}

SchemeSaveResult SaveSchemeFile(const wchar_t* name) {
    if (!name || !*name) return SchemeSaveResult::kNoName;
    WString fileName(name);
    fileName.append(kSchemeExtension);
    WString path = SchemeFilePath(fileName.c_str());
    WIN32_FIND_DATAW found;
    if (FindHandle(FindFirstFileW(path.c_str(), &found))) return SchemeSaveResult::kExists;
    CreateDirectoryW(SchemesFolder().c_str(), nullptr);  // an existing folder is fine
    Utf16TextWriter out;
    if (out.open(path.c_str())) {
        WriteSchemeText(g_categories, out);
        out.close();
    }
    return SchemeSaveResult::kSaved;
}

SchemeLoadResult LoadSchemeFile(const wchar_t* fileName) {
    std::string bytes;
    if (!ReadFileBytes(SchemeFilePath(fileName).c_str(), bytes)) return SchemeLoadResult::kCannotOpen;
    // The scheme replaces the look instead of merging with it.
    RegDeleteTreeW(HKEY_CURRENT_USER, KeyPath(kKeyColors));
    RegDeleteTreeW(HKEY_CURRENT_USER, KeyPath(kKeyFonts));
    Utf16TextReader in(SchemeSectionsOnly(bytes));
    if (!ReadRegistryTextFile(in, g_categories, g_filters)) return SchemeLoadResult::kRejected;
    LoadSettings();
    return SchemeLoadResult::kLoaded;
}

// Walks the text line by line (a line ends at a line feed), splitting each line into the pieces
// the registry text reader reads, and follows the reader: outside a section a header piece opens
// one, and a section's lines run up to a piece that is only a line feed. A header piece and a
// line-feed piece always end their line, so every line lies wholly in or out of a kept section and
// is kept or dropped whole. The first line is the reader's own check and is always kept.
std::string SchemeSectionsOnly(const std::string& bytes) {
    std::string kept;
    size_t begin = 0, end = LineEnd(bytes, 0);
    kept.append(bytes, 0, end);
    enum { kOutside, kInKept, kInDropped } state = kOutside;
    WString piece, name;
    for (begin = end; begin < (bytes.size() & ~static_cast<size_t>(1)); begin = end) {
        end = LineEnd(bytes, begin);
        bool keep = state == kInKept;
        Utf16TextReader line(bytes.substr(begin, end - begin));
        while (line.readLine(piece)) {
            if (state == kOutside) {
                if (!ParseSectionHeader(piece.c_str(), name)) continue;
                state = IsSchemeSection(name.c_str()) ? kInKept : kInDropped;
                keep = state == kInKept;
            } else if (IsLineFeedOnly(piece)) {
                state = kOutside;
            }
        }
        if (keep) kept.append(bytes, begin, end - begin);
    }
    return kept;
}

void DeleteSchemeFile(const wchar_t* fileName) { DeleteFileW(SchemeFilePath(fileName).c_str()); }
