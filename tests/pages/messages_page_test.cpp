#include "page_fixture.h"

namespace {

const wchar_t kMessages[] = L"Software\\Orvane\\Quillory\\Messages";
enum { kOpenOnClick = 2 };

using MessagesPage = PageFixture;

TEST_F(MessagesPage, UnshownSectionIsStoredAndALineStyleBeyondTheListBecomesMinusOne) {
    PutDwords(kMessages, {{L"MsgsDPadActionOverride", 0}, {L"MsgsMrkReadOnPrev", 0}, {L"MsgsBreakLineStyle", 4},
                          {L"MsgsIncldCounters", 2}, {L"MsgsIncldFoldBttns", 0}});
    Open(5);
    Click(kOpenOnClick);
    CloseAndSave();  // the layout section was never shown
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kMessages, L"MsgsOpenOnClick", 1);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kMessages, L"MsgsBreakLineStyle", 0xFFFFFFFF);
    EXPECT_TRUE(RoundTripKeeps(5)) << "the other seeded values";
}

}  // namespace
