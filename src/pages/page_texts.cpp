#include "pages/page_texts.h"

#include "platform/clock.h"

namespace {
const int kMostText = 256;
}  // namespace

WString ControlText(HWND window) {
    wchar_t text[kMostText + 1] = {};
    if (window) GetWindowTextW(window, text, kMostText + 1);
    return WString(text);
}

SYSTEMTIME TodayDate() {
    SYSTEMTIME now;
    GetProgramLocalTime(&now);
    now.wHour = now.wMinute = now.wSecond = now.wMilliseconds = 0;
    return now;
}
