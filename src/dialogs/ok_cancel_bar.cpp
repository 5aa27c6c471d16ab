#include "dialogs/ok_cancel_bar.h"

#include <commctrl.h>

#include "platform/shell.h"
#include "support/app_state.h"
#include "support/display_scale.h"
#include "string_ids.h"

namespace {

const UINT kButtonImagesId = 114;
const COLORREF kButtonMaskColour = 0x00C6CFDE;
const int kOkImage = 1;

}  // namespace

HWND CreateOkCancelBar(HWND dialog, ImageList* images) {
    SHMENUBARINFO info = {};
    info.cbSize = kDeviceMenuBarInfoSize;
    info.hwndParent = dialog;
    info.dwFlags = SHCMBF_HMENU | SHCMBF_HIDESIPBUTTON;
    info.nToolBarId = IDR_OK_CANCEL_MENU;
    info.hInstRes = g_app.languageLibrary;
    if (!SHCreateMenuBar(&info) || !info.hwndMB) return nullptr;
    HWND bar = info.hwndMB;

    if (g_app.displayLibrary) {
        images->reset(ImageList_LoadImageW(g_app.displayLibrary, MAKEINTRESOURCEW(kButtonImagesId),
                                           ScaleForDisplay(16), 0, kButtonMaskColour, IMAGE_BITMAP, 0));
    }
    SendMessageW(bar, TB_DELETEBUTTON, 0, 0);
    SendMessageW(bar, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(images->get()));
    TBBUTTON ok = {};
    ok.iBitmap = kOkImage;
    ok.idCommand = IDOK;
    ok.fsState = TBSTATE_ENABLED;
    ok.fsStyle = BTNS_BUTTON;
    ok.iString = -1;
    SendMessageW(bar, TB_INSERTBUTTONW, 0, reinterpret_cast<LPARAM>(&ok));
    return bar;
}
