#include "dialogs/alphabet_steps.h"
#include "page_fixture.h"

namespace {

const wchar_t kContacts[] = L"Software\\Orvane\\Quillory\\Contacts";
const wchar_t kAlphabets[] = L"Software\\Orvane\\Quillory\\Contacts\\Alphabets";
enum { kSearchBar = 1, kLayout = 14, kPhoneWidthLabel = 15, kPhoneWidth = 16 };

class ContactsPage : public PageFixture {
protected:
    AlphabetInstall install_{{L"Thai.txt"}};
};

TEST_F(ContactsPage, SearchBarOffersActiveAndInstalledAlphabetsAndItsLastEntryChoosesThem) {
    for (const wchar_t* name : {L"Thai", L"Gone"}) RegPutDword(HKEY_CURRENT_USER, kAlphabets, name, 1);  // no Gone.txt
    PutDwords(kContacts, {{L"CntctsActiveLanguages", 5}, {L"CntctsActiveSearchBar", 5}});
    RegPutString(HKEY_CURRENT_USER, kContacts, L"ContactsCustomSearchBarSelected", L"Thai");
    Open(4);
    EXPECT_EQ(Entries(kSearchBar),
              (Texts{L"No search bar", L"Latin", L"Hebrew", L"Thai", L"All active alphabets", L"Choose alphabets…"}));
    EXPECT_EQ(Selected(kSearchBar), 3);
    TickAlphabets([&] { Choose(kSearchBar, -1); }, {L"Cyrillic", L"Thai"}, IDOK);
    EXPECT_EQ(Entries(kSearchBar)[1] + L" " + Entries(kSearchBar)[2], L"Cyrillic Thai");
    EXPECT_EQ(Selected(kSearchBar), 0);
    Choose(kSearchBar, 2);
    ShowEverySectionCloseAndSave();
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kContacts, L"CntctsActiveLanguages", 18);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kContacts, L"CntctsActiveSearchBar", 5);
    EXPECT_REG_STRING(HKEY_CURRENT_USER, kContacts, L"ContactsCustomSearchBarSelected", L"Thai");
    EXPECT_EQ(RegValueCount(HKEY_CURRENT_USER, kAlphabets), 1u);
}

TEST_F(ContactsPage, LayoutGreysThePhoneColumnAndSeededValuesMakeTheRoundTrip) {
    PutDwords(kContacts, {{L"CntctsActiveLanguages", 31}, {L"CntctsActiveSearchBar", 5}, {L"CntctsTitleStruct", 2},
                          {L"CntctsPrvwDlgUponOpenItem", 1}, {L"CntctsIncldCounters", 0}, {L"ContactsLayout", 1},
                          {L"CntctsPhoneColumnWidth", 93}, {L"CntctsHideNoPicture", 1}});
    RegPutString(HKEY_CURRENT_USER, kContacts, L"ContactsCustomSearchBarSelected", L"Thai");
    RegPutDword(HKEY_CURRENT_USER, kAlphabets, L"Thai", 1);
    EXPECT_TRUE(RoundTripKeeps(4)) << "the hidden picture option and the unlisted width too";

    Open(4);
    ShowSection(2);
    EXPECT_FALSE(Enabled(kPhoneWidthLabel) || Enabled(kPhoneWidth));
    Choose(kLayout, 0);
    EXPECT_TRUE(Enabled(kPhoneWidthLabel) && Enabled(kPhoneWidth));
    Choose(kPhoneWidth, 12);
    ShowEverySectionCloseAndSave();
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kContacts, L"CntctsPhoneColumnWidth", 120);
}

}  // namespace
