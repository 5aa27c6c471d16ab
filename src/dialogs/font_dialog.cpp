#include "dialogs/font_dialog.h"

#include <cstdio>

#include "dialogs/colour_picker.h"
#include "dialogs/dialog_base.h"
#include "dialogs/ok_cancel_bar.h"
#include "support/app_state.h"
#include "support/display_scale.h"
#include "support/handles.h"
#include "program_ids.h"
#include "string_ids.h"

namespace {

const int kSmallestSize = 10;
const int kLargestSize = 30;
const LONG kBoldWeight = 700;
const LONG kPlainWeight = 100;  // the product's own "not bold", not the platform's 400

struct ControlText {
    int id;
    UINT textId;
};
const ControlText kControlTexts[] = {
    {IDC_FONT_BOLD, IDS_FONTDLG_BOLD},           {IDC_FONT_ITALIC, IDS_FONTDLG_ITALIC},
    {IDC_FONT_UNDERLINE, IDS_FONTDLG_UNDERLINE}, {IDC_FONT_STRIKEOUT, IDS_FONTDLG_STRIKEOUT},
    {IDC_FONT_SIZE_LABEL, IDS_FONTDLG_SIZE_LABEL}, {IDC_FONT_COLOR_LABEL, IDS_FONTDLG_COLOR_LABEL},
    {IDC_FONT_SET_COLOR, IDS_BUTTON_SET},
};
// The check boxes, top to bottom.
const int kStyleChecks[] = {IDC_FONT_BOLD, IDC_FONT_ITALIC, IDC_FONT_UNDERLINE, IDC_FONT_STRIKEOUT};

class FontDialog : public DialogBase {
public:
    FontDialog(HINSTANCE instance, LOGFONTW* font, COLORREF* colour)
        : DialogBase(instance, true), font_(font), colour_(colour) {}

    INT_PTR DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
    void CreateMenuBar(HWND window) override { menuBar_ = CreateOkCancelBar(window, &barImages_); }
    SharedString GetTitle() override { return title_; }
    void CreateControls(HWND window) override;
    void OnPaint(HWND window, HDC dc, const PAINTSTRUCT& paint) override;
    void Layout(HWND window, int width, int height) override;
    BOOL OnInitDialog(HWND window) override;


private:
    bool OnCommand(int id);
    void Accept();
    RECT SwatchRect() const;
    void SetCheck(int id, bool ticked) { CheckDlgButton(window_, id, ticked ? BST_CHECKED : BST_UNCHECKED); }
    bool Ticked(int id) const { return IsDlgButtonChecked(window_, id) == BST_CHECKED; }
    HFONT PageFont() const { return g_app.normalFont ? g_app.normalFont : normalFont(); }

