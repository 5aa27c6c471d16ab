#include "shell/settings_page.h"

#include <commctrl.h>

#include <cstdlib>

#include "platform/device_window.h"
#include "support/app_state.h"
#include "support/display_scale.h"
#include "support/language_text.h"
#include "support/surface_colours.h"

namespace {

const DWORD kPageWindowStyle = 0x90000800;  // popup, visible, and the device's low bit
const DWORD kSectionTabsStyle = 0x50000002;  // child, visible, tabs along the bottom
const WPARAM kDeviceTabLookVersion = 524;
const int kLargestControlCount = 0x3FFFFFFF;

const DWORD kEditStyle = 0x40800080;          // child, border, auto horizontal scroll
const DWORD kReadOnlyEditStyle = 0x40800880;  // the same, read-only
const DWORD kListStyle = 0x4081C105;          // report view, single selection, no header, border, tab stop
const DWORD kListExtendedStyle = 0x10000020;  // full-row selection, no horizontal scroll bar
const DWORD kCheckBoxStyle = 0x223;           // auto check box, text left of the box, right aligned
const DWORD kComboStyle = 0x40210000;         // child, vertical scroll bar, tab stop

const UINT kClearButtonTextId = 40481;
const UINT kBrowseButtonTextId = 40478;

}  // namespace

SettingsPage::SettingsPage()
    : pageWindow_(nullptr),
      menuBar_(nullptr),
      imageList_(nullptr),
      controlCount_(0),
      auxiliary_(nullptr),
      activateInfo_(),
      controls_(nullptr),
      sectionTabs_(nullptr),
      normalFont_(nullptr),
      boldFont_(nullptr),
      instance_(nullptr) {}

SettingsPage::~SettingsPage() { UnregisterClassW(className_.c_str(), instance_); }

LRESULT SettingsPage::OnPaint(HWND window, UINT, WPARAM, LPARAM) {
    PAINTSTRUCT paint;
    BeginPaint(window, &paint);
    EndPaint(window, &paint);
    return 0;
}
LRESULT SettingsPage::OnLButtonDown(HWND, UINT, WPARAM, LPARAM) { return 0; }
LRESULT SettingsPage::OnDrawItem(HWND, UINT, WPARAM, LPARAM) { return 0; }
LRESULT SettingsPage::OnMeasureItem(HWND, UINT, WPARAM, LPARAM) { return 0; }
LRESULT SettingsPage::OnMarkerSelected(HWND, UINT, WPARAM, LPARAM) { return 0; }
LRESULT SettingsPage::OnMarkerToggled(HWND, UINT, WPARAM, LPARAM) { return 0; }
LRESULT SettingsPage::OnCommand(HWND, UINT, WPARAM, LPARAM) { return 0; }
LRESULT SettingsPage::OnMove(HWND) { return 0; }
LRESULT SettingsPage::OnNotify(HWND, int, NMHDR*) { return 0; }

HWND SettingsPage::control(int number) const {
    if (!controls_ || number < 0 || number >= controlCount_) return nullptr;
    return controls_[number];
}

int SettingsPage::ControlNumberOf(HWND child) const {
    if (!child) return -1;
    for (int i = 0; i < controlCount_ && controls_; ++i)
        if (controls_[i] == child) return i;
    return -1;
}

int SettingsPage::CurrentSection() const {
    return sectionTabs_ ? static_cast<int>(SendMessageW(sectionTabs_, TCM_GETCURSEL, 0, 0)) : -1;
}

void SettingsPage::ShowControls(int first, int last, int showCommand) const {
    for (int i = first; i <= last; ++i)
        if (HWND child = control(i)) ShowWindow(child, showCommand);
}

void SettingsPage::EnableControl(int number, bool enabled) const {
    if (HWND child = control(number)) EnableWindow(child, enabled);
}

