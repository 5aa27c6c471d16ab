// The dialogs: the Today plug-in chooser over the device's Today items, the alphabet selection
// with Latin and Cyrillic active (the device's CustomAlphabets folder adds Thai and passes over
// Latvian), the three file browser variants on a device-like "\My Documents", the colour picker
// on each of its tabs, and the icon chooser in both its modes over the device's pictures.
#include <windows.h>

#include <cstdio>
#include <cwchar>
#include <iterator>
#include <string>

#include "dialogs/alphabet_dialog.h"
#include "dialogs/colour_picker.h"
#include "dialogs/file_browser.h"
#include "dialogs/icon_chooser.h"
#include "dialogs/today_plugin_chooser.h"
#include "settings/settings.h"
#include "shots.h"
#include "string_ids.h"
#include "support/app_state.h"

namespace {

const wchar_t kDocuments[] = L"\\My Documents";
// Folders have no dot in their name; each file holds one byte.
const wchar_t* const kDocumentEntries[] = {L"",           L"\\Backups",   L"\\Personal",
                                           L"\\Skins",     L"\\Templates", L"\\QL_Backup_2024_01_31.qlsb",
                                           L"\\QL_Backup_2024_03_02.qlsb", L"\\notes.txt"};

void RemoveDocuments() {
    for (size_t i = std::size(kDocumentEntries); i-- > 0;) {
        std::wstring path = std::wstring(kDocuments) + kDocumentEntries[i];
        wcschr(kDocumentEntries[i], L'.') ? DeleteFileW(path.c_str()) : RemoveDirectoryW(path.c_str());
    }
}

void MakeDocuments() {
    RemoveDocuments();
    for (const wchar_t* entry : kDocumentEntries) {
        std::wstring path = std::wstring(kDocuments) + entry;
        if (!wcschr(entry, L'.')) {
            CreateDirectoryW(path.c_str(), nullptr);
        } else if (FILE* file = _wfopen(path.c_str(), L"wb")) {
            fputc('x', file);
            fclose(file);
        }
    }
}

void TakeBrowserPictures(const ShotTarget& to) {
    const struct {
        BrowserKind kind;
        const wchar_t* title;
        const wchar_t* picture;
    } shots[] = {{BrowserKind::LoadFile, L"Import QL Settings", L"browser_load"},
                 {BrowserKind::SaveFile, L"Export QL Settings", L"browser_save"},
                 {BrowserKind::SelectFolder, L"Select Skin Path", L"browser_folder"}};
    MakeDocuments();
    for (const auto& shot : shots) {
        SetBrowserLastFolder(kDocuments);
        BrowserRequest request;
        request.kind = shot.kind;
        request.title.assign(shot.title);
        request.extension.assign(L"qlsb");
        request.description.assign(L"QL Settings Backup (qlsb)");
        if (shot.kind == BrowserKind::SaveFile) request.initialName.assign(L"QL_Backup_2024_04_15");
        LoadBrowserTexts(g_app.languageLibrary, &request);
        DialogPictures(to, shot.title, [&] { RunFileBrowser(&request); }, {{shot.picture, IDCANCEL}});
    }
    RemoveDocuments();
}

void TakeColourPickerPictures(const ShotTarget& to) {
    ColourRequest request;
    request.colour = RGB(0x33, 0x99, 0xCC);
    request.allowDefault = true;
    DialogPictures(to, L"Color", [&] { RunColourPicker(&request); },
                   {{nullptr, kPickerFirstTabCommand},
                    {L"colour_picker_rgb", kPickerFirstTabCommand + 1},
                    {L"colour_picker_html", kPickerFirstTabCommand + 2},
                    {L"colour_picker_palette", IDCANCEL}});
}

void TakeIconChooserPictures(const ShotTarget& to) {
    LoadSettings();
    WString icons(g_settings.general.QLIconsFolder.c_str()), current(icons.c_str()), chosen, title, setTitle;
    current.append(L"\\Holiday.bmp");
    title.load(g_app.languageLibrary, IDS_ICON_CHOOSER_TITLE);
    setTitle.load(g_app.languageLibrary, IDS_ICON_SET_TITLE);
    DialogPictures(to, title.c_str(), [&] { ChooseCategoryIcon(nullptr, {icons}, current.c_str(), &chosen); },
                   {{L"icon_chooser", IDCANCEL}});
    DialogPictures(to, setTitle.c_str(), [] { ChooseIconSet(nullptr); }, {{L"icon_set_chooser", IDCANCEL}});
}

ShotRegistration g_todayChooser(L"Today plug-in chooser", [](const ShotTarget& to) {
    WString chosen;
    DialogPictures(to, L"Today Plug-in", [&] { ChooseTodayPlugIn(g_app.instance, nullptr, &chosen); },
                   {{L"today_plugin_chooser", IDCANCEL}});
});
ShotRegistration g_alphabets(L"alphabets", [](const ShotTarget& to) {
    DialogPictures(to, L"Alphabets", [] { RunAlphabetSelection(nullptr, kLatinAlphabet | kCyrillicAlphabet); },
                   {{L"alphabets", IDCANCEL}});
});
ShotRegistration g_browser(L"browser", TakeBrowserPictures);
ShotRegistration g_colourPicker(L"colour picker", TakeColourPickerPictures);
ShotRegistration g_iconChooser(L"icon chooser", TakeIconChooserPictures);

}  // namespace
