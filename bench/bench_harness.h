#pragma once
// A small in-process timing harness. A case registers two functions, the work measured and a
// baseline of comparable raw work; both are run the same number of times in the same process.
#include <functional>

struct BenchCase {
    const char* name;
    const char* baselineName;
    std::function<void()> setUp;      // once, before timing (may be empty)
    std::function<void()> work;
    std::function<void()> baseline;
    std::function<void()> tearDown;   // once, after timing (may be empty)
    int repetitions;
};

// Registers a case at static-initialisation time.
struct BenchRegistration {
    explicit BenchRegistration(BenchCase benchCase);
};

// Runs every case whose name contains `filter` (all when null); returns 0.
int RunBenchmarks(const wchar_t* filter);

// Keeps a value alive so the optimiser cannot drop the work that made it.
void BenchKeep(long long value);

// Every case checks that it did the work it names (items listed, values read, bytes written).
// A failed check prints what was expected and ends the run with exit code 2: a figure for work
// that was not done is worse than none.
void BenchCheck(bool done, const char* what);
void BenchCheckCount(long long actual, long long expected, const char* what);