bool SettingsPage::IsChecked(int number) const {
    HWND child = control(number);
    return child && SendMessageW(child, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

int SettingsPage::Selection(int number) const {
    HWND child = control(number);
    return child ? static_cast<int>(SendMessageW(child, CB_GETCURSEL, 0, 0)) : -1;
}

int SettingsPage::ClientWidth() const {
    RECT client = {};
    GetClientRect(pageWindow_, &client);
    return client.right;
}

int SettingsPage::ClientHeight() const {
    RECT client = {};
    GetClientRect(pageWindow_, &client);
    return client.bottom;
}

// ---- window procedure ------------------------------------------------------------------------

LRESULT CALLBACK SettingsPage::WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_CREATE) {
        auto* create = reinterpret_cast<CREATESTRUCTW*>(lParam);
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
    }
    auto* page = reinterpret_cast<SettingsPage*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        // A page window destroyed by the page itself leaves the main window holding a page
        // without a window: it is told, and closes that page unless it has already done so.
        if (page) PostMessageW(GetParent(window), kClosePageMessage, reinterpret_cast<WPARAM>(window), 0);
    }
    if (!page) return DefWindowProcW(window, message, wParam, lParam);
    return page->Dispatch(window, message, wParam, lParam);
}

LRESULT SettingsPage::Dispatch(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CREATE:
        OnCreate(window);
        return 0;
    case WM_DESTROY:
        OnDestroy();
        return 0;
    case WM_MOVE:
        if (sectionTabs_) PlaceSectionTabs();
        OnMove(window);
        return 0;
    case WM_ACTIVATE:
        SHHandleWMActivate(window, wParam, lParam, &activateInfo_, 0);
        return 0;
    case WM_SETTINGCHANGE:
        SHHandleWMSettingChange(window, wParam, lParam, &activateInfo_);
        return 0;
    case WM_PAINT:
        return OnPaint(window, message, wParam, lParam);
    case WM_DRAWITEM:
        return OnDrawItem(window, message, wParam, lParam);
    case WM_MEASUREITEM:
        return OnMeasureItem(window, message, wParam, lParam);
    case WM_NOTIFY: {
        auto* header = reinterpret_cast<NMHDR*>(lParam);
        if (header->code == static_cast<UINT>(TCN_SELCHANGING))
            ShowSection(window, SW_HIDE);
        else if (header->code == static_cast<UINT>(TCN_SELCHANGE))
            ShowSection(window, SW_SHOW);
        else
            OnNotify(window, static_cast<int>(wParam), header);
        return 0;
    }
    case WM_COMMAND:
        if (LOWORD(wParam) == IDOK) {
            SendMessageW(GetParent(window), kClosePageMessage, 0, 0);
            return 0;
        }
        return OnCommand(window, message, wParam, lParam);
    case WM_LBUTTONDOWN:
        return OnLButtonDown(window, message, wParam, lParam);
    case WM_CTLCOLORSTATIC:
        if (HBRUSH brush = WhiteSurfaceBrush(reinterpret_cast<HWND>(lParam), reinterpret_cast<HDC>(wParam)))
            return reinterpret_cast<LRESULT>(brush);
        return DefWindowProcW(window, message, wParam, lParam);
    case kMarkerToggledMessage:
        return OnMarkerToggled(window, message, wParam, lParam);
    case kMarkerSelectedMessage:
        return OnMarkerSelected(window, message, wParam, lParam);
    default:
        return DefWindowProcW(window, message, wParam, lParam);
    }
}

