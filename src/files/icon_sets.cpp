#include "files/icon_sets.h"

#include <cwchar>

#include "settings/registry_values.h"
#include "settings/settings.h"
#include "support/handles.h"

const wchar_t kIconSetKeyPath[] = L"Software\\Orvane\\Quillory\\IconSet";
const wchar_t kIconSetValueName[] = L"ItemIcons";

WString IconSetsFolder() {
    WString folder(g_settings.productFolder.c_str());
    folder.append(L"\\Icons");
    return folder;
}

// A stored name that is not a bare file name is taken as no choice, so that it cannot name a file
// outside the Icons folder.
WString ChosenIconSet() {
    WString name;
    ReadString(HKEY_CURRENT_USER, kIconSetKeyPath, kIconSetValueName, name, L"");
    if (wcspbrk(name.c_str(), L"\\/:")) name.assign(L"");
    return name;
}

void StoreIconSetChoice(const wchar_t* fileName) {
    RegKey key;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, kIconSetKeyPath, 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr, key.out(),
                        nullptr) != ERROR_SUCCESS) {
        key.release();
        return;
    }
    WriteStringOrDelete(key.get(), kIconSetValueName, fileName, L"");
}

WString IconSetPath(const wchar_t* fileName) {
    if (!fileName || !*fileName) return WString();
    WString path = IconSetsFolder();
    path.append(L"\\");
    path.append(fileName);
    return path;
}
