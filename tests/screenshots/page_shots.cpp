// Pages after the user has chosen things, each over a main window of its own, closed without
// saving; registry values the pictures need are removed afterwards.
#include <windows.h>
#include <commctrl.h>

#include <cwchar>

#include "files/categories.h"
#include "pages/calendar_page.h"
#include "pages/notes_page.h"
#include "pages/tasks_page.h"
#include "settings/settings.h"
#include "shell/settings_page.h"
#include "shots.h"
#include "support/app_state.h"

namespace {

// A registry value that exists while the guard lives: `text` as REG_SZ, else `number` as REG_DWORD.
struct TemporaryValue {
    TemporaryValue(HKEY root, const wchar_t* path, const wchar_t* name, const wchar_t* text, DWORD number = 0)
        : root(root), path(path), name(name) {
        if (text)
            RegSetKeyValueW(root, path, name, REG_SZ, text, static_cast<DWORD>((wcslen(text) + 1) * sizeof(wchar_t)));
        else
            RegSetKeyValueW(root, path, name, REG_DWORD, &number, sizeof number);
    }
    ~TemporaryValue() { RegDeleteKeyValueW(root, path, name); }
    HKEY root;
    const wchar_t *path, *name;
};

// Picks a combo box entry as the user does: the selection, then the notification.
void Choose(SettingsPage* page, int combo, int entry) {
    SendMessageW(page->control(combo), CB_SETCURSEL, entry, 0);
    SendMessageW(page->window(), WM_COMMAND, MAKEWPARAM(kPageControlIdBase + combo, CBN_SELENDOK),
                 reinterpret_cast<LPARAM>(page->control(combo)));
}

// An option of each kind open in its detail area, then left icons chosen and a layout without times.
void TakeCalendarPictures(const ShotTarget& to) {
    const struct {
        int section, list, row;
        const wchar_t* picture;
    } options[] = {{1, 10, 1, L"calendar_check"},         {3, 12, 0, L"calendar_choice"},
                   {5, 13, 9, L"calendar_pinned"},        {6, 14, 4, L"calendar_mail_program"},
                   {7, 15, 5, L"calendar_day_title_text"}, {7, 15, 6, L"calendar_title_order"}};
    ShotWindow main;
    auto* page = static_cast<CalendarSettingsWin*>(main.openPage(1));
    if (!page) return;
    for (const auto& option : options) {
        if (page->CurrentSection() != option.section) ShowSection(page, option.section);
        SetFocus(page->control(option.list));
        SelectRow(page->control(option.list), option.row);
        main.picture(to, option.picture);
    }
    ShowSection(page, 4);
    page->strip(1).ChooseMarker(1);
    page->strip(2).ChooseMarker(0);
    page->strip(3).ChooseMarker(5);
    g_settings.calendar.ApptDisplayFormat.value = 9;
    g_settings.general.IndentItems.value = 1;
    main.picture(to, L"calendar_icons_chosen");
}

// With category filters in use the filter section has a tab; three categories get colours.
void TakeCategoriesPictures(const ShotTarget& to) {
    TemporaryValue filtersOn(HKEY_CURRENT_USER, L"Software\\Orvane\\Quillory", L"FilterMethodToUse", nullptr, 1);
    ShotWindow main;
    const COLORREF colours[] = {RGB(220, 40, 40), RGB(40, 150, 60), RGB(40, 90, 210)};
    int given = 0, row = 0;
    for (CategoryRecord* r = g_categories.head; r && given < 3; r = r->next, ++row)
        if (row % 2 == 0) r->colour = colours[given++];
    SettingsPage* page = main.openPage(11);
    if (!page) return;
    ShowSection(page, 1);
    SelectRow(page->control(1), 2);
    main.picture(to, L"categories_rows");
    ShowSection(page, 2);
    SendMessageW(page->control(5), CB_SETCURSEL, 0, 0);
    main.picture(to, L"categories_filters");
}

// A colour item with a colour of its own, then one without (its sample reads "Default").
void TakeColoursPictures(const ShotTarget& to) {
    ShotWindow main;
    g_settings.colors.ClrStatusBusy.value = RGB(0x00, 0x66, 0xFF);
    SettingsPage* page = main.openPage(8);
    if (!page) return;
    for (int item : {13, 14}) {
        SelectRow(page->control(1), item);
        ListView_EnsureVisible(page->control(1), item, FALSE);
        main.picture(to, item == 13 ? L"colours_item" : L"colours_item_default");
    }
}

// A selected row's sample in both modes, then the font dialog Edit opens on that row.
void TakeFontsPictures(const ShotTarget& to) {
    ShotWindow main;
    g_settings.fonts.FontGnrlUseAdvncd.value = 0;
    g_settings.fonts.FontCalApptBusy.colour.value = RGB(0x00, 0x66, 0xFF);
    SettingsPage* page = main.openPage(7);
    if (!page) return;
    ShowSection(page, 1);
    SelectRow(page->control(11), 6);
    main.picture(to, L"fonts_sample_simple");
    SendMessageW(page->control(4), BM_CLICK, 0, 0);  // the mode check box, on the hidden section
    main.picture(to, L"fonts_sample_advanced");
    ListView_SetSelectionMark(page->control(11), 6);
    DialogPictures(to, L"Font", [&] { SendMessageW(page->control(10), BM_CLICK, 0, 0); }, {{L"font_dialog", IDCANCEL}});
}

void TakeNotesPictures(const ShotTarget& to) {
    {
        TemporaryValue first(HKEY_CURRENT_USER, kNotesFoldersKeyPath, L"0", L"\\Program Files");
        TemporaryValue second(HKEY_CURRENT_USER, kNotesFoldersKeyPath, L"1", L"\\windows");
        ShotWindow main;
        if (SettingsPage* page = main.openPage(3)) {
            ShowSection(page, 3);
            main.picture(to, L"notes_folders");
        }
    }
    RegDeleteTreeW(HKEY_CURRENT_USER, kNotesFoldersKeyPath);
}

// Special events with a date format and four categories chosen; the PIM page with the three other
// applications installed and Agenda Fusion chosen.
void TakeOptionPagePictures(const ShotTarget& to) {
    TemporaryValue informant(HKEY_CURRENT_USER, L"Software\\WebIS\\PocketInformant", L"version", nullptr, 3);
    TemporaryValue fusion(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Developer One, Inc.\\Agenda Fusion", L"VerMajor", nullptr, 3);
    TemporaryValue agendaOne(HKEY_CURRENT_USER, L"SOFTWARE\\Developer One\\Agenda One", L"InstallPath",
                             L"\\Program Files\\Agenda One");
    ShotWindow main;
    if (SettingsPage* events = main.openPage(6)) {
        Choose(events, 5, 2);
        main.picture(to, L"sevents_date_chosen");
        ShowSection(events, 1);
        for (int row = 0; row < 4; ++row) Choose(events, 13 + 2 * row, row + 1);
        main.picture(to, L"sevents_categories_chosen");
        main.closePage();
    }
    if (SettingsPage* pim = main.openPage(9)) {
        Choose(pim, 1, 2);
        main.picture(to, L"pim_fusion_chosen");
        ShowSection(pim, 1);
        main.picture(to, L"pim_fusion_options");
    }
}

// Left icons chosen over the sample task, and a date format of the user's own ticked and typed.
void TakeTasksPictures(const ShotTarget& to) {
    ShotWindow main;
    auto* page = static_cast<TasksSettingsWin*>(main.openPage(2));
    if (!page) return;
    SendMessageW(page->control(1), CB_SETCURSEL, 0, 0);  // start and due dates
    ShowSection(page, 2);
    page->strip(1).ChooseMarker(5);  // high priority
    page->strip(2).ChooseMarker(0);  // note
    main.picture(to, L"tasks_icons_chosen");
    ShowSection(page, 3);
    SendMessageW(page->control(21), BM_CLICK, 0, 0);
    SetWindowTextW(page->control(23), L"ddd d MMM");
    SetWindowTextW(page->control(25), L"'due' d/M");
    SendMessageW(page->control(27), CB_SETCURSEL, 0, 0);
    main.picture(to, L"tasks_custom_date");
    ShowSection(page, 2);
    main.picture(to, L"tasks_custom_date_preview");
}

ShotRegistration g_calendar(L"calendar", TakeCalendarPictures);
ShotRegistration g_categoriesPage(L"categories page", TakeCategoriesPictures);
ShotRegistration g_colours(L"colours page with a selected item", TakeColoursPictures);
ShotRegistration g_fonts(L"fonts page samples and font dialog", TakeFontsPictures);
ShotRegistration g_notes(L"notes folders", TakeNotesPictures);
ShotRegistration g_optionPages(L"option pages", TakeOptionPagePictures);
ShotRegistration g_tasks(L"tasks", TakeTasksPictures);

}  // namespace
