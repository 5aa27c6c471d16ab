#include "pages/notes_page.h"

#include <commctrl.h>
#include <shellapi.h>

#include <algorithm>
#include <climits>
#include <cwchar>
#include <string>
#include <vector>

#include "dialogs/file_browser.h"
#include "pages/search_bar.h"
#include "settings/registry_values.h"
#include "support/app_state.h"
#include "support/display_scale.h"
#include "support/handles.h"
#include "support/language_text.h"
#include "string_ids.h"

const wchar_t kNotesFoldersKeyPath[] = L"Software\\Orvane\\Quillory\\Notes\\Folders";
const wchar_t kJotterlyKeyPath[] = L"Software\\Orvane\\Jotterly";

namespace {

enum Control {
    kSearchBarLabel, kSearchBar, kPreviewLabel, kPreview,
    kLineStyleLabel, kLineStyle, kFoldButtons, kCounters,
    kNoteFiles, kTextFiles, kDocuments, kRecordings, kPictures, kLists,
    kFoldersLabel, kFolders, kRemoveFolder, kAddFolder,
    kControlCount
};

const PageSection kSections[] = {
    {IDS_SECTION_GENERAL, kSearchBarLabel, kPreview},
    {IDS_SECTION_LAYOUT, kLineStyleLabel, kCounters},
    {IDS_NOTE_SECTION_FILE_TYPES, kNoteFiles, kLists},
    {IDS_NOTE_SECTION_FOLDERS, kFoldersLabel, kAddFolder},
};

const UINT kPreviewItems[] = {IDS_NOTE_PREVIEW_CLOSED, IDS_NOTE_PREVIEW_OPEN, IDS_NOTE_PREVIEW_LAST};
const UINT kLineStyleItems[] = {IDS_LINE_STYLE_NONE, IDS_LINE_STYLE_SOLID, IDS_LINE_STYLE_DOTTED, IDS_LINE_STYLE_BAR};

constexpr NotesSettings& kNotes = g_settings.notes;
const SearchBarSettings kSearchBarSettings = {&kNotes.NotesActiveSearchBar, &kNotes.NotesCustomSearchBarSelected};

const PageRow kRows[] = {
    {kPageRow, 0, kSearchBarLabel, kSearchBar, IDS_SEARCH_BAR_LABEL, &kNotes.NotesActiveSearchBar},
    {kChoiceRow, 0, kPreviewLabel, kPreview, IDS_NOTE_PREVIEW_LABEL, &kNotes.NotesPreviewNotesState,
     PAGE_ITEMS(kPreviewItems)},
    {kChoiceRow, 1, kLineStyleLabel, kLineStyle, IDS_LINE_STYLE_LABEL, &kNotes.NotesBreakLineStyle,
     PAGE_ITEMS(kLineStyleItems)},
    {kCheckRow, 1, kFoldButtons, kFoldButtons, IDS_SHOW_FOLD_BUTTONS, &kNotes.NotesIncldFoldBttns},
    {kCheckRow, 1, kCounters, kCounters, IDS_SHOW_COUNTERS, &kNotes.NotesIncldCounters},
    {kPageRow, 2, kNoteFiles, kLists, 0, &kNotes.NotesScannedFileTypes},
    {kPageRow, 3, kFoldersLabel, kFolders, IDS_NOTE_FOLDERS_LABEL, nullptr},
};

// One check box per kind of file: the bit that ticks it, and the bits it stores (recordings and
// pictures store a second bit of their own with the first).
struct FileTypeBox {
    int control;
    UINT textId;
    DWORD bit;
    DWORD storedBits;
};
const FileTypeBox kFileTypeBoxes[] = {
    {kNoteFiles, IDS_NOTE_TYPE_NOTES, 1, 1},       {kTextFiles, IDS_NOTE_TYPE_TEXT, 2, 2},
    {kDocuments, IDS_NOTE_TYPE_DOCUMENTS, 4, 4},   {kRecordings, IDS_NOTE_TYPE_RECORDINGS, 8, 8 | 64},
    {kPictures, IDS_NOTE_TYPE_PICTURES, 16, 16 | 128}, {kLists, IDS_NOTE_TYPE_LISTS, 32, 32},
};

const wchar_t kAddFolderTitle[] = L"Add Notes Folder";
const DWORD kLongestValueName = 16383;

bool ListsProductPresent() {
    WString path;
    return ReadString(HKEY_CURRENT_USER, kJotterlyKeyPath, L"ListsPath", path, L"") && !path.empty();
}

// The whole text of a list row, however long.
WString RowText(HWND list, int row) {
    std::vector<wchar_t> text(MAX_PATH + 1);
    for (;;) {
        LVITEMW item = {};
        item.iSubItem = 0;
        item.pszText = text.data();
        item.cchTextMax = static_cast<int>(text.size());
        int length = static_cast<int>(SendMessageW(list, LVM_GETITEMTEXTW, row, reinterpret_cast<LPARAM>(&item)));
        if (length < static_cast<int>(text.size()) - 1) break;
        text.assign(text.size() * 2, L'\0');
    }
    return WString(text.data());
}

// A text value of the folders key, with its name read as a list position when it is a number.
struct StoredFolder {
    unsigned long position;
    std::wstring path;
};
const unsigned long kNotAPosition = ULONG_MAX;

unsigned long PositionOf(const wchar_t* name) {
    if (!*name || wcsspn(name, L"0123456789") != wcslen(name) || wcslen(name) > 9) return kNotAPosition;
    return wcstoul(name, nullptr, 10);
}

// Every text value of the folders key, whatever its name; values of other types name no folder.
// The page names its values by list position, and a registry may enumerate them by name ("10"
// before "2"), so numbered values are taken in number order, the others after them in registry order.
std::vector<StoredFolder> StoredFolders() {
    std::vector<StoredFolder> stored;
    RegKey folders;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, kNotesFoldersKeyPath, 0, KEY_READ, folders.out()) != ERROR_SUCCESS) {
        folders.release();
        return stored;
    }
    std::vector<wchar_t> name(kLongestValueName + 1);
    for (DWORD index = 0;; ++index) {
        DWORD length = kLongestValueName + 1;
        DWORD type = REG_NONE;
        if (RegEnumValueW(folders.get(), index, name.data(), &length, nullptr, &type, nullptr, nullptr) !=
            ERROR_SUCCESS)
            break;
        WString path;
        if ((type == REG_SZ || type == REG_EXPAND_SZ) && ReadString(folders.get(), name.data(), path, L""))
            stored.push_back({PositionOf(name.data()), path.c_str()});
    }
    std::stable_sort(stored.begin(), stored.end(),
                     [](const StoredFolder& a, const StoredFolder& b) { return a.position < b.position; });
    return stored;
}

}  // namespace