void SettingsPage::OnCreate(HWND window) {
    pageWindow_ = window;
    activateInfo_ = SHACTIVATEINFO();
    activateInfo_.cbSize = kDeviceActivateInfoSize;

    SHMENUBARINFO bar = {};
    bar.cbSize = kDeviceMenuBarInfoSize;
    bar.hwndParent = window;
    bar.dwFlags = SHCMBF_EMPTYBAR;
    bar.hInstRes = instance_;
    menuBar_ = SHCreateMenuBar(&bar) ? bar.hwndMB : nullptr;

    if (GetSectionCount() >= 1) {
        sectionTabs_ = CreateWindowExW(0, WC_TABCONTROLW, L"", kSectionTabsStyle, 0, 0, 0, 0, window, nullptr,
                                       instance_, nullptr);
        PlaceSectionTabs();
        SendMessageW(sectionTabs_, CCM_SETVERSION, kDeviceTabLookVersion, 0);
        for (int index = 0; index < GetSectionCount(); ++index) {
            WString title = LanguageText(GetSectionTitleId(index));
            TCITEMW item = {};
            item.mask = TCIF_TEXT;
            item.pszText = const_cast<wchar_t*>(title.c_str());
            SendMessageW(sectionTabs_, TCM_INSERTITEMW, index, reinterpret_cast<LPARAM>(&item));
        }
    }

    int count = GetControlCount();
    if (count < 0 || count > kLargestControlCount) count = 0;
    controlCount_ = count;
    controls_ = static_cast<HWND*>(calloc(count > 0 ? count : 1, sizeof(HWND)));
    if (!controls_) controlCount_ = 0;

    CreateControls(window);
    ShowSection(window, SW_SHOW);
}

// The tabs span the bottom edge, overlapping both side borders, their top one pixel below the
// line the design puts them at.
void SettingsPage::PlaceSectionTabs() {
    RECT client = {};
    GetClientRect(pageWindow_, &client);
    int x = ScaleForDisplay(-2);
    int y = client.bottom - ScaleForDisplay(22) + 1;
    int width = client.right + ScaleForDisplay(2);
    int height = ScaleForDisplay(22) - 1;
    MoveWindow(sectionTabs_, x, y, width, height, FALSE);
}

void SettingsPage::OnDestroy() {
    StoreValues(pageWindow_);
    for (int i = 0; i < controlCount_; ++i) {
        if (controls_[i]) {
            DestroyWindow(controls_[i]);
            controls_[i] = nullptr;
        }
    }
    free(controls_);
    controls_ = nullptr;
    controlCount_ = 0;
    if (sectionTabs_) {
        DestroyWindow(sectionTabs_);
        sectionTabs_ = nullptr;
    }
    if (menuBar_) {
        DestroyWindow(menuBar_);
        menuBar_ = nullptr;
    }
    if (imageList_) {
        ImageList_Destroy(imageList_);
        imageList_ = nullptr;
    }
    delete auxiliary_;
    auxiliary_ = nullptr;
}

HWND CreatePageWindow(SettingsPage* page, HWND parent, const wchar_t* className, HINSTANCE instance,
                      HFONT normalFont, HFONT boldFont) {
    page->sectionTabs_ = nullptr;
    page->auxiliary_ = nullptr;
    page->menuBar_ = nullptr;
    page->imageList_ = nullptr;
    page->className_.assign(className);
    page->normalFont_ = normalFont;
    page->boldFont_ = boldFont;
    page->instance_ = instance;

    WNDCLASSW windowClass = {};
    windowClass.style = CS_HREDRAW | CS_VREDRAW;
    windowClass.lpfnWndProc = SettingsPage::WindowProc;
    windowClass.hInstance = instance;
    windowClass.hbrBackground = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
    windowClass.lpszClassName = className;
    RegisterClassW(&windowClass);  // a class left by an earlier page of the same kind is fine

    RECT area = {};
    GetClientRect(parent, &area);
    MapWindowPoints(parent, nullptr, reinterpret_cast<POINT*>(&area), 2);
    HWND window = CreateDeviceWindow(WS_EX_CAPTIONOKBTN, className, className, kPageWindowStyle, area.left, area.top,
                                     area.right - area.left, area.bottom - area.top, parent, nullptr, instance, page);
    if (window) {
        page->pageWindow_ = window;
        ShowWindow(window, SW_SHOW);
        UpdateWindow(window);
    }
    return window;
}

