// The Categories page on a seeded registry, a scratch icons folder and the 32 filters: the filter
// tab that comes and goes with its check box, the editor's numbering against the default filters,
// icons copied and deleted at once through the real chooser, a rename written by Done, the row
// drawn in the highlight colours, and a values round trip.
#include <windows.h>
#include <commctrl.h>

#include "common/bitmap_bytes.h"
#include "dialogs/modal_script.h"
#include "page_fixture.h"

namespace {

enum { kUseFilters, kCategoryList, kIcon, kFilterCombo = 5, kRename, kVisible, kUncategorized, kSensitivity = 10,
       kMembers = 13, kFolder = 15 };
using Texts = std::vector<std::wstring>;

class CategoriesPage : public PageFixture {
protected:
    void TearDown() override { PageFixture::TearDown(), ClearFilters(g_filters); }
    void Seed() {
        RegPutString(HKEY_CURRENT_USER, kProductPath, L"QLIconsFolder", icons_.path().c_str());
        RegPutDword(HKEY_CURRENT_USER, kProductPath, L"FilterMethodToUse", 1);
    }
    // Seeds the icons folder and the filter switch, lists the categories with their look and opens
    // the page.
    void OpenWith(Texts names) {
        Seed();
        for (const std::wstring& name : names) AddCategory(g_categories, name.c_str());
        LoadCategoryLook(g_categories, icons_.path().c_str());
        if (!g_filters.head) MakeDefaultFilters(g_filters);
        Open(11);
    }
    bool Checked(int number) { return SendMessageW(Control(number), BM_GETCHECK, 0, 0) == BST_CHECKED; }
    void ShowTab(int tab) {
        TabCtrl_SetCurSel(page_->sectionTabs(), tab);
        NMHDR change = {page_->sectionTabs(), 0, static_cast<UINT>(TCN_SELCHANGE)};
        SendMessageW(page_->window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&change));
    }
    void Click(int number) { SendMessageW(Control(number), BM_CLICK, 0, 0); }
    void PickFilter(int entry) {
        SendMessageW(Control(kFilterCombo), CB_SETCURSEL, entry, 0);
        SendMessageW(page_->window(), WM_COMMAND, MAKEWPARAM(0, CBN_SELCHANGE), (LPARAM)Control(kFilterCombo));
    }
    void SelectRow(int list, int row) { ListView_SetItemState(Control(list), row, LVIS_SELECTED, LVIS_SELECTED); }
    Texts Tabs() {
        Texts titles;
        for (int i = 0; i < TabCtrl_GetItemCount(page_->sectionTabs()); ++i) {
            wchar_t text[64] = {};
            TCITEMW item = {TCIF_TEXT, 0, 0, text, 64};
            TabCtrl_GetItem(page_->sectionTabs(), i, &item);
            titles.push_back(text);
        }
        return titles;
    }
    // Presses `button`, which opens a dialog titled `title`; `step` acts in it and closes it.
    void InDialog(int button, const wchar_t* title, std::function<bool(HWND)> step) {
        ModalScript().Then([&] {
            HWND dialog = ModalScript::FindDialog(title);
            return dialog && step(dialog);
        }).Play([&] { Click(button); });
    }
    // The Icon button with entry `pick` of the chooser confirmed; returns the entries offered.
    Texts ChooseIcon(int pick) {
        Texts offered;
        InDialog(kIcon, L"Category Icon", [&](HWND chooser) {
            HWND list = GetDlgItem(chooser, 1001);
            offered = ListTexts(list);
            ListView_SetItemState(list, pick, LVIS_SELECTED, LVIS_SELECTED);
            return PostMessageW(chooser, WM_COMMAND, IDOK, 0) != FALSE;
        });
        return offered;
    }
    ScratchFolder icons_{L"category_icons"}, pictures_{L"category_pictures"};
};

