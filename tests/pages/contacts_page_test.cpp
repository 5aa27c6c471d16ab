// The Contacts page: the search bar offers the active alphabets and the installed custom ones, its
// last entry runs the alphabet selection, the layout greys the phone column, seeded values make the
// round trip.
#include "dialogs/alphabet_steps.h"
#include "pages/page_fixture.h"

namespace {

const wchar_t kContacts[] = L"Software\\Orvane\\Quillory\\Contacts";
const wchar_t kAlphabets[] = L"Software\\Orvane\\Quillory\\Contacts\\Alphabets";
enum { kSearchBar = 1, kTitle = 3, kLayout = 14, kPhoneWidthLabel = 15, kPhoneWidth = 16, kHideNoPicture = 17 };
using Texts = std::vector<std::wstring>;

class ContactsPage : public PageFixture {
protected:
    // A selection as a user makes it: the selection changes, then the list closes on it.
    void Pick(int combo, int index) {
        SendMessageW(Control(combo), CB_SETCURSEL, index, 0);
        for (UINT code : {CBN_SELCHANGE, CBN_SELENDOK})
            SendMessageW(page_->window(), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(Control(combo)), code),
                         reinterpret_cast<LPARAM>(Control(combo)));
    }
    void PickLast(int combo) { Pick(combo, static_cast<int>(SendMessageW(Control(combo), CB_GETCOUNT, 0, 0)) - 1); }
    AlphabetInstall install_{L"Thai.txt"};
};

TEST_F(ContactsPage, SearchBarOffersActiveAndInstalledAlphabetsAndItsLastEntryChoosesThem) {
    RegPutDword(HKEY_CURRENT_USER, kContacts, L"CntctsActiveLanguages", 0);
    Open(4);
    EXPECT_EQ(Entries(kSearchBar), (Texts{L"No search bar", L"Choose alphabets…"}));
    Close();

    RegPutDword(HKEY_CURRENT_USER, kAlphabets, L"Thai", 1);
    RegPutDword(HKEY_CURRENT_USER, kAlphabets, L"Gone", 1);  // its file is not installed
    RegPutDword(HKEY_CURRENT_USER, kContacts, L"CntctsActiveLanguages", 5);
    RegPutDword(HKEY_CURRENT_USER, kContacts, L"CntctsActiveSearchBar", 5);
    RegPutString(HKEY_CURRENT_USER, kContacts, L"ContactsCustomSearchBarSelected", L"Thai");
    Open(4);
    EXPECT_EQ(Entries(kSearchBar),
              (Texts{L"No search bar", L"Latin", L"Hebrew", L"Thai", L"All active alphabets", L"Choose alphabets…"}));
    EXPECT_EQ(Selected(kSearchBar), 3);

    TickAlphabets([&] { PickLast(kSearchBar); }, {L"Cyrillic", L"Thai"}, IDOK);
    EXPECT_EQ(g_settings.contacts.CntctsActiveLanguages.value, 18u) << "stored at once";
    EXPECT_EQ(Entries(kSearchBar)[1], L"Cyrillic");
    EXPECT_EQ(Selected(kSearchBar), 0);
    Pick(kSearchBar, 2);
    TickAlphabets([&] { PickLast(kSearchBar); }, {}, IDCANCEL);
    EXPECT_EQ(g_settings.contacts.CntctsActiveLanguages.value, 18u);
    EXPECT_EQ(Selected(kSearchBar), 0) << "the first entry after a cancel too";
    Pick(kSearchBar, 2);  // Thai
    Close();
    SaveSettings();
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kContacts, L"CntctsActiveLanguages", 18);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kContacts, L"CntctsActiveSearchBar", 5);
    EXPECT_REG_STRING(HKEY_CURRENT_USER, kContacts, L"ContactsCustomSearchBarSelected", L"Thai");
    EXPECT_EQ(RegValueCount(HKEY_CURRENT_USER, kAlphabets), 1u);
}

TEST_F(ContactsPage, LayoutGreysThePhoneColumnAndAnUnlistedWidthIsKept) {
    RegPutDword(HKEY_CURRENT_USER, kContacts, L"CntctsPhoneColumnWidth", 93);
    Open(4);
    Texts widths = Entries(kPhoneWidth);
    EXPECT_EQ(widths.size(), 13u);
    EXPECT_EQ(widths.front() + L" " + widths.back(), L"60 120");
    EXPECT_EQ(Selected(kPhoneWidth), -1);
    Pick(kLayout, 1);
    EXPECT_FALSE(Enabled(kPhoneWidthLabel) || Enabled(kPhoneWidth));
    ShowEverySectionCloseAndSave();
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kContacts, L"CntctsPhoneColumnWidth", 93);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kContacts, L"ContactsLayout", 1);

    RegPutDword(HKEY_CURRENT_USER, kContacts, L"CntctsPhoneColumnWidth", 85);
    RegPutDword(HKEY_CURRENT_USER, kContacts, L"CntctsHideNoPicture", 1);
    Open(4);
    EXPECT_EQ(Selected(kPhoneWidth), 5);
    Pick(kLayout, 0);
    EXPECT_TRUE(Enabled(kPhoneWidth));
    Pick(kPhoneWidth, 12);
    ShowEverySectionCloseAndSave();  // shows the layout section, which hides the picture option
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kContacts, L"CntctsPhoneColumnWidth", 120);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kContacts, L"CntctsHideNoPicture", 1) << "hidden, yet stored";
}

TEST_F(ContactsPage, SeededValuesMakeTheRoundTrip) {
    const wchar_t* names[] = {L"CntctsActiveLanguages", L"CntctsActiveSearchBar", L"CntctsTitleStruct",
                              L"CntctsDPadActionOverride", L"CntctsOnClickActionOpenItem", L"CntctsPrvwDlgUponOpenItem",
                              L"ContactsTxtByCategoryClr", L"CntctsBreakLineStyle", L"CntctsIncldFoldBttns",
                              L"CntctsIncldCounters", L"ContactsLayout", L"CntctsPhoneColumnWidth",
                              L"CntctsHideNoPicture"};
    const DWORD values[] = {31, 5, 2, 2, 1, 1, 1, 1, 0, 0, 1, 110, 1};
    for (int i = 0; i < 13; ++i) RegPutDword(HKEY_CURRENT_USER, kContacts, names[i], values[i]);
    RegPutString(HKEY_CURRENT_USER, kContacts, L"ContactsCustomSearchBarSelected", L"Thai");
    RegPutDword(HKEY_CURRENT_USER, kAlphabets, L"Thai", 1);
    RegSnapshot before = WithoutEmptyKeys(Snapshot(HKEY_CURRENT_USER, kProductPath));
    Open(4);
    ShowEverySectionCloseAndSave();
    EXPECT_EQ(WithoutEmptyKeys(Snapshot(HKEY_CURRENT_USER, kProductPath)), before);
}

}  // namespace
