#include "common/dialog_answer.h"

namespace {

struct Search {
    DWORD process;
    HWND found;
};

BOOL CALLBACK FindDialog(HWND window, LPARAM parameter) {
    auto* search = reinterpret_cast<Search*>(parameter);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    wchar_t className[32] = {};
    GetClassNameW(window, className, 32);
    if (process == search->process && IsWindowVisible(window) && wcscmp(className, L"#32770") == 0) {
        search->found = window;
        return FALSE;
    }
    return TRUE;
}

BOOL CALLBACK CollectText(HWND child, LPARAM parameter) {
    wchar_t className[32] = {};
    GetClassNameW(child, className, 32);
    if (_wcsicmp(className, L"Static") == 0) {
        wchar_t text[1024] = {};
        GetWindowTextW(child, text, 1024);
        if (text[0]) *reinterpret_cast<std::wstring*>(parameter) += text;
    }
    return TRUE;
}

}  // namespace

DialogAnswerer::DialogAnswerer(int command, DWORD timeoutMs, DWORD processId)
    : command_(command), timeoutMs_(timeoutMs), processId_(processId) {
    thread_ = CreateThread(nullptr, 0, Watch, this, 0, nullptr);
}

DialogAnswerer::~DialogAnswerer() { Wait(); }

bool DialogAnswerer::Wait() {
    if (thread_) {
        WaitForSingleObject(thread_, INFINITE);
        CloseHandle(thread_);
        thread_ = nullptr;
    }
    return answered_;
}

DWORD WINAPI DialogAnswerer::Watch(void* self) {
    auto* answerer = static_cast<DialogAnswerer*>(self);
    DWORD start = GetTickCount();
    while (GetTickCount() - start < answerer->timeoutMs_) {
        Search search = {answerer->processId_, nullptr};
        EnumWindows(FindDialog, reinterpret_cast<LPARAM>(&search));
        if (search.found) {
            wchar_t caption[256] = {};
            GetWindowTextW(search.found, caption, 256);
            answerer->caption_ = caption;
            EnumChildWindows(search.found, CollectText, reinterpret_cast<LPARAM>(&answerer->text_));
            PostMessageW(search.found, WM_COMMAND, MAKEWPARAM(answerer->command_, BN_CLICKED), 0);
            answerer->answered_ = true;
            return 0;
        }
        Sleep(20);
    }
    return 0;
}