TEST_F(CategoriesPage, TheFilterTabFollowsTheCheckBoxAtOnce) {
    OpenWith({L"Work"});
    EXPECT_EQ(Tabs(), (Texts{L"General", L"Categories", L"Filters", L"Other"}));
    Click(kUseFilters);
    EXPECT_EQ(Tabs(), (Texts{L"General", L"Categories", L"Other"}));
    ShowTab(2);
    EXPECT_TRUE(IsWindowVisible(Control(kFolder)) && !IsWindowVisible(Control(kFilterCombo))) << "the third tab";
    Click(kUseFilters);
    EXPECT_EQ(Tabs(), (Texts{L"General", L"Categories", L"Filters", L"Other"}));
    Click(kUseFilters);
    ShowEverySectionCloseAndSave();
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kProductPath, L"FilterMethodToUse") << "unchecked is the default";
}

TEST_F(CategoriesPage, WithTheDefaultFiltersEntryNEditsTheFlagsOfFilterNPlusOne) {
    MakeDefaultFilters(g_filters);
    FilterRecord* second = FindFilter(g_filters, 1);
    second->visible = false, second->includeUncategorized = true;
    OpenWith({L"Home", L"Work"});
    FindCategory(g_categories, L"Work")->filterMask = 0x80000000u;
    EXPECT_TRUE(!Checked(kVisible) && Checked(kUncategorized)) << "entry 0 shows Filter 2";
    Click(kVisible), SendMessageW(Control(kSensitivity), CB_SETCURSEL, 2, 0);
    ListView_SetCheckState(Control(kMembers), 0, TRUE);
    PickFilter(31);
    EXPECT_TRUE(second->visible && second->sensitivity == 2 && FindFilter(g_filters, 0)->sensitivity == 0);
    EXPECT_TRUE(ListView_GetCheckState(Control(kMembers), 1)) << "Work is in filter bit 31";
    EXPECT_TRUE(Checked(kVisible) && Checked(kUncategorized)) << "no filter 32: the flags stay";
    ListView_SetCheckState(Control(kMembers), 1, FALSE);
    Click(kUncategorized);
    Close();
    EXPECT_EQ(FindCategory(g_categories, L"Home")->filterMask, 1u);
    EXPECT_EQ(FindCategory(g_categories, L"Work")->filterMask, 0u) << "the bits change all the same";
    for (const FilterRecord* f = g_filters.head; f; f = f->next)
        EXPECT_EQ(f->includeUncategorized, f == second) << f->title.c_str();
}

TEST_F(CategoriesPage, IconFilesChangeAtOnceAndNeverOutsideTheIconsFolder) {
    std::string picture = PlainBitmap(12, 12, RGB(0, 0, 255));
    WriteBytes(pictures_.file(L"Star.bmp"), picture);
    WriteBytes(pictures_.file(L"Cut.bmp"), picture.substr(0, 80));
    RegPutString(HKEY_CURRENT_USER, L"Software\\Orvane\\Quillory\\Categories", L"AdditionalIconsFolder",
                 pictures_.path().c_str());
    RegPutString(HKEY_CURRENT_USER, kPocketInformantPath, L"IconPath", L"C:\\no such folder");
    OpenWith({L"Work", L"..\\Up", L"a:b"});
    SelectRow(kCategoryList, 2);  // Work
    EXPECT_EQ(ChooseIcon(2), (Texts{L"No icon", L"Cut", L"Star"}));
    EXPECT_EQ(ReadBytes(icons_.file(L"Work.bmp")), picture);
    EXPECT_TRUE(FindCategory(g_categories, L"Work")->icon);
    EXPECT_EQ(ChooseIcon(2).size(), 4u) << "Work.bmp is offered first";
    EXPECT_FALSE(FindCategory(g_categories, L"Work")->icon) << "a cut picture gives no icon";
    ChooseIcon(0);
    EXPECT_EQ(GetFileAttributesW(icons_.file(L"Work.bmp").c_str()), INVALID_FILE_ATTRIBUTES) << "deleted at once";

    for (int row : {0, 1}) {
        SelectRow(kCategoryList, row);
        InDialog(kIcon, L"Category Icon", [](HWND box) {
            EXPECT_EQ(GetDlgItem(box, 1001), nullptr) << "a message, not the chooser";
            return PostMessageW(box, WM_COMMAND, IDOK, 0) != FALSE;
        });
    }
    std::wstring parent = icons_.path().substr(0, icons_.path().rfind(L'\\'));
    EXPECT_EQ(GetFileAttributesW((parent + L"\\Up.bmp").c_str()), INVALID_FILE_ATTRIBUTES);
    WIN32_FIND_DATAW found;
    HANDLE search = FindFirstFileW(icons_.file(L"*").c_str(), &found);
    int entries = 0;
    for (BOOL more = search != INVALID_HANDLE_VALUE; more; more = FindNextFileW(search, &found)) ++entries;
    FindClose(search);
    EXPECT_EQ(entries, 2) << "only . and ..";
}

