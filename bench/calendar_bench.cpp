// Opening the Calendar page, showing each of its eight sections once (the icon section painted
// with its preview) and closing it (the page stores its values), beside creating the same 40
// controls bare: a plain window with a tab control and child windows of the same classes, shown,
// painted and destroyed.
#include <windows.h>

#include "bench_harness.h"
#include "page_bench.h"
#include "pages/calendar_page.h"
#include "settings/settings.h"

namespace {

const int kCalendarPage = 1, kSections = 8, kControls = 40, kIconSection = 4;

void CheckIconSection(SettingsPage* shown, int section) {
    if (section != kIconSection) return;
    auto* page = static_cast<CalendarSettingsWin*>(shown);
    BenchCheckCount(page->strip(5).count(), 8, "appointment right icons offered");
    BenchCheck(GetUpdateRect(page->window(), nullptr, FALSE) != 0, "preview to paint");
    UpdateWindow(page->window());
    BenchCheck(GetUpdateRect(page->window(), nullptr, FALSE) == 0, "preview painted");
}

PageCase g_calendar = {kCalendarPage, kSections, kControls, &g_settings.calendar.dNumOfDays, {}, CheckIconSection,
                       true, {}};

void SetUp() {
    SetUpPageBench();
    ReadPageClasses(g_calendar);
}

BenchRegistration g_calendarCase({"Calendar page: open, 8 sections, close", "same 40 controls and tabs, bare", SetUp,
                                  [] { OpenShowAndClose(g_calendar); }, [] { CreateBare(g_calendar); },
                                  TearDownPageBench, 20});

}  // namespace
