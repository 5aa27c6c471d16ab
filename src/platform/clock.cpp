#include "platform/clock.h"

namespace {

bool g_fixed = false;
SYSTEMTIME g_fixedTime = {};

}  // namespace

void GetProgramLocalTime(SYSTEMTIME* time) {
    if (!time) return;
    if (g_fixed)
        *time = g_fixedTime;
    else
        GetLocalTime(time);
}

void SetProgramLocalTimeForTest(const SYSTEMTIME* fixed) {
    g_fixed = fixed != nullptr;
    if (fixed) g_fixedTime = *fixed;
}
