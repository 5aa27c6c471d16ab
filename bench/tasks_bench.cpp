// Opening the Tasks page, showing each of its four sections once (the icon section painted with
// the sample task) and closing it (the page stores its values), beside creating the same 28
// controls bare: a plain window with a tab control and child windows of the same classes, shown,
// painted and destroyed.
#include <windows.h>

#include "bench_harness.h"
#include "page_bench.h"
#include "pages/tasks_page.h"
#include "settings/settings.h"

namespace {

const int kTasksPage = 2, kSections = 4, kControls = 28, kIconSection = 2, kDateForms = 12;

void CheckDateForms(SettingsPage* page) {
    BenchCheckCount(SendMessageW(page->control(1), CB_GETCOUNT, 0, 0), kDateForms, "date forms listed");
}

void CheckIconSection(SettingsPage* shown, int section) {
    if (section != kIconSection) return;
    auto* page = static_cast<TasksSettingsWin*>(shown);
    BenchCheckCount(page->strip(3).count(), 8, "right icons offered");
    BenchCheck(GetUpdateRect(page->window(), nullptr, FALSE) != 0, "preview to paint");
    UpdateWindow(page->window());
    BenchCheck(GetUpdateRect(page->window(), nullptr, FALSE) == 0, "preview painted");
}

PageCase g_tasks = {kTasksPage, kSections, kControls, &g_settings.tasks.TsksDateFrmt, CheckDateForms,
                    CheckIconSection, true, {}};

void SetUp() {
    SetUpPageBench();
    ReadPageClasses(g_tasks);
}

BenchRegistration g_tasksCase({"Tasks page: open, 4 sections, close", "same 28 controls and tabs, bare", SetUp,
                               [] { OpenShowAndClose(g_tasks); }, [] { CreateBare(g_tasks); }, TearDownPageBench,
                               20});

}  // namespace
