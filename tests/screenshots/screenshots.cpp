// ql_screenshots <folder> <label>: the page grid, every page in every section, chosen things and the dialogs.
#include <windows.h>

#include <commctrl.h>

#include <cstdio>
#include <cwchar>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "dialogs/alphabet_dialog.h"
#include "dialogs/colour_picker.h"
#include "dialogs/file_browser.h"
#include "dialogs/icon_chooser.h"
#include "dialogs/today_plugin_chooser.h"
#include "files/categories.h"
#include "pages/calendar_page.h"
#include "pages/notes_page.h"
#include "pages/tasks_page.h"
#include "settings/settings.h"
#include "shell/application.h"
#include "shell/main_window.h"
#include "shell/settings_page.h"
#include "shots.h"
#include "string_ids.h"
#include "support/app_state.h"
#include "support/display_scale.h"
#include "support/language_text.h"

namespace {

void Pump(int rounds) {
    for (int i = 0; i < rounds; ++i) {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
        Sleep(40);
    }
}

// A fitted main window on screen, destroyed on leaving scope.
struct ShotWindow {
    ShotWindow() : window(CreateFittedMainWindow(g_app.instance)) {
        ShowWindow(window, SW_SHOW);
        Pump(8);
    }
    ~ShotWindow() {
        closePage();
        DestroyWindow(window);  // frees the language and display libraries, which dialogs need
        Pump(2);
        SetVgaMode(false);  // reads the screen's pixels per inch
        g_app.languageLibrary = LoadLibraryW(L"QLEngRc.dll");
        g_app.displayLibrary = LoadLibraryW(ScaleForDisplay(1) > 1 ? L"HighDpiRes.dll" : L"LowDpiRes.dll");
    }
    SettingsPage* openPage(int index) {
        closePage();
        NMITEMACTIVATE activate = {{g_app.pageList, 0, static_cast<UINT>(LVN_ITEMACTIVATE)}, index};
        SendMessageW(window, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&activate));
        Pump(4);
        if (!g_app.currentPage || !g_app.currentPage->window()) {
            fwprintf(stderr, L"page %d did not open\n", index);
            ExitProcess(1);  // every picture after this one would be of the wrong window
        }
        return g_app.currentPage;
    }
    void closePage() {
        SendMessageW(window, kClosePageMessage, 0, 0);
        Pump(2);
    }
    void picture(const ShotTarget& to, const wchar_t* name) {
        Pump(8);
        to.save(window, name);
    }
    HWND window;
};

// Switches the page to another section as a click on its tab does: the tab control notifies the page.
void ShowSection(SettingsPage* page, int section) { TabCtrl_SetCurFocus(page->sectionTabs(), section); }

void SelectRow(HWND list, int row) {
    ListView_SetItemState(list, row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
}

// Picks a combo box entry as the user does: the selection, then the notification.
void Choose(SettingsPage* page, int combo, int entry) {
    SendMessageW(page->control(combo), CB_SETCURSEL, entry, 0);
    SendMessageW(page->window(), WM_COMMAND, MAKEWPARAM(kPageControlIdBase + combo, CBN_SELENDOK),
                 reinterpret_cast<LPARAM>(page->control(combo)));
}

// A registry value that exists while the guard lives: `text` as REG_SZ, else `number` as REG_DWORD.
struct TemporaryValue {
    TemporaryValue(HKEY root, const wchar_t* path, const wchar_t* name, const wchar_t* text, DWORD number = 0)
        : root(root), path(path), name(name) {
        DWORD size = text ? static_cast<DWORD>((wcslen(text) + 1) * sizeof(wchar_t)) : sizeof number;
        RegSetKeyValueW(root, path, name, text ? REG_SZ : REG_DWORD, text ? static_cast<const void*>(text) : &number,
                        size);
    }
    ~TemporaryValue() { RegDeleteKeyValueW(root, path, name); }
    HKEY root;
    const wchar_t *path, *name;
};

std::function<void()> g_onTimer = [] {};

void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) { g_onTimer(); }