// ---- control factory -------------------------------------------------------------------------

HWND SettingsPage::CreateChild(int number, const wchar_t* className, const wchar_t* text, DWORD style, int x, int y,
                               int width, int height) {
    HWND child = CreateWindowExW(0, className, text, style, x, y, width, height, pageWindow_,
                                 reinterpret_cast<HMENU>(static_cast<INT_PTR>(kPageControlIdBase + number)),
                                 instance_, nullptr);
    if (number >= 0 && number < controlCount_) controls_[number] = child;
    if (child) SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(normalFont_), TRUE);
    return child;
}

void SettingsPage::CreateLabel(int number, UINT textId, int x, int y, int width, int height, DWORD style) {
    CreateChild(number, L"static", LanguageText(textId).c_str(), style | WS_CHILD, x, y, width, height);
}

LRESULT SettingsPage::CreateEdit(int number, const wchar_t* text, int x, int y, int width, int height) {
    HWND edit = CreateChild(number, L"edit", L"", kEditStyle, x, y, width, height);
    return edit ? SendMessageW(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)) : 0;
}

void SettingsPage::CreateButton(int number, UINT textId, int x, int y, int width, int height) {
    CreateChild(number, L"button", LanguageText(textId).c_str(), WS_CHILD, x, y, width, height);
}

