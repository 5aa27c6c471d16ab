#include "common/bitmap_bytes.h"
#include "page_fixture.h"
#include "support/handles.h"

namespace {

enum { kUseFilters, kCategoryList, kIcon, kFilterCombo = 5, kRename, kVisible, kUncategorized, kSensitivity = 10,
       kMembers = 13, kFolder = 15 };
const wchar_t kLook[] = L"Software\\Orvane\\Quillory\\Categories";

class CategoriesPage : public PageFixture {
protected:
    void TearDown() override { PageFixture::TearDown(), ClearFilters(g_filters); }
    // The icons folder, the filter switch and the categories with their look; then the page.
    void OpenWith(Texts names) {
        RegPutString(HKEY_CURRENT_USER, kProductPath, L"QLIconsFolder", icons_.path().c_str());
        RegPutDword(HKEY_CURRENT_USER, kProductPath, L"FilterMethodToUse", 1);
        for (const std::wstring& name : names) AddCategory(g_categories, name.c_str());
        LoadCategoryLook(g_categories, icons_.path().c_str());
        if (!g_filters.head) MakeDefaultFilters(g_filters);
        Open(11);
    }
    // The selection change alone, as the list sends it while the user scrolls through it.
    void PickFilter(int entry) {
        SendMessageW(Control(kFilterCombo), CB_SETCURSEL, entry, 0);
        SendMessageW(page_->window(), WM_COMMAND, MAKEWPARAM(0, CBN_SELCHANGE), (LPARAM)Control(kFilterCombo));
    }
    int Tabs() { return TabCtrl_GetItemCount(page_->sectionTabs()); }
    void SelectRow(int row) { ListView_SetItemState(Control(kCategoryList), row, LVIS_SELECTED, LVIS_SELECTED); }
    // The Icon button for category row `row` with entry `pick` of the chooser; returns the entries.
    Texts ChooseIcon(int row, int pick) {
        SelectRow(row);
        Texts offered;
        ClickThrough(kIcon, {On(L"Category Icon", [&](HWND chooser) {
            offered = ListTexts(GetDlgItem(chooser, 1001));
            ListView_SetItemState(GetDlgItem(chooser, 1001), pick, LVIS_SELECTED, LVIS_SELECTED);
            return Post(IDOK)(chooser);
        })});
        return offered;
    }
    ScratchFolder icons_{L"category_icons"}, pictures_{L"category_pictures"};
};

TEST_F(CategoriesPage, FilterTabFollowsItsBoxEntryNEditsFilterNPlusOneAndARenameReachesTheFilter) {
    MakeDefaultFilters(g_filters);
    FilterRecord* second = FindFilter(g_filters, 1);
    second->visible = false, second->includeUncategorized = true;
    OpenWith({L"Home", L"Work"});
    Click(kUseFilters);
    ShowSection(2);
    EXPECT_TRUE(Tabs() == 3 && IsWindowVisible(Control(kFolder))) << "the filters tab goes at once";
    Click(kUseFilters);
    EXPECT_EQ(Tabs(), 4);
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
    PickFilter(4);
    ClickThrough(kRename, {On(L"Filter", [](HWND dialog) {
        SetDlgItemTextW(dialog, 1000, L"Travel");
        return Post(IDOK)(dialog);
    })});
    Close();
    EXPECT_EQ(FindCategory(g_categories, L"Home")->filterMask, 1u);
    EXPECT_EQ(FindCategory(g_categories, L"Work")->filterMask, 0u) << "the bits change all the same";
    for (const FilterRecord* f = g_filters.head; f; f = f->next)
        EXPECT_EQ(f->includeUncategorized, f == second) << f->title.c_str();
    EXPECT_STREQ(FindFilter(g_filters, 5)->title.c_str(), L"Travel") << "entry 4 renames filter 5 too";
}

TEST_F(CategoriesPage, IconFilesChangeAtOnceOnlyInTheIconsFolderAndValuesComeBackUnchanged) {
    std::string picture = PlainBitmap(12, 12, RGB(0, 0, 255));
    WriteBytes(pictures_.file(L"Star.bmp"), picture);
    WriteBytes(pictures_.file(L"Cut.bmp"), picture.substr(0, 80));
    RegPutString(HKEY_CURRENT_USER, kLook, L"AdditionalIconsFolder", pictures_.path().c_str());
    RegPutString(HKEY_CURRENT_USER, kPocketInformantPath, L"IconPath", L"C:\\no such folder");
    OpenWith({L"Work", L"..\\Up", L"a:b"});
    EXPECT_EQ(ChooseIcon(2, 2), (Texts{L"No icon", L"Cut", L"Star"}));  // Work
    EXPECT_EQ(ReadBytes(icons_.file(L"Work.bmp")), picture);
    EXPECT_TRUE(FindCategory(g_categories, L"Work")->icon);
    ChooseIcon(2, 0);
    EXPECT_EQ(GetFileAttributesW(icons_.file(L"Work.bmp").c_str()), INVALID_FILE_ATTRIBUTES) << "deleted at once";
    for (int row : {0, 1}) {  // names no file can have
        SelectRow(row);
        ClickThrough(kIcon, {On(L"Category Icon", [](HWND box) {
            EXPECT_EQ(GetDlgItem(box, 1001), nullptr) << "a message, not the chooser";
            return Post(IDOK)(box);
        })});
    }
    std::wstring parent = icons_.path().substr(0, icons_.path().rfind(L'\\'));
    EXPECT_EQ(GetFileAttributesW((parent + L"\\Up.bmp").c_str()), INVALID_FILE_ATTRIBUTES);
    Close();

    RegPutDword(HKEY_CURRENT_USER, kLook, L"CatColor.Work", RGB(255, 0, 0));
    RegPutDword(HKEY_CURRENT_USER, kLook, L"CatFilter.Work", 5);
    RegPutDword(HKEY_CURRENT_USER, L"Software\\Orvane\\Quillory\\Colors", L"HighlightBgClr", RGB(10, 20, 200));
    ClearCategories(g_categories);
    AddCategory(g_categories, L"Work");
    LoadCategoryLook(g_categories, icons_.path().c_str());
    auto before = Values(kProductPath);
    Open(11);
    ShowSection(1), SelectRow(0);
    UpdateWindow(Control(kCategoryList));
    RECT row;
    ListView_GetItemRect(Control(kCategoryList), 0, &row, LVIR_BOUNDS);
    WindowDc dc(Control(kCategoryList));
    EXPECT_EQ(GetPixel(dc.get(), row.left + 40, row.top + 1), RGB(10, 20, 200)) << "the highlight";
    EXPECT_EQ(GetPixel(dc.get(), row.right - 10, row.top + 8), RGB(255, 0, 0)) << "the swatch";
    ShowEverySectionCloseAndSave();
    SaveCategoryLook(g_categories);
    EXPECT_EQ(Values(kProductPath), before);
}

}  // namespace
