#include "dialogs/colour_picker.h"

#include <commctrl.h>

#include <cstdio>
#include <cwchar>

#include "dialogs/dialog_base.h"
#include "dialogs/ok_cancel_bar.h"
#include "support/app_state.h"
#include "support/display_scale.h"
#include "support/handles.h"

namespace {

const wchar_t* const kEnglishTexts[kPickerTextCount] = {
    L"Red",     L"Green",         L"Blue", L"RGB Values", L"HTML#", L"Picker", L"Default",
    L"Valid values are between 0-255", L"Invalid value", L"Selected color", L"Color",
};

// The palette as #RRGGBB, five rows of ten.
const DWORD kPaletteHtml[kPaletteSize] = {
    0xFFFFFF, 0xCCCCFF, 0x99CCFF, 0x99FFFF, 0xCCFFFF, 0x99FF99, 0xFFFF99, 0xFFFFCC, 0xFFCCCC, 0xFFCCFF,
    0xCCCCCC, 0x6666FF, 0x6699FF, 0x66FFFF, 0x33FFFF, 0x99FF66, 0xFFFF33, 0xFFFF66, 0xFF9999, 0xFF99FF,
    0x999999, 0x0000CC, 0x0066FF, 0x33CCFF, 0x00CCFF, 0x00CC33, 0xCCCC00, 0xFF6633, 0xFF3366, 0xCC33CC,
    0x555555, 0x000066, 0x003399, 0x336699, 0x006666, 0x006600, 0x666633, 0x990000, 0x993333, 0x663366,
    0x000000, 0x000033, 0x003366, 0x333366, 0x003333, 0x003300, 0x333300, 0x660000, 0x990033, 0x330033,
};
const int kPaletteColumns = 10;

const int kTabCount = 3;
const int kSliderMax = 100;
const double kSliderPerComponent = 0.3921568627450981;  // 100 / 255
const DWORD kSliderStyle = WS_CHILD | WS_TABSTOP | TBS_HORZ | TBS_NOTICKS;
const DWORD kFieldStyle = DialogBase::kEditStyle & ~WS_VISIBLE;
const DWORD kLabelStyle = DialogBase::kLabelStyle & ~WS_VISIBLE;
const DWORD kPaletteStyle = WS_CHILD | WS_TABSTOP | BS_OWNERDRAW;
const DWORD kTabsStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP | TCS_BOTTOM;
const DWORD kDefaultButtonStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON;
const int kNoId = -1;

int SliderPosition(int component) { return static_cast<int>(component * kSliderPerComponent); }
int ComponentOfPosition(int position) { return position * 255 / kSliderMax; }

class ColourPickerDialog : public DialogBase {
public:
    ColourPickerDialog(HINSTANCE instance, ColourRequest* request)
        : DialogBase(instance, true), request_(request), colour_(request->colour) {
        red_ = GetRValue(colour_);
        green_ = GetGValue(colour_);
        blue_ = GetBValue(colour_);
    }

    INT_PTR DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
    void CreateMenuBar(HWND window) override { menuBar_ = CreateOkCancelBar(window, &barImages_); }
    SharedString GetTitle() override;
    void CreateControls(HWND window) override;
    void OnPaint(HWND window, HDC dc, const PAINTSTRUCT& paint) override;
    void Layout(HWND window, int width, int height) override;
    BOOL OnInitDialog(HWND window) override;

    COLORREF result() const { return result_; }

private:
    const wchar_t* Text(ColourPickerText which) const {
        const WString& given = request_->texts[which];
        return given.empty() ? kEnglishTexts[which] : given.c_str();
    }
    int* Component(int index) { return index == 0 ? &red_ : index == 1 ? &green_ : &blue_; }