    LOGFONTW* font_;
    COLORREF* colour_;
    HWND window_ = nullptr;
    HWND menuBar_ = nullptr;
    ImageList barImages_;
    SharedString title_;
};

BOOL FontDialog::OnInitDialog(HWND window) {
    window_ = window;
    wchar_t caption[64] = L"";
    GetWindowTextW(window, caption, 64);
    title_.set(caption);  // the template's own caption stays
    DialogBase::OnInitDialog(window);
    return TRUE;
}

// The controls take the font of the pages, not the template's.
void FontDialog::CreateControls(HWND window) {
    HFONT font = PageFont();
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    SetCheck(IDC_FONT_BOLD, font_->lfWeight == kBoldWeight);
    SetCheck(IDC_FONT_ITALIC, font_->lfItalic != 0);
    SetCheck(IDC_FONT_UNDERLINE, font_->lfUnderline != 0);
    SetCheck(IDC_FONT_STRIKEOUT, font_->lfStrikeOut != 0);
    for (const ControlText& entry : kControlTexts) {
        WString text;
        text.load(g_app.languageLibrary, entry.textId);
        SetDlgItemTextW(window, entry.id, text.c_str());
    }

    HWND sizes = GetDlgItem(window, IDC_FONT_SIZE_COMBO);
    wchar_t text[8];
    for (int size = kSmallestSize; size <= kLargestSize; ++size) {
        swprintf(text, 8, L"%d", size);
        LRESULT item = SendMessageW(sizes, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
        SendMessageW(sizes, CB_SETITEMDATA, item, size);
    }
    LONG index = font_->lfHeight - kSmallestSize;
    bool listed = index >= 0 && index <= kLargestSize - kSmallestSize;
    SendMessageW(sizes, CB_SETCURSEL, listed ? index : -1, 0);
}

void FontDialog::Layout(HWND window, int width, int height) {
    auto place = [window](int id, int x, int y, int w, int h) {
        if (HWND child = GetDlgItem(window, id)) MoveWindow(child, x, y, w, h, TRUE);
    };
    int top = ScaleForDisplayY(8);
    place(IDC_FONT_SIZE_LABEL, 0, top + ScaleForDisplay(3), width - ScaleForDisplay(140), ScaleForDisplay(20));
    place(IDC_FONT_SIZE_COMBO, width - ScaleForDisplay(135), top, ScaleForDisplay(125), ScaleForDisplay(100));
    for (int id : kStyleChecks) {
        top += ScaleForDisplayY(24);
        place(id, ScaleForDisplay(10), top, width - ScaleForDisplay(20), ScaleForDisplay(20));
    }
    top += ScaleForDisplayY(24);
    place(IDC_FONT_COLOR_LABEL, 0, top + ScaleForDisplay(3), width - ScaleForDisplay(110), ScaleForDisplay(20));
    place(IDC_FONT_SET_COLOR, width - ScaleForDisplay(50), top, ScaleForDisplay(40), ScaleForDisplay(20));
    // Moved controls keep bits drawn for their old size: all of them are drawn again.
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

RECT FontDialog::SwatchRect() const {
    RECT client = {};
    GetClientRect(window_, &client);
    int x = client.right - ScaleForDisplay(100);
    int y = ScaleForDisplay(128);
    return RECT{x, y, x + ScaleForDisplay(40), y + ScaleForDisplay(20)};
}

void FontDialog::OnPaint(HWND window, HDC dc, const PAINTSTRUCT& paint) {
    RECT swatch = SwatchRect();
    FillRect(dc, &swatch, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    InflateRect(&swatch, -ScaleForDisplay(1), -ScaleForDisplay(1));
    if (*colour_ != kNoColour) {
        Brush fill(CreateSolidBrush(*colour_ & 0x00FFFFFF));
        FillRect(dc, &swatch, fill.get());
        return;
    }
    FillRect(dc, &swatch, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    WString none;
    none.load(g_app.languageLibrary, IDS_NO_COLOR);
    DcSelection font(dc, PageFont());
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, RGB(0, 0, 0));
    DrawTextW(dc, none.c_str(), -1, &swatch, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
}

INT_PTR FontDialog::DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_COMMAND:
        if (OnCommand(LOWORD(wParam))) return 1;
        break;
    case WM_DESTROY:
        if (menuBar_ && IsWindow(menuBar_)) DestroyWindow(menuBar_);
        menuBar_ = nullptr;
        barImages_.reset();
        break;
    }
    return DialogBase::DialogProc(window, message, wParam, lParam);
}

bool FontDialog::OnCommand(int id) {
    switch (id) {
    case IDC_FONT_SET_COLOR: {
        COLORREF chosen = *colour_;
        if (PickColour(&chosen, true)) {
            *colour_ = chosen;
            RECT swatch = SwatchRect();
            InvalidateRect(window_, &swatch, TRUE);
        }
        return true;
    }
    case IDOK:
        Accept();
        EndDialog(window_, 1);
        return true;
    case IDCANCEL:
        EndDialog(window_, 0);
        return true;
    default:
        return false;
    }
}

void FontDialog::Accept() {
    font_->lfItalic = Ticked(IDC_FONT_ITALIC) ? 1 : 0;
    font_->lfUnderline = Ticked(IDC_FONT_UNDERLINE) ? 1 : 0;
    font_->lfWeight = Ticked(IDC_FONT_BOLD) ? kBoldWeight : kPlainWeight;
    font_->lfStrikeOut = Ticked(IDC_FONT_STRIKEOUT) ? 1 : 0;
    LRESULT size = SendDlgItemMessageW(window_, IDC_FONT_SIZE_COMBO, CB_GETCURSEL, 0, 0);
    font_->lfHeight = static_cast<LONG>(size) + kSmallestSize;
}

}  // namespace

bool RunFontDialog(HWND owner, LOGFONTW* font, COLORREF* colour) {
    HINSTANCE instance = g_app.instance ? g_app.instance : GetModuleHandleW(nullptr);
    FontDialog dialog(instance, font, colour);
    return RunModalFromTemplate(instance, IDD_FONT_DIALOG, owner, &dialog);
}
