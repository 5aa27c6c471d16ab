// Opening the Messages, Special events and PIM pages, showing each of their sections and closing
// them (the page stores its values), beside creating the same controls bare: a plain window with
// a tab control and child windows of the same classes in the same number, shown and destroyed.
#include "bench_harness.h"
#include "files/categories.h"
#include "page_bench.h"
#include "settings/settings.h"

namespace {

PageCase g_messages = {5, 2, 10, &g_settings.messages.MsgsIncldFoldBttns, {}, {}, false, {}};
PageCase g_events = {6, 3, 24, &g_settings.sevents.IncldCounters, {}, {}, false, {}};
PageCase g_pim = {9, 2, 6, &g_settings.customPim.HideABCVals, {}, {}, false, {}};

void SetUp(PageCase& bench) {
    SetUpPageBench();
    const wchar_t* names[] = {L"Business", L"Personal", L"Holiday", L"Gifts", L"Ideas", L"Key Customer",
                              L"Miscellaneous", L"Travel", L"Family", L"VIP Clients", L"Waiting", L"Status"};
    for (const wchar_t* name : names) {
        CategoryRecord* record = new CategoryRecord;
        record->name.assign(name);
        InsertCategory(g_categories, record);
    }
    ReadPageClasses(bench);
}

void TearDown() {
    TearDownPageBench();
    ClearCategories(g_categories);
}

BenchRegistration g_messagesCase({"Messages page: open, 2 sections, close", "same 10 controls and tabs, bare",
                                  [] { SetUp(g_messages); }, [] { OpenShowAndClose(g_messages); },
                                  [] { CreateBare(g_messages); }, TearDown, 20});
BenchRegistration g_eventsCase({"Special events page: open, 3 sections, close", "same 24 controls and tabs, bare",
                                [] { SetUp(g_events); }, [] { OpenShowAndClose(g_events); },
                                [] { CreateBare(g_events); }, TearDown, 20});
BenchRegistration g_pimCase({"PIM page: open, 2 sections, close", "same 6 controls and tabs, bare",
                             [] { SetUp(g_pim); }, [] { OpenShowAndClose(g_pim); }, [] { CreateBare(g_pim); },
                             TearDown, 20});

}  // namespace
