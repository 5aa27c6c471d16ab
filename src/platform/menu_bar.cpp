// Desktop stand-in of the shell menu bar.
//
// The bar is a real toolbar, so toolbar messages work on it directly. A child window is clipped
// to its parent's client area, so the bar is an owned pop-up instead that sits in a strip the
// parent reserves below its client area (WM_NCCALCSIZE of a subclass). Creating the bar grows the
// parent by the strip, so its client area is unchanged; shortening the window afterwards, as
// device code does, then gives the device's proportions. The parent's subclass keeps the bar
// docked when it moves, resizes, hides or shows.
//
// The strip is also cut out of a top-level parent's window region. Under Wine each top-level
// window is a window of the X server, and giving a window the keyboard focus (when it is mapped
// with the focus inside, or activated) raises its X window above all others, its owned pop-ups
// included. The parent then covered the bar, and the screen showed the parent's strip, which
// nothing paints: a black band. Through the hole the bar shows whichever of the two is on top.
#include "platform/shell.h"

#include <commctrl.h>

#include <vector>

#include "platform/platform_internal.h"
#include "support/display_scale.h"

namespace platform_detail {

const wchar_t kMenuBarProperty[] = L"QLPlatform.MenuBar";

HWND MenuBarOf(HWND window) {
    HWND bar = static_cast<HWND>(GetPropW(window, kMenuBarProperty));
    return bar && IsWindow(bar) ? bar : nullptr;
}

int MenuBarHeight() { return ScaleForDisplayY(26); }

}  // namespace platform_detail

using namespace platform_detail;

