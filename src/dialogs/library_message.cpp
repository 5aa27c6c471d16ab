#include "dialogs/library_message.h"

#include "support/app_state.h"
#include "support/wide_string.h"

int LibraryMessageBox(HWND owner, UINT textId, UINT type) {
    WString text, caption;
    text.load(g_app.languageLibrary, textId);
    caption.load(g_app.languageLibrary, textId + 1);
    return MessageBoxW(owner, text.c_str(), caption.c_str(), type);
}
