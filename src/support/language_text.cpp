#include "support/language_text.h"

#include "support/app_state.h"

WString LanguageText(UINT id) {
    WString text;
    text.load(g_app.languageLibrary, id);
    return text;
}

int LibraryMessageBox(HWND owner, UINT textId, UINT type) {
    return MessageBoxW(owner, LanguageText(textId).c_str(), LanguageText(textId + 1).c_str(), type);
}