namespace {

// Command ids of buttons made from a menu's drop-down items (the device's own ids are private too).
const int kFirstDropDownId = 0xEF00;
const int kMenuTextChars = 256;
const wchar_t kBarDataProperty[] = L"QLPlatform.MenuBarData";

struct MenuButton {
    int command;
    HMENU subMenu;  // 0 for a button that only sends its command
};

struct MenuBar {
    HWND window = nullptr;
    HWND parent = nullptr;
    HMENU menu = nullptr;         // owned: loaded from the resource
    HIMAGELIST images = nullptr;  // owned: made from the bitmap resource, if any
    HBRUSH background = nullptr;  // owned: SHCMBM_SETBKCOLOR / SHCMBF_COLORBK
    std::vector<MenuButton> buttons;
    int height = 0;
    int reserve = 0;  // strip height taken from the parent (0 for a hidden bar)
    RECT hole = {};   // the strip cut out of the parent's window region, in window coordinates
    SIZE carvedFrame = {};  // the parent's size when the region was made
    bool hidden = false;
    bool parentHooked = false;
};

MenuBar* BarData(HWND window) {
    return IsWindow(window) ? static_cast<MenuBar*>(GetPropW(window, kBarDataProperty)) : nullptr;
}

MenuButton* FindButton(MenuBar* bar, int command) {
    for (MenuButton& button : bar->buttons) {
        if (button.command == command) return &button;
    }
    return nullptr;
}

void SetBackground(MenuBar* bar, COLORREF colour) {
    if (bar->background) DeleteObject(bar->background);
    bar->background = CreateSolidBrush(colour);
    InvalidateRect(bar->window, nullptr, TRUE);
}

bool IsTopLevel(HWND window) { return (GetWindowLongW(window, GWL_STYLE) & WS_CHILD) == 0; }

// Gives a top-level parent a window region without the bar's strip (`strip` in screen
// coordinates; an empty strip gives the parent its whole window back). Remade only when the
// strip or the parent's size changed, since setting a region repositions the parent.
void CarveStrip(MenuBar* bar, RECT strip) {
    HWND parent = bar->parent;
    if (!IsTopLevel(parent)) return;  // a child's hole would only show its own parent
    RECT frame;
    GetWindowRect(parent, &frame);
    SIZE size = {frame.right - frame.left, frame.bottom - frame.top};
    RECT hole = {};
    if (!IsRectEmpty(&strip)) {
        hole = strip;
        OffsetRect(&hole, -frame.left, -frame.top);
    }
    bool sameSize = size.cx == bar->carvedFrame.cx && size.cy == bar->carvedFrame.cy;
    if (EqualRect(&hole, &bar->hole) && (IsRectEmpty(&hole) || sameSize)) return;
    bar->hole = hole;
    bar->carvedFrame = size;
    if (IsRectEmpty(&hole)) {
        SetWindowRgn(parent, nullptr, TRUE);
        return;
    }
    HRGN region = CreateRectRgn(0, 0, size.cx, size.cy);
    HRGN cut = CreateRectRgnIndirect(&hole);
    CombineRgn(region, region, cut, RGN_DIFF);
    DeleteObject(cut);
    if (!SetWindowRgn(parent, region, TRUE)) DeleteObject(region);  // on success the window owns it
}

// Keeps the bar in the strip below the parent's client area, visible when the parent is.
void Dock(MenuBar* bar) {
    HWND parent = bar->parent;
    RECT client;
    GetClientRect(parent, &client);
    POINT origin = {0, client.bottom};
    ClientToScreen(parent, &origin);
    bool show = !bar->hidden && IsWindowVisible(parent) && !IsIconic(parent);
    UINT flags = SWP_NOZORDER | SWP_NOACTIVATE | (show ? SWP_SHOWWINDOW : SWP_HIDEWINDOW);
    SetWindowPos(bar->window, nullptr, origin.x, origin.y, client.right, bar->height, flags);
    RECT strip = {};
    if (bar->reserve > 0 && client.right > 0) {
        SetRect(&strip, origin.x, origin.y, origin.x + client.right, origin.y + bar->reserve);
    }
    CarveStrip(bar, strip);
}

// Changes the parent's height by `delta` and lets it recompute its client area.
void ResizeParent(HWND parent, int delta) {
    RECT frame;
    GetWindowRect(parent, &frame);
    SetWindowPos(parent, nullptr, 0, 0, frame.right - frame.left, frame.bottom - frame.top + delta,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

void OpenSubMenu(MenuBar* bar, const MenuButton& button) {
    HWND window = bar->window;
    RECT rect;
    if (!SendMessageW(window, TB_GETRECT, button.command, reinterpret_cast<LPARAM>(&rect))) return;
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&rect), 2);
    SendMessageW(window, TB_PRESSBUTTON, button.command, TRUE);
    // The chosen command reaches the parent as WM_COMMAND, posted by the menu.
    TrackPopupMenu(button.subMenu, TPM_LEFTALIGN | TPM_BOTTOMALIGN | TPM_LEFTBUTTON, rect.left, rect.top, 0,
                   bar->parent, nullptr);
    if (IsWindow(window)) SendMessageW(window, TB_PRESSBUTTON, button.command, FALSE);
}

void ReleaseBar(MenuBar* bar);

LRESULT CALLBACK BarParentProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR data) {
    MenuBar* bar = reinterpret_cast<MenuBar*>(data);
    switch (message) {
    case WM_NCCALCSIZE: {
        LRESULT result = DefSubclassProc(window, message, wParam, lParam);
        RECT* client = wParam ? &reinterpret_cast<NCCALCSIZE_PARAMS*>(lParam)->rgrc[0] : reinterpret_cast<RECT*>(lParam);
        client->bottom = client->bottom - bar->reserve < client->top ? client->top : client->bottom - bar->reserve;
        return result;
    }
    case WM_WINDOWPOSCHANGED: {
        HWND barWindow = bar->window;
        LRESULT result = DefSubclassProc(window, message, wParam, lParam);
        if (BarData(barWindow) == bar) Dock(bar);  // unless the bar went meanwhile
        return result;
    }
    case WM_NCDESTROY:
        // A pop-up owned by a top-level parent is already gone; this covers child parents.
        DestroyWindow(bar->window);
        break;
    }
    return DefSubclassProc(window, message, wParam, lParam);
}

