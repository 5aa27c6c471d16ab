// The Contacts page: the search bar offers the active alphabets and the installed custom ones, its
// last entry runs the alphabet selection; the layout greys the phone column; seeded values, an
// unlisted width among them, make the round trip.
#include "dialogs/alphabet_steps.h"
#include "pages/page_fixture.h"

namespace {

const wchar_t kContacts[] = L"Software\\Orvane\\Quillory\\Contacts";
const wchar_t kAlphabets[] = L"Software\\Orvane\\Quillory\\Contacts\\Alphabets";
enum { kSearchBar = 1, kLayout = 14, kPhoneWidthLabel = 15, kPhoneWidth = 16, kHideNoPicture = 17 };

class ContactsPage : public PageFixture {
protected:
    // A user's choice: the selection changes, then the list closes on it.
    void Pick(int combo, int index) {
        SendMessageW(Control(combo), CB_SETCURSEL, index < 0 ? Entries(combo).size() - 1 : index, 0);
        for (UINT code : {CBN_SELCHANGE, CBN_SELENDOK})
            SendMessageW(page_->window(), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(Control(combo)), code),
                         reinterpret_cast<LPARAM>(Control(combo)));
    }
    AlphabetInstall install_{{L"Thai.txt"}};
};

TEST_F(ContactsPage, SearchBarOffersActiveAndInstalledAlphabetsAndItsLastEntryChoosesThem) {
    RegPutDword(HKEY_CURRENT_USER, kContacts, L"CntctsActiveLanguages", 0);
    Open(4);
    EXPECT_EQ(Entries(kSearchBar), (Texts{L"No search bar", L"Choose alphabets…"}));
    Close();
    for (const wchar_t* name : {L"Thai", L"Gone"}) RegPutDword(HKEY_CURRENT_USER, kAlphabets, name, 1);  // no Gone.txt
    for (const wchar_t* name : {L"CntctsActiveLanguages", L"CntctsActiveSearchBar"})
        RegPutDword(HKEY_CURRENT_USER, kContacts, name, 5);
    RegPutString(HKEY_CURRENT_USER, kContacts, L"ContactsCustomSearchBarSelected", L"Thai");
    Open(4);
    EXPECT_EQ(Entries(kSearchBar),
              (Texts{L"No search bar", L"Latin", L"Hebrew", L"Thai", L"All active alphabets", L"Choose alphabets…"}));
    EXPECT_EQ(Selected(kSearchBar), 3);
    TickAlphabets([&] { Pick(kSearchBar, -1); }, {L"Cyrillic", L"Thai"}, IDOK);
    EXPECT_EQ(g_settings.contacts.CntctsActiveLanguages.value, 18u) << "stored at once";
    EXPECT_EQ(Entries(kSearchBar)[1] + L" " + Entries(kSearchBar)[2], L"Cyrillic Thai");
    EXPECT_EQ(Selected(kSearchBar), 0);
    Pick(kSearchBar, 2);
    TickAlphabets([&] { Pick(kSearchBar, -1); }, {}, IDCANCEL);
    EXPECT_EQ(g_settings.contacts.CntctsActiveLanguages.value, 18u);
    EXPECT_EQ(Selected(kSearchBar), 0) << "the first entry after a cancel too";
    Pick(kSearchBar, 2);
    ShowEverySectionCloseAndSave();
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kContacts, L"CntctsActiveLanguages", 18);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kContacts, L"CntctsActiveSearchBar", 5);
    EXPECT_REG_STRING(HKEY_CURRENT_USER, kContacts, L"ContactsCustomSearchBarSelected", L"Thai");
    EXPECT_EQ(RegValueCount(HKEY_CURRENT_USER, kAlphabets), 1u);
}

TEST_F(ContactsPage, LayoutGreysThePhoneColumnAndSeededValuesMakeTheRoundTrip) {
    using Seed = std::pair<const wchar_t*, DWORD>;
    for (const Seed& seed : std::initializer_list<Seed>{
             {L"CntctsActiveLanguages", 31}, {L"CntctsActiveSearchBar", 5}, {L"CntctsTitleStruct", 2},
             {L"CntctsDPadActionOverride", 2}, {L"CntctsOnClickActionOpenItem", 1}, {L"CntctsPrvwDlgUponOpenItem", 1},
             {L"ContactsTxtByCategoryClr", 1}, {L"CntctsBreakLineStyle", 1}, {L"CntctsIncldFoldBttns", 0},
             {L"CntctsIncldCounters", 0}, {L"ContactsLayout", 1}, {L"CntctsPhoneColumnWidth", 93},
             {L"CntctsHideNoPicture", 1}})
        RegPutDword(HKEY_CURRENT_USER, kContacts, seed.first, seed.second);
    RegPutString(HKEY_CURRENT_USER, kContacts, L"ContactsCustomSearchBarSelected", L"Thai");
    RegPutDword(HKEY_CURRENT_USER, kAlphabets, L"Thai", 1);
    RegSnapshot before = WithoutEmptyKeys(Snapshot(HKEY_CURRENT_USER, kProductPath));
    Open(4);
    SendMessageW(page_->sectionTabs(), TCM_SETCURSEL, 2, 0);
    page_->ShowSection(page_->window(), SW_SHOW);  // as the display section's tab does
    EXPECT_TRUE(IsWindowVisible(Control(kPhoneWidth)) && !IsWindowVisible(Control(kHideNoPicture)));
    EXPECT_EQ(Selected(kPhoneWidth), -1) << "93 is not offered";
    EXPECT_FALSE(Enabled(kPhoneWidthLabel) || Enabled(kPhoneWidth));
    Pick(kLayout, 0);
    EXPECT_TRUE(Enabled(kPhoneWidthLabel) && Enabled(kPhoneWidth));
    Pick(kLayout, 1);
    ShowEverySectionCloseAndSave();  // the hidden picture option is stored all the same
    EXPECT_EQ(WithoutEmptyKeys(Snapshot(HKEY_CURRENT_USER, kProductPath)), before);

    RegPutDword(HKEY_CURRENT_USER, kContacts, L"CntctsPhoneColumnWidth", 85);
    Open(4);
    EXPECT_EQ(Selected(kPhoneWidth), 5);
    Pick(kPhoneWidth, 12);
    ShowEverySectionCloseAndSave();
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kContacts, L"CntctsPhoneColumnWidth", 120);
}

}  // namespace
