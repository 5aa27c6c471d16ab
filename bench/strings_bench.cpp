#include <cwchar>
#include <string>

#include "bench_harness.h"
#include "support/wide_string.h"

namespace {

const int kPieces = 5000;

BenchRegistration g_append({
    "WString append, 5000 pieces", "std::wstring append of the same pieces", nullptr,
    [] {
        WString text;
        for (int i = 0; i < kPieces; ++i) text.append(L"Calendar\\");
        BenchKeep(text.length());
    },
    [] {
        std::wstring text;
        for (int i = 0; i < kPieces; ++i) text.append(L"Calendar\\");
        BenchKeep(static_cast<long long>(text.size()));
    },
    nullptr, 5});

}  // namespace