void SettingsPage::CreateList(int number, const UINT* itemIds, int count, int top) {
    int height = ClientHeight() - ScaleForDisplay(96) - top;
    HWND list = CreateChild(number, WC_LISTVIEWW, L"", kListStyle, ScaleForDisplay(10), top + ScaleForDisplay(68),
                            ClientWidth() - ScaleForDisplay(20), height);
    if (!list) return;
    SendMessageW(list, LVM_DELETECOLUMN, 0, 0);
    SendMessageW(list, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, kListExtendedStyle);
    RECT listClient = {};
    GetClientRect(list, &listClient);
    LVCOLUMNW column = {};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.cx = listClient.right;
    column.pszText = const_cast<wchar_t*>(L"List Column");
    SendMessageW(list, LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
    for (int i = 0; i < count; ++i) {
        WString text = LanguageText(itemIds[i]);
        LVITEMW item = {};
        item.mask = LVIF_TEXT;
        item.iItem = i;
        item.pszText = const_cast<wchar_t*>(text.c_str());
        SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
    }
    FitListColumn(list);
}

// The one column spans the list's client area, which narrows once a vertical scroll bar shows;
// pages call this again after filling a list themselves.
void SettingsPage::FitListColumn(HWND list) {
    RECT client = {};
    GetClientRect(list, &client);
    SendMessageW(list, LVM_SETCOLUMNWIDTH, 0, client.right);
}

int SettingsPage::CreateCheckBox(int number, UINT textId, bool checked, int top) {
    HWND box = CreateChild(number, L"BUTTON", LanguageText(textId).c_str(), kCheckBoxStyle | WS_CHILD, ScaleForDisplay(10),
                           top, ClientWidth() - ScaleForDisplay(20), ScaleForDisplay(20));
    if (box) SendMessageW(box, BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
    return ScaleForDisplayY(24);
}

int SettingsPage::CreateComboRow(int labelNumber, int comboNumber, UINT labelId, const UINT* itemIds, int count,
                                 int selection, int top, bool editable) {
    int width = ClientWidth();
    CreateChild(labelNumber, L"static", LanguageText(labelId).c_str(), WS_CHILD | SS_RIGHT, 0, top + ScaleForDisplay(3),
                width - ScaleForDisplay(140), ScaleForDisplay(20));
    DWORD style = kComboStyle | (editable ? CBS_DROPDOWN : CBS_DROPDOWNLIST);
    HWND combo = CreateChild(comboNumber, L"combobox", L"", style, width - ScaleForDisplay(135), top,
                             ScaleForDisplay(125), ScaleForDisplay(100));
    if (!combo) return ScaleForDisplayY(24);
    for (int i = 0; i < count; ++i)
        SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(LanguageText(itemIds[i]).c_str()));
    if (selection < count) SendMessageW(combo, CB_SETCURSEL, selection, 0);
    return ScaleForDisplayY(24);
}

int SettingsPage::CreatePathRow(int editNumber, int button1Number, int button2Number, const wchar_t* text, int top) {
    int width = ClientWidth();
    CreateChild(editNumber, L"edit", text, kReadOnlyEditStyle, ScaleForDisplay(10), top, width - ScaleForDisplay(120),
                ScaleForDisplay(20));
    CreateChild(button1Number, L"button", LanguageText(kClearButtonTextId).c_str(), WS_CHILD,
                width - ScaleForDisplay(105), top, ScaleForDisplay(45), ScaleForDisplay(20));
    CreateChild(button2Number, L"button", LanguageText(kBrowseButtonTextId).c_str(), WS_CHILD,
                width - ScaleForDisplay(55), top, ScaleForDisplay(45), ScaleForDisplay(20));
    return ScaleForDisplayY(24);
}

int SettingsPage::CreateLabelledPathRow(int labelNumber, int editNumber, int button1Number, int button2Number,
                                        UINT labelId, const wchar_t* text, int top) {
    int width = ClientWidth();
    CreateChild(labelNumber, L"static", LanguageText(labelId).c_str(), WS_CHILD | SS_RIGHT, 0,
                top + ScaleForDisplayY(3), width - ScaleForDisplay(140), ScaleForDisplay(20));
    CreateChild(editNumber, L"edit", text, kReadOnlyEditStyle, width - ScaleForDisplay(135), top,
                ScaleForDisplay(125), ScaleForDisplayY(20));
    int buttonsTop = top + ScaleForDisplayY(24);
    CreateChild(button1Number, L"button", LanguageText(kClearButtonTextId).c_str(), WS_CHILD,
                width - ScaleForDisplay(105), buttonsTop, ScaleForDisplay(45), ScaleForDisplay(20));
    CreateChild(button2Number, L"button", LanguageText(kBrowseButtonTextId).c_str(), WS_CHILD,
                width - ScaleForDisplay(55), buttonsTop, ScaleForDisplay(45), ScaleForDisplay(20));
    return ScaleForDisplayY(48);
}

int SettingsPage::CreateMarkerRows(const MarkerRow rows[3],
                                   HWND (*createStrip)(SettingsPage* page, int stripNumber, HWND parent, int x, int y),
                                   int top) {
    struct Place {
        int labelX, labelY, labelWidth, stripX, stripY;
    };
    const Place places[3] = {
        {0, top + ScaleForDisplay(2), ScaleForDisplay(98), ScaleForDisplay(100), top},
        {ScaleForDisplay(124), top + ScaleForDisplay(2), ScaleForDisplay(83), ScaleForDisplay(212), top},
        {0, top + ScaleForDisplay(23), ScaleForDisplay(98), ScaleForDisplay(100), top + ScaleForDisplayY(21)},
    };
    for (int i = 0; i < 3; ++i) {
        CreateChild(rows[i].labelNumber, L"static", LanguageText(rows[i].labelId).c_str(), WS_CHILD | SS_RIGHT,
                    places[i].labelX, places[i].labelY, places[i].labelWidth, ScaleForDisplay(18));
        HWND strip = createStrip ? createStrip(this, rows[i].stripNumber, pageWindow_, places[i].stripX,
                                               places[i].stripY)
                                 : nullptr;
        if (rows[i].stripNumber >= 0 && rows[i].stripNumber < controlCount_) controls_[rows[i].stripNumber] = strip;
    }
    return ScaleForDisplayY(42);
}
