#pragma once
// A small in-process timing harness. A case registers two functions, the work measured and a
// baseline of comparable raw work; both are run the same number of times in the same process.
// Every run of either side must show that it did its work: at least one BenchCheck or
// BenchCheckCount, made by the run itself or by the untimed check that follows it; a side that
// checks nothing fails the whole run.
#include <functional>

struct BenchCase {
    const char* name;
    const char* baselineName;
    std::function<void()> setUp;      // once, before timing (may be empty)
    std::function<void()> work;
    std::function<void()> baseline;
    std::function<void()> tearDown;   // once, after timing (may be empty)
    int repetitions;
    // Untimed, after every run of the work or the baseline (may be empty): checks what the run
    // left behind, and may undo it so that the next run has the same work to do again.
    std::function<void()> checkWork;
    std::function<void()> checkBaseline;
};

// Registers a case at static-initialisation time.
struct BenchRegistration {
    explicit BenchRegistration(BenchCase benchCase);
};

// Runs every case whose name contains `filter` (all when null); returns 0, or 1 when no case
// matched the filter.
int RunBenchmarks(const wchar_t* filter);

// Keeps a value alive so the optimiser cannot drop the work that made it.
void BenchKeep(long long value);

// Every case checks that it did the work it names (items listed, values read, bytes written).
// A failed check prints what was expected and ends the run with exit code 2: a figure for work
// that was not done is worse than none.
void BenchCheck(bool done, const char* what);
void BenchCheckCount(long long actual, long long expected, const char* what);
