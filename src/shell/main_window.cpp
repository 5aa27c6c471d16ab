#include "shell/main_window.h"

#include <commctrl.h>

#include "dialogs/icon_chooser.h"
#include "files/categories.h"
#include "files/filters.h"
#include "platform/device_window.h"
#include "settings/key_table.h"
#include "settings/registry_values.h"
#include "settings/settings.h"
#include "shell/about_box.h"
#include "shell/backup_commands.h"
#include "shell/item_icons.h"
#include "shell/page_factory.h"
#include "shell/settings_page.h"
#include "support/app_state.h"
#include "support/display_scale.h"
#include "support/language_text.h"

const wchar_t kMainWindowClass[] = L"QL_OPTIONS";
const wchar_t kMainWindowTitle[] = L"QL Options";

namespace {

const DWORD kMainWindowStyle = 0x14000800;  // visible, clip children, and the device's low bit
const DWORD kPageListStyle = 0x5001C104;    // icon view, single selection, auto arrange, no header
const DWORD kPageListExtendedStyle = 0x10000040;  // one-click activation, no horizontal scroll bar
const UINT kMainMenuId = 102;
const int kMenuItemsRemovedAt = 5;
const UINT kToolbarBitmapId = 114;
const COLORREF kToolbarMask = 0x00C6CFDE;
const UINT kPageBitmapId = 116;
const COLORREF kPageMask = 0x0000FF00;
const UINT kCancelQuestionId = 40216;

// Page titles in page-list order; 40226 is not a page.
const UINT kPageTitleIds[12] = {40220, 40221, 40222, 40981, 41174, 40982, 40223, 40224, 40225, 40227, 40228, 40229};

HFONT CreateTahoma(int weight) {
    LOGFONTW font = {};
    font.lfHeight = ScaleForDisplay(12);
    font.lfWeight = weight;
    lstrcpyW(font.lfFaceName, L"Tahoma");
    return CreateFontIndirectW(&font);
}

void LoadDisplayLibrary() {
    WString path(g_settings.programFilesFolder());
    path.append(ScaleForDisplay(1) > 1 ? L"\\Orvane\\Quillory\\HighDpiRes.dll" : L"\\Orvane\\Quillory\\LowDpiRes.dll");
    g_app.displayLibrary = LoadLibraryW(path.c_str());
}

HWND CreateMainMenuBar(HWND window) {
    SHMENUBARINFO info = {};
    info.cbSize = kDeviceMenuBarInfoSize;
    info.hwndParent = window;
    info.dwFlags = SHCMBF_HMENU;
    info.nToolBarId = kMainMenuId;
    info.hInstRes = g_app.languageLibrary;
    if (!SHCreateMenuBar(&info)) return nullptr;
    HWND bar = info.hwndMB;

    HMENU menu = reinterpret_cast<HMENU>(SendMessageW(bar, SHCMBM_GETMENU, 0, 0));
    HMENU second = GetSubMenu(menu, 1);
    DeleteMenu(second, kMenuItemsRemovedAt, MF_BYPOSITION);
    DeleteMenu(second, kMenuItemsRemovedAt, MF_BYPOSITION);
    SendMessageW(bar, TB_DELETEBUTTON, 0, 0);

    g_app.toolbarImages = ImageList_LoadImageW(g_app.displayLibrary, MAKEINTRESOURCEW(kToolbarBitmapId),
                                               ScaleForDisplay(16), 0, kToolbarMask, IMAGE_BITMAP, LR_CREATEDIBSECTION);
    SendMessageW(bar, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(g_app.toolbarImages));
    TBBUTTON buttons[2] = {};
    buttons[0].iBitmap = 1;
    buttons[0].idCommand = kCommandDone;
    buttons[0].fsState = TBSTATE_ENABLED;
    buttons[1].iBitmap = 0;
    buttons[1].idCommand = kCommandCancel;
    buttons[1].fsState = TBSTATE_ENABLED;
    SendMessageW(bar, TB_ADDBUTTONSW, 2, reinterpret_cast<LPARAM>(buttons));
    return bar;
}

HWND CreatePageList(HWND window) {
    RECT client = {};
    GetClientRect(window, &client);
    HWND list = CreateWindowExW(0, WC_LISTVIEWW, L"", kPageListStyle, 0, 0, client.right, client.bottom, window,
                                nullptr, g_app.instance, nullptr);
    if (!list) return nullptr;
    SendMessageW(list, WM_SETFONT, reinterpret_cast<WPARAM>(g_app.boldFont), TRUE);
    SendMessageW(list, LVM_DELETECOLUMN, 0, 0);
    SendMessageW(list, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, kPageListExtendedStyle);

    g_app.pageImages = ImageList_LoadImageW(g_app.displayLibrary, MAKEINTRESOURCEW(kPageBitmapId),
                                            ScaleForDisplay(32), 0, kPageMask, IMAGE_BITMAP, LR_CREATEDIBSECTION);
    SendMessageW(list, LVM_SETIMAGELIST, LVSIL_NORMAL, reinterpret_cast<LPARAM>(g_app.pageImages));

    LVCOLUMNW column = {};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.cx = client.right;
    column.pszText = const_cast<wchar_t*>(L"List Column");
    SendMessageW(list, LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
    SendMessageW(list, LVM_DELETEALLITEMS, 0, 0);

    for (int i = 0; i < kPageCount; ++i) {
        WString title = LanguageText(kPageTitleIds[i]);
        LVITEMW item = {};
        item.mask = LVIF_TEXT | LVIF_IMAGE;
        item.iItem = i;
        item.iImage = i;
        item.pszText = const_cast<wchar_t*>(title.c_str());
        SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
    }
    return list;
}

void OnCreate(HWND window) {
    g_app.currentPage = nullptr;
    g_app.toolbarImages = nullptr;
    g_app.menuBar = nullptr;
    g_app.languageLibrary = nullptr;
    g_app.activateInfo = SHACTIVATEINFO();
    g_app.activateInfo.cbSize = kDeviceActivateInfoSize;

    SetVgaMode(ReadDword(KeyRoot(kKeyGeneral), KeyPath(kKeyGeneral), L"MyVgaMode", 0) != 0);
    LoadSettings();
    LoadDisplayLibrary();
    g_app.menuBar = CreateMainMenuBar(window);
    LoadItemIcons();
    g_app.normalFont = CreateTahoma(FW_NORMAL);
    g_app.boldFont = CreateTahoma(FW_BOLD);
    LoadCategories();
    g_app.pageList = CreatePageList(window);
    SetFocus(g_app.pageList);
}

void OnDestroy() {
    DestroyWindow(g_app.pageList);
    g_app.pageList = nullptr;
    if (g_app.pageImages) ImageList_Destroy(g_app.pageImages);
    g_app.pageImages = nullptr;
    DeleteObject(g_app.normalFont);
    DeleteObject(g_app.boldFont);
    g_app.normalFont = nullptr;
    g_app.boldFont = nullptr;
    DestroyWindow(g_app.menuBar);
    g_app.menuBar = nullptr;
    if (g_app.toolbarImages) ImageList_Destroy(g_app.toolbarImages);
    g_app.toolbarImages = nullptr;
    FreeItemIcons();
    if (g_app.languageLibrary) FreeLibrary(g_app.languageLibrary);
    g_app.languageLibrary = nullptr;
    if (g_app.displayLibrary) FreeLibrary(g_app.displayLibrary);
    g_app.displayLibrary = nullptr;
    PostQuitMessage(0);
}

void CloseCurrentPage(HWND window) {
    SettingsPage* page = g_app.currentPage;
    if (!page) return;
    if (page->window()) DestroyWindow(page->window());  // the page stores its values here
    delete page;
    g_app.currentPage = nullptr;
    SetWindowTextW(window, kMainWindowTitle);
}

void OpenPage(HWND window, int index) {
    if (index < 0 || index >= kPageCount) return;
    wchar_t title[256] = {};
    LVITEMW item = {};
    item.iSubItem = 0;
    item.pszText = title;
    item.cchTextMax = 256;
    SendMessageW(g_app.pageList, LVM_GETITEMTEXTW, index, reinterpret_cast<LPARAM>(&item));
    SetWindowTextW(window, title);
    g_app.currentPage = CreatePage(window, index);
    if (g_app.currentPage && g_app.currentPage->window()) BringWindowToTop(g_app.currentPage->window());
}

int FocusedPage() {
    return static_cast<int>(SendMessageW(g_app.pageList, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED));
}

// A tap activates the icon under it and names it in the notification. The keyboard's Enter (the
// device's action key) names no item: the list sends NM_RETURN and then an activation that is a
// bare header, so it is answered here, for the focused icon, and the bare activation is not sent.
LRESULT OnPageListNotify(HWND window, const NMHDR* header) {
    if (header->hwndFrom != g_app.pageList || g_app.currentPage) return 0;
    if (header->code == static_cast<UINT>(NM_RETURN)) {
        OpenPage(window, FocusedPage());
        return 1;
    }
    if (header->code == static_cast<UINT>(LVN_ITEMACTIVATE))
        OpenPage(window, reinterpret_cast<const NMITEMACTIVATE*>(header)->iItem);
    return 0;
}

void SaveAndClose(HWND window) {
    SaveSettings();
    SaveCategoryLook(g_categories);
    WriteFiltersFile(g_filters, FiltersFilePath().c_str());
    PostSettingsChanged();
    DestroyWindow(window);
}

void AskCancel(HWND window) {
    if (LibraryMessageBox(window, kCancelQuestionId, MB_YESNO) == IDYES) DestroyWindow(window);
}

void OnCommand(HWND window, UINT command) {
    switch (command) {
    case kCommandDone:
        if (g_app.currentPage)
            CloseCurrentPage(window);
        else
            SaveAndClose(window);
        break;
    case kCommandCancel:
        AskCancel(window);
        break;
    case kCommandAbout:
        ShowAboutBox(window);
        break;
    case kCommandExport:
        RunExportCommand(window);
        break;
    case kCommandImport:
        RunImportCommand(window);
        break;
    case kCommandIconSet:
        if (ChooseIconSet(window)) LoadItemIcons();  // pages opened from now on show the chosen set
        break;
    default:
        break;  // unknown commands are ignored
    }
}

// Keeps the page list, and an open page, over the client area.
void FitChildren(HWND window) {
    RECT client = {};
    GetClientRect(window, &client);
    SetWindowPos(g_app.pageList, nullptr, 0, 0, client.right, client.bottom, SWP_NOZORDER | SWP_NOREDRAW);
    if (g_app.currentPage && g_app.currentPage->window()) {
        MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&client), 2);
        SetWindowPos(g_app.currentPage->window(), nullptr, client.left, client.top, client.right - client.left,
                     client.bottom - client.top, SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

}  // namespace

LRESULT CALLBACK MainWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CREATE:
        OnCreate(window);
        return 0;
    case WM_DESTROY:
        OnDestroy();
        return 0;
    case WM_MOVE:
    case WM_SIZE:
        FitChildren(window);
        return message == WM_SIZE ? DefWindowProcW(window, message, wParam, lParam) : 0;
    case WM_ACTIVATE:
        SHHandleWMActivate(window, wParam, lParam, &g_app.activateInfo, 0);
        return 0;
    case WM_SETTINGCHANGE:
        SHHandleWMSettingChange(window, wParam, lParam, &g_app.activateInfo);
        return 0;
    case WM_NOTIFY:
        return OnPageListNotify(window, reinterpret_cast<NMHDR*>(lParam));
    case WM_COMMAND:
        OnCommand(window, LOWORD(wParam));
        return 0;
    case kClosePageMessage:
        // wParam 0: the page's OK. Otherwise the page window that was destroyed on its own (a
        // loaded colour scheme closes its page); only that page is closed, never a later one.
        if (!wParam || (g_app.currentPage && g_app.currentPage->window() == reinterpret_cast<HWND>(wParam)))
            CloseCurrentPage(window);
        return 0;
    default:
        return DefWindowProcW(window, message, wParam, lParam);
    }
}

bool RegisterMainWindowClass(HINSTANCE instance) {
    WNDCLASSW windowClass = {};
    windowClass.style = CS_HREDRAW | CS_VREDRAW;
    windowClass.lpfnWndProc = MainWindowProc;
    windowClass.hInstance = instance;
    windowClass.hIcon = LoadIconW(instance, MAKEINTRESOURCEW(101));
    windowClass.hbrBackground = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
    windowClass.lpszClassName = kMainWindowClass;
    return RegisterClassW(&windowClass) != 0;
}

HWND CreateMainWindow(HINSTANCE instance) {
    return CreateDeviceWindow(WS_EX_CAPTIONOKBTN, kMainWindowClass, kMainWindowTitle, kMainWindowStyle, CW_USEDEFAULT,
                              CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, nullptr, nullptr, instance, nullptr);
}
