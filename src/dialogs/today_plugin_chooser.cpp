#include "dialogs/today_plugin_chooser.h"

#include <commctrl.h>

#include <cwchar>

#include "platform/device_window.h"
#include "program_ids.h"
#include "settings/registry_values.h"
#include "support/app_state.h"
#include "support/display_scale.h"
#include "support/handles.h"
#include "support/language_text.h"

const wchar_t kTodayItemsPath[] = L"SOFTWARE\\Microsoft\\Today\\Items";

namespace {

const DWORD kPlugInItemType = 4;
// The product's own Today item; registry names compare without regard to case.
const wchar_t kOwnTodayItem[] = L"Quillory";
const int kNameChars = 256;

const UINT kIntroTextId = 40837;
const UINT kNoteTextId = 40838;
const UINT kTakeOffQuestionId = 40736;

// Shown as it stands, spelling included.
const wchar_t kSelectionMissingText[] =
    L"No Today screen plugin is selecetd. Please select a Today screen plugin from the selection combo-box.";
const wchar_t kSelectionMissingCaption[] = L"Selection Missing";

WString ItemPath(const wchar_t* name) {
    WString path;
    path.format(L"%s\\%s", kTodayItemsPath, name);
    return path;
}

WString ComboText(HWND combo, int index) {
    WString text;
    LRESULT length = SendMessageW(combo, CB_GETLBTEXTLEN, index, 0);
    if (length < 0 || length >= kNameChars) return text;
    wchar_t name[kNameChars] = {};
    SendMessageW(combo, CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(name));
    text.assign(name);
    return text;
}

}  // namespace

int AddTodayPlugIns(HWND combo) {
    RegKey items;
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, kTodayItemsPath, 0, KEY_READ, items.out()) != ERROR_SUCCESS) {
        items.release();
        return 0;
    }
    int added = 0;
    wchar_t name[kNameChars];
    for (DWORD index = 0;; ++index) {
        DWORD length = kNameChars;
        if (RegEnumKeyExW(items.get(), index, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
            break;
        if (_wcsicmp(name, kOwnTodayItem) == 0) continue;
        if (ReadDword(items.get(), name, L"Type", 0) != kPlugInItemType) continue;
        SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name));
        ++added;
    }
    return added;
}

TodayPlugInChooser::TodayPlugInChooser(HINSTANCE instance) : DialogBase(instance, true) {}

BOOL TodayPlugInChooser::OnInitDialog(HWND window) {
    window_ = window;
    return DialogBase::OnInitDialog(window);
}

// The template's own caption stays.
SharedString TodayPlugInChooser::GetTitle() {
    wchar_t caption[kNameChars] = {};
    GetWindowTextW(window_, caption, kNameChars);
    SharedString title;
    title.set(caption);
    return title;
}

void TodayPlugInChooser::CreateMenuBar(HWND window) {
    SHMENUBARINFO bar = {};
    bar.cbSize = kDeviceMenuBarInfoSize;
    bar.hwndParent = window;
    bar.dwFlags = SHCMBF_EMPTYBAR;
    bar.hInstRes = instance_;
    menuBar_ = SHCreateMenuBar(&bar) ? bar.hwndMB : nullptr;
}

void TodayPlugInChooser::CreateControls(HWND window) {
    const struct {
        int id;
        UINT textId;
    } texts[] = {{IDC_PLUGIN_INTRO, kIntroTextId}, {IDC_PLUGIN_NOTE, kNoteTextId}};
    for (const auto& label : texts) {
        HWND control = GetDlgItem(window, label.id);
        WString text;
        text.load(g_app.languageLibrary, label.textId);
        SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(normalFont()), TRUE);
        SetWindowTextW(control, text.c_str());
    }
    HWND combo = GetDlgItem(window, IDC_PLUGIN_COMBO);
    SendMessageW(combo, WM_SETFONT, reinterpret_cast<WPARAM>(normalFont()), TRUE);
    AddTodayPlugIns(combo);
    SendMessageW(combo, CB_SETCURSEL, 0, 0);
}

void TodayPlugInChooser::Layout(HWND window, int width, int height) {
    int margin = ScaleForDisplay(6);
    int inner = width - 2 * margin;
    int y = margin;
    MoveWindow(GetDlgItem(window, IDC_PLUGIN_INTRO), margin, y, inner, ScaleForDisplayY(30), TRUE);
    y += ScaleForDisplayY(34);
    MoveWindow(GetDlgItem(window, IDC_PLUGIN_COMBO), margin, y, inner, ScaleForDisplayY(120), TRUE);
    y += ScaleForDisplayY(30);
    MoveWindow(GetDlgItem(window, IDC_PLUGIN_NOTE), margin, y, inner, ScaleForDisplayY(64), TRUE);
}

INT_PTR TodayPlugInChooser::DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_COMMAND:
        if (LOWORD(wParam) == IDOK) {
            OnDone(window);
            return 1;
        }
        if (LOWORD(wParam) == IDCANCEL) {
            EndDialog(window, 0);
            return 1;
        }
        return 0;
    case WM_DESTROY:
        if (menuBar_) {
            HIMAGELIST images = reinterpret_cast<HIMAGELIST>(SendMessageW(menuBar_, TB_GETIMAGELIST, 0, 0));
            DestroyWindow(menuBar_);
            if (images) ImageList_Destroy(images);
            menuBar_ = nullptr;
        }
        return 0;
    default:
        return DialogBase::DialogProc(window, message, wParam, lParam);
    }
}

void TodayPlugInChooser::OnDone(HWND window) {
    HWND combo = GetDlgItem(window, IDC_PLUGIN_COMBO);
    int selection = static_cast<int>(SendMessageW(combo, CB_GETCURSEL, 0, 0));
    WString name = selection >= 0 ? ComboText(combo, selection) : WString();
    if (name.empty()) {
        MessageBoxW(window, kSelectionMissingText, kSelectionMissingCaption, MB_OK);
        return;
    }
    if (!TakeOffTodayScreen(window, name.c_str())) {
        EndDialog(window, 0);
        return;
    }
    chosen_ = name;
    EndDialog(window, 1);
}

// A plug-in shown on the Today screen is taken off it, if the user agrees, before it becomes a
// tab. False when the user declined.
bool TodayPlugInChooser::TakeOffTodayScreen(HWND window, const wchar_t* name) {
    RegKey item;
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, ItemPath(name).c_str(), 0, KEY_READ | KEY_WRITE, item.out()) !=
        ERROR_SUCCESS)
        item.release();
    if (ReadDword(item.get(), L"Enabled", 1) != 1) return true;
    if (LibraryMessageBox(window, kTakeOffQuestionId, MB_YESNO) != IDYES) return false;
    if (item) {
        DWORD disabled = 0;
        RegSetValueExW(item.get(), L"Enabled", 0, REG_DWORD, reinterpret_cast<const BYTE*>(&disabled), sizeof disabled);
    }
    InvalidateRect(window, nullptr, TRUE);
    UpdateWindow(window);
    NotifyTodayScreenReload();
    return true;
}

bool ChooseTodayPlugIn(HINSTANCE instance, HWND owner, WString* name) {
    TodayPlugInChooser chooser(instance);
    if (!RunModalFromTemplate(instance, IDD_TODAY_PLUGIN_CHOOSER, owner, &chooser)) return false;
    name->assign(chooser.chosen().c_str());
    return true;
}