TEST_F(CategoriesPage, ARenameSurvivesDoneIntoTheFiltersFile) {
    MakeDefaultFilters(g_filters);
    LoadFiltersFromBytes(g_filters, FiltersFileBytes(g_filters));  // numbered 1 to 32, as read from a file
    RegPutString(HKEY_CURRENT_USER, kProductPath, L"QLFiltersFileFolder", icons_.path().c_str());
    OpenWith({L"Work"});
    PickFilter(4);
    InDialog(kRename, L"Filter", [](HWND dialog) {
        EXPECT_EQ(WindowText(GetDlgItem(dialog, 1000)), L"Filter 5");
        SetDlgItemTextW(dialog, 1000, L"Travel");
        return PostMessageW(dialog, WM_COMMAND, IDOK, 0) != FALSE;
    });
    EXPECT_EQ(Entries(kFilterCombo)[4], L"Travel");
    EXPECT_EQ(Selected(kFilterCombo), 4);
    Close();
    WriteFiltersFile(g_filters, FiltersFilePath().c_str());
    std::wstring file = WideFromUtf16(ReadBytes(icons_.file(L"QLFilters.txt")));
    EXPECT_NE(file.find(L"[FILTER4]\r\n\"Title\"=\"Travel\"\r\n"), std::wstring::npos);
}

TEST_F(CategoriesPage, SelectedRowsUseTheHighlightColoursAndValuesComeBackUnchanged) {
    const wchar_t kColours[] = L"Software\\Orvane\\Quillory\\Colors", kLook[] = L"Software\\Orvane\\Quillory\\Categories";
    RegPutDword(HKEY_CURRENT_USER, kColours, L"HighlightBgClr", RGB(10, 20, 200));
    RegPutDword(HKEY_CURRENT_USER, kColours, L"HighlightTextClr", RGB(250, 250, 0));
    RegPutDword(HKEY_CURRENT_USER, kLook, L"CatColor.Work", RGB(255, 0, 0));
    RegPutDword(HKEY_CURRENT_USER, kLook, L"CatFilter.Work", 5);
    RegPutString(HKEY_CURRENT_USER, kLook, L"AdditionalIconsFolder", L"\\More Icons");
    Seed();
    RegSnapshot before = Snapshot(HKEY_CURRENT_USER, kProductPath);
    OpenWith({L"Work"});
    ShowTab(1), SelectRow(kCategoryList, 0);
    UpdateWindow(Control(kCategoryList));
    RECT row;
    ListView_GetItemRect(Control(kCategoryList), 0, &row, LVIR_BOUNDS);
    HDC dc = GetDC(Control(kCategoryList));
    EXPECT_EQ(GetPixel(dc, row.left + 40, row.top + 1), RGB(10, 20, 200));
    EXPECT_EQ(GetPixel(dc, row.right - 10, row.top + 8), RGB(255, 0, 0)) << "the swatch";
    ReleaseDC(Control(kCategoryList), dc);
    ShowEverySectionCloseAndSave();
    SaveCategoryLook(g_categories);
    EXPECT_EQ(WithoutEmptyKeys(Snapshot(HKEY_CURRENT_USER, kProductPath)), WithoutEmptyKeys(before));
}

}  // namespace