NotesSettingsWin::NotesSettingsWin() : RowTablePage(PAGE_TABLE(kSections), PAGE_TABLE(kRows), kControlCount) {}

int NotesSettingsWin::CreatePageRow(const PageRow& row, int top) {
    switch (row.control) {
    case kSearchBar: {
        int height = CreateComboRow(row.label, row.control, row.textId, nullptr, 0, 0, top, false);
        FillSearchBar(control(kSearchBar), g_settings.contacts.CntctsActiveLanguages.value, kSearchBarSettings);
        return height;
    }
    case kLists:
        return CreateFileTypeBoxes(top);
    default:
        CreateFolderList();
        return 0;
    }
}

void NotesSettingsWin::StorePageRow(const PageRow& row) {
    switch (row.control) {
    case kSearchBar:
        StoreSearchBar(control(kSearchBar), kSearchBarSettings);
        break;
    case kLists:
        StoreFileTypes(*row.setting);
        break;
    default:
        StoreFolders();
        break;
    }
}

// ---- kinds of files ----------------------------------------------------------------------------

int NotesSettingsWin::CreateFileTypeBoxes(int top) {
    DWORD types = kNotes.NotesScannedFileTypes.value;
    int height = 0;
    for (const FileTypeBox& box : kFileTypeBoxes) height += CreateCheckBox(box.control, box.textId, types & box.bit, top + height);
    if (!ListsProductPresent()) {
        SendMessageW(control(kLists), BM_SETCHECK, BST_UNCHECKED, 0);
        EnableControl(kLists, false);
    }
    return height;
}

