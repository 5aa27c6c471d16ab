#include "support/language_text.h"

#include "support/app_state.h"

WString LanguageText(UINT id) {
    WString text;
    text.load(g_app.languageLibrary, id);
    return text;
}