    bool OnCommand(WPARAM wParam, LPARAM lParam);
    void OnSliderMoved(HWND slider, int code);
    void OnFieldLeft(int index);
    void OnHtmlFieldLeft();
    void LeaveFocusedField();
    void ChoosePalette(int index);
    void ShowTab(int tab);
    void End(COLORREF result, INT_PTR code);
    // Puts the components on every control but `source` (the one the user is working in).
    void ShowComponents(HWND source);
    void ComponentsChanged(HWND source);
    void InvalidateSample();
    RECT SampleRect() const;
    void DrawSample(HDC dc, const RECT& strip);
    void DrawPaletteButton(const DRAWITEMSTRUCT& item);
    int PaletteIndexOf(HWND button) const;
    void MovePaletteFocus(int index, int step);
    static LRESULT CALLBACK PaletteButtonProc(HWND button, UINT message, WPARAM wParam, LPARAM lParam);

    ColourRequest* request_;
    COLORREF colour_;
    COLORREF result_ = kColourCancelled;
    int red_, green_, blue_;
    int tab_ = 0;
    bool closing_ = false;
    HWND window_ = nullptr;
    HWND menuBar_ = nullptr;
    ImageList barImages_;
    HWND labels_[3] = {};
    HWND sliders_[3] = {};
    HWND fields_[3] = {};
    HWND htmlLabel_ = nullptr;
    HWND htmlField_ = nullptr;
    HWND palette_[kPaletteSize] = {};
    HWND tabs_ = nullptr;
    HWND defaultButton_ = nullptr;
    WNDPROC buttonProc_ = nullptr;
    HWND clickedButton_ = nullptr;  // the palette button whose own click is being handled
};

SharedString ColourPickerDialog::GetTitle() {
    SharedString title;
    title.set(Text(kPickerTextTitle));
    return title;
}

BOOL ColourPickerDialog::OnInitDialog(HWND window) {
    window_ = window;
    DialogBase::OnInitDialog(window);
    ShowTab(0);
    return FALSE;  // the tab has put the focus where it belongs
}

void ColourPickerDialog::CreateControls(HWND window) {
    for (int i = 0; i < 3; ++i) {
        labels_[i] = CreateChild(window, L"static", Text(static_cast<ColourPickerText>(kPickerTextRed + i)),
                                 kLabelStyle, false, kNoId, 0);
        sliders_[i] = CreateChild(window, TRACKBAR_CLASSW, L"", kSliderStyle, false, kPickerRedSlider + i, 0);
        SendMessageW(sliders_[i], TBM_SETRANGE, FALSE, MAKELPARAM(0, kSliderMax));
        SendMessageW(sliders_[i], TBM_SETPAGESIZE, 0, 10);
        fields_[i] = CreateChild(window, L"edit", L"", kFieldStyle, false, kPickerRedField + i, 0);
    }
    htmlLabel_ = CreateChild(window, L"static", Text(kPickerTextHtml), kLabelStyle, false, kNoId, 0);
    htmlField_ = CreateChild(window, L"edit", L"", kFieldStyle, false, kPickerHtmlField, 0);
    for (int i = 0; i < kPaletteSize; ++i) {
        palette_[i] = AddButton(window, L"", i, kPaletteStyle, false);
        if (!palette_[i]) continue;
        SetWindowLongPtrW(palette_[i], GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        buttonProc_ = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(palette_[i], GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&PaletteButtonProc)));
    }
    tabs_ = CreateChild(window, WC_TABCONTROLW, L"", kTabsStyle, false, kPickerTabs, 0);
    const ColourPickerText tabTexts[kTabCount] = {kPickerTextRgbTab, kPickerTextHtml, kPickerTextPaletteTab};
    for (int i = 0; i < kTabCount; ++i) {
        TCITEMW item = {};
        item.mask = TCIF_TEXT;
        item.pszText = const_cast<wchar_t*>(Text(tabTexts[i]));
        SendMessageW(tabs_, TCM_INSERTITEMW, i, reinterpret_cast<LPARAM>(&item));
    }
    if (request_->allowDefault)
        defaultButton_ = AddButton(window, Text(kPickerTextDefault), kPickerDefaultButton, kDefaultButtonStyle, false);
    ShowComponents(nullptr);
}

