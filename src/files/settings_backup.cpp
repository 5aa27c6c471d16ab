#include "files/settings_backup.h"

#include "files/categories.h"
#include "files/filters.h"
#include "files/registry_text.h"
#include "files/text_stream.h"
#include "settings/key_table.h"
#include "settings/settings.h"

WString BackupFileName(const SYSTEMTIME& date) {
    wchar_t text[64] = L"";
    GetDateFormatW(LOCALE_USER_DEFAULT, 0, &date, L"yyyy_MM_dd", text, 64);
    WString name(L"QL_Backup_");
    name.append(text);
    return name;
}

WString BackupFileName() {
    SYSTEMTIME today;
    GetLocalTime(&today);
    return BackupFileName(today);
}

bool ExportSettings(const wchar_t* path) {
    Utf16TextWriter out;
    if (!out.open(path)) return false;
    WriteBackupFile(KeyPath(kKeyGeneral), g_categories, g_filters, out);
    return out.close();
}

bool ImportSettings(const wchar_t* path) {
    Utf16TextReader in;
    if (!in.open(path)) return false;
    if (!ReadRegistryTextFile(in, g_categories, g_filters)) return false;
    LoadSettings();
    SaveCategoryLook(g_categories);
    WriteFiltersFile(g_filters, FiltersFilePath().c_str());
    return true;
}
