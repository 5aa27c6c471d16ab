// The Messages page: a section never shown is stored all the same, a line style past the list's
// end leaves no selection and is stored as -1, and seeded values make the round trip.
#include "page_fixture.h"

namespace {

const wchar_t kMessages[] = L"Software\\Orvane\\Quillory\\Messages";
enum { kOpenOnClick = 2, kLineStyle = 6 };

using MessagesPage = PageFixture;

TEST_F(MessagesPage, UnshownSectionIsStoredAndALineStyleBeyondTheListBecomesMinusOne) {
    PutDwords(kMessages, {{L"MsgsDPadActionOverride", 0}, {L"MsgsMrkReadOnPrev", 0}, {L"MsgsBreakLineStyle", 4},
                          {L"MsgsIncldCounters", 2}, {L"MsgsIncldFoldBttns", 0}});
    Open(5);
    EXPECT_EQ(Selected(kLineStyle), -1);
    Click(kOpenOnClick);
    CloseAndSave();  // the layout section was never shown
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kMessages, L"MsgsOpenOnClick", 1);
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kMessages, L"MsgsPreviewWhenOpen");
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kMessages, L"MsgsBreakLineStyle", 0xFFFFFFFF);
    EXPECT_TRUE(RoundTripKeeps(5)) << "the other seeded values";
}

}  // namespace
