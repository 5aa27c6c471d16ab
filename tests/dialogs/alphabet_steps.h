#pragma once
#include <algorithm>

#include "dialogs/alphabet_dialog.h"
#include "dialogs/modal_script.h"
#include "settings/settings_test_util.h"

// A scratch folder named by the Today item's InstallPath while it lives, holding the alphabet files.
struct AlphabetInstall {
    explicit AlphabetInstall(const Texts& files) {
        RegPutString(HKEY_LOCAL_MACHINE, kTodayItemPath, L"InstallPath", root.path().c_str());
        for (const wchar_t* part : {L"\\Orvane", L"\\Quillory", L"\\CustomAlphabets"})
            CreateDirectoryW((folder += part).c_str(), nullptr);
        for (const std::wstring& file : files) WriteBytes(L"\\\\?\\" + folder + L"\\" + file, Utf16Bytes(L"ABC"));
    }
    ~AlphabetInstall() { RegDeleteKeyValueW(HKEY_LOCAL_MACHINE, kTodayItemPath, L"InstallPath"); }
    ScratchFolder root{L"alphabet_install"};
    std::wstring folder = root.path();
};

// Ticks exactly `tick` and presses `command`; returns the rows, adding those ticked at first to `ticked`.
inline Texts TickAlphabets(const std::function<void()>& open, const Texts& tick, int command, Texts* ticked = nullptr) {
    Texts rows;
    ModalScript().Then([&] {
        HWND dialog = ModalScript::FindDialog(L"Alphabets"), list = GetDlgItem(dialog, kAlphabetList);
        rows = ListTexts(list);
        for (int row = 0; row < static_cast<int>(rows.size()); ++row) {
            if (ticked && ListView_GetCheckState(list, row)) ticked->push_back(rows[row]);
            ListView_SetCheckState(list, row, std::count(tick.begin(), tick.end(), rows[row]));
        }
        return dialog && PostMessageW(dialog, WM_COMMAND, command, 0);
    }).Play(open);
    return rows;
}
