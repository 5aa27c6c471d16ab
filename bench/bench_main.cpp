// Benchmarks: each case times the program's own work and a baseline doing comparable raw work,
// in the same process and run, and prints both with their ratio.
#include <windows.h>

#include <cstdio>
#include <cwchar>

#include "bench_harness.h"

int wmain(int argc, wchar_t** argv) {
    const wchar_t* filter = argc > 1 ? argv[1] : nullptr;
    return RunBenchmarks(filter);
}
