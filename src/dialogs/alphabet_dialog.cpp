#include "dialogs/alphabet_dialog.h"

#include <commctrl.h>

#include <cwchar>

#include "dialogs/ok_cancel_bar.h"
#include "program_ids.h"
#include "settings/settings.h"
#include "support/app_state.h"
#include "support/display_scale.h"

const wchar_t kAlphabetsKeyPath[] = L"Software\\Orvane\\Quillory\\Contacts\\Alphabets";

namespace {

struct BuiltInAlphabet {
    const wchar_t* name;
    DWORD flag;
};
const BuiltInAlphabet kBuiltInAlphabets[] = {
    {L"Latin", kLatinAlphabet},
    {L"Cyrillic", kCyrillicAlphabet},
    {L"Hebrew", kHebrewAlphabet},
    {L"Greek", kGreekAlphabet},
};

const wchar_t kLabelText[] = L"Select active alphabets";
const wchar_t kColumnTitle[] = L"Available alphabets";
const wchar_t kFolder[] = L"\\CustomAlphabets\\";
const wchar_t kExtensionCharacters[] = L".txt";
const int kExtensionLength = 4;
const int kRowTextChars = 256;
const int kTitleChars = 256;

// Check boxes and full-row selection; the high bit is the device's "no horizontal scroll bar".
const DWORD kListExtendedStyle = 0x10000024;
const UINT kUntickedState = INDEXTOSTATEIMAGEMASK(1);

bool RowIsTicked(HWND list, int row) {
    UINT state = ListView_GetItemState(list, row, LVIS_STATEIMAGEMASK);
    return (state & LVIS_STATEIMAGEMASK) != kUntickedState;
}

}  // namespace

bool IsCustomAlphabetFileName(const wchar_t* name) {
    size_t length = wcslen(name);
    return length >= kExtensionLength + 1 && wcscspn(name, kExtensionCharacters) == length - kExtensionLength;
}

WString CustomAlphabetFile(const wchar_t* name) {
    WString path(g_settings.installFolder.c_str());
    path.append(kFolder);
    path.append(name);
    path.append(L".txt");
    return path;
}

INT_PTR RunAlphabetSelection(HWND owner, DWORD activeLanguages) {
    HINSTANCE instance = g_app.instance ? g_app.instance : GetModuleHandleW(nullptr);
    AlphabetSelectionDialog dialog(instance, activeLanguages);
    RunModalFromTemplate(instance, IDD_ALPHABET_SELECTION, owner, &dialog);
    return dialog.result();
}

AlphabetSelectionDialog::AlphabetSelectionDialog(HINSTANCE instance, DWORD activeLanguages)
    : DialogBase(instance, true), activeLanguages_(activeLanguages) {}

INT_PTR AlphabetSelectionDialog::DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_COMMAND:
        if (LOWORD(wParam) == IDOK) {
            result_ = StoreTickedRows();
            EndDialog(window, 1);
            return 1;
        }
        if (LOWORD(wParam) == IDCANCEL) {
            result_ = kAlphabetSelectionCancelled;
            EndDialog(window, 0);
            return 1;
        }
        break;
    case WM_DESTROY:
        for (HWND* child : {&label_, &list_, &menuBar_}) {
            if (*child && IsWindow(*child)) DestroyWindow(*child);
            *child = nullptr;
        }
        break;
    }
    return DialogBase::DialogProc(window, message, wParam, lParam);
}

BOOL AlphabetSelectionDialog::OnInitDialog(HWND window) {
    window_ = window;
    return DialogBase::OnInitDialog(window);
}

void AlphabetSelectionDialog::CreateMenuBar(HWND window) { menuBar_ = CreateOkCancelBar(window, &buttonImages_); }

// The template's own caption stays.
SharedString AlphabetSelectionDialog::GetTitle() {
    wchar_t caption[kTitleChars] = {};
    if (window_) GetWindowTextW(window_, caption, kTitleChars);
    SharedString title;
    title.set(caption);
    return title;
}

void AlphabetSelectionDialog::CreateControls(HWND window) {
    label_ = CreateChild(window, L"static", kLabelText, WS_CHILD | WS_VISIBLE | SS_LEFT, false, kAlphabetLabel, 0);
    if (label_ && g_app.normalFont) SendMessageW(label_, WM_SETFONT, reinterpret_cast<WPARAM>(g_app.normalFont), TRUE);
    list_ = AddList(window, L"", 0);
    if (!list_) return;
    SetWindowLongPtrW(list_, GWLP_ID, kAlphabetList);
    ListView_SetExtendedListViewStyle(list_, kListExtendedStyle);
    LVCOLUMNW column = {};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.pszText = const_cast<wchar_t*>(kColumnTitle);
    column.cx = ScaleForDisplay(100);
    ListView_InsertColumn(list_, 0, &column);
    FillList();
    SetFocus(list_);
}

