#include "page_fixture.h"
#include "platform/clock.h"

namespace {

const wchar_t kEvents[] = L"Software\\Orvane\\Quillory\\SEvents";
enum { kAlert = 3, kDateFormat = 5, kCategory1 = 13 };

class SEventsPage : public PageFixture {
protected:
    void SetUp() override {
        PageFixture::SetUp();
        SYSTEMTIME february3 = {2011, 2, 4, 3, 10, 0, 0, 0};
        SetProgramLocalTimeForTest(&february3);
        AddCategory(g_categories, L"Work");
        AddCategory(g_categories, L"Home");
    }
    void TearDown() override {
        SetProgramLocalTimeForTest(nullptr);
        PageFixture::TearDown();
    }
};

TEST_F(SEventsPage, DatesFollowTheClockUnlistedValuesFallBackAndSeededValuesComeBack) {
    PutDwords(kEvents, {{L"SEApptsDaySpan", 45}, {L"SEDateFormat", 4}});
    RegPutString(HKEY_CURRENT_USER, kEvents, L"AdditionalFilterCat1", L"Gone");
    RegPutString(HKEY_CURRENT_USER, kEvents, L"AdditionalFilterCat2", L"home");
    Open(6);
    Texts dates = Entries(kDateFormat);
    ASSERT_EQ(dates.size(), 5u);
    EXPECT_EQ(Texts(dates.begin() + 1, dates.end()), (Texts{L"02/03", L"02/03/11", L"03/02", L"03/02/11"}));
    EXPECT_EQ(Entries(kCategory1), (Texts{L"None", L"Home", L"Work"}));
    CloseAndSave();
    EXPECT_EQ(g_settings.sevents.SEApptsDaySpan.value, 30u) << "45 is not listed";
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kEvents, L"SEApptsDaySpan");
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kEvents, L"AdditionalFilterCat1");
    EXPECT_REG_STRING(HKEY_CURRENT_USER, kEvents, L"AdditionalFilterCat2", L"Home") << "matched without case";
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kEvents, L"SEDateFormat", 4);

    RemoveProductKeys();
    PutDwords(kEvents, {{L"SEventDays", 0}, {L"SEAlertBeforeDays", 15}, {L"SEContactFormat", 2},
                        {L"SEApptsDaySpan", 365}, {L"IncldCounters", 0}});
    RegPutString(HKEY_CURRENT_USER, kEvents, L"AdditionalFilterCat3", L"Work");
    EXPECT_TRUE(RoundTripKeeps(6, kProductPath, L"", [&] { EXPECT_EQ(Entries(kAlert)[Selected(kAlert)], L"16"); }));
}

}  // namespace
