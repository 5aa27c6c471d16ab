// The Messages page: values of a section never shown are stored all the same, a line style past
// the list's end leaves no selection and is stored as -1, and seeded values make the round trip.
#include "pages/page_fixture.h"

namespace {

const wchar_t kMessages[] = L"Software\\Orvane\\Quillory\\Messages";
enum { kDPadAction = 1, kOpenOnClick = 2, kLineStyle = 6, kCounters = 8 };

using MessagesPage = PageFixture;

TEST_F(MessagesPage, UnshownSectionIsStoredAndALineStyleBeyondTheListBecomesMinusOne) {
    RegPutDword(HKEY_CURRENT_USER, kMessages, L"MsgsDPadActionOverride", 0);
    RegPutDword(HKEY_CURRENT_USER, kMessages, L"MsgsMrkReadOnPrev", 0);
    RegPutDword(HKEY_CURRENT_USER, kMessages, L"MsgsBreakLineStyle", 4);
    RegPutDword(HKEY_CURRENT_USER, kMessages, L"MsgsIncldCounters", 2);
    RegPutDword(HKEY_CURRENT_USER, kMessages, L"MsgsIncldFoldBttns", 0);
    Open(5);
    EXPECT_EQ(Selected(kDPadAction), 0);
    EXPECT_EQ(Selected(kLineStyle), -1);
    EXPECT_EQ(Selected(kCounters), 2);
    SendMessageW(Control(kOpenOnClick), BM_CLICK, 0, 0);
    Close();  // the layout section was never shown
    SaveSettings();
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kMessages, L"MsgsDPadActionOverride", 0);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kMessages, L"MsgsOpenOnClick", 1);
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kMessages, L"MsgsPreviewWhenOpen");
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kMessages, L"MsgsMrkReadOnPrev", 0);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kMessages, L"MsgsBreakLineStyle", 0xFFFFFFFF);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kMessages, L"MsgsIncldCounters", 2);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kMessages, L"MsgsIncldFoldBttns", 0);

    // Those values, non-default all but one, come back unchanged through every section.
    RegSnapshot before = WithoutEmptyKeys(Snapshot(HKEY_CURRENT_USER, kProductPath));
    Open(5);
    ShowEverySectionCloseAndSave();
    EXPECT_EQ(WithoutEmptyKeys(Snapshot(HKEY_CURRENT_USER, kProductPath)), before);
}

}  // namespace