// Without the lists product its box is disabled, and its bit is stored set.
void NotesSettingsWin::StoreFileTypes(IntSetting& setting) {
    DWORD types = 0;
    for (const FileTypeBox& box : kFileTypeBoxes) {
        HWND check = control(box.control);
        bool disabled = check && !IsWindowEnabled(check);
        if (IsChecked(box.control) || (box.control == kLists && disabled)) types += box.storedBits;
    }
    SetInt(setting, types);
}

// ---- folders -----------------------------------------------------------------------------------

void NotesSettingsWin::CreateFolderList() {
    int width = ClientWidth();
    int height = ClientHeight();
    int buttonsTop = height - ScaleForDisplay(53);
    CreateLabel(kFoldersLabel, IDS_NOTE_FOLDERS_LABEL, ScaleForDisplay(10), ScaleForDisplay(8),
                width - ScaleForDisplay(20), ScaleForDisplay(20), 0);
    CreateList(kFolders, nullptr, 0, 0);
    CreateButton(kRemoveFolder, IDS_NOTE_REMOVE_FOLDER, width - ScaleForDisplay(140), buttonsTop, ScaleForDisplay(60),
                 ScaleForDisplay(20));
    CreateButton(kAddFolder, IDS_BUTTON_ADD, width - ScaleForDisplay(70), buttonsTop, ScaleForDisplay(60),
                 ScaleForDisplay(20));
    HWND list = control(kFolders);
    if (!list) return;
    // Between the label and the buttons.
    int listTop = ScaleForDisplay(32);
    int listBottom = buttonsTop - ScaleForDisplay(4);
    MoveWindow(list, ScaleForDisplay(10), listTop, width - ScaleForDisplay(20),
               listBottom > listTop ? listBottom - listTop : 0, FALSE);
    RECT listClient = {};
    GetClientRect(list, &listClient);
    ListView_SetColumnWidth(list, 0, listClient.right);
    // The page owns the icons and destroys them itself when it stores the list.
    SetWindowLongPtrW(list, GWL_STYLE, GetWindowLongPtrW(list, GWL_STYLE) | LVS_SHAREIMAGELISTS);
    FillFolders();
}

void NotesSettingsWin::FillFolders() {
    HWND list = control(kFolders);
    if (imageList_) ImageList_Destroy(imageList_);
    int iconSize = ScaleForDisplay(16);
    imageList_ = ImageList_Create(iconSize, iconSize, ILC_MASK | ILC_COLOR32, 4, 4);
    ListView_SetImageList(list, imageList_, LVSIL_SMALL);
    ListView_DeleteAllItems(list);
    ListView_SetExtendedListViewStyleEx(list, LVS_EX_FULLROWSELECT, LVS_EX_FULLROWSELECT);

    // A stored folder stays listed even while the shell cannot show it (a card taken out).
    for (const StoredFolder& folder : StoredFolders()) AddFolder(folder.path.c_str(), false);
}

int NotesSettingsWin::FolderIcon(const wchar_t* folder) {
    // A device path from the root of the current drive is made absolute for the shell.
    wchar_t fullPath[MAX_PATH];
    DWORD length = GetFullPathNameW(folder, MAX_PATH, fullPath, nullptr);
    const wchar_t* shellPath = length > 0 && length < MAX_PATH ? fullPath : folder;
    SHFILEINFOW info = {};
    UINT flags = SHGFI_ICON | SHGFI_SMALLICON | SHGFI_DISPLAYNAME | SHGFI_ATTRIBUTES;
    if (!SHGetFileInfoW(shellPath, 0, &info, sizeof info, flags) || !info.hIcon) return -1;
    int image = imageList_ ? ImageList_AddIcon(imageList_, info.hIcon) : -1;
    DestroyIcon(info.hIcon);
    return image;
}