INT_PTR ColourPickerDialog::DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_COMMAND:
        if (OnCommand(wParam, lParam)) return 1;
        break;
    case WM_HSCROLL:
        OnSliderMoved(reinterpret_cast<HWND>(lParam), LOWORD(wParam));
        return 1;
    case WM_NOTIFY: {
        auto* header = reinterpret_cast<const NMHDR*>(lParam);
        if (header->hwndFrom == tabs_ && header->code == static_cast<UINT>(TCN_SELCHANGE)) {
            ShowTab(static_cast<int>(SendMessageW(tabs_, TCM_GETCURSEL, 0, 0)));
            return 1;
        }
        break;
    }
    case WM_DRAWITEM: {
        auto* item = reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
        if (PaletteIndexOf(item->hwndItem) < 0) break;
        DrawPaletteButton(*item);
        return 1;
    }
    case WM_DESTROY:
        closing_ = true;
        if (menuBar_ && IsWindow(menuBar_)) DestroyWindow(menuBar_);
        menuBar_ = nullptr;
        break;
    }
    return DialogBase::DialogProc(window, message, wParam, lParam);
}

bool ColourPickerDialog::OnCommand(WPARAM wParam, LPARAM lParam) {
    int id = LOWORD(wParam);
    int notification = HIWORD(wParam);
    HWND from = reinterpret_cast<HWND>(lParam);
    // The dialog manager names the control of id 1 or 2 for Enter and Escape too: only the
    // button's own click chooses its colour.
    int paletteIndex = PaletteIndexOf(from);
    if (paletteIndex >= 0 && paletteIndex == id && from == clickedButton_) {
        if (notification == BN_CLICKED) ChoosePalette(paletteIndex);
        return true;
    }
    for (int i = 0; i < 3; ++i) {
        if (from != fields_[i] || !from) continue;
        if (notification == EN_SETFOCUS) SipShowIM(SIPF_ON);
        if (notification == EN_KILLFOCUS) OnFieldLeft(i);
        return true;
    }
    if (from && from == htmlField_) {
        if (notification == EN_SETFOCUS) SipShowIM(SIPF_ON);
        if (notification == EN_KILLFOCUS) OnHtmlFieldLeft();
        return true;
    }
    switch (id) {
    case IDOK:
        LeaveFocusedField();  // a value typed just before OK counts
        End(colour_, 1);
        return true;
    case IDCANCEL:
    case kPickerCancelCommand:
        End(kColourCancelled, 0);
        return true;
    case kPickerDefaultButton:
        colour_ = kNoColour;
        InvalidateSample();
        return true;
    case kPickerFirstTabCommand:
    case kPickerFirstTabCommand + 1:
    case kPickerFirstTabCommand + 2:
        ShowTab(id - kPickerFirstTabCommand);
        return true;
    default:
        return false;
    }
}

void ColourPickerDialog::End(COLORREF result, INT_PTR code) {
    result_ = result;
    closing_ = true;  // fields losing the focus now are not checked
    EndDialog(window_, code);
}

void ColourPickerDialog::OnSliderMoved(HWND slider, int code) {
    if (code == TB_ENDTRACK) return;
    for (int i = 0; i < 3; ++i) {
        if (slider != sliders_[i] || !slider) continue;
        int position = static_cast<int>(SendMessageW(slider, TBM_GETPOS, 0, 0));
        *Component(i) = ComponentOfPosition(position);
        ComponentsChanged(slider);
    }
}

void ColourPickerDialog::OnFieldLeft(int index) {
    SipShowIM(SIPF_OFF);
    if (closing_) return;
    wchar_t text[32] = L"";
    GetWindowTextW(fields_[index], text, 32);
    long value = wcstol(text, nullptr, 10);
    if (static_cast<unsigned long>(value) > 255) {
        MessageBoxW(window_, Text(kPickerTextRangeMessage), Text(kPickerTextRangeCaption), MB_OK | MB_ICONSTOP);
        SendMessageW(fields_[index], EM_UNDO, 0, 0);
        return;
    }
    *Component(index) = static_cast<int>(value);
    ComponentsChanged(fields_[index]);
}

