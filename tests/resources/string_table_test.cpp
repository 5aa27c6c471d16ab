#include <string>
#include <vector>

#include "common/test_support.h"
#include "string_ids.h"

namespace {

HMODULE Library() {
    static HMODULE library = LoadLibraryW((TestBinDir() + L"\\QLEngRc.dll").c_str());
    return library;
}

std::wstring Text(UINT id) {
    wchar_t buffer[1024];
    int length = LoadStringW(Library(), id, buffer, 1024);
    return std::wstring(buffer, length > 0 ? length : 0);
}

// Texts named where the program's behaviour is described: page titles, built-in tab titles, the
// font dialog's texts, path-row buttons, and the texts of message boxes whose caption is the next id.
const UINT kNamedTexts[] = {40220, 40221, 40222, 40981, 41174, 40982, 40223, 40224, 40225, 40227, 40228, 40229,
                            41180, 41155, 41156, 41157, 41158, 41159, 40821, 40822, 40823, 40824, 40825, 40826,
                            40483, 40553, 40481, 40478, 40791, 40667, 41160, 40728};
const UINT kNamedMessages[] = {40208, 40212, 40214, 40216, 40238, 40485, 40487, 40491,
                               40493, 40495, 40497, 40499, 40736, 40749, 41266};

TEST(LanguageLibrary, HoldsEveryTextTheProgramShows) {
    ASSERT_NE(Library(), nullptr) << "QLEngRc.dll beside the test program";
    std::vector<UINT> ids(std::begin(kAllStringIds), std::end(kAllStringIds));
    ids.insert(ids.end(), std::begin(kNamedTexts), std::end(kNamedTexts));
    std::wstring wrong;  // ids without a text, or with one garbled by reading the source in another code page
    for (UINT id : ids) {
        std::wstring text = Text(id);
        if (text.empty() || text.find_first_of(L"\x00C3\x00E2\xFFFD") != std::wstring::npos)
            wrong += std::to_wstring(id) + L" ";
    }
    EXPECT_EQ(wrong, L"");
    EXPECT_EQ(Text(719), L"English") << "the name a language library is offered under";
}

TEST(LanguageLibrary, MessageBoxesHaveATextAndAShortCaptionAndFormatsOneNumber) {
    std::vector<UINT> texts(std::begin(kMessageTextIds), std::end(kMessageTextIds));
    texts.insert(texts.end(), std::begin(kNamedMessages), std::end(kNamedMessages));
    for (UINT id : texts) {
        std::wstring caption = Text(id + 1);
        EXPECT_GE(Text(id).size(), 10u) << id;
        EXPECT_TRUE(!caption.empty() && caption.size() <= 20 && caption.back() != L'.') << "caption " << id + 1;
    }
    for (UINT id : kNumberFormatIds) {
        std::wstring format = Text(id);
        EXPECT_TRUE(format.find(L'%') != std::wstring::npos && format.find(L'%') == format.rfind(L"%d")) << id;
    }
}

bool MenuHasCommand(HMENU menu, UINT command) {
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        HMENU sub = GetSubMenu(menu, i);
        if (sub ? MenuHasCommand(sub, command) : GetMenuItemID(menu, i) == command) return true;
    }
    return false;
}

// A position outside the menu counts as a separator: GetMenuState gives all bits set there.
bool IsSeparator(HMENU menu, int position) { return (GetMenuState(menu, position, MF_BYPOSITION) & MF_SEPARATOR) != 0; }

TEST(LanguageLibrary, MainMenuKeepsItsCommandsInATidyMenuAfterTheStartUpRemoval) {
    HMENU menu = LoadMenuW(Library(), MAKEINTRESOURCEW(102));
    HMENU sub = GetSubMenu(menu, 1);
    ASSERT_TRUE(!GetSubMenu(menu, 0) && sub && GetMenuItemCount(sub) >= 7) << "a button, then 7+ items";
    DeleteMenu(sub, 5, MF_BYPOSITION);
    DeleteMenu(sub, 5, MF_BYPOSITION);
    for (UINT command : {40053, 40839, 40840}) EXPECT_TRUE(MenuHasCommand(sub, command)) << command;
    EXPECT_FALSE(MenuHasCommand(sub, IDM_LEGACY_REGISTER) || MenuHasCommand(sub, IDM_LEGACY_CHECK_UPDATES));
    for (int i = 0; i <= GetMenuItemCount(sub); ++i) EXPECT_FALSE(IsSeparator(sub, i - 1) && IsSeparator(sub, i)) << i;
    DestroyMenu(menu);

    for (UINT id : {142, 149}) {
        menu = LoadMenuW(Library(), MAKEINTRESOURCEW(id));
        EXPECT_TRUE(GetMenuItemCount(menu) == 2 && GetMenuItemID(menu, 0) == IDOK && GetMenuItemID(menu, 1) == IDCANCEL)
            << id;
        DestroyMenu(menu);
    }
}

}  // namespace