LRESULT CALLBACK MenuBarProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR data) {
    MenuBar* bar = reinterpret_cast<MenuBar*>(data);
    switch (message) {
    case SHCMBM_GETMENU:
        return reinterpret_cast<LRESULT>(bar->menu);
    case SHCMBM_GETSUBMENU: {
        MenuButton* button = FindButton(bar, static_cast<int>(lParam));
        return reinterpret_cast<LRESULT>(button ? button->subMenu : nullptr);
    }
    case SHCMBM_SETSUBMENU: {
        MenuButton* button = FindButton(bar, static_cast<int>(wParam));
        if (!button) return 0;
        HMENU previous = button->subMenu;
        button->subMenu = reinterpret_cast<HMENU>(lParam);
        return reinterpret_cast<LRESULT>(previous);
    }
    case SHCMBM_OVERRIDEKEY:
        return TRUE;  // the desktop has no hardware keys to take over
    case SHCMBM_SETBKCOLOR:
        SetBackground(bar, static_cast<COLORREF>(lParam));
        return TRUE;
    case WM_ERASEBKGND:
        if (bar->background) {
            RECT client;
            GetClientRect(window, &client);
            FillRect(reinterpret_cast<HDC>(wParam), &client, bar->background);
            return TRUE;
        }
        break;
    case WM_MOUSEACTIVATE:
        return MA_NOACTIVATE;  // a tap on the bar leaves the parent active and focused
    case WM_COMMAND:
        if (reinterpret_cast<HWND>(lParam) == window) {
            MenuButton* button = FindButton(bar, LOWORD(wParam));
            if (button && button->subMenu) {
                OpenSubMenu(bar, *button);
            } else {
                // Posted: the parent may destroy the bar in answer.
                PostMessageW(bar->parent, WM_COMMAND, wParam, lParam);
            }
            return 0;
        }
        break;
    case WM_NOTIFY:
        // The toolbar's own notifications stay inside the bar, as on the device.
        if (reinterpret_cast<NMHDR*>(lParam)->hwndFrom == window) return 0;
        break;
    case WM_SIZE: {
        HWND parent = bar->parent;
        LRESULT result = DefSubclassProc(window, message, wParam, lParam);
        PlaceOkControl(parent);
        return result;
    }
    case WM_NCDESTROY:
        RemoveWindowSubclass(window, MenuBarProc, kMenuBarSubclass);
        RemovePropW(window, kBarDataProperty);
        ReleaseBar(bar);
        break;
    }
    return DefSubclassProc(window, message, wParam, lParam);
}

// Undoes everything the bar did to its parent and frees what it owns.
void ReleaseBar(MenuBar* bar) {
    HWND parent = bar->parent;
    if (bar->parentHooked && IsWindow(parent)) {
        RemoveWindowSubclass(parent, BarParentProc, kBarParentSubclass);
        CarveStrip(bar, RECT{});
        if (GetPropW(parent, kMenuBarProperty) == bar->window) RemovePropW(parent, kMenuBarProperty);
        // A parent being destroyed is hidden first; only a live one gets its strip back.
        if (IsWindowVisible(parent)) {
            ResizeParent(parent, -bar->reserve);
            PlaceOkControl(parent);
        }
    }
    if (bar->menu) DestroyMenu(bar->menu);
    if (bar->images) ImageList_Destroy(bar->images);
    if (bar->background) DeleteObject(bar->background);
    delete bar;
}

bool AddMenuButtons(MenuBar* bar) {
    int count = GetMenuItemCount(bar->menu);
    if (count < 0) return false;
    std::vector<TBBUTTON> buttons;
    std::vector<std::vector<wchar_t>> texts;
    for (int position = 0; position < count; ++position) {
        std::vector<wchar_t> text(kMenuTextChars, L'\0');
        MENUITEMINFOW item = {};
        item.cbSize = sizeof item;
        item.fMask = MIIM_FTYPE | MIIM_ID | MIIM_SUBMENU | MIIM_STRING | MIIM_STATE;
        item.dwTypeData = text.data();
        item.cch = kMenuTextChars - 1;
        if (!GetMenuItemInfoW(bar->menu, position, TRUE, &item) || (item.fType & MFT_SEPARATOR)) continue;
        MenuButton button = {item.hSubMenu ? kFirstDropDownId + position : static_cast<int>(item.wID), item.hSubMenu};
        bar->buttons.push_back(button);
        texts.push_back(text);
        TBBUTTON tb = {};
        tb.iBitmap = I_IMAGENONE;
        tb.idCommand = button.command;
        tb.fsState = (item.fState & MFS_GRAYED) ? 0 : TBSTATE_ENABLED;
        tb.fsStyle = BTNS_BUTTON | BTNS_AUTOSIZE;
        buttons.push_back(tb);
    }
    for (size_t i = 0; i < buttons.size(); ++i) buttons[i].iString = reinterpret_cast<INT_PTR>(texts[i].data());
    if (buttons.empty()) return true;
    return SendMessageW(bar->window, TB_ADDBUTTONSW, buttons.size(), reinterpret_cast<LPARAM>(buttons.data())) != 0;
}