// Runs `open`, which shows the dialog titled `title` modally, and takes one step every ten timer ticks while the
// dialog is up: saves the step's picture, then posts its command. After 5 s the active dialog is ended.
void DialogPictures(const ShotTarget& to, const wchar_t* title, const std::function<void()>& open,
                    const std::vector<std::pair<const wchar_t*, UINT>>& steps) {
    auto step = steps.begin();
    int ticks = 0, ticksShown = 0;
    g_onTimer = [&] {
        if (step == steps.end()) return;
        if (++ticks > 500) EndDialog(GetActiveWindow(), 0);  // the dialog never showed up
        HWND dialog = FindWindowW(L"#32770", title);
        if (!dialog || !IsWindowVisible(dialog)) return;
        SetForegroundWindow(dialog);
        if (++ticksShown % 10 != 0) return;  // a few ticks for everything to be drawn
        to.save(dialog, step->first);
        PostMessageW(dialog, WM_COMMAND, step++->second, 0);
    };
    UINT_PTR timer = SetTimer(nullptr, 0, 10, OnTimer);
    open();
    KillTimer(nullptr, timer);
    g_failures += step == steps.end() ? 0 : 1;  // the dialog never showed up or closed early
    g_onTimer = [] {};                          // a timer message may still be queued
}

void PagePictures(const ShotTarget& to) {
    const wchar_t* const names[12] = {L"general", L"calendar", L"tasks",   L"notes", L"contacts", L"messages",
                                      L"sevents", L"fonts",    L"colours", L"pim",   L"tabs",     L"categories"};
    ShotWindow main;
    main.picture(to, L"page_grid");
    for (int index = 0; index < 12; ++index) {
        SettingsPage* page = main.openPage(index);
        int sections = !page ? 0 : page->sectionTabs() ? TabCtrl_GetItemCount(page->sectionTabs()) : 1;
        for (int section = 0; section < sections; ++section) {
            if (section > 0) ShowSection(page, section);
            main.picture(to, (names[index] + (L"_" + std::to_wstring(section + 1))).c_str());
        }
    }
}

// The file browsers run over a device-like "\My Documents" made on the current drive.
void OpenBrowser(BrowserKind kind, const wchar_t* title) {
    SetBrowserLastFolder(L"\\My Documents");
    BrowserRequest request;
    request.kind = kind;
    request.title.assign(title);
    request.extension.assign(L"qlsb");
    request.description.assign(L"QL Settings Backup (qlsb)");
    if (kind == BrowserKind::SaveFile) request.initialName.assign(L"QL_Backup_2024_04_15");
    LoadBrowserTexts(g_app.languageLibrary, &request);
    RunFileBrowser(&request);
}