void ColourPickerDialog::OnHtmlFieldLeft() {
    SipShowIM(SIPF_OFF);
    if (closing_) return;
    wchar_t text[64] = L"";
    GetWindowTextW(htmlField_, text, 64);
    // Pairs that cannot be read keep their component.
    unsigned long parts[3] = {static_cast<unsigned long>(red_), static_cast<unsigned long>(green_),
                              static_cast<unsigned long>(blue_)};
    swscanf(text, L"%02lX%02lX%02lX", &parts[0], &parts[1], &parts[2]);
    for (int i = 0; i < 3; ++i) *Component(i) = static_cast<int>(parts[i] & 0xFF);
    ComponentsChanged(nullptr);
}

void ColourPickerDialog::LeaveFocusedField() {
    HWND focus = GetFocus();
    if (!focus) return;
    if (focus == htmlField_) OnHtmlFieldLeft();
    for (int i = 0; i < 3; ++i)
        if (focus == fields_[i]) OnFieldLeft(i);
}

void ColourPickerDialog::ChoosePalette(int index) {
    COLORREF chosen = PaletteColour(index);
    red_ = GetRValue(chosen);
    green_ = GetGValue(chosen);
    blue_ = GetBValue(chosen);
    ComponentsChanged(nullptr);
}

void ColourPickerDialog::ComponentsChanged(HWND source) {
    colour_ = RGB(red_, green_, blue_);
    ShowComponents(source);
    InvalidateSample();
}

void ColourPickerDialog::ShowComponents(HWND source) {
    wchar_t text[16];
    for (int i = 0; i < 3; ++i) {
        if (sliders_[i] && sliders_[i] != source)
            SendMessageW(sliders_[i], TBM_SETPOS, TRUE, SliderPosition(*Component(i)));
        if (fields_[i] && fields_[i] != source) {
            swprintf(text, 16, L"%d", *Component(i));
            SetWindowTextW(fields_[i], text);
        }
    }
    if (htmlField_ && htmlField_ != source) {
        swprintf(text, 16, L"%02lX%02lX%02lX", static_cast<unsigned long>(red_), static_cast<unsigned long>(green_),
                 static_cast<unsigned long>(blue_));
        SetWindowTextW(htmlField_, text);
    }
}

void ColourPickerDialog::ShowTab(int tab) {
    if (tab < 0 || tab >= kTabCount) return;
    tab_ = tab;
    if (tabs_ && SendMessageW(tabs_, TCM_GETCURSEL, 0, 0) != tab) SendMessageW(tabs_, TCM_SETCURSEL, tab, 0);
    for (int i = 0; i < 3; ++i) {
        ShowWindow(labels_[i], tab == 0 ? SW_SHOW : SW_HIDE);
        ShowWindow(sliders_[i], tab == 0 ? SW_SHOW : SW_HIDE);
        ShowWindow(fields_[i], tab == 0 ? SW_SHOW : SW_HIDE);
    }
    ShowWindow(htmlLabel_, tab == 1 ? SW_SHOW : SW_HIDE);
    ShowWindow(htmlField_, tab == 1 ? SW_SHOW : SW_HIDE);
    for (HWND button : palette_) ShowWindow(button, tab == 2 ? SW_SHOW : SW_HIDE);
    HWND focus = tab == 0 ? sliders_[0] : tab == 1 ? htmlField_ : palette_[0];
    if (focus) SetFocus(focus);
}

// ---- layout and drawing -------------------------------------------------------------------

