#pragma once
// The real program started as its own process, as a user starts it, and waiting for its windows.
#include <windows.h>

#include <string>

const wchar_t kInstalledProgram[] = L"C:\\Program Files\\Orvane\\Quillory\\ql_options.exe";

class ProgramProcess {
public:
    explicit ProgramProcess(const wchar_t* arguments = nullptr) {
        std::wstring commandLine = std::wstring(L"\"") + kInstalledProgram + L"\"";
        if (arguments) commandLine += std::wstring(L" ") + arguments;
        STARTUPINFOW startup = {sizeof startup};
        started_ = CreateProcessW(kInstalledProgram, &commandLine[0], nullptr, nullptr, FALSE, 0, nullptr, L"C:\\",
                                  &startup, &process_) != 0;
    }
    ~ProgramProcess() {
        if (!started_) return;
        if (WaitForSingleObject(process_.hProcess, 0) == WAIT_TIMEOUT) TerminateProcess(process_.hProcess, 1);
        CloseHandle(process_.hProcess);
        CloseHandle(process_.hThread);
    }
    ProgramProcess(const ProgramProcess&) = delete;
    ProgramProcess& operator=(const ProgramProcess&) = delete;
    bool started() const { return started_; }
    DWORD id() const { return process_.dwProcessId; }
    // Exit code once the process ended within `ms`, or -1.
    long WaitExit(DWORD ms) {
        if (WaitForSingleObject(process_.hProcess, ms) != WAIT_OBJECT_0) return -1;
        DWORD code = 0;
        GetExitCodeProcess(process_.hProcess, &code);
        return static_cast<long>(code);
    }

private:
    bool started_ = false;
    PROCESS_INFORMATION process_ = {};
};

// Polls for a top-level window of `className` (any class when null) titled `title` (any when null).
inline HWND WaitForTopWindow(const wchar_t* className, const wchar_t* title, DWORD ms = 20000) {
    DWORD start = GetTickCount();
    do {
        if (HWND window = FindWindowW(className, title)) return window;
        Sleep(50);
    } while (GetTickCount() - start < ms);
    return nullptr;
}

// Polls until the window is visible (true) or gone (false).
inline bool WaitForVisible(HWND window, DWORD ms = 10000) {
    DWORD start = GetTickCount();
    while (!IsWindowVisible(window)) {
        if (!IsWindow(window) || GetTickCount() - start > ms) return false;
        Sleep(50);
    }
    return true;
}

// Polls until the window is destroyed.
inline bool WaitForGone(HWND window, DWORD ms = 10000) {
    DWORD start = GetTickCount();
    while (IsWindow(window) && GetTickCount() - start < ms) Sleep(50);
    return !IsWindow(window);
}
