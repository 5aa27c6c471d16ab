#include <algorithm>

#include "page_fixture.h"
#include "pages/calendar_page.h"

namespace {

enum { kDays = 1, kTextColour = 5, kHideEmpty = 6, kHideEmptyLine = 7, kFirstList = 10, kCombo = 18, kCheck = 19 };
const int kListSections[] = {1, 2, 3, 5, 6, 7};

class CalendarPage : public PageFixture {
protected:
    CalendarSettingsWin* Open() {
        PageFixture::Open(1);
        return static_cast<CalendarSettingsWin*>(page_);
    }
    // A tap on row `row` of the option list of `section` (which is then shown).
    void Row(int section, int row) {
        if (page_->CurrentSection() != section) ShowSection(section);
        int list = static_cast<int>(std::find(kListSections, kListSections + 6, section) - kListSections);
        ListView_SetItemState(Control(kFirstList + list), row, LVIS_SELECTED | LVIS_FOCUSED,
                              LVIS_SELECTED | LVIS_FOCUSED);
    }
    void Tick(bool ticked) { SendMessageW(Control(kCheck), BM_SETCHECK, ticked ? BST_CHECKED : BST_UNCHECKED, 0); }
    CalendarSettings& calendar = g_settings.calendar;
};

TEST_F(CalendarPage, OptionsAreStoredWhenTheirRowLosesTheSelectionOddValuesFallBackAndAnIconIsLeftOrRight) {
    PutDwords(kCalendarPath, {{L"dNumOfDays", 30}, {L"ApptDisplayFormat", 1}, {L"MonthlyPopIconsSize", 99}});
    RegPutDword(HKEY_CURRENT_USER, kProductPath, L"dHeightLimit", 100);
    CalendarSettingsWin* page = Open();
    EXPECT_EQ(WindowText(Control(kDays)), L"30") << "not in the list: shown as typed";
    EXPECT_FALSE(Enabled(kHideEmptyLine)) << "greyed while empty days are hidden";
    Click(kHideEmpty);
    EXPECT_TRUE(Enabled(kHideEmptyLine));
    Choose(kTextColour, 2);
    Row(2, 0);  // a check: tasks in the calendar, ticked by default
    Tick(false);
    Row(2, 4);
    EXPECT_EQ(calendar.IncldTasksInCR.value, 0u) << "stored before the next row shows";
    Choose(kCombo, 2);
    Row(2, 9);
    Choose(kCombo, 3);
    ShowSection(4);
    auto tap = [&](int x) { SendMessageW(page->window(), WM_LBUTTONDOWN, 0, MAKELPARAM(x, page->previewTop() + 6)); };
    tap(10);
    EXPECT_EQ(calendar.ApptDisplayFormat.value, 12u) << "left of 1: wraps to the last layout";
    tap(20);
    EXPECT_EQ(calendar.ApptDisplayFormat.value, 1u);
    IconMarkerStrip& appointmentRight = page->strip(5);
    page->strip(1).ChooseMarker(1);  // left icon 1: reminder (flag 2), which is shown at the right
    EXPECT_EQ(calendar.ClrApptRightIcons.value, 477u) << "479 less 2, stored at once";
    EXPECT_EQ(appointmentRight.IndexOfValue(1), -1);
    page->strip(2).ChooseMarker(1);  // left icon 2 the same icon, then left icon 1 another
    page->strip(1).ChooseMarker(0);
    EXPECT_EQ(calendar.ClrApptRightIcons.value, 476u);
    EXPECT_EQ(appointmentRight.IndexOfValue(1), -1) << "still left icon 2";
    Row(5, 7);  // 99 matches no size
    Row(5, 9);
    Tick(true);
    ModalScript().Then(On(L"Month Calendar", Post(IDOK))).Play([&] { Row(5, 0); });
    Close();
    // Pinning refused: 0; the open option stored on closing; 99 matches no size: no selection.
    for (const auto& stored : {std::make_pair(&calendar.PinnedMonthlyClr, 0u), {&calendar.dNumOfDays, 30u},
                               {&calendar.ClrTextColor, 2u}, {&calendar.HideEmptyGroups, 0u},
                               {&calendar.DatesToIncldCmpltdTsksOnClr, 2u}, {&calendar.DueDateTsksDateFrmt, 3u},
                               {&calendar.MonthlyPopIconsSize, 0xFFFFFFFFu},
                               {&calendar.ApptLeftAlignIcon1, 1u}, {&calendar.ApptLeftAlignIcon2, 2u}})
        EXPECT_EQ(stored.first->value, stored.second) << Narrow(stored.first->valueName.c_str());
}

TEST_F(CalendarPage, ValuesRoundTripAndBadValuesAreStoredAsShown) {
    PutDwords(kCalendarPath,
              {{L"dNumOfDays", 14}, {L"HideEmptyGroups", 0}, {L"HideEmptyGroupsItem", 1}, {L"DueDateTsksDateFrmt", 4},
               {L"TimelinesStart", 18}, {L"TimelinesLength", 0}, {L"MonthlyPopIconsSize", 14},
               {L"PinnedMonthlyClr", 1}, {L"HumanTime", 8}, {L"CalTitlesOrder0", 1}, {L"CalTitlesOrder1", 0},
               {L"ApptDisplayFormat", 9}, {L"ClrApptRightIcons", 3}});
    RegPutString(HKEY_CURRENT_USER, kCalendarPath, L"CustomDayttlFrmtDefault", L"dddd d");
    RegPutDword(HKEY_CURRENT_USER, kProductPath, L"dHeightLimit", 240);
    auto visitEveryRow = [&] {
        for (int s = 0; s < 6; ++s)
            for (int row = 0; row < ListView_GetItemCount(Control(kFirstList + s)); ++row) Row(kListSections[s], row);
    };
    EXPECT_TRUE(RoundTripKeeps(1, kProductPath, L"", visitEveryRow)) << "every row shown and left";

    // Values outside their lists: no selection, stored as the selection reads back.
    PutDwords(kCalendarPath, {{L"TimelinesHorZ", 0x80000000}, {L"IncludeYearlyCounters", 77}});
    EXPECT_FALSE(RoundTripKeeps(1, kProductPath, L"", visitEveryRow));
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kCalendarPath, L"TimelinesHorZ", 0);
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kCalendarPath, L"IncludeYearlyCounters") << "ticked: 1, the default";
}

}  // namespace