void ColourPickerDialog::Layout(HWND window, int width, int height) {
    auto place = [](HWND child, int x, int y, int w, int h) {
        if (child) MoveWindow(child, x, y, w, h, TRUE);
    };
    place(tabs_, ScaleForDisplay(-2), height - ScaleForDisplay(44) + 1, width + ScaleForDisplay(2),
          ScaleForDisplay(19));
    place(defaultButton_, width - ScaleForDisplay(60), height - ScaleForDisplay(20), ScaleForDisplay(50),
          ScaleForDisplay(17));
    for (int i = 0; i < 3; ++i) {
        int y = ScaleForDisplay(10) + ScaleForDisplay(30) * i;
        place(labels_[i], 0, y + ScaleForDisplay(3), ScaleForDisplay(45), ScaleForDisplay(20));
        place(sliders_[i], ScaleForDisplay(50), y, width - ScaleForDisplay(105), ScaleForDisplay(24));
        place(fields_[i], width - ScaleForDisplay(50), y + ScaleForDisplay(2), ScaleForDisplay(40),
              ScaleForDisplay(20));
    }
    place(htmlLabel_, 0, ScaleForDisplay(13), ScaleForDisplay(48), ScaleForDisplay(20));
    place(htmlField_, ScaleForDisplay(53), ScaleForDisplay(10), width - ScaleForDisplay(63), ScaleForDisplay(20));

    int cell = ScaleForDisplay(16);
    int gap = (width - ScaleForDisplay(180)) / 10;
    int pitch = cell + gap;
    int left = (width - kPaletteColumns * pitch + gap) / 2;
    for (int i = 0; i < kPaletteSize; ++i) {
        int row = i / kPaletteColumns;
        int column = i % kPaletteColumns;
        place(palette_[i], left + pitch * column, ScaleForDisplay(10) + ScaleForDisplay(26) * row, cell, cell);
    }
    // Moved controls keep bits drawn for their old size: all of them are drawn again.
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

RECT ColourPickerDialog::SampleRect() const {
    RECT client = {};
    GetClientRect(window_, &client);
    return RECT{0, client.bottom - ScaleForDisplay(24), client.right, client.bottom};
}

void ColourPickerDialog::InvalidateSample() {
    RECT strip = SampleRect();
    InvalidateRect(window_, &strip, FALSE);
}

void ColourPickerDialog::OnPaint(HWND window, HDC dc, const PAINTSTRUCT& paint) {
    RECT strip = SampleRect();
    int width = strip.right - strip.left;
    int height = strip.bottom - strip.top;
    if (width <= 0 || height <= 0) return;
    // The dialog does not clip its children: the "Default" button inside the strip is left alone.
    if (defaultButton_ && IsWindowVisible(defaultButton_)) {
        RECT button;
        GetWindowRect(defaultButton_, &button);
        MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&button), 2);
        ExcludeClipRect(dc, button.left, button.top, button.right, button.bottom);
    }
    MemoryDc memory(CreateCompatibleDC(dc));
    Bitmap bitmap(CreateCompatibleBitmap(dc, width, height));
    if (!memory || !bitmap) return;
    DcSelection selected(memory.get(), bitmap.get());
    RECT local = {0, 0, width, height};
    DrawSample(memory.get(), local);
    BitBlt(dc, strip.left, strip.top, width, height, memory.get(), 0, 0, SRCCOPY);
}