void Dialogs(const ShotTarget& to) {
    const std::filesystem::path documents = L"\\My Documents";
    std::error_code ignored;
    for (const wchar_t* name : {L"Backups", L"Personal", L"Skins", L"Templates"})
        std::filesystem::create_directories(documents / name, ignored);
    for (const wchar_t* name : {L"QL_Backup_2024_01_31.qlsb", L"QL_Backup_2024_03_02.qlsb", L"notes.txt"})
        std::ofstream(documents / name) << 'x';
    WString icons(g_settings.general.QLIconsFolder.c_str()), current(icons.c_str()), chosen;
    current.append(L"\\Holiday.bmp");
    ColourRequest colour = {RGB(0x33, 0x99, 0xCC), true};
    DialogPictures(to, L"Color", [&] { RunColourPicker(&colour); },
                   {{L"colour_picker_rgb", kPickerFirstTabCommand + 1},
                    {L"colour_picker_html", kPickerFirstTabCommand + 2},
                    {L"colour_picker_palette", IDCANCEL}});
    const struct {
        std::wstring title;
        const wchar_t* picture;
        std::function<void()> open;
    } dialogs[] = {
        {L"Today Plug-in", L"today_plugin_chooser", [&] { ChooseTodayPlugIn(g_app.instance, nullptr, &chosen); }},
        {L"Alphabets", L"alphabets", [] { RunAlphabetSelection(nullptr, kLatinAlphabet | kCyrillicAlphabet); }},
        {L"Import QL Settings", L"browser_load", [] { OpenBrowser(BrowserKind::LoadFile, L"Import QL Settings"); }},
        {L"Export QL Settings", L"browser_save", [] { OpenBrowser(BrowserKind::SaveFile, L"Export QL Settings"); }},
        {L"Select Skin Path", L"browser_folder", [] { OpenBrowser(BrowserKind::SelectFolder, L"Select Skin Path"); }},
        {LanguageText(IDS_ICON_CHOOSER_TITLE).c_str(), L"icon_chooser",
         [&] { ChooseCategoryIcon(nullptr, {icons}, current.c_str(), &chosen); }},
        {LanguageText(IDS_ICON_SET_TITLE).c_str(), L"icon_set_chooser", [] { ChooseIconSet(nullptr); }}};
    for (const auto& dialog : dialogs)
        DialogPictures(to, dialog.title.c_str(), dialog.open, {{dialog.picture, IDCANCEL}});
    std::filesystem::remove_all(documents, ignored);
}

// Pages after the user has chosen things, closed without saving, which keeps the choices in the settings: each page
// comes before the pages whose choices would change its pictures.
void ChoicePictures(const ShotTarget& to) {
    ShotWindow main;
    auto* tasks = static_cast<TasksSettingsWin*>(main.openPage(2));
    SendMessageW(tasks->control(1), CB_SETCURSEL, 0, 0);  // start and due dates
    ShowSection(tasks, 2);
    tasks->strip(1).ChooseMarker(5);  // high priority
    tasks->strip(2).ChooseMarker(0);  // note
    main.picture(to, L"tasks_icons_chosen");
    ShowSection(tasks, 3);
    SendMessageW(tasks->control(21), BM_CLICK, 0, 0);
    SetWindowTextW(tasks->control(23), L"ddd d MMM");
    SetWindowTextW(tasks->control(25), L"'due' d/M");
    SendMessageW(tasks->control(27), CB_SETCURSEL, 0, 0);
    main.picture(to, L"tasks_custom_date");
    ShowSection(tasks, 2);
    main.picture(to, L"tasks_custom_date_preview");
    const struct {
        int section, list, row;
        const wchar_t* picture;
    } options[] = {{1, 10, 1, L"calendar_check"},          {3, 12, 0, L"calendar_choice"},
                   {5, 13, 9, L"calendar_pinned"},         {6, 14, 4, L"calendar_mail_program"},
                   {7, 15, 5, L"calendar_day_title_text"}, {7, 15, 6, L"calendar_title_order"}};
    auto* calendar = static_cast<CalendarSettingsWin*>(main.openPage(1));
    for (const auto& option : options) {
        if (calendar->CurrentSection() != option.section) ShowSection(calendar, option.section);
        SetFocus(calendar->control(option.list));
        SelectRow(calendar->control(option.list), option.row);
        main.picture(to, option.picture);
    }
    ShowSection(calendar, 4);
    calendar->strip(1).ChooseMarker(1);
    calendar->strip(2).ChooseMarker(0);
    calendar->strip(3).ChooseMarker(5);
    g_settings.calendar.ApptDisplayFormat.value = 9;
    g_settings.general.IndentItems.value = 1;
    main.picture(to, L"calendar_icons_chosen");
    g_settings.colors.ClrStatusBusy.value = RGB(0x00, 0x66, 0xFF);
    SettingsPage* colours = main.openPage(8);
    for (int item = 13; item <= 14; ++item) {
        SelectRow(colours->control(1), item);
        ListView_EnsureVisible(colours->control(1), item, FALSE);
        main.picture(to, item == 13 ? L"colours_item" : L"colours_item_default");
    }
    g_settings.fonts.FontGnrlUseAdvncd.value = 0;
    g_settings.fonts.FontCalApptBusy.colour.value = RGB(0x00, 0x66, 0xFF);
    SettingsPage* fonts = main.openPage(7);
    ShowSection(fonts, 1);
    SelectRow(fonts->control(11), 6);
    main.picture(to, L"fonts_sample_simple");
    SendMessageW(fonts->control(4), BM_CLICK, 0, 0);  // the mode check box, on the hidden section
    main.picture(to, L"fonts_sample_advanced");
    ListView_SetSelectionMark(fonts->control(11), 6);
    DialogPictures(to, L"Font", [&] { SendMessageW(fonts->control(10), BM_CLICK, 0, 0); },
                   {{L"font_dialog", IDCANCEL}});
}

