#pragma once
// The local date and time the program works with. Program code asks here instead of calling
// GetLocalTime itself, so that a test can put the whole program on a fixed date; the program
// never sets an override and always sees the real clock.
#include <windows.h>

// The device's GetLocalTime, or the fixed time a test has set.
void GetProgramLocalTime(SYSTEMTIME* time);

// For tests only: from now on GetProgramLocalTime answers `fixed` (copied); null returns to the
// real clock.
void SetProgramLocalTimeForTest(const SYSTEMTIME* fixed);
