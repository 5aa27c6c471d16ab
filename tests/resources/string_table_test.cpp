// The English language library as the program uses it: a text for every string id the program
// loads and for nothing else, message captions, format texts, the menus whose shape the main
// window relies on, and texts that fit the controls they are shown in.
#include <set>
#include <string>
#include <vector>

#include "common/test_support.h"
#include "string_ids.h"

namespace {

class LanguageLibrary : public ::testing::Test {
protected:
    static void SetUpTestSuite() { library_ = LoadLibraryW((TestBinDir() + L"\\QLEngRc.dll").c_str()); }
    static void TearDownTestSuite() {
        if (library_) FreeLibrary(library_);
        library_ = nullptr;
    }
    void SetUp() override { ASSERT_NE(library_, nullptr) << "QLEngRc.dll beside the test program"; }

    static std::wstring Text(UINT id) {
        wchar_t buffer[1024];
        int length = LoadStringW(library_, id, buffer, 1024);
        return std::wstring(buffer, length > 0 ? length : 0);
    }

    static HMODULE library_;
};

HMODULE LanguageLibrary::library_ = nullptr;

std::wstring Describe(const std::vector<UINT>& ids) {
    std::wstring list;
    for (UINT id : ids) list += std::to_wstring(id) + L" ";
    return list;
}

TEST_F(LanguageLibrary, EveryIdTheProgramLoadsHasAText) {
    std::vector<UINT> missing;
    for (UINT id : kAllStringIds) {
        if (Text(id).empty()) missing.push_back(id);
    }
    EXPECT_TRUE(missing.empty()) << "ids without text: " << Describe(missing);
    EXPECT_EQ(Text(IDS_LANGUAGE_NAME), L"English");
    EXPECT_TRUE(Text(40226).empty()) << "40226 is skipped between the page titles";
}

BOOL CALLBACK CollectStringBlock(HMODULE, LPCWSTR, LPWSTR name, LONG_PTR blocks) {
    if (IS_INTRESOURCE(name)) reinterpret_cast<std::vector<UINT>*>(blocks)->push_back(LOWORD(name));
    return TRUE;
}

TEST_F(LanguageLibrary, HoldsNoTextTheProgramDoesNotList) {
    // String tables are stored in blocks of 16: block b holds ids (b - 1) * 16 to (b - 1) * 16 + 15.
    std::vector<UINT> blocks;
    EnumResourceNamesW(library_, RT_STRING, CollectStringBlock, reinterpret_cast<LONG_PTR>(&blocks));
    ASSERT_FALSE(blocks.empty());
    std::set<UINT> listed(std::begin(kAllStringIds), std::end(kAllStringIds));
    std::vector<UINT> unlisted;
    size_t found = 0;
    for (UINT block : blocks) {
        for (UINT id = (block - 1) * 16; id < block * 16; ++id) {
            if (Text(id).empty()) continue;
            ++found;
            if (!listed.count(id)) unlisted.push_back(id);
        }
    }
    EXPECT_TRUE(unlisted.empty()) << Describe(unlisted);
    EXPECT_EQ(found, listed.size()) << "ids listed twice under different names";
}

TEST_F(LanguageLibrary, MessageBoxesHaveATextAndAShortCaption) {
    for (UINT id : kMessageTextIds) {
        std::wstring caption = Text(id + 1);
        EXPECT_GE(Text(id).size(), 10u) << id;
        ASSERT_FALSE(caption.empty()) << id + 1;
        EXPECT_LE(caption.size(), 20u) << "caption " << id + 1;
        EXPECT_NE(caption.back(), L'.') << "caption " << id + 1;
    }
}

TEST_F(LanguageLibrary, OnlyTheFormatTextsHoldAPercentSign) {
    std::set<UINT> formats(std::begin(kNumberFormatIds), std::end(kNumberFormatIds));
    for (UINT id : kAllStringIds) {
        std::wstring text = Text(id);
        size_t first = text.find(L'%');
        if (formats.count(id)) {
            ASSERT_NE(first, std::wstring::npos) << id;
            EXPECT_EQ(text.compare(first, 2, L"%d"), 0) << id;
            EXPECT_EQ(text.find(L'%', first + 1), std::wstring::npos) << "one number only: " << id;
            wchar_t formatted[1100];
            wsprintfW(formatted, text.c_str(), 400);
            EXPECT_NE(std::wstring(formatted).find(L"400"), std::wstring::npos) << id;
        } else {
            EXPECT_EQ(first, std::wstring::npos) << "a stray % in " << id;
        }
    }
}

TEST_F(LanguageLibrary, NonAsciiTextsSurviveTheSourceEncoding) {
    // The source is UTF-8; read with another code page, "…" would come out as "â€¦".
    std::wstring choose = Text(IDS_SEARCH_BAR_CHOOSE);
    EXPECT_TRUE(!choose.empty() && choose.back() == L'\x2026') << "ends in an ellipsis";
    for (UINT id : kAllStringIds) {
        std::wstring text = Text(id);
        EXPECT_EQ(text.find(L'\x00C3'), std::wstring::npos) << id;
        EXPECT_EQ(text.find(L'\x00E2'), std::wstring::npos) << id;
        EXPECT_EQ(text.find(L'\xFFFD'), std::wstring::npos) << id;
    }
}

bool MenuHasCommand(HMENU menu, UINT command) {
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        HMENU sub = GetSubMenu(menu, i);
        if (sub ? MenuHasCommand(sub, command) : GetMenuItemID(menu, i) == command) return true;
    }
    return false;
}

