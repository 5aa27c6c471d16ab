#pragma once
// What a user does in the file browser, as steps for a ModalScript.
#include "dialogs/file_browser.h"
#include "modal_script.h"

struct BrowserWindows { HWND dialog, list, path, name, extension; };

inline BrowserWindows FindBrowser(const wchar_t* title) {
    HWND dialog = ModalScript::FindDialog(title);
    return {dialog, GetDlgItem(dialog, kBrowserList), GetDlgItem(dialog, kBrowserPathField),
            GetDlgItem(dialog, kBrowserNameField), GetDlgItem(dialog, kBrowserExtensionField)};
}

inline int FindItem(HWND list, const std::wstring& text) {
    LVFINDINFOW find = {LVFI_STRING, text.c_str()};
    return ListView_FindItem(list, -1, &find);
}

// Selects an item as a tap does: selected, focused and the selection mark; -1 selects nothing.
inline void PickItem(HWND list, int index) {
    ListView_SetItemState(list, -1, 0, LVIS_SELECTED | LVIS_FOCUSED);
    if (index < 0) return;
    ListView_SetItemState(list, index, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    ListView_SetSelectionMark(list, index);
}

inline void ActivateItem(HWND list, const std::wstring& text) {
    PickItem(list, FindItem(list, text));
    SendMessageW(list, WM_KEYDOWN, VK_RETURN, 0);
}

// The Back key as the shell reports it once released.
inline void PressBack(HWND dialog) { SendMessageW(dialog, WM_HOTKEY, 0, MAKELPARAM(0x1000, VK_ESCAPE)); }

// Posted: OK may open a message box, whose loop must not run inside a step. True: the step is done.
inline bool Press(HWND dialog, int command) { return PostMessageW(dialog, WM_COMMAND, command, 0), true; }