void ColourPickerDialog::DrawSample(HDC dc, const RECT& strip) {
    FillRect(dc, &strip, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    RECT line = {strip.left, strip.top, strip.right, strip.top + ScaleForDisplay(1)};
    FillRect(dc, &line, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));

    DcSelection font(dc, normalFont());
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, RGB(0, 0, 0));
    const wchar_t* label = Text(kPickerTextSample);
    SIZE labelSize = {};
    GetTextExtentPoint32W(dc, label, static_cast<int>(wcslen(label)), &labelSize);
    RECT labelRect = {strip.left + ScaleForDisplay(4), strip.top, strip.right, strip.bottom};
    DrawTextW(dc, label, -1, &labelRect, DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);

    int swatchX = labelRect.left + labelSize.cx + ScaleForDisplay(6);
    int swatchHeight = ScaleForDisplay(12);
    int swatchY = strip.top + (strip.bottom - strip.top - swatchHeight) / 2;
    RECT swatch = {swatchX, swatchY, swatchX + ScaleForDisplay(50), swatchY + swatchHeight};
    if (colour_ == kNoColour) {
        DrawTextW(dc, Text(kPickerTextDefault), -1, &swatch, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
        return;
    }
    FillRect(dc, &swatch, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    InflateRect(&swatch, -ScaleForDisplay(1), -ScaleForDisplay(1));
    Brush fill(CreateSolidBrush(colour_ & 0x00FFFFFF));
    FillRect(dc, &swatch, fill.get());
}

void ColourPickerDialog::DrawPaletteButton(const DRAWITEMSTRUCT& item) {
    RECT cell = item.rcItem;
    FillRect(item.hDC, &cell, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    int border = (item.itemState & ODS_FOCUS) ? ScaleForDisplay(3) : ScaleForDisplay(1);
    if (item.itemState & ODS_FOCUS) {
        RECT ring = cell;
        InflateRect(&ring, -ScaleForDisplay(1), -ScaleForDisplay(1));
        FillRect(item.hDC, &ring, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    }
    InflateRect(&cell, -border, -border);
    Brush fill(CreateSolidBrush(PaletteColour(PaletteIndexOf(item.hwndItem))));
    FillRect(item.hDC, &cell, fill.get());
}

// ---- palette keyboard ---------------------------------------------------------------------

int ColourPickerDialog::PaletteIndexOf(HWND button) const {
    if (!button) return -1;
    for (int i = 0; i < kPaletteSize; ++i)
        if (palette_[i] == button) return i;
    return -1;
}

void ColourPickerDialog::MovePaletteFocus(int index, int step) {
    int next = index + step;
    SetFocus(next >= 0 && next < kPaletteSize ? palette_[next] : tabs_);
}

LRESULT CALLBACK ColourPickerDialog::PaletteButtonProc(HWND button, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* dialog = reinterpret_cast<ColourPickerDialog*>(GetWindowLongPtrW(button, GWLP_USERDATA));
    WNDPROC previous = dialog->buttonProc_;
    bool arrow = false;
    switch (message) {
    case WM_GETDLGCODE: {
        const MSG* key = reinterpret_cast<const MSG*>(lParam);
        arrow = key && key->message == WM_KEYDOWN && (key->wParam == VK_UP || key->wParam == VK_DOWN);
        LRESULT code = CallWindowProcW(previous, button, message, wParam, lParam);
        return arrow ? (code | DLGC_WANTARROWS) : code;
    }
    case WM_KEYDOWN:
        if (wParam == VK_UP || wParam == VK_DOWN) {
            dialog->MovePaletteFocus(dialog->PaletteIndexOf(button), wParam == VK_UP ? -kPaletteColumns
                                                                                       : kPaletteColumns);
            return 0;
        }
        break;
    case WM_LBUTTONUP:
    case WM_KEYUP:
    case BM_CLICK: {
        HWND outer = dialog->clickedButton_;
        dialog->clickedButton_ = button;
        LRESULT result = CallWindowProcW(previous, button, message, wParam, lParam);
        dialog->clickedButton_ = outer;
        return result;
    }
    case WM_NCDESTROY:
        SetWindowLongPtrW(button, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(previous));
        SetWindowLongPtrW(button, GWLP_USERDATA, 0);
        break;
    }
    return CallWindowProcW(previous, button, message, wParam, lParam);
}

}  // namespace

COLORREF PaletteColour(int index) {
    if (index < 0 || index >= kPaletteSize) return kNoColour;
    DWORD html = kPaletteHtml[index];
    return RGB((html >> 16) & 0xFF, (html >> 8) & 0xFF, html & 0xFF);
}

COLORREF RunColourPicker(ColourRequest* request) {
    HINSTANCE instance = g_app.instance ? g_app.instance : GetModuleHandleW(nullptr);
    ColourPickerDialog dialog(instance, request);
    RunModal(instance, &dialog);
    request->colour = dialog.result();
    return request->colour;
}

bool PickColour(COLORREF* colour, bool allowDefault) {
    ColourRequest request;
    request.colour = *colour;
    request.allowDefault = allowDefault;
    if (RunColourPicker(&request) == kColourCancelled) return false;
    *colour = request.colour;
    return true;
}
