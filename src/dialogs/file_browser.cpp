#include "dialogs/file_browser.h"

#include <commctrl.h>
#include <shellapi.h>

#include <cwchar>
#include <vector>

#include "support/app_state.h"
#include "support/display_scale.h"
#include "string_ids.h"

namespace {

WString g_lastFolder;

const DWORD kMenuBarFromResource = SHCMBF_HMENU;
const DWORD kMenuBarWithoutSip = SHCMBF_HMENU | SHCMBF_HIDESIPBUTTON;
const COLORREF kButtonMaskColour = 0x00C6CFDE;
const COLORREF kUpFolderKeyColour = 0x0000FF00;
const int kOkImage = 1;
const int kCancelImage = 0;
const DWORD kImageListGrowth = 1000;
const int kNameCapacity = 256 + 1;
const UINT kBackKey = VK_ESCAPE;
const UINT kKeyUpModifier = 0x1000;
// Menu-bar key override: the Back key is not handled by the bar but reported to the window.
const WORD kOverrideNoDefault = 0x1;
const WORD kOverrideNotify = 0x2;
// Item numbers live in 16 bits beside the folder bit; a longer listing is cut there.
const int kMaxEntries = 0x10000;
const wchar_t kIllegalNameCharacters[] = L"/:*?\"<>|";
// Files of these types carry their own icon.
const wchar_t* const kOwnIconExtensions[] = {L"exe", L"ico", L"lnk", L"cur", L"ani"};

const wchar_t* TextOr(const WString& text, const wchar_t* fallback) {
    return text.empty() ? fallback : text.c_str();
}

bool EndsWith(const wchar_t* name, const wchar_t* ending) {
    size_t nameLength = wcslen(name);
    size_t endingLength = wcslen(ending);
    return endingLength <= nameLength && wcscmp(name + nameLength - endingLength, ending) == 0;
}

bool IsDotEntry(const wchar_t* name) { return wcscmp(name, L".") == 0 || wcscmp(name, L"..") == 0; }

// Sort order of the list: folders first, then case-insensitive text order. The texts are read
// from the shadow list by the item number kept in the low 16 bits of the parameter.
int CALLBACK CompareEntries(LPARAM first, LPARAM second, LPARAM shadowList) {
    bool firstIsFolder = (first & FileBrowserDialog::kFolderBit) != 0;
    bool secondIsFolder = (second & FileBrowserDialog::kFolderBit) != 0;
    if (firstIsFolder != secondIsFolder) return firstIsFolder ? -1 : 1;
    HWND shadow = reinterpret_cast<HWND>(shadowList);
    wchar_t firstText[MAX_PATH];
    wchar_t secondText[MAX_PATH];
    ListView_GetItemText(shadow, static_cast<int>(first & 0xFFFF), 0, firstText, MAX_PATH);
    ListView_GetItemText(shadow, static_cast<int>(second & 0xFFFF), 0, secondText, MAX_PATH);
    int order = CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, firstText, -1, secondText, -1);
    return order == 0 ? 0 : order - CSTR_EQUAL;
}

void SetFieldId(HWND field, int id) {
    if (field) SetWindowLongPtrW(field, GWLP_ID, id);
}

SharedString MakeShared(const wchar_t* text) {
    SharedString shared;
    shared.set(text);
    return shared;
}

void MoveChild(HWND child, int x, int y, int width, int height) {
    if (child) MoveWindow(child, x, y, width, height, TRUE);
}

}  // namespace

// ---- application-wide last folder -----------------------------------------------------------

const WString& BrowserLastFolder() {
    if (g_lastFolder.empty()) g_lastFolder.assign(L"\\");
    return g_lastFolder;
}

void SetBrowserLastFolder(const wchar_t* folder) {
    g_lastFolder.assign(folder);
    if (!EndsWith(g_lastFolder.c_str(), L"\\")) g_lastFolder.append(L"\\");
}