// Device bars may name a strip of button images; each image is the bitmap's width / count wide.
void LoadButtonImages(MenuBar* bar, HINSTANCE instance, int bitmapId, int imageCount) {
    if (bitmapId == 0 || imageCount <= 0) return;
    HBITMAP strip = static_cast<HBITMAP>(LoadImageW(instance, MAKEINTRESOURCEW(bitmapId), IMAGE_BITMAP, 0, 0, 0));
    if (!strip) return;
    BITMAP info = {};
    GetObjectW(strip, sizeof info, &info);
    int width = info.bmWidth / imageCount;
    if (width > 0) {
        bar->images = ImageList_Create(width, info.bmHeight, ILC_COLOR24 | ILC_MASK, imageCount, 0);
        if (bar->images) {
            ImageList_AddMasked(bar->images, strip, RGB(192, 192, 192));
            SendMessageW(bar->window, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(bar->images));
        }
    }
    DeleteObject(strip);
}

bool ValidInfo(const SHMENUBARINFO* info) {
    return info && (info->cbSize == kDeviceMenuBarInfoSize || info->cbSize == sizeof(SHMENUBARINFO)) &&
           IsWindow(info->hwndParent);
}

}  // namespace

BOOL SHCreateMenuBar(SHMENUBARINFO* info) {
    if (!ValidInfo(info)) return FALSE;
    HWND parent = info->hwndParent;
    HINSTANCE instance = info->hInstRes;
    bool empty = (info->dwFlags & SHCMBF_EMPTYBAR) != 0;
    HMENU menu = nullptr;
    if (!empty) {
        // Without SHCMBF_HMENU the device reads its own bar resource; here both name a menu.
        menu = LoadMenuW(instance, MAKEINTRESOURCEW(info->nToolBarId));
        if (!menu) return FALSE;
    }
    if (HWND previous = MenuBarOf(parent)) DestroyWindow(previous);

    INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_BAR_CLASSES};
    InitCommonControlsEx(&controls);
    DWORD style = WS_POPUP | WS_CLIPCHILDREN | TBSTYLE_FLAT | TBSTYLE_LIST | CCS_NORESIZE | CCS_NOPARENTALIGN;
    HWND window = CreateWindowExW(WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE, TOOLBARCLASSNAMEW, L"", style, 0, 0, 0, 0, parent,
                                  nullptr, instance, nullptr);
    if (!window) {
        if (menu) DestroyMenu(menu);
        return FALSE;
    }
    MenuBar* bar = new MenuBar;
    bar->window = window;
    bar->parent = parent;
    bar->menu = menu;
    bar->height = MenuBarHeight();
    bar->hidden = (info->dwFlags & SHCMBF_HIDDEN) != 0;
    SetWindowSubclass(window, MenuBarProc, kMenuBarSubclass, reinterpret_cast<DWORD_PTR>(bar));
    SetPropW(window, kBarDataProperty, bar);
    // Button clicks come to the bar, which forwards commands to the parent.
    SendMessageW(window, TB_SETPARENT, reinterpret_cast<WPARAM>(window), 0);
    SendMessageW(window, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    // A pop-up toolbar has no parent to paint behind its buttons: without a colour of its own it
    // takes the colour of buttons.
    SetBackground(bar, (info->dwFlags & SHCMBF_COLORBK) ? info->clrBk : GetSysColor(COLOR_BTNFACE));
    LoadButtonImages(bar, instance, info->nBmpId, info->cBmpImages);
    if (menu && !AddMenuButtons(bar)) {
        DestroyWindow(window);
        return FALSE;
    }

    SetPropW(parent, kMenuBarProperty, window);
    SetWindowSubclass(parent, BarParentProc, kBarParentSubclass, reinterpret_cast<DWORD_PTR>(bar));
    bar->parentHooked = true;
    bar->reserve = bar->hidden ? 0 : bar->height;
    // A dialog fitted to an area keeps its size and gives the strip from its client area.
    bool keepSize = HasFlag(parent, kFittedProperty) || IsZoomed(parent);
    ResizeParent(parent, keepSize ? 0 : bar->reserve);
    Dock(bar);
    PlaceOkControl(parent);
    info->hwndMB = window;
    return TRUE;
}

int platform_detail::MenuBarReserve(HWND window) {
    HWND bar = MenuBarOf(window);
    MenuBar* data = bar ? BarData(bar) : nullptr;
    return data ? data->reserve : 0;
}
