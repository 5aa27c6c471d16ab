#include "shell/about_box.h"

#include <cstring>
#include <vector>

#include "support/app_state.h"
#include "support/wide_string.h"

const wchar_t kAboutTitle[] = L"About Quillory";

namespace {

const int kVersionLabelId = 100;
const int kDateLabelId = 101;

// Appends a 16-bit-aligned block to an in-memory dialog template.
class TemplateWriter {
public:
    void Word(WORD value) { Append(&value, sizeof value); }
    void Dword(DWORD value) { Append(&value, sizeof value); }
    void Text(const wchar_t* text) { Append(text, (wcslen(text) + 1) * sizeof(wchar_t)); }
    void AlignToDword() {
        while (bytes_.size() % 4) bytes_.push_back(0);
    }
    void Control(DWORD style, short x, short y, short cx, short cy, WORD id, WORD classAtom, const wchar_t* text) {
        AlignToDword();
        Dword(style);
        Dword(0);
        Word(static_cast<WORD>(x));
        Word(static_cast<WORD>(y));
        Word(static_cast<WORD>(cx));
        Word(static_cast<WORD>(cy));
        Word(id);
        Word(0xFFFF);
        Word(classAtom);
        Text(text);
        Word(0);
    }
    DLGTEMPLATE* get() { return reinterpret_cast<DLGTEMPLATE*>(bytes_.data()); }

private:
    void Append(const void* data, size_t size) {
        const BYTE* begin = static_cast<const BYTE*>(data);
        bytes_.insert(bytes_.end(), begin, begin + size);
    }
    std::vector<BYTE> bytes_;
};

const WORD kButtonAtom = 0x0080;
const WORD kStaticAtom = 0x0082;

INT_PTR CALLBACK AboutProc(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_INITDIALOG) {
        WString version;
        version.format(L"Version %s", QL_VERSION_TEXT);
        SetDlgItemTextW(dialog, kVersionLabelId, version.c_str());
        WString built;
        built.format(L"Built %hs", __DATE__);
        SetDlgItemTextW(dialog, kDateLabelId, built.c_str());
        return TRUE;
    }
    if (message == WM_COMMAND && (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL)) {
        EndDialog(dialog, 1);
        return TRUE;
    }
    return FALSE;
}

}  // namespace

void ShowAboutBox(HWND owner) {
    TemplateWriter writer;
    writer.Dword(WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_CENTER | DS_SETFONT);
    writer.Dword(0);
    writer.Word(4);  // controls
    writer.Word(0);
    writer.Word(0);
    writer.Word(140);
    writer.Word(82);
    writer.Word(0);  // no menu
    writer.Word(0);  // standard class
    writer.Text(kAboutTitle);
    writer.Word(8);
    writer.Text(L"Tahoma");
    writer.Control(WS_CHILD | WS_VISIBLE | SS_CENTER, 6, 8, 128, 10, 0xFFFF, kStaticAtom, L"QL Options for Quillory");
    writer.Control(WS_CHILD | WS_VISIBLE | SS_CENTER, 6, 22, 128, 10, kVersionLabelId, kStaticAtom, L"");
    writer.Control(WS_CHILD | WS_VISIBLE | SS_CENTER, 6, 34, 128, 10, kDateLabelId, kStaticAtom, L"");
    writer.Control(WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_DEFPUSHBUTTON, 45, 58, 50, 14, IDOK, kButtonAtom, L"OK");
    DialogBoxIndirectParamW(g_app.instance, writer.get(), owner, AboutProc, 0);
}
