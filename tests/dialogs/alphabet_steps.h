#pragma once
// For tests of the alphabet selection and of the pages that open it: a product installation whose
// CustomAlphabets folder holds the given files, and a user ticking rows of the dialog.
#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

#include "common/test_support.h"
#include "dialogs/alphabet_dialog.h"
#include "dialogs/modal_script.h"
#include "settings/settings_test_util.h"

// A scratch folder named by the Today item's InstallPath for the test's lifetime (the record takes
// it as its install folder when loaded), with the files in its CustomAlphabets folder.
class AlphabetInstall {
public:
    explicit AlphabetInstall(std::initializer_list<std::wstring> files) {
        RegPutString(HKEY_LOCAL_MACHINE, kTodayItemPath, L"InstallPath", root_.path().c_str());
        folder_ = root_.path();
        for (const wchar_t* part : {L"\\Orvane", L"\\Quillory", L"\\CustomAlphabets"})
            CreateDirectoryW((folder_ += part).c_str(), nullptr);
        for (const std::wstring& file : files) WriteBytes(L"\\\\?\\" + folder_ + L"\\" + file, Utf16Bytes(L"ABC"));
    }
    ~AlphabetInstall() { RegDeleteKeyValueW(HKEY_LOCAL_MACHINE, kTodayItemPath, L"InstallPath"); }
    const std::wstring& folder() const { return folder_; }

private:
    ScratchFolder root_{L"alphabet_install"};
    std::wstring folder_;
};

// What the dialog showed before the user changed it.
struct AlphabetRows {
    std::vector<std::wstring> rows, ticked;
};

// Runs `open`, which brings up the alphabet selection; there the rows named in `tick` (all others
// unticked) are ticked and `command` (IDOK, IDCANCEL) is pressed.
inline AlphabetRows TickAlphabets(const std::function<void()>& open, const std::vector<std::wstring>& tick,
                                  int command) {
    AlphabetRows seen;
    ModalScript script;
    script.Then([&] {
        HWND dialog = ModalScript::FindDialog(L"Alphabets");
        HWND list = GetDlgItem(dialog, kAlphabetList);
        seen.rows = ListTexts(list);
        for (int row = 0; row < static_cast<int>(seen.rows.size()); ++row) {
            if (ListView_GetCheckState(list, row)) seen.ticked.push_back(seen.rows[row]);
            ListView_SetCheckState(list, row, std::count(tick.begin(), tick.end(), seen.rows[row]) > 0);
        }
        if (dialog) PostMessageW(dialog, WM_COMMAND, command, 0);
        return dialog != nullptr;
    });
    script.Play(open);
    return seen;
}
