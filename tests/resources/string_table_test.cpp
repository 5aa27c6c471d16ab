#include <algorithm>
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

TEST(LanguageLibrary, HoldsEveryTextTheProgramShowsWithShortMessageCaptionsAndOneNumberPerFormat) {
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
    std::vector<UINT> messages(std::begin(kMessageTextIds), std::end(kMessageTextIds));
    messages.insert(messages.end(), std::begin(kNamedMessages), std::end(kNamedMessages));
    for (UINT id : messages) {
        std::wstring caption = Text(id + 1);
        EXPECT_TRUE(Text(id).size() >= 10 && !caption.empty() && caption.size() <= 20 && caption.back() != L'.') << id;
    }
    for (UINT id : kNumberFormatIds) {
        std::wstring format = Text(id);
        EXPECT_TRUE(format.find(L'%') != std::wstring::npos && format.find(L'%') == format.rfind(L"%d")) << id;
    }
}

TEST(LanguageLibrary, MainMenuKeepsItsCommandsInATidyMenuAfterTheStartUpRemoval) {
    HMENU menu = LoadMenuW(Library(), MAKEINTRESOURCEW(102));
    HMENU sub = GetSubMenu(menu, 1);
    ASSERT_TRUE(!GetSubMenu(menu, 0) && sub && DeleteMenu(sub, 5, MF_BYPOSITION) && DeleteMenu(sub, 5, MF_BYPOSITION));
    std::vector<UINT> items = {0};  // 0 for a separator, as if one stood before the first and after the last item
    for (int i = 0; i < GetMenuItemCount(sub); ++i)
        items.push_back(GetMenuState(sub, i, MF_BYPOSITION) & MF_SEPARATOR ? 0 : GetMenuItemID(sub, i));
    items.push_back(0);
    auto has = [&](UINT command) { return std::count(items.begin(), items.end(), command) == 1; };
    EXPECT_TRUE(has(40053) && has(40839) && has(40840) && !has(IDM_LEGACY_REGISTER) && !has(IDM_LEGACY_CHECK_UPDATES));
    EXPECT_EQ(std::adjacent_find(items.begin(), items.end(), [](UINT a, UINT b) { return !a && !b; }), items.end());
    DestroyMenu(menu);
}

}  // namespace