bool NotesSettingsWin::AddFolder(const wchar_t* folder, bool needIcon) {
    HWND list = control(kFolders);
    if (!list || !folder || !*folder) return false;
    int count = ListView_GetItemCount(list);
    for (int row = 0; row < count; ++row)
        if (wcscmp(RowText(list, row).c_str(), folder) == 0) return false;
    int image = FolderIcon(folder);
    if (image < 0 && needIcon) return false;
    LVITEMW item = {};
    item.mask = LVIF_TEXT | LVIF_IMAGE;
    item.iItem = count;
    item.pszText = const_cast<wchar_t*>(folder);
    item.iImage = image >= 0 ? image : I_IMAGENONE;
    return ListView_InsertItem(list, &item) >= 0;
}

void NotesSettingsWin::ChooseFolder(HWND window) {
    BrowserRequest request;
    request.kind = BrowserKind::SelectFolder;
    request.owner = window;
    request.title.assign(kAddFolderTitle);
    LoadBrowserTexts(g_app.languageLibrary, &request);
    if (!RunFileBrowser(&request)) return;
    std::wstring folder(request.result.c_str());
    if (!folder.empty() && folder.back() == L'\\') folder.pop_back();
    if (!AddFolder(folder.c_str(), true)) LibraryMessageBox(window, IDS_NOTE_FOLDER_NOT_ADDED_TEXT, MB_OK);
}

void NotesSettingsWin::RemoveSelectedFolder(HWND window) {
    HWND list = control(kFolders);
    int row = list ? ListView_GetSelectionMark(list) : -1;
    if (row < 0 || row >= ListView_GetItemCount(list)) {
        LibraryMessageBox(window, IDS_SELECT_ITEM_FIRST_TEXT, MB_OK);
        return;
    }
    ListView_DeleteItem(list, row);
    ListView_SetSelectionMark(list, -1);
}

// The key is written anew: one value per row, named by the row's position from "0".
void NotesSettingsWin::StoreFolders() {
    HWND list = control(kFolders);
    RegDeleteTreeW(HKEY_CURRENT_USER, kNotesFoldersKeyPath);
    RegKey folders;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, kNotesFoldersKeyPath, 0, nullptr, 0, KEY_WRITE, nullptr, folders.out(),
                        nullptr) != ERROR_SUCCESS)
        folders.release();
    int count = list ? ListView_GetItemCount(list) : 0;
    for (int row = 0; row < count && folders; ++row) {
        WString text = RowText(list, row);
        wchar_t name[12];
        swprintf(name, 12, L"%d", row);
        RegSetValueExW(folders.get(), name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                       static_cast<DWORD>((text.length() + 1) * sizeof(wchar_t)));
    }
    if (list) ListView_SetImageList(list, nullptr, LVSIL_SMALL);
    if (imageList_) ImageList_Destroy(imageList_);
    imageList_ = nullptr;
}

LRESULT NotesSettingsWin::OnCommand(HWND window, UINT, WPARAM wParam, LPARAM lParam) {
    int number = ControlNumberOf(reinterpret_cast<HWND>(lParam));
    UINT notification = HIWORD(wParam);
    if (number == kSearchBar && notification == CBN_SELCHANGE)
        OnSearchBarChanged(window, control(kSearchBar), kSearchBarSettings);
    if (number == kAddFolder && notification == BN_CLICKED) ChooseFolder(window);
    if (number == kRemoveFolder && notification == BN_CLICKED) RemoveSelectedFolder(window);
    return 0;
}

SettingsPage* CreateNotesPage() { return new NotesSettingsWin; }