void LoadBrowserTexts(HMODULE languageLibrary, BrowserRequest* request) {
    struct TextId {
        UINT id;
        WString BrowserRequest::*text;
    };
    static const TextId kTexts[] = {
        {IDS_BROWSER_FILE_NAME_LABEL, &BrowserRequest::fileNameLabel},
        {IDS_BROWSER_EXTENSION_LABEL, &BrowserRequest::extensionLabel},
        {IDS_BROWSER_EMPTY_NAME, &BrowserRequest::emptyNameMessage},
        {IDS_BROWSER_ILLEGAL_NAME, &BrowserRequest::illegalNameMessage},
        {IDS_BROWSER_ERROR_CAPTION, &BrowserRequest::errorCaption},
    };
    for (const TextId& entry : kTexts) (request->*entry.text).load(languageLibrary, entry.id);
}

bool RunFileBrowser(BrowserRequest* request) {
    HINSTANCE instance = g_app.instance ? g_app.instance : GetModuleHandleW(nullptr);
    switch (request->kind) {
    case BrowserKind::SaveFile: {
        SaveFileDialog dialog(instance, request);
        return RunModal(instance, &dialog);
    }
    case BrowserKind::SelectFolder: {
        SelectFolderDialog dialog(instance, request);
        return RunModal(instance, &dialog);
    }
    case BrowserKind::LoadFile:
    default: {
        LoadFileDialog dialog(instance, request);
        return RunModal(instance, &dialog);
    }
    }
}

// ---- shared behaviour -----------------------------------------------------------------------

FileBrowserDialog::FileBrowserDialog(HINSTANCE instance, BrowserRequest* request)
    : DialogBase(instance, true), request_(request) {}

FileBrowserDialog::~FileBrowserDialog() = default;

INT_PTR FileBrowserDialog::DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_NOTIFY:
        if (OnNotify(reinterpret_cast<const NMHDR*>(lParam))) return 1;
        break;
    case WM_COMMAND:
        if (OnCommand(wParam, lParam)) return 1;
        break;
    case WM_LBUTTONDOWN:
        OnLButtonDown(static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam)));
        return 1;
    case WM_DESTROY:
        if (menuBar_ && IsWindow(menuBar_)) DestroyWindow(menuBar_);
        menuBar_ = nullptr;
        break;
    }
    return DialogBase::DialogProc(window, message, wParam, lParam);
}

HINSTANCE FileBrowserDialog::MenuInstance() const {
    return request_->menuInstance ? request_->menuInstance : g_app.languageLibrary;
}

HINSTANCE FileBrowserDialog::ImageInstance() const {
    return request_->imageInstance ? request_->imageInstance : g_app.displayLibrary;
}

void FileBrowserDialog::CreateMenuBar(HWND window) {
    SHMENUBARINFO info = {};
    info.cbSize = sizeof info;
    info.hwndParent = window;
    info.dwFlags = MenuBarFlags();
    info.nToolBarId = request_->menuBarId;
    info.hInstRes = MenuInstance();
    if (!SHCreateMenuBar(&info) || !info.hwndMB) return;
    menuBar_ = info.hwndMB;
    SendMessageW(menuBar_, SHCMBM_OVERRIDEKEY, kBackKey,
                 MAKELPARAM(kOverrideNoDefault | kOverrideNotify, kOverrideNoDefault | kOverrideNotify));

    // The resource's own two buttons give way to the OK and Cancel images.
    SendMessageW(menuBar_, TB_DELETEBUTTON, 0, 0);
    SendMessageW(menuBar_, TB_DELETEBUTTON, 0, 0);
    if (HINSTANCE images = ImageInstance()) {
        buttonImages_.reset(ImageList_LoadImageW(images, MAKEINTRESOURCEW(request_->buttonImagesId),
                                                 ScaleForDisplay(16), 0, kButtonMaskColour, IMAGE_BITMAP, 0));
    }
    SendMessageW(menuBar_, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(buttonImages_.get()));
    TBBUTTON buttons[2] = {};
    buttons[0].iBitmap = kOkImage;
    buttons[0].idCommand = IDOK;
    buttons[1].iBitmap = kCancelImage;
    buttons[1].idCommand = IDCANCEL;
    for (TBBUTTON& button : buttons) {
        button.fsState = TBSTATE_ENABLED;
        button.fsStyle = BTNS_BUTTON;
        button.iString = -1;
    }
    SendMessageW(menuBar_, TB_ADDBUTTONSW, 2, reinterpret_cast<LPARAM>(buttons));
}

