#include "dialogs/dialog_base.h"

#include <cstring>

#include "platform/device_window.h"
#include "support/display_scale.h"
#include "support/surface_colours.h"

namespace {

const DWORD kTemplateStyle = 0x90C00000;  // pop-up, visible, caption
const int kFontHeight = 12;
const int kNormalWeight = 100;
const int kBoldWeight = 700;

// A dialog template with no controls, no menu, no class and an empty title.
struct EmptyTemplate {
    DLGTEMPLATE header;
    WORD menu;
    WORD windowClass;
    WORD title;
};

void MakeTemplate(EmptyTemplate* dialogTemplate) {
    memset(dialogTemplate, 0, sizeof *dialogTemplate);
    dialogTemplate->header.style = kTemplateStyle;
    dialogTemplate->header.dwExtendedStyle = WS_EX_CAPTIONOKBTN;
}

// Hands every message to the dialog object kept in the window's user data.
INT_PTR CALLBACK DialogTrampoline(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) SetWindowLongPtrW(window, GWLP_USERDATA, lParam);
    auto* dialog = reinterpret_cast<DialogBase*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!dialog) return 0;
    INT_PTR result = dialog->DialogProc(window, message, wParam, lParam);
    if (message == WM_NCDESTROY) SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    return result;
}

HFONT MakeTahoma(int weight) {
    LOGFONTW font = {};
    font.lfHeight = ScaleForDisplay(kFontHeight);
    font.lfWeight = weight;
    wcscpy(font.lfFaceName, L"Tahoma");
    return CreateFontIndirectW(&font);
}

}  // namespace

DialogBase::DialogBase(HINSTANCE instance, bool fullScreen)
    : instance_(instance), fullScreen_(fullScreen), activateInfo_() {
    activateInfo_.cbSize = kDeviceActivateInfoSize;
}

DialogBase::~DialogBase() = default;

INT_PTR DialogBase::DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG:
        return OnInitDialog(window);
    case WM_SIZE:
        Layout(window, LOWORD(lParam), HIWORD(lParam));
        return 1;
    case WM_PAINT: {
        PAINTSTRUCT paint;
        HDC dc = BeginPaint(window, &paint);
        OnPaint(window, dc, paint);
        EndPaint(window, &paint);
        return 1;
    }
    case WM_ACTIVATE:
        if (fullScreen_) SHHandleWMActivate(window, wParam, lParam, &activateInfo_, 0);
        return 1;
    case WM_SETTINGCHANGE:
        if (fullScreen_) SHHandleWMSettingChange(window, wParam, lParam, &activateInfo_);
        return 1;
    case WM_HOTKEY:
        OnHotKey(wParam, lParam);
        return 0;
    case WM_CTLCOLORDLG:
    case WM_CTLCOLORSTATIC:
        return reinterpret_cast<INT_PTR>(WhiteSurfaceBrush(reinterpret_cast<HWND>(lParam), reinterpret_cast<HDC>(wParam)));
    default:
        return 0;
    }
}

void DialogBase::CreateMenuBar(HWND window) {}

SharedString DialogBase::GetTitle() { return SharedString(); }

void DialogBase::CreateControls(HWND window) {}

void DialogBase::OnPaint(HWND window, HDC dc, const PAINTSTRUCT& paint) {}

void DialogBase::Layout(HWND window, int width, int height) {}

BOOL DialogBase::OnInitDialog(HWND window) {
    // Opening any dialog ends VGA doubling for the rest of the run: from here on every size
    // follows the screen's pixels per inch.
    SetVgaMode(false);
    CreateFonts();
    memset(&activateInfo_, 0, sizeof activateInfo_);
    activateInfo_.cbSize = kDeviceActivateInfoSize;
    {
        SharedString title = GetTitle();
        SetWindowTextW(window, title.c_str());
    }
    CreateMenuBar(window);
    CreateControls(window);
    SHINITDLGINFO init = {SHIDIM_FLAGS, window, fullScreen_ ? kFullScreenInitFlags : kPlainInitFlags};
    return SHInitDialog(&init);
}

void DialogBase::OnHotKey(WPARAM wParam, LPARAM lParam) {}

void DialogBase::CreateFonts() {
    normalFont_.reset(MakeTahoma(kNormalWeight));
    boldFont_.reset(MakeTahoma(kBoldWeight));
}

HWND DialogBase::CreateChild(HWND window, const wchar_t* className, const wchar_t* text, DWORD style,
                             bool bold, int id, DWORD extendedStyle) {
    HWND child = CreateWindowExW(extendedStyle, className, text, style, 1, 1, 1, 1, window,
                                 reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), instance_, nullptr);
    if (child) SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(bold ? boldFont() : normalFont()), TRUE);
    return child;
}

HWND DialogBase::AddEdit(HWND window, const SharedString& text, bool readOnly) {
    return CreateChild(window, L"edit", text.c_str(), kEditStyle | (readOnly ? ES_READONLY : 0), false, 0, 0);
}

HWND DialogBase::AddLabel(HWND window, const wchar_t* text) {
    return CreateChild(window, L"static", text, kLabelStyle, false, 0, 0);
}

HWND DialogBase::AddList(HWND window, const wchar_t* text, DWORD extraStyle) {
    return CreateChild(window, L"SysListView32", text, kListStyle | extraStyle, false, 0, 0);
}

HWND DialogBase::AddButton(HWND window, const wchar_t* text, int id, DWORD style, bool bold) {
    return CreateChild(window, L"button", text, style, bold, id, 0);
}

HWND DialogBase::AddComboBox(HWND window, int id, DWORD style) {
    return CreateChild(window, L"combobox", L"", style, false, id, 0);
}

bool RunModal(HINSTANCE instance, DialogBase* dialog) {
    alignas(4) EmptyTemplate dialogTemplate;
    MakeTemplate(&dialogTemplate);
    // The device style bit is turned into the desktop's OK control by the platform layer.
    INT_PTR result = DeviceDialogBoxIndirectParam(instance, &dialogTemplate.header, nullptr, DialogTrampoline,
                                                  reinterpret_cast<LPARAM>(dialog));
    // -1 means the dialog could not be made at all.
    return result != 0 && result != -1;
}

bool RunModalFromTemplate(HINSTANCE instance, UINT templateId, HWND owner, DialogBase* dialog) {
    INT_PTR result = DialogBoxParamW(instance, MAKEINTRESOURCEW(templateId), owner, DialogTrampoline,
                                     reinterpret_cast<LPARAM>(dialog));
    return result != 0 && result != -1;
}