// Pages showing what they find in the registry: notes folders, organiser programs, category filters in use.
void RegistryPictures(const ShotTarget& to) {
    TemporaryValue first(HKEY_CURRENT_USER, kNotesFoldersKeyPath, L"0", L"\\Program Files");
    TemporaryValue second(HKEY_CURRENT_USER, kNotesFoldersKeyPath, L"1", L"\\windows");
    TemporaryValue informant(HKEY_CURRENT_USER, L"Software\\WebIS\\PocketInformant", L"version", nullptr, 3);
    TemporaryValue fusion(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Developer One, Inc.\\Agenda Fusion", L"VerMajor", nullptr, 3);
    TemporaryValue agendaOne(HKEY_CURRENT_USER, L"SOFTWARE\\Developer One\\Agenda One", L"InstallPath",
                             L"\\Program Files\\Agenda One");
    TemporaryValue filtersOn(HKEY_CURRENT_USER, L"Software\\Orvane\\Quillory", L"FilterMethodToUse", nullptr, 1);
    ShotWindow main;
    ShowSection(main.openPage(3), 3);
    main.picture(to, L"notes_folders");
    SettingsPage* events = main.openPage(6);
    Choose(events, 5, 2);
    main.picture(to, L"sevents_date_chosen");
    ShowSection(events, 1);
    for (int row = 0; row < 4; ++row) Choose(events, 13 + 2 * row, row + 1);
    main.picture(to, L"sevents_categories_chosen");
    SettingsPage* pim = main.openPage(9);
    Choose(pim, 1, 2);
    main.picture(to, L"pim_fusion_chosen");
    ShowSection(pim, 1);
    main.picture(to, L"pim_fusion_options");
    const COLORREF colours[] = {RGB(220, 40, 40), RGB(40, 150, 60), RGB(40, 90, 210)};
    int given = 0, row = 0;
    for (CategoryRecord* r = g_categories.head; r && given < 3; r = r->next, ++row)
        if (row % 2 == 0) r->colour = colours[given++];
    SettingsPage* categories = main.openPage(11);
    ShowSection(categories, 1);
    SelectRow(categories->control(1), 2);
    main.picture(to, L"categories_rows");
    ShowSection(categories, 2);
    SendMessageW(categories->control(5), CB_SETCURSEL, 0, 0);
    main.picture(to, L"categories_filters");
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    if (argc < 3) {
        fwprintf(stderr, L"usage: ql_screenshots <folder> <label>\n");
        return 2;
    }
    const ShotTarget to = {argv[1], argv[2]};
    InitCommonControlsForProgram();
    g_app.instance = GetModuleHandleW(nullptr);
    RegisterMainWindowClass(g_app.instance);
    for (auto take : {PagePictures, Dialogs, ChoicePictures, RegistryPictures}) take(to);
    return g_failures == 0 ? 0 : 1;
}
