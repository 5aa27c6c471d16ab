#pragma once
// What a user does in the file browser, as steps for a ModalScript.
#include <algorithm>

#include "dialogs/file_browser.h"
#include "modal_script.h"

struct BrowserWindows {
    HWND dialog = nullptr, list = nullptr, path = nullptr, name = nullptr, extension = nullptr;
};

inline BrowserWindows FindBrowser(const wchar_t* title) {
    HWND dialog = ModalScript::FindDialog(title);
    return {dialog, GetDlgItem(dialog, kBrowserList), GetDlgItem(dialog, kBrowserPathField),
            GetDlgItem(dialog, kBrowserNameField), GetDlgItem(dialog, kBrowserExtensionField)};
}

inline int FindItem(HWND list, const std::wstring& text) {
    std::vector<std::wstring> texts = ListTexts(list);
    auto found = std::find(texts.begin(), texts.end(), text);
    return found == texts.end() ? -1 : static_cast<int>(found - texts.begin());
}

// Selects an item as a tap does: selected, focused and the selection mark; -1 selects nothing.
inline void PickItem(HWND list, int index) {
    ListView_SetItemState(list, -1, 0, LVIS_SELECTED | LVIS_FOCUSED);
    if (index < 0) return;
    ListView_SetItemState(list, index, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    ListView_SetSelectionMark(list, index);
}

// Picks the item and presses Enter on the list, which activates it.
inline void ActivateItem(HWND list, const std::wstring& text) {
    PickItem(list, FindItem(list, text));
    SendMessageW(list, WM_KEYDOWN, VK_RETURN, 0);
}

// The Back key as the shell reports it once released.
inline void PressBack(HWND dialog) { SendMessageW(dialog, WM_HOTKEY, 0, MAKELPARAM(0x1000, VK_ESCAPE)); }

// Commands are posted: OK may open a message box, whose loop must not run inside a step.
inline void PressOk(HWND dialog) { PostMessageW(dialog, WM_COMMAND, IDOK, 0); }
inline void PressCancel(HWND dialog) { PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0); }
