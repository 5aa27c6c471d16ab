#include "page_fixture.h"
#include "pages/tasks_page.h"
#include "platform/clock.h"
#include "support/display_scale.h"

namespace {

enum { kDateForm = 1, kUseCustom = 21, kCustomStartLabel = 22, kCustomStart = 23, kCustomDue = 25, kCustomShow = 27 };
const SYSTEMTIME kMarch5 = {2011, 3, 6, 5, 10, 0, 0, 0};

class TasksPage : public PageFixture {
protected:
    TasksSettingsWin* OpenOn(SYSTEMTIME day) {
        SetProgramLocalTimeForTest(&day);
        Open(2);
        return static_cast<TasksSettingsWin*>(page_);
    }
    void TearDown() override {
        SetProgramLocalTimeForTest(nullptr);
        PageFixture::TearDown();
    }
    std::wstring Preview() { return static_cast<TasksSettingsWin*>(page_)->PreviewDateText().c_str(); }
    TasksSettings& tasks = g_settings.tasks;
};

TEST_F(TasksPage, DateFormsRunIntoTheNextMonthAndYearAndAGreyedCustomDateKeepsItsTexts) {
    OpenOn({2010, 12, 2, 28, 23, 59, 0, 0});
    EXPECT_EQ(Entries(kDateForm),
              (Texts{L"12/28 - 1/4/11", L"12/28 - 1/4", L"12/28/10 (start)", L"1/4/11 (due)", L"12/28 (start)",
                     L"1/4 (due)", L"28/12 - 4/1/11", L"28/12 - 4/1", L"28/12/10 (start)", L"4/1/11 (due)",
                     L"28/12 (start)", L"4/1 (due)"}));
    Close();
    OpenOn({2012, 2, 0, 25, 9, 0, 0, 0});
    EXPECT_EQ(Entries(kDateForm)[1], L"2/25 - 3/3") << "over 29 February";
    Choose(kDateForm, 7);
    EXPECT_EQ(Preview(), L"25/2 - 25/2") << "the sample starts and is due today";
    Close();
    EXPECT_EQ(tasks.TsksDateFrmt.value, 7u);

    RegPutString(HKEY_CURRENT_USER, kTasksPath, L"CustomDateFrmtStart", L"ddd d");
    RegPutDword(HKEY_CURRENT_USER, kTasksPath, L"TsksCustomDateStruct", 0);
    OpenOn(kMarch5);
    for (int number = kCustomStartLabel; number <= kCustomShow; ++number) EXPECT_FALSE(Enabled(number)) << number;
    EXPECT_EQ(Preview(), L"3/5/11 (due)") << "form 3 while greyed";
    Click(kUseCustom);
    EXPECT_TRUE(Enabled(kCustomStart) && Enabled(kCustomShow));
    std::wstring typed;
    for (int i = 0; i < 60; ++i) typed += L"dddd ";
    for (wchar_t key : typed) SendMessageW(Control(kCustomDue), WM_CHAR, key, 1);  // past the edit's limit
    EXPECT_EQ(Preview().substr(0, 25), L"Sat 5 - Saturday Saturday");
    ShowSection(2), UpdateWindow(page_->window());  // the sample drawn with the long text
    Click(kUseCustom);
    CloseAndSave();
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kTasksPath, L"UseCustomDateTsks");
    EXPECT_REG_STRING(HKEY_CURRENT_USER, kTasksPath, L"CustomDateFrmtStart", L"ddd d");
    EXPECT_REG_STRING(HKEY_CURRENT_USER, kTasksPath, L"CustomDateFrmtEnd", typed.substr(0, 256).c_str());
}

TEST_F(TasksPage, LeftIconsLeaveTheRightSetUnlessTheOtherSlotHoldsThemAndValuesRoundTrip) {
    TasksSettingsWin* page = OpenOn(kMarch5);
    IconMarkerStrip& right = page->strip(3);
    page->strip(2).ChooseMarker(2);  // recurring (flag 4) on the left
    page->strip(1).ChooseMarker(1);  // reminder (flag 2)
    EXPECT_EQ(tasks.TasksRightIcons.value, 383u - 4 - 2) << "both left the set at once";
    page->strip(1).ChooseMarker(2);  // slot 1 takes slot 2's icon: the reminder comes back, unticked
    page->strip(1).ChooseMarker(5);  // high priority: recurring stays out, slot 2 still holds it
    EXPECT_EQ(right.IndexOfValue(2) + right.IndexOfValue(5), -2);
    right.Tap(right.IndexOfValue(1) * ScaleForDisplay(16) + 1, 1);  // the reminder back, unticked: ticked now
    CloseAndSave();
    for (const auto& value : {std::make_pair(L"TaskTabLeftAlignIcon1", 32), {L"TaskTabLeftAlignIcon2", 4},
                              {L"TasksRightIcons", 383 - 4 - 32}})
        EXPECT_REG_DWORD(HKEY_CURRENT_USER, kTasksPath, value.first, value.second);

    RemoveProductKeys();
    PutDwords(kTasksPath, {{L"TsksDateFrmt", 11}, {L"TsksLimitFutureDate", 7}, {L"HidePastCompletedTasks", 0},
                           {L"TsksFoldingType", 1}, {L"TaskTabLeftAlignIcon1", 8}, {L"TasksRightIcons", 7},
                           {L"UseCustomDateTsks", 1}, {L"TsksCustomDateStruct", 2}});
    RegPutString(HKEY_CURRENT_USER, kTasksPath, L"CustomDateFrmtStart", L"'Start' yyyy");
    RegPutString(HKEY_CURRENT_USER, kTasksPath, L"CustomDateFrmtEnd", L"MMMM dd");
    EXPECT_TRUE(RoundTripKeeps(2));
}

}  // namespace
