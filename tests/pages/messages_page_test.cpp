// The Messages page: a section never shown is stored all the same, a line style past the list's
// end leaves no selection and is stored as -1, and seeded values make the round trip.
#include "page_fixture.h"

namespace {

const wchar_t kMessages[] = L"Software\\Orvane\\Quillory\\Messages";
enum { kDPadAction = 1, kOpenOnClick = 2, kLineStyle = 6, kCounters = 8 };

using MessagesPage = PageFixture;

TEST_F(MessagesPage, UnshownSectionIsStoredAndALineStyleBeyondTheListBecomesMinusOne) {
    PutDwords(kMessages, {{L"MsgsDPadActionOverride", 0}, {L"MsgsMrkReadOnPrev", 0}, {L"MsgsBreakLineStyle", 4},
                          {L"MsgsIncldCounters", 2}, {L"MsgsIncldFoldBttns", 0}});
    Open(5);
    EXPECT_EQ(Selected(kDPadAction), 0);
    EXPECT_EQ(Selected(kLineStyle), -1);
    EXPECT_EQ(Selected(kCounters), 2);
    Click(kOpenOnClick);
    Close();  // the layout section was never shown
    SaveSettings();
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kMessages, L"MsgsOpenOnClick", 1);
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kMessages, L"MsgsPreviewWhenOpen");
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kMessages, L"MsgsBreakLineStyle", 0xFFFFFFFF);
    for (const wchar_t* name : {L"MsgsDPadActionOverride", L"MsgsMrkReadOnPrev", L"MsgsIncldFoldBttns"})
        EXPECT_REG_DWORD(HKEY_CURRENT_USER, kMessages, name, 0);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kMessages, L"MsgsIncldCounters", 2);
    EXPECT_TRUE(RoundTripKeeps(5)) << "non-default values, all but one";
}

}  // namespace
