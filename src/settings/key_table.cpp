#include "settings/key_table.h"

namespace {

struct KeyEntry {
    HKEY root;
    const wchar_t* path;
};

// Pocket Informant lives under the current user, Agenda Fusion and the Today item under the
// local machine.
const KeyEntry kKeys[kKeyCount] = {
    {HKEY_LOCAL_MACHINE, L"Software\\Microsoft\\today\\items\\Quillory"},
    {HKEY_CURRENT_USER, L"Software\\WebIS\\PocketInformant"},
    {HKEY_LOCAL_MACHINE, L"SOFTWARE\\Developer One, Inc.\\Agenda Fusion"},
    {HKEY_CURRENT_USER, L"Software\\Orvane\\Quillory"},
    {HKEY_CURRENT_USER, L"Software\\Orvane\\Quillory\\Calendar"},
    {HKEY_CURRENT_USER, L"Software\\Orvane\\Quillory\\Tasks"},
    {HKEY_CURRENT_USER, L"Software\\Orvane\\Quillory\\Notes"},
    {HKEY_CURRENT_USER, L"Software\\Orvane\\Quillory\\Contacts"},
    {HKEY_CURRENT_USER, L"Software\\Orvane\\Quillory\\Messages"},
    {HKEY_CURRENT_USER, L"Software\\Orvane\\Quillory\\SEvents"},
    {HKEY_CURRENT_USER, L"Software\\Orvane\\Quillory\\Fonts"},
    {HKEY_CURRENT_USER, L"Software\\Orvane\\Quillory\\Colors"},
    {HKEY_CURRENT_USER, L"Software\\Orvane\\Quillory\\CustomPIM"},
    {HKEY_CURRENT_USER, L"Software\\Orvane\\Quillory\\TabSettings"},
    {HKEY_CURRENT_USER, L"Software\\Orvane\\Quillory\\Categories"},
};

}  // namespace

HKEY KeyRoot(unsigned index) { return index < kKeyCount ? kKeys[index].root : nullptr; }

const wchar_t* KeyPath(unsigned index) { return index < kKeyCount ? kKeys[index].path : nullptr; }

RegKey OpenSettingKey(unsigned index) {
    RegKey key;
    if (index >= kKeyCount) return key;
    if (RegCreateKeyExW(KeyRoot(index), KeyPath(index), 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr, key.out(),
                        nullptr) != ERROR_SUCCESS)
        key.release();
    return key;
}

RegKey OpenExistingSettingKey(unsigned index) {
    RegKey key;
    if (index >= kKeyCount) return key;
    if (RegOpenKeyExW(KeyRoot(index), KeyPath(index), 0, KEY_READ, key.out()) != ERROR_SUCCESS) key.release();
    return key;
}
