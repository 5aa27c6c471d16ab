#include "shell/page_factory.h"

#include "pages/calendar_page.h"
#include "pages/categories_page.h"
#include "pages/colours_page.h"
#include "pages/contacts_page.h"
#include "pages/fonts_page.h"
#include "pages/general_page.h"
#include "pages/messages_page.h"
#include "pages/notes_page.h"
#include "pages/pim_page.h"
#include "pages/sevents_page.h"
#include "pages/tasks_page.h"
#include "pages/tabs_page.h"
#include "support/app_state.h"
#include "shell/settings_page.h"

namespace {

struct PageEntry {
    const wchar_t* className;
    SettingsPage* (*create)();
};

// The pages in page-list order; a null creator is a page this build does not have yet.
const PageEntry kPages[kPageCount] = {
    {L"GeneralSettingsWin", CreateGeneralPage},  {L"CalendarSettingsWin", CreateCalendarPage}, {L"TasksSettingsWin", CreateTasksPage},
    {L"NotesSettingsWin", CreateNotesPage},    {L"ContactSettingsWin", CreateContactsPage},  {L"MessagesSettingsWin", CreateMessagesPage},
    {L"SEventsSettingsWin", CreateSEventsPage},  {L"FontSettingsWin", CreateFontsPage},     {L"ColorSettingsWin", CreateColoursPage},
    {L"PIMSettingsWin", CreatePimPage},      {L"TabsSettingsWin", CreateTabsPage},{L"CategorySettingsWin", CreateCategoriesPage},
};

}  // namespace

SettingsPage* CreatePage(HWND mainWindow, int index) {
    if (index < 0 || index >= kPageCount || !kPages[index].create) return nullptr;
    SettingsPage* page = kPages[index].create();
    CreatePageWindow(page, mainWindow, kPages[index].className, g_app.instance, g_app.normalFont, g_app.boldFont);
    return page;
}
