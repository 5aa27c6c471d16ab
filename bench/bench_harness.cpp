#include "bench_harness.h"

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cwchar>
#include <vector>

namespace {

std::vector<BenchCase>& Cases() {
    static std::vector<BenchCase> cases;
    return cases;
}

double NowMs() {
    static LARGE_INTEGER frequency = [] {
        LARGE_INTEGER f;
        QueryPerformanceFrequency(&f);
        return f;
    }();
    LARGE_INTEGER now;
    QueryPerformanceCounter(&now);
    return 1000.0 * static_cast<double>(now.QuadPart) / static_cast<double>(frequency.QuadPart);
}

long long g_checks = 0;

// One run of one side, timed, then its untimed check; ends the program when neither checked.
double TimedRun(const BenchCase& benchCase, bool baseline) {
    const std::function<void()>& run = baseline ? benchCase.baseline : benchCase.work;
    const std::function<void()>& check = baseline ? benchCase.checkBaseline : benchCase.checkWork;
    long long checksBefore = g_checks;
    double start = NowMs();
    run();
    double elapsed = NowMs() - start;
    if (check) check();
    if (g_checks == checksBefore) {
        printf("BENCH CHECK FAILED: %s: the %s checked nothing of its work\n", benchCase.name,
               baseline ? "baseline" : "measured side");
        fflush(stdout);
        ExitProcess(2);
    }
    return elapsed;
}

// The best of the repetitions: the figure least disturbed by the rest of the machine.
double BestOf(const BenchCase& benchCase, bool baseline, int repetitions) {
    double best = 1e300;
    for (int i = 0; i < repetitions; ++i) best = std::min(best, TimedRun(benchCase, baseline));
    return best;
}

bool Matches(const char* name, const wchar_t* filter) {
    if (!filter) return true;
    wchar_t wide[256];
    swprintf(wide, 256, L"%hs", name);
    return wcsstr(wide, filter) != nullptr;
}

volatile long long g_sink;

}  // namespace

BenchRegistration::BenchRegistration(BenchCase benchCase) { Cases().push_back(std::move(benchCase)); }

void BenchKeep(long long value) { g_sink = g_sink + value; }

void BenchCheck(bool done, const char* what) {
    ++g_checks;
    if (done) return;
    printf("BENCH CHECK FAILED: %s\n", what);
    fflush(stdout);
    ExitProcess(2);
}

void BenchCheckCount(long long actual, long long expected, const char* what) {
    ++g_checks;
    if (actual == expected) return;
    printf("BENCH CHECK FAILED: %s: %lld, expected %lld\n", what, actual, expected);
    fflush(stdout);
    ExitProcess(2);
}

int RunBenchmarks(const wchar_t* filter) {
    printf("%-44s %12s %12s %8s\n", "case (baseline)", "ms", "baseline ms", "ratio");
    int ran = 0;
    for (const BenchCase& c : Cases()) {
        if (!Matches(c.name, filter)) continue;
        if (c.setUp) c.setUp();
        int repetitions = std::max(1, c.repetitions);
        TimedRun(c, false);  // warm caches and the registry once before timing either side
        TimedRun(c, true);
        double work = BestOf(c, false, repetitions);
        double baseline = BestOf(c, true, repetitions);
        if (c.tearDown) c.tearDown();
        printf("%-44s %12.3f %12.3f %8.2f\n", c.name, work, baseline, baseline > 0 ? work / baseline : 0.0);
        printf("  (baseline: %s)\n", c.baselineName);
        fflush(stdout);
        ++ran;
    }
    printf("%d cases, every run checked\n", ran);
    return ran > 0 ? 0 : 1;
}
