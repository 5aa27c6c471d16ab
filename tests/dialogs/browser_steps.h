#pragma once
// What a user does in the file browser, as steps for a ModalScript: find its windows, pick and
// activate list items, go up, press OK or Cancel, answer the message box.
#include <windows.h>
#include <commctrl.h>

#include <string>

#include "dialogs/file_browser.h"
#include "modal_script.h"
#include "support/display_scale.h"

struct BrowserWindows {
    HWND dialog = nullptr;
    HWND list = nullptr;
    HWND path = nullptr;
    HWND name = nullptr;
    HWND extension = nullptr;
};

inline BrowserWindows FindBrowser(const wchar_t* title) {
    BrowserWindows windows;
    windows.dialog = ModalScript::FindDialog(title);
    if (!windows.dialog) return windows;
    windows.list = GetDlgItem(windows.dialog, kBrowserList);
    windows.path = GetDlgItem(windows.dialog, kBrowserPathField);
    windows.name = GetDlgItem(windows.dialog, kBrowserNameField);
    windows.extension = GetDlgItem(windows.dialog, kBrowserExtensionField);
    return windows;
}

inline int FindItem(HWND list, const std::wstring& text) {
    std::vector<std::wstring> texts = ListTexts(list);
    for (size_t i = 0; i < texts.size(); ++i)
        if (texts[i] == text) return static_cast<int>(i);
    return -1;
}

// Selects an item as a tap does: selected, focused and the selection mark.
inline void PickItem(HWND list, int index) {
    ListView_SetItemState(list, -1, 0, LVIS_SELECTED | LVIS_FOCUSED);
    if (index < 0) return;
    ListView_SetItemState(list, index, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    ListView_SetSelectionMark(list, index);
}

// Picks the item and presses Enter on the list, which activates it.
inline void ActivateItem(HWND list, const std::wstring& text) {
    int index = FindItem(list, text);
    EXPECT_GE(index, 0) << "no item " << std::string(text.begin(), text.end());
    PickItem(list, index);
    SendMessageW(list, WM_KEYDOWN, VK_RETURN, 0);
    SendMessageW(list, WM_KEYUP, VK_RETURN, 0);
}

// A tap on the up-folder icon, right of the path field.
inline void TapUpFolder(const BrowserWindows& windows) {
    RECT path;
    GetWindowRect(windows.path, &path);
    MapWindowPoints(nullptr, windows.dialog, reinterpret_cast<POINT*>(&path), 2);
    int x = path.right + ScaleForDisplay(4) + ScaleForDisplay(10);
    int y = path.top + ScaleForDisplay(10);
    SendMessageW(windows.dialog, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
    SendMessageW(windows.dialog, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
}

// The Back key as the shell reports it once released.
inline void PressBack(HWND dialog) { SendMessageW(dialog, WM_HOTKEY, 0, MAKELPARAM(0x1000, VK_ESCAPE)); }

// Commands are posted: OK may open a message box, whose loop must not run inside a step.
inline void PressOk(HWND dialog) { PostMessageW(dialog, WM_COMMAND, IDOK, 0); }
inline void PressCancel(HWND dialog) { PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0); }

// Runs the browser the request names while `act` works on it once it is up; returns what the
// browser returned.
inline bool BrowseOnce(BrowserRequest* request, const wchar_t* title,
                       const std::function<void(const BrowserWindows&)>& act) {
    ModalScript script;
    script.Then([&] {
        BrowserWindows browser = FindBrowser(title);
        if (!browser.dialog) return false;
        act(browser);
        return true;
    });
    bool confirmed = false;
    script.Play([&] { confirmed = RunFileBrowser(request); });
    return confirmed;
}