SharedString FileBrowserDialog::GetTitle() { return MakeShared(TextOr(request_->title, DefaultTitle())); }

void FileBrowserDialog::OnPaint(HWND window, HDC dc, const PAINTSTRUCT& paint) {
    RECT client;
    GetClientRect(window, &client);
    FillRect(dc, &client, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    if (!upBitmap_) return;
    BITMAP bitmap;
    if (!GetObjectW(upBitmap_.get(), sizeof bitmap, &bitmap)) return;
    TransparentImage(dc, upRect_.left, upRect_.top, upRect_.right - upRect_.left, upRect_.bottom - upRect_.top,
                     upBitmap_.get(), 0, 0, bitmap.bmWidth, bitmap.bmHeight, kUpFolderKeyColour);
}

void FileBrowserDialog::PlaceRow(HWND label, HWND field, int width, int* y) {
    if (!field) return;
    int margin = ScaleForDisplay(10);
    int labelWidth = ScaleForDisplay(50);
    int rowHeight = ScaleForDisplay(20);
    int fieldX = margin + labelWidth + ScaleForDisplay(5);
    MoveChild(label, margin, *y + ScaleForDisplayY(3), labelWidth, rowHeight);
    MoveChild(field, fieldX, *y, width - fieldX - margin, rowHeight);
    *y += ScaleForDisplayY(24);
}

void FileBrowserDialog::Layout(HWND window, int width, int height) {
    int margin = ScaleForDisplay(10);
    int rowHeight = ScaleForDisplay(20);
    int icon = ScaleForDisplay(20);
    int y = ScaleForDisplayY(10);
    PlaceRow(nameLabel_, nameField_, width, &y);
    PlaceRow(extensionLabel_, extensionField_, width, &y);

    int iconX = width - margin - icon;
    MoveChild(pathField_, margin, y, iconX - ScaleForDisplay(4) - margin, rowHeight);
    SetRect(&upRect_, iconX, y, iconX + icon, y + icon);
    y += ScaleForDisplayY(24);

    int listBottom = height - ScaleForDisplayY(10);
    MoveChild(list_, margin, y, width - 2 * margin, listBottom > y ? listBottom - y : 0);
    if (list_) {
        RECT listClient;
        GetClientRect(list_, &listClient);
        ListView_SetColumnWidth(list_, 0, listClient.right);
        SetFocus(list_);
    }
    // The dialog does not clip its children: they are repainted after its white background.
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

BOOL FileBrowserDialog::OnInitDialog(HWND window) {
    window_ = window;
    currentFolder_ = BrowserLastFolder();
    if (HINSTANCE images = ImageInstance())
        upBitmap_.reset(LoadBitmapW(images, MAKEINTRESOURCEW(request_->upFolderImageId)));
    DialogBase::OnInitDialog(window);
    FillList();
    SelectItem(0);
    // The keyboard starts where the variant put it (the dialog manager's choice is not wanted).
    if (initialFocus_) SetFocus(initialFocus_);
    if (initialFocus_ == nameField_) SendMessageW(nameField_, EM_SETSEL, 0, -1);
    return FALSE;
}

void FileBrowserDialog::OnHotKey(WPARAM wParam, LPARAM lParam) {
    if (HIWORD(lParam) == kBackKey && (LOWORD(lParam) & kKeyUpModifier)) GoUp();
}

void FileBrowserDialog::OnLButtonDown(int x, int y) {
    POINT point = {x, y};
    if (PtInRect(&upRect_, point)) GoUp();
}

bool FileBrowserDialog::OnNotify(const NMHDR* header) {
    if (!header || header->hwndFrom != list_) return false;
    switch (header->code) {
    case LVN_ITEMACTIVATE:
        ActivateItem();
        return true;
    case LVN_DELETEALLITEMS:
        // No notification per deleted item: refilling a long list stays quick.
        SetWindowLongPtrW(window_, DWLP_MSGRESULT, TRUE);
        return true;
    default:
        return false;
    }
}

bool FileBrowserDialog::OnCommand(WPARAM wParam, LPARAM lParam) {
    switch (LOWORD(wParam)) {
    case IDOK:
        OnOk();
        return true;
    case IDCANCEL:
        EndDialog(window_, 0);
        return true;
    default:
        return false;
    }
}

bool FileBrowserDialog::AcceptEntry(bool isFolder, const wchar_t* name, const wchar_t* extension) {
    return isFolder || EndsWith(name, extension);
}

DWORD FileBrowserDialog::MenuBarFlags() { return kMenuBarWithoutSip; }

void FileBrowserDialog::AddPathAndList(HWND window, HWND initialFocus) {
    pathField_ = AddEdit(window, MakeShared(currentFolder_.c_str()), true);
    SetFieldId(pathField_, kBrowserPathField);
    list_ = AddList(window, L"", 0);
    SetFieldId(list_, kBrowserList);
    int iconSize = ScaleForDisplay(16);
    smallIcons_ = ImageList_Create(iconSize, iconSize, ILC_COLOR32 | ILC_MASK, 0, kImageListGrowth);
    ListView_SetImageList(list_, smallIcons_, LVSIL_SMALL);
    ListView_SetExtendedListViewStyle(list_, LVS_EX_ONECLICKACTIVATE);
    LVCOLUMNW column = {};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.pszText = const_cast<wchar_t*>(L"List Column");
    column.cx = ScaleForDisplay(100);
    ListView_InsertColumn(list_, 0, &column);
    initialFocus_ = initialFocus ? initialFocus : list_;
    SetFocus(initialFocus_);
}

HWND FileBrowserDialog::AddLabeledField(HWND window, const WString& label, const wchar_t* fallback,
                                        const wchar_t* text, bool readOnly, int id, HWND* labelOut) {
    *labelOut = AddLabel(window, TextOr(label, fallback));
    HWND field = AddEdit(window, MakeShared(text), readOnly);
    SetFieldId(field, id);
    return field;
}

// The shell shows every folder, and every file of an ordinary type, with the icon of its kind:
// that icon is fetched once per fill and shared. Files that carry their own icon are asked for
// one by one.
int FileBrowserDialog::SmallIconFor(const wchar_t* name, DWORD attributes) {
    if (attributes & FILE_ATTRIBUTE_DIRECTORY) {
        if (folderIcon_ == kNoIconYet) folderIcon_ = AddShellIcon(name, attributes, true);
        return folderIcon_;
    }
    const wchar_t* dot = wcsrchr(name, L'.');
    const wchar_t* extension = dot ? dot + 1 : L"";
    for (const wchar_t* own : kOwnIconExtensions) {
        if (_wcsicmp(extension, own) == 0) return AddShellIcon(name, attributes, false);
    }
    for (const TypeIcon& known : typeIcons_) {
        if (_wcsicmp(known.extension.c_str(), extension) == 0) return known.image;
    }
    TypeIcon added;
    added.extension.assign(extension);
    added.image = AddShellIcon(name, attributes, true);
    typeIcons_.push_back(added);
    return added.image;
}

int FileBrowserDialog::AddShellIcon(const wchar_t* name, DWORD attributes, bool byTypeOnly) {
    WString path(currentFolder_);
    path.append(name);
    // A folder given from the root of the current drive (\My Documents\) is made absolute
    // for the shell, which does not resolve it.
    wchar_t fullPath[MAX_PATH];
    DWORD length = GetFullPathNameW(path.c_str(), MAX_PATH, fullPath, nullptr);
    const wchar_t* shellPath = length > 0 && length < MAX_PATH ? fullPath : path.c_str();
    UINT flags = SHGFI_ICON | SHGFI_SMALLICON | (byTypeOnly ? SHGFI_USEFILEATTRIBUTES : 0);
    SHFILEINFOW info = {};
    if (!SHGetFileInfoW(shellPath, attributes, &info, sizeof info, flags) || !info.hIcon) return -1;
    int image = ImageList_AddIcon(smallIcons_, info.hIcon);
    DestroyIcon(info.hIcon);
    return image;
}

int FileBrowserDialog::AddEntries(HWND shadow) {
    WString pattern(currentFolder_);
    pattern.append(L"*");
    WIN32_FIND_DATAW entry;
    FindHandle find(FindFirstFileW(pattern.c_str(), &entry));
    if (!find) return 0;
    int count = 0;
    do {
        if (IsDotEntry(entry.cFileName)) continue;
        bool isFolder = (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        if (!AcceptEntry(isFolder, entry.cFileName, request_->extension.c_str())) continue;
        LVITEMW item = {};
        item.mask = LVIF_TEXT | LVIF_IMAGE | LVIF_PARAM;
        item.iItem = count;
        item.pszText = entry.cFileName;
        item.iImage = SmallIconFor(entry.cFileName, entry.dwFileAttributes);
        item.lParam = count | (isFolder ? kFolderBit : 0);
        ListView_InsertItem(list_, &item);
        item.mask = LVIF_TEXT;
        ListView_InsertItem(shadow, &item);
        ++count;
    } while (count < kMaxEntries && FindNextFileW(find.get(), &entry));
    return count;
}

void FileBrowserDialog::FillList() {
    HCURSOR previousCursor = SetCursor(LoadCursorW(nullptr, IDC_WAIT));
    SetWindowTextW(pathField_, currentFolder_.c_str());
    SendMessageW(list_, WM_SETREDRAW, FALSE, 0);
    ListView_DeleteAllItems(list_);
    ImageList_RemoveAll(smallIcons_);
    typeIcons_.clear();
    folderIcon_ = kNoIconYet;

    // The shadow list hangs below a hidden message-only window, so that its notifications (one per
    // item inserted or deleted) do not pass through the dialog.
    HWND shadowHost = CreateWindowExW(0, L"static", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, instance_, nullptr);
    HWND shadow = CreateWindowExW(0, WC_LISTVIEWW, L"", WS_CHILD | LVS_REPORT | LVS_NOCOLUMNHEADER, 0, 0, 0, 0,
                                  shadowHost, nullptr, instance_, nullptr);
    SendMessageW(shadow, WM_SETREDRAW, FALSE, 0);
    AddEntries(shadow);
    ListView_SortItems(list_, CompareEntries, reinterpret_cast<LPARAM>(shadow));
    DestroyWindow(shadowHost);

    RECT listClient;
    GetClientRect(list_, &listClient);
    ListView_SetColumnWidth(list_, 0, listClient.right);
    SendMessageW(list_, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list_, nullptr, TRUE);
    SetCursor(previousCursor);
}

void FileBrowserDialog::SelectItem(int index) {
    if (index < 0 || index >= ListView_GetItemCount(list_)) return;
    UINT state = LVIS_SELECTED | LVIS_FOCUSED;
    ListView_SetItemState(list_, index, state, state);
    ListView_SetSelectionMark(list_, index);
    ListView_EnsureVisible(list_, index, FALSE);
}

int FileBrowserDialog::SelectedItem(wchar_t* name, int capacity, LPARAM* parameter) const {
    int index = ListView_GetNextItem(list_, -1, LVNI_SELECTED);
    if (index < 0) return -1;
    LVITEMW item = {};
    item.mask = LVIF_TEXT | LVIF_PARAM;
    item.iItem = index;
    item.pszText = name;
    item.cchTextMax = capacity;
    name[0] = L'\0';
    if (!ListView_GetItem(list_, &item)) return -1;
    *parameter = item.lParam;
    return index;
}

void FileBrowserDialog::GoUp() {
    int length = currentFolder_.length();
    const wchar_t* folder = currentFolder_.c_str();
    // The parent ends at the last backslash before the trailing one; a root has none.
    int cut = length - 2;
    while (cut >= 0 && folder[cut] != L'\\') --cut;
    if (cut < 0) return;
    std::vector<wchar_t> left(folder + cut + 1, folder + length - 1);
    left.push_back(L'\0');
    std::vector<wchar_t> parent(folder, folder + cut + 1);
    parent.push_back(L'\0');
    currentFolder_.assign(parent.data());
    FillList();

    int count = ListView_GetItemCount(list_);
    wchar_t text[MAX_PATH];
    for (int i = 0; i < count; ++i) {
        ListView_GetItemText(list_, i, 0, text, MAX_PATH);
        if (wcscmp(text, left.data()) == 0) {
            SelectItem(i);
            break;
        }
    }
    SetFocus(list_);
}

void FileBrowserDialog::ActivateItem() {
    int mark = ListView_GetSelectionMark(list_);
    if (mark < 0) return;
    wchar_t name[kNameCapacity] = L"";
    LVITEMW item = {};
    item.mask = LVIF_TEXT | LVIF_PARAM;
    item.iItem = mark;
    item.pszText = name;
    item.cchTextMax = kNameCapacity;
    if (!ListView_GetItem(list_, &item) || !(item.lParam & kFolderBit)) return;
    currentFolder_.append(name);
    currentFolder_.append(L"\\");
    FillList();
    SelectItem(0);
}

void FileBrowserDialog::Confirm(const wchar_t* result) {
    request_->result.assign(result);
    SetBrowserLastFolder(currentFolder_.c_str());
    EndDialog(window_, 1);
}

// ---- Load File ------------------------------------------------------------------------------

void LoadFileDialog::CreateControls(HWND window) {
    const wchar_t* shown = TextOr(request_->description, request_->extension.c_str());
    extensionField_ = AddLabeledField(window, request_->extensionLabel, L"Extension", shown, true,
                                      kBrowserExtensionField, &extensionLabel_);
    AddPathAndList(window, nullptr);
}

void LoadFileDialog::OnOk() {
    wchar_t name[kNameCapacity];
    LPARAM parameter = 0;
    if (SelectedItem(name, kNameCapacity, &parameter) < 0 || (parameter & kFolderBit)) return;
    WString path(currentFolder_);
    path.append(name);
    Confirm(path.c_str());
}

// ---- Save File ------------------------------------------------------------------------------

void SaveFileDialog::CreateControls(HWND window) {
    nameField_ = AddLabeledField(window, request_->fileNameLabel, L"File Name", request_->initialName.c_str(), false,
                                 kBrowserNameField, &nameLabel_);
    const wchar_t* shown = TextOr(request_->description, request_->extension.c_str());
    extensionField_ = AddLabeledField(window, request_->extensionLabel, L"Extension", shown, true,
                                      kBrowserExtensionField, &extensionLabel_);
    AddPathAndList(window, nameField_);
    SetWindowLongPtrW(list_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    previousListProc_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(list_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&SaveFileDialog::ListProc)));
}

LRESULT CALLBACK SaveFileDialog::ListProc(HWND list, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* dialog = reinterpret_cast<SaveFileDialog*>(GetWindowLongPtrW(list, GWLP_USERDATA));
    WNDPROC previous = dialog->previousListProc_;
    // Up from the first item leaves the list for the name field.
    if (message == WM_KEYDOWN && wParam == VK_UP && ListView_GetSelectionMark(list) == 0)
        SetFocus(dialog->nameField_);
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(list, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(previous));
        SetWindowLongPtrW(list, GWLP_USERDATA, 0);
    }
    return CallWindowProcW(previous, list, message, wParam, lParam);
}

DWORD SaveFileDialog::MenuBarFlags() { return kMenuBarFromResource; }

void SaveFileDialog::OnOk() {
    wchar_t name[kNameCapacity] = L"";
    GetWindowTextW(nameField_, name, kNameCapacity);
    const wchar_t* problem = nullptr;
    if (name[0] == L'\0')
        problem = TextOr(request_->emptyNameMessage, L"File name value is missing");
    else if (wcspbrk(name, kIllegalNameCharacters))
        problem = TextOr(request_->illegalNameMessage, L"File name include illegal characters");
    if (problem) {
        MessageBoxW(window_, problem, TextOr(request_->errorCaption, L"File Name Error"), MB_OK | MB_ICONSTOP);
        return;
    }
    // The extension is appended even when the name already ends with it.
    WString path(currentFolder_);
    path.append(name);
    path.append(L".");
    path.append(request_->extension.c_str());
    Confirm(path.c_str());
}

// ---- Select Folder --------------------------------------------------------------------------

void SelectFolderDialog::CreateControls(HWND window) { AddPathAndList(window, nullptr); }

bool SelectFolderDialog::AcceptEntry(bool isFolder, const wchar_t* name, const wchar_t* extension) {
    return isFolder;
}

void SelectFolderDialog::OnOk() { Confirm(currentFolder_.c_str()); }