bool IsSeparator(HMENU menu, int position) {
    MENUITEMINFOW info = {};
    info.cbSize = sizeof info;
    info.fMask = MIIM_FTYPE;
    GetMenuItemInfoW(menu, position, TRUE, &info);
    return (info.fType & MFT_SEPARATOR) != 0;
}

TEST_F(LanguageLibrary, MainMenuKeepsItsCommandsAfterTheStartUpRemoval) {
    HMENU menu = LoadMenuW(library_, MAKEINTRESOURCEW(IDR_MAIN_MENU));
    ASSERT_NE(menu, nullptr);
    ASSERT_GE(GetMenuItemCount(menu), 2) << "placeholder button, then the sub-menu";
    EXPECT_EQ(GetSubMenu(menu, 0), nullptr) << "the placeholder is a plain button";
    HMENU sub = GetSubMenu(menu, QL_MAIN_MENU_SUBMENU_POSITION);
    ASSERT_NE(sub, nullptr);
    int before = GetMenuItemCount(sub);
    ASSERT_GE(before, 7);

    // What the main window does at start-up.
    EXPECT_TRUE(DeleteMenu(sub, QL_MAIN_MENU_FIRST_REMOVED_POSITION, MF_BYPOSITION));
    EXPECT_TRUE(DeleteMenu(sub, QL_MAIN_MENU_FIRST_REMOVED_POSITION, MF_BYPOSITION));
    int after = GetMenuItemCount(sub);
    EXPECT_EQ(after, before - 2);
    for (UINT command : {IDM_ABOUT, IDM_EXPORT_SETTINGS, IDM_IMPORT_SETTINGS}) {
        EXPECT_TRUE(MenuHasCommand(sub, command)) << command;
    }
    EXPECT_FALSE(MenuHasCommand(sub, IDM_LEGACY_REGISTER));
    EXPECT_FALSE(MenuHasCommand(sub, IDM_LEGACY_CHECK_UPDATES));

    // The user sees a tidy menu: no separator first, last or twice in a row.
    EXPECT_FALSE(IsSeparator(sub, 0));
    EXPECT_FALSE(IsSeparator(sub, after - 1));
    for (int i = 1; i < after; ++i) EXPECT_FALSE(IsSeparator(sub, i - 1) && IsSeparator(sub, i)) << i;
    DestroyMenu(menu);
}

TEST_F(LanguageLibrary, DialogMenusOfferOkThenCancel) {
    for (UINT id : {IDR_OK_CANCEL_MENU, IDR_BROWSER_MENU}) {
        HMENU menu = LoadMenuW(library_, MAKEINTRESOURCEW(id));
        ASSERT_NE(menu, nullptr) << id;
        ASSERT_EQ(GetMenuItemCount(menu), 2) << id;
        EXPECT_EQ(GetMenuItemID(menu, 0), static_cast<UINT>(IDM_DONE)) << id;
        EXPECT_EQ(GetMenuItemID(menu, 1), static_cast<UINT>(IDM_CANCEL)) << id;
        DestroyMenu(menu);
    }
}

// Texts shown in controls of a fixed width (pixels at 96 dpi, where the pages' font is Tahoma of
// height 12): for each width, the texts that come within a quarter of it. A button's text needs a
// few pixels of its border.
struct WidthGroup {
    const char* what;
    int width;
    std::vector<UINT> ids;
};