void AlphabetSelectionDialog::Layout(HWND window, int width, int height) {
    int margin = ScaleForDisplay(10);
    int labelTop = ScaleForDisplay(8);
    int listTop = labelTop + ScaleForDisplay(22);
    int listBottom = height - ScaleForDisplay(28);
    if (label_) MoveWindow(label_, margin, labelTop, width - 2 * margin, ScaleForDisplayY(20), TRUE);
    if (!list_) return;
    MoveWindow(list_, margin, listTop, width - 2 * margin, listBottom > listTop ? listBottom - listTop : 0, TRUE);
    RECT listClient;
    GetClientRect(list_, &listClient);
    ListView_SetColumnWidth(list_, 0, listClient.right);
}

void AlphabetSelectionDialog::AddRow(const wchar_t* text, LPARAM data, bool ticked) {
    LVITEMW item = {};
    item.mask = LVIF_TEXT | LVIF_PARAM;
    item.iItem = ListView_GetItemCount(list_);
    item.pszText = const_cast<wchar_t*>(text);
    item.lParam = data;
    int row = ListView_InsertItem(list_, &item);
    if (row >= 0) ListView_SetCheckState(list_, row, ticked);
}

void AlphabetSelectionDialog::FillList() {
    for (const BuiltInAlphabet& alphabet : kBuiltInAlphabets)
        AddRow(alphabet.name, alphabet.flag, (activeLanguages_ & alphabet.flag) != 0);
    RegKey active;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, kAlphabetsKeyPath, 0, KEY_READ, active.out()) != ERROR_SUCCESS)
        active.release();
    AddCustomRows(active.get());
    if (ListView_GetItemCount(list_) > 0) {
        ListView_SetItemState(list_, 0, LVIS_FOCUSED, LVIS_FOCUSED);
        ListView_SetSelectionMark(list_, 0);
    }
}

// Files in the order the file system gives them; a folder that cannot be listed adds nothing.
void AlphabetSelectionDialog::AddCustomRows(HKEY activeKey) {
    WString pattern(g_settings.installFolder.c_str());
    pattern.append(kFolder);
    pattern.append(L"*.*");
    WIN32_FIND_DATAW found;
    FindHandle search(FindFirstFileW(pattern.c_str(), &found));
    if (!search) return;
    do {
        if (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) continue;
        if (!IsCustomAlphabetFileName(found.cFileName)) continue;
        found.cFileName[wcslen(found.cFileName) - kExtensionLength] = L'\0';
        bool ticked = activeKey && RegQueryValueExW(activeKey, found.cFileName, nullptr, nullptr, nullptr, nullptr) ==
                                       ERROR_SUCCESS;
        AddRow(found.cFileName, kCustomAlphabet, ticked);
    } while (FindNextFileW(search.get(), &found));
}

// Rewrites the Contacts\Alphabets key from the ticked custom rows and returns the flags.
DWORD AlphabetSelectionDialog::StoreTickedRows() {
    RegDeleteTreeW(HKEY_CURRENT_USER, kAlphabetsKeyPath);
    DWORD flags = 0;
    RegKey active;
    int count = list_ ? ListView_GetItemCount(list_) : 0;
    for (int row = 0; row < count; ++row) {
        if (!RowIsTicked(list_, row)) continue;
        wchar_t text[kRowTextChars + 1] = {};
        LVITEMW item = {};
        item.mask = LVIF_TEXT | LVIF_PARAM;
        item.iItem = row;
        item.pszText = text;
        item.cchTextMax = kRowTextChars + 1;
        if (!ListView_GetItem(list_, &item)) continue;
        if (item.lParam != static_cast<LPARAM>(kCustomAlphabet)) {
            flags |= static_cast<DWORD>(item.lParam);
            continue;
        }
        if (!active && RegCreateKeyExW(HKEY_CURRENT_USER, kAlphabetsKeyPath, 0, nullptr, 0, KEY_WRITE, nullptr,
                                       active.out(), nullptr) != ERROR_SUCCESS) {
            active.release();
            continue;
        }
        const DWORD on = 1;
        RegSetValueExW(active.get(), text, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&on), sizeof on);
        flags |= kCustomAlphabet;
    }
    return flags;
}
