#include "dialogs/filter_name_dialog.h"

#include "program_ids.h"
#include "support/app_state.h"

namespace {

INT_PTR CALLBACK FilterNameProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG: {
        SetWindowLongPtrW(dialog, GWLP_USERDATA, lParam);
        HWND field = GetDlgItem(dialog, IDC_FILTER_NAME_EDIT);
        SendMessageW(field, EM_LIMITTEXT, kFilterNameChars, 0);
        SetWindowTextW(field, reinterpret_cast<WString*>(lParam)->c_str());
        SendMessageW(field, EM_SETSEL, 0, -1);
        SetFocus(field);
        return FALSE;  // the focus was set here
    }
    case WM_COMMAND:
        if (LOWORD(wParam) == IDOK) {
            wchar_t text[kFilterNameChars + 1] = {};
            GetDlgItemTextW(dialog, IDC_FILTER_NAME_EDIT, text, kFilterNameChars + 1);
            reinterpret_cast<WString*>(GetWindowLongPtrW(dialog, GWLP_USERDATA))->assign(text);
            EndDialog(dialog, 1);
            return TRUE;
        }
        if (LOWORD(wParam) == IDCANCEL) {
            EndDialog(dialog, 0);
            return TRUE;
        }
        return FALSE;
    default:
        return FALSE;
    }
}

}  // namespace

bool AskFilterName(HWND owner, WString* name) {
    HINSTANCE instance = g_app.instance ? g_app.instance : GetModuleHandleW(nullptr);
    WString edited(name->c_str());
    INT_PTR result = DialogBoxParamW(instance, MAKEINTRESOURCEW(IDD_FILTER_NAME), owner, FilterNameProc,
                                     reinterpret_cast<LPARAM>(&edited));
    if (result != 1) return false;
    name->assign(edited.c_str());
    return true;
}