const std::vector<WidthGroup>& WidthGroups() {
    static const std::vector<WidthGroup> groups = {
        {"40-pixel buttons", 40 - 6, {IDS_FNT_EDIT}},
        {"45-pixel path buttons", 45 - 6, {IDS_BUTTON_BROWSE}},
        {"55-pixel buttons", 55 - 6, {IDS_BUTTON_DOWN, IDS_CAT_ICON, IDS_CAT_COLOR, IDS_CAT_RENAME}},
        {"60-pixel buttons", 60 - 6, {IDS_NOTE_REMOVE_FOLDER, IDS_CAT_CHECK_ALL, IDS_CAT_CHECK_NONE}},
        {"Categories page labels (70 pixels)", 70 - 4, {IDS_CAT_FILTER_LABEL, IDS_CAT_SENSITIVITY_LABEL}},
        {"75-pixel buttons", 75 - 6, {IDS_TABS_REMOVE}},
        {"80-pixel buttons", 80 - 6, {IDS_CLR_SCHEME_DELETE}},
        {"row labels (240 - 140 pixels)",
         100,
         {IDS_GEN_LANDSCAPE_HEIGHT_LABEL, IDS_SE_ALERT_LABEL, IDS_SE_FILTER_ALERT_LABEL}},
        {"Calendar detail titles (105 pixels)", 105, {IDS_CAL_WEEK_START_TITLE}},
        {"icon row labels (98 pixels)", 98, {IDS_CAL_APPT_ICON_LEFT1_LABEL}},
        {"second icon labels (83 pixels)", 83, {IDS_TASK_ICON_LEFT2_LABEL}},
        {"check boxes (240 - 20 pixels, less the box)",
         200,
         {IDS_CAL_YEARLY_COUNTERS_TITLE, IDS_CAL_PAST_COMPLETED_TITLE, IDS_CAL_CONFIRM_COMPLETE_TITLE,
          IDS_CAL_FREE_TIME_TITLE, IDS_CAL_WEEK_NUMBER_TITLE, IDS_CAL_MAIL_LINE_TITLE, IDS_CAL_MAIL_HIDE_EMPTY_TITLE,
          IDS_CAL_MAIL_UNDER_TODAY_TITLE, IDS_CAL_MAIL_COUNTER_TITLE, IDS_CAL_TWO_DIGIT_HOURS_TITLE,
          IDS_CAL_SKIN_COLLAPSED_TITLE, IDS_TSK_HIDE_PAST_COMPLETED, IDS_TSK_CONFIRM_COMPLETE,
          IDS_CNT_HIDE_NO_PICTURE, IDS_FNT_ADVANCED}},
        {"combo box entries (125 pixels, less the arrow)",
         100,
         {IDS_CAL_FIRST_WEEK_FOUR_DAYS, IDS_CAL_COMPLETED_ON_COMPLETION, IDS_CAL_TASK_SORT_PRIORITY_DUE,
          IDS_CAL_DAY_TAP_NEW_APPT, IDS_CAL_POPUP_TIME_LINES_ALL, IDS_SEARCH_BAR_SWITCHABLE, IDS_SEARCH_BAR_CHOOSE,
          IDS_CNT_LAYOUT_COLUMNS, IDS_MSG_COUNTERS_UNREAD_TOTAL, IDS_SE_DAYS_TWO_WEEKS, IDS_PIM_POCKET_INFORMANT}},
    };
    return groups;
}

TEST_F(LanguageLibrary, TextsFitTheControlsThatShowThem) {
    HDC dc = CreateCompatibleDC(nullptr);
    ASSERT_NE(dc, nullptr);
    LOGFONTW font = {};
    font.lfHeight = 12;
    wcscpy(font.lfFaceName, L"Tahoma");
    HFONT tahoma = CreateFontIndirectW(&font);
    HGDIOBJ old = SelectObject(dc, tahoma);
    for (const WidthGroup& group : WidthGroups()) {
        for (UINT id : group.ids) {
            std::wstring text = Text(id);
            SIZE size = {};
            GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &size);
            EXPECT_LE(size.cx, group.width) << group.what << ": " << id << " is " << size.cx << " pixels wide";
        }
    }
    SelectObject(dc, old);
    DeleteObject(tahoma);
    DeleteDC(dc);
}

}  // namespace
