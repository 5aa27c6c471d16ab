#include <cwchar>
#include <string>

#include "bench_harness.h"
#include "support/wide_string.h"

namespace {

const int kPieces = 5000;
const long long kCharacters = kPieces * 9LL;  // "Calendar\\" is 9 characters

BenchRegistration g_append({
    "WString append, 5000 pieces", "std::wstring append of the same pieces", nullptr,
    [] {
        WString text;
        for (int i = 0; i < kPieces; ++i) text.append(L"Calendar\\");
        BenchCheckCount(text.length(), kCharacters, "characters appended");
        BenchCheck(wcscmp(text.c_str() + kCharacters - 9, L"Calendar\\") == 0, "last piece appended");
    },
    [] {
        std::wstring text;
        for (int i = 0; i < kPieces; ++i) text.append(L"Calendar\\");
        BenchCheckCount(static_cast<long long>(text.size()), kCharacters, "characters appended");
        BenchCheck(text.compare(kCharacters - 9, 9, L"Calendar\\") == 0, "last piece appended");
    },
    nullptr, 5});

}  // namespace
